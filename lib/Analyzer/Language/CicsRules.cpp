//===- CicsRules.cpp - the rules of one command of CICS -------------------===//
//
// Compares a command with its row in the table of commands: which options it has,
// which exclude or need each other, and whether the arguments fit.
//
//===----------------------------------------------------------------------===//

#include "AST/CicsCommands.h"
#include "AST/Usage.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "EmbeddedRules.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallPtrSet.h"
#include "llvm/ADT/StringExtras.h"
#include <optional>

namespace tarka {

namespace {

std::string nameOfEntry(const DataDescription &entry) {
  return entry.getDataName() ? entry.getDataName()->getDisplayName() : "FILLER";
}

/// Whether \p entry is a signed or unsigned binary integer of as many digits as \p fewest to
/// \p most.
bool isBinaryInteger(const DataDescription &entry, int fewest, int most) {
  const ClausePicture *picture = entry.getPicture();
  return isBinary(entry.getUsageType()) && picture && picture->getScale() == 0 &&
         picture->getDigitNum() >= fewest && picture->getDigitNum() <= most;
}

bool isFullword(const DataDescription &entry) {
  return isBinaryInteger(entry, 5, 9);
}
bool isHalfword(const DataDescription &entry) {
  return isBinaryInteger(entry, 1, 4);
}

/// The data item that is the whole of \p operand, so that its description tells what CICS is given;
/// null for a literal, a part of an item, and an item of which nothing is known.
const DataDescription *wholeItem(const Expression *operand) {
  const auto *identifier = llvm::dyn_cast_if_present<DataIdentifierExpression>(operand);
  if (!identifier || identifier->getReferenceMod())
    return nullptr;
  const DataDescription *entry = identifier->getDataDescription();
  return entry && entry->getDataCategory() != DataCategory::Unclassified ? entry : nullptr;
}

/// The size in bytes of the item that \p operand names, where it is certain: items of the linkage
/// section may lie in a longer area.
std::optional<std::int64_t> sizeOfArea(const Expression *operand) {
  const DataDescription *entry = wholeItem(operand);
  if (!entry || entry->getStorageType() == StorageType::Linkage || entry->isTooLarge() ||
      entry->getAllocSize() <= 0)
    return std::nullopt;
  return entry->getAllocSize();
}

/// The number that \p operand stands for where it is certain: a literal, or LENGTH OF an item.
std::optional<std::int64_t> lengthOf(const Expression *operand) {
  if (const auto *literal = llvm::dyn_cast_if_present<NumericLiteralExpression>(operand);
      literal && literal->isInteger())
    return literal->getIntegerValue();
  const auto *special = llvm::dyn_cast_if_present<SpecialRegisterIdentifierExpression>(operand);
  if (special && special->getType() == SpecialRegisterType::LengthOf)
    return sizeOfArea(special->getIdent());
  return std::nullopt;
}

class CicsCheck {
public:
  CicsCheck(CicsCommand &checked, LanguageReport &languageReport)
      : command(checked), info(*checked.getInfo()), report(languageReport) {}

  void check() {
    if (llvm::any_of(command.getOperandElements(),
                     [](EmbeddedOperand *operand) { return operand->getName().empty(); }))
      return;
    bool ok = true;
    for (EmbeddedOperand *operand : command.getOperandElements())
      ok &= checkOption(*operand);
    // Another option may be the one that is missing.
    if (ok)
      checkGroups();
    checkLength("LENGTH", {"FROM", "INTO", "COMMAREA", "RESOURCE"});
    checkLength("FLENGTH", {"FROM", "INTO"});
    checkLength("FROMLENGTH", {"FROM"});
    checkLength("KEYLENGTH", {"RIDFLD"});
  }

private:
  /// The command in a message: in quotes only where the message is about it.
  llvm::StringRef name() const { return command.getName(); }

  bool isWordOfCommand(llvm::StringRef option) const {
    return llvm::is_contained(llvm::drop_begin(info.words), option);
  }

  /// Checks one option by itself; false when it is none or is repeated.
  bool checkOption(EmbeddedOperand &operand) {
    const CicsOptionInfo *row = info.findOption(operand.getName());
    if (!row) {
      if (isWordOfCommand(operand.getName()) && !operand.isWithArgument())
        return true;
      llvm::StringRef nearest = info.nearestOption(operand.getName());
      // Words in succession that are no options are one mistake, such as a statement in the block.
      if (nearest.empty() && !std::exchange(isInUnknownText, true))
        report.report(LanguageRule::CicsUnknownOption, operand, operand.getName(), name());
      else if (!nearest.empty())
        report.report(LanguageRule::CicsMisspeltOption, operand, operand.getName(), name(),
                      nearest);
      return false;
    }
    isInUnknownText = false;
    if (row == &info.anyOption) {
      checkCondition(operand);
      return true;
    }
    if (!seen.insert(row).second) {
      // One word too many is one mistake, and so is one line.
      if (withoutArgument != row && !std::exchange(isRepetitive, true))
        report.report(LanguageRule::CicsOptionRepeated, operand, operand.getName(), name());
      return false;
    }
    if (operand.isWithArgument() && row->argument == CicsArgument::None)
      report.report(LanguageRule::CicsArgumentUnexpected, operand, operand.getName(), name());
    else if (!operand.isWithArgument() && row->argument != CicsArgument::None &&
             !row->isArgumentOptional) {
      report.report(LanguageRule::CicsArgumentMissing, operand, operand.getName(), name());
      withoutArgument = row;
    } else
      checkArgument(operand, *row);
    return true;
  }

