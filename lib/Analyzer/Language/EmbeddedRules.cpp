//===- EmbeddedRules.cpp - the names in EXEC blocks -----------------------===//

#include "EmbeddedRules.h"
#include "AST/ExpressionVisitor.h"
#include "AST/Scope.h"
#include "AST/Spelling.h"

namespace tarka {

namespace {

/// Calls a function for every data reference in an operand, those in its subscripts included.
class ReferenceWalk : public ExpressionVisitor<ReferenceWalk> {
public:
  explicit ReferenceWalk(llvm::function_ref<void(DataIdentifierExpression &)> onReference)
      : found(onReference) {}

  void walk(Expression *operand) {
    if (operand)
      visit(*operand);
  }

  void visitDataIdentifierExpression(DataIdentifierExpression &identifier) {
    found(identifier);
    if (SubscriptModifier *subscripts = identifier.getSubscriptMod())
      for (Expression *subscript : subscripts->getSubscriptElements())
        walk(subscript);
    walk(identifier.getReferenceMod());
  }
  void visitSpecialRegisterIdentifierExpression(SpecialRegisterIdentifierExpression &special) {
    walk(special.getIdent());
  }
  void visitFunctionIdentifierExpression(FunctionIdentifierExpression &function) {
    for (Expression *argument : function.getFunctionArgListElements())
      walk(argument);
  }
  /// Long chains of operators lean to the left.
  void visitArithmeticExpression(ArithmeticExpression &expression) {
    Expression *first = &expression;
    while (auto *link = llvm::dyn_cast<ArithmeticExpression>(first)) {
      walk(link->getOperand2());
      first = link->getOperand1();
    }
    walk(first);
  }

private:
  void walk(ReferenceModifier *modifier) {
    if (modifier) {
      walk(modifier->getFromExpr());
      walk(modifier->getCountExpr());
    }
  }

  llvm::function_ref<void(DataIdentifierExpression &)> found;
};

/// The item of the program whose name is nearest to \p name; empty when none is near.
llvm::StringRef nearestItem(const Scope &scope, llvm::StringRef name) {
  SpellingMatch match(name);
  scope.forEachItem([&](DataDescription *entry) {
    if (const Word *word = entry->getDataName(); word && entry->isWritten())
      match.consider(word->getWordData());
  });
  return match.getNearest();
}

/// Whether the qualifiers of \p words fit more than one item.
bool fitsSeveral(const Scope &scope, const NodeList<Word> &words) {
  const Homonyms homonyms = scope.findItems(&words.front()->getWordData());
  if (!homonyms)
    return false;
  if (words.size() > 1)
    return matchQualified(homonyms, words).size() > 1;
  return !matchUnqualified(homonyms, /*prefersReportItem=*/false).isUnique;
}

/// Whether CICS, DB2 or DL/I supplies \p name, which the program then need not declare.
bool isSupplied(llvm::StringRef name) {
  return name.starts_with("EIB") || name.starts_with("DFH") || name.starts_with("DIB") ||
         name.starts_with("SQL");
}

} // namespace

std::string suggestion(llvm::StringRef nearest) {
  return nearest.empty() ? std::string() : ("; was " + nearest + " meant?").str();
}

void EmbeddedCheck::check(ExecStatement &block, SourceUnit &unit) {
  EmbeddedCommand *command = block.getCommand();
  if (!command)
    return;
  checkNames(*command, unit);
  checkLabels(*command, unit);
  // Options have names; what could not be read has none.
  if (command->getLanguage() != ExecType::Sql)
    if (EmbeddedOperand *unread = command->find(""))
      report.report(LanguageRule::EmbeddedUnexpectedText, *unread, command->getName());
  if (auto *cics = llvm::dyn_cast<CicsCommand>(command))
    checkCicsCommand(*cics, report);
  else if (auto *statement = llvm::dyn_cast<SqlCommand>(command))
    sql.check(*statement);
  else
    dli.check(*command);
}

void EmbeddedCheck::checkNames(EmbeddedCommand &command, SourceUnit &unit) {
  auto check = [&](DataIdentifierExpression &name) { checkName(name, unit); };
  ReferenceWalk walk(check);
  for (EmbeddedOperand *operand : command.getOperandElements())
    walk.walk(operand->getValue());
}

/// A name that is not declared is reported once in each program.
void EmbeddedCheck::checkName(DataIdentifierExpression &name, SourceUnit &unit) {
  const NodeList<Word> &words = name.getQualifiedWord()->getNamesElements();
  const Scope scope(&unit);
  if (name.getDataDescription()) {
    if (fitsSeveral(scope, words))
      report.report(LanguageRule::EmbeddedNameNotUnique, name, words.front()->getDisplayName());
    return;
  }
  if (isSupplied(words.front()->getWordData()) ||
      !reportedNames.insert({&unit, &words.front()->getWordData()}).second)
    return;
  std::string shown;
  for (const Word *word : words)
    shown += (shown.empty() ? "" : " OF ") + word->getDisplayName();
  report.report(LanguageRule::EmbeddedNameUndeclared, name, shown,
                suggestion(nearestItem(scope, words.front()->getWordData())));
}

/// The procedure-names that HANDLE and WHENEVER name.
void EmbeddedCheck::checkLabels(EmbeddedCommand &command, SourceUnit &unit) {
  ProcedureDivision *division = unit.getProcDivision();
  if (!division)
    return;
  for (EmbeddedOperand *operand : command.getOperandElements()) {
    Word *label = operand->getWord();
    if (operand->getRole() != EmbeddedRole::Label || !label)
      continue;
    const std::string &name = label->getWordData();
    if (operand->getSection() || operand->getParagraph() ||
        !reportedNames.insert({&unit, &name}).second)
      continue;
    SpellingMatch match(name);
    for (Section *section : division->getSectElements()) {
      if (section->getSectionName())
        match.consider(section->getSectionName()->getWordData());
      for (Paragraph *paragraph : section->getParaElements())
        match.consider(paragraph->getParagraphName()->getWordData());
    }
    for (Paragraph *paragraph : division->getParaElements())
      match.consider(paragraph->getParagraphName()->getWordData());
    report.report(LanguageRule::EmbeddedLabelUndefined, *label, label->getDisplayName(),
                  suggestion(match.getNearest()));
  }
}

} // namespace tarka
