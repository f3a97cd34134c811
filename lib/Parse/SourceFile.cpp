//===- SourceFile.cpp - source files and where they are found -------------===//

#include "Parse/SourceFile.h"
#include "AST/Storage.h"
#include "Parse/BmsMacros.h"
#include "Parse/CharacterTable.h"
#include "Parse/SourceDamage.h"
#include "Parse/TextChunk.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Path.h"
#include <bit>

namespace tarka {

namespace {

/// The offset of the first byte that shows that a file is not text; npos for text. A stray control
/// byte makes no binary file: one in sixteen, near the beginning, does.
size_t findBinary(llvm::StringRef text) {
  size_t first = llvm::StringRef::npos;
  size_t count = 0;
  llvm::StringRef sample = text.take_front(4096);
  for (size_t i = 0; i < sample.size(); ++i) {
    while (sample.size() - i > TextChunk::size && !TextChunk(sample.data() + i).findUnusual())
      i += TextChunk::size;
    unsigned char byte = sample[i];
    if (byte >= 0x20 || byte == '\n' || byte == '\r' || isBlank(sample[i]))
      continue;
    if (++count == 1)
      first = i;
  }
  return count * 16 > sample.size() ? first : llvm::StringRef::npos;
}

bool isSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

// Those of StringRef make a set of the characters at each call.
llvm::StringRef trimStart(llvm::StringRef text) {
  return text.drop_while(isSpace);
}
llvm::StringRef trimEnd(llvm::StringRef text) {
  while (!text.empty() && isSpace(text.back()))
    text = text.drop_back();
  return text;
}

/// Where the first line of \p text ends: at a LF or CR, or the end of the text.
size_t findLineEnd(llvm::StringRef text) {
  auto isEnd = [](char c) { return c == '\n' || c == '\r'; };
  size_t end = 0;
  while (text.size() - end >= TextChunk::size) {
    const unsigned unusual = TextChunk(text.data() + end).findUnusual();
    end += unusual ? std::countr_zero(unusual) : TextChunk::size;
    if (unusual && isEnd(text[end]))
      return end;
    end += unusual ? 1 : 0;
  }
  while (end < text.size() && !isEnd(text[end]))
    ++end;
  return end;
}

/// Looks at lines for what only one of the two forms has.
class FormatDetector {
public:
  /// \p line goes up to the line's end.
  void look(llvm::StringRef line) {
    if (beginsPlain(line)) {
      ++lines;
      return;
    }
    line = trimEnd(line.take_front(1000));
    if (isPlain(line)) {
      ++lines;
      return;
    }
    llvm::StringRef text = trimStart(line);
    if (text.empty() || isOptions(text))
      return;
    ++lines;
    size_t indent = line.size() - text.size();
    if (text.starts_with(">>")) {
      lookAtDirective(text);
      return;
    }
    // A floating comment in columns 1 to 5 cannot be one in fixed form.
    if (text.starts_with("*>")) {
      if (indent < 6)
        ++freeLines;
      return;
    }
    if (line.contains('\t') || line.size() < 7)
      return;
    if (llvm::StringRef(" *-/Dd").contains(line[6])) {
      // The sequence number, or an indicator with nothing before it.
      bool isNumbered = llvm::all_of(line.take_front(6), llvm::isDigit);
      bool isIndicated = line[6] != ' ' && llvm::all_of(line.take_front(6), isBlank);
      fixedLines += isNumbered || (isIndicated && line[6] != 'D' && line[6] != 'd');
    } else if (indent != 6) {
      // Text that begins in column 7 itself may have been meant for area A.
      ++freeLines;
    }
    // A word that goes on across column 72.
    if (line.size() > 80 && isWordCharacter(line[71]) && isWordCharacter(line[72]))
      ++longLines;
  }

  /// The form that a >>SOURCE directive names, if one was seen first.
  SourceFormat decide(SourceFormat otherwise) const {
    if (directed != SourceFormat::Auto)
      return directed;
    // One line that is too long may as well be a mistake.
    const unsigned evidence = freeLines + (longLines > 1 || freeLines > 0 ? longLines : 0);
    if (evidence == fixedLines)
      return otherwise;
    return evidence > fixedLines ? SourceFormat::Free : SourceFormat::Fixed;
  }

