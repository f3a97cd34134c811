//===- Snapshot.cpp - one version of a program, and what is known ---------===//

#include "lsp/Snapshot.h"
#include "Analyzer/CFGBuilder.h"
#include "Configuration.h"
#include "Parse/SourceFile.h"
#include "Report/Excerpt.h"
#include "lsp/Features.h"
#include "lsp/Frames.h"
#include "lsp/PublishedDiagnostics.h"
#include "lsp/Uris.h"
#include "lsp/workspace/WorkspaceProcess.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/VirtualFileSystem.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka::lsp {

namespace {

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
  return llvm::json::Object{{"files", std::move(files)}, {"isIncomplete", isIncomplete}};
}

Reliability Snapshot::getReliability() {
  Reliability result;
  if (!getProgram())
    return result;
  result.syntaxErrors = compilation->getFrontEnd().getErrorCount();
  // Those of text that has changed since are not in the text any more.
  result.names = llvm::count_if(getIndex().getOccurrences(), [&](const Occurrence &occurrence) {
    return !isEdited(occurrence.getPlace());
  });
  return result;
}

std::optional<llvm::json::Value> Snapshot::askWorkspace(llvm::StringRef method,
                                                        llvm::json::Object parameters,
                                                        std::chrono::milliseconds patience) const {
  return lsp::askWorkspace(given.workspace, method, std::move(parameters), patience);
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
  return name.empty() ? "" : uriOfPath(name);
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
  const std::optional<std::string> document =
      parameters.getObject("textDocument") ? documentOf(parameters) : std::nullopt;
  return document ? fileOf(*document) : std::nullopt;
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

std::pair<std::size_t, std::size_t> Snapshot::extentOf(ChangedText &text,
                                                       const SourceRange &place) {
  auto offset = [&](unsigned line, unsigned column) {
    const std::size_t before = offsetOfColumn(text.analysed.lineOf(line), column);
    return text.analysed.offsetOf(std::int64_t(line) - 1, static_cast<std::int64_t>(before),
                                  PositionEncoding::Utf8);
  };
  return {offset(place.beginLine, place.beginColumn), offset(place.endLine, place.endColumn + 1)};
}

mlir::lsp::Range Snapshot::rangeOf(const SourceRange &place) {
  if (place.beginLine == 0)
    return {};
  if (ChangedText *text = changedText(place.file)) {
    const auto [begin, end] = extentOf(*text, place);
    const auto [laterBegin, laterEnd] = text->edits.toLater(begin, end);
    return {text->present.positionOf(laterBegin, encoding),
            text->present.positionOf(laterEnd, encoding)};
  }
  return {positionOf(place.file, place.beginLine, place.beginColumn),
          positionOf(place.file, place.endLine, place.endColumn + 1)};
}

bool Snapshot::isEdited(const SourceRange &place) {
  ChangedText *text = changedText(place.file);
  if (!text)
    return false;
  const auto [begin, end] = extentOf(*text, place);
  return text->edits.isEdited(begin, end);
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
  if (ChangedText *text = changedText(file)) {
    const std::optional<std::size_t> offset =
        text->edits.toEarlier(text->present.offsetOf(*line, *character, encoding));
    if (!offset)
      return std::nullopt;
    const mlir::lsp::Position place = text->analysed.positionOf(*offset, PositionEncoding::Utf8);
    const auto number = static_cast<unsigned>(place.line) + 1;
    return SourcePoint{
        file, number,
        columnOfOffset(lineOf(file, number), static_cast<std::size_t>(place.character))};
  }
  return pointIn(file, *line, *character);
}

/// The point of a position in the text as it is in the editor.
SourcePoint Snapshot::pointIn(unsigned file, std::int64_t line, std::int64_t character) {
  SourcePoint point{file, static_cast<unsigned>(line) + 1, 1};
  const llvm::StringRef text = presentLineOf(file, point.line);
  point.column =
      columnOfOffset(text, offsetOfUnit(text, static_cast<unsigned>(character), encoding));
  return point;
}

std::optional<SourcePoint> Snapshot::pointOf(const llvm::json::Object &parameters) {
  const std::optional<unsigned> file = fileOf(parameters);
  const llvm::json::Object *position = parameters.getObject("position");
  return file && position ? pointOf(*file, *position) : std::nullopt;
}

//===----------------------------------------------------------------------===//
// Changed texts
//===----------------------------------------------------------------------===//

void Snapshot::change(const llvm::json::Object &parameters) {
  const std::optional<std::string> document = documentOf(parameters);
  const llvm::json::Array *changes = parameters.getArray("contentChanges");
  if (!document || !changes)
    return;
  auto text = given.texts.find(*document);
  if (text == given.texts.end())
    return;
  auto found = changed.find(*document);
  if (found == changed.end()) {
    const std::string &analysed = *text->getValue();
    found = changed.try_emplace(*document, ChangedText{{analysed, 0}, {analysed, 0}, {}}).first;
  }
  ChangedText &now = found->getValue();
  now.present.change(*changes, 0, encoding, &now.edits);
}

Snapshot::ChangedText *Snapshot::changedText(unsigned file) {
  if (changed.empty())
    return nullptr;
  auto found = changed.find(pathOf(file));
  return found == changed.end() ? nullptr : &found->getValue();
}

std::optional<SourcePoint> Snapshot::presentPointOf(const llvm::json::Object &parameters) {
  const std::optional<unsigned> file = fileOf(parameters);
  const llvm::json::Object *position = parameters.getObject("position");
  const std::optional<std::int64_t> line = position ? position->getInteger("line") : std::nullopt;
  const std::optional<std::int64_t> character =
      position ? position->getInteger("character") : std::nullopt;
  if (!file || !line || !character || *line < 0 || *character < 0)
    return std::nullopt;
  return pointIn(*file, *line, *character);
}

llvm::StringRef Snapshot::presentLineOf(unsigned file, unsigned number) {
  ChangedText *text = changedText(file);
  return text ? text->present.lineOf(number) : lineOf(file, number);
}

mlir::lsp::Range Snapshot::presentRangeBefore(const SourcePoint &end, unsigned columns) {
  const llvm::StringRef text = presentLineOf(end.file, end.line);
  auto position = [&](unsigned column) {
    const llvm::StringRef before = text.take_front(offsetOfColumn(text, column));
    return mlir::lsp::Position(static_cast<int>(end.line) - 1,
                               static_cast<int>(countUnits(before, encoding)));
  };
  return {position(end.column - columns), position(end.column)};
}

//===----------------------------------------------------------------------===//
// The process
//===----------------------------------------------------------------------===//

namespace {

/// Sends what the analysis has found.
bool report(Snapshot &snapshot, const FrameChannel &server) {
  const llvm::json::Object facts = snapshot.analyse();
  std::string text;
  llvm::raw_string_ostream os(text);
  if (snapshot.getProgram())
    publishDiagnostics(snapshot, [&](llvm::StringRef path, const llvm::json::Object &diagnostic) {
      text.clear();
      // Several programs find the same in a copybook: one of the diagnostics is enough.
      const llvm::json::Value *code = diagnostic.get("code");
      os << path << '\n'
         << *diagnostic.get("range") << (code ? *code : nullptr) << '\n'
         << llvm::json::Value(llvm::json::Object(diagnostic));
      server.send(Frame::Diagnostic, text);
    });
  text.clear();
  os << llvm::json::Value(llvm::json::Object(facts));
  if (!server.send(Frame::Analysis, text))
    return false;
  const Reliability reliability = snapshot.getReliability();
  text.clear();
  os << llvm::json::Value(
      llvm::json::Object{{"syntaxErrors", reliability.syntaxErrors}, {"names", reliability.names}});
  return server.send(Frame::Reliability, text);
}

bool answer(Snapshot &snapshot, const llvm::json::Object &question, std::uint32_t number,
            const FrameChannel &server) {
  const std::optional<llvm::StringRef> method = question.getString("method");
  const llvm::json::Object *parameters = question.getObject("params");
  const Feature *feature = method ? findFeature(*method) : nullptr;
  // A later snapshot, which has understood less of its text, knows so many names.
  const std::optional<std::int64_t> names = question.getInteger("names");
  if (!feature || !parameters || !snapshot.getProgram() ||
      (names && snapshot.getReliability().names <= *names))
    return server.send(Frame::EmptyAnswer, "null", number);
  std::string text;
  llvm::raw_string_ostream os(text);
  llvm::json::OStream out(os);
  if (llvm::Error refusal = feature->handler.answer(snapshot, *parameters, out)) {
    out.value(nullptr); // a stream wants a value
    return server.send(Frame::Refusal, llvm::toString(std::move(refusal)), number);
  }
  const bool isEmpty = text == "null" || text == "[]";
  return server.send(isEmpty ? Frame::EmptyAnswer : Frame::Answer, text, number);
}

} // namespace

int runSnapshot(const SnapshotInput &input, int channel) {
  compile([&] {
    FrameChannel server(channel);
    Snapshot snapshot(input);
    bool isConnected = report(snapshot, server);
    while (isConnected) {
      const std::optional<Frame> message = server.receive();
      if (!message)
        return;
      llvm::Expected<llvm::json::Value> value = llvm::json::parse(message->text);
      if (!value || !value->getAsObject()) {
        llvm::consumeError(value.takeError());
        return;
      }
      if (message->kind == Frame::Change)
        snapshot.change(*value->getAsObject());
      else
        isConnected = answer(snapshot, *value->getAsObject(), message->number, server);
    }
  });
  return 0;
}

} // namespace tarka::lsp
