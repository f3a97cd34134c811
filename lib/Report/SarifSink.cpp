//===- SarifSink.cpp - the report as SARIF 2.1.0 --------------------------===//
//
// The results are written as they come; what is only known at the end of the run
// (the rules that were broken, the exit status) follows them in the same object.
//
//===----------------------------------------------------------------------===//

#include "Report/Sink.h"
#include "Report/Utf8.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/FileSystem.h"
#include "llvm/Support/Path.h"
#include <memory>

namespace tarka {

namespace {

constexpr llvm::StringLiteral schema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
constexpr llvm::StringLiteral workingDirectory = "PWD";
/// The name that the fingerprints have in a result.
constexpr llvm::StringLiteral fingerprintName = "tarka/v1";

/// \p path as a relative or absolute reference of RFC 3986.
std::string toUri(llvm::StringRef path) {
  std::string uri = llvm::sys::path::is_absolute(path) ? "file://" : "";
  for (const char c : path) {
    if (llvm::isAlnum(c) || llvm::StringRef("/-._~").contains(c))
      uri += c;
    else
      uri += "%" + llvm::toHex(llvm::StringRef(&c, 1));
  }
  return uri;
}

llvm::StringRef levelOf(Severity severity) {
  if (isError(severity))
    return "error";
  return severity == Severity::Warning ? "warning" : "note";
}

std::string ruleId(int number) {
  return "TARKA" + std::to_string(number);
}

class SarifSink : public Sink {
public:
  SarifSink(llvm::raw_ostream &stream, RuleLookup lookup,
            std::function<llvm::raw_ostream *()> openNext, unsigned bound)
      : out(&stream), rules(std::move(lookup)), nextStream(std::move(openNext)), maxResults(bound) {
  }

  void begin(const RunInfo &info) override {
    run = info;
    beginLog();
  }

  void report(const Diagnostic &diagnostic) override {
    if (resultCount == maxResults && nextStream) {
      endLog(true, 0);
      if (llvm::raw_ostream *next = nextStream())
        out = next;
      beginLog();
    }
    ++resultCount;
    printResult(diagnostic);
  }

  void reportFailure(llvm::StringRef file, llvm::StringRef reason) override {
    failures.emplace_back(file, reason);
  }

  void end(const RunSummary &summary) override { endLog(failures.empty(), summary.exitStatus); }

private:
  void beginLog();
  void endLog(bool isSuccessful, int exitStatus);
  void printInvocation(bool isSuccessful, int exitStatus);
  void printRules();
  void printResult(const Diagnostic &diagnostic);
  void printFile(llvm::StringRef path);
  void printRegion(llvm::StringRef name, const SourceRange &place, llvm::StringRef line);
  void printLocation(const SourceRange &place, llvm::StringRef line, llvm::StringRef message);
  void printText(llvm::StringRef name, llvm::StringRef text) {
    json->attributeObject(name, [&] { json->attribute("text", toUtf8(text)); });
  }
  std::size_t ruleIndex(int number) {
    auto [position, isNew] = ruleIndexes.try_emplace(number, ruleOrder.size());
    if (isNew)
      ruleOrder.push_back(number);
    return position->second;
  }

