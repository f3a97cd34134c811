//===- Storage.h - the memory of one compilation after the other -*- C++ -*-===//

#ifndef TARKA_AST_STORAGE_H
#define TARKA_AST_STORAGE_H

#include <memory>

namespace tarka {

/// Ends the life of every node, interned text and file number of this process, so that the next
/// compilation begins as in a new process. The arena keeps its memory for it. What objects in it
/// have allocated elsewhere is freed where they are made with allocateOwner(), and lost otherwise.
///
/// What keepUntilRelease() was given ends with them. Afterwards nothing may be used that was made
/// before: no tree, no graph, no diagnostic that refers to a node, and no reference to an interned
/// text.
void releaseStorage();

/// Keeps \p object as long as the nodes, which may refer to it.
void keepUntilRelease(std::shared_ptr<const void> object);

} // namespace tarka

#endif // TARKA_AST_STORAGE_H
