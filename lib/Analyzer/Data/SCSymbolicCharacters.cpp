//===- SCSymbolicCharacters.cpp - symbolic characters as values -----------===//
//
// Replaces symbolic characters by the literals that they stand for.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

NumericLiteralExpression *SymbolicCharacters::findOrdinal(const ClauseSymbolic &clause,
                                                          const Word &name) {
  auto [entry, isNew] = clauses.try_emplace(&clause);
  if (isNew)
    for (const PhrsSymbolic *phrase : clause.getSymbolicListElements())
      for (auto [symbol, ordinal] :
           llvm::zip(phrase->getSourceListElements(), phrase->getIntegerListElements()))
        if (symbol)
          entry->second.try_emplace(&symbol->getWordData(), ordinal);
  return entry->second.lookup(&name.getWordData());
}

namespace {

/// The literal of one character; \p at is its position.
NonNumericLiteralExpression *characterLiteral(const Node *at, char character) {
  const char quote = character == '"' ? '\'' : '"';
  const char text[] = {quote, character, quote};
  return generate<NonNumericLiteralExpression>(at, llvm::StringRef(text, sizeof(text)));
}

} // namespace

/// A symbolic character is ALL of the character at its place in the character set, from 1.
LiteralExpression *SemanticChecker::convertSymbolicValue(Word *name) {
  constexpr long long characters = 256;
  const ClauseSymbolic *clause = currentScope().findSymbolicCharacter(&name->getWordData());
  const NumericLiteralExpression *ordinal =
      clause ? state->symbolicCharacters.findOrdinal(*clause, *name) : nullptr;
  const long long place = ordinal ? ordinal->getIntegerValue() : 0;
  if (place < 1 || place > characters) {
    report(ErrorCode::SymbolicCharacterUndefined, name);
    return nullptr;
  }
  return generate<FigurativeLiteralExpression>(
      name, FigurativeType::AllLiteral, characterLiteral(name, static_cast<char>(place - 1)));
}

bool convertSymbolicValues(SemanticChecker &checker, ClauseValue &clause) {
  bool ok = true;
  for (PhraseValue *phrase : clause.getPhraseValElements()) {
    if (Word *word = phrase->getWord1()) {
      if (LiteralExpression *literal = checker.convertSymbolicValue(word)) {
        phrase->setLiteral1(literal);
        phrase->setWord1(nullptr);
      } else {
        ok = false;
      }
    }
    if (Word *word = phrase->getWord2()) {
      if (LiteralExpression *literal = checker.convertSymbolicValue(word)) {
        phrase->setLiteral2(literal);
        phrase->setWord2(nullptr);
      } else {
        ok = false;
      }
    }
  }
  return ok;
}

} // namespace tarka
