//===- Node.cpp - arena, interned texts and file names --------------------===//

#include "AST/Node.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/Allocator.h"
#include "llvm/Support/ErrorHandling.h"
#include <sys/mman.h>
#include <unordered_set>
#include <vector>

namespace tarka {

namespace {

/// Where the arena gets its memory from. A small tree comes from the heap; a large one from areas of
/// huge pages, as far as the system has them, which are entered hundreds of times less often than
/// small ones.
class SlabSource : public llvm::AllocatorBase<SlabSource> {
public:
  using llvm::AllocatorBase<SlabSource>::Allocate;
  using llvm::AllocatorBase<SlabSource>::Deallocate;

  void *Allocate(std::size_t size, std::size_t alignment) {
    constexpr std::size_t smallTree = 4 << 20;
    total += size;
    if (total <= smallTree || size > areaSize)
      return llvm::allocate_buffer(size, alignment);
    if (size > static_cast<std::size_t>(areaEnd - area)) {
      void *mapped = mmap(nullptr, areaSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS,
                          -1, 0);
      if (mapped == MAP_FAILED)
        llvm::report_bad_alloc_error("the tree does not fit in memory");
      madvise(mapped, areaSize, MADV_HUGEPAGE);
      area = static_cast<char *>(mapped);
      areaEnd = area + areaSize;
    }
    void *slab = area;
    area += size;
    return slab;
  }
  /// Nothing of a tree is ever given back.
  void Deallocate(const void *, std::size_t, std::size_t) {}

private:
  static constexpr std::size_t areaSize = 32 << 20;

  std::size_t total = 0;
  char *area = nullptr;
  char *areaEnd = nullptr;
};

/// What every tree of the process shares. It is never destroyed, so that nodes stay valid to the
/// very end.
struct SharedStorage {
  // Slabs of a megabyte: a large program asks the system rarely, a small one does not pay, since
  // untouched pages cost nothing.
  llvm::BumpPtrAllocatorImpl<SlabSource, 1 << 20, 1 << 20, 1 << 20> arena;
  llvm::StringMap<std::string *, llvm::BumpPtrAllocator> strings;
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
  std::string *&entry = storage().strings[text];
  if (!entry)
    entry = new std::string(text);
  return *entry;
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
