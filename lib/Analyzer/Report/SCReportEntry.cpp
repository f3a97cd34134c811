//===- SCReportEntry.cpp - what the entries of a report group show --------===//
//
// SOURCE, VALUE, SUM, COUNT and FUNCTION, the conditions that they are shown
// under, and the numbers of lines, columns and repetitions.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/Program.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Report/ReportCheck.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/Twine.h"
#include <algorithm>

namespace tarka {

//===----------------------------------------------------------------------===//
// Repetitions
//===----------------------------------------------------------------------===//

namespace {

/// Whether \p count operands can be distributed over what \p entry is repeated by: several columns,
/// OCCURS, several lines, of the entry itself and of the groups around it. One operand serves all
/// places; several serve as many as the innermost repetitions have together.
bool fitsRepetitions(std::size_t count, const ReportDataDescription &entry) {
  if (count == 1)
    return true;
  long long places = 1;
  auto isFilledBy = [&](long long times) {
    places *= times;
    return times > 1 && static_cast<std::size_t>(places) == count;
  };
  for (const DataDescription *item = &entry; item; item = item->getParent()) {
    const auto *reportItem = llvm::dyn_cast<ReportDataDescription>(item);
    if (!reportItem)
      continue;
    const ClauseColumn *column = reportItem->getColumnClause();
    if (column && column->getNumbersListSize() > 1 && isFilledBy(column->getNumbersListSize()))
      return true;
    if (const ClauseOccurs *occurs = item->getOccurs()) {
      // A wrong number of times has been reported.
      if (!occurs->getMaxExpr() || occurs->getMax() < 1)
        return true;
      if (isFilledBy(occurs->getMax()))
        return true;
    }
    const ClauseLine *line = reportItem->getLineClause();
    if (line && line->getNumbersListSize() > 1 && isFilledBy(line->getNumbersListSize()))
      return true;
    // More places than operands: the groups further out only add places.
    if (static_cast<std::size_t>(places) > count)
      return false;
  }
  return false;
}

//===----------------------------------------------------------------------===//
// Operands
//===----------------------------------------------------------------------===//

ReportDataDescription *reportItemOf(const IdentifierExpression &name) {
  return llvm::dyn_cast_or_null<ReportDataDescription>(name.getDataDescription());
}

/// Of items of the same name in several reports, a clause means that of its own report.
void preferOwnReport(DataIdentifierExpression &name, const ReportDescription &own) {
  const ReportDataDescription *item = reportItemOf(name);
  DataDivision *division = currentDivision();
  if (!item || item->getReportDescription() == &own ||
      name.getQualifiedWord()->getNamesSize() != 1 || !division)
    return;
  const Word &word = **name.getQualifiedWord()->getNamesBegin();
  for (DataDescription *namesake :
       division->findItemByQualifiedName(word.getWordData(), own.getReportName()->getWordData()))
    if (namesake->getReportDescription() == &own)
      name.setDataDescription(namesake);
}

/// Binds a name that can be that of a report item.
bool bindReportItem(SemanticChecker &checker, Expression &operand) {
  auto *name = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  if (!name)
    return checker.semanticCheck(operand);
  if (!checker.semanticCheck(*name, /*silentIfUndefined=*/false, /*preferReportItem=*/true))
    return false;
  preferOwnReport(*name, *checker.getCurrentRD());
  return true;
}

bool checkFunction(SemanticChecker &checker, const ClauseFunction &clause) {
  bool ok = true;
  for (Expression *argument : clause.getArgumentListElements())
    ok &= checker.semanticCheck(*argument);
  return ok;
}

//===----------------------------------------------------------------------===//
// The check of one entry
//===----------------------------------------------------------------------===//

/// Checks what one entry of a report group shows, where and how often.
class ReportEntryCheck {
public:
  ReportEntryCheck(SemanticChecker &theChecker, ReportDataDescription &item)
      : checker(theChecker), entry(item) {}

  bool check();

private:
  bool checkSourceMove(Expression &sender);
  bool checkSum(const SumClauseExpr &sum);
  bool checkSource(ClauseSource &clause);
  bool checkValueLiteral(PhraseValue &phrase);
  bool checkValue(const ClauseReportValue &clause);
  bool checkCounterItem();
  bool checkSumClause(ClauseSum &clause);
  bool checkCount(ClauseCount &clause);
  bool checkPresentContents(const PresentContents &contents);
  bool checkPresence();
  bool checkPlaces();

