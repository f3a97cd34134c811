//===- StatementFile.h - input-output statements ----------------*- C++ -*-===//
//
// OPEN, CLOSE, READ, WRITE, REWRITE, DELETE, START, RETURN, RELEASE, SORT,
// MERGE and USE.
//
// In these classes getFileName() is the file that a statement names. It hides
// the name of the source file, which is to be asked through a Node.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_STATEMENTFILE_H
#define TARKA_AST_STATEMENTFILE_H

#include "AST/StatementBase.h"

namespace tarka {

/// The base of the statements that can enter a USE procedure.
class FileStatement : public Statement {
public:
  /// True when a USE procedure may run during the statement; set by the check.
  bool getIsDeclaratives() const { return declaratives; }
  void setIsDeclaratives(bool value) { declaratives = value; }

  static bool classof(const Statement *s) {
    switch (s->getType()) {
    case StatementType::Open:
    case StatementType::Close:
    case StatementType::Read:
    case StatementType::Write:
    case StatementType::Rewrite:
    case StatementType::Delete:
    case StatementType::Start:
    case StatementType::Return:
    case StatementType::Release:
      return true;
    default:
      return false;
    }
  }

protected:
  using Statement::Statement;

private:
  bool declaratives = false;
};

/// file-name [REVERSED | WITH NO REWIND]
class OpenFile : public Node {
public:
  OpenFile(const Node *at, FileIdentifierExpression *file, OpenOption how = OpenOption::None)
      : Node(at), option(how), fileName(file) {}

  TARKA_FIELD(OpenOption, option, Option)
  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)

private:
  OpenOption option = OpenOption::None;
  FileIdentifierExpression *fileName = nullptr;
};

/// {INPUT | OUTPUT | I-O | EXTEND} file...
class OpenItem : public Node {
public:
  OpenItem(const Node *at, OpenType mode) : Node(at), type(mode) {}

  TARKA_FIELD(OpenType, type, Type)
  TARKA_LIST_ADD(OpenFile, files, FileList, File)

private:
  OpenType type = OpenType::Input;
  NodeList<OpenFile> files;
};

/// OPEN {{INPUT | OUTPUT | I-O | EXTEND} file...}...
class OpenStatement : public StatementOf<StatementType::Open, FileStatement> {
public:
  explicit OpenStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(OpenItem, items, ItemList, Item)

private:
  NodeList<OpenItem> items;
};

/// file-name [{REEL | UNIT} [FOR REMOVAL | WITH NO REWIND] | WITH NO REWIND | WITH LOCK]
class CloseFile : public Node {
public:
  CloseFile(const Node *at, FileIdentifierExpression *file, CloseOption how = CloseOption::None)
      : Node(at), option(how), fileName(file) {}

  TARKA_FIELD(CloseOption, option, Option)
  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)

private:
  CloseOption option = CloseOption::None;
  FileIdentifierExpression *fileName = nullptr;
};

/// CLOSE file...
class CloseStatement : public StatementOf<StatementType::Close, FileStatement> {
public:
  explicit CloseStatement(const Node *at) : StatementOf(at) {}

  TARKA_LIST_ADD(CloseFile, files, CloseFileList, CloseFile)

private:
  NodeList<CloseFile> files;
};

/// READ file-name [NEXT] RECORD [INTO identifier] [KEY IS data-name]
///   [[NOT] AT END statements]... [[NOT] INVALID KEY statements]...
class ReadStatement : public StatementOf<StatementType::Read, FileStatement> {
public:
  ReadStatement(const Node *at, FileIdentifierExpression *file) : StatementOf(at), fileName(file) {}

  /// True for NEXT, written or implied.
  TARKA_FLAG(nextRecord, NextRecord)
  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)
  /// Null without INTO, KEY.
  TARKA_FIELD(IdentifierExpression *, intoIdentifier, IntoIdentifier)
  TARKA_FIELD(IdentifierExpression *, keyName, KeyName)
  TARKA_LIST_ADD(ExceptionHandler, handlers, ErrorList, Error)

private:
  bool nextRecord = false;
  FileIdentifierExpression *fileName = nullptr;
  IdentifierExpression *intoIdentifier = nullptr;
  IdentifierExpression *keyName = nullptr;
  NodeList<ExceptionHandler> handlers;
};

/// {BEFORE | AFTER} ADVANCING {operand [LINES] | mnemonic-name | PAGE}
class WriteAdvancing : public Node {
public:
  /// \p amount is null for PAGE. A mnemonic-name is an identifier until the check looks it up.
  WriteAdvancing(const Node *at, WriteAdvType which, Expression *amount, bool isBefore)
      : Node(at), type(which), before(isBefore), operand(amount) {}

