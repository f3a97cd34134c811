//===- ProgramCalls.cpp - the programs that a program calls ---------------===//

#include "lsp/features/ProgramCalls.h"
#include "AST/DataDescription.h"
#include "AST/Embedded.h"
#include "Print/LayoutModel.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Statements.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka::lsp {

namespace {

bool isChanged(const OccurrenceIndex &index, const DataDescription &item) {
  const std::optional<SymbolId> symbol = index.symbolOf(item);
  return !symbol || llvm::any_of(index.occurrencesOf(*symbol), [](const Occurrence &occurrence) {
    return occurrence.use == Use::Write || occurrence.use == Use::ReadWrite;
  });
}

/// The contents of the VALUE of an item that keeps it; null for any other item.
const LiteralExpression *constantValue(const OccurrenceIndex &index, const Expression *operand) {
  const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(operand);
  const DataDescription *item = identifier ? identifier->getDataDescription() : nullptr;
  const ClauseValue *value = item ? item->getValue() : nullptr;
  if (!value || value->getPhraseValElements().empty() || isChanged(index, *item))
    return nullptr;
  return value->getPhraseValElements().front()->getLiteral1();
}

std::string programOf(const OccurrenceIndex &index, const Expression *operand) {
  if (!operand)
    return "";
  const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(operand);
  if (!literal)
    literal = llvm::dyn_cast_if_present<NonNumericLiteralExpression>(constantValue(index, operand));
  return literal ? llvm::StringRef(literal->getData()).trim().upper() : "";
}

/// The operand of a statement that names a program; null when it has none.
const Expression *programOperand(const Statement &statement) {
  if (const auto *call = llvm::dyn_cast<CallStatement>(&statement))
    return call->getProcedureName();
  const auto *block = llvm::dyn_cast<ExecStatement>(&statement);
  const EmbeddedCommand *command = block ? block->getCommand() : nullptr;
  if (!command || command->getLanguage() != ExecType::Cics ||
      !llvm::is_contained({"LINK", "XCTL", "LOAD"}, command->getName()))
    return nullptr;
  const EmbeddedOperand *program = command->find("PROGRAM");
  return program ? program->getValue() : nullptr;
}

bool contains(const SourceRange &place, const SourcePoint &point) {
  return place.file == point.file && place.beginLine == point.line &&
         place.beginColumn <= point.column && point.column <= place.endColumn + 1u;
}

} // namespace

std::vector<ProgramCall> programCalls(Snapshot &snapshot) {
  std::vector<ProgramCall> calls;
  const OccurrenceIndex &index = snapshot.getIndex();
  forEachStatement(*snapshot.getProgram(), [&](Statement &statement) {
    const Expression *operand = programOperand(statement);
    std::string name = programOf(index, operand);
    if (name.empty() || !operand->getRange().beginLine)
      return;
    const SourceRange &place = operand->getRange();
    const bool isInSource =
        llvm::any_of(snapshot.symbolsAt({place.file, place.beginLine, place.beginColumn}),
                     [&](SymbolId id) { return index.getSymbol(id).kind == SymbolKind::Program; });
    calls.push_back({std::move(name), place, isInSource});
  });
  return calls;
}

std::optional<std::string> programNamedAt(Snapshot &snapshot, const SourcePoint &point) {
  for (SymbolId id : snapshot.symbolsAt(point))
    if (const Symbol &symbol = snapshot.getIndex().getSymbol(id);
        symbol.kind == SymbolKind::Program && symbol.unit)
      return programName(*symbol.unit).upper();
  for (const ProgramCall &call : programCalls(snapshot))
    if (contains(call.place, point))
      return call.program;
  return std::nullopt;
}

} // namespace tarka::lsp
