//===- PictureCache.h - decoded pictures ------------------------*- C++ -*-===//

#ifndef TARKA_LIB_AST_PICTURECACHE_H
#define TARKA_LIB_AST_PICTURECACHE_H

namespace tarka {

/// Forgets the pictures that were decoded, which are in the memory of the nodes.
void clearPictureCache();

} // namespace tarka

#endif // TARKA_LIB_AST_PICTURECACHE_H
