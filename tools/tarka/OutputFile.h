//===- OutputFile.h - where a command prints to -----------------*- C++ -*-===//

#ifndef TARKA_TOOLS_OUTPUTFILE_H
#define TARKA_TOOLS_OUTPUTFILE_H

#include "llvm/Support/FileSystem.h"
#include "llvm/Support/raw_ostream.h"
#include <memory>
#include <optional>
#include <string>

namespace tarka {

/// A file that appears whole or not at all: it is written beside its place, and renamed by
/// commit(). What is not a regular file, such as /dev/null or a pipe, is written to directly.
class OutputFile {
public:
  /// Opens \p path for writing; where that fails getError() says why.
  explicit OutputFile(const std::string &path);
  ~OutputFile();
  OutputFile(const OutputFile &) = delete;
  OutputFile &operator=(const OutputFile &) = delete;

  /// Null when the file could not be opened.
  llvm::raw_ostream *stream() { return out.get(); }
  /// Puts the file in its place. False when something could not be written.
  bool commit();
  const std::string &getError() const { return error; }

private:
  std::string path;
  std::string error;
  std::optional<llvm::sys::fs::TempFile> temporary;
  std::unique_ptr<llvm::raw_fd_ostream> out;
};

/// Where a command prints what it was asked for: the file of --output, or standard output.
class CommandOutput {
public:
  /// \p path is empty for standard output.
  explicit CommandOutput(const std::string &path);

  /// False, after a message, when the file cannot be written.
  bool isOpen() const { return out != nullptr; }
  llvm::raw_ostream &stream() { return *out; }
  /// Sends off what was printed. False, with a message, when it could not be written. \p what is
  /// the name of what was printed.
  bool finish(llvm::StringRef what);

private:
  std::optional<OutputFile> file;
  llvm::raw_ostream *out;
};

} // namespace tarka

#endif // TARKA_TOOLS_OUTPUTFILE_H
