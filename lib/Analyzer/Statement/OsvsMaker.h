//===- OsvsMaker.h - what the statements of OS/VS COBOL become --*- C++ -*-===//
//
// ON, TRANSFORM, EXAMINE and EXHIBIT do not reach later stages: the checks replace
// each of them by statements of current COBOL that do its work, at the place of the
// statement, and the graph contains those.
//
// An operand of the program can be in several of these statements, or several times
// in one. It is checked once, in a statement that contains each operand once, so that
// each of its faults is reported once.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_OSVSMAKER_H
#define TARKA_LIB_ANALYZER_OSVSMAKER_H

#include "AST/Condition.h"
#include "AST/Statement.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/StringRef.h"
#include <cstdint>
#include <string>

namespace tarka {

/// \p copies times \p contents as the text of a literal, after the prefix of its kind.
std::string quotedText(llvm::StringRef contents, llvm::StringRef prefix = "",
                       std::int64_t copies = 1);

/// Makes the parts of the statements that replace one statement, all of them at its place.
class OsvsMaker {
public:
  OsvsMaker(SemanticChecker &theChecker, Statement &statement)
      : checker(theChecker), at(&statement) {}

  const Node *place() const { return at; }

  NumericLiteralExpression *number(llvm::StringRef text) {
    auto *literal = generate<NumericLiteralExpression>(at, text);
    checker.semanticCheck(*literal);
    return literal;
  }
  Expression *zero() {
    return generate<FigurativeLiteralExpression>(at, FigurativeType::Zero, nullptr);
  }
  Expression *text(llvm::StringRef contents) {
    return generate<NonNumericLiteralExpression>(at, quotedText(contents));
  }

  /// A bound reference to an item of that name.
  DataIdentifierExpression *reference(llvm::StringRef name) {
    auto *words = generate<QualifiedWord>(at);
    words->addNames(generate<Word>(at, name, ""));
    auto *identifier = generate<DataIdentifierExpression>(at, words, nullptr, nullptr);
    checker.semanticCheck(*identifier);
    return identifier;
  }

  /// A level-01 entry with that PICTURE; without one when it is null.
  DataDescription *item(const char *picture, UsageType usage);
  /// Adds \p item to working-storage, so that it keeps its value from one run of the statement to
  /// the next, with \p value as its VALUE unless it is null. The name that it gets, which this
  /// gives, is \p prefix and the number of its record.
  llvm::StringRef keep(llvm::StringRef prefix, DataDescription *item, Expression *value);

  Condition *compare(RelationalConditionType relation, Expression *left, Expression *right) {
    return generate<RelationalCondition>(at, relation, left, right);
  }
  Condition *combine(CombinedOperatorType op, Condition *left, Condition *right) {
    return generate<CombinedCondition>(at, op, left, right);
  }

  /// A MOVE whose sender needs no further check.
  Statement *move(Expression *sender, IdentifierExpression *receiver) {
    NodeList<IdentifierExpression> receivers{receiver};
    auto *statement = generate<MoveStatement>(at, sender, &receivers, /*isCorresponding=*/false);
    statement->setMoveRules(checker.getMoveRule(sender, receiver));
    return statement;
  }

private:
  SemanticChecker &checker;
  const Node *at;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_OSVSMAKER_H
