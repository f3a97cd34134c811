//===- FileRules.cpp - files and what statements do with them -------------===//

#include "AST/DataDivision.h"
#include "AST/Environment.h"
#include "AST/KindNames.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/FileOperands.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallPtrSet.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// SELECT
//===----------------------------------------------------------------------===//

namespace {

void checkKeys(ParaFileControl &entry, LanguageReport &report) {
  Word &name = *entry.getFileName();
  const AccessType access =
      entry.getAccess() ? entry.getAccess()->getType() : AccessType::Sequential;
  const OrganizationType organization = entry.getOrganizationType();
  if (organization == OrganizationType::Indexed && !entry.getRecordKey())
    report.report(LanguageRule::IndexedWithoutKey, name, name.getDisplayName());
  if (organization == OrganizationType::Relative && access != AccessType::Sequential &&
      !entry.getRelativeKey())
    report.report(LanguageRule::RelativeWithoutKey, name, name.getDisplayName(),
                  nameOf(access).lower());
}

void checkStatus(const ParaFileControl &entry, LanguageReport &report) {
  DataIdentifierExpression *item = entry.getStatus() ? entry.getStatus()->getStatus_1() : nullptr;
  const DataDescription *status = item ? item->getDataDescription() : nullptr;
  if (!status || isUnknown(*item) || status->getAllocSize() <= 0)
    return;
  const bool isWide = status->getUsageType() == UsageType::National;
  const std::int64_t characters = status->getAllocSize() / (isWide ? 2 : 1);
  if (characters != 2)
    report.report(LanguageRule::FileStatusSize, *item,
                  item->getQualifiedWord()->getNamesElements().front()->getDisplayName(),
                  countOf(characters, "character"));
}

/// Without an ORGANIZATION clause old programs say with the name of the device what the file is.
void checkAccess(ParaFileControl &entry, LanguageReport &report) {
  if (entry.getAccess() && entry.getAccess()->getType() != AccessType::Sequential &&
      entry.getOrganization() && isSequential(entry))
    report.report(LanguageRule::AccessNotSequential, *entry.getAccess(),
                  entry.getFileName()->getDisplayName(),
                  nameOf(entry.getAccess()->getType()).lower());
}

//===----------------------------------------------------------------------===//
// FD
//===----------------------------------------------------------------------===//

/// The value of an integer literal of the source; nothing for an item, and for a length that the
/// checks have made of the records.
std::optional<std::int64_t> integerOf(const Expression *operand) {
  const auto *literal = llvm::dyn_cast_or_null<NumericLiteralExpression>(operand);
  if (!literal || !literal->isInteger() || literal->getRange().origin != Origin::Source)
    return std::nullopt;
  return literal->getIntegerValue();
}

void checkLinage(const FileDescription &file, LanguageReport &report) {
  const ClauseLinage *linage = file.getLinage();
  if (!linage)
    return;
  const std::string &name = file.getFileName()->getDisplayName();
  const std::optional<std::int64_t> lines = integerOf(linage->getNumOfLines());
  const std::optional<std::int64_t> footing = integerOf(linage->getWithFootingAt());
  if (lines && *lines < 1)
    report.report(LanguageRule::LinageTooSmall, *linage->getNumOfLines(), name);
  else if (footing && (*footing < 1 || (lines && *footing > *lines)))
    report.report(LanguageRule::FootingOutsidePage, *linage->getWithFootingAt(), name, *footing,
                  lines ? countOf(*lines, "line") : "lines from 1");
}

void checkRecordLengths(FileDescription &file, LanguageReport &report) {
  const ClauseRecord *clause = file.getRecord();
  if (!clause)
    return;
  const std::string &name = file.getFileName()->getDisplayName();
  const std::optional<std::int64_t> least = integerOf(clause->getMinLength());
  const std::optional<std::int64_t> most = integerOf(clause->getMaxLength());
  if (least && most && *least > *most) {
    report.report(LanguageRule::RecordLengthsReversed, *clause->getMinLength(), name, *least,
                  *most);
    return;
  }
  // RECORD CONTAINS n gives one length, which stands as the smallest one. With 0 the length is that
  // of the data set.
  const bool isFixed = !clause->getIsVarying() && !clause->getMaxLength();
  const std::optional<std::int64_t> limit = isFixed ? least : most;
  // A mistake that was reported can make a record longer or shorter.
  if (!limit || *limit <= 0 || report.hasEarlier())
    return;
  std::int64_t longest = 0;
  for (DataDescription *record : file.getRecordDescElements()) {
    if (record->isTooLarge() || record->getAllocSize() <= 0)
      return;
    longest = std::max(longest, record->getAllocSize());
    if (record->getAllocSize() > *limit && record->getDataName())
      report.report(LanguageRule::RecordLongerThanFile, *record->getDataName(),
                    record->getDataName()->getDisplayName(),
                    countOf(record->getAllocSize(), "character"), name, *limit);
  }
  // The clause may count the character that controls the printer, which the compiler adds.
  constexpr std::int64_t printerControl = 1;
  if (isFixed && longest > 0 && longest + printerControl < *limit)
    report.report(LanguageRule::RecordShorterThanFile, *clause->getMinLength(), name,
                  countOf(longest, "character"), *limit);
}

void checkBlock(const FileDescription &file, LanguageReport &report) {
  const ClauseBlock *block = file.getBlock();
  if (!block)
    return;
  const std::optional<std::int64_t> least = integerOf(block->getMinLength());
  const std::optional<std::int64_t> most = integerOf(block->getMaxLength());
  if (least && most && *least > *most)
    report.report(LanguageRule::BlockLengthsReversed, *block->getMinLength(),
                  file.getFileName()->getDisplayName(), *least, *most);
}

} // namespace

