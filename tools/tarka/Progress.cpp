//===- Progress.cpp - how far a run has come ------------------------------===//

#include "Progress.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/FormatVariadic.h"
#include "llvm/Support/Process.h"
#include "llvm/Support/raw_ostream.h"
#include <cmath>

namespace tarka {

using namespace std::chrono_literals;

namespace {

constexpr auto firstUpdate = 500ms;
constexpr auto updateInterval = 100ms;
/// How long the programs are counted at a time.
constexpr auto countTime = 5ms;
/// A run shorter than this has no slow program worth naming.
constexpr double leastSlowSeconds = 0.5;

bool hasTerminal() {
  const std::optional<std::string> terminal = llvm::sys::Process::GetEnv("TERM");
  return llvm::sys::Process::StandardErrIsDisplayed() && terminal && *terminal != "dumb";
}

/// Hours, minutes and seconds: "1:02:03", "0:07".
std::string formatTime(double seconds) {
  const auto whole = static_cast<unsigned long>(std::lround(seconds));
  if (whole >= 3600)
    return llvm::formatv("{0}:{1,0+2}:{2,0+2}", whole / 3600, whole / 60 % 60, whole % 60);
  return llvm::formatv("{0}:{1,0+2}", whole / 60, whole % 60);
}

} // namespace

Progress::Progress(const Request &request)
    : isShown(request.command == Command::Check && hasTerminal()), due(start + firstUpdate),
      counter(request, [](const std::string &, const std::string &) {}) {}

double Progress::untilUpdate() const {
  if (!isShown)
    return -1;
  return std::max(0.0, std::chrono::duration<double>(due - Clock::now()).count());
}

void Progress::countPrograms() {
  const Clock::time_point end = Clock::now() + countTime;
  while (!isCounted && Clock::now() < end)
    for (unsigned count = 0; count < 100 && !isCounted; ++count) {
      isCounted = !counter.next();
      total += !isCounted;
    }
}

std::string Progress::describe(std::size_t done, llvm::StringRef slowest,
                               double slowestSeconds) const {
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  const double rate = static_cast<double>(done) / seconds;
  std::string text;
  llvm::raw_string_ostream out(text);
  out << done << " of " << (isCounted ? "" : "more than ") << total << " programs, "
      << llvm::format(rate < 10 ? "%.1f" : "%.0f", rate) << " a second";
  if (isCounted && done > 0 && total >= done)
    out << ", " << formatTime(static_cast<double>(total - done) / rate) << " left";
  if (slowestSeconds >= leastSlowSeconds)
    out << "; slowest: " << slowest << ", " << llvm::format("%.1f s", slowestSeconds);
  return text;
}

void Progress::update(std::size_t done, llvm::StringRef slowest, double slowestSeconds) {
  if (!isShown || Clock::now() < due)
    return;
  countPrograms();
  std::string text = describe(done, slowest, slowestSeconds);
  // A line that is broken could not be taken away.
  if (const unsigned columns = llvm::sys::Process::StandardErrColumns())
    text.resize(std::min<std::size_t>(text.size(), columns - 1));
  llvm::errs() << "\r\x1b[K" << text;
  llvm::errs().flush();
  hasLine = true;
  due = Clock::now() + updateInterval;
}

void Progress::clear() {
  if (!hasLine)
    return;
  llvm::errs() << "\r\x1b[K";
  llvm::errs().flush();
  hasLine = false;
}

} // namespace tarka
