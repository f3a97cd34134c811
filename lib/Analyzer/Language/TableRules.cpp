//===- TableRules.cpp - tables, subscripts and parts of items -------------===//
//
// Which entries can be tables, how many subscripts an item needs, and which literal subscripts and
// reference modifiers are outside of the item whatever the program does. A table with OCCURS
// DEPENDING ON counts with its maximum.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDivision.h"
#include "AST/DataTree.h"
#include "AST/ExpressionVisitor.h"
#include "AST/Operands.h"
#include "AST/ReportClauses.h"
#include "AST/ReportDescription.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <optional>

namespace tarka {

namespace {

const std::string &nameOf(const DataIdentifierExpression &identifier) {
  return identifier.getQualifiedWord()->getNamesElements().front()->getDisplayName();
}

std::string displayNameOf(const DataDescription &entry) {
  return entry.getDataName() ? entry.getDataName()->getDisplayName() : "FILLER";
}

/// The length of the item that an operand is; nothing for a table, of which one occurrence or all
/// can be meant, for a part and for an item whose length varies.
std::optional<std::int64_t> fixedLengthOf(const Expression *operand, bool inCharacters) {
  const DataDescription *entry = operand ? entryOfDataIdentifier(*operand) : nullptr;
  if (!entry || isConditionName(*entry) || isIndexName(*entry) || isReferenceModified(*operand) ||
      entry->getOccurs() || entry->isTooLarge() || entry->checkContainsOdo())
    return std::nullopt;
  // National and DBCS characters take two bytes each.
  const UsageType usage = entry->getUsageType();
  const bool isWide = usage == UsageType::National || usage == UsageType::Display1;
  return inCharacters && isWide ? entry->getAllocSize() / 2 : entry->getAllocSize();
}

/// The value of an operand that is not an arithmetic expression, where the source has it: of an
/// integer, of LENGTH OF and FUNCTION LENGTH.
std::optional<std::int64_t> simpleConstantOf(const Expression &operand) {
  if (const auto *literal = llvm::dyn_cast<NumericLiteralExpression>(&operand))
    return literal->isInteger() ? std::optional(literal->getIntegerValue()) : std::nullopt;
  if (const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand))
    return special->getType() == SpecialRegisterType::LengthOf
               ? fixedLengthOf(special->getIdent(), /*inCharacters=*/false)
               : std::nullopt;
  const auto *function = llvm::dyn_cast<FunctionIdentifierExpression>(&operand);
  if (!function || function->getIntrinsicType() != IntrinsicType::Length ||
      function->getFunctionArgListSize() != 1)
    return std::nullopt;
  return fixedLengthOf(function->getFunctionArgListElements().front(), /*inCharacters=*/true);
}

std::optional<std::int64_t> calculate(ArithmeticExprType type, std::int64_t left,
                                      std::int64_t right) {
  switch (type) {
  case ArithmeticExprType::Add:
    return left + right;
  case ArithmeticExprType::Subtract:
    return left - right;
  case ArithmeticExprType::Multiply:
    return left * right;
  case ArithmeticExprType::Divide:
    return right != 0 && left % right == 0 ? std::optional(left / right) : std::nullopt;
  default:
    return std::nullopt;
  }
}

/// The value of an operand that is the same whenever the program runs, as far as it is small enough
/// to be counted with.
std::optional<std::int64_t> constantOf(const Expression &operand) {
  constexpr std::int64_t limit = 1'000'000'000;
  auto inLimits = [](std::optional<std::int64_t> value) {
    return value && -limit <= *value && *value <= limit ? value : std::nullopt;
  };
  // Chains of operators lean to the left. The right operand of one is simple, or nothing is known.
  llvm::SmallVector<const ArithmeticExpression *, 4> chain;
  const Expression *first = &operand;
  while (const auto *link = llvm::dyn_cast<ArithmeticExpression>(first)) {
    chain.push_back(link);
    first = link->getOperand1();
  }
  std::optional<std::int64_t> value = inLimits(simpleConstantOf(*first));
  for (const ArithmeticExpression *link : llvm::reverse(chain)) {
    if (!value)
      return std::nullopt;
    if (!link->getOperand2()) {
      if (link->getOperator() == ArithmeticExprType::UnaryMinus)
        value = -*value;
    } else if (const std::optional<std::int64_t> right =
                   inLimits(simpleConstantOf(*link->getOperand2()))) {
      value = inLimits(calculate(link->getOperator(), *value, *right));
    } else {
      return std::nullopt;
    }
  }
  return value;
}

/// A subscript that is an index-name with a literal added or subtracted.
struct RelativeIndex {
  const DataIdentifierExpression *index;
  bool isAdded;
  std::int64_t distance;
};

std::optional<RelativeIndex> relativeIndexOf(const Expression &subscript) {
  const auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(&subscript);
  if (!arithmetic || !arithmetic->getOperand2())
    return std::nullopt;
  const bool isAdded = arithmetic->getOperator() == ArithmeticExprType::Add;
  if (!isAdded && arithmetic->getOperator() != ArithmeticExprType::Subtract)
    return std::nullopt;
  const auto *index = llvm::dyn_cast<DataIdentifierExpression>(arithmetic->getOperand1());
  std::optional<std::int64_t> distance = constantOf(*arithmetic->getOperand2());
  if (!index || !distance || !index->getDataDescription() ||
      !isIndexName(*index->getDataDescription()))
    return std::nullopt;
  return RelativeIndex{index, isAdded, *distance};
}

/// The tables that \p entry is in, the outermost first.
llvm::SmallVector<const DataDescription *, 4> tablesAround(const DataDescription &entry) {
  llvm::SmallVector<const DataDescription *, 4> tables;
  const DataDescription *group = isConditionName(entry) ? entry.getCondNameParent() : &entry;
  for (; group; group = group->getParent())
    if (group->getOccurs())
      tables.push_back(group);
  std::reverse(tables.begin(), tables.end());
  return tables;
}

/// Where an operand stands, as far as its subscripts depend on it.
enum class OperandPlace {
  Statement,
  FunctionArgument,
  /// The operand of LENGTH OF, ADDRESS OF and FUNCTION LENGTH, which may be a table as a whole.
  WholeTable,
  /// What an entry of a report shows, whose lines can supply subscripts that are not written.
  ReportEntry,
};

/// Checks the operands of one statement with everything that they are made of.
class TableCheck : public ExpressionVisitor<TableCheck> {
public:
  explicit TableCheck(LanguageReport &languageReport) : report(languageReport) {}