  TARKA_FIELD(WriteAdvType, type, Type)
  /// True when the record is written before the paper moves.
  TARKA_FLAG(before, Before)
  TARKA_FIELD(Expression *, operand, Value)
  /// Null unless the check found a mnemonic-name.
  TARKA_FIELD(Word *, mnemonicName, MnemonicName)

private:
  WriteAdvType type = WriteAdvType::Lines;
  bool before = false;
  Expression *operand = nullptr;
  Word *mnemonicName = nullptr;
};

/// AFTER POSITIONING operand [LINES]
class WritePositioning : public Node {
public:
  WritePositioning(const Node *at, Expression *lines) : Node(at), lineExpr(lines) {}

  TARKA_FIELD(Expression *, lineExpr, LineExpr)

private:
  Expression *lineExpr = nullptr;
};

/// WRITE record-name [FROM identifier] [ADVANCING phrase | POSITIONING phrase]
///   [[NOT] AT END-OF-PAGE statements]... [[NOT] INVALID KEY statements]...
class WriteStatement : public StatementOf<StatementType::Write, FileStatement> {
public:
  WriteStatement(const Node *at, IdentifierExpression *record)
      : StatementOf(at), recordName(record) {}

  TARKA_FIELD(IdentifierExpression *, recordName, RecordName)
  /// Null without FROM.
  TARKA_FIELD(IdentifierExpression *, fromIdentifier, FromIdentifier)
  /// At most one of the two is set.
  TARKA_FIELD(WriteAdvancing *, advancing, Advancing)
  TARKA_FIELD(WritePositioning *, positioning, Positioning)
  TARKA_LIST_ADD(ExceptionHandler, handlers, ExceptionHandlerList, ExceptionHandler)

private:
  IdentifierExpression *recordName = nullptr;
  IdentifierExpression *fromIdentifier = nullptr;
  WriteAdvancing *advancing = nullptr;
  WritePositioning *positioning = nullptr;
  NodeList<ExceptionHandler> handlers;
};

/// REWRITE record-name [FROM identifier] [[NOT] INVALID KEY statements]...
class RewriteStatement : public StatementOf<StatementType::Rewrite, FileStatement> {
public:
  RewriteStatement(const Node *at, IdentifierExpression *record)
      : StatementOf(at), recordName(record) {}

  TARKA_FIELD(IdentifierExpression *, recordName, RecordName)
  /// Null without FROM.
  TARKA_FIELD(IdentifierExpression *, fromIdentifier, FromIdentifier)
  TARKA_LIST_ADD(ExceptionHandler, handlers, InvalidKeyHandler, InvalidKeyHandler)

private:
  IdentifierExpression *recordName = nullptr;
  IdentifierExpression *fromIdentifier = nullptr;
  NodeList<ExceptionHandler> handlers;
};

/// DELETE file-name RECORD [[NOT] INVALID KEY statements]...
class DeleteStatement : public StatementOf<StatementType::Delete, FileStatement> {
public:
  DeleteStatement(const Node *at, FileIdentifierExpression *file)
      : StatementOf(at), fileName(file) {}

  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)
  TARKA_LIST_ADD(ExceptionHandler, handlers, InvalidKeyHandler, InvalidKeyHandler)

private:
  FileIdentifierExpression *fileName = nullptr;
  NodeList<ExceptionHandler> handlers;
};

/// KEY IS relation data-name
class StartKey : public Node {
public:
  StartKey(const Node *at, RelationalConditionType how, IdentifierExpression *name)
      : Node(at), relation(how), dataName(name) {}

  /// Equal, Greater, NotLess or GreaterOrEqual.
  TARKA_FIELD(RelationalConditionType, relation, Relation)
  TARKA_FIELD(IdentifierExpression *, dataName, DataName)

private:
  RelationalConditionType relation = RelationalConditionType::Equal;
  IdentifierExpression *dataName = nullptr;
};

/// START file-name [KEY IS relation data-name] [[NOT] INVALID KEY statements]...
class StartStatement : public StatementOf<StatementType::Start, FileStatement> {
public:
  StartStatement(const Node *at, FileIdentifierExpression *file)
      : StatementOf(at), fileName(file) {}

  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)
  /// Null without KEY.
  TARKA_FIELD(StartKey *, key, Key)
  TARKA_LIST_ADD(ExceptionHandler, handlers, InvalidKeyHandler, InvalidKeyHandler)

private:
  FileIdentifierExpression *fileName = nullptr;
  StartKey *key = nullptr;
  NodeList<ExceptionHandler> handlers;
};

//===----------------------------------------------------------------------===//
// Sorting
//===----------------------------------------------------------------------===//

