//===- main.cpp - the tarka program ----------------------------------------===//

#include <CLI/CLI.hpp>

int main(int argc, char **argv) {
  CLI::App app("Analyses COBOL source", "tarka");
  app.set_version_flag("--version", "tarka " TARKA_VERSION);
  CLI11_PARSE(app, argc, argv);
}
