//===- ParseProgram.cpp - compilation, programs, identification -----------===//

#include "Parse/ParseProgram.h"
#include "Parse/Parse.h"
#include "Parse/ParseCopybook.h"
#include "Parse/ParseData.h"
#include "Parse/ParseEnvironment.h"
#include "Parse/ParseProcedure.h"
#include "Parse/ParseSupplied.h"
#include <utility>

namespace tarka {

//===----------------------------------------------------------------------===//
// Compilation
//===----------------------------------------------------------------------===//

llvm::ErrorOr<Program *> parseProgram(llvm::StringRef path, llvm::StringRef inputName,
                                      const ParseOptions &options, FrontEndDiagnostics &diagnostics,
                                      Expansion *expansion) {
  SourceManager files(options);
  llvm::ErrorOr<const SourceFile *> main = files.open(path);
  if (!main)
    return main.getError();
  TokenStream tokens(**main, files, diagnostics, expansion);
  ParserContext context(tokens, diagnostics, options);
  context.expansion = expansion;
  Program *program = ProgramParser(context).parse(inputName);
  tokens.reportCutLines();
  files.collectDamagedNames(diagnostics.getDamage());
  return program;
}

Program *ProgramParser::parse(llvm::StringRef inputName) {
  Program *program = new Program(inputName);
  SourceRange first = here();
  if (hasCopybookExtension(inputName) && !at(TokenKind::EndOfFile) &&
      !atDivision(Keyword::Identification) && !atProgramId()) {
    if (SourceUnit *unit = CopybookParser(context).parse(inputName))
      program->addSourceUnit(unit);
    return program;
  }
  for (Progress progress(stream); !at(TokenKind::EndOfFile) && !context.diagnostics.hasFatalError();
       progress.ensure()) {
    // Stray periods between programs say nothing.
    if (accept(TokenKind::Period))
      continue;
    if (skipClassOrFunction())
      continue;
    if (!atUnitBoundary()) {
      error(DiagnosticId::ProgramExpected, here(), describe(peek()));
      Skipping skipping(*this);
      while (!at(TokenKind::EndOfFile) && !atDivision(Keyword::Identification) && !atProgramId())
        stream.skip();
      continue;
    }
    if (atEndProgram()) {
      if (!context.isNestingUncertain)
        error(DiagnosticId::EndProgramWithoutProgram, here());
      skipPastPeriod();
      continue;
    }
    context.repositoryFunctions.clear();
    program->addSourceUnit(parseSourceUnit(nullptr));
  }
  if (program->getSourceUnitListSize() == 0 && !context.diagnostics.hasErrors())
    error(DiagnosticId::NothingToCompile, first);
  return program;
}

/// A class or user-defined function, which is not supported, is skipped up to its END.
bool ProgramParser::skipClassOrFunction() {
  const unsigned n = peek(1).is(Keyword::Division) ? behindDivisionHeader() : 0;
  const Token header = peek(n);
  if (!header.is(Keyword::ClassId) && !(header.isWord() && header.text == "FUNCTION-ID"))
    return false;
  error(DiagnosticId::NotSupported, header.place, header.text);
  Skipping skipping(*this);
  while (!at(TokenKind::EndOfFile) && !atSequence(Keyword::End, Keyword::Class) &&
         !atSequence(Keyword::End, Keyword::Function))
    stream.skip();
  skipPastPeriod();
  return true;
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

/// Programs nested in this one follow its procedure division; END PROGRAM, which a program that is
/// the last of a file may leave out, ends the program.
SourceUnit *ProgramParser::parseSourceUnit(SourceUnit *outer) {
  SourceRange begin = here();
  Depth level(*this);
  SourceUnit *enclosing = context.unit;

  context.missingHeaders.clear();
  IdentificationDivision *identification = parseIdentificationDivision();
  SourceUnit *current = makeAt<SourceUnit>(begin, identification, outer);
  context.unit = current;
  if (outer)
    outer->addNested(current);
  bool outerComma = context.decimalPointIsComma;
  auto outerLanguages = std::exchange(context.embeddedLanguages, {});

  context.namelessFiles.clear();
  context.namelessSelects.clear();
  context.previousEntry = {};
  parseDeclaringDivisions();
  SuppliedParser supplied(context);
  // A program with a communication area is translated, one that has commands of CICS or DL/I too.
  if (!outer)
    context.isTranslated = isItem("DFHCOMMAREA");
  supplied.supplyInterfaceBlock();
  if (atDivision(Keyword::Procedure) || atStrayProcedures())
    current->setProcDivision(ProcedureParser(context).parseProcedureDivision());
  const SourceRange header = context.procedureHeader;

  for (Progress progress(stream); !at(TokenKind::EndOfFile); progress.ensure()) {
    if (atEndProgram()) {
      if (!parseEndProgram(current))
        continue;
      break;
    }
    // The header of the next program, before the end of this one.
    if (atDivision(Keyword::Identification) && atEndProgramBehindHeader()) {
      error(DiagnosticId::DivisionOutOfOrder, here(), describe(peek()));
      takeDivisionHeader(Keyword::Identification);
      expectPeriod();
      continue;
    }
    bool anotherProgram = atDivision(Keyword::Identification) || atProgramId();
    if (anotherProgram) {
      // Without END PROGRAM before it, the program that follows is nested in this one; that needs
      // an END PROGRAM of its own and another one for this program.
      if (level.isTooDeep()) {
        error(DiagnosticId::NestedTooDeep, here(), maxDepth);
        skipPastPeriod();
        continue;
      }
      parseSourceUnit(current);
      if (context.endedUnit == current)
        context.endedUnit = nullptr;
      else if (!context.endedUnit)
        continue;
      break;
    }
    if (current->getProcDivision() && atDivision(Keyword::Procedure) &&
        isHeaderDisplaced(Keyword::Procedure)) {
      ProcedureParser(context).resumeProcedureDivision(*current->getProcDivision());
      continue;
    }
    // A division out of its order; the text up to the next boundary is reported once.
    error(DiagnosticId::DivisionOutOfOrder, here(), describe(peek()));
    Skipping skipping(*this);
    stream.skip();
    while (!atUnitBoundary())
      stream.skip();
  }

  supplied.supplyCommunicationAreas();
  if (current->getProcDivision() && context.isTranslated)
    supplied.supplyParameters(*current->getProcDivision(), header);
  complete(current);
  context.unit = enclosing;
  context.embeddedLanguages = outerLanguages;
  context.decimalPointIsComma = outerComma;
  stream.setDecimalPointIsComma(outerComma);
  return current;
}

/// The environment and the data division. Where they are exchanged or begin twice, that is
/// reported, and what they declare is read all the same.
void ProgramParser::parseDeclaringDivisions() {
  for (Progress progress(stream);; progress.ensure()) {
    const Keyword division = divisionAt();
    if (division == Keyword::Environment || division == Keyword::Data) {
      const bool isAgain = division == Keyword::Environment
                               ? context.unit->getEnvironmentDivision() != nullptr
                               : context.unit->getDataDivision() != nullptr;
      const bool isLate = division == Keyword::Environment && context.unit->getDataDivision();
      if ((isAgain || isLate) && !isHeaderDisplaced(division))
        error(DiagnosticId::DivisionOutOfOrder, here(), describe(peek()));
      if (division == Keyword::Environment)
        EnvironmentParser(context).parseEnvironmentDivision();
      else
        DataParser(context).parseDataDivision();
    } else if (division == Keyword::None && atEnvironmentPart()) {
      if (!context.unit->getEnvironmentDivision() && !isHeaderDisplaced(Keyword::Environment))
        missingHeader(Keyword::Environment, "ENVIRONMENT DIVISION");
      EnvironmentParser(context).parseEnvironmentDivision();
    } else if (division == Keyword::None && atDataSection() && !atStrayProcedures()) {
      // Where the divisions are exchanged, the header stands further up.
      if (!context.unit->getDataDivision())
        missingHeader(Keyword::Data, "DATA DIVISION");
      DataParser(context).parseDataDivision();
    } else {
      return;
    }
  }
}

/// END PROGRAM name. False where it repeats the END PROGRAM before it, and ends nothing.
bool ProgramParser::parseEndProgram(SourceUnit *current) {
  // Next to a mistake, the END PROGRAM of a nested program may be missing.
  constexpr unsigned near = 2;
  const bool isLeftOver = recovery.isBehindMistake(here(), near);
  const SourceRange begin = here();
  const bool isRepeated = stream.getTaken() == context.lastProgramEnd;
  recovery.resumeReporting();
  if (atSequence(Keyword::End, Keyword::Program)) {
    stream.skip();
    stream.skip();
  } else {
    error(DiagnosticId::Expected, here(), "END PROGRAM",
          (describe(peek()) + " " + describe(peek(1))));
    // Skip what comes before the name.
    do
      stream.skip();
    while (peek().isWord() && !peek(1).isOneOf(TokenKind::Period, TokenKind::EndOfFile) &&
           !peek(1).isFirstOnLine());
  }
  Recovery::ConstructScope construct(recovery);
  if (at(TokenKind::AlphanumericLiteral) || peek().isWord()) {
    llvm::StringRef name = withoutQuotes(current->getSourceUnitName());
    // A program whose name could not be read has had its message.
    const llvm::StringRef ended = withoutQuotes(peek().spelling);
    const bool isOther = !name.empty() && !ended.equals_insensitive(name);
    if (isOther && isRepeated && ended.equals_insensitive(context.lastEndedProgram)) {
      error(DiagnosticId::EndProgramWithoutProgram, begin);
      skipPastPeriod();
      return false;
    }
    context.isNestingUncertain |= isOther;
    // It is the END PROGRAM of this program that is missing where a program around it is named.
    if (isOther)
      for (SourceUnit *outer = current->getParent(); outer && !context.endedUnit;
           outer = outer->getParent())
        if (ended.equals_insensitive(withoutQuotes(outer->getSourceUnitName())))
          context.endedUnit = outer;
    if (isOther && !isLeftOver)
      error(DiagnosticId::EndProgramNameDiffers, here(), ended, name);
    stream.skip();
  } else {
    expected("the name of the program that ends");
    accept(TokenKind::Period);
  }
  // At the end of the file nothing can be meant but the end of the program.
  if (at(TokenKind::EndOfFile))
    return true;
  // One message is enough for a line.
  if (!construct.hasMistake())
    expectHeaderPeriod();
  else
    while (!peek().isFirstOnLine() && !accept(TokenKind::Period))
      stream.skip();
  context.lastEndedProgram = withoutQuotes(current->getSourceUnitName()).str();
  context.lastProgramEnd = stream.getTaken();
  return true;
}

//===----------------------------------------------------------------------===//
// Identification division
//===----------------------------------------------------------------------===//

IdentificationDivision *ProgramParser::parseIdentificationDivision() {
  SourceRange begin = here();
  Recovery::ConstructScope construct(recovery);
  const bool hasHeader = atDivision(Keyword::Identification);
  if (hasHeader) {
    takeDivisionHeader(Keyword::Identification);
    expectPeriod();
  }
  const bool hasProgramId = at(Keyword::ProgramId);
  ProgramIdParagraph *programId = parseProgramId();
  // The line of PROGRAM-ID is there twice.
  while (hasProgramId && atProgramId()) {
    error(DiagnosticId::DivisionOutOfOrder, here(), describe(peek()));
    Skipping skipping(*this);
    parseProgramId();
  }
  // Of PROGRAM-ID and the header before it, the lines are exchanged.
  if (!hasHeader && atDivision(Keyword::Identification) && !atProgramIdBehindHeader()) {
    error(DiagnosticId::DivisionOutOfOrder, here(), describe(peek()));
    takeDivisionHeader(Keyword::Identification);
    expectPeriod();
  }
  // Where the header of the division is misspelt, the stream does not skip the comment-entries.
  while (acceptCommentParagraph(/*skipsEntry=*/construct.hasMistake()))
    ;
  auto atEnd = [this] {
    return atUnitBoundary() || (peek().isFirstOnLine() && (atEnvironmentPart() || atDataSection()));
  };
  if (!atEnd()) {
    if (hasProgramId)
      expected("a division");
    Skipping skipping(*this);
    while (!atEnd())
      stream.skip();
  }
  return make<IdentificationDivision>(begin, programId);
}

/// How many tokens the division header that is next has, the period may be missing.
unsigned ProgramParser::behindDivisionHeader() {
  return peek(2).is(TokenKind::Period) ? 3 : 2;
}

/// Whether PROGRAM-ID follows the two words and the period of a division header, which is next.
bool ProgramParser::atProgramIdBehindHeader() {
  return peek(behindDivisionHeader()).is(Keyword::ProgramId);
}

bool ProgramParser::atEndProgramBehindHeader() {
  const unsigned n = behindDivisionHeader();
  return peek(n).is(Keyword::End) && peek(n + 1).is(Keyword::Program);
}

/// Whether a section or paragraph of the environment division begins a line, so that the header of
/// the division is missing.
bool ProgramParser::atEnvironmentPart() {
  if (!peek().isFirstOnLine())
    return false;
  if (at(Keyword::Configuration, Keyword::InputOutput))
    return peek(1).is(Keyword::Section);
  return isEnvironmentParagraph(peek().keyword) && peek(1).is(TokenKind::Period);
}

/// PROGRAM-ID [.] program-name [[IS] {COMMON | INITIAL | RECURSIVE}... [PROGRAM]] [.]
ProgramIdParagraph *ProgramParser::parseProgramId() {
  SourceRange begin = here();
  bool isHeader = accept(Keyword::ProgramId);
  if (!isHeader) {
    expected("PROGRAM-ID");
    while (accept(TokenKind::Period))
      if (at(Keyword::ProgramId))
        return parseProgramId();
    // The header of the next division stands before PROGRAM-ID: it is known, and not missing later.
    if (const Keyword division = divisionAt();
        division != Keyword::None && division != Keyword::Procedure && atProgramIdBehindHeader()) {
      context.missingHeaders.insert(division);
      takeDivisionHeader(division);
      expectPeriod();
      return parseProgramId();
    }
    // A word in the place of the header is a misspelt PROGRAM-ID.
    isHeader = peek().isWord() && peek(1).is(TokenKind::Period) && !atUnitBoundary() &&
               !atCommentParagraph();
    if (isHeader)
      stream.skip();
  }
  if (!isHeader)
    return makeAt<ProgramIdParagraph>(begin, makeAt<Word>(begin, "", ""), ProgramIdType::None);
  accept(TokenKind::Period);
  if (at(TokenKind::Period)) {
    expected("the name of the program");
    stream.skip();
  }
  Word *name = parseProgramName(begin);
  accept(Keyword::Is);
  bool common = false, initial = false, recursive = false;
  while (at(Keyword::Common, Keyword::Initial, Keyword::Recursive)) {
    common |= at(Keyword::Common);
    initial |= at(Keyword::Initial);
    recursive |= at(Keyword::Recursive);
    stream.skip();
  }
  accept(Keyword::Program);
  ProgramIdType type = common      ? ProgramIdType::Common
                       : initial   ? ProgramIdType::Initial
                       : recursive ? ProgramIdType::Recursive
                                   : ProgramIdType::None;
  auto *programId = make<ProgramIdParagraph>(begin, name, type);
  programId->setIsInitial(initial);
  programId->setIsRecursive(recursive);
  if (!atCommentParagraph() && !atUnitBoundary())
    expectPeriod();
  return programId;
}

/// The name keeps its spelling, and a literal its quotes. A missing name is reported and replaced
/// by an empty one at \p paragraph.
Word *ProgramParser::parseProgramName(const SourceRange &paragraph) {
  bool isName = peek().isWord() && !atUnitBoundary() && !atCommentParagraph();
  if (!isName && !at(TokenKind::AlphanumericLiteral, TokenKind::IntegerLiteral)) {
    expected("the name of the program");
    return makeAt<Word>(paragraph, "", "");
  }
  const std::string &spelling = internString(peek().spelling);
  Word *name = new Word(here(), &spelling, &spelling);
  stream.skip();
  return name;
}

/// Whether the header of a paragraph with a comment-entry is next: AUTHOR and the like.
bool ProgramParser::atCommentParagraph() {
  return flagsOf(peek().keyword) & KF_CommentParagraph;
}

/// header [.] [comment-entry]. The stream leaves out the comment-entry unless \p skipsEntry.
bool ProgramParser::acceptCommentParagraph(bool skipsEntry) {
  if (atCommentParagraph()) {
    stream.skip();
    accept(TokenKind::Period);
    if (skipsEntry)
      stream.skipCommentEntry();
    return true;
  }
  if (context.options.osvs || !atWord(textOf(Keyword::Remarks)))
    return false;
  error(DiagnosticId::OsvsStatement, here(), peek().text);
  stream.skip();
  stream.skipCommentEntry();
  return true;
}

} // namespace tarka
