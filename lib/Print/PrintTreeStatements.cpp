//===- PrintTreeStatements.cpp - statements of the tree -------------------===//
//
// One function for each statement. It prints the parts in the order in which the
// statement is written, then what the checks have added.
//
//===----------------------------------------------------------------------===//

#include "AST/KindNames.h"
#include "AST/StatementVisitor.h"
#include "Print/LayoutModel.h"
#include "Print/TreePrinter.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

/// Prints what a statement consists of besides its verb.
class TreePrinter::Fields : public StatementVisitor<Fields> {
public:
  explicit Fields(TreePrinter &treePrinter) : printer(treePrinter) {}

#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  void visit##Class(Class &statement) { print(statement); }
#include "AST/Statements.def"

private:
  /// A statement without a function of its own consists of its verb alone.
  template <typename Class> void print(Class &statement) {
    if constexpr (requires { printer.fields(statement); })
      printer.fields(statement);
  }

  TreePrinter &printer;
};

void TreePrinter::print(llvm::StringRef role, Statement &statement) {
  Open node(sink, role, classNameOf(statement.getType()), statement.getRange());
  if (auto *file = llvm::dyn_cast<FileStatement>(&statement))
    flag("mayRunDeclaratives", file->getIsDeclaratives());
  Fields(*this).visit(statement);
}

void TreePrinter::print(llvm::StringRef role, ExceptionHandler &handler) {
  Open node(sink, role, "ExceptionHandler", handler.getRange());
  sink.text("phrase", nameOf(handler.getType()));
  flag("not", handler.isNotOn());
  all("", handler.getImperStmtListElements());
}

/// What a procedure-name stands for; one of the two is null.
static TreeTarget targetOf(const Section *section, const Paragraph *paragraph) {
  if (section)
    return {section->getSectionName()->getDisplayName(), section->getRange()};
  return {paragraph->getParagraphName()->getDisplayName(), paragraph->getRange()};
}

void TreePrinter::procedure(llvm::StringRef role, Section *section, Paragraph *paragraph) {
  if (section || paragraph)
    sink.target(role, targetOf(section, paragraph));
}

void TreePrinter::range(ProcedureRange &range) {
  procedure("begins", range.getBeginSection(), range.getBeginParagraph());
  procedure("ends", range.getThruSection(), range.getThruParagraph());
}

//===----------------------------------------------------------------------===//
// Arithmetic
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, RoundedOperand &operand) {
  if (!operand.first)
    return;
  // ROUNDED belongs to the receiver, so it is part of its role.
  print(operand.second ? role.str() + " rounded" : role.str(), *operand.first);
}

void TreePrinter::fields(AddStatement &statement) {
  all("operand", statement.getOperandListElements());
  one("to", statement.getToOperand());
  all("to", statement.getToListElements());
  all("giving", statement.getGivingListElements());
  one("corresponding", statement.getCorrespondingExpr());
  one("to", statement.getToRoundExpr());
  all("", statement.getSizeErrorHandlerElements());
}

void TreePrinter::fields(SubtractStatement &statement) {
  all("operand", statement.getOperandListElements());
  one("from", statement.getFromExpr());
  all("from", statement.getFromListElements());
  all("giving", statement.getGivingListElements());
  one("corresponding", statement.getCorrExpr());
  one("from", statement.getFromRoundExpr());
  all("", statement.getSizeErrorHandlerElements());
}

void TreePrinter::fields(MultiplyStatement &statement) {
  one("operand", statement.getOperand());
  one("by", statement.getByOperand());
  all("by", statement.getByListElements());
  all("giving", statement.getGivingListElements());
  all("", statement.getSizeErrorHandlerElements());
}

void TreePrinter::fields(DivideStatement &statement) {
  one("operand", statement.getOperand());
  one("into", statement.getIntoExpr());
  one("by", statement.getByExpr());
  all("into", statement.getToListElements());
  all("giving", statement.getGivingListElements());
  one("remainder", statement.getRemainderExpr());
  all("", statement.getSizeErrorHandlerElements());
}

