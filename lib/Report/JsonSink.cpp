//===- JsonSink.cpp - the report as JSON ----------------------------------===//

#include "Report/Sink.h"
#include "Report/Utf8.h"

namespace tarka {

namespace {

/// The version of both forms. It is incremented when a field changes its meaning or is removed, not
/// for new fields.
constexpr int formVersion = 1;

void printPlace(llvm::json::OStream &json, const SourceRange &place) {
  json.attribute("file", toUtf8(fileNameOf(place.file)));
  json.attribute("line", place.beginLine);
  json.attribute("column", place.beginColumn);
  json.attribute("endLine", place.endLine);
  json.attribute("endColumn", place.endColumn);
}

void printDiagnostic(llvm::json::OStream &json, const Diagnostic &diagnostic) {
  auto printText = [&](llvm::StringRef name, llvm::StringRef text) {
    if (!text.empty())
      json.attribute(name, toUtf8(text));
  };
  json.object([&] {
    json.attribute("number", diagnostic.number);
    json.attribute("severity", severityName(diagnostic.severity));
    printPlace(json, diagnostic.place);
    printText("message", diagnostic.getMessage());
    printText("text", diagnostic.text);
    printText("subject", diagnostic.subject);
    printText("detail", diagnostic.detail);
    printText("otherSubject", diagnostic.otherSubject);
    printText("otherDetail", diagnostic.otherDetail);
    printText("suggestion", diagnostic.suggestion);
    printText("program", diagnostic.program);
    printText("fingerprint", diagnostic.fingerprint);
    printText("source", diagnostic.line);
    if (!diagnostic.notes.empty())
      json.attributeArray("notes", [&] {
        for (const DiagnosticNote &note : diagnostic.notes)
          json.object([&] {
            json.attribute("text", toUtf8(note.text));
            printPlace(json, note.place);
            printText("source", note.line);
          });
      });
    printText("copiedFrom", diagnostic.copiedFrom);
    if (!diagnostic.furtherPlaces.empty())
      json.attributeArray("furtherPlaces", [&] {
        for (const SourceRange &place : diagnostic.furtherPlaces)
          json.object([&] { printPlace(json, place); });
      });
    if (!diagnostic.fix.empty())
      json.attributeArray("fix", [&] {
        for (const TextEdit &edit : diagnostic.fix)
          json.object([&] {
            printPlace(json, edit.place);
            json.attribute("old", toUtf8(edit.oldText));
            json.attribute("new", toUtf8(edit.newText));
          });
      });
    if (diagnostic.programs.size() > 1)
      json.attributeArray("programs", [&] {
        for (const std::string &program : diagnostic.programs)
          json.value(toUtf8(program));
      });
  });
}

/// A file that could not be analysed.
void printFailure(llvm::json::OStream &json, llvm::StringRef file, llvm::StringRef reason) {
  json.object([&] {
    json.attribute("file", toUtf8(file));
    json.attribute("reason", toUtf8(reason));
  });
}

class JsonSink : public Sink {
public:
  explicit JsonSink(llvm::raw_ostream &stream) : out(stream), json(stream, 2) {}

  void begin(const RunInfo &run) override {
    json.objectBegin();
    json.attribute("version", formVersion);
    json.attribute("tool", "tarka " + toUtf8(run.version));
    json.attributeBegin("diagnostics");
    json.arrayBegin();
  }

  void report(const Diagnostic &diagnostic) override { printDiagnostic(json, diagnostic); }

  void reportFailure(llvm::StringRef file, llvm::StringRef reason) override {
    failures.emplace_back(file, reason);
  }

  void end(const RunSummary &summary) override {
    json.arrayEnd();
    json.attributeEnd();
    json.attributeArray("failures", [&] {
      for (const auto &[file, reason] : failures)
        printFailure(json, file, reason);
    });
    json.attributeObject("summary", [&] {
      json.attribute("files", summary.files);
      json.attribute("errors", summary.errors);
      json.attribute("warnings", summary.warnings);
      json.attribute("exitStatus", summary.exitStatus);
    });
    json.objectEnd();
    out << '\n';
  }

private:
  llvm::raw_ostream &out;
  llvm::json::OStream json;
  std::vector<std::pair<std::string, std::string>> failures;
};

class NdjsonSink : public Sink {
public:
  explicit NdjsonSink(llvm::raw_ostream &stream) : out(stream) {}

  void report(const Diagnostic &diagnostic) override {
    llvm::json::OStream json(out);
    printDiagnostic(json, diagnostic);
    out << '\n';
  }

  void reportFailure(llvm::StringRef file, llvm::StringRef reason) override {
    llvm::json::OStream json(out);
    printFailure(json, file, reason);
    out << '\n';
  }

private:
  llvm::raw_ostream &out;
};

} // namespace

std::unique_ptr<Sink> makeJsonSink(llvm::raw_ostream &out) {
  return std::make_unique<JsonSink>(out);
}

std::unique_ptr<Sink> makeNdjsonSink(llvm::raw_ostream &out) {
  return std::make_unique<NdjsonSink>(out);
}

} // namespace tarka
