//===- Interrupt.h - being asked to end -------------------------*- C++ -*-===//

#ifndef TARKA_WORKERS_INTERRUPT_H
#define TARKA_WORKERS_INTERRUPT_H

namespace tarka {

/// While it exists, SIGINT, SIGTERM and SIGHUP do not end the process but are kept here, so that it
/// can report what is known before it ends. The second signal of a kind acts as before. There is
/// one at a time.
class Interrupt {
public:
  Interrupt();
  Interrupt(const Interrupt &) = delete;
  Interrupt &operator=(const Interrupt &) = delete;
  ~Interrupt();

  /// The signal that has come; 0 for none.
  int getSignal() const;
  /// A descriptor that is readable when a signal has come.
  int getDescriptor() const;
};

/// Ends this process by \p signal, so that its parent learns why it ended.
[[noreturn]] void endBySignal(int signal);

} // namespace tarka

#endif // TARKA_WORKERS_INTERRUPT_H