void TreePrinter::fields(ComputeStatement &statement) {
  all("receiver", statement.getOperandListElements());
  one("value", statement.getArithmeticExpression());
  all("", statement.getSizeErrorHandlerElements());
}

//===----------------------------------------------------------------------===//
// Programs and procedures
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, Argument &argument) {
  Open node(sink, role, "Argument", argument.getRange());
  sink.text("by", nameOf(argument.getType()));
  flag("omitted", argument.isOmitted());
  one("", argument.getExpr());
}

void TreePrinter::print(llvm::StringRef role, Parameter &parameter) {
  Open node(sink, role, "Parameter", parameter.getRange());
  sink.text("by", nameOf(parameter.getType()));
  one("", parameter.getExpr());
}

void TreePrinter::fields(CallStatement &statement) {
  one("program", statement.getProcedureName());
  all("using", statement.getArgumentListElements());
  one("returning", statement.getReturn());
  all("", statement.getExceptHandlerElements());
  all("parameter", statement.getParamListElements());
  one("generated", statement.getMoveStmt());
}

void TreePrinter::fields(CancelStatement &statement) {
  all("program", statement.getProgramListElements());
}

void TreePrinter::fields(EntryStatement &statement) {
  one("name", statement.getEntryLiteral());
  all("using", statement.getParameterElements());
}

void TreePrinter::fields(StopStatement &statement) {
  flag("run", statement.getType() == StopType::Run);
  one("literal", statement.getLiteral());
}

void TreePrinter::fields(GotoStatement &statement) {
  llvm::SmallVector<TreeTarget, 4> targets;
  for (GotoProcedure *target : statement.getProcedureListElements())
    targets.push_back(targetOf(target->getSection(), target->getParagraph()));
  if (!targets.empty())
    sink.targets("targets", targets);
  all("procedure", statement.getProcedureNameListElements());
  one("depending", statement.getDependingName());
}

void TreePrinter::fields(AlterStatement &statement) {
  all("", statement.getAlterListElements());
}

void TreePrinter::print(llvm::StringRef role, AlterItem &item) {
  Open node(sink, role, "AlterItem", item.getRange());
  procedure("source", nullptr, item.getSrcParagraph());
  procedure("destination", item.getDstSection(), item.getDstParagraph());
  one("procedure", item.getSrcProcName());
  one("to", item.getDstProcName());
}

void TreePrinter::fields(PerformStatement &statement) {
  if (PerformProcedure *names = statement.getProcedureName())
    range(*names);
  if (PerformTest *test = statement.getPerformTest())
    sink.text("test", nameOf(test->getType()));
  if (PerformProcedure *names = statement.getProcedureName()) {
    one("procedure", names->getProcedureName1());
    one("thru", names->getProcedureName2());
  }
  one("times", statement.getTimesInteger());
  one("until", statement.getUntilCondition());
  all("varying", statement.getPhraseListElements());
  all("", statement.getInlineStatementsElements());
}

void TreePrinter::print(llvm::StringRef role, PerformVarying &phrase) {
  Open node(sink, role, "PerformVarying", phrase.getRange());
  one("varying", phrase.getVaryingIdentifier());
  one("from", phrase.getFromIdentifier());
  one("by", phrase.getByIdentifier());
  one("until", phrase.getUntilCondition());
}

void TreePrinter::fields(ExitPerformStatement &statement) {
  flag("cycle", statement.isCycle());
}

//===----------------------------------------------------------------------===//
// Decisions
//===----------------------------------------------------------------------===//

void TreePrinter::fields(IfStatement &statement) {
  one("condition", statement.getCondition());
  all("then", statement.getIfStmtListElements());
  all("else", statement.getElseStmtListElements());
}

void TreePrinter::fields(EvaluateStatement &statement) {
  all("subject", statement.getSubjectListElements());
  all("", statement.getWhenCaseListElements());
}

