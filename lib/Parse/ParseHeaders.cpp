//===- ParseHeaders.cpp - where parts of a program begin ----------------===//
//
// Headers are recognized also where a word of them is misspelt or missing or the
// words are exchanged: a part of a program that is not recognized would cost a
// message for each of its lines.
//
//===----------------------------------------------------------------------===//

#include "AST/Spelling.h"
#include "Parse/MisspeltWords.h"
#include "Parse/ParserBase.h"

namespace tarka {

static constexpr Keyword divisions[] = {Keyword::Identification, Keyword::Environment,
                                        Keyword::Data, Keyword::Procedure};

//===----------------------------------------------------------------------===//
// Divisions and programs
//===----------------------------------------------------------------------===//

bool ParserBase::atUnitHeader() {
  if (at(TokenKind::EndOfFile))
    return true;
  return divisionAt() != Keyword::None || atEndProgram() || atProgramId();
}

bool ParserBase::atProgramId() {
  return at(Keyword::ProgramId) &&
         (peek(1).is(TokenKind::Period) ||
          (peek().isFirstOnLine() &&
           (peek(1).isWord() || peek(1).is(TokenKind::AlphanumericLiteral))));
}

/// END PROGRAM, also where one of its words is misspelt or missing or they are exchanged: otherwise
/// the programs after it would be taken for its own.
bool ParserBase::atEndProgram() {
  if (!at(Keyword::End, Keyword::Program))
    // Another word may stand in the place of END.
    return context.unit && peek().isFirstOnLine() && peek().isInAreaA() && peek().isWord() &&
           peek(1).is(Keyword::Program) && peek(3).is(TokenKind::Period) &&
           peek(2).text == llvm::StringRef(context.unit->getSourceUnitName()).upper();
  if (atSequence(Keyword::End, Keyword::Program))
    return true;
  const Token &next = peek(1);
  if (!context.unit || !peek().isFirstOnLine() || !peek().isInAreaA())
    return false;
  if (at(Keyword::End) && next.is(Keyword::End))
    return peek(2).is(Keyword::Program);
  const std::string unitName = llvm::StringRef(context.unit->getSourceUnitName()).upper();
  auto isUnitName = [&](const Token &token) { return token.isWord() && token.text == unitName; };
  if (at(Keyword::End) && isUnitName(peek(2)) && !peek(2).isFirstOnLine())
    return true;
  return isUnitName(next) ||
         (at(Keyword::Program)
              ? next.is(Keyword::End)
              : next.isUserWord() && nearestKeyword(next.text, Keyword::Program) != Keyword::None);
}

/// The division whose header is next, also where a word of the header is misspelt or missing or its
/// words are exchanged.
Keyword ParserBase::divisionAt() {
  Keyword first = peek().keyword;
  if (first == Keyword::Id)
    return peek(1).is(Keyword::Division) ? Keyword::Identification : Keyword::None;
  if (llvm::is_contained(divisions, first)) {
    if (peek(1).is(Keyword::Division))
      return first;
    if (!peek().isFirstOnLine() || !peek().isInAreaA())
      return Keyword::None;
    // In area A of fixed form nothing else begins with these words, but for clauses and phrases
    // that are too far to the left.
    const bool isClause =
        peek(1).isOneOf(Keyword::Record, Keyword::Records, Keyword::Is, Keyword::On, Keyword::By);
    bool isHeader = (peek().isInFixedForm() && !isClause) || atMisspeltDivision(1) ||
                    peek(1).is(TokenKind::Period) || atSequence(Keyword::Procedure, Keyword::Using);
    if (!isHeader && !isClause) {
      // In free form what follows the line shows that it is a header.
      constexpr unsigned longest = 4;
      const unsigned next = nextLineBegin(longest);
      isHeader = next != 0 && divisionBefore(next) == first;
    }
    return isHeader ? first : Keyword::None;
  }
  if (!peek().isFirstOnLine())
    return Keyword::None;
  if (const Keyword torn = tornDivision(); torn != Keyword::None)
    return torn;
  if (first == Keyword::Division)
    return llvm::is_contained(divisions, peek(1).keyword) ? peek(1).keyword : namelessDivision(1);
  if (!peek(1).is(Keyword::Division) || peek(1).isFirstOnLine())
    return Keyword::None;
  Keyword meant = at(TokenKind::Word) ? nearestKeyword(peek().text, divisions) : Keyword::None;
  return meant == Keyword::None ? namelessDivision(2) : meant;
}

/// The division whose name a wrong character tears apart or joins to the word DIVISION.
Keyword ParserBase::tornDivision() {
  constexpr unsigned longest = 3;
  if (!peek().isUserWord() || !peek().isInAreaA())
    return Keyword::None;
  unsigned last = 1;
  while (last < longest && !peek(last).is(Keyword::Division) && !peek(last).isFirstOnLine())
    ++last;
  std::string text = peek().text.str();
  if (peek(last).is(Keyword::Division) && !peek(last).isFirstOnLine()) {
    for (unsigned n = 1; n < last; ++n)
      text += ' ' + (peek(n).is(TokenKind::Period) ? std::string() : peek(n).text.str());
    text += " DIVISION";
  }
  for (const Keyword division : divisions) {
    const std::string header = (textOf(division) + " DIVISION").str();
    if (spellingDistance(text, header, 2) <= 2)
      return division;
  }
  return Keyword::None;
}

/// How many tokens on the next line begins; 0 where the line has more than \p limit tokens.
unsigned ParserBase::nextLineBegin(unsigned limit) {
  for (unsigned n = 1; n <= limit; ++n)
    if (peek(n).isFirstOnLine())
      return n;
  return 0;
}

/// Which division begins with the word DIVISION without its name, judged by what follows it, which
/// is
/// \p n places on.
Keyword ParserBase::namelessDivision(unsigned n) {
  if (peek(n).is(Keyword::Using))
    return Keyword::Procedure;
  return peek(n).is(TokenKind::Period) ? divisionBefore(n + 1) : Keyword::None;
}

/// The division that most likely begins before the token \p n places on.
Keyword ParserBase::divisionBefore(unsigned n) {
  switch (peek(n).keyword) {
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
    return context.unit && context.unit->getDataDivision() ? Keyword::Procedure : Keyword::None;
  }
}

/// Whether the word \p n places on is DIVISION misspelt.
bool ParserBase::atMisspeltDivision(unsigned n) {
  return peek(n).isUserWord() && nearestKeyword(peek(n).text, Keyword::Division) != Keyword::None;
}

/// The header of \p division, which divisionAt() gave, up to its period.
void ParserBase::takeDivisionHeader(Keyword division) {
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
  // What stands in the place of DIVISION goes up to USING or to the period that ends the line.
  Skipping skipping(*this);
  auto atEndOfLine = [this] {
    return peek(1).isFirstOnLine() || peek(1).is(TokenKind::EndOfFile) || peek(1).isVerb();
  };
  while (!peek().isFirstOnLine() && !at(Keyword::Using, TokenKind::EndOfFile) &&
         !(at(TokenKind::Period) && atEndOfLine()))
    stream.skip();
}

/// Whether the line that begins with the next token is most likely an entry in which the level
/// number is wrong: it has a PICTURE, or an entry follows it.
bool ParserBase::isEntryLine() {
  constexpr unsigned maxTokens = 20;
  for (unsigned n = 1; n < maxTokens; ++n) {
    const Token &token = peek(n);
    if (token.isFirstOnLine())
      return (token.is(TokenKind::IntegerLiteral) && token.spelling.size() <= 2) ||
             (token.isOneOf(Keyword::Linkage, Keyword::LocalStorage, Keyword::WorkingStorage,
                            Keyword::Report) &&
              peek(n + 1).is(Keyword::Section));
    if (token.isOneOf(Keyword::Occurs, Keyword::Pic, Keyword::Picture, Keyword::Redefines,
                      Keyword::Usage))
      return true;
  }
  return false;
}

bool ParserBase::atStrayProcedures() {
  const Token first = peek();
  if (!first.isFirstOnLine() || !context.unit || context.unit->getProcDivision())
    return false;
  // Not where another word stands in the place of EXEC, or in that of the name of a section.
  if (peek(1).isOneOf(Keyword::Sql, Keyword::Cics, Keyword::Dli) ||
      (first.isVerb() && peek(1).is(Keyword::Section)))
    return false;
  switch (first.keyword) {
  case Keyword::Declaratives:
    return peek(1).is(TokenKind::Period);
  case Keyword::Accept:
  case Keyword::Add:
  case Keyword::Call:
  case Keyword::Close:
  case Keyword::Compute:
  case Keyword::Divide:
  case Keyword::Evaluate:
  case Keyword::Goback:
  case Keyword::If:
  case Keyword::Initialize:
  case Keyword::Inspect:
  case Keyword::Move:
  case Keyword::Multiply:
  case Keyword::Open:
  case Keyword::Perform:
  case Keyword::Read:
  case Keyword::Search:
  case Keyword::String:
  case Keyword::Subtract:
  case Keyword::Unstring:
  case Keyword::Write:
    return !isEntryLine();
  default:
    break;
  }
  if (!first.isUserWord() || !first.isInAreaA())
    return false;
  // A header of the procedures, with a statement or the header of the division behind it.
  const auto isInProcedures = [this](unsigned n) {
    return peek(n).isVerb() || peek(n).is(Keyword::Exec) ||
           (peek(n).is(Keyword::Procedure) && peek(n + 1).is(Keyword::Division));
  };
  if (peek(1).is(TokenKind::Period))
    return peek(2).isFirstOnLine() && isInProcedures(2);
  if (!peek(1).is(Keyword::Section))
    return false;
  const unsigned end = peek(2).is(TokenKind::IntegerLiteral) ? 3 : 2;
  return peek(end).is(TokenKind::Period) &&
         (isInProcedures(end + 1) ||
          (peek(end + 1).isUserWord() && peek(end + 2).is(TokenKind::Period)));
}

void ParserBase::missingHeader(Keyword header, llvm::StringRef text) {
  recovery.resumeReporting();
  error(DiagnosticId::HeaderMissing, here(), text, describe(peek()));
  context.missingHeaders.insert(header);
}

//===----------------------------------------------------------------------===//
// The environment and data division
//===----------------------------------------------------------------------===//

bool ParserBase::atPartHeader() {
  switch (peek().keyword) {
  case Keyword::Identification:
  case Keyword::Id:
  case Keyword::ProgramId:
  case Keyword::Environment:
  case Keyword::Data:
  case Keyword::Procedure:
  case Keyword::Division:
  case Keyword::End:
    return atUnitBoundary();
  case Keyword::Section:
    return peek().isFirstOnLine();
  case Keyword::Communication:
  case Keyword::Configuration:
  case Keyword::InputOutput:
  case Keyword::Linkage:
  case Keyword::LocalStorage:
  case Keyword::WorkingStorage:
    return peek().isFirstOnLine() || peek(1).is(Keyword::Section);
  case Keyword::File:
  case Keyword::Report:
    return peek(1).is(Keyword::Section) || atMisspeltSection();
  case Keyword::None:
    return at(TokenKind::EndOfFile) ||
           ((at(TokenKind::Word) || peek().isFirstOnLine()) &&
            peek(1).isOneOf(Keyword::Section, Keyword::Division)) ||
           (peek().isInAreaA() && peek(2).is(Keyword::Section) && atDataSection());
  default:
    return isEnvironmentParagraph(peek().keyword) ||
           (peek().isFirstOnLine() && peek().isInAreaA() &&
            peek(1).isOneOf(Keyword::Division, Keyword::Section));
  }
}

bool ParserBase::isEnvironmentParagraph(Keyword keyword) {
  switch (keyword) {
  case Keyword::SourceComputer:
  case Keyword::ObjectComputer:
  case Keyword::SpecialNames:
  case Keyword::Repository:
  case Keyword::FileControl:
  case Keyword::IOControl:
    return true;
  default:
    return false;
  }
}

bool ParserBase::atLevelNumber() {
  if (!at(TokenKind::IntegerLiteral) || !peek().isFirstOnLine() || peek().spelling.size() > 2)
    return false;
  // A number that belongs to a clause is followed by another one, by the unit that it counts, or by
  // what goes on with a list of values.
  const Token &next = peek(1);
  if (!next.isWord() || next.isFigurativeConstant())
    return false;
  if (next.isUserWord())
    return !isSymbolicCharacter(next);
  return !next.isOneOf(Keyword::Areas, Keyword::Character, Keyword::Characters, Keyword::Depending,
                       Keyword::False, Keyword::Footing, Keyword::Heading, Keyword::Lines,
                       Keyword::Record, Keyword::Records, Keyword::Thru, Keyword::Through,
                       Keyword::Times, Keyword::To, Keyword::When);
}

/// Whether the name of a section of the data division begins a line that is most likely its header,
/// with something else in the place of SECTION: the line ends with a period, and the section
/// follows.
bool ParserBase::atDamagedSection() {
  constexpr unsigned maxTokens = 6;
  if (!peek().isInAreaA())
    return false;
  unsigned n = 1;
  while (n < maxTokens && !peek(n).isFirstOnLine() && !peek(n).is(TokenKind::EndOfFile))
    ++n;
  if (!peek(n).isFirstOnLine() || (!peek(n - 1).is(TokenKind::Period) && !at(Keyword::File)))
    return false;
  const Token &content = peek(n);
  if (at(Keyword::File))
    return content.isOneOf(Keyword::Fd, Keyword::Sd);
  return at(Keyword::Report) ? content.is(Keyword::Rd) : content.is(TokenKind::IntegerLiteral);
}

/// Which section of records the one with a damaged name is, most likely: programs have one of each.
Keyword ParserBase::likelyStorage() const {
  const DataDivision *division = context.unit ? context.unit->getDataDivision() : nullptr;
  return division && division->getWorkSectionSize() > 0 && division->getLinkSectionSize() == 0
             ? Keyword::Linkage
             : Keyword::WorkingStorage;
}

/// Where the header is missing, the section is recognized by entries that only it can hold.
Keyword ParserBase::dataSectionAt() {
  static constexpr Keyword headers[] = {Keyword::File, Keyword::WorkingStorage,
                                        Keyword::LocalStorage, Keyword::Linkage, Keyword::Report};
  bool isHeader = peek(1).is(Keyword::Section);
  if (llvm::is_contained(headers, peek().keyword)) {
    // A header is one even where SECTION is misspelt or missing.
    bool isAlone = peek(1).is(TokenKind::Period) || peek(2).is(TokenKind::Period) ||
                   (peek(2).isFirstOnLine() && !at(Keyword::File, Keyword::Report));
    if (isHeader || (peek().isFirstOnLine() && (isAlone || atDamagedSection())))
      return peek().keyword;
  } else if (isHeader && peek().isWord()) {
    if (Keyword meant = nearestKeyword(peek().text, headers); meant != Keyword::None)
      return meant;
  }
  // A period can stand in the place of the name.
  if (!peek().isFirstOnLine() && !atSequence(Keyword::Section, TokenKind::Period))
    return Keyword::None;
  // A damaged name, perhaps in two parts, is recognised by what the section holds.
  const bool isDivided =
      peek(2).is(Keyword::Section) && !peek(1).isFirstOnLine() && !peek(2).isFirstOnLine();
  const unsigned behind = isHeader ? 2 : isDivided ? 3 : 0;
  if (behind != 0 && !at(Keyword::Communication) && !atWord("SCREEN") &&
      peek(behind).is(TokenKind::Period)) {
    if (isDivided)
      if (Keyword meant = nearestKeyword((peek().text + " " + peek(1).text).str(), headers);
          meant != Keyword::None)
        return meant;
    const Token &content = peek(behind + 1);
    if (content.isOneOf(Keyword::Fd, Keyword::Sd))
      return Keyword::File;
    if (content.is(Keyword::Rd))
      return Keyword::Report;
    if (content.is(TokenKind::IntegerLiteral))
      return likelyStorage();
  }
  if (at(Keyword::Section) && llvm::is_contained(headers, peek(1).keyword))
    return peek(1).keyword;
  const Token &first = peek(atSequence(Keyword::Section, TokenKind::Period) ? 2 : 0);
  if (first.isOneOf(Keyword::Fd, Keyword::Sd))
    return Keyword::File;
  if (first.is(Keyword::Rd))
    return Keyword::Report;
  bool isEntry = at(Keyword::Section) ? first.is(TokenKind::IntegerLiteral) : atLevelNumber();
  return isEntry ? Keyword::WorkingStorage : Keyword::None;
}

void ParserBase::missingPeriod() {
  // The end of the file has no text to point at.
  SourceRange place = at(TokenKind::EndOfFile) ? stream.getLastPlace() : here();
  error(DiagnosticId::PeriodMissing, place, describe(peek()));
  // It goes after the last token, where that is in the same text.
  const SourceRange &last = stream.getLastPlace();
  const bool isBefore = last.endLine < place.beginLine ||
                        (last.endLine == place.beginLine && last.endColumn < place.beginColumn);
  if (last.file == place.file && last.endLine != 0 && isBefore) {
    SourceRange behind = last;
    behind.beginLine = last.endLine;
    behind.beginColumn = last.endColumn + 1;
    context.diagnostics.addFix(DiagnosticId::PeriodMissing, place, {behind, "", "."});
  }
}

void ParserBase::expectPeriod() {
  if (accept(TokenKind::Period))
    return;
  missingPeriod();
  // Skip the rest of the line of a header.
  Skipping skipping(*this);
  while (!peek().isFirstOnLine() && !atPartHeader() &&
         !at(TokenKind::IntegerLiteral, Keyword::Fd, Keyword::Sd, Keyword::Rd, Keyword::Select))
    if (accept(TokenKind::Period))
      return;
    else
      stream.skip();
}

//===----------------------------------------------------------------------===//
// The procedure division
//===----------------------------------------------------------------------===//

/// Where a sentence may begin, a word before a period or before SECTION is the name of a procedure.
/// In fixed form such a name begins in area A; a word in area B that comes near a verb is more
/// likely that verb misspelt.
ParserBase::HeaderKind ParserBase::headerKindOfName() {
  const Token name = peek();
  if (peek(1).is(Keyword::Section) || atMisspeltSection() ||
      (peek(1).is(TokenKind::Period) && peek(2).is(Keyword::Section)))
    return HeaderKind::Section;
  bool isInOrder = name.isInAreaA() || !name.isInFixedForm();

  if (peek(1).is(TokenKind::Period)) {
    if (name.isUserWord() || !name.isWord())
      return isInOrder || suggestKeyword(name.text, KF_Verb).empty() ? HeaderKind::Paragraph
                                                                     : HeaderKind::None;
    // A reserved word taken for a name; those that end or divide statements are something else.
    bool isPartOfStatement =
        isScopeTerminator(name.keyword) ||
        name.isOneOf(Keyword::Else, Keyword::Otherwise, Keyword::When, Keyword::Declaratives);
    return name.isInAreaA() && !isPartOfStatement ? HeaderKind::Paragraph : HeaderKind::None;
  }
  // In fixed form a name in area A is one also where more words follow it on its line.
  bool hasExtraWord = peek(1).isVerb() || (peek(1).isUserWord() && peek(2).is(TokenKind::Period));
  if (name.isUserWord() && name.isInAreaA() && name.isInFixedForm() && hasExtraWord &&
      !peek(1).isFirstOnLine() && suggestKeyword(name.text, KF_Verb).empty())
    return HeaderKind::Paragraph;
  // The period of a name that has its line to itself was forgotten.
  bool isAlone = name.isUserWord() && name.isInAreaA() && peek(1).isFirstOnLine() &&
                 peek(1).isVerb() &&
                 (name.isInFixedForm() || suggestKeyword(name.text, KF_Verb).empty());
  return isAlone ? HeaderKind::Paragraph : HeaderKind::None;
}

/// Whether a line holds the name of a section and SECTION misspelt, or the two exchanged.
bool ParserBase::atMisspeltSection() {
  const Token name = peek();
  if (!name.isFirstOnLine() || !name.isInAreaA() || !peek(1).isUserWord() ||
      peek(1).isFirstOnLine() || !peek(2).is(TokenKind::Period))
    return false;
  return name.is(Keyword::Section) ||
         (name.isWord() && nearestKeyword(peek(1).text, Keyword::Section) != Keyword::None);
}

/// Whether the declaratives begin, also where their header is misspelt or missing; that costs a
/// message for each USE otherwise.
bool ParserBase::atDeclaratives() {
  if (at(Keyword::Declaratives))
    return true;
  bool isMisspelt = peek().isUserWord() && peek(1).is(TokenKind::Period) &&
                    nearestKeyword(peek().text, Keyword::Declaratives) != Keyword::None;
  auto isSectionAt = [this](unsigned n) {
    return peek(n).isUserWord() && peek(n + 1).is(Keyword::Section) &&
           peek(n + 2).is(TokenKind::Period) && peek(n + 3).is(Keyword::Use);
  };
  // Whatever stands in its place has the line before the first section to itself.
  constexpr unsigned longest = 2;
  const unsigned next = peek().isFirstOnLine() ? nextLineBegin(longest) : 0;
  return isMisspelt || isSectionAt(0) || (next != 0 && isSectionAt(next));
}

/// END DECLARATIVES, also where the words are not quite these.
bool ParserBase::atEndOfDeclaratives() {
  if (at(Keyword::Declaratives))
    return peek(1).is(Keyword::End);
  if (peek(1).is(Keyword::Declaratives))
    return true;
  if (!peek().isFirstOnLine() || !peek().isInAreaA())
    return false;
  // Nothing else in declaratives has a line of this form.
  if (context.isInDeclaratives && !peek(1).is(Keyword::Program)) {
    const bool isAlone = peek(1).is(TokenKind::Period);
    if (isAlone || (peek(2).is(TokenKind::Period) && peek(3).isFirstOnLine() && !peek(1).isVerb()))
      return true;
  }
  // The beginning of the word may be all that is left of it.
  constexpr size_t beginning = 4;
  if (peek(1).isUserWord() && peek(1).text.size() >= beginning &&
      textOf(Keyword::Declaratives).starts_with(peek(1).text))
    return true;
  return (peek(1).is(Keyword::End) && peek(2).is(Keyword::Declaratives)) ||
         (peek(1).isUserWord() &&
          nearestKeyword(peek(1).text, Keyword::Declaratives) != Keyword::None);
}

/// Words that are verbs only together with what follows.
bool ParserBase::atVerbOfTwoWords() {
  switch (peek().keyword) {
  case Keyword::Next:
    return peek(1).is(Keyword::Sentence) ||
           (peek(1).isUserWord() && !peek(1).isFirstOnLine() &&
            nearestKeyword(peek(1).text, Keyword::Sentence) != Keyword::None);
  case Keyword::Reset:
    return peek(1).is(Keyword::Trace);
  case Keyword::Suppress:
    // XML GENERATE has a phrase SUPPRESS, which names something.
    return peek(1).isOneOf(Keyword::Printing, Keyword::Else, TokenKind::Period) ||
           peek(1).isVerb() || isScopeTerminator(peek(1).keyword);
  case Keyword::On:
    return context.options.osvs && (peek(1).isNumber() || peek(1).isUserWord());
  default:
    return false;
  }
}

/// The period of a header. The rest of its line is skipped.
void ParserBase::expectHeaderPeriod() {
  if (expect(TokenKind::Period))
    return;
  Skipping skipping(*this, stream.getLastPlace());
  while (!peek().isFirstOnLine() && !at(TokenKind::Period) && !atStatement())
    stream.skip();
  accept(TokenKind::Period);
}

} // namespace tarka
