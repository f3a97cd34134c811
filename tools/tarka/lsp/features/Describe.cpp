//===- Describe.cpp - names in words --------------------------------------===//

#include "lsp/features/Describe.h"
#include "AST/DataDescription.h"
#include "AST/FileDescription.h"
#include "AST/KindNames.h"
#include "AST/Scope.h"
#include "AST/StatementBranch.h"
#include "Print/LayoutModel.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Path.h"

namespace tarka::lsp {

namespace {

constexpr std::size_t maxPerformers = 10;
constexpr std::size_t maxConditions = 20;

std::string count(std::int64_t number, llvm::StringRef what) {
  return std::to_string(number) + " " + what.str() + (number == 1 ? "" : "s");
}

const DataDescription *entryOf(const Symbol &symbol) {
  const bool isData = symbol.kind == SymbolKind::Item || symbol.kind == SymbolKind::ConditionName ||
                      symbol.kind == SymbolKind::SpecialRegister;
  return isData ? static_cast<const DataDescription *>(symbol.node) : nullptr;
}

std::string valuesOf(const DataDescription &entry) {
  std::string text;
  if (ClauseValue *value = entry.getValue())
    for (PhraseValue *phrase : value->getPhraseValElements()) {
      text += (text.empty() ? "" : " ") + valueText(phrase->getLiteral1(), phrase->getWord1());
      if (phrase->getLiteral2() || phrase->getWord2())
        text += " THRU " + valueText(phrase->getLiteral2(), phrase->getWord2());
    }
  return text;
}

/// The name with REDEFINES, PICTURE and USAGE.
std::string nameAndPicture(const DataDescription &entry) {
  std::string text = entryName(entry).str();
  if (const DataDescription *object = entry.getRedefineObject())
    text += " REDEFINES " + entryName(*object).str();
  if (const std::string picture = pictureOf(entry); !picture.empty())
    text += " " + picture;
  return text;
}

/// The entry as it is declared, without what the layout of the source adds.
std::string declarationOf(const DataDescription &entry) {
  std::string text = (entry.getLevelNum() < 10 ? "0" : "") + std::to_string(entry.getLevelNum()) +
                     " " + nameAndPicture(entry);
  if (ClauseOccurs *occurs = entry.getOccurs()) {
    text += " OCCURS ";
    if (occurs->isVariableTable())
      text += std::to_string(occurs->getLeastOccurrences()) + " TO ";
    text += std::to_string(occurs->getMostOccurrences()) + " TIMES";
    if (occurs->isVariableTable())
      text += " DEPENDING ON " + operandText(occurs->getOdoName());
  }
  if (const std::string values = valuesOf(entry); !values.empty())
    text += " VALUE " + values;
  return text;
}

std::string storageOf(const DataDescription &entry) {
  const DataDescription *record = entry.getRootDesc();
  std::string text = count(entry.getAllocSize(), "byte");
  if (record != &entry)
    text += " at offset " + std::to_string(entry.getOffset()) + " of " + entryName(*record).str();
  if (entry.getOccurs())
    text += ", " + count(entry.getTotalAllocSize(), "byte") + " in all";
  return text;
}

std::string describeEntry(const DataDescription &entry) {
  if (const DataDescription *variable = entry.getCondNameParent())
    return "condition-name of " + entryName(*variable).str();
  const llvm::StringRef category = nameOf(entry.getDataCategory());
  return (entry.isGroupItem() ? "group" : category.str()) + ", " + storageOf(entry);
}

/// The procedures that perform or go to \p symbol, as a list of names.
std::string performersOf(Snapshot &snapshot, SymbolId symbol) {
  const OccurrenceIndex &index = snapshot.getIndex();
  llvm::SmallVector<SymbolId> performers;
  std::size_t uses = 0;
  for (const Occurrence &occurrence : index.occurrencesOf(symbol)) {
    if (occurrence.use == Use::Declaration)
      continue;
    ++uses;
    if (std::optional<SymbolId> around = procedureAround(snapshot, occurrence.getPlace());
        around && !llvm::is_contained(performers, *around))
      performers.push_back(*around);
  }
  if (uses == 0)
    return "not named by any statement";
  std::string text = "used in " + count(static_cast<std::int64_t>(uses), "place");
  for (std::size_t number = 0; number < performers.size() && number < maxPerformers; ++number)
    text += (number == 0 ? ": " : ", ") + *index.getSymbol(performers[number]).spelling;
  return text + (performers.size() > maxPerformers ? " ..." : "");
}

} // namespace

std::vector<std::string> usingItems(const SourceUnit &unit) {
  std::vector<std::string> items;
  const ProcedureDivision *division = unit.getProcDivision();
  if (!division)
    return items;
  for (const Parameter *parameter : division->getParameterElements()) {
    const auto *item = llvm::dyn_cast_if_present<DataIdentifierExpression>(parameter->getExpr());
    const DataDescription *entry = item ? item->getDataDescription() : nullptr;
    std::string text = parameter->getType() == ParameterType::Value ? "BY VALUE " : "";
    if (entry)
      text += nameAndPicture(*entry) +
              (entry->isGroupItem() ? ", " + count(entry->getTotalAllocSize(), "byte") : "");
    else
      text += item ? operandText(item) : "?";
    items.push_back(std::move(text));
  }
  return items;
}

std::string qualifiedName(Snapshot &snapshot, SymbolId id) {
  const OccurrenceIndex &index = snapshot.getIndex();
  const Symbol &symbol = index.getSymbol(id);
  std::string text = *symbol.spelling;
  const bool isData = symbol.kind == SymbolKind::Item || symbol.kind == SymbolKind::ConditionName;
  if (!isData || !symbol.node || Scope(symbol.unit).findOnlyOwnItem(symbol.name))
    return text;
  // Of each other item that the text can mean, the groups that a further qualifier can be.
  llvm::SmallVector<const DataDescription *> others;
  for (const Symbol &other : index.getSymbols())
    if (other.name == symbol.name && other.unit == symbol.unit && other.node &&
        other.node != symbol.node &&
        (other.kind == SymbolKind::Item || other.kind == SymbolKind::ConditionName))
      others.push_back(static_cast<const DataDescription *>(other.node)->getOwner());
  const auto *entry = static_cast<const DataDescription *>(symbol.node);
  while (!others.empty() && (entry = entry->getOwner())) {
    if (entry->isFiller())
      continue;
    const std::string *qualifier = &entry->getDataName()->getWordData();
    llvm::SmallVector<const DataDescription *> alike;
    for (const DataDescription *around : others) {
      while (around && (around->isFiller() || &around->getDataName()->getWordData() != qualifier))
        around = around->getOwner();
      if (around)
        alike.push_back(around->getOwner());
    }
    others = std::move(alike);
    text += " OF " + entry->getDataName()->getDisplayName();
  }
  return text;
}

std::string pictureOf(const DataDescription &entry) {
  std::string text;
  if (const ClausePicture *picture = entry.getPicture())
    text += " PIC " + picture->getCharStringWord()->getDisplayName();
  if (const UsageType usage = entry.getUsageType();
      usage != UsageType::None && usage != UsageType::Display && entry.getLevelNum() != 88)
    text += " " + nameOf(usage).str();
  return llvm::StringRef(text).ltrim().str();
}

int symbolKindOf(const Symbol &symbol) {
  using Kind = mlir::lsp::SymbolKind;
  auto number = [](Kind kind) { return static_cast<int>(kind); };
  switch (symbol.kind) {
  case SymbolKind::Program:
    return number(Kind::Module);
  case SymbolKind::File:
    return number(Kind::File);
  case SymbolKind::Section:
    return number(Kind::Namespace);
  case SymbolKind::Paragraph:
    return number(Kind::Function);
  case SymbolKind::ConditionName:
    return number(Kind::Boolean);
  case SymbolKind::IndexName:
    return number(Kind::Number);
  case SymbolKind::Report:
    return number(Kind::Interface);
  case SymbolKind::SpecialName:
  case SymbolKind::SpecialRegister:
    return number(Kind::Constant);
  case SymbolKind::Item:
    break;
  }
  const auto *entry = static_cast<const DataDescription *>(symbol.node);
  return number(entry && entry->isGroupItem() ? Kind::Struct : Kind::Field);
}

SourceUnit *unitAt(Snapshot &snapshot, const SourcePoint &point) {
  // The last PROGRAM-ID before the place; END PROGRAM is left to those who write it.
  const OccurrenceIndex &index = snapshot.getIndex();
  SourceUnit *unit = nullptr;
  for (const Symbol &symbol : index.getSymbols())
    if (symbol.kind == SymbolKind::Program && symbol.place.file == point.file &&
        std::tuple(symbol.place.beginLine, symbol.place.beginColumn) <=
            std::tuple(point.line, point.column))
      unit = symbol.unit;
  const NodeList<SourceUnit> &units = snapshot.getProgram()->getSourceUnitListElements();
  return unit || units.empty() ? unit : units.front();
}

std::optional<ProgramSignature> signatureOf(Snapshot &snapshot, const SourcePoint &point,
                                            llvm::StringRef name) {
  const ProgramNames programs(*snapshot.getProgram());
  if (const SourceUnit *unit = programs.find(unitAt(snapshot, point), name))
    return ProgramSignature{programName(*unit).str(), usingItems(*unit), ""};
  const std::optional<llvm::json::Value> known = snapshot.askWorkspace(
      "programs", llvm::json::Object{{"name", name.trim().upper()}}, patienceWhileTyping);
  const llvm::json::Array *all = known ? known->getAsArray() : nullptr;
  const llvm::json::Object *first = all && !all->empty() ? all->front().getAsObject() : nullptr;
  if (!first)
    return std::nullopt;
  const llvm::json::Object &item = *first->getObject("item");
  ProgramSignature signature{
      item.getString("name").value_or("").str(), {}, item.getString("detail").value_or("").str()};
  for (const llvm::json::Value &one : *first->getArray("using"))
    signature.items.push_back(one.getAsString().value_or("").str());
  return signature;
}

std::optional<SymbolId> procedureAround(Snapshot &snapshot, const SourceRange &place) {
  // Procedures stand one after the other: the last one that begins before the place.
  const OccurrenceIndex &index = snapshot.getIndex();
  const llvm::ArrayRef<Occurrence> names = index.inFile(place.file);
  const auto end = llvm::partition_point(names, [&](const Occurrence &occurrence) {
    return std::tuple(occurrence.line, occurrence.column) <=
           std::tuple(place.beginLine, place.beginColumn);
  });
  for (const Occurrence &occurrence : llvm::reverse(llvm::make_range(names.begin(), end))) {
    if (occurrence.use != Use::Declaration)
      continue;
    const SymbolKind kind = index.getSymbol(occurrence.symbol).kind;
    if (kind == SymbolKind::Section || kind == SymbolKind::Paragraph)
      return occurrence.symbol;
    if (kind != SymbolKind::IndexName)
      return std::nullopt;
  }
  return std::nullopt;
}

std::string describeInLine(Snapshot &snapshot, SymbolId id) {
  const Symbol &symbol = snapshot.getIndex().getSymbol(id);
  if (const DataDescription *entry = entryOf(symbol))
    return describeEntry(*entry);
  const std::string &around = *snapshot.getIndex().getSymbol(symbol.around).spelling;
  switch (symbol.kind) {
  case SymbolKind::File:
    return "file";
  case SymbolKind::Report:
    return "report";
  case SymbolKind::Section:
    return "section";
  case SymbolKind::Paragraph:
    return symbol.around == id ? "paragraph" : "paragraph of " + around;
  case SymbolKind::Program:
    return "program";
  case SymbolKind::IndexName:
    return symbol.around == id ? "index-name" : "index of the table " + around;
  case SymbolKind::SpecialRegister:
    return "special register";
  default:
    return "name of SPECIAL-NAMES";
  }
}

std::string describeAtLength(Snapshot &snapshot, SymbolId id) {
  const Symbol &symbol = snapshot.getIndex().getSymbol(id);
  const DataDescription *entry = entryOf(symbol);
  std::string text = "```cobol\n";
  if (entry)
    text += declarationOf(*entry);
  else
    text += *symbol.spelling + (symbol.kind == SymbolKind::Section ? " SECTION" : "");
  text += "\n```\n" + describeInLine(snapshot, id);
  if (entry) {
    std::size_t shown = 0;
    for (const DataDescription *name : entry->getCondNameChildrenElements())
      if (shown++ < maxConditions)
        text += "\n- `" + declarationOf(*name) + "`";
  }
  if (symbol.kind == SymbolKind::Section || symbol.kind == SymbolKind::Paragraph)
    text += ", " + performersOf(snapshot, id);
  if (symbol.place.beginLine && !snapshot.pathOf(symbol.place.file).empty() &&
      snapshot.pathOf(symbol.place.file) != snapshot.getPath())
    text += "\n\nfrom " + llvm::sys::path::filename(snapshot.pathOf(symbol.place.file)).str();
  return text;
}

} // namespace tarka::lsp
