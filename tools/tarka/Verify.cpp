//===- Verify.cpp - expectations in the source ----------------------------===//

#include "Verify.h"
#include "Parse/Encoding.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/raw_ostream.h"
#include <set>
#include <vector>

namespace tarka {

namespace {

/// A diagnostic that was reported.
struct Reported {
  std::string file;
  unsigned line;
  unsigned beginColumn;
  unsigned endColumn;
  unsigned number;
  llvm::StringRef message;
  bool expected = false;
};

/// A diagnostic that a comment announces; columns of 0 are not compared.
struct Expectation {
  std::string file;
  unsigned line;
  unsigned beginColumn = 0;
  unsigned endColumn = 0;
  unsigned number = 0;

  bool matches(const Reported &one) const {
    return one.file == file && one.line == line && one.number == number &&
           (!beginColumn || one.beginColumn == beginColumn) &&
           (!endColumn || one.endColumn == endColumn);
  }
};

std::vector<Reported> collect(llvm::ArrayRef<Diagnostic> findings) {
  std::vector<Reported> all;
  for (const Diagnostic &one : findings)
    all.push_back({fileNameOf(one.place.file), one.place.beginLine, one.place.beginColumn,
                   one.place.endColumn, static_cast<unsigned>(one.number), one.text});
  return all;
}

/// Reads one file's expectations. False, after a message, when one of them cannot be understood.
class ExpectationReader {
public:
  ExpectationReader(std::vector<Expectation> &found, const std::string &encoding,
                    llvm::raw_ostream &out)
      : found(found), encoding(encoding), out(out) {}

  bool read(const std::string &file) {
    // Supplied copybooks are no files, and nobody writes expectations into them.
    if (llvm::StringRef(file).starts_with("<"))
      return true;
    auto buffer = llvm::MemoryBuffer::getFile(file);
    if (!buffer) {
      out << file << ": cannot be read: " << buffer.getError().message() << '\n';
      return false;
    }
    llvm::StringRef rest = (*buffer)->getBuffer();
    std::string decoded;
    if (!encoding.empty()) {
      decoded = decodeText(rest, encoding).text;
      rest = decoded;
    }
    bool understood = true;
    for (unsigned line = 1; !rest.empty(); ++line) {
      auto [text, tail] = rest.split('\n');
      understood &= readLine(file, line, text.rtrim('\r'));
      rest = tail;
    }
    return understood;
  }

private:
  bool readLine(const std::string &file, unsigned line, llvm::StringRef text) {
    // The comment is found by its words, so that a comment line of fixed form will do as well.
    std::size_t start = text.find("expect");
    if (start == llvm::StringRef::npos || !isComment(text, start))
      return true;
    llvm::StringRef rest = text.substr(start).drop_front(llvm::StringRef("expect").size());
    int offset = 0;
    if (rest.consume_front("@")) {
      bool minus = rest.consume_front("-");
      if (!minus)
        rest.consume_front("+");
      if (rest.consumeInteger(10, offset))
        return fault(file, line, "a number of lines is missing after @");
      if (minus)
        offset = -offset;
    }
    if (!rest.consume_front(":"))
      return true;
    llvm::SmallVector<llvm::StringRef, 4> items;
    llvm::SplitString(rest, items);
    for (llvm::StringRef item : items) {
      Expectation one{file, line + offset};
      bool wrong = item.consumeInteger(10, one.number);
      if (!wrong && item.consume_front(":")) {
        wrong = item.consumeInteger(10, one.beginColumn);
        if (!wrong && item.consume_front("-"))
          wrong = item.consumeInteger(10, one.endColumn);
      }
      if (wrong || !item.empty())
        return fault(file, line, "an expectation is NUMBER, NUMBER:COLUMN or NUMBER:COLUMN-COLUMN");
      found.push_back(one);
    }
    if (items.empty())
      return fault(file, line, "no number is expected; leave the comment out");
    return true;
  }

  /// Whether "expect" at \p start is the first word of a comment.
  static bool isComment(llvm::StringRef text, std::size_t start) {
    llvm::StringRef before = text.take_front(start).rtrim(' ');
    return before.ends_with("*>") || (before.size() == 7 && before.ends_with("*"));
  }

  bool fault(const std::string &file, unsigned line, llvm::StringRef what) {
    out << file << ':' << line << ": " << what << '\n';
    return false;
  }

  std::vector<Expectation> &found;
  const std::string &encoding;
  llvm::raw_ostream &out;
};

} // namespace

bool verifyReport(const std::string &file, const std::string &encoding,
                  llvm::ArrayRef<Diagnostic> findings, llvm::raw_ostream &out) {
  std::vector<Reported> reported = collect(findings);

  std::set<std::string> files{file};
  for (const Reported &one : reported)
    if (!one.file.empty())
      files.insert(one.file);
  std::vector<Expectation> expectations;
  ExpectationReader reader(expectations, encoding, out);
  bool agree = true;
  for (const std::string &one : files)
    agree &= reader.read(one);

  for (const Expectation &expectation : expectations) {
    auto match = llvm::find_if(
        reported, [&](const Reported &one) { return !one.expected && expectation.matches(one); });
    if (match != reported.end()) {
      match->expected = true;
      continue;
    }
    agree = false;
    out << expectation.file << ':' << expectation.line << ": " << expectation.number;
    if (expectation.beginColumn)
      out << " in column " << expectation.beginColumn;
    out << " was expected, but not reported\n";
  }
  for (const Reported &one : reported)
    if (!one.expected) {
      agree = false;
      out << one.file << ':' << one.line << ':' << one.beginColumn << '-' << one.endColumn << ": "
          << one.number << " was reported, but not expected: " << one.message << '\n';
    }
  return agree;
}

} // namespace tarka
