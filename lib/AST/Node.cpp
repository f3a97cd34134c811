//===- Node.cpp - arena, interned texts and file names --------------------===//

#include "AST/Node.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/Allocator.h"
#include "llvm/Support/xxhash.h"
#include <cstdlib>
#include <sys/mman.h>
#include <vector>

namespace tarka {

namespace {

/// Slabs of the arena. The tree of a large program is visited in no order of addresses, and with
/// ordinary pages much of the time would go into finding them: large slabs ask for huge ones.
class SlabAllocator : public llvm::AllocatorBase<SlabAllocator> {
public:
  using AllocatorBase::Allocate;
  using AllocatorBase::Deallocate;
  void *Allocate(std::size_t size, std::size_t alignment) {
    constexpr std::size_t hugePage = std::size_t(1) << 21;
    if (size % hugePage != 0)
      return llvm::allocate_buffer(size, alignment);
    void *slab = std::aligned_alloc(hugePage, size);
    if (!slab)
      llvm::report_bad_alloc_error("no memory for the tree");
    // Only a hint: where it is not honoured, the slab has ordinary pages.
    madvise(slab, size, MADV_HUGEPAGE);
    return slab;
  }
  void Deallocate(const void *slab, std::size_t, std::size_t) {
    std::free(const_cast<void *>(slab));
  }
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
  // Each slab is as large as all before it: a small program asks for little, a large one rarely.
  llvm::BumpPtrAllocatorImpl<SlabAllocator, 1 << 18, 1 << 18, 1> arena;
  llvm::DenseSet<InternedText, InternedTextInfo> strings;
  llvm::StringMap<unsigned> fileNumbers;
  std::vector<const std::string *> fileNames;
};

SharedStorage &storage() {
  static SharedStorage *shared = new SharedStorage;
  return *shared;
}

} // namespace

void *allocateForever(std::size_t size, std::size_t alignment) {
  return storage().arena.Allocate(size, llvm::Align(alignment));
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

unsigned internFileName(llvm::StringRef name) {
  SharedStorage &shared = storage();
  if (shared.fileNames.empty()) {
    shared.fileNames.push_back(&internString(""));
    shared.fileNumbers[""] = 0;
  }
  auto [entry, isNew] = shared.fileNumbers.try_emplace(name, shared.fileNames.size());
  if (isNew)
    shared.fileNames.push_back(&internString(name));
  return entry->second;
}

const std::string &fileNameOf(unsigned file) {
  SharedStorage &shared = storage();
  return file < shared.fileNames.size() ? *shared.fileNames[file] : internString("");
}

} // namespace tarka
