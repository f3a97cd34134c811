//===- WorkspaceIndex.cpp - the names of all programs ---------------------===//

#include "lsp/workspace/WorkspaceIndex.h"
#include "lsp/Uris.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSwitch.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

/// An editor shows no more, and asks again when more is typed.
constexpr std::size_t maxSymbols = 500;

llvm::StringRef textIn(const llvm::json::Object &parameters, llvm::StringRef member) {
  return parameters.getString(member).value_or("");
}

/// How well \p name fits what is typed, 0 for best: the whole name, its beginning, a part of it,
/// its letters in their order. None when it does not fit.
std::optional<unsigned> fitOf(llvm::StringRef name, llvm::StringRef query) {
  if (name.starts_with_insensitive(query))
    return name.size() == query.size() ? 0 : 1;
  if (name.contains_insensitive(query))
    return 2;
  std::size_t at = 0;
  for (char c : name)
    at += at < query.size() && llvm::toLower(c) == llvm::toLower(query[at]);
  return at == query.size() ? std::optional(3u) : std::nullopt;
}

} // namespace

//===----------------------------------------------------------------------===//
// Facts
//===----------------------------------------------------------------------===//

/// Reads what writeFacts() has written.
class WorkspaceIndex::Reader {
public:
  Reader(WorkspaceIndex &target, const llvm::json::Object &object) : index(target), facts(object) {}

  Program read() {
    Program program;
    program.isKnown = true;
    for (const llvm::json::Value &file : rows("files"))
      program.files.push_back(index.idOf(file.getAsString().value_or("")));
    files = program.files;
    for (const llvm::json::Value &name : rows("missing"))
      program.missing.push_back(name.getAsString().value_or("").str());
    for (const llvm::json::Value &row : rows("programs"))
      if (const llvm::json::Object *one = row.getAsObject()) {
        DeclaredProgram &declared = program.declared.emplace_back();
        declared.name = index.idOf(one->getString("name").value_or(""));
        declared.symbol = static_cast<int>(one->getInteger("symbol").value_or(-1));
        if (const llvm::json::Array *items = one->getArray("using"))
          for (const llvm::json::Value &item : *items)
            declared.items.push_back(item.getAsString().value_or("").str());
      }
    for (const llvm::json::Value &row : rows("symbols")) {
      const llvm::json::Array &one = *row.getAsArray();
      program.symbols.push_back({index.idOf(one[0].getAsString().value_or("")), number(one, 1),
                                 number(one, 2), placeAt(one, 3)});
    }
    for (const llvm::json::Value &row : rows("calls")) {
      const llvm::json::Array &one = *row.getAsArray();
      const std::optional<llvm::StringRef> name = one[1].getAsString();
      program.calls.push_back({number(one, 0), name ? -1 : number(one, 1),
                               index.idOf(name.value_or("")), placeAt(one, 2)});
    }
    for (const llvm::json::Value &row : rows("uses")) {
      const llvm::json::Array &one = *row.getAsArray();
      program.uses.push_back({fileAt(one, 0), static_cast<std::uint32_t>(number(one, 1)),
                              static_cast<std::uint32_t>(number(one, 2)), number(one, 3),
                              placeAt(one, 4)});
    }
    return program;
  }

private:
  const llvm::json::Array &rows(llvm::StringRef member) const {
    static const llvm::json::Array none;
    const llvm::json::Array *all = facts.getArray(member);
    return all ? *all : none;
  }
  static int number(const llvm::json::Array &row, std::size_t at) {
    return static_cast<int>(row[at].getAsInteger().value_or(-1));
  }
  NameId fileAt(const llvm::json::Array &row, std::size_t at) const {
    return files[static_cast<std::size_t>(number(row, at))];
  }
  Place placeAt(const llvm::json::Array &row, std::size_t at) const {
    return {fileAt(row, at), static_cast<std::uint32_t>(number(row, at + 1)),
            static_cast<std::uint32_t>(number(row, at + 2)),
            static_cast<std::uint32_t>(number(row, at + 3))};
  }

  WorkspaceIndex &index;
  const llvm::json::Object &facts;
  std::vector<NameId> files;
};

void WorkspaceIndex::set(const std::string &path, llvm::StringRef facts) {
  Program &program = programs[path];
  program = {};
  llvm::Expected<llvm::json::Value> value = llvm::json::parse(facts);
  if (!value)
    llvm::consumeError(value.takeError());
  else if (const llvm::json::Object *object = value->getAsObject())
    program = Reader(*this, *object).read();
  for (NameId file : program.files)
    if (nameOf(file) != path)
      copybooks.insert(nameOf(file));
}

