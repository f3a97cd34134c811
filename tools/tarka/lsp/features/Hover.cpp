//===- Hover.cpp - what stands under the pointer --------------------------===//

#include "Explanations.h"
#include "Parse/Encoding.h"
#include "Report/Excerpt.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/LineWords.h"
#include "lsp/features/Meanings.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/MathExtras.h"

namespace tarka::lsp {

namespace {

bool contains(const SourceRange &place, const SourcePoint &point) {
  return place.file == point.file &&
         std::tuple(place.beginLine, place.beginColumn) <= std::tuple(point.line, point.column) &&
         std::tuple(point.line, point.column) <= std::tuple(place.endLine, place.endColumn + 1u);
}

/// The rules that the diagnostics at the place tell of.
std::string rulesAt(Snapshot &snapshot, const SourcePoint &point) {
  std::string text;
  for (const Diagnostic &diagnostic : snapshot.getDiagnostics())
    if (contains(diagnostic.place, point))
      if (const DiagnosticRow *row = findDiagnosticRow(static_cast<unsigned>(diagnostic.number)))
        if (std::optional<Explanation> explanation = explanationOf(row->name))
          text += "\n\n**" + std::to_string(diagnostic.number) + "** " + explanation->rule;
  return text;
}

/// What a copybook is for the program.
std::string describeCopy(Snapshot &snapshot, const CopyUse &use) {
  switch (use.outcome) {
  case CopyUse::Outcome::File:
    return "copybook " + snapshot.pathOf(internFileName(use.file));
  case CopyUse::Outcome::Supplied:
    return "copybook, supplied by the option that names its system";
  case CopyUse::Outcome::Map:
    return "symbolic map of " + snapshot.pathOf(internFileName(use.file));
  case CopyUse::Outcome::Missing: {
    std::string text = "copybook, not found in:";
    for (const std::string &directory : use.searched)
      text += "\n- " + directory;
    return text;
  }
  }
  llvm_unreachable("not an outcome");
}

std::string count(std::size_t number, llvm::StringRef what) {
  return std::to_string(number) + " " + what.str() + (number == 1 ? "" : "s");
}

/// Bytes as characters, with a period for what cannot be printed.
std::string printable(llvm::StringRef text) {
  std::string result;
  for (char c : text)
    result += llvm::isPrint(c) && c != '`' ? c : '.';
  return result;
}

std::string describeHexadecimal(llvm::StringRef digits) {
  std::string bytes;
  if (!llvm::tryGetFromHex(digits, bytes) || digits.size() % 2 != 0)
    return "hexadecimal literal";
  std::string text = "hexadecimal literal, " + count(bytes.size(), "byte");
  if (bytes.size() <= sizeof(std::uint64_t)) {
    std::uint64_t value = 0;
    for (unsigned char byte : bytes)
      value = value << 8 | byte;
    text += "\n- as a binary number: " + std::to_string(value);
    const unsigned bits = static_cast<unsigned>(bytes.size()) * 8;
    if (bits && value >> (bits - 1))
      text += ", signed " + std::to_string(llvm::SignExtend64(value, bits));
  }
  // The decoder ends the last line.
  const DecodedText decoded = decodeText(bytes, "IBM-1047");
  return text + "\n- in EBCDIC: `" + printable(llvm::StringRef(decoded.text).rtrim('\n')) +
         "`\n- in ASCII: `" + printable(bytes) + "`";
}

/// \p literal as it is written, with its quotation marks.
std::string describeQuoted(llvm::StringRef literal) {
  const std::size_t begin = literal.find_first_of("'\"");
  const std::string prefix = literal.take_front(begin).upper();
  const char mark = literal[begin];
  llvm::StringRef inner = literal.drop_front(begin + 1).drop_back();
  std::string content;
  for (; !inner.empty(); inner = inner.drop_front(inner[0] == mark && inner.size() > 1 ? 2 : 1))
    content += inner[0];
  if (prefix == "X")
    return describeHexadecimal(content);
  const std::size_t characters = llvm::count_if(
      content, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
  if (prefix == "NX")
    return "hexadecimal national literal, " + count(content.size() / 4, "character");
  if (prefix == "N")
    return "national literal, " + count(characters, "character") + " of two bytes";
  if (prefix == "G")
    return "DBCS literal";
  if (prefix == "Z")
    return "null-terminated literal, " + count(characters, "character") + " and a byte of X'00'";
  if (!prefix.empty())
    return "";
  std::string text = "alphanumeric literal, " + count(characters, "character");
  if (characters != content.size())
    text += ", " + count(content.size(), "byte") + " in UTF-8";
  return text;
}

std::string describeNumber(llvm::StringRef number) {
  const auto [whole, fraction] = number.split('.');
  std::string text = "numeric literal, " + count(whole.size() + fraction.size(), "digit");
  if (!fraction.empty())
    text += ", " + std::to_string(fraction.size()) + " of them after the decimal point";
  return text;
}

/// A number that begins an entry.
std::string describeLevel(llvm::StringRef number) {
  unsigned level = 0;
  if (number.getAsInteger(10, level))
    return "";
  const llvm::StringRef row = level >= 2 && level <= 49 ? "49" : level == 1 ? "01" : number;
  const std::string meaning = meaningOf(row);
  return meaning.empty() ? "" : "**" + number.str() + "**" + meaning.substr(row.size() + 4);
}

/// The literal at the place as a whole, which a continued line has only a part of.
llvm::StringRef wholeLiteral(Snapshot &snapshot, const SourcePoint &point) {
  for (const ExpandedWord &word : snapshot.getCompilation().getExpansion().getWords())
    if (!word.isReplacement && contains(word.place, point) &&
        (word.text.ends_with("'") || word.text.ends_with("\"")))
      return word.text;
  return "";
}

/// What a word of the language or a literal means. \p analysed is the point in the text that was
/// analysed, if it was there.
std::string describeWord(Snapshot &snapshot, const SourcePoint &point,
                         const std::optional<SourcePoint> &analysed) {
  const LineWord word = wordAt(snapshot, point);
  if (word.kind == LineWord::Literal || word.kind == LineWord::OpenLiteral) {
    const llvm::StringRef whole = analysed ? wholeLiteral(snapshot, *analysed) : "";
    return whole.empty() ? "" : describeQuoted(whole);
  }
  if (word.kind != LineWord::Word || word.text.empty())
    return "";
  SourcePoint begin = point;
  const llvm::StringRef line = snapshot.presentLineOf(point.file, point.line);
  begin.column = columnOfOffset(line, word.offset);
  const LineWord before = textBefore(snapshot, begin).last();
  if (word.isNumber()) {
    const bool isEntry = before.text.empty() || before.kind == LineWord::Period;
    return isEntry ? describeLevel(word.text) : describeNumber(word.text);
  }
  const std::string name = word.upper();
  const FunctionMeaning *function = functionMeaningOf(name);
  std::string meaning = meaningOf(name);
  if (function && (before.is("FUNCTION") || meaning.empty()))
    return "```cobol\nFUNCTION " + function->call() + "\n```\n" + function->meaning.str();
  return meaning;
}

} // namespace

Answer hover(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> present = snapshot.presentPointOf(parameters);
  if (!present)
    return nullptr;
  const std::optional<SourcePoint> point = snapshot.pointOf(parameters);
  std::string text;
  for (SymbolId symbol : point ? snapshot.symbolsAt(*point) : llvm::SmallVector<SymbolId, 2>()) {
    const std::string one = describeAtLength(snapshot, symbol);
    if (!llvm::StringRef(text).contains(one))
      text += (text.empty() ? "" : "\n\n") + one;
  }
  if (const CopyUse *use = text.empty() && point ? snapshot.copyAt(*point) : nullptr)
    text = describeCopy(snapshot, *use);
  if (text.empty())
    text = describeWord(snapshot, *present, point);
  if (point)
    text += rulesAt(snapshot, *point);
  if (text.empty())
    return nullptr;
  return llvm::json::Object{
      {"contents",
       llvm::json::Object{{"kind", "markdown"}, {"value", llvm::StringRef(text).ltrim().str()}}}};
}

} // namespace tarka::lsp
