//===- Node.h - root of every tree object -----------------------*- C++ -*-===//
//
// The root class of the tree, the positions that diagnostics point at, and the
// arena that every node lives in. Nodes are never freed, so allocating one only
// advances a pointer.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_NODE_H
#define TARKA_AST_NODE_H

#include "AST/Arena.h"
#include "AST/NodeList.h"
#include "llvm/ADT/StringRef.h"
#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <type_traits>
#include <utility>

namespace tarka {

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
///
/// Every node has one, so it takes sixteen bytes.
struct SourceRange {
  /// The greatest column; characters further right have it too.
  static constexpr unsigned maxColumn = (1U << 22) - 1;
  /// The greatest number of a file.
  static constexpr unsigned maxFile = (1U << 18) - 1;

  SourceRange() = default;
  SourceRange(unsigned number, unsigned firstLine, unsigned firstColumn, unsigned lastLine,
              unsigned lastColumn)
      : beginLine(firstLine), endLine(lastLine), beginColumn(firstColumn), endColumn(lastColumn),
        file(number) {}

  unsigned beginLine = 0;
  unsigned endLine = 0;
  // Packed, the fields lie in eight bytes without regard to the boundary between four and four.
  [[gnu::packed]] unsigned beginColumn : 22 = 0;
  [[gnu::packed]] unsigned endColumn : 22 = 0;
  [[gnu::packed]] unsigned file : 18 = 0;
  /// The origin of the node that has this range.
  Origin origin : 2 = Origin::Source;
};
static_assert(sizeof(SourceRange) == 16 && alignof(SourceRange) == 4);

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

  /// Nodes come from the arena and are never freed one by one; their destructors do not run.
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

/// The base of a node, of class \p Type, with members that allocate memory outside of the arena,
/// such as indexes. Its destructor runs at releaseStorage().
// NOLINTNEXTLINE(bugprone-crtp-constructor-accessibility): the constructors are those of the base.
template <typename Type, typename Base = Node> class Owning : public Base {
public:
  using Base::Base;

  static void *operator new(std::size_t size) {
    return allocateOwner(size, [](void *object) { static_cast<Type *>(object)->~Type(); });
  }
  static void *operator new(std::size_t, void *place) { return place; }
  static void operator delete(void *) {}
  static void operator delete(void *, void *) {}
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
// A node owns its lists, see NodeList.h. The records and items of the data division are in lists of
// the standard library, which the checks hand around.

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

/// A new empty list, which lives as long as the tree.
template <typename Element> std::list<Element> *makeList() {
  return makeOwner<std::list<Element>>();
}

//===----------------------------------------------------------------------===//
// Accessors
//===----------------------------------------------------------------------===//
//
// Each of these declares the accessors of one member; the member is declared where the others are.

/// get<Name>Begin(), get<Name>End(), get<Name>Size() and get<Name>Elements() of a list of nodes.
#define TARKA_LIST(Type, member, Name) TARKA_LIST_OF(NodeList<Type>, member, Name)

/// The same of the class \p List, a NodeList or a std::list.
#define TARKA_LIST_OF(List, member, Name)                                                          \
  typename List::iterator get##Name##Begin() {                                                     \
    return member.begin();                                                                         \
  }                                                                                                \
  typename List::iterator get##Name##End() {                                                       \
    return member.end();                                                                           \
  }                                                                                                \
  std::size_t get##Name##Size() const {                                                            \
    return member.size();                                                                          \
  }                                                                                                \
  const List &get##Name##Elements() const {                                                        \
    return member;                                                                                 \
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
