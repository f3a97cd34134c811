//===- Subject.cpp - what a diagnostic is about ---------------------------===//

#include "Report/Subject.h"
#include "AST/Expression.h"
#include "AST/KindNames.h"
#include "AST/PictureFault.h"
#include "AST/Program.h"
#include "AST/Scope.h"
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

std::string nameOfEntry(const DataDescription *entry) {
  return entry ? nameOf(entry->getDataName()) : "";
}

/// The picture and the usage of an elementary item, and that a group is one. A condition-name has
/// those of its conditional variable.
std::string describeItem(const DataDescription *item) {
  if (!item)
    return "";
  if (item->getLevelNum() == 88) {
    const DataDescription *variable = item->getCondNameParent();
    const std::string name = nameOfEntry(variable);
    if (name.empty())
      return "a condition-name";
    const std::string description = describeItem(variable);
    return "a condition-name of " + name + (description.empty() ? "" : ", " + description);
  }
  if (item->getChildrenSize() > 0)
    return "a group";
  std::string text;
  if (const ClausePicture *picture = item->getPicture())
    text = "PIC " + picture->getCharStringWord()->getDisplayName();
  if (const UsageType usage = item->getUsageType();
      usage != UsageType::None && usage != UsageType::Display)
    text += (text.empty() ? "" : " ") + nameOf(usage).str();
  return text;
}

/// The character at which a picture that breaks a rule goes wrong.
std::string describeFault(const DataDescription &item) {
  const ClausePicture *picture = item.getPicture();
  if (!picture || picture->getDataCategory() != DataCategory::Unclassified)
    return "";
  const llvm::StringRef text = picture->getCharStringWord()->getDisplayName();
  // Longer ones are wrong as a whole.
  constexpr std::size_t maxCharacters = 50;
  if (text.size() > maxCharacters)
    return "";
  const std::size_t fault = findPictureFault(text);
  if (fault >= text.size())
    return "";
  const std::string position = "position " + std::to_string(fault + 1);
  return ", wrong from " +
         (llvm::isASCII(text[fault]) ? "'" + text.substr(fault, 1).str() + "' in " : "") + position;
}

Subject describeExpression(const Expression &expression) {
  if (const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&expression)) {
    const DataDescription *entry = identifier->getDataDescription();
    std::string name = nameOf(identifier->getQualifiedWord());
    return {name.empty() ? nameOfEntry(entry) : name, describeItem(entry)};
  }
  if (const auto *file = llvm::dyn_cast<FileIdentifierExpression>(&expression))
    return {nameOf(file->getFileName()), ""};
  if (const auto *report = llvm::dyn_cast<ReportIdentifierExpression>(&expression))
    return {nameOf(report->getReportName()), ""};
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&expression))
    return {number->getData(), ""};
  return {};
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
  const Scope scope(&unit);
  switch (kind) {
  case NameKind::Operand:
    scope.forEachItem([&](const DataDescription *entry) { add(entry->getDataName()); });
    [[fallthrough]];
  case NameKind::SpecialName:
    scope.forEachSpecialName(add);
    break;
  case NameKind::File:
    scope.forEachFile([&](const FileDescription *file) { add(file->getFileName()); });
    break;
  case NameKind::Procedure:
    break;
  }
  return words;
}

/// Calls \p visit for the name of everything that can qualify \p entry, the nearest first, until it
/// returns true, which is the result.
bool findQualifier(const DataDescription &entry, llvm::function_ref<bool(const Word &)> visit) {
  for (const DataDescription *group = entry.getOwner(); group; group = group->getOwner())
    if (group->getDataName() && visit(*group->getDataName()))
      return true;
  const FileDescription *file = entry.getFileDescription();
  const ReportDescription *report = entry.getReportDescription();
  return (file && visit(*file->getFileName())) || (report && visit(*report->getReportName()));
}

/// The name nearest to the first of \p qualifiers that none of \p entries has, as written; empty
/// when none is near.
llvm::StringRef nearQualifier(llvm::ArrayRef<llvm::StringRef> qualifiers, const Homonyms &entries) {
  for (llvm::StringRef qualifier : qualifiers) {
    const std::string wanted = qualifier.upper();
    SpellingMatch match(wanted);
    llvm::StringRef nearest;
    const bool isKnown = llvm::any_of(*entries.entries, [&](const DataDescription *entry) {
      return findQualifier(*entry, [&](const Word &name) {
        if (match.consider(name.getWordData()))
          nearest = name.getSpelling();
        return name.getWordData() == wanted;
      });
    });
    if (!isKnown)
      return nearest;
  }
  return "";
}

/// The name nearest to \p name among the items that all of \p qualifiers fit, as written.
llvm::StringRef nearMember(llvm::StringRef name, llvm::ArrayRef<llvm::StringRef> qualifiers,
                           const Scope &scope) {
  const std::string wanted = name.upper();
  SpellingMatch match(wanted);
  llvm::StringRef nearest;
  scope.forEachItem([&](const DataDescription *entry) {
    std::size_t found = 0;
    const bool fits = findQualifier(*entry, [&](const Word &owner) {
      found += qualifiers[found].equals_insensitive(owner.getWordData());
      return found == qualifiers.size();
    });
    if (fits && match.consider(entry->getDataName()->getWordData()))
      nearest = entry->getDataName()->getSpelling();
  });
  return nearest;
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
    return {nameOf(item->getDataName()), describeItem(item) + describeFault(*item)};
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

llvm::StringRef NearNames::findQualified(llvm::StringRef reference, SourceUnit &unit) {
  auto &answers = namesOf(NameKind::Operand, unit).answers;
  const std::string wanted = reference.upper();
  if (const auto known = answers.find(wanted); known != answers.end())
    return known->second;
  if (answers.size() == maxNearNames)
    return "";
  llvm::SmallVector<llvm::StringRef, 4> names;
  reference.split(names, " OF ");
  const llvm::ArrayRef<llvm::StringRef> qualifiers = llvm::ArrayRef(names).drop_front();
  const Scope scope(&unit);
  const Homonyms homonyms = scope.findItems(&internString(names.front().upper()));
  if (!homonyms || qualifiers.empty())
    return "";
  const llvm::StringRef qualifier = nearQualifier(qualifiers, homonyms);
  return answers[wanted] =
             qualifier.empty() ? nearMember(names.front(), qualifiers, scope) : qualifier;
}

} // namespace tarka
