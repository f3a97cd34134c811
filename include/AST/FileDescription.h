//===- FileDescription.h - FD and SD entries --------------------*- C++ -*-===//
//
// A file description entry, its clauses and its records.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_FILEDESCRIPTION_H
#define TARKA_AST_FILEDESCRIPTION_H

#include "AST/DataDescription.h"

namespace tarka {

/// BLOCK CONTAINS. BLOCK CONTAINS n gives the maximum only, n TO m both.
class ClauseBlock : public Node {
public:
  ClauseBlock(const Node *at, NumericLiteralExpression *min, NumericLiteralExpression *max,
              BlockUnit blockUnit)
      : Node(at), minLength(min), maxLength(max), unit(blockUnit) {}

  /// Null when not written.
  NumericLiteralExpression *getMinLength() const { return minLength; }
  /// Null when not written.
  NumericLiteralExpression *getMaxLength() const { return maxLength; }
  BlockUnit getUnit() const { return unit; }

private:
  NumericLiteralExpression *minLength;
  NumericLiteralExpression *maxLength;
  BlockUnit unit;
};

/// RECORD CONTAINS and RECORD IS VARYING. RECORD CONTAINS n gives the minimum only, n TO m both: a
/// clause with a maximum is one of variable-length records. Lengths are in bytes.
class ClauseRecord : public Node {
public:
  /// \p min, \p max and \p dependingOn may be null.
  ClauseRecord(const Node *at, NumericLiteralExpression *min, NumericLiteralExpression *max,
               bool varying, IdentifierExpression *dependingOnItem)
      : Node(at), dependingOn(dependingOnItem), isVarying(varying), minLength(min), maxLength(max) {
  }

  /// RECORD IS VARYING.
  bool getIsVarying() const { return isVarying; }
  /// The item of DEPENDING ON; null when there is none.
  IdentifierExpression *getDependingOn() const { return dependingOn; }

  /// The checks keep the lengths themselves, from records with OCCURS DEPENDING ON.
  TARKA_FIELD(bool, forDetermineV, ForDetermineV)
  TARKA_FIELD(NumericLiteralExpression *, minLength, MinLength)
  TARKA_FIELD(NumericLiteralExpression *, maxLength, MaxLength)

private:
  IdentifierExpression *dependingOn;
  bool isVarying;
  bool forDetermineV = false;
  NumericLiteralExpression *minLength = nullptr;
  NumericLiteralExpression *maxLength = nullptr;
};

/// LABEL RECORDS.
class ClauseLabel : public Node {
public:
  ClauseLabel(const Node *at, LabelType labelType) : Node(at), type(labelType) {}

  LabelType getType() const { return type; }

  /// The data names of LABEL RECORDS ARE data-name ...; empty for the other kinds.
  TARKA_LIST_ADD(Expression, dataNameList, DataNameList, DataName)

private:
  NodeList<Expression> dataNameList;
  LabelType type;
};

/// One system-name IS value of VALUE OF.
class ValueOfElem : public Node {
public:
  /// \p valueExpr is null when only the name is written.
  ValueOfElem(const Node *at, Word *systemName, Expression *valueExpr)
      : Node(at), fieldId(systemName), fieldIdLiteral(valueExpr) {}

  Word *getFieldId() const { return fieldId; }
  /// The value: a data item or a literal.
  Expression *getFieldIdLiteral() const { return fieldIdLiteral; }

private:
  Word *fieldId;
  Expression *fieldIdLiteral;
};

/// VALUE OF.
class ClauseValueOf : public Node {
public:
  explicit ClauseValueOf(const Node *at) : Node(at) {}

  TARKA_LIST_ADD(ValueOfElem, elements, FileValueOfElemList, FileValueOfElem)

private:
  NodeList<ValueOfElem> elements;
};

/// DATA RECORDS.
class ClauseDataRecord : public Node {
public:
  explicit ClauseDataRecord(const Node *at) : Node(at) {}

  TARKA_LIST_ADD(Word, names, NameList, Name)

private:
  NodeList<Word> names;
};

/// LINAGE.
class ClauseLinage : public Node {
public:
  explicit ClauseLinage(const Node *at) : Node(at) {}

