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

#include "AST/Spelling.h"
#include "Parse/Parser.h"

namespace tarka {

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

bool Parser::atStatement() {
  const Token &token = peek();
  if (token.isVerb())
    return true;
  // Words that are verbs only together with what follows.
  switch (token.keyword) {
  case Keyword::Next:
    return peek(1).is(Keyword::Sentence);
  case Keyword::Reset:
    return peek(1).is(Keyword::Trace);
  case Keyword::Suppress:
    // XML GENERATE has a phrase SUPPRESS, which names something.
    return peek(1).isOneOf(Keyword::Printing, Keyword::Else, TokenKind::Period) ||
           peek(1).isVerb() || isScopeTerminator(peek(1).keyword);
  case Keyword::On:
    return options.osvs && (peek(1).isNumber() || peek(1).isUserWord());
  default:
    return false;
  }
}

Statement *Parser::parseStatement() {
  return parseStatementOf(peek().keyword);
}

/// The statement of \p verb. The verb is next, or it was misspelt and has been skipped.
Statement *Parser::parseStatementOf(Keyword verb) {
  Depth level(*this);
  if (level.isTooDeep()) {
    error(DiagnosticId::NestedTooDeep, here(), maxDepth);
    abandonSentence();
    return nullptr;
  }
  StatementResult result = nullptr;
  {
    Recovery::StatementScope scope(recovery, verb);
    result = dispatchStatement(verb);
  }
  if (recovery.isSentenceAbandoned())
    return nullptr;
  if (result.getOutcome() == Outcome::Failed)
    skipRestOfStatement(verb);
  return result.get();
}

StatementResult Parser::dispatchStatement(Keyword verb) {
  switch (verb) {
  case Keyword::Accept:
    return parseAccept();
  case Keyword::Add:
    return parseAdd();
  case Keyword::Alter:
    return parseAlter();
  case Keyword::Call:
    return parseCall();
  case Keyword::Cancel:
    return parseCancel();
  case Keyword::Close:
    return parseClose();
  case Keyword::Compute:
    return parseCompute();
  case Keyword::Continue:
    return parseContinue();
  case Keyword::Delete:
    return parseDelete();
  case Keyword::Display:
    return parseDisplay();
  case Keyword::Divide:
    return parseDivide();
  case Keyword::Enter:
    return parseEnter();
  case Keyword::Entry:
    return parseEntry();
  case Keyword::Evaluate:
    return parseEvaluate();
  case Keyword::Examine:
    return parseExamine();
  case Keyword::Exec:
  case Keyword::Execute:
    return parseExec();
  case Keyword::Exhibit:
    return parseExhibit();
  case Keyword::Exit:
    return parseExit();
  case Keyword::Generate:
    return parseGenerate();
  case Keyword::Go:
    return parseGoto();
  case Keyword::Goback:
    return parseGoback();
  case Keyword::If:
    return parseIf();
  case Keyword::Initialize:
    return parseInitialize();
  case Keyword::Initiate:
    return parseInitiate();
  case Keyword::Inspect:
    return parseInspect();
  case Keyword::Merge:
    return parseMerge();
  case Keyword::Move:
    return parseMove();
  case Keyword::Multiply:
    return parseMultiply();
  case Keyword::Next:
    return parseNextSentence();
  case Keyword::Note:
    skipNote(/*isWholeParagraph=*/false);
    return Outcome::Absent;
  case Keyword::On:
    return parseOn();
  case Keyword::Open:
    return parseOpen();
  case Keyword::Perform:
    return parsePerform();
  case Keyword::Read:
    return parseRead();
  case Keyword::Ready:
  case Keyword::Reset:
    return parseTrace();
  case Keyword::Release:
    return parseRelease();
  case Keyword::Return:
    return parseReturn();
  case Keyword::Rewrite:
    return parseRewrite();
  case Keyword::Search:
    return parseSearch();
  case Keyword::Seek:
    return parseSeek();
  case Keyword::Service:
    return parseService();
  case Keyword::Set:
    return parseSet();
  case Keyword::Sort:
    return parseSort();
  case Keyword::Start:
    return parseStart();
  case Keyword::Stop:
    return parseStop();
  case Keyword::String:
    return parseString();
  case Keyword::Subtract:
    return parseSubtract();
  case Keyword::Suppress:
    return parseSuppress();
  case Keyword::Terminate:
    return parseTerminate();
  case Keyword::Transform:
    return parseTransform();
  case Keyword::Unstring:
    return parseUnstring();
  case Keyword::Use:
    return rejectUse();
  case Keyword::Write:
    return parseWrite();
  case Keyword::Xml:
    return parseXml();
  default:
    return rejectStatement();
  }
}

/// A statement that the language has and the rest of the compiler does not.
StatementResult Parser::rejectStatement() {
  error(DiagnosticId::UnsupportedStatement, here(), textOf(peek().keyword));
  bool hasSecondWord = at(Keyword::Json) && peek(1).isOneOf(Keyword::Generate, Keyword::Parse);
  stream.skip();
  if (hasSecondWord)
    stream.skip();
  return Outcome::Failed;
}

/// USE begins a section of the declaratives and stands nowhere else.
StatementResult Parser::rejectUse() {
  error(DiagnosticId::UseOutsideDeclaratives, here());
  while (!at(TokenKind::Period) && !atUnitBoundary())
    stream.skip();
  return Outcome::Discarded;
}

/// ENTER language [routine]: a remark only.
StatementResult Parser::parseEnter() {
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
StatementResult Parser::parseSeek() {
  SourceRange begin = here();
  error(DiagnosticId::NoEffect, begin, textOf(peek().keyword));
  accept(Keyword::Seek);
  if (!parseFileName())
    return nullptr;
  accept(Keyword::Record);
  return make<ContinueStatement>(begin);
}

/// SERVICE LABEL, SERVICE RELOAD item: left over from older systems and without effect.
StatementResult Parser::parseService() {
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

Outcome Parser::parseStatements(std::list<Statement *> &statements) {
  Recovery::ErrorTrap trap(recovery);
  Recovery::ListScope scope(recovery);
  StatementList list;
  while (!recovery.isSentenceAbandoned()) {
    if (atStatement()) {
      if (peek().isFirstOnLine())
        recovery.resumeReporting();
      list.lastVerb = peek().keyword;
      list.lastIsWrong = false;
      Statement *statement = parseStatement();
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
  return trap.hasErrorOccurred() ? Outcome::Failed : Outcome::Absent;
}

/// Stands for statements that were reported and skipped, where at least one is needed.
Statement *Parser::makePlaceholder(const SourceRange &begin) {
  Node place(begin);
  return new ContinueStatement(&place);
}

bool Parser::parseBranch(std::list<Statement *> &statements, bool isNeeded) {
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
bool Parser::endsStatements(StatementList &list) {
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
    if (!recovery.endsStray(verbOfEnd(keyword)) && !recovery.hasUnknownStatement())
      error(DiagnosticId::EndWithoutStatement, here(), textOf(keyword),
            textOf(keyword).drop_front(sizeof("END-") - 1));
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
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    if (recovery.isFirstStray(StrayPart::Phrase))
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

// What joins the operands of a statement before it with those behind it.
static constexpr Keyword joints[] = {Keyword::By,       Keyword::Delimited, Keyword::From,
                                     Keyword::Giving,   Keyword::Into,      Keyword::Replacing,
                                     Keyword::Tallying, Keyword::To,        Keyword::Until,
                                     Keyword::Upon,     Keyword::Using};

/// Whether the token can only follow an operand, never one of the words that are looked for here.
static bool followsOperand(const Token &token) {
  return token.isOneOf(Keyword::Of, Keyword::In, Keyword::Is, Keyword::And, Keyword::Or,
                       Keyword::Rounded, TokenKind::Equal, TokenKind::Less, TokenKind::Greater) ||
         llvm::is_contained(joints, token.keyword);
}

/// The keyword that an undeclared word was most likely meant to be: one that a statement around
/// waits for, that goes on with this one or, at the beginning of a line, a verb. None when there is
/// no such keyword.
Keyword Parser::misspeltKeyword() {
  if (!at(TokenKind::Word) || !at(Keyword::None))
    return Keyword::None;
  const Token following = peek(1);
  const bool isVerbNext = following.isVerb();
  const bool isAtEnd =
      following.is(TokenKind::Period) || isVerbNext || isScopeTerminator(following.keyword);
  // Most words need no look at what is declared.
  llvm::ArrayRef<EnclosingStatement> enclosing = recovery.getEnclosing();
  const bool isEndPossible =
      enclosing.size() > 1 || (!enclosing.empty() && scopeOf(enclosing.back().verb));
  if (isAtEnd ? !isEndPossible : followsOperand(following))
    return Keyword::None;
  if (isNamed(peek()))
    return Keyword::None;

  const Token word = peek();
  SpellingMatch match(word.text);
  Keyword meant = Keyword::None;
  auto consider = [&](Keyword candidate) {
    if (match.consider(textOf(candidate)))
      meant = candidate;
  };
  for (const EnclosingStatement &one : llvm::reverse(enclosing))
    if (const ScopedVerb *scope = scopeOf(one.verb))
      consider(scope->endWord);
  if (isVerbNext && recovery.canTakeElse())
    consider(Keyword::Else);
  if (isAtEnd)
    return meant;
  if (recovery.canTakeWhen())
    consider(Keyword::When);
  for (Keyword joint : joints)
    consider(joint);
  if (!word.isFirstOnLine() || following.is(TokenKind::LParen))
    return meant;
#define KEYWORD(Enumerator, Text, Flags)                                                           \
  if ((Flags) & KF_Verb)                                                                           \
    consider(Keyword::Enumerator);
#include "Parse/Keywords.def"
  return meant;
}

/// Takes a word for the END- word, ELSE or WHEN that it comes near to, after a message.
bool Parser::correctMisspelt() {
  Keyword meant = misspeltKeyword();
  if (!isScopeTerminator(meant) && meant != Keyword::Else && meant != Keyword::When)
    return false;
  error(DiagnosticId::MisspeltVerb, here(), describe(peek()), textOf(meant));
  stream.correct(meant);
  recovery.resumeReporting();
  return true;
}

/// Takes END IF for END-IF, after a message, where such a word is waited for.
bool Parser::correctDividedEnd() {
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

/// The reserved word that is nearest to \p word. Of equally near ones it is one of the same length:
/// letters are exchanged more often than left out.
static llvm::StringRef suggestReservedWord(llvm::StringRef word) {
  SpellingMatch match(word);
  for (bool isSameLength : {true, false}) {
#define KEYWORD(Enumerator, Text, Flags)                                                           \
  if (!((Flags) & (KF_ContextSensitive | KF_OsvsOnly)) &&                                          \
      (word.size() == llvm::StringRef(Text).size()) == isSameLength)                               \
    match.consider(Text);
#include "Parse/Keywords.def"
  }
  return match.getNearest();
}

/// Reports ON or AT, which was taken off the stream, where one of the words behind it makes a
/// phrase of it and another is not right. False when they are no such words.
bool Parser::rejectPhrase(const Token &first) {
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
bool Parser::rejectWord(StatementList &list) {
  const Token word = stream.next();
  llvm::StringRef meant = word.isUserWord() ? suggestKeyword(word.text, KF_Verb) : "";
  if (rejectPhrase(word)) {
    recovery.noteUnknownStatement();
    skipRestOfStatement(list.lastVerb);
  } else if (!options.osvs && word.isWord() && isOsvsWord(word.text)) {
    if (word.isFirstOnLine())
      recovery.resumeReporting();
    error(DiagnosticId::OsvsStatement, word.place, word.text);
    recovery.noteUnknownStatement();
    skipRestOfStatement(Keyword::None);
  } else if (!meant.empty()) {
    error(DiagnosticId::MisspeltVerb, word.place, describe(word), meant);
    const ScopedVerb *verb = llvm::find_if(
        scopedVerbs(), [meant](const ScopedVerb &one) { return textOf(one.verb) == meant; });
    if (meant == textOf(Keyword::Exec) || meant == textOf(Keyword::Execute))
      skipEmbeddedText();
    else if (verb == scopedVerbs().end())
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
    else if (word.isWord())
      error(DiagnosticId::NotAStatement, word.place, describe(word));
    else
      error(DiagnosticId::Expected, word.place, "a statement", describe(word));
    // A name at the beginning of a line is more likely meant for a verb.
    list.lastIsWrong = !word.isUserWord() || !word.isFirstOnLine();
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
std::optional<PhraseStart> Parser::atExceptionPhrase() {
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

void Parser::parseExceptionPhrases(std::list<ExceptionHandler *> &handlers,
                                   std::initializer_list<ExceptionHandlerType> allowed) {
  while (std::optional<PhraseStart> phrase = atExceptionPhrase()) {
    PhraseSet &given = recovery.getInnermost().phrases;
    if (given.contains(*phrase) || !llvm::is_contained(allowed, phrase->type))
      return;
    given.insert(*phrase);
    SourceRange begin = here();
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    std::list<Statement *> statements;
    // The checker reports a phrase that has no statements.
    if (parseStatements(statements) == Outcome::Failed)
      statements.push_back(makePlaceholder(begin));
    handlers.push_back(make<ExceptionHandler>(begin, phrase->type, phrase->isNot, &statements));
  }
}

//===----------------------------------------------------------------------===//
// Recovery
//===----------------------------------------------------------------------===//

bool Parser::atResumption(bool passesWhen) {
  const Token &token = peek();
  if (token.isOneOf(TokenKind::Period, TokenKind::EndOfFile, Keyword::Else, Keyword::Otherwise) ||
      isScopeTerminator(token.keyword) || (token.is(Keyword::When) && !passesWhen))
    return true;
  // EXHIBIT and the like, where the option for them is missing: each is told.
  if (!options.osvs && token.isFirstOnLine() && token.is(Keyword::None) && isOsvsWord(token.text) &&
      !isNamed(token))
    return true;
  return atStatement() || atExceptionPhrase() || atProcedureHeader() || atEndDeclaratives() ||
         atUnitBoundary();
}

void Parser::skipToStatement(bool passesWhen) {
  while (!atResumption(passesWhen))
    stream.skip();
}

/// Takes the rest of the statement \p verb, which could not be read, off the stream. None stands
/// for a statement that nobody knows: phrases that no statement around could have are its own.
void Parser::skipRestOfStatement(Keyword verb) {
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
    std::list<Statement *> dropped;
    Recovery::StatementScope enclosing(recovery, verb, taken);
    parseStatements(dropped);
  }
  if (scope && !accept(scope->endWord))
    recovery.expectAbandonedEnd(scope->endWord);
  else if (!scope && isScopeTerminator(peek().keyword) && !recovery.canEndWith(peek().keyword))
    stream.skip();
}

/// Gives up the sentence. The statements around the place all end at its period, in silence.
void Parser::abandonSentence() {
  recovery.abandonSentence();
  while (!at(TokenKind::Period) && !atUnitBoundary() && !atProcedureHeader() &&
         !atEndDeclaratives())
    stream.skip();
}

} // namespace tarka
