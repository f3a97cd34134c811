//===- ClausePicture.cpp - decoding of PICTURE strings --------------------===//
//
// A character string is read into runs of equal symbols, every run gets its place
// (which side of the decimal point, fixed or floating), the places are checked
// against the table of precedence, then positions are counted and the category is
// determined. Every step works on the runs, not on the positions, so that
// X(999999999) takes no longer than X.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/Expression.h"
#include "AST/PictureFault.h"
#include "PictureCache.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/PointerIntPair.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/ConvertUTF.h"
#include "llvm/Support/MathExtras.h"
#include <algorithm>
#include <array>
#include <climits>

namespace tarka {

using llvm::ArrayRef;
using llvm::StringRef;

namespace {

//===----------------------------------------------------------------------===//
// The table of precedence
//===----------------------------------------------------------------------===//

/// A symbol with its place. Signs, currency symbols, suppression symbols and scaling positions are
/// distinguished by the side of the decimal point on which they are.
enum Place : unsigned {
  Blank,              // B
  ZeroOrSlash,        // 0 /
  Comma,              // ,
  Point,              // .
  LeadingSign,        // + -
  TrailingSign,       // + -
  CreditDebit,        // CR DB
  Currency,           // the currency symbol, once
  SuppressLeft,       // Z * left of the decimal point
  SuppressRight,      // Z * right of it
  FloatSignLeft,      // + - in a floating string
  FloatSignRight,     //
  FloatCurrencyLeft,  // the currency symbol in a floating string
  FloatCurrencyRight, //
  Nine,               // 9
  Letter,             // A
  Any,                // X
  Sign,               // S
  AssumedPoint,       // V
  ScaleLeft,          // P left of the decimal point, which is right of the digits
  ScaleRight,         // P right of the decimal point, which is left of the digits
  NationalCharacter,  // N
  DbcsCharacter,      // G
  NumPlaces,
  Misplaced = NumPlaces, // no symbol at all
};

using PlaceSet = std::uint32_t;
constexpr PlaceSet setOf(Place place) {
  return PlaceSet(1) << place;
}

struct PrecedenceRow {
  Place second;
  const char *first;
};

/// The order of symbols. An x says that the symbol of the column may come before the symbol of the
/// row, next to it or further away. Where a symbol has two rows, the upper one is for its use left
/// of the decimal point (for a single sign: left of the digits), the lower one right of it. A
/// symbol that may not come before itself stands at most once.
constexpr PrecedenceRow precedence[] = {
    // clang-format off
    //                     B 0 , . + + C $   Z Z + + $ $   9 A X S V P P N G
    //                       /       - - R   * *
    //                                   D   l r l r l r             l r
    {Blank,              "x x x x x . . x | x x x x x x | x x x . x . x x x"},
    {ZeroOrSlash,        "x x x x x . . x | x x x x x x | x x x . x . x x ."},
    {Comma,              "x x x x x . . x | x x x x x x | x . . . x . x . ."},
    {Point,              "x x x . x . . x | x . x . x . | x . . . . . . . ."},
    {LeadingSign,        ". . . . . . . . | . . . . . . | . . . . . . . . ."},
    {TrailingSign,       "x x x x . . . x | x x . . x x | x . . . x x x . ."},
    {CreditDebit,        "x x x x . . . x | x x . . x x | x . . . x x x . ."},
    {Currency,           ". . . . x . . . | . . . . . . | . . . . . . . . ."},

    {SuppressLeft,       "x x x . x . . x | x . . . . . | . . . . . . . . ."},
    {SuppressRight,      "x x x x x . . x | x x . . . . | . . . . x . x . ."},
    {FloatSignLeft,      "x x x . . . . x | . . x . . . | . . . . . . . . ."},
    {FloatSignRight,     "x x x x . . . x | . . x x . . | . . . . x . x . ."},
    {FloatCurrencyLeft,  "x x x . x . . . | . . . . x . | . . . . . . . . ."},
    {FloatCurrencyRight, "x x x x x . . . | . . . . x x | . . . . x . x . ."},

    {Nine,               "x x x x x . . x | x . x . x . | x x x x x . x . ."},
    {Letter,             "x x . . . . . . | . . . . . . | x x x . . . . . ."},
    {Any,                "x x . . . . . . | . . . . . . | x x x . . . . . ."},
    {Sign,               ". . . . . . . . | . . . . . . | . . . . . . . . ."},
    {AssumedPoint,       "x x x . x . . x | x . x . x . | x . . x . x . . ."},
    {ScaleLeft,          "x x x . x . . x | x . x . x . | x . . x . x . . ."},
    {ScaleRight,         ". . . . x . . x | . . . . . . | . . . x x . x . ."},
    {NationalCharacter,  "x x . . . . . . | . . . . . . | . . . . . . . x ."},
    {DbcsCharacter,      "x . . . . . . . | . . . . . . | . . . . . . . . x"},
    // clang-format on
};

/// The rows of the table as sets, indexed by the second symbol.
constexpr auto mayPrecede = [] {
  std::array<PlaceSet, NumPlaces + 1> sets = {};
  for (const PrecedenceRow &row : precedence) {
    unsigned column = 0;
    for (const char *mark = row.first; *mark; ++mark)
      if (*mark == 'x' || *mark == '.')
        sets[row.second] |= PlaceSet(*mark == 'x') << column++;
    if (column != NumPlaces)
      __builtin_unreachable(); // not a constant, so that the compiler rejects a row of another
                               // length
  }
  return sets;
}();
static_assert(std::size(precedence) == NumPlaces, "one row for each symbol");

//===----------------------------------------------------------------------===//
// Reading the string
//===----------------------------------------------------------------------===//

/// The two-letter symbols as one character each; lower-case letters have no other meaning here.
constexpr char Credit = 'c';
constexpr char Debit = 'd';

/// A run of equal symbols with their number.
struct Run {
  char symbol;
  bool isRepeated; ///< a repetition factor is written
  std::uint64_t count;
  Place place = Misplaced;
};
using RunList = llvm::SmallVector<Run, 16>;

/// The letters of PICTURE symbols, for which lower case is upper case.
bool isPictureLetter(char c) {
  return StringRef("ABCDEGNPRSVXZ").contains(c);
}

char fold(char c) {
  const char upper = llvm::toUpper(c);
  return isPictureLetter(upper) ? upper : c;
}

/// A character that a program may choose as its currency symbol.
bool mayBeCurrencySymbol(char c) {
  const bool isSpaceOrControl = static_cast<unsigned char>(c) <= ' ' || c == 0x7f;
  return !isSpaceOrControl && !llvm::isDigit(c) && !isPictureLetter(c) &&
         !StringRef("+-,.*/;()=\"'cd").contains(c);
}

/// Letters that mean something only together with others (CR, DB, the E of an exponent).
bool isStrayLetter(char c) {
  return StringRef("CDER").contains(c);
}

/// Symbols that can occur only once have no repetition factor.
bool isRepeatable(char c) {
  return StringRef("ABGNPXZ90/,+-*").contains(c) || mayBeCurrencySymbol(c);
}

} // namespace

char takePictureCharacter(llvm::StringRef &text) {
  const char first = text.front();
  const auto *begin = reinterpret_cast<const llvm::UTF8 *>(text.begin());
  const auto *end = reinterpret_cast<const llvm::UTF8 *>(text.end());
  llvm::UTF32 character = 0;
  const bool isEncoded = static_cast<unsigned char>(first) >= 0x80 &&
                         llvm::convertUTF8Sequence(&begin, end, &character,
                                                   llvm::strictConversion) == llvm::conversionOK;
  if (!isEncoded) {
    text = text.drop_front();
    return first;
  }
  text = text.drop_front(begin - reinterpret_cast<const llvm::UTF8 *>(text.begin()));
  // The symbols of Latin-1 keep their byte. Those of the currency block, as many as there are
  // control bytes in Latin-1, take the place of these.
  constexpr llvm::UTF32 firstLatin = 0xA0, firstCurrency = 0x20A0, lastCurrency = 0x20BF;
  if (character >= firstLatin && character <= 0xFF)
    return static_cast<char>(character);
  if (character >= firstCurrency && character <= lastCurrency)
    return static_cast<char>(0x80 + (character - firstCurrency));
  constexpr char notInPictures = '\x7F';
  return notInPictures;
}

namespace {

/// Reads the symbol that \p text begins with.
char takeSymbol(StringRef &text) {
  const char first = fold(text.front());
  const char next = text.size() > 1 ? fold(text[1]) : '\0';
  if (static_cast<unsigned char>(first) >= 0x80)
    return takePictureCharacter(text);
  if ((first == 'C' && next == 'R') || (first == 'D' && next == 'B')) {
    text = text.drop_front(2);
    return first == 'C' ? Credit : Debit;
  }
  text = text.drop_front();
  return first;
}

/// Takes the repetition factor that \p text begins with, "(n)"; gives 0 when it is not one.
std::uint64_t takeRepetition(StringRef &text) {
  const StringRef digits = text.drop_front().take_while(llvm::isDigit);
  text = text.drop_front(1 + digits.size());
  if (!text.consume_front(")"))
    return 0;
  std::uint64_t count = 0;
  for (char digit : digits)
    count = llvm::SaturatingMultiplyAdd<std::uint64_t>(count, 10, digit - '0');
  return count;
}

/// Reads \p text into \p runs, symbols as written. False when a repetition factor is wrong; \p runs
/// then holds what was read before it.
bool readRuns(StringRef text, RunList &runs) {
  while (!text.empty()) {
    const char symbol = takeSymbol(text);
    const bool isRepeated = text.starts_with("(");
    const std::uint64_t count = isRepeated ? takeRepetition(text) : 1;
    if (count == 0)
      return false;
    if (!runs.empty() && runs.back().symbol == symbol) {
      runs.back().isRepeated |= isRepeated;
      runs.back().count = llvm::SaturatingAdd(runs.back().count, count);
    } else {
      runs.push_back({symbol, isRepeated, count});
    }
  }
  return true;
}

//===----------------------------------------------------------------------===//
// Decoding
//===----------------------------------------------------------------------===//

int saturated(std::uint64_t count) {
  return static_cast<int>(std::min<std::uint64_t>(count, INT_MAX));
}

/// Decodes one string.
class Decoder {
public:
  Decoder(StringRef text, bool decimalPointIsComma);