void TreePrinter::print(llvm::StringRef role, EvaluateSubject &subject) {
  Open node(sink, role, "EvaluateSubject", subject.getRange());
  sink.text("is", nameOf(subject.getType()));
  one("", subject.getExpr());
  one("", subject.getCond());
}

void TreePrinter::print(llvm::StringRef role, EvaluateCase &oneCase) {
  Open node(sink, role, "EvaluateCase", oneCase.getRange());
  all("when", oneCase.getWhenListElements());
  all("", oneCase.getWhenStmtListElements());
}

void TreePrinter::print(llvm::StringRef role, EvaluateWhen &when) {
  Open node(sink, role, "EvaluateWhen", when.getRange());
  flag("other", when.getType() == EvalWhenType::Other);
  all("", when.getWhenObjListElements());
}

void TreePrinter::print(llvm::StringRef role, EvaluateObject &object) {
  Open node(sink, role, "EvaluateObject", object.getRange());
  sink.text("is", nameOf(object.getType()));
  flag("not", object.isNot());
  one("", object.getCondition());
  one("", object.getFrontExpression());
  one("thru", object.getRearExpression());
}

void TreePrinter::fields(SearchStatement &statement) {
  flag("all", statement.getType() == SearchType::Binary);
  one("table", statement.getSearchIdentifier());
  one("varying", statement.getVaryingIdentifier());
  all("", statement.getAtHandlerElements());
  all("when", statement.getWhenListElements());
  all("generated", statement.getCondListElements());
}

void TreePrinter::print(llvm::StringRef role, SearchWhen &when) {
  Open node(sink, role, "SearchWhen", when.getRange());
  one("condition", when.getCondition());
  all("", when.getStatementListElements());
}

void TreePrinter::fields(OnStatement &statement) {
  one("on", statement.getOnExpr());
  one("every", statement.getEveryExpr());
  one("until", statement.getUntilExpr());
  all("then", statement.getUntilStmtListElements());
  all("else", statement.getElseStmtListElements());
  one("generated", statement.getAddStmt());
  one("generated", statement.getCondition());
}

void TreePrinter::fields(ExecStatement &statement) {
  sink.text("language", nameOf(statement.getType()));
  sink.text("text", statement.getText());
  one("command", statement.getCommand());
}

void TreePrinter::print(llvm::StringRef role, EmbeddedCommand &command) {
  Open node(sink, role, "EmbeddedCommand", command.getRange());
  sink.text("name", command.getName());
  if (auto *sql = llvm::dyn_cast<SqlCommand>(&command)) {
    if (sql->getWhenever() != WheneverCondition::None)
      sink.text("whenever", nameOf(sql->getWhenever()));
    if (sql->getColumnCount())
      sink.number("columns", sql->getColumnCount());
    all("table", sql->getTableElements());
  }
  all("operand", command.getOperandElements());
}

void TreePrinter::print(llvm::StringRef role, SqlTableUse &table) {
  Open node(sink, role, "SqlTableUse", table.getRange());
  sink.text("name", table.getTable());
  sink.text("access", nameOf(table.getAccess()));
  words("columns", table.getColumnElements());
}

void TreePrinter::print(llvm::StringRef role, EmbeddedOperand &operandOfCommand) {
  Open node(sink, role, "EmbeddedOperand", operandOfCommand.getRange());
  if (!operandOfCommand.getName().empty())
    sink.text("option", operandOfCommand.getName());
  sink.text("effect", nameOf(operandOfCommand.getRole()));
  name("name", operandOfCommand.getWord());
  if (const Section *section = operandOfCommand.getSection())
    sink.text("section", section->getSectionName()->getWordData());
  if (const Paragraph *paragraph = operandOfCommand.getParagraph())
    sink.text("paragraph", paragraph->getParagraphName()->getWordData());
  operand("argument", operandOfCommand.getValue());
}

void TreePrinter::fields(TraceStatement &statement) {
  sink.text("trace", nameOf(statement.getType()));
}

//===----------------------------------------------------------------------===//
// Data
//===----------------------------------------------------------------------===//

