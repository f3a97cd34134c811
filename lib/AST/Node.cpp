//===- Node.cpp - arena, interned texts and file names --------------------===//

#include "AST/Node.h"
#include "AST/Storage.h"
#include "PictureCache.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/Compiler.h"
#include "llvm/Support/ErrorHandling.h"
#include "llvm/Support/xxhash.h"
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sys/mman.h>
#include <vector>

namespace tarka {

namespace {

/// The slabs that allocateForever() advances in.
class Arena {
public:
  /// Takes back everything, and keeps the slabs for what comes next.
  void rewind() {
    for ([[maybe_unused]] const Slab &slab : slabs)
      __asan_poison_memory_region(slab.begin, slab.size);
    used = 0;
    detail::arenaRoom = {};
  }

  void *allocateInNextSlab(std::size_t size, std::size_t alignment) {
    // A slab that is left over may be too small for one very large node.
    while (used < slabs.size() && slabs[used].size < size + alignment)
      ++used;
    if (used == slabs.size())
      addSlab(size + alignment);
    detail::arenaRoom = {slabs[used].begin, slabs[used].begin + slabs[used].size};
    ++used;
    return allocateForever(size, alignment);
  }

private:
  struct Slab {
    char *begin;
    std::size_t size;
  };

  /// Each slab is as large as all before it: a small program asks for little, a large one rarely.
  /// The tree of a large program is visited in no order of addresses, and with ordinary pages much
  /// of the time would go into finding them: large slabs ask for huge ones.
  void addSlab(std::size_t least) {
    constexpr std::size_t smallest = std::size_t(1) << 18;
    constexpr std::size_t hugePage = std::size_t(1) << 21;
    std::size_t size = std::max(total, smallest);
    while (size < least)
      size *= 2;
    auto *slab = static_cast<char *>(size % hugePage == 0 ? std::aligned_alloc(hugePage, size)
                                                          : std::malloc(size));
    if (!slab)
      llvm::report_bad_alloc_error("no memory for the tree");
    // Only a hint: where it is not honoured, the slab has ordinary pages.
    if (size % hugePage == 0)
      madvise(slab, size, MADV_HUGEPAGE);
    __asan_poison_memory_region(slab, size);
    slabs.push_back({slab, size});
    total += size;
  }

  std::vector<Slab> slabs;
  /// The slabs before this one are in use.
  std::size_t used = 0;
  std::size_t total = 0;
};

/// An interned text and its hash, which avoids reading the texts of a table with millions of them.
struct InternedText {
  const std::string *text;
  unsigned hash;
};

struct HashedText {
  explicit HashedText(llvm::StringRef t)
      : text(t), hash(static_cast<unsigned>(llvm::xxh3_64bits(t))) {}

  llvm::StringRef text;
  unsigned hash;
};

/// Interned texts are looked up by content.
struct InternedTextInfo {
  using Pointer = llvm::DenseMapInfo<const std::string *>;

  static InternedText getEmptyKey() { return {Pointer::getEmptyKey(), 0}; }
  static InternedText getTombstoneKey() { return {Pointer::getTombstoneKey(), 0}; }
  static unsigned getHashValue(const InternedText &entry) { return entry.hash; }
  static unsigned getHashValue(const HashedText &wanted) { return wanted.hash; }
  static bool isEqual(const InternedText &left, const InternedText &right) {
    return left.text == right.text;
  }
  static bool isEqual(const HashedText &wanted, const InternedText &entry) {
    return wanted.hash == entry.hash && entry.text != Pointer::getEmptyKey() &&
           entry.text != Pointer::getTombstoneKey() && wanted.text == *entry.text;
  }
};

/// The state that all trees of the process share. It is never destroyed, so that nodes stay valid
/// to the very end.
struct SharedStorage {
  Arena arena;
  std::vector<std::pair<void *, void (*)(void *)>> owners;
  llvm::DenseSet<InternedText, InternedTextInfo> strings;
  llvm::StringMap<unsigned> fileNumbers;
  std::vector<const std::string *> fileNames;
  std::vector<std::shared_ptr<const void>> kept;
};

SharedStorage &storage() {
  static SharedStorage *shared = new SharedStorage;
  return *shared;
}

} // namespace

detail::ArenaRoom detail::arenaRoom;

void *detail::allocateInNextSlab(std::size_t size, std::size_t alignment) {
  return storage().arena.allocateInNextSlab(size, alignment);
}

void *allocateOwner(std::size_t size, void (*destroy)(void *object)) {
  void *object = allocateForever(size);
  storage().owners.emplace_back(object, destroy);
  return object;
}

const std::string &internString(llvm::StringRef text) {
  auto &strings = storage().strings;
  HashedText wanted(text);
  auto found = strings.find_as(wanted);
  if (found != strings.end())
    return *found->text;
  auto *interned = new (allocateForever(sizeof(std::string))) std::string(text);
  strings.insert_as({interned, wanted.hash}, wanted);
  return *interned;
}

void releaseStorage() {
  SharedStorage &shared = storage();
  for (const auto &[object, destroy] : shared.owners)
    destroy(object);
  shared.owners.clear();
  for (const InternedText &interned : shared.strings)
    std::destroy_at(interned.text);
  shared.strings.clear();
  shared.fileNumbers.clear();
  shared.fileNames.clear();
  shared.kept.clear();
  clearPictureCache();
  shared.arena.rewind();
}

void keepUntilRelease(std::shared_ptr<const void> object) {
  storage().kept.push_back(std::move(object));
}

unsigned internFileName(llvm::StringRef name) {
  SharedStorage &shared = storage();
  if (shared.fileNames.empty()) {
    shared.fileNames.push_back(&internString(""));
    shared.fileNumbers[""] = 0;
  }
  auto [entry, isNew] = shared.fileNumbers.try_emplace(name, shared.fileNames.size());
  if (isNew) {
    if (entry->second > SourceRange::maxFile)
      llvm::report_fatal_error("a program has too many files", /*gen_crash_diag=*/false);
    shared.fileNames.push_back(&internString(name));
  }
  return entry->second;
}

const std::string &fileNameOf(unsigned file) {
  SharedStorage &shared = storage();
  return file < shared.fileNames.size() ? *shared.fileNames[file] : internString("");
}

} // namespace tarka
