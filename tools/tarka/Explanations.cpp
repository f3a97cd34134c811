//===- Explanations.cpp - what there is to say of a diagnostic ------------===//

#include "Explanations.h"
#include "Analyzer/LanguageChecker.h"
#include "Parse/Diagnostics.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/Twine.h"
#include "llvm/Support/ErrorHandling.h"
#include <algorithm>
#include <tuple>

namespace tarka {

namespace {

/// A file of the folder explanations/.
struct EmbeddedText {
  llvm::StringLiteral name;
  llvm::StringLiteral text;
};

constexpr EmbeddedText embeddedTexts[] = {
#include "Explanations.inc"
};

constexpr llvm::StringLiteral frontEndEnumerators[] = {
#define FRONT_END_DIAGNOSTIC(Number, Enumerator, Level, Text) #Enumerator,
#include "Parse/Diagnostics.def"
};

constexpr llvm::StringLiteral checkEnumerators[] = {
#define DIAGNOSTIC(name, number, severity, format) #name,
#include "Analyzer/Diagnostics.def"
};

std::vector<DiagnosticRow> collectRows() {
  std::vector<DiagnosticRow> rows;
  for (auto [info, enumerator] : llvm::zip_equal(frontEndDiagnosticTable(), frontEndEnumerators)) {
    auto number = static_cast<unsigned>(info.id);
    rows.push_back({number, std::to_string(number), enumerator, info.severity, info.text});
  }
  for (std::size_t row = 0; row != DiagnosticCount; ++row) {
    const ErrorInfo &info = ErrorInfoStruct[row];
    bool isTwin = llvm::count_if(ErrorInfoStruct, [&](const ErrorInfo &other) {
                    return other.number == info.number;
                  }) > 1;
    std::string name = std::to_string(info.number);
    if (isTwin)
      name += "-row" + std::to_string(row);
    rows.push_back({static_cast<unsigned>(info.number), name, checkEnumerators[row],
                    severityOf(static_cast<ErrorCode>(row)), info.format});
  }
  for (const LanguageRuleInfo &info : languageRules())
    rows.push_back({static_cast<unsigned>(info.number), std::to_string(info.number), info.name,
                    info.severity, info.format});
  llvm::sort(rows, [](const DiagnosticRow &left, const DiagnosticRow &right) {
    return std::tie(left.number, left.name) < std::tie(right.number, right.name);
  });
  return rows;
}

/// A line of "times: N" in a comment is written once and stands for N lines.
unsigned takeRepetition(std::string &line) {
  constexpr llvm::StringLiteral words = "*> times: ";
  std::size_t start = line.find(words);
  if (start == std::string::npos)
    return 1;
  llvm::StringRef rest = llvm::StringRef(line).substr(start + words.size());
  unsigned times = 0;
  if (rest.consumeInteger(10, times))
    llvm::report_fatal_error("an explanation has times: without a number");
  line = (llvm::StringRef(line).take_front(start).rtrim() + rest).str();
  return times;
}

/// The pictures of control characters stand for these characters, which no text file can hold.
std::string withControlCharacters(llvm::StringRef line) {
  std::string result;
  while (!line.empty()) {
    // U+2400 to U+241F, in UTF-8.
    if (line.starts_with("\xE2\x90") && line.size() > 2 && (line[2] & 0xE0) == 0x80) {
      result += static_cast<char>(line[2] & 0x1F);
      line = line.drop_front(3);
    } else {
      result += line.front();
      line = line.drop_front();
    }
  }
  return result;
}

void addSourceLine(std::string &source, std::string line) {
  unsigned times = takeRepetition(line);
  line = withControlCharacters(line) + "\n";
  for (unsigned i = 0; i != times; ++i)
    source += line;
}

bool isIn(ProgramVersion version, char mark) {
  return mark == ' ' || mark == (version == ProgramVersion::Wrong ? '-' : '+');
}

/// Reads the text of an explanation. A text that is not in the form is a fault of the program that
/// it is built into.
class ExplanationReader {
public:
  explicit ExplanationReader(const EmbeddedText &text) : name(text.name), rest(text.text) {}

  Explanation read() {
    while (!rest.empty()) {
      llvm::StringRef line = takeLine();
      if (line.consume_front("rule:"))
        explanation.rule = readSentences(line);
      else if (line.consume_front("never:"))
        explanation.neverIssued = readSentences(line);
      else if (line.consume_front("related:"))
        readRelated(line);
      else if (line.consume_front("options:"))
        readOptions(line);
      else if (line == "program:")
        readFile(programFileName);
      else if (line.consume_front("file ") && line.consume_back(":"))
        readFile(line);
      else if (!line.empty())
        fault("'" + line + "' begins nothing that an explanation has");
    }
    if (explanation.rule.empty())
      fault("the rule is missing");
    if (explanation.neverIssued.empty() == explanation.files.empty())
      fault("there is a program, or a reason why there is none");
    if (!explanation.files.empty() && explanation.files.front().getName() != programFileName)
      fault("the program comes before the other files");
    return std::move(explanation);
  }

private:
  llvm::StringRef takeLine() {
    auto [line, tail] = rest.split('\n');
    rest = tail;
    return line;
  }

