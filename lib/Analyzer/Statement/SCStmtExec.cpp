//===- SCStmtExec.cpp - EXEC blocks ---------------------------------------===//
//
// Binds the operands of the commands of embedded languages to their entries, and
// labels to their procedures. What is wrong with them is reported by the second
// pass: see Language/EmbeddedRules.
//
//===----------------------------------------------------------------------===//

#include "AST/Embedded.h"
#include "AST/ExpressionVisitor.h"
#include "AST/Program.h"
#include "AST/Scope.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"

namespace tarka {

namespace {

/// Binds the data references in an operand. A name that is not declared stays unbound.
class Binder : public ExpressionVisitor<Binder> {
public:
  explicit Binder(Scope visible) : scope(visible) {}

  void bind(Expression *operand) {
    if (operand)
      visit(*operand);
  }

  void visitDataIdentifierExpression(DataIdentifierExpression &identifier) {
    const NodeList<Word> &words = identifier.getQualifiedWord()->getNamesElements();
    DataDescription *entry = scope.findReferenced(words);
    // Registers, and what CICS and DB2 supply, are seen in nested programs too.
    if (!entry && words.size() == 1) {
      entry = scope.findRegister(&words.front()->getWordData());
      if (entry && entry->isWritten())
        entry = nullptr;
    }
    if (entry)
      identifier.setDataDescription(entry);
    if (SubscriptModifier *subscripts = identifier.getSubscriptMod())
      for (Expression *subscript : subscripts->getSubscriptElements())
        bind(subscript);
    bind(identifier.getReferenceMod());
  }

  void visitSpecialRegisterIdentifierExpression(SpecialRegisterIdentifierExpression &special) {
    bind(special.getIdent());
    if (const auto *operand =
            llvm::dyn_cast_if_present<DataIdentifierExpression>(special.getIdent()))
      special.setDataDescription(operand->getDataDescription());
    bind(special.getReferenceMod());
  }

  void visitFunctionIdentifierExpression(FunctionIdentifierExpression &function) {
    for (Expression *argument : function.getFunctionArgListElements())
      bind(argument);
    bind(function.getReferenceMod());
  }

  /// Long chains of operators lean to the left.
  void visitArithmeticExpression(ArithmeticExpression &expression) {
    Expression *first = &expression;
    while (auto *link = llvm::dyn_cast<ArithmeticExpression>(first)) {
      bind(link->getOperand2());
      first = link->getOperand1();
    }
    bind(first);
  }

private:
  void bind(ReferenceModifier *modifier) {
    if (modifier) {
      bind(modifier->getFromExpr());
      bind(modifier->getCountExpr());
    }
  }

  Scope scope;
};

/// Binds a label to the procedure that a GO TO in \p current would mean by its name: a section, or
/// a paragraph of the section around the block before those elsewhere.
void bindLabel(EmbeddedOperand &operand, ProcedureDivision &division, const Section *current) {
  const std::string &name = operand.getWord()->getWordData();
  if (auto sections = division.findSections(name); !sections.empty())
    return operand.setSection(sections.front());
  if (auto sections = division.findDeclarativeSections(name); !sections.empty())
    return operand.setSection(sections.front());
  if (current)
    if (auto own = current->findParagraphs(name); !own.empty())
      return operand.setParagraph(own.front());
  if (auto paragraphs = division.findParagraphs(name); !paragraphs.empty())
    return operand.setParagraph(paragraphs.front());
  if (auto paragraphs = division.findSectionParagraphs(name); !paragraphs.empty())
    operand.setParagraph(paragraphs.front().paragraph);
}

} // namespace

bool SemanticChecker::semanticCheck(ExecStatement &statement) {
  EmbeddedCommand *command = statement.getCommand();
  if (!command)
    return true;
  // They are bound here and not by the check of data references.
  state->hasPlainOperands = false;
  Binder binder(currentScope());
  ProcedureDivision *division = currentUnit()->getProcDivision();
  for (EmbeddedOperand *operand : command->getOperandElements()) {
    binder.bind(operand->getValue());
    if (division && operand->getRole() == EmbeddedRole::Label && operand->getWord())
      bindLabel(*operand, *division, getOuterSection());
  }
  return true;
}

} // namespace tarka
