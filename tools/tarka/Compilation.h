//===- Compilation.h - one program from its source to a report --*- C++ -*-===//

#ifndef TARKA_TOOLS_COMPILATION_H
#define TARKA_TOOLS_COMPILATION_H

#include "Analyzer/ErrorHandler.h"
#include "CommandLine.h"
#include "OutputFile.h"
#include "Parse/Dependencies.h"
#include "Parse/Diagnostics.h"
#include "Parse/Expansion.h"
#include "Report/Reporter.h"
#include "SourceLines.h"
#include "Verify.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include <string>
#include <vector>

namespace tarka {

class CFGModule;
class FileMemory;
class Program;

/// One file on its way through reading, checks and what is printed of it.
class Compilation {
public:
  /// \p source is the name of the file. With \p keepsWords the expansion is recorded with its
  /// words.
  Compilation(const Request &driverRequest, const std::string &source, bool keepsWords = false)
      : request(driverRequest), file(source), lines(driverRequest.parse),
        recordsExpansion(keepsWords || driverRequest.command == Command::Expand ||
                         driverRequest.listCopybooks),
        expansion(keepsWords || driverRequest.command == Command::Expand) {}

  /// Reads files through \p fileMemory, what this process remembers of those of other programs.
  void setFileMemory(FileMemory &fileMemory) { memory = &fileMemory; }
  /// Reads and checks the file and gives what is to be reported of it.
  FileReport check();
  /// The same for --verify: compares what was found with what the source expects.
  int verify();
  /// The program, after check(); null when the file could not be read.
  Program *getProgram() const { return program; }
  const FrontEndDiagnostics &getFrontEnd() const { return frontEnd; }
  /// What COPY and REPLACE made of the source, where it is recorded.
  const Expansion &getExpansion() const { return expansion; }
  /// The texts of the files that were read.
  SourceLines &getLines() { return lines; }
  /// What the front end has read; null where nothing asks for it.
  DependencyRecorder *getDependencies() { return dependencies.get(); }
  /// Prints what the program copies, as the report asks for; gives the exit status.
  int listCopybooks(llvm::raw_ostream &out);
  /// Prints what the command asks for, after check().
  int print();

private:
  /// False when the file cannot be read.
  bool analyse(std::string &failure);
  void hideConsequences(std::vector<Diagnostic> &findings);
  std::vector<Diagnostic> collectCauses();
  void explainByRepairs(std::vector<Diagnostic> &findings);
  void applyFixes(std::vector<Diagnostic> &findings);
  int printGraph(CommandOutput &output);
  GraphView drawableView(const CFGModule &module) const;
  int printLayout(CommandOutput &output);
  int printTree(CommandOutput &output);
  int printExpansion(CommandOutput &output);
  /// Whether the program is read and not checked.
  bool isFrontEndOnly() const {
    return request.syntaxOnly || request.command == Command::Expand || request.listCopybooks;
  }
  bool hasErrors() const { return frontEnd.hasErrors() || handler.getErrorCount() > 0; }

  const Request &request;
  const std::string &file;
  FileMemory *memory = nullptr;
  SourceLines lines;
  FrontEndDiagnostics frontEnd;
  ErrorHandler handler;
  /// What the second pass has found; only check runs it.
  std::vector<ErrorEntry> secondPass;
  PartResults parts{handler};
  bool recordsExpansion;
  Expansion expansion;
  /// What the front end reads; null unless something asks for it.
  llvm::IntrusiveRefCntPtr<DependencyRecorder> dependencies;
  Program *program = nullptr;
  bool checksSucceeded = false;
};

/// Does \p work, which compiles, in a thread with stack enough; in this one when it has it already.
void compile(llvm::function_ref<void()> work);

} // namespace tarka

#endif // TARKA_TOOLS_COMPILATION_H
