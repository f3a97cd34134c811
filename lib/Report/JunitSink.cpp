//===- JunitSink.cpp - a test report in the XML of JUnit ------------------===//

#include "Report/Sink.h"
#include "Report/Utf8.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

namespace {

/// Escaped for XML, which has no place for most control characters.
std::string toXml(llvm::StringRef text) {
  std::string clean = toUtf8(text);
  for (char &c : clean)
    if (static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t')
      c = ' ';
  std::string result;
  llvm::raw_string_ostream stream(result);
  llvm::printHTMLEscaped(clean, stream);
  return result;
}

/// A test case for each file: its errors make it fail, its warnings are its output. The counts
/// stand before the cases, so these are kept until the end.
class JunitSink : public Sink {
public:
  explicit JunitSink(llvm::raw_ostream &stream) : out(stream) {}

  void beginFile(llvm::StringRef file) override {
    finishCase();
    name = file;
    ++tests;
  }

  void report(const Diagnostic &diagnostic) override {
    std::string &lines = isError(diagnostic.severity) ? errors : others;
    llvm::raw_string_ostream stream(lines);
    printReportLine(stream, diagnostic.place, diagnostic.severity, diagnostic.number,
                    diagnostic.getMessage());
  }

  void reportFailure(llvm::StringRef file, llvm::StringRef reason) override {
    beginFile(file);
    failure = reason;
  }

  void end(const RunSummary &summary) override {
    finishCase();
    out << R"(<?xml version="1.0" encoding="UTF-8"?>)" << "\n<testsuites>\n"
        << "  <testsuite name=\"tarka\" tests=\"" << tests << "\" failures=\"" << failedTests
        << "\" errors=\"" << brokenTests << "\" time=\"" << llvm::format("%.3f", summary.seconds)
        << "\">\n"
        << cases << "  </testsuite>\n</testsuites>\n";
  }

private:
  void finishCase() {
    if (name.empty())
      return;
    llvm::raw_string_ostream stream(cases);
    stream << "    <testcase classname=\"tarka\" name=\"" << toXml(name) << "\">\n";
    if (!failure.empty()) {
      ++brokenTests;
      stream << "      <error message=\"" << toXml(failure) << "\"/>\n";
    } else if (!errors.empty()) {
      ++failedTests;
      const std::size_t count = llvm::StringRef(errors).count('\n');
      stream << "      <failure message=\"" << count << (count == 1 ? " error" : " errors") << "\">"
             << toXml(errors) << "</failure>\n";
    }
    if (!others.empty())
      stream << "      <system-out>" << toXml(others) << "</system-out>\n";
    stream << "    </testcase>\n";
    name.clear();
    errors.clear();
    others.clear();
    failure.clear();
  }

  llvm::raw_ostream &out;
  std::string name, errors, others, failure;
  std::string cases;
  unsigned tests = 0, failedTests = 0, brokenTests = 0;
};

} // namespace

std::unique_ptr<Sink> makeJunitSink(llvm::raw_ostream &out) {
  return std::make_unique<JunitSink>(out);
}

} // namespace tarka