  llvm::raw_ostream *out;
  std::unique_ptr<llvm::json::OStream> json;
  RuleLookup rules;
  std::function<llvm::raw_ostream *()> nextStream;
  unsigned maxResults;
  RunInfo run;
  unsigned resultCount = 0;
  /// The numbers in the order in which the log met them.
  std::vector<int> ruleOrder;
  llvm::DenseMap<int, std::size_t> ruleIndexes;
  std::vector<std::pair<std::string, std::string>> failures;
};

void SarifSink::beginLog() {
  resultCount = 0;
  ruleOrder.clear();
  ruleIndexes.clear();
  json = std::make_unique<llvm::json::OStream>(*out, 2);
  json->objectBegin();
  json->attribute("$schema", schema);
  json->attribute("version", "2.1.0");
  json->attributeBegin("runs");
  json->arrayBegin();
  json->objectBegin();
  json->attributeBegin("results");
  json->arrayBegin();
}

void SarifSink::endLog(bool isSuccessful, int exitStatus) {
  json->arrayEnd();
  json->attributeEnd();
  json->attributeObject("tool", [&] {
    json->attributeObject("driver", [&] {
      json->attribute("name", "Tarka");
      json->attribute("fullName", "Tarka, an analyser of COBOL");
      json->attribute("version", toUtf8(run.version));
      json->attribute("semanticVersion", toUtf8(run.version));
      json->attributeArray("rules", [&] { printRules(); });
    });
  });
  json->attributeArray("invocations", [&] { printInvocation(isSuccessful, exitStatus); });
  json->attribute("columnKind", "unicodeCodePoints");
  llvm::SmallString<128> directory;
  if (!llvm::sys::fs::current_path(directory))
    json->attributeObject("originalUriBaseIds", [&] {
      json->attributeObject(workingDirectory,
                            [&] { json->attribute("uri", toUri(directory) + "/"); });
    });
  json->objectEnd();
  json->arrayEnd();
  json->attributeEnd();
  json->objectEnd();
  json.reset();
  *out << '\n';
}

void SarifSink::printInvocation(bool isSuccessful, int exitStatus) {
  json->object([&] {
    json->attribute("executionSuccessful", isSuccessful);
    json->attribute("exitCode", exitStatus);
    json->attributeArray("arguments", [&] {
      for (const std::string &word : run.commandLine)
        json->value(toUtf8(word));
    });
    json->attributeArray("toolExecutionNotifications", [&] {
      for (const auto &[file, reason] : failures)
        json->object([&, &path = file, &text = reason] {
          json->attribute("level", "error");
          printText("message", text);
          SourceRange place;
          place.file = internFileName(path);
          json->attributeArray("locations", [&] { printLocation(place, "", ""); });
        });
    });
  });
}

void SarifSink::printRules() {
  for (const int number : ruleOrder) {
    const RuleText rule = rules(number);
    json->object([&] {
      json->attribute("id", ruleId(number));
      if (!rule.name.empty())
        json->attribute("name", rule.name);
      printText("shortDescription", rule.message);
      printText("fullDescription", rule.rule.empty() ? rule.message : rule.rule);
      json->attributeObject("help", [&] {
        json->attribute("text", toUtf8(rule.rule + "\n\n" + "'tarka explain " +
                                       std::to_string(number) + "' shows an example."));
      });
      json->attributeObject("defaultConfiguration",
                            [&] { json->attribute("level", levelOf(rule.severity)); });
    });
  }
}

void SarifSink::printFile(llvm::StringRef path) {
  json->attributeObject("artifactLocation", [&] {
    json->attribute("uri", toUri(path));
    if (!llvm::sys::path::is_absolute(path))
      json->attribute("uriBaseId", workingDirectory);
  });
}

void SarifSink::printRegion(llvm::StringRef name, const SourceRange &place, llvm::StringRef line) {
  if (place.beginLine == 0)
    return;
  json->attributeObject(name, [&] {
    json->attribute("startLine", place.beginLine);
    json->attribute("startColumn", place.beginColumn);
    json->attribute("endLine", place.endLine);
    // The end is exclusive.
    json->attribute("endColumn", place.endColumn + 1);
    if (!line.empty())
      json->attributeObject("snippet", [&] { json->attribute("text", toUtf8(line)); });
  });
}

void SarifSink::printLocation(const SourceRange &place, llvm::StringRef line,
                              llvm::StringRef message) {
  json->object([&] {
    json->attributeObject("physicalLocation", [&] {
      printFile(fileNameOf(place.file));
      printRegion("region", place, line);
    });
    if (!message.empty())
      printText("message", message);
  });
}

void SarifSink::printResult(const Diagnostic &diagnostic) {
  json->object([&] {
    json->attribute("ruleId", ruleId(diagnostic.number));
    json->attribute("ruleIndex", static_cast<std::int64_t>(ruleIndex(diagnostic.number)));
    json->attribute("level", levelOf(diagnostic.severity));
    printText("message", diagnostic.getMessage());
    if (diagnostic.place.file != 0)
      json->attributeArray("locations",
                           [&] { printLocation(diagnostic.place, diagnostic.line, ""); });
    if (!diagnostic.notes.empty() || !diagnostic.furtherPlaces.empty())
      json->attributeArray("relatedLocations", [&] {
        for (const DiagnosticNote &note : diagnostic.notes)
          printLocation(note.place, note.line, note.text);
        for (const SourceRange &place : diagnostic.furtherPlaces)
          printLocation(place, "", "the same here");
      });
    if (!diagnostic.fingerprint.empty())
      json->attributeObject("partialFingerprints",
                            [&] { json->attribute(fingerprintName, diagnostic.fingerprint); });
    if (!diagnostic.fix.empty())
      json->attributeArray("fixes", [&] {
        json->object([&] {
          json->attributeArray("artifactChanges", [&] {
            for (const TextEdit &edit : diagnostic.fix)
              json->object([&] {
                printFile(fileNameOf(edit.place.file));
                json->attributeArray("replacements", [&] {
                  json->object([&] {
                    printRegion("deletedRegion", edit.place, "");
                    printText("insertedContent", edit.newText);
                  });
                });
              });
          });
        });
      });
    if (diagnostic.programs.size() > 1)
      json->attributeObject("properties", [&] {
        json->attributeArray("programs", [&] {
          for (const std::string &program : diagnostic.programs)
            json->value(toUtf8(program));
        });
      });
  });
}

} // namespace

std::unique_ptr<Sink> makeSarifSink(llvm::raw_ostream &out, RuleLookup rules,
                                    std::function<llvm::raw_ostream *()> nextStream,
                                    unsigned maxResults) {
  return std::make_unique<SarifSink>(out, std::move(rules), std::move(nextStream), maxResults);
}

} // namespace tarka
