//===- SCDivisionEnvironment.cpp - checks of the environment division -----===//
//
// CONFIGURATION SECTION and INPUT-OUTPUT SECTION. Beside reporting, the checks
// note what later ones ask for: UPSI switches, DECIMAL-POINT IS COMMA, and the
// collating tables of ALPHABET clauses.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include <algorithm>
#include <array>
#include <cassert>
#include <cstdlib>

namespace tarka {

namespace {

/// The INPUT-OUTPUT SECTION of the program being checked; null when it has none.
InputOutputSection *currentInputOutput() {
  return currentUnit()->getInputOutputSection();
}

bool isDeclaredAlphabet(Word *name) {
  ParaSpecialNames *specialNames = currentSpecialNames();
  return specialNames && specialNames->findClauseAlphabetByWord(name);
}

bool isSignedOrNotPositive(const NumericLiteralExpression &literal) {
  return literal.isSigned() || !literal.isPositive();
}

} // namespace

//===----------------------------------------------------------------------===//
// The division
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(EnvironmentDivision &division) {
  bool result = true;
  if (ConfigurationSection *configuration = division.getConfigurationSection()) {
    if (ParaSourceComputer *paragraph = configuration->getSourceComputer())
      result &= semanticCheck(*paragraph);
    if (ParaObjectComputer *paragraph = configuration->getObjectComputer())
      result &= semanticCheck(*paragraph);
    if (ParaSpecialNames *paragraph = configuration->getSpecialNames())
      result &= semanticCheck(*paragraph);
  }
  InputOutputSection *inputOutput = division.getInputOutputSection();
  if (!inputOutput)
    return result;
  for (ParaFileControl *entry : inputOutput->getFileControlListElements())
    result &= semanticCheck(*entry);
  // I-O-CONTROL says how files are handled; without a file in FILE-CONTROL it is not looked at.
  if (inputOutput->getFileControlListSize() > 0 && inputOutput->getIOControlListSize() > 0 &&
      *inputOutput->getIOControlListBegin())
    for (ParaIOControl *entry : inputOutput->getIOControlListElements())
      result &= semanticCheck(*entry);
  return result;
}

bool SemanticChecker::semanticCheck(ParaSourceComputer &) {
  return true;
}

bool SemanticChecker::semanticCheck(ParaObjectComputer &paragraph) {
  bool result = true;
  if (ClauseMemorySize *memory = paragraph.getMemSize()) {
    result &= semanticCheck(*memory->getSize());
    if (!memory->getSize()->isInteger())
      result = report(ErrorCode::MemorySizeNotInteger, memory->getSize());
  }
  if (ClauseSequence *sequence = paragraph.getSequence())
    if (!isDeclaredAlphabet(sequence->getSequence()))
      return report(ErrorCode::AlphabetNameRequired, sequence);
  if (ClauseSegmentLimit *segment = paragraph.getSegment()) {
    NumericLiteralExpression &limit = *segment->getLimit();
    result &= semanticCheck(limit);
    if (!limit.isInteger())
      result = report(ErrorCode::SegmentLimitRange, &limit);
    if (isSignedOrNotPositive(limit))
      result = report(ErrorCode::SegmentLimitRange, &limit);
    int value = std::atoi(limit.getData().c_str());
    if (value < 1 || value > 49)
      result = report(ErrorCode::SegmentLimitRange, &limit);
  }
  return result;
}

//===----------------------------------------------------------------------===//
// SPECIAL-NAMES
//===----------------------------------------------------------------------===//

namespace {

/// For each clause, how many later ones bear the same name. Clauses without a name have none.
template <typename Clause, typename NameOf>
llvm::DenseMap<Clause *, unsigned> countLaterNamesakes(const std::list<Clause *> &clauses,
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
  bool result = true;
  // A name that later clauses bear too is reported once for each of them.
  auto reportNamesakes = [&](unsigned count, ErrorCode code, Word *name) {
    for (; count > 0; --count)
      result = report(code, name);
  };

  auto mnemonicOf = [](ClauseEnvName &clause) { return clause.getMnemonicName(); };
  auto envNames = countLaterNamesakes(paragraph.getEnvNameListElements(), mnemonicOf);
  for (ClauseEnvName *clause : paragraph.getEnvNameListElements()) {
    result &= checkClauseEnvName(*clause);
    reportNamesakes(envNames.lookup(clause), ErrorCode::SpecialNamesMnemonicInvalid,
                    clause->getMnemonicName());
  }

  auto alphabetOf = [](ClauseAlphabet &clause) { return clause.getAlphabetName(); };
  auto alphabets = countLaterNamesakes(paragraph.getAlphabetListElements(), alphabetOf);
  for (ClauseAlphabet *clause : paragraph.getAlphabetListElements()) {
    result &= checkClauseAlphabet(*clause);
    reportNamesakes(alphabets.lookup(clause), ErrorCode::AlphabetNameNotUnique,
                    clause->getAlphabetName());
  }

  for (ClauseSymbolic *clause : paragraph.getSymbolicListElements())
    result &= checkClauseSymbolic(*clause);

  // The message for alphabets serves class names as well, on purpose.
  auto classOf = [](ClauseClass &clause) { return clause.getClassName(); };
  auto classes = countLaterNamesakes(paragraph.getClassListElements(), classOf);
  for (ClauseClass *clause : paragraph.getClassListElements()) {
    result &= checkClauseClass(*clause);
    reportNamesakes(classes.lookup(clause), ErrorCode::AlphabetNameNotUnique,
                    clause->getClassName());
  }

  for (ClauseCurrency *clause : paragraph.getCurrencyListElements())
    result &= checkClauseCurrency(*clause);

  if (paragraph.getDecimalPoint())
    context().setIsDecimalPointComma(true);
  return result;
}

/// UPSI-0 to the UPSI switch \p last.
static bool isUpsiSwitch(llvm::StringRef name, char last) {
  return name.consume_front("UPSI-") && name.size() == 1 && name[0] >= '0' && name[0] <= last;
}

bool SemanticChecker::checkClauseEnvName(ClauseEnvName &clause) {
  bool result = true;
  Word *on = clause.getOnCondition();
  Word *off = clause.getOffCondition();
  if (on && off && on->getWordData() == off->getWordData())
    result = report(ErrorCode::OnOffConditionSame, &clause);

  Word *environmentName = clause.getEnvironmentName();
  std::string name = llvm::StringRef(environmentName->getWordData()).upper();
  // UPSI-8 counts as a switch here although it is none below, on purpose.
  if (isUpsiSwitch(name, '8'))
    context().setHaveUPSI(true);
  if (on || off) {
    if (!isUpsiSwitch(name, '7'))
      result = report(ErrorCode::EnvironmentNameNotUpsi, environmentName);
    return result;
  }
  bool isKnown = clause.getEnvNameType() == EnvNameType::Switch
                     ? isUpsiSwitch(name, '7')
                     : clause.getEnvNameType() != EnvNameType::Unknown;
  if (!isKnown)
    result = report(ErrorCode::EnvironmentNameInvalid, environmentName);
  return result;
}

//===----------------------------------------------------------------------===//
// ALPHABET
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkLiteralValue(LiteralExpression *literal) {
  bool result = true;
  if (auto *nonNumeric = llvm::dyn_cast<NonNumericLiteralExpression>(literal)) {
    if (nonNumeric->getNonNumericLiteralType() != NonNumericLiteralType::Alphanumeric)
      result = report(ErrorCode::AlphabetLiteralKind, literal);
  } else if (auto *numeric = llvm::dyn_cast<NumericLiteralExpression>(literal)) {
    if (isSignedOrNotPositive(*numeric))
      result = report(ErrorCode::AlphabetLiteralKind, literal);
    if (!numeric->isInteger())
      result = report(ErrorCode::AlphabetLiteralKind, literal);
  } else {
    auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(literal);
    if (!figurative || figurative->getFigurativeType() < FigurativeType::Zero ||
        figurative->getFigurativeType() > FigurativeType::Quote)
      result = report(ErrorCode::AlphabetLiteralKind, literal);
  }
  return result;
}

namespace {

constexpr int characterCount = 256;

/// The code of a character that an ALPHABET clause names: ordinal positions count from 1. Beyond
/// the character set for an ordinal that is too large.
int characterCode(LiteralExpression *literal) {
  if (auto *numeric = llvm::dyn_cast<NumericLiteralExpression>(literal)) {
    assert(numeric->isInteger() && "Must be int literal");
    return static_cast<int>(std::min<long long>(numeric->getIntegerValue() - 1, characterCount));
  }
  if (auto *nonNumeric = llvm::dyn_cast<NonNumericLiteralExpression>(literal))
    return nonNumeric->getData().empty() ? characterCount
                                         : static_cast<unsigned char>(nonNumeric->getData()[0]);
  switch (llvm::cast<FigurativeLiteralExpression>(literal)->getFigurativeType()) {
  case FigurativeType::Zero:
    return '0';
  case FigurativeType::Space:
    return ' ';
  case FigurativeType::HighValue:
    return characterCount - 1;
  case FigurativeType::LowValue:
    return 0;
  default:
    return '"';
  }
}

/// The number of characters that the literal names.
std::size_t characterLength(LiteralExpression *literal) {
  auto *nonNumeric = llvm::dyn_cast<NonNumericLiteralExpression>(literal);
  return nonNumeric ? nonNumeric->getData().size() : 1;
}

/// Builds the collating table of an alphabet of literals.
class CollatingTable {
public:
  CollatingTable() : ordinals(static_cast<int *>(allocateForever(sizeof(int) * characterCount))) {
    std::fill_n(ordinals, characterCount, 0);
  }