void TreePrinter::fields(AcceptStatement &statement) {
  if (AcceptFrom *from = statement.getFromType()) {
    sink.text("from", nameOf(from->getType()));
    name("device", from->getFromName());
  }
  one("receiver", statement.getVariable());
}

void TreePrinter::fields(DisplayStatement &statement) {
  name("upon", statement.getUponName());
  flag("noAdvancing", statement.isNoAdvancing());
  all("operand", statement.getIdenLiterListElements());
}

void TreePrinter::fields(MoveStatement &statement) {
  flag("corresponding", statement.isCorresponding());
  if (std::optional<llvm::ArrayRef<MoveRule>> rules = statement.getMoveRules()) {
    llvm::SmallVector<llvm::StringRef, 8> names;
    for (MoveRule rule : *rules)
      names.push_back(nameOf(rule));
    sink.texts("rules", names);
  }
  one("source", statement.getSource());
  all("to", statement.getTargetListElements());
}

void TreePrinter::fields(SetStatement &statement) {
  all("", statement.getItemListElements());
}

void TreePrinter::print(llvm::StringRef role, SetItem &item) {
  Open node(sink, role, "SetItem", item.getRange());
  sink.text("format", nameOf(item.getType()));
  SetToValue *value = item.getToValue();
  if (value)
    sink.text("value", nameOf(value->getType()));
  llvm::SmallVector<TreeTarget, 4> switches;
  for (Word *word : item.getMnemonicNameListElements())
    switches.push_back({word->getDisplayName(), word->getRange()});
  if (!switches.empty())
    sink.targets("mnemonicNames", switches);
  all("receiver", item.getSetListElements());
  all("receiver", item.getCondListElements());
  if (value)
    one("to", value->getToExpr());
}

void TreePrinter::fields(InitializeStatement &statement) {
  flag("filler", statement.isFiller());
  flag("allToValue", statement.isAllToValue());
  flag("toDefault", statement.isToDefault());
  llvm::SmallVector<llvm::StringRef, 8> toValue;
  if (!statement.isAllToValue())
    for (auto number = 1u; number <= unsigned(InitializeReplacingType::Dbcs); ++number)
      if (auto category = InitializeReplacingType(number); statement.hasValueCategory(category))
        toValue.push_back(nameOf(category));
  if (!toValue.empty())
    sink.texts("toValue", toValue);
  all("receiver", statement.getIdentifierListElements());
  all("replacing", statement.getReplacingListElements());
}

void TreePrinter::print(llvm::StringRef role, InitializeReplacingItem &item) {
  Open node(sink, role, "InitializeReplacingItem", item.getRange());
  sink.text("category", nameOf(item.getType()));
  one("by", item.getByExpr());
}

void TreePrinter::fields(InspectStatement &statement) {
  one("inspected", statement.getIdentifier());
  all("tallying", statement.getTallyingListElements());
  all("replacing", statement.getReplacingListElements());
  one("converting", statement.getConverting());
}

void TreePrinter::print(llvm::StringRef role, InspectRegion &region) {
  Open node(sink, role, "InspectRegion", region.getRange());
  sink.text("side", nameOf(region.getType()));
  one("", region.getExpr());
}

void TreePrinter::print(llvm::StringRef role, TallyingItem &item) {
  Open node(sink, role, "TallyingItem", item.getRange());
  one("counter", item.getIdentifier());
  all("for", item.getTallyingForListElements());
}

void TreePrinter::print(llvm::StringRef role, TallyingItemFor &item) {
  Open node(sink, role, "TallyingItemFor", item.getRange());
  sink.text("which", nameOf(item.getType()));
  all("", item.getInspectRegionListElements());
  all("", item.getTallyingRegionListElements());
}

void TreePrinter::print(llvm::StringRef role, TallyingRegion &region) {
  Open node(sink, role, "TallyingRegion", region.getRange());
  one("", region.getExpr());
  all("", region.getRegionPhraseListElements());
}

