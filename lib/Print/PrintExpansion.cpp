//===- PrintExpansion.cpp - the text after COPY and REPLACE ---------------===//

#include "Print/PrintExpansion.h"
#include "AST/Node.h"
#include "Parse/Expansion.h"
#include "Print/JsonVersion.h"
#include "Report/Excerpt.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

/// The last column of program text in fixed form, and the columns in which its areas begin.
constexpr unsigned lastTextColumn = 72;
constexpr unsigned areaA = 8;
constexpr unsigned areaB = 12;

/// How many columns \p line has.
unsigned widthOf(llvm::StringRef line) {
  return columnOfOffset(line, line.size()) - 1;
}

bool isWordEnd(char c) {
  return llvm::isAlnum(c) || c == '-' || c == '_';
}

/// Whether there is not program text and no comment in \p line.
bool isBlankLine(llvm::StringRef line, bool isFixedForm) {
  return (isFixedForm ? line.drop_front(std::min<std::size_t>(line.size(), areaA - 2)) : line)
      .trim()
      .empty();
}

/// A text by lines, with the splices that are to be made in it.
class TextLines {
public:
  explicit TextLines(const ExpandedText &expanded);

  std::size_t size() const { return lines.size(); }
  llvm::StringRef operator[](std::size_t index) const { return lines[index]; }
  llvm::ArrayRef<ExpandedText::Splice> getSplices() const { return splices; }

private:
  void takeLongWords(const ExpandedText &expanded);

  std::vector<llvm::StringRef> lines;
  std::vector<ExpandedText::Splice> splices;
};

bool beginsBefore(const ExpandedText::Splice &left, const ExpandedText::Splice &right) {
  return std::pair(left.place.beginLine, left.place.beginColumn) <
         std::pair(right.place.beginLine, right.place.beginColumn);
}

bool endsBefore(const SourceRange &left, const SourceRange &right) {
  return left.endLine != right.endLine ? left.endLine < right.endLine
                                       : left.endColumn < right.endColumn;
}

TextLines::TextLines(const ExpandedText &expanded) {
  llvm::StringRef rest = expanded.file->getText();
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    lines.push_back(rest.take_front(end));
    rest = end == llvm::StringRef::npos ? "" : rest.drop_front(end + 1);
    if (end != llvm::StringRef::npos && lines.back().end()[0] == '\r')
      rest.consume_front("\n");
  }
  std::vector<ExpandedText::Splice> dropped = expanded.dropped;
  std::vector<ExpandedText::Splice> others = expanded.splices;
  llvm::sort(dropped, beginsBefore);
  llvm::sort(others, beginsBefore);
  // Of two that begin at one place the dropped word comes first.
  std::merge(dropped.begin(), dropped.end(), others.begin(), others.end(),
             std::back_inserter(splices), beginsBefore);
  takeLongWords(expanded);
}

/// A literal that goes on to the next line fills its line up to the last column. Where something
/// is spliced into one of its lines it is written anew.
void TextLines::takeLongWords(const ExpandedText &expanded) {
  std::vector<ExpandedText::LongWord> words = expanded.longWords;
  for (bool isChanged = true; isChanged;) {
    isChanged = false;
    for (ExpandedText::LongWord &word : words) {
      auto touches = [&](const ExpandedText::Splice &splice) {
        return splice.place.beginLine <= word.place.endLine &&
               splice.place.endLine >= word.place.beginLine;
      };
      auto near = llvm::find_if(splices, touches);
      if (word.text.empty() || near == splices.end())
        continue;
      ExpandedText::Splice splice;
      splice.place = word.place;
      splice.words = word.text.str();
      splice.isFixedForm = true;
      // What is replaced itself is not written again.
      const bool isReplaced = llvm::any_of(splices, [&](const ExpandedText::Splice &other) {
        return !beginsBefore(splice, other) && touches(other) &&
               !endsBefore(other.place, word.place);
      });
      word.text = "";
      if (isReplaced)
        continue;
      splices.insert(llvm::upper_bound(splices, splice, beginsBefore), std::move(splice));
      isChanged = true;
    }
  }
}

