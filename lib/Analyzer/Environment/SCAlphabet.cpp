//===- SCAlphabet.cpp - ALPHABET -----------------------------------------===//
//
// Which literals an alphabet can be made of, and the collating table that they
// stand for. The table goes to the compilation context, for later stages.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Program.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Environment/EnvironmentCheck.h"
#include "Analyzer/SemanticChecker.h"
#include <algorithm>
#include <array>
#include <cassert>

namespace tarka {

bool SemanticChecker::checkLiteralValue(LiteralExpression *literal) {
  bool ok = true;
  if (auto *nonNumeric = llvm::dyn_cast<NonNumericLiteralExpression>(literal)) {
    if (nonNumeric->getNonNumericLiteralType() != NonNumericLiteralType::Alphanumeric)
      ok = report(ErrorCode::AlphabetLiteralKind, literal);
  } else if (auto *numeric = llvm::dyn_cast<NumericLiteralExpression>(literal)) {
    if (isSignedOrNotPositive(*numeric))
      ok = report(ErrorCode::AlphabetLiteralKind, literal);
    if (!numeric->isInteger())
      ok = report(ErrorCode::AlphabetLiteralKind, literal);
  } else {
    auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(literal);
    if (!figurative || figurative->getFigurativeType() < FigurativeType::Zero ||
        figurative->getFigurativeType() > FigurativeType::Quote)
      ok = report(ErrorCode::AlphabetLiteralKind, literal);
  }
  return ok;
}

namespace {

constexpr int characterCount = 256;

/// The code of a character that an ALPHABET clause names: ordinal positions count from 1. Beyond
/// the character set for an ordinal that is too large.
int characterCode(LiteralExpression *literal) {
  if (auto *numeric = llvm::dyn_cast<NumericLiteralExpression>(literal)) {
    assert(numeric->isInteger() && "Must be int literal");
    return static_cast<int>(std::min<long long>(numeric->getIntegerValue() - 1, characterCount));
  }
  if (auto *nonNumeric = llvm::dyn_cast<NonNumericLiteralExpression>(literal))
    return nonNumeric->getData().empty() ? characterCount
                                         : static_cast<unsigned char>(nonNumeric->getData()[0]);
  switch (llvm::cast<FigurativeLiteralExpression>(literal)->getFigurativeType()) {
  case FigurativeType::Zero:
    return '0';
  case FigurativeType::Space:
    return ' ';
  case FigurativeType::HighValue:
    return characterCount - 1;
  case FigurativeType::LowValue:
    return 0;
  default:
    return '"';
  }
}

/// The number of characters that the literal names.
std::size_t characterLength(LiteralExpression *literal) {
  auto *nonNumeric = llvm::dyn_cast<NonNumericLiteralExpression>(literal);
  return nonNumeric ? nonNumeric->getData().size() : 1;
}

/// Builds the collating table of an alphabet of literals.
class CollatingTable {
public:
  CollatingTable() : ordinals(static_cast<int *>(allocateForever(sizeof(int) * characterCount))) {
    std::fill_n(ordinals, characterCount, 0);
  }

  void add(PhrsAlphabet &phrase);
  /// Assigns the remaining ordinals to the characters without one, in the order of their codes.
  void finish();

  int *getOrdinals() const { return ordinals; }
  /// The character that collates highest.
  char getHighValue() const { return static_cast<char>(highest); }

private:
  void place(int code, int ordinal) {
    placed[code] = true;
    ordinals[code] = ordinal;
    highest = code;
  }

