//===- TreePrinter.h - the walk over the tree, and where it goes -*- C++ -*-===//
//
// TreePrinter walks the tree once and passes the nodes to a TreeSink; the sinks
// write text and JSON.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_TREEPRINTER_H
#define TARKA_TOOLS_TREEPRINTER_H

#include "AST/Condition.h"
#include "AST/Embedded.h"
#include "AST/Environment.h"
#include "AST/Program.h"
#include "AST/ReportDescription.h"
#include "AST/Statement.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <cstdint>

namespace tarka {

/// A node that is referred to: by its name and place.
struct TreeTarget {
  llvm::StringRef name;
  SourceRange place;
};

/// Receives a node: its kind and place, then its properties, then the nodes below it.
class TreeSink {
public:
  virtual ~TreeSink() = default;

  /// Begins a node; \p role is what it is to the node around it, and may be empty.
  virtual void open(llvm::StringRef role, llvm::StringRef kind, const SourceRange &place) = 0;
  virtual void close() = 0;

  virtual void text(llvm::StringRef name, llvm::StringRef value) = 0;
  virtual void texts(llvm::StringRef name, llvm::ArrayRef<llvm::StringRef> values) = 0;
  virtual void number(llvm::StringRef name, std::int64_t value) = 0;
  virtual void numbers(llvm::StringRef name, llvm::ArrayRef<std::int64_t> values) = 0;
  /// The node has the property \p name.
  virtual void flag(llvm::StringRef name) = 0;
  /// Another node of the tree that this one stands for.
  virtual void target(llvm::StringRef name, const TreeTarget &to) = 0;
  virtual void targets(llvm::StringRef name, llvm::ArrayRef<TreeTarget> to) = 0;
};

class TreePrinter {
public:
  explicit TreePrinter(TreeSink &where) : sink(where) {}

  void print(Program &program);

private:
  /// A node from here to the end of the scope.
  class Open {
  public:
    Open(TreeSink &where, llvm::StringRef role, llvm::StringRef kind, const SourceRange &place = {})
        : sink(where) {
      sink.open(role, kind, place);
    }
    Open(const Open &) = delete;
    Open &operator=(const Open &) = delete;
    ~Open() { sink.close(); }

  private:
    TreeSink &sink;
  };

  template <typename Part> void one(llvm::StringRef role, Part *part) {
    if (part)
      print(role, *part);
  }
  template <typename List> void all(llvm::StringRef role, const List &parts) {
    for (auto *part : parts)
      one(role, part);
  }
  void name(llvm::StringRef role, const Word *word) {
    if (word)
      sink.text(role, word->getDisplayName());
  }
  void flag(llvm::StringRef role, bool holds) {
    if (holds)
      sink.flag(role);
  }
  void procedure(llvm::StringRef role, Section *section, Paragraph *paragraph);
  void range(ProcedureRange &range);
  template <typename SortOrMerge> void sequence(SortOrMerge &statement);

  /// An operand, whatever class of expressions it is declared as.
  void operand(llvm::StringRef role, Expression *expression) {
    if (expression)
      print(role, *expression);
  }
  void words(llvm::StringRef role, const NodeList<Word> &list);
  /// Other entries of the division, which are referred to.
  void entry(llvm::StringRef role, const DataDescription *to);
  template <typename List> void entries(llvm::StringRef role, const List &list);

  // The commands of embedded languages.
  void print(llvm::StringRef role, EmbeddedCommand &command);
  void print(llvm::StringRef role, SqlTableUse &table);
  void print(llvm::StringRef role, EmbeddedOperand &operandOfCommand);

  // The environment and the clauses of entries.
  void print(llvm::StringRef role, EnvironmentDivision &division);
  void print(llvm::StringRef role, ConfigurationSection &section);
  void print(llvm::StringRef role, ParaSpecialNames &names);
  void print(llvm::StringRef role, ParaFileControl &file);
  void print(llvm::StringRef role, ParaIOControl &entry);
  void print(llvm::StringRef role, ClauseValue &value);
  void print(llvm::StringRef role, ClauseSource &source);
  void print(llvm::StringRef role, ClauseFunction &function);
  void print(llvm::StringRef role, SumClauseExpr &sum);
  void print(llvm::StringRef role, CountClauseExpr &count);
  void print(llvm::StringRef role, VaryingPhrase &phrase);
  void properties(DataDescription &entry);
  void properties(ReportDataDescription &entry);
  void properties(ReportDescription &report);
  void clauses(DataDescription &entry);
  void clauses(FileDescription &file);
  void clauses(ReportDescription &report);
  void clauses(ReportDataDescription &entry);
  void repetition(ReportDataDescription &entry);
  void contents(PresentContents &present);

  // Structure and data.
  void print(llvm::StringRef role, SourceUnit &unit);
  void print(llvm::StringRef role, DataDivision &division);
  void print(llvm::StringRef role, DataDescription &entry);
  void print(llvm::StringRef role, FileDescription &file);
  void print(llvm::StringRef role, ReportDescription &report);
  void print(llvm::StringRef role, ProcedureDivision &division);
  void print(llvm::StringRef role, Declaratives &declarative);
  void print(llvm::StringRef role, Section &section);
  void print(llvm::StringRef role, Paragraph &paragraph);
  void print(llvm::StringRef role, Sentence &sentence);
  void print(llvm::StringRef role, QualifiedWord &words);