void WorkspaceIndex::remove(const std::string &path) {
  programs.erase(path);
  copybooks.erase(path);
}

std::vector<std::string> WorkspaceIndex::programsWith(llvm::StringRef changed) const {
  const std::optional<NameId> file = findId(changed);
  const llvm::StringRef stem = llvm::sys::path::stem(changed);
  std::vector<std::string> found;
  for (const auto &[path, program] : programs) {
    const bool copies = file && llvm::is_contained(program.files, *file);
    if (copies || llvm::any_of(program.missing,
                               [&](llvm::StringRef name) { return name.equals_insensitive(stem); }))
      found.push_back(path);
  }
  return found;
}

WorkspaceIndex::NameId WorkspaceIndex::idOf(llvm::StringRef name) {
  auto [entry, isNew] = ids.try_emplace(name, static_cast<NameId>(names.size()));
  if (isNew)
    names.push_back(entry->getKey());
  return entry->getValue();
}

std::optional<WorkspaceIndex::NameId> WorkspaceIndex::findId(llvm::StringRef name) const {
  auto found = ids.find(name);
  return found == ids.end() ? std::nullopt : std::optional(found->getValue());
}

//===----------------------------------------------------------------------===//
// Questions
//===----------------------------------------------------------------------===//

bool WorkspaceIndex::answers(llvm::StringRef method) {
  return llvm::is_contained({"workspace/symbol", "callHierarchy/incomingCalls",
                             "callHierarchy/outgoingCalls", "programs", "callers", "uses",
                             "copiers"},
                            method);
}

WorkspaceIndex::Answer WorkspaceIndex::answer(llvm::StringRef method,
                                              const llvm::json::Object &parameters) const {
  using Function = Answer (WorkspaceIndex::*)(const llvm::json::Object &) const;
  const Function function = llvm::StringSwitch<Function>(method)
                                .Case("workspace/symbol", &WorkspaceIndex::symbols)
                                .Case("callHierarchy/incomingCalls", &WorkspaceIndex::incomingCalls)
                                .Case("callHierarchy/outgoingCalls", &WorkspaceIndex::outgoingCalls)
                                .Case("programs", &WorkspaceIndex::declarations)
                                .Case("callers", &WorkspaceIndex::callers)
                                .Case("uses", &WorkspaceIndex::uses)
                                .Case("copiers", &WorkspaceIndex::copiers)
                                .Default(nullptr);
  return function ? (this->*function)(parameters) : nullptr;
}

llvm::json::Object WorkspaceIndex::rangeOf(const Place &place) const {
  auto position = [&](std::uint32_t character) {
    return llvm::json::Object{{"line", place.line}, {"character", character}};
  };
  return llvm::json::Object{{"start", position(place.begin)}, {"end", position(place.end)}};
}

llvm::json::Object WorkspaceIndex::locationOf(const Place &place) const {
  return llvm::json::Object{{"uri", uriOfPath(nameOf(place.file))}, {"range", rangeOf(place)}};
}

llvm::json::Object WorkspaceIndex::itemOf(const Program &program, int number) const {
  const Symbol &symbol = program.symbols[static_cast<std::size_t>(number)];
  llvm::json::Object item = locationOf(symbol.place);
  item["selectionRange"] = rangeOf(symbol.place);
  item["name"] = nameOf(symbol.name).str();
  item["kind"] = symbol.kind;
  item["detail"] = llvm::sys::path::filename(nameOf(symbol.place.file)).str();
  return item;
}

