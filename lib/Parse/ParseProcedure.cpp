//===- ParseProcedure.cpp - the procedure division ------------------------===//
//
// The header, the declaratives with USE, sections, paragraphs and sentences.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseProcedure.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// The division
//===----------------------------------------------------------------------===//

ProcedureDivision *ProcedureParser::parseProcedureDivision() {
  SourceRange begin = here();
  auto *division = makeAt<ProcedureDivision>(begin);
  parseProcedureHeader(*division);
  while (accept(TokenKind::Period))
    ;
  if (atDeclaratives())
    parseDeclaratives(*division);
  parseProcedures(*division);
  return complete(division);
}

void ProcedureParser::resumeProcedureDivision(ProcedureDivision &division) {
  parseProcedureHeader(division);
  parseProcedures(division);
  complete(&division);
}

void ProcedureParser::parseProcedures(ProcedureDivision &division) {
  Section *section = nullptr;
  for (Progress progress(stream); !atUnitBoundary() || takeDisplacedHeader(division);
       progress.ensure()) {
    if (headerKind() == HeaderKind::Section) {
      section = parseSectionHeader();
      division.addSect(section);
    } else if (atEndDeclaratives()) {
      error(DiagnosticId::EndDeclarativesWithoutStart, here());
      takeEndDeclaratives();
    } else if (at(Keyword::Declaratives)) {
      error(DiagnosticId::DeclarativesOutOfPlace, here());
      parseDeclaratives(division);
    }
    if (section) {
      parseParagraphs(*section);
      complete(section);
    } else {
      parseParagraphs(division);
    }
  }
}

/// Takes the header of the division where it stands one or more lines too late, after it was
/// reported as missing: what began before it goes on.
bool ProcedureParser::takeDisplacedHeader(ProcedureDivision &division) {
  if (!atDivision(Keyword::Procedure) || !isHeaderDisplaced(Keyword::Procedure))
    return false;
  context.missingHeaders.erase(Keyword::Procedure);
  parseProcedureHeader(division);
  return !atUnitBoundary();
}

/// PROCEDURE DIVISION [USING parameter...] [RETURNING item].
void ProcedureParser::parseProcedureHeader(ProcedureDivision &division) {
  SourceRange header = here();
  recovery.endSentence();
  if (!atDivision(Keyword::Procedure)) {
    missingHeader(Keyword::Procedure, "PROCEDURE DIVISION");
    context.procedureHeader = header;
    return;
  }
  takeDivisionHeader(Keyword::Procedure);
  header = from(header).getRange();
  bool isRead = true;
  if (accept(Keyword::Using)) {
    NodeList<Parameter> parameters;
    isRead = parseParameters(parameters);
    for (Parameter *parameter : parameters)
      division.addParameter(parameter);
  }
  context.procedureHeader = header;
  SourceRange begin = here();
  if (isRead && accept(Keyword::Returning)) {
    DataIdentifierExpression *item = parseDataName();
    isRead = item != nullptr;
    if (item)
      division.setReturning(make<Returning>(begin, item));
  }
  if (isRead && accept(TokenKind::Period))
    return;
  // The end of the header may be in the line before it, which was reported.
  if (isRead && recovery.isBehindMistake(header, 1))
    return noteMistake();
  if (isRead)
    expected(describe(TokenKind::Period));
  // The header was reported; skip the rest of it.
  Skipping skipping(*this);
  while (!at(TokenKind::Period, Keyword::Declaratives) &&
         !(atStatement() && peek().isFirstOnLine()) && !atProcedureHeader() && !atUnitBoundary())
    stream.skip();
  accept(TokenKind::Period);
}

//===----------------------------------------------------------------------===//
// Headers of sections and paragraphs
//===----------------------------------------------------------------------===//

/// The name in a header. A reserved word is reported and taken all the same, so that references to
/// it are not reported as well.
Word *ProcedureParser::parseHeaderName() {
  recovery.endParagraph();
  if (peek().isFirstOnLine()) {
    recovery.resumeReporting();
    context.paragraphColumn = here().beginColumn;
  }
  const Token name = peek();
  if (name.isWord() && !name.isUserWord())
    rejectDeclaredWord("a procedure-name");
  else if (name.isInFixedForm() && !name.isInAreaA())
    error(DiagnosticId::ProcedureNameInAreaB, here(), name.spelling);
  return takeWord();
}

