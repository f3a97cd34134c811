//===- Explain.h - tarka explain --------------------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_EXPLAIN_H
#define TARKA_TOOLS_EXPLAIN_H

#include "CommandLine.h"
#include <string>

namespace tarka {

/// Prints what there is to say of the diagnostics that \p request names: the rule, a program that
/// breaks it with its report, the same program mended, and related diagnostics. Without a number
/// all are listed; in JSON and Markdown that is everything there is to say of each.
int explain(const Request &request);

/// What there is to say of the diagnostics of that number, in Markdown; empty when there is none.
std::string explanationPage(unsigned number);

} // namespace tarka

#endif // TARKA_TOOLS_EXPLAIN_H
