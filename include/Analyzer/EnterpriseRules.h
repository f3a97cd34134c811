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

/// Whether the checks follow Enterprise COBOL in this case. All rules hang on one option; naming
/// the rule leads from its row to the code and back.
inline bool followsEnterprise(EnterpriseRule) {
  return CompileOption::getCompileOptionInstance()->isOptionEnterprise();
}

} // namespace tarka

#endif // TARKA_ANALYZER_ENTERPRISERULES_H
