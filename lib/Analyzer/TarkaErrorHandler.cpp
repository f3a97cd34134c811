//===- TarkaErrorHandler.cpp - diagnostics and their report ---------------===//

#include "Analyzer/ErrorHandler.h"
#include "Analyzer/TopLevel.h"
#include "llvm/Support/raw_ostream.h"
#include <cstdarg>
#include <cstdio>
#include <unistd.h>

namespace tarka {

const ErrorInfo ErrorInfoStruct[DiagnosticCount + 1] = {
#define DIAGNOSTIC(name, number, severity, format) {number, format},
#include "Analyzer/Diagnostics.def"
    {0, ""},
};

namespace {

constexpr Severity severities[DiagnosticCount] = {
#define DIAGNOSTIC(name, number, severity, format) Severity::severity,
#include "Analyzer/Diagnostics.def"
};

/// The message of \p code. Nearly all fit the buffer; a longer one, made so by its argument, is
/// formatted again at its full length.
std::string formatMessage(ErrorCode code, va_list arguments) {
  const char *format = errorInfo(code).format;
  char buffer[256];
  va_list again;
  va_copy(again, arguments);
  int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
  std::string message;
  if (length >= 0 && static_cast<std::size_t>(length) < sizeof buffer) {
    message = buffer;
  } else if (length >= 0) {
    message.resize(static_cast<std::size_t>(length));
    std::vsnprintf(message.data(), message.size() + 1, format, again);
  }
  va_end(again);
  return message;
}

/// Writes to the standard error stream through \p write, in large pieces. A stream that cannot be
/// written to does not end the program.
template <typename Writer> void toStandardError(Writer write) {
  std::fflush(stderr);
  llvm::raw_fd_ostream out(STDERR_FILENO, /*shouldClose=*/false);
  out.SetBufferSize(1 << 16);
  write(out);
  out.flush();
  out.clear_error();
}

} // namespace

Severity severityOf(ErrorCode code) {
  return severities[static_cast<std::size_t>(code)];
}

void ErrorEntry::print(llvm::raw_ostream &out) const {
  printReportLine(out, node->getRange(), static_cast<Severity>(severity), number, message);
}

void ErrorEntry::errorReport() const {
  toStandardError([this](llvm::raw_ostream &out) { print(out); });
}

ErrorHandler::~ErrorHandler() {
  for (ErrorEntry *entry : entries)
    delete entry;
}

void ErrorHandler::push(ErrorEntry::ErrorSeverity severity, ErrorCode code, Node *node,
                        std::string message) {
  entries.push_back(new ErrorEntry(severity, node, errorInfo(code).number, std::move(message)));
  lastEntry().setSourceUnit(TopLevel::getTopLevelInstance("")->getCurrentSourceUnit());
}

void ErrorHandler::PushError(ErrorCode code, Node *node, ...) {
  va_list arguments;
  va_start(arguments, node);
  push(ErrorEntry::Error, code, node, formatMessage(code, arguments));
  va_end(arguments);
  ++errorCount;
}

void ErrorHandler::PushWarn(ErrorCode code, Node *node, ...) {
  va_list arguments;
  va_start(arguments, node);
  push(ErrorEntry::Warning, code, node, formatMessage(code, arguments));
  va_end(arguments);
  ++warningCount;
}

void ErrorHandler::Report() {
  toStandardError([this](llvm::raw_ostream &out) {
    for (const ErrorEntry *entry : entries)
      entry->print(out);
  });
}

} // namespace tarka
