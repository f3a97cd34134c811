//===- ParseProgram.cpp - compilation, programs, identification -----------===//

#include "Parse/Parse.h"
#include "Parse/Parser.h"
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
  return Parser(tokens, diagnostics, options).parse(inputName);
}

Program *Parser::parse(llvm::StringRef inputName) {
  Program *program = new Program(inputName);
  SourceRange first = here();
  while (!at(TokenKind::EndOfFile) && !diagnostics.hasFatalError()) {
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
    repositoryFunctions.clear();
    program->addSourceUnit(parseSourceUnit(nullptr));
  }
  if (program->getSourceUnitListSize() == 0 && !diagnostics.hasErrors())
    error(DiagnosticId::NothingToCompile, first);
  return program;
}

/// A class or a function of the programmer's, which are not supported: it goes whole, up to its
/// END.
bool Parser::skipClassOrFunction() {
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

bool Parser::atUnitBoundary() {
  if (at(TokenKind::EndOfFile))
    return true;
  return divisionAt() != Keyword::None || atEndProgram() ||
         atSequence(Keyword::ProgramId, TokenKind::Period);
}

/// END PROGRAM, also where one of its words is misspelt or missing or they are exchanged: a program
/// whose end nobody sees would take all that follow for its own.
bool Parser::atEndProgram() {
  if (!at(Keyword::End, Keyword::Program))
    return false;
  if (atSequence(Keyword::End, Keyword::Program))
    return true;
  const Token &next = peek(1);
  if (!unit || !peek().isFirstOnLine() || !peek().isInAreaA())
    return false;
  if (at(Keyword::End) && next.is(Keyword::End))
    return peek(2).is(Keyword::Program);
  bool isName = next.isWord() && next.text == llvm::StringRef(unit->getSourceUnitName()).upper();
  return isName ||
         (at(Keyword::Program)
              ? next.is(Keyword::End)
              : next.isUserWord() && nearestKeyword(next.text, Keyword::Program) != Keyword::None);
}

/// The division whose header is next, also where a word of the header is misspelt or missing or its
/// words are exchanged: a division that nobody sees would cost a message for each of its lines.
Keyword Parser::divisionAt() {
  static constexpr Keyword divisions[] = {Keyword::Identification, Keyword::Environment,
                                          Keyword::Data, Keyword::Procedure};
  Keyword first = peek().keyword;
  if (first == Keyword::Id)
    return peek(1).is(Keyword::Division) ? Keyword::Identification : Keyword::None;
  if (llvm::is_contained(divisions, first)) {
    if (peek(1).is(Keyword::Division))
      return first;
    bool isHeader = peek().isFirstOnLine() && peek().isInAreaA() &&
                    (atMisspeltDivision(1) || peek(1).is(TokenKind::Period) ||
                     atSequence(Keyword::Procedure, Keyword::Using));
    return isHeader ? first : Keyword::None;
  }
  if (!peek().isFirstOnLine())
    return Keyword::None;
  if (first == Keyword::Division)
    return llvm::is_contained(divisions, peek(1).keyword) ? peek(1).keyword : namelessDivision();
  if (at(TokenKind::Word) && !peek().isVerb() && peek(1).is(Keyword::Division))
    return nearestKeyword(peek().text, divisions);
  return Keyword::None;
}

/// Which division begins with the word DIVISION alone: what follows it tells.
Keyword Parser::namelessDivision() {
  if (peek(1).is(Keyword::Using))
    return Keyword::Procedure;
  if (!peek(1).is(TokenKind::Period))
    return Keyword::None;
  switch (peek(2).keyword) {
  case Keyword::ProgramId:
    return Keyword::Identification;
  case Keyword::Configuration:
  case Keyword::InputOutput:
    return Keyword::Environment;
  case Keyword::File:
  case Keyword::WorkingStorage:
  case Keyword::LocalStorage:
  case Keyword::Linkage:
  case Keyword::Report:
    return Keyword::Data;
  default:
    return unit && unit->getDataDivision() ? Keyword::Procedure : Keyword::None;
  }
}

/// Whether the word \p n places on is DIVISION misspelt.
bool Parser::atMisspeltDivision(unsigned n) {
  return peek(n).isUserWord() && nearestKeyword(peek(n).text, Keyword::Division) != Keyword::None;
}

/// The header of \p division, which divisionAt() gave, up to its period.
void Parser::takeDivisionHeader(Keyword division) {
  recovery.resumeReporting();
  if (accept(Keyword::Division)) {
    error(DiagnosticId::Expected, stream.getLastPlace(), (textOf(division) + " DIVISION").str(),
          "'DIVISION'");
    accept(division);
    return;
  }
  if (!at(division) && !at(Keyword::Id))
    error(DiagnosticId::MisspeltHeader, here(), describe(peek()), textOf(division));
  stream.skip();
  if (accept(Keyword::Division))
    return;
  expected(textOf(Keyword::Division));
  if (atMisspeltDivision(0) || atSequence(TokenKind::Period, Keyword::Division))
    stream.skip();
  accept(Keyword::Division);
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

/// Programs nested in this one follow its procedure division; END PROGRAM, which a program that is
/// the last of a file may leave out, says where the program ends.
SourceUnit *Parser::parseSourceUnit(SourceUnit *outer) {
  SourceRange begin = here();
  Depth level(*this);
  SourceUnit *enclosing = unit;

  IdentificationDivision *identification = parseIdentificationDivision();
  Node position(begin);
  SourceUnit *current = new SourceUnit(&position, identification, outer);
  unit = current;
  if (outer)
    outer->addNested(current);
  bool outerComma = decimalPointIsComma;
  auto outerLanguages = std::exchange(embeddedLanguages, {});

  if (atDivision(Keyword::Environment))
    current->setEnvironmentDivision(parseEnvironmentDivision());
  if (atDivision(Keyword::Data))
    parseDataDivision();
  supplyInterfaceBlock();
  if (atDivision(Keyword::Procedure))
    current->setProcDivision(parseProcedureDivision());

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

  supplyCommunicationAreas();
  current->setRange(from(begin).getRange());
  unit = enclosing;
  embeddedLanguages = outerLanguages;
  decimalPointIsComma = outerComma;
  stream.setDecimalPointIsComma(outerComma);
  return current;
}

/// END PROGRAM name.
void Parser::parseEndProgram(SourceUnit *current) {
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
  auto bareName = [](llvm::StringRef name) { return name.trim("\"'"); };
  Recovery::ErrorTrap trap(recovery);
  if (at(TokenKind::AlphanumericLiteral) || peek().isWord()) {
    llvm::StringRef name = bareName(current->getSourceUnitName());
    // A program whose name could not be read has had its message.
    if (!name.empty() && !bareName(peek().spelling).equals_insensitive(name))
      error(DiagnosticId::EndProgramNameDiffers, here(), bareName(peek().spelling), name);
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

IdentificationDivision *Parser::parseIdentificationDivision() {
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
    } else if (!options.osvs && peek().text == textOf(Keyword::Remarks)) {
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

//===----------------------------------------------------------------------===//
// What the program declares
//===----------------------------------------------------------------------===//

/// Whether \p declares holds for the unit or one of the units around it.
template <typename Predicate> static bool inScope(const SourceUnit *unit, Predicate declares) {
  for (; unit; unit = unit->getParent())
    if (declares(*unit))
      return true;
  return false;
}

/// Whether \p declares holds for SPECIAL-NAMES of the unit or of one of the units around it, and
/// the word \p name. This is asked for about every operand, mostly of programs without the
/// paragraph.
template <typename Predicate>
static bool inSpecialNames(const SourceUnit *unit, const std::string &name, Predicate declares) {
  return inScope(unit, [&](const SourceUnit &one) -> bool {
    ParaSpecialNames *names = one.getSpecialNames();
    if (!names)
      return false;
    Word word(SourceRange(), &name, &name);
    return declares(*names, word);
  });
}

bool Parser::isConditionName(const std::string &name) const {
  return inScope(unit, [&](const SourceUnit &one) {
    DataDivision *data = one.getDataDivision();
    std::list<DataDescription *> *entries = data ? data->findItemByInternedName(&name) : nullptr;
    if (!entries)
      return false;
    for (DataDescription *entry : *entries)
      if (entry->getLevelNum() == 88)
        return true;
    return false;
  });
}

bool Parser::isSwitchName(const std::string &name) const {
  return inSpecialNames(unit, name, [](const ParaSpecialNames &names, Word &word) {
    return !names.findClauseEnvNameByCondName(&word).empty();
  });
}

bool Parser::isClassName(const std::string &name) const {
  return inSpecialNames(unit, name, [](const ParaSpecialNames &names, Word &word) {
    return names.findClauseClassByWord(&word);
  });
}

bool Parser::isSymbolicCharacter(const std::string &name) const {
  return inSpecialNames(unit, name, [](const ParaSpecialNames &names, Word &word) {
    return names.findClauseSymbolicByWord(&word);
  });
}

bool Parser::isMnemonicName(const std::string &name) const {
  return inSpecialNames(unit, name, [](const ParaSpecialNames &names, Word &word) {
    return names.findClauseEnvNameByWord(&word);
  });
}

bool Parser::isFileName(const std::string &name) const {
  Word word(SourceRange(), &name, &name);
  return inScope(unit, [&](const SourceUnit &one) {
    InputOutputSection *io = one.getInputOutputSection();
    if (io && io->findFileControlByName(word))
      return true;
    DataDivision *data = one.getDataDivision();
    return data && !data->findFiles(name).empty();
  });
}

bool Parser::isNamed(const Token &word) {
  const std::string &name = *word.getInternedText();
  return isInternedDeclared(name) || indexNames.contains(&name) || isFileName(name) ||
         isMnemonicName(name) || isSwitchName(name) || isSymbolicCharacter(name) ||
         isReportName(name);
}

bool Parser::isReportName(const std::string &name) const {
  return inScope(unit, [&](const SourceUnit &one) {
    DataDivision *data = one.getDataDivision();
    return data && llvm::any_of(data->getReportSectionElements(), [&](ReportDescription *report) {
             return report->getReportName()->getWordData() == name;
           });
  });
}

} // namespace tarka
