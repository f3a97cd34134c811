//===- Diagnostic.cpp - one diagnostic, whoever found it ------------------===//

#include "Report/Diagnostic.h"
#include "NumberClasses.h"
#include "Report/Excerpt.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/Support/BLAKE3.h"

namespace tarka {

/// Whether \p text is a literal with its quotes, and perhaps letters before them, as in N"A".
static bool isQuoted(llvm::StringRef text) {
  const std::size_t begin = text.take_front(3).find_first_of("\"'");
  return begin != llvm::StringRef::npos && text.find(text[begin], begin + 1) == text.size() - 1;
}

static std::string quote(const std::string &subject, const std::string &detail) {
  return (isQuoted(subject) ? subject : "'" + subject + "'") +
         (detail.empty() ? "" : " (" + detail + ")");
}

/// A subject and another operand. Of a MOVE the subject is the receiver.
static std::string describePair(const Diagnostic &diagnostic) {
  const std::string subject = quote(diagnostic.subject, diagnostic.detail);
  const std::string other = quote(diagnostic.otherSubject, diagnostic.otherDetail);
  if (isAboutMove(diagnostic.number))
    return other + " to " + subject;
  return subject + (isAboutInitialValue(diagnostic.number) ? " for " : " and ") + other;
}

std::string Diagnostic::getMessage() const {
  std::string message = text;
  // Some texts name their subject themselves.
  if (!subject.empty() &&
      (!otherSubject.empty() || !llvm::StringRef(text).contains_insensitive("'" + subject + "'"))) {
    message = llvm::StringRef(text).rtrim(" .").str() + ": " +
              (otherSubject.empty() ? quote(subject, detail) : describePair(*this));
  }
  if (!suggestion.empty())
    message += "; was " + suggestion + " meant?";
  if (const std::size_t more = furtherPlaces.size())
    message += "; used in " + std::to_string(more) + (more == 1 ? " more place" : " more places");
  if (programCount > 1)
    message += "; in " + std::to_string(programCount) + " programs";
  return message;
}

llvm::StringRef sliceColumns(llvm::StringRef line, unsigned begin, unsigned end) {
  return line.slice(offsetOfColumn(line, begin), offsetOfColumn(line, end + 1));
}

void setFingerprints(std::vector<Diagnostic> &diagnostics) {
  llvm::StringMap<unsigned> occurrences;
  for (Diagnostic &diagnostic : diagnostics) {
    llvm::SmallVector<llvm::StringRef, 16> words;
    llvm::SplitString(diagnostic.line, words);
    const std::string key = std::to_string(diagnostic.number) + '\n' + diagnostic.program + '\n' +
                            llvm::join(words, " ");
    llvm::BLAKE3 hasher;
    hasher.update(llvm::StringRef(key));
    const auto hash = hasher.final<8>();
    diagnostic.fingerprint = llvm::toHex(hash, /*LowerCase=*/true);
    if (const unsigned before = occurrences[key]++)
      diagnostic.fingerprint += '-' + std::to_string(before + 1);
  }
}

} // namespace tarka
