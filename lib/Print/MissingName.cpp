//===- MissingName.cpp - a name that is not there --------------------------===//

#include "Print/MissingName.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

std::string explainMissing(llvm::StringRef noun, llvm::StringRef name,
                           llvm::ArrayRef<llvm::StringRef> names) {
  std::string message = ("there is no " + noun + " " + name).str();
  // Names that differ in no more than a third of their letters are near.
  const unsigned allowed = std::max<unsigned>(1, static_cast<unsigned>(name.size()) / 3);
  constexpr std::size_t few = 20;
  llvm::SmallVector<llvm::StringRef> near;
  for (llvm::StringRef other : names)
    if (name.edit_distance_insensitive(other, true, allowed) <= allowed)
      near.push_back(other);
  if (!near.empty())
    return message + "; similar: " + llvm::join(near, ", ");
  if (names.empty())
    return message + ", nor any other";
  return names.size() > few ? message : message + "; there are " + llvm::join(names, ", ");
}

} // namespace tarka