void checkFileDescriptions(DataDivision &division, LanguageReport &report) {
  for (FileDescription *file : division.getFileSectionElements()) {
    checkLinage(*file, report);
    checkBlock(*file, report);
    if (!report.isTreeIncomplete())
      checkRecordLengths(*file, report);
    // A statement on the file has a message of its own.
    if (report.hasEarlier())
      continue;
    Word &name = *file->getFileName();
    const FileDescription *first = division.findFiles(name.getWordData()).front();
    if (first != file) {
      if (ErrorEntry *diagnostic =
              report.report(LanguageRule::FileDescribedTwice, name, name.getDisplayName()))
        diagnostic->addNote("first described here", *first->getFileName());
    } else if (file->getRecordDescSize() == 0 && !file->getReport()) {
      report.report(LanguageRule::FileWithoutRecord, name, name.getDisplayName(),
                    file->getType() == FileDescType::SortMerge ? "SD" : "FD");
    }
  }
}

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
    if (!report.isTreeIncomplete()) {
      checkKeys(*entry, report);
      checkAccess(*entry, report);
    }
    checkStatus(*entry, report);
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
  FileStatementCheck(FileUsage &fileUsage, LanguageReport &languageReport)
      : usage(fileUsage), report(languageReport) {}

  void visitOpenStatement(OpenStatement &statement) {
    llvm::SmallPtrSet<const FileDescription *, 8> named;
    for (const OpenItem *item : statement.getItemListElements())
      for (const OpenFile *file : item->getFileListElements())
        if (const FileDescription *description = file->getFileName()->getFileDescription()) {
          usage.addOpen(*description, item->getType());
          checkNamedOnce(*file->getFileName(), named, "OPEN");
        }
  }

  void visitReturnStatement(ReturnStatement &statement) {
    if (const FileDescription *file = statement.getFileName()->getFileDescription())
      usage.add(FileUse::Return, *file, *statement.getFileName());
  }

  void visitReleaseStatement(ReleaseStatement &statement) {
    if (const FileDescription *file = fileOfRecord(statement.getRecordName()))
      usage.add(FileUse::Release, *file, *statement.getRecordName());
  }

  void visitSortStatement(SortStatement &statement) {
    if (const FileDescription *file = statement.getFileName()->getFileDescription())
      usage.addSort(*file, statement.getInput(), statement.getOutput());
  }

  /// The program that gets the file can open it.
  void visitCallStatement(CallStatement &statement) {
    for (const Argument *argument : statement.getArgumentListElements())
      if (const auto *file = llvm::dyn_cast_or_null<FileIdentifierExpression>(argument->getExpr());
          file && file->getFileDescription())
        usage.addPassed(*file->getFileDescription());
  }

  void visitStartStatement(StartStatement &statement) {
    addUse(FileUse::Start, *statement.getFileName());
    // That a key is none of the file is reported at the key.
    if (statement.getKey() && report.isReported(*statement.getKey()))
      return;
    if (checkOrganization("START", *statement.getFileName()))
      checkAccess("START", *statement.getFileName(), AccessType::Random);
  }

  void visitDeleteStatement(DeleteStatement &statement) {
    addUse(FileUse::Delete, *statement.getFileName());
    if (checkOrganization("DELETE", *statement.getFileName()) &&
        statement.getInvalidKeyHandlerSize() > 0)
      checkAccess("INVALID KEY of DELETE", *statement.getFileName(), AccessType::Sequential);
  }

  void visitReadStatement(ReadStatement &statement) {
    addUse(FileUse::Read, *statement.getFileName());
    auto has = [&](ExceptionHandlerType type) {
      return llvm::any_of(statement.getErrorListElements(), [type](const ExceptionHandler *phrase) {
        return phrase->getType() == type;
      });
    };
    if (has(ExceptionHandlerType::AtEnd) && has(ExceptionHandlerType::InvalidKey)) {
      report.report(LanguageRule::ReadPhrasesMixed, *statement.getFileName(),
                    statement.getFileName()->getFileName()->getDisplayName());
      return;
    }
    // With sequential access, and with AT END, the checks before this pass set NEXT.
    const FileDescription *file = statement.getFileName()->getFileDescription();
    const ParaFileControl *control = file ? controlOf(*file) : nullptr;
    const bool isNextWritten = statement.isNextRecord() && control && control->getAccess() &&
                               control->getAccess()->getType() == AccessType::Dynamic &&
                               (statement.getKeyName() || has(ExceptionHandlerType::InvalidKey));
    if (isNextWritten)
      report.report(LanguageRule::ReadNextPhrase, *statement.getFileName(),
                    statement.getKeyName() ? "KEY" : "INVALID KEY",
                    file->getFileName()->getDisplayName());
    else if (statement.isNextRecord())
      checkAccess("READ NEXT", *statement.getFileName(), AccessType::Random);
    // AT END belongs to reading the next record, INVALID KEY to reading by a key.
    else if (has(ExceptionHandlerType::AtEnd))
      checkAccess("AT END of READ", *statement.getFileName(), AccessType::Random);
    if (has(ExceptionHandlerType::InvalidKey))
      checkAccess("INVALID KEY of READ", *statement.getFileName(), AccessType::Sequential);
  }

  void visitRewriteStatement(RewriteStatement &statement) {
    const FileDescription *file = fileOfRecord(statement.getRecordName());
    if (file)
      usage.add(FileUse::Rewrite, *file, *statement.getRecordName());
    if (!file || statement.getInvalidKeyHandlerSize() == 0)
      return;
    // A record of a sequential file, or the last one read of a relative one, is not found by a key.
    Expression &name = *statement.getRecordName();
    if (const ParaFileControl *control = controlOf(*file);
        checkOrganization("INVALID KEY of REWRITE", name, *file) && control &&
        control->getOrganizationType() == OrganizationType::Relative)
      checkAccess("INVALID KEY of REWRITE", name, *file, AccessType::Sequential);
  }

  void visitCloseStatement(CloseStatement &statement) {
    llvm::SmallPtrSet<const FileDescription *, 8> named;
    for (CloseFile *file : statement.getCloseFileListElements()) {
      // A file has several reels.
      if (file->getOption() < CloseOption::Reel)
        checkNamedOnce(*file->getFileName(), named, "CLOSE");
      const FileDescription *description = file->getFileName()->getFileDescription();
      const ParaFileControl *control = description ? controlOf(*description) : nullptr;
      const bool isOfTape =
          file->getOption() != CloseOption::None && file->getOption() != CloseOption::Lock;
      if (control && isOfTape && !isSequential(*control))
        report.report(LanguageRule::CloseOptionNotSequential, *file->getFileName(),
                      nameOf(file->getOption()), description->getFileName()->getDisplayName(),
                      nameOf(control->getOrganizationType()).lower());
    }
  }

  void visitWriteStatement(WriteStatement &statement) {
    const FileDescription *file = fileOfRecord(statement.getRecordName());
    if (!file)
      return;
    const ParaFileControl *control = controlOf(*file);
    usage.add(control && isSequential(*control) ? FileUse::Write : FileUse::WriteByKey, *file,
              *statement.getRecordName());
    auto phrase = llvm::find_if(statement.getExceptionHandlerListElements(),
                                [](const ExceptionHandler *handler) {
                                  return handler->getType() == ExceptionHandlerType::EndOfPage;
                                });
    if (phrase == statement.getExceptionHandlerListElements().end())
      return;
    if (!file->getLinage() && !report.isTreeIncomplete())
      report.report(LanguageRule::EndOfPageWithoutLinage, **phrase,
                    file->getFileName()->getDisplayName());
    else if (statement.getAdvancing() && statement.getAdvancing()->getType() == WriteAdvType::Page)
      report.report(LanguageRule::EndOfPageWithPage, **phrase);
  }

  void visitMergeStatement(MergeStatement &statement) {
    if (const FileDescription *file = statement.getFileName()->getFileDescription())
      usage.addSort(*file, nullptr, statement.getOutput());
    llvm::SmallPtrSet<const FileDescription *, 8> named;
    for (SortIO *phrase : {statement.getInput(), statement.getOutput()})
      if (phrase)
        for (FileIdentifierExpression *file : phrase->getFileNameListElements())
          if (file->getFileDescription() && !named.insert(file->getFileDescription()).second)
            report.report(LanguageRule::MergeFileRepeated, *file,
                          file->getFileName()->getDisplayName());
  }

