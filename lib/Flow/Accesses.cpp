//===- Accesses.cpp - what a statement reads and writes --------------------===//
//
// Operands are said by forEachOperand(). Here stands what a statement does beside
// them: the records and keys of files, status items, registers, the indexes of
// SEARCH, and what belongs to which node of a statement that has several.
//
//===----------------------------------------------------------------------===//

#include "Flow/Accesses.h"
#include "AST/Embedded.h"
#include "AST/ExpressionVisitor.h"
#include "AST/Program.h"
#include "AST/ReportDescription.h"
#include "AST/Scope.h"
#include "AST/StatementVisitor.h"
#include "AST/StorageLayout.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallPtrSet.h"
#include "llvm/ADT/StringExtras.h"
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// Bytes
//===----------------------------------------------------------------------===//

void ByteSet::add(std::int64_t begin, std::int64_t end) {
  if (begin >= end)
    return;
  auto *first = llvm::partition_point(list, [&](const Range &range) { return range.end < begin; });
  auto *last =
      std::find_if(first, list.end(), [&](const Range &range) { return range.begin > end; });
  if (first != last) {
    begin = std::min(begin, first->begin);
    end = std::max(end, std::prev(last)->end);
    first = list.erase(first, last);
  }
  list.insert(first, {begin, end});
}

bool ByteSet::overlaps(const ByteSet &other) const {
  const auto *mine = list.begin(), *theirs = other.list.begin();
  while (mine != list.end() && theirs != other.list.end()) {
    if (mine->begin < theirs->end && theirs->begin < mine->end)
      return true;
    mine->end <= theirs->end ? ++mine : ++theirs;
  }
  return false;
}

bool ByteSet::contains(const ByteSet &other) const {
  return llvm::all_of(other.list, [&](const Range &range) {
    const auto *around =
        llvm::partition_point(list, [&](const Range &own) { return own.end < range.end; });
    return around != list.end() && around->begin <= range.begin;
  });
}

