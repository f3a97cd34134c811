//===- ReportClauses.h - clauses of the report section ----------*- C++ -*-===//
//
// The clauses of report description entries (RD) and of report group entries.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_REPORTCLAUSES_H
#define TARKA_AST_REPORTCLAUSES_H

#include "AST/DataClauses.h"

namespace tarka {

class ClauseSource;
class ClauseReportValue;

//===----------------------------------------------------------------------===//
// Clauses of the RD
//===----------------------------------------------------------------------===//

/// ALLOW [NO] SOURCE SUM CORR.
class ClauseAllow : public Node {
public:
  ClauseAllow(const Node *at, bool isAllowed) : Node(at), allowed(isAllowed) {}

  bool isAllowed() const { return allowed; }

private:
  bool allowed;
};

/// CODE: what distinguishes the lines of the report in its file.
class ClauseCode : public Node {
public:
  ClauseCode(const Node *at, Expression *code) : Node(at), codeExpr(code) {}

  /// A literal, a data item or a mnemonic name.
  Expression *getCodeExpr() const { return codeExpr; }

private:
  Expression *codeExpr;
};

/// CONTROL. The controls stand in the order written, major first; FINAL is not in the list.
class ClauseControl : public Node {
public:
  ClauseControl(const Node *at, ControlOption controlOption) : Node(at), option(controlOption) {}

  ControlOption getControlOption() const { return option; }
  void setControlOption(ControlOption value) { option = value; }

  TARKA_LIST_ADD(IdentifierExpression, controlIds, ControlIdList, ControlId)

private:
  NodeList<IdentifierExpression> controlIds;
  ControlOption option;
};

/// LINE LIMIT: columns in a line.
class ClauseLineLimit : public Node {
public:
  ClauseLineLimit(const Node *at, Expression *limit) : Node(at), lineLimitExpr(limit) {}

  Expression *getLineLimitExpr() const { return lineLimitExpr; }

private:
  Expression *lineLimitExpr;
};

/// OVERFLOW PROCEDURE, of a SOURCE or SUM that does not fit.
class ClauseOverflow : public Node {
public:
  ClauseOverflow(const Node *at, Expression *filling) : Node(at), literal(filling) {}

  /// What fills the field; null for the other procedures.
  Expression *getLiteral() const { return literal; }

private:
  Expression *literal;
};

/// PAGE LIMIT. The numbers are lines of the page, from 1, and null when not written.
class ClausePageLimit : public Node {
public:
  explicit ClausePageLimit(const Node *at) : Node(at) {}

  TARKA_FIELD(Expression *, pageLimit, PageLimit)
  /// n COLUMNS.
  TARKA_FIELD(Expression *, columns, Columns)
  TARKA_FIELD(Expression *, heading, Heading)
  TARKA_FIELD(Expression *, firstDetail, FirstDetail)
  /// LAST CONTROL HEADING.
  TARKA_FIELD(Expression *, lastControlHeading, LastControlHeading)
  TARKA_FIELD(Expression *, lastDetail, LastDetail)
  TARKA_FIELD(Expression *, footing, Footing)

private:
  Expression *pageLimit = nullptr;
  Expression *columns = nullptr;
  Expression *heading = nullptr;
  Expression *firstDetail = nullptr;
  Expression *lastControlHeading = nullptr;
  Expression *lastDetail = nullptr;
  Expression *footing = nullptr;
};

/// STYLE of a whole report, or of one item.
class ClauseStyle : public Node {
public:
  explicit ClauseStyle(const Node *at) : Node(at) {}

  /// UNDERLINE, HIGHLIGHT and the like.
  TARKA_LIST_ADD(Word, styles, StyleList, Style)

private:
  NodeList<Word> styles;
};

//===----------------------------------------------------------------------===//
// Clauses of report group entries
//===----------------------------------------------------------------------===//

/// TYPE.
class ClauseType : public Node {
public:
  ClauseType(const Node *at, ReportGroupType group) : Node(at), typeOption(group) {}

  ReportGroupType getTypeOption() const { return typeOption; }

  /// CONTROL HEADING or CONTROL FOOTING FINAL.
  TARKA_FIELD(bool, reportFinal, ReportFinal)
  /// CONTROL HEADING ... OR PAGE.
  TARKA_FLAG(orPage, OrPage)
  /// CONTROL FOOTING ALL: a footing for every control of the report.
  TARKA_FLAG(all, All)
  /// The controls of a CONTROL HEADING or CONTROL FOOTING.
  TARKA_LIST_ADD(IdentifierExpression, controlIds, ControlIdList, ControlId)

private:
  bool reportFinal = false;
  bool orPage = false;
  bool all = false;
  NodeList<IdentifierExpression> controlIds;
  ReportGroupType typeOption;
};

/// One name FROM start BY step of VARYING.
class VaryingPhrase : public Node {
public:
  /// \p fromExpr and \p byExpr are null when not written; both count as 1 then.
  VaryingPhrase(const Node *at, Word *countName, Expression *fromExpr, Expression *byExpr)
      : Node(at), name(countName), from(fromExpr), by(byExpr) {}

