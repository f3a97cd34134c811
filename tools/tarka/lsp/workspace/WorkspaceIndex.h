//===- WorkspaceIndex.h - the names of all programs -------------*- C++ -*-===//
//
// The facts about the programs of the editor's folders, see ProgramFacts.h, and the
// questions that can be asked about them. A name is kept once, a place in 16 bytes.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_WORKSPACE_WORKSPACEINDEX_H
#define TARKA_TOOLS_LSP_WORKSPACE_WORKSPACEINDEX_H

#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringSet.h"
#include "llvm/Support/Error.h"
#include "llvm/Support/JSON.h"
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarka::lsp {

class WorkspaceIndex {
public:
  using Answer = llvm::json::Value;

  /// \p directories are those whose programs it has.
  explicit WorkspaceIndex(const std::vector<std::string> &directories) : folders(directories) {}

  /// Takes the facts about the program \p path in the place of what was known of it. What is not
  /// JSON counts as a program of which nothing is known.
  void set(const std::string &path, llvm::StringRef facts);
  void remove(const std::string &path);
  bool has(const std::string &path) const { return programs.count(path); }
  /// The programs that are part of \p changed, or may be now: those that copy it, and those that
  /// miss a copybook of its name.
  std::vector<std::string> programsWith(llvm::StringRef changed) const;

  /// Whether answer() knows \p method.
  static bool answers(llvm::StringRef method);
  /// The answer to a question:
  ///
  /// - workspace/symbol, callHierarchy/incomingCalls, callHierarchy/outgoingCalls as in the
  /// protocol
  /// - "programs" of "name", without it all: "item" as in a call hierarchy, "using", and "location"
  /// of each
  /// - "callers" of "name", not those in "except": calls as in callHierarchy/incomingCalls
  /// - "uses" of the name that is declared at "path", "line" and "character", but not by the
  /// program
  ///   "except": "paths", and "places", four numbers for each: which path, line, begin and end
  /// - "copiers" of any of "paths": "programs", the paths of those that copy one of them;
  /// "unknown",
  ///   those that may; "outside", which of the paths are not in the folders
  Answer answer(llvm::StringRef method, const llvm::json::Object &parameters) const;

private:
  using NameId = std::uint32_t;
  struct Place {
    NameId file;
    std::uint32_t line;
    std::uint32_t begin;
    std::uint32_t end;
    bool operator==(const Place &) const = default;
  };
  struct Symbol {
    NameId name;
    int kind;
    int program; ///< its symbol; -1 for a program itself
    Place place;
  };
  struct Call {
    int caller; ///< -1 for none
    int called; ///< -1 for a program that is named
    NameId name;
    Place place;
  };
  struct UseOfCopied {
    NameId file;
    std::uint32_t line;
    std::uint32_t character;
    int use;
    Place place;
  };
  struct DeclaredProgram {
    NameId name;
    int symbol;
    std::vector<std::string> items;
  };
  /// A source file with its programs.
  struct Program {
    bool isKnown = false;
    std::vector<NameId> files;
    std::vector<std::string> missing;
    std::vector<DeclaredProgram> declared;
    std::vector<Symbol> symbols;
    std::vector<Call> calls;
    std::vector<UseOfCopied> uses;
  };

  class Reader;

  NameId idOf(llvm::StringRef name);
  /// The number of a name; none when nothing has it.
  std::optional<NameId> findId(llvm::StringRef name) const;
  llvm::StringRef nameOf(NameId id) const { return names[id]; }

  llvm::json::Object rangeOf(const Place &place) const;
  llvm::json::Object locationOf(const Place &place) const;
  llvm::json::Object itemOf(const Program &program, int symbol) const;

  Answer symbols(const llvm::json::Object &parameters) const;
  Answer declarations(const llvm::json::Object &parameters) const;
  Answer callers(const llvm::json::Object &parameters) const;
  Answer uses(const llvm::json::Object &parameters) const;
  Answer copiers(const llvm::json::Object &parameters) const;
  Answer incomingCalls(const llvm::json::Object &parameters) const;
  Answer outgoingCalls(const llvm::json::Object &parameters) const;
  void addCallers(NameId name, llvm::StringRef except, llvm::json::Array &calls) const;
  void addCalls(const Program &program, llvm::function_ref<bool(const Call &)> isMeant,
                bool byCaller, llvm::json::Array &calls) const;
  void forItem(const llvm::json::Object &parameters,
               llvm::function_ref<void(const Program &, int symbol)> take) const;

  const std::vector<std::string> &folders;
  llvm::StringMap<NameId> ids;
  std::vector<llvm::StringRef> names;
  /// By path.
  std::map<std::string, Program, std::less<>> programs;
  /// The files that any of them copies or has copied.
  llvm::StringSet<> copybooks;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_WORKSPACE_WORKSPACEINDEX_H
