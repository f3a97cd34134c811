//===- CFGBuilder.h - from the checked tree to the graph --------*- C++ -*-===//
//
// Lowers a checked program to the control-flow graph. docs/cfg.md shows the
// shape of every construct.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_CFGBUILDER_H
#define TARKA_ANALYZER_CFGBUILDER_H

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CFG.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// Builds the graph of one compilation. The tree must have passed its checks: the builder relies on
/// what they resolve and attach, and reports nothing.
///
/// Every handler appends to the current block and leaves the builder on the block where the next
/// statement belongs.
class CFGBuilder {
public:
  /// One function for every source unit of \p program, in source order, a unit before those nested
  /// in it. The function of the report declaratives is left in the compilation context.
  CFGModule *createModule(Program &program);

  /// Adds the function of \p unit to the module, without those of the units nested in it.
  void analysisSourceUnit(SourceUnit &unit);
  CFGGraph *createCFG(CFGFunc *function, SourceUnit &unit);
  /// Adds the items of working-storage to the module. The result has no meaning.
  bool analysisDecl(DataDivision &division);
  void analysisRptDeclaratives(ProcedureDivision *division);
  void analysisBaseDeclaratives(ProcedureDivision *division);
  void analysisSection(Section &section);
  void analysisParagraph(Paragraph &paragraph);
  void analysisSentence(Sentence &sentence);
  void analysisStatement(Statement &statement);

  // Simple transfers of control.
  void analysisEntryStmt(EntryStatement *statement);
  void analysisExitParagraphStmt(ExitParagraphStatement *statement);
  void analysisExitProgramStmt(ExitProgramStatement *statement);
  void analysisExitSectionStmt(ExitSectionStatement *statement);
  void analysisGobackStmt(GobackStatement *statement);
  void analysisGotoStmt(GotoStatement *statement);
  void analysisNextSentenceStmt(NextSentenceStatement *statement);

  // Branches.
  void analysisEvaluateStmt(EvaluateStatement *statement);
  void analysisIfStmt(IfStatement *statement);
  void analysisOnStmt(OnStatement *statement);

  // Statements with conditional phrases.
  void analysisAddStmt(AddStatement *statement);
  void analysisCallStmt(CallStatement *statement);
  void analysisComputeStmt(ComputeStatement *statement);
  void analysisDeleteStmt(DeleteStatement *statement);
  void analysisDivideStmt(DivideStatement *statement);
  void analysisMultiplyStmt(MultiplyStatement *statement);
  void analysisReadStmt(ReadStatement *statement);
  void analysisReturnStmt(ReturnStatement *statement);
  void analysisRewriteStmt(RewriteStatement *statement);
  void analysisStartStmt(StartStatement *statement);
  void analysisStringStmt(StringStatement *statement);
  void analysisSubtractStmt(SubtractStatement *statement);
  void analysisUnstringStmt(UnstringStatement *statement);
  void analysisWriteStmt(WriteStatement *statement);
  void analysisJsonGenerateStmt(JsonGenerateStatement *statement);
  void analysisJsonParseStmt(JsonParseStatement *statement);
  void analysisInvokeStmt(InvokeStatement *statement);
  void analysisXmlGenerateStmt(XMLGenerateStatement *statement);

  // Loops and statements that perform procedures.
  void analysisExitPerformStmt(ExitPerformStatement *statement);
  void analysisMergeStmt(MergeStatement *statement);
  void analysisPerformStmt(PerformStatement *statement);
  void analysisSearchStmt(SearchStatement *statement);
  void analysisSortStmt(SortStatement *statement);
  void analysisXmlParseStmt(XMLParseStatement *statement);

  // Statements of OS/VS COBOL, which the checks turned into others.
  void analysisExamineStmt(ExamineStatement *statement);
  void analysisExhibitStmt(ExhibitStatement *statement);
  void analysisTransformStmt(TransformStatement *statement);

private:
  using BlockList = llvm::SmallVector<CFGBlock *, 4>;
  using StatementList = NodeList<Statement>;
  using HandlerList = NodeList<ExceptionHandler>;

