//===- EnterpriseRules.cpp - what --enterprise changes --------------------===//

#include "Analyzer/EnterpriseRules.h"

namespace tarka {

static constexpr EnterpriseRuleRow rows[] = {
#define ENTERPRISE_RULE(Enumerator, Name, Sentence) {#Enumerator, Name, Sentence},
#include "Analyzer/EnterpriseRules.def"
};

llvm::ArrayRef<EnterpriseRuleRow> enterpriseRules() {
  return rows;
}

} // namespace tarka
