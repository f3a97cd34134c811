//===- ParseSupplied.h - what CICS and DB2 add to a program -----*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESUPPLIED_H
#define TARKA_LIB_PARSE_PARSESUPPLIED_H

#include "Parse/ParseData.h"

namespace tarka {

class SuppliedParser : public DataParser {
public:
  using DataParser::DataParser;

  /// Declares in the unit, whose own data division has been parsed, what every CICS program has.
  void supplyInterfaceBlock();
  /// Gives the header of the outermost program the parameters that CICS passes.
  void supplyParameters(ProcedureDivision &division, const SourceRange &header);
  /// Declares in the unit, which has been parsed, what its embedded blocks need and it does not
  /// declare.
  void supplyCommunicationAreas();
  bool atSqlType();
  /// [USAGE [IS]] SQL [TYPE] [IS] type: the host variable that DB2 makes of it.
  bool parseSqlType(DataDescription &entry);

private:
  void supplyRecords(llvm::StringRef copybook, StorageType storage);
  void readRecords(llvm::StringRef file, llvm::StringRef text, StorageType storage, AddRecord add);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESUPPLIED_H
