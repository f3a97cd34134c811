//===- SCStmtCallDli.cpp - calls of DL/I ----------------------------------===//

#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Statement/CallCheck.h"

namespace tarka {

namespace {

/// The interfaces to DL/I that are called with the number of arguments in front of them, and the
/// registers that hold the number.
struct DliInterface {
  llvm::StringLiteral program;
  const char *countRegister;
  bool (CompileOption::*isEnabled)() const;
};

constexpr DliInterface dliInterfaces[] = {
    {"CBLTDLI", "KORVALINE-CBLTDLI-PC", &CompileOption::isOptionEnableCbltdli},
    {"AERTDLI", "KORVALINE-AERTDLI-PC", &CompileOption::isOptionEnableAertdli},
};

const DliInterface *findDliInterface(llvm::StringRef program) {
  const CompileOption &options = *CompileOption::getCompileOptionInstance();
  for (const DliInterface &dli : dliInterfaces)
    if (program.equals_insensitive(dli.program) && (options.*dli.isEnabled)())
      return &dli;
  return nullptr;
}

/// A bound reference to the register \p name of the outermost program.
DataIdentifierExpression *makeRegister(const Node &at, const char *name) {
  SourceUnit *unit = currentUnit();
  while (unit->getParent())
    unit = unit->getParent();
  auto *word = generate<QualifiedWord>(&at);
  word->addNames(generate<Word>(&at, name, ""));
  auto *identifier = generate<DataIdentifierExpression>(&at, word, nullptr, nullptr);
  identifier->setDataDescription(Scope(unit).findRegister(&internString(name)));
  return identifier;
}

} // namespace

bool isDliCall(llvm::StringRef program) {
  return findDliInterface(program) != nullptr;
}

bool prepareDliCall(SemanticChecker &checker, CallStatement &call, llvm::StringRef program,
                    const RefusedArguments &refused) {
  const DliInterface &dli = *findDliInterface(program);
  bool ok = true;
  // The interface identifies the arguments by their positions.
  for (Argument *argument : call.getArgumentListElements())
    if (argument->isOmitted() && !refused.contains(argument))
      ok = checker.report(ErrorCode::CallOmittedNotAllowed, argument);
  if (call.getArgumentListSize() != 0)
    if (Expression *first = (*call.getArgumentListBegin())->getExpr();
        first && first->getDataCategory() == DataCategory::Numeric)
      return ok;

  Node at(call);
  auto *count = generate<NumericLiteralExpression>(&at, std::to_string(call.getArgumentListSize()));
  DataIdentifierExpression *receiver = makeRegister(at, dli.countRegister);
  NodeList<IdentifierExpression> receivers{receiver};
  auto *move = generate<MoveStatement>(&at, count, &receivers, /*isCorresponding=*/false);
  move->setMoveRules(checker.getMoveRule(count, receiver));
  call.setMoveStmt(move);
  call.addArgumentFront(generate<Argument>(&at, ArgType::Reference,
                                           makeRegister(at, dli.countRegister),
                                           /*isLeftOut=*/false));
  return ok;
}

} // namespace tarka