namespace {

bool isIndexName(const DataDescription &entry) {
  return entry.getIsCompilerMade() && entry.getUsageType() == UsageType::Index;
}

/// The entry whose bytes are meant.
const DataDescription &storageOf(const DataDescription &entry) {
  const DataDescription *variable = entry.getCondNameParent();
  return entry.getLevelNum() == 88 && variable ? *variable : entry;
}

const DataDescription *entryOf(const Expression *operand) {
  const auto *identifier = llvm::dyn_cast_or_null<IdentifierExpression>(operand);
  return identifier ? identifier->getDataDescription() : nullptr;
}

/// The first and the last entry of a level 66; the entry itself otherwise.
std::pair<const DataDescription *, const DataDescription *> spanOf(const DataDescription &entry) {
  if (const ClauseRenames *renames = entry.getRenames()) {
    const DataDescription *from = entryOf(renames->getFromData());
    const DataDescription *to = entryOf(renames->getToData());
    if (from)
      return {from, to ? to : from};
  }
  return {&entry, &entry};
}

/// The tables that \p entry is in, the outermost first, itself included.
llvm::SmallVector<const DataDescription *, 4> tablesAround(const DataDescription &entry) {
  llvm::SmallVector<const DataDescription *, 4> tables;
  for (const DataDescription *group = &entry; group; group = group->getParent())
    if (group->getOccurs())
      tables.push_back(group);
  std::reverse(tables.begin(), tables.end());
  return tables;
}

std::optional<std::int64_t> literalOf(const Expression *operand) {
  const auto *literal = llvm::dyn_cast_or_null<NumericLiteralExpression>(operand);
  if (!literal || !literal->isInteger())
    return std::nullopt;
  return literal->getIntegerValue();
}

/// The bytes of \p entry with the occurrences that \p subscripts choose, all where it is null.
ByteSet bytesOf(const DataDescription &entry, const SubscriptModifier *subscripts) {
  ByteSet bytes;
  const auto [first, last] = spanOf(entry);
  const std::int64_t offset = first->getOffset();
  std::int64_t size = entry.getAllocSize();
  if (first != &entry)
    size = addSizes(last->getOffset(), last->getTotalAllocSize()) - offset;
  if (isIndexName(entry)) {
    bytes.add(0, std::max<std::int64_t>(size, 1));
    return bytes;
  }
  // Occurrence by occurrence, unless they follow each other without a gap or are too many.
  constexpr std::size_t most = 4096;
  llvm::SmallVector<std::int64_t> begins = {offset};
  const auto tables = tablesAround(*first);
  auto subscript = subscripts ? subscripts->getSubscriptElements().begin()
                              : NodeList<Expression>::const_iterator();
  std::size_t left = subscripts ? subscripts->getSubscriptElements().size() : 0;
  // The strides from the inside out, so that what touches is joined before it is multiplied.
  struct Step {
    std::int64_t stride, count;
  };
  llvm::SmallVector<Step, 4> steps;
  std::int64_t chosen = 0;
  for (const DataDescription *table : tables) {
    const std::int64_t stride = table->getAllocSize();
    const std::int64_t count = table->getOccurs()->getMostOccurrences();
    std::optional<std::int64_t> literal;
    if (left > 0) {
      literal = literalOf(*subscript++);
      --left;
    }
    if (literal && *literal >= 1 && *literal <= count)
      chosen = addSizes(chosen, multiplySizes(*literal - 1, stride));
    else
      steps.push_back({stride, count});
  }
  for (const Step &step : llvm::reverse(steps)) {
    const std::int64_t span = addSizes(multiplySizes(step.stride, step.count - 1), size);
    if (step.stride == size || begins.size() * static_cast<std::size_t>(step.count) > most) {
      size = span;
      continue;
    }
    const std::size_t inner = begins.size();
    for (std::int64_t occurrence = 1; occurrence < step.count; ++occurrence)
      for (std::size_t at = 0; at < inner; ++at)
        begins.push_back(addSizes(begins[at], multiplySizes(occurrence, step.stride)));
  }
  for (std::int64_t begin : begins)
    bytes.add(addSizes(begin, chosen), addSizes(addSizes(begin, chosen), size));
  return bytes;
}

const SubscriptModifier *subscriptsOf(const IdentifierExpression *operand) {
  const auto *identifier = llvm::dyn_cast_or_null<DataIdentifierExpression>(operand);
  return identifier ? identifier->getSubscriptMod() : nullptr;
}

} // namespace

ByteSet bytesOf(const DataDescription &entry) {
  return bytesOf(storageOf(entry), nullptr);
}

ByteSet Access::bytes() const {
  const DataDescription &storage = storageOf(*item);
  ByteSet whole = bytesOf(storage, subscriptsOf(operand));
  const ReferenceModifier *part = operand ? operand->getReferenceMod() : nullptr;
  if (!part || whole.ranges().size() != 1)
    return whole;
  // The position counts characters, of which each may take two bytes.
  if (storage.getUsageType() != UsageType::Display)
    return whole;
  const std::optional<std::int64_t> from = literalOf(part->getFromExpr());
  const std::optional<std::int64_t> count = literalOf(part->getCountExpr());
  const ByteSet::Range range = whole.ranges().front();
  const std::int64_t begin =
      from ? range.begin + std::max<std::int64_t>(*from - 1, 0) : range.begin;
  const std::int64_t end =
      from && count ? std::min(addSizes(begin, std::max<std::int64_t>(*count, 0)), range.end)
                    : range.end;
  ByteSet chosen;
  chosen.add(begin, end);
  return chosen.empty() ? whole : chosen;
}

bool Access::isExact() const {
  const DataDescription &storage = storageOf(*item);
  // Fewer bytes are meant while a table in the item is not at its largest.
  if (storage.checkContainsOdo())
    return false;
  const auto [first, last] = spanOf(storage);
  const SubscriptModifier *subscripts = subscriptsOf(operand);
  if (subscripts && !llvm::all_of(subscripts->getSubscriptElements(),
                                  [](const Expression *one) { return literalOf(one).has_value(); }))
    return false;
  const ReferenceModifier *part = operand ? operand->getReferenceMod() : nullptr;
  if (!part)
    return subscripts || tablesAround(*first).empty() || !operand;
  return literalOf(part->getFromExpr()) &&
         (!part->getCountExpr() || literalOf(part->getCountExpr())) &&
         storage.getUsageType() == UsageType::Display;
}

