//===- SourceDiagnostics.h - messages about the source text -----*- C++ -*-===//
//
// What the token stream reports, and which text is damaged by it: after such a
// message the parser cannot expect the tokens nearby to be what was meant.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_SOURCEDIAGNOSTICS_H
#define TARKA_LIB_PARSE_SOURCEDIAGNOSTICS_H

#include "Parse/Diagnostics.h"
#include "Parse/OpenConstructs.h"
#include "llvm/ADT/SmallSet.h"
#include "llvm/ADT/SmallVector.h"
#include <string>
#include <utility>

namespace tarka {

/// Text that goes on past the column at which lines of fixed form end.
struct CutLine {
  DiagnosticId id;   ///< what explains a mistake there: TextPastMargin or WordPastMargin
  SourceRange place; ///< of the last word before the margin, or of the first one past it
  std::string text;  ///< the word with what follows it past the margin
  /// Whether the text past the margin is program text without doubt: other lines have nothing
  /// there.
  bool isEvident = false;
  mutable bool isReported = false;
};

/// Reports mistakes in the source text and remembers the text that they damage.
class SourceDiagnostics {
public:
  explicit SourceDiagnostics(FrontEndDiagnostics &diagnostics) : sink(diagnostics) {}

  /// Reports \p id at \p place with the values of its {0}, {1} ...
  template <typename... Arguments>
  void report(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    sink.report(id, place, std::forward<Arguments>(arguments)...);
    noteDamage(id, place);
    if (isError(infoOf(id).severity))
      constructs.noteMistake();
  }

  bool hasErrors() const { return sink.hasErrors(); }

  /// Notes that \p statement copies the text of file number \p file.
  void noteCopy(unsigned file, const SourceRange &statement) { sink.addCopy({file, statement}); }

  /// What the parser is parsing while it asks for tokens.
  OpenConstructs &getOpenConstructs() { return constructs; }

  /// Marks all text of \p file as damaged: a COPY that could only be read in part put it in.
  void markDamaged(unsigned file) {
    damagedFiles.insert(file);
    sink.getDamage().addMissingCopybook();
  }
  /// Marks the text at \p place as damaged for later stages; the parser can expect what follows.
  void noteDamage(const SourceRange &place) { sink.getDamage().add(place); }
  /// Whether a message about the text was reported that ends in a line of \p place.
  bool isMisread(const SourceRange &place) const;
  /// Whether the text at \p place is damaged: such a message was reported, or it is not known
  /// whether the text is to be read.
  bool isDamaged(const SourceRange &place) const;
  /// Notes that from the line of \p place up to that of the matching endDoubt() text may be read
  /// that is not meant to be, or the other way around.
  void beginDoubt(const SourceRange &place) { doubts.push_back({place, /*isOpen=*/true}); }
  void endDoubt(const SourceRange &place);
  /// Whether a copybook that was not found belongs between \p before and \p after.
  bool isCopybookMissing(const SourceRange &before, const SourceRange &after) const;

  /// Notes a line whose text seems to go on past column 72. Most of what stands there identifies
  /// the line, so only a mistake on such a line is explained by it.
  void noteCutLine(DiagnosticId id, const SourceRange &place, llvm::StringRef text,
                   bool isEvident) {
    cutLines.push_back({id, place, text.str(), isEvident});
  }
  /// The line that is cut at the tokens \p last or \p next or between them; null where both are
  /// whole and follow each other.
  const CutLine *findCutLine(const SourceRange &last, const SourceRange &next) const;

  /// Reports the lines that are evidently cut and do not explain a mistake.
  void reportCutLines();

private:
  void noteDamage(DiagnosticId id, const SourceRange &place);
  SourceRange placeIn(unsigned file, SourceRange place) const;

  FrontEndDiagnostics &sink;
  OpenConstructs constructs;
  llvm::SmallVector<SourceRange, 0> damage;
  llvm::SmallVector<SourceRange, 0> missingCopybooks;
  /// The conditionals of which it is not known what of them is to be read.
  struct Doubt {
    SourceRange place;
    bool isOpen;
  };
  llvm::SmallVector<Doubt, 0> doubts;
  llvm::SmallVector<CutLine, 0> cutLines;
  llvm::SmallSet<unsigned, 4> damagedFiles;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_SOURCEDIAGNOSTICS_H
