//===- SourceDiagnostics.cpp - messages about the source text -------------===//

#include "Parse/SourceDiagnostics.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

void SourceDiagnostics::noteDamage(DiagnosticId id, const SourceRange &place) {
  switch (id) {
  case DiagnosticId::CharacterNotAllowed:
  case DiagnosticId::ContinuedLiteralWithoutQuote:
  case DiagnosticId::UnclosedLiteral:
  case DiagnosticId::TextPastMargin:
  case DiagnosticId::WordPastMargin:
  case DiagnosticId::CopyNameExpected:
  case DiagnosticId::CopyLibraryExpected:
  case DiagnosticId::CopyPeriodExpected:
  case DiagnosticId::ReplaceOperandExpected:
  case DiagnosticId::ReplaceByExpected:
  case DiagnosticId::ReplacementExpected:
  case DiagnosticId::ReplacePeriodExpected:
    damage.push_back(place);
    return;
  case DiagnosticId::CopybookNotFound:
  case DiagnosticId::SuppliedCopybookNotFound:
    missingCopybooks.push_back(place);
    sink.getDamage().addMissingCopybook();
    return;
  case DiagnosticId::CopybookUnreadable:
  case DiagnosticId::CopyCycle:
    sink.getDamage().addMissingCopybook();
    return;
  default:
    return;
  }
}

bool SourceDiagnostics::isMisread(const SourceRange &place) const {
  return llvm::any_of(damage, [&](const SourceRange &one) {
    return one.file == place.file && place.beginLine <= one.endLine && one.endLine <= place.endLine;
  });
}

bool SourceDiagnostics::isDamaged(const SourceRange &place) const {
  return damagedFiles.contains(place.file) || isMisread(place) ||
         llvm::any_of(doubts, [&](const Doubt &one) {
           return one.place.file == place.file && one.place.beginLine <= place.beginLine &&
                  (one.isOpen || place.beginLine <= one.place.endLine);
         });
}

void SourceDiagnostics::endDoubt(const SourceRange &place) {
  const auto doubt =
      llvm::find_if(llvm::reverse(doubts), [](const Doubt &one) { return one.isOpen; });
  doubt->place.endLine = place.endLine;
  doubt->place.endColumn = place.endColumn;
  doubt->isOpen = false;
  sink.getDamage().add(doubt->place);
}

const CutLine *SourceDiagnostics::findCutLine(const SourceRange &last,
                                              const SourceRange &next) const {
  // The line of the mistake was read a moment ago.
  for (const CutLine &cut : llvm::reverse(cutLines)) {
    const SourceRange &place = cut.place;
    const bool isBetween = place.file == last.file && place.beginLine == last.endLine &&
                           last.endColumn < place.beginColumn &&
                           (next.file != place.file || next.beginLine > place.beginLine);
    bool isLast = place.file == last.file && place.beginLine == last.endLine &&
                  last.endColumn >= place.beginColumn;
    bool isNext = place.file == next.file && place.beginLine == next.beginLine &&
                  next.endColumn >= place.beginColumn;
    if (isLast || isNext || isBetween)
      return &cut;
  }
  return nullptr;
}

void SourceDiagnostics::reportCutLines() {
  for (const CutLine &cut : cutLines) {
    SourceRange line = cut.place;
    line.beginColumn = 1;
    if (!cut.isEvident || cut.isReported || sink.getDamage().contains(line))
      continue;
    sink.report(DiagnosticId::TextCutAtMargin, cut.place, cut.text);
    sink.getDamage().add(cut.place);
  }
}

/// \p place, or the COPY statement of file number \p file that has copied the text there last.
SourceRange SourceDiagnostics::placeIn(unsigned file, SourceRange place) const {
  for (const CopiedFile &copy : llvm::reverse(sink.getCopies()))
    if (place.file != file && copy.file == place.file)
      place = copy.statement;
  return place;
}

bool SourceDiagnostics::isCopybookMissing(const SourceRange &before,
                                          const SourceRange &after) const {
  // They are in the order of the text: what is asked for is among the last ones.
  for (const SourceRange &copy : llvm::reverse(missingCopybooks)) {
    const SourceRange last = placeIn(copy.file, before);
    if (copy.file == last.file && copy.beginLine < last.endLine)
      return false;
    const SourceRange next = placeIn(copy.file, after);
    if (copy.file == next.file && copy.endLine <= next.beginLine)
      return true;
  }
  return false;
}

} // namespace tarka
