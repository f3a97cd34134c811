//===- OutputFile.cpp - where a command prints to -------------------------===//

#include "OutputFile.h"
#include "llvm/Support/Error.h"

namespace tarka {

namespace fs = llvm::sys::fs;

OutputFile::OutputFile(const std::string &name) : path(name) {
  // A link stays one.
  llvm::SmallString<128> resolved;
  if (!fs::real_path(path, resolved))
    path = resolved.str();

  fs::file_status status;
  const bool exists = !fs::status(path, status) && fs::exists(status);
  if (exists && !fs::is_regular_file(status)) {
    std::error_code code;
    out = std::make_unique<llvm::raw_fd_ostream>(path, code);
    if (code) {
      error = code.message();
      out.reset();
    }
    return;
  }
  // An existing file keeps its permissions.
  const unsigned mode = exists ? status.permissions() : fs::perms(fs::all_read | fs::all_write);
  llvm::Expected<fs::TempFile> created = fs::TempFile::create(path + ".%%%%%%", mode);
  if (!created) {
    error = llvm::toString(created.takeError());
    return;
  }
  temporary = std::move(*created);
  out = std::make_unique<llvm::raw_fd_ostream>(temporary->FD, /*shouldClose=*/false);
}

OutputFile::~OutputFile() {
  if (out)
    out->clear_error();
  out.reset();
  if (temporary)
    llvm::consumeError(temporary->discard());
}

bool OutputFile::commit() {
  out->flush();
  if (out->has_error()) {
    error = out->error().message();
    return false;
  }
  out.reset();
  if (!temporary)
    return true;
  llvm::Error failure = temporary->keep(path);
  temporary.reset();
  if (failure)
    error = llvm::toString(std::move(failure));
  return error.empty();
}

CommandOutput::CommandOutput(const std::string &path) : out(&llvm::outs()) {
  if (path.empty())
    return;
  file.emplace(path);
  out = file->stream();
  if (!out)
    llvm::errs() << "tarka: cannot write " << path << ": " << file->getError() << '\n';
}

bool CommandOutput::finish(llvm::StringRef what) {
  std::string reason;
  if (file) {
    if (file->commit())
      return true;
    reason = file->getError();
  } else {
    llvm::outs().flush();
    if (!llvm::outs().has_error())
      return true;
    reason = llvm::outs().error().message();
    llvm::outs().clear_error();
  }
  llvm::errs() << "tarka: cannot write the " << what << ": " << reason << '\n';
  return false;
}

} // namespace tarka
