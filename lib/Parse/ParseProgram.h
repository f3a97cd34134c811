//===- ParseProgram.h - compilation, programs, identification ---*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEPROGRAM_H
#define TARKA_LIB_PARSE_PARSEPROGRAM_H

#include "Parse/ParserBase.h"

namespace tarka {

class ProgramParser : public ParserBase {
public:
  using ParserBase::ParserBase;

  /// Parses the whole compilation. Never null.
  Program *parse(llvm::StringRef inputName);

private:
  SourceUnit *parseSourceUnit(SourceUnit *outer);
  void parseDeclaringDivisions();
  IdentificationDivision *parseIdentificationDivision();
  ProgramIdParagraph *parseProgramId();
  Word *parseProgramName(const SourceRange &paragraph);
  unsigned behindDivisionHeader();
  bool atProgramIdBehindHeader();
  bool atEndProgramBehindHeader();
  bool atEnvironmentPart();
  bool atCommentParagraph();
  bool acceptCommentParagraph(bool skipsEntry);
  bool skipClassOrFunction();
  bool parseEndProgram(SourceUnit *unit);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEPROGRAM_H
