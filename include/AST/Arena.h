//===- Arena.h - the memory of the tree -------------------------*- C++ -*-===//
//
// Everything that a tree is made of is allocated by advancing a pointer, is never
// freed by itself, and ends as a whole with releaseStorage() (see Storage.h).
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_ARENA_H
#define TARKA_AST_ARENA_H

#include "llvm/Support/Compiler.h"
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace tarka {

namespace detail {
/// The free part of the current slab of the arena.
struct ArenaRoom {
  char *next = nullptr;
  char *end = nullptr;
};
extern ArenaRoom arenaRoom;
void *allocateInNextSlab(std::size_t size, std::size_t alignment);
} // namespace detail

/// Allocates memory that lives as long as the tree. \p alignment is a power of two.
inline void *allocateForever(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
  detail::ArenaRoom &room = detail::arenaRoom;
  char *place = room.next + (-reinterpret_cast<std::uintptr_t>(room.next) & (alignment - 1));
  if (static_cast<std::ptrdiff_t>(size) > room.end - place)
    return detail::allocateInNextSlab(size, alignment);
  room.next = place + size;
  __asan_unpoison_memory_region(place, size);
  return place;
}

/// The same for an object that owns memory outside of the arena: releaseStorage() calls \p destroy
/// for it.
void *allocateOwner(std::size_t size, void (*destroy)(void *object));

/// Makes an object with allocateOwner().
template <typename Type, typename... Arguments> Type *makeOwner(Arguments &&...arguments) {
  void *place =
      allocateOwner(sizeof(Type), [](void *object) { static_cast<Type *>(object)->~Type(); });
  return new (place) Type(std::forward<Arguments>(arguments)...);
}

} // namespace tarka

#endif // TARKA_AST_ARENA_H
