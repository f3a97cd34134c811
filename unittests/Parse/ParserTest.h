//===- ParserTest.h - programs parsed from memory ---------------*- C++ -*-===//

#ifndef TARKA_UNITTESTS_PARSE_PARSERTEST_H
#define TARKA_UNITTESTS_PARSE_PARSERTEST_H

#include "AST/Condition.h"
#include "AST/Program.h"
#include "Parse/Parse.h"
#include "llvm/Support/FormatVariadic.h"
#include "llvm/Support/VirtualFileSystem.h"
#include "gtest/gtest.h"
#include <string>

namespace tarka {

/// Parses programs in free form. The text of a test begins in line 2, after the identification
/// division.
class ParserTest : public testing::Test {
protected:
  SourceUnit *parse(llvm::StringRef text) {
    auto memory = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
    std::string source = "IDENTIFICATION DIVISION. PROGRAM-ID. P.\n" + text.str();
    memory->addFile("MAIN.CBL", 0, llvm::MemoryBuffer::getMemBufferCopy(source));
    options.fileSystem = memory;
    options.format = SourceFormat::Free;
    diagnostics = FrontEndDiagnostics();
    program = *parseProgram("MAIN.CBL", "MAIN", options, diagnostics);
    unit = program->getSourceUnitListElements().front();
    return unit;
  }

  /// Parses a program with this data division.
  DataDivision &parseData(llvm::StringRef text) {
    return *parse("DATA DIVISION.\n" + text.str())->getDataDivision();
  }
  /// Parses a program with these entries of working-storage, the first of them in line 2, and gives
  /// the first one.
  DataDescription &parseEntries(llvm::StringRef text) {
    return *parse("DATA DIVISION. WORKING-STORAGE SECTION.\n" + text.str())
                ->getDataDivision()
                ->getWorkSection()
                ->front();
  }

  /// What was reported: number and place of each message, with one space between them.
  std::string reported() const {
    std::string all;
    for (const DiagnosticEntry &entry : diagnostics.getEntries())
      all += llvm::formatv("{0}{1}@{2}:{3}", all.empty() ? "" : " ", entry.getNumber(),
                           entry.place.beginLine, entry.place.beginColumn);
    return all;
  }
  std::string message(unsigned index = 0) const {
    auto entries = diagnostics.getEntries();
    return index < entries.size() ? entries[index].message : "";
  }

  static std::string place(const Node &node) {
    return llvm::formatv("{0}:{1}-{2}:{3}", node.getBeginLineNo(), node.getBeginCharPos(),
                         node.getEndLineNo(), node.getEndCharPos());
  }

  ParseOptions options;
  FrontEndDiagnostics diagnostics;
  Program *program = nullptr;
  SourceUnit *unit = nullptr;
};

} // namespace tarka

#endif // TARKA_UNITTESTS_PARSE_PARSERTEST_H
