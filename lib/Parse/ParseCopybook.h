//===- ParseCopybook.h - a copybook that is read by itself ------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSECOPYBOOK_H
#define TARKA_LIB_PARSE_PARSECOPYBOOK_H

#include "Parse/ParserBase.h"

namespace tarka {

/// Reads a copybook without the program that copies it. What the program would have around it may
/// be missing: the headers, the record that the entries belong to, the period at the end.
class CopybookParser : public ParserBase {
public:
  using ParserBase::ParserBase;

  /// Parses the copybook \p name up to its end. Gives a unit with the records of a copybook that
  /// declares data, so that they can be checked and laid out. Null for other copybooks, in which
  /// only the syntax is known to be right: nearly all names in them are declared elsewhere.
  SourceUnit *parse(llvm::StringRef name);

private:
  void parseEntries(SourceUnit &unit);
  void supplyOuterNames(DataDivision &division);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSECOPYBOOK_H
