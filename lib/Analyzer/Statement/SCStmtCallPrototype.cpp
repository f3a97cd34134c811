//===- SCStmtCallPrototype.cpp - calls of programs of the compilation -----===//

#include "AST/DataDescription.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SpecialRegisters.h"
#include "Analyzer/Statement/CallCheck.h"
#include <optional>

namespace tarka {

SourceUnit *findProgram(SemanticChecker &checker, llvm::StringRef name) {
  const Program *program = context().getCurrentProgram();
  if (!program)
    return nullptr;
  std::optional<ProgramNames> &names = checker.getState().programNames;
  if (!names)
    names.emplace(*program);
  return names->find(currentUnit(), name);
}

namespace {

/// Binds what a program's USING and RETURNING name, for a CALL that stands before the program.
void bindParameters(SemanticChecker &checker, SourceUnit &unit) {
  const CurrentUnitScope inUnit(&unit);
  auto bind = [&](Expression *item) {
    auto *identifier = llvm::dyn_cast_if_present<DataIdentifierExpression>(item);
    if (!identifier || identifier->getDataDescription() || !unit.getDataDivision())
      return;
    // What is wrong with the name is reported by the check of the program itself.
    const Word &name = **identifier->getQualifiedWord()->getNamesBegin();
    if (unit.getDataDivision()->findOnlyItemByInternedName(&name.getWordData()))
      checker.semanticCheck(*identifier, /*silentIfUndefined=*/true);
  };
  for (Parameter *parameter : unit.getProcDivision()->getParameterElements())
    bind(parameter->getExpr());
  if (Returning *returning = unit.getProcDivision()->getReturning())
    bind(returning->getReturnItem());
}

/// True when \p operand is a record that is shorter than \p parameter, so that the program would
/// read and write beyond it. What follows a part of a record, a record of the linkage section or
/// one that shares its storage is not known.
bool isShorter(const Expression &operand, const DataDescription &parameter) {
  const DataDescription *entry = entryOfDataIdentifier(operand);
  if (!entry || llvm::cast<DataIdentifierExpression>(operand).getReferenceMod() ||
      (entry->getLevelNum() != 1 && entry->getLevelNum() != 77) || entry->isRedefineSubject() ||
      !entry->getRedefineSubjectElements().empty())
    return false;
  StorageType storage = entry->getStorageType();
  // XML-TEXT grows with what is parsed.
  if ((storage != StorageType::WorkingStorage && storage != StorageType::LocalStorage) ||
      isXmlTextRegister(*entry))
    return false;
  return entry->getAllocSize() > 0 && entry->getAllocSize() < parameter.getMinAllocSize();
}

/// Names and types may differ between an argument and its parameter. Both must be passed by value,
/// or neither, and the argument must be as long as the parameter.
bool checkAgainstParameter(SemanticChecker &checker, Argument &argument, Parameter &parameter) {
  const bool isValueExpected = parameter.getType() == ParameterType::Value;
  if (argument.isOmitted())
    return !isValueExpected || checker.report(ErrorCode::CallOmittedNotAllowed, &argument);
  Expression *operand = argument.getExpr();
  const bool isValue = argument.getType() == ArgType::Value;
  // An item by reference is passed as a pointer by value.
  const bool isAddress = operand->getDataCategory() == DataCategory::Pointer;
  if (isValue != isValueExpected && !(isValue && isAddress))
    return checker.report(ErrorCode::CallArgumentParameterMismatch, operand);
  const DataDescription *expected = entryOfDataIdentifier(*parameter.getExpr());
  if (!isValue && expected && isShorter(*operand, *expected))
    return checker.report(ErrorCode::CallArgumentParameterMismatch, operand, *expected);
  return true;
}

} // namespace

bool checkPrototype(SemanticChecker &checker, CallStatement &call, SourceUnit &program,
                    const RefusedArguments &refused) {
  ProcedureDivision *division = program.getProcDivision();
  if (!division)
    return true;
  bindParameters(checker, program);
  // A CALL in a section that was copied into the declaratives has them already.
  if (call.getParamListSize() == 0)
    for (Parameter *parameter : division->getParameterElements())
      if (auto *item = llvm::dyn_cast_if_present<IdentifierExpression>(parameter->getExpr()))
        call.addParam(item);

  bool ok = true;
  auto parameter = division->getParameterBegin();
  for (Argument *argument : call.getArgumentListElements()) {
    if (parameter == division->getParameterEnd()) {
      ok = checker.report(ErrorCode::CallArgumentParameterMismatch, argument);
      break;
    }
    ok &= refused.contains(argument) || checkAgainstParameter(checker, *argument, **parameter);
    ++parameter;
  }
  // A program that is compiled by itself may be passed fewer arguments than it has parameters.
  if (parameter != division->getParameterEnd() && program.getParent())
    ok = checker.report(ErrorCode::CallArgumentParameterMismatch, &call);

  // What RETURNING names is described alike in both programs.
  Returning *returning = division->getReturning();
  const DataDescription *returned = returning && returning->getReturnItem()
                                        ? returning->getReturnItem()->getDataDescription()
                                        : nullptr;
  const DataDescription *result =
      call.getReturn() ? entryOfDataIdentifier(*call.getReturn()) : nullptr;
  if (returned && result && result->hasSubordinateData() && !returned->hasSubordinateData())
    ok = checker.report(ErrorCode::CallGroupNotAllowed, call.getReturn());
  return ok;
}

} // namespace tarka