  SemanticChecker &checker;
  ReportDataDescription &entry;
};

bool ReportEntryCheck::check() {
  bool ok = checkPlaces();
  if (ClauseSource *source = entry.getSourceClause()) {
    ok &= checkSource(*source);
    checker.addUsedSrc(&entry);
  }
  if (const ClauseReportValue *value = entry.getReportValueClause())
    ok &= checkValue(*value);
  if (ClauseSum *sum = entry.getSumClause())
    ok &= checkSumClause(*sum);
  if (ClauseCount *count = entry.getCountClause())
    ok &= checkCount(*count);
  if (const ClauseFunction *function = entry.getFunctionClause())
    ok &= checkFunction(checker, *function);
  ok &= checkPresence();
  return ok;
}

//===----------------------------------------------------------------------===//
// SOURCE
//===----------------------------------------------------------------------===//

/// CURRENT-DATE and TIME-OF-DAY are words of the report writer; compiler-made registers hold them.
void replaceDateSource(SourceClauseExpr &source) {
  auto *name = llvm::dyn_cast_if_present<DataIdentifierExpression>(source.getExpr());
  if (!name || !CompileOption::getCompileOptionInstance()->isOptionEnableRw())
    return;
  const std::string &text = (*name->getQualifiedWord()->getNamesBegin())->getWordData();
  const bool isDate = text == "CURRENT-DATE";
  if (!isDate && text != "TIME-OF-DAY")
    return;
  auto *word = generate<Word>(name, isDate ? "TARKA-CURRENT-DATE" : "TARKA-TIME-OF-DAY", "");
  source.setExpr(generate<SpecialRegisterIdentifierExpression>(
      name, isDate ? SpecialRegisterType::CurrentDate : SpecialRegisterType::TimeOfDay, nullptr,
      word, nullptr, nullptr, nullptr, nullptr));
}

/// The source is moved into the item by the rules of MOVE. Groups and dates can always be moved,
/// and without a category there is nothing to check.
bool ReportEntryCheck::checkSourceMove(Expression &sender) {
  if (entry.isGroupItem() || entry.getDataCategory() == DataCategory::Unclassified ||
      sender.getDataCategory() == DataCategory::Unclassified)
    return true;
  if (const auto *name = llvm::dyn_cast<IdentifierExpression>(&sender))
    if (const DataDescription *item = name->getDataDescription();
        item && (item->isGroupItem() || item->getDateFormat()))
      return true;
  // The message points at the operand, because the source has no reference to the item. Checking
  // by category gives one message; the rules for operands may give several.
  auto *receiver = generate<DataIdentifierExpression>(&sender, nullptr, nullptr, nullptr);
  receiver->setDataDescription(&entry);
  return checker.getMoveRule(sender.getDataCategory(), receiver) != MoveRule::Illegal;
}

bool isSumOperand(const Expression &operand) {
  // The result of an operator is a number, and its operands have been checked.
  if (llvm::isa<ArithmeticExpression>(operand))
    return true;
  const auto *name = llvm::dyn_cast<IdentifierExpression>(&operand);
  const bool isReportItem = name && reportItemOf(*name);
  switch (operand.getDataCategory()) {
  case DataCategory::Unclassified:
  case DataCategory::Numeric:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
    return true;
  case DataCategory::NumericEdited:
    return isReportItem;
  default:
    return isReportItem && reportItemOf(*name)->isGroupItem();
  }
}

/// The operands of SUM: numbers of any kind, and items of the report that show numbers. \p entry is
/// added to the items that show them.
bool ReportEntryCheck::checkSum(const SumClauseExpr &sum) {
  bool ok = true;
  for (Expression *operand : sum.getNameListElements()) {
    if (!bindReportItem(checker, *operand)) {
      ok = false;
      continue;
    }
    if (auto *name = llvm::dyn_cast<IdentifierExpression>(operand))
      if (DataDescription *item = name->getDataDescription())
        item->addGenDE(&entry);
    if (!isSumOperand(*operand))
      ok = checker.report(ErrorCode::ArithmeticOperandInvalid, operand);
  }
  for (IdentifierExpression *detail : sum.getUponListElements())
    ok &= bindReportItem(checker, *detail);
  return ok;
}

/// \p entry shows the operands of \p clause, which may belong to one of its conditions.
bool ReportEntryCheck::checkSource(ClauseSource &clause) {
  bool ok = true;
  for (SourceClauseExpr *source : clause.getSourceExprListElements()) {
    if (const SumClauseExpr *sum = source->getSumExpr()) {
      ok &= checkSum(*sum);
      continue;
    }
    replaceDateSource(*source);
    Expression *operand = source->getExpr();
    if (!checker.semanticCheck(*operand)) {
      ok = false;
      continue;
    }
    if (auto *name = llvm::dyn_cast<DataIdentifierExpression>(operand))
      name->getDataDescription()->addGenDE(&entry);
    ok &= checkSourceMove(*operand);
  }
  if (!fitsRepetitions(clause.getSourceExprListSize(), entry))
    ok = checker.report(ErrorCode::ReportMultipleSourceCount, &clause);
  return ok;
}

//===----------------------------------------------------------------------===//
// VALUE
//===----------------------------------------------------------------------===//

/// A literal of an item, or of each of its repetitions. A number may stand for what is edited out
/// of it.
bool ReportEntryCheck::checkValueLiteral(PhraseValue &phrase) {
  if (Word *word = phrase.getWord1()) {
    LiteralExpression *character = checker.convertSymbolicValue(word);
    if (!character)
      return false;
    phrase.setLiteral1(character);
    phrase.setWord1(nullptr);
  }
  LiteralExpression *literal = phrase.getLiteral1();
  if (!literal)
    return true;
  const bool isEdited = entry.getDataCategory() == DataCategory::NumericEdited &&
                        llvm::isa<NumericLiteralExpression>(literal);
  if (isEdited || !entry.getPicture() || entry.isGroupItem())
    return checker.semanticCheck(*literal);
  return checker.checkLiteralValue(&entry, literal);
}

bool ReportEntryCheck::checkValue(const ClauseReportValue &clause) {
  bool ok = true;
  ClauseValue *value = clause.getValue();
  for (PhraseValue *phrase : value->getPhraseValElements())
    ok &= checkValueLiteral(*phrase);
  if (entry.isGroupItem())
    return checker.report(ErrorCode::GroupValueInvalid, &entry);
  if (!fitsRepetitions(value->getPhraseValSize(), entry))
    ok = checker.report(ErrorCode::ReportMultipleValueCount, value);
  return ok;
}

//===----------------------------------------------------------------------===//
// SUM, COUNT
//===----------------------------------------------------------------------===//

bool isElementaryNumber(const ReportDataDescription &entry) {
  if (entry.isGroupItem())
    return false;
  const DataCategory category = entry.getDataCategory();
  return category == DataCategory::Unclassified || category == DataCategory::Numeric ||
         category == DataCategory::NumericEdited;
}

/// A sum or a count needs an elementary numeric item.
bool ReportEntryCheck::checkCounterItem() {
  if (isElementaryNumber(entry))
    return true;
  return checker.report(ErrorCode::ComputeReceiverNotElementaryNumeric, &entry,
                        entry.getDataName()->getWordData().c_str());
}

/// The item that holds the sum while the report is produced: signed, with the digits of the entry,
/// or the most that a sum can have when the entry shows none.
DataDescription *makeSumCounter(const ReportDataDescription &entry) {
  constexpr int maxDigits = 18;
  const ClausePicture *picture = entry.getPicture();
  const int digits = picture ? std::max(picture->getDigitNum(), 1) : maxDigits;
  const int scale = picture ? std::clamp(picture->getScale(), 0, digits) : 0;
  std::string text = "S";
  if (digits > scale)
    text += ("9(" + llvm::Twine(digits - scale) + ")").str();
  if (scale > 0)
    text += ("V9(" + llvm::Twine(scale) + ")").str();

  auto *counter = generate<DataDescription>(nullptr);
  counter->setLevelNum(77);
  counter->setDataName(entry.getDataName());
  counter->setPicture(generate<ClausePicture>(nullptr, generate<Word>(nullptr, text, "")));
  counter->setUsage(generate<ClauseUsage>(nullptr, UsageType::PackedDecimal));
  counter->setIsCompilerMade(true);
  return counter;
}

bool ReportEntryCheck::checkSumClause(ClauseSum &clause) {
  bool ok = true;
  for (const SumClauseExpr *sum : clause.getSumExprListElements())
    ok &= checkSum(*sum);
  if (IdentifierExpression *control = clause.getResetControl())
    ok &= checkControlName(checker, *control);
  if (!checkCounterItem())
    return false;
  clause.setSumDesc(makeSumCounter(entry));
  return ok;
}

/// Adds the operands of COUNT to the entries that they count.
bool ReportEntryCheck::checkCount(ClauseCount &clause) {
  bool ok = checkCounterItem();
  for (const CountClauseExpr *operand : clause.getCountExprListElements()) {
    for (Expression *counted : operand->getNameListElements()) {
      if (!bindReportItem(checker, *counted)) {
        ok = false;
        continue;
      }
      auto *name = llvm::dyn_cast<DataIdentifierExpression>(counted);
      ReportDataDescription *item = name ? reportItemOf(*name) : nullptr;
      if (!item) {
        ok = checker.report(ErrorCode::ReportCountNotReportEntry, counted);
        continue;
      }
      item->addCountExpr(counted);
      clause.addCountData(counted);
    }
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// PRESENT
//===----------------------------------------------------------------------===//

/// What an item shows under one of its conditions.
bool ReportEntryCheck::checkPresentContents(const PresentContents &contents) {
  bool ok = true;
  if (IdentifierExpression *control = contents.getControlId())
    ok &= checkControlName(checker, *control);
  if (ClauseSource *source = contents.getSource())
    ok &= checkSource(*source);
  if (const ClauseReportValue *value = contents.getValue())
    ok &= checkValue(*value);
  if (const ClauseFunction *function = contents.getFunction())
    ok &= checkFunction(checker, *function);
  return ok;
}

bool ReportEntryCheck::checkPresence() {
  bool ok = true;
  for (const ClausePresentWhen *clause : entry.getClausePresentWhenListElements()) {
    if (clause->getPresentCond())
      ok &= checker.semanticCheck(*clause->getPresentCond());
    ok &= checkPresentContents(*clause);
  }
  for (const ClausePresentAfter *clause : entry.getClausePresentAfterListElements())
    ok &= checkPresentContents(*clause);
  return ok;
}

//===----------------------------------------------------------------------===//
// Places
//===----------------------------------------------------------------------===//

template <typename Clause> bool checkNumbers(SemanticChecker &checker, const Clause *clause) {
  bool ok = true;
  if (clause)
    for (Expression *number : clause->getNumbersListElements())
      ok &= checkReportNumber(checker, number, clause->isRelative());
  return ok;
}

/// The numbers that say where an entry is printed, and how often.
bool ReportEntryCheck::checkPlaces() {
  bool ok = checkNumbers(checker, entry.getLineClause());
  ok &= checkNumbers(checker, entry.getColumnClause());
  if (const ClauseLine *line = entry.getLineClause())
    ok &= checkVarying(checker, line->getVaryingList());
  if (const ClauseNextGroup *next = entry.getNextGroupClause())
    ok &= checkReportNumber(checker, next->getNumberExpr(), next->getType() == NextGroupType::Plus);
  if (const ClauseGroupLimit *limit = entry.getGroupLimitClause())
    ok &= checkReportNumber(checker, limit->getLimitExpr());
  if (const ClauseReportOccurs *occurs = entry.getReportOccursClause()) {
    ok &= checkReportNumber(checker, occurs->getStepExpr());
    ok &= checkVarying(checker, occurs->getVaryingList());
  }
  if (const ClauseRepeated *repeated = entry.getRepeatedClause()) {
    ok &= checkReportNumber(checker, repeated->getTimesExpr());
    ok &= checkReportNumber(checker, repeated->getEveryExpr());
  }
  if (const ClauseWrap *wrap = entry.getWrapClause()) {
    ok &= checkReportNumber(checker, wrap->getAfterColumn());
    ok &= checkReportNumber(checker, wrap->getToColumn());
  }
  return ok;
}

} // namespace

bool checkReportEntry(SemanticChecker &checker, ReportDataDescription &entry) {
  return ReportEntryCheck(checker, entry).check();
}

} // namespace tarka