class ExpansionPrinter {
public:
  ExpansionPrinter(llvm::raw_ostream &stream, const Expansion &whole, const ExpansionView &given)
      : os(stream), expansion(whole), view(given) {}

  void print();

private:
  void printText(unsigned number);
  std::size_t printSpliced(unsigned number, const TextLines &lines, std::size_t line,
                           std::size_t &splice);
  void printLine(const ExpandedText &text, std::size_t line, llvm::StringRef shown);
  void printFixed(const ExpandedText &text, std::size_t line, llvm::StringRef logical);
  void printForm(SourceFormat format);
  bool beginsWithOptions() const;

  llvm::raw_ostream &os;
  const Expansion &expansion;
  const ExpansionView &view;
  /// The place of the line that would follow without a marker.
  SourceRange next;
};

void ExpansionPrinter::print() {
  // With lines of both forms in the output the first one says which it is.
  const llvm::ArrayRef<ExpandedText> texts = expansion.getTexts();
  const SourceFormat format = texts.front().format;
  if (!beginsWithOptions() && llvm::any_of(texts, [&](const ExpandedText &text) {
        return text.format != format || text.endFormat != format;
      }))
    printForm(format);
  printText(0);
}

/// Whether CBL or PROCESS lines come first, which nothing may come before.
bool ExpansionPrinter::beginsWithOptions() const {
  const llvm::StringRef text = expansion.getTexts().front().file->getText().ltrim("0123456789 ");
  return text.starts_with_insensitive("CBL ") || text.starts_with_insensitive("PROCESS ");
}

void ExpansionPrinter::printForm(SourceFormat format) {
  // The directive is right in both forms here.
  os << "       >>SOURCE FORMAT IS " << (format == SourceFormat::Free ? "FREE\n" : "FIXED\n");
}

void ExpansionPrinter::printText(unsigned number) {
  const ExpandedText &text = expansion.getTexts()[number];
  const TextLines lines(text);
  std::size_t splice = 0;
  for (std::size_t line = 0; line < lines.size();) {
    if (splice < lines.getSplices().size() &&
        lines.getSplices()[splice].place.beginLine == line + 1) {
      line = printSpliced(number, lines, line, splice);
      continue;
    }
    printLine(text, line, lines[line]);
    ++line;
  }
}

/// Prints what becomes of line number \p line, counted from 0, in which splice number \p index
/// begins, and of all lines that are joined with it. Gives the line to go on with.
std::size_t ExpansionPrinter::printSpliced(unsigned number, const TextLines &lines,
                                           std::size_t line, std::size_t &index) {
  const ExpandedText &text = expansion.getTexts()[number];
  const llvm::ArrayRef<ExpandedText::Splice> splices = lines.getSplices();
  const bool isFixedForm = splices[index].isFixedForm;
  std::string logical;
  std::size_t logicalLine = line;
  std::size_t offset = 0;

  auto endOf = [&](std::size_t at) {
    return isFixedForm ? offsetOfColumn(lines[at], lastTextColumn + 1) : lines[at].size();
  };
  auto append = [&](std::size_t to) {
    llvm::StringRef piece = lines[line].slice(offset, std::max(offset, to));
    // What follows the splice stands in its own column again, if there is room.
    const unsigned column = columnOfOffset(lines[line], offset);
    while (widthOf(logical) >= column && piece.starts_with("  "))
      piece = piece.drop_front();
    if (piece.starts_with(" ") || logical.empty())
      while (widthOf(logical) + 1 < column)
        logical += ' ';
    // Two words do not become one where what separated them is gone.
    if (!logical.empty() && !piece.empty() && isWordEnd(logical.back()) && isWordEnd(piece.front()))
      logical += ' ';
    logical += piece;
  };
  auto flush = [&] {
    if (!isBlankLine(logical, isFixedForm)) {
      if (isFixedForm)
        printFixed(text, logicalLine, logical);
      else
        printLine(text, logicalLine, llvm::StringRef(logical).rtrim());
    }
    logical.clear();
  };

  while (index < splices.size() && splices[index].place.beginLine == line + 1) {
    const ExpandedText::Splice &splice = splices[index++];
    const std::size_t begin = offsetOfColumn(lines[line], splice.place.beginColumn);
    // Overlapping ones would be a fault of the record; the first one counts.
    if (begin < offset)
      continue;
    append(begin);
    if (splice.copied > 0) {
      flush();
      const ExpandedText &copied = expansion.getTexts()[splice.copied];
      if (copied.format != copied.formatAround)
        printForm(copied.format);
      printText(splice.copied);
      if (copied.endFormat != copied.formatAround)
        printForm(copied.formatAround);
    } else {
      if (!splice.words.empty() && !logical.empty() && isWordEnd(logical.back()) &&
          isWordEnd(splice.words.front()))
        logical += ' ';
      logical += splice.words;
    }
    line = std::min<std::size_t>(std::max<std::size_t>(line, splice.place.endLine - 1),
                                 lines.size() - 1);
    if (logical.empty())
      logicalLine = line;
    offset = offsetOfColumn(lines[line], splice.place.endColumn + 1);
  }
  if (offset < endOf(line))
    append(endOf(line));
  flush();
  return line + 1;
}

