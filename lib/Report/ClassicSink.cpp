//===- ClassicSink.cpp - one line a diagnostic ----------------------------===//

#include "Report/Sink.h"

namespace tarka {

namespace {

class ClassicSink : public Sink {
public:
  explicit ClassicSink(llvm::raw_ostream &stream) : out(stream) {}

  void report(const Diagnostic &diagnostic) override {
    std::string message = diagnostic.getMessage();
    if (!diagnostic.copiedFrom.empty())
      message += "; copied from " + diagnostic.copiedFrom;
    printReportLine(out, diagnostic.place, diagnostic.severity, diagnostic.number, message);
  }

private:
  llvm::raw_ostream &out;
};

} // namespace

std::unique_ptr<Sink> makeClassicSink(llvm::raw_ostream &out) {
  return std::make_unique<ClassicSink>(out);
}

} // namespace tarka
