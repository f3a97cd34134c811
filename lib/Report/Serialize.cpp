//===- Serialize.cpp - diagnostics on their way between processes ---------===//

#include "Report/Reporter.h"
#include "llvm/Support/EndianStream.h"

namespace tarka {

namespace {

// The members of each structure are named once, in the order in which they are sent; Archive is a
// Writer or a Reader.
template <typename Archive> void transfer(Archive &archive, SourceRange &place) {
  // A bit-field cannot be passed by reference.
  unsigned file = place.file, beginColumn = place.beginColumn, endColumn = place.endColumn;
  archive.file(file);
  archive.number(place.beginLine);
  archive.number(beginColumn);
  archive.number(place.endLine);
  archive.number(endColumn);
  place.file = file;
  place.beginColumn = beginColumn;
  place.endColumn = endColumn;
}

template <typename Archive> void transfer(Archive &archive, DiagnosticNote &note) {
  archive.text(note.text);
  transfer(archive, note.place);
  archive.text(note.line);
}

template <typename Archive> void transfer(Archive &archive, TextEdit &edit) {
  transfer(archive, edit.place);
  archive.text(edit.oldText);
  archive.text(edit.newText);
}

template <typename Archive> void transfer(Archive &archive, std::string &text) {
  archive.text(text);
}

template <typename Archive> void transfer(Archive &archive, Diagnostic &diagnostic) {
  archive.number(diagnostic.number);
  archive.number(diagnostic.severity);
  archive.text(diagnostic.text);
  archive.text(diagnostic.subject);
  archive.text(diagnostic.detail);
  archive.text(diagnostic.otherSubject);
  archive.text(diagnostic.otherDetail);
  archive.text(diagnostic.suggestion);
  transfer(archive, diagnostic.place);
  archive.text(diagnostic.line);
  archive.list(diagnostic.notes);
  archive.list(diagnostic.furtherPlaces);
  archive.text(diagnostic.copiedFrom);
  archive.list(diagnostic.fix);
  archive.text(diagnostic.program);
  archive.text(diagnostic.fingerprint);
  archive.list(diagnostic.programs);
}

template <typename Archive> void transfer(Archive &archive, FileReport &report) {
  archive.text(report.file);
  archive.text(report.failure);
  archive.list(report.diagnostics);
  archive.number(report.lines);
  archive.number(report.failedSilently);
  archive.list(report.inputs);
}

class Writer {
public:
  explicit Writer(llvm::raw_ostream &out) : writer(out, llvm::endianness::little) {}

  template <typename Number> void number(const Number &value) {
    writer.write(static_cast<std::uint32_t>(value));
  }
  void text(llvm::StringRef value) {
    number(value.size());
    writer.OS << value;
  }
  void file(unsigned value) { text(fileNameOf(value)); }
  template <typename Element> void list(std::vector<Element> &elements) {
    number(elements.size());
    for (Element &element : elements)
      transfer(*this, element);
  }

private:
  llvm::support::endian::Writer writer;
};

class Reader {
public:
  explicit Reader(llvm::StringRef given) : bytes(given) {}

  template <typename Number> void number(Number &value) { value = static_cast<Number>(take32()); }
  void text(std::string &value) { value = takeText(); }
  void file(unsigned &value) { value = internFileName(takeText()); }
  template <typename Element> void list(std::vector<Element> &elements) {
    for (std::uint32_t count = take32(); count > 0 && ok; --count)
      transfer(*this, elements.emplace_back());
  }

  bool isWhole() const { return ok && bytes.empty(); }

private:
  std::uint32_t take32() {
    const llvm::StringRef four = take(sizeof(std::uint32_t));
    return ok ? llvm::support::endian::read32le(four.data()) : 0;
  }
  llvm::StringRef takeText() { return take(take32()); }
  llvm::StringRef take(std::size_t size) {
    ok = ok && size <= bytes.size();
    if (!ok)
      return "";
    const llvm::StringRef taken = bytes.take_front(size);
    bytes = bytes.drop_front(size);
    return taken;
  }

  llvm::StringRef bytes;
  bool ok = true;
};

} // namespace

void serialize(llvm::raw_ostream &out, const FileReport &report) {
  FileReport copy = report;
  Writer writer(out);
  transfer(writer, copy);
}

std::optional<FileReport> deserializeFileReport(llvm::StringRef bytes) {
  Reader reader(bytes);
  FileReport report;
  transfer(reader, report);
  if (!reader.isWhole())
    return std::nullopt;
  return report;
}

} // namespace tarka
