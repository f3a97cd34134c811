//===- ProcedureTest.h - procedure divisions parsed from memory -*- C++ -*-===//

#ifndef TARKA_UNITTESTS_PARSE_PROCEDURETEST_H
#define TARKA_UNITTESTS_PARSE_PROCEDURETEST_H

#include "AST/Program.h"
#include "Parse/Parse.h"
#include "TreeText.h"
#include "llvm/Support/FormatVariadic.h"
#include "llvm/Support/VirtualFileSystem.h"
#include "gtest/gtest.h"
#include <string>

namespace tarka {

/// Parses programs whose procedure division is the text of the test.
class ProcedureTest : public testing::Test {
protected:
  ProcedureTest() { options.format = SourceFormat::Free; }

  /// Parses \p text as a whole file.
  SourceUnit &parseFile(const std::string &text) {
    auto memory = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
    memory->addFile("MAIN.CBL", 0, llvm::MemoryBuffer::getMemBufferCopy(text));
    options.fileSystem = memory;
    diagnostics = FrontEndDiagnostics();
    llvm::ErrorOr<Program *> program = parseProgram("MAIN.CBL", "MAIN", options, diagnostics);
    return *(*program)->getSourceUnitListElements().front();
  }

  /// Parses \p text behind the header of the procedure division, from line 1 on.
  ProcedureDivision &parse(const std::string &text) {
    return *parseFile(before + "PROCEDURE DIVISION. " + text).getProcDivision();
  }

  /// The tree of \p text.
  std::string tree(const std::string &text) { return textOf(parse(text)); }
  /// The tree of the one sentence \p text, without its brackets.
  std::string statement(const std::string &text) {
    std::string all = tree(text + ".");
    return all.size() > 2 ? all.substr(1, all.size() - 2) : all;
  }
  /// The tree of a condition.
  std::string condition(const std::string &text) {
    std::string all = statement("IF " + text + " CONTINUE");
    llvm::StringRef inner = all;
    inner.consume_front("(if ");
    inner.consume_back(" {continue})");
    return inner.str();
  }
  /// The tree of an expression.
  std::string expression(const std::string &text) {
    std::string all = condition("A = " + text);
    llvm::StringRef inner = all;
    inner.consume_front("(= A ");
    inner.consume_back(")");
    return inner.str();
  }

  /// What was reported: number and place of each message, with one space between them. Columns of
  /// line 1 count from the first character of the procedure division's text.
  std::string reported() const {
    std::string all;
    unsigned shift = static_cast<unsigned>((before + "PROCEDURE DIVISION. ").size());
    for (const DiagnosticEntry &entry : diagnostics.getEntries()) {
      unsigned column = entry.place.beginColumn;
      if (entry.place.beginLine == 1 && before.find('\n') == std::string::npos && column > shift)
        column -= shift;
      all += llvm::formatv("{0}{1}@{2}:{3}", all.empty() ? "" : " ", entry.getNumber(),
                           entry.place.beginLine, column);
    }
    return all;
  }
  std::string message(unsigned index = 0) const {
    auto entries = diagnostics.getEntries();
    return index < entries.size() ? entries[index].message : "";
  }

  std::string before = "IDENTIFICATION DIVISION. PROGRAM-ID. P. ";
  ParseOptions options;
  FrontEndDiagnostics diagnostics;
};

/// A number of the table, as reported() shows it.
inline std::string operator+(DiagnosticId id, const std::string &place) {
  return std::to_string(static_cast<unsigned>(id)) + place;
}

} // namespace tarka

#endif // TARKA_UNITTESTS_PARSE_PROCEDURETEST_H
