//===- LexerDirectives.cpp - lines that begin with >> ---------------------===//

#include "AST/Spelling.h"
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

/// The directives that decide which text is read: where one of them is not recognized, text is
/// compiled that was not meant to be.
constexpr llvm::StringLiteral selectingDirectives[] = {"DEFINE",   "IF",   "ELSE",        "END-IF",
                                                       "EVALUATE", "WHEN", "END-EVALUATE"};

/// The parts of a directive line.
struct DirectiveLine {
  llvm::StringRef written; ///< what stands before the end of the name
  llvm::StringRef name;    ///< the name as written, or as it was meant
  Directive directive;
  llvm::StringRef rest; ///< what follows the name
  bool isMisspelt;      ///< it is not written as a directive is
};

/// Divides the text of a directive line. A name that comes near to that of a directive that selects
/// text is taken for it, and so is one that other marks than >> stand before.
DirectiveLine divideDirective(const char *begin, const char *end) {
  const llvm::StringRef line = llvm::StringRef(begin, end - begin).ltrim(" \t\f\v");
  llvm::StringRef text = line;
  bool isMisspelt = !text.consume_front(">>");
  text = text.ltrim(" \t");
  if (text.starts_with(">")) {
    isMisspelt = true;
    text = text.ltrim("> \t");
  }
  llvm::StringRef name = text.take_while(isWordCharacter);
  text = text.drop_front(name.size());
  const llvm::StringRef written = line.drop_back(text.size());
  Directive directive = directiveNamed(name);
  if (directive == Directive::Unknown) {
    const std::string upper = name.upper();
    SpellingMatch match(upper);
    for (llvm::StringRef meant : selectingDirectives)
      match.consider(meant);
    if (!match.getNearest().empty()) {
      name = match.getNearest();
      directive = directiveNamed(name);
      isMisspelt = true;
    }
  }
  if (isMisspelt)
    text = text.ltrim("> \t");
  return {written, name, directive, text, isMisspelt && directive != Directive::Unknown};
}

} // namespace

/// Whether the line begins with > and the name of a directive that selects text, which is no part
/// of any condition.
bool Lexer::isTornDirective() const {
  const llvm::StringRef text(lines.first(), lines.end() - lines.first());
  const llvm::StringRef name = text.ltrim("> ").take_while(isWordCharacter);
  const llvm::StringRef marks(text.begin(), name.begin() - text.begin());
  return marks.count('>') + (marks == ">") > 1 &&
         llvm::any_of(selectingDirectives,
                      [name](llvm::StringRef one) { return name.equals_insensitive(one); });
}

SourceRange Lexer::placeOfLine() {
  return lines.rangeOf(lines.first(), lines.end() - 1);
}

/// Does what the directive on the line says; false when the line holds program text after all.
bool Lexer::obeyDirective() {
  const DirectiveLine line = divideDirective(lines.begin(), lines.end());
  SourceRange place = placeOfLine();
  if (line.isMisspelt)
    context.diagnostics.report(DiagnosticId::MisspeltDirective, place, line.written,
                               line.name.upper());
  DirectiveText text(line.rest, line.name, place, context.variables, context.diagnostics);
  switch (line.directive) {
  case Directive::Unknown:
    context.diagnostics.report(DiagnosticId::UnknownDirective, place, line.name);
    break;
  case Directive::Ignored:
    break;
  case Directive::Debugging:
    if (context.debuggingMode)
      scanner.setCursor(line.rest.begin());
    return !context.debuggingMode;
  case Directive::Source:
    setSourceFormat(text);
    break;
  case Directive::Define:
    text.readDefinition();
    break;
  default:
    obeyConditional(line.name, text);
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
      endConditional();
    break;
  default:
    // The branch before this one was read, so all others are left out.
    if (belongsToOpen(name)) {
      skipBranches();
    } else {
      beginStrayBranch(name);
    }
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
  if (text.hasFailed())
    noteDoubt();
  if (conditional.isEvaluate || !takesBranch(name, text))
    skipBranches();
}

/// Whether the conditional that is open is one that the directive \p name can belong to.
bool Lexer::belongsToOpen(llvm::StringRef name) {
  Directive directive = directiveNamed(name);
  bool ofEvaluate = directive == Directive::When || directive == Directive::EndEvaluate;
  if (!conditionals.empty() && conditionals.back().isEvaluate == ofEvaluate)
    return true;
  // One message for all branches of a conditional without beginning and end.
  if (!hasStrayBranch[ofEvaluate])
    context.diagnostics.report(DiagnosticId::DirectiveWithoutStart, placeOfLine(), name,
                               ofEvaluate ? "EVALUATE" : "IF");
  return false;
}

/// A branch of a conditional whose beginning is missing: the text before ELSE was its first branch,
/// and that behind a WHEN may be. Without its end it is read like other text.
void Lexer::beginStrayBranch(llvm::StringRef name) {
  const bool ofEvaluate = directiveNamed(name) == Directive::When;
  hasStrayBranch[ofEvaluate] =
      hasStrayBranch[ofEvaluate] ||
      !lines.getRest().contains_insensitive(ofEvaluate ? ">>END-EVALUATE" : ">>END-IF");
  if (hasStrayBranch[ofEvaluate] || conditionals.size() >= context.options.limits.directiveDepth)
    return;
  Conditional &conditional = conditionals.emplace_back();
  conditional.place = placeOfLine();
  conditional.isEvaluate = ofEvaluate;
  conditional.wasTaken = true;
  noteDoubt();
  if (!ofEvaluate)
    skipBranches();
}

/// Which branch of the innermost conditional is meant to be read is not known: what is wrong in it
/// is not reported.
void Lexer::noteDoubt() {
  Conditional &conditional = conditionals.back();
  if (!conditional.isDoubtful)
    context.diagnostics.beginDoubt(placeOfLine());
  conditional.isDoubtful = true;
}

void Lexer::endConditional() {
  if (conditionals.pop_back_val().isDoubtful)
    context.diagnostics.endDoubt(placeOfLine());
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
  if (text.hasFailed())
    noteDoubt();
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
    const auto [written, name, directive, rest, isMisspelt] =
        divideDirective(lines.begin(), lines.end());
    if (isMisspelt && depth == 0 && directive != Directive::Define)
      context.diagnostics.report(DiagnosticId::MisspeltDirective, placeOfLine(), written,
                                 name.upper());
    bool ends = directive == Directive::EndIf || directive == Directive::EndEvaluate;
    if (directive == Directive::If || directive == Directive::Evaluate) {
      ++depth;
    } else if (depth > 0) {
      depth -= ends;
    } else if (ends) {
      if (belongsToOpen(name)) {
        endConditional();
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