  /// Sentences go on in lines that are indented by two blanks.
  std::string readSentences(llvm::StringRef first) {
    std::string text = first.trim().str();
    while (rest.starts_with("  "))
      text += (" " + takeLine().trim()).str();
    return text;
  }

  void readRelated(llvm::StringRef line) {
    llvm::SmallVector<llvm::StringRef, 4> words;
    llvm::SplitString(line, words);
    for (llvm::StringRef word : words) {
      unsigned number = 0;
      if (word.getAsInteger(10, number))
        fault("'" + word + "' is not a number");
      explanation.related.push_back(number);
    }
  }

  void readOptions(llvm::StringRef line) {
    llvm::SmallVector<llvm::StringRef, 4> words;
    llvm::SplitString(line, words);
    for (llvm::StringRef word : words)
      explanation.options.push_back(word.str());
  }

  /// The lines of a file go on to one that does not begin with a mark.
  void readFile(llvm::StringRef fileName) {
    auto [pattern, repetition] = fileName.split(", ");
    unsigned count = 1;
    if (!repetition.empty() &&
        (!repetition.consume_back(" times") || repetition.getAsInteger(10, count)))
      fault("'" + fileName + "' is not the name of a file");
    ProgramFile &file = explanation.files.emplace_back(pattern, count);
    while (!rest.empty() && llvm::StringRef(" -+\n").contains(rest.front())) {
      llvm::StringRef line = takeLine();
      file.addLine(line.empty() ? " " : line);
    }
  }

  [[noreturn]] void fault(const llvm::Twine &what) {
    llvm::report_fatal_error("explanations/" + name + ".txt: " + what);
  }

  llvm::StringRef name;
  llvm::StringRef rest;
  Explanation explanation;
};

} // namespace

std::string DiagnosticRow::shownMessage() const {
  std::string shown;
  llvm::StringRef rest = message;
  while (!rest.empty()) {
    // {0}, {1} and so on, or %s.
    const bool isArgument =
        rest.size() > 2 && rest[0] == '{' && llvm::isDigit(rest[1]) && rest[2] == '}';
    if (isArgument || rest.starts_with("%s")) {
      rest = rest.drop_front(isArgument ? 3 : 2);
      shown += "...";
      continue;
    }
    shown += rest.front();
    rest = rest.drop_front();
  }
  return shown;
}

const std::vector<DiagnosticRow> &diagnosticRows() {
  static const std::vector<DiagnosticRow> rows = collectRows();
  return rows;
}

const DiagnosticRow *findDiagnosticRow(unsigned number) {
  const auto found = llvm::find_if(
      diagnosticRows(), [number](const DiagnosticRow &row) { return row.number == number; });
  return found == diagnosticRows().end() ? nullptr : &*found;
}

std::vector<ProgramLine> ProgramFile::linesOf(ProgramVersion version) const {
  std::vector<ProgramLine> shown;
  unsigned number = 1;
  for (llvm::StringRef line : lines) {
    if (!isIn(version, line.front()))
      continue;
    std::optional<std::string> text = withoutExpectation(line.drop_front());
    if (!text)
      continue;
    std::string once = *text;
    shown.push_back({*text, number, line.front() != ' '});
    number += takeRepetition(once);
  }
  return shown;
}

/// \p text of the file of this \p number, where there are several.
std::string ProgramFile::numbered(llvm::StringRef text, unsigned number) const {
  if (count == 1)
    return text.str();
  std::string result;
  while (!text.empty()) {
    if (text.consume_front("#")) {
      const bool isNext = text.consume_front("+1");
      result += std::to_string(number + isNext);
    } else {
      result += text.front();
      text = text.drop_front();
    }
  }
  return result;
}

std::string ProgramFile::sourceOf(ProgramVersion version, unsigned number) const {
  std::string source;
  for (const ProgramLine &line : linesOf(version))
    addSourceLine(source, numbered(line.text, number));
  return source;
}

std::string ProgramFile::verifiedSource(unsigned number) const {
  std::string source;
  for (llvm::StringRef line : lines)
    if (isIn(ProgramVersion::Wrong, line.front()))
      addSourceLine(source, numbered(line.drop_front(), number));
  return source;
}

std::optional<Explanation> explanationOf(llvm::StringRef name) {
  const auto *found = llvm::find_if(
      embeddedTexts, [name](const EmbeddedText &embedded) { return embedded.name == name; });
  if (found == std::end(embeddedTexts))
    return std::nullopt;
  return ExplanationReader(*found).read();
}

std::optional<std::string> withoutExpectation(llvm::StringRef line) {
  std::size_t start = std::min(line.find("*> expect"), line.find("*>expect"));
  // A comment line of fixed form has its asterisk in column 7.
  if (start == llvm::StringRef::npos && line.substr(6).starts_with("* expect"))
    start = 6;
  if (start == llvm::StringRef::npos)
    return line.rtrim().str();
  llvm::StringRef before = line.take_front(start).rtrim();
  if (before.empty())
    return std::nullopt;
  return before.str();
}

} // namespace tarka
