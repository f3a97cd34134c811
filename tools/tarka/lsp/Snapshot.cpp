//===- Snapshot.cpp - one version of a program, and what is known ---------===//

#include "lsp/Snapshot.h"
#include "Analyzer/CFGBuilder.h"
#include "Configuration.h"
#include "Report/Excerpt.h"
#include "lsp/Features.h"
#include "lsp/Frames.h"
#include "lsp/PublishedDiagnostics.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/VirtualFileSystem.h"

namespace tarka::lsp {

namespace {

/// The mark by which a text is known to be UTF-8, whatever the encoding of the files is.
constexpr llvm::StringLiteral byteOrderMark = "\xEF\xBB\xBF";

/// The file system with the texts of the editor laid over it.
llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> overlay(const OpenTexts &texts, bool isDecoded) {
  auto memory = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
  for (const auto &entry : texts) {
    const std::string &text = *entry.getValue();
    memory->addFile(entry.getKey(), 0,
                    isDecoded ? llvm::MemoryBuffer::getMemBufferCopy(byteOrderMark.str() + text)
                              : llvm::MemoryBuffer::getMemBuffer(text, entry.getKey()));
  }
  auto files =
      llvm::makeIntrusiveRefCnt<llvm::vfs::OverlayFileSystem>(llvm::vfs::getRealFileSystem());
  files->pushOverlay(memory);
  return files;
}

} // namespace

Snapshot::Snapshot(const SnapshotInput &input)
    : given(input), path(input.program), encoding(input.encoding) {}

llvm::json::Object Snapshot::analyse() {
  Configuration configuration(given.commandLine);
  llvm::Error fault = configuration.beginRun(path);
  if (fault)
    return llvm::json::Object{{"failure", llvm::toString(std::move(fault))}};
  request = llvm::cantFail(configuration.requestFor(path));
  request.cache = false;
  request.parse.fileSystem = overlay(given.texts, !request.parse.encoding.empty());
  compilation = std::make_unique<Compilation>(request, path, /*keepsWords=*/true);
  report = compilation->check();
  if (!report.failure.empty())
    return llvm::json::Object{{"failure", report.failure}};

  llvm::json::Array files;
  bool isIncomplete = false;
  for (const CopyUse &use : compilation->getExpansion().getCopies()) {
    isIncomplete |= use.outcome == CopyUse::Outcome::Missing;
    if (use.outcome == CopyUse::Outcome::File)
      files.push_back(pathOf(internFileName(use.file)));
  }
  return llvm::json::Object{{"diagnostics", publishedDiagnostics(*this)},
                            {"files", std::move(files)},
                            {"isIncomplete", isIncomplete}};
}

const OccurrenceIndex &Snapshot::getIndex() {
  if (!index)
    index = std::make_unique<OccurrenceIndex>(*getProgram(), compilation->getExpansion());
  return *index;
}

llvm::SmallVector<SymbolId, 2> Snapshot::symbolsAt(const SourcePoint &point) {
  llvm::SmallVector<SymbolId, 2> symbols;
  for (const Occurrence &occurrence : getIndex().at(point.file, point.line, point.column))
    if (!llvm::is_contained(symbols, occurrence.symbol))
      symbols.push_back(occurrence.symbol);
  return symbols;
}

const CopyUse *Snapshot::copyAt(const SourcePoint &point) {
  for (const CopyUse &use : compilation->getExpansion().getCopies())
    if (use.place.file == point.file && use.place.beginLine == point.line &&
        use.place.beginColumn <= point.column && point.column <= use.place.endColumn + 1u)
      return &use;
  return nullptr;
}

const CFGModule &Snapshot::getGraph() {
  if (!graph)
    graph = CFGBuilder().createModule(*getProgram());
  return *graph;
}

//===----------------------------------------------------------------------===//
// Places
//===----------------------------------------------------------------------===//

const std::string &Snapshot::pathOf(unsigned file) {
  if (file >= paths.size())
    paths.resize(file + 1);
  std::string &known = paths[file];
  const llvm::StringRef name = fileNameOf(file);
  if (known.empty() && !name.empty() && !name.starts_with("<")) {
    llvm::SmallString<128> absolute(name);
    if (!llvm::sys::fs::make_absolute(absolute))
      llvm::sys::path::remove_dots(absolute, /*remove_dot_dot=*/true);
    known = absolute.str();
  }
  return known;
}

std::string Snapshot::uriOf(unsigned file) {
  const std::string &name = pathOf(file);
  if (name.empty())
    return "";
  llvm::Expected<mlir::lsp::URIForFile> uri = mlir::lsp::URIForFile::fromFile(name);
  if (uri)
    return uri->uri().str();
  llvm::consumeError(uri.takeError());
  return "";
}

std::optional<unsigned> Snapshot::fileOf(llvm::StringRef name) {
  if (!compilation)
    return std::nullopt;
  for (const ExpandedText &text : compilation->getExpansion().getTexts())
    if (text.file && pathOf(text.file->getNumber()) == name)
      return text.file->getNumber();
  return std::nullopt;
}

std::optional<unsigned> Snapshot::fileOf(const llvm::json::Object &parameters) {
  const llvm::json::Object *document = parameters.getObject("textDocument");
  const std::optional<llvm::StringRef> text = document ? document->getString("uri") : std::nullopt;
  if (!text)
    return std::nullopt;
  llvm::Expected<mlir::lsp::URIForFile> uri = mlir::lsp::URIForFile::fromURI(*text);
  if (uri)
    return fileOf(uri->file());
  llvm::consumeError(uri.takeError());
  return std::nullopt;
}

bool Snapshot::isFixedForm(unsigned file) {
  return llvm::any_of(compilation->getExpansion().getTexts(), [&](const ExpandedText &text) {
    return text.file && text.file->getNumber() == file && text.format == SourceFormat::Fixed;
  });
}

llvm::StringRef Snapshot::lineOf(unsigned file, unsigned number) {
  return compilation->getLines().line(file, number);
}

mlir::lsp::Position Snapshot::positionOf(unsigned file, unsigned line, unsigned column) {
  const llvm::StringRef text = lineOf(file, line);
  const llvm::StringRef before = text.take_front(offsetOfColumn(text, column));
  return {static_cast<int>(line) - 1, static_cast<int>(countUnits(before, encoding))};
}

mlir::lsp::Range Snapshot::rangeOf(const SourceRange &place) {
  if (place.beginLine == 0)
    return {};
  return {positionOf(place.file, place.beginLine, place.beginColumn),
          positionOf(place.file, place.endLine, place.endColumn + 1)};
}

std::optional<llvm::json::Object> Snapshot::locationOf(const SourceRange &place) {
  std::string uri = uriOf(place.file);
  if (uri.empty())
    return std::nullopt;
  return llvm::json::Object{{"uri", std::move(uri)}, {"range", rangeOf(place)}};
}

std::optional<SourcePoint> Snapshot::pointOf(unsigned file, const llvm::json::Object &position) {
  const std::optional<std::int64_t> line = position.getInteger("line");
  const std::optional<std::int64_t> character = position.getInteger("character");
  if (!line || !character || *line < 0 || *character < 0)
    return std::nullopt;
  SourcePoint point{file, static_cast<unsigned>(*line) + 1, 1};
  const llvm::StringRef text = lineOf(file, point.line);
  point.column =
      columnOfOffset(text, offsetOfUnit(text, static_cast<unsigned>(*character), encoding));
  return point;
}

std::optional<SourcePoint> Snapshot::pointOf(const llvm::json::Object &parameters) {
  const std::optional<unsigned> file = fileOf(parameters);
  const llvm::json::Object *position = parameters.getObject("position");
  return file && position ? pointOf(*file, *position) : std::nullopt;
}

//===----------------------------------------------------------------------===//
// The process
//===----------------------------------------------------------------------===//

namespace {

/// The answer to the request \p message.
llvm::json::Value answer(Snapshot &snapshot, const llvm::json::Object &message) {
  llvm::json::Object reply{{"id", message.getInteger("id")}};
  const std::optional<llvm::StringRef> method = message.getString("method");
  const llvm::json::Object *parameters = message.getObject("params");
  const Feature *feature = method ? findFeature(*method) : nullptr;
  if (!feature || !parameters || !snapshot.getProgram()) {
    reply["result"] = nullptr;
    return reply;
  }
  llvm::Expected<llvm::json::Value> result = feature->answer(snapshot, *parameters);
  if (result)
    reply["result"] = std::move(*result);
  else
    reply["error"] = llvm::toString(result.takeError());
  return reply;
}

} // namespace

int runSnapshot(const SnapshotInput &input, int channel) {
  compile([&] {
    FrameChannel server(channel);
    Snapshot snapshot(input);
    if (!server.send(snapshot.analyse()))
      return;
    while (std::optional<llvm::json::Value> message = server.receive())
      if (const llvm::json::Object *question = message->getAsObject();
          question && !server.send(answer(snapshot, *question)))
        return;
  });
  return 0;
}

} // namespace tarka::lsp
