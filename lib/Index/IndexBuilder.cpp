//===- IndexBuilder.cpp - makes the occurrence index ----------------------===//

#include "Index/IndexBuilder.h"
#include "AST/DataDescription.h"
#include "AST/DataDivision.h"
#include "AST/Embedded.h"
#include "AST/FileDescription.h"
#include "AST/NestedStatements.h"
#include "AST/ReportDescription.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

/// Lines and columns are far below what has room here; places that are beyond it only make the
/// lookup of a declaration fail, which compares the name too.
IndexBuilder::Point IndexBuilder::pointOf(const SourceRange &place) {
  return (static_cast<Point>(place.file) << 48) ^ (static_cast<Point>(place.beginLine) << 20) ^
         place.beginColumn;
}

void IndexBuilder::build(Program &program, const Expansion &expansion) {
  text = expansion.getWords();
  programs = ProgramNames(program);
  for (SourceUnit *outermost : program.getSourceUnitListElements())
    declare(*outermost);
  // A copybook that is read by itself has no PROGRAM-ID.
  if (program.getSourceUnitListSize() > 0)
    unit = *program.getSourceUnitListBegin();
  readWords();
}

//===----------------------------------------------------------------------===//
// Declarations
//===----------------------------------------------------------------------===//

void IndexBuilder::declare(SourceUnit &declaring) {
  add(SymbolKind::Program, declaring.getIDDivision()->getProgramIDPara()->getProgramName(),
      &declaring, declaring);
  declareSpecialNames(declaring);
  declareItems(declaring);
  declareFiles(declaring);
  declareProcedures(declaring);
  for (ExecStatement *block : declaring.getDataBlockElements())
    blocks[pointOf(block->getRange())] = block;
  for (SourceUnit *nested : declaring.getNestedListElements())
    declare(*nested);
}

/// Enters a name that is written in the source; none where it is not.
std::optional<SymbolId> IndexBuilder::add(SymbolKind kind, const Word *name, const Node *node,
                                          SourceUnit &declaring) {
  if (!name || name->getRange().beginLine == 0 || !name->isWritten())
    return std::nullopt;
  const auto id = static_cast<SymbolId>(index.symbols.size());
  Symbol symbol;
  symbol.kind = kind;
  symbol.name = &name->getWordData();
  symbol.spelling = &name->getDisplayName();
  symbol.place = name->getRange();
  symbol.node = node;
  symbol.unit = &declaring;
  symbol.around = id;
  index.symbols.push_back(symbol);
  declared[pointOf(symbol.place)].symbols.push_back(id);
  if (node)
    index.byNode.try_emplace(node, id);
  return id;
}

/// Enters a name that is looked up by its text, in nested programs too. A clause can have several.
void IndexBuilder::addSpecialName(const Word *name, const Node *clause, SourceUnit &declaring,
                                  SymbolKind kind) {
  if (std::optional<SymbolId> id = add(kind, name, nullptr, declaring)) {
    index.symbols[*id].node = clause;
    specialNames.try_emplace({&declaring, &name->getWordData()}, *id);
  }
}

void IndexBuilder::declareSpecialNames(SourceUnit &declaring) {
  ParaSpecialNames *names = declaring.getSpecialNames();
  if (!names)
    return;
  for (ClauseEnvName *clause : names->getEnvNameListElements())
    for (const Word *name :
         {clause->getMnemonicName(), clause->getOnCondition(), clause->getOffCondition()})
      addSpecialName(name, clause, declaring);
  for (ClauseAlphabet *clause : names->getAlphabetListElements())
    addSpecialName(clause->getAlphabetName(), clause, declaring);
  for (ClauseClass *clause : names->getClassListElements())
    addSpecialName(clause->getClassName(), clause, declaring);
  for (ClauseSymbolic *clause : names->getSymbolicListElements())
    for (PhrsSymbolic *phrase : clause->getSymbolicListElements())
      for (const Word *name : phrase->getSourceListElements())
        addSpecialName(name, clause, declaring);
}