  /// The names of the branches of a statement with an exception phrase.
  struct BranchNames {
    llvm::StringLiteral exception;
    llvm::StringLiteral notException;
  };

  // The steps that every lowering consists of.
  CFGBlock *continueOn(CFGBlock *block);
  CFGBlock *continueInNewBlock(llvm::StringRef name);
  void startProcedure(Word *name, Section &section, CFGBlockType type);
  void startProcedure(Word *name, Paragraph &paragraph);
  CFGBlock *appendTerminator(Statement *statement);
  CFGBlock *makeTerminatorBlock(const std::string *name);
  CFGBlock *makeTerminatorBlock(llvm::StringRef name) {
    return makeTerminatorBlock(&internString(name));
  }
  static const std::string *makeName(const llvm::Twine &name);
  static const std::string *makeLineName(llvm::StringRef prefix, const Node *statement,
                                         llvm::StringRef suffix);
  void lowerList(const StatementList &statements);
  void lowerMade(Statement *made);
  CFGBlock *lowerBranch(llvm::StringRef name, const StatementList &statements);
  void lowerPhrase(CFGBlock *start, ExceptionHandler *phrase, bool isNot, const BranchNames &names,
                   BlockList &ends);
  void joinAt(llvm::StringRef name, CFGBlock *start, const BlockList &ends);

  // Procedures.
  void lowerSourceUnits(const NodeList<SourceUnit> &units);
  void lowerSentences(const NodeList<Sentence> &sentences);
  void lowerParagraphs(const NodeList<Paragraph> &paragraphs);
  void lowerProcedureExit(const std::string &name, Node *position, Section *section,
                          Paragraph *paragraph);
  void lowerExitTo(Statement *statement, BlockList &exits, llvm::StringRef nameAfter);
  void joinExits(BlockList &exits, llvm::StringRef name);

  // Shapes that several statements share.
  void lowerTwoWay(Statement *statement, const StatementList &thenStatements,
                   const StatementList &elseStatements, llvm::StringRef endName);
  void lowerSizeError(ArithmeticStatement *statement);
  void lowerException(OperandStatement *statement);
  void lowerOverflow(Statement *statement, const HandlerList &phrases);
  struct InputOutputShape;
  void lowerInputOutput(FileStatement *statement, const HandlerList &phrases,
                        const InputOutputShape &shape);
  void lowerCallOfIdentifier(CallStatement *statement);
  void lowerCallOfLiteral(CallStatement *statement);
  void lowerCallPhrases(CallStatement *statement, CFGBlock *notFound,
                        llvm::ArrayRef<CFGBlock *> found, BlockList &ends);
  void lowerInlinePerform(PerformStatement *statement, CFGBlock *start);
  CFGBlock *makePerformReturn(PerformStatement *statement, CFGBlock *after);
  void lowerSynthesisedPerform(Node *position, PerformProcedure *procedure);
  void lowerProcedurePhrase(Node *position, SortIO *phrase);
  void lowerSerialSearch(SearchStatement *statement);
  void lowerBinarySearch(SearchStatement *statement);
  void lowerSearchWhens(SearchStatement *statement, BlockList &tests, BlockList &ends);
  void lowerSearchEnd(SearchStatement *statement, CFGBlock *start, CFGBlock *compare,
                      const BlockList &tests, BlockList &ends);

  CFGModule *module = nullptr;
  CFGGraph *graph = nullptr;
  /// The block to which the next element is appended.
  CFGBlock *currentBlock = nullptr;

  /// The blocks to which the loops of the inline PERFORMs being lowered return, innermost last.
  llvm::SmallVector<CFGBlock *> performReturns;
  /// The blocks of the paragraph, of the section, that end in EXIT PARAGRAPH, in EXIT SECTION.
  BlockList paragraphExits;
  BlockList sectionExits;
};

} // namespace tarka

#endif // TARKA_ANALYZER_CFGBUILDER_H