  // Operands and conditions.
  void print(llvm::StringRef role, Expression &expression);
  void print(llvm::StringRef role, ReferenceModifier &modifier);
  void print(llvm::StringRef role, AbbrRelationItem &item);
  void print(llvm::StringRef role, Condition &condition);
  class OperandFields;
  class ConditionFields;
  void fields(AbbrRelationCombinedExpression &objects);
  void fields(ArithmeticExpression &expression);
  void fields(DataIdentifierExpression &identifier);
  void fields(FigurativeLiteralExpression &constant);
  void fields(FileIdentifierExpression &file);
  void fields(FunctionIdentifierExpression &function);
  void fields(LiteralExpression &literal);
  void fields(ReportIdentifierExpression &report);
  void fields(SpecialRegisterIdentifierExpression &specialRegister);
  void fields(AbbrRelationalCondition &relation);
  void fields(ClassCondition &condition);
  void fields(CombinedCondition &condition);
  void fields(ConditionNameCondition &condition);
  void fields(NegatedCondition &condition);
  void fields(RelationalCondition &relation);
  void fields(SignCondition &condition);
  void fields(SwitchCondition &status);
  void common(Expression &expression);
  void steps(llvm::ArrayRef<ArithmeticExpression *> chain);

  // Statements and their parts.
  void print(llvm::StringRef role, Statement &statement);
  void print(llvm::StringRef role, ExceptionHandler &handler);
  void print(llvm::StringRef role, RoundedOperand &operand);
  void print(llvm::StringRef role, Argument &argument);
  void print(llvm::StringRef role, Parameter &parameter);
  void print(llvm::StringRef role, AlterItem &item);
  void print(llvm::StringRef role, PerformVarying &phrase);
  void print(llvm::StringRef role, EvaluateSubject &subject);
  void print(llvm::StringRef role, EvaluateCase &oneCase);
  void print(llvm::StringRef role, EvaluateWhen &when);
  void print(llvm::StringRef role, EvaluateObject &object);
  void print(llvm::StringRef role, SearchWhen &when);
  void print(llvm::StringRef role, SetItem &item);
  void print(llvm::StringRef role, InitializeReplacingItem &item);
  void print(llvm::StringRef role, InspectRegion &region);
  void print(llvm::StringRef role, TallyingItem &item);
  void print(llvm::StringRef role, TallyingItemFor &item);
  void print(llvm::StringRef role, TallyingRegion &region);
  void print(llvm::StringRef role, ReplacingItem &item);
  void print(llvm::StringRef role, ReplacingRegion &region);
  void print(llvm::StringRef role, ConvertingItem &item);
  void print(llvm::StringRef role, StringItem &item);
  void print(llvm::StringRef role, UnstringDelimitedItem &item);
  void print(llvm::StringRef role, UnstringIntoItem &item);
  void print(llvm::StringRef role, OpenItem &item);
  void print(llvm::StringRef role, WriteAdvancing &phrase);
  void print(llvm::StringRef role, SortKey &key);
  void print(llvm::StringRef role, SortIO &phrase);
  void print(llvm::StringRef role, XMLNameItem &item);
  void print(llvm::StringRef role, XMLTypeItem &item);
  void print(llvm::StringRef role, XMLSuppressItem &item);

  class Fields;
  void fields(AcceptStatement &statement);
  void fields(AddStatement &statement);
  void fields(AlterStatement &statement);
  void fields(CallStatement &statement);
  void fields(CancelStatement &statement);
  void fields(CloseStatement &statement);
  void fields(ComputeStatement &statement);
  void fields(DeleteStatement &statement);
  void fields(DisplayStatement &statement);
  void fields(DivideStatement &statement);
  void fields(EntryStatement &statement);
  void fields(EvaluateStatement &statement);
  void fields(ExamineStatement &statement);
  void fields(ExecStatement &statement);
  void fields(ExhibitStatement &statement);
  void fields(ExitPerformStatement &statement);
  void fields(GotoStatement &statement);
  void fields(IfStatement &statement);
  void fields(InitializeStatement &statement);
  void fields(InspectStatement &statement);
  void fields(MergeStatement &statement);
  void fields(MoveStatement &statement);
  void fields(MultiplyStatement &statement);
  void fields(OnStatement &statement);
  void fields(OpenStatement &statement);
  void fields(PerformStatement &statement);
  void fields(ReadStatement &statement);
  void fields(ReleaseStatement &statement);
  void fields(ReturnStatement &statement);
  void fields(RewriteStatement &statement);
  void fields(RwGenerateStatement &statement);
  void fields(RwInitiateStatement &statement);
  void fields(RwTerminateStatement &statement);
  void fields(SearchStatement &statement);
  void fields(SetStatement &statement);
  void fields(SortStatement &statement);
  void fields(StartStatement &statement);
  void fields(StopStatement &statement);
  void fields(StringStatement &statement);
  void fields(SubtractStatement &statement);
  void fields(TraceStatement &statement);
  void fields(TransformStatement &statement);
  void fields(UnstringStatement &statement);
  void fields(UseStatement &statement);
  void fields(WriteStatement &statement);
  void fields(XMLGenerateStatement &statement);
  void fields(OperandStatement &statement);
  void fields(XMLParseStatement &statement);

  TreeSink &sink;
};

} // namespace tarka

#endif // TARKA_TOOLS_TREEPRINTER_H
