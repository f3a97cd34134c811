//===- CicsCommands.cpp - the commands of CICS ----------------------------===//

#include "AST/CicsCommands.h"
#include "AST/Spelling.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringSwitch.h"
#include <cassert>
#include <vector>

namespace tarka {

namespace {

struct Row {
  llvm::StringLiteral command;
  llvm::StringLiteral options;
};

constexpr Row rows[] = {
#define CICS_COMMAND(Words, Options) {Words, Options},
#include "AST/CicsCommands.def"
};

/// What every command can have.
constexpr llvm::StringLiteral commonOptions = " RESP(of) RESP2(of) NOHANDLE";

/// The notation for an argument, see CicsCommands.def.
void setArgument(CicsOptionInfo &option, llvm::StringRef text) {
  option.isArgumentOptional = text.consume_front("?");
  option.role = text.consume_front("io")  ? EmbeddedRole::ReadWritten
                : text.consume_front("o") ? EmbeddedRole::Written
                                          : EmbeddedRole::Read;
  option.argument = llvm::StringSwitch<CicsArgument>(text)
                        .Cases("", "a", CicsArgument::Area)
                        .Case("v", CicsArgument::Value)
                        .Case("n", CicsArgument::Name)
                        .Case("h", CicsArgument::Halfword)
                        .Case("f", CicsArgument::Fullword)
                        .Case("c", CicsArgument::Cvda)
                        .Case("p", CicsArgument::Pointer)
                        .Case("t", CicsArgument::Time)
                        .Case("l", CicsArgument::Label)
                        .Default(CicsArgument::None);
  assert(option.argument != CicsArgument::None && "an unknown kind of argument");
  if (option.argument == CicsArgument::Label)
    option.role = EmbeddedRole::Label;
}

/// Reads one option with its argument and what it needs.
CicsOptionInfo readOption(llvm::StringRef text) {
  CicsOptionInfo option;
  auto [described, needs] = text.split('>');
  auto [name, argument] = described.split('(');
  option.name = name;
  if (!argument.empty())
    setArgument(option, argument.drop_back());
  if (!needs.empty())
    needs.split(option.needs, ',');
  return option;
}

void readOptions(CicsCommandInfo &command, llvm::StringRef text) {
  llvm::SmallVector<llvm::StringRef, 32> groups;
  text.split(groups, ' ', -1, /*KeepEmpty=*/false);
  for (llvm::StringRef groupText : groups) {
    CicsOptionGroup group;
    group.isRequired = groupText.consume_front("!");
    llvm::SmallVector<llvm::StringRef, 4> alternatives;
    groupText.split(alternatives, '|');
    for (llvm::StringRef alternative : alternatives) {
      CicsOptionInfo option = readOption(alternative);
      if (option.name == "*") {
        command.isOpen = true;
        command.anyOption = std::move(option);
        continue;
      }
      option.group = static_cast<unsigned>(command.groups.size());
      const auto number = static_cast<unsigned>(command.options.size());
      [[maybe_unused]] bool isNew = command.optionNumbers.try_emplace(option.name, number).second;
      assert(isNew && "an option is listed twice");
      group.options.push_back(number);
      command.options.push_back(std::move(option));
    }
    command.groups.push_back(std::move(group));
  }
}

class CommandTable {
public:
  CommandTable() {
    commands.reserve(std::size(rows));
    for (const Row &row : rows) {
      CicsCommandInfo &command = commands.emplace_back();
      command.name = row.command;
      row.command.split(command.words, ' ');
      readOptions(command, row.options);
      readOptions(command, commonOptions);
      byVerb[command.words.front()].push_back(&command);
    }
  }

