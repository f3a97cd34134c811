//===- Generate.h - man pages and shell completions -------------*- C++ -*-===//
//
// Made of the tables of commands and options, so that they are never out of date.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_GENERATE_H
#define TARKA_TOOLS_GENERATE_H

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

struct Request;
struct CommandInfo;

void printBashCompletion(llvm::raw_ostream &os);
void printZshCompletion(llvm::raw_ostream &os);
void printFishCompletion(llvm::raw_ostream &os);

/// The page tarka(1), which lists the commands.
void printManPage(llvm::raw_ostream &os);
/// The page of \p command, such as tarka-check(1).
void printManPage(llvm::raw_ostream &os, const CommandInfo &command);

/// Carries out `tarka generate` and gives the exit status.
int generate(const Request &request);

} // namespace tarka

#endif // TARKA_TOOLS_GENERATE_H
