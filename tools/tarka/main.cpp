//===- main.cpp - the tarka program ---------------------------------------===//

#include "CommandLine.h"
#include "Driver.h"

int main(int argc, char **argv) {
  tarka::CommandLineResult line = tarka::readCommandLine(argc, argv);
  return line.request ? tarka::carryOut(*line.request) : line.exitStatus;
}
