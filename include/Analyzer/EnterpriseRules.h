//===- EnterpriseRules.h - what --enterprise changes ------------*- C++ -*-===//
//
// The cases in which the checks are stricter than Enterprise COBOL unless the
// compile option --enterprise is on. EnterpriseRules.def lists them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_ENTERPRISERULES_H
#define TARKA_ANALYZER_ENTERPRISERULES_H

#include "Analyzer/CompileOption.h"
#include "llvm/ADT/ArrayRef.h"

namespace tarka {

/// The cases of the table.
enum class EnterpriseRule {
#define ENTERPRISE_RULE(Enumerator, Name, Sentence) Enumerator,
#include "Analyzer/EnterpriseRules.def"
};

/// A row of EnterpriseRules.def.
struct EnterpriseRuleRow {
  const char *enumerator;
  const char *name;
  const char *sentence;
};

/// All rows, in the order of the table.
llvm::ArrayRef<EnterpriseRuleRow> enterpriseRules();

/// Whether the checks follow Enterprise COBOL in this case. One option turns on all rules; the
/// argument connects the code with its row in the table.
inline bool followsEnterprise(EnterpriseRule) {
  return CompileOption::getCompileOptionInstance()->isOptionEnterprise();
}

} // namespace tarka

#endif // TARKA_ANALYZER_ENTERPRISERULES_H