void ExpansionPrinter::printLine(const ExpandedText &text, std::size_t line,
                                 llvm::StringRef shown) {
  if (view.lineMarkers) {
    SourceRange place{text.file->getNumber(), static_cast<unsigned>(line) + 1, 1, 0, 0};
    if (!text.lines.empty())
      place = text.lines[std::min(line, text.lines.size() - 1)];
    if (place.file != next.file || place.beginLine != next.beginLine)
      os << "      *> line " << place.beginLine << " \"" << fileNameOf(place.file) << "\"\n";
    next = place;
    ++next.beginLine;
  }
  os << shown << '\n';
}

/// Where a line of fixed form is divided at the latest: at a blank outside of literals, in or
/// before column 73. 0 when there is none after the first word.
std::size_t dividingBlank(llvm::StringRef logical) {
  const std::size_t limit = offsetOfColumn(logical, lastTextColumn + 1);
  std::size_t blank = 0;
  char quote = 0;
  bool isWordSeen = false;
  for (std::size_t at = areaA - 1; at < logical.size() && at <= limit; ++at) {
    const char c = logical[at];
    if (quote)
      quote = c == quote ? 0 : quote;
    else if (c == '"' || c == '\'')
      quote = c;
    else if (logical.substr(at).starts_with("*>"))
      return isWordSeen ? at : 0;
    if (!quote && c == ' ' && isWordSeen)
      blank = at;
    isWordSeen |= c != ' ';
  }
  return blank;
}

/// Prints a line that may be longer than fixed form allows: as several, the later ones in area B,
/// a literal that is too long by itself with continuation lines.
void ExpansionPrinter::printFixed(const ExpandedText &text, std::size_t line,
                                  llvm::StringRef logical) {
  std::string rest = logical.rtrim().str();
  const std::string indent(areaB - 1, ' ');
  while (widthOf(rest) > lastTextColumn) {
    const llvm::StringRef whole = rest;
    // A comment line has no end.
    if (whole.size() > 6 && (whole[6] == '*' || whole[6] == '/'))
      break;
    if (const std::size_t blank = dividingBlank(whole)) {
      printLine(text, line, whole.take_front(blank).rtrim());
      rest = indent + whole.drop_front(blank).ltrim().str();
      continue;
    }
    const std::size_t begin = whole.find_first_not_of(' ', areaA - 1);
    const llvm::StringRef word = whole.substr(begin);
    const std::size_t opening = word.find_first_of("'\"");
    if (opening == llvm::StringRef::npos)
      break;
    const char quote = word[opening];
    std::size_t cut = offsetOfColumn(whole, lastTextColumn + 1);
    // Two quotes that stand for one stay together.
    const llvm::StringRef inside = whole.slice(begin + opening + 1, cut);
    if (inside.count(quote) % 2 != 0) {
      rest.insert(begin, " ");
      continue;
    }
    printLine(text, line, whole.take_front(cut));
    rest = "      -    " + std::string(1, quote) + whole.drop_front(cut).str();
  }
  printLine(text, line, rest);
}