void IndexBuilder::declareItems(SourceUnit &declaring) {
  DataDivision *division = declaring.getDataDivision();
  if (!division)
    return;
  for (FileDescription *file : division->getFileSectionElements()) {
    add(SymbolKind::File, file->getFileName(), file, declaring);
    for (auto record = file->getDataRecordDescBegin(); record != file->getDataRecordDescEnd();
         ++record)
      declareItem(declaring, **record);
  }
  for (DataDescription *record : listOrEmpty(division->getWorkSection()))
    declareItem(declaring, *record);
  for (DataDescription *record : division->getLocalSectionElements())
    declareItem(declaring, *record);
  for (DataDescription *record : division->getLinkSectionElements())
    declareItem(declaring, *record);
  for (ReportDescription *report : division->getReportSectionElements()) {
    add(SymbolKind::Report, report->getReportName(), report, declaring);
    for (ReportDataDescription *record : report->getRecordListElements())
      declareItem(declaring, *record);
  }
}

void IndexBuilder::declareItem(SourceUnit &declaring, DataDescription &entry) {
  std::optional<SymbolId> table;
  if (!entry.isFiller())
    table = add(entry.getLevelNum() == 88 ? SymbolKind::ConditionName : SymbolKind::Item,
                entry.getDataName(), &entry, declaring);
  if (ClauseOccurs *occurs = entry.getOccurs())
    for (DataIdentifierExpression *name : occurs->getIndexListElements())
      if (name->getQualifiedWord() && name->getQualifiedWord()->getNamesSize() > 0) {
        const Word *word = *name->getQualifiedWord()->getNamesBegin();
        std::optional<SymbolId> own =
            add(SymbolKind::IndexName, word, name->getDataDescription(), declaring);
        if (own && table)
          index.symbols[*own].around = *table;
      }
  for (DataDescription *name : entry.getCondNameChildrenElements())
    declareItem(declaring, *name);
  for (DataDescription *child : entry.getChildrenElements())
    declareItem(declaring, *child);
}

/// Files that have a SELECT entry only.
void IndexBuilder::declareFiles(SourceUnit &declaring) {
  InputOutputSection *control = declaring.getInputOutputSection();
  if (!control)
    return;
  const Scope scope(&declaring);
  for (ParaFileControl *entry : control->getFileControlListElements())
    if (const Word *name = entry->getFileName();
        name && scope.findFiles(&name->getWordData()).empty())
      addSpecialName(name, entry, declaring, SymbolKind::File);
}

void IndexBuilder::declareProcedures(SourceUnit &declaring) {
  ProcedureDivision *division = declaring.getProcDivision();
  if (!division)
    return;
  for (Declaratives *declarative : division->getDeclElements())
    declareSection(declaring, *declarative->getSection());
  noteRoles(division->getSentElements());
  for (Paragraph *paragraph : division->getParaElements())
    declareParagraph(declaring, *paragraph, std::nullopt);
  for (Section *one : division->getSectElements())
    declareSection(declaring, *one);
}

void IndexBuilder::declareSection(SourceUnit &declaring, Section &declaredSection) {
  const Word *name = declaredSection.getSectionName();
  std::optional<SymbolId> id = add(SymbolKind::Section, name, &declaredSection, declaring);
  if (id)
    procedures[{&declaring, &name->getWordData()}].push_back(*id);
  noteRoles(declaredSection.getSentElements());
  for (Paragraph *paragraph : declaredSection.getParaElements())
    declareParagraph(declaring, *paragraph, id);
}

void IndexBuilder::declareParagraph(SourceUnit &declaring, Paragraph &paragraph,
                                    std::optional<SymbolId> around) {
  const Word *name = paragraph.getParagraphName();
  if (std::optional<SymbolId> id = add(SymbolKind::Paragraph, name, &paragraph, declaring)) {
    index.symbols[*id].around = around.value_or(*id);
    procedures[{&declaring, &name->getWordData()}].push_back(*id);
  }
  noteRoles(paragraph.getSentElements());
}

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

void IndexBuilder::noteRoles(const NodeList<Sentence> &sentences) {
  for (Sentence *sentence : sentences)
    for (Statement *statement : sentence->getStmtElements())
      noteRoles(*statement);
}

void IndexBuilder::noteRoles(Statement &statement) {
  if (auto *block = llvm::dyn_cast<ExecStatement>(&statement))
    blocks[pointOf(block->getRange())] = block;
  else
    forEachOperand(
        statement, [&](Expression &operand, OperandRole role) { noteOperand(operand, role); },
        [&](Condition &condition, OperandRole role) {
          if (isWritten(role))
            operands.try_emplace(pointOf(condition.getRange()), BoundOperand{role, nullptr});
        });
  forEachNestedList(statement, [&](NodeRange<Statement> list) {
    for (Statement *nested : list)
      noteRoles(*nested);
  });
}

