//===- SCSpecialNames.cpp - SPECIAL-NAMES --------------------------------===//
//
// The order of the clauses, the uniqueness of their names, environment names,
// SYMBOLIC CHARACTERS and CLASS. Alphabets are in SCAlphabet.cpp, currency signs in
// SCCurrencySign.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Environment/EnvironmentCheck.h"
#include "Analyzer/NamedReport.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

/// For each clause, how many later ones have the same name. Clauses without a name have none.
template <typename Clause, typename NameOf>
llvm::DenseMap<Clause *, unsigned> countLaterNamesakes(const NodeList<Clause> &clauses,
                                                       NameOf nameOf) {
  llvm::DenseMap<Clause *, unsigned> namesakes;
  llvm::DenseMap<const std::string *, unsigned> seen;
  for (Clause *clause : llvm::reverse(clauses))
    if (Word *name = nameOf(*clause))
      namesakes[clause] = seen[&internString(name->getWordData())]++;
  return namesakes;
}

} // namespace

bool SemanticChecker::semanticCheck(ParaSpecialNames &paragraph) {
  bool ok = true;
  // A name that later clauses have too is reported once for each of them.
  auto reportNamesakes = [&](unsigned count, ErrorCode code, Word *name) {
    for (; count > 0; --count)
      ok = report(code, name);
  };

  auto mnemonicOf = [](ClauseEnvName &clause) { return clause.getMnemonicName(); };
  auto envNames = countLaterNamesakes(paragraph.getEnvNameListElements(), mnemonicOf);
  for (ClauseEnvName *clause : paragraph.getEnvNameListElements()) {
    ok &= checkClauseEnvName(*clause);
    reportNamesakes(envNames.lookup(clause), ErrorCode::SpecialNamesMnemonicInvalid,
                    clause->getMnemonicName());
  }

  auto alphabetOf = [](ClauseAlphabet &clause) { return clause.getAlphabetName(); };
  auto alphabets = countLaterNamesakes(paragraph.getAlphabetListElements(), alphabetOf);
  for (ClauseAlphabet *clause : paragraph.getAlphabetListElements()) {
    ok &= checkClauseAlphabet(*clause);
    reportNamesakes(alphabets.lookup(clause), ErrorCode::AlphabetNameNotUnique,
                    clause->getAlphabetName());
  }

  for (ClauseSymbolic *clause : paragraph.getSymbolicListElements())
    ok &= checkClauseSymbolic(*clause);

  // Class names share the message of alphabet names.
  auto classOf = [](ClauseClass &clause) { return clause.getClassName(); };
  auto classes = countLaterNamesakes(paragraph.getClassListElements(), classOf);
  for (ClauseClass *clause : paragraph.getClassListElements()) {
    ok &= checkClauseClass(*clause);
    reportNamesakes(classes.lookup(clause), ErrorCode::AlphabetNameNotUnique,
                    clause->getClassName());
  }

  for (ClauseCurrency *clause : paragraph.getCurrencyListElements())
    ok &= checkClauseCurrency(*clause);

  if (paragraph.getDecimalPoint())
    context().setIsDecimalPointComma(true);
  return ok;
}

/// UPSI-0 to the UPSI switch \p last.
static bool isUpsiSwitch(llvm::StringRef name, char last) {
  return name.consume_front("UPSI-") && name.size() == 1 && name[0] >= '0' && name[0] <= last;
}

bool SemanticChecker::checkClauseEnvName(ClauseEnvName &clause) {
  bool ok = true;
  Word *on = clause.getOnCondition();
  Word *off = clause.getOffCondition();
  if (on && off && on->getWordData() == off->getWordData())
    ok = reportName(*this, ErrorCode::OnOffConditionSame, &clause, on);

  Word *environmentName = clause.getEnvironmentName();
  // A clause without a name cannot come from source; it is reported like an unknown name.
  std::string name =
      environmentName ? llvm::StringRef(environmentName->getWordData()).upper() : std::string();
  Node *place = environmentName ? static_cast<Node *>(environmentName) : &clause;
  // UPSI-8 counts as a switch here, although the rules below reject it.
  if (isUpsiSwitch(name, '8'))
    context().setHaveUPSI(true);
  if (on || off) {
    if (!isUpsiSwitch(name, '7'))
      ok = report(ErrorCode::EnvironmentNameNotUpsi, place);
    return ok;
  }
  bool isKnown = clause.getEnvNameType() == EnvNameType::Switch
                     ? isUpsiSwitch(name, '7')
                     : clause.getEnvNameType() != EnvNameType::Unknown;
  if (!isKnown)
    ok = report(ErrorCode::EnvironmentNameInvalid, place);
  return ok;
}

//===----------------------------------------------------------------------===//
// SYMBOLIC CHARACTERS, CLASS
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkPhraseSymbolic(PhrsSymbolic &phrase) {
  bool ok = true;
  if (phrase.getSourceListSize() != phrase.getIntegerListSize())
    ok = report(ErrorCode::SymbolicCharacterCountMismatch, &phrase);
  for (NumericLiteralExpression *ordinal : phrase.getIntegerListElements()) {
    ok &= semanticCheck(*ordinal);
    if (!ordinal->isInteger())
      ok = report(ErrorCode::EnvironmentLiteralNotInteger, ordinal);
    if (isSignedOrNotPositive(*ordinal))
      ok = report(ErrorCode::EnvironmentLiteralNotInteger, ordinal);
  }
  return ok;
}

bool SemanticChecker::checkClauseSymbolic(ClauseSymbolic &clause) {
  bool ok = true;
  for (PhrsSymbolic *phrase : clause.getSymbolicListElements())
    ok &= checkPhraseSymbolic(*phrase);
  if (clause.getAlphabetName() && !isAlphabetOfProgram(clause.getAlphabetName()))
    return reportName(*this, ErrorCode::AlphabetNameRequired, &clause, clause.getAlphabetName());
  return ok;
}

bool SemanticChecker::checkPhraseClass(PhrsClass &phrase) {
  LiteralExpression *literal = phrase.getLiteral();
  bool ok = semanticCheck(*literal);
  DataCategory category = literal->getDataCategory();
  if (category != DataCategory::Numeric && category != DataCategory::Alphanumeric)
    ok = report(ErrorCode::EnvironmentLiteralNotNumericOrAlphanumeric, literal);
  if (LiteralExpression *thru = phrase.getThruLiteral()) {
    ok &= semanticCheck(*thru);
    if (thru->getDataCategory() != category)
      ok = report(ErrorCode::ClassLiteralTypesDiffer, &phrase);
  }
  return ok;
}

bool SemanticChecker::checkClauseClass(ClauseClass &clause) {
  bool ok = true;
  for (PhrsClass *phrase : clause.getLiteralListElements())
    ok &= checkPhraseClass(*phrase);
  return ok;
}

} // namespace tarka
