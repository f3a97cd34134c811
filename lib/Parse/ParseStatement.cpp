//===- ParseStatement.cpp - statements in general -------------------------===//
//
// Which function parses which statement, lists of statements, the phrases that
// hold statements, and synchronization after a mistake.
//
// A statement that could not be parsed is left out of the tree. Its function
// fails, and skipRestOfStatement() skips what is left of it: up to the next verb,
// period, or word that an enclosing statement waits for, and past the phrases of
// the statement with the statements in them. An END- word of the statement that
// comes later is skipped without a message.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseStatement.h"
#include "Parse/MisspeltWords.h"
#include "Parse/ParseStatementArithmetic.h"
#include "Parse/ParseStatementBranch.h"
#include "Parse/ParseStatementData.h"
#include "Parse/ParseStatementFile.h"
#include "Parse/ParseStatementJson.h"
#include "Parse/ParseStatementReport.h"
#include "Parse/ParseStatementString.h"
#include "Parse/ParseStatementXml.h"

namespace tarka {

/// A column behind that of any text.
static constexpr unsigned endOfLine = SourceRange::maxColumn;

/// The words with which statements and phrases of OS/VS COBOL begin. Without its option they are
/// words like any other.
static bool isOsvsWord(llvm::StringRef word) {
  for (Keyword keyword : {Keyword::Examine, Keyword::Exhibit, Keyword::Note, Keyword::On,
                          Keyword::Otherwise, Keyword::Seek, Keyword::Transform})
    if (word == textOf(keyword))
      return true;
  return false;
}

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

Statement *StatementParser::parseStatement() {
  return parseStatementOf(peek().keyword);
}

/// The statement of \p verb. The verb is next, or it was misspelt and has been skipped.
Statement *StatementParser::parseStatementOf(Keyword verb) {
  Depth level(*this);
  if (level.isTooDeep()) {
    error(DiagnosticId::NestedTooDeep, here(), maxDepth);
    abandonSentence();
    return nullptr;
  }
  const SourceRange before = stream.getLastPlace();
  const SourceRange begin = here();
  const bool isInLine = !peek().isFirstOnLine();
  SourceDamage &damage = context.diagnostics.getDamage();
  if (recovery.isVerbDoubtful())
    damage.add({begin.file, begin.beginLine, begin.beginColumn, begin.beginLine, endOfLine});
  StatementResult result = nullptr;
  {
    Recovery::StatementScope scope(recovery, verb);
    result = dispatchStatement(verb);
  }
  if (recovery.isSentenceAbandoned())
    return nullptr;
  const Outcome outcome = result.getOutcome();
  // Within a line, the verb may stand in the place of what the text before it needs.
  if ((outcome == Outcome::Failed || outcome == Outcome::Discarded) && isInLine && isVerb(verb))
    damage.add(before);
  if (outcome != Outcome::Failed)
    return result.get();
  const bool isBrokenOff = peek().isVerb() && recovery.hasReportedHere();
  skipRestOfStatement(verb);
  if (isBrokenOff && peek().isVerb())
    recovery.noteBrokenOff(peek(), verb);
  return nullptr;
}

StatementResult StatementParser::dispatchStatement(Keyword verb) {
  switch (verb) {
#define VERB(Verb, Family, Function, ...)                                                          \
  case Keyword::Verb:                                                                              \
    return Family(context).Function();
#include "Parse/Verbs.def"
  default:
    return rejectStatement();
  }
}

/// A statement that the language has and the rest of the compiler does not.
StatementResult StatementParser::rejectStatement() {
  error(DiagnosticId::UnsupportedStatement, here(), textOf(peek().keyword));
  stream.skip();
  return Outcome::Failed;
}

/// USE can only begin a section of the declaratives.
StatementResult StatementParser::rejectUse() {
  error(DiagnosticId::UseOutsideDeclaratives, here());
  while (!at(TokenKind::Period) && !atUnitBoundary())
    stream.skip();
  return Outcome::Discarded;
}

/// NOTE, which leaves nothing in the tree.
StatementResult StatementParser::parseNote() {
  skipNote(/*isWholeParagraph=*/false);
  return Outcome::Absent;
}

/// ENTER language [routine]: a remark only.
StatementResult StatementParser::parseEnter() {
  SourceRange begin = here();
  accept(Keyword::Enter);
  if (!peek().isWord())
    return expected("the name of a language");
  while (peek().isWord() && !peek().isVerb() && !atProcedureHeader())
    stream.skip();
  return make<ContinueStatement>(begin);
}

/// SEEK file-name [RECORD]: the arm of the disk may move ahead of the READ; what is read stays the
/// same.
StatementResult StatementParser::parseSeek() {
  SourceRange begin = here();
  error(DiagnosticId::NoEffect, begin, textOf(peek().keyword));
  accept(Keyword::Seek);
  if (!parseFileName())
    return nullptr;
  accept(Keyword::Record);
  return make<ContinueStatement>(begin);
}

/// SERVICE LABEL, SERVICE RELOAD item: left over from older systems and without effect.
StatementResult StatementParser::parseService() {
  SourceRange begin = here();
  accept(Keyword::Service);
  if (accept(Keyword::Label))
    return make<ContinueStatement>(begin);
  if (!accept(Keyword::Reload))
    return expected("LABEL or RELOAD");
  return parseDataIdentifier() ? make<ContinueStatement>(begin) : nullptr;
}

//===----------------------------------------------------------------------===//
// Lists of statements
//===----------------------------------------------------------------------===//

Outcome StatementParser::parseStatements(NodeList<Statement> &statements) {
  Recovery::ConstructScope construct(recovery);
  Recovery::ListScope scope(recovery);
  StatementList list;
  while (!recovery.isSentenceAbandoned()) {
    if (atStatement()) {
      if (peek().isFirstOnLine()) {
        recovery.resumeReporting();
        context.statementColumn = here().beginColumn;
      }
      const Token verb = peek();
      list.lastVerb = verb.keyword;
      list.lastIsWrong = false;
      Statement *statement = parseStatement();
      if (statement)
        warnOfAreaA(verb);
      if (statement)
        statements.push_back(statement);
      list.lastIsKept = statement != nullptr;
    } else if (endsStatements(list)) {
      break;
    } else if (list.lastIsWrong && list.lastIsKept) {
      statements.pop_back();
      list.lastIsKept = false;
    }
  }
  if (!statements.empty())
    return Outcome::Parsed;
  return construct.hasMistake() ? Outcome::Failed : Outcome::Absent;
}

/// In fixed form area A is for headers. Blocks of embedded languages have rules of their own.
void StatementParser::warnOfAreaA(const Token &verb) {
  if (verb.isFirstOnLine() && verb.isInAreaA() && verb.isInFixedForm() &&
      !verb.isOneOf(Keyword::Exec, Keyword::Execute))
    context.diagnostics.report(DiagnosticId::StatementInAreaA, verb.place, verb.text);
}

/// A placeholder for statements that were reported and skipped, where at least one is needed.
Statement *StatementParser::makePlaceholder(const SourceRange &begin) {
  return makeAt<ContinueStatement>(begin);
}

bool StatementParser::parseBranch(NodeList<Statement> &statements, bool isNeeded) {
  SourceRange begin = here();
  switch (parseStatements(statements)) {
  case Outcome::Absent:
    if (isNeeded)
      expected("a statement");
    return false;
  case Outcome::Failed:
    statements.push_back(makePlaceholder(begin));
    return true;
  default:
    return true;
  }
}

/// A list ends before a word that a statement around it waits for, and with the sentence. A
/// contained statement without END- word ends with the one that contains it, so the word need not
/// belong to the innermost statement.
bool StatementParser::endsStatements(StatementList &list) {
  const Token &token = peek();
  if (token.isOneOf(TokenKind::Period, TokenKind::EndOfFile))
    return true;
  Keyword keyword = token.keyword;
  if (isScopeTerminator(keyword)) {
    if (recovery.acceptAbandonedEnd(keyword)) {
      stream.skip();
      return false;
    }
    if (recovery.canEndWith(keyword))
      return true;
    if (!recovery.endsStray(verbOfEnd(keyword)) && !recovery.hasUnknownStatement() &&
        !recovery.isCutOff(keyword) && !recovery.isDisplaced(keyword)) {
      error(DiagnosticId::EndWithoutStatement, here(), textOf(keyword),
            textOf(keyword).drop_front(sizeof("END-") - 1));
      recovery.noteUnmatchedEnd();
      recovery.noteStray(keyword);
    }
    stream.skip();
    return false;
  }
  if (keyword == Keyword::Else || keyword == Keyword::Otherwise) {
    if (recovery.canTakeElse())
      return true;
    if (recovery.isFirstStray(StrayPart::Else))
      error(DiagnosticId::ElseWithoutIf, here(), textOf(keyword));
    stream.skip();
    return false;
  }
  if (keyword == Keyword::When) {
    if (recovery.canTakeWhen())
      return true;
    if (recovery.isFirstStray(StrayPart::When))
      error(DiagnosticId::WhenWithoutEvaluate, here());
    recovery.noteStray(keyword);
    stream.skip();
    skipToStatement();
    return false;
  }
  if (std::optional<PhraseStart> phrase = atExceptionPhrase()) {
    if (recovery.canTakePhrase(*phrase))
      return true;
    if (correctDividedEnd())
      return endsStatements(list);
    SourceRange begin = here();
    const bool isReported = recovery.hasReportedHere();
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    if (recovery.isFirstStray(StrayPart::Phrase) && !isReported)
      error(DiagnosticId::PhraseWithoutStatement, from(begin).getRange());
    return false;
  }
  if (atEndDeclaratives() || atUnitBoundary() || atProcedureHeader())
    return true;

  // In free form a line that holds a name and a period is a paragraph's name, most likely.
  if (token.isInAreaA() && token.isUserWord() && peek(1).is(TokenKind::Period) &&
      suggestKeyword(token.text, KF_Verb).empty())
    return true;
  return correctMisspelt() ? endsStatements(list) : rejectWord(list);
}

/// Takes a word for the END- word, ELSE or WHEN that it comes near to, after a message.
bool StatementParser::correctMisspelt() {
  Keyword meant = misspeltKeyword();
  if (!isScopeTerminator(meant) && meant != Keyword::Else && meant != Keyword::When)
    return false;
  error(DiagnosticId::MisspeltVerb, here(), describe(peek()), textOf(meant));
  stream.correct(meant);
  recovery.resumeReporting();
  return true;
}

/// Takes END IF for END-IF, after a message, where such a word is waited for.
bool StatementParser::correctDividedEnd() {
  const ScopedVerb *scope = at(Keyword::End) ? scopeOf(peek(1).keyword) : nullptr;
  const Token following = peek(2);
  bool isEnd =
      scope && recovery.canEndWith(scope->endWord) &&
      (following.isOneOf(TokenKind::Period, TokenKind::EndOfFile, Keyword::Else, Keyword::When) ||
       following.isVerb() || isScopeTerminator(following.keyword));
  if (!isEnd)
    return false;
  error(DiagnosticId::Expected, here(), textOf(scope->endWord),
        ("'END " + textOf(scope->verb) + "'").str());
  stream.skip();
  stream.correct(scope->endWord);
  recovery.resumeReporting();
  return true;
}

/// Reports ON or AT, which was just taken, where the words after it are almost a phrase. False when
/// they are not.
bool StatementParser::rejectPhrase(const Token &first) {
  llvm::SmallVector<Keyword, 3> wanted;
  if (first.is(Keyword::On))
    wanted = {Keyword::Size, Keyword::Overflow, Keyword::Exception};
  else if (first.is(Keyword::At))
    wanted = {Keyword::End, Keyword::EndOfPage, Keyword::Eop};
  Keyword meant = peek().isWord() ? nearestKeyword(peek().text, wanted) : Keyword::None;
  if (meant == Keyword::None)
    return false;
  if (accept(Keyword::Size))
    meant = Keyword::Error;
  expected(textOf(meant));
  return true;
}

/// Reports a word that begins no statement. It is a misspelt verb, or something that was not
/// understood of the statement before it; with it that one is wrong as well. Always false.
bool StatementParser::rejectWord(StatementList &list) {
  // After a mistake, words that never begin a statement are what is left of it, and so is the word
  // that was missing.
  const bool isLeftOver =
      !peek().isUserWord() && !at(Keyword::On, Keyword::At) && recovery.isSentenceDamaged();
  // Of a statement that broke off, the next lines can be the rest.
  const bool isRest = recovery.isRestOfStatement(peek()) &&
                      !at(Keyword::Cics, Keyword::Sql, Keyword::Dli) &&
                      (!peek().isUserWord() || suggestKeyword(peek().text, KF_Verb).empty());
  if (isLeftOver || isRest || recovery.isDisplaced(peek().keyword) ||
      recovery.isReservedName(peek())) {
    if (recovery.isReservedName(peek()))
      noteMistake();
    Skipping skipping(*this);
    stream.skip();
    list.lastIsWrong = true;
    recovery.noteUnknownStatement();
    skipRestOfStatement(list.lastVerb);
    return false;
  }
  const SourceRange before = stream.getLastPlace();
  recovery.noteStray(peek().keyword);
  const Token word = stream.next();
  llvm::StringRef meant = word.isUserWord() ? suggestKeyword(word.text, KF_Verb) : "";
  if (word.isOneOf(Keyword::Cics, Keyword::Sql, Keyword::Dli) && peek().isWord()) {
    error(DiagnosticId::Expected, word.place, textOf(Keyword::Exec), describe(word));
    skipEmbeddedText();
  } else if (rejectPhrase(word)) {
    if (at(TokenKind::Period))
      recovery.noteCutOff(list.lastVerb);
    recovery.noteUnknownStatement();
    skipRestOfStatement(list.lastVerb);
  } else if (!context.options.osvs && word.isWord() && isOsvsWord(word.text)) {
    if (word.isFirstOnLine())
      recovery.resumeReporting();
    error(DiagnosticId::OsvsStatement, word.place, word.text);
    recovery.noteUnknownStatement();
    skipRestOfStatement(Keyword::None);
  } else if (!meant.empty()) {
    error(DiagnosticId::MisspeltVerb, word.place, describe(word), meant);
    const ScopedVerb *verb = scopeOf(meant);
    if (meant == textOf(Keyword::Exec) || meant == textOf(Keyword::Execute))
      skipEmbeddedText();
    else if (!verb)
      skipRestOfStatement(Keyword::None);
    else if (verb->phrases.empty() || verb->verb == Keyword::Search)
      // ELSE, WHEN and END- words of the statement are to find it.
      parseStatementOf(verb->verb);
    else
      skipRestOfStatement(verb->verb);
  } else {
    if (word.isUserWord() && !isNamed(word))
      meant = suggestReservedWord(word.text);
    if (!meant.empty())
      error(DiagnosticId::MisspeltVerb, word.place, describe(word), meant);
    else if (word.isWord()) {
      error(DiagnosticId::NotAStatement, word.place, describe(word));
      if (word.isFirstOnLine() && !word.isUserWord())
        recovery.noteStrayLine();
    } else
      error(DiagnosticId::Expected, word.place, "a statement", describe(word));
    // A name at the beginning of a line is more likely meant for a verb.
    list.lastIsWrong = !word.isUserWord() || !word.isFirstOnLine();
    if (list.lastIsWrong)
      context.diagnostics.getDamage().add(before);
    recovery.noteUnknownStatement();
    skipRestOfStatement(list.lastVerb);
  }
  return false;
}

//===----------------------------------------------------------------------===//
// Exception phrases
//===----------------------------------------------------------------------===//

/// [NOT] {[ON] {SIZE ERROR | OVERFLOW | EXCEPTION} | [AT] {END | END-OF-PAGE | EOP}
///   | INVALID [KEY]}
std::optional<PhraseStart> StatementParser::atExceptionPhrase() {
  if (!at(Keyword::Not, Keyword::On, Keyword::At, Keyword::Size, Keyword::Overflow,
          Keyword::Exception, Keyword::End, Keyword::EndOfPage, Keyword::Eop, Keyword::Invalid))
    return std::nullopt;
  unsigned n = 0;
  bool isNot = peek(n).is(Keyword::Not);
  if (isNot)
    ++n;
  bool hasOn = peek(n).is(Keyword::On);
  bool hasAt = peek(n).is(Keyword::At);
  if (hasOn || hasAt)
    ++n;
  auto phrase = [&](ExceptionHandlerType type, unsigned words) {
    return PhraseStart{type, isNot, n + words};
  };
  switch (peek(n).keyword) {
  case Keyword::Size:
    if (!hasAt && peek(n + 1).is(Keyword::Error))
      return phrase(ExceptionHandlerType::SizeError, 2);
    break;
  case Keyword::Overflow:
    if (!hasAt)
      return phrase(ExceptionHandlerType::Overflow, 1);
    break;
  case Keyword::Exception:
    if (!hasAt)
      return phrase(ExceptionHandlerType::OnException, 1);
    break;
  case Keyword::End:
    if (!hasOn && (n > 0 || (!atEndProgram() && !atEndDeclaratives())))
      return phrase(ExceptionHandlerType::AtEnd, 1);
    break;
  case Keyword::EndOfPage:
  case Keyword::Eop:
    if (!hasOn)
      return phrase(ExceptionHandlerType::EndOfPage, 1);
    break;
  case Keyword::Invalid:
    if (!hasOn && !hasAt)
      return phrase(ExceptionHandlerType::InvalidKey, peek(n + 1).is(Keyword::Key) ? 2 : 1);
    break;
  default:
    break;
  }
  return std::nullopt;
}

void StatementParser::parseExceptionPhrases(NodeList<ExceptionHandler> &handlers) {
  while (std::optional<PhraseStart> phrase = atExceptionPhrase()) {
    EnclosingStatement &statement = recovery.getInnermost();
    if (!statement.canTake(*phrase))
      return;
    statement.given.insert(*phrase);
    SourceRange begin = here();
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    NodeList<Statement> statements;
    // The checker reports a phrase that has no statements. Where a period is in the way, what
    // follows it is reported.
    const Outcome outcome = parseStatements(statements);
    const bool isCutOff = at(TokenKind::Period) && !peek(1).isFirstOnLine() &&
                          !peek(1).is(TokenKind::EndOfFile) && !peek(1).isVerb();
    if (outcome == Outcome::Absent && at(TokenKind::Period))
      recovery.noteSentenceDamage();
    if (outcome == Outcome::Failed || (outcome == Outcome::Absent && isCutOff))
      statements.push_back(makePlaceholder(begin));
    handlers.push_back(make<ExceptionHandler>(begin, phrase->type, phrase->isNot, &statements));
  }
}

//===----------------------------------------------------------------------===//
// Recovery
//===----------------------------------------------------------------------===//

bool StatementParser::atResumption(bool passesWhen) {
  const Token &token = peek();
  // A period within a word stands in the place of one of its characters.
  if (atPeriodInWord())
    return false;
  if (token.isOneOf(TokenKind::Period, TokenKind::EndOfFile, Keyword::Else, Keyword::Otherwise) ||
      isScopeTerminator(token.keyword) || (token.is(Keyword::When) && !passesWhen))
    return true;
  // EXHIBIT and the like without their option: each is reported.
  if (!context.options.osvs && token.isFirstOnLine() && token.is(Keyword::None) &&
      isOsvsWord(token.text) && !isNamed(token))
    return true;
  return atStatement() || atExceptionPhrase() || atProcedureHeader() || atEndDeclaratives() ||
         atUnitBoundary();
}

void StatementParser::skipToStatement(bool passesWhen) {
  Skipping skipping(*this);
  while (!atResumption(passesWhen))
    stream.skip();
}

/// Skips the rest of the statement \p verb, which could not be parsed. None stands for an unknown
/// statement, which takes the phrases that no enclosing statement can have.
void StatementParser::skipRestOfStatement(Keyword verb) {
  const ScopedVerb *scope = scopeOf(verb);
  PhraseSet taken;
  for (;;) {
    // XML GENERATE has a phrase WHEN of its own.
    skipToStatement(/*passesWhen=*/verb == Keyword::Xml);
    std::optional<PhraseStart> phrase = atExceptionPhrase();
    if (!phrase)
      break;
    bool isOwn = scope && scope->phrases.contains(phrase->type);
    if (taken.contains(*phrase) || (!isOwn && recovery.canTakePhrase(*phrase)))
      break;
    taken.insert(*phrase);
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    NodeList<Statement> dropped;
    Recovery::StatementScope enclosing(recovery, verb, taken);
    parseStatements(dropped);
  }
  if (scope && !accept(scope->endWord))
    recovery.expectAbandonedEnd(scope->endWord);
  else if (!scope && isScopeTerminator(peek().keyword) && !recovery.canEndWith(peek().keyword))
    stream.skip();
}

/// Skips the rest of the sentence. The enclosing statements all end at its period, without
/// messages.
void StatementParser::abandonSentence() {
  recovery.abandonSentence();
  Skipping skipping(*this);
  while (!at(TokenKind::Period) && !atUnitBoundary() && !atProcedureHeader() &&
         !atEndDeclaratives())
    stream.skip();
}

//===----------------------------------------------------------------------===//
// Parts of several statements
//===----------------------------------------------------------------------===//

/// {[BY] {REFERENCE | VALUE}] item...}... The way of passing holds until another one is written.
bool StatementParser::parseParameters(NodeList<Parameter> &parameters) {
  ParameterType type = ParameterType::Reference;
  do {
    SourceRange begin = here();
    if (accept(Keyword::By) && !at(Keyword::Reference, Keyword::Value))
      return expected("REFERENCE or VALUE");
    if (accept(Keyword::Reference))
      type = ParameterType::Reference;
    else if (accept(Keyword::Value))
      type = ParameterType::Value;
    DataIdentifierExpression *item = parseDataName();
    if (!item)
      return false;
    parameters.push_back(make<Parameter>(begin, type, item));
  } while (at(Keyword::By, Keyword::Reference, Keyword::Value) || atName());
  return true;
}

/// NOTE: a remark up to its period, or the whole paragraph where it is the first word of one. Its
/// text is not tokenized: an apostrophe in it opens no literal.
void StatementParser::skipNote(bool isWholeParagraph) {
  bool isFixed = peek().isInFixedForm();
  stream.skip();
  if (!isWholeParagraph)
    return stream.skipRemark();
  if (isFixed)
    return stream.skipCommentEntry();
  // In free form the paragraph ends where a header follows a period.
  do {
    stream.skipRemark();
    accept(TokenKind::Period);
  } while (!atUnitBoundary() && !atEndDeclaratives() && headerKind() == HeaderKind::None);
}

} // namespace tarka
