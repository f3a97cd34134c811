//===- SpecialNamesRules.cpp - CLASS, ALPHABET, SYMBOLIC CHARACTERS -------===//

#include "AST/Environment.h"
#include "AST/Expression.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/StringExtras.h"
#include <algorithm>
#include <bitset>
#include <string>

namespace tarka {

namespace {

/// How many characters a character set has.
constexpr unsigned characterCount = 256;

/// The text of an alphanumeric literal of ASCII characters, whose order among each other the
/// analysis knows as far as they are of one kind. Empty for others.
llvm::StringRef textOf(const LiteralExpression *literal) {
  const auto *text = llvm::dyn_cast_or_null<NonNumericLiteralExpression>(literal);
  const bool isKnown = text &&
                       text->getNonNumericLiteralType() == NonNumericLiteralType::Alphanumeric &&
                       llvm::all_of(text->getData(), [](char c) { return llvm::isASCII(c); });
  return isKnown ? llvm::StringRef(text->getData()) : llvm::StringRef();
}

/// The place of a character that is given by its number; 0 for other literals and beyond the
/// character set.
unsigned ordinalOf(const LiteralExpression *literal) {
  const auto *number = llvm::dyn_cast_or_null<NumericLiteralExpression>(literal);
  if (!number || !number->isInteger() || number->getIntegerValue() < 1 ||
      number->getIntegerValue() > characterCount)
    return 0;
  return static_cast<unsigned>(number->getIntegerValue());
}

void checkClass(const ClauseClass &clause, LanguageReport &report) {
  auto checkEnd = [&](LiteralExpression *literal) {
    const llvm::StringRef text = textOf(literal);
    if (text.size() > 1)
      report.report(LanguageRule::ClassRangeNotCharacter, *literal,
                    clause.getClassName()->getDisplayName(), ("\"" + text + "\"").str());
  };
  for (const PhrsClass *phrase : clause.getLiteralListElements())
    if (phrase->getThruLiteral()) {
      checkEnd(phrase->getLiteral());
      checkEnd(phrase->getThruLiteral());
    }
}

/// Finds the characters that an alphabet names twice. A character and the number of one are not
/// compared, because the number depends on the character set.
class AlphabetCheck {
public:
  AlphabetCheck(const ClauseAlphabet &clause, LanguageReport &languageReport)
      : alphabet(clause), report(languageReport) {}

  void check() {
    for (const PhrsAlphabet *phrase : alphabet.getAlphaListElements()) {
      check(*phrase->getLiteral(), phrase->getThruLiteral());
      for (LiteralExpression *also : phrase->getAlsoListElements())
        check(*also, nullptr);
    }
  }

private:
  /// \p last is the end of a range, or null.
  void check(LiteralExpression &first, const LiteralExpression *last) {
    repeated.clear();
    if (const unsigned ordinal = ordinalOf(&first))
      addOrdinals(ordinal, last ? ordinalOf(last) : ordinal);
    else
      addCharacters(textOf(&first), last);
    if (!repeated.empty())
      report.report(LanguageRule::AlphabetCharacterRepeated, first, repeated,
                    alphabet.getAlphabetName()->getDisplayName());
  }

  void addOrdinals(unsigned first, unsigned last) {
    if (last)
      for (unsigned ordinal = std::min(first, last); ordinal <= std::max(first, last); ++ordinal)
        add(ordinals, ordinal - 1, std::to_string(ordinal));
  }

  void addCharacters(llvm::StringRef text, const LiteralExpression *last) {
    const llvm::StringRef end = textOf(last);
    if (!last) {
      for (const char c : text)
        addCharacter(c);
    } else if (text.size() == 1 && end.size() == 1) {
      const char low = std::min(text.front(), end.front());
      const char high = std::max(text.front(), end.front());
      // Elsewhere the characters between the two depend on the character set.
      const bool isOfOneKind = (llvm::isDigit(low) && llvm::isDigit(high)) ||
                               (llvm::isUpper(low) && llvm::isUpper(high)) ||
                               (llvm::isLower(low) && llvm::isLower(high));
      for (char c = low; isOfOneKind && c <= high; ++c)
        addCharacter(c);
    }
  }

  void addCharacter(char c) { add(characters, static_cast<unsigned char>(c), std::string(1, c)); }

  void add(std::bitset<characterCount> &named, unsigned code, std::string shown) {
    if (named.test(code) && repeated.empty())
      repeated = std::move(shown);
    named.set(code);
  }

  const ClauseAlphabet &alphabet;
  LanguageReport &report;
  std::bitset<characterCount> ordinals;
  std::bitset<characterCount> characters;
  /// The first character of the literal being checked that is named before.
  std::string repeated;
};

void checkSymbolic(const PhrsSymbolic &phrase, LanguageReport &report) {
  auto name = phrase.getSourceListElements().begin();
  const auto end = phrase.getSourceListElements().end();
  for (NumericLiteralExpression *ordinal : phrase.getIntegerListElements()) {
    if (name == end)
      return;
    if (ordinal->getIntegerValue() > characterCount)
      report.report(LanguageRule::SymbolicCharacterOrdinal, *ordinal, (*name)->getDisplayName(),
                    ordinal->getData());
    ++name;
  }
}

} // namespace

void checkSpecialNames(const ParaSpecialNames &paragraph, LanguageReport &report) {
  for (const ClauseClass *clause : paragraph.getClassListElements())
    checkClass(*clause, report);
  for (const ClauseAlphabet *clause : paragraph.getAlphabetListElements())
    AlphabetCheck(*clause, report).check();
  for (const ClauseSymbolic *clause : paragraph.getSymbolicListElements())
    for (const PhrsSymbolic *phrase : clause->getSymbolicListElements())
      checkSymbolic(*phrase, report);
}

} // namespace tarka
