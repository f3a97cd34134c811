//===- Interrupt.cpp - being asked to end ---------------------------------===//

#include "Workers/Interrupt.h"
#include "llvm/Support/Signals.h"
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarka {

namespace {

constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int signalCount = sizeof signals / sizeof *signals;

// Signal handlers reach nothing else than static storage.
volatile std::sig_atomic_t caught = 0;
int wakeUp[2] = {-1, -1};
struct sigaction before[signalCount];

void handle(int number) {
  const int savedError = errno;
  caught = number;
  for (int index = 0; index < signalCount; ++index)
    if (signals[index] == number)
      sigaction(number, &before[index], nullptr);
  [[maybe_unused]] const ssize_t written = write(wakeUp[1], "", 1);
  errno = savedError;
}

} // namespace

Interrupt::Interrupt() {
  caught = 0;
  if (pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK) != 0)
    wakeUp[0] = wakeUp[1] = -1;
  struct sigaction action = {};
  action.sa_handler = handle;
  for (int index = 0; index < signalCount; ++index) {
    sigaction(signals[index], nullptr, &before[index]);
    // nohup and shells ignore signals on behalf of the user.
    if (before[index].sa_handler != SIG_IGN)
      sigaction(signals[index], &action, nullptr);
  }
}

Interrupt::~Interrupt() {
  for (int index = 0; index < signalCount; ++index)
    sigaction(signals[index], &before[index], nullptr);
  for (int &end : wakeUp) {
    close(end);
    end = -1;
  }
}

int Interrupt::getSignal() const {
  return caught;
}

int Interrupt::getDescriptor() const {
  return wakeUp[0];
}

void endBySignal(int signal) {
  llvm::sys::unregisterHandlers();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
  _exit(128 + signal);
}

} // namespace tarka