  /// A division by zero is no mistake where ON SIZE ERROR handles it.
  void setHandlesSizeError(bool handles) { handlesSizeError = handles; }

  void check(Expression *operand, OperandPlace where = OperandPlace::Statement) {
    if (!operand)
      return;
    const OperandPlace outer = place;
    place = where;
    visit(*operand);
    place = outer;
  }

  void check(Condition *condition) {
    // Long chains of AND and OR lean to the left.
    llvm::SmallVector<Condition *, 8> pending;
    for (; condition; condition = pending.empty() ? nullptr : pending.pop_back_val()) {
      while (auto *chain = llvm::dyn_cast<CombinedCondition>(condition)) {
        if (chain->getRight())
          pending.push_back(chain->getRight());
        if (!chain->getLeft())
          break;
        condition = chain->getLeft();
      }
      checkOne(*condition);
    }
  }

  void visitDataIdentifierExpression(DataIdentifierExpression &identifier) {
    const OperandPlace where = place;
    if (SubscriptModifier *subscripts = identifier.getSubscriptMod())
      for (Expression *subscript : subscripts->getSubscriptElements()) {
        checkNumber(subscript);
        checkInteger(*subscript);
      }
    checkParts(identifier.getReferenceMod());
    const DataDescription *entry = identifier.getDataDescription();
    if (!entry || !identifier.getQualifiedWord())
      return;
    if (where == OperandPlace::FunctionArgument)
      checkNotConditionName(identifier);
    if (checkSubscripts(identifier, *entry, where))
      checkModifier(identifier, *entry);
  }