private:
  void addUse(FileUse use, FileIdentifierExpression &name) {
    if (const FileDescription *file = name.getFileDescription())
      usage.add(use, *file, name);
  }

  static const FileDescription *fileOfRecord(const Expression *name) {
    const DataDescription *record = name ? entryOfDataIdentifier(*name) : nullptr;
    return record ? fileOfItem(*record) : nullptr;
  }

  /// \p named are the files that the statement has named so far.
  void checkNamedOnce(FileIdentifierExpression &name,
                      llvm::SmallPtrSetImpl<const FileDescription *> &named, llvm::StringRef verb) {
    const FileDescription *file = name.getFileDescription();
    if (file && !named.insert(file).second)
      report.report(LanguageRule::FileNamedTwice, name, file->getFileName()->getDisplayName(),
                    verb);
  }

  /// Null where \p file is a sort file or has no SELECT entry.
  static const ParaFileControl *controlOf(const FileDescription &file) {
    return file.getType() == FileDescType::File ? file.getFileControl() : nullptr;
  }

  /// Without an ORGANIZATION clause a file can still be one with keys: old programs say so with the
  /// name of the device.
  static bool isSequential(const ParaFileControl &control) {
    if (!control.getOrganization() && (control.getRecordKey() || control.getRelativeKey()))
      return false;
    return control.getOrganizationType() == OrganizationType::Sequential ||
           control.getOrganizationType() == OrganizationType::LineSequential;
  }

  /// False, after a message at \p place, when the records of \p file can only be reached one after
  /// the other.
  bool checkOrganization(llvm::StringRef what, Node &place, const FileDescription &file) {
    const ParaFileControl *control = controlOf(file);
    if (!control || !isSequential(*control))
      return true;
    report.report(LanguageRule::StatementOnSequentialFile, place, what,
                  file.getFileName()->getDisplayName());
    return false;
  }

  bool checkOrganization(llvm::StringRef what, FileIdentifierExpression &name) {
    const FileDescription *file = name.getFileDescription();
    return !file || checkOrganization(what, name, *file);
  }

  void checkAccess(llvm::StringRef what, Node &place, const FileDescription &file,
                   AccessType forbidden) {
    const ParaFileControl *control = controlOf(file);
    if (!control)
      return;
    const AccessType access =
        control->getAccess() ? control->getAccess()->getType() : AccessType::Sequential;
    if (access == forbidden)
      report.report(LanguageRule::AccessModeForbids, place, what,
                    file.getFileName()->getDisplayName(), nameOf(forbidden).lower());
  }

  void checkAccess(llvm::StringRef what, FileIdentifierExpression &name, AccessType forbidden) {
    if (const FileDescription *file = name.getFileDescription())
      checkAccess(what, name, *file, forbidden);
  }

  FileUsage &usage;
  LanguageReport &report;
};

} // namespace

void checkFileStatement(Statement &statement, FileUsage &usage, LanguageReport &report) {
  FileStatementCheck(usage, report).visit(statement);
}

} // namespace tarka
