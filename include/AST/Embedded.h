//===- Embedded.h - the commands of embedded languages ----------*- C++ -*-===//
//
// What an EXEC block says: one command of CICS, SQL or DL/I with its operands.
// An operand names what it is to the command (an option of CICS, a clause of
// SQL), says what the command does with it, and holds the reference to the data
// item, the literal, or the name that is written there. References are bound as
// those of other statements are.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_EMBEDDED_H
#define TARKA_AST_EMBEDDED_H

#include "AST/Expression.h"
#include "AST/Kinds.h"
#include "AST/Names.h"
#include <array>

namespace tarka {

struct CicsCommandInfo;
class Paragraph;
class Section;

/// One operand of a command: an option with or without an argument, a host variable, a name.
class EmbeddedOperand : public Node {
public:
  /// \p operandName is the option or clause in upper case, such as INTO; see internString().
  EmbeddedOperand(const SourceRange &where, const std::string *operandName, EmbeddedRole does)
      : Node(where), name(operandName), role(does) {}

  /// The option of CICS or DL/I, or what the operand is in SQL: "INTO", "INDICATOR", "CURSOR",
  /// "STATEMENT", "DESCRIPTOR", or the empty text for a host variable that is a value.
  const std::string &getName() const { return *name; }

  TARKA_FIELD(EmbeddedRole, role, Role)
  /// The argument as far as it is a data item, a literal or another expression of COBOL; null for
  /// an option without an argument, for a name, and for an argument that is not understood.
  TARKA_FIELD(Expression *, value, Value)
  /// A name that is no data item: a procedure-name for a label, a cursor, a statement name. Null
  /// where there is none.
  TARKA_FIELD(Word *, word, Word)
  /// Of a label, the section or the paragraph that the checks have found for it; at most one of
  /// them is set.
  TARKA_FIELD(Section *, section, Section)
  TARKA_FIELD(Paragraph *, paragraph, Paragraph)
  /// The option is written with parentheses, whatever stands in them.
  TARKA_FLAG(argument, WithArgument)

  /// Whether the command may change what \p value refers to.
  bool isWritten() const {
    return role == EmbeddedRole::Written || role == EmbeddedRole::ReadWritten;
  }
  bool isRead() const { return role == EmbeddedRole::Read || role == EmbeddedRole::ReadWritten; }

private:
  const std::string *name;
  Expression *value = nullptr;
  Word *word = nullptr;
  Section *section = nullptr;
  Paragraph *paragraph = nullptr;
  EmbeddedRole role;
  bool argument = false;
};

/// The command of a block.
class EmbeddedCommand : public Node {
public:
  EmbeddedCommand(const SourceRange &where, ExecType of, const std::string *commandName)
      : Node(where), name(commandName), language(of) {}

  ExecType getLanguage() const { return language; }
  /// The words of the command in upper case, such as SEND MAP, FETCH, GU.
  const std::string &getName() const { return *name; }

  /// The operand of that name; null when the command has none.
  EmbeddedOperand *find(llvm::StringRef operandName) const {
    for (EmbeddedOperand *operand : operands)
      if (operand->getName() == operandName)
        return operand;
    return nullptr;
  }
  bool has(llvm::StringRef operandName) const { return find(operandName) != nullptr; }

  /// In the order written.
  TARKA_LIST_ADD(EmbeddedOperand, operands, Operand, Operand)

private:
  NodeList<EmbeddedOperand> operands;
  const std::string *name;
  ExecType language;
};

/// A command of CICS.
class CicsCommand : public EmbeddedCommand {
public:
  CicsCommand(const SourceRange &where, const std::string *commandName, const CicsCommandInfo *row)
      : EmbeddedCommand(where, ExecType::Cics, commandName), info(row) {}

  /// The row of the table of commands; null for a command that is not in it.
  const CicsCommandInfo *getInfo() const { return info; }

  static bool classof(const EmbeddedCommand *c) { return c->getLanguage() == ExecType::Cics; }

private:
  const CicsCommandInfo *info;
};

/// What an SQL statement does with one table or view.
class SqlTableUse : public Node {
public:
  SqlTableUse(const SourceRange &where, const std::string *tableName, TableAccess does)
      : Node(where), table(tableName), access(does) {}

  /// In upper case unless it is delimited, with its qualifier: PAYROLL.EMP.
  const std::string &getTable() const { return *table; }
  TableAccess getAccess() const { return access; }

  /// The columns that the statement names for this access, as far as they are certain.
  TARKA_LIST_ADD(Word, columns, Column, Column)

private:
  const std::string *table;
  NodeList<Word> columns;
  TableAccess access;
};

/// A statement of SQL. One that is not understood has the kind Other and its host variables.
class SqlCommand : public EmbeddedCommand {
public:
  SqlCommand(const SourceRange &where, const std::string *commandName, SqlKind what)
      : EmbeddedCommand(where, ExecType::Sql, commandName), kind(what) {}

  /// Whether the statement does something when the program runs; the others only declare.
  bool isExecutable() const {
    return kind != SqlKind::Declaration && kind != SqlKind::DeclareCursor &&
           kind != SqlKind::DeclareTable && kind != SqlKind::DeclareStatement &&
           kind != SqlKind::Whenever;
  }

  TARKA_FIELD(SqlKind, kind, Kind)
  /// The cursor that the statement declares or uses; null when it names none.
  TARKA_FIELD(Word *, cursor, Cursor)
  /// The name of a prepared statement: what PREPARE makes, EXECUTE runs, DESCRIBE describes and
  /// DECLARE CURSOR FOR names. Null without one.
  TARKA_FIELD(Word *, statementName, StatementName)
  /// How many columns the outermost SELECT of a query gives; 0 when it is not certain.
  TARKA_FIELD(unsigned, columnCount, ColumnCount)
  /// WHENEVER: what it is about; of the others None.
  TARKA_FIELD(WheneverCondition, whenever, Whenever)
  /// WHENEVER ... GO TO: the operand that holds the procedure-name; null for CONTINUE and for other
  /// statements.
  EmbeddedOperand *getLabel() const { return find("LABEL"); }
  /// The WHENEVER that holds for \p condition at this statement: the last one before it in the
  /// text. Null where there is none.
  SqlCommand *getWheneverFor(WheneverCondition condition) const {
    return inForce[static_cast<std::size_t>(condition)];
  }
  void setWheneverFor(WheneverCondition condition, SqlCommand *statement) {
    inForce[static_cast<std::size_t>(condition)] = statement;
  }
  /// The tables and views that the statement names.
  TARKA_LIST_ADD(SqlTableUse, tables, Table, Table)

  static bool classof(const EmbeddedCommand *c) { return c->getLanguage() == ExecType::Sql; }

private:
  NodeList<SqlTableUse> tables;
  Word *cursor = nullptr;
  Word *statementName = nullptr;
  std::array<SqlCommand *, 4> inForce{}; ///< by WheneverCondition
  unsigned columnCount = 0;
  SqlKind kind;
  WheneverCondition whenever = WheneverCondition::None;
};

} // namespace tarka

#endif // TARKA_AST_EMBEDDED_H