/// name SECTION [priority-number].
Section *ProcedureParser::parseSectionHeader() {
  SourceRange begin = here();
  bool isExchanged = at(Keyword::Section);
  if (peek().isFirstOnLine())
    recovery.resumeReporting();
  if (isExchanged) {
    expected("the name of a section");
    stream.skip();
  }
  Word *name = parseHeaderName();
  if (!isExchanged && !expect(Keyword::Section)) {
    stream.skip();
    accept(Keyword::Section);
  }
  auto *section = make<Section>(begin, name);
  if (atNumericLiteral())
    section->setPriorityNumExpr(parseNumericLiteral());
  expectHeaderPeriod();
  return complete(section);
}

//===----------------------------------------------------------------------===//
// Paragraphs and sentences
//===----------------------------------------------------------------------===//

/// Whether the sentences and paragraphs of a section can go on with the next token.
bool ProcedureParser::atProcedureBody() {
  return !atUnitBoundary() && !atEndDeclaratives() && !at(Keyword::Declaratives);
}

template <typename Owner> void ProcedureParser::parseParagraphs(Owner &owner) {
  for (Progress progress(stream); atProcedureBody(); progress.ensure()) {
    // A period alone is an empty sentence.
    if (accept(TokenKind::Period))
      continue;
    HeaderKind header = headerKind();
    if (header == HeaderKind::Section)
      return;
    if (header == HeaderKind::Paragraph)
      owner.addPara(parseParagraph());
    else if (Sentence *sentence = parseSentence())
      owner.addSent(sentence);
  }
}

/// name. sentence ...
Paragraph *ProcedureParser::parseParagraph() {
  SourceRange begin = here();
  Word *name = parseHeaderName();
  auto *paragraph = make<Paragraph>(begin, name);
  expectHeaderPeriod();
  complete(paragraph);
  if (at(Keyword::Note))
    skipNote(/*isWholeParagraph=*/true);
  llvm::SmallVector<Sentence *, 64> sentences;
  for (Progress progress(stream); atProcedureBody(); progress.ensure()) {
    if (accept(TokenKind::Period))
      continue;
    if (headerKind() != HeaderKind::None)
      break;
    if (Sentence *sentence = parseSentence())
      sentences.push_back(sentence);
  }
  paragraph->addSents(sentences);
  return complete(paragraph);
}

Sentence *ProcedureParser::parseSentence() {
  SourceRange begin = here();
  NodeList<Statement> statements;
  if (atStatement())
    recovery.resumeReporting();
  parseStatements(statements);
  // The period may be part of what is wrong at the end of the line.
  const std::pair lastLine(stream.getLastPlace().file, stream.getLastPlace().endLine);
  if (!accept(TokenKind::Period) && !recovery.hasUnknownStatement() &&
      (context.lastWrongLine != lastLine || !peek().isFirstOnLine() || at(TokenKind::EndOfFile)))
    expected("a period");
  recovery.endSentence();
  if (statements.empty())
    return nullptr;
  auto *sentence = make<Sentence>(begin);
  sentence->setStmts(&statements);
  return sentence;
}

//===----------------------------------------------------------------------===//
// Declaratives
//===----------------------------------------------------------------------===//

void ProcedureParser::takeEndDeclaratives() {
  recovery.resumeReporting();
  if (!expect(Keyword::End) || !expect(Keyword::Declaratives))
    stream.skip();
  expectHeaderPeriod();
}

