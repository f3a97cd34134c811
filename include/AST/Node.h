//===- Node.h - root of every tree object -----------------------*- C++ -*-===//
//
// The root class of the tree, the positions that diagnostics point at, and the
// arena that every node lives in. Nodes are never freed, so allocating one only
// advances a pointer.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_NODE_H
#define TARKA_AST_NODE_H

#include "llvm/ADT/StringRef.h"
#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <type_traits>
#include <utility>

namespace tarka {

/// Allocates memory that lives until the process ends; it only advances a pointer.
void *allocateForever(std::size_t size, std::size_t alignment = alignof(std::max_align_t));

/// The one process-wide copy of \p text; equal texts give the same address.
const std::string &internString(llvm::StringRef text);

/// A number for the physical file \p name, the same for equal names. File 0 has the empty name.
unsigned internFileName(llvm::StringRef name);

/// The name of a file numbered by internFileName().
const std::string &fileNameOf(unsigned file);

/// Where a node comes from.
enum class Origin : std::uint8_t {
  /// The source text, copybooks included.
  Source,
  /// The language: the special registers, which every program has.
  Supplied,
  /// Made by the checks or the graph builder: index names, slack bytes, the name of a FILLER, the
  /// statements that others are converted to.
  Generated,
};

/// The place of a construct: the physical file, lines and columns from 1, the end inclusive.
/// All zero for a construct that has no place in the source.
struct SourceRange {
  SourceRange() = default;
  SourceRange(unsigned number, unsigned firstLine, unsigned firstColumn, unsigned lastLine,
              unsigned lastColumn)
      : file(number), beginLine(firstLine), beginColumn(firstColumn), endLine(lastLine),
        endColumn(lastColumn) {}

  unsigned file = 0;
  unsigned beginLine = 0;
  unsigned beginColumn = 0;
  unsigned endLine = 0;
  unsigned endColumn : 30 = 0;
  /// The origin of the node that has this range.
  Origin origin : 2 = Origin::Source;
};

/// The root of every tree object. It carries the source position of the construct.
class Node {
public:
  /// A node without a position: file "" and lines and columns 0. Its origin is Generated.
  Node() { range.origin = Origin::Generated; }
  /// A node at the position of \p at and of its origin. \p at may be null: then the node is made as
  /// by Node().
  explicit Node(const Node *at) {
    if (at)
      range = at->range;
    else
      range.origin = Origin::Generated;
  }
  explicit Node(const SourceRange &where) : range(where) {}
  Node(const Node &) = default;
  Node &operator=(const Node &) = default;
  virtual ~Node() = default;

  /// Nodes come from the arena and are never freed.
  static void *operator new(std::size_t size) { return allocateForever(size, alignof(void *)); }
  static void *operator new(std::size_t, void *place) { return place; }
  static void operator delete(void *) {}
  static void operator delete(void *, void *) {}

  const std::string &getFileName() const { return fileNameOf(range.file); }
  /// Lines and columns count from 1; the end column is that of the last character.
  int getBeginLineNo() const { return static_cast<int>(range.beginLine); }
  int getBeginCharPos() const { return static_cast<int>(range.beginColumn); }
  int getEndLineNo() const { return static_cast<int>(range.endLine); }
  int getEndCharPos() const { return static_cast<int>(range.endColumn); }

  /// The node as a position, to give to the constructor of another node.
  Node *getNode() { return this; }
  const Node *getNode() const { return this; }

  const SourceRange &getRange() const { return range; }
  void setRange(const SourceRange &where) { range = where; }

