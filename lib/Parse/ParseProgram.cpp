//===- ParseProgram.cpp - compilation, programs, identification -----------===//

#include "Parse/ParseProgram.h"
#include "Parse/Parse.h"
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
                                      const ParseOptions &options,
                                      FrontEndDiagnostics &diagnostics) {
  SourceManager files(options);
  llvm::ErrorOr<const SourceFile *> main = files.open(path);
  if (!main)
    return main.getError();
  TokenStream tokens(**main, files, diagnostics);
  ParserContext context(tokens, diagnostics, options);
  return ProgramParser(context).parse(inputName);
}

Program *ProgramParser::parse(llvm::StringRef inputName) {
  Program *program = new Program(inputName);
  SourceRange first = here();
  while (!at(TokenKind::EndOfFile) && !context.diagnostics.hasFatalError()) {
    // Stray periods between programs say nothing.
    if (accept(TokenKind::Period))
      continue;
    if (skipClassOrFunction())
      continue;
    if (!atUnitBoundary()) {
      error(DiagnosticId::ProgramExpected, here(), describe(peek()));
      while (!at(TokenKind::EndOfFile) && !atDivision(Keyword::Identification) &&
             !atSequence(Keyword::ProgramId, TokenKind::Period))
        stream.skip();
      continue;
    }
    if (atEndProgram()) {
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

/// A class or a function of the programmer's, which are not supported: it goes whole, up to its
/// END.
bool ProgramParser::skipClassOrFunction() {
  unsigned n = !peek(1).is(Keyword::Division) ? 0 : peek(2).is(TokenKind::Period) ? 3 : 2;
  const Token header = peek(n);
  if (!header.is(Keyword::ClassId) && !(header.isWord() && header.text == "FUNCTION-ID"))
    return false;
  error(DiagnosticId::NotSupported, header.place, header.text);
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
/// the last of a file may leave out, says where the program ends.
SourceUnit *ProgramParser::parseSourceUnit(SourceUnit *outer) {
  SourceRange begin = here();
  Depth level(*this);
  SourceUnit *enclosing = context.unit;

  IdentificationDivision *identification = parseIdentificationDivision();
  Node position(begin);
  SourceUnit *current = new SourceUnit(&position, identification, outer);
  context.unit = current;
  if (outer)
    outer->addNested(current);
  bool outerComma = context.decimalPointIsComma;
  auto outerLanguages = std::exchange(context.embeddedLanguages, {});

  if (atDivision(Keyword::Environment))
    current->setEnvironmentDivision(EnvironmentParser(context).parseEnvironmentDivision());
  if (atDivision(Keyword::Data))
    DataParser(context).parseDataDivision();
  SuppliedParser(context).supplyInterfaceBlock();
  if (atDivision(Keyword::Procedure))
    current->setProcDivision(ProcedureParser(context).parseProcedureDivision());

  while (!at(TokenKind::EndOfFile)) {
    if (atEndProgram()) {
      parseEndProgram(current);
      break;
    }
    bool anotherProgram =
        atDivision(Keyword::Identification) || atSequence(Keyword::ProgramId, TokenKind::Period);
    if (anotherProgram) {
      // Without END PROGRAM before it, the program that follows is nested in this one; that needs
      // an END PROGRAM of its own and another one for this program.
      if (level.isTooDeep()) {
        error(DiagnosticId::NestedTooDeep, here(), maxDepth);
        skipPastPeriod();
        continue;
      }
      parseSourceUnit(current);
      continue;
    }
    // A division out of its order; the text up to the next boundary is told once.
    error(DiagnosticId::DivisionOutOfOrder, here(), describe(peek()));
    stream.skip();
    while (!atUnitBoundary())
      stream.skip();
  }

  SuppliedParser(context).supplyCommunicationAreas();
  current->setRange(from(begin).getRange());
  context.unit = enclosing;
  context.embeddedLanguages = outerLanguages;
  context.decimalPointIsComma = outerComma;
  stream.setDecimalPointIsComma(outerComma);
  return current;
}

/// END PROGRAM name.
void ProgramParser::parseEndProgram(SourceUnit *current) {
  recovery.resumeReporting();
  if (atSequence(Keyword::End, Keyword::Program)) {
    stream.skip();
    stream.skip();
  } else {
    error(DiagnosticId::Expected, here(), "END PROGRAM",
          (describe(peek()) + " " + describe(peek(1))));
    // What stands before the name.
    do
      stream.skip();
    while (peek().isWord() && !peek(1).isOneOf(TokenKind::Period, TokenKind::EndOfFile) &&
           !peek(1).isFirstOnLine());
  }
  Recovery::ErrorTrap trap(recovery);
  if (at(TokenKind::AlphanumericLiteral) || peek().isWord()) {
    llvm::StringRef name = withoutQuotes(current->getSourceUnitName());
    // A program whose name could not be read has had its message.
    if (!name.empty() && !withoutQuotes(peek().spelling).equals_insensitive(name))
      error(DiagnosticId::EndProgramNameDiffers, here(), withoutQuotes(peek().spelling), name);
    stream.skip();
  } else {
    expected("the name of the program that ends");
    accept(TokenKind::Period);
  }
  // One message is enough for a line.
  if (!trap.hasErrorOccurred())
    expectHeaderPeriod();
  else
    while (!peek().isFirstOnLine() && !accept(TokenKind::Period))
      stream.skip();
}

//===----------------------------------------------------------------------===//
// Identification division
//===----------------------------------------------------------------------===//

IdentificationDivision *ProgramParser::parseIdentificationDivision() {
  SourceRange begin = here();
  Recovery::ErrorTrap trap(recovery);
  if (atDivision(Keyword::Identification)) {
    takeDivisionHeader(Keyword::Identification);
    expectPeriod();
  }

  // PROGRAM-ID. name IS COMMON INITIAL RECURSIVE PROGRAM.
  SourceRange idBegin = here();
  ProgramIdParagraph *programId = nullptr;
  bool hasProgramId = accept(Keyword::ProgramId);
  bool isReported = !hasProgramId;
  if (isReported) {
    expected("PROGRAM-ID");
    // A word that stands there as a header is that one misspelt.
    hasProgramId = peek().isWord() && peek(1).is(TokenKind::Period) && !atUnitBoundary() &&
                   !(flagsOf(peek().keyword) & KF_CommentParagraph);
    if (hasProgramId)
      stream.skip();
  }
  if (hasProgramId) {
    accept(TokenKind::Period);
    if (at(TokenKind::Period)) {
      expected("the name of the program");
      stream.skip();
    }
    Word *name = nullptr;
    bool isName =
        peek().isWord() && !atUnitBoundary() && !(flagsOf(peek().keyword) & KF_CommentParagraph);
    if (isName || at(TokenKind::AlphanumericLiteral, TokenKind::IntegerLiteral)) {
      // The name keeps its spelling, and a literal its quotes.
      name = new Word(peek().place, &internString(peek().spelling), &internString(peek().spelling));
      stream.skip();
    } else {
      expected("the name of the program");
      name = new Word(new Node(idBegin), "", "");
    }
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
    Node at = from(idBegin);
    programId = new ProgramIdParagraph(&at, name, type);
    programId->setIsInitial(initial);
    programId->setIsRecursive(recursive);
    expectPeriod();
  } else {
    Node at(idBegin);
    programId = new ProgramIdParagraph(&at, new Word(&at, "", ""), ProgramIdType::None);
  }

  // The paragraphs with comment-entries; the stream leaves out their texts.
  for (;;) {
    if (flagsOf(peek().keyword) & KF_CommentParagraph) {
      stream.skip();
      accept(TokenKind::Period);
      // Where the header is misspelt the stream does not know of the division.
      if (trap.hasErrorOccurred())
        stream.skipCommentEntry();
    } else if (!context.options.osvs && peek().text == textOf(Keyword::Remarks)) {
      error(DiagnosticId::OsvsStatement, here(), peek().text);
      stream.skip();
      stream.skipCommentEntry();
    } else {
      break;
    }
  }
  if (!atUnitBoundary()) {
    if (!isReported)
      expected("a division");
    while (!atUnitBoundary())
      stream.skip();
  }
  Node at = from(begin);
  return new IdentificationDivision(&at, programId);
}

} // namespace tarka
