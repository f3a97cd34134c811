//===- Preprocessor.cpp - COPY, REPLACE and the token stream --------------===//

#include "Parse/Preprocessor.h"
#include "Parse/BmsMap.h"
#include "Parse/EmbeddedLines.h"
#include "Parse/Expansion.h"
#include "Parse/Lexer.h"
#include "Parse/Replacer.h"
#include "Parse/SuppliedText.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include <memory>
#include <vector>

namespace tarka {

/// Carries out COPY and REPLACE. Copied text is read by a lexer of its own, on top of the one that
/// met the COPY; a REPLACING belongs to the text that it was written for.
class Preprocessor {
public:
  /// Records its work in \p record, which may be null.
  Preprocessor(const SourceFile &main, SourceManager &files, FrontEndDiagnostics &sink,
               Expansion *record);

  void next(Token &token) {
    if (plainText) {
      if (plainText->next(token) ||
          (!token.is(TokenKind::EndOfFile) && !token.isOneOf(Keyword::Copy, Keyword::Replace)))
        return;
      levels.back()->pushBack(token);
    }
    makeNext(token);
  }

  void setDebuggingMode(bool on);
  void setDecimalPointIsComma(bool on);
  const ParseOptions &getOptions() const { return context.options; }
  const SourceDiagnostics &getDiagnostics() const { return diagnostics; }
  void scan(llvm::StringRef text, const EmbeddedLines &places,
            llvm::SmallVectorImpl<Token> &tokens);
  void reportCutLines() { diagnostics.reportCutLines(); }
  OpenConstructs &getOpenConstructs() { return diagnostics.getOpenConstructs(); }
  void skipRemark() { levels.back()->lexer.skipRemark(); }
  void skipCommentEntry() { levels.back()->lexer.skipCommentEntry(); }

private:
  /// One file that is being read.
  struct Level {
    Level(const SourceFile &file, SourceFormat format, LexerContext &context, bool isMain)
        : file(file), lexer(file, format, context, isMain) {}

    void next(Token &token) {
      if (!hasPushedBack) {
        lexer.next(token);
        return;
      }
      token = pushedBack;
      hasPushedBack = false;
    }
    void pushBack(const Token &token) {
      pushedBack = token;
      hasPushedBack = true;
    }

    const SourceFile &file;
    Lexer lexer;
    unsigned text = 0;                  ///< its number in the record of the expansion
    std::unique_ptr<Replacer> replacer; ///< of the COPY that opened it, if it has REPLACING
    Token pushedBack;
    bool hasPushedBack = false;
  };

  struct CopyStatement {
    SourceRange place; ///< of the text-name
    SourceRange whole; ///< from COPY to the period
    std::string textName;
    std::string library;
    std::vector<Replacement> replacements;
    bool isDoubtful = false; ///< not all of it could be read
    /// What was found in the place of the period; empty where the period is there.
    std::string insteadOfPeriod;
    bool isInclude = false; ///< EXEC SQL INCLUDE
  };

  void makeNext(Token &token);
  void read(Token &token);
  void readBelow(size_t level, Token &token);
  SourceRange shownPlace(const SourceRange &place) const;
  void readReplaced(size_t level, Token &token);
  void boundReplacement(const Token &token);
  void closeLevel();

  void copy(const Token &copyWord);
  bool readCopyStatement(const Token &copyWord, CopyStatement &statement);
  bool readCopyName(Token &token, std::string &name);
  void openCopybook(CopyStatement &statement);
  /// A copybook that is not read from a file: its text, and where each line of it comes from.
  struct MadeCopybook {
    const SourceFile *file = nullptr;
    std::vector<SourceRange> places;
  };
  const SourceFile *findText(const CopyStatement &statement, const SourceFile &includer,
                             llvm::ArrayRef<SourceRange> &places);
  const MadeCopybook &makeMap(const SourceFile &macros, llvm::StringRef mapset);
  std::string chainTo(const SourceFile &file) const;
  unsigned recordCopy(const CopyStatement &statement, const SourceFile *file,
                      llvm::ArrayRef<SourceRange> places);