/// DECLARATIVES. section ... END DECLARATIVES.
void ProcedureParser::parseDeclaratives(ProcedureDivision &division) {
  SourceRange begin = here();
  bool hasHeader = !peek(1).is(Keyword::Section);
  recovery.resumeReporting();
  if (accept(Keyword::Declaratives)) {
    expectHeaderPeriod();
  } else if (!hasHeader) {
    error(DiagnosticId::HeaderMissing, begin, textOf(Keyword::Declaratives), describe(peek()));
  } else {
    error(DiagnosticId::MisspeltHeader, begin, describe(peek()), textOf(Keyword::Declaratives));
    stream.skip();
    accept(TokenKind::Period);
  }
  takeDisplacedHeader(division);
  context.isInDeclaratives = true;
  for (Progress progress(stream); !atUnitBoundary() && !atEndDeclaratives(); progress.ensure()) {
    if (headerKind() == HeaderKind::Section) {
      parseDeclarativeSection(division);
      continue;
    }
    expected("a section of the declaratives");
    Skipping skipping(*this);
    // At least one word goes, so that EXIT SECTION is passed as well.
    do
      stream.skip();
    while (!atUnitBoundary() && !atEndDeclaratives() && headerKind() != HeaderKind::Section);
  }
  const bool hasEnd = atEndDeclaratives();
  context.isInDeclaratives = false;
  if (hasEnd)
    takeEndDeclaratives();
  else if (hasHeader)
    error(DiagnosticId::DeclarativesWithoutEnd, begin);
}

/// A section and its USE sentence, which the section itself does not hold. A section without USE
/// belongs to the declarative before it.
void ProcedureParser::parseDeclarativeSection(ProcedureDivision &division) {
  SourceRange begin = here();
  Section *section = parseSectionHeader();
  UseStatement *use = nullptr;
  if (atMisspeltUse()) {
    error(DiagnosticId::MisspeltVerb, here(), describe(peek()), textOf(Keyword::Use));
    stream.correct(Keyword::Use);
  }
  if (at(Keyword::Use)) {
    use = parseUse();
    if (use && !at(TokenKind::Period))
      expected("a period");
    skipToEndOfUse(/*isRead=*/use != nullptr);
  }
  do
    parseParagraphs(*section);
  while (at(Keyword::Declaratives) && !atEndDeclaratives() && rejectDeclaratives());
  complete(section);
  division.addDeclaratives(make<Declaratives>(begin, section, use));
}

/// Skips the rest of a USE sentence. Where it could not be read, any word can stand in it.
void ProcedureParser::skipToEndOfUse(bool isRead) {
  auto atEnd = [&] {
    if (isRead)
      return at(TokenKind::Period) || atStatement();
    return (at(TokenKind::Period) && (peek(1).isFirstOnLine() || peek(1).isVerb())) ||
           (peek().isFirstOnLine() && atStatement());
  };
  while (!atEnd() && !atProcedureHeader() && atProcedureBody())
    stream.skip();
  accept(TokenKind::Period);
}

/// Whether a misspelt USE is next, at the beginning of a section of the declaratives.
bool ProcedureParser::atMisspeltUse() {
  return !at(Keyword::Use) && !atStatement() &&
         peek(1).isOneOf(Keyword::After, Keyword::Before, Keyword::Global, Keyword::Standard,
                         Keyword::For) &&
         !peek(1).isFirstOnLine();
}

/// DECLARATIVES within declaratives. Always true, the word is gone.
bool ProcedureParser::rejectDeclaratives() {
  if (peek().isFirstOnLine())
    recovery.resumeReporting();
  error(DiagnosticId::DeclarativesOutOfPlace, here());
  stream.skip();
  return true;
}

//===----------------------------------------------------------------------===//
// USE
//===----------------------------------------------------------------------===//

UseStatement *ProcedureParser::parseUse() {
  SourceRange begin = here();
  accept(Keyword::Use);
  bool isGlobal = accept(Keyword::Global);
  if (at(Keyword::For, Keyword::Debugging))
    return parseUseDebugging(begin);
  if (accept(Keyword::Before)) {
    if (at(Keyword::Reporting))
      return parseUseReporting(begin, isGlobal);
    return parseUseLabel(begin, isGlobal, UseTimingType::BeforeLabel);
  }
  accept(Keyword::After);
  accept(Keyword::Standard);
  if (at(Keyword::Exception, Keyword::Error))
    return parseUseException(begin, isGlobal);
  return parseUseLabel(begin, isGlobal, UseTimingType::AfterLabel);
}

/// ... AFTER [STANDARD] {EXCEPTION | ERROR} PROCEDURE [ON] files [GIVING item...]
UseStatement *ProcedureParser::parseUseException(const SourceRange &begin, bool isGlobal) {
  acceptAny(Keyword::Exception, Keyword::Error);
  auto *use = make<UseStatement>(begin, UseTimingType::AfterException);
  use->setIsGlobal(isGlobal);
  if (!expect(Keyword::Procedure) || !parseUseFiles(*use))
    return nullptr;
  if (accept(Keyword::Giving) && !parseIdentifiers(*use, &UseStatement::addGiving))
    return nullptr;
  return complete(use);
}

