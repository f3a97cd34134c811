//===- GccSink.cpp - the form of GCC's messages ---------------------------===//

#include "Report/Sink.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

llvm::StringRef gccSeverity(Severity severity) {
  if (severity == Severity::Fatal)
    return "fatal error";
  return severity == Severity::Info ? "note" : severityName(severity);
}

class GccSink : public Sink {
public:
  explicit GccSink(llvm::raw_ostream &stream) : out(stream) {}

  void report(const Diagnostic &diagnostic) override {
    printPlace(diagnostic.place);
    out << gccSeverity(diagnostic.severity) << ": " << diagnostic.getMessage() << " ["
        << diagnostic.number << "]\n";
    if (!diagnostic.copiedFrom.empty()) {
      printPlace(diagnostic.place);
      out << "note: copied from " << diagnostic.copiedFrom << '\n';
    }
    for (const DiagnosticNote &note : diagnostic.notes) {
      printPlace(note.place);
      out << "note: " << note.text << '\n';
    }
  }

  void reportFailure(llvm::StringRef file, llvm::StringRef reason) override {
    out << file << ":1:1: fatal error: " << reason << '\n';
  }

private:
  void printPlace(const SourceRange &place) {
    out << fileNameOf(place.file) << ':' << place.beginLine << ':' << place.beginColumn << ": ";
  }

  llvm::raw_ostream &out;
};

} // namespace

std::unique_ptr<Sink> makeGccSink(llvm::raw_ostream &out) {
  return std::make_unique<GccSink>(out);
}

} // namespace tarka
