//===- Node.cpp - arena, interned texts and file names --------------------===//

#include "AST/Node.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/Allocator.h"
#include <unordered_set>
#include <vector>

namespace tarka {

namespace {

/// What every tree of the process shares. It is never destroyed, so that nodes stay valid to the
/// very end.
struct SharedStorage {
  // Slabs of a megabyte: a large program asks the system rarely, a small one does not pay, since
  // untouched pages cost nothing.
  llvm::BumpPtrAllocatorImpl<llvm::MallocAllocator, 1 << 20, 1 << 20, 1 << 20> arena;
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