  void checkArgument(EmbeddedOperand &operand, const CicsOptionInfo &row) {
    Expression *value = operand.getValue();
    if (!value)
      return;
    // A length that CICS reads and returns is passed in a copy where it is a literal.
    const bool needsArea = operand.getRole() == EmbeddedRole::Written ||
                           (operand.isWritten() && row.argument == CicsArgument::Area);
    if (needsArea && llvm::isa<LiteralExpression>(value)) {
      report.report(LanguageRule::CicsLiteralWritten, *value, operand.getName(), name());
      return;
    }
    // What is only sent is converted to the form that CICS wants.
    const DataDescription *entry = wholeItem(value);
    if (!entry || !operand.isWritten())
      return;
    const bool isWord =
        row.argument == CicsArgument::Fullword || row.argument == CicsArgument::Cvda;
    if (isWord && !isFullword(*entry))
      report.report(LanguageRule::CicsNotFullword, *value, nameOfEntry(*entry), operand.getName(),
                    name());
    else if (row.argument == CicsArgument::Halfword && !isHalfword(*entry))
      report.report(LanguageRule::CicsNotHalfword, *value, nameOfEntry(*entry), operand.getName(),
                    name());
  }

  /// HANDLE CONDITION and IGNORE CONDITION name conditions.
  void checkCondition(EmbeddedOperand &operand) {
    const bool namesConditions = llvm::is_contained(info.words, "CONDITION");
    if (!namesConditions || isWordOfCommand(operand.getName()) || cicsCondition(operand.getName()))
      return;
    report.report(LanguageRule::CicsUnknownCondition, operand, operand.getName(),
                  suggestion(nearestCicsCondition(operand.getName())));
  }

  /// What excludes or needs each other. Of two options that exclude each other, the second one in
  /// the text is reported.
  void checkGroups() {
    llvm::SmallVector<const CicsOptionInfo *, 16> given(info.groups.size());
    for (EmbeddedOperand *operand : command.getOperandElements()) {
      const CicsOptionInfo *option = info.findOption(operand->getName());
      if (!option || option == &info.anyOption)
        continue;
      const CicsOptionInfo *&first = given[option->group];
      if (first)
        report.report(LanguageRule::CicsOptionsExclusive, *operand, option->name, first->name,
                      name());
      else
        checkNeeds(*operand, *option);
      first = option;
    }
    for (const auto &[group, option] : llvm::zip(info.groups, given)) {
      if (option || !group.isRequired)
        continue;
      llvm::SmallVector<llvm::StringRef, 4> names;
      for (unsigned number : group.options)
        names.push_back(info.options[number].name);
      report.report(LanguageRule::CicsOptionMissing, command, name(), listOf(names));
    }
  }

  void checkNeeds(EmbeddedOperand &operand, const CicsOptionInfo &option) {
    if (!option.needs.empty() &&
        llvm::none_of(option.needs, [&](llvm::StringRef other) { return command.has(other); }))
      report.report(LanguageRule::CicsOptionNeeds, operand, option.name, name(),
                    listOf(option.needs));
  }

  static std::string listOf(llvm::ArrayRef<llvm::StringRef> names) {
    return llvm::join(names, " or ");
  }

  /// A length that is certainly more than the area has of which it is the length.
  void checkLength(llvm::StringRef length, std::initializer_list<llvm::StringRef> areas) {
    EmbeddedOperand *given = command.find(length);
    const std::optional<std::int64_t> bytes = lengthOf(given ? given->getValue() : nullptr);
    // The area may have lost items to another mistake.
    if (!bytes || report.isTreeIncomplete())
      return;
    for (llvm::StringRef area : areas) {
      EmbeddedOperand *operand = command.find(area);
      const std::optional<std::int64_t> size = sizeOfArea(operand ? operand->getValue() : nullptr);
      if (size && *size < *bytes && !report.isReported(*wholeItem(operand->getValue())))
        report.report(LanguageRule::CicsLengthBeyondArea, *given,
                      nameOfEntry(*wholeItem(operand->getValue())), countOf(*size, "byte"), *bytes,
                      length);
    }
  }

  CicsCommand &command;
  const CicsCommandInfo &info;
  LanguageReport &report;
  /// The options that are given.
  llvm::SmallPtrSet<const CicsOptionInfo *, 16> seen;
  /// The option that was reported last because it has no argument.
  const CicsOptionInfo *withoutArgument = nullptr;
  bool isRepetitive = false;
  /// Whether the operand before this one is no option.
  bool isInUnknownText = false;
};

} // namespace

void checkCicsCommand(CicsCommand &command, LanguageReport &report) {
  if (command.getInfo())
    return CicsCheck(command, report).check();
  llvm::StringRef verb = command.getName();
  llvm::StringRef nearest = isCicsVerb(verb) ? "" : nearestCicsVerb(verb);
  if (nearest.empty())
    report.report(LanguageRule::CicsUnknownCommand, command, verb);
  else
    report.report(LanguageRule::CicsMisspeltCommand, command, verb, nearest);
}

} // namespace tarka
