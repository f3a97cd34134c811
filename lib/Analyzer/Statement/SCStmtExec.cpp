//===- SCStmtExec.cpp - EXEC blocks ---------------------------------------===//
//
// Binds the operands of the commands of embedded languages to their entries. What
// is wrong with them is for the second pass to say: see Language/EmbeddedRules.
//
//===----------------------------------------------------------------------===//

#include "AST/Embedded.h"
#include "AST/ExpressionVisitor.h"
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
    const std::list<Word *> &words = identifier.getQualifiedWord()->getNamesElements();
    DataDescription *entry = scope.findReferenced(words);
    if (!entry && words.size() == 1)
      entry = scope.findRegister(&words.front()->getWordData());
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

} // namespace

bool SemanticChecker::semanticCheck(ExecStatement &statement) {
  if (EmbeddedCommand *command = statement.getCommand()) {
    // They are bound here and not by the check of data references.
    state->hasPlainOperands = false;
    Binder binder(currentScope());
    for (EmbeddedOperand *operand : command->getOperandElements())
      binder.bind(operand->getValue());
  }
  return true;
}

} // namespace tarka
