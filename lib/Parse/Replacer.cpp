//===- Replacer.cpp - REPLACING and REPLACE -------------------------------===//

#include "Parse/Replacer.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallString.h"
#include <algorithm>
#include <cstring>

namespace tarka {

namespace {

/// What no run and no match goes across.
bool isBarrier(const Token &token) {
  return token.is(TokenKind::EndOfFile) ||
         (token.is(Keyword::Replace) && !token.isFromReplacement());
}

bool sameTextWord(const Token &left, const Token &right) {
  if (left.kind != right.kind)
    return false;
  return left.isWord() ? left.interned == right.interned : left.text == right.text;
}

/// A place from where \p first begins to where \p last ends.
SourceRange spanning(const SourceRange &first, const SourceRange &last) {
  if (first.file != last.file)
    return first;
  return {first.file, first.beginLine, first.beginColumn, last.endLine, last.endColumn};
}

llvm::StringRef copyForever(llvm::StringRef text) {
  char *copy = static_cast<char *>(allocateForever(std::max<size_t>(text.size(), 1), 1));
  std::memcpy(copy, text.data(), text.size());
  return {copy, text.size()};
}

} // namespace

void Replacer::setReplacements(std::vector<Replacement> pairs) {
  replacements = std::move(pairs);
  byFirstText.clear();
  partial.clear();
  for (unsigned index = 0; index < replacements.size(); ++index) {
    const Replacement &pair = replacements[index];
    if (pair.kind == Replacement::Kind::Whole)
      byFirstText[pair.from.front().text].push_back(index);
    else
      partial.push_back(index);
  }
}

void Replacer::next(Token &token, Source source) {
  while (ready.empty())
    fillRun(source);
  token = ready.front();
  ready.pop_front();
}

/// Gathers the tokens up to the next space, and makes them ready.
void Replacer::fillRun(Source source) {
  Token token;
  if (std::exchange(hasAhead, false))
    token = ahead;
  else
    produce(token, source);
  if (isBarrier(token)) {
    ready.push_back(token);
    return;
  }
  run.clear();
  bool isTouched = false;
  do {
    isTouched |= token.isFromReplacement();
    run.push_back(token);
    produce(token, source);
  } while (!isBarrier(token) && !token.isPrecededBySpace() &&
           !run.back().is(TokenKind::EmbeddedText));
  ahead = token;
  hasAhead = true;

  // The run after PICTURE [IS] is one string; it came in pieces, so that they could be replaced.
  bool isPicture =
      afterPicture && run.front().keyword != Keyword::Is && run.front().keyword != Keyword::Symbol;
  Keyword last = run.back().keyword;
  afterPicture = last == Keyword::Pic || last == Keyword::Picture ||
                 (afterPicture && last == Keyword::Is && run.size() == 1);
  if (isPicture || (isTouched && run.size() > 1))
    readAgain(isPicture);
  for (const Token &done : run)
    if (!done.is(TokenKind::Comma))
      ready.push_back(done);
}

/// Produces the next token, replaced or not.
void Replacer::produce(Token &token, Source source) {
  while (made.empty()) {
    const Token &front = windowAt(0, source);
    if (isBarrier(front) || !replaceFront(source)) {
      token = front;
      window.pop_front();
      if (std::exchange(spaceIsDue, false))
        token.flags |= Token::PrecededBySpace;
      return;
    }
  }
  token = made.front();
  made.pop_front();
}

/// The token \p index places ahead in the source.
const Token &Replacer::windowAt(size_t index, Source source) {
  while (window.size() <= index) {
    Token token;
    source(token);
    if (token.is(TokenKind::PictureString))
      splitPicture(token);
    else
      window.push_back(token);
  }
  return window[index];
}

/// Puts the text words of a picture string into the window.
void Replacer::splitPicture(const Token &picture) {
  Scanner scanner(context.words, /*keepsCommas=*/true);
  scanner.setText(picture.text);
  Token piece;
  for (uint8_t flags = picture.flags; scanner.scan(piece); flags = 0) {
    piece.flags = flags;
    piece.place = picture.place;
    // On one line, a picture string has as many columns as characters.
    if (!(picture.flags & (Token::Continued | Token::FromReplacement))) {
      piece.place.beginColumn += piece.spelling.begin() - picture.spelling.begin();
      piece.place.endColumn = piece.place.beginColumn + piece.spelling.size() - 1;
    }
    window.push_back(piece);
  }
}

/// Replaces the text at the front of the window if a pair matches there.
bool Replacer::replaceFront(Source source) {
  const Token front = window.front();
  llvm::ArrayRef<unsigned> whole;
  if (auto found = byFirstText.find(front.text); found != byFirstText.end())
    whole = found->second;
  llvm::ArrayRef<unsigned> parts = front.isWord() ? llvm::ArrayRef(partial) : std::nullopt;
  // Both lists are in the order of the pairs; the first pair that fits counts.
  while (!whole.empty() || !parts.empty()) {
    bool isPart = whole.empty() || (!parts.empty() && parts.front() < whole.front());
    llvm::ArrayRef<unsigned> &list = isPart ? parts : whole;
    const Replacement &pair = replacements[list.front()];
    list = list.drop_front();
    size_t length = 1;
    if (isPart ? !matchesPart(pair, front) : !matches(pair, source, length))
      continue;
    if (isPart)
      makePart(pair);
    else
      makeWhole(pair, length);
    return true;
  }
  return false;
}

/// Whether the words of \p pair stand at the front of the window, and on how many tokens. Commas
/// separate and are not compared.
bool Replacer::matches(const Replacement &pair, Source source, size_t &length) {
  length = 0;
  for (const Token &wanted : pair.from) {
    while (length > 0 && windowAt(length, source).is(TokenKind::Comma))
      ++length;
    if (!sameTextWord(windowAt(length, source), wanted) || isBarrier(window[length]))
      return false;
    ++length;
  }
  return true;
}

bool Replacer::matchesPart(const Replacement &pair, const Token &token) const {
  return pair.kind == Replacement::Kind::Leading ? token.text.starts_with(pair.fromPart)
                                                 : token.text.ends_with(pair.fromPart);
}

void Replacer::makeWhole(const Replacement &pair, size_t length) {
  Token first = window.front();
  Token last = window[length - 1];
  window.erase(window.begin(), window.begin() + length);
  put(pair.to, first, last, length);
}

void Replacer::makePart(const Replacement &pair) {
  Token word = window.front();
  window.pop_front();
  llvm::SmallString<64> text;
  if (pair.kind == Replacement::Kind::Leading) {
    text += pair.toPart;
    text += word.spelling.drop_front(pair.fromPart.size());
  } else {
    text += word.spelling.drop_back(pair.fromPart.size());
    text += pair.toPart;
  }
  llvm::StringRef kept = copyForever(text);
  Scanner scanner(context.words, /*keepsCommas=*/true);
  scanner.setText(kept);
  llvm::SmallVector<Token, 4> tokens;
  for (Token token; scanner.scan(token);)
    tokens.push_back(token);
  put(tokens, word, word, /*length=*/1);
}

/// Makes \p tokens the next ones. They stand where the text from \p first to \p last stood, \p
/// length tokens that they replace, for that is where the programmer sees it.
void Replacer::put(llvm::ArrayRef<Token> tokens, const Token &first, const Token &last,
                   size_t length) {
  if (tokens.size() > length)
    tokensAdded += tokens.size() - length;
  uint8_t flags = first.flags;
  if (std::exchange(spaceIsDue, false))
    flags |= Token::PrecededBySpace;
  if (tokens.empty()) {
    spaceIsDue = flags & Token::PrecededBySpace;
    return;
  }
  SourceRange place = spanning(first.place, last.place);
  for (Token token : tokens) {
    uint8_t own =
        (token.flags & (Token::PrecededBySpace | Token::JoinedToNext | Token::AfterComma)) |
        (first.flags & Token::FixedForm);
    token.place = place;
    token.flags = Token::FromReplacement | (made.empty() ? flags : own);
    made.push_back(token);
  }
}

/// Makes new tokens of the characters of the run.
void Replacer::readAgain(bool asPicture) {
  llvm::SmallString<128> text;
  llvm::SmallVector<size_t, 16> ends;
  uint8_t inherited = 0;
  for (const Token &token : run) {
    text += token.spelling.empty() ? token.text : token.isWord() ? token.spelling : token.text;
    ends.push_back(text.size());
    inherited |= token.flags & (Token::FromReplacement | Token::FixedForm);
  }
  const llvm::StringRef kept = copyForever(text);
  llvm::SmallVector<Token, 16> old(run.begin(), run.end());
  run.clear();

  // A token stands where the tokens stood that its characters come from.
  auto tokenAt = [&](const char *at) -> const Token & {
    size_t offset = at - kept.begin();
    return old[std::upper_bound(ends.begin(), ends.end(), offset) - ends.begin()];
  };
  auto add = [&](Token token) {
    const char *lastByte = token.spelling.end() - 1;
    token.place = spanning(tokenAt(token.spelling.begin()).place, tokenAt(lastByte).place);
    token.flags |= inherited | (run.empty() ? old.front().flags : 0);
    run.push_back(token);
  };

  llvm::StringRef rest = kept;
  if (asPicture) {
    Token picture;
    picture.kind = TokenKind::PictureString;
    picture.text = picture.spelling = pictureIn(kept);
    if (!picture.text.empty())
      add(picture);
    rest = kept.drop_front(picture.text.size());
  }
  Scanner scanner(context.words, /*keepsCommas=*/false);
  scanner.setDecimalPointIsComma(context.decimalPointIsComma);
  scanner.setText(rest);
  for (Token token; scanner.scan(token);)
    add(token);
}

} // namespace tarka
