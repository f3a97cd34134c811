//===- SCStmtTransform.cpp - TRANSFORM of OS/VS COBOL ---------------------===//
//
// TRANSFORM replaces characters by others: an INSPECT.
//
//===----------------------------------------------------------------------===//

#include "AST/KindNames.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Statement/OsvsMaker.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// The number of characters of an operand that is not checked yet; 0 where it is not known or there
/// are none. Subscripts make no difference.
std::int64_t countCharacters(const Expression &operand) {
  const auto *name = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  if (!name)
    return characterCountOf(operand).value_or(0);
  DataIdentifierExpression whole(name, name->getQualifiedWord(), nullptr, name->getReferenceMod());
  whole.setDataDescription(
      currentScope().findReferenced(name->getQualifiedWord()->getNamesElements()));
  if (!whole.getDataDescription() || characterKindOf(whole) == CharacterKind::None)
    return 0;
  return characterCountOf(whole).value_or(0);
}

/// \p copies times the contents of \p literal, as a literal of its kind.
LiteralExpression *repeat(const NonNumericLiteralExpression &literal, std::int64_t copies) {
  return generate<NonNumericLiteralExpression>(
      &literal, quotedText(literal.getData(), nameOf(literal.getNonNumericLiteralType()), copies));
}

/// The characters of \p operand one by one, from the first to the last of \p count; none where
/// they cannot be written one by one.
NodeList<Expression> splitCharacters(const Expression &operand, std::int64_t count) {
  NodeList<Expression> characters;
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&operand)) {
    if (literal->getNonNumericLiteralType() == NonNumericLiteralType::Alphanumeric)
      for (char c : literal->getData())
        characters.push_back(
            generate<NonNumericLiteralExpression>(literal, quotedText(llvm::StringRef(&c, 1))));
  } else if (const auto *item = llvm::dyn_cast<DataIdentifierExpression>(&operand);
             item && !item->getReferenceMod()) {
    for (std::int64_t position = 1; position <= count; ++position)
      characters.push_back(generate<DataIdentifierExpression>(
          item, item->getQualifiedWord(), item->getSubscriptMod(),
          generate<ReferenceModifier>(
              item, generate<NumericLiteralExpression>(item, std::to_string(position)),
              generate<NumericLiteralExpression>(item, "1"))));
  }
  return characters;
}

/// Gives \p character, a part of the same item as \p checked, what the check has found for that
/// one.
void bindLike(SemanticChecker &checker, const Expression &checked, Expression &character) {
  const auto *model = llvm::dyn_cast<DataIdentifierExpression>(&checked);
  if (!model)
    return;
  auto &part = llvm::cast<DataIdentifierExpression>(character);
  part.setDataDescription(model->getDataDescription());
  part.setSrcDigitNum(model->getSrcDigitNum());
  part.setSrcScale(model->getSrcScale());
  checker.semanticCheck(*part.getReferenceMod()->getFromExpr());
  checker.semanticCheck(*part.getReferenceMod()->getCountExpr());
}

} // namespace

/// One character, the value of an item, replaces several: REPLACING names each of them.
static InspectStatement *replaceEach(const Node *at, IdentifierExpression *subject,
                                     const NodeList<Expression> &characters, Expression *by) {
  auto *inspect = generate<InspectStatement>(at, subject, nullptr, nullptr, nullptr);
  auto *item = generate<ReplacingItem>(at, InspReplType::All, nullptr, nullptr, nullptr);
  inspect->addReplacing(item);
  for (Expression *character : characters)
    item->addReplacingRegion(generate<ReplacingRegion>(at, character, by, nullptr));
  return inspect;
}

/// TRANSFORM is INSPECT CONVERTING with one difference: a single character may replace all others,
/// where INSPECT needs one for each.
bool SemanticChecker::semanticCheck(TransformStatement &statement) {
  auto *subject = llvm::dyn_cast<IdentifierExpression>(statement.getTransformExpr());
  if (!subject)
    return report(ErrorCode::InspectIdentifierType, statement.getTransformExpr());
  Expression *from = statement.getFromExpr();
  Expression *to = statement.getToExpr();
  if (std::int64_t count = countCharacters(*from); count > 1 && countCharacters(*to) == 1) {
    if (auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(to)) {
      to = repeat(*literal, count);
    } else if (llvm::isa<IdentifierExpression>(to)) {
      NodeList<Expression> characters = splitCharacters(*from, count);
      if (!characters.empty()) {
        InspectStatement *inspect = replaceEach(&statement, subject, characters, to);
        statement.setInspectStmt(inspect);
        // What is wrong with one of the characters is wrong with all, and is reported once.
        const Expression &first = *characters.front();
        bool ok = semanticCheck(*replaceEach(&statement, subject, {characters.front()}, to));
        for (Expression *character : llvm::drop_begin(characters))
          bindLike(*this, first, *character);
        return ok;
      }
    }
  }
  auto *converting = generate<ConvertingItem>(&statement, from, to, nullptr);
  auto *inspect = generate<InspectStatement>(&statement, subject, nullptr, nullptr, converting);
  statement.setInspectStmt(inspect);
  return semanticCheck(*inspect);
}

} // namespace tarka
