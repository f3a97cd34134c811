//===- CopiedNames.cpp - renaming what several programs copy --------------===//

#include "lsp/features/CopiedNames.h"
#include "AST/Storage.h"
#include "ProgramRun.h"
#include "Report/Fixes.h"
#include "Workers/WorkerPool.h"
#include "lsp/Uris.h"
#include "lsp/features/Handlers.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Path.h"
#include "llvm/Support/raw_ostream.h"
#include "llvm/Support/xxhash.h"
#include <map>
#include <set>

namespace tarka::lsp {

namespace {

/// More programs than this take longer than anybody waits.
constexpr std::size_t maxPrograms = 300;
constexpr std::chrono::seconds patience(30);

/// Where a name stands: path, line and column.
using Place = std::tuple<std::string, unsigned, unsigned>;

/// A name at a place of one program.
struct CopiedOccurrence {
  Place place;
  unsigned endColumn;
  std::string written; ///< what stands in the file, which REPLACING may turn into the name
};

/// Something of one program that has an occurrence at one of the places.
struct CopiedSymbol {
  std::string program;
  std::string name; ///< in upper case
  std::string newName;
  std::vector<CopiedOccurrence> occurrences;
};

/// What the analysis of one program gives.
struct ProgramNames {
  std::vector<CopiedSymbol> symbols;
  /// Equal for two analyses in which every name of the program has the same meaning, and that
  /// report the same.
  std::string meaning;
  std::map<std::string, bool> isFixedForm;
};

/// How REPLACING makes a name of what is written: written = prefix + from + suffix, name = prefix +
/// to + suffix.
struct Replacement {
  llvm::StringRef prefix, from, to, suffix;

  Replacement(llvm::StringRef written, llvm::StringRef name) {
    if (written.equals_insensitive(name)) {
      suffix = written;
      return;
    }
    std::size_t size = 0;
    const std::size_t most = std::min(written.size(), name.size());
    while (size < most && llvm::toLower(written[written.size() - 1 - size]) ==
                              llvm::toLower(name[name.size() - 1 - size]))
      ++size;
    suffix = written.take_back(size);
    written = written.drop_back(size);
    name = name.drop_back(size);
    size = 0;
    while (size < std::min(written.size(), name.size()) &&
           llvm::toLower(written[size]) == llvm::toLower(name[size]))
      ++size;
    prefix = written.take_front(size);
    from = written.drop_front(size);
    to = name.drop_front(size);
  }

  bool isNone() const { return from.empty() && to.empty(); }
  bool isWhole() const { return prefix.empty() && suffix.empty(); }

  /// \p text with \p kept replaced by \p other, where \p text is one that this replacement applies
  /// to: it has \p kept behind the prefix or before the suffix.
  std::optional<std::string> apply(llvm::StringRef text, llvm::StringRef kept,
                                   llvm::StringRef other) const {
    auto startsWith = [&](const std::string &with) {
      return llvm::StringRef(text).starts_with_insensitive(with);
    };
    if (!suffix.empty() && startsWith((prefix + kept).str()))
      return (text.take_front(prefix.size()) + other + text.drop_front(prefix.size() + kept.size()))
          .str();
    if (!prefix.empty() && text.ends_with_insensitive((kept + suffix).str())) {
      const llvm::StringRef before = text.drop_back(kept.size() + suffix.size());
      return (before + other + text.take_back(suffix.size())).str();
    }
    return std::nullopt;
  }
};

std::string inWords(const Place &place) {
  return llvm::sys::path::filename(std::get<0>(place)).str() + ":" +
         std::to_string(std::get<1>(place));
}

class CopiedRename {
public:
  CopiedRename(Snapshot &of, SymbolId symbol, llvm::StringRef newName)
      : snapshot(of), asked(of.getIndex().getSymbol(symbol)), name(newName) {
    for (const Occurrence &occurrence : of.getIndex().relatedOccurrences(symbol))
      addPlace(placeOf(of, occurrence));
  }

  llvm::Expected<FileEdits> make() {
    // A procedure of one copybook can name an item of another one, and so on.
    std::size_t known = 0;
    while (known != places.size()) {
      known = places.size();
      if (llvm::Error fault = findPrograms())
        return fault;
      if (llvm::Error fault = analyse(snapshot.getInput().texts, programs))
        return fault;
      for (const auto &[program, names] : programs)
        for (const CopiedSymbol &symbol : names.symbols)
          for (const CopiedOccurrence &occurrence : symbol.occurrences)
            addPlace(occurrence.place);
    }
    if (llvm::Error fault = nameAll())
      return fault;
    if (llvm::Error fault = edit())
      return fault;
    if (llvm::Error fault = verify())
      return fault;
    return changes();
  }

private:
  using Programs = std::map<std::string, ProgramNames>;

