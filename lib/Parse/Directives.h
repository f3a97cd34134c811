//===- Directives.h - conditional compilation -------------------*- C++ -*-===//
//
// Compilation variables, and the small expression language of the directives
// >>DEFINE, >>IF and >>EVALUATE.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_DIRECTIVES_H
#define TARKA_PARSE_DIRECTIVES_H

#include "Parse/SourceDiagnostics.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/ADT/StringSet.h"
#include <optional>
#include <string>
#include <utility>

namespace tarka {

struct ParseOptions;

/// A value in a directive: a number, a text or a truth value.
struct DirectiveOperand {
  enum class Kind : uint8_t { None, Number, Text, Truth };

  Kind kind = Kind::None;
  int64_t number = 0; ///< the number, or 1 for true
  std::string text;

  static DirectiveOperand ofNumber(int64_t value) { return {Kind::Number, value, {}}; }
  static DirectiveOperand ofText(llvm::StringRef value) { return {Kind::Text, 0, value.str()}; }
  static DirectiveOperand ofTruth(bool value) { return {Kind::Truth, value, {}}; }

  bool isTrue() const { return kind == Kind::Truth && number; }
  bool operator==(const DirectiveOperand &) const = default;
  /// Whether this value comes before \p other or is the same; false for values of two kinds.
  bool isAtMost(const DirectiveOperand &other) const {
    return kind == other.kind && (kind == Kind::Text ? text <= other.text : number <= other.number);
  }
};

/// The compilation variables, by name in upper case.
class CompilationVariables {
public:
  /// \p defines are names and values of the command line.
  explicit CompilationVariables(llvm::ArrayRef<std::pair<std::string, std::string>> defines);

  /// The value of \p name; null when it is not defined.
  const DirectiveOperand *find(llvm::StringRef name) const;
  void define(llvm::StringRef name, DirectiveOperand value);
  void undefine(llvm::StringRef name);
  /// Defines what the compile option DEFINE lists: NAME, NAME=1, NAME='text', NAME=B'1' ...
  void defineAll(llvm::StringRef list);
  /// Defines the variables that tell the options of the compiler, each unless it is defined.
  void defineDefaults();
  /// Defines IGY-CICS and IGY-SQL.
  void defineLanguages(const ParseOptions &options);
  /// Notes that the value of \p name is not known because of a mistake. False where that was known.
  bool lose(llvm::StringRef name) { return lost.insert(name.upper()).second; }
  /// Sets the variable of the compiler's option \p option, if it has one: ARCH(12), DLL, NODYNAM.
  void defineOption(llvm::StringRef option, llvm::StringRef suboptions);

private:
  llvm::StringMap<DirectiveOperand> values;
  llvm::StringSet<> lost;
};

/// Reads the text of one directive from left to right. The first fault is reported, then all
/// further requests return nothing.
class DirectiveText {
public:
  DirectiveText(llvm::StringRef text, llvm::StringRef directive, const SourceRange &place,
                CompilationVariables &variables, SourceDiagnostics &diagnostics)
      : rest(text), directive(directive), place(place), variables(variables),
        diagnostics(diagnostics) {}

  /// Takes the word \p word off the text if it is the next one.
  bool consume(llvm::StringRef word);
  /// Takes the next word, whatever it is; empty where there is none.
  llvm::StringRef takeWord();
  bool isAtEnd();

  /// A condition: comparisons and IS DEFINED, joined by NOT, AND and OR.
  bool readCondition() { return readDisjunction(0); }
  /// An arithmetic expression, a text or a variable.
  DirectiveOperand readOperand() { return readSum(0); }
  /// What follows >>DEFINE.
  void readDefinition();

  /// Reports that the directive cannot be read because of \p reason.
  void fail(llvm::StringRef reason);
  bool hasFailed() const { return failed; }

private:
  static constexpr unsigned Less = 1, Equal = 2, Greater = 4;

  bool readDisjunction(unsigned depth);
  bool readConjunction(unsigned depth);
  bool readSimpleCondition(unsigned depth);
  bool compare(const DirectiveOperand &left);
  unsigned readRelation();
  DirectiveOperand readSum(unsigned depth);
  DirectiveOperand readProduct(unsigned depth);
  DirectiveOperand readPrimary(unsigned depth);
  DirectiveOperand readLiteral(char quote);
  bool consumeMark(llvm::StringRef mark);
  void skipBlanks() { rest = rest.ltrim(" \t"); }

  llvm::StringRef rest;
  llvm::StringRef directive;
  SourceRange place;
  CompilationVariables &variables;
  SourceDiagnostics &diagnostics;
  bool failed = false;
};

} // namespace tarka

#endif // TARKA_PARSE_DIRECTIVES_H
