//===- ParseData.h - data division ------------------------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEDATA_H
#define TARKA_LIB_PARSE_PARSEDATA_H

#include "Parse/ParseClauses.h"
#include <algorithm>
#include <array>

namespace tarka {

/// The usages of items that hold a value; like all usages they may stand without the word USAGE.
inline constexpr std::array valueUsages{
    Keyword::Binary,         Keyword::Comp,           Keyword::Comp1,
    Keyword::Comp2,          Keyword::Comp3,          Keyword::Comp4,
    Keyword::Comp5,          Keyword::Computational,  Keyword::Computational1,
    Keyword::Computational2, Keyword::Computational3, Keyword::Computational4,
    Keyword::Computational5, Keyword::Display,        Keyword::Display1,
    Keyword::National,       Keyword::PackedDecimal};

/// The keywords of both arrays, in their order.
template <std::size_t N, std::size_t M>
constexpr std::array<Keyword, N + M> joined(const std::array<Keyword, N> &first,
                                            const std::array<Keyword, M> &second) {
  std::array<Keyword, N + M> all{};
  std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), all.begin()));
  return all;
}

/// The clauses of a data description entry.
extern const ClauseSet dataClauses;

class DataParser : public ClauseParser {
public:
  using ClauseParser::ClauseParser;

  /// With DATA DIVISION next; fills the data division of the current unit. Never null.
  DataDivision *parseDataDivision();

  using AddRecord = llvm::function_ref<void(DataDescription *)>;
  /// Reports that \p entry has a level below 01 and no record to belong to.
  void reportWithoutRecord(const DataDescription &entry);
  void rejectCondition(const DataDescription &entry, bool isFirst);
  /// Parses the entries of data records as long as level numbers follow and passes each complete
  /// record to \p add. Records end where \p atEnd, which may be null, says so, as well.
  void parseDataRecords(StorageType storage, AddRecord add,
                        llvm::function_ref<bool()> atEnd = nullptr);

protected:
  /// Parses one entry. The level number is next, or \p assumedLevel is not 0 and stands for one
  /// that is missing. An entry that cannot stand in the tree is null.
  using ParseEntry = llvm::function_ref<DataDescription *(unsigned assumedLevel)>;
  /// Parses entries with \p parseEntry as long as level numbers follow, puts them together to
  /// records, and passes each complete record to \p add.
  /// \p atEnd, which may be null, says whether the records end at the next token.
  void parseRecords(const ClauseSet &clauses, ParseEntry parseEntry, AddRecord add,
                    llvm::function_ref<bool()> atEnd = nullptr);
  /// The level number that is next, unless \p assumedLevel is not 0. A number written twice counts
  /// once, after a message.
  unsigned parseLevelNumber(unsigned assumedLevel);
  /// The name of an entry or FILLER; null when the entry has none.
  Word *parseEntryName(const ClauseSet &clauses);

  // Clauses that report groups have as well.
  ClausePicture *parsePicture();
  ClauseUsage *parseUsage();
  ClauseValue *parseValue();
  ClauseOccurs *parseOccurs();
  ClauseSign *parseSign();
  ClauseJustified *parseJustified();
  ClauseBlankZero *parseBlankZero();

private:
  static constexpr unsigned sectionKinds = static_cast<unsigned>(StorageType::Report) + 1;
  /// \p seen are the sections that the division has already.
  void parseDataSection(DataDivision &division, std::bitset<sectionKinds> &seen);
  void skipForeignSection();
  /// With a level number next. Null when the entry cannot stand in the tree.
  DataDescription *parseDataEntry(unsigned assumedLevel);
  /// Skips what stands in place of the level number of an entry, up to its name. False when no
  /// entry can be made out.
  bool skipToEntryName(const ClauseSet &clauses);
  void skipCopiedEntryName(unsigned level, const Word &name);

  bool parseDataClause(DataDescription &entry);
  Word *parsePictureString();
  bool isPictureDivided(const Word &string);
  Word *mendPicture(const Word &string);
  unsigned nextLevel();
  bool parseDynamicLength();
  ClauseGroupUsage *parseGroupUsage();
  PhraseValue *parseValuePhrase();
  bool parseValueOperand(LiteralExpression *&literal, Word *&word);
  /// [n TO] m TIMES
  bool parseOccursBounds(ClauseOccurs &occurs);
  bool parseOccursPhrases(ClauseOccurs &occurs);
  Key *parseOccursKey();
  bool parseIndexNames(ClauseOccurs &occurs);
  ClauseRedefines *parseRedefines();
  ClauseRenames *parseRenames();
  ClauseSynchronized *parseSynchronized();
  ClauseDateFormat *parseDateFormat();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEDATA_H