/// ... {AFTER | BEFORE} [STANDARD] [BEGINNING | ENDING] [FILE | REEL | UNIT] LABEL PROCEDURE
///   [ON] files
UseStatement *ProcedureParser::parseUseLabel(const SourceRange &begin, bool isGlobal,
                                             UseTimingType timing) {
  auto *use = make<UseStatement>(begin, timing);
  use->setIsGlobal(isGlobal);
  accept(Keyword::Standard);
  if (accept(Keyword::Beginning))
    use->setLabelPosition(UseLabelPosition::Beginning);
  else if (accept(Keyword::Ending))
    use->setLabelPosition(UseLabelPosition::Ending);
  if (accept(Keyword::File))
    use->setLabelType(UseLabelType::File);
  else if (accept(Keyword::Reel))
    use->setLabelType(UseLabelType::Reel);
  else if (accept(Keyword::Unit))
    use->setLabelType(UseLabelType::Unit);
  if (!at(Keyword::Label))
    return expected(timing == UseTimingType::AfterLabel ? "EXCEPTION, ERROR or LABEL"
                                                        : "REPORTING or LABEL");
  accept(Keyword::Label);
  if (!expect(Keyword::Procedure) || !parseUseFiles(*use))
    return nullptr;
  return complete(use);
}

/// [ON] {INPUT | OUTPUT | I-O | EXTEND | file-name...}
bool ProcedureParser::parseUseFiles(UseStatement &use) {
  accept(Keyword::On);
  if (accept(Keyword::Input))
    use.setFileMode(UseFileMode::Input);
  else if (accept(Keyword::Output))
    use.setFileMode(UseFileMode::Output);
  else if (accept(Keyword::IO))
    use.setFileMode(UseFileMode::InputOutput);
  else if (accept(Keyword::Extend))
    use.setFileMode(UseFileMode::Extend);
  else
    return parseSeries(
        use, &UseStatement::addFile, [this]() -> IdentifierExpression * { return parseFileName(); },
        &ProcedureParser::atName);
  return true;
}

/// ... BEFORE REPORTING group...
UseStatement *ProcedureParser::parseUseReporting(const SourceRange &begin, bool isGlobal) {
  accept(Keyword::Reporting);
  auto *use = make<UseStatement>(begin, UseTimingType::BeforeReporting);
  use->setIsGlobal(isGlobal);
  bool isRead = parseSeries(
      *use, &UseStatement::addReport,
      [this]() -> IdentifierExpression * { return parseDataName("the name of a report group"); },
      &ProcedureParser::atName);
  return isRead ? complete(use) : nullptr;
}

/// USE [FOR] DEBUGGING [ON] {ALL PROCEDURES | procedure-name | [ALL REFERENCES [OF]] item}...
///
/// The tree has no place for the items to be debugged.
UseStatement *ProcedureParser::parseUseDebugging(const SourceRange &begin) {
  accept(Keyword::For);
  if (!expect(Keyword::Debugging))
    return nullptr;
  accept(Keyword::On);
  auto *use = make<UseStatement>(begin, UseTimingType::ForDebugging);
  do {
    if (accept(Keyword::All)) {
      if (accept(Keyword::Procedures)) {
        use->setIsAllProcedures(true);
        continue;
      }
      if (!accept(Keyword::References))
        return expected("PROCEDURES or REFERENCES");
      accept(Keyword::Of);
      if (!parseDataIdentifier())
        return nullptr;
      continue;
    }
    // Files are not allowed here; the checker reports them.
    if (peek().isUserWord() && scope().isFileName(peek().getInternedText())) {
      use->addFile(parseFileName());
      continue;
    }
    if (peek().isUserWord() && isItem(peek().text)) {
      if (!parseDataIdentifier())
        return nullptr;
      continue;
    }
    QualifiedWord *name = parseProcedureName();
    if (!name)
      return nullptr;
    use->addProcedure(*name->getNamesBegin());
  } while (at(TokenKind::IntegerLiteral, Keyword::All) || atName());
  return complete(use);
}

} // namespace tarka
