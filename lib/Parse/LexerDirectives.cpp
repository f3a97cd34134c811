//===- LexerDirectives.cpp - lines that begin with >> ---------------------===//

#include "Parse/CharacterTable.h"
#include "Parse/Lexer.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSwitch.h"
#include <utility>

namespace tarka {

namespace {

enum class Directive {
  Unknown,
  Ignored, ///< concerns the listing or the code, not the text
  Debugging,
  Source,
  Define,
  If,
  Elif,
  Else,
  EndIf,
  Evaluate,
  When,
  EndEvaluate
};

Directive directiveNamed(llvm::StringRef name) {
  return llvm::StringSwitch<Directive>(name)
      .CaseLower("D", Directive::Debugging)
      .CaseLower("SOURCE", Directive::Source)
      .CaseLower("DEFINE", Directive::Define)
      .CaseLower("IF", Directive::If)
      .CasesLower("ELIF", "ELSE-IF", Directive::Elif)
      .CaseLower("ELSE", Directive::Else)
      .CaseLower("END-IF", Directive::EndIf)
      .CaseLower("EVALUATE", Directive::Evaluate)
      .CaseLower("WHEN", Directive::When)
      .CaseLower("END-EVALUATE", Directive::EndEvaluate)
      .CasesLower("CALLINTERFACE", "CALLINT", "PAGE", "LISTING", "INLINE", Directive::Ignored)
      .CasesLower("FLAG-85", "FLAG-02", "LEAP-SECOND", "PROPAGATE", "TURN", Directive::Ignored)
      .CasesLower("JAVA-CALLABLE", "JAVA-SHAREABLE", "DATA", "XML-PARSE", Directive::Ignored)
      .Default(Directive::Unknown);
}

/// Divides the text of a directive line into the directive's name and what follows it.
std::pair<llvm::StringRef, llvm::StringRef> divideDirective(const char *begin, const char *end) {
  llvm::StringRef text = llvm::StringRef(begin, end - begin).ltrim(" \t\f\v");
  text = text.drop_front(2).ltrim(" \t");
  llvm::StringRef name = text.take_while(isWordCharacter);
  return {name, text.drop_front(name.size())};
}

} // namespace

SourceRange Lexer::placeOfLine() {
  return lines.rangeOf(lines.first(), lines.end() - 1);
}

/// Does what the directive on the line says; false when the line holds program text after all.
bool Lexer::obeyDirective() {
  auto [name, rest] = divideDirective(lines.begin(), lines.end());
  SourceRange place = placeOfLine();
  DirectiveText text(rest, name, place, context.variables, context.diagnostics);
  switch (directiveNamed(name)) {
  case Directive::Unknown:
    context.diagnostics.report(DiagnosticId::UnknownDirective, place, name);
    break;
  case Directive::Ignored:
    break;
  case Directive::Debugging:
    if (context.debuggingMode)
      scanner.setCursor(rest.begin());
    return !context.debuggingMode;
  case Directive::Source:
    setSourceFormat(text);
    break;
  case Directive::Define:
    text.readDefinition();
    break;
  default:
    obeyConditional(name, text);
    break;
  }
  return true;
}

void Lexer::setSourceFormat(DirectiveText &text) {
  text.consume("FORMAT");
  text.consume("IS");
  if (text.consume("FREE"))
    lines.setFormat(SourceFormat::Free);
  else if (text.consume("FIXED"))
    lines.setFormat(SourceFormat::Fixed);
  else
    context.diagnostics.report(DiagnosticId::SourceFormatExpected, placeOfLine());
}

/// A conditional-compilation directive in text that is not being skipped.
void Lexer::obeyConditional(llvm::StringRef name, DirectiveText &text) {
  switch (directiveNamed(name)) {
  case Directive::If:
  case Directive::Evaluate:
    beginConditional(name, text);
    break;
  case Directive::EndIf:
  case Directive::EndEvaluate:
    if (belongsToOpen(name))
      conditionals.pop_back();
    break;
  default:
    // The branch before this one was read, so all others are left out.
    if (belongsToOpen(name))
      skipBranches();
    break;
  }
}

void Lexer::beginConditional(llvm::StringRef name, DirectiveText &text) {
  if (conditionals.size() >= context.options.limits.directiveDepth) {
    context.diagnostics.report(DiagnosticId::DirectivesTooDeep, placeOfLine(),
                               context.options.limits.directiveDepth);
    // A missing end of one of them is not reported.
    conditionals.clear();
    isAtEnd = true;
    return;
  }
  Conditional &conditional = conditionals.emplace_back();
  conditional.place = placeOfLine();
  conditional.isEvaluate = directiveNamed(name) == Directive::Evaluate;
  // EVALUATE TRUE leaves the subject empty: its WHENs hold conditions, as IF does.
  if (conditional.isEvaluate && !text.consume("TRUE"))
    conditional.subject = text.readOperand();
  if (conditional.isEvaluate || !takesBranch(name, text))
    skipBranches();
}

/// Whether the conditional that is open is one that the directive \p name can belong to.
bool Lexer::belongsToOpen(llvm::StringRef name) {
  Directive directive = directiveNamed(name);
  bool ofEvaluate = directive == Directive::When || directive == Directive::EndEvaluate;
  if (!conditionals.empty() && conditionals.back().isEvaluate == ofEvaluate)
    return true;
  // One message for all that belongs to a beginning that is missing.
  const bool isEnd = directive == Directive::EndIf || directive == Directive::EndEvaluate;
  if (!std::exchange(hasStrayBranch[ofEvaluate], !isEnd))
    context.diagnostics.report(DiagnosticId::DirectiveWithoutStart, placeOfLine(), name,
                               ofEvaluate ? "EVALUATE" : "IF");
  return false;
}

/// Whether the branch that the directive begins is the one to read.
bool Lexer::takesBranch(llvm::StringRef name, DirectiveText &text) {
  Conditional &conditional = conditionals.back();
  if (conditional.wasTaken)
    return false;
  bool isTaken = false;
  if (directiveNamed(name) == Directive::Else ||
      (conditional.isEvaluate && text.consume("OTHER"))) {
    isTaken = true;
  } else if (conditional.subject.kind == DirectiveOperand::Kind::None) {
    isTaken = text.readCondition();
  } else {
    DirectiveOperand low = text.readOperand();
    DirectiveOperand high = low;
    if (text.consume("THRU") || text.consume("THROUGH"))
      high = text.readOperand();
    isTaken = !text.hasFailed() && low.isAtMost(conditional.subject) &&
              conditional.subject.isAtMost(high);
  }
  if (!text.isAtEnd())
    text.fail("more follows than belongs to it");
  conditional.wasTaken = isTaken;
  return isTaken;
}

/// Passes over branches up to one that is to be read, or to the conditional's end.
void Lexer::skipBranches() {
  unsigned depth = 0;
  lines.setQuiet(true);
  while (readLine()) {
    if (!isDirective())
      continue;
    auto [name, rest] = divideDirective(lines.begin(), lines.end());
    Directive directive = directiveNamed(name);
    bool ends = directive == Directive::EndIf || directive == Directive::EndEvaluate;
    if (directive == Directive::If || directive == Directive::Evaluate) {
      ++depth;
    } else if (depth > 0) {
      depth -= ends;
    } else if (ends) {
      if (belongsToOpen(name)) {
        conditionals.pop_back();
        break;
      }
    } else if (directive == Directive::Else || directive == Directive::Elif ||
               directive == Directive::When) {
      DirectiveText text(rest, name, placeOfLine(), context.variables, context.diagnostics);
      if (belongsToOpen(name) && takesBranch(name, text))
        break;
    }
  }
  lines.setQuiet(false);
}

} // namespace tarka