//===----------------------------------------------------------------------===//
// Areas
//===----------------------------------------------------------------------===//

StorageAreas::StorageAreas(const FlowModule &flow) {
  for (const auto &graph : flow.graphs()) {
    SourceUnit *unit = graph->getSourceUnit();
    InputOutputSection *section = unit ? unit->getInputOutputSection() : nullptr;
    if (!section || graph->isReportDeclaratives())
      continue;
    for (const ParaIOControl *entry : section->getIOControlListElements()) {
      const ClauseSame *same = entry->getSame();
      if (!same || (same->getType() != SameType::None && same->getType() != SameType::Record))
        continue;
      const FileDescription *first = nullptr;
      for (const IdentifierExpression *name : same->getFileNameListElements())
        if (const auto *file = llvm::dyn_cast<FileIdentifierExpression>(name);
            file && file->getFileDescription()) {
          if (!first)
            first = file->getFileDescription();
          else
            sharedFiles.try_emplace(file->getFileDescription(), first);
        }
    }
  }
}

const DataDescription *StorageAreas::areaOf(const DataDescription &entry) const {
  const DataDescription &storage = storageOf(entry);
  if (isIndexName(storage))
    return &storage;
  const DataDescription *root = spanOf(storage).first->getRootDesc();
  if (const DataDescription *object = root->getRedefineObject())
    root = object->getRootDesc();
  const FileDescription *file = root->getFileDescription();
  if (!file)
    return root;
  for (auto next = sharedFiles.find(file); next != sharedFiles.end(); next = sharedFiles.find(file))
    file = next->second;
  return file->getRecordDescElements().empty() ? root : file->getRecordDescElements().front();
}

//===----------------------------------------------------------------------===//
// Operands and what they are made of
//===----------------------------------------------------------------------===//

namespace {

using Visit = llvm::function_ref<void(const Access &)>;

/// Finds the items in an operand or a condition, with a list of what is still to be looked at in
/// place of recursion: expressions may be deeper than the stack.
class OperandItems : public ExpressionVisitor<OperandItems>, public ConditionVisitor<OperandItems> {
public:
  explicit OperandItems(Visit callback) : found(callback) {}

  void add(Expression *operand, OperandRole role = OperandRole::Read) {
    if (operand)
      expressions.push_back({operand, role});
    drain();
  }
  void add(Condition *condition, OperandRole role = OperandRole::Read) {
    if (condition)
      conditions.push_back({condition, role});
    drain();
  }
  void item(DataDescription *entry, OperandRole role) {
    if (entry)
      found({entry, nullptr, role, false});
  }

  void visitDataIdentifierExpression(DataIdentifierExpression &identifier) {
    if (SubscriptModifier *subscripts = identifier.getSubscriptMod())
      for (Expression *subscript : subscripts->getSubscriptElements())
        later(subscript);
    name(identifier);
  }
  void visitFunctionIdentifierExpression(FunctionIdentifierExpression &function) {
    for (Expression *argument : function.getFunctionArgListElements())
      later(argument);
    modifier(function);
  }
  void visitSpecialRegisterIdentifierExpression(SpecialRegisterIdentifierExpression &special) {
    switch (special.getType()) {
    case SpecialRegisterType::LengthOf:
      return;
    case SpecialRegisterType::AddressOf:
      // Through the address the item may be read and written anywhere.
      if (special.getIdent())
        expressions.push_back({special.getIdent(), current == OperandRole::SetAddress
                                                       ? OperandRole::SetAddress
                                                       : OperandRole::MayUpdate});
      return;
    default:
      name(special);
    }
  }
  void visitArithmeticExpression(ArithmeticExpression &expression) {
    later(expression.getOperand1());
    later(expression.getOperand2());
  }
  void visitAbbrRelationCombinedExpression(AbbrRelationCombinedExpression &objects) {
    later(objects.getLeft());
    for (AbbrRelationItem *object : objects.getRightAbbrListElements())
      later(object->getCond());
  }

