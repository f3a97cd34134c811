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
#include <cstdint>

namespace tarka::lsp {

class Snapshot;

/// The function that answers a request. One whose answer can be long writes it, because a tree of
/// JSON values takes many times the memory and the time.
class Handler {
public:
  using Parameters = llvm::json::Object;
  using Maker = llvm::Expected<llvm::json::Value> (*)(Snapshot &, const Parameters &);
  using Writer = llvm::Error (*)(Snapshot &, const Parameters &, llvm::json::OStream &);

  constexpr Handler(Maker function) : make(function) {}
  constexpr Handler(Writer function) : write(function) {}

  /// Writes the result, or gives the reason for which there is none and has written nothing.
  llvm::Error answer(Snapshot &snapshot, const Parameters &parameters,
                     llvm::json::OStream &out) const;

private:
  Maker make = nullptr;
  Writer write = nullptr;
};

/// What of the text a feature needs.
enum class TextNeeded : std::uint8_t {
  /// What is known of an earlier text is better than nothing: places move with the edits.
  Understood,
  /// Its answer changes the text, so it must be about the text as it is.
  Present,
  /// The same, and it looks at other programs: all texts of the editor must be as they are.
  All,
};

/// A request about a document that a snapshot of its program answers.
struct Feature {
  llvm::StringLiteral method; ///< of the protocol, or the name of a command
  /// The member of the server's capabilities and its value as JSON; empty when another row has it.
  llvm::StringLiteral capability;
  llvm::StringLiteral options;
  Handler handler;
  TextNeeded needs = TextNeeded::Understood;

  bool isCommand() const { return method.starts_with("tarka."); }
};

llvm::ArrayRef<Feature> allFeatures();
/// The feature of that method; null when there is none.
const Feature *findFeature(llvm::StringRef method);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_H
