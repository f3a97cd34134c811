//===- Process.h - many runs in one process ---------------------*- C++ -*-===//
//
// A compilation does not free its memory, because the program runs only one in
// a process. A fuzzer runs many: it resets the state before each, and ends
// before memory runs out.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_FUZZ_PROCESS_H
#define TARKA_FUZZ_PROCESS_H

namespace tarka::fuzz {

/// Stands for one run. Aborts when the run took an amount of memory that no input of some kilobytes
/// can account for; ends the process, with success, when all the runs together have taken much:
/// run.sh then starts another.
class Run {
public:
  Run();
  ~Run();
  Run(const Run &) = delete;
  Run &operator=(const Run &) = delete;

private:
  long megabytesBefore;
};

} // namespace tarka::fuzz

#endif // TARKA_FUZZ_PROCESS_H