  void visitConditionNameCondition(ConditionNameCondition &condition) {
    if (condition.getConditionName())
      expressions.push_back({condition.getConditionName(), current});
  }
  void visitRelationalCondition(RelationalCondition &condition) {
    later(condition.getLeft());
    later(condition.getRight());
  }
  void visitClassCondition(ClassCondition &condition) { later(condition.getLeft()); }
  void visitSignCondition(SignCondition &condition) { later(condition.getOperand()); }
  void visitNegatedCondition(NegatedCondition &condition) { later(condition.getOperand()); }
  void visitCombinedCondition(CombinedCondition &condition) {
    later(condition.getLeft());
    later(condition.getRight());
  }
  void visitAbbrRelationalCondition(AbbrRelationalCondition &condition) {
    later(condition.getRight());
  }

private:
  void later(Expression *operand) {
    if (operand)
      expressions.push_back({operand, OperandRole::Read});
  }
  void later(Condition *condition) {
    if (condition)
      conditions.push_back({condition, OperandRole::Read});
  }

  void modifier(IdentifierExpression &identifier) {
    if (ReferenceModifier *part = identifier.getReferenceMod()) {
      later(part->getFromExpr());
      later(part->getCountExpr());
    }
  }

  void name(IdentifierExpression &identifier) {
    modifier(identifier);
    DataDescription *entry = identifier.getDataDescription();
    if (!entry)
      return;
    if (current == OperandRole::Initialize)
      return initialize(*entry, identifier);
    if (current != OperandRole::Read || !isSet.contains(entry))
      found({entry, &identifier, current, false});
    lengths(*entry);
  }

  /// The length of a group with variable tables is read.
  void lengths(DataDescription &entry) {
    if (entry.getChildrenSize() == 0 || !entry.checkContainsOdo())
      return;
    llvm::SmallVector<DataDescription *> open = {&entry};
    while (!open.empty()) {
      DataDescription *group = open.pop_back_val();
      if (group->getOccurs())
        later(group->getOccurs()->getOdoName());
      for (DataDescription *child : group->getChildrenElements())
        if (child->checkContainsOdo() || child->getOccurs())
          open.push_back(child);
    }
  }

  /// INITIALIZE leaves fillers, redefinitions, indexes and pointers as they are.
  void initialize(DataDescription &entry, IdentifierExpression &identifier) {
    const bool isWhole = !identifier.getReferenceMod() && !subscriptsOf(&identifier);
    if (!entry.hasSubordinateData())
      return found(
          {&entry, &identifier, isSelective ? OperandRole::MayWrite : OperandRole::Write, false});
    llvm::SmallVector<DataDescription *> open(entry.getChildrenBegin(), entry.getChildrenEnd());
    while (!open.empty()) {
      DataDescription *child = open.pop_back_val();
      if (child->isRedefineSubject() || child->getLevelNum() == 88 || child->getLevelNum() == 66)
        continue;
      if (child->hasSubordinateData()) {
        open.append(child->getChildrenBegin(), child->getChildrenEnd());
        continue;
      }
      const DataCategory category = child->getDataCategory();
      if (category == DataCategory::Index || category == DataCategory::Pointer ||
          category == DataCategory::Unclassified || (child->isFiller() && !withFiller))
        continue;
      found({child, nullptr, isWhole && !isSelective ? OperandRole::Write : OperandRole::MayWrite,
             false});
    }
  }

  void drain() {
    while (!expressions.empty() || !conditions.empty()) {
      if (!expressions.empty()) {
        auto [operand, role] = expressions.pop_back_val();
        current = role;
        ExpressionVisitor<OperandItems>::visit(*operand);
        continue;
      }
      auto [condition, role] = conditions.pop_back_val();
      current = role;
      ConditionVisitor<OperandItems>::visit(*condition);
    }
  }

