//===- Writing.cpp - the parts of long answers ----------------------------===//

#include "lsp/features/Writing.h"

namespace tarka::lsp {

void writePosition(llvm::json::OStream &out, const mlir::lsp::Position &position) {
  out.object([&] {
    out.attribute("line", position.line);
    out.attribute("character", position.character);
  });
}

void writeRange(llvm::json::OStream &out, llvm::StringRef name, const mlir::lsp::Range &range) {
  out.attributeObject(name, [&] {
    out.attributeBegin("start");
    writePosition(out, range.start);
    out.attributeEnd();
    out.attributeBegin("end");
    writePosition(out, range.end);
    out.attributeEnd();
  });
}

void writeLocation(llvm::json::OStream &out, Snapshot &snapshot, const SourceRange &place) {
  const std::string uri = snapshot.uriOf(place.file);
  if (uri.empty())
    return;
  out.object([&] {
    out.attribute("uri", uri);
    writeRange(out, "range", snapshot.rangeOf(place));
  });
}

void writeEdit(llvm::json::OStream &out, const mlir::lsp::Range &range, llvm::StringRef newText) {
  out.object([&] {
    writeRange(out, "range", range);
    out.attribute("newText", newText);
  });
}

} // namespace tarka::lsp
