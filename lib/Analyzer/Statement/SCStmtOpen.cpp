//===- SCStmtOpen.cpp - OPEN and CLOSE ------------------------------------===//
//
// Which phrases fit the organization and the access mode of a file.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Statement.h"
#include "Analyzer/Statement/ExceptionProcedures.h"
#include "Analyzer/Statement/FileOperands.h"
#include "Analyzer/Statement/OperandCheck.h"

namespace tarka {

namespace {

UseFileMode useModeOf(OpenType mode) {
  switch (mode) {
  case OpenType::Input:
    return UseFileMode::Input;
  case OpenType::Output:
    return UseFileMode::Output;
  case OpenType::InputOutput:
    return UseFileMode::InputOutput;
  case OpenType::Extend:
    return UseFileMode::Extend;
  }
  return UseFileMode::None;
}

/// REVERSED and NO REWIND determine where on its tape a file begins.
bool checkOpenOption(SemanticChecker &checker, OpenFile &file, OpenType mode,
                     const ParaFileControl &control) {
  bool ok = true;
  switch (file.getOption()) {
  case OpenOption::None:
    break;
  case OpenOption::Reversed:
    if (mode != OpenType::Input)
      ok = checker.report(ErrorCode::OpenReversedMode, &file);
    if (!isSequential(control))
      ok = checker.report(ErrorCode::OpenReversedNotSequential, &file);
    break;
  case OpenOption::NoRewind:
    if (mode != OpenType::Input && mode != OpenType::Output)
      ok = checker.report(ErrorCode::OpenNoRewindMode, &file);
    if (!isSequential(control))
      ok = checker.report(ErrorCode::OpenNoRewindNotSequential, &file);
    break;
  }
  return ok;
}

bool checkOpenFile(SemanticChecker &checker, OpenFile &file, OpenType mode) {
  FileIdentifierExpression &name = *file.getFileName();
  if (!checkFileName(checker, name, FileDescType::File))
    return false;
  bool ok = checkFileHasRecord(checker, name);
  const ParaFileControl *control = controlOf(name);
  if (!control)
    return ok;
  ok &= checkOpenOption(checker, file, mode, *control);
  // The message mentions only sequential files. Indexed and relative ones can be extended as well
  // when they are accessed sequentially: only then is there an end to write after.
  if (mode == OpenType::Extend && !isSequential(*control) &&
      accessOf(*control) != AccessType::Sequential)
    ok = checker.report(ErrorCode::OpenExtendNotSequential, &name);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(OpenStatement &statement) {
  bool ok = true;
  for (OpenItem *item : statement.getItemListElements())
    for (OpenFile *file : item->getFileListElements()) {
      ok &= checkOpenFile(*this, *file, item->getType());
      markDeclaratives(*this, statement, describedBy(file->getFileName()),
                       useModeOf(item->getType()));
    }
  return ok;
}

bool SemanticChecker::semanticCheck(CloseStatement &statement) {
  bool ok = true;
  for (CloseFile *file : statement.getCloseFileListElements()) {
    ok &= checkFileName(*this, *file->getFileName(), FileDescType::File);
    markDeclaratives(
        *this, statement, describedBy(file->getFileName()),
        {UseFileMode::Input, UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  }
  return ok;
}

} // namespace tarka
