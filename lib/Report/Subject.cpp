//===- Subject.cpp - what a diagnostic is about ---------------------------===//

#include "Report/Subject.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Spelling.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

/// How many different names of a program get an answer from NearNames.
constexpr std::size_t maxNearNames = 100;

std::string nameOf(const Word *word) {
  return word ? word->getDisplayName() : "";
}

std::string nameOf(const QualifiedWord *name) {
  std::string text;
  if (name)
    for (const Word *word : name->getNamesElements())
      text += (text.empty() ? "" : " OF ") + word->getDisplayName();
  return text;
}

/// The picture of an elementary item, and that a group is one.
std::string describeItem(const DataDescription *item) {
  if (!item || item->getLevelNum() == 88)
    return "";
  if (const ClausePicture *picture = item->getPicture())
    return "PIC " + picture->getCharStringWord()->getDisplayName();
  return item->isGroupItem() ? "a group" : "";
}

Subject describeExpression(const Expression &expression) {
  if (const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&expression))
    return {nameOf(identifier->getQualifiedWord()), describeItem(identifier->getDataDescription())};
  if (const auto *file = llvm::dyn_cast<FileIdentifierExpression>(&expression))
    return {nameOf(file->getFileName()), ""};
  if (const auto *report = llvm::dyn_cast<ReportIdentifierExpression>(&expression))
    return {nameOf(report->getReportName()), ""};
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&expression))
    return {number->getData(), ""};
  return {};
}

/// Calls \p enter for \p entry, everything below it and the condition names.
template <typename Enter> void walkEntries(DataDescription *entry, Enter enter) {
  enter(*entry);
  for (DataDescription *child : entry->getChildrenElements())
    walkEntries(child, enter);
  for (DataDescription *name :
       llvm::make_range(entry->getCondNameChildrenBegin(), entry->getCondNameChildrenEnd()))
    enter(*name);
}

template <typename Enter> void walkDivision(DataDivision &division, Enter enter) {
  for (const FileDescription *file : division.getFileSectionElements())
    for (DataDescription *record : file->getRecordDescElements())
      walkEntries(record, enter);
  if (const auto *records = division.getWorkSection())
    for (DataDescription *record : *records)
      walkEntries(record, enter);
  for (DataDescription *record : division.getLocalSectionElements())
    walkEntries(record, enter);
  for (DataDescription *record : division.getLinkSectionElements())
    walkEntries(record, enter);
}

std::vector<const Word *> wordsOf(NameKind kind, SourceUnit &unit) {
  std::vector<const Word *> words;
  auto add = [&](const Word *name) {
    // Entries that the checks make have no spelling.
    if (name && !name->getSpelling().empty())
      words.push_back(name);
  };
  if (kind == NameKind::Procedure) {
    ProcedureDivision *procedures = unit.getProcDivision();
    if (!procedures)
      return words;
    auto addSection = [&](const Section *section) {
      add(section->getSectionName());
      for (const Paragraph *paragraph : section->getParaElements())
        add(paragraph->getParagraphName());
    };
    for (const Paragraph *paragraph : procedures->getParaElements())
      add(paragraph->getParagraphName());
    for (const Section *section : procedures->getSectElements())
      addSection(section);
    for (const Declaratives *declarative : procedures->getDeclElements())
      if (const Section *section = declarative->getSection())
        addSection(section);
    return words;
  }
  DataDivision *division = unit.getDataDivision();
  if (division && kind == NameKind::File)
    for (const FileDescription *file : division->getFileSectionElements())
      add(file->getFileName());
  if (division && kind == NameKind::Data)
    walkDivision(*division, [&](const DataDescription &entry) { add(entry.getDataName()); });
  return words;
}

} // namespace

// A diagnostic has a Node, which has no kind of its own: the families of nodes are distinguished by
// their C++ type, the kinds within a family as everywhere.
Subject subjectOf(const Node &node) {
  if (const auto *expression = dynamic_cast<const Expression *>(&node))
    return describeExpression(*expression);
  if (const auto *word = dynamic_cast<const Word *>(&node))
    return {nameOf(word), ""};
  if (const auto *name = dynamic_cast<const QualifiedWord *>(&node))
    return {nameOf(name), ""};
  if (const auto *item = dynamic_cast<const DataDescription *>(&node))
    return {nameOf(item->getDataName()), describeItem(item)};
  if (const auto *file = dynamic_cast<const FileDescription *>(&node))
    return {nameOf(file->getFileName()), ""};
  if (const auto *report = dynamic_cast<const ReportDescription *>(&node))
    return {nameOf(report->getReportName()), ""};
  if (const auto *section = dynamic_cast<const Section *>(&node))
    return {nameOf(section->getSectionName()), ""};
  if (const auto *paragraph = dynamic_cast<const Paragraph *>(&node))
    return {nameOf(paragraph->getParagraphName()), ""};
  return {};
}

std::vector<DiagnosticNote> declarationsOf(llvm::StringRef name, SourceUnit &unit, unsigned limit) {
  std::vector<DiagnosticNote> notes;
  DataDivision *division = unit.getDataDivision();
  const auto *entries = division ? division->findItemByName(name.upper()) : nullptr;
  if (entries && entries->size() > 1)
    for (const DataDescription *entry : *entries) {
      if (notes.size() == limit)
        break;
      // A copybook that was copied twice has them in one place.
      if (llvm::any_of(notes, [&](const DiagnosticNote &note) {
            return note.place.file == entry->getRange().file &&
                   note.place.beginLine == entry->getRange().beginLine &&
                   note.place.beginColumn == entry->getRange().beginColumn;
          }))
        continue;
      std::string text = "one '" + nameOf(entry->getDataName()) + "' is declared here";
      if (const DataDescription *group = entry->getParent())
        text += ", in '" + nameOf(group->getDataName()) + "'";
      notes.push_back({std::move(text), entry->getRange(), ""});
    }
  return notes;
}

NearNames::Names &NearNames::namesOf(NameKind kind, SourceUnit &unit) {
  auto [position, isNew] = units.try_emplace({&unit, static_cast<unsigned>(kind)});
  if (isNew)
    position->second.words = wordsOf(kind, unit);
  return position->second;
}

llvm::StringRef NearNames::find(llvm::StringRef name, NameKind kind, SourceUnit &unit) {
  Names &names = namesOf(kind, unit);
  const std::string wanted = name.upper();
  if (auto known = names.answers.find(wanted); known != names.answers.end())
    return known->second;
  if (names.answers.size() == maxNearNames)
    return "";
  SpellingMatch match(wanted);
  llvm::StringRef nearest;
  for (const Word *word : names.words)
    if (match.consider(word->getWordData()))
      nearest = word->getSpelling();
  return names.answers[wanted] = nearest;
}

} // namespace tarka
