//===- StatementRules.cpp - parameters, other rules of one statement ------===//

#include "AST/ClausePicture.h"
#include "AST/KindNames.h"
#include "AST/Procedure.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/SmallPtrSet.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSwitch.h"
#include <bitset>

namespace tarka {

namespace {

std::string nameOf(const DataDescription &entry) {
  return entry.getDataName() ? entry.getDataName()->getDisplayName() : "FILLER";
}

bool isLinkageRecord(const DataDescription &entry) {
  return (entry.getLevelNum() == 1 || entry.getLevelNum() == 77) &&
         entry.getStorageType() == StorageType::Linkage;
}

/// A literal or figurative constant whose value is zero.
bool isZero(const Expression &operand) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&operand))
    return llvm::StringRef(number->getData()).find_first_not_of("+-.0") == llvm::StringRef::npos;
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return constant && constant->getFigurativeType() == FigurativeType::Zero;
}

/// Whether \p item is \p group or in it.
bool isIn(const DataDescription &item, const DataDescription &group) {
  const DataDescription *around = &item;
  while (around && around != &group)
    around = around->getParent();
  return around;
}

/// The registers that the XML parser and the compiler set. The entries of registers are supplied.
bool isReadOnlyRegister(const DataDescription &entry) {
  return entry.getOrigin() == Origin::Supplied && entry.getDataName() &&
         llvm::StringSwitch<bool>(entry.getDataName()->getWordData())
             .Cases("SHIFT-IN", "SHIFT-OUT", "WHEN-COMPILED", true)
             .Cases("XML-EVENT", "XML-INFORMATION", "XML-TEXT", "XML-NTEXT", true)
             .Cases("XML-NAMESPACE", "XML-NNAMESPACE", true)
             .Cases("XML-NAMESPACE-PREFIX", "XML-NNAMESPACE-PREFIX", true)
             .Default(false);
}

/// How many digits the system has for ACCEPT.
int digitsOf(AcceptFromType source) {
  switch (source) {
  case AcceptFromType::Date:
    return 6;
  case AcceptFromType::DateYyyymmdd:
  case AcceptFromType::Time:
    return 8;
  case AcceptFromType::Day:
    return 5;
  case AcceptFromType::DayYyyyddd:
    return 7;
  default:
    return 0;
  }
}

class StatementCheck : public StatementVisitor<StatementCheck> {
public:
  StatementCheck(const StatementContext &statementContext, LanguageReport &languageReport)
      : context(statementContext), report(languageReport) {}

  void visitMoveStatement(MoveStatement &statement) {
    if (statement.isCorresponding())
      checkGroup(statement.getSource());
    for (IdentifierExpression *target : statement.getTargetListElements()) {
      checkReceiver(*target);
      if (statement.isCorresponding())
        checkGroup(target);
    }
  }

  void visitDivideStatement(DivideStatement &statement) {
    if (Expression *divisor =
            statement.getByExpr() ? statement.getByExpr() : statement.getOperand();
        divisor && statement.getSizeErrorHandlerSize() == 0)
      checkDivisor(*divisor, report);
  }

  void visitEvaluateStatement(EvaluateStatement &statement) { checkWhens(statement, report); }

  /// Characters at the end of an item are often left out, as the hundredths of the time, but digits
  /// are lost at the front.
  void visitAcceptStatement(AcceptStatement &statement) {
    if (!statement.getFromType() || isReferenceModified(*statement.getVariable()))
      return;
    const AcceptFromType source = statement.getFromType()->getType();
    const DataDescription *item = entryOfDataIdentifier(*statement.getVariable());
    const ClausePicture *picture = item ? item->getPicture() : nullptr;
    if (!picture || item->getDataCategory() != DataCategory::Numeric)
      return;
    const int places = picture->getDigitNum() - picture->getScale();
    if (places < digitsOf(source))
      report.report(LanguageRule::AcceptTooShort, *statement.getVariable(), nameOf(*item),
                    countOf(places, "digit"), nameOf(source), digitsOf(source));
  }

  void visitInspectStatement(InspectStatement &statement) {
    if (const ConvertingItem *phrase = statement.getConverting())
      if (auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(phrase->getExpr()))
        checkConverted(*literal);
  }

  void visitJsonGenerateStatement(JsonGenerateStatement &statement) {
    checkJsonText(*statement.getReceiverListElements().front());
    if (statement.getReceiverListSize() > 1)
      checkJsonCount(*statement.getReceiverListElements().back());
    checkJsonItems(*statement.getSourceListElements().front(), statement, "JSON GENERATE");
  }
  void visitJsonParseStatement(JsonParseStatement &statement) {
    checkJsonText(*statement.getSourceListElements().front());
    checkJsonItems(*statement.getReceiverListElements().front(), statement, "JSON PARSE");
  }

