//===- ReportDescription.h - RD entries and report groups -------*- C++ -*-===//
//
// A report description entry, and the entries of its report groups.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_REPORTDESCRIPTION_H
#define TARKA_AST_REPORTDESCRIPTION_H

#include "AST/DataDescription.h"
#include "AST/ReportClauses.h"

namespace tarka {

/// An entry of a report group. It needs neither PICTURE nor USAGE.
class ReportDataDescription : public DataDescription {
public:
  explicit ReportDataDescription(const Node *at) : DataDescription(at, DescType::Report) {}
  /// An entry with the name, level, clauses, parent and place of \p entry, without its children.
  explicit ReportDataDescription(DataDescription *entry)
      : DataDescription(*entry, DescType::Report) {}

  static bool classof(const DataDescription *entry) { return entry->getType() == DescType::Report; }

  // Clauses, null when absent.
  TARKA_FIELD(ClauseColumn *, columnClause, ColumnClause)
  TARKA_FIELD(ClauseCount *, countClause, CountClause)
  TARKA_FIELD(ClauseFunction *, functionClause, FunctionClause)
  TARKA_FIELD(ClauseGroupLimit *, groupLimitClause, GroupLimitClause)
  TARKA_FIELD(ClauseLine *, lineClause, LineClause)
  TARKA_FIELD(ClauseMultiple *, multipleClause, MultipleClause)
  TARKA_FIELD(ClauseNextGroup *, nextGroupClause, NextGroupClause)
  TARKA_FIELD(ClauseRepeated *, repeatedClause, RepeatedClause)
  TARKA_FIELD(ClauseReportOccurs *, reportOccursClause, ReportOccursClause)
  TARKA_FIELD(ClauseReportSign *, reportSignClause, ReportSignClause)
  TARKA_FIELD(ClauseReportValue *, reportValueClause, ReportValueClause)
  TARKA_FIELD(ClauseSource *, sourceClause, SourceClause)
  TARKA_FIELD(ClauseStyle *, styleClause, StyleClause)
  TARKA_FIELD(ClauseSum *, sumClause, SumClause)
  TARKA_FIELD(ClauseType *, typeClause, TypeClause)
  TARKA_FIELD(ClauseWrap *, wrapClause, WrapClause)
  /// GROUP INDICATE.
  TARKA_FLAG(groupIndicate, GroupIndicate)
  TARKA_LIST_ADD(ClausePresentAfter, presentAfters, ClausePresentAfterList, ClausePresentAfter)
  TARKA_LIST_ADD(ClausePresentWhen, presentWhens, ClausePresentWhenList, ClausePresentWhen)

  /// The number of the USE BEFORE REPORTING procedure of the group, from 1; 0 when it has none.
  TARKA_FIELD(int, declIndex, DeclIndex)

  // Results of the checks. "Head" is an entry that begins a line, "line" the line that an entry is
  // in.
  TARKA_FIELD(ReportDataDescription *, currHeadDesc, CurrHeadDesc)
  TARKA_FIELD(ReportDataDescription *, prevHeadDesc, PrevHeadDesc)
  TARKA_FIELD(ReportDataDescription *, currLineDesc, CurrLineDesc)
  /// The lines of a group, and the items of a line, in the order of the page.
  TARKA_LIST_ADD(ReportDataDescription, lineDescs, LineDescList, LineDesc)
  TARKA_LIST_ADD(ReportDataDescription, colDescs, ColDescList, ColDesc)
  /// The COUNT operands that refer to this entry.
  TARKA_LIST_ADD(Expression, countExprs, CountExprList, CountExpr)

