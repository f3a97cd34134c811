//===- Input.h - the input format of the fuzzers ----------------*- C++ -*-===//
//
// An input is a compilation: the main file, then copybooks, each after a line
// "@NAME". An option is on when its name appears anywhere in the input, so that
// test programs, which name theirs in RUN lines, can be used as seeds.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FUZZ_INPUT_H
#define TARKA_FUZZ_INPUT_H

#include "Parse/ParseOptions.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"

namespace tarka::fuzz {

/// The name of the main file.
inline constexpr llvm::StringLiteral mainFile = "/MAIN";

/// One file of an input; the text is a slice of the input.
struct InputFile {
  llvm::StringRef name;
  llvm::StringRef text;
};

/// The files of \p input, the main file first.
llvm::SmallVector<InputFile, 4> splitInput(llvm::StringRef input);

/// Whether \p input asks for \p option, "--enable-osvs" for example.
bool hasOption(llvm::StringRef input, llvm::StringRef option);

/// Options that make the front end read \p input from memory, with bounds so low that a run that
/// keeps to them is short.
ParseOptions optionsFor(llvm::StringRef input);

} // namespace tarka::fuzz

#endif // TARKA_FUZZ_INPUT_H
