//===- PrintTreeEntries.cpp - the environment and the clauses of entries --===//

#include "AST/DataDescription.h"
#include "AST/Environment.h"
#include "AST/FileDescription.h"
#include "AST/ReportDescription.h"
#include "LayoutModel.h"
#include "TreePrinter.h"

namespace tarka {

namespace {

constexpr llvm::StringLiteral organizations[] = {"SEQUENTIAL", "INDEXED", "RELATIVE",
                                                 "LINE SEQUENTIAL"};
constexpr llvm::StringLiteral accessModes[] = {"SEQUENTIAL", "RANDOM", "DYNAMIC"};
constexpr llvm::StringLiteral alphabets[] = {"STANDARD-1", "STANDARD-2", "NATIVE", "EBCDIC"};
constexpr llvm::StringLiteral sharedAreas[] = {"RECORD", "SORT", "SORT-MERGE"};
constexpr llvm::StringLiteral blockUnits[] = {"RECORDS", "CHARACTERS"};
constexpr llvm::StringLiteral labels[] = {"STANDARD", "OMITTED", "data-name"};
constexpr llvm::StringLiteral orders[] = {"ASCENDING", "DESCENDING"};
constexpr llvm::StringLiteral groupTypes[] = {
    "REPORT HEADING",  "PAGE HEADING", "CONTROL HEADING", "DETAIL",
    "CONTROL FOOTING", "PAGE FOOTING", "REPORT FOOTING"};

} // namespace

//===----------------------------------------------------------------------===//
// Environment
//===----------------------------------------------------------------------===//

void TreePrinter::print(llvm::StringRef role, EnvironmentDivision &division) {
  Open node(sink, role, "EnvironmentDivision", division.getRange());
  if (ConfigurationSection *section = division.getConfigurationSection())
    print("", *section);
  if (InputOutputSection *section = division.getInputOutputSection()) {
    Open inner(sink, "", "InputOutputSection", section->getRange());
    all("", section->getFileControlListElements());
    all("", section->getIOControlListElements());
  }
}

void TreePrinter::print(llvm::StringRef role, ConfigurationSection &section) {
  Open node(sink, role, "ConfigurationSection", section.getRange());
  if (ParaSourceComputer *computer = section.getSourceComputer()) {
    Open inner(sink, "", "ParaSourceComputer", computer->getRange());
    name("name", computer->getComputerName());
    flag("debuggingMode", computer->isDebuggingMode());
  }
  if (ParaObjectComputer *computer = section.getObjectComputer()) {
    Open inner(sink, "", "ParaObjectComputer", computer->getRange());
    name("name", computer->getComputerName());
    if (ClauseSequence *sequence = computer->getSequence())
      name("collatingSequence", sequence->getSequence());
    if (ClauseMemorySize *memory = computer->getMemSize())
      operand("memorySize", memory->getSize());
    if (ClauseSegmentLimit *segment = computer->getSegment())
      operand("segmentLimit", segment->getLimit());
  }
  one("", section.getSpecialNames());
}

void TreePrinter::print(llvm::StringRef role, ParaSpecialNames &names) {
  Open node(sink, role, "ParaSpecialNames", names.getRange());
  flag("decimalPointIsComma", names.getDecimalPoint() != nullptr);
  for (ClauseEnvName *clause : names.getEnvNameListElements()) {
    Open inner(sink, "", "ClauseEnvName", clause->getRange());
    name("name", clause->getEnvironmentName());
    name("mnemonicName", clause->getMnemonicName());
    name("onCondition", clause->getOnCondition());
    name("offCondition", clause->getOffCondition());
  }
  for (ClauseAlphabet *clause : names.getAlphabetListElements()) {
    Open inner(sink, "", "ClauseAlphabet", clause->getRange());
    name("name", clause->getAlphabetName());
    if (llvm::StringRef type = nameOf(alphabets, clause->getType()); !type.empty())
      sink.text("type", type);
    for (PhrsAlphabet *phrase : clause->getAlphaListElements()) {
      Open part(sink, "", "PhrsAlphabet", phrase->getRange());
      operand("from", phrase->getLiteral());
      operand("through", phrase->getThruLiteral());
      for (LiteralExpression *also : phrase->getAlsoListElements())
        operand("also", also);
    }
  }
  for (ClauseSymbolic *clause : names.getSymbolicListElements()) {
    Open inner(sink, "", "ClauseSymbolic", clause->getRange());
    name("alphabet", clause->getAlphabetName());
    for (PhrsSymbolic *phrase : clause->getSymbolicListElements()) {
      Open part(sink, "", "PhrsSymbolic", phrase->getRange());
      words("names", phrase->getSourceListElements());
      for (NumericLiteralExpression *ordinal : phrase->getIntegerListElements())
        operand("ordinal", ordinal);
    }
  }
  for (ClauseClass *clause : names.getClassListElements()) {
    Open inner(sink, "", "ClauseClass", clause->getRange());
    name("name", clause->getClassName());
    for (PhrsClass *phrase : clause->getLiteralListElements()) {
      Open part(sink, "", "PhrsClass", phrase->getRange());
      operand("from", phrase->getLiteral());
      operand("through", phrase->getThruLiteral());
    }
  }
  for (ClauseCurrency *clause : names.getCurrencyListElements()) {
    Open inner(sink, "", "ClauseCurrency", clause->getRange());
    operand("sign", clause->getSignLiteral());
    operand("pictureSymbol", clause->getSymbolLiteral());
  }
}

void TreePrinter::print(llvm::StringRef role, ParaFileControl &file) {
  Open node(sink, role, "ParaFileControl", file.getRange());
  name("name", file.getFileName());
  flag("optional", file.isOptional());
  sink.text("organization", nameOf(organizations, file.getOrganizationType()));
  if (ClauseAccess *access = file.getAccess())
    sink.text("access", nameOf(accessModes, access->getType()));
  if (ClauseRecordDelimiter *delimiter = file.getRecordDelimiter())
    name("recordDelimiter", delimiter->getName());
  // The names and literals of ASSIGN are for the system alone; their place says which they are.
  if (ClauseAssign *assign = file.getAssign())
    Open inner(sink, "", "ClauseAssign", assign->getRange());
  if (ClauseReserve *reserve = file.getReserve())
    operand("reserve", reserve->getReserveCount());
  if (ClausePadding *padding = file.getPadding())
    operand("padding", padding->getCharacter());
  if (ClauseRecordKey *key = file.getRecordKey())
    operand("recordKey", key->getDataName());
  if (ClauseRelativeKey *key = file.getRelativeKey())
    operand("relativeKey", key->getDataName());
  for (ClauseAlternate *key : file.getAlternateListElements())
    operand(key->isDuplicates() ? "alternateKey duplicates" : "alternateKey", key->getDataName());
  if (ClausePassWord *password = file.getPassWord())
    operand("password", password->getDataName());
  if (ClauseStatus *status = file.getStatus()) {
    operand("status", status->getStatus_1());
    operand("status", status->getStatus_2());
  }
}

void TreePrinter::print(llvm::StringRef role, ParaIOControl &entry) {
  Open node(sink, role, "ParaIOControl", entry.getRange());
  if (ClauseRerun *rerun = entry.getRerun()) {
    Open inner(sink, "", "ClauseRerun", rerun->getRange());
    name("assignment", rerun->getAssignment());
    flag("endOfReel", rerun->isEndOfReel());
    operand("on", rerun->getFileName());
    operand("every", rerun->getRecordCount());
    operand("of", rerun->getEveryFileName());
  }
  if (ClauseSame *same = entry.getSame()) {
    Open inner(sink, "", "ClauseSame", same->getRange());
    if (llvm::StringRef area = nameOf(sharedAreas, same->getType()); !area.empty())
      sink.text("area", area);
    for (IdentifierExpression *file : same->getFileNameListElements())
      operand("file", file);
  }
  if (ClauseMultipleFile *multiple = entry.getMultipleFile()) {
    Open inner(sink, "", "ClauseMultipleFile", multiple->getRange());
    for (PrsMultipleFile *phrase : multiple->getMultipleFileListElements()) {
      operand("file", phrase->getFileName());
      operand("position", phrase->getPosition());
    }
  }
  if (ClauseApplyWriteOnly *apply = entry.getApplyWriteOnly()) {
    Open inner(sink, "", "ClauseApplyWriteOnly", apply->getRange());
    for (IdentifierExpression *file : apply->getFileNameListElements())
      operand("file", file);
  }
}

//===----------------------------------------------------------------------===//
// Files
//===----------------------------------------------------------------------===//

void TreePrinter::clauses(FileDescription &file) {
  flag("external", file.getExternal() != nullptr);
  if (llvm::StringRef mode = recordingModeName(file); !mode.empty())
    sink.text("recordingMode", mode);
  if (ClauseLabel *label = file.getLabel())
    sink.text("label", nameOf(labels, label->getType()));
  if (ClauseCodeSet *codeSet = file.getCodeSet())
    name("codeSet", codeSet->getAlphabetName());
  if (ClauseDataRecord *records = file.getDataRecord())
    words("dataRecords", records->getNameListElements());
  if (ClauseBlock *block = file.getBlock()) {
    Open inner(sink, "", "ClauseBlock", block->getRange());
    sink.text("unit", nameOf(blockUnits, block->getUnit()));
    operand("min", block->getMinLength());
    operand("max", block->getMaxLength());
  }
  if (ClauseRecord *record = file.getRecord()) {
    Open inner(sink, "", "ClauseRecord", record->getRange());
    flag("varying", record->getIsVarying());
    operand("min", record->getMinLength());
    operand("max", record->getMaxLength());
    operand("dependingOn", record->getDependingOn());
  }
  if (ClauseLinage *linage = file.getLinage()) {
    Open inner(sink, "", "ClauseLinage", linage->getRange());
    operand("lines", linage->getNumOfLines());
    operand("footing", linage->getWithFootingAt());
    operand("top", linage->getLineAtTop());
    operand("bottom", linage->getLineAtBottom());
  }
  if (ClauseReport *report = file.getReport())
    for (ReportIdentifierExpression *one : report->getReportNameListElements())
      operand("report", one);
}

//===----------------------------------------------------------------------===//
// Data entries
//===----------------------------------------------------------------------===//

/// The clauses of few words, which are properties of their entry.
void TreePrinter::properties(DataDescription &entry) {
  flag("external", entry.getExternal() != nullptr);
  flag("global", entry.getGlobal() != nullptr);
  flag("justified", entry.getJustified() != nullptr);
  flag("blankWhenZero", entry.getBlankZero() != nullptr);
  flag("synchronized", entry.getSynchronized() != nullptr);
  flag("groupUsageNational", entry.getGroupUsage() != nullptr);
  flag("volatile", entry.getVolatile() != nullptr);
  if (ClauseSign *sign = entry.getSign()) {
    sink.text("sign", sign->isLeading() ? "LEADING" : "TRAILING");
    flag("separateSign", sign->isSeperate());
  }
  if (ClauseDateFormat *format = entry.getDateFormat())
    name("dateFormat", format->getPatten());
}

/// The clauses with operands, which are nodes below their entry.
void TreePrinter::clauses(DataDescription &entry) {
  if (ClauseOccurs *occurs = entry.getOccurs()) {
    Open inner(sink, "", "ClauseOccurs", occurs->getRange());
    auto [min, max] = occurrencesOf(*occurs);
    sink.number("min", min);
    sink.number("max", max);
    operand("dependingOn", occurs->getOdoName());
    for (Key *key : occurs->getKeysElements()) {
      Open part(sink, "", "Key", key->getRange());
      sink.text("order", nameOf(orders, key->getOrder()));
      all("", key->getDataListElements());
    }
    for (DataIdentifierExpression *index : occurs->getIndexListElements())
      operand("index", index);
  }
  if (ClauseRenames *renames = entry.getRenames()) {
    operand("renames", renames->getFromData());
    operand("through", renames->getToData());
  }
  if (ClauseValue *value = entry.getValue())
    print("", *value);
}

void TreePrinter::print(llvm::StringRef role, ClauseValue &value) {
  Open node(sink, role, "ClauseValue", value.getRange());
  for (PhraseValue *phrase : value.getPhraseValElements()) {
    Open inner(sink, "", "PhraseValue", phrase->getRange());
    name("from", phrase->getWord1());
    name("through", phrase->getWord2());
    operand("from", phrase->getLiteral1());
    operand("through", phrase->getLiteral2());
  }
  operand("false", value.getFalseValue());
}

//===----------------------------------------------------------------------===//
// Reports
//===----------------------------------------------------------------------===//

void TreePrinter::clauses(ReportDescription &report) {
  if (ClauseCode *code = report.getCodeClause())
    operand("code", code->getCodeExpr());
  if (ClauseLineLimit *limit = report.getLineLimitClause())
    operand("lineLimit", limit->getLineLimitExpr());
  if (ClauseControl *control = report.getControlClause()) {
    Open inner(sink, "", "ClauseControl", control->getRange());
    flag("final", control->getControlOption() == ControlOption::Final);
    for (IdentifierExpression *item : control->getControlIdListElements())
      operand("", item);
  }
  if (ClausePageLimit *page = report.getPageLimitClause()) {
    Open inner(sink, "", "ClausePageLimit", page->getRange());
    operand("lines", page->getPageLimit());
    operand("columns", page->getColumns());
    operand("heading", page->getHeading());
    operand("firstDetail", page->getFirstDetail());
    operand("lastControlHeading", page->getLastControlHeading());
    operand("lastDetail", page->getLastDetail());
    operand("footing", page->getFooting());
  }
}

void TreePrinter::clauses(ReportDataDescription &entry) {
  if (ClauseType *type = entry.getTypeClause()) {
    Open inner(sink, "", "ClauseType", type->getRange());
    sink.text("type", nameOf(groupTypes, type->getTypeOption()));
    flag("final", type->getReportFinal());
    for (IdentifierExpression *control : type->getControlIdListElements())
      operand("control", control);
  }
  if (ClauseLine *line = entry.getLineClause()) {
    Open inner(sink, "", "ClauseLine", line->getRange());
    flag("relative", line->isRelative());
    flag("nextPage", line->getNextPage());
    all("", line->getNumbersListElements());
  }
  if (ClauseColumn *column = entry.getColumnClause()) {
    Open inner(sink, "", "ClauseColumn", column->getRange());
    flag("relative", column->isRelative());
    all("", column->getNumbersListElements());
  }
  if (ClauseNextGroup *next = entry.getNextGroupClause()) {
    Open inner(sink, "", "ClauseNextGroup", next->getRange());
    flag("relative", next->getType() == NextGroupType::Plus);
    flag("nextPage", next->getType() == NextGroupType::NextPage);
    operand("", next->getNumberExpr());
  }
  one("", entry.getSourceClause());
  if (ClauseSum *sum = entry.getSumClause()) {
    Open inner(sink, "", "ClauseSum", sum->getRange());
    flag("rounded", sum->getRounded());
    flag("resetFinal", sum->getResetType() == ResetType::Final);
    for (SumClauseExpr *part : sum->getSumExprListElements())
      print("", *part);
    operand("resetOn", sum->getResetControl());
  }
  if (ClauseReportValue *value = entry.getReportValueClause())
    one("", value->getValue());
  if (ClauseFunction *function = entry.getFunctionClause()) {
    Open inner(sink, "", "ClauseFunction", function->getRange());
    name("name", function->getFunctionName());
    all("argument", function->getArgumentListElements());
  }
  for (ClausePresentAfter *present : entry.getClausePresentAfterListElements())
    contents("ClausePresentAfter", *present);
  for (ClausePresentWhen *present : entry.getClausePresentWhenListElements())
    contents("ClausePresentWhen", *present, present->getPresentCond());
}

/// What a report item shows under a condition, or after a new page or a control break.
void TreePrinter::contents(llvm::StringRef kind, PresentContents &present, Condition *condition) {
  Open node(sink, "", kind, present.getRange());
  one("condition", condition);
  operand("control", present.getControlId());
  one("", present.getSource());
  if (ClauseReportValue *value = present.getValue())
    one("", value->getValue());
}

void TreePrinter::print(llvm::StringRef role, ClauseSource &source) {
  Open node(sink, role, "ClauseSource", source.getRange());
  flag("rounded", source.getRounded());
  for (SourceClauseExpr *part : source.getSourceExprListElements()) {
    operand("", part->getExpr());
    one("sum", part->getSumExpr());
  }
}

void TreePrinter::print(llvm::StringRef role, SumClauseExpr &sum) {
  Open node(sink, role, "SumClauseExpr", sum.getRange());
  all("", sum.getNameListElements());
  for (IdentifierExpression *group : sum.getUponListElements())
    operand("upon", group);
}

} // namespace tarka
