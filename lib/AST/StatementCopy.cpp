//===- StatementCopy.cpp - statements of a copied section -----------------===//

#include "AST/StatementCopy.h"
#include "AST/Statement.h"

namespace tarka {

namespace {

/// Puts a copy in the place of each statement of the list.
void copyAll(std::list<Statement *> &statements) {
  for (Statement *&statement : statements)
    statement = copyStatement(statement);
}

ExceptionHandler *copyHandler(ExceptionHandler *original) {
  auto *copy = new ExceptionHandler(*original);
  copyAll(copy->getImperStmtListElements());
  return copy;
}

/// A copy of the node itself, as the class that its kind stands for.
template <typename Class> Class *copyNode(Statement *original) {
  return new Class(*llvm::cast<Class>(original));
}

template <typename Class> Statement *copyWithSizeErrors(Statement *original) {
  Class *copy = copyNode<Class>(original);
  copy->copySizeErrorHandlerElements(copyHandler);
  return copy;
}

template <typename Class> Statement *copyWithOverflow(Statement *original) {
  Class *copy = copyNode<Class>(original);
  copy->copyOverflowHandlerElements(copyHandler);
  return copy;
}

template <typename Class> Statement *copyWithInvalidKey(Statement *original) {
  Class *copy = copyNode<Class>(original);
  copy->copyInvalidKeyHandlerElements(copyHandler);
  return copy;
}

/// The names of the procedures, which stand for nothing yet.
SortIO *copySortIO(SortIO *original) {
  if (!original)
    return nullptr;
  auto *copy = new SortIO(original, original->getType());
  for (FileIdentifierExpression *file : original->getFileNameListElements())
    copy->addFileName(file);
  copy->setFromProcedureName(original->getFromProcedureName());
  copy->setToProcedureName(original->getToProcedureName());
  return copy;
}

template <typename Class> Statement *copySort(Statement *original) {
  Class *copy = copyNode<Class>(original);
  copy->setInput(copySortIO(copy->getInput()));
  copy->setOutput(copySortIO(copy->getOutput()));
  return copy;
}

Statement *copyIf(Statement *original) {
  auto *copy = copyNode<IfStatement>(original);
  copyAll(copy->getIfStmtListElements());
  copy->copyElseStmtListElements(copyStatement);
  return copy;
}

Statement *copyOn(Statement *original) {
  auto *copy = copyNode<OnStatement>(original);
  copyAll(copy->getUntilStmtListElements());
  copy->copyElseStmtListElements(copyStatement);
  return copy;
}

Statement *copyEvaluate(Statement *original) {
  auto *copy = copyNode<EvaluateStatement>(original);
  for (EvaluateCase *&oneCase : copy->getWhenCaseListElements()) {
    oneCase = new EvaluateCase(*oneCase);
    copyAll(oneCase->getWhenStmtListElements());
  }
  return copy;
}

Statement *copySearch(Statement *original) {
  auto *copy = copyNode<SearchStatement>(original);
  copy->copyAtHandlerElements(copyHandler);
  for (SearchWhen *&when : copy->getWhenListElements()) {
    when = new SearchWhen(*when);
    copyAll(when->getStatementListElements());
  }
  return copy;
}

Statement *copyPerform(Statement *original) {
  auto *copy = copyNode<PerformStatement>(original);
  copy->copyInlineStatementsElements(copyStatement);
  if (PerformProcedure *procedure = copy->getProcedureName())
    copy->setProcedureName(new PerformProcedure(procedure, procedure->getProcedureName1(),
                                                procedure->getProcedureName2()));
  return copy;
}

Statement *copyGoto(Statement *original) {
  auto *written = llvm::cast<GotoStatement>(original);
  auto *copy = new GotoStatement(written);
  for (QualifiedWord *name : written->getProcedureNameListElements())
    copy->addProcedureName(name);
  copy->setDependingName(written->getDependingName());
  return copy;
}

Statement *copyAlter(Statement *original) {
  auto *copy = new AlterStatement(original);
  for (AlterItem *item : llvm::cast<AlterStatement>(original)->getAlterListElements())
    copy->addAlterItem(new AlterItem(item, item->getSrcProcName(), item->getDstProcName()));
  return copy;
}

Statement *copyCall(Statement *original) {
  auto *copy = copyNode<CallStatement>(original);
  copy->copyExceptHandlerElements(copyHandler);
  return copy;
}

Statement *copyRead(Statement *original) {
  auto *copy = copyNode<ReadStatement>(original);
  copy->copyErrorListElements(copyHandler);
  return copy;
}

Statement *copyWrite(Statement *original) {
  auto *copy = copyNode<WriteStatement>(original);
  copy->copyExceptionHandlerListElements(copyHandler);
  return copy;
}

Statement *copyReturn(Statement *original) {
  auto *copy = copyNode<ReturnStatement>(original);
  copy->copyEndHandlerElements(copyHandler);
  return copy;
}

Statement *copyXmlGenerate(Statement *original) {
  auto *copy = copyNode<XMLGenerateStatement>(original);
  copy->copyOnExcpHandlerElements(copyHandler);
  return copy;
}

Statement *copyXmlParse(Statement *original) {
  auto *copy = copyNode<XMLParseStatement>(original);
  copy->copyOnExcpHandlerElements(copyHandler);
  static_cast<ProcedureRange &>(*copy) = ProcedureRange();
  return copy;
}

} // namespace

Statement *copyStatement(Statement *original) {
  switch (original->getType()) {
  case StatementType::Add:
    return copyWithSizeErrors<AddStatement>(original);
  case StatementType::Subtract:
    return copyWithSizeErrors<SubtractStatement>(original);
  case StatementType::Multiply:
    return copyWithSizeErrors<MultiplyStatement>(original);
  case StatementType::Divide:
    return copyWithSizeErrors<DivideStatement>(original);
  case StatementType::Compute:
    return copyWithSizeErrors<ComputeStatement>(original);
  case StatementType::String:
    return copyWithOverflow<StringStatement>(original);
  case StatementType::Unstring:
    return copyWithOverflow<UnstringStatement>(original);
  case StatementType::Delete:
    return copyWithInvalidKey<DeleteStatement>(original);
  case StatementType::Rewrite:
    return copyWithInvalidKey<RewriteStatement>(original);
  case StatementType::Start:
    return copyWithInvalidKey<StartStatement>(original);
  case StatementType::Sort:
    return copySort<SortStatement>(original);
  case StatementType::Merge:
    return copySort<MergeStatement>(original);
  case StatementType::If:
    return copyIf(original);
  case StatementType::On:
    return copyOn(original);
  case StatementType::Evaluate:
    return copyEvaluate(original);
  case StatementType::Search:
    return copySearch(original);
  case StatementType::Perform:
    return copyPerform(original);
  case StatementType::Goto:
    return copyGoto(original);
  case StatementType::Alter:
    return copyAlter(original);
  case StatementType::Call:
    return copyCall(original);
  case StatementType::Read:
    return copyRead(original);
  case StatementType::Write:
    return copyWrite(original);
  case StatementType::Return:
    return copyReturn(original);
  case StatementType::XmlGenerate:
    return copyXmlGenerate(original);
  case StatementType::XmlParse:
    return copyXmlParse(original);
  // The checks leave in these what they become.
  case StatementType::Transform:
    return copyNode<TransformStatement>(original);
  case StatementType::Examine:
    return copyNode<ExamineStatement>(original);
  case StatementType::Exhibit:
    return copyNode<ExhibitStatement>(original);
  // The graph leaves in these where they lead.
  case StatementType::NextSentence:
    return copyNode<NextSentenceStatement>(original);
  case StatementType::ExitPerform:
    return copyNode<ExitPerformStatement>(original);
  case StatementType::ExitParagraph:
    return copyNode<ExitParagraphStatement>(original);
  case StatementType::ExitSection:
    return copyNode<ExitSectionStatement>(original);
  default:
    return original;
  }
}

} // namespace tarka
