//===- Findings.cpp - what was found in a compilation ---------------------===//

#include "Findings.h"
#include "AST/Program.h"
#include "AST/Spelling.h"
#include "Analyzer/ErrorHandler.h"
#include "Explanations.h"
#include "Parse/Diagnostics.h"
#include "Report/Selection.h"
#include "Report/Subject.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/Path.h"

namespace tarka {

namespace {

/// A source text that is longer says too much to be the subject of a message.
constexpr std::size_t maxSubject = 60;
constexpr unsigned maxDeclarations = 5;
/// The last column of program text in fixed form.
constexpr unsigned marginColumn = 72;

/// Diagnostics of names that are not declared, by what they are the names of.
std::optional<NameKind> missingName(int number) {
  auto isAny = [number](std::initializer_list<ErrorCode> codes) {
    return llvm::any_of(codes, [&](ErrorCode code) { return number == errorInfo(code).number; });
  };
  using enum ErrorCode;
  if (isAny({IdentifierUndefined}))
    return NameKind::Operand;
  if (isAny({ProcedureNameUndefined}))
    return NameKind::Procedure;
  if (isAny({FileNameUndefined, FileNameNotSelected}))
    return NameKind::File;
  if (isAny({SymbolicCharacterUndefined, CollatingAlphabetUndefined, SwitchConditionUndefined,
             ClassConditionUndefined, AlphabetNameRequired, MnemonicNameInvalid,
             MnemonicNameUndefined, AcceptMnemonicInvalid, DisplayMnemonicInvalid}))
    return NameKind::SpecialName;
  return std::nullopt;
}

/// The word nearest to \p name that a condition can end with, such as POSITIVE. What is none of
/// them is taken for the name of a class.
llvm::StringRef nearConditionWord(llvm::StringRef name) {
  const std::string wanted = name.upper();
  SpellingMatch match(wanted);
  for (const char *word : {"ALPHABETIC", "ALPHABETIC-LOWER", "ALPHABETIC-UPPER", "DBCS", "KANJI",
                           "NEGATIVE", "NUMERIC", "POSITIVE", "ZERO"})
    match.consider(word);
  return match.getNearest();
}

class FindingCollector {
public:
  FindingCollector(llvm::StringRef compiled, SourceLines &sourceLines)
      : file(internFileName(compiled)), program(llvm::sys::path::filename(compiled)),
        lines(sourceLines) {}

  Diagnostic convert(const DiagnosticEntry &entry);
  Diagnostic convert(const ErrorEntry &entry);

private:
  void describe(Diagnostic &diagnostic, const ErrorEntry &entry);
  Subject describe(const Node &node);
  void complete(Diagnostic &diagnostic);
  std::string textOf(const SourceRange &place);

