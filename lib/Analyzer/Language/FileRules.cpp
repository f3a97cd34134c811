//===- FileRules.cpp - files and what statements do with them -------------===//

#include "AST/DataDivision.h"
#include "AST/Environment.h"
#include "AST/KindNames.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/Statement/FileOperands.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallPtrSet.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// SELECT
//===----------------------------------------------------------------------===//

void checkFileControl(SourceUnit &unit, LanguageReport &report) {
  InputOutputSection *section = unit.getInputOutputSection();
  if (!section)
    return;
  DataDivision *division = unit.getDataDivision();
  llvm::DenseMap<const std::string *, ParaFileControl *> first;
  for (ParaFileControl *entry : section->getFileControlListElements()) {
    Word &name = *entry->getFileName();
    auto [known, isNew] = first.try_emplace(&name.getWordData(), entry);
    if (!isNew) {
      if (ErrorEntry *diagnostic =
              report.report(LanguageRule::FileSelectedTwice, name, name.getDisplayName()))
        diagnostic->addNote("first selected here", *known->second->getFileName());
      continue;
    }
    const bool isDescribed = division && !division->findFiles(name.getWordData()).empty();
    if (!isDescribed && !report.isTreeIncomplete())
      report.report(LanguageRule::FileNotDescribed, name, name.getDisplayName());
  }
}

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

namespace {

class FileStatementCheck : public StatementVisitor<FileStatementCheck> {
public:
  explicit FileStatementCheck(LanguageReport &languageReport) : report(languageReport) {}

  void visitStartStatement(StartStatement &statement) {
    // That a key is none of the file is reported at the key.
    if (statement.getKey() && report.isReported(*statement.getKey()))
      return;
    if (checkOrganization("START", *statement.getFileName()))
      checkAccess("START", *statement.getFileName(), AccessType::Random);
  }

  void visitDeleteStatement(DeleteStatement &statement) {
    if (checkOrganization("DELETE", *statement.getFileName()) &&
        statement.getInvalidKeyHandlerSize() > 0)
      checkAccess("INVALID KEY of DELETE", *statement.getFileName(), AccessType::Sequential);
  }

  void visitReadStatement(ReadStatement &statement) {
    // The checks before this pass set NEXT where the access is sequential or dynamic.
    auto has = [&](ExceptionHandlerType type) {
      return llvm::any_of(statement.getErrorListElements(), [type](const ExceptionHandler *phrase) {
        return phrase->getType() == type;
      });
    };
    if (statement.isNextRecord())
      checkAccess("READ NEXT", *statement.getFileName(), AccessType::Random);
    // AT END belongs to reading the next record, INVALID KEY to reading by a key.
    else if (has(ExceptionHandlerType::AtEnd))
      checkAccess("AT END of READ", *statement.getFileName(), AccessType::Random);
    if (has(ExceptionHandlerType::InvalidKey))
      checkAccess("INVALID KEY of READ", *statement.getFileName(), AccessType::Sequential);
  }

  void visitWriteStatement(WriteStatement &statement) {
    auto phrase = llvm::find_if(statement.getExceptionHandlerListElements(),
                                [](const ExceptionHandler *handler) {
                                  return handler->getType() == ExceptionHandlerType::EndOfPage;
                                });
    const DataDescription *record = statement.getRecordName()->getDataDescription();
    const FileDescription *file = record ? fileOfItem(*record) : nullptr;
    if (phrase == statement.getExceptionHandlerListElements().end() || !file)
      return;
    if (!file->getLinage() && !report.isTreeIncomplete())
      report.report(LanguageRule::EndOfPageWithoutLinage, **phrase,
                    file->getFileName()->getDisplayName());
    else if (statement.getAdvancing() && statement.getAdvancing()->getType() == WriteAdvType::Page)
      report.report(LanguageRule::EndOfPageWithPage, **phrase);
  }

  void visitMergeStatement(MergeStatement &statement) {
    llvm::SmallPtrSet<const FileDescription *, 8> named;
    for (SortIO *phrase : {statement.getInput(), statement.getOutput()})
      if (phrase)
        for (FileIdentifierExpression *file : phrase->getFileNameListElements())
          if (file->getFileDescription() && !named.insert(file->getFileDescription()).second)
            report.report(LanguageRule::MergeFileRepeated, *file,
                          file->getFileName()->getDisplayName());
  }

private:
  /// Null where the file is unknown, is a sort file or has no SELECT entry.
  static const ParaFileControl *controlOf(const FileIdentifierExpression &file) {
    const FileDescription *description = file.getFileDescription();
    return description && description->getType() == FileDescType::File
               ? description->getFileControl()
               : nullptr;
  }

  /// False, after a message, when the records of \p file can only be reached one after the other.
  bool checkOrganization(llvm::StringRef verb, FileIdentifierExpression &file) {
    const ParaFileControl *control = controlOf(file);
    if (!control || (control->getOrganizationType() != OrganizationType::Sequential &&
                     control->getOrganizationType() != OrganizationType::LineSequential))
      return true;
    report.report(LanguageRule::StatementOnSequentialFile, file, verb,
                  file.getFileName()->getDisplayName());
    return false;
  }

  void checkAccess(llvm::StringRef what, FileIdentifierExpression &file, AccessType forbidden) {
    const ParaFileControl *control = controlOf(file);
    if (!control)
      return;
    const AccessType access =
        control->getAccess() ? control->getAccess()->getType() : AccessType::Sequential;
    if (access == forbidden)
      report.report(LanguageRule::AccessModeForbids, file, what,
                    file.getFileName()->getDisplayName(), nameOf(forbidden).lower());
  }

  LanguageReport &report;
};

} // namespace

void checkFileStatement(Statement &statement, LanguageReport &report) {
  FileStatementCheck(report).visit(statement);
}

} // namespace tarka