  /// LINAGE IS n LINES.
  TARKA_FIELD(Expression *, numOfLines, NumOfLines)
  /// WITH FOOTING AT; null when absent, like the two below.
  TARKA_FIELD(Expression *, withFootingAt, WithFootingAt)
  /// LINES AT TOP.
  TARKA_FIELD(Expression *, lineAtTop, LineAtTop)
  /// LINES AT BOTTOM.
  TARKA_FIELD(Expression *, lineAtBottom, LineAtBottom)

private:
  Expression *numOfLines = nullptr;
  Expression *withFootingAt = nullptr;
  Expression *lineAtTop = nullptr;
  Expression *lineAtBottom = nullptr;
};

/// RECORDING MODE.
class ClauseRecordingMode : public Node {
public:
  ClauseRecordingMode(const Node *at, RecordingModeType mode) : Node(at), recordingType(mode) {}

  TARKA_FIELD(RecordingModeType, recordingType, RecordingType)

private:
  RecordingModeType recordingType = RecordingModeType::NotGiven;
};

/// CODE-SET.
class ClauseCodeSet : public Node {
public:
  ClauseCodeSet(const Node *at, Word *alphabet) : Node(at), alphabetName(alphabet) {}

  Word *getAlphabetName() const { return alphabetName; }

private:
  Word *alphabetName;
};

/// REPORT of a file.
class ClauseReport : public Node {
public:
  explicit ClauseReport(const Node *at) : Node(at) {}

  TARKA_LIST_ADD(ReportIdentifierExpression, reportNames, ReportNameList, ReportName)

private:
  NodeList<ReportIdentifierExpression> reportNames;
};

/// An FD or SD entry.
class FileDescription : public Owning<FileDescription> {
public:
  FileDescription(const Node *at, FileDescType descType, Word *name)
      : Owning(at), type(descType), fileName(name) {}

  FileDescType getType() const { return type; }
  /// The file's name, at which the diagnostics of the file point. The position's own file name is
  /// Node::getFileName().
  Word *getFileName() const { return fileName; }

  /// The level-01 records, in source order.
  std::list<DataDescription *>::iterator getDataRecordDescBegin() { return records.begin(); }
  std::list<DataDescription *>::iterator getDataRecordDescEnd() { return records.end(); }
  std::size_t getRecordDescSize() const { return records.size(); }
  const std::list<DataDescription *> &getRecordDescElements() const { return records; }
  /// Appends a record and makes this entry its file description.
  void addRecordDesc(DataDescription *record);
  /// Replaces the records.
  void setRecordDesc(const std::list<DataDescription *> &list);

  /// The SELECT entry; null until the checks find it.
  TARKA_FIELD(ParaFileControl *, fileControl, FileControl)
  /// The LINAGE-COUNTER that the checks make; null without LINAGE.
  TARKA_FIELD(DataDescription *, lineageCounter, LineageCounter)

  // Clauses, null when absent.
  TARKA_FIELD(ClauseExternal *, external, External)
  TARKA_FIELD(ClauseGlobal *, global, Global)
  TARKA_FIELD(ClauseBlock *, block, Block)
  TARKA_FIELD(ClauseRecord *, record, Record)
  TARKA_FIELD(ClauseLabel *, label, Label)
  TARKA_FIELD(ClauseValueOf *, valueOf, ValueOf)
  TARKA_FIELD(ClauseDataRecord *, dataRecord, DataRecord)
  TARKA_FIELD(ClauseLinage *, linage, Linage)
  TARKA_FIELD(ClauseRecordingMode *, recordingMode, RecordingMode)
  TARKA_FIELD(ClauseCodeSet *, codeSet, CodeSet)
  TARKA_FIELD(ClauseReport *, report, Report)

private:
  ParaFileControl *fileControl = nullptr;
  DataDescription *lineageCounter = nullptr;
  ClauseExternal *external = nullptr;
  ClauseGlobal *global = nullptr;
  ClauseBlock *block = nullptr;
  ClauseRecord *record = nullptr;
  ClauseLabel *label = nullptr;
  ClauseValueOf *valueOf = nullptr;
  ClauseDataRecord *dataRecord = nullptr;
  ClauseLinage *linage = nullptr;
  ClauseRecordingMode *recordingMode = nullptr;
  ClauseCodeSet *codeSet = nullptr;
  ClauseReport *report = nullptr;
  friend class DataDivision;
  FileDescType type;
  Word *fileName;
  std::list<DataDescription *> records;
  /// The division whose index holds the records; null while there is none.
  DataDivision *division = nullptr;
};

} // namespace tarka

#endif // TARKA_AST_FILEDESCRIPTION_H
