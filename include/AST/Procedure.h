//===- Procedure.h - the procedure division ---------------------*- C++ -*-===//
//
// The structure above the statements: declaratives, sections, paragraphs and
// sentences, and the header of the procedure division.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_PROCEDURE_H
#define TARKA_AST_PROCEDURE_H

#include "AST/Forward.h"
#include "AST/GrowingIndex.h"
#include "AST/Names.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

class Parameter;
class UseStatement;

/// Statements up to a period.
class Sentence : public Node {
public:
  using Node::Node;

  void addStmt(Statement *statement) { statements.push_back(statement); }
  /// Takes over the statements of \p list.
  void setStmts(GivenList<Statement> list) { statements = list.take(); }

  TARKA_LIST(Statement, statements, Stmt)

private:
  NodeList<Statement> statements;
};

/// What paragraphs and sections have in common: sentences, and that they can be performed.
class ProcedureBody : public Node {
public:
  using Node::Node;

  /// The sentences of a paragraph; of a section those before its first paragraph.
  TARKA_LIST_ADD(Sentence, sentences, Sent, Sent)
  /// Appends several sentences, which takes exactly the memory that they need.
  void addSents(llvm::ArrayRef<Sentence *> list) { sentences.append(list.begin(), list.end()); }

  /// Whether a performed range ends here, so that control can return from the end.
  bool isPerformThru() const { return performThru; }
  void setIsPerformThru(bool value) { performThru = value; }
  /// The source line of the last PERFORM whose range ends here; 0 when there is none.
  int getPerformLine() const { return performLine; }
  void setPerformLine(int line) { performLine = line; }
  /// The block that the procedure starts in; null before the graph is built.
  CFGBlock *getStartBlock() const { return startBlock; }
  void setStartBlock(CFGBlock *block) { startBlock = block; }

private:
  bool performThru = false;
  int performLine = 0;
  NodeList<Sentence> sentences;
  CFGBlock *startBlock = nullptr;
};

/// A paragraph.
class Paragraph : public ProcedureBody {
public:
  Paragraph(const Node *at, Word *name) : ProcedureBody(at), paragraphName(name) {}

  Word *getParagraphName() const { return paragraphName; }

private:
  Word *paragraphName;
};

/// A section with its priority number, the sentences before its first paragraph, and its
/// paragraphs.
class Section : public Owning<Section, ProcedureBody> {
public:
  Section(const Node *at, Word *name) : Owning(at), sectionName(name) {}

  Word *getSectionName() const { return sectionName; }
  /// Null when the header has no priority number.
  NumericLiteralExpression *getPriorityNumExpr() const { return priorityNumber; }
  void setPriorityNumExpr(NumericLiteralExpression *number) { priorityNumber = number; }
  void addPara(Paragraph *paragraph) {
    paragraphs.push_back(paragraph);
    paragraphIndex[&paragraph->getParagraphName()->getWordData()].push_back(paragraph);
  }

  /// The section's paragraphs of that name, in source order.
  llvm::ArrayRef<Paragraph *> findParagraphs(const std::string &name) const;

  /// A second section \p copyName with this section's sentences and paragraphs, for use within the
  /// declaratives. \p name is this section's own name.
  Section *createCopySection(Word *name, Word *copyName);

  TARKA_LIST(Paragraph, paragraphs, Para)

private:
  NodeList<Paragraph> paragraphs;
  Word *sectionName;
  NumericLiteralExpression *priorityNumber = nullptr;
  llvm::DenseMap<const std::string *, llvm::SmallVector<Paragraph *, 1>> paragraphIndex;
};

/// One section of the DECLARATIVES with its USE statement.
class Declaratives : public Node {
public:
  /// \p use is null for a section that only belongs to the declarative before it.
  Declaratives(const Node *at, Section *procedures, UseStatement *use)
      : Node(at), section(procedures), useStmt(use) {}

