//===- Process.h - many runs in one process ---------------------*- C++ -*-===//
//
// A compilation gives no memory back and leaves its state behind, since the
// program does only one in a process. A fuzzer, which does many, has to begin
// each of them anew, and to end in time.
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
