//===- Features.h - the requests that a snapshot answers --------*- C++ -*-===//
//
// A feature is a row of the table in Features.cpp and a function in a file of its
// name under features/.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_FEATURES_H
#define TARKA_TOOLS_LSP_FEATURES_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/Error.h"
#include "llvm/Support/JSON.h"

namespace tarka::lsp {

class Snapshot;

/// A request about a document that a snapshot of its program answers.
struct Feature {
  llvm::StringLiteral method; ///< of the protocol, or the name of a command
  /// The member of the server's capabilities and its value as JSON; empty when another row has it.
  llvm::StringLiteral capability;
  llvm::StringLiteral options;
  /// Gives the result, or the reason for which there is none.
  llvm::Expected<llvm::json::Value> (*answer)(Snapshot &, const llvm::json::Object &parameters);

  bool isCommand() const { return method.starts_with("tarka."); }
};

llvm::ArrayRef<Feature> allFeatures();
/// The feature of that method; null when there is none.
const Feature *findFeature(llvm::StringRef method);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_H