  void visitPerformStatement(PerformStatement &statement) {
    if (const PerformProcedure *range = statement.getProcedureName())
      checkRange(*range);
    for (const PerformVarying *phrase : statement.getPhraseListElements())
      checkStep(*phrase);
  }

  /// The table and its keys.
  void visitSortTableStatement(SortTableStatement &statement) {
    auto parts = statement.getPartListElements();
    const DataDescription *table = parts.empty() ? nullptr : entryOfDataIdentifier(*parts.front());
    if (!table || isUnknown(*parts.front()))
      return;
    if (!table->getOccurs()) {
      report.report(LanguageRule::SortOfNoTable, *parts.front(), nameOf(*table));
      return;
    }
    if (!statement.isOrdered() && table->getOccurs()->getKeysSize() == 0)
      report.report(LanguageRule::SortWithoutKey, *parts.front(), nameOf(*table));
    for (Expression *key : parts)
      if (const DataDescription *entry = entryOfDataIdentifier(*key);
          entry && !isUnknown(*key) && !isIn(*entry, *table))
        report.report(LanguageRule::SortKeyOutsideTable, *key, nameOf(*entry), nameOf(*table));
  }

  void visitAllocateStatement(AllocateStatement &statement) {
    for (Expression *item : statement.getPartListElements())
      if (const DataDescription *entry = entryOfDataIdentifier(*item);
          entry && !isUnknown(*item) && !isLinkageRecord(*entry))
        report.report(LanguageRule::AllocateNotLinkage, *item, nameOf(*entry));
    if (statement.getSourceListSize() > 0 && statement.getReceiverListSize() == 0)
      report.report(LanguageRule::AllocateNeedsReturning, statement);
    for (Expression *pointer : statement.getReceiverListElements())
      checkPointer(*pointer, "RETURNING of ALLOCATE");
  }

  void visitFreeStatement(FreeStatement &statement) {
    for (Expression *pointer : statement.getReceiverListElements())
      checkPointer(*pointer, "FREE");
  }

  void visitExitSectionStatement(ExitSectionStatement &statement) {
    if (!context.inSection)
      report.report(LanguageRule::ExitOutsideProcedure, statement, "SECTION", "section");
  }
  void visitExitParagraphStatement(ExitParagraphStatement &statement) {
    if (!context.inParagraph)
      report.report(LanguageRule::ExitOutsideProcedure, statement, "PARAGRAPH", "paragraph");
  }

  /// Its check fails without a message, so that no graph is made.
  void visitAlterStatement(AlterStatement &statement) {
    report.report(LanguageRule::AlterNotAnalysed, statement);
  }

private:
  void checkPointer(Expression &operand, llvm::StringRef what) {
    const DataDescription *entry = entryOfDataIdentifier(operand);
    if (entry && !isUnknown(operand) && entry->getUsageType() != UsageType::Pointer)
      report.report(LanguageRule::PointerNeeded, operand, nameOf(*entry), what);
  }

  void checkConverted(NonNumericLiteralExpression &literal) {
    if (literal.getNonNumericLiteralType() != NonNumericLiteralType::Alphanumeric)
      return;
    std::bitset<256> found;
    for (const char c : literal.getData()) {
      // Characters of several bytes have bytes in common.
      if (!llvm::isASCII(c))
        return;
      const auto code = static_cast<unsigned char>(c);
      if (found.test(code)) {
        report.report(LanguageRule::ConvertingRepeated, literal, llvm::StringRef(&c, 1));
        return;
      }
      found.set(code);
    }
  }

  /// What JSON text is made in or read from.
  void checkJsonText(Expression &operand) {
    const DataDescription *entry = entryOfDataIdentifier(operand);
    if (!entry || isUnknown(operand) || isConditionName(*entry))
      return;
    switch (operand.getDataCategory()) {
    case DataCategory::Numeric:
    case DataCategory::NumericEdited:
    case DataCategory::Alphabetic:
    case DataCategory::AlphanumericEdited:
    case DataCategory::InternalFloat:
    case DataCategory::ExternalFloat:
      report.report(LanguageRule::JsonTextOperand, operand, nameOf(*entry));
      break;
    default:
      break;
    }
  }

  void checkJsonCount(Expression &operand) {
    const DataDescription *entry = entryOfDataIdentifier(operand);
    if (entry && !isUnknown(operand) && !holdsInteger(operand))
      report.report(LanguageRule::JsonCountNotInteger, operand, nameOf(*entry));
  }

  /// NAME and SUPPRESS name items of the one that is converted.
  void checkJsonItems(Expression &converted, const OperandStatement &statement,
                      llvm::StringRef what) {
    const DataDescription *group = entryOfDataIdentifier(converted);
    if (!group || isUnknown(converted) || !group->getDataName())
      return;
    for (Expression *item : statement.getPartListElements())
      if (const DataDescription *entry = entryOfDataIdentifier(*item);
          entry && !isUnknown(*item) && !isIn(*entry, *group))
        report.report(LanguageRule::JsonItemOutside, *item, nameOf(*entry), nameOf(*group), what);
  }

