//===- Node.h - root of every tree object -----------------------*- C++ -*-===//
//
// The root class of the tree, the positions that diagnostics point at, and the
// arena that every node lives in. Nodes are never given back during a
// compilation, so making one is a pointer bump.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_NODE_H
#define TARKA_AST_NODE_H

#include "llvm/ADT/StringRef.h"
#include <cstddef>
#include <list>
#include <string>
#include <type_traits>

namespace tarka {

/// Memory that lives until the process ends, handed out by bumping a pointer.
void *allocateForever(std::size_t size, std::size_t alignment = alignof(std::max_align_t));

/// The one process-wide copy of \p text; equal texts give the same address.
const std::string &internString(llvm::StringRef text);

/// A number for the physical file \p name, the same for equal names. File 0 has the empty name.
unsigned internFileName(llvm::StringRef name);

/// The name of a file numbered by internFileName().
const std::string &fileNameOf(unsigned file);

/// Where a construct stands: the physical file, lines and columns from 1, the end inclusive.
/// All zero for a construct that no source text stands behind.
struct SourceRange {
  unsigned file = 0;
  unsigned beginLine = 0;
  unsigned beginColumn = 0;
  unsigned endLine = 0;
  unsigned endColumn = 0;
};

/// The root of every tree object. It carries the source position of the construct.
class Node {
public:
  /// A node without a position: file "" and lines and columns 0.
  Node() = default;
  /// A node at the position of \p at; \p at may be null, which gives no position.
  explicit Node(const Node *at) {
    if (at)
      range = at->range;
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

private:
  SourceRange range;
};

/// What a constructor does with a list that it is given: takes the elements over, so that the list
/// is empty afterwards. \p given may be null, which stands for an empty list.
template <typename Element> std::list<Element> takeOver(std::list<Element> *given) {
  std::list<Element> elements;
  if (given)
    elements.swap(*given);
  return elements;
}

/// The list behind \p list; where there is none, an empty list that all such nodes share.
template <typename Element> std::list<Element> &listOrEmpty(std::list<Element> *list) {
  static std::list<Element> empty;
  return list ? *list : empty;
}

/// A new empty list in the memory of the nodes.
template <typename Element> std::list<Element> *makeList() {
  return new (allocateForever(sizeof(std::list<Element>))) std::list<Element>;
}

/// Declares the accessors of a list of pointers that the class keeps in place:
/// get<Name>Begin(), get<Name>End(), get<Name>Size() and get<Name>Elements().
#define TARKA_LIST(Type, member, Name)                                                             \
public:                                                                                            \
  std::list<Type *>::iterator get##Name##Begin() {                                                 \
    return member.begin();                                                                         \
  }                                                                                                \
  std::list<Type *>::iterator get##Name##End() {                                                   \
    return member.end();                                                                           \
  }                                                                                                \
  std::size_t get##Name##Size() const {                                                            \
    return member.size();                                                                          \
  }                                                                                                \
  std::list<Type *> &get##Name##Elements() {                                                       \
    return member;                                                                                 \
  }                                                                                                \
  const std::list<Type *> &get##Name##Elements() const {                                           \
    return member;                                                                                 \
  }                                                                                                \
                                                                                                   \
private:                                                                                           \
  std::list<Type *> member

/// The same with add<Item>(), which appends one element.
#define TARKA_LIST_ADD(Type, member, Name, Item)                                                   \
public:                                                                                            \
  void add##Item(Type *item) {                                                                     \
    member.push_back(item);                                                                        \
  }                                                                                                \
  TARKA_LIST(Type, member, Name)

/// The same for a list that most nodes of the class leave empty: it costs a pointer until the first
/// element is added. A list that a constructor is given is kept, not taken over. A copy of the node
/// shares the list; copy<Name>Elements(copy) gives it one of its own, of what copy gives for each.
#define TARKA_LAZY_LIST(Type, member, Name, Item)                                                  \
public:                                                                                            \
  std::list<Type *>::iterator get##Name##Begin() {                                                 \
    return listOrEmpty(member).begin();                                                            \
  }                                                                                                \
  std::list<Type *>::iterator get##Name##End() {                                                   \
    return listOrEmpty(member).end();                                                              \
  }                                                                                                \
  std::size_t get##Name##Size() const {                                                            \
    return listOrEmpty(member).size();                                                             \
  }                                                                                                \
  const std::list<Type *> &get##Name##Elements() const {                                           \
    return listOrEmpty(member);                                                                    \
  }                                                                                                \
  void add##Item(Type *item) {                                                                     \
    if (!member)                                                                                   \
      member = makeList<Type *>();                                                                 \
    member->push_back(item);                                                                       \
  }                                                                                                \
                                                                                                   \
  template <typename Copy> void copy##Name##Elements(Copy copy) {                                  \
    if (!member)                                                                                   \
      return;                                                                                      \
    auto *own = makeList<Type *>();                                                                \
    for (Type * item : *member)                                                                    \
      own->push_back(copy(item));                                                                  \
    member = own;                                                                                  \
  }                                                                                                \
                                                                                                   \
private:                                                                                           \
  std::list<Type *> *member = nullptr

/// Declares get<Name>() and set<Name>() of one member with its initial value.
#define TARKA_FIELD(Type, member, Name, initial)                                                   \
public:                                                                                            \
  std::type_identity_t<Type> get##Name() const {                                                   \
    return member;                                                                                 \
  }                                                                                                \
  void set##Name(Type newValue) {                                                                  \
    member = newValue;                                                                             \
  }                                                                                                \
                                                                                                   \
private:                                                                                           \
  Type member = initial

/// Declares is<Name>() and setIs<Name>() of one flag.
#define TARKA_FLAG(member, Name, initial)                                                          \
public:                                                                                            \
  bool is##Name() const {                                                                          \
    return member;                                                                                 \
  }                                                                                                \
  void setIs##Name(bool newValue) {                                                                \
    member = newValue;                                                                             \
  }                                                                                                \
                                                                                                   \
private:                                                                                           \
  bool member = initial

} // namespace tarka

#endif // TARKA_AST_NODE_H
