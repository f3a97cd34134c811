//===- ParseStatement.cpp - statements in general -------------------------===//
//
// Which function reads which statement, lists of statements, the phrases that
// hold statements, and what happens after a mistake.
//
// Recovery: a statement that could not be read is left out whole. Its function
// gives null, and recoverStatement() skips the rest of it: up to the next verb,
// word that a statement around waits for, or period, reading past the phrases
// of the statement with what they hold. An END- word of the statement that comes
// later, behind statements that it would have held, is passed over in silence.
//
//===----------------------------------------------------------------------===//

#include "AST/Spelling.h"
#include "Parse/Parser.h"
#include <utility>

namespace tarka {

//===----------------------------------------------------------------------===//
// What the verbs have
//===----------------------------------------------------------------------===//

namespace {

/// A set of phrases has a bit for each; the NOT form of a phrase has its own where it matters.
constexpr unsigned bitOf(ExceptionHandlerType type, bool isNot = false) {
  return 1u << (static_cast<unsigned>(type) + (isNot ? 8 : 0));
}

constexpr unsigned sizeError = bitOf(ExceptionHandlerType::SizeError);
constexpr unsigned atEnd = bitOf(ExceptionHandlerType::AtEnd);
constexpr unsigned invalidKey = bitOf(ExceptionHandlerType::InvalidKey);
constexpr unsigned overflow = bitOf(ExceptionHandlerType::Overflow);
constexpr unsigned endOfPage = bitOf(ExceptionHandlerType::EndOfPage);
constexpr unsigned onException = bitOf(ExceptionHandlerType::OnException);

/// A statement that has an END- word, and the phrases with statements that it may have.
struct ScopedVerb {
  Keyword verb;
  Keyword endWord;
  unsigned phrases;
};

constexpr ScopedVerb scopedVerbs[] = {
    {Keyword::Accept, Keyword::EndAccept, onException},
    {Keyword::Add, Keyword::EndAdd, sizeError},
    {Keyword::Call, Keyword::EndCall, overflow | onException},
    {Keyword::Compute, Keyword::EndCompute, sizeError},
    {Keyword::Delete, Keyword::EndDelete, invalidKey},
    {Keyword::Display, Keyword::EndDisplay, onException},
    {Keyword::Divide, Keyword::EndDivide, sizeError},
    {Keyword::Evaluate, Keyword::EndEvaluate, 0},
    {Keyword::If, Keyword::EndIf, 0},
    {Keyword::Invoke, Keyword::EndInvoke, onException},
    {Keyword::Json, Keyword::EndJson, onException},
    {Keyword::Multiply, Keyword::EndMultiply, sizeError},
    {Keyword::Perform, Keyword::EndPerform, 0},
    {Keyword::Read, Keyword::EndRead, atEnd | invalidKey},
    {Keyword::Receive, Keyword::EndReceive, 0},
    {Keyword::Return, Keyword::EndReturn, atEnd},
    {Keyword::Rewrite, Keyword::EndRewrite, invalidKey},
    {Keyword::Search, Keyword::EndSearch, atEnd},
    {Keyword::Start, Keyword::EndStart, invalidKey},
    {Keyword::String, Keyword::EndString, overflow},
    {Keyword::Subtract, Keyword::EndSubtract, sizeError},
    {Keyword::Unstring, Keyword::EndUnstring, overflow},
    {Keyword::Write, Keyword::EndWrite, invalidKey | endOfPage},
    {Keyword::Xml, Keyword::EndXml, onException},
};

const ScopedVerb *scopeOf(Keyword verb) {
  for (const ScopedVerb &scoped : scopedVerbs)
    if (scoped.verb == verb)
      return &scoped;
  return nullptr;
}

/// The verb that the END- word \p endWord ends.
Keyword verbOfEnd(Keyword endWord) {
  for (const ScopedVerb &scoped : scopedVerbs)
    if (scoped.endWord == endWord)
      return scoped.verb;
  return Keyword::None;
}

/// The words with which statements and phrases of OS/VS COBOL begin. Without its option they are
/// words like any other.
bool isOsvsWord(llvm::StringRef word) {
  for (Keyword keyword : {Keyword::Examine, Keyword::Exhibit, Keyword::Note, Keyword::On,
                          Keyword::Otherwise, Keyword::Seek, Keyword::Transform})
    if (word == textOf(keyword))
      return true;
  return false;
}

} // namespace

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

/// The statement of \p verb. The verb is next, or it was misspelt and is gone.
Statement *Parser::parseStatementOf(Keyword verb) {
  Depth level(*this);
  if (level.isTooDeep()) {
    error(DiagnosticId::NestedTooDeep, here(), maxDepth);
    abandonSentence();
    return nullptr;
  }
  enclosingStatements.push_back({verb});
  Statement *statement = dispatchStatement(verb);
  enclosingStatements.pop_back();
  if (isSentenceAbandoned)
    return nullptr;
  if (!statement && !isRecovered)
    recoverStatement(verb);
  isRecovered = false;
  return statement;
}

Statement *Parser::dispatchStatement(Keyword verb) {
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
    return dropStatement();
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
std::nullptr_t Parser::rejectStatement() {
  error(DiagnosticId::UnsupportedStatement, here(), textOf(peek().keyword));
  bool hasSecondWord = at(Keyword::Json) && peek(1).isOneOf(Keyword::Generate, Keyword::Parse);
  stream.skip();
  if (hasSecondWord)
    stream.skip();
  return nullptr;
}

/// USE begins a section of the declaratives and stands nowhere else.
std::nullptr_t Parser::rejectUse() {
  error(DiagnosticId::UseOutsideDeclaratives, here());
  while (!at(TokenKind::Period) && !atUnitBoundary())
    stream.skip();
  return dropStatement();
}

/// ENTER language [routine]: a remark only.
Statement *Parser::parseEnter() {
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
Statement *Parser::parseSeek() {
  SourceRange begin = here();
  error(DiagnosticId::NoEffect, begin, textOf(peek().keyword));
  accept(Keyword::Seek);
  if (!parseFileName())
    return nullptr;
  accept(Keyword::Record);
  return make<ContinueStatement>(begin);
}

/// SERVICE LABEL, SERVICE RELOAD item: left over from older systems and without effect.
Statement *Parser::parseService() {
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

void Parser::parseStatements(std::list<Statement *> &statements) {
  StatementList list;
  while (!isSentenceAbandoned) {
    if (atStatement()) {
      if (peek().isFirstOnLine())
        findFooting();
      list.lastVerb = peek().keyword;
      list.lastIsWrong = false;
      Statement *statement = parseStatement();
      if (statement)
        statements.push_back(statement);
      list.lastIsKept = statement != nullptr;
    } else if (endsStatements(list)) {
      return;
    } else if (list.lastIsWrong && list.lastIsKept) {
      statements.pop_back();
      list.lastIsKept = false;
    }
    if (abandonedEnd != Keyword::None)
      list.abandonedEnds.push_back(std::exchange(abandonedEnd, Keyword::None));
  }
}

bool Parser::parseBranch(std::list<Statement *> &statements, bool isNeeded) {
  SourceRange begin = here();
  unsigned errors = countMistakes();
  parseStatements(statements);
  if (!statements.empty())
    return true;
  if (countMistakes() == errors) {
    if (isNeeded)
      expected("a statement");
    return false;
  }
  // Its statements were refused one by one, with a message each.
  statements.push_back(new ContinueStatement(new Node(begin)));
  return true;
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
    auto *abandoned = llvm::find(list.abandonedEnds, keyword);
    if (abandoned != list.abandonedEnds.end()) {
      list.abandonedEnds.erase(abandoned);
      stream.skip();
      return false;
    }
    if (isOpen(keyword))
      return true;
    if (!endsStray(verbOfEnd(keyword)) && !hasUnknownStatement)
      error(DiagnosticId::EndWithoutStatement, here(), textOf(keyword),
            textOf(keyword).drop_front(sizeof("END-") - 1));
    stream.skip();
    return false;
  }
  if (keyword == Keyword::Else || keyword == Keyword::Otherwise) {
    if (canTakeElse())
      return true;
    if (isFirstStray(StrayElse))
      error(DiagnosticId::ElseWithoutIf, here(), textOf(keyword));
    stream.skip();
    return false;
  }
  if (keyword == Keyword::When) {
    if (canTakeWhen())
      return true;
    if (isFirstStray(StrayWhen))
      error(DiagnosticId::WhenWithoutEvaluate, here());
    stream.skip();
    skipToStatement();
    return false;
  }
  if (std::optional<PhraseStart> phrase = atExceptionPhrase()) {
    if (canTakePhrase(*phrase))
      return true;
    if (correctDividedEnd())
      return endsStatements(list);
    SourceRange begin = here();
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    if (isFirstStray(StrayPhrase))
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

/// Whether a part without its statement is the first one of its kind in the sentence: the others
/// belong to the same statement, most likely, which is told once.
bool Parser::isFirstStray(StrayPart part) {
  const bool isFirst = !hasUnknownStatement && !(strayParts & part);
  strayParts |= part;
  return isFirst;
}

/// Whether the END- word of \p verb ends a statement of which parts were met without it.
bool Parser::endsStray(Keyword verb) {
  unsigned parts = 0;
  if (verb == Keyword::If)
    parts = StrayElse;
  else if (verb == Keyword::Evaluate || verb == Keyword::Search)
    parts = StrayWhen;
  if (const ScopedVerb *scope = scopeOf(verb); scope && scope->phrases != 0)
    parts |= StrayPhrase;
  const bool isStray = strayParts & parts;
  strayParts &= ~parts;
  return isStray;
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
  const bool isEndPossible =
      enclosingStatements.size() > 1 ||
      (!enclosingStatements.empty() && scopeOf(enclosingStatements.back().verb));
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
  for (const EnclosingStatement &open : llvm::reverse(enclosingStatements))
    if (const ScopedVerb *scope = scopeOf(open.verb))
      consider(scope->endWord);
  if (isVerbNext && canTakeElse())
    consider(Keyword::Else);
  if (isAtEnd)
    return meant;
  if (canTakeWhen())
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
  findFooting();
  return true;
}

/// Takes END IF for END-IF, after a message, where such a word is waited for.
bool Parser::correctDividedEnd() {
  const ScopedVerb *scope = at(Keyword::End) ? scopeOf(peek(1).keyword) : nullptr;
  const Token following = peek(2);
  bool isEnd =
      scope && isOpen(scope->endWord) &&
      (following.isOneOf(TokenKind::Period, TokenKind::EndOfFile, Keyword::Else, Keyword::When) ||
       following.isVerb() || isScopeTerminator(following.keyword));
  if (!isEnd)
    return false;
  error(DiagnosticId::Expected, here(), textOf(scope->endWord),
        ("'END " + textOf(scope->verb) + "'").str());
  stream.skip();
  stream.correct(scope->endWord);
  findFooting();
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
    hasUnknownStatement = true;
    recoverStatement(list.lastVerb);
  } else if (!options.osvs && word.isWord() && isOsvsWord(word.text)) {
    if (word.isFirstOnLine())
      findFooting();
    error(DiagnosticId::OsvsStatement, word.place, word.text);
    hasUnknownStatement = true;
    recoverStatement(Keyword::None);
  } else if (!meant.empty()) {
    error(DiagnosticId::MisspeltVerb, word.place, describe(word), meant);
    const ScopedVerb *verb = llvm::find_if(
        scopedVerbs, [meant](const ScopedVerb &one) { return textOf(one.verb) == meant; });
    if (meant == textOf(Keyword::Exec) || meant == textOf(Keyword::Execute))
      skipEmbeddedText();
    else if (verb == std::end(scopedVerbs))
      recoverStatement(Keyword::None);
    else if (verb->phrases == 0 || verb->verb == Keyword::Search)
      // ELSE, WHEN and END- words of the statement are to find it.
      parseStatementOf(verb->verb);
    else
      recoverStatement(verb->verb);
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
    hasUnknownStatement = true;
    recoverStatement(list.lastVerb);
  }
  return false;
}

bool Parser::isOpen(Keyword endWord) const {
  Keyword verb = verbOfEnd(endWord);
  return llvm::any_of(llvm::reverse(enclosingStatements), [verb](const EnclosingStatement &open) {
    return open.verb == verb || open.verb == Keyword::None;
  });
}

bool Parser::canTakeElse() const {
  return llvm::any_of(llvm::reverse(enclosingStatements), [](const EnclosingStatement &open) {
    return (open.verb == Keyword::If || open.verb == Keyword::On) && !open.hasElse;
  });
}

bool Parser::canTakeWhen() const {
  return llvm::any_of(llvm::reverse(enclosingStatements), [](const EnclosingStatement &open) {
    return open.verb == Keyword::Evaluate || open.verb == Keyword::Search;
  });
}

bool Parser::canTakePhrase(const PhraseStart &phrase) const {
  return llvm::any_of(llvm::reverse(enclosingStatements), [&](const EnclosingStatement &open) {
    const ScopedVerb *scope = scopeOf(open.verb);
    bool hasPhrase = open.verb == Keyword::None || (scope && (scope->phrases & bitOf(phrase.type)));
    return hasPhrase && !(open.phrases & bitOf(phrase.type, phrase.isNot));
  });
}

//===----------------------------------------------------------------------===//
// Exception phrases
//===----------------------------------------------------------------------===//

/// [NOT] {[ON] {SIZE ERROR | OVERFLOW | EXCEPTION} | [AT] {END | END-OF-PAGE | EOP}
///   | INVALID [KEY]}
std::optional<Parser::PhraseStart> Parser::atExceptionPhrase() {
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

bool Parser::parseExceptionPhrases(std::list<ExceptionHandler *> &handlers,
                                   std::initializer_list<ExceptionHandlerType> allowed) {
  while (std::optional<PhraseStart> phrase = atExceptionPhrase()) {
    unsigned &given = enclosingStatements.back().phrases;
    unsigned own = bitOf(phrase->type, phrase->isNot);
    if ((given & own) || !llvm::is_contained(allowed, phrase->type))
      return true;
    given |= own;
    SourceRange begin = here();
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    unsigned errors = countMistakes();
    std::list<Statement *> statements;
    parseStatements(statements);
    // A phrase without statements is for the checker to tell, unless its statements were refused.
    if (statements.empty() && countMistakes() != errors)
      statements.push_back(new ContinueStatement(new Node(begin)));
    handlers.push_back(make<ExceptionHandler>(begin, phrase->type, phrase->isNot, &statements));
  }
  return true;
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
void Parser::recoverStatement(Keyword verb) {
  const ScopedVerb *scope = scopeOf(verb);
  unsigned taken = 0;
  for (;;) {
    // XML GENERATE has a phrase WHEN of its own.
    skipToStatement(/*passesWhen=*/verb == Keyword::Xml);
    std::optional<PhraseStart> phrase = atExceptionPhrase();
    if (!phrase)
      break;
    bool isOwn = scope && (scope->phrases & bitOf(phrase->type));
    unsigned which = bitOf(phrase->type, phrase->isNot);
    if ((taken & which) || (!isOwn && canTakePhrase(*phrase)))
      break;
    taken |= which;
    for (unsigned n = 0; n < phrase->length; ++n)
      stream.skip();
    std::list<Statement *> dropped;
    enclosingStatements.push_back({verb, /*hasElse=*/false, taken});
    parseStatements(dropped);
    enclosingStatements.pop_back();
  }
  if (scope)
    abandonedEnd = accept(scope->endWord) ? Keyword::None : scope->endWord;
  else if (isScopeTerminator(peek().keyword) && !isOpen(peek().keyword))
    stream.skip();
}

/// Gives up the sentence. The statements around the place all end at its period, in silence.
void Parser::abandonSentence() {
  isSentenceAbandoned = true;
  while (!at(TokenKind::Period) && !atUnitBoundary() && !atProcedureHeader() &&
         !atEndDeclaratives())
    stream.skip();
}

} // namespace tarka