  static Place placeOf(Snapshot &of, const Occurrence &occurrence) {
    return {of.pathOf(occurrence.file), occurrence.line, occurrence.column};
  }
  /// Only what is in a copybook is common to several programs.
  void addPlace(const Place &place) {
    if (const std::string &path = std::get<0>(place);
        path != snapshot.getPath() && !programs.count(path)) {
      places.insert(place);
      copybooks.insert(path);
    }
  }

  llvm::Error findPrograms();
  llvm::Error analyse(const OpenTexts &texts, Programs &found) const;
  void writeNames(const std::string &program, const OpenTexts &texts,
                  llvm::raw_ostream &answer) const;
  static ProgramNames readNames(const std::string &program, const llvm::json::Object &object);
  llvm::Error nameAll();
  llvm::Error nameOthers(CopiedSymbol &symbol);
  llvm::Error edit();
  llvm::Error verify();
  FileEdits changes() const;

  Snapshot &snapshot;
  const Symbol &asked;
  std::string name;
  /// The places in copybooks that are to be changed, and the copybooks.
  std::set<Place> places;
  std::set<std::string> copybooks;
  Programs programs;
  /// What is to stand at each place.
  std::map<Place, std::string> written;
  std::map<Place, std::string> newlyWritten;
  std::map<std::string, std::string> newTexts;
};

/// The programs that copy what is to be changed, which must be all that can.
llvm::Error CopiedRename::findPrograms() {
  llvm::json::Array paths(std::vector<std::string>(copybooks.begin(), copybooks.end()));
  const std::optional<llvm::json::Value> answer =
      snapshot.askWorkspace("copiers", llvm::json::Object{{"paths", std::move(paths)}}, patience);
  const llvm::json::Object *found = answer ? answer->getAsObject() : nullptr;
  const std::string what = *asked.spelling + " stands in the copybook " + inWords(*places.begin());
  if (!found)
    return refuse(what + ", and without a folder in the editor it is not known who copies it");
  if (!found->getBoolean("isComplete").value_or(false))
    return refuse(what + ", and the programs of the folders are still being read");
  auto first = [&](llvm::StringRef member) {
    const llvm::json::Array *all = found->getArray(member);
    return all && !all->empty() ? all->front().getAsString().value_or("") : "";
  };
  if (!first("outside").empty())
    return refuse(what + ", and other programs than those of the editor's folders can copy " +
                  llvm::sys::path::filename(first("outside")));
  if (!first("unknown").empty())
    return refuse(what + ", and it is not known whether " +
                  llvm::sys::path::filename(first("unknown")) + " copies it");
  programs.clear();
  programs[snapshot.getPath()];
  for (const llvm::json::Value &path : *found->getArray("programs"))
    programs[path.getAsString().value_or("").str()];
  if (programs.size() > maxPrograms)
    return refuse(what + ", which " + llvm::Twine(programs.size()) + " programs copy: too many");
  return llvm::Error::success();
}

/// Analyses the programs that are the keys of \p found, each in a worker.
llvm::Error CopiedRename::analyse(const OpenTexts &texts, Programs &found) const {
  WorkerPool pool({.jobs = 0,
                   .maxSeconds = static_cast<double>(patience.count()),
                   .reservedBytes = compilationStack,
                   .surround = [](llvm::function_ref<void()> work) { compile(work); }},
                  [&](const std::string &program, llvm::raw_ostream &answer) {
                    // At first that of this process.
                    releaseStorage();
                    writeNames(program, texts, answer);
                    return 0;
                  });
  auto next = found.begin();
  while (next != found.end() || !pool.isEmpty()) {
    for (; next != found.end() && pool.hasRoom(); ++next)
      pool.start(next->first);
    pool.wait();
    while (std::optional<WorkerResult> result = pool.take()) {
      llvm::Expected<llvm::json::Value> names =
          llvm::json::parse(result->kind == WorkerResult::Done ? result->answer : "");
      const llvm::json::Object *object = names ? names->getAsObject() : nullptr;
      if (!names)
        llvm::consumeError(names.takeError());
      if (!object)
        return refuse(llvm::sys::path::filename(result->name) + " cannot be analysed");
      found[result->name] = readNames(result->name, *object);
    }
  }
  return llvm::Error::success();
}

/// What one program makes of the places: its names there with all places of each.
void CopiedRename::writeNames(const std::string &program, const OpenTexts &texts,
                              llvm::raw_ostream &answer) const {
  const SnapshotInput &own = snapshot.getInput();
  const SnapshotInput input{own.commandLine, program, texts, own.encoding, ""};
  Snapshot other(input);
  other.analyse();
  if (!other.getProgram())
    return;
  const OccurrenceIndex &index = other.getIndex();
  std::string meaning;
  llvm::raw_string_ostream description(meaning);
  std::set<SymbolId> meant;
  for (const Occurrence &occurrence : index.getOccurrences()) {
    description << occurrence.file << ' ' << occurrence.line << ' ' << occurrence.symbol << ' '
                << static_cast<int>(occurrence.use) << '\n';
    if (places.count(placeOf(other, occurrence)))
      meant.insert(occurrence.symbol);
  }
  for (const Diagnostic &diagnostic : other.getDiagnostics())
    description << diagnostic.number << ' ' << diagnostic.place.beginLine << '\n';

  llvm::json::OStream out(answer);
  out.object([&] {
    out.attribute("meaning", llvm::utohexstr(llvm::xxh3_64bits(meaning)));
    std::map<std::string, bool> forms;
    out.attributeArray("symbols", [&] {
      for (SymbolId id : meant)
        out.object([&] {
          out.attribute("name", *index.getSymbol(id).name);
          out.attributeArray("occurrences", [&] {
            for (const Occurrence &occurrence : index.occurrencesOf(id)) {
              const llvm::StringRef line = other.lineOf(occurrence.file, occurrence.line);
              const bool isOnOneLine = occurrence.line == occurrence.endLine;
              forms[other.pathOf(occurrence.file)] = other.isFixedForm(occurrence.file);
              out.array([&] {
                out.value(other.pathOf(occurrence.file));
                out.value(occurrence.line);
                out.value(occurrence.column);
                out.value(occurrence.endColumn);
                out.value(isOnOneLine ? sliceColumns(line, occurrence.column, occurrence.endColumn)
                                      : llvm::StringRef());
              });
            }
          });
        });
    });
    out.attributeObject("forms", [&] {
      for (const auto &[path, isFixed] : forms)
        out.attribute(path, isFixed);
    });
  });
}

ProgramNames CopiedRename::readNames(const std::string &program, const llvm::json::Object &object) {
  ProgramNames names;
  names.meaning = object.getString("meaning").value_or("").str();
  for (const llvm::json::Value &value : *object.getArray("symbols")) {
    const llvm::json::Object &one = *value.getAsObject();
    CopiedSymbol &symbol = names.symbols.emplace_back();
    symbol.program = program;
    symbol.name = one.getString("name").value_or("").str();
    for (const llvm::json::Value &row : *one.getArray("occurrences")) {
      const llvm::json::Array &fields = *row.getAsArray();
      auto number = [&](std::size_t at) {
        return static_cast<unsigned>(fields[at].getAsInteger().value_or(0));
      };
      symbol.occurrences.push_back(
          {{fields[0].getAsString().value_or("").str(), number(1), number(2)},
           number(3),
           fields[4].getAsString().value_or("").str()});
    }
  }
  for (const auto &[path, isFixed] : *object.getObject("forms"))
    names.isFixedForm[path.str()] = isFixed.getAsBoolean().value_or(true);
  return names;
}

/// Gives every symbol its new name, beginning with the one that was asked for.
llvm::Error CopiedRename::nameAll() {
  std::vector<CopiedSymbol *> all;
  for (auto &[program, names] : programs)
    for (CopiedSymbol &symbol : names.symbols)
      all.push_back(&symbol);
  const Place declaration{snapshot.pathOf(asked.place.file), asked.place.beginLine,
                          asked.place.beginColumn};
  for (CopiedSymbol *symbol : all)
    if (symbol->program == snapshot.getPath() && symbol->name == *asked.name &&
        llvm::any_of(symbol->occurrences, [&](const CopiedOccurrence &occurrence) {
          return occurrence.place == declaration;
        }))
      symbol->newName = name;
  // Each symbol that has a name gives one to what is written at its places, and this to the others
  // there.
  bool isChanged = true;
  while (isChanged) {
    isChanged = false;
    for (CopiedSymbol *symbol : all) {
      for (const CopiedOccurrence &occurrence : symbol->occurrences) {
        auto here = newlyWritten.find(occurrence.place);
        const Replacement replacement(occurrence.written, symbol->name);
        if (!symbol->newName.empty() || here == newlyWritten.end())
          continue;
        const std::optional<std::string> made =
            replacement.isNone()
                ? here->second
                : replacement.apply(here->second, replacement.from, replacement.to);
        if (!made)
          return refuse("REPLACING makes " + symbol->name + " of it in " +
                        llvm::sys::path::filename(symbol->program) +
                        ", and would make something else of the new name");
        symbol->newName = *made;
      }
      if (symbol->newName.empty())
        continue;
      const std::size_t before = newlyWritten.size();
      if (llvm::Error fault = nameOthers(*symbol))
        return fault;
      isChanged |= newlyWritten.size() != before;
    }
  }
  return llvm::Error::success();
}

/// Says what is to stand at the places of \p symbol, which has its new name.
llvm::Error CopiedRename::nameOthers(CopiedSymbol &symbol) {
  for (const CopiedOccurrence &occurrence : symbol.occurrences) {
    if (occurrence.written.empty())
      return refuse(symbol.name + " is continued on another line at " + inWords(occurrence.place));
    const Replacement replacement(occurrence.written, symbol.name);
    if (replacement.isWhole())
      return refuse(symbol.name + " is not written as such at " + inWords(occurrence.place) +
                    ", where REPLACING or REPLACE makes it");
    const std::optional<std::string> text =
        replacement.isNone() ? symbol.newName
                             : replacement.apply(symbol.newName, replacement.to, replacement.from);
    if (!text)
      return refuse("REPLACING makes the part " + replacement.to + " of " + symbol.name + " at " +
                    inWords(occurrence.place) + ", so that the new name must have it too");
    auto [known, isNew] = newlyWritten.try_emplace(occurrence.place, *text);
    written.try_emplace(occurrence.place, occurrence.written);
    if (!isNew && known->second != *text)
      return refuse(inWords(occurrence.place) + " would need two names");
  }
  return llvm::Error::success();
}

llvm::Error CopiedRename::edit() {
  std::map<std::string, bool> forms;
  for (const auto &[program, names] : programs)
    forms.insert(names.isFixedForm.begin(), names.isFixedForm.end());
  std::map<std::string, std::unique_ptr<FixedSource>> sources;
  SourceLines &lines = snapshot.getCompilation().getLines();
  for (const auto &[place, text] : newlyWritten) {
    const auto &[path, line, column] = place;
    std::unique_ptr<FixedSource> &source = sources[path];
    const unsigned file = internFileName(path);
    if (!source)
      source = std::make_unique<FixedSource>(lines.textOf(file), forms[path]);
    const std::string &old = written[place];
    const TextEdit change{
        {file, line, column, line, column + static_cast<unsigned>(old.size()) - 1}, old, text};
    if (!source->apply(change))
      return refuse("the line " + inWords(place) + " would become too long");
  }
  for (const auto &[path, source] : sources)
    newTexts[path] = source->getText();
  return llvm::Error::success();
}

/// Analyses all programs with the new texts.
llvm::Error CopiedRename::verify() {
  OpenTexts texts = snapshot.getInput().texts;
  for (const auto &[path, text] : newTexts)
    texts[path] = &text;
  Programs after;
  for (const auto &[program, names] : programs)
    after[program];
  if (llvm::Error fault = analyse(texts, after))
    return fault;
  for (const auto &[program, names] : programs)
    if (names.meaning != after[program].meaning)
      return refuse(llvm::sys::path::filename(program) +
                    " would mean something else with the new name, or have errors");
  return llvm::Error::success();
}

FileEdits CopiedRename::changes() const {
  FileEdits result;
  std::map<std::string, llvm::SmallVector<unsigned>> lines;
  for (const auto &[place, text] : newlyWritten)
    if (lines[std::get<0>(place)].empty() || lines[std::get<0>(place)].back() != std::get<1>(place))
      lines[std::get<0>(place)].push_back(std::get<1>(place));
  for (const auto &[path, numbers] : lines)
    result[uriOfPath(path)] =
        lineEdits(snapshot.getCompilation().getLines().textOf(internFileName(path)),
                  newTexts.at(path), numbers, snapshot.getEncoding());
  return result;
}

} // namespace

llvm::Expected<FileEdits> renameCopied(Snapshot &snapshot, SymbolId symbol,
                                       llvm::StringRef newName) {
  return CopiedRename(snapshot, symbol, newName).make();
}

std::vector<LineEdit> lineEdits(llvm::StringRef before, llvm::StringRef after,
                                llvm::ArrayRef<unsigned> numbers, PositionEncoding encoding) {
  llvm::SmallVector<llvm::StringRef> old, changed;
  before.split(old, '\n');
  after.split(changed, '\n');
  std::vector<LineEdit> edits;
  for (unsigned number : numbers) {
    const int line = static_cast<int>(number) - 1;
    const llvm::StringRef text = old[number - 1].rtrim('\r');
    const mlir::lsp::Range whole(
        mlir::lsp::Position(line, 0),
        mlir::lsp::Position(line, static_cast<int>(countUnits(text, encoding))));
    edits.push_back({whole, changed[number - 1].rtrim('\r').str()});
  }
  return edits;
}

} // namespace tarka::lsp