  void visitFunctionIdentifierExpression(FunctionIdentifierExpression &function) {
    checkArguments(function, report);
    const bool takesTables = function.getIntrinsicType() == IntrinsicType::Length;
    for (Expression *argument : function.getFunctionArgListElements())
      check(argument, takesTables ? OperandPlace::WholeTable : OperandPlace::FunctionArgument);
    checkParts(function.getReferenceMod());
    // The two functions that give the date, the time and the distance from Greenwich.
    constexpr std::int64_t dateLength = 21;
    const bool isDate = function.getIntrinsicType() == IntrinsicType::CurrentDate ||
                        function.getIntrinsicType() == IntrinsicType::WhenCompiled;
    if (isDate && function.getReferenceMod())
      checkModifier(function, *function.getReferenceMod(),
                    function.getFunctionName()->getDisplayName(), dateLength);
  }

  void visitSpecialRegisterIdentifierExpression(SpecialRegisterIdentifierExpression &special) {
    check(special.getIdent(), OperandPlace::WholeTable);
    checkParts(special.getReferenceMod());
  }

  /// Long chains of operators lean to the left.
  void visitArithmeticExpression(ArithmeticExpression &expression) {
    const OperandPlace where = place;
    Expression *first = &expression;
    while (auto *link = llvm::dyn_cast<ArithmeticExpression>(first)) {
      if (link->getOperator() == ArithmeticExprType::Divide && !handlesSizeError)
        checkDivisor(*link->getOperand2(), report);
      check(link->getOperand2(), where);
      first = link->getOperand1();
    }
    check(first, where);
  }

  void visitAbbrRelationCombinedExpression(AbbrRelationCombinedExpression &objects) {
    check(objects.getLeft());
    for (AbbrRelationItem *item : objects.getRightAbbrListElements())
      check(item->getCond());
  }

private:
  void checkOne(Condition &condition) {
    if (auto *name = llvm::dyn_cast<ConditionNameCondition>(&condition)) {
      check(static_cast<Expression *>(name->getConditionName()));
    } else if (auto *relation = llvm::dyn_cast<RelationalCondition>(&condition)) {
      checkEquality(*relation, report);
      check(relation->getLeft());
      check(relation->getRight());
    } else if (auto *abbreviated = llvm::dyn_cast<AbbrRelationalCondition>(&condition)) {
      check(abbreviated->getRight());
    } else if (auto *ofClass = llvm::dyn_cast<ClassCondition>(&condition)) {
      checkClassCondition(*ofClass, report);
      check(ofClass->getLeft());
    } else if (auto *sign = llvm::dyn_cast<SignCondition>(&condition)) {
      check(sign->getOperand());
    } else if (auto *negated = llvm::dyn_cast<NegatedCondition>(&condition)) {
      check(negated->getOperand());
    }
  }

  /// A subscript, a leftmost position or a length: the condition-name passes for a number with the
  /// checks before this pass, because it has the category of its variable.
  void checkNumber(Expression *operand) {
    if (!operand)
      return;
    check(operand);
    if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(operand))
      checkNotConditionName(*identifier);
  }

  /// Items with decimals pass as subscripts with the checks before this pass, which look for
  /// numbers only.
  void checkInteger(Expression &subscript) {
    if (entryOfDataIdentifier(subscript) && !isConditionName(subscript) &&
        subscript.getDataCategory() == DataCategory::Numeric && !subscript.isInteger())
      report.report(LanguageRule::SubscriptNotInteger, subscript,
                    nameOf(llvm::cast<DataIdentifierExpression>(subscript)));
  }

  void checkParts(ReferenceModifier *modifier) {
    if (!modifier)
      return;
    checkNumber(modifier->getFromExpr());
    checkNumber(modifier->getCountExpr());
  }

  void checkNotConditionName(DataIdentifierExpression &name) {
    const DataDescription *entry = name.getDataDescription();
    if (entry && isConditionName(*entry) && entry->getCondNameParent() &&
        entry->getCondNameParent()->getDataName())
      report.report(LanguageRule::ConditionNameAsValue, name, nameOf(name),
                    entry->getCondNameParent()->getDataName()->getDisplayName());
  }

