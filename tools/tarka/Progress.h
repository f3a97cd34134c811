//===- Progress.h - how far a run has come ----------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_PROGRESS_H
#define TARKA_TOOLS_PROGRESS_H

#include "Inputs.h"
#include "llvm/ADT/StringRef.h"
#include <chrono>
#include <cstddef>

namespace tarka {

/// One line at the foot of a terminal, for a run that takes longer than half a second: the programs
/// done of all, how many a second, the time left, the slowest so far. Without a terminal nothing is
/// printed.
class Progress {
public:
  /// The programs of \p request are counted while the run goes on.
  explicit Progress(const Request &request);
  ~Progress() { clear(); }

  /// When update() is to be called, in seconds from now; negative for never.
  double untilUpdate() const;
  /// Prints the line anew when it is time: \p done programs are done, \p slowest took longest.
  void update(std::size_t done, llvm::StringRef slowest, double slowestSeconds);
  /// Takes the line away, before something else is printed.
  void clear();

private:
  using Clock = std::chrono::steady_clock;

  void countPrograms();
  std::string describe(std::size_t done, llvm::StringRef slowest, double slowestSeconds) const;

  bool isShown;
  Clock::time_point start = Clock::now();
  Clock::time_point due;
  /// Goes through the same operands as the run, only to count.
  Inputs counter;
  std::size_t total = 0;
  bool isCounted = false;
  bool hasLine = false;
};

} // namespace tarka

#endif // TARKA_TOOLS_PROGRESS_H
