//===- PrintTreeEntries.cpp - the environment and the clauses of entries --===//

#include "AST/DataDescription.h"
#include "AST/Environment.h"
#include "AST/FileDescription.h"
#include "AST/KindNames.h"
#include "AST/ReportDescription.h"
#include "Print/LayoutModel.h"
#include "Print/TreePrinter.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

void TreePrinter::entry(llvm::StringRef role, const DataDescription *to) {
  if (to)
    sink.target(role, {entryName(*to), placeOf(*to)});
}

template <typename List> void TreePrinter::entries(llvm::StringRef role, const List &list) {
  llvm::SmallVector<TreeTarget, 8> targets;
  for (const DataDescription *to : list)
    targets.push_back({entryName(*to), placeOf(*to)});
  if (!targets.empty())
    sink.targets(role, targets);
}

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
    if (clause->getEnvNameType() != EnvNameType::Unknown)
      sink.text("type", nameOf(clause->getEnvNameType()));
    name("mnemonicName", clause->getMnemonicName());
    name("onCondition", clause->getOnCondition());
    name("offCondition", clause->getOffCondition());
  }
  for (ClauseAlphabet *clause : names.getAlphabetListElements()) {
    Open inner(sink, "", "ClauseAlphabet", clause->getRange());
    name("name", clause->getAlphabetName());
    if (llvm::StringRef type = nameOf(clause->getType()); !type.empty())
      sink.text("type", type);
    sink.number("lowValue", static_cast<unsigned char>(clause->getLowValue()));
    sink.number("highValue", static_cast<unsigned char>(clause->getHighValue()));
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
  sink.text("organization", nameOf(file.getOrganizationType()));
  if (ClauseAccess *access = file.getAccess())
    sink.text("access", nameOf(access->getType()));
  if (ClauseRecordDelimiter *delimiter = file.getRecordDelimiter())
    name("recordDelimiter", delimiter->getName());
  if (ClauseAssign *assign = file.getAssign()) {
    Open inner(sink, "", "ClauseAssign", assign->getRange());
    for (Node *assignment : assign->getAssignmentListElements()) {
      // Words and literals have no common base but Node, which has no kind code.
      if (auto *word = dynamic_cast<Word *>(assignment)) {
        Open part(sink, "", "Word", word->getRange());
        name("name", word);
      } else {
        operand("", static_cast<LiteralExpression *>(assignment));
      }
    }
  }
  if (ClauseReserve *reserve = file.getReserve())
    operand("reserve", reserve->getReserveCount());
  if (ClausePadding *padding = file.getPadding())
    operand("padding", padding->getCharacter());
  auto password = [&](ClausePassWord *clause) {
    if (clause)
      operand("password", clause->getDataName());
  };
  if (ClauseRecordKey *key = file.getRecordKey()) {
    operand("recordKey", key->getDataName());
    password(key->getPassWord());
  }
  if (ClauseRelativeKey *key = file.getRelativeKey())
    operand("relativeKey", key->getDataName());
  for (ClauseAlternate *key : file.getAlternateListElements()) {
    operand(key->isDuplicates() ? "alternateKey duplicates" : "alternateKey", key->getDataName());
    password(key->getPassWord());
  }
  password(file.getPassWord());
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
    if (llvm::StringRef area = nameOf(same->getType()); !area.empty())
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
    sink.text("label", nameOf(label->getType()));
  if (ClauseCodeSet *codeSet = file.getCodeSet())
    name("codeSet", codeSet->getAlphabetName());
  if (ClauseDataRecord *records = file.getDataRecord())
    words("dataRecords", records->getNameListElements());
  if (ParaFileControl *control = file.getFileControl())
    sink.target("fileControl", {control->getFileName()->getDisplayName(), control->getRange()});
  entry("linageCounter", file.getLineageCounter());
  if (ClauseLabel *label = file.getLabel())
    for (Expression *record : label->getDataNameListElements())
      operand("labelRecord", record);
  if (ClauseValueOf *values = file.getValueOf()) {
    Open inner(sink, "", "ClauseValueOf", values->getRange());
    for (ValueOfElem *element : values->getFileValueOfElemListElements()) {
      Open part(sink, "", "ValueOfElem", element->getRange());
      name("name", element->getFieldId());
      operand("is", element->getFieldIdLiteral());
    }
  }
  if (ClauseBlock *block = file.getBlock()) {
    Open inner(sink, "", "ClauseBlock", block->getRange());
    sink.text("unit", nameOf(block->getUnit()));
    operand("min", block->getMinLength());
    operand("max", block->getMaxLength());
  }
  if (ClauseRecord *record = file.getRecord()) {
    Open inner(sink, "", "ClauseRecord", record->getRange());
    flag("varying", record->getIsVarying());
    flag("fromRecords", record->getForDetermineV());
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
  if (ClauseSynchronized *clause = entry.getSynchronized()) {
    sink.flag("synchronized");
    name("synchronizedSide", clause->getWord());
  }
  flag("groupUsageNational", entry.getGroupUsage() != nullptr);
  flag("volatile", entry.getVolatile() != nullptr);
  if (ClauseSign *sign = entry.getSign()) {
    sink.text("sign", sign->isLeading() ? "LEADING" : "TRAILING");
    flag("separateSign", sign->isSeperate());
  }
  if (ClauseDateFormat *format = entry.getDateFormat())
    name("dateFormat", format->getPatten());

  // Results of the checks.
  if (entry.getOffsetSize() >= 0 && entry.getType() == DescType::Data)
    sink.number("offset", entry.getOffsetSize());
  flag("hasValue", entry.haveValue());
  flag("synchronizedTable", entry.getOccursSync());
  flag("dualVariable", entry.isDualVar());
  entries("reportItems", entry.getGenDEElements());
  llvm::SmallVector<TreeTarget, 2> reports;
  for (auto report = entry.getUsedRDListBegin(); report != entry.getUsedRDListEnd(); ++report)
    reports.push_back({(*report)->getReportName()->getDisplayName(), (*report)->getRange()});
  if (!reports.empty())
    sink.targets("usedByReports", reports);
}

/// The clauses with operands, which are nodes below their entry.
void TreePrinter::clauses(DataDescription &entry) {
  if (ClauseOccurs *occurs = entry.getOccurs()) {
    Open inner(sink, "", "ClauseOccurs", occurs->getRange());
    sink.number("min", occurs->getLeastOccurrences());
    sink.number("max", occurs->getMostOccurrences());
    operand("dependingOn", occurs->getOdoName());
    for (Key *key : occurs->getKeysElements()) {
      Open part(sink, "", "Key", key->getRange());
      sink.text("order", nameOf(key->getOrder()));
      all("", key->getDataListElements());
    }
    for (DataIdentifierExpression *index : occurs->getIndexListElements())
      operand("index", index);
  }
  if (ClauseRedefines *redefines = entry.getRedefines())
    operand("redefines", redefines->getData());
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

void TreePrinter::properties(ReportDescription &report) {
  if (FileDescription *file = report.getFileDescription())
    sink.target("writtenTo", {file->getFileName()->getDisplayName(), file->getRange()});
  if (ClauseStyle *style = report.getRdStyleClause())
    words("styles", style->getStyleListElements());
  if (report.getDeclIndexCnt())
    sink.number("reportingProcedures", report.getDeclIndexCnt());

  // The groups by their types.
  entries("reportHeadings", report.getRHDescListElements());
  entries("pageHeadings", report.getPHDescListElements());
  entries("controlHeadings", report.getCHDescListElements());
  entries("details", report.getDEDescListElements());
  entries("controlFootings", report.getCFDescListElements());
  entries("pageFootings", report.getPFDescListElements());
  entries("reportFootings", report.getRFDescListElements());
}

void TreePrinter::clauses(ReportDescription &report) {
  if (ClauseAllow *allow = report.getAllowClause()) {
    Open inner(sink, "", "ClauseAllow", allow->getRange());
    flag("not", !allow->isAllowed());
  }
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
  if (ClauseOverflow *overflow = report.getOverflowClause()) {
    Open inner(sink, "", "ClauseOverflow", overflow->getRange());
    operand("", overflow->getLiteral());
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

/// The clauses of few words, then how the checks lay the page out.
void TreePrinter::properties(ReportDataDescription &entry) {
  flag("groupIndicate", entry.isGroupIndicate());
  flag("multiplePages", entry.getMultipleClause() != nullptr);
  if (ClauseStyle *style = entry.getStyleClause())
    words("styles", style->getStyleListElements());
  if (entry.getDeclIndex())
    sink.number("reportingProcedure", entry.getDeclIndex());
  this->entry("lineEntry", entry.getCurrLineDesc());
  this->entry("head", entry.getCurrHeadDesc());
  this->entry("headBefore", entry.getPrevHeadDesc());
  entries("lines", entry.getLineDescListElements());
  entries("lineItems", entry.getColDescListElements());
  if (entry.getCountExprListSize())
    sink.number("counted", static_cast<std::int64_t>(entry.getCountExprListSize()));
}

void TreePrinter::clauses(ReportDataDescription &entry) {
  if (ClauseType *type = entry.getTypeClause()) {
    Open inner(sink, "", "ClauseType", type->getRange());
    sink.text("type", nameOf(type->getTypeOption()));
    flag("final", type->getReportFinal());
    flag("orPage", type->isOrPage());
    flag("all", type->isAll());
    for (IdentifierExpression *control : type->getControlIdListElements())
      operand("control", control);
  }
  if (ClauseLine *line = entry.getLineClause()) {
    Open inner(sink, "", "ClauseLine", line->getRange());
    flag("relative", line->isRelative());
    flag("nextPage", line->getNextPage());
    all("", line->getNumbersListElements());
    all("varying", listOrEmpty(line->getVaryingList()));
  }
  if (ClauseColumn *column = entry.getColumnClause()) {
    Open inner(sink, "", "ClauseColumn", column->getRange());
    flag("relative", column->isRelative());
    sink.text("alignment", nameOf(column->getAlignment()));
    all("", column->getNumbersListElements());
  }
  if (ClauseNextGroup *next = entry.getNextGroupClause()) {
    Open inner(sink, "", "ClauseNextGroup", next->getRange());
    flag("relative", next->getType() == NextGroupType::Plus);
    flag("nextPage", next->getType() == NextGroupType::NextPage);
    operand("", next->getNumberExpr());
  }
  repetition(entry);
  one("", entry.getSourceClause());
  if (ClauseSum *sum = entry.getSumClause()) {
    Open inner(sink, "", "ClauseSum", sum->getRange());
    flag("rounded", sum->getRounded());
    flag("resetFinal", sum->getResetType() == ResetType::Final);
    for (SumClauseExpr *part : sum->getSumExprListElements())
      print("", *part);
    operand("resetOn", sum->getResetControl());
    one("generated", sum->getSumDesc());
  }
  if (ClauseCount *count = entry.getCountClause()) {
    Open inner(sink, "", "ClauseCount", count->getRange());
    all("", count->getCountExprListElements());
  }
  if (ClauseReportValue *value = entry.getReportValueClause())
    one("", value->getValue());
  one("", entry.getFunctionClause());
  for (ClausePresentAfter *present : entry.getClausePresentAfterListElements()) {
    Open inner(sink, "", "ClausePresentAfter", present->getRange());
    sink.text("after", nameOf(present->getAfterType()));
    flag("absent", present->isAbsent());
    contents(*present);
  }
  for (ClausePresentWhen *present : entry.getClausePresentWhenListElements()) {
    Open inner(sink, "", "ClausePresentWhen", present->getRange());
    flag("other", present->getWhenType() == PresentType::None);
    one("condition", present->getPresentCond());
    contents(*present);
  }
}

/// How often items and groups are printed, and where they may go on.
void TreePrinter::repetition(ReportDataDescription &entry) {
  if (ClauseReportOccurs *occurs = entry.getReportOccursClause()) {
    Open inner(sink, "", "ClauseReportOccurs", occurs->getRange());
    operand("step", occurs->getStepExpr());
    all("varying", listOrEmpty(occurs->getVaryingList()));
  }
  if (ClauseRepeated *repeated = entry.getRepeatedClause()) {
    Open inner(sink, "", "ClauseRepeated", repeated->getRange());
    operand("times", repeated->getTimesExpr());
    operand("every", repeated->getEveryExpr());
  }
  if (ClauseWrap *wrap = entry.getWrapClause()) {
    Open inner(sink, "", "ClauseWrap", wrap->getRange());
    operand("after", wrap->getAfterColumn());
    operand("to", wrap->getToColumn());
  }
  if (ClauseGroupLimit *limit = entry.getGroupLimitClause())
    operand("groupLimit", limit->getLimitExpr());
}

/// What a report item shows under a condition, or after a new page or a control break.
void TreePrinter::contents(PresentContents &present) {
  operand("control", present.getControlId());
  one("", present.getSource());
  if (ClauseReportValue *value = present.getValue())
    one("", value->getValue());
  one("", present.getFunction());
}

void TreePrinter::print(llvm::StringRef role, ClauseFunction &function) {
  Open node(sink, role, "ClauseFunction", function.getRange());
  name("name", function.getFunctionName());
  all("argument", function.getArgumentListElements());
}

void TreePrinter::print(llvm::StringRef role, CountClauseExpr &count) {
  Open node(sink, role, "CountClauseExpr", count.getRange());
  all("", count.getNameListElements());
}

void TreePrinter::print(llvm::StringRef role, VaryingPhrase &phrase) {
  Open node(sink, role, "VaryingPhrase", phrase.getRange());
  name("name", phrase.getName());
  operand("from", phrase.getFromExpr());
  operand("by", phrase.getByExpr());
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