  Visit found;
  llvm::SmallVector<std::pair<Expression *, OperandRole>, 8> expressions;
  llvm::SmallVector<std::pair<Condition *, OperandRole>, 8> conditions;
  OperandRole current = OperandRole::Read;

public:
  /// What the statement itself has set before it reads it.
  llvm::SmallPtrSet<const DataDescription *, 2> isSet;
  // How the INITIALIZE statement chooses.
  bool withFiller = false, isSelective = false;
};

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

class StatementItems : public StatementVisitor<StatementItems> {
public:
  StatementItems(const FlowNode &ofNode, Visit visit) : node(ofNode), items(visit), found(visit) {}

  void visitStatement(Statement &s) { operands(s); }

  // One node of several.

  void visitPerformStatement(PerformStatement &s) {
    const bool isTest = node.getKind() == FlowNodeKind::LoopTest;
    if (node.getKind() == FlowNodeKind::Step)
      return;
    if (!isTest)
      items.add(s.getTimesInteger());
    for (PerformVarying *phrase : s.getPhraseListElements()) {
      items.add(phrase->getFromIdentifier());
      if (isTest)
        items.add(phrase->getByIdentifier());
      varied(*phrase, isTest, s.getPhraseListSize() > 1);
    }
    items.add(s.getUntilCondition());
    for (PerformVarying *phrase : s.getPhraseListElements())
      items.add(phrase->getUntilCondition());
  }
  void visitEvaluateStatement(EvaluateStatement &) {}
  void visitInnerWhenStatement(InnerWhenStatement &s) {
    if (node.getKind() == FlowNodeKind::Evaluate) {
      for (EvaluateSubject *subject : s.getSubjectListElements()) {
        items.add(subject->getExpr());
        items.add(subject->getCond());
      }
      return;
    }
    for (EvaluateWhen *when : s.getWhenListElements())
      for (EvaluateObject *object : when->getWhenObjListElements()) {
        items.add(object->getCondition());
        items.add(object->getFrontExpression());
        items.add(object->getRearExpression());
      }
  }
  void visitSearchStatement(SearchStatement &s) {
    DataDescription *table =
        s.getSearchIdentifier() ? s.getSearchIdentifier()->getDataDescription() : nullptr;
    // A serial search begins with the index as it is; a binary one sets it.
    const bool isTest = node.getKind() == FlowNodeKind::LoopTest;
    const bool isSerial = s.getType() == SearchType::Serial;
    if (!isTest && isSerial)
      return;
    items.add(s.getVaryingIdentifier(), OperandRole::MayUpdate);
    if (table && table->getOccurs() && !table->getOccurs()->getIndexListElements().empty())
      items.item(table->getOccurs()->getIndexListElements().front()->getDataDescription(),
                 isSerial || isTest ? OperandRole::MayUpdate : OperandRole::MayWrite);
    if (table && table->getOccurs())
      items.add(table->getOccurs()->getOdoName());
  }
  void visitInnerSearchWhenStatement(InnerSearchWhenStatement &s) { items.add(s.getCondition()); }
  void visitXMLParseStatement(XMLParseStatement &s) {
    if (node.getKind() == FlowNodeKind::Statement)
      operands(s);
    for (llvm::StringRef name :
         {"XML-CODE", "XML-EVENT", "XML-INFORMATION", "XML-NAMESPACE", "XML-NAMESPACE-PREFIX",
          "XML-NNAMESPACE", "XML-NNAMESPACE-PREFIX", "XML-NTEXT", "XML-TEXT"})
      specialRegister(name, OperandRole::MayUpdate);
  }

  // The ADD that counts has a node of its own, as every statement has that the checks make.
  void visitOnStatement(OnStatement &s) { items.add(s.getCondition()); }

  // Files.