void TreePrinter::print(llvm::StringRef role, ReplacingItem &item) {
  Open node(sink, role, "ReplacingItem", item.getRange());
  sink.text("which", nameOf(item.getType()));
  one("by", item.getExpr());
  all("", item.getInspectRegionListElements());
  all("", item.getReplacingRegionListElements());
}

void TreePrinter::print(llvm::StringRef role, ReplacingRegion &region) {
  Open node(sink, role, "ReplacingRegion", region.getRange());
  one("", region.getExpr());
  one("by", region.getByExpr());
  all("", region.getRegionListElements());
}

void TreePrinter::print(llvm::StringRef role, ConvertingItem &item) {
  Open node(sink, role, "ConvertingItem", item.getRange());
  one("from", item.getExpr());
  one("to", item.getToExpr());
  all("", item.getRegionListElements());
}

void TreePrinter::fields(StringStatement &statement) {
  all("", statement.getItemListElements());
  one("into", statement.getIntoIdentifier());
  one("pointer", statement.getWithPointerIdentifier());
  all("", statement.getOverflowHandlerElements());
}

void TreePrinter::print(llvm::StringRef role, StringItem &item) {
  Open node(sink, role, "StringItem", item.getRange());
  flag("delimitedBySize", item.getType() == StringDelimiterType::Size);
  all("operand", item.getStringNameListElements());
  one("delimiter", item.getDelimitedName());
}

void TreePrinter::fields(UnstringStatement &statement) {
  one("source", statement.getSourceIdentifier());
  all("delimiter", statement.getDelimiterListElements());
  all("into", statement.getIntoListElements());
  one("pointer", statement.getWithPointerId());
  one("tallying", statement.getTallyingId());
  all("", statement.getOverflowHandlerElements());
}

void TreePrinter::print(llvm::StringRef role, UnstringDelimitedItem &item) {
  Open node(sink, role, "UnstringDelimitedItem", item.getRange());
  flag("all", item.isAll());
  one("", item.getDelimiter());
}

void TreePrinter::print(llvm::StringRef role, UnstringIntoItem &item) {
  Open node(sink, role, "UnstringIntoItem", item.getRange());
  one("", item.getTargetIdentifier());
  one("delimiter", item.getDelimiter());
  one("count", item.getCountIdentifier());
}

void TreePrinter::fields(TransformStatement &statement) {
  one("operand", statement.getTransformExpr());
  one("from", statement.getFromExpr());
  one("to", statement.getToExpr());
  one("generated", statement.getInspectStmt());
}

void TreePrinter::fields(ExamineStatement &statement) {
  sink.text("format", nameOf(statement.getExamType()));
  sink.text("which", nameOf(statement.getOptionType()));
  one("operand", statement.getExamineExpr());
  one("for", statement.getOptExpr());
  one("by", statement.getByExpr());
  one("generated", statement.getMoveStmt());
  one("generated", statement.getInspectStmt());
}

void TreePrinter::fields(ExhibitStatement &statement) {
  sink.text("format", nameOf(statement.getExhibitType()));
  name("upon", statement.getUponName());
  all("operand", statement.getExhibitExprListElements());
  all("generated", statement.getConvertStmtListElements());
}

//===----------------------------------------------------------------------===//
// Files
//===----------------------------------------------------------------------===//

void TreePrinter::fields(OpenStatement &statement) {
  all("", statement.getItemListElements());
}

void TreePrinter::print(llvm::StringRef role, OpenItem &item) {
  Open node(sink, role, "OpenItem", item.getRange());
  sink.text("mode", nameOf(item.getType()));
  for (OpenFile *file : item.getFileListElements()) {
    Open inner(sink, "", "OpenFile", file->getRange());
    if (file->getOption() != OpenOption::None)
      sink.text("option", nameOf(file->getOption()));
    one("", file->getFileName());
  }
}

void TreePrinter::fields(CloseStatement &statement) {
  for (CloseFile *file : statement.getCloseFileListElements()) {
    Open inner(sink, "", "CloseFile", file->getRange());
    if (file->getOption() != CloseOption::None)
      sink.text("option", nameOf(file->getOption()));
    one("", file->getFileName());
  }
}

