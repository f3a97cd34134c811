//===- RedefinableEntries.h - what REDEFINES can name -----------*- C++ -*-===//
//
// REDEFINES refers to an earlier entry of its list. Searching each list from the
// start every time would take quadratic time.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_REDEFINABLEENTRIES_H
#define TARKA_LIB_ANALYZER_REDEFINABLEENTRIES_H

#include "AST/Forward.h"
#include "llvm/ADT/DenseMap.h"
#include <list>
#include <memory>
#include <optional>
#include <string>

namespace tarka {

/// For each list of entries, those before the last REDEFINES that was checked in it. Subjects come
/// in the order of their list, so a search continues where the one before it ended.
class RedefinableEntries {
public:
  struct Preceding {
    const DataDescription *last; ///< directly before the subject
    DataDescription *namesake;   ///< the nearest entry of the wanted name; null when there is none
  };

  /// What stands before \p subject in \p list; nothing when it is the first entry, or not in the
  /// list.
  std::optional<Preceding> find(const Word &name, const DataDescription &subject,
                                const std::list<DataDescription *> &list);

private:
  /// How far a list has been read, and the entries before that place by name: of the same name the
  /// nearest.
  struct Position {
    explicit Position(const std::list<DataDescription *> &list) : next(list.begin()) {}

    std::list<DataDescription *>::const_iterator next;
    llvm::DenseMap<const std::string *, DataDescription *> byName;
  };
  llvm::DenseMap<const std::list<DataDescription *> *, std::unique_ptr<Position>> positions;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_REDEFINABLEENTRIES_H
