//===- Expansion.cpp - what COPY and REPLACE make of a source -------------===//

#include "Parse/Expansion.h"
#include "Parse/Token.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

bool samePlace(const SourceRange &left, const SourceRange &right) {
  return left.file == right.file && left.beginLine == right.beginLine &&
         left.beginColumn == right.beginColumn && left.endLine == right.endLine &&
         left.endColumn == right.endColumn;
}

bool isInside(const SourceRange &inner, const SourceRange &outer) {
  const bool beginsInside = inner.beginLine != outer.beginLine
                                ? inner.beginLine > outer.beginLine
                                : inner.beginColumn >= outer.beginColumn;
  const bool endsInside = inner.endLine != outer.endLine ? inner.endLine < outer.endLine
                                                         : inner.endColumn <= outer.endColumn;
  return inner.file == outer.file && beginsInside && endsInside;
}

} // namespace

unsigned Expansion::begin(const SourceFile &file, SourceFormat format) {
  ExpandedText &text = texts.emplace_back();
  text.file = &file;
  text.format = text.endFormat = text.formatAround = format;
  return 0;
}

unsigned Expansion::addCopy(CopyUse use) {
  copies.push_back(std::move(use));
  return static_cast<unsigned>(copies.size() - 1);
}

unsigned Expansion::beginCopy(unsigned copy, const SourceRange &statement, const SourceFile &file,
                              llvm::ArrayRef<SourceRange> lines, SourceFormat format,
                              SourceFormat formatAround, bool remains) {
  const unsigned index = static_cast<unsigned>(texts.size());
  const unsigned around = copies[copy].from;
  if (!remains) {
    ExpandedText::Splice splice;
    splice.place = statement;
    splice.copied = index;
    splice.isFixedForm = formatAround != SourceFormat::Free;
    texts[around].splices.push_back(std::move(splice));
  }
  // Words that are replaced together do not reach across the statement.
  pending.push_back({around, statement, /*isCopy=*/true, false});

  ExpandedText &text = texts.emplace_back();
  text.file = &file;
  text.lines = lines.vec();
  text.copy = copy;
  text.format = text.endFormat = format;
  text.formatAround = formatAround;
  return index;
}

void Expansion::removeStatement(unsigned text, const SourceRange &statement, SourceFormat format) {
  ExpandedText::Splice splice;
  splice.place = statement;
  splice.isFixedForm = format != SourceFormat::Free;
  texts[text].splices.push_back(std::move(splice));
}

void Expansion::drop(const SourceRange &place) {
  auto word = llvm::find_if(llvm::reverse(words), [&](const ExpandedWord &delivered) {
    return samePlace(delivered.place, place);
  });
  if (word != words.rend())
    words.erase(std::next(word).base());
  // A copybook that is copied again is read again only after what stands between.
  auto text = llvm::find_if(llvm::reverse(texts), [&](const ExpandedText &candidate) {
    return candidate.file->getNumber() == place.file;
  });
  if (text == texts.rend())
    return;
  ExpandedText::Splice splice;
  splice.place = place;
  splice.isFixedForm = text->endFormat != SourceFormat::Free;
  text->dropped.push_back(std::move(splice));
}

void Expansion::read(unsigned text, const Token &token) {
  if (token.is(TokenKind::EndOfFile))
    return;
  pending.push_back({text, token.place, /*isCopy=*/false, token.isInFixedForm()});
  if (token.has(Token::Continued) && token.isInFixedForm() && !token.is(TokenKind::EmbeddedText))
    texts[text].longWords.push_back({token.place, token.isWord() ? token.spelling : token.text});
}

void Expansion::deliver(const Token &token, const SourceRange &place) {
  if (token.is(TokenKind::EndOfFile)) {
    remove(pending.size());
    return;
  }
  const unsigned from = token.isFromReplacement() ? replace(token) : keep(token);
  if (keepsWords)
    words.push_back(
        {token.isWord() ? token.spelling : token.text, place, from, token.isFromReplacement()});
}

/// \p token stands in the result as it was read; what was read before it is replaced by nothing.
/// Gives its text.
unsigned Expansion::keep(const Token &token) {
  auto own = llvm::find_if(pending, [&](const Pending &read) {
    return !read.isCopy && samePlace(read.place, token.place);
  });
  if (own == pending.end())
    return spliced;
  spliced = own->text;
  remove(static_cast<std::size_t>(own - pending.begin()));
  pending.pop_front();
  return spliced;
}

/// \p token stands in the result in the place of what was read at its place. Gives the text of
/// that.
unsigned Expansion::replace(const Token &token) {
  auto replaces = [&](const Pending &read) {
    return !read.isCopy && isInside(read.place, token.place);
  };
  const llvm::StringRef word = token.isWord() ? token.spelling : token.text;
  auto first = llvm::find_if(pending, replaces);
  // Of several replacing words the first one takes what they replace.
  if (first == pending.end()) {
    if (texts[spliced].splices.empty())
      return spliced;
    std::string &text = texts[spliced].splices.back().words;
    if (token.isPrecededBySpace() && !text.empty())
      text += ' ';
    text += word;
    return spliced;
  }
  remove(static_cast<std::size_t>(first - pending.begin()));
  const unsigned from = pending.front().text;
  const std::size_t index = texts[from].splices.size();
  remove(static_cast<std::size_t>(llvm::find_if_not(pending, replaces) - pending.begin()));
  texts[from].splices[index].words = word.str();
  spliced = from;
  return from;
}

/// Takes the first \p count words that were read out of the result. Those that follow each other
/// in a text go together with what is between them.
void Expansion::remove(std::size_t count) {
  const Pending *last = nullptr;
  Pending previous;
  for (; count > 0; --count) {
    const Pending next = pending.front();
    pending.pop_front();
    if (next.isCopy) {
      last = nullptr;
      continue;
    }
    std::vector<ExpandedText::Splice> &splices = texts[next.text].splices;
    if (last && last->text == next.text) {
      splices.back().place.endLine = next.place.endLine;
      splices.back().place.endColumn = next.place.endColumn;
    } else {
      ExpandedText::Splice splice;
      splice.place = next.place;
      splice.isFixedForm = next.isFixedForm;
      splices.push_back(std::move(splice));
    }
    previous = next;
    last = &previous;
  }
}

} // namespace tarka