  /// Exchanges the last two lines of the group; nothing happens when there are fewer.
  void swapLineDesc();

private:
  ClauseColumn *columnClause = nullptr;
  ClauseCount *countClause = nullptr;
  ClauseFunction *functionClause = nullptr;
  ClauseGroupLimit *groupLimitClause = nullptr;
  ClauseLine *lineClause = nullptr;
  ClauseMultiple *multipleClause = nullptr;
  ClauseNextGroup *nextGroupClause = nullptr;
  ClauseRepeated *repeatedClause = nullptr;
  ClauseReportOccurs *reportOccursClause = nullptr;
  ClauseReportSign *reportSignClause = nullptr;
  ClauseReportValue *reportValueClause = nullptr;
  ClauseSource *sourceClause = nullptr;
  ClauseStyle *styleClause = nullptr;
  ClauseSum *sumClause = nullptr;
  ClauseType *typeClause = nullptr;
  ClauseWrap *wrapClause = nullptr;
  bool groupIndicate = false;
  NodeList<ClausePresentAfter> presentAfters;
  NodeList<ClausePresentWhen> presentWhens;
  int declIndex = 0;
  ReportDataDescription *currHeadDesc = nullptr;
  ReportDataDescription *prevHeadDesc = nullptr;
  ReportDataDescription *currLineDesc = nullptr;
  NodeList<ReportDataDescription> lineDescs;
  NodeList<ReportDataDescription> colDescs;
  NodeList<Expression> countExprs;
};

/// An RD entry.
class ReportDescription : public Node {
public:
  ReportDescription(const Node *at, Word *name) : Node(at), reportName(name) {}

  Word *getReportName() const { return reportName; }

  /// The level-01 entries of the report groups, in source order.
  NodeList<ReportDataDescription>::iterator getRecordListBegin() { return records.begin(); }
  NodeList<ReportDataDescription>::iterator getRecordListEnd() { return records.end(); }
  std::size_t getRecordListSize() const { return records.size(); }
  const NodeList<ReportDataDescription> &getRecordListElements() const { return records; }
  /// Appends a report group and makes this entry its report description.
  void addRecord(ReportDataDescription *group);

  // Clauses, null when absent.
  TARKA_FIELD(ClauseGlobal *, global, Global)
  TARKA_FIELD(ClauseAllow *, allowClause, AllowClause)
  TARKA_FIELD(ClauseCode *, codeClause, CodeClause)
  TARKA_FIELD(ClauseControl *, controlClause, ControlClause)
  TARKA_FIELD(ClauseLineLimit *, lineLimitClause, LineLimitClause)
  TARKA_FIELD(ClauseOverflow *, overflowClause, OverflowClause)
  TARKA_FIELD(ClausePageLimit *, pageLimitClause, PageLimitClause)
  TARKA_FIELD(ClauseStyle *, rdStyleClause, RdStyleClause)

  /// The file that the report is written to; null until the checks find it.
  TARKA_FIELD(FileDescription *, fileDescription, FileDescription)
  /// How many USE BEFORE REPORTING procedures the report has so far.
  TARKA_FIELD(int, declIndexCnt, DeclIndexCnt)

  // The groups by their type, as the checks sort them.
  TARKA_LIST_ADD(ReportDataDescription, reportHeadings, RHDescList, RHDesc)
  TARKA_LIST_ADD(ReportDataDescription, pageHeadings, PHDescList, PHDesc)
  TARKA_LIST_ADD(ReportDataDescription, controlHeadings, CHDescList, CHDesc)
  TARKA_LIST_ADD(ReportDataDescription, details, DEDescList, DEDesc)
  TARKA_LIST_ADD(ReportDataDescription, controlFootings, CFDescList, CFDesc)
  TARKA_LIST_ADD(ReportDataDescription, pageFootings, PFDescList, PFDesc)
  TARKA_LIST_ADD(ReportDataDescription, reportFootings, RFDescList, RFDesc)

private:
  ClauseGlobal *global = nullptr;
  ClauseAllow *allowClause = nullptr;
  ClauseCode *codeClause = nullptr;
  ClauseControl *controlClause = nullptr;
  ClauseLineLimit *lineLimitClause = nullptr;
  ClauseOverflow *overflowClause = nullptr;
  ClausePageLimit *pageLimitClause = nullptr;
  ClauseStyle *rdStyleClause = nullptr;
  FileDescription *fileDescription = nullptr;
  int declIndexCnt = 0;
  NodeList<ReportDataDescription> reportHeadings;
  NodeList<ReportDataDescription> pageHeadings;
  NodeList<ReportDataDescription> controlHeadings;
  NodeList<ReportDataDescription> details;
  NodeList<ReportDataDescription> controlFootings;
  NodeList<ReportDataDescription> pageFootings;
  NodeList<ReportDataDescription> reportFootings;
  friend class DataDivision;
  Word *reportName;
  NodeList<ReportDataDescription> records;
  /// The division whose index holds the groups; null while there is none.
  DataDivision *division = nullptr;
};

} // namespace tarka

#endif // TARKA_AST_REPORTDESCRIPTION_H