  void add(PhrsAlphabet &phrase);
  /// Gives the characters that no phrase has placed their ordinals, in the order of their codes.
  void finish();

  int *getOrdinals() const { return ordinals; }
  /// The character that collates highest.
  char getHighValue() const { return static_cast<char>(highest); }

private:
  void place(int code, int ordinal) {
    placed[code] = true;
    ordinals[code] = ordinal;
    highest = code;
  }

  int *ordinals;
  std::array<bool, characterCount> placed{};
  int next = 1;
  int highest = 0;
};

void CollatingTable::add(PhrsAlphabet &phrase) {
  LiteralExpression *literal = phrase.getLiteral();
  int first = characterCode(literal);
  if (LiteralExpression *thru = phrase.getThruLiteral()) {
    assert(characterLength(literal) == 1 && " if it exist thru, literal's size must be 1");
    int last = characterCode(thru);
    int step = first <= last ? 1 : -1;
    for (int code = first; code != last + step; code += step)
      place(code, next++);
    return;
  }
  if (phrase.getAlsoListSize() > 0) {
    assert(characterLength(literal) == 1 && "if it exist also, literal's size must be 1");
    place(first, next);
    for (LiteralExpression *also : phrase.getAlsoListElements())
      place(characterCode(also), next);
  } else if (characterLength(literal) > 1) {
    for (char c : llvm::cast<NonNumericLiteralExpression>(literal)->getData())
      place(static_cast<unsigned char>(c), next);
  }
  // A single character alone places nothing, on purpose: it only uses up an ordinal, and the
  // character goes among those that are not named.
  ++next;
}

void CollatingTable::finish() {
  for (int code = 0; code < characterCount; ++code)
    if (!placed[code]) {
      ordinals[code] = next++;
      highest = code;
    }
}

} // namespace

/// Checks one literal of an ALPHABET clause against the category of the first one.
bool SemanticChecker::checkAlphabetLiteral(LiteralExpression *literal, DataCategory reference,
                                           bool isThru) {
  bool result = semanticCheck(*literal);
  result &= checkLiteralValue(literal);
  if (literal->getDataCategory() != reference) {
    result = report(ErrorCode::AlphabetLiteralCategoriesDiffer, literal);
    if (isThru)
      report(ErrorCode::AlphabetClauseInvalid, literal);
  }
  // An ordinal position behind the last character of the set.
  if (result && characterCode(literal) >= characterCount)
    result = report(ErrorCode::AlphabetClauseInvalid, literal);
  return result;
}

bool SemanticChecker::checkAlphabetPhrase(PhrsAlphabet &phrase, DataCategory reference) {
  bool result = checkAlphabetLiteral(phrase.getLiteral(), reference, false);
  for (LiteralExpression *also : phrase.getAlsoListElements())
    result &= checkAlphabetLiteral(also, reference, false);
  LiteralExpression *thru = phrase.getThruLiteral();
  if (thru)
    result &= checkAlphabetLiteral(thru, reference, true);

  // THRU and ALSO speak of single characters.
  if (thru || phrase.getAlsoListSize() > 0) {
    auto checkSingle = [&](LiteralExpression *literal) {
      if (characterLength(literal) != 1)
        result = report(ErrorCode::AlphabetLiteralNotSingleCharacter, literal);
    };
    checkSingle(phrase.getLiteral());
    if (thru)
      checkSingle(thru);
    for (LiteralExpression *also : phrase.getAlsoListElements())
      checkSingle(also);
  }
  return result;
}

bool SemanticChecker::checkClauseAlphabet(ClauseAlphabet &clause) {
  switch (clause.getType()) {
  case AlphabetType::Unknown:
    return report(ErrorCode::AlphabetClauseInvalid, &clause);
  case AlphabetType::Ebcdic:
    CompileOption::getCompileOptionInstance()->setOptionSeqEbcdic(true);
    return true;
  case AlphabetType::User:
    break;
  default:
    return true;
  }
  if (clause.getAlphaListSize() == 0)
    return report(ErrorCode::AlphabetLiteralMissing, &clause);

  LiteralExpression *first = (*clause.getAlphaListBegin())->getLiteral();
  bool result = true;
  for (PhrsAlphabet *phrase : clause.getAlphaListElements())
    result &= checkAlphabetPhrase(*phrase, first->getDataCategory());
  // A table of literals that are no characters would be none.
  if (!result)
    return false;

  clause.setLowValue(static_cast<char>(characterCode(first)));
  CollatingTable table;
  for (PhrsAlphabet *phrase : clause.getAlphaListElements())
    table.add(*phrase);
  table.finish();
  clause.setHighValue(table.getHighValue());
  context().addColseq(table.getOrdinals());
  return true;
}

//===----------------------------------------------------------------------===//
// SYMBOLIC CHARACTERS, CLASS, CURRENCY SIGN
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkPhraseSymbolic(PhrsSymbolic &phrase) {
  bool result = true;
  if (phrase.getSourceListSize() != phrase.getIntegerListSize())
    result = report(ErrorCode::SymbolicCharacterCountMismatch, &phrase);
  for (NumericLiteralExpression *ordinal : phrase.getIntegerListElements()) {
    result &= semanticCheck(*ordinal);
    if (!ordinal->isInteger())
      result = report(ErrorCode::EnvironmentLiteralNotInteger, ordinal);
    if (isSignedOrNotPositive(*ordinal))
      result = report(ErrorCode::EnvironmentLiteralNotInteger, ordinal);
  }
  return result;
}

bool SemanticChecker::checkClauseSymbolic(ClauseSymbolic &clause) {
  bool result = true;
  for (PhrsSymbolic *phrase : clause.getSymbolicListElements())
    result &= checkPhraseSymbolic(*phrase);
  if (clause.getAlphabetName() && !isDeclaredAlphabet(clause.getAlphabetName()))
    return report(ErrorCode::AlphabetNameRequired, &clause);
  return result;
}

bool SemanticChecker::checkPhraseClass(PhrsClass &phrase) {
  LiteralExpression *literal = phrase.getLiteral();
  bool result = semanticCheck(*literal);
  DataCategory category = literal->getDataCategory();
  if (category != DataCategory::Numeric && category != DataCategory::Alphanumeric)
    result = report(ErrorCode::EnvironmentLiteralNotNumericOrAlphanumeric, literal);
  if (LiteralExpression *thru = phrase.getThruLiteral()) {
    result &= semanticCheck(*thru);
    if (thru->getDataCategory() != category)
      result = report(ErrorCode::ClassLiteralTypesDiffer, &phrase);
  }
  return result;
}

bool SemanticChecker::checkClauseClass(ClauseClass &clause) {
  bool result = true;
  for (PhrsClass *phrase : clause.getLiteralListElements())
    result &= checkPhraseClass(*phrase);
  return result;
}

namespace {

/// What neither a currency sign without PICTURE SYMBOL nor a PICTURE SYMBOL may contain.
constexpr llvm::StringLiteral pictureCharacters =
    "0123456789ABCDEGNPRSVXZabcdegnprsvxz+-,.*/;()='\"";
/// What a currency sign with PICTURE SYMBOL may not contain.
constexpr llvm::StringLiteral numberCharacters = "0123456789+-,.";

} // namespace

bool SemanticChecker::checkClauseCurrency(ClauseCurrency &clause) {
  LiteralExpression *sign = clause.getSignLiteral();
  LiteralExpression *symbol = clause.getSymbolLiteral();
  bool result = semanticCheck(*sign);
  auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(sign);
  if (!text) {
    result = report(ErrorCode::CurrencySignNotSingleCharacter, sign);
  } else {
    if (text->getNonNumericLiteralType() == NonNumericLiteralType::Dbcs)
      result = report(ErrorCode::CurrencySignNotSingleCharacter, sign);
    if (text->getLength() != 1)
      result = report(ErrorCode::CurrencySignNotSingleCharacter, sign);
    llvm::StringRef forbidden = symbol ? numberCharacters : pictureCharacters;
    if (llvm::StringRef(text->getData()).find_first_of(forbidden) != llvm::StringRef::npos)
      result = report(ErrorCode::CurrencySignInvalidCharacter, sign);
  }
  if (!symbol)
    return result;

  result &= semanticCheck(*symbol);
  auto *symbolText = llvm::dyn_cast<NonNumericLiteralExpression>(symbol);
  if (!symbolText || symbolText->getLength() != 1)
    result = report(ErrorCode::CurrencySignNotSingleCharacter, symbol);
  if (symbolText && llvm::StringRef(symbolText->getData()).find_first_of(pictureCharacters) !=
                        llvm::StringRef::npos)
    result = report(ErrorCode::CurrencySignInvalidCharacter, symbol);
  return result;
}

//===----------------------------------------------------------------------===//
// FILE-CONTROL
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(ParaFileControl &entry) {
  bool result = true;
  if (entry.getAssign())
    result &= checkClauseAssign(entry);
  if (entry.getReserve())
    result &= checkClauseReserve(entry);
  if (entry.getOrganization())
    result &= checkClauseOrganization(entry);
  if (entry.getPadding())
    result &= checkClausePadding(entry);
  if (entry.getRecordDelimiter())
    result &= checkClauseRecordDelimiter(entry);
  if (entry.getAccess())
    result &= checkClauseAccess(entry);
  if (entry.getStatus())
    result &= checkClauseStatus(entry);
  if (entry.getRecordKey())
    result &= checkClauseRecordKey(entry);
  if (entry.getRelativeKey())
    result &= checkClauseRelativeKey(entry);
  if (entry.getAlternateListSize() > 0)
    result &= checkClauseAlternateList(entry);
  if (entry.getPassWord())
    result &= checkPassword(*entry.getPassWord());
  return result;
}

bool SemanticChecker::checkClauseAssign(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseOrganization(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseRecordDelimiter(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseAccess(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseReserve(ParaFileControl &entry) {
  NumericLiteralExpression *count = entry.getReserve()->getReserveCount();
  if (!count)
    return true;
  bool result = semanticCheck(*count);
  // The message of MEMORY SIZE serves here too, on purpose.
  if (!count->isInteger())
    result = report(ErrorCode::MemorySizeNotInteger, count);
  return result;
}

bool SemanticChecker::checkClausePadding(ParaFileControl &entry) {
  Expression *character = entry.getPadding()->getCharacter();
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(character);
  if (!identifier) {
    bool result = semanticCheck(*character);
    auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(character);
    if (!literal || literal->getLength() != 1)
      result = report(ErrorCode::PaddingNotSingleCharacter, character);
    return result;
  }
  if (!semanticCheck(*identifier, false, false))
    return false;
  bool result = true;
  DataDescription *item = identifier->getDataDescription();
  if (!item->getPicture() || item->getPicture()->getSize() != 1)
    result = report(ErrorCode::PaddingNotSingleCharacter, identifier);
  if (item->getStorageType() == StorageType::File)
    result = report(ErrorCode::PaddingItemInFileSection, item);
  return result;
}

namespace {

bool hasScalingPosition(const DataDescription &item) {
  return llvm::StringRef(item.getPicture()->getExtendedPicture()).contains('P');
}

} // namespace

bool SemanticChecker::checkFileStatus(DataIdentifierExpression &status) {
  if (!semanticCheck(status, false, false))
    return false;
  bool result = true;
  DataDescription &item = *status.getDataDescription();
  if (item.getStorageType() == StorageType::File)
    result = report(ErrorCode::FileStatusSection, &status);
  DataCategory category = item.getDataCategory();
  if (category != DataCategory::Alphanumeric && category != DataCategory::Numeric &&
      category != DataCategory::National)
    result = report(ErrorCode::FileStatusCategory, &status);
  if (category != DataCategory::Numeric)
    return result;
  if (item.getUsageType() != UsageType::Display && item.getUsageType() != UsageType::National)
    result = report(ErrorCode::FileStatusUsageOrPicture, &status);
  if (!item.getPicture())
    result = report(ErrorCode::FileStatusUsageOrPicture, &status);
  else if (hasScalingPosition(item))
    result = report(ErrorCode::FileStatusScaledPicture, &status);
  return result;
}

bool SemanticChecker::checkClauseStatus(ParaFileControl &entry) {
  bool result = checkFileStatus(*entry.getStatus()->getStatus_1());
  // The second item receives the status of a VSAM file: three binary fields, six bytes in all.
  constexpr int vsamStatusSize = 6;
  if (DataIdentifierExpression *second = entry.getStatus()->getStatus_2()) {
    if (!semanticCheck(*second, false, false))
      return false;
    DataDescription &item = *second->getDataDescription();
    if (item.getChildrenSize() == 0 || item.getAllocSize() != vsamStatusSize)
      result = report(ErrorCode::FileStatusGroupSize, second);
  }
  return result;
}

bool SemanticChecker::checkPassword(ClausePassWord &clause) {
  DataIdentifierExpression *name = clause.getDataName();
  if (!semanticCheck(*name, false, false))
    return false;
  bool result = true;
  DataDescription *item = name->getDataDescription();
  if (item->getStorageType() != StorageType::WorkingStorage)
    result = report(ErrorCode::KeyItemSection, item);
  switch (item->getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::National:
    return result;
  default:
    return report(ErrorCode::PasswordCategory, item);
  }
}

bool SemanticChecker::checkClauseRecordKey(ParaFileControl &entry) {
  ClauseRecordKey &clause = *entry.getRecordKey();
  bool result = semanticCheck(*clause.getDataName(), false, false);
  if (result) {
    DataDescription *key = clause.getDataName()->getDataDescription();
    // The text of the message says the opposite of the rule; programs rely on both.
    if (key->getStorageType() != StorageType::File)
      result = report(ErrorCode::KeyItemSection, key);
    if (key->checkContainsOdo())
      result = report(ErrorCode::RecordKeyVariableOccurrence, key);
  }
  if (clause.getPassWord())
    result &= checkPassword(*clause.getPassWord());
  return result;
}

bool SemanticChecker::checkClauseRelativeKey(ParaFileControl &entry) {
  DataIdentifierExpression *name = entry.getRelativeKey()->getDataName();
  if (!semanticCheck(*name, false, false))
    return false;
  bool result = true;
  DataDescription *key = name->getDataDescription();
  if (key->getDataCategory() != DataCategory::Numeric)
    result = report(ErrorCode::RelativeKeyInvalid, key);
  if (ClausePicture *picture = key->getPicture()) {
    if (picture->isSigned() || picture->getScale() > 0)
      result = report(ErrorCode::RelativeKeyInvalid, key);
    if (hasScalingPosition(*key))
      result = report(ErrorCode::RelativeKeyInvalid, key);
  }
  return result;
}

bool SemanticChecker::checkClauseAlternateList(ParaFileControl &entry) {
  bool result = true;
  for (ClauseAlternate *alternate : entry.getAlternateListElements()) {
    result &= semanticCheck(*alternate->getDataName(), false, false);
    if (alternate->getPassWord())
      result &= checkPassword(*alternate->getPassWord());
  }
  return result;
}

//===----------------------------------------------------------------------===//
// I-O-CONTROL
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(ParaIOControl &entry) {
  bool result = true;
  if (entry.getRerun())
    result &= checkClauseRerun(entry);
  if (entry.getSame())
    result &= checkClauseSame(entry);
  if (entry.getMultipleFile())
    result &= checkClauseMultipleFile(entry);
  if (entry.getApplyWriteOnly())
    result &= checkClauseApplyWriteOnly(entry);
  return result;
}

namespace {

/// The SELECT entry of a file; null when it has none.
ParaFileControl *fileControlOf(FileIdentifierExpression &file) {
  InputOutputSection *inputOutput = currentInputOutput();
  return inputOutput ? inputOutput->findFileControlByName(*file.getFileName()) : nullptr;
}

} // namespace

bool SemanticChecker::checkClauseRerun(ParaIOControl &entry) {
  ClauseRerun &clause = *entry.getRerun();
  bool result = true;
  if (FileIdentifierExpression *name = clause.getFileName()) {
    // RERUN may also name where the checkpoints go, which is no file of the program.
    if (findFiles(*name).empty()) {
      clause.setAssignment(name->getFileName());
    } else {
      result &= semanticCheck(*name);
      // Without an ORGANIZATION clause a file is sequential.
      ParaFileControl *control = fileControlOf(*name);
      if (control && control->getOrganization() &&
          control->getOrganizationType() != OrganizationType::Sequential)
        result = report(ErrorCode::RerunFileNotSequential, control->getOrganization());
    }
  }
  if (clause.getRecordCount())
    result &= semanticCheck(*clause.getRecordCount());
  if (clause.getEveryFileName())
    result &= semanticCheck(*clause.getEveryFileName());
  return result;
}

bool SemanticChecker::checkClauseSame(ParaIOControl &entry) {
  ClauseSame &clause = *entry.getSame();
  if (clause.getFileNameListSize() == 0)
    return report(ErrorCode::SameClauseInvalid, &clause);
  bool result = true;
  for (IdentifierExpression *name : clause.getFileNameListElements()) {
    auto *file = llvm::dyn_cast<FileIdentifierExpression>(name);
    if (!file) {
      result = report(ErrorCode::SameFileExternalOrNotFile, name);
      continue;
    }
    if (!semanticCheck(*file)) {
      result = false;
      continue;
    }
    const FileDescription *description = file->getFileDescription();
    if (description->getExternal())
      result = report(ErrorCode::SameFileExternalOrNotFile, name);
    if (clause.getType() == SameType::None)
      state->sharedAreas[description].area = &clause;
    else if (clause.getType() == SameType::Record)
      state->sharedAreas[description].recordArea = &clause;
  }
  return result;
}

bool SemanticChecker::shareRecordArea(const FileDescription *left,
                                      const FileDescription *right) const {
  if (left == right)
    return true;
  auto [area, recordArea] = state->sharedAreas.lookup(left);
  auto [otherArea, otherRecordArea] = state->sharedAreas.lookup(right);
  return (area && area == otherArea) || (recordArea && recordArea == otherRecordArea);
}

bool SemanticChecker::checkClauseMultipleFile(ParaIOControl &entry) {
  ClauseMultipleFile &clause = *entry.getMultipleFile();
  if (clause.getMultipleFileListSize() == 0)
    return report(ErrorCode::MultipleFileInvalid, &clause);
  bool result = true;
  for (PrsMultipleFile *phrase : clause.getMultipleFileListElements()) {
    result &= semanticCheck(*phrase->getFileName());
    if (phrase->getPosition())
      result &= semanticCheck(*phrase->getPosition());
  }
  return result;
}

bool SemanticChecker::checkClauseApplyWriteOnly(ParaIOControl &entry) {
  ClauseApplyWriteOnly &clause = *entry.getApplyWriteOnly();
  if (clause.getFileNameListSize() == 0)
    return report(ErrorCode::ApplyWriteOnlyInvalid, &clause);
  bool result = true;
  for (IdentifierExpression *name : clause.getFileNameListElements()) {
    auto *file = llvm::dyn_cast<FileIdentifierExpression>(name);
    if (!file) {
      result = report(ErrorCode::ApplyWriteOnlyInvalid, name);
      continue;
    }
    result &= semanticCheck(*file);
    ParaFileControl *control = fileControlOf(*file);
    if (control && control->getOrganization() &&
        control->getOrganizationType() != OrganizationType::Sequential)
      result = report(ErrorCode::ApplyWriteOnlyFileNotSequential, name);
  }
  return result;
}

} // namespace tarka