  void visitOpenStatement(OpenStatement &s) {
    for (OpenItem *item : s.getItemListElements())
      for (OpenFile *file : item->getFileListElements())
        status(file->getFileName());
  }
  void visitCloseStatement(CloseStatement &s) {
    for (CloseFile *file : s.getCloseFileListElements())
      status(file->getFileName());
  }
  void visitReadStatement(ReadStatement &s) {
    items.add(s.getKeyName());
    keys(s.getFileName(), OperandRole::MayUpdate);
    records(s.getFileName(), OperandRole::MayWrite, s.getIntoIdentifier() != nullptr);
    operands(s);
    status(s.getFileName());
  }
  void visitReturnStatement(ReturnStatement &s) {
    records(s.getFileName(), OperandRole::MayWrite, s.getIntoIdentifier() != nullptr);
    operands(s);
  }
  void visitWriteStatement(WriteStatement &s) {
    operands(s);
    written(s.getRecordName(), s.getFromIdentifier() != nullptr);
  }
  void visitRewriteStatement(RewriteStatement &s) {
    operands(s);
    written(s.getRecordName(), s.getFromIdentifier() != nullptr);
  }
  void visitReleaseStatement(ReleaseStatement &s) {
    operands(s);
    written(s.getRecordName(), s.getFromIdentifier() != nullptr);
  }
  void visitDeleteStatement(DeleteStatement &s) {
    keys(s.getFileName(), OperandRole::Read);
    status(s.getFileName());
  }
  void visitStartStatement(StartStatement &s) {
    if (s.getKey())
      items.add(s.getKey()->getDataName());
    keys(s.getFileName(), OperandRole::Read);
    status(s.getFileName());
  }
  void visitSortStatement(SortStatement &s) {
    sorted(s.getFileName(), s.getInput(), s.getOutput());
  }
  void visitMergeStatement(MergeStatement &s) {
    sorted(s.getFileName(), s.getInput(), s.getOutput());
  }

  // Others.

  void visitCallStatement(CallStatement &s) {
    operands(s);
    specialRegister("RETURN-CODE", OperandRole::MayWrite);
  }
  void visitInitializeStatement(InitializeStatement &s) {
    items.withFiller = s.isFiller();
    // Without DEFAULT, only the categories of REPLACING and VALUE are set.
    bool isSelective = s.getReplacingListSize() > 0 || s.isAllToValue();
    for (unsigned category = 1; category <= unsigned(InitializeReplacingType::Dbcs); ++category)
      isSelective |= s.hasValueCategory(static_cast<InitializeReplacingType>(category));
    items.isSelective = isSelective && !s.isToDefault();
    operands(s);
  }
  void visitXMLGenerateStatement(XMLGenerateStatement &s) {
    operands(s);
    specialRegister("XML-CODE", OperandRole::Write);
  }
  void visitExecStatement(ExecStatement &s) {
    EmbeddedCommand *command = s.getCommand();
    if (!command)
      return foreignText(s.getText());
    if (auto *sql = llvm::dyn_cast<SqlCommand>(command))
      return sqlStatement(*sql);
    for (EmbeddedOperand *operand : command->getOperandElements())
      hostItem(*operand);
    if (auto *cics = llvm::dyn_cast<CicsCommand>(command)) {
      mapAreas(*cics);
      named("DFHEIBLK", OperandRole::MayWrite);
    } else {
      named("DLZDIB", OperandRole::MayWrite);
    }
  }
  void visitRwGenerateStatement(RwGenerateStatement &s) {
    if (auto *name = llvm::dyn_cast_or_null<ReportIdentifierExpression>(s.getFileName());
        name && name->getReportDescription())
      return report(*name->getReportDescription());
    const DataDescription *group =
        s.getFileName() ? s.getFileName()->getDataDescription() : nullptr;
    if (group && group->getReportDescription())
      report(*group->getReportDescription());
  }
  void visitRwTerminateStatement(RwTerminateStatement &s) {
    for (ReportIdentifierExpression *name : s.getTerminateNameListElements())
      if (name->getReportDescription())
        report(*name->getReportDescription());
  }

private:
  /// The items of an operand of an EXEC block. What a command gives is not given when it fails, but
  /// for its response.
  void hostItem(EmbeddedOperand &operand) {
    Expression *value = operand.getValue();
    if (!value || (!operand.isRead() && !operand.isWritten()))
      return;
    OperandRole role = OperandRole::Read;
    if (operand.getRole() == EmbeddedRole::ReadWritten)
      role = OperandRole::MayUpdate;
    else if (operand.isWritten())
      role = operand.getName() == "RESP" || operand.getName() == "RESP2" ? OperandRole::Write
                                                                         : OperandRole::MayWrite;
    const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(value);
    if (operand.isWritten() && special && special->getType() == SpecialRegisterType::AddressOf)
      role = OperandRole::SetAddress;
    items.add(value, role);
  }