  /// Where the node comes from.
  Origin getOrigin() const { return range.origin; }
  void setOrigin(Origin from) { range.origin = from; }
  /// Whether the node is in the source text. Only such a node has a position of its own.
  bool isWritten() const { return range.origin == Origin::Source; }

private:
  SourceRange range;
};

/// Makes a node that is not in the source. Checks and graph builder make all their nodes with it.
/// \p at, whose position the node gets, may be null; \p arguments are those of the constructor
/// after it.
template <typename T, typename... Arguments> T *generate(const Node *at, Arguments &&...arguments) {
  T *node = new T(at, std::forward<Arguments>(arguments)...);
  node->setOrigin(Origin::Generated);
  return node;
}

//===----------------------------------------------------------------------===//
// Lists of nodes
//===----------------------------------------------------------------------===//
//
// A node owns its lists. A list that a constructor or a setter is given is taken over: its elements
// are moved, and it is empty afterwards.

/// Moves the elements of \p given, which is empty afterwards; null stands for an empty list.
template <typename Element> std::list<Element> takeOver(std::list<Element> *given) {
  std::list<Element> elements;
  if (given)
    elements.swap(*given);
  return elements;
}

/// An empty list, which cannot be changed.
template <typename Element> const std::list<Element> &emptyList() {
  static const std::list<Element> empty;
  return empty;
}

/// The list behind \p list, or an empty list.
template <typename Element> const std::list<Element> &listOrEmpty(const std::list<Element> *list) {
  return list ? *list : emptyList<Element>();
}

/// Where \p list begins and ends; null stands for an empty list.
template <typename Element>
typename std::list<Element>::iterator beginOf(std::list<Element> *list) {
  return list ? list->begin() : typename std::list<Element>::iterator();
}
template <typename Element> typename std::list<Element>::iterator endOf(std::list<Element> *list) {
  return list ? list->end() : typename std::list<Element>::iterator();
}

/// A new empty list in the memory of the nodes.
template <typename Element> std::list<Element> *makeList() {
  return new (allocateForever(sizeof(std::list<Element>))) std::list<Element>;
}

/// A list of nodes that is mostly empty: it costs a pointer until the first element is added.
/// Copying it copies the list, not the nodes.
template <typename Type> class LazyList {
public:
  using List = std::list<Type *>;
  using iterator = typename List::iterator;

  LazyList() = default;
  /// Takes over the elements of \p given, which may be null.
  explicit LazyList(List *given) { takeOver(given); }
  LazyList(const LazyList &other) { *this = other; }
  LazyList &operator=(const LazyList &other) {
    if (this != &other) {
      list = nullptr;
      if (other.list && !other.list->empty())
        own() = *other.list;
    }
    return *this;
  }

  void takeOver(List *given) {
    list = nullptr;
    if (given && !given->empty())
      own().swap(*given);
  }

  iterator begin() const { return beginOf(list); }
  iterator end() const { return endOf(list); }
  std::size_t size() const { return list ? list->size() : 0; }
  // The name is that of std::list, so that the accessors below work with both.
  void push_back(Type *item) { own().push_back(item); } // NOLINT(readability-identifier-naming)

  friend const List &elementsOf(const LazyList &lazy) { return listOrEmpty(lazy.list); }

private:
  List &own() {
    if (!list)
      list = makeList<Type *>();
    return *list;
  }

  List *list = nullptr;
};

/// What the accessors of a list give as its elements.
template <typename Type> const std::list<Type *> &elementsOf(const std::list<Type *> &list) {
  return list; // NOLINT(bugprone-return-const-ref-from-parameter): a member of a node, no temporary
}

//===----------------------------------------------------------------------===//
// Accessors
//===----------------------------------------------------------------------===//
//
// Each of these declares the accessors of one member; the member is declared where the others are.

/// get<Name>Begin(), get<Name>End(), get<Name>Size() and get<Name>Elements() of a list of nodes, a
/// std::list or a LazyList.
#define TARKA_LIST(Type, member, Name)                                                             \
  std::list<Type *>::iterator get##Name##Begin() {                                                 \
    return member.begin();                                                                         \
  }                                                                                                \
  std::list<Type *>::iterator get##Name##End() {                                                   \
    return member.end();                                                                           \
  }                                                                                                \
  std::size_t get##Name##Size() const {                                                            \
    return member.size();                                                                          \
  }                                                                                                \
  const std::list<Type *> &get##Name##Elements() const {                                           \
    return elementsOf(member);                                                                     \
  }

/// The same with add<Item>(), which appends one element.
#define TARKA_LIST_ADD(Type, member, Name, Item)                                                   \
  TARKA_LIST(Type, member, Name)                                                                   \
  void add##Item(Type *item) {                                                                     \
    member.push_back(item);                                                                        \
  }

/// get<Name>() and set<Name>() of one member.
#define TARKA_FIELD(Type, member, Name)                                                            \
  std::type_identity_t<Type> get##Name() const {                                                   \
    return member;                                                                                 \
  }                                                                                                \
  void set##Name(Type newValue) {                                                                  \
    member = newValue;                                                                             \
  }

/// is<Name>() and setIs<Name>() of one flag.
#define TARKA_FLAG(member, Name)                                                                   \
  bool is##Name() const {                                                                          \
    return member;                                                                                 \
  }                                                                                                \
  void setIs##Name(bool newValue) {                                                                \
    member = newValue;                                                                             \
  }

} // namespace tarka

#endif // TARKA_AST_NODE_H
