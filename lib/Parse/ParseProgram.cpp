//===- ParseProgram.cpp - compilation, programs, identification -----------===//

#include "Parse/Parse.h"
#include "Parser.h"
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
    if (!atUnitBoundary()) {
      error(DiagnosticId::ProgramExpected, here(), describe(peek()));
      while (!at(TokenKind::EndOfFile) && !atDivision(Keyword::Identification) &&
             !atDivision(Keyword::Id) && !atSequence(Keyword::ProgramId, TokenKind::Period))
        stream.skip();
      continue;
    }
    if (atSequence(Keyword::End, Keyword::Program)) {
      error(DiagnosticId::EndProgramWithoutProgram, here());
      skipPastPeriod();
      continue;
    }
    program->addSourceUnit(parseSourceUnit(nullptr));
  }
  if (program->getSourceUnitListSize() == 0 && !diagnostics.hasErrors())
    error(DiagnosticId::NothingToCompile, first);
  return program;
}

bool Parser::atUnitBoundary() {
  if (at(TokenKind::EndOfFile))
    return true;
  if (peek(1).is(Keyword::Division))
    return at(Keyword::Identification, Keyword::Id, Keyword::Environment, Keyword::Data,
              Keyword::Procedure);
  return atSequence(Keyword::End, Keyword::Program) ||
         atSequence(Keyword::ProgramId, TokenKind::Period);
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
    if (atSequence(Keyword::End, Keyword::Program)) {
      parseEndProgram(current);
      break;
    }
    bool anotherProgram = atDivision(Keyword::Identification) || atDivision(Keyword::Id) ||
                          atSequence(Keyword::ProgramId, TokenKind::Period);
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
  accept(Keyword::End);
  accept(Keyword::Program);
  auto bareName = [](llvm::StringRef name) { return name.trim("\"'"); };
  if (at(TokenKind::AlphanumericLiteral) || peek().isWord()) {
    if (!bareName(peek().spelling).equals_insensitive(bareName(current->getSourceUnitName())))
      error(DiagnosticId::EndProgramNameDiffers, here(), bareName(peek().spelling),
            bareName(current->getSourceUnitName()));
    stream.skip();
  } else {
    expected("the name of the program that ends");
  }
  expect(TokenKind::Period);
}

//===----------------------------------------------------------------------===//
// Identification division
//===----------------------------------------------------------------------===//

IdentificationDivision *Parser::parseIdentificationDivision() {
  SourceRange begin = here();
  if (acceptAny(Keyword::Identification, Keyword::Id)) {
    expect(Keyword::Division);
    expect(TokenKind::Period);
  }

  // PROGRAM-ID. name IS COMMON INITIAL RECURSIVE PROGRAM.
  SourceRange idBegin = here();
  ProgramIdParagraph *programId = nullptr;
  if (accept(Keyword::ProgramId)) {
    accept(TokenKind::Period);
    Word *name = nullptr;
    if (at(TokenKind::AlphanumericLiteral, TokenKind::IntegerLiteral) || peek().isWord()) {
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
    if (!accept(TokenKind::Period)) {
      expected("a period");
      skipPastPeriod();
    }
  } else {
    expected("PROGRAM-ID");
    Node at(idBegin);
    programId = new ProgramIdParagraph(&at, new Word(&at, "", ""), ProgramIdType::None);
  }

  // The paragraphs with comment-entries; the stream leaves out their texts.
  for (;;) {
    if (flagsOf(peek().keyword) & KF_CommentParagraph) {
      stream.skip();
      accept(TokenKind::Period);
    } else if (!options.osvs && peek().text == textOf(Keyword::Remarks)) {
      error(DiagnosticId::OsvsStatement, here(), peek().text);
      stream.skip();
      stream.skipCommentEntry();
    } else {
      break;
    }
  }
  if (!atUnitBoundary()) {
    error(DiagnosticId::Expected, here(), "a division", describe(peek()));
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

bool Parser::isReportName(const std::string &name) const {
  return inScope(unit, [&](const SourceUnit &one) {
    DataDivision *data = one.getDataDivision();
    return data && llvm::any_of(data->getReportSectionElements(), [&](ReportDescription *report) {
             return report->getReportName()->getWordData() == name;
           });
  });
}

} // namespace tarka
