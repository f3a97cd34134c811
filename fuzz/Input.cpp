//===- Input.cpp - the input format of the fuzzers ------------------------===//

#include "Input.h"
#include "llvm/Support/MemoryBuffer.h"
#include <cstdlib>

namespace tarka::fuzz {

llvm::SmallVector<InputFile, 4> splitInput(llvm::StringRef input) {
  llvm::SmallVector<InputFile, 4> files;
  llvm::StringRef name = mainFile;
  for (;;) {
    size_t mark = input.starts_with("@") ? 0 : input.find("\n@");
    bool isLast = mark == llvm::StringRef::npos;
    size_t end = isLast ? input.size() : mark + (input[mark] == '\n');
    files.push_back({name, input.take_front(end)});
    if (isLast)
      return files;
    llvm::StringRef line = input.substr(end + 1).take_until([](char c) { return c == '\n'; });
    name = line.take_until([](char c) { return c <= ' ' || c == '/'; }).take_front(60);
    input = input.drop_front(std::min(input.size(), end + 1 + line.size() + 1));
  }
}

bool hasOption(llvm::StringRef input, llvm::StringRef option) {
  return input.contains(option);
}

ParseOptions optionsFor(llvm::StringRef input) {
  ParseOptions options;
  if (hasOption(input, "--source-format=free"))
    options.format = SourceFormat::Free;
  else if (hasOption(input, "--source-format=fixed"))
    options.format = SourceFormat::Fixed;
  options.osvs = hasOption(input, "--enable-osvs");
  options.cics = hasOption(input, "--cics");
  options.sql = hasOption(input, "--sql");
  options.defines = {{"NUMBER", "1"}, {"TEXT", "T"}};
  options.limits.copyExpansions = 100;
  options.limits.replacementTokens = 50'000;

  auto memory = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
  if (memory->setCurrentWorkingDirectory("/"))
    abort();
  for (const InputFile &file : splitInput(input))
    if (!file.name.empty() && !file.name.starts_with("."))
      memory->addFile(file.name, 0, llvm::MemoryBuffer::getMemBufferCopy(file.text, file.name));
  options.fileSystem = std::move(memory);
  return options;
}

} // namespace tarka::fuzz