void IndexBuilder::noteOperand(Expression &operand, OperandRole role) {
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand);
      identifier && identifier->isWritten())
    operands.try_emplace(pointOf(identifier->getRange()),
                         BoundOperand{role, identifier->getDataDescription()});
}

namespace {

Use useOf(OperandRole role) {
  switch (role) {
  case OperandRole::Read:
    return Use::Read;
  case OperandRole::Update:
  case OperandRole::MayUpdate:
    return Use::ReadWrite;
  default:
    return Use::Write;
  }
}

Use useOf(const EmbeddedOperand &operand) {
  return !operand.isWritten() ? Use::Read : operand.isRead() ? Use::ReadWrite : Use::Write;
}

bool isWordCharacter(char character) {
  return llvm::isAlnum(character) || character == '-' || character == '_' ||
         static_cast<unsigned char>(character) >= 0x80;
}

/// Whether \p text is a word: no number, literal or separator.
bool isWordText(llvm::StringRef text) {
  return llvm::all_of(text, isWordCharacter) && !llvm::all_of(text, llvm::isDigit) && text != "-";
}

bool isLiteral(llvm::StringRef text) {
  return text.size() >= 2 && (text.back() == '\'' || text.back() == '"');
}

} // namespace

//===----------------------------------------------------------------------===//
// Words
//===----------------------------------------------------------------------===//

IndexBuilder::Token IndexBuilder::tokenAt(std::size_t position) {
  if (position >= text.size())
    return {};
  Token token;
  token.word = &text[position];
  if (isWordText(token.word->text)) {
    const WordLookup found = words.lookup(token.word->text);
    token.name = found.interned;
    token.keyword = found.keyword;
  }
  return token;
}

void IndexBuilder::readWords() {
  for (std::size_t position = 0; position < text.size();) {
    const Token token = tokenAt(position);
    const bool isBlock = token.keyword == Keyword::Exec || token.keyword == Keyword::Execute;
    position = isBlock ? readBlock(position) : readWord(position, token);
    isInProcedures |= token.keyword == Keyword::Division && before == Keyword::Procedure;
    beforeThat = before;
    before = token.keyword;
  }
}

/// Reads what begins at \p position, and gives the position behind it.
std::size_t IndexBuilder::readWord(std::size_t position, const Token &token) {
  const std::size_t next = position + 1;
  const llvm::StringRef word = token.word->text;
  if (std::optional<SymbolId> own = takeDeclaration(token)) {
    const Symbol &symbol = index.symbols[*own];
    if (symbol.kind == SymbolKind::Program) {
      unit = symbol.unit;
      isInProcedures = false;
    }
    if (symbol.kind == SymbolKind::Program || symbol.kind == SymbolKind::Section)
      section = symbol.kind == SymbolKind::Section ? own : std::nullopt;
    addOccurrence(token, *own, Use::Declaration);
    return next;
  }
  if (before == Keyword::Program && beforeThat == Keyword::End && unit) {
    resolveProgram(token, word);
    unit = unit->getParent();
    return next;
  }
  // The character-string of a PICTURE can look like a word.
  if (token.keyword == Keyword::Pic || token.keyword == Keyword::Picture)
    return next + (tokenAt(next).keyword == Keyword::Is ? 2 : 1);
  if (!token.name) {
    if (isLiteral(word) && (before == Keyword::Call || before == Keyword::Cancel))
      resolveProgram(token, withoutQuotes(word));
    else if (isProcedureExpected() && llvm::all_of(word, llvm::isDigit))
      resolveProcedure({Token{token.word, &internString(word), Keyword::None}});
    return next;
  }
  // What a file is assigned to often has the name of the file, and is not the file.
  const bool isAssigned =
      before == Keyword::Assign || (before == Keyword::To && beforeThat == Keyword::Assign);
  if ((isReserved(token.keyword) && !isSpecialRegister(token.keyword)) || isAssigned ||
      before == Keyword::Function || !unit)
    return next;

  llvm::SmallVector<Token, 4> chain{token};
  std::size_t end = next;
  while (true) {
    const Keyword joint = tokenAt(end).keyword;
    const Token qualifier = tokenAt(end + 1);
    if ((joint != Keyword::Of && joint != Keyword::In) || !qualifier.name ||
        isReserved(qualifier.keyword))
      break;
    chain.push_back(qualifier);
    end += 2;
  }
  return resolve(chain) ? end : next;
}

