//===- CicsCommands.h - the commands of CICS --------------------*- C++ -*-===//
//
// What the application programming interface of CICS offers: its commands with
// their options, as the table CicsCommands.def lists them. The table is read when
// the first command is looked up.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_CICSCOMMANDS_H
#define TARKA_AST_CICSCOMMANDS_H

#include "AST/Kinds.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringRef.h"
#include <optional>

namespace tarka {

/// What stands in the parentheses of an option.
enum class CicsArgument : std::uint8_t {
  None,
  Value,    ///< a data value: a literal or a data item
  Name,     ///< of a resource: a character literal or an item that holds the name
  Area,     ///< a data area that CICS reads
  Halfword, ///< a binary number of two bytes
  Fullword, ///< a binary number of four bytes
  Cvda,     ///< a CICS value, a binary number of four bytes
  Pointer,  ///< an address
  Time,     ///< hhmmss: 0hhmmss packed
  Label,    ///< a procedure-name
};

/// One option of a command.
struct CicsOptionInfo {
  llvm::StringRef name;
  CicsArgument argument = CicsArgument::None;
  EmbeddedRole role = EmbeddedRole::None;
  bool isArgumentOptional = false;
  /// The place of the group of options in CicsCommandInfo::groups that it belongs to.
  unsigned group = 0;
  /// The options of which it needs one; empty when it needs none.
  llvm::SmallVector<llvm::StringRef, 1> needs;
};

/// Options of which a command can have at most one.
struct CicsOptionGroup {
  llvm::SmallVector<unsigned, 2> options; ///< their places in CicsCommandInfo::options
  bool isRequired = false;
};

/// One command.
struct CicsCommandInfo {
  /// The words that tell it from others, the verb first: SEND MAP.
  llvm::StringRef name;
  llvm::SmallVector<llvm::StringRef, 3> words;
  llvm::SmallVector<CicsOptionInfo, 0> options;
  llvm::SmallVector<CicsOptionGroup, 0> groups;
  llvm::StringMap<unsigned> optionNumbers;
  /// Any other word is an option as well; of this kind, when it has an argument.
  bool isOpen = false;
  CicsOptionInfo anyOption;

  /// The option \p option, in upper case, RESP, RESP2 and NOHANDLE included; for an open command
  /// CicsCommandInfo::anyOption where it is not listed; else null.
  const CicsOptionInfo *findOption(llvm::StringRef option) const;
  /// The option that \p option was most likely meant to be; empty when none is near.
  llvm::StringRef nearestOption(llvm::StringRef option) const;
};

/// The command with the verb \p verb of which all further words are in \p options, all in upper
/// case and in the order written. Of several it is the one with most words, of those the one whose
/// words come first: CLOSE is an option of WEB CONVERSE, and a command in WEB CLOSE. Null when
/// there is none.
const CicsCommandInfo *findCicsCommand(llvm::StringRef verb,
                                       llvm::ArrayRef<llvm::StringRef> options);

/// Whether some command begins with \p verb.
bool isCicsVerb(llvm::StringRef verb);

/// The verb that \p verb was most likely meant to be; empty when none is near.
llvm::StringRef nearestCicsVerb(llvm::StringRef verb);

/// The number that \p name stands for in DFHRESP(name); none when there is no such condition.
std::optional<unsigned> cicsCondition(llvm::StringRef name);
/// The number that \p name stands for in DFHVALUE(name); none for a name that is not known.
std::optional<unsigned> cicsState(llvm::StringRef name);
/// Whether \p command can raise the condition \p condition, in upper case. True where that is not
/// certain.
bool mayRaise(const CicsCommandInfo &command, llvm::StringRef condition);
/// The name of a condition that \p name was most likely meant to be; empty when none is near.
llvm::StringRef nearestCicsCondition(llvm::StringRef name);

/// All rows of the table.
llvm::ArrayRef<CicsCommandInfo> cicsCommands();

} // namespace tarka

#endif // TARKA_AST_CICSCOMMANDS_H