  PictureInfo decode();

private:
  bool isExternalFloat() const;
  void findCurrencySymbol();
  void assignPlaces();
  Place placeOf(const Run &run, bool isFirst, bool isRight, bool isBeforeDigits) const;
  /// Two equal signs or currency symbols make a floating string, except the signs of a mantissa and
  /// an exponent.
  bool isFloating(char symbol) const {
    return info.category != DataCategory::ExternalFloat && occurrences(symbol) > 1;
  }
  bool isDigitPosition(const Run &run) const;
  void count();
  bool followsPrecedence();
  DataCategory category() const;

  std::uint64_t &occurrences(char symbol) { return total[static_cast<unsigned char>(symbol)]; }
  std::uint64_t occurrences(char symbol) const { return total[static_cast<unsigned char>(symbol)]; }
  bool has(char symbol) const { return occurrences(symbol) != 0; }
  bool isCurrency(const Run &run) const {
    return info.currencySymbol && run.symbol == info.currencySymbol;
  }

  RunList runs;
  std::array<std::uint64_t, UCHAR_MAX + 1> total = {};
  bool isWellFormed;
  PlaceSet seen = 0;
  PictureInfo info;
};

Decoder::Decoder(StringRef text, bool decimalPointIsComma) {
  isWellFormed = readRuns(text, runs);
  for (Run &run : runs) {
    // From here on the period is the decimal point in either case.
    if (decimalPointIsComma && (run.symbol == ',' || run.symbol == '.'))
      run.symbol = run.symbol == ',' ? '.' : ',';
    occurrences(run.symbol) = llvm::SaturatingAdd(occurrences(run.symbol), run.count);
    // Letters that may be currency symbols by mistake are handled later.
    isWellFormed &= !run.isRepeated || isRepeatable(run.symbol) || isStrayLetter(run.symbol);
  }
}

/// Character positions of an exponent: E, a sign, and 99.
constexpr std::uint64_t ExponentSize = 4;

/// A sign, a mantissa of nines with a decimal point, E, a sign, and 99.
bool Decoder::isExternalFloat() const {
  // The string with s for a sign and p for a decimal point, provided that they occur once.
  llvm::SmallString<8> shape;
  for (const Run &run : runs) {
    if (run.symbol == '9') {
      shape += '9';
      continue;
    }
    if (run.count != 1 || run.isRepeated || shape.size() > 7)
      return false;
    if (run.symbol == '+' || run.symbol == '-')
      shape += 's';
    else if (run.symbol == '.' || run.symbol == 'V')
      shape += 'p';
    else
      shape += run.symbol;
  }
  return (shape == "s9pEs9" || shape == "sp9Es9" || shape == "s9p9Es9") && runs.back().count == 2;
}

/// Settles which character is the currency symbol. A string can have only one.
void Decoder::findCurrencySymbol() {
  for (const Run &run : runs) {
    if (!mayBeCurrencySymbol(run.symbol))
      continue;
    isWellFormed &= !info.currencySymbol || isCurrency(run);
    info.currencySymbol = run.symbol;
    info.isDiffCurrencySymbol |= run.symbol != '$';
  }
  if (info.currencySymbol)
    return;
  // A stray letter can only have been meant as a currency symbol. No CURRENCY SIGN clause can
  // introduce it, which is what the programmer needs to know.
  const Run *stray = llvm::find_if(runs, [](const Run &run) { return isStrayLetter(run.symbol); });
  if (stray != runs.end())
    info.currencySymbol = stray->symbol;
}

/// 9, a suppression symbol or a symbol of a floating string.
bool Decoder::isDigitPosition(const Run &run) const {
  if (StringRef("9Z*").contains(run.symbol))
    return true;
  return (run.symbol == '+' || run.symbol == '-' || isCurrency(run)) && isFloating(run.symbol);
}

void Decoder::assignPlaces() {
  const auto isScaling = [](const Run &run) { return run.symbol == 'P'; };
  const Run *firstDigit = llvm::find_if(runs, [&](const Run &run) { return isDigitPosition(run); });
  const Run *firstScaling = llvm::find_if(runs, isScaling);
  info.isPFront = firstScaling < firstDigit;

  // Scaling positions imply a decimal point on their outer side.
  const Run *point =
      llvm::find_if(runs, [](const Run &run) { return run.symbol == '.' || run.symbol == 'V'; });
  if (point == runs.end() && info.isPFront)
    point = firstScaling;

  for (Run &run : runs)
    run.place = placeOf(run, &run == runs.begin(), &run >= point, &run < firstDigit);
}

Place Decoder::placeOf(const Run &run, bool isFirst, bool isRight, bool isBeforeDigits) const {
  switch (run.symbol) {
  case 'B':
    return Blank;
  case '0':
  case '/':
    return ZeroOrSlash;
  case ',':
    return Comma;
  case '.':
    return Point;
  case '+':
  case '-':
    if (isFloating(run.symbol))
      return isRight ? FloatSignRight : FloatSignLeft;
    return isFirst ? LeadingSign : TrailingSign;
  case Credit:
  case Debit:
    return CreditDebit;
  case 'Z':
  case '*':
    return isRight ? SuppressRight : SuppressLeft;
  case '9':
    return Nine;
  case 'A':
    return Letter;
  case 'X':
    return Any;
  case 'S':
    return Sign;
  case 'V':
    return AssumedPoint;
  case 'P':
    return isBeforeDigits ? ScaleRight : ScaleLeft;
  case 'N':
    return NationalCharacter;
  case 'G':
    return DbcsCharacter;
  default:
    if (!isCurrency(run))
      return Misplaced;
    if (isFloating(run.symbol))
      return isRight ? FloatCurrencyRight : FloatCurrencyLeft;
    return Currency;
  }
}

/// Counts digits, scale and size, whether or not the string turns out to be valid.
void Decoder::count() {
  std::uint64_t digits = 0, scaling = 0, scale = 0, size = 0;
  bool isAfterPoint = false, isInFloatingString = false;
  for (const Run &run : runs) {
    // An exponent has positions but no digits of its own.
    if (info.category == DataCategory::ExternalFloat && run.symbol == 'E') {
      size = llvm::SaturatingAdd(size, ExponentSize);
      break;
    }
    if (run.place == AssumedPoint || run.place == Point)
      isAfterPoint = true;
    // S, V and P have no position.
    if (run.place != Sign && run.place != AssumedPoint && run.place != ScaleLeft &&
        run.place != ScaleRight)
      size = llvm::SaturatingMultiplyAdd<std::uint64_t>(run.count, run.place == CreditDebit ? 2 : 1,
                                                        size);

    std::uint64_t positions = 0;
    if (run.place == ScaleLeft || run.place == ScaleRight) {
      positions = run.count;
      scaling = llvm::SaturatingAdd(scaling, positions);
      isAfterPoint |= run.place == ScaleRight;
    } else if (isDigitPosition(run)) {
      positions = run.count;
      // The first position of a floating string never holds a digit.
      if (run.place >= FloatSignLeft && run.place <= FloatCurrencyRight && !isInFloatingString) {
        isInFloatingString = true;
        --positions;
      }
    }
    digits = llvm::SaturatingAdd(digits, positions);
    if (isAfterPoint)
      scale = llvm::SaturatingAdd(scale, positions);
  }
  info.digits = saturated(digits);
  info.storedDigits = saturated(digits - std::min(digits, scaling));
  info.scale = saturated(scale);
  info.size = saturated(size);
}

/// Checks the places against the table.
bool Decoder::followsPrecedence() {
  for (const Run &run : runs) {
    if (run.place == Misplaced)
      return false;
    const PlaceSet allowed = mayPrecede[run.place];
    if (run.count > 1)
      seen |= setOf(run.place);
    if (seen & ~allowed)
      return false;
    seen |= setOf(run.place);
  }
  // Symbols that share a row must not be mixed.
  const bool isSuppressionMixed = has('Z') && has('*');
  const int signKinds = has('+') + has('-') + has(Credit) + has(Debit);
  return !isSuppressionMixed && signKinds <= 1;
}

/// The category of a string whose order is right, by the symbols that it has.
DataCategory Decoder::category() const {
  constexpr PlaceSet insertions = setOf(Blank) | setOf(ZeroOrSlash);
  constexpr PlaceSet numeric =
      setOf(Nine) | setOf(Sign) | setOf(AssumedPoint) | setOf(ScaleLeft) | setOf(ScaleRight);

  if (seen & setOf(DbcsCharacter))
    return DataCategory::Dbcs;
  if (seen & setOf(NationalCharacter))
    return seen & insertions ? DataCategory::NationalEdited : DataCategory::National;
  if (seen == setOf(Letter))
    return DataCategory::Alphabetic;
  if (seen & (setOf(Letter) | setOf(Any)))
    return seen & insertions ? DataCategory::AlphanumericEdited : DataCategory::Alphanumeric;
  // The rest is numeric, and needs a digit that is stored.
  if (info.storedDigits == 0)
    return DataCategory::Unclassified;
  return seen & ~numeric ? DataCategory::NumericEdited : DataCategory::Numeric;
}

PictureInfo Decoder::decode() {
  info.isSigned = has('S');
  const bool isFloat = isWellFormed && isExternalFloat();
  if (isFloat)
    info.category = DataCategory::ExternalFloat;
  else
    findCurrencySymbol();
  assignPlaces();
  count();
  if (isFloat)
    return info;

  if (isWellFormed && followsPrecedence())
    info.category = category();
  switch (info.category) {
  case DataCategory::Unclassified:
    // A stray letter was not a currency symbol after all.
    if (isStrayLetter(info.currencySymbol))
      info.currencySymbol = 0;
    break;
  case DataCategory::Numeric:
  case DataCategory::NumericEdited:
    info.isDiffCurrencySymbol |= isStrayLetter(info.currencySymbol);
    break;
  default:
    // The nines of an alphanumeric item are not digits.
    info.digits = info.storedDigits = info.scale = 0;
  }
  return info;
}

/// The decoded pictures by their interned text and the meaning of the comma. Pictures repeat a lot,
/// so each one is decoded once.
using PictureCache =
    llvm::DenseMap<llvm::PointerIntPair<const std::string *, 1, bool>, const PictureInfo *>;

PictureCache &pictureCache() {
  static auto *cache = new PictureCache;
  return *cache;
}

/// The decoded form of \p text, which is interned.
const PictureInfo *lookUp(const std::string *text, bool decimalPointIsComma) {
  const PictureInfo *&info = pictureCache()[{text, decimalPointIsComma}];
  if (!info)
    info = new (allocateForever(sizeof(PictureInfo), alignof(PictureInfo)))
        PictureInfo(Decoder(*text, decimalPointIsComma).decode());
  return info;
}

/// The string with its repetition factors written out, unless it becomes too long or is wrong.
std::string writeOut(StringRef text) {
  std::string result;
  RunList runs;
  bool isWritable = readRuns(text, runs);
  std::uint64_t positions = 0;
  for (const Run &run : runs)
    positions = llvm::SaturatingAdd(positions, run.count);
  if (!isWritable || positions > ClausePicture::MaxWrittenOut) {
    llvm::transform(text, std::back_inserter(result), fold);
    return result;
  }
  for (const Run &run : runs)
    for (std::uint64_t i = 0; i < run.count; ++i)
      if (run.symbol == Credit || run.symbol == Debit)
        result += run.symbol == Credit ? "CR" : "DB";
      else
        result += run.symbol;
  return result;
}

} // namespace

void clearPictureCache() {
  pictureCache().clear();
}

//===----------------------------------------------------------------------===//
// The clause
//===----------------------------------------------------------------------===//

std::size_t findPictureFault(StringRef text) {
  // Which of comma and period is the decimal point makes no difference to where most strings fail.
  for (std::size_t length = text.size(); length > 0; --length)
    for (const bool decimalPointIsComma : {false, true})
      if (Decoder(text.take_front(length), decimalPointIsComma).decode().category !=
          DataCategory::Unclassified)
        return length;
  return 0;
}

ClausePicture::ClausePicture(const Node *at, Word *characterString)
    : Node(at), charString(characterString) {
  decodePicture(/*decimalPointIsComma=*/false);
}

void ClausePicture::decodePicture(bool decimalPointIsComma) {
  info = lookUp(&charString->getWordData(), decimalPointIsComma);
  extended = nullptr;
  currencySign = nullptr;
}

void ClausePicture::readNationalAsDbcs() {
  std::string text = charString->getWordData();
  std::replace(text.begin(), text.end(), 'N', 'G');
  std::replace(text.begin(), text.end(), 'n', 'g');
  info = lookUp(&internString(text), /*decimalPointIsComma=*/false);
}

const std::string &ClausePicture::getExtendedPicture() const {
  if (!extended)
    extended = &internString(writeOut(charString->getWordData()));
  return *extended;
}

int ClausePicture::getSize() const {
  const auto *sign = llvm::dyn_cast_if_present<NonNumericLiteralExpression>(currencySign);
  if (!sign || !info->currencySymbol || sign->getLength() == 0)
    return info->size;
  return saturated(std::uint64_t(info->size) + sign->getLength() - 1);
}

} // namespace tarka