  /// Whether more lines would hardly change the result.
  bool isDone() const { return directed != SourceFormat::Auto || lines >= 2000; }

private:
  /// Whether the first characters of \p line, and its length, show that it isPlain(). One that is
  /// too short for that tells no more about its form.
  static bool beginsPlain(llvm::StringRef line) {
    constexpr unsigned toAreaA = (1U << 7) - 1;
    if (line.size() < TextChunk::size || line.size() > 80)
      return false;
    if ((TextChunk(line.data()).findEqual(' ') & toAreaA) != toAreaA)
      return false;
    for (; line.size() >= TextChunk::size; line = line.drop_front(TextChunk::size)) {
      const TextChunk chunk(line.data());
      const auto word = TextChunk::countFirst(chunk.findEqual(' ') | chunk.findDigits());
      if (word == TextChunk::size)
        continue;
      // CBL and PROCESS are for isPlain() to find.
      const char first = llvm::toUpper(line[word]);
      return llvm::isAlpha(first) && first != 'C' && first != 'P';
    }
    return false;
  }

  /// Whether \p line is one of the most, which fit both forms: blank up to area A, no longer than
  /// 80 columns, and with a word first that is none of compiler options.
  static bool isPlain(llvm::StringRef line) {
    if (line.size() < 9 || line.size() > 80 || !line.starts_with("       "))
      return false;
    std::size_t word = 7;
    while (word + 1 < line.size() && (line[word] == ' ' || llvm::isDigit(line[word])))
      ++word;
    const char first = llvm::toUpper(line[word]);
    const char second = word + 1 < line.size() ? llvm::toUpper(line[word + 1]) : ' ';
    return llvm::isAlpha(first) && !(first == 'C' && second == 'B') &&
           !(first == 'P' && second == 'R');
  }

  static bool isOptions(llvm::StringRef text) {
    auto isNumbering = [](char c) { return c == ' ' || llvm::isDigit(c); };
    llvm::StringRef word = text.drop_while(isNumbering).take_while(isWordCharacter);
    return word.equals_insensitive("CBL") || word.equals_insensitive("PROCESS");
  }

  void lookAtDirective(llvm::StringRef text) {
    bool isFirst = freeLines + fixedLines == 0;
    if (!isFirst || !text.drop_front(2).ltrim().starts_with_insensitive("SOURCE"))
      return;
    if (text.rtrim().ends_with_insensitive("FREE"))
      directed = SourceFormat::Free;
    else if (text.rtrim().ends_with_insensitive("FIXED"))
      directed = SourceFormat::Fixed;
  }