/// RETURN file-name RECORD [INTO identifier] AT END statements [NOT AT END statements]
class ReturnStatement : public StatementOf<StatementType::Return, FileStatement> {
public:
  ReturnStatement(const Node *at, FileIdentifierExpression *file)
      : StatementOf(at), fileName(file) {}

  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)
  /// Null without INTO.
  TARKA_FIELD(IdentifierExpression *, intoIdentifier, IntoIdentifier)
  TARKA_LIST_ADD(ExceptionHandler, handlers, EndHandler, EndHandler)

private:
  FileIdentifierExpression *fileName = nullptr;
  IdentifierExpression *intoIdentifier = nullptr;
  NodeList<ExceptionHandler> handlers;
};

/// RELEASE record-name [FROM identifier]
class ReleaseStatement : public StatementOf<StatementType::Release, FileStatement> {
public:
  ReleaseStatement(const Node *at, IdentifierExpression *record)
      : StatementOf(at), recordName(record) {}

  TARKA_FIELD(IdentifierExpression *, recordName, RecordName)
  /// Null without FROM.
  TARKA_FIELD(IdentifierExpression *, fromIdentifier, FromIdentifier)

private:
  IdentifierExpression *recordName = nullptr;
  IdentifierExpression *fromIdentifier = nullptr;
};

/// ON {ASCENDING | DESCENDING} KEY data-name...
class SortKey : public Node {
public:
  SortKey(const Node *at, SortOrder direction) : Node(at), order(direction) {}

  TARKA_FIELD(SortOrder, order, Order)
  TARKA_LIST_ADD(IdentifierExpression, keyNames, KeyNameList, KeyName)

private:
  SortOrder order = SortOrder::Ascending;
  NodeList<IdentifierExpression> keyNames;
};

/// {USING | GIVING} file-name...
/// {INPUT | OUTPUT} PROCEDURE IS procedure-name [THROUGH procedure-name]
class SortIO : public Node {
public:
  SortIO(const Node *at, SortIOType format) : Node(at), type(format) {}

  /// The procedures of the procedure format.
  ProcedureRange &getProcedures() { return range; }
  const ProcedureRange &getProcedures() const { return range; }

  /// Records what the first procedure-name refers to, then what the second does.
  void addSection(Section *section) { range.addSection(section); }
  void addParagraph(Paragraph *paragraph) { range.addParagraph(paragraph); }

  /// The first and the last procedure; set by the check, and null where the name refers to a
  /// procedure of the other kind or is not written.
  Section *getFromSection() const { return range.getBeginSection(); }
  void setFromSection(Section *section) { range.setBeginSection(section); }
  Paragraph *getFromParagraph() const { return range.getBeginParagraph(); }
  void setFromParagraph(Paragraph *paragraph) { range.setBeginParagraph(paragraph); }
  Section *getToSection() const { return range.getThruSection(); }
  void setToSection(Section *section) { range.setThruSection(section); }
  Paragraph *getToParagraph() const { return range.getThruParagraph(); }
  void setToParagraph(Paragraph *paragraph) { range.setThruParagraph(paragraph); }

  TARKA_FIELD(SortIOType, type, Type)
  /// Empty in the procedure format.
  TARKA_LIST_ADD(FileIdentifierExpression, fileNames, FileNameList, FileName)
  /// Null in the file format; the second also without THROUGH.
  TARKA_FIELD(QualifiedWord *, fromProcedureName, FromProcedureName)
  TARKA_FIELD(QualifiedWord *, toProcedureName, ToProcedureName)

private:
  SortIOType type = SortIOType::Files;
  NodeList<FileIdentifierExpression> fileNames;
  QualifiedWord *fromProcedureName = nullptr;
  QualifiedWord *toProcedureName = nullptr;
  ProcedureRange range;
};

/// SORT file-name key... [WITH DUPLICATES IN ORDER] [COLLATING SEQUENCE IS alphabet-name]
///   {USING file... | INPUT PROCEDURE ...} {GIVING file... | OUTPUT PROCEDURE ...}
class SortStatement : public StatementOf<StatementType::Sort> {
public:
  SortStatement(const Node *at, FileIdentifierExpression *file) : StatementOf(at), fileName(file) {}

  TARKA_FLAG(duplicates, Duplicates)
  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)
  TARKA_LIST_ADD(SortKey, keys, KeyList, Key)
  /// Null without COLLATING SEQUENCE.
  TARKA_FIELD(Word *, seqAlphaName, SeqAlphaName)
  /// The clause that defines the alphabet; set by the check, null before.
  TARKA_FIELD(ClauseAlphabet *, alphabetClause, AlphabetClause)
  TARKA_FIELD(SortIO *, input, Input)
  TARKA_FIELD(SortIO *, output, Output)