/// EXEC language text END-EXEC: the names in the text are those of the command.
std::size_t IndexBuilder::readBlock(std::size_t position) {
  auto found = blocks.find(pointOf(text[position].place));
  EmbeddedCommand *command = found == blocks.end() ? nullptr : found->second->getCommand();
  if (command && unit)
    for (EmbeddedOperand *operand : command->getOperandElements()) {
      resolveExpression(operand->getValue(), useOf(*operand));
      const Word *label = operand->getRole() == EmbeddedRole::Label ? operand->getWord() : nullptr;
      if (label) // Names of cursors and segments are none of the program.
        if (std::optional<SymbolId> procedure = findProcedure(&label->getWordData(), nullptr))
          addOccurrence(label->getRange(), *procedure, Use::Mention);
    }
  const std::size_t body = position + 2;
  return tokenAt(body).keyword == Keyword::EndExec ? body : body + 1;
}

void IndexBuilder::resolveExpression(Expression *expression, Use use) {
  auto *identifier = llvm::dyn_cast_if_present<DataIdentifierExpression>(expression);
  if (!identifier || !identifier->getQualifiedWord())
    return;
  const DataDescription *entry = identifier->getDataDescription();
  if (!entry)
    entry = Scope(unit).findReferenced(identifier->getQualifiedWord()->getNamesElements());
  for (const Word *word : identifier->getQualifiedWord()->getNamesElements()) {
    while (entry && entry->getDataName() &&
           &entry->getDataName()->getWordData() != &word->getWordData())
      entry = entry->getOwner();
    if (!entry)
      break;
    addOccurrence(word->getRange(), symbolOfItem(*entry, &word->getWordData()), use);
    use = Use::Mention;
  }
  if (SubscriptModifier *subscripts = identifier->getSubscriptMod())
    for (Expression *subscript : subscripts->getSubscriptElements())
      resolveExpression(subscript, Use::Read);
}

/// The symbol that the word declares, if it stands where one is declared.
std::optional<SymbolId> IndexBuilder::takeDeclaration(const Token &token) {
  auto found = declared.find(pointOf(token.word->place));
  if (found == declared.end())
    return std::nullopt;
  Declared &here = found->second;
  // Text that is copied again declares the next symbol of its place.
  for (std::size_t tried = 0; tried < here.symbols.size(); ++tried) {
    const SymbolId id = here.symbols[here.next % here.symbols.size()];
    ++here.next;
    const Symbol &symbol = index.symbols[id];
    if (symbol.name == token.name || *symbol.name == token.word->text ||
        symbol.kind == SymbolKind::Program)
      return id;
  }
  return std::nullopt;
}

bool IndexBuilder::isProcedureExpected() const {
  return before == Keyword::Perform || before == Keyword::Thru || before == Keyword::Through ||
         before == Keyword::Go || (before == Keyword::To && beforeThat == Keyword::Go);
}

bool IndexBuilder::resolve(llvm::ArrayRef<Token> chain) {
  if (isProcedureExpected() && resolveProcedure(chain))
    return true;
  return resolveItem(chain) || resolveProcedure(chain) ||
         (resolveOther(chain.front()) && chain.size() == 1);
}

