//===- ParseResult.h - what a parse function returns ------------*- C++ -*-===//
//
// The conventions of the parser:
// - A function that parses a construct is called with its first token next, and
//   leaves the token after the construct next.
// - It returns the node (or true) when the construct was parsed, and null (or
//   false) when it was not; then the mistake has been reported, and the tokens
//   from it on are still next. The caller fails as well, without another message,
//   up to the function that can synchronize. So a failing function ends with
//   `return error(...)` or `return expected(...)`, which return a Failure.
// - Statements and lists of statements can have more outcomes, see Outcome.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_PARSERESULT_H
#define TARKA_LIB_PARSE_PARSERESULT_H

#include "AST/Statement.h"
#include <concepts>
#include <cstddef>
#include <cstdint>

namespace tarka {

/// The result of a function that has reported why it fails: null or false, as the caller needs it.
struct Failure {
  template <typename Node> operator Node *() const { return nullptr; }
  operator bool() const { return false; }
};

/// How parsing a construct went.
enum class Outcome : uint8_t {
  Parsed,
  Absent,   ///< there is no such construct, and nothing is wrong
  Failed,   ///< reported; the rest of the construct is still next and has to be skipped
  Discarded ///< reported; the construct was read to its end, but cannot stand in the tree
};

/// What a function that parses a statement returns.
class StatementResult {
public:
  StatementResult(Failure /*failure*/) {}
  StatementResult(std::nullptr_t) {}
  StatementResult(Outcome theOutcome) : outcome(theOutcome) {}
  /// Parsed, or Failed where \p parsed is null.
  template <std::derived_from<Statement> Node>
  StatementResult(Node *parsed)
      : statement(parsed), outcome(parsed ? Outcome::Parsed : Outcome::Failed) {}

  /// Null unless the statement was parsed.
  Statement *get() const { return statement; }
  Outcome getOutcome() const { return outcome; }

private:
  Statement *statement = nullptr;
  Outcome outcome = Outcome::Failed;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSERESULT_H