  Section *getSection() const { return section; }
  UseStatement *getUseStmt() const { return useStmt; }

private:
  Section *section;
  UseStatement *useStmt;
};

/// PROCEDURE DIVISION ... RETURNING data-name.
class Returning : public Node {
public:
  /// \p item may be null.
  Returning(const Node *at, DataIdentifierExpression *item) : Node(at), returnItem(item) {}

  DataIdentifierExpression *getReturnItem() const { return returnItem; }

private:
  DataIdentifierExpression *returnItem;
};

/// A paragraph with the section around it.
struct ParagraphInSection {
  Section *section;
  Paragraph *paragraph;
};

/// The procedure division. Names of procedures are found through an index, in source order. It
/// reads new sections and declaratives at the next lookup, when their paragraphs must be complete.
class ProcedureDivision : public Owning<ProcedureDivision> {
public:
  using Owning::Owning;

  void addParameter(Parameter *parameter) { parameters.push_back(parameter); }
  void addParameterFront(Parameter *parameter) { parameters.push_front(parameter); }
  /// Null when the header has no RETURNING phrase.
  Returning *getReturning() const { return returning; }
  void setReturning(Returning *phrase) { returning = phrase; }

  void addDeclaratives(Declaratives *declarative) { declaratives.push_back(declarative); }
  /// The declaratives by kind, as the check of the division sorts them.
  void addBaseDeclaratives(Declaratives *declarative) { baseDeclaratives.push_back(declarative); }
  void addRptDeclaratives(Declaratives *declarative) { rptDeclaratives.push_back(declarative); }
  /// Sections that the checks copied into the declaratives.
  void addRenameSection(Section *section) { renameSections.push_back(section); }

  void addSent(Sentence *sentence) { sentences.push_back(sentence); }
  void addPara(Paragraph *paragraph) { paragraphs.push_back(paragraph); }
  void addSect(Section *section) { sections.push_back(section); }

  /// The sections of that name outside of the declaratives.
  llvm::ArrayRef<Section *> findSections(const std::string &name);
  /// The sections of that name within the declaratives.
  llvm::ArrayRef<Section *> findDeclarativeSections(const std::string &name);
  /// The copied sections of that name.
  llvm::ArrayRef<Section *> findRenameSections(const std::string &name);
  /// The paragraphs of that name that are in no section.
  llvm::ArrayRef<Paragraph *> findParagraphs(const std::string &name);
  /// The paragraphs of that name in the sections outside of the declaratives.
  llvm::ArrayRef<ParagraphInSection> findSectionParagraphs(const std::string &name);

  TARKA_LIST(Parameter, parameters, Parameter)
  TARKA_LIST(Declaratives, declaratives, Decl)
  TARKA_LIST(Declaratives, baseDeclaratives, BaseDecl)
  TARKA_LIST(Declaratives, rptDeclaratives, RptDecl)
  TARKA_LIST(Section, renameSections, RenameSectionList)
  TARKA_LIST(Sentence, sentences, Sent)
  TARKA_LIST(Paragraph, paragraphs, Para)
  TARKA_LIST(Section, sections, Sect)

private:
  NodeList<Parameter> parameters;
  NodeList<Declaratives> declaratives;
  NodeList<Declaratives> baseDeclaratives;
  NodeList<Declaratives> rptDeclaratives;
  NodeList<Section> renameSections;
  NodeList<Sentence> sentences;
  NodeList<Paragraph> paragraphs;
  NodeList<Section> sections;
  Returning *returning = nullptr;

  GrowingIndex<Section> sectionIndex;
  GrowingIndex<Declaratives, Section *> declarativeIndex;
  GrowingIndex<Section> renameIndex;
  GrowingIndex<Paragraph> paragraphIndex;
  GrowingIndex<Section, ParagraphInSection> sectionParagraphIndex;
};

} // namespace tarka

#endif // TARKA_AST_PROCEDURE_H
