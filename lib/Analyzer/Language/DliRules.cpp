//===- DliRules.cpp - the functions of DL/I -------------------------------===//

#include "AST/Spelling.h"
#include "EmbeddedRules.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// The functions of EXEC DLI, abbreviated and in full.
constexpr llvm::StringLiteral commandFunctions[] = {
    "GU",         "GN",         "GNP",      "ISRT",       "REPL",
    "DLET",       "GET UNIQUE", "INSERT",   "DELETE",     "GET NEXT IN PARENT",
    "GET NEXT",   "REPLACE",    "SCHD",     "TERM",       "CHKP",
    "SCHEDULE",   "TERMINATE",  "POS",      "CHECKPOINT", "SYMCHKP",
    "XRST",       "LOAD",       "POSITION", "STAT",       "ROLB",
    "STATISTICS", "ROLL",       "ROLS",     "SETS",       "SETU",
    "ACCEPT",     "QUERY",      "REFRESH",  "LOG",        "DEQ",
    "INQY",       "RETRIEVE",   "ICMD",     "RCMD",       "GCMD",
    "GMSG",       "CMD",        "AUTH",     "CHNG",       "INIT",
    "PURG",
};

/// The functions of CALL.
constexpr llvm::StringLiteral callFunctions[] = {
    "GU",   "GHU",  "GN",   "GHN",  "GNP",  "GHNP", "ISRT", "REPL", "DLET", "FLD",
    "POS",  "OPEN", "CLSE", "CHKP", "XRST", "LOG",  "LOGZ", "STAT", "ROLB", "ROLL",
    "ROLS", "SETS", "SETU", "SETO", "SYNC", "INIT", "INQY", "AUTH", "CHNG", "CMD",
    "GCMD", "GMSG", "ICMD", "RCMD", "PURG", "APSB", "DPSB", "DEQ",  "GSCD", "CIMS",
    "SNAP", "PCB",  "TERM", "ICAL", "RLSE", "GUR",  "GB",   "GSAM", "ACK",  "BKO",
};

llvm::StringRef nearestIn(llvm::ArrayRef<llvm::StringLiteral> functions, llvm::StringRef name) {
  SpellingMatch match(name);
  for (llvm::StringRef function : functions)
    match.consider(function);
  return match.getNearest();
}

} // namespace

void checkDliCommand(EmbeddedCommand &command, LanguageReport &report) {
  llvm::StringRef name = command.getName();
  if (!llvm::is_contained(commandFunctions, name))
    report.report(LanguageRule::DliUnknownCommand, command, name,
                  suggestion(nearestIn(commandFunctions, name)));
}

void checkDliCall(CallStatement &call, LanguageReport &report) {
  const auto *program =
      llvm::dyn_cast_if_present<NonNumericLiteralExpression>(call.getProcedureName());
  if (!program || call.getArgumentListElements().empty())
    return;
  const std::string name = llvm::StringRef(program->getData()).upper();
  if (name != "CBLTDLI" && name != "AIBTDLI" && name != "CEETDLI")
    return;
  // A count of the arguments may come first; a function in a data item is not known here.
  Expression *argument = call.getArgumentListElements().front()->getExpr();
  const auto *function = llvm::dyn_cast_if_present<NonNumericLiteralExpression>(argument);
  if (!function)
    return;
  const std::string text = llvm::StringRef(function->getData()).trim().upper();
  if (!llvm::is_contained(callFunctions, text))
    report.report(LanguageRule::DliUnknownFunction, *argument, text,
                  suggestion(nearestIn(callFunctions, text)));
}

} // namespace tarka