  /// SEND MAP and RECEIVE MAP work on the areas that bear the name of the map, unless the command
  /// names another one.
  void mapAreas(const CicsCommand &command) {
    const bool isReceived = command.getName() == "RECEIVE MAP";
    if ((!isReceived && command.getName() != "SEND MAP") || command.has("FROM") ||
        command.has("INTO") || command.has("SET") || command.has("MAPONLY"))
      return;
    const EmbeddedOperand *map = command.find("MAP");
    if (const auto *literal =
            llvm::dyn_cast_or_null<NonNumericLiteralExpression>(map ? map->getValue() : nullptr))
      named(llvm::StringRef(literal->getData()).trim().upper() + (isReceived ? "I" : "O"),
            isReceived ? OperandRole::MayWrite : OperandRole::Read);
  }

  /// A declaration does nothing. The items in the query of a cursor are read when it is opened.
  void sqlStatement(SqlCommand &command) {
    if (!command.isExecutable())
      return;
    for (EmbeddedOperand *operand : command.getOperandElements())
      hostItem(*operand);
    if (command.getKind() == SqlKind::Open && command.getCursor()) {
      const ExecStatement *declaration = node.getParent()->getModule().findCursor(
          withoutQuotes(command.getCursor()->getWordData()));
      if (declaration)
        for (EmbeddedOperand *operand : declaration->getCommand()->getOperandElements())
          hostItem(*operand);
    }
    if (!named("SQLCA", OperandRole::Write)) {
      named("SQLCODE", OperandRole::Write);
      named("SQLSTATE", OperandRole::Write);
    }
  }

  /// A block in a language that is not understood may do anything to the items that it names.
  void foreignText(llvm::StringRef text) {
    auto isWordCharacter = [](char c) { return llvm::isAlnum(c) || c == '-' || c == '_'; };
    while (!(text = text.drop_until(isWordCharacter)).empty()) {
      llvm::StringRef word = text.take_while(isWordCharacter);
      named(word.upper(), OperandRole::MayUpdate);
      text = text.drop_front(word.size());
    }
  }

  /// The varied item is set before the condition is tested. The innermost one steps at each test,
  /// an outer one when those within it begin again.
  void varied(const PerformVarying &phrase, bool isTest, bool isOneOfSeveral) {
    auto *name = llvm::dyn_cast_or_null<IdentifierExpression>(phrase.getVaryingIdentifier());
    if (!name || !name->getDataDescription())
      return;
    const OperandRole role = !isTest          ? OperandRole::Write
                             : isOneOfSeveral ? OperandRole::MayUpdate
                                              : OperandRole::Update;
    items.isSet.insert(name->getDataDescription());
    found({name->getDataDescription(), name, role, /*isUsedAtOnce=*/true});
  }

  void operands(Statement &s) {
    forEachOperand(
        s, [&](Expression &operand, OperandRole role) { items.add(&operand, role); },
        [&](Condition &condition, OperandRole role) { items.add(&condition, role); });
  }
  void specialRegister(llvm::StringRef name, OperandRole role) {
    items.item(Scope(unit()).findRegister(&internString(name)), role);
  }
  /// The entries called \p name, in upper case, of which any may be meant; false without one.
  bool named(const llvm::Twine &name, OperandRole role) {
    Homonyms entries = Scope(unit()).findItems(&internString(name.str()));
    if (!entries)
      return false;
    for (DataDescription *entry : *entries.entries)
      items.item(entry, role);
    return true;
  }
  SourceUnit *unit() const { return node.getParent()->getSourceUnit(); }