  SourceFormat directed = SourceFormat::Auto;
  unsigned lines = 0;
  unsigned freeLines = 0;
  unsigned fixedLines = 0;
  unsigned longLines = 0; ///< with a word that goes on across column 72
};

/// The endings that a copybook's name may have besides the one written.
constexpr llvm::StringLiteral copybookExtensions[] = {
    "",     ".cpy", ".CPY", ".cbl", ".CBL", ".cob", ".COB",      ".copy",     ".COPY",    ".inc",
    ".INC", ".dcl", ".DCL", ".cpb", ".CPB", ".ccp", ".copybook", ".COPYBOOK", ".cobcopy", ".txt"};

/// Those of them that programs, or any other text, have too.
constexpr llvm::StringLiteral extensionsOfPrograms[] = {"", ".cbl", ".cob", ".txt"};

constexpr unsigned wideTab = 8, narrowTab = 4;

/// Whether \p text, that of a line of fixed form, begins what stands in area A: a division, a
/// section, a file or a record.
bool belongsToAreaA(llvm::StringRef text) {
  llvm::StringRef first = text.take_while(isWordCharacter);
  llvm::StringRef second = text.drop_front(first.size()).ltrim().take_while(isWordCharacter);
  return second.equals_insensitive("DIVISION") || second.equals_insensitive("SECTION") ||
         first.equals_insensitive("FD") || first.equals_insensitive("PROGRAM-ID") || first == "01";
}

/// Compares both widths of tabs by the lines of \p text that have a column of their own.
unsigned detectTabWidth(llvm::StringRef text) {
  constexpr size_t indicatorColumn = 7, areaA = 8, areaB = 12;
  constexpr unsigned maxLines = 2000;
  int preference = 0;
  for (unsigned line = 0; !text.empty() && line < maxLines; ++line) {
    auto [first, rest] = text.split('\n');
    text = rest;
    llvm::StringRef blanks = first.take_while(isBlank);
    llvm::StringRef words = first.drop_front(blanks.size());
    if (words.empty() || !blanks.contains('\t'))
      continue;
    auto isInPlace = [&](size_t width) {
      size_t column = 1;
      for (char c : blanks)
        column = c == '\t' ? (column - 1) / width * width + width + 1 : column + 1;
      return words.front() == '*' ? column == indicatorColumn : column >= areaA && column < areaB;
    };
    if (words.front() == '*' || belongsToAreaA(words))
      preference += isInPlace(narrowTab) - isInPlace(wideTab);
  }
  return preference > 0 ? narrowTab : wideTab;
}

constexpr llvm::StringLiteral mapExtensions[] = {".bms", ".BMS"};

/// Tokens and what is made of them refer to the text.
const SourceFile *keep(std::shared_ptr<const SourceFile> file) {
  const SourceFile *kept = file.get();
  keepUntilRelease(std::move(file));
  return kept;
}

/// \p name as written, in upper and in lower case, each once.
llvm::SmallVector<std::string, 3> spellingsOf(llvm::StringRef name) {
  llvm::SmallVector<std::string, 3> spellings{name.str()};
  for (std::string other : {name.upper(), name.lower()})
    if (!llvm::is_contained(spellings, other))
      spellings.push_back(std::move(other));
  return spellings;
}

} // namespace

SourceFile::SourceFile(llvm::StringRef fileName, std::unique_ptr<llvm::MemoryBuffer> buffer)
    : name(internString(fileName)), number(internFileName(fileName)), contents(std::move(buffer)),
      text(contents->getBuffer()) {
  text.consume_front(byteOrderMark);
  faultOffset = findBinary(text);
  if (looksLikeEbcdic(text))
    fault = Fault::Ebcdic;
  else if (faultOffset != llvm::StringRef::npos)
    fault = Fault::Binary;
}

SourceFile::SourceFile(llvm::StringRef fileName, const DecodedText &decoded)
    : SourceFile(fileName, llvm::MemoryBuffer::getMemBufferCopy(decoded.text, fileName)) {
  if (fault != Fault::None || decoded.firstUndecodable == llvm::StringRef::npos)
    return;
  fault = Fault::Undecodable;
  faultOffset = decoded.firstUndecodable;
  undecodableByte = decoded.undecodableByte;
}

SourceFormat SourceFile::getFormat(SourceFormat otherwise) const {
  if (!formatIsKnown)
    format = detectSourceFormat(text, SourceFormat::Auto);
  formatIsKnown = true;
  return format == SourceFormat::Auto ? otherwise : format;
}

unsigned SourceFile::getTabWidth() const {
  if (tabWidth == 0)
    tabWidth = text.contains('\t') ? detectTabWidth(text) : wideTab;
  return tabWidth;
}

bool hasCopybookExtension(llvm::StringRef path) {
  const std::string extension = llvm::sys::path::extension(path).lower();
  return llvm::is_contained(copybookExtensions, llvm::StringRef(extension)) &&
         !llvm::is_contained(extensionsOfPrograms, llvm::StringRef(extension));
}

SourceFormat detectSourceFormat(llvm::StringRef text, SourceFormat otherwise) {
  FormatDetector detector;
  while (!text.empty() && !detector.isDone()) {
    size_t end = findLineEnd(text);
    detector.look(text.take_front(end));
    text = text.substr(end + 1);
  }
  return detector.decide(otherwise);
}

bool isMapFileName(llvm::StringRef path) {
  return llvm::sys::path::extension(path).equals_insensitive(".bms");
}

SourceManager::SourceManager(const ParseOptions &options)
    : options(options),
      fileSystem(options.fileSystem ? options.fileSystem : llvm::vfs::getRealFileSystem()) {}

SourceManager::~SourceManager() = default;

llvm::ErrorOr<const SourceFile *> SourceManager::open(llvm::StringRef path) {
  const SourceFile *&file = files[path];
  if (file)
    return file;
  llvm::ErrorOr<std::unique_ptr<llvm::MemoryBuffer>> contents = fileSystem->getBufferForFile(path);
  if (!contents)
    return contents.getError();
  llvm::StringRef bytes = (*contents)->getBuffer();
  bool isUtf16 = bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
  if (options.encoding.empty() && !isUtf16)
    file = keep(std::make_shared<SourceFile>(path, std::move(*contents)));
  else
    file = keep(std::make_shared<SourceFile>(path, decodeText(bytes, options.encoding)));
  return file;
}

void SourceManager::collectDamagedNames(SourceDamage &damage) const {
  if (!damage.empty())
    for (const auto &file : files)
      if (file.second)
        damage.collectNames(file.second->getNumber(), file.second->getText());
}

const SourceFile &SourceManager::addText(llvm::StringRef name, llvm::StringRef text) {
  const SourceFile *&file = files[name];
  file = keep(std::make_shared<SourceFile>(name, llvm::MemoryBuffer::getMemBufferCopy(text, name)));
  return *file;
}

/// The directories to look in for what \p includer copies from \p library, in order.
std::vector<std::string> SourceManager::searchDirectories(llvm::StringRef library,
                                                          const SourceFile &includer) const {
  llvm::SmallVector<std::string, 8> places(options.includeDirectories.begin(),
                                           options.includeDirectories.end());
  places.push_back(llvm::sys::path::parent_path(includer.getName()).str());
  places.push_back("");
  std::vector<std::string> directories;
  auto add = [&](llvm::StringRef directory) {
    std::string shown = directory.empty() ? "." : directory.str();
    if (!llvm::is_contained(directories, shown))
      directories.push_back(std::move(shown));
  };
  // A library is a directory inside each of them, and comes before them.
  for (llvm::StringRef place : places) {
    if (!library.empty())
      for (const std::string &spelling : spellingsOf(library)) {
        llvm::SmallString<128> inside(place);
        llvm::sys::path::append(inside, spelling);
        add(inside);
      }
  }
  for (llvm::StringRef place : places)
    add(place);
  return directories;
}

std::string SourceManager::describeSearch(llvm::StringRef library,
                                          const SourceFile &includer) const {
  return llvm::join(searchDirectories(library, includer), ", ");
}

llvm::ErrorOr<const SourceFile *> SourceManager::findCopybook(llvm::StringRef textName,
                                                              llvm::StringRef library,
                                                              const SourceFile &includer) {
  return findMember(textName, library, includer, copybookExtensions);
}

llvm::ErrorOr<const SourceFile *> SourceManager::findMapset(llvm::StringRef name,
                                                            llvm::StringRef library,
                                                            const SourceFile &includer) {
  llvm::ErrorOr<const SourceFile *> named = findMember(name, library, includer, mapExtensions);
  if (named || named.getError() != std::errc::no_such_file_or_directory)
    return named;
  for (const std::string &directory : searchDirectories(library, includer)) {
    const llvm::StringMap<std::string> &known = mapsetsOf(directory);
    if (auto file = known.find(name.upper()); file != known.end())
      return open(file->second);
  }
  return named.getError();
}

/// The mapsets that the .bms files in \p directory define, each with its file. A mapset that two
/// files define belongs to the first of them by name.
const llvm::StringMap<std::string> &SourceManager::mapsetsOf(llvm::StringRef directory) {
  auto [entry, isNew] = mapsets.try_emplace(directory);
  if (!isNew)
    return entry->second;
  std::vector<std::string> paths;
  std::error_code error;
  for (llvm::vfs::directory_iterator file = fileSystem->dir_begin(directory, error), end;
       !error && file != end; file.increment(error))
    if (isMapFileName(file->path()))
      paths.push_back(llvm::sys::path::remove_leading_dotslash(file->path()).str());
  llvm::sort(paths);
  for (const std::string &path : paths) {
    llvm::ErrorOr<llvm::vfs::Status> status = fileSystem->status(path);
    if (!status || !status->isRegularFile())
      continue;
    if (llvm::ErrorOr<const SourceFile *> file = open(path))
      for (const std::string &label : mapsetsIn((*file)->getText()))
        entry->second.try_emplace(label, path);
  }
  return entry->second;
}

/// Finds a member by its name and one of \p extensions.
llvm::ErrorOr<const SourceFile *>
SourceManager::findMember(llvm::StringRef textName, llvm::StringRef library,
                          const SourceFile &includer,
                          llvm::ArrayRef<llvm::StringLiteral> extensions) {
  std::string key = (textName + "\n" + library + "\n" + extensions.back() + "\n" +
                     llvm::sys::path::parent_path(includer.getName()))
                        .str();
  std::error_code error = std::make_error_code(std::errc::no_such_file_or_directory);
  // Nothing is looked for twice, found or not.
  if (auto known = found.find(key); known != found.end()) {
    if (known->second.empty())
      return error;
    return open(known->second);
  }
  auto attempt = [&](llvm::StringRef path) -> const SourceFile * {
    llvm::ErrorOr<llvm::vfs::Status> status = fileSystem->status(path);
    if (!status)
      return nullptr;
    if (status->isDirectory()) {
      error = std::make_error_code(std::errc::is_a_directory);
      return nullptr;
    }
    // A device or a pipe may have no end.
    if (!status->isRegularFile()) {
      error = std::make_error_code(std::errc::operation_not_supported);
      return nullptr;
    }
    llvm::ErrorOr<const SourceFile *> file = open(path);
    if (!file) {
      error = file.getError();
      return nullptr;
    }
    found[key] = path.str();
    return *file;
  };

  for (const std::string &directory : searchDirectories(library, includer))
    for (const std::string &spelling : spellingsOf(textName))
      for (llvm::StringRef extension : extensions) {
        llvm::SmallString<128> path;
        // The current directory is not shown in the names of files that are in it.
        if (directory != "." && !llvm::sys::path::is_absolute(spelling))
          path = directory;
        llvm::sys::path::append(path, spelling + extension);
        llvm::sys::path::remove_dots(path);
        if (const SourceFile *file = attempt(path))
          return file;
      }
  found[key] = "";
  return error;
}

} // namespace tarka
