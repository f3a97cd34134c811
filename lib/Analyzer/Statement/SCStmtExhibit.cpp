//===- SCStmtExhibit.cpp - EXHIBIT of OS/VS COBOL -------------------------===//
//
// EXHIBIT displays operands with their names, or those whose values have changed:
// DISPLAY statements, for the latter with items that keep the last values.
//
//===----------------------------------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OsvsMaker.h"
#include "llvm/ADT/Twine.h"

namespace tarka {

namespace {

/// The name of an operand as EXHIBIT NAMED shows it.
std::string exhibitedName(const Expression &operand) {
  std::string name;
  if (const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand)) {
    for (const Word *word : identifier->getQualifiedWord()->getNamesElements())
      name += (name.empty() ? "" : " OF ") + word->getWordData();
  } else if (const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand)) {
    name = special->getRegisterWord()->getWordData();
  }
  return name;
}

/// Makes the statements that EXHIBIT is converted to.
class ExhibitConverter {
public:
  ExhibitConverter(SemanticChecker &checker, ExhibitStatement &theStatement)
      : statement(theStatement), make(checker, theStatement),
        isNamed(statement.getExhibitType() != ExhibitType::Changed) {}

  DisplayStatement *displayAll();
  void addChangedDisplays(Word *device);

private:
  void addExhibited(DisplayStatement &display, Expression *operand);
  DataDescription *makeCopy(const Expression &operand);

  ExhibitStatement &statement;
  OsvsMaker make;
  bool isNamed;
};

void ExhibitConverter::addExhibited(DisplayStatement &display, Expression *operand) {
  if (isNamed)
    if (std::string name = exhibitedName(*operand); !name.empty())
      display.addIdenLiter(make.text(name + " = "));
  display.addIdenLiter(operand);
}

/// One DISPLAY of all operands, separated by spaces.
DisplayStatement *ExhibitConverter::displayAll() {
  auto *display = generate<DisplayStatement>(&statement);
  display->setUponName(statement.getUponName());
  for (Expression *operand : statement.getExhibitExprListElements()) {
    if (display->getIdenLiterListSize() != 0)
      display->addIdenLiter(make.text(" "));
    addExhibited(*display, operand);
  }
  return display;
}

/// An item that the value of \p operand can be moved to and compared with later: of the same kind
/// for numbers, of as many characters for all others. Null for an operand without such a value.
DataDescription *ExhibitConverter::makeCopy(const Expression &operand) {
  const DataDescription *item = entryOf(operand);
  if (!item)
    return nullptr;
  auto characters = [&](const char *symbol, std::int64_t size, UsageType usage) {
    std::string picture = (symbol + llvm::Twine('(') + llvm::Twine(size) + ")").str();
    return make.item(picture.c_str(), usage);
  };
  DataDescription *copy = nullptr;
  switch (operand.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat: {
    const ClausePicture *picture = item->getPicture();
    copy = make.item(picture ? picture->getCharStringWord()->getWordData().c_str() : nullptr,
                     item->getUsageType());
    break;
  }
  case DataCategory::National:
  case DataCategory::NationalEdited:
    copy = characters("N", item->getAllocSize() / 2, UsageType::National);
    break;
  case DataCategory::Dbcs:
    copy = characters("G", item->getAllocSize() / 2, UsageType::Display1);
    break;
  case DataCategory::Unclassified:
  case DataCategory::Pointer:
  case DataCategory::Index:
    return nullptr;
  default:
    copy = characters("X", item->getAllocSize(), UsageType::Display);
  }
  // A date is only moved to a date.
  copy->setDateFormat(item->getDateFormat());
  return copy;
}

/// Displays the operands whose values have changed since the last time, and all of them the first
/// time. An operand whose value cannot be kept is always displayed.
void ExhibitConverter::addChangedDisplays(Word *device) {
  std::string known =
      make.keep("TKDUMMY-EXHIBIT-", make.item("9", UsageType::Display), make.zero()).str();
  for (Expression *operand : statement.getExhibitExprListElements()) {
    auto *display = generate<DisplayStatement>(&statement);
    display->setUponName(device);
    addExhibited(*display, operand);
    DataDescription *copy = makeCopy(*operand);
    if (!copy) {
      statement.addConvertStmt(display);
      continue;
    }
    std::string last = make.keep("TKDUMMY-EXHIBIT-", copy, nullptr).str();
    Condition *isChanged = make.combine(
        CombinedOperatorType::Or,
        make.compare(RelationalConditionType::Equal, make.reference(known), make.zero()),
        make.compare(RelationalConditionType::NotEqual, operand, make.reference(last)));
    NodeList<Statement> show{display, make.move(operand, make.reference(last))};
    statement.addConvertStmt(generate<IfStatement>(&statement, isChanged, &show, nullptr));
  }
  statement.addConvertStmt(make.move(make.number("1"), make.reference(known)));
}

} // namespace

bool SemanticChecker::semanticCheck(ExhibitStatement &statement) {
  ExhibitConverter convert(*this, statement);
  DisplayStatement *all = convert.displayAll();
  if (statement.getExhibitType() == ExhibitType::Named)
    statement.addConvertStmt(all);
  if (!semanticCheck(*all))
    return false;
  if (statement.getExhibitType() != ExhibitType::Named)
    convert.addChangedDisplays(all->getUponName());
  return true;
}

} // namespace tarka