void TreePrinter::fields(ReadStatement &statement) {
  flag("next", statement.isNextRecord());
  one("file", statement.getFileName());
  one("into", statement.getIntoIdentifier());
  one("key", statement.getKeyName());
  all("", statement.getErrorListElements());
}

void TreePrinter::fields(WriteStatement &statement) {
  one("record", statement.getRecordName());
  one("from", statement.getFromIdentifier());
  one("advancing", statement.getAdvancing());
  if (WritePositioning *positioning = statement.getPositioning())
    one("positioning", positioning->getLineExpr());
  all("", statement.getExceptionHandlerListElements());
}

void TreePrinter::print(llvm::StringRef role, WriteAdvancing &phrase) {
  Open node(sink, role, "WriteAdvancing", phrase.getRange());
  sink.text("side", phrase.isBefore() ? "BEFORE" : "AFTER");
  flag("page", phrase.getType() == WriteAdvType::Page);
  if (phrase.getMnemonicName())
    return name("mnemonicName", phrase.getMnemonicName());
  one("lines", phrase.getValue());
}

void TreePrinter::fields(RewriteStatement &statement) {
  one("record", statement.getRecordName());
  one("from", statement.getFromIdentifier());
  all("", statement.getInvalidKeyHandlerElements());
}

void TreePrinter::fields(DeleteStatement &statement) {
  one("file", statement.getFileName());
  all("", statement.getInvalidKeyHandlerElements());
}

void TreePrinter::fields(StartStatement &statement) {
  if (StartKey *key = statement.getKey())
    sink.text("relation", nameOf(key->getRelation()));
  one("file", statement.getFileName());
  if (StartKey *key = statement.getKey())
    one("key", key->getDataName());
  all("", statement.getInvalidKeyHandlerElements());
}

void TreePrinter::fields(ReturnStatement &statement) {
  one("file", statement.getFileName());
  one("into", statement.getIntoIdentifier());
  all("", statement.getEndHandlerElements());
}

void TreePrinter::fields(ReleaseStatement &statement) {
  one("record", statement.getRecordName());
  one("from", statement.getFromIdentifier());
}

/// The collating sequence, and the ALPHABET clause that defines it.
template <typename SortOrMerge> void TreePrinter::sequence(SortOrMerge &statement) {
  name("sequence", statement.getSeqAlphaName());
  if (const ClauseAlphabet *alphabet = statement.getAlphabetClause())
    sink.target("alphabet", {alphabet->getAlphabetName()->getDisplayName(), alphabet->getRange()});
}

void TreePrinter::fields(SortStatement &statement) {
  flag("duplicates", statement.isDuplicates());
  sequence(statement);
  one("file", statement.getFileName());
  all("key", statement.getKeyListElements());
  one("input", statement.getInput());
  one("output", statement.getOutput());
}

void TreePrinter::fields(MergeStatement &statement) {
  sequence(statement);
  one("file", statement.getFileName());
  all("key", statement.getKeySeqElements());
  one("input", statement.getInput());
  one("output", statement.getOutput());
}

void TreePrinter::print(llvm::StringRef role, SortKey &key) {
  Open node(sink, role, "SortKey", key.getRange());
  sink.text("order", nameOf(key.getOrder()));
  all("", key.getKeyNameListElements());
}

void TreePrinter::print(llvm::StringRef role, SortIO &phrase) {
  Open node(sink, role, "SortIO", phrase.getRange());
  range(phrase.getProcedures());
  all("file", phrase.getFileNameListElements());
  one("procedure", phrase.getFromProcedureName());
  one("thru", phrase.getToProcedureName());
}

