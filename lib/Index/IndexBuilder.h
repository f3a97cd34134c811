//===- IndexBuilder.h - makes the occurrence index --------------*- C++ -*-===//

#ifndef TARKA_LIB_INDEX_INDEXBUILDER_H
#define TARKA_LIB_INDEX_INDEXBUILDER_H

#include "AST/Operands.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "Index/OccurrenceIndex.h"
#include "Parse/Expansion.h"
#include "Parse/Keywords.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include <optional>

namespace tarka {

/// Makes the index in three steps: the declarations of the tree become symbols, the roles of the
/// operands of statements are noted by their places, and every word of the text is looked up.
class IndexBuilder {
public:
  explicit IndexBuilder(OccurrenceIndex &target) : index(target), words(/*osvs=*/true) {}

  void build(Program &program, const Expansion &expansion);

private:
  /// A place where something begins, in one number.
  using Point = std::uint64_t;
  static Point pointOf(const SourceRange &place);

  // Declarations.
  void declare(SourceUnit &declaring);
  void declareItems(SourceUnit &declaring);
  void declareItem(SourceUnit &declaring, DataDescription &entry);
  void declareFiles(SourceUnit &declaring);
  void declareSpecialNames(SourceUnit &declaring);
  void declareProcedures(SourceUnit &declaring);
  void declareSection(SourceUnit &declaring, Section &section);
  void declareParagraph(SourceUnit &declaring, Paragraph &paragraph,
                        std::optional<SymbolId> around);
  std::optional<SymbolId> add(SymbolKind kind, const Word *name, const Node *node,
                              SourceUnit &declaring);
  void addSpecialName(const Word *name, const Node *clause, SourceUnit &declaring,
                      SymbolKind kind = SymbolKind::SpecialName);

  // Statements.
  void noteRoles(const NodeList<Sentence> &sentences);
  void noteRoles(Statement &statement);
  void noteOperand(Expression &operand, OperandRole role);

  // Words.
  /// A word of the text, looked up.
  struct Token {
    const ExpandedWord *word = nullptr;
    const std::string *name = nullptr; ///< in upper case; null for what is not a word
    Keyword keyword = Keyword::None;
  };
  Token tokenAt(std::size_t position);
  void readWords();
  std::size_t readWord(std::size_t position, const Token &token);
  std::size_t readBlock(std::size_t position);
  std::optional<SymbolId> takeDeclaration(const Token &token);
  bool isProcedureExpected() const;
  bool resolve(llvm::ArrayRef<Token> chain);
  bool resolveItem(llvm::ArrayRef<Token> chain);
  bool resolveProcedure(llvm::ArrayRef<Token> chain);
  bool resolveOther(const Token &token);
  void resolveProgram(const Token &token, llvm::StringRef name);
  void resolveExpression(Expression *expression, Use use);
  std::optional<SymbolId> findProcedure(const std::string *name,
                                        const std::string *sectionName) const;
  SymbolId symbolOfItem(const DataDescription &entry, const std::string *name);
  void addOccurrence(const Token &token, SymbolId symbol, Use use);
  void addOccurrence(const SourceRange &place, SymbolId symbol, Use use, bool isReplaced = false);

  OccurrenceIndex &index;
  WordTable words;
  llvm::ArrayRef<ExpandedWord> text;
  ProgramNames programs;

  /// The symbols that are declared at a point, in the order of the text; the first one that has
  /// not been reached is the next.
  struct Declared {
    llvm::SmallVector<SymbolId, 1> symbols;
    std::size_t next = 0;
  };
  llvm::DenseMap<Point, Declared> declared;
  /// What statements do with the operands that begin at a point, and what these are bound to.
  struct BoundOperand {
    OperandRole role;
    const DataDescription *item;
  };
  llvm::DenseMap<Point, BoundOperand> operands;
  using ProgramAndName = std::pair<const SourceUnit *, const std::string *>;
  llvm::DenseMap<ProgramAndName, llvm::SmallVector<SymbolId, 1>> procedures;
  llvm::DenseMap<ProgramAndName, SymbolId> specialNames;
  /// The embedded blocks by their beginning.
  llvm::DenseMap<Point, ExecStatement *> blocks;

  // Where the reading of the words is.
  SourceUnit *unit = nullptr;
  std::optional<SymbolId> section;
  bool isInProcedures = false;
  /// The keywords before the present word, the latest first.
  Keyword before = Keyword::None;
  Keyword beforeThat = Keyword::None;
};

} // namespace tarka

#endif // TARKA_LIB_INDEX_INDEXBUILDER_H
