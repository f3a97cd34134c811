//===- SCStmtCall.cpp - CALL and CANCEL -----------------------------------===//
//
// What names a program, what may be passed to it, and whether that is what the
// program asks for, where the compilation holds it.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "AST/Usage.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/SmallPtrSet.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Names of programs
//===----------------------------------------------------------------------===//

namespace {

/// A program is named by letters, characters or digits that can be read as characters.
bool holdsProgramName(const DataIdentifierExpression &identifier) {
  const DataDescription &entry = *identifier.getDataDescription();
  if (isConditionName(entry))
    return false;
  switch (identifier.getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
    return true;
  case DataCategory::Numeric:
    return entry.getUsageType() == UsageType::Display;
  default:
    return false;
  }
}

bool isAlphanumericLiteral(const Expression &operand) {
  return llvm::isa<NonNumericLiteralExpression>(operand) &&
         operand.getDataCategory() == DataCategory::Alphanumeric;
}

/// CALL also takes a pointer to the program.
bool isCallable(const Expression &program) {
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&program)) {
    UsageType usage = identifier->getDataDescription()->getUsageType();
    bool isPointer = usage == UsageType::ProcedurePointer || usage == UsageType::FunctionPointer;
    return isPointer || holdsProgramName(*identifier);
  }
  return isAlphanumericLiteral(program);
}

/// Checks what names the program. A word that is no data item is the name itself.
bool checkProgramName(SemanticChecker &checker, CallStatement &call) {
  Expression *program = call.getProcedureName();
  auto *word = llvm::dyn_cast<DataIdentifierExpression>(program);
  if (word && !word->getSubscriptMod() && !word->getReferenceMod() &&
      word->getQualifiedWord()->getNamesSize() == 1) {
    if (!checker.semanticCheck(*word, /*silentIfUndefined=*/true)) {
      call.setProcedureName(generate<NonNumericLiteralExpression>(
          word, (*word->getQualifiedWord()->getNamesBegin())->getDisplayName()));
      return true;
    }
  } else if (!checker.semanticCheck(*program)) {
    return false;
  }
  return isCallable(*program) || checker.report(ErrorCode::CallIdentifierType, program);
}

} // namespace

//===----------------------------------------------------------------------===//
// Arguments
//===----------------------------------------------------------------------===//

namespace {

/// Holds one argument against the rules of the way in which it is passed.
class ArgumentCheck {
public:
  ArgumentCheck(SemanticChecker &checkerOfAll, Argument &argumentOfCall)
      : checker(checkerOfAll), argument(argumentOfCall), operand(argumentOfCall.getExpr()) {}

  bool check();

private:
  bool report(ErrorCode code) { return checker.report(code, operand); }
  bool byReference();
  bool byContent();
  bool byValue();
  bool literalByContent();
  bool literalByValue();
  bool itemByValue(const DataIdentifierExpression &item);
  bool checkAddress();

  /// ADDRESS OF and LENGTH OF; None for operands that are no register.
  SpecialRegisterType registerType() const {
    auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(operand);
    return specialRegister ? specialRegister->getType() : SpecialRegisterType::None;
  }
  /// The entry whose address is passed.
  const DataDescription &addressedEntry() const {
    return *llvm::cast<SpecialRegisterIdentifierExpression>(operand)->getDataDescription();
  }

  SemanticChecker &checker;
  Argument &argument;
  Expression *operand;
};

bool ArgumentCheck::check() {
  if (argument.isOmitted())
    return argument.getType() != ArgType::Value ||
           checker.report(ErrorCode::CallOmittedByValue, &argument);
  if (!checker.semanticCheck(*operand))
    return false;
  if (const DataDescription *entry = entryOfDataIdentifier(*operand)) {
    if (isConditionName(*entry))
      return report(ErrorCode::CallArgumentNameInvalid);
    if (isIndexName(*entry))
      return report(ErrorCode::PointerOrIndexNotAllowed);
  }
  // A literal is no item that could be referred to: the program gets a copy of it.
  if (llvm::isa<LiteralExpression>(operand) && argument.getType() == ArgType::Reference)
    argument.setType(ArgType::Content);
  switch (argument.getType()) {
  case ArgType::Reference:
    return byReference();
  case ArgType::Content:
    return byContent();
  case ArgType::Value:
    return byValue();
  }
  return true;
}

/// Something with storage of its own: an item of any level, a file, the address of a record.
bool ArgumentCheck::byReference() {
  if (llvm::isa<FunctionIdentifierExpression>(operand))
    return report(ErrorCode::CallReferenceArgumentInvalid);
  if (auto *file = llvm::dyn_cast<FileIdentifierExpression>(operand))
    return file->getFileDescription()->getType() != FileDescType::SortMerge ||
           report(ErrorCode::CallReferenceArgumentInvalid);
  if (registerType() == SpecialRegisterType::LengthOf)
    return report(ErrorCode::CallReferenceArgumentInvalid);
  if (registerType() == SpecialRegisterType::AddressOf) {
    // The program may change the address, which only a record of the linkage section allows.
    const DataDescription &entry = addressedEntry();
    if ((entry.getLevelNum() != 1 && entry.getLevelNum() != 77) ||
        entry.getStorageType() != StorageType::Linkage)
      return report(ErrorCode::CallReferenceSpecialRegister);
  }
  return true;
}

bool ArgumentCheck::byContent() {
  if (llvm::isa<LiteralExpression>(operand))
    return literalByContent();
  if (llvm::isa<FileIdentifierExpression>(operand))
    return report(ErrorCode::CallContentArgumentInvalid);
  return checkAddress();
}

/// The figurative constants that stand for no character of their own.
bool isAllOrNull(const Expression &operand) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return isAllLiteral(operand) ||
         (constant && constant->getFigurativeType() == FigurativeType::Null);
}