  unsigned file;
  llvm::StringRef program;
  SourceLines &lines;
  NearNames nearNames;
};

Diagnostic FindingCollector::convert(const DiagnosticEntry &entry) {
  Diagnostic diagnostic;
  diagnostic.number = static_cast<int>(entry.getNumber());
  diagnostic.severity = entry.severity;
  diagnostic.text = entry.message;
  diagnostic.place = entry.place;
  // What is certain for this program is not for others that copy the same text.
  if (llvm::all_of(entry.fix, [&](const TextEdit &edit) { return edit.place.file == file; }))
    diagnostic.fix = entry.fix;
  complete(diagnostic);
  return diagnostic;
}

Diagnostic FindingCollector::convert(const ErrorEntry &entry) {
  Diagnostic diagnostic;
  diagnostic.number = entry.getNumber();
  diagnostic.severity = static_cast<Severity>(entry.getSeverity());
  diagnostic.text = entry.getMessage();
  diagnostic.place = entry.getNode()->getRange();
  diagnostic.node = entry.getNode();
  diagnostic.otherNode = entry.getOtherOperand();
  diagnostic.unit = entry.getSourceUnit();
  for (const ErrorNote &note : entry.getNotes())
    diagnostic.notes.push_back({note.text, note.place, ""});
  describe(diagnostic, entry);
  // The checks do not give every message the text that it takes.
  constexpr llvm::StringLiteral noText = "(null)";
  if (const std::size_t position = diagnostic.text.find(noText); position != std::string::npos)
    diagnostic.text.replace(position, noText.size(), diagnostic.subject);
  complete(diagnostic);
  return diagnostic;
}

/// Finds out what the diagnostic is about: what the check says, else what the node is, else what
/// stands in the source.
void FindingCollector::describe(Diagnostic &diagnostic, const ErrorEntry &entry) {
  diagnostic.subject = entry.getSubject();
  if (diagnostic.subject.empty()) {
    Subject subject = describe(entry.getOperand() ? *entry.getOperand() : *entry.getNode());
    diagnostic.subject = std::move(subject.name);
    diagnostic.detail = std::move(subject.detail);
  }
  if (const Node *other = entry.getOtherOperand()) {
    Subject second = describe(*other);
    diagnostic.otherSubject = std::move(second.name);
    diagnostic.otherDetail = std::move(second.detail);
  }

  SourceUnit *unit = entry.getSourceUnit();
  if (!unit)
    return;
  const llvm::StringRef name = llvm::StringRef(diagnostic.subject).split(" OF ").first;
  llvm::StringRef near;
  if (const std::optional<NameKind> kind = missingName(diagnostic.number))
    near = nearNames.find(name, *kind, *unit);
  else if (diagnostic.number == errorInfo(ErrorCode::IdentifierNotInScope).number)
    near = nearNames.findQualified(diagnostic.subject, *unit);
  if (near.empty() && diagnostic.number == errorInfo(ErrorCode::ClassConditionUndefined).number)
    near = nearConditionWord(name);
  if (!near.equals_insensitive(name))
    diagnostic.suggestion = near;
  if (diagnostic.number == errorInfo(ErrorCode::IdentifierNotUnique).number)
    diagnostic.notes = declarationsOf(name, *unit, maxDeclarations);
}

Subject FindingCollector::describe(const Node &node) {
  Subject subject = subjectOf(node);
  if (subject.name.empty())
    subject.name = textOf(node.getRange());
  return subject;
}

/// What stands at \p place, when it is short; of several lines the first.
std::string FindingCollector::textOf(const SourceRange &place) {
  const bool isCut = place.beginLine != place.endLine;
  llvm::StringRef text =
      sliceColumns(lines.line(place.file, place.beginLine), place.beginColumn,
                   isCut ? std::max(marginColumn, place.beginColumn) : place.endColumn);
  if (isCut)
    text = text.split("*>").first;
  text = text.rtrim(" .");
  if (text.empty() || text.size() > maxSubject || !llvm::json::isUTF8(text))
    return "";
  return isCut ? text.str() + " ..." : text.str();
}

void FindingCollector::complete(Diagnostic &diagnostic) {
  auto lineOf = [&](const SourceRange &place) {
    return toUtf8(lines.line(place.file, place.beginLine));
  };
  diagnostic.program = program;
  diagnostic.line = lineOf(diagnostic.place);
  for (DiagnosticNote &note : diagnostic.notes)
    note.line = lineOf(note.place);
}

/// The comments that turn diagnostics off, of all files that diagnostics stand in.
class SourceSuppressions {
public:
  explicit SourceSuppressions(SourceLines &sourceLines) : lines(sourceLines) {}