  /// Gives false where the number of subscripts is wrong, or nothing can be said of the item.
  bool checkSubscripts(DataIdentifierExpression &identifier, const DataDescription &entry,
                       OperandPlace where) {
    // The parent of an index-name is its table, which it is not part of.
    if (isIndexName(entry))
      return false;
    SubscriptModifier *modifier = identifier.getSubscriptMod();
    llvm::SmallVector<const DataDescription *, 4> tables = tablesAround(entry);
    // Subscripts where there is no table have been reported.
    if (tables.empty())
      return !modifier;
    // The lines of a report repeat without subscripts.
    if (entry.getStorageType() == StorageType::Report)
      return false;
    const std::size_t given = modifier ? modifier->getSubscriptSize() : 0;
    if (given == 0 && where == OperandPlace::WholeTable)
      return true;
    if (given != tables.size() && where == OperandPlace::ReportEntry)
      return false;
    if (given != tables.size()) {
      report.report(LanguageRule::SubscriptCount, identifier, nameOf(identifier),
                    countOf(static_cast<std::int64_t>(tables.size()), "subscript"),
                    given ? std::to_string(given) : "none");
      return false;
    }
    for (auto [table, subscript] : llvm::zip(tables, modifier->getSubscriptElements()))
      if (isAllSubscript(*subscript)) {
        if (where == OperandPlace::Statement)
          report.report(LanguageRule::SubscriptAllOutsideFunction, identifier, nameOf(identifier));
      } else {
        checkSubscript(identifier, *table, *subscript);
      }
    return true;
  }

  void checkSubscript(DataIdentifierExpression &identifier, const DataDescription &table,
                      Expression &subscript) {
    const ClauseOccurs &occurs = *table.getOccurs();
    if (!occurs.getMaxExpr() && !occurs.getMinExpr())
      return;
    const std::int64_t most = occurs.getMostOccurrences();
    std::string shown;
    if (std::optional<std::int64_t> value = constantOf(subscript)) {
      if (*value < 1 || *value > most)
        shown = std::to_string(*value);
    } else if (std::optional<RelativeIndex> relative = relativeIndexOf(subscript)) {
      // An index counts from 1. After a search that found nothing it is one beyond the table.
      const bool isOutside =
          relative->isAdded ? relative->distance >= most : relative->distance > most;
      if (isOutside)
        shown = llvm::formatv("{0} {1} {2}", nameOf(*relative->index),
                              relative->isAdded ? "+" : "-", relative->distance)
                    .str();
    }
    if (!shown.empty())
      report.report(LanguageRule::SubscriptOutOfRange, identifier, shown, displayNameOf(table),
                    countOf(most, "occurrence"));
  }

  void checkModifier(DataIdentifierExpression &identifier, const DataDescription &entry) {
    const ReferenceModifier *modifier = identifier.getReferenceMod();
    if (!modifier || entry.getStorageType() == StorageType::Report)
      return;
    const std::int64_t size = entry.getAllocSize();
    if (size <= 0 || entry.isTooLarge() || isUnknown(identifier))
      return;
    // National and DBCS characters take two bytes each.
    const UsageType usage = entry.getUsageType();
    const bool isWide = usage == UsageType::National || usage == UsageType::Display1;
    checkModifier(identifier, *modifier, nameOf(identifier), isWide ? size / 2 : size);
  }

  /// A part of \p operand, which has \p characters.
  void checkModifier(Expression &operand, const ReferenceModifier &modifier, llvm::StringRef name,
                     std::int64_t characters) {
    if (!modifier.getFromExpr())
      return;
    std::optional<std::int64_t> from = constantOf(*modifier.getFromExpr());
    std::optional<std::int64_t> count =
        modifier.getCountExpr() ? constantOf(*modifier.getCountExpr()) : std::nullopt;
    const bool isBeginOutside = from && (*from < 1 || *from > characters);
    const bool isCountOutside = count && (*count < 1 || *count > characters);
    const bool isEndOutside = from && count && *from + *count - 1 > characters;
    if (!isBeginOutside && !isCountOutside && !isEndOutside)
      return;
    auto shown = [](const Expression *written, std::optional<std::int64_t> value) {
      if (!written)
        return std::string();
      return value ? std::to_string(*value) : std::string("...");
    };
    report.report(LanguageRule::ModifierOutOfRange, operand,
                  shown(modifier.getFromExpr(), from) + ":" + shown(modifier.getCountExpr(), count),
                  name, countOf(characters, "character"));
  }