bool IndexBuilder::resolveItem(llvm::ArrayRef<Token> chain) {
  const Scope scope(unit);
  const Token &first = chain.front();
  const DataDescription *entry = nullptr;
  Use use = Use::Mention;
  if (auto operand = operands.find(pointOf(first.word->place)); operand != operands.end()) {
    use = useOf(operand->second.role);
    const DataDescription *item = operand->second.item;
    if (item && item->getDataName() && &item->getDataName()->getWordData() == first.name)
      entry = item;
  } else if (isInProcedures) {
    use = Use::Read;
  }
  if (!entry && chain.size() == 1)
    entry = scope.findOnlyOwnItem(first.name);
  if (!entry && scope.isItem(first.name)) {
    NodeList<Word> names;
    for (const Token &token : chain)
      names.push_back(new Word(token.word->place, token.name, token.name));
    entry = scope.findReferenced(names);
  }
  if (!entry)
    entry = scope.findRegister(first.name);
  if (!entry)
    return false;
  addOccurrence(first, symbolOfItem(*entry, first.name), use);
  for (const Token &qualifier : chain.drop_front()) {
    const DataDescription *group = entry->getOwner();
    while (group &&
           (!group->getDataName() || &group->getDataName()->getWordData() != qualifier.name))
      group = group->getOwner();
    if (group) {
      entry = group;
      addOccurrence(qualifier, symbolOfItem(*group, qualifier.name), Use::Mention);
    } else {
      resolveOther(qualifier);
    }
  }
  return true;
}

/// The symbol of an entry. What the language supplies has none until it is used.
SymbolId IndexBuilder::symbolOfItem(const DataDescription &entry, const std::string *name) {
  auto [found, isNew] =
      index.byNode.try_emplace(&entry, static_cast<SymbolId>(index.symbols.size()));
  if (isNew) {
    Symbol symbol;
    symbol.kind = SymbolKind::SpecialRegister;
    symbol.name = name;
    symbol.spelling = name;
    symbol.node = &entry;
    symbol.unit = unit;
    symbol.around = found->second;
    index.symbols.push_back(symbol);
  }
  return found->second;
}

bool IndexBuilder::resolveProcedure(llvm::ArrayRef<Token> chain) {
  const std::string *sectionName = chain.size() > 1 ? chain[1].name : nullptr;
  std::optional<SymbolId> found = findProcedure(chain.front().name, sectionName);
  if (!found)
    return false;
  addOccurrence(chain.front(), *found, Use::Mention);
  if (sectionName)
    addOccurrence(chain[1], index.symbols[*found].around, Use::Mention);
  return true;
}

/// The section or paragraph that a procedure-name means: a paragraph of the section that it stands
/// in goes before others.
std::optional<SymbolId> IndexBuilder::findProcedure(const std::string *name,
                                                    const std::string *sectionName) const {
  auto found = procedures.find({unit, name});
  if (found == procedures.end())
    return std::nullopt;
  for (SymbolId id : found->second) {
    const SymbolId around = index.symbols[id].around;
    if (sectionName ? around != id && index.symbols[around].name == sectionName
                    : section && around == *section)
      return id;
  }
  return sectionName ? std::nullopt : std::optional(found->second.front());
}

/// Files, reports and the names of SPECIAL-NAMES, which hold in nested programs too.
bool IndexBuilder::resolveOther(const Token &token) {
  const Scope scope(unit);
  const Use use =
      before == Keyword::Select || before == Keyword::Optional ? Use::Declaration : Use::Mention;
  std::optional<SymbolId> id;
  if (llvm::SmallVector<FileDescription *, 2> files = scope.findFiles(token.name); !files.empty())
    id = index.symbolOf(*files.front());
  if (const ReportDescription *report = id ? nullptr : scope.findReport(token.name))
    id = index.symbolOf(*report);
  for (const SourceUnit *around = unit; around && !id; around = around->getParent())
    if (auto found = specialNames.find({around, token.name}); found != specialNames.end())
      id = found->second;
  if (id)
    addOccurrence(token, *id, use);
  return id.has_value();
}

void IndexBuilder::resolveProgram(const Token &token, llvm::StringRef name) {
  const bool isEnd = before == Keyword::Program;
  const SourceUnit *called = isEnd ? unit : programs.find(unit, name);
  if (std::optional<SymbolId> id = called ? index.symbolOf(*called) : std::nullopt)
    addOccurrence(token, *id, Use::Mention);
}

void IndexBuilder::addOccurrence(const Token &token, SymbolId symbol, Use use) {
  addOccurrence(token.word->place, symbol, use, token.word->isReplacement);
}

void IndexBuilder::addOccurrence(const SourceRange &place, SymbolId symbol, Use use,
                                 bool isReplaced) {
  if (place.beginLine)
    index.occurrences.push_back({place.file, place.beginLine, place.beginColumn, place.endLine,
                                 place.endColumn, symbol, use, isReplaced});
}

} // namespace tarka