  Word *getName() const { return name; }
  Expression *getFromExpr() const { return from; }
  Expression *getByExpr() const { return by; }

private:
  Word *name;
  Expression *from;
  Expression *by;
};

/// LINE.
class ClauseLine : public Node {
public:
  explicit ClauseLine(const Node *at) : Node(at) {}

  /// The phrases of VARYING; null when there are none.
  TARKA_FIELD(std::list<VaryingPhrase *> *, varyingList, VaryingList)
  /// ON NEXT PAGE.
  TARKA_FIELD(bool, nextPage, NextPage)
  /// PLUS: the numbers count from the line before.
  TARKA_FLAG(relative, Relative)
  TARKA_LIST_ADD(Expression, numbers, NumbersList, Numbers)

private:
  std::list<VaryingPhrase *> *varyingList = nullptr;
  bool nextPage = false;
  bool relative = false;
  NodeList<Expression> numbers;
};

/// COLUMN.
class ClauseColumn : public Node {
public:
  explicit ClauseColumn(const Node *at) : Node(at) {}

  /// LEFT, CENTER or RIGHT: which part of the item stands in the column.
  TARKA_FIELD(ColumnAlignment, alignment, Alignment)
  /// PLUS: the numbers count from the end of the item before.
  TARKA_FLAG(relative, Relative)
  TARKA_LIST_ADD(Expression, numbers, NumbersList, Numbers)

private:
  ColumnAlignment alignment = ColumnAlignment::Left;
  bool relative = false;
  NodeList<Expression> numbers;
};

/// NEXT GROUP.
class ClauseNextGroup : public Node {
public:
  /// \p count is null for NEXT PAGE.
  ClauseNextGroup(const Node *at, NextGroupType nextType, Expression *count)
      : Node(at), type(nextType), numberExpr(count) {}

  NextGroupType getType() const { return type; }
  /// The line, or the number of lines after PLUS.
  Expression *getNumberExpr() const { return numberExpr; }

private:
  NextGroupType type;
  Expression *numberExpr;
};

/// GROUP LIMIT: the last line that a group may begin on.
class ClauseGroupLimit : public Node {
public:
  ClauseGroupLimit(const Node *at, Expression *limit) : Node(at), limitExpr(limit) {}

  Expression *getLimitExpr() const { return limitExpr; }

private:
  Expression *limitExpr;
};

/// OCCURS of a report item: OCCURS [n TO] m TIMES [DEPENDING ON item] [STEP n].
class ClauseReportOccurs : public Node {
public:
  explicit ClauseReportOccurs(const Node *at) : Node(at) {}

  /// OCCURS as in other sections.
  TARKA_FIELD(ClauseOccurs *, occurs, Occurs)
  /// STEP or WIDTH: lines or columns from one occurrence to the next; null when not written.
  TARKA_FIELD(Expression *, stepExpr, StepExpr)
  /// The phrases of VARYING; null when there are none.
  TARKA_FIELD(std::list<VaryingPhrase *> *, varyingList, VaryingList)

private:
  ClauseOccurs *occurs = nullptr;
  Expression *stepExpr = nullptr;
  std::list<VaryingPhrase *> *varyingList = nullptr;
};

/// REPEATED: groups side by side.
class ClauseRepeated : public Node {
public:
  /// \p times and \p every are null when not written.
  ClauseRepeated(const Node *at, Expression *times, Expression *every)
      : Node(at), timesExpr(times), everyExpr(every) {}

  Expression *getTimesExpr() const { return timesExpr; }
  /// EVERY n COLUMNS.
  Expression *getEveryExpr() const { return everyExpr; }

private:
  Expression *timesExpr;
  Expression *everyExpr;
};

/// MULTIPLE PAGES, of a group that may go over pages.
TARKA_BARE_CLAUSE(ClauseMultiple);

/// WRAP: where a line goes on in the next one.
class ClauseWrap : public Node {
public:
  explicit ClauseWrap(const Node *at) : Node(at) {}

  /// AFTER COLUMN and TO COLUMN; null when not written.
  TARKA_FIELD(Expression *, afterColumn, AfterColumn)
  TARKA_FIELD(Expression *, toColumn, ToColumn)

private:
  Expression *afterColumn = nullptr;
  Expression *toColumn = nullptr;
};

/// FUNCTION: an item that a routine fills.
class ClauseFunction : public Node {
public:
  ClauseFunction(const Node *at, Word *routine) : Node(at), functionName(routine) {}

  Word *getFunctionName() const { return functionName; }

  TARKA_LIST_ADD(Expression, arguments, ArgumentList, Argument)

private:
  NodeList<Expression> arguments;
  Word *functionName;
};

/// SIGN of a report item.
class ClauseReportSign : public Node {
public:
  ClauseReportSign(const Node *at, ClauseSign *clause) : Node(at), sign(clause) {}

  ClauseSign *getSign() const { return sign; }

private:
  ClauseSign *sign;
};

/// VALUE of a report item.
class ClauseReportValue : public Node {
public:
  /// Stands where \p clause stands.
  explicit ClauseReportValue(ClauseValue *clause) : Node(clause), value(clause) {}