  int *ordinals;
  std::array<bool, characterCount> placed{};
  int next = 1;
  int highest = 0;
};

void CollatingTable::add(PhrsAlphabet &phrase) {
  LiteralExpression *literal = phrase.getLiteral();
  int first = characterCode(literal);
  if (LiteralExpression *thru = phrase.getThruLiteral()) {
    assert(characterLength(literal) == 1 && " if it exist thru, literal's size must be 1");
    int last = characterCode(thru);
    int step = first <= last ? 1 : -1;
    for (int code = first; code != last + step; code += step)
      place(code, next++);
    return;
  }
  if (phrase.getAlsoListSize() > 0) {
    assert(characterLength(literal) == 1 && "if it exist also, literal's size must be 1");
    place(first, next);
    for (LiteralExpression *also : phrase.getAlsoListElements())
      place(characterCode(also), next);
  } else if (characterLength(literal) > 1) {
    for (char c : llvm::cast<NonNumericLiteralExpression>(literal)->getData())
      place(static_cast<unsigned char>(c), next);
  }
  // A single character alone uses up an ordinal, but is then placed among the characters that no
  // phrase names. Later stages rely on it.
  ++next;
}

void CollatingTable::finish() {
  for (int code = 0; code < characterCount; ++code)
    if (!placed[code]) {
      ordinals[code] = next++;
      highest = code;
    }
}

/// Checks the literals of an ALPHABET clause against the category of the first one.
class AlphabetLiterals {
public:
  AlphabetLiterals(SemanticChecker &theChecker, DataCategory category)
      : checker(theChecker), reference(category) {}

  bool check(PhrsAlphabet &phrase);

private:
  bool checkLiteral(LiteralExpression *literal, bool isThru = false);

  SemanticChecker &checker;
  DataCategory reference;
};

bool AlphabetLiterals::checkLiteral(LiteralExpression *literal, bool isThru) {
  bool ok = checker.semanticCheck(*literal);
  ok &= checker.checkLiteralValue(literal);
  if (literal->getDataCategory() != reference) {
    ok = checker.report(ErrorCode::AlphabetLiteralCategoriesDiffer, literal);
    if (isThru)
      checker.report(ErrorCode::AlphabetClauseInvalid, literal);
  }
  // An ordinal position after the last character of the set.
  if (ok && characterCode(literal) >= characterCount)
    ok = checker.report(ErrorCode::AlphabetClauseInvalid, literal);
  return ok;
}

bool AlphabetLiterals::check(PhrsAlphabet &phrase) {
  bool ok = checkLiteral(phrase.getLiteral());
  for (LiteralExpression *also : phrase.getAlsoListElements())
    ok &= checkLiteral(also);
  LiteralExpression *thru = phrase.getThruLiteral();
  if (thru)
    ok &= checkLiteral(thru, /*isThru=*/true);

  // THRU and ALSO apply to single characters.
  if (thru || phrase.getAlsoListSize() > 0) {
    auto checkSingle = [&](LiteralExpression *literal) {
      if (characterLength(literal) != 1)
        ok = checker.report(ErrorCode::AlphabetLiteralNotSingleCharacter, literal);
    };
    checkSingle(phrase.getLiteral());
    if (thru)
      checkSingle(thru);
    for (LiteralExpression *also : phrase.getAlsoListElements())
      checkSingle(also);
  }
  return ok;
}

} // namespace

bool SemanticChecker::checkClauseAlphabet(ClauseAlphabet &clause) {
  switch (clause.getType()) {
  case AlphabetType::Unknown:
    return report(ErrorCode::AlphabetClauseInvalid, &clause);
  case AlphabetType::Ebcdic:
    CompileOption::getCompileOptionInstance()->setOptionSeqEbcdic(true);
    return true;
  case AlphabetType::User:
    break;
  default:
    return true;
  }
  if (clause.getAlphaListSize() == 0)
    return report(ErrorCode::AlphabetLiteralMissing, &clause);

  LiteralExpression *first = (*clause.getAlphaListBegin())->getLiteral();
  bool ok = true;
  AlphabetLiterals literals(*this, first->getDataCategory());
  for (PhrsAlphabet *phrase : clause.getAlphaListElements())
    ok &= literals.check(*phrase);
  // A table can only be built from valid literals.
  if (!ok)
    return false;

  clause.setLowValue(static_cast<char>(characterCode(first)));
  CollatingTable table;
  for (PhrsAlphabet *phrase : clause.getAlphaListElements())
    table.add(*phrase);
  table.finish();
  clause.setHighValue(table.getHighValue());
  context().addColseq(table.getOrdinals());
  return true;
}

} // namespace tarka