  void replace(const Token &replaceWord);
  bool readReplacements(Token &token, llvm::StringRef statement, std::vector<Replacement> &pairs);
  bool readReplacement(Token &token, llvm::StringRef statement, Replacement &pair);
  bool readOperand(Token &token, llvm::SmallVectorImpl<Token> &tokens);
  bool readPseudoText(const Token &opening, llvm::SmallVectorImpl<Token> &tokens);
  bool makePartial(const Token &keyword, Replacement &pair);
  SourceRange skipStatement(Token token);

  /// The next token of the file on top, which COPY and REPLACE statements are read from.
  void readRaw(Token &token) { levels.back()->next(token); }
  /// Ends the text after a fault that makes reading on pointless.
  void stop(const SourceRange &place) {
    isStopped = true;
    stopPlace = place;
  }

  SourceManager &files;
  LexerContext context;
  SourceDiagnostics &diagnostics;
  Expansion *record;
  std::vector<std::unique_ptr<Level>> levels;
  unsigned replacingLevels = 0;
  unsigned copyCount = 0;
  uint64_t copiedBytes = 0;
  /// The symbolic maps that were made, by the file of the macros and the name in COPY.
  llvm::StringMap<MadeCopybook> maps;
  /// The same by the number of the file that is made.
  llvm::DenseMap<unsigned, llvm::ArrayRef<SourceRange>> placesOfMaps;
  uint64_t tokensAdded = 0;
  Replacer replacer; ///< of REPLACE
  /// The pairs in effect come last, before them those that they were added to.
  std::vector<std::vector<Replacement>> replaceStack;
  bool isStopped = false;
  SourceRange stopPlace;
  bool hasBegun = false;
  /// The lexer on top, where tokens come as it makes them, up to the next COPY or REPLACE: nothing
  /// is replaced, recorded or made of a map. Else null.
  Lexer *plainText = nullptr;
};

Preprocessor::Preprocessor(const SourceFile &main, SourceManager &files, FrontEndDiagnostics &sink,
                           Expansion *record)
    : files(files), context(files.getOptions(), sink), diagnostics(context.diagnostics),
      record(record), replacer(context, tokensAdded) {
  SourceFormat format = context.options.format;
  if (format == SourceFormat::Auto)
    format = main.getFormat(SourceFormat::Fixed);
  levels.push_back(std::make_unique<Level>(main, format, context, /*isMain=*/true));
  if (record)
    record->begin(main, format);
}

void Preprocessor::setDebuggingMode(bool on) {
  context.debuggingMode = on;
  for (const std::unique_ptr<Level> &level : levels)
    level->lexer.applySettings();
}

void Preprocessor::setDecimalPointIsComma(bool on) {
  context.decimalPointIsComma = on;
  for (const std::unique_ptr<Level> &level : levels)
    level->lexer.applySettings();
}

/// Makes the next token of any text.
void Preprocessor::makeNext(Token &token) {
  while (!isStopped) {
    if (replacer.isActive())
      replacer.next(token, [this](Token &source) { read(source); });
    else
      read(token);
    if (token.keyword != Keyword::Replace || token.isFromReplacement())
      break;
    replace(token);
  }
  // Only replacement makes text longer.
  if (tokensAdded > 0)
    boundReplacement(token);
  if (isStopped) {
    token = Token();
    token.place = stopPlace;
  } else {
    const SourceRange shown = placesOfMaps.empty() ? token.place : shownPlace(token.place);
    if (record)
      record->deliver(token, shown);
    token.place = shown;
  }
  if (!hasBegun && token.is(TokenKind::EndOfFile) && !diagnostics.hasErrors())
    diagnostics.report(DiagnosticId::NothingToCompile, token.place);
  hasBegun = true;
  const bool isPlain = !isStopped && !record && placesOfMaps.empty() && !replacer.isActive() &&
                       replacingLevels == 0 && !levels.back()->hasPushedBack;
  plainText = isPlain ? &levels.back()->lexer : nullptr;
}

/// Where text that stands at \p place comes from: for that of a symbolic map, a place in the source
/// of the map.
SourceRange Preprocessor::shownPlace(const SourceRange &place) const {
  auto map = placesOfMaps.find(place.file);
  if (map == placesOfMaps.end() || map->second.empty())
    return place;
  return map->second[std::min<size_t>(place.beginLine, map->second.size()) - 1];
}

/// Stops at \p token when replacement has run away.
void Preprocessor::boundReplacement(const Token &token) {
  const uint64_t bound = context.options.limits.replacementTokens;
  if (tokensAdded <= bound || isStopped)
    return;
  diagnostics.report(DiagnosticId::ReplacementTooLarge, shownPlace(token.place), bound);
  stop(shownPlace(token.place));
}

/// The next token of all the text, COPY carried out.
void Preprocessor::read(Token &token) {
  if (replacingLevels > 0) {
    readBelow(0, token);
    return;
  }
  for (;;) {
    readRaw(token);
    if (token.keyword == Keyword::Copy) {
      copy(token);
    } else if (token.is(TokenKind::EndOfFile) && levels.size() > 1) {
      closeLevel();
    } else {
      if (record)
        record->read(levels.back()->text, token);
      return;
    }
    if (isStopped || replacingLevels > 0) {
      readBelow(0, token);
      return;
    }
  }
}

/// The next token of the text of \p level and of what it copies.
void Preprocessor::readBelow(size_t level, Token &token) {
  for (;;) {
    if (isStopped) {
      token = Token();
      return;
    }
    if (level + 1 < levels.size()) {
      readReplaced(level + 1, token);
      if (!token.is(TokenKind::EndOfFile) || isStopped)
        return;
      closeLevel();
      continue;
    }
    levels[level]->next(token);
    if (token.keyword != Keyword::Copy) {
      if (record)
        record->read(levels[level]->text, token);
      return;
    }
    copy(token);
  }
}

/// The same after the replacement that the COPY of \p level asks for.
void Preprocessor::readReplaced(size_t level, Token &token) {
  Replacer *own = levels[level]->replacer.get();
  if (!own) {
    readBelow(level, token);
    return;
  }
  own->next(token, [this, level](Token &source) { readBelow(level, source); });
  // The result may be replaced by nothing at an outer level, and never be seen there.
  boundReplacement(token);
}

void Preprocessor::closeLevel() {
  replacingLevels -= levels.back()->replacer != nullptr;
  if (record)
    record->endCopy(levels.back()->text, levels.back()->lexer.getFormat());
  levels.pop_back();
}

//===----------------------------------------------------------------------===//
// COPY
//===----------------------------------------------------------------------===//

void Preprocessor::copy(const Token &copyWord) {
  CopyStatement statement;
  if (copyWord.is(TokenKind::EmbeddedText)) {
    // EXEC SQL INCLUDE: a period after it is one of the text around.
    statement.place = copyWord.place;
    statement.whole = levels.back()->lexer.getIncludePlace();
    statement.textName = copyWord.text.trim("\"'").str();
    statement.isInclude = true;
    if (statement.textName.empty())
      diagnostics.report(DiagnosticId::CopyNameExpected, copyWord.place, "INCLUDE", "END-EXEC");
    else
      openCopybook(statement);
    return;
  }
  statement.whole = copyWord.place;
  if (readCopyStatement(copyWord, statement))
    openCopybook(statement);
}

/// Makes \p statement end where \p part does.
static void extend(SourceRange &statement, const SourceRange &part) {
  statement.endLine = part.endLine;
  statement.endColumn = part.endColumn;
}

/// COPY text-name [OF library] [SUPPRESS] [REPLACING pairs] .
bool Preprocessor::readCopyStatement(const Token &copyWord, CopyStatement &statement) {
  Token token;
  readRaw(token);
  statement.place = token.place;
  if (!readCopyName(token, statement.textName)) {
    diagnostics.report(DiagnosticId::CopyNameExpected, copyWord.place, copyWord.text,
                       describe(token));
    skipStatement(token);
    return false;
  }
  if (token.is(Keyword::Of) || token.is(Keyword::In)) {
    llvm::StringRef preposition = token.text;
    SourceRange place = token.place;
    readRaw(token);
    if (!readCopyName(token, statement.library)) {
      diagnostics.report(DiagnosticId::CopyLibraryExpected, place, preposition, describe(token));
      skipStatement(token);
      return false;
    }
  }
  if (token.is(Keyword::Suppress)) {
    readRaw(token);
    if (token.is(Keyword::Printing))
      readRaw(token);
  }
  if (token.is(Keyword::Replacing)) {
    readRaw(token);
    if (!readReplacements(token, "REPLACING", statement.replacements)) {
      statement.isDoubtful = true;
      extend(statement.whole, skipStatement(token));
      return true;
    }
  }
  if (!token.is(TokenKind::Period)) {
    statement.insteadOfPeriod = describe(token);
    statement.isDoubtful = true;
    extend(statement.whole, statement.place);
    // Skip the rest of its line.
    while (!token.isOneOf(TokenKind::Period, TokenKind::EndOfFile) && !token.isFirstOnLine() &&
           !token.isVerb()) {
      extend(statement.whole, token.place);
      readRaw(token);
    }
    if (!token.is(TokenKind::Period)) {
      levels.back()->pushBack(token);
      return true;
    }
  }
  extend(statement.whole, token.place);
  return true;
}

/// Whether \p token can be in the name of a member, which may hold the characters # @ and $ that
/// the words of the language cannot.
static bool isPartOfMemberName(const Token &token) {
  if (token.is(TokenKind::Other))
    return token.spelling == "#" || token.spelling == "@" || token.spelling == "$";
  return token.isOneOf(TokenKind::Word, TokenKind::IntegerLiteral) && !token.is(Keyword::Replacing);
}

/// Reads the name of a copybook or library, of which \p token is the first token, and the token
/// after it. The name is a word, or a literal that holds any name.
bool Preprocessor::readCopyName(Token &token, std::string &name) {
  if (token.is(TokenKind::AlphanumericLiteral)) {
    name = token.text.trim("\"'").str();
    if (!name.empty())
      readRaw(token);
    return !name.empty();
  }
  if (token.is(Keyword::Copy))
    return false;
  while (isPartOfMemberName(token) && (name.empty() || !token.isPrecededBySpace())) {
    name += token.spelling;
    readRaw(token);
  }
  return !name.empty();
}

/// Begins to read a copybook.
void Preprocessor::openCopybook(CopyStatement &statement) {
  const ParseLimits &limits = context.options.limits;
  const Level &includer = *levels.back();
  if (levels.size() > limits.copyDepth) {
    diagnostics.report(DiagnosticId::CopyTooDeep, statement.place, limits.copyDepth);
    stop(statement.place);
    return;
  }
  if (copyCount++ == limits.copyExpansions) {
    diagnostics.report(DiagnosticId::TooManyCopies, statement.place, limits.copyExpansions);
    stop(statement.place);
    return;
  }
  llvm::ArrayRef<SourceRange> places;
  const SourceFile *file = findText(statement, includer.file, places);
  const unsigned copyNumber = record ? recordCopy(statement, file, places) : 0;
  if (!file)
    return;
  // The period may be missing because the name goes on with something else: where there is no
  // copybook of that name, that was reported.
  if (!statement.insteadOfPeriod.empty())
    diagnostics.report(DiagnosticId::CopyPeriodExpected, statement.place,
                       statement.insteadOfPeriod);
  if (llvm::any_of(levels, [&](const auto &level) { return &level->file == file; })) {
    diagnostics.report(DiagnosticId::CopyCycle, statement.place, chainTo(*file));
    if (record)
      record->removeStatement(includer.text, statement.whole, includer.lexer.getFormat());
    return;
  }
  copiedBytes += file->getText().size();
  if (copiedBytes > uint64_t(limits.copiedMegabytes) << 20) {
    diagnostics.report(DiagnosticId::CopiedTextTooLarge, statement.place, limits.copiedMegabytes);
    stop(statement.place);
    return;
  }
  // Copied text is laid out like the text that copies it, unless its lines show something else.
  SourceFormat format = includer.lexer.getFormat();
  if (!places.empty())
    format = SourceFormat::Free;
  else if (context.options.format == SourceFormat::Auto)
    format = file->getFormat(format);
  // The text of a map has the places of its macros.
  const unsigned shown = places.empty() ? file->getNumber() : places.front().file;
  diagnostics.noteCopy(shown, statement.place);
  if (statement.isDoubtful)
    diagnostics.markDamaged(shown);
  const SourceFormat formatAround = includer.lexer.getFormat();
  levels.push_back(std::make_unique<Level>(*file, format, context, /*isMain=*/false));
  if (!places.empty())
    placesOfMaps[file->getNumber()] = places;
  if (record)
    levels.back()->text =
        record->beginCopy(copyNumber, statement.whole, *file, places, format, formatAround,
                          /*remains=*/statement.isDoubtful);
  if (!statement.replacements.empty()) {
    levels.back()->replacer = std::make_unique<Replacer>(context, tokensAdded);
    levels.back()->replacer->setReplacements(std::move(statement.replacements));
    ++replacingLevels;
  }
}

/// Notes that \p statement copies \p file, whose lines come from \p places if it is a symbolic map;
/// null where there is none. Gives the number of the COPY in the record.
unsigned Preprocessor::recordCopy(const CopyStatement &statement, const SourceFile *file,
                                  llvm::ArrayRef<SourceRange> places) {
  CopyUse use;
  use.place = statement.place;
  use.name = statement.textName;
  use.library = statement.library;
  use.from = levels.back()->text;
  use.searched = files.searchDirectories(statement.library, levels.back()->file);
  if (file) {
    const bool isMap = !places.empty();
    use.file = isMap ? fileNameOf(places.front().file) : file->getName().str();
    use.outcome = isMap                                 ? CopyUse::Outcome::Map
                  : isSuppliedFileName(file->getName()) ? CopyUse::Outcome::Supplied
                                                        : CopyUse::Outcome::File;
  }
  return record->addCopy(std::move(use));
}

/// The text that \p statement copies: a copybook, one that CICS or DB2 supply, or the symbolic map
/// of a mapset, whose lines come from \p places. Null, after a message, when there is none.
const SourceFile *Preprocessor::findText(const CopyStatement &statement, const SourceFile &includer,
                                         llvm::ArrayRef<SourceRange> &places) {
  const SuppliedCopybook *supplied = findSuppliedCopybook(statement.textName);
  // To INCLUDE SQLCA or SQLDA is to ask the precompiler for it, whatever members there are.
  bool isPrecompilers = supplied && supplied->option == SupplyOption::Sql && statement.isInclude;
  if (isPrecompilers && supplied->isWanted(context.options))
    return &files.addText(supplied->getFileName(), supplied->text);
  llvm::ErrorOr<const SourceFile *> file =
      files.findCopybook(statement.textName, statement.library, includer);
  if (file)
    return *file;
  std::string shown = statement.textName;
  if (!statement.library.empty())
    shown += " of " + statement.library;
  if (file.getError() != std::errc::no_such_file_or_directory) {
    diagnostics.report(DiagnosticId::CopybookUnreadable, statement.place, shown,
                       file.getError().message());
    return nullptr;
  }
  if (supplied) {
    if (supplied->isWanted(context.options))
      return &files.addText(supplied->getFileName(), supplied->text);
    diagnostics.report(DiagnosticId::SuppliedCopybookNotFound, statement.place, statement.textName,
                       supplied->getOptionText());
    return nullptr;
  }
  llvm::ErrorOr<const SourceFile *> macros =
      files.findMapset(statement.textName, statement.library, includer);
  if (macros && context.options.cics) {
    const MadeCopybook &map = makeMap(**macros, statement.textName);
    if (!map.file)
      diagnostics.report(DiagnosticId::BmsNoMapset, statement.place, (*macros)->getName());
    places = map.places;
    return map.file;
  }
  if (macros)
    diagnostics.report(DiagnosticId::SuppliedCopybookNotFound, statement.place, statement.textName,
                       "--cics");
  else
    diagnostics.report(DiagnosticId::CopybookNotFound, statement.place, shown,
                       files.describeSearch(statement.library, includer));
  return nullptr;
}

/// The symbolic map of \p mapset, made of the macros in \p macros the first time; without a file
/// where they make none.
const Preprocessor::MadeCopybook &Preprocessor::makeMap(const SourceFile &macros,
                                                        llvm::StringRef mapset) {
  std::string name = ("<map>/" + macros.getName() + "/" + mapset).str();
  auto [entry, isNew] = maps.try_emplace(name);
  MadeCopybook &made = entry->second;
  if (!isNew || reportFault(macros, context))
    return made;
  SymbolicMap map = makeSymbolicMap(macros, mapset, context.words, diagnostics);
  made.places = std::move(map.places);
  if (map.isThere)
    made.file = &files.addText(name, map.text);
  return made;
}

/// How \p file, which is being read already, came to be copied again.
std::string Preprocessor::chainTo(const SourceFile &file) const {
  std::string chain;
  bool isInside = false;
  for (const std::unique_ptr<Level> &level : levels) {
    isInside |= &level->file == &file;
    if (isInside)
      chain += level->file.getName().str() + " -> ";
  }
  return chain + file.getName().str();
}

//===----------------------------------------------------------------------===//
// REPLACE, and the pairs of REPLACING
//===----------------------------------------------------------------------===//

/// REPLACE [ALSO] pairs . and REPLACE [LAST] OFF .
///
/// With ALSO the pairs go before those in effect, which LAST OFF brings back.
void Preprocessor::replace(const Token &replaceWord) {
  std::vector<Replacement> pairs;
  Token token;
  SourceRange statement = replaceWord.place;
  if (record)
    record->beginReplace(replaceWord);
  readRaw(token);
  bool isAlso = token.is(Keyword::Also), isLast = token.is(Keyword::Last);
  if (isAlso || isLast)
    readRaw(token);
  if (token.is(Keyword::Off) && !isAlso) {
    readRaw(token);
    if (isLast && !replaceStack.empty())
      replaceStack.pop_back();
    else
      replaceStack.clear();
  } else if (!isLast && readReplacements(token, "REPLACE", pairs)) {
    if (isAlso && !replaceStack.empty())
      llvm::append_range(pairs, replaceStack.back());
    if (!isAlso)
      replaceStack.clear();
    replaceStack.push_back(std::move(pairs));
  } else {
    if (isLast)
      diagnostics.report(DiagnosticId::Expected, token.place, "OFF", describe(token));
    skipStatement(token);
    return;
  }
  replacer.setReplacements(replaceStack.empty() ? std::vector<Replacement>() : replaceStack.back());
  if (!token.is(TokenKind::Period)) {
    diagnostics.report(DiagnosticId::ReplacePeriodExpected, replaceWord.place, describe(token));
    levels.back()->pushBack(token);
    return;
  }
  extend(statement, token.place);
  if (record)
    record->removeStatement(levels.back()->text, statement, levels.back()->lexer.getFormat());
}

/// Reads pairs from \p token on, up to what belongs to no pair, which is then \p token.
bool Preprocessor::readReplacements(Token &token, llvm::StringRef statement,
                                    std::vector<Replacement> &pairs) {
  do {
    Replacement pair;
    if (!readReplacement(token, statement, pair))
      return false;
    pairs.push_back(std::move(pair));
  } while (!token.isOneOf(TokenKind::Period, TokenKind::EndOfFile));
  return true;
}

/// [LEADING|TRAILING] text BY text
bool Preprocessor::readReplacement(Token &token, llvm::StringRef statement, Replacement &pair) {
  Token keyword = token;
  bool isPart = token.is(Keyword::Leading) || token.is(Keyword::Trailing);
  if (isPart)
    readRaw(token);
  Token first = token;
  bool isPseudoText = token.is(TokenKind::PseudoText);
  // Of pseudo-text without an end that has been reported.
  if (!readOperand(token, pair.from)) {
    if (!isPseudoText)
      diagnostics.report(DiagnosticId::ReplaceOperandExpected, first.place, statement,
                         describe(first));
    return false;
  }
  llvm::erase_if(pair.from, [](const Token &word) { return word.is(TokenKind::Comma); });
  if (pair.from.empty() && isPseudoText) {
    diagnostics.report(DiagnosticId::EmptyPseudoTextReplaced, first.place);
    return false;
  }
  if (!token.is(Keyword::By)) {
    diagnostics.report(DiagnosticId::ReplaceByExpected, token.place, describe(token));
    return false;
  }
  readRaw(token);
  first = token;
  isPseudoText = token.is(TokenKind::PseudoText);
  if (!readOperand(token, pair.to)) {
    if (!isPseudoText)
      diagnostics.report(DiagnosticId::ReplacementExpected, first.place, describe(first));
    return false;
  }
  return !isPart || makePartial(keyword, pair);
}

/// One side of a pair: pseudo-text, a literal, or an identifier with its qualifiers and subscripts.
/// \p token is its first token; afterwards it is the first token after it.
bool Preprocessor::readOperand(Token &token, llvm::SmallVectorImpl<Token> &tokens) {
  auto take = [&] {
    tokens.push_back(token);
    readRaw(token);
  };
  switch (token.kind) {
  case TokenKind::PseudoText:
    if (!readPseudoText(token, tokens))
      return false;
    readRaw(token);
    return true;
  case TokenKind::AlphanumericLiteral:
  case TokenKind::IntegerLiteral:
  case TokenKind::NumericLiteral:
    take();
    return true;
  case TokenKind::Plus:
  case TokenKind::Minus:
    take();
    if (!token.isNumber())
      return false;
    take();
    return true;
  case TokenKind::Word:
    if (token.is(Keyword::By))
      return false;
    take();
    break;
  default:
    return false;
  }
  while (token.is(Keyword::Of) || token.is(Keyword::In)) {
    take();
    if (!token.isWord())
      return false;
    take();
  }
  while (token.is(TokenKind::LParen)) {
    unsigned depth = 0;
    do {
      if (token.isOneOf(TokenKind::Period, TokenKind::EndOfFile))
        return false;
      depth += token.is(TokenKind::LParen);
      depth -= token.is(TokenKind::RParen);
      take();
    } while (depth > 0);
  }
  return true;
}

/// The text between == and ==, of which \p opening is the first. False, after a message, when there
/// is no closing one.
bool Preprocessor::readPseudoText(const Token &opening, llvm::SmallVectorImpl<Token> &tokens) {
  Lexer &lexer = levels.back()->lexer;
  lexer.setInPseudoText(true);
  Token token;
  for (;;) {
    lexer.next(token);
    if (token.isOneOf(TokenKind::PseudoText, TokenKind::EndOfFile))
      break;
    tokens.push_back(token);
  }
  lexer.setInPseudoText(false);
  if (token.is(TokenKind::EndOfFile))
    diagnostics.report(DiagnosticId::UnclosedPseudoText, opening.place);
  return token.is(TokenKind::PseudoText);
}

/// Makes \p pair one for parts of words: each side is one string without spaces, and only the
/// replacing side may be empty.
bool Preprocessor::makePartial(const Token &keyword, Replacement &pair) {
  auto join = [](llvm::ArrayRef<Token> tokens, std::string &text) {
    for (const Token &token : tokens) {
      if (!text.empty() && token.isPrecededBySpace())
        return false;
      text += token.spelling;
    }
    return true;
  };
  if (!join(pair.from, pair.fromPart) || !join(pair.to, pair.toPart)) {
    diagnostics.report(DiagnosticId::PartialWordOperand, keyword.place, keyword.text);
    return false;
  }
  pair.fromPart = llvm::StringRef(pair.fromPart).upper();
  // Punctuation is not part of a word: such text comes before or after words as words of its own.
  bool isOfWord =
      llvm::all_of(pair.fromPart, [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; });
  if (isOfWord)
    pair.kind =
        keyword.is(Keyword::Leading) ? Replacement::Kind::Leading : Replacement::Kind::Trailing;
  return true;
}

/// Passes over the rest of a statement that cannot be read, from \p token to its period. Gives the
/// place where it ends.
SourceRange Preprocessor::skipStatement(Token token) {
  SourceRange end = token.place;
  while (!token.isOneOf(TokenKind::Period, TokenKind::EndOfFile)) {
    // A verb or a header shows that the period was forgotten.
    if (token.isVerb() || token.isInAreaA()) {
      levels.back()->pushBack(token);
      return end;
    }
    end = token.place;
    readRaw(token);
  }
  return token.is(TokenKind::Period) ? token.place : end;
}

//===----------------------------------------------------------------------===//
// TokenStream
//===----------------------------------------------------------------------===//

TokenStream::TokenStream(const SourceFile &main, SourceManager &files,
                         FrontEndDiagnostics &diagnostics, Expansion *record)
    : source(std::make_unique<Preprocessor>(main, files, diagnostics, record)) {}

TokenStream::TokenStream(TokenStream &enclosing) : outer(&enclosing) {}

TokenStream::~TokenStream() = default;

void TokenStream::setTokens(llvm::ArrayRef<Token> tokens) {
  buffer.front().place = tokens.empty() ? getLastPlace() : tokens.front().place;
  takenBefore = getTaken();
  given = tokens;
  current = end = buffer.data() + 1;
}

/// Looks at one more token.
void TokenStream::addToken() {
  if (end == buffer.end())
    makeRoom();
  Token &token = *end++;
  if (source) {
    source->next(token);
  } else if (!given.empty()) {
    token = given.front();
    given = given.drop_front();
  } else {
    token = Token();
    token.place = getLastPlace();
  }
}

/// Looks at tokens until there are \p wanted of them.
void TokenStream::fill(unsigned wanted) {
  while (end < current + wanted)
    addToken();
}

/// Moves the tokens to the front of the buffer. There are lookAhead tokens before them at least, so
/// that looking at tokens writes over none that a caller still refers to.
void TokenStream::makeRoom() {
  const std::ptrdiff_t passed = current - buffer.data() - 1;
  std::copy(current - 1, end, buffer.data());
  current -= passed;
  end -= passed;
  takenBefore += passed;
}

/// Makes tokens of \p text, of which each line is scanned by itself, as the lexer does.
void Preprocessor::scan(llvm::StringRef text, const EmbeddedLines &places,
                        llvm::SmallVectorImpl<Token> &tokens) {
  Scanner scanner(context.words, /*keepsCommas=*/false);
  scanner.setDecimalPointIsComma(context.decimalPointIsComma);
  while (!text.empty()) {
    auto [line, rest] = text.split('\n');
    scanner.setText(line);
    for (Token token; scanner.scan(token); token = Token()) {
      token.place = places.rangeOf(token.spelling);
      tokens.push_back(token);
    }
    text = rest;
  }
}

void TokenStream::scanEmbedded(llvm::StringRef text, const EmbeddedLines &places,
                               llvm::SmallVectorImpl<Token> &tokens) {
  source->scan(text, places, tokens);
}

void TokenStream::correct(Keyword meant) {
  peek();
  Token &word = *current;
  word.keyword = meant;
  word.interned = &internString(textOf(meant));
  word.text = *word.interned;
}

void TokenStream::setDebuggingMode(bool on) {
  source->setDebuggingMode(on);
}

void TokenStream::setDecimalPointIsComma(bool on) {
  source->setDecimalPointIsComma(on);
}

const SourceDiagnostics &TokenStream::getSourceDiagnostics() const {
  return outer ? outer->getSourceDiagnostics() : source->getDiagnostics();
}

OpenConstructs &TokenStream::getOpenConstructs() {
  return outer ? outer->getOpenConstructs() : source->getOpenConstructs();
}

void TokenStream::reportCutLines() {
  source->reportCutLines();
}

const ParseOptions &TokenStream::getOptions() const {
  return outer ? outer->getOptions() : source->getOptions();
}

void TokenStream::skipRemark() {
  // What was looked at already may hold the end.
  for (; current != end; skip())
    if (peek().isOneOf(TokenKind::Period, TokenKind::EndOfFile))
      return;
  source->skipRemark();
}

void TokenStream::skipCommentEntry() {
  auto isHeader = [](const Token &token) {
    return token.is(TokenKind::EndOfFile) ||
           (token.isInAreaA() && (flagsOf(token.keyword) & KF_Header));
  };
  // What was looked at already is part of the entry, unless a header is among it.
  for (; current != end; skip())
    if (isHeader(peek()))
      return;
  source->skipCommentEntry();
}

} // namespace tarka
