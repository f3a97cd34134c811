//===- Verify.cpp - expectations in the source ----------------------------===//

#include "Verify.h"
#include "AST/Node.h"
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

/// A diagnostic that a comment expects; columns of 0 are not compared.
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

/// A comment about results that contradict the report.
struct Mark {
  SourceLine place;
  /// expect-pass rather than expect-fail.
  bool ok;
  /// The diagnostic that never makes a check fail; 0 for a mark of one place.
  int number = 0;
  bool used = false;
};

/// Reads the expectations of files.
class ExpectationReader {
public:
  ExpectationReader(const std::string &encodingOfFiles, llvm::raw_ostream &messages)
      : encoding(encodingOfFiles), out(messages) {}

  /// Reads one file. False, after a message, when a comment cannot be understood.
  bool read(const std::string &file) {
    // A supplied copybook is not a file.
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

  const std::vector<Expectation> &expectations() const { return found; }
  std::vector<Mark> &marks() { return foundMarks; }

private:
  /// Several comments may share a line.
  bool readLine(const std::string &file, unsigned line, llvm::StringRef text) {
    constexpr llvm::StringRef word = "expect";
    bool understood = true;
    for (std::size_t at = text.find(word); at != llvm::StringRef::npos; at = text.find(word, at)) {
      bool begins = isComment(text, at);
      at += word.size();
      if (begins)
        understood &= readComment(file, line, text.substr(at).split("*>").first.rtrim());
    }
    return understood;
  }

  /// \p rest is what follows "expect" in the comment.
  bool readComment(const std::string &file, unsigned line, llvm::StringRef rest) {
    bool pass = rest.consume_front("-pass");
    bool fail = !pass && rest.consume_front("-fail");
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
    if ((pass || fail) && rest.empty()) {
      foundMarks.push_back({{file, line + offset}, pass});
      return true;
    }
    if (!rest.consume_front(":"))
      return true;
    llvm::SmallVector<llvm::StringRef, 4> items;
    llvm::SplitString(rest, items);
    if (pass) {
      for (llvm::StringRef item : items) {
        Mark mark{{file, line}, true};
        if (item.getAsInteger(10, mark.number))
          return fault(file, line, "the numbers of diagnostics are expected after expect-pass:");
        foundMarks.push_back(mark);
      }
      return true;
    }
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
      return fault(file, line, "the number of a diagnostic is missing");
    return true;
  }

  /// Whether "expect" at \p start is the first word of a comment, or of a comment line in fixed
  /// form.
  static bool isComment(llvm::StringRef text, std::size_t start) {
    llvm::StringRef before = text.take_front(start).rtrim(' ');
    return before.ends_with("*>") || (before.size() == 7 && before.ends_with("*"));
  }

  bool fault(const std::string &file, unsigned line, llvm::StringRef what) {
    out << file << ':' << line << ": " << what << '\n';
    return false;
  }

  const std::string &encoding;
  llvm::raw_ostream &out;
  std::vector<Expectation> found;
  std::vector<Mark> foundMarks;
};

SourceLine lineOf(const Node &node) {
  return {node.getFileName(), static_cast<unsigned>(node.getBeginLineNo())};
}

/// Compares the results of parts with what the report and the marks say about them.
class ResultVerifier {
public:
  ResultVerifier(std::vector<Mark> &found, llvm::raw_ostream &messages)
      : marks(found), out(messages) {}

  bool verify(llvm::ArrayRef<PartResult> results) {
    bool agree = true;
    for (const PartResult &result : results)
      agree &= verify(result);
    for (const Mark &mark : marks)
      if (!mark.used) {
        agree = false;
        differs(mark.place, mark.ok ? "expect-pass: no check passed although this was reported"
                                    : "expect-fail: no check failed here without an error");
      }
    return agree;
  }

private:
  bool verify(const PartResult &result) {
    bool shouldPass = result.kind == CheckedPart::Entry || !result.hasFailedPart;
    for (const PartResult::Error &error : result.errors)
      shouldPass &= neverFails(error.number);
    if (result.ok == shouldPass || isMarked(result))
      return true;
    differs(result.begin,
            result.ok ? "the check passed although an error was reported; mark an intended one "
                        "with expect-pass"
                      : "the check failed without an error; mark an intended one with expect-fail");
    return false;
  }

  bool neverFails(int number) {
    for (Mark &mark : marks)
      if (mark.number == number)
        return mark.used = true;
    return false;
  }

  bool isMarked(const PartResult &result) {
    auto concerns = [&](const Mark &mark) {
      return mark.number == 0 && mark.ok == result.ok &&
             (mark.place == result.begin ||
              llvm::any_of(result.errors, [&](const PartResult::Error &error) {
                return error.place == mark.place;
              }));
    };
    auto mark = llvm::find_if(marks, concerns);
    return mark != marks.end() && (mark->used = true);
  }

  void differs(const SourceLine &place, llvm::StringRef what) {
    out << place.file << ':' << place.line << ": " << what << '\n';
  }

  std::vector<Mark> &marks;
  llvm::raw_ostream &out;
};

} // namespace

void PartResults::partBegins(CheckedPart kind, const Node &part) {
  assignErrors();
  PartResult &result = open.emplace_back();
  result.begin = lineOf(part);
  result.kind = kind;
}

void PartResults::partEnds(bool ok) {
  assignErrors();
  PartResult part = std::move(open.back());
  open.pop_back();
  part.ok = ok;
  if (!open.empty())
    open.back().hasFailedPart |= !ok;
  if (!ok || part.hasFailedPart || !part.errors.empty())
    results.push_back(std::move(part));
}

void PartResults::finish(const std::string &file, bool ok) {
  open.front().begin = {file, 1};
  partEnds(ok);
}

void PartResults::assignErrors() {
  const std::list<ErrorEntry *> &all = collected.getErrorList();
  std::size_t added = all.size() - std::exchange(assigned, all.size());
  for (const ErrorEntry *error : llvm::make_range(std::prev(all.end(), added), all.end()))
    if (error->getSeverity() <= ErrorEntry::Error)
      open.back().errors.push_back({lineOf(*error->getNode()), error->getNumber()});
}

bool verifyReport(const std::string &file, const std::string &encoding,
                  llvm::ArrayRef<Diagnostic> findings, const PartResults *parts,
                  llvm::raw_ostream &out) {
  std::vector<Reported> reported = collect(findings);

  std::set<std::string> files{file};
  for (const Reported &one : reported)
    if (!one.file.empty())
      files.insert(one.file);
  ExpectationReader reader(encoding, out);
  bool agree = true;
  for (const std::string &one : files)
    agree &= reader.read(one);

  for (const Expectation &expectation : reader.expectations()) {
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
  if (parts)
    agree &= ResultVerifier(reader.marks(), out).verify(parts->getResults());
  return agree;
}

} // namespace tarka
