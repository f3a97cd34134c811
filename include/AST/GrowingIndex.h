//===- GrowingIndex.h - indexes of lists that others append to --*- C++ -*-===//
//
// Entries are found by name in lists that grow while they are searched: the
// checks add special registers, index names, slack bytes and copied sections.
// The classes here read the new elements of such a list at each lookup.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_GROWINGINDEX_H
#define TARKA_AST_GROWINGINDEX_H

#include "AST/Node.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include <cassert>
#include <iterator>

namespace tarka {

/// How far a list, a NodeList or a std::list, has been read that others append to, and do not
/// change otherwise.
template <typename List> class ReadMark {
public:
  /// Calls \p read for every element of \p list that it has not been called for. \p list may be
  /// null, and must be the same every time.
  template <typename Reader> void readOn(List *list, Reader read) {
    if (!list)
      return;
    assert(count <= list->size() && "the list may only grow");
    while (count < list->size())
      read(*next(*list));
  }

  bool isAtStart() const { return count == 0; }

private:
  using Iterator = typename List::iterator;

  Iterator next(List &list) {
    // Adding to a NodeList makes its iterators invalid.
    constexpr bool isStable = !std::is_pointer_v<Iterator>;
    last = isStable && count ? std::next(last) : std::next(list.begin(), isStable ? 0 : count);
    ++count;
    return last;
  }

  std::size_t count = 0;
  Iterator last{};
};

/// Finds what the elements of a growing list stand for by name: \p Entry for the names that each
/// element enters. Names are interned, see internString(); the entries of a name are in the order
/// of the list.
template <typename Element, typename Entry = Element *, typename List = NodeList<Element>>
class GrowingIndex {
public:
  /// Calls \p enter for the elements of \p list that are new; it calls add().
  template <typename Enter> GrowingIndex &readOn(List &list, Enter enter) {
    mark.readOn(&list, enter);
    return *this;
  }

  void add(const std::string &name, Entry entry) { entriesOf[&name].push_back(entry); }
  /// The same, but \p entry is entered under a name once, even if add() is called again before that
  /// of the next entry.
  void addOnce(const std::string &name, Entry entry) {
    auto &entries = entriesOf[&name];
    if (entries.empty() || entries.back() != entry)
      entries.push_back(entry);
  }

  /// Valid until the next change.
  llvm::ArrayRef<Entry> find(const std::string &name) const {
    // Most programs have no declaratives, and many no sections.
    if (entriesOf.empty())
      return {};
    auto found = entriesOf.find(&internString(name));
    return found == entriesOf.end() ? llvm::ArrayRef<Entry>() : found->second;
  }

private:
  /// By the address of the interned name.
  llvm::DenseMap<const std::string *, llvm::SmallVector<Entry, 1>> entriesOf;
  ReadMark<List> mark;
};

} // namespace tarka

#endif // TARKA_AST_GROWINGINDEX_H
