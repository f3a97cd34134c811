//===- ParseReport.cpp - data division, report section --------------------===//
//
// RD entries and their clauses, and the entries of report groups. The clauses of
// the latter are in ParseReportGroup.cpp.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseReport.h"

namespace tarka {

static constexpr Keyword reportKeywords[] = {Keyword::Code, Keyword::Control,  Keyword::Global,
                                             Keyword::Line, Keyword::Overflow, Keyword::Page,
                                             Keyword::Style};
static constexpr Keyword reportSynonyms[] = {Keyword::Controls, Keyword::With};
static constexpr Keyword reportInnerWords[] = {Keyword::Control, Keyword::Line};
static constexpr ClauseSet reportClauses{
    "a report description entry", reportKeywords, reportSynonyms, reportInnerWords,
    /*beginsWithName=*/false,
    /*endsAtLevelNumber=*/true};

void ReportParser::parseReportSection(DataDivision &division) {
  // One message for groups without a report, however many there are.
  bool isReported = false;
  for (Progress progress(stream);; progress.ensure()) {
    // Only the word is missing.
    const bool isWordMissing =
        peek().isUserWord() && peek().isFirstOnLine() && reportClauses.contains(peek(1).keyword);
    if (isWordMissing)
      expected("RD");
    if (at(Keyword::Rd) || isWordMissing) {
      // The groups of a report that has no name are read, but belong nowhere.
      ReportDescription *report = parseReportDescription();
      if (report)
        division.addReportSection(report);
      parseReportGroups(report);
    } else if (at(TokenKind::IntegerLiteral)) {
      // Where the header of the section was found too late, the report is before it.
      if (isHeaderDisplaced(Keyword::Report) && !division.getReportSectionElements().empty()) {
        parseReportGroups(division.getReportSectionElements().back());
        continue;
      }
      if (!isReported)
        error(DiagnosticId::GroupWithoutReport, here());
      isReported = true;
      parseReportGroups(nullptr);
    } else if (accept(TokenKind::Period) || skipEmbeddedBlock()) {
      continue;
    } else if (atEntryBoundary(reportClauses) || atStrayProcedures()) {
      return;
    } else if (isRestOfEntry()) {
      noteMistake();
      skipToEntry(reportClauses);
    } else {
      expected("RD");
      isReported = true;
      stream.skip();
      skipToEntry(reportClauses);
    }
  }
}

void ReportParser::parseReportGroups(ReportDescription *report) {
  parseRecords(
      groupClauses,
      [&](unsigned level) {
        DataDescription *entry = parseReportGroupEntry(level);
        // What belongs to no report is not in the tree.
        if (entry && !report)
          context.diagnostics.getDamage().add(entry->getRange());
        return entry;
      },
      [&](DataDescription *group) {
        group->setStorageType(StorageType::Report);
        if (report)
          report->addRecord(llvm::cast<ReportDataDescription>(group));
      });
}

/// level-number [data-name] clauses.
DataDescription *ReportParser::parseReportGroupEntry(unsigned assumedLevel) {
  SourceRange begin = here();
  auto *entry = makeAt<ReportDataDescription>(begin);
  entry->setLevelNum(parseLevelNumber(assumedLevel));
  if (Word *name = parseEntryName(groupClauses))
    entry->setDataName(name);
  PresentContents *choice = nullptr;
  entry->setRange(
      parseClauses(begin, groupClauses, [&] { return parseReportGroupClause(*entry, choice); }));
  return entry;
}

//===----------------------------------------------------------------------===//
// RD
//===----------------------------------------------------------------------===//

/// RD report-name clauses. Null when the entry has no name.
ReportDescription *ReportParser::parseReportDescription() {
  SourceRange begin = here();
  recovery.resumeReporting();
  Recovery::ConstructScope construct(recovery);
  accept(Keyword::Rd);
  Word *name = parseDeclaredWord("a report-name");
  if (!name) {
    skipToEntry(reportClauses);
    return nullptr;
  }
  auto *report = makeAt<ReportDescription>(begin, name);
  report->setRange(
      parseClauses(begin, reportClauses, [&] { return parseReportDescriptionClause(*report); }));
  return report;
}

bool ReportParser::parseReportDescriptionClause(ReportDescription &report) {
  using Report = ReportDescription;
  switch (peek().keyword) {
  case Keyword::Global:
    return parseOnce(report, &Report::getGlobal, &Report::setGlobal,
                     &ReportParser::parseBareClause<ClauseGlobal>);
  case Keyword::Is:
    if (!peek(1).is(Keyword::Global))
      return unknownClause(reportClauses);
    stream.skip();
    return true;
  case Keyword::With:
  case Keyword::Code:
    return parseOnce(report, &Report::getCodeClause, &Report::setCodeClause,
                     &ReportParser::parseCode);
  case Keyword::Control:
  case Keyword::Controls:
    return parseOnce(report, &Report::getControlClause, &Report::setControlClause,
                     &ReportParser::parseControl);
  case Keyword::Page:
    return parseOnce(report, &Report::getPageLimitClause, &Report::setPageLimitClause,
                     &ReportParser::parsePageLimit);
  case Keyword::Line:
    return parseOnce(report, &Report::getLineLimitClause, &Report::setLineLimitClause,
                     &ReportParser::parseLineLimit);
  case Keyword::Overflow:
    return parseOnce(report, &Report::getOverflowClause, &Report::setOverflowClause,
                     &ReportParser::parseOverflow);
  case Keyword::Style:
    return parseOnce(report, &Report::getRdStyleClause, &Report::setRdStyleClause,
                     &ReportParser::parseStyle);
  default:
    if (atWord("ALLOW"))
      return parseOnce(report, &Report::getAllowClause, &Report::setAllowClause,
                       &ReportParser::parseAllow);
    return unknownClause(reportClauses);
  }
}

/// ALLOW [NO] SOURCE SUM {CORR | CORRESPONDING}
ClauseAllow *ReportParser::parseAllow() {
  SourceRange begin = here();
  stream.skip();
  bool isAllowed = !accept(Keyword::No);
  if (!expect(Keyword::Source) || !expect(Keyword::Sum))
    return nullptr;
  if (!acceptAny(Keyword::Corr, Keyword::Corresponding))
    return expected("CORR");
  return make<ClauseAllow>(begin, isAllowed);
}

/// [WITH] CODE [IS] {literal | data-name | mnemonic-name}
ClauseCode *ReportParser::parseCode() {
  SourceRange begin = here();
  accept(Keyword::With);
  if (!expect(Keyword::Code))
    return nullptr;
  accept(Keyword::Is);
  Expression *code = nullptr;
  if (atLiteral())
    code = parseLiteral();
  else
    code = parseDataName("a literal or a name");
  if (!code)
    return nullptr;
  return make<ClauseCode>(begin, code);
}

/// {CONTROL | CONTROLS} [IS | ARE] [FINAL] [data-name ...]
ClauseControl *ReportParser::parseControl() {
  SourceRange begin = here();
  stream.skip();
  acceptAny(Keyword::Is, Keyword::Are);
  bool isFinal = accept(Keyword::Final);
  auto *clause = makeAt<ClauseControl>(begin, isFinal ? ControlOption::Final : ControlOption::None);
  if (!isFinal && !peek().isUserWord())
    return expected("FINAL or a data-name");
  while (atNameIn(reportClauses)) {
    DataIdentifierExpression *control = parseDataName();
    if (!control)
      return nullptr;
    clause->addControlId(control);
  }
  return complete(clause);
}

/// LINE {LIMIT | LIMITS} [IS | ARE] n [COLUMNS]
ClauseLineLimit *ReportParser::parseLineLimit() {
  SourceRange begin = here();
  accept(Keyword::Line);
  if (!acceptAny(Keyword::Limit, Keyword::Limits))
    return expected("LIMIT");
  acceptAny(Keyword::Is, Keyword::Are);
  Expression *limit = parseNumberOrDataName("a number of columns");
  if (!limit)
    return nullptr;
  acceptAny(Keyword::Columns, Keyword::Cols);
  return make<ClauseLineLimit>(begin, limit);
}

/// OVERFLOW [PROCEDURE] [IS] {literal | word ...}
ClauseOverflow *ReportParser::parseOverflow() {
  SourceRange begin = here();
  accept(Keyword::Overflow);
  accept(Keyword::Procedure);
  accept(Keyword::Is);
  LiteralExpression *filling = nullptr;
  if (atLiteral()) {
    filling = parseLiteral();
    if (!filling)
      return nullptr;
  } else if (accept(Keyword::Stop)) {
    accept(Keyword::Run);
  } else if (!accept(Keyword::Omitted)) {
    return expected("a literal, OMITTED or STOP RUN");
  }
  return make<ClauseOverflow>(begin, filling);
}

/// PAGE [LIMIT [IS] | LIMITS [ARE]] [n [LINE | LINES]] [n COLUMNS] [HEADING n] [FIRST DETAIL n]
/// [LAST CONTROL HEADING n] [LAST DETAIL n] [FOOTING n]
ClausePageLimit *ReportParser::parsePageLimit() {
  SourceRange begin = here();
  accept(Keyword::Page);
  acceptAny(Keyword::Limit, Keyword::Limits);
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClausePageLimit>(begin);

  // The two sizes of the page, distinguished by their units. A report group has the level 1.
  auto atReportGroup = [&] { return atLevelNumber() && peek().text.ltrim('0') == "1"; };
  while ((atNumericLiteral() && !atReportGroup()) || atNameIn(reportClauses)) {
    Expression *number = parseNumberOrDataName("a number of lines");
    if (!number)
      return nullptr;
    bool isColumns = acceptAny(Keyword::Columns, Keyword::Cols, Keyword::Column, Keyword::Col);
    if (!isColumns)
      acceptAny(Keyword::Lines, Keyword::Line);
    if (isColumns ? clause->getColumns() : clause->getPageLimit())
      error(DiagnosticId::ClauseTwice, number->getRange(), "the number");
    else if (isColumns)
      clause->setColumns(number);
    else
      clause->setPageLimit(number);
  }

  while (at(Keyword::Heading, Keyword::First, Keyword::Last, Keyword::Footing))
    if (!parsePageRegion(*clause))
      return nullptr;
  return complete(clause);
}

/// One line number of PAGE LIMIT.
bool ReportParser::parsePageRegion(ClausePageLimit &page) {
  using Page = ClausePageLimit;
  SourceRange begin = here();
  std::string word = describe(peek());
  Expression *(Page::*get)() const = nullptr;
  void (Page::*set)(Expression *) = nullptr;
  if (accept(Keyword::Heading)) {
    get = &Page::getHeading;
    set = &Page::setHeading;
  } else if (accept(Keyword::Footing)) {
    get = &Page::getFooting;
    set = &Page::setFooting;
  } else if (accept(Keyword::First)) {
    if (!acceptAny(Keyword::Detail, Keyword::De))
      return expected("DETAIL");
    get = &Page::getFirstDetail;
    set = &Page::setFirstDetail;
  } else if (accept(Keyword::Last)) {
    if (acceptAny(Keyword::Detail, Keyword::De)) {
      get = &Page::getLastDetail;
      set = &Page::setLastDetail;
    } else if (acceptAny(Keyword::Ch, Keyword::Cf, Keyword::Control)) {
      bool isFooting = accept(Keyword::Footing);
      if (!isFooting)
        accept(Keyword::Heading);
      get = isFooting ? &Page::getFooting : &Page::getLastControlHeading;
      set = isFooting ? &Page::setFooting : &Page::setLastControlHeading;
    } else
      return expected("DETAIL or CONTROL HEADING");
  }
  accept(Keyword::Is);
  Expression *line = parseNumberOrDataName("the number of a line");
  if (!line)
    return false;
  if ((page.*get)())
    error(DiagnosticId::ClauseTwice, begin, word);
  else
    (page.*set)(line);
  return true;
}

/// STYLE [IS] style ...
ClauseStyle *ReportParser::parseStyle() {
  SourceRange begin = here();
  accept(Keyword::Style);
  accept(Keyword::Is);
  auto *clause = makeAt<ClauseStyle>(begin);
  do {
    Word *style = parseUserWord("a style");
    if (!style)
      return nullptr;
    clause->addStyle(style);
  } while (atNameIn(groupClauses));
  return complete(clause);
}

} // namespace tarka
