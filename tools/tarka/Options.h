//===- Options.h - the table of all options ---------------------*- C++ -*-===//
//
// Each option stands in one row: its name, its type, what it is for and which
// field it sets. The command line, tarka.toml, `tarka config` and the help are
// made of the rows.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_OPTIONS_H
#define TARKA_TOOLS_OPTIONS_H

#include "CommandLine.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <optional>
#include <string>
#include <vector>

namespace tarka {

enum class OptionType : std::uint8_t {
  Flag,    ///< on or off; --no-NAME turns it off
  Number,  ///< a whole number from min to max
  Seconds, ///< a number with or without decimals, from 0
  Choice,  ///< one word of choices, in upper or lower case
  Text,
  Path, ///< of a file or directory; in tarka.toml relative to the directory of that file
};

/// What an option holds for.
enum class OptionScope : std::uint8_t {
  File, ///< each program on its own: directories can have their own values
  Run,  ///< the run as a whole
};

/// A word for a value of an enumeration.
struct OptionChoice {
  llvm::StringLiteral word;
  int value;
};

/// A value of an option, read by its type.
struct OptionValue {
  std::string text;    ///< as written; of a Choice its word
  unsigned number = 0; ///< of a Number, or the enumerator of a Choice
  double seconds = 0;
  bool on = false;
};

/// A set of commands.
using CommandSet = unsigned;
constexpr CommandSet setOf(Command command) {
  return 1u << static_cast<unsigned>(command);
}

struct Option {
  /// Without the dashes.
  llvm::StringLiteral name = "";
  /// The short name; 0 when there is none.
  char letter = 0;
  OptionType type = OptionType::Flag;
  /// It may be given several times, and each value adds to those before.
  bool isList = false;
  /// Values of the command line go before those of tarka.toml, because the first one that fits
  /// counts.
  bool isSearched = false;
  OptionScope scope = OptionScope::Run;
  /// It stands in tarka.toml.
  bool isConfigurable = true;
  /// Not listed in the help.
  bool isHidden = false;
  /// The commands that take it.
  CommandSet commands = 0;
  /// What stands for the value in the help: FILE. Choices stand for themselves.
  llvm::StringLiteral value = "";
  llvm::ArrayRef<OptionChoice> choices = {};
  unsigned min = 0;
  unsigned max = ~0u;
  /// What holds where the option is not given, in the syntax of tarka.toml; empty for off or none.
  llvm::StringLiteral fallback = "";
  /// The option without which it makes no sense.
  llvm::StringLiteral needs = "";
  /// The heading in the help.
  llvm::StringLiteral group = "Options";
  llvm::StringLiteral help = "";
  /// Puts the value into the request. Gives what is wrong with it; empty when nothing is.
  std::string (*set)(Request &, const OptionValue &) = nullptr;

  /// What stands for the value in the help; empty for a flag.
  std::string valueText() const;
  /// Whether \p command takes it.
  bool isOf(Command command) const { return commands & setOf(command); }
};

/// The rows in the order of the help. A name stands in several rows where commands differ in it.
llvm::ArrayRef<Option> allOptions();

/// The option \p name of \p command; null when there is none.
const Option *findOption(llvm::StringRef name, Command command);

/// Reads \p text as a value of \p option and puts it into \p request. Gives what is wrong with it;
/// empty when nothing is.
std::string setOption(const Option &option, llvm::StringRef text, Request &request);

/// The one of \p candidates that \p word was probably meant to be; empty when none is near.
std::string nearestWord(llvm::StringRef word, llvm::ArrayRef<std::string> candidates);
/// "; was WORD meant?" for that word; empty when none is near.
std::string suggestWord(llvm::StringRef word, llvm::ArrayRef<std::string> candidates);

/// What a command is called and what it is for, in the order of the help.
struct CommandInfo {
  Command command;
  llvm::StringLiteral name;
  llvm::StringLiteral help;
};
llvm::ArrayRef<CommandInfo> allCommands();

} // namespace tarka

#endif // TARKA_TOOLS_OPTIONS_H