  Suppressions &of(unsigned file) {
    auto found = files.find(file);
    if (found == files.end())
      found = files
                  .try_emplace(file, file,
                               lines.contains(file, Suppressions::marker) ? lines.textOf(file) : "")
                  .first;
    return found->second;
  }

private:
  SourceLines &lines;
  std::map<unsigned, Suppressions> files;
};

Diagnostic makeWarning(DiagnosticId id, const SourceRange &place, std::string text) {
  Diagnostic diagnostic;
  diagnostic.number = static_cast<int>(id);
  diagnostic.severity = infoOf(id).severity;
  diagnostic.text = std::move(text);
  diagnostic.place = place;
  return diagnostic;
}

/// Whether some diagnostic has a number in \p range.
bool isReported(const NumberRange &range) {
  return llvm::any_of(diagnosticRows(), [&](const DiagnosticRow &row) {
    return range.contains(static_cast<int>(row.number));
  });
}

std::string describeLines(const Suppression &suppression) {
  if (suppression.firstLine == suppression.lastLine)
    return "line " + std::to_string(suppression.firstLine);
  return "lines " + std::to_string(suppression.firstLine) + " to " +
         std::to_string(suppression.lastLine);
}

} // namespace

std::vector<ErrorEntry> checkLanguage(Program &program, const FrontEndDiagnostics &frontEnd,
                                      const ErrorHandler &handler) {
  EarlierDiagnostics earlier;
  earlier.isTreeComplete = !frontEnd.hasErrors();
  earlier.places.reserve(frontEnd.getEntries().size() + handler.getErrorList().size());
  for (const DiagnosticEntry &entry : frontEnd.getEntries())
    earlier.places.push_back(entry.place);
  for (const ErrorEntry *entry : handler.getErrorList())
    earlier.places.push_back(entry->getNode()->getRange());
  return checkLanguage(program, earlier);
}

std::vector<Diagnostic> collectFindings(llvm::StringRef file, const FrontEndDiagnostics &frontEnd,
                                        const ErrorHandler &handler,
                                        llvm::ArrayRef<ErrorEntry> secondPass, SourceLines &lines) {
  FindingCollector collector(file, lines);
  std::vector<Diagnostic> findings;
  findings.reserve(frontEnd.getEntries().size() + handler.getErrorList().size());
  for (const DiagnosticEntry &entry : frontEnd.getEntries())
    findings.push_back(collector.convert(entry));
  for (const ErrorEntry *entry : handler.getErrorList())
    findings.push_back(collector.convert(*entry));
  for (const ErrorEntry &entry : secondPass)
    findings.push_back(collector.convert(entry));
  return findings;
}

void addSuppressed(std::vector<Diagnostic> &findings, llvm::StringRef file,
                   const FrontEndDiagnostics &frontEnd, SourceLines &lines) {
  FindingCollector collector(file, lines);
  for (const DiagnosticEntry &entry : frontEnd.getSuppressed())
    findings.push_back(collector.convert(entry));
}

void selectFindings(std::vector<Diagnostic> &findings, llvm::StringRef file, bool isComplete,
                    const Selection &selection, SourceLines &lines) {
  SourceSuppressions suppressions(lines);
  llvm::erase_if(findings, [&](const Diagnostic &diagnostic) {
    return suppressions.of(diagnostic.place.file).suppress(diagnostic);
  });

  // What a comment in a copybook turns off may be found in another program.
  const Suppressions &own = suppressions.of(internFileName(file));
  std::vector<Diagnostic> warnings;
  for (const SuppressionFault &fault : own.getFaults())
    warnings.push_back(
        makeWarning(DiagnosticId::SuppressionSyntax, fault.place,
                    llvm::formatv(infoOf(DiagnosticId::SuppressionSyntax).text, fault.text).str()));
  for (const Suppression &one : own.getAll())
    if (isComplete && !one.isUsed && isReported(one.numbers))
      warnings.push_back(makeWarning(DiagnosticId::UnusedSuppression, one.place,
                                     llvm::formatv(infoOf(DiagnosticId::UnusedSuppression).text,
                                                   one.written, describeLines(one))
                                         .str()));
  for (Diagnostic &warning : warnings) {
    warning.program = llvm::sys::path::filename(file);
    warning.line = lines.line(warning.place.file, warning.place.beginLine);
    findings.push_back(std::move(warning));
  }
  llvm::erase_if(findings, [&](Diagnostic &diagnostic) { return !selection.apply(diagnostic); });
}

} // namespace tarka
