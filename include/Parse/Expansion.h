//===- Expansion.h - what COPY and REPLACE make of a source -----*- C++ -*-===//
//
// A record of the preprocessor's work: which texts were read, which statements
// brought them in, and which words were replaced by which. The program text can
// be printed from it as it stands after COPY and REPLACE, with its comments and
// columns.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_EXPANSION_H
#define TARKA_PARSE_EXPANSION_H

#include "AST/Node.h"
#include "Parse/ParseOptions.h"
#include "Parse/SourceFile.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"
#include <deque>
#include <string>
#include <vector>

namespace tarka {

struct Token;

/// One COPY or EXEC SQL INCLUDE that was obeyed, or whose member was looked for in vain.
struct CopyUse {
  enum class Outcome : uint8_t {
    File,     ///< a member was found
    Supplied, ///< CICS or DB2 supply it
    Map,      ///< the symbolic map of BMS macros
    Missing,  ///< there is none, or it cannot be read
  };

  /// The text-name.
  SourceRange place;
  std::string name;
  /// Empty when not given.
  std::string library;
  Outcome outcome = Outcome::Missing;
  /// The file that is copied; of a map, the file of its macros.
  std::string file;
  /// The directories that the member is looked for in, in order.
  std::vector<std::string> searched;
  /// The text that the statement stands in: an index into Expansion::getTexts().
  unsigned from = 0;
};

/// A text that was read in one place: the source itself, or what one COPY put in its place.
struct ExpandedText {
  /// Replaces a piece of the text: by words, by another text, or by nothing.
  struct Splice {
    SourceRange place;   ///< in the file of the text, the end inclusive
    std::string words;   ///< what stands there instead
    unsigned copied = 0; ///< the text that a COPY put there; 0 for none
    bool isFixedForm = false;
  };
  /// A word that was read and not replaced, on more than one line.
  struct LongWord {
    SourceRange place;
    llvm::StringRef text;
  };

  const SourceFile *file = nullptr;
  /// Of a symbolic map: where its lines come from. Else empty.
  std::vector<SourceRange> lines;
  /// The COPY that put it in, an index into Expansion::getCopies(); not of the first text.
  unsigned copy = 0;
  /// The form of the lines at the beginning, at the end, and of those around the COPY.
  SourceFormat format = SourceFormat::Fixed;
  SourceFormat endFormat = SourceFormat::Fixed;
  SourceFormat formatAround = SourceFormat::Fixed;
  /// In the order of the preprocessor's work; they do not overlap.
  std::vector<Splice> splices;
  /// Words that the parser leaves out. A splice that replaces one of them does not count.
  std::vector<Splice> dropped;
  /// The continued literals of fixed form.
  std::vector<LongWord> longWords;
};

/// One word of the program as the parser reads it.
struct ExpandedWord {
  /// As written; of a continued word or literal its pieces put together.
  llvm::StringRef text;
  /// Where it stands, or where the text stood that it replaces.
  SourceRange place;
  /// The text that it comes from: an index into Expansion::getTexts().
  unsigned from = 0;
  bool isReplacement = false;
};

/// Filled by parseProgram().
class Expansion {
public:
  /// The words are kept only when asked for.
  explicit Expansion(bool withWords = false) : keepsWords(withWords) {}

  /// The first one is the source itself.
  llvm::ArrayRef<ExpandedText> getTexts() const { return texts; }
  llvm::ArrayRef<CopyUse> getCopies() const { return copies; }
  llvm::ArrayRef<ExpandedWord> getWords() const { return words; }

  // What the preprocessor reports.

  /// Begins the source; gives its text.
  unsigned begin(const SourceFile &file, SourceFormat format);
  /// A COPY in text \p use.from; gives its index.
  unsigned addCopy(CopyUse use);
  /// COPY number \p copy, which stands at \p statement, puts \p file in its place; gives its text.
  /// The statement itself remains in the result when it \p remains.
  unsigned beginCopy(unsigned copy, const SourceRange &statement, const SourceFile &file,
                     llvm::ArrayRef<SourceRange> lines, SourceFormat format,
                     SourceFormat formatAround, bool remains);
  void endCopy(unsigned text, SourceFormat format) { texts[text].endFormat = format; }
  /// \p token is read from \p text, and may be replaced.
  void read(unsigned text, const Token &token);
  /// \p token, which is not from replacement, is the first word of a REPLACE statement.
  void beginReplace(const Token &token) { keep(token); }
  /// The result does not have the statement at \p statement of \p text, whose lines are in
  /// \p format: a REPLACE that was obeyed, or a COPY of a copybook inside itself.
  void removeStatement(unsigned text, const SourceRange &statement, SourceFormat format);
  /// The parser gets \p token, reported at \p place.
  void deliver(const Token &token, const SourceRange &place);

  /// The parser passes over the word that was delivered for \p place as if it did not exist.
  void drop(const SourceRange &place);

private:
  /// What was read and neither delivered nor replaced yet: a word, or the COPY between words.
  struct Pending {
    unsigned text = 0;
    SourceRange place;
    bool isCopy = false;
    bool isFixedForm = false;
  };
  unsigned keep(const Token &token);
  unsigned replace(const Token &token);
  void remove(std::size_t count);

  bool keepsWords;
  std::vector<ExpandedText> texts;
  std::vector<CopyUse> copies;
  std::vector<ExpandedWord> words;
  std::deque<Pending> pending;
  /// The text of the splice that replacing words were added to last; it is the last one there.
  unsigned spliced = 0;
};

} // namespace tarka

#endif // TARKA_PARSE_EXPANSION_H