void TreePrinter::fields(UseStatement &statement) {
  sink.text("timing", nameOf(statement.getTimingType()));
  flag("global", statement.isGlobal());
  if (statement.getFileMode() != UseFileMode::None)
    sink.text("mode", nameOf(statement.getFileMode()));
  if (statement.getLabelPosition() != UseLabelPosition::None)
    sink.text("labelPosition", nameOf(statement.getLabelPosition()));
  if (statement.getLabelType() != UseLabelType::None)
    sink.text("label", nameOf(statement.getLabelType()));
  flag("allProcedures", statement.isAllProcedures());
  if (statement.getProcedureListSize())
    words("names", statement.getProcedureListElements());
  if (std::list<UseProcedure *> *procedures = statement.getUseProcedureList()) {
    llvm::SmallVector<TreeTarget, 8> found;
    for (UseProcedure *procedure : *procedures)
      if (procedure->getSection() || procedure->getParagraph())
        found.push_back(targetOf(procedure->getSection(), procedure->getParagraph()));
    sink.targets("procedures", found);
  }
  all("file", statement.getFileListElements());
  all("giving", statement.getGivingListElements());
  all("report", statement.getReportListElements());
}

//===----------------------------------------------------------------------===//
// Reports and XML
//===----------------------------------------------------------------------===//

void TreePrinter::fields(RwGenerateStatement &statement) {
  one("report", statement.getFileName());
}

void TreePrinter::fields(RwInitiateStatement &statement) {
  all("report", statement.getInitiateNameListElements());
}

void TreePrinter::fields(RwTerminateStatement &statement) {
  all("report", statement.getTerminateNameListElements());
}

void TreePrinter::fields(OperandStatement &statement) {
  all("source", statement.getSourceListElements());
  all("receiver", statement.getReceiverListElements());
  all("part", statement.getPartListElements());
  all("", statement.getExceptHandlerElements());
}

void TreePrinter::fields(XMLGenerateStatement &statement) {
  flag("xmlDeclaration", statement.isXmlDeclaration());
  flag("attributes", statement.isAttributes());
  flag("fromVariableTable", statement.getFromDataOdo());
  one("document", statement.getGenIdent());
  one("from", statement.getFromIdent());
  one("count", statement.getCountIdent());
  one("encoding", statement.getCodePage());
  one("namespace", statement.getNameSpaceExpr());
  one("prefix", statement.getPrefixExpr());
  all("name", statement.getNameItemListElements());
  all("type", statement.getTypeItemListElements());
  all("suppress", statement.getSuppressItemListElements());
  all("", statement.getOnExcpHandlerElements());
  for (DataDescription *content : statement.getConvDescListElements()) {
    Open node(sink, "contents", "DataDescription", content->getRange());
    entry("boundTo", content);
  }
}

void TreePrinter::print(llvm::StringRef role, XMLNameItem &item) {
  Open node(sink, role, "XMLNameItem", item.getRange());
  one("of", item.getIdentifier());
  one("is", item.getLiteral());
}

void TreePrinter::print(llvm::StringRef role, XMLTypeItem &item) {
  Open node(sink, role, "XMLTypeItem", item.getRange());
  sink.text("type", nameOf(item.getType()));
  one("of", item.getIdentifier());
}

void TreePrinter::print(llvm::StringRef role, XMLSuppressItem &item) {
  Open node(sink, role, "XMLSuppressItem", item.getRange());
  if (item.getSuppressClass() != XmlSuppressClass::All)
    sink.text("class", nameOf(item.getSuppressClass()));
  if (item.getType() != XmlNodeType::None)
    sink.text("type", nameOf(item.getType()));
  one("of", item.getIdentifier());
  all("when", item.getValueListElements());
}

void TreePrinter::fields(XMLParseStatement &statement) {
  range(statement);
  flag("returningNational", statement.isReturningNational());
  name("schemaFile", statement.getFileName());
  one("document", statement.getParseIdent());
  one("encoding", statement.getCodePage());
  one("validating", statement.getValidatingIdent());
  one("procedure", statement.getParseProcedure());
  one("thru", statement.getThruProcedure());
  all("", statement.getOnExcpHandlerElements());
}

} // namespace tarka
