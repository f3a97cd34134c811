//===- Diagnostics.h - the messages of the front end ------------*- C++ -*-===//
//
// The diagnostics of the front end. Numbers, severities and texts
// are in one table, Diagnostics.def; code names a message by its enumerator.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_DIAGNOSTICS_H
#define TARKA_PARSE_DIAGNOSTICS_H

#include "AST/Severity.h"
#include "Parse/SourceDamage.h"
#include "Report/SourceOrder.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/Support/FormatVariadic.h"
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarka {

/// A message of the front end. The value is its number.
enum class DiagnosticId : uint16_t {
#define FRONT_END_DIAGNOSTIC(Number, Enumerator, Severity, Text) Enumerator = Number,
#include "Parse/Diagnostics.def"
};

/// A row of the table of messages.
struct DiagnosticInfo {
  DiagnosticId id;
  Severity severity;
  const char *text; ///< in the style of llvm::formatv
};

/// Every message, by number in ascending order of the table.
llvm::ArrayRef<DiagnosticInfo> frontEndDiagnosticTable();

/// The entry of \p id.
const DiagnosticInfo &infoOf(DiagnosticId id);

/// \p text for use in a message: unchanged, or in hexadecimal when it is not printable UTF-8.
std::string showText(llvm::StringRef text);

/// One message that was reported.
struct DiagnosticEntry {
  DiagnosticId id;
  Severity severity;
  SourceRange place;
  std::string message;
  /// Changes of the source that certainly correct it; empty where there are none.
  std::vector<TextEdit> fix;

  unsigned getNumber() const { return static_cast<unsigned>(id); }
};

/// Collects what the front end reports, in the order in which it was reported. After a thousand
/// errors one closing message is added, and everything later is discarded.
class FrontEndDiagnostics {
public:
  static constexpr unsigned maxErrors = 1000;

  /// Reports \p id at \p place with the values of its {0}, {1} ...
  template <typename... Arguments>
  void report(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    if (isSilent)
      return;
    const DiagnosticInfo &info = infoOf(id);
    add(info, place, llvm::formatv(info.text, arguments...).str());
    if (isMisspelling(id))
      if constexpr (sizeof...(arguments) >= 2)
        addSpellingFix(id, place, firstOf(arguments...), lastOf(arguments...));
  }

  /// Keeps a mistake that is not reported because it follows from another one: a report of all
  /// findings has it.
  template <typename... Arguments>
  void suppress(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    const DiagnosticInfo &info = infoOf(id);
    if (!isSilent && suppressed.size() < maxErrors && place.beginLine != 0)
      suppressed.push_back(
          {id, info.severity, place, llvm::formatv(info.text, arguments...).str(), {}});
  }

  /// Adds \p edit as the fix of the latest diagnostic, which is \p id at \p place. Does nothing
  /// when that diagnostic was discarded.
  void addFix(DiagnosticId id, const SourceRange &place, TextEdit edit);

  llvm::ArrayRef<DiagnosticEntry> getEntries() const { return entries; }
  /// What follows from these, in the order in which it was found.
  llvm::ArrayRef<DiagnosticEntry> getSuppressed() const { return suppressed; }
  bool hasErrors() const { return errorCount != 0; }
  /// The number of errors and fatal errors reported so far.
  unsigned getErrorCount() const { return errorCount; }
  /// The text that the errors reported so far make unreliable. The names in it are known once the
  /// source has been parsed.
  const SourceDamage &getDamage() const { return damage; }
  SourceDamage &getDamage() { return damage; }
  /// The copybooks that were read, in the order in which they were opened. A copybook of several
  /// COPY statements is there once for each.
  llvm::ArrayRef<CopiedFile> getCopies() const { return copies; }
  void addCopy(const CopiedFile &copy) { copies.push_back(copy); }
  /// Whether a fatal error was reported, so that the rest of the text need not be read.
  bool hasFatalError() const { return fatalSeen; }

private:
  void add(const DiagnosticInfo &info, const SourceRange &place, std::string message);

  /// Whether \p id names a word first and last the keyword that was probably meant.
  static bool isMisspelling(DiagnosticId id) {
    return id == DiagnosticId::MisspeltVerb || id == DiagnosticId::MisspeltClause ||
           id == DiagnosticId::MisspeltHeader;
  }
  /// Adds the keyword \p meant as the fix for the quoted \p word, unless another keyword is as
  /// near.
  void addSpellingFix(DiagnosticId id, const SourceRange &place, llvm::StringRef word,
                      llvm::StringRef meant);
  template <typename First, typename... Rest>
  static std::string firstOf(const First &first, const Rest &...) {
    return llvm::formatv("{0}", first).str();
  }
  template <typename... Arguments> static std::string lastOf(const Arguments &...arguments) {
    return (llvm::formatv("{0}", arguments).str(), ...);
  }

  std::vector<DiagnosticEntry> entries;
  std::vector<DiagnosticEntry> suppressed;
  SourceDamage damage;
  std::vector<CopiedFile> copies;
  unsigned errorCount = 0;
  bool fatalSeen = false;
  bool isSilent = false;
};

} // namespace tarka

#endif // TARKA_PARSE_DIAGNOSTICS_H
