//===- NodeList.h - the list that nodes have of other nodes -----*- C++ -*-===//
//
// Most lists of a tree have no or one element: the receivers of MOVE, the words of
// a name, the statements of a sentence. Such a list takes the space of a pointer.
// What longer ones need comes from the arena.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_NODELIST_H
#define TARKA_AST_NODELIST_H

#include "AST/Arena.h"
#include "llvm/Support/Compiler.h"
#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <list>
#include <type_traits>
#include <utility>

namespace tarka {

/// A list of pointers to \p Type, in order. Adding an element makes iterators invalid.
///
/// The function names are those of the standard containers.
// NOLINTBEGIN(readability-identifier-naming)
template <typename Type> class NodeList {
public:
  using value_type = Type *;
  using iterator = Type **;
  using const_iterator = Type *const *;

  NodeList() = default;
  NodeList(std::initializer_list<Type *> elements) { append(elements.begin(), elements.end()); }
  template <typename Iterator> NodeList(Iterator first, Iterator last) { append(first, last); }
  NodeList(const NodeList &other) { append(other.begin(), other.end()); }
  NodeList(NodeList &&other) noexcept : slot(std::exchange(other.slot, nullptr)) {}
  NodeList &operator=(const NodeList &other) {
    if (this != &other)
      NodeList(other).swap(*this);
    return *this;
  }
  NodeList &operator=(NodeList &&other) noexcept {
    slot = std::exchange(other.slot, nullptr);
    return *this;
  }
  ~NodeList() = default;

  iterator begin() { return isBlock() ? elementsOf(block()) : &slot; }
  iterator end() { return begin() + size(); }
  const_iterator begin() const { return const_cast<NodeList *>(this)->begin(); }
  const_iterator end() const { return begin() + size(); }

  std::size_t size() const { return isBlock() ? block()->size : slot ? 1 : 0; }
  bool empty() const { return size() == 0; }
  Type *front() const {
    assert(!empty());
    return *begin();
  }
  Type *back() const {
    assert(!empty());
    return end()[-1];
  }
  Type *operator[](std::size_t index) const {
    assert(index < size());
    return begin()[index];
  }

  void push_back(Type *element) {
    // Null is an element too; in the slot it would be none.
    if (!slot && element)
      slot = element;
    else
      addToBlock(element);
  }
  void push_front(Type *element) {
    push_back(element);
    std::rotate(begin(), end() - 1, end());
  }
  template <typename Iterator> void append(Iterator first, Iterator last) {
    const std::size_t all = size() + std::distance(first, last);
    if (all <= 1) {
      if (first != last)
        push_back(*first);
      return;
    }
    const bool hasRoom = isBlock() && all <= block()->capacity;
    Block *target = hasRoom ? block() : growTo(isBlock() ? std::max(all, 2 * size()) : all);
    std::copy(first, last, elementsOf(target) + target->size);
    target->size = static_cast<std::uint32_t>(all);
  }
  void pop_back() {
    assert(!empty());
    if (isBlock())
      --block()->size;
    else
      slot = nullptr;
  }
  void clear() { slot = nullptr; }
  void swap(NodeList &other) noexcept { std::swap(slot, other.slot); }

  friend bool operator==(const NodeList &left, const NodeList &right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end());
  }

private:
  /// What is in the arena of a list that has had more than one element; the elements follow.
  struct Block {
    std::uint32_t size;
    std::uint32_t capacity;
  };

  static iterator elementsOf(Block *block) { return reinterpret_cast<iterator>(block + 1); }

  bool isBlock() const { return reinterpret_cast<std::uintptr_t>(slot) & 1; }
  Block *block() const {
    return reinterpret_cast<Block *>(reinterpret_cast<std::uintptr_t>(slot) & ~std::uintptr_t(1));
  }

  LLVM_ATTRIBUTE_NOINLINE void addToBlock(Type *element) {
    Block *last = isBlock() ? block() : nullptr;
    if (!last || last->size == last->capacity)
      last = growTo(std::max<std::size_t>(3, 2 * size()));
    elementsOf(last)[last->size++] = element;
  }

  /// Moves the elements to a block with room for \p capacity of them.
  Block *growTo(std::size_t capacity) {
    auto *larger = static_cast<Block *>(
        allocateForever(sizeof(Block) + capacity * sizeof(Type *), alignof(Type *)));
    *larger = {static_cast<std::uint32_t>(size()), static_cast<std::uint32_t>(capacity)};
    std::copy(begin(), end(), elementsOf(larger));
    slot = reinterpret_cast<Type *>(reinterpret_cast<std::uintptr_t>(larger) | 1);
    return larger;
  }

  /// Null for an empty list, the only element, or the block, whose address has the lowest bit set.
  Type *slot = nullptr;
};
// NOLINTEND(readability-identifier-naming)

/// The argument of a function that takes over a list: a list of either kind, which is empty
/// afterwards, or null for no elements.
template <typename Type> class GivenList {
public:
  GivenList(std::nullptr_t = nullptr) {}
  GivenList(NodeList<Type> *given) {
    if (given)
      elements.swap(*given);
  }
  GivenList(std::list<Type *> *given) {
    if (!given)
      return;
    elements.append(given->begin(), given->end());
    given->clear();
  }

  NodeList<Type> take() { return std::move(elements); }

private:
  NodeList<Type> elements;
};

/// The argument of a function that copies a list: a list of either kind, or null for no elements.
template <typename Type> class CopiedList {
public:
  CopiedList(std::nullptr_t) {}
  CopiedList(const NodeList<Type> *original) {
    if (original)
      elements = *original;
  }
  CopiedList(const std::list<Type *> *original) {
    if (original)
      elements.append(original->begin(), original->end());
  }

  NodeList<Type> take() { return std::move(elements); }

private:
  NodeList<Type> elements;
};

} // namespace tarka

#endif // TARKA_AST_NODELIST_H