private:
  bool duplicates = false;
  FileIdentifierExpression *fileName = nullptr;
  NodeList<SortKey> keys;
  Word *seqAlphaName = nullptr;
  ClauseAlphabet *alphabetClause = nullptr;
  SortIO *input = nullptr;
  SortIO *output = nullptr;
};

/// MERGE file-name key... [COLLATING SEQUENCE IS alphabet-name]
///   USING file... {GIVING file... | OUTPUT PROCEDURE ...}
class MergeStatement : public StatementOf<StatementType::Merge> {
public:
  MergeStatement(const Node *at, FileIdentifierExpression *file)
      : StatementOf(at), fileName(file) {}

  TARKA_FIELD(FileIdentifierExpression *, fileName, FileName)
  TARKA_LIST_ADD(SortKey, keys, KeySeq, KeySeq)
  /// Null without COLLATING SEQUENCE.
  TARKA_FIELD(Word *, seqAlphaName, SeqAlphaName)
  /// The clause that defines the alphabet; set by the check, null before.
  TARKA_FIELD(ClauseAlphabet *, alphabetClause, AlphabetClause)
  TARKA_FIELD(SortIO *, input, Input)
  TARKA_FIELD(SortIO *, output, Output)

private:
  FileIdentifierExpression *fileName = nullptr;
  NodeList<SortKey> keys;
  Word *seqAlphaName = nullptr;
  ClauseAlphabet *alphabetClause = nullptr;
  SortIO *input = nullptr;
  SortIO *output = nullptr;
};

//===----------------------------------------------------------------------===//
// Declaratives
//===----------------------------------------------------------------------===//

/// A procedure that USE FOR DEBUGGING names, as resolved by the check; one of the two is null.
class UseProcedure : public Node {
public:
  explicit UseProcedure(const Node *at) : Node(at) {}

  TARKA_FIELD(Section *, section, Section)
  TARKA_FIELD(Paragraph *, paragraph, Paragraph)

private:
  Section *section = nullptr;
  Paragraph *paragraph = nullptr;
};

/// USE [GLOBAL] AFTER STANDARD {EXCEPTION | ERROR} PROCEDURE ON
///   {file-name... | INPUT | OUTPUT | I-O | EXTEND} [GIVING data-name...]
/// USE [GLOBAL] {AFTER | BEFORE} STANDARD [BEGINNING | ENDING] [FILE | REEL | UNIT]
///   LABEL PROCEDURE ON {file-name... | INPUT | OUTPUT | I-O | EXTEND}
/// USE [GLOBAL] BEFORE REPORTING group...
/// USE FOR DEBUGGING ON {procedure-name... | ALL PROCEDURES}
class UseStatement : public StatementOf<StatementType::Use> {
public:
  UseStatement(const Node *at, UseTimingType when) : StatementOf(at), timingType(when) {}

  TARKA_FIELD(UseTimingType, timingType, TimingType)
  /// None when files are named.
  TARKA_FIELD(UseFileMode, fileMode, FileMode)
  TARKA_FIELD(UseLabelType, labelType, LabelType)
  TARKA_FIELD(UseLabelPosition, labelPosition, LabelPosition)
  TARKA_FLAG(global, Global)
  /// True for FOR DEBUGGING ON ALL PROCEDURES.
  TARKA_FLAG(allProcedures, AllProcedures)
  TARKA_LIST_ADD(IdentifierExpression, files, FileList, File)
  /// The items of GIVING.
  TARKA_LIST_ADD(IdentifierExpression, givingItems, GivingList, Giving)
  /// The groups of BEFORE REPORTING.
  TARKA_LIST_ADD(IdentifierExpression, reports, ReportList, Report)
  /// The names of FOR DEBUGGING, and the procedures that they refer to, null before the check.
  TARKA_LIST_ADD(Word, procedures, ProcedureList, Procedure)
  TARKA_FIELD(std::list<UseProcedure *> *, useProcedures, UseProcedureList)

private:
  UseTimingType timingType = UseTimingType::None;
  UseFileMode fileMode = UseFileMode::None;
  UseLabelType labelType = UseLabelType::None;
  UseLabelPosition labelPosition = UseLabelPosition::None;
  bool global = false;
  bool allProcedures = false;
  NodeList<IdentifierExpression> files;
  NodeList<IdentifierExpression> givingItems;
  NodeList<IdentifierExpression> reports;
  NodeList<Word> procedures;
  std::list<UseProcedure *> *useProcedures = nullptr;
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTFILE_H
