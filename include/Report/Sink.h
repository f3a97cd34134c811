//===- Sink.h - the forms that a report is printed in -----------*- C++ -*-===//

#ifndef TARKA_REPORT_SINK_H
#define TARKA_REPORT_SINK_H

#include "Report/Diagnostic.h"
#include <memory>

namespace tarka {

/// Prints diagnostics in one form. begin() and end() are called once each, around all diagnostics.
class Sink {
public:
  virtual ~Sink() = default;
  virtual void begin() {}
  virtual void report(const Diagnostic &diagnostic) = 0;
  virtual void end() {}
};

/// The line of printReportLine() for each diagnostic.
std::unique_ptr<Sink> makeClassicSink(llvm::raw_ostream &out);

} // namespace tarka

#endif // TARKA_REPORT_SINK_H
