//===- Process.cpp - many runs in one process -----------------------------===//

#include "Process.h"
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

namespace tarka::fuzz {

static constexpr long maxMegabytesOfRun = 600;
static constexpr long maxMegabytesOfProcess = 2000;

/// The most memory that the process has had at any time so far.
static long megabytesUsed() {
  rusage used = {};
  getrusage(RUSAGE_SELF, &used);
  return used.ru_maxrss >> 10;
}

Run::Run() : megabytesBefore(megabytesUsed()) {}

Run::~Run() {
  long megabytes = megabytesUsed();
  if (megabytes - megabytesBefore > maxMegabytesOfRun) {
    fprintf(stderr, "fuzz: the run took %ld MB of memory\n", megabytes - megabytesBefore);
    abort();
  }
  if (megabytes > maxMegabytesOfProcess) {
    fprintf(stderr, "fuzz: %ld MB are in use, the process is renewed\n", megabytes);
    _exit(EXIT_SUCCESS);
  }
}

} // namespace tarka::fuzz
