//===- PartCheck.h - results of parts for the listener ----------*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_PARTCHECK_H
#define TARKA_LIB_ANALYZER_PARTCHECK_H

#include "Analyzer/CheckListener.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// Passes the beginning and the result of a part's check on to the listener of the checker:
///
///     ok &= PartCheck(*this, CheckedPart::Entry, *file).done(semanticCheck(*file));
class PartCheck {
public:
  PartCheck(SemanticChecker &checker, CheckedPart kind, const Node &part)
      : listener(checker.getListener()) {
    if (listener)
      listener->partBegins(kind, part);
  }

  /// Ends the part with the result \p ok, which it returns.
  bool done(bool ok) const {
    if (listener)
      listener->partEnds(ok);
    return ok;
  }

private:
  CheckListener *listener;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_PARTCHECK_H
