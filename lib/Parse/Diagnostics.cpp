//===- Diagnostics.cpp - the messages of the front end --------------------===//

#include "Parse/Diagnostics.h"
#include "AST/Spelling.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/JSON.h"

namespace tarka {

static const DiagnosticInfo table[] = {
#define FRONT_END_DIAGNOSTIC(Number, Enumerator, Level, Text)                                      \
  {DiagnosticId::Enumerator, Severity::Level, Text},
#include "Parse/Diagnostics.def"
};

static constexpr llvm::StringLiteral keywordTexts[] = {
#define KEYWORD(Enumerator, Text, Flags) Text,
#include "Parse/Keywords.def"
};

llvm::ArrayRef<DiagnosticInfo> frontEndDiagnosticTable() {
  return table;
}

const DiagnosticInfo &infoOf(DiagnosticId id) {
  // Two messages with one number would be two equal case labels, which does not compile.
  switch (id) {
#define FRONT_END_DIAGNOSTIC(Number, Enumerator, Level, Text) case DiagnosticId::Enumerator:
#include "Parse/Diagnostics.def"
    break;
  }
  const auto *info =
      llvm::find_if(table, [id](const DiagnosticInfo &entry) { return entry.id == id; });
  assert(info != std::end(table) && "a message that is not in the table");
  return *info;
}

std::string showText(llvm::StringRef text) {
  bool hasControl = llvm::any_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  if (!hasControl && llvm::json::isUTF8(text))
    return text.str();
  return "X'" + llvm::toHex(text.take_front(16)) + "'";
}

void FrontEndDiagnostics::addFix(DiagnosticId id, const SourceRange &place, TextEdit edit) {
  if (isSilent || entries.empty())
    return;
  DiagnosticEntry &last = entries.back();
  const bool isLast = last.id == id && last.place.file == place.file &&
                      last.place.beginLine == place.beginLine &&
                      last.place.beginColumn == place.beginColumn;
  if (isLast && last.fix.empty())
    last.fix.push_back(std::move(edit));
}

void FrontEndDiagnostics::addSpellingFix(DiagnosticId id, const SourceRange &place,
                                         llvm::StringRef word, llvm::StringRef meant) {
  if (!word.consume_front("'") || !word.consume_back("'"))
    return;
  const std::string upper = word.upper();
  const unsigned limit = spellingTolerance(upper);
  const unsigned distance = spellingDistance(upper, meant, limit);
  const bool isOnlyOne = llvm::none_of(keywordTexts, [&](llvm::StringRef keyword) {
    return keyword != meant && spellingDistance(upper, keyword, limit) <= distance;
  });
  if (isOnlyOne)
    addFix(id, place, {place, upper, meant.str()});
}

void FrontEndDiagnostics::add(const DiagnosticInfo &info, const SourceRange &place,
                              std::string message) {
  // Errors after a fatal error are its consequences.
  if (fatalSeen)
    return;
  entries.push_back({info.id, info.severity, place, std::move(message), {}});
  if (info.severity == Severity::Fatal)
    fatalSeen = true;
  if (isError(info.severity)) {
    ++errorCount;
    damage.add(place);
  }
  // At the limit, one last message says that more are not shown.
  if (errorCount < maxErrors)
    return;
  isSilent = true;
  const DiagnosticInfo &closing = infoOf(DiagnosticId::TooManyErrors);
  entries.push_back({closing.id, closing.severity, place, closing.text, {}});
  fatalSeen = true;
}

} // namespace tarka