/// Symbols of all programs and copybooks, and the copybooks themselves. What several programs copy
/// is there once.
WorkspaceIndex::Answer WorkspaceIndex::symbols(const llvm::json::Object &parameters) const {
  const llvm::StringRef query = textIn(parameters, "query");
  struct Found {
    unsigned fit;
    llvm::StringRef name;
    llvm::StringRef file;
    const Program *program;
    const Symbol *symbol; ///< null for a copybook
    auto key() const { return std::tuple(fit, name, file, symbol ? symbol->place.line : 0); }
  };
  std::vector<Found> found;
  // A fit for each name; there are many more symbols than names.
  llvm::DenseMap<NameId, std::optional<unsigned>> fits;
  llvm::DenseSet<std::pair<std::uint64_t, std::uint64_t>> known;
  for (const auto &[path, program] : programs)
    for (const Symbol &symbol : program.symbols) {
      auto [fit, isNew] = fits.try_emplace(symbol.name);
      if (isNew)
        fit->second = fitOf(nameOf(symbol.name), query);
      const Place &place = symbol.place;
      const std::pair key(std::uint64_t(place.file) << 32 | place.line,
                          std::uint64_t(symbol.name) << 32 | place.begin);
      if (const std::optional<unsigned> rank = fit->second; rank && known.insert(key).second)
        found.push_back({*rank, nameOf(symbol.name), nameOf(place.file), &program, &symbol});
    }
  for (const auto &entry : copybooks)
    if (std::optional<unsigned> fit = fitOf(llvm::sys::path::stem(entry.getKey()), query))
      found.push_back(
          {*fit, llvm::sys::path::filename(entry.getKey()), entry.getKey(), nullptr, nullptr});
  llvm::sort(found, [](const Found &left, const Found &right) { return left.key() < right.key(); });
  llvm::json::Array result;
  for (const Found &one : llvm::ArrayRef(found).take_front(maxSymbols)) {
    const Place place =
        one.symbol ? one.symbol->place : Place{findId(one.file).value_or(0), 0, 0, 0};
    llvm::json::Object object{{"name", one.name.str()}, {"location", locationOf(place)}};
    object["kind"] = one.symbol ? one.symbol->kind : static_cast<int>(mlir::lsp::SymbolKind::File);
    if (one.symbol && one.symbol->program >= 0)
      object["containerName"] =
          nameOf(one.program->symbols[static_cast<std::size_t>(one.symbol->program)].name).str();
    result.push_back(std::move(object));
  }
  return result;
}

WorkspaceIndex::Answer WorkspaceIndex::declarations(const llvm::json::Object &parameters) const {
  llvm::json::Array result;
  const bool areAll = !parameters.get("name");
  const std::optional<NameId> name = findId(textIn(parameters, "name"));
  if (name || areAll)
    for (const auto &[path, program] : programs)
      for (const DeclaredProgram &declared : program.declared)
        if ((areAll || declared.name == *name) && declared.symbol >= 0)
          result.push_back(llvm::json::Object{
              {"item", itemOf(program, declared.symbol)},
              {"location",
               locationOf(program.symbols[static_cast<std::size_t>(declared.symbol)].place)},
              {"using", llvm::json::Array(declared.items)}});
  return result;
}

/// Adds the calls of \p program that are meant, those of one procedure in one element: the callers,
/// or what is called.
void WorkspaceIndex::addCalls(const Program &program,
                              llvm::function_ref<bool(const Call &)> isMeant, bool byCaller,
                              llvm::json::Array &calls) const {
  llvm::MapVector<int, llvm::json::Array> ranges;
  for (const Call &call : program.calls)
    if (isMeant(call))
      if (const int symbol = byCaller ? call.caller : call.called; symbol >= 0)
        ranges[symbol].push_back(rangeOf(call.place));
  for (auto &[symbol, places] : ranges)
    calls.push_back(llvm::json::Object{{byCaller ? "from" : "to", itemOf(program, symbol)},
                                       {"fromRanges", std::move(places)}});
}

void WorkspaceIndex::addCallers(NameId name, llvm::StringRef except,
                                llvm::json::Array &calls) const {
  for (const auto &[path, program] : programs)
    if (path != except)
      addCalls(
          program, [&](const Call &call) { return call.called < 0 && call.name == name; },
          /*byCaller=*/true, calls);
}

WorkspaceIndex::Answer WorkspaceIndex::callers(const llvm::json::Object &parameters) const {
  llvm::json::Array calls;
  if (std::optional<NameId> name = findId(textIn(parameters, "name")))
    addCallers(*name, textIn(parameters, "except"), calls);
  return calls;
}

/// The places are numbers in one list: a JSON object for each would take kilobytes.
WorkspaceIndex::Answer WorkspaceIndex::uses(const llvm::json::Object &parameters) const {
  llvm::json::Array paths, places;
  llvm::DenseMap<NameId, std::size_t> numbers;
  const std::optional<NameId> file = findId(textIn(parameters, "path"));
  const std::int64_t line = parameters.getInteger("line").value_or(-1);
  const std::int64_t character = parameters.getInteger("character").value_or(-1);
  for (const auto &[path, program] : programs)
    if (file && path != textIn(parameters, "except"))
      for (const UseOfCopied &use : program.uses) {
        if (use.file != *file || use.line != line || use.character != character)
          continue;
        auto [number, isNew] = numbers.try_emplace(use.place.file, paths.size());
        if (isNew)
          paths.push_back(nameOf(use.place.file).str());
        places.push_back(static_cast<std::int64_t>(number->second));
        for (std::uint32_t value : {use.place.line, use.place.begin, use.place.end})
          places.push_back(value);
      }
  return llvm::json::Object{{"paths", std::move(paths)}, {"places", std::move(places)}};
}