  ClauseValue *getValue() const { return value; }

private:
  ClauseValue *value;
};

/// The operands of one SUM: names to add, and the detail groups after UPON.
class SumClauseExpr : public Node {
public:
  explicit SumClauseExpr(const Node *at) : Node(at) {}

  TARKA_LIST_ADD(Expression, names, NameList, Name)
  TARKA_LIST_ADD(IdentifierExpression, upons, UponList, Upon)

private:
  NodeList<Expression> names;
  NodeList<IdentifierExpression> upons;
};

/// SUM.
class ClauseSum : public Node {
public:
  explicit ClauseSum(const Node *at) : Node(at) {}

  /// ROUNDED.
  TARKA_FIELD(bool, rounded, Rounded)
  /// RESET ON.
  TARKA_FIELD(ResetType, resetType, ResetType)
  TARKA_FIELD(IdentifierExpression *, resetControl, ResetControl)
  /// The item that the sum is kept in; null until the checks make it.
  TARKA_FIELD(DataDescription *, sumDesc, SumDesc)
  TARKA_LIST_ADD(SumClauseExpr, sumExprs, SumExprList, SumExpr)

private:
  bool rounded = false;
  ResetType resetType = ResetType::None;
  IdentifierExpression *resetControl = nullptr;
  DataDescription *sumDesc = nullptr;
  NodeList<SumClauseExpr> sumExprs;
};

/// One operand of SOURCE.
class SourceClauseExpr : public Node {
public:
  /// \p operand is null for SourceExprType::Sum, \p sum for all others.
  SourceClauseExpr(const Node *at, SourceExprType type, Expression *operand,
                   SumClauseExpr *sum = nullptr)
      : Node(at), sourceExprType(type), sumExpr(sum), expr(operand) {}

  SourceExprType getSourceExprType() const { return sourceExprType; }
  SumClauseExpr *getSumExpr() const { return sumExpr; }

private:
  SourceExprType sourceExprType;
  SumClauseExpr *sumExpr;

public:
  TARKA_FIELD(Expression *, expr, Expr)

private:
  Expression *expr = nullptr;
};

/// SOURCE.
class ClauseSource : public Node {
public:
  explicit ClauseSource(const Node *at) : Node(at) {}

  /// Takes the elements of \p list over; null stands for an empty list.
  void setSourceExprList(GivenList<SourceClauseExpr> list) { sourceExprs = list.take(); }

  /// ROUNDED.
  TARKA_FIELD(bool, rounded, Rounded)
  TARKA_LIST_ADD(SourceClauseExpr, sourceExprs, SourceExprList, SourceExpr)

private:
  bool rounded = false;
  NodeList<SourceClauseExpr> sourceExprs;
};

/// The names of one operand of COUNT.
class CountClauseExpr : public Node {
public:
  explicit CountClauseExpr(const Node *at) : Node(at) {}

  TARKA_LIST_ADD(Expression, names, NameList, Name)

private:
  NodeList<Expression> names;
};

/// COUNT: how often groups, or items of them, have been presented.
class ClauseCount : public Node {
public:
  explicit ClauseCount(const Node *at) : Node(at) {}

  /// What is counted, as the checks found it.
  TARKA_LIST_ADD(Expression, countData, CountDataList, CountData)
  TARKA_LIST_ADD(CountClauseExpr, countExprs, CountExprList, CountExpr)

private:
  NodeList<Expression> countData;
  NodeList<CountClauseExpr> countExprs;
};

/// What an item shows when a PRESENT clause holds.
class PresentContents : public Node {
public:
  explicit PresentContents(const Node *at) : Node(at) {}

  /// The control of the clause; null when there is none.
  TARKA_FIELD(IdentifierExpression *, controlId, ControlId)
  // At most one of these is there.
  TARKA_FIELD(ClauseFunction *, function, Function)
  TARKA_FIELD(ClauseSource *, source, Source)
  TARKA_FIELD(ClauseReportValue *, value, Value)

private:
  IdentifierExpression *controlId = nullptr;
  ClauseFunction *function = nullptr;
  ClauseSource *source = nullptr;
  ClauseReportValue *value = nullptr;
};

/// PRESENT AFTER, or ABSENT AFTER.
class ClausePresentAfter : public PresentContents {
public:
  ClausePresentAfter(const Node *at, PresentType type) : PresentContents(at), afterType(type) {}

  PresentType getAfterType() const { return afterType; }

  /// ABSENT AFTER: the contents are shown everywhere else.
  TARKA_FLAG(absent, Absent)

private:
  bool absent = false;
  PresentType afterType;
};

/// PRESENT WHEN.
class ClausePresentWhen : public PresentContents {
public:
  /// \p cond is null unless \p type is PresentType::Condition.
  ClausePresentWhen(const Node *at, PresentType type, Condition *cond)
      : PresentContents(at), whenType(type), presentCond(cond) {}

  PresentType getWhenType() const { return whenType; }
  Condition *getPresentCond() const { return presentCond; }

private:
  PresentType whenType;
  Condition *presentCond;
};

} // namespace tarka

#endif // TARKA_AST_REPORTCLAUSES_H