/// What a numeric literal would look like in storage nothing tells.
bool ArgumentCheck::literalByContent() {
  if (llvm::isa<NumericLiteralExpression>(operand))
    return report(ErrorCode::CallLiteralArgumentKind);
  return !isAllOrNull(*operand) || report(ErrorCode::CallContentFigurativeConstant);
}

/// The address of an item that the program itself lays out. The message speaks of the linkage
/// section alone, from times when addresses of other items could not be had.
bool ArgumentCheck::checkAddress() {
  if (registerType() != SpecialRegisterType::AddressOf)
    return true;
  const DataDescription &entry = addressedEntry();
  bool isInRecord = entry.getLevelNum() != 66 && !isConditionName(entry);
  StorageType storage = entry.getStorageType();
  return (isInRecord && storage != StorageType::File && storage != StorageType::Report) ||
         report(ErrorCode::CallContentSpecialRegister);
}

/// What fits into a register of the machine.
bool ArgumentCheck::byValue() {
  if (llvm::isa<LiteralExpression>(operand))
    return literalByValue();
  if (auto *item = llvm::dyn_cast<DataIdentifierExpression>(operand))
    return itemByValue(*item);
  if (llvm::isa<SpecialRegisterIdentifierExpression>(operand))
    return checkAddress();
  return report(ErrorCode::CallValueArgumentInvalid);
}

bool ArgumentCheck::literalByValue() {
  if (llvm::isa<FigurativeLiteralExpression>(operand))
    return !isAllOrNull(*operand) || report(ErrorCode::CallValueFigurativeConstant);
  auto *characters = llvm::dyn_cast<NonNumericLiteralExpression>(operand);
  if (!characters)
    return true;
  switch (characters->getNonNumericLiteralType()) {
  case NonNumericLiteralType::Dbcs:
  case NonNumericLiteralType::NullTerminated:
    return report(ErrorCode::NonNumericLiteralNotAllowed);
  default:
    return characters->getLength() == 1 || report(ErrorCode::CallValueLiteralTooLong);
  }
}

/// The length of \p item in characters; 0 where only the running program knows.
std::int64_t lengthInCharacters(const DataIdentifierExpression &item) {
  if (const ReferenceModifier *part = item.getReferenceMod()) {
    auto *length = llvm::dyn_cast_if_present<NumericLiteralExpression>(part->getCountExpr());
    return length ? length->getIntegerValue() : 0;
  }
  std::int64_t bytes = item.getDataDescription()->getElemAllocSize();
  return item.getDataCategory() == DataCategory::National ? bytes / 2 : bytes;
}

/// A binary or floating-point number, a pointer, or a single character.
bool ArgumentCheck::itemByValue(const DataIdentifierExpression &item) {
  const DataDescription &entry = *item.getDataDescription();
  if (entry.hasSubordinateData() && !item.getReferenceMod())
    return report(ErrorCode::CallValueNotElementary);
  switch (item.getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::National:
    return lengthInCharacters(item) <= 1 || report(ErrorCode::DataItemTooLong);
  case DataCategory::Index:
    return report(ErrorCode::PointerOrIndexNotAllowed);
  case DataCategory::Pointer:
  case DataCategory::InternalFloat:
    return true;
  case DataCategory::Numeric:
    break;
  default:
    return report(ErrorCode::CallArgumentType);
  }
  return isBinary(entry.getUsageType()) || report(ErrorCode::CallArgumentType);
}