WorkspaceIndex::Answer WorkspaceIndex::copiers(const llvm::json::Object &parameters) const {
  std::vector<std::string> copying, unknown;
  const llvm::json::Array *paths = parameters.getArray("paths");
  for (const auto &[path, program] : programs) {
    bool copies = false, mayCopy = !program.isKnown;
    for (const llvm::json::Value &value : paths ? *paths : llvm::json::Array()) {
      const llvm::StringRef file = value.getAsString().value_or("");
      const std::optional<NameId> id = findId(file);
      copies |= id && llvm::is_contained(program.files, *id);
      mayCopy |= llvm::any_of(program.missing, [&](llvm::StringRef name) {
        return name.equals_insensitive(llvm::sys::path::stem(file));
      });
    }
    if (copies)
      copying.push_back(path);
    else if (mayCopy)
      unknown.push_back(path);
  }
  llvm::json::Array outside;
  for (const llvm::json::Value &value : paths ? *paths : llvm::json::Array())
    if (const llvm::StringRef file = value.getAsString().value_or("");
        llvm::none_of(folders, [&](llvm::StringRef folder) {
          return file.starts_with((folder.rtrim('/') + "/").str());
        }))
      outside.push_back(file);
  return llvm::json::Object{{"programs", llvm::json::Array(copying)},
                            {"outside", std::move(outside)},
                            {"unknown", llvm::json::Array(unknown)}};
}

/// Calls \p take with the symbol of an item of a call hierarchy in each program that has it.
void WorkspaceIndex::forItem(const llvm::json::Object &parameters,
                             llvm::function_ref<void(const Program &, int symbol)> take) const {
  const llvm::json::Object *item = parameters.getObject("item");
  const llvm::json::Object *range = item ? item->getObject("selectionRange") : nullptr;
  const llvm::json::Object *start = range ? range->getObject("start") : nullptr;
  if (!start)
    return;
  const std::optional<NameId> file = findId(pathOfUri(textIn(*item, "uri")).value_or(""));
  const std::int64_t line = start->getInteger("line").value_or(-1);
  const std::int64_t character = start->getInteger("character").value_or(-1);
  for (const auto &[path, program] : programs)
    for (const auto &[number, symbol] : llvm::enumerate(program.symbols))
      if (file && symbol.place.file == *file && symbol.place.line == line &&
          symbol.place.begin == character)
        take(program, static_cast<int>(number));
}

WorkspaceIndex::Answer WorkspaceIndex::incomingCalls(const llvm::json::Object &parameters) const {
  llvm::json::Array calls;
  forItem(parameters, [&](const Program &program, int symbol) {
    addCalls(
        program, [&](const Call &call) { return call.called == symbol; }, /*byCaller=*/true, calls);
    for (const DeclaredProgram &declared : program.declared)
      if (declared.symbol == symbol)
        addCallers(declared.name, "", calls);
  });
  return calls;
}

WorkspaceIndex::Answer WorkspaceIndex::outgoingCalls(const llvm::json::Object &parameters) const {
  llvm::json::Array calls;
  forItem(parameters, [&](const Program &program, int symbol) {
    addCalls(
        program, [&](const Call &call) { return call.caller == symbol; }, /*byCaller=*/false,
        calls);
    llvm::MapVector<NameId, llvm::json::Array> ranges;
    for (const Call &call : program.calls)
      if (call.caller == symbol && call.called < 0)
        ranges[call.name].push_back(rangeOf(call.place));
    for (auto &[name, places] : ranges)
      for (const auto &[path, other] : programs)
        for (const DeclaredProgram &declared : other.declared)
          if (declared.name == name && declared.symbol >= 0)
            calls.push_back(llvm::json::Object{{"to", itemOf(other, declared.symbol)},
                                               {"fromRanges", llvm::json::Array(places)}});
  });
  return calls;
}

} // namespace tarka::lsp
