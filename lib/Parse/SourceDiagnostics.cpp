//===- SourceDiagnostics.cpp - messages about the source text -------------===//

#include "Parse/SourceDiagnostics.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

void SourceDiagnostics::noteDamage(DiagnosticId id, const SourceRange &place) {
  switch (id) {
  case DiagnosticId::CharacterNotAllowed:
  case DiagnosticId::ContinuedLiteralWithoutQuote:
  case DiagnosticId::UnclosedLiteral:
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
    return;
  default:
    return;
  }
}

bool SourceDiagnostics::isDamaged(const SourceRange &place) const {
  return damagedFiles.contains(place.file) || llvm::any_of(damage, [&](const SourceRange &one) {
           return one.file == place.file && one.endLine == place.beginLine;
         });
}

bool SourceDiagnostics::isCopybookMissing(const SourceRange &before,
                                          const SourceRange &after) const {
  return llvm::any_of(missingCopybooks, [&](const SourceRange &copy) {
    return copy.file == after.file && copy.endLine <= after.beginLine &&
           before.endLine <= copy.beginLine;
  });
}

} // namespace tarka