/// RETURNING names an item that the program can give a value to.
bool checkReturningItem(SemanticChecker &checker, IdentifierExpression &item) {
  if (llvm::isa<FunctionIdentifierExpression>(item))
    return checker.report(ErrorCode::FunctionInReceivingArea, &item);
  if (!checker.semanticCheck(item))
    return false;
  auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&item);
  if (specialRegister && specialRegister->getType() == SpecialRegisterType::LengthOf)
    return checker.report(ErrorCode::MoveReceiverInvalid, &item);
  const DataDescription *entry = entryOfDataIdentifier(item);
  if (entry && isConditionName(*entry))
    return checker.report(ErrorCode::MoveReceiverInvalid, &item);
  if (entry && isIndexName(*entry))
    return checker.report(ErrorCode::PointerOrIndexNotAllowed, &item);
  return true;
}

} // namespace

//===----------------------------------------------------------------------===//
// Programs of the same compilation
//===----------------------------------------------------------------------===//

namespace {

/// The arguments of a CALL that are wrong wherever they are passed.
using RefusedArguments = llvm::SmallPtrSet<const Argument *, 4>;

/// A program's name as it is looked for: without the quotes of a literal, in upper case.
const std::string *programKey(llvm::StringRef name) {
  return &internString(withoutQuotes(name).upper());
}

bool isCommon(SourceUnit &unit) {
  return unit.getIDDivision()->getProgramIDPara()->getType() == ProgramIdType::Common;
}

} // namespace

/// The program that a CALL in the current unit reaches by \p name: one that is nested in the unit,
/// a COMMON one that is nested in a unit around it, or an outermost one. Null when the program
/// stands elsewhere.
SourceUnit *SemanticChecker::findProgram(llvm::StringRef name) {
  if (state->programs.empty() && context().getCurrentProgram()) {
    llvm::SmallVector<SourceUnit *, 16> units;
    llvm::append_range(units, context().getCurrentProgram()->getSourceUnitListElements());
    for (std::size_t next = 0; next < units.size(); ++next) {
      SourceUnit *unit = units[next];
      state->programs.try_emplace({unit->getParent(), programKey(unit->getSourceUnitName())}, unit);
      llvm::append_range(units, unit->getNestedListElements());
    }
  }
  const std::string *key = programKey(name);
  SourceUnit *current = currentUnit();
  for (SourceUnit *scope = current; scope; scope = scope->getParent())
    if (SourceUnit *found = state->programs.lookup({scope, key});
        found && (scope == current || isCommon(*found)))
      return found;
  return state->programs.lookup({nullptr, key});
}

namespace {

/// Binds what a program's USING and RETURNING name, for a CALL that stands before the program.
void bindParameters(SemanticChecker &checker, SourceUnit &unit) {
  SourceUnit *caller = currentUnit();
  context().setCurrentSourceUnit(&unit);
  auto bind = [&](Expression *item) {
    auto *identifier = llvm::dyn_cast_if_present<DataIdentifierExpression>(item);
    if (!identifier || identifier->getDataDescription() || !unit.getDataDivision())
      return;
    // What is wrong with the name is for the check of the program itself to say.
    const Word &name = **identifier->getQualifiedWord()->getNamesBegin();
    auto *entries = unit.getDataDivision()->findItemByInternedName(&name.getWordData());
    if (entries && entries->size() == 1)
      checker.semanticCheck(*identifier, /*silentIfUndefined=*/true);
  };
  for (Parameter *parameter : unit.getProcDivision()->getParameterElements())
    bind(parameter->getExpr());
  if (Returning *returning = unit.getProcDivision()->getReturning())
    bind(returning->getReturnItem());
  context().setCurrentSourceUnit(caller);
}

/// True when \p operand is a record that ends before \p parameter does, so that the program would
/// reach beyond it. What lies behind a part of a record, a record of the linkage section or one
/// that shares its storage is not known.
bool isShorter(SemanticChecker &checker, const Expression &operand,
               const DataDescription &parameter) {
  const DataDescription *entry = entryOfDataIdentifier(operand);
  if (!entry || llvm::cast<DataIdentifierExpression>(operand).getReferenceMod() ||
      (entry->getLevelNum() != 1 && entry->getLevelNum() != 77) || entry->isRedefineSubject() ||
      !entry->getRedefineSubjectElements().empty())
    return false;
  StorageType storage = entry->getStorageType();
  // XML-TEXT grows with what is parsed.
  if ((storage != StorageType::WorkingStorage && storage != StorageType::LocalStorage) ||
      entry == checker.getXmlTextRegister())
    return false;
  return entry->getAllocSize() > 0 && entry->getAllocSize() < parameter.getMinAllocSize();
}

/// Names and types may differ between an argument and its parameter. What must agree is that one
/// is passed for the other, by value or not, and that the parameter finds its storage.
bool checkAgainstParameter(SemanticChecker &checker, Argument &argument, Parameter &parameter) {
  const bool isValueExpected = parameter.getType() == ParameterType::Value;
  if (argument.isOmitted())
    return !isValueExpected || checker.report(ErrorCode::CallOmittedNotAllowed, &argument);
  Expression *operand = argument.getExpr();
  const bool isValue = argument.getType() == ArgType::Value;
  // A pointer by value is what an item by reference comes down to.
  const bool isAddress = operand->getDataCategory() == DataCategory::Pointer;
  if (isValue != isValueExpected && !(isValue && isAddress))
    return checker.report(ErrorCode::CallArgumentParameterMismatch, operand);
  const DataDescription *expected = entryOfDataIdentifier(*parameter.getExpr());
  if (!isValue && expected && isShorter(checker, *operand, *expected))
    return checker.report(ErrorCode::CallArgumentParameterMismatch, operand);
  return true;
}

/// Holds a CALL against the header of the program that it reaches, whose parameters it is given.
/// Of an argument that was refused enough has been said.
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

} // namespace

