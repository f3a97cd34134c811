//===- ParseEnvironment.h - environment division ----------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEENVIRONMENT_H
#define TARKA_LIB_PARSE_PARSEENVIRONMENT_H

#include "AST/Environment.h"
#include "Parse/ParseClauses.h"

namespace tarka {

class EnvironmentParser : public ClauseParser {
public:
  using ClauseParser::ClauseParser;

  /// With ENVIRONMENT DIVISION next. Never null.
  EnvironmentDivision *parseEnvironmentDivision();

private:
  ConfigurationSection &configurationSectionOf(EnvironmentDivision &division, bool hasHeader);
  InputOutputSection &inputOutputSectionOf(EnvironmentDivision &division, bool hasHeader);
  Keyword environmentSectionAt();
  static Keyword sectionOfParagraph(Keyword header);
  Keyword misspeltHeader(llvm::ArrayRef<Keyword> headers);
  /// The section header or the paragraph that is next; \p header is its first word.
  void parseEnvironmentPart(EnvironmentDivision &division, Keyword header);
  void parseRepository();
  bool parseRepositoryFunctions();
  void parseSourceComputer(ConfigurationSection &section);
  void parseObjectComputer(ConfigurationSection &section);
  ClauseMemorySize *parseMemorySize();
  ClauseSequence *parseCollatingSequence();
  ClauseSegmentLimit *parseSegmentLimit();
  bool atSpecialNamesClause(const EnvironmentDivision &division);
  void parseSpecialNames(ConfigurationSection &section);
  bool parseXmlSchema();
  bool parseSpecialNamesClause(ParaSpecialNames &names, const ClauseSet &clauses);
  ClauseEnvName *parseEnvironmentName();
  bool atAlphabetWithoutKeyword();
  ClauseAlphabet *parseAlphabet();
  bool parseForAlphanumeric();
  PhrsAlphabet *parseAlphabetPhrase();
  ClauseSymbolic *parseSymbolicCharacters();
  bool atSymbolicPhrase();
  PhrsSymbolic *parseSymbolicPhrase();
  ClauseClass *parseClass();
  PhrsClass *parseClassPhrase();
  ClauseCurrency *parseCurrency();
  ClauseDecimalPoint *parseDecimalPoint();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEENVIRONMENT_H