  LanguageReport &report;
  OperandPlace place = OperandPlace::Statement;
  bool handlesSizeError = false;
};

} // namespace

void checkRecords(DataDivision &division, LanguageReport &report) {
  constexpr std::int64_t mostBytes = 2'147'483'647;
  auto checkRecord = [&](DataDescription *record) {
    forEachEntry(record, [&](const DataDescription *entry) {
      if (isConditionName(*entry))
        checkConditionValues(*entry, report);
    });
    // The level numbers 66, 77 and 88 with OCCURS have been reported.
    if (record->getLevelNum() == 1 && record->getOccurs())
      report.report(LanguageRule::OccursOnRecord, *record, displayNameOf(*record));
    // In a record of the linkage section UNBOUNDED stands for the greatest number of occurrences.
    else if (record->getStorageType() != StorageType::Linkage && record->getAllocSize() > mostBytes)
      report.report(LanguageRule::RecordTooLarge, *record, displayNameOf(*record),
                    record->isTooLarge() ? "too many bytes to count"
                                         : countOf(record->getAllocSize(), "byte"),
                    mostBytes);
  };
  for (FileDescription *file : division.getFileSectionElements())
    std::for_each(file->getDataRecordDescBegin(), file->getDataRecordDescEnd(), checkRecord);
  llvm::for_each(listOrEmpty(division.getWorkSection()), checkRecord);
  llvm::for_each(division.getLocalSectionElements(), checkRecord);
  llvm::for_each(division.getLinkSectionElements(), checkRecord);
}

void checkVariableTables(DataDivision &division, LanguageReport &report) {
  for (DataDescription *table : division.getVariableTables()) {
    auto *object = llvm::dyn_cast<DataIdentifierExpression>(table->getOccurs()->getOdoName());
    const DataDescription *entry = object ? object->getDataDescription() : nullptr;
    if (!entry || !isConditionName(*entry) || !entry->getCondNameParent() ||
        !entry->getCondNameParent()->getDataName())
      continue;
    report.report(LanguageRule::ConditionNameAsValue, *object, nameOf(*object),
                  entry->getCondNameParent()->getDataName()->getDisplayName());
  }
}

void checkReportEntries(DataDivision &division, LanguageReport &report) {
  TableCheck check(report);
  auto checkEntry = [&](const DataDescription *entry) {
    const auto *item = llvm::dyn_cast<ReportDataDescription>(entry);
    if (!item)
      return;
    if (const ClauseSource *source = item->getSourceClause())
      for (const SourceClauseExpr *shown : source->getSourceExprListElements())
        check.check(shown->getExpr(), OperandPlace::ReportEntry);
    if (const ClauseSum *sum = item->getSumClause())
      for (const SumClauseExpr *added : sum->getSumExprListElements())
        for (Expression *name : added->getNameListElements())
          check.check(name, OperandPlace::ReportEntry);
  };
  for (const ReportDescription *one : division.getReportSectionElements())
    for (ReportDataDescription *group : one->getRecordListElements())
      forEachEntry(static_cast<DataDescription *>(group), checkEntry);
}

void checkOperands(Statement &statement, LanguageReport &report) {
  if (statement.hasPlainOperands())
    return;
  TableCheck check(report);
  if (const auto *arithmetic = llvm::dyn_cast<ArithmeticStatement>(&statement))
    check.setHandlesSizeError(arithmetic->getSizeErrorHandlerSize() > 0);
  forEachOperand(
      statement, [&](Expression &operand, OperandRole) { check.check(&operand); },
      [&](Condition &condition, OperandRole) { check.check(&condition); });
}

} // namespace tarka