//===----------------------------------------------------------------------===//
// DL/I
//===----------------------------------------------------------------------===//

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

/// A reference to a register of the outermost unit, which need not be GLOBAL.
DataIdentifierExpression *makeRegister(const Node &at, const char *name) {
  SourceUnit *unit = currentUnit();
  while (unit->getParent())
    unit = unit->getParent();
  auto *word = generate<QualifiedWord>(&at);
  word->addNames(generate<Word>(&at, name, ""));
  auto *identifier = generate<DataIdentifierExpression>(&at, word, nullptr, nullptr);
  identifier->setDataDescription(
      unit->getDataDivision()->findItemByInternedName(&internString(name))->front());
  return identifier;
}

/// Puts the number of arguments in front of them, and a MOVE in front of the CALL that sets it. A
/// program that passes the number itself has done both.
bool prepareDliCall(SemanticChecker &checker, CallStatement &call, const DliInterface &dli,
                    const RefusedArguments &refused) {
  bool ok = true;
  // The interface tells the arguments apart by their number.
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
  std::list<IdentifierExpression *> receivers{receiver};
  auto *move = generate<MoveStatement>(&at, count, &receivers, /*isCorresponding=*/false);
  move->setMoveRuleList(makeList<MoveRule>());
  move->getMoveRuleList()->push_back(checker.getMoveRule(count, receiver));
  call.setMoveStmt(move);
  call.addArgumentFront(generate<Argument>(&at, ArgType::Reference,
                                           makeRegister(at, dli.countRegister),
                                           /*isLeftOut=*/false));
  return ok;
}

} // namespace

//===----------------------------------------------------------------------===//
// CALL and CANCEL
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(CallStatement &statement) {
  bool ok = checkProgramName(*this, statement);
  RefusedArguments refused;
  for (Argument *argument : statement.getArgumentListElements())
    if (!ArgumentCheck(*this, *argument).check())
      refused.insert(argument);
  ok &= refused.empty();
  if (IdentifierExpression *item = statement.getReturn())
    ok &= checkReturningItem(*this, *item);
  if (auto *name = llvm::dyn_cast<NonNumericLiteralExpression>(statement.getProcedureName())) {
    if (const DliInterface *dli = findDliInterface(name->getData()))
      ok &= prepareDliCall(*this, statement, *dli, refused);
    else if (SourceUnit *program = findProgram(name->getData()))
      ok &= checkPrototype(*this, statement, *program, refused);
  }
  for (ExceptionHandler *handler : statement.getExceptHandlerElements())
    ok &= semanticCheck(*handler);
  return ok;
}

/// A literal or an item that names the program.
static bool checkCancelled(SemanticChecker &checker, Expression &program) {
  if (!checker.semanticCheck(program))
    return false;
  if (auto *item = llvm::dyn_cast<DataIdentifierExpression>(&program))
    return holdsProgramName(*item) || checker.report(ErrorCode::CancelIdentifierType, &program);
  if (llvm::isa<LiteralExpression>(program) && !llvm::isa<FigurativeLiteralExpression>(program))
    return isAlphanumericLiteral(program) ||
           checker.report(ErrorCode::CancelLiteralNotAlphanumeric, &program);
  return checker.report(ErrorCode::CancelOperandInvalid, &program);
}

bool SemanticChecker::semanticCheck(CancelStatement &statement) {
  bool ok = true;
  for (Expression *program : statement.getProgramListElements())
    ok &= checkCancelled(*this, *program);
  return ok;
}

} // namespace tarka