  void checkStep(const PerformVarying &phrase) {
    auto *step = llvm::dyn_cast_or_null<NumericLiteralExpression>(phrase.getByIdentifier());
    const DataDescription *varied = phrase.getVaryingIdentifier()
                                        ? entryOfDataIdentifier(*phrase.getVaryingIdentifier())
                                        : nullptr;
    if (!step || !varied)
      return;
    if (isZero(*step))
      report.report(LanguageRule::StepIsZero, *step, nameOf(*varied));
    else if (isIndexName(*varied) && !step->isInteger())
      report.report(LanguageRule::StepOfIndexNotInteger, *step, nameOf(*varied), step->getData());
  }

  /// The last procedure stands before the first one, so that only GO TO can lead to its end. A
  /// section that a paragraph is performed through can be the one around it.
  void checkRange(const PerformProcedure &range) {
    const Node *first = range.getBeginParagraph();
    const Node *last = range.getThruParagraph();
    if (!first && (last || range.getThruSection()))
      first = range.getBeginSection();
    if (!last && !range.getBeginParagraph())
      last = range.getThruSection();
    if (!first || !last || !range.getProcedureName2() ||
        first->getRange().file != last->getRange().file ||
        last->getRange().beginLine >= first->getRange().beginLine)
      return;
    auto nameOfProcedure = [](const QualifiedWord &name) -> const std::string & {
      return name.getNamesElements().front()->getDisplayName();
    };
    report.report(LanguageRule::PerformRangeReversed, *range.getProcedureName2(),
                  nameOfProcedure(*range.getProcedureName2()),
                  nameOfProcedure(*range.getProcedureName1()));
  }

  void checkReceiver(IdentifierExpression &target) {
    if (const DataDescription *entry = entryOfDataIdentifier(target)) {
      if (isReadOnlyRegister(*entry))
        report.report(LanguageRule::RegisterReadOnly, target, nameOf(*entry));
      return;
    }
    auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&target);
    if (!special)
      return;
    if (special->getType() >= SpecialRegisterType::XmlEvent &&
        special->getType() <= SpecialRegisterType::XmlNNamespacePrefix)
      report.report(LanguageRule::RegisterReadOnly, target,
                    special->getRegisterWord()->getDisplayName());
    if (special->getType() != SpecialRegisterType::LengthOf)
      return;
    if (const DataDescription *entry = special->getDataDescription(); entry && entry->getDataName())
      report.report(LanguageRule::LengthOfAsReceiver, target,
                    entry->getDataName()->getDisplayName());
  }

  void checkGroup(Expression *operand) {
    const DataDescription *entry = operand ? entryOfDataIdentifier(*operand) : nullptr;
    if (entry && entry->getDataName() && !isUnknown(*operand) && !isGroupItem(*operand))
      report.report(LanguageRule::CorrespondingNotGroup, *operand,
                    entry->getDataName()->getDisplayName());
  }

  const StatementContext &context;
  LanguageReport &report;
};

} // namespace

void checkDivisor(Expression &divisor, LanguageReport &report) {
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&divisor);
  if (isZero(divisor))
    report.report(LanguageRule::DivisionByZero, divisor, number ? number->getData() : "ZERO");
}

void checkParameters(ProcedureDivision &division, LanguageReport &report) {
  llvm::SmallPtrSet<const DataDescription *, 8> parameters;
  // Several that are wrong have one cause, most often a lost header of the linkage section.
  bool isReported = false;
  auto check = [&](Expression *item) {
    auto *identifier = llvm::dyn_cast_or_null<DataIdentifierExpression>(item);
    const DataDescription *entry = identifier ? identifier->getDataDescription() : nullptr;
    if (!entry || !entry->getDataName())
      return false;
    const bool isUsable = isLinkageRecord(*entry);
    if (!isUsable && !isReported)
      report.report(LanguageRule::ParameterNotLinkageRecord, *item,
                    entry->getDataName()->getDisplayName());
    isReported |= !isUsable;
    return true;
  };
  for (Parameter *parameter : division.getParameterElements()) {
    Expression *item = parameter->getExpr();
    if (check(item) && !parameters.insert(entryOfDataIdentifier(*item)).second)
      report.report(LanguageRule::ParameterRepeated, *item,
                    entryOfDataIdentifier(*item)->getDataName()->getDisplayName());
  }
  if (const Returning *returning = division.getReturning())
    check(returning->getReturnItem());
}

void checkStatement(Statement &statement, const StatementContext &context, LanguageReport &report) {
  StatementCheck(context, report).visit(statement);
}

} // namespace tarka
