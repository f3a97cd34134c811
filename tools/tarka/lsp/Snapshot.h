//===- Snapshot.h - one version of a program, and what is known -*- C++ -*-===//
//
// Lives in a process of its own: the program is analysed once, with the texts of
// the editor in the place of those of the files, and then the features of the
// language server are questions to it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LSP_SNAPSHOT_H
#define TARKA_TOOLS_LSP_SNAPSHOT_H

#include "Compilation.h"
#include "Index/OccurrenceIndex.h"
#include "lsp/Document.h"
#include "lsp/Positions.h"
#include "lsp/SnapshotProcess.h"
#include "mlir/Tools/lsp-server-support/Protocol.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/JSON.h"
#include <memory>
#include <optional>
#include <string>

namespace tarka::lsp {

/// The texts that the editor has open, by absolute path.
using OpenTexts = llvm::StringMap<const std::string *>;

/// What a snapshot is made of.
struct SnapshotInput {
  /// What the command line of the server says.
  const Request &commandLine;
  /// The absolute path of the program.
  std::string program;
  const OpenTexts &texts;
  PositionEncoding encoding = PositionEncoding::Utf16;
  /// The process that knows the other programs, see WorkspaceInput::name; empty for none.
  std::string workspace;
};

/// A place in a source file as the front end counts it.
struct SourcePoint {
  unsigned file = 0;
  unsigned line = 0;
  unsigned column = 0;
};

/// How long an answer that is needed while something is typed waits for what is not known yet.
inline constexpr std::chrono::milliseconds patienceWhileTyping(100);

class Snapshot {
public:
  explicit Snapshot(const SnapshotInput &input);

  /// Analyses the program and gives what is to be known of it, besides its diagnostics:
  /// - "files": the absolute paths of the copybooks that were read
  /// - "isIncomplete": a copybook is missing
  /// - "failure": why there is no analysis, where there is none
  llvm::json::Object analyse();
  /// How much of the text as it is now was understood, after the analysis.
  Reliability getReliability();

  /// Takes a change of a text, the parameters of a textDocument/didChange. Ranges that are given to
  /// the editor and points that come from it are then those of the changed text; what is known of
  /// the program stays that of the text that was analysed.
  void change(const llvm::json::Object &parameters);

  const SnapshotInput &getInput() const { return given; }
  /// The absolute path of the program.
  const std::string &getPath() const { return path; }
  const Request &getRequest() const { return request; }
  PositionEncoding getEncoding() const { return encoding; }
  /// Asks the process that knows the programs of the workspace, see WorkspaceIndex::answer(). None
  /// where there is no such process.
  std::optional<llvm::json::Value>
  askWorkspace(llvm::StringRef method, llvm::json::Object parameters,
               std::chrono::milliseconds patience = std::chrono::seconds(2)) const;
  /// Null when the file could not be read.
  Program *getProgram() const { return compilation ? compilation->getProgram() : nullptr; }
  Compilation &getCompilation() { return *compilation; }
  /// The control-flow graph of the program, made when it is first asked for.
  const CFGModule &getGraph();
  /// What tarka check reports of the program.
  llvm::ArrayRef<Diagnostic> getDiagnostics() const { return report.diagnostics; }

  /// The names of the program, made when they are asked for first.
  const OccurrenceIndex &getIndex();
  /// The symbols with a name at the place that a request asks about, the first one of the text
  /// first; none where there is no name.
  llvm::SmallVector<SymbolId, 2> symbolsAt(const SourcePoint &point);
  /// The copybook whose name stands at \p point; null when there is none.
  const CopyUse *copyAt(const SourcePoint &point);

  // Places. Those of the front end are in the text that was analysed.

  /// The absolute path of file number \p file; empty for one that is not in the file system.
  const std::string &pathOf(unsigned file);
  /// The URI of that file; empty for one that is not in the file system.
  std::string uriOf(unsigned file);
  /// The number of the file of the absolute path \p name; none when it is not in the program.
  std::optional<unsigned> fileOf(llvm::StringRef name);
  mlir::lsp::Range rangeOf(const SourceRange &place);
  /// Whether the text at \p place has changed since it was analysed.
  bool isEdited(const SourceRange &place);
  /// A Location of the protocol; none for a place in a text that is not in the file system.
  std::optional<llvm::json::Object> locationOf(const SourceRange &place);
  /// The place that a request of a document and a position asks about; none within text that was
  /// not there when the program was analysed.
  std::optional<SourcePoint> pointOf(const llvm::json::Object &parameters);
  std::optional<SourcePoint> pointOf(unsigned file, const llvm::json::Object &position);
  /// The file that a request of a document asks about.
  std::optional<unsigned> fileOf(const llvm::json::Object &parameters);
  /// Whether the lines of a file of the program are in fixed form.
  bool isFixedForm(unsigned file);
  /// Line \p number of a file, from 1, as UTF-8.
  llvm::StringRef lineOf(unsigned file, unsigned number);

  // The text as it is in the editor now, for what depends on what is being typed.

  std::optional<SourcePoint> presentPointOf(const llvm::json::Object &parameters);
  llvm::StringRef presentLineOf(unsigned file, unsigned number);
  /// The range of the \p columns columns that end before \p end.
  mlir::lsp::Range presentRangeBefore(const SourcePoint &end, unsigned columns);

private:
  /// A text that has been changed since it was analysed.
  struct ChangedText {
    Document analysed;
    Document present;
    EditMap edits;
  };
  /// Null for a text that is as it was.
  ChangedText *changedText(unsigned file);
  /// Where a place of the front end begins and ends in the text, in bytes.
  static std::pair<std::size_t, std::size_t> extentOf(ChangedText &text, const SourceRange &place);
  mlir::lsp::Position positionOf(unsigned file, unsigned line, unsigned column);
  SourcePoint pointIn(unsigned file, std::int64_t line, std::int64_t character);

  const SnapshotInput &given;
  std::string path;
  PositionEncoding encoding;
  Request request;
  FileReport report;
  std::unique_ptr<Compilation> compilation;
  const CFGModule *graph = nullptr;
  std::vector<std::string> paths;
  std::unique_ptr<OccurrenceIndex> index;
  llvm::StringMap<ChangedText> changed;
};

/// Makes the snapshot, sends what it has found over \p channel and answers the questions that come
/// from there, until its other end is closed. Gives the exit status of the process.
int runSnapshot(const SnapshotInput &input, int channel);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_SNAPSHOT_H