  static ParaFileControl *controlOf(const FileIdentifierExpression *file) {
    return file && file->getFileDescription() ? file->getFileDescription()->getFileControl()
                                              : nullptr;
  }
  void records(const FileIdentifierExpression *file, OperandRole role, bool isUsedAtOnce = false) {
    if (file && file->getFileDescription())
      for (DataDescription *record : file->getFileDescription()->getRecordDescElements())
        found({record, nullptr, role, isUsedAtOnce});
  }
  void status(ParaFileControl *control) {
    const ClauseStatus *clause = control ? control->getStatus() : nullptr;
    if (!clause)
      return;
    items.add(clause->getStatus_1(), OperandRole::Write);
    items.add(clause->getStatus_2(), OperandRole::MayWrite);
  }
  void status(const FileIdentifierExpression *file) { status(controlOf(file)); }
  /// The keys outside of the record, which a sequential READ sets, and those within.
  void keys(ParaFileControl *control, OperandRole relative) {
    if (!control)
      return;
    if (control->getRelativeKey())
      items.add(control->getRelativeKey()->getDataName(), relative);
    if (control->getRecordKey())
      items.add(control->getRecordKey()->getDataName());
    for (ClauseAlternate *key : control->getAlternateListElements())
      items.add(key->getDataName());
  }
  void keys(const FileIdentifierExpression *file, OperandRole relative) {
    keys(controlOf(file), relative);
    const FileDescription *description = file ? file->getFileDescription() : nullptr;
    if (description && description->getRecord())
      items.add(description->getRecord()->getDependingOn(),
                relative == OperandRole::Read ? OperandRole::Read : OperandRole::MayWrite);
  }
  /// The record goes to its file, after FROM has filled it.
  void written(IdentifierExpression *record, bool isFilled) {
    DataDescription *entry = record ? record->getDataDescription() : nullptr;
    if (!entry)
      return;
    found({entry, record, isFilled ? OperandRole::Write : OperandRole::Read, isFilled});
    const FileDescription *file = entry->getFileDescription();
    if (!file)
      return;
    if (file->getRecord())
      items.add(file->getRecord()->getDependingOn());
    if (file->getFileControl()) {
      keys(file->getFileControl(), OperandRole::MayUpdate);
      status(file->getFileControl());
    }
  }
  void sorted(const FileIdentifierExpression *file, const SortIO *input, const SortIO *output) {
    records(file, OperandRole::MayUpdate);
    for (const SortIO *phrase : {input, output})
      if (phrase)
        for (const FileIdentifierExpression *name : phrase->getFileNameListElements()) {
          records(name, OperandRole::MayWrite);
          status(name);
        }
    specialRegister("SORT-RETURN", OperandRole::MayWrite);
  }

  /// What the lines of a report are made of.
  void report(const ReportDescription &described) {
    llvm::SmallVector<DataDescription *> open(described.getRecordListElements().begin(),
                                              described.getRecordListElements().end());
    while (!open.empty()) {
      DataDescription *entry = open.pop_back_val();
      open.append(entry->getChildrenBegin(), entry->getChildrenEnd());
      auto *line = llvm::dyn_cast<ReportDataDescription>(entry);
      if (!line)
        continue;
      if (ClauseSource *source = line->getSourceClause())
        for (SourceClauseExpr *one : source->getSourceExprListElements())
          items.add(one->getExpr());
      if (ClauseSum *sum = line->getSumClause())
        for (SumClauseExpr *one : sum->getSumExprListElements())
          for (Expression *name : one->getNameListElements())
            items.add(name);
      for (ClausePresentWhen *when : line->getClausePresentWhenListElements())
        items.add(when->getPresentCond());
    }
    if (const ClauseControl *control = described.getControlClause())
      for (IdentifierExpression *name : control->getControlIdListElements())
        items.add(name);
  }

  const FlowNode &node;
  OperandItems items;
  Visit found;
};

} // namespace

void forEachAccess(const FlowNode &node, Visit visit) {
  if (!node.getStatement() || node.getKind() == FlowNodeKind::Entry)
    return;
  StatementItems(node, visit).visit(const_cast<Statement &>(*node.getStatement()));
}

} // namespace tarka
