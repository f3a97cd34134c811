//===- ParseFile.h - data division, file section ----------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEFILE_H
#define TARKA_LIB_PARSE_PARSEFILE_H

#include "AST/FileDescription.h"
#include "Parse/ParseData.h"
#include <optional>

namespace tarka {

class FileSectionParser : public DataParser {
public:
  using DataParser::DataParser;

  /// With the entries of the file section next; adds the files to \p division.
  void parseFileSection(DataDivision &division);

private:
  void parseFile(DataDivision &division);
  std::optional<unsigned> nameOfTornEntry();
  void parseFileRecords(AddRecord add);
  void parseNamelessRecords(const SourceRange &place, FileDescType type);
  void nameFiles(DataDivision &division);
  void nameFiles(DataDivision &division, InputOutputSection &section);
  FileDescription *parseFileDescription();
  bool parseFileClause(FileDescription &file);
  ClauseBlock *parseBlock();
  ClauseRecord *parseRecord();
  ClauseLabel *parseLabel();
  ClauseValueOf *parseValueOf();
  ValueOfElem *parseValueOfElement();
  ClauseDataRecord *parseDataRecord();
  ClauseLinage *parseLinage();
  ClauseRecordingMode *parseRecordingMode();
  ClauseCodeSet *parseCodeSet();
  ClauseReport *parseReportClause();
  /// A data-name with its qualifiers. \p what describes it in the message.
  IdentifierExpression *parseItemName(llvm::StringRef what = "a data-name");
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEFILE_H