llvm::StringRef outcomeText(CopyUse::Outcome outcome) {
  switch (outcome) {
  case CopyUse::Outcome::File:
    return "file";
  case CopyUse::Outcome::Supplied:
    return "supplied";
  case CopyUse::Outcome::Map:
    return "map";
  case CopyUse::Outcome::Missing:
    return "missing";
  }
  llvm_unreachable("not an outcome");
}

/// The COPY that text number \p text comes from, counted from 1; 0 for the source itself.
unsigned copyOf(const Expansion &expansion, unsigned text) {
  return text == 0 ? 0 : expansion.getTexts()[text].copy + 1;
}

void printCopies(llvm::json::OStream &json, const Expansion &expansion) {
  json.attributeArray("copies", [&] {
    for (const CopyUse &use : expansion.getCopies())
      json.object([&] {
        json.attribute("name", toUtf8(use.name));
        if (!use.library.empty())
          json.attribute("library", toUtf8(use.library));
        json.attribute("in", fileNameOf(use.place.file));
        json.attribute("line", use.place.beginLine);
        json.attribute("column", use.place.beginColumn);
        if (const unsigned by = copyOf(expansion, use.from))
          json.attribute("copiedBy", by);
        json.attribute("outcome", outcomeText(use.outcome));
        if (!use.file.empty())
          json.attribute("file", toUtf8(use.file));
        json.attributeArray("searched", [&] {
          for (const std::string &directory : use.searched)
            json.value(toUtf8(directory));
        });
      });
  });
}

} // namespace

void printExpansionText(llvm::raw_ostream &os, const Expansion &expansion,
                        const ExpansionView &view) {
  ExpansionPrinter(os, expansion, view).print();
}

void printExpansionJson(llvm::raw_ostream &os, const Expansion &expansion) {
  llvm::json::OStream json(os, /*IndentSize=*/0);
  json.object([&] {
    printVersion(json);
    json.attribute("file", expansion.getTexts().front().file->getName());
    printCopies(json, expansion);
    json.attributeArray("words", [&] {
      for (const ExpandedWord &word : expansion.getWords())
        json.object([&] {
          json.attribute("text", toUtf8(word.text));
          json.attribute("file", fileNameOf(word.place.file));
          json.attribute("line", word.place.beginLine);
          json.attribute("column", word.place.beginColumn);
          json.attribute("endLine", word.place.endLine);
          json.attribute("endColumn", static_cast<unsigned>(word.place.endColumn));
          if (const unsigned copy = copyOf(expansion, word.from))
            json.attribute("copy", copy);
          if (word.isReplacement)
            json.attribute("replacement", true);
        });
    });
  });
  os << '\n';
}

void printCopiesText(llvm::raw_ostream &os, llvm::StringRef file, const Expansion &expansion) {
  os << file << '\n';
  for (const CopyUse &use : expansion.getCopies()) {
    unsigned depth = 1;
    for (unsigned text = use.from; text > 0; ++depth)
      text = expansion.getCopies()[expansion.getTexts()[text].copy].from;
    os.indent(2 * depth) << use.name;
    if (!use.library.empty())
      os << " of " << use.library;
    os << " at " << fileNameOf(use.place.file) << ':' << use.place.beginLine << ": ";
    switch (use.outcome) {
    case CopyUse::Outcome::File:
      os << use.file;
      break;
    case CopyUse::Outcome::Supplied:
      os << "supplied";
      break;
    case CopyUse::Outcome::Map:
      os << "the map in " << use.file;
      break;
    case CopyUse::Outcome::Missing:
      os << "not found in " << llvm::join(use.searched, ", ");
      break;
    }
    os << '\n';
  }
}

void printCopiesJson(llvm::raw_ostream &os, llvm::StringRef file, const Expansion &expansion) {
  llvm::json::OStream json(os, /*IndentSize=*/0);
  json.object([&] {
    json.attribute("file", toUtf8(file));
    printCopies(json, expansion);
  });
}

} // namespace tarka
