//===- GithubSink.cpp - annotations of GitHub's workflows -----------------===//

#include "Report/Sink.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

/// Workflow commands end with the line; a property also ends with a comma or a colon.
std::string escape(llvm::StringRef text, bool isProperty) {
  std::string result;
  for (const char c : text) {
    if (c == '%')
      result += "%25";
    else if (c == '\r')
      result += "%0D";
    else if (c == '\n')
      result += "%0A";
    else if (isProperty && c == ':')
      result += "%3A";
    else if (isProperty && c == ',')
      result += "%2C";
    else
      result += c;
  }
  return result;
}

llvm::StringRef levelOf(Severity severity) {
  if (isError(severity))
    return "error";
  return severity == Severity::Warning ? "warning" : "notice";
}

class GithubSink : public Sink {
public:
  explicit GithubSink(llvm::raw_ostream &stream) : out(stream) {}

  void report(const Diagnostic &diagnostic) override {
    const SourceRange &place = diagnostic.place;
    out << "::" << levelOf(diagnostic.severity) << " file=" << escape(fileNameOf(place.file), true)
        << ",line=" << place.beginLine << ",endLine=" << place.endLine;
    // Columns are only understood within one line.
    if (place.beginLine == place.endLine)
      out << ",col=" << place.beginColumn << ",endColumn=" << place.endColumn;
    out << ",title=tarka " << diagnostic.number << "::" << escape(diagnostic.getMessage(), false)
        << '\n';
  }

  void reportFailure(llvm::StringRef file, llvm::StringRef reason) override {
    out << "::error file=" << escape(file, true) << ",title=tarka::" << escape(reason, false)
        << '\n';
  }

private:
  llvm::raw_ostream &out;
};

} // namespace

std::unique_ptr<Sink> makeGithubSink(llvm::raw_ostream &out) {
  return std::make_unique<GithubSink>(out);
}

} // namespace tarka