  std::vector<CicsCommandInfo> commands;
  llvm::StringMap<llvm::SmallVector<const CicsCommandInfo *, 2>> byVerb;
};

const CommandTable &table() {
  static const CommandTable commands;
  return commands;
}

} // namespace

const CicsOptionInfo *CicsCommandInfo::findOption(llvm::StringRef option) const {
  auto found = optionNumbers.find(option);
  if (found != optionNumbers.end())
    return &options[found->second];
  return isOpen ? &anyOption : nullptr;
}

llvm::StringRef CicsCommandInfo::nearestOption(llvm::StringRef option) const {
  SpellingMatch match(option);
  for (const CicsOptionInfo &candidate : options)
    match.consider(candidate.name);
  return match.getNearest();
}

const CicsCommandInfo *findCicsCommand(llvm::StringRef verb,
                                       llvm::ArrayRef<llvm::StringRef> options) {
  auto found = table().byVerb.find(verb);
  if (found == table().byVerb.end())
    return nullptr;
  const CicsCommandInfo *best = nullptr;
  std::pair<int, std::size_t> bestRank; // the number of words, negative; the place of the last one
  for (const CicsCommandInfo *command : found->second) {
    std::size_t last = 0;
    for (llvm::StringRef word : llvm::drop_begin(command->words))
      last = std::max(last, static_cast<std::size_t>(llvm::find(options, word) - options.begin()));
    const std::pair rank(-static_cast<int>(command->words.size()), last);
    const bool hasAllWords = command->words.size() == 1 || last < options.size();
    if (hasAllWords && (!best || rank < bestRank)) {
      best = command;
      bestRank = rank;
    }
  }
  return best;
}

bool isCicsVerb(llvm::StringRef verb) {
  return table().byVerb.contains(verb);
}

llvm::StringRef nearestCicsVerb(llvm::StringRef verb) {
  // In the order of the table: the hash map has none.
  SpellingMatch match(verb);
  for (const CicsCommandInfo &command : table().commands)
    match.consider(command.words.front());
  return match.getNearest();
}

//===----------------------------------------------------------------------===//
// Constants
//===----------------------------------------------------------------------===//

namespace {

struct Constant {
  llvm::StringLiteral name;
  unsigned number;
};

constexpr Constant conditions[] = {
#define CICS_CONDITION(Name, Number) {Name, Number},
#include "AST/CicsConstants.def"
};

/// The verbs of the commands that raise a condition, for those that few commands raise.
const llvm::StringMap<llvm::SmallVector<llvm::StringRef, 4>> &conditionSources() {
  static const auto sources = [] {
    llvm::StringMap<llvm::SmallVector<llvm::StringRef, 4>> made;
#define CICS_RAISED_BY(Condition, Verbs) llvm::StringRef(Verbs).split(made[Condition], ' ');
#include "AST/CicsConstants.def"
    return made;
  }();
  return sources;
}

/// Above all numbers of CICS.
constexpr unsigned firstOtherState = 100'000;

const llvm::StringMap<unsigned> &states() {
  static const llvm::StringMap<unsigned> numbers = [] {
    llvm::StringMap<unsigned> made;
    unsigned next = firstOtherState;
#define CICS_STATE(Name, Number) made[Name] = Number;
#define CICS_OTHER_STATE(Name) made.try_emplace(Name, next++);
#include "AST/CicsConstants.def"
    return made;
  }();
  return numbers;
}

} // namespace

std::optional<unsigned> cicsCondition(llvm::StringRef name) {
  const auto *found = llvm::find_if(conditions, [name](const Constant &condition) {
    return name.equals_insensitive(condition.name);
  });
  if (found == std::end(conditions))
    return std::nullopt;
  return found->number;
}

std::optional<unsigned> cicsState(llvm::StringRef name) {
  auto found = states().find(name.upper());
  if (found == states().end())
    return std::nullopt;
  return found->second;
}

bool mayRaise(const CicsCommandInfo &command, llvm::StringRef condition) {
  auto source = conditionSources().find(condition);
  return source == conditionSources().end() ||
         llvm::is_contained(source->second, command.words.front());
}

llvm::StringRef nearestCicsCondition(llvm::StringRef name) {
  const std::string upper = name.upper();
  SpellingMatch match(upper);
  for (const Constant &condition : conditions)
    match.consider(condition.name);
  return match.getNearest();
}

llvm::ArrayRef<CicsCommandInfo> cicsCommands() {
  return table().commands;
}

} // namespace tarka
