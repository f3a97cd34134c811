//===- Environment.h - the environment division -----------------*- C++ -*-===//
//
// CONFIGURATION SECTION and INPUT-OUTPUT SECTION with all their paragraphs and
// clauses. A clause that the source does not have is null.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_ENVIRONMENT_H
#define TARKA_AST_ENVIRONMENT_H

#include "AST/Expression.h"
#include "llvm/ADT/DenseMap.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// SOURCE-COMPUTER and OBJECT-COMPUTER
//===----------------------------------------------------------------------===//

/// SOURCE-COMPUTER. name WITH DEBUGGING MODE.
class ParaSourceComputer : public Node {
public:
  using Node::Node;

  TARKA_FIELD(Word *, computerName, ComputerName)
  TARKA_FLAG(debuggingMode, DebuggingMode)

private:
  Word *computerName = nullptr;
  bool debuggingMode = false;
};

/// MEMORY SIZE integer WORDS, CHARACTERS or MODULES.
class ClauseMemorySize : public Node {
public:
  ClauseMemorySize(const Node *at, NumericLiteralExpression *literal) : Node(at), size(literal) {}
  NumericLiteralExpression *getSize() const { return size; }

private:
  NumericLiteralExpression *size;
};

/// PROGRAM COLLATING SEQUENCE IS alphabet-name.
class ClauseSequence : public Node {
public:
  ClauseSequence(const Node *at, Word *alphabetName) : Node(at), sequence(alphabetName) {}
  Word *getSequence() const { return sequence; }

private:
  Word *sequence;
};

/// SEGMENT-LIMIT IS priority-number.
class ClauseSegmentLimit : public Node {
public:
  ClauseSegmentLimit(const Node *at, NumericLiteralExpression *literal)
      : Node(at), limit(literal) {}
  NumericLiteralExpression *getLimit() const { return limit; }

private:
  NumericLiteralExpression *limit;
};

/// OBJECT-COMPUTER.
class ParaObjectComputer : public Node {
public:
  using Node::Node;

  TARKA_FIELD(Word *, computerName, ComputerName)
  TARKA_FIELD(ClauseMemorySize *, memSize, MemSize)
  TARKA_FIELD(ClauseSequence *, sequence, Sequence)
  TARKA_FIELD(ClauseSegmentLimit *, segment, Segment)

private:
  Word *computerName = nullptr;
  ClauseMemorySize *memSize = nullptr;
  ClauseSequence *sequence = nullptr;
  ClauseSegmentLimit *segment = nullptr;
};

//===----------------------------------------------------------------------===//
// SPECIAL-NAMES
//===----------------------------------------------------------------------===//

/// The kind of environment name that \p name is, in upper or lower case.
EnvNameType environmentNameType(llvm::StringRef name);
/// The devices that ACCEPT reads from: SYSIN, SYSIPT and CONSOLE.
bool isInputDevice(llvm::StringRef name);
/// The devices that DISPLAY writes to: SYSOUT, SYSLIST, SYSLST, SYSPUNCH, SYSPCH and CONSOLE.
bool isOutputDevice(llvm::StringRef name);

/// environment-name IS mnemonic-name ON STATUS IS condition OFF STATUS IS condition.
class ClauseEnvName : public Node {
public:
  ClauseEnvName(const Node *at, Word *name) : Node(at), environmentName(name) {}

  Word *getEnvironmentName() const { return environmentName; }
  /// What kind of name the environment name is, by its text.
  EnvNameType getEnvNameType() const {
    return environmentName ? environmentNameType(environmentName->getWordData())
                           : EnvNameType::Unknown;
  }

  TARKA_FIELD(Word *, mnemonicName, MnemonicName)
  TARKA_FIELD(Word *, onCondition, OnCondition)
  TARKA_FIELD(Word *, offCondition, OffCondition)

private:
  Word *mnemonicName = nullptr;
  Word *onCondition = nullptr;
  Word *offCondition = nullptr;
  Word *environmentName;
};

/// literal THRU literal, or literal ALSO literal ALSO literal.
class PhrsAlphabet : public Node {
public:
  PhrsAlphabet(const Node *at, LiteralExpression *first) : Node(at), literal(first) {}

  LiteralExpression *getLiteral() const { return literal; }
  void addAlso(LiteralExpression *also) { alsoList.push_back(also); }

  TARKA_FIELD(LiteralExpression *, thruLiteral, ThruLiteral)
  TARKA_LIST(LiteralExpression, alsoList, AlsoList)

private:
  LiteralExpression *thruLiteral = nullptr;
  NodeList<LiteralExpression> alsoList;
  LiteralExpression *literal;
};

/// ALPHABET alphabet-name IS ...
class ClauseAlphabet : public Node {
public:
  ClauseAlphabet(const Node *at, Word *name, AlphabetType kind)
      : Node(at), type(kind), alphabetName(name) {}

  AlphabetType getType() const { return type; }
  Word *getAlphabetName() const { return alphabetName; }
  void addAlpha(PhrsAlphabet *phrase) { alphaList.push_back(phrase); }

  /// The characters of HIGH-VALUE and LOW-VALUE under this alphabet.
  char getHighValue() const { return highValue; }
  void setHighValue(char value) { highValue = value; }
  char getLowValue() const { return lowValue; }
  void setLowValue(char value) { lowValue = value; }

private:
  AlphabetType type;
  char highValue = '\xff';
  char lowValue = '\0';

public:
  TARKA_LIST(PhrsAlphabet, alphaList, AlphaList)

private:
  NodeList<PhrsAlphabet> alphaList;
  Word *alphabetName;
};

/// symbolic-character ... IS integer ...
class PhrsSymbolic : public Node {
public:
  using Node::Node;

  void addSource(Word *name) { sourceList.push_back(name); }
  void addInteger(NumericLiteralExpression *ordinal) { integerList.push_back(ordinal); }

  /// The names of the symbolic characters.
  TARKA_LIST(Word, sourceList, SourceList)
  TARKA_LIST(NumericLiteralExpression, integerList, IntegerList)

private:
  NodeList<Word> sourceList;
  NodeList<NumericLiteralExpression> integerList;
};

/// SYMBOLIC CHARACTERS phrases IN alphabet-name.
class ClauseSymbolic : public Node {
public:
  using Node::Node;

  void addSymbolic(PhrsSymbolic *phrase) { symbolicList.push_back(phrase); }

  TARKA_LIST(PhrsSymbolic, symbolicList, SymbolicList)
  TARKA_FIELD(Word *, alphabetName, AlphabetName)

private:
  NodeList<PhrsSymbolic> symbolicList;
  Word *alphabetName = nullptr;
};

/// literal THRU literal.
class PhrsClass : public Node {
public:
  PhrsClass(const Node *at, LiteralExpression *first) : Node(at), literal(first) {}

  LiteralExpression *getLiteral() const { return literal; }

  TARKA_FIELD(LiteralExpression *, thruLiteral, ThruLiteral)

private:
  LiteralExpression *thruLiteral = nullptr;
  LiteralExpression *literal;
};

/// CLASS class-name IS phrases.
class ClauseClass : public Node {
public:
  ClauseClass(const Node *at, Word *name) : Node(at), className(name) {}

  Word *getClassName() const { return className; }
  void addLiteral(PhrsClass *phrase) { literalList.push_back(phrase); }

  TARKA_LIST(PhrsClass, literalList, LiteralList)

private:
  NodeList<PhrsClass> literalList;
  Word *className;
};

/// CURRENCY SIGN IS literal WITH PICTURE SYMBOL literal.
class ClauseCurrency : public Node {
public:
  ClauseCurrency(const Node *at, LiteralExpression *sign, LiteralExpression *symbol)
      : Node(at), signLiteral(sign), symbolLiteral(symbol) {}

  LiteralExpression *getSignLiteral() const { return signLiteral; }
  /// Null when the sign itself is the symbol.
  LiteralExpression *getSymbolLiteral() const { return symbolLiteral; }

private:
  LiteralExpression *signLiteral;
  LiteralExpression *symbolLiteral;
};

/// DECIMAL-POINT IS COMMA.
class ClauseDecimalPoint : public Node {
public:
  using Node::Node;
};

/// SPECIAL-NAMES. Lookups compare the texts of the words exactly, give the first clause of that
/// name or null, and take constant time.
class ParaSpecialNames : public Owning<ParaSpecialNames> {
public:
  using Owning::Owning;

  // A clause must be complete when it is added, because its names are entered then.
  void addEnvName(ClauseEnvName *clause);
  void addAlphabet(ClauseAlphabet *clause);
  void addSymbolic(ClauseSymbolic *clause);
  void addClass(ClauseClass *clause);
  void addCurrency(ClauseCurrency *clause) { currencies.push_back(clause); }

  // Each gives the clause that defines the name, or null when there is none.

  ClauseAlphabet *findClauseAlphabetByWord(const Word *name) const;
  ClauseClass *findClauseClassByWord(const Word *name) const;
  /// By mnemonic name.
  ClauseEnvName *findClauseEnvNameByWord(const Word *mnemonicName) const;
  /// Every clause whose ON or OFF condition has that name, in source order.
  NodeList<ClauseEnvName> findClauseEnvNameByCondName(const Word *conditionName) const;
  /// The clause that defines a symbolic character of that name.
  ClauseSymbolic *findClauseSymbolicByWord(const Word *symbolicCharacter) const;

  TARKA_LIST(ClauseEnvName, envNames, EnvNameList)
  TARKA_LIST(ClauseAlphabet, alphabets, AlphabetList)
  TARKA_LIST(ClauseSymbolic, symbolics, SymbolicList)
  TARKA_LIST(ClauseClass, classes, ClassList)
  TARKA_LIST(ClauseCurrency, currencies, CurrencyList)
  TARKA_FIELD(ClauseDecimalPoint *, decimalPoint, DecimalPoint)

private:
  NodeList<ClauseEnvName> envNames;
  NodeList<ClauseAlphabet> alphabets;
  NodeList<ClauseSymbolic> symbolics;
  NodeList<ClauseClass> classes;
  NodeList<ClauseCurrency> currencies;
  ClauseDecimalPoint *decimalPoint = nullptr;
  /// By the address of the interned name.
  template <typename Found> using NameIndex = llvm::DenseMap<const std::string *, Found>;
  NameIndex<ClauseAlphabet *> alphabetIndex;
  NameIndex<ClauseClass *> classIndex;
  NameIndex<ClauseSymbolic *> symbolicIndex;
  NameIndex<ClauseEnvName *> mnemonicIndex;
  NameIndex<NodeList<ClauseEnvName>> conditionIndex;
};

/// CONFIGURATION SECTION. Paragraphs are null when absent.
class ConfigurationSection : public Node {
public:
  using Node::Node;

  TARKA_FIELD(ParaSourceComputer *, sourceComputer, SourceComputer)
  TARKA_FIELD(ParaObjectComputer *, objectComputer, ObjectComputer)
  TARKA_FIELD(ParaSpecialNames *, specialNames, SpecialNames)

private:
  ParaSourceComputer *sourceComputer = nullptr;
  ParaObjectComputer *objectComputer = nullptr;
  ParaSpecialNames *specialNames = nullptr;
};

//===----------------------------------------------------------------------===//
// FILE-CONTROL
//===----------------------------------------------------------------------===//

/// ASSIGN TO assignment-name ...
class ClauseAssign : public Node {
public:
  using Node::Node;

  /// Words and literals, in source order.
  void addAssignment(Node *name) { assignments.push_back(name); }

  TARKA_LIST(Node, assignments, AssignmentList)

private:
  NodeList<Node> assignments;
};

/// RESERVE integer AREAS. The count is null for RESERVE NO ALTERNATE AREAS.
class ClauseReserve : public Node {
public:
  ClauseReserve(const Node *at, NumericLiteralExpression *count) : Node(at), reserveCount(count) {}
  NumericLiteralExpression *getReserveCount() const { return reserveCount; }

private:
  NumericLiteralExpression *reserveCount;
};

/// ORGANIZATION IS ...
class ClauseOrganization : public Node {
public:
  ClauseOrganization(const Node *at, OrganizationType kind) : Node(at), type(kind) {}
  OrganizationType getType() const { return type; }

private:
  OrganizationType type;
};

/// PADDING CHARACTER IS literal or data-name.
class ClausePadding : public Node {
public:
  ClausePadding(const Node *at, Expression *padding) : Node(at), character(padding) {}
  Expression *getCharacter() const { return character; }

private:
  Expression *character;
};

/// RECORD DELIMITER IS STANDARD-1 or assignment-name.
class ClauseRecordDelimiter : public Node {
public:
  ClauseRecordDelimiter(const Node *at, Word *delimiter) : Node(at), name(delimiter) {}
  Word *getName() const { return name; }

private:
  Word *name;
};

/// ACCESS MODE IS ...
class ClauseAccess : public Node {
public:
  ClauseAccess(const Node *at, AccessType kind) : Node(at), type(kind) {}
  AccessType getType() const { return type; }

private:
  AccessType type;
};

/// FILE STATUS IS data-name data-name.
class ClauseStatus : public Node {
public:
  ClauseStatus(const Node *at, DataIdentifierExpression *first, DataIdentifierExpression *second)
      : Node(at), status1(first), status2(second) {}
  DataIdentifierExpression *getStatus_1() const { return status1; }
  /// Null when only one data-name is given.
  DataIdentifierExpression *getStatus_2() const { return status2; }

private:
  DataIdentifierExpression *status1;
  DataIdentifierExpression *status2;
};

/// PASSWORD IS data-name.
class ClausePassWord : public Node {
public:
  ClausePassWord(const Node *at, DataIdentifierExpression *name) : Node(at), dataName(name) {}
  DataIdentifierExpression *getDataName() const { return dataName; }

private:
  DataIdentifierExpression *dataName;
};

/// RECORD KEY IS data-name PASSWORD IS data-name.
class ClauseRecordKey : public Node {
public:
  ClauseRecordKey(const Node *at, DataIdentifierExpression *name) : Node(at), dataName(name) {}
  DataIdentifierExpression *getDataName() const { return dataName; }

  TARKA_FIELD(ClausePassWord *, passWord, PassWord)

private:
  ClausePassWord *passWord = nullptr;
  DataIdentifierExpression *dataName;
};

/// RELATIVE KEY IS data-name.
class ClauseRelativeKey : public Node {
public:
  ClauseRelativeKey(const Node *at, DataIdentifierExpression *name) : Node(at), dataName(name) {}
  DataIdentifierExpression *getDataName() const { return dataName; }

private:
  DataIdentifierExpression *dataName;
};

/// ALTERNATE RECORD KEY IS data-name PASSWORD IS data-name WITH DUPLICATES.
class ClauseAlternate : public Node {
public:
  ClauseAlternate(const Node *at, DataIdentifierExpression *name) : Node(at), dataName(name) {}
  DataIdentifierExpression *getDataName() const { return dataName; }

  TARKA_FIELD(ClausePassWord *, passWord, PassWord)
  TARKA_FLAG(duplicates, Duplicates)

private:
  ClausePassWord *passWord = nullptr;
  bool duplicates = false;
  DataIdentifierExpression *dataName;
};

/// One SELECT entry.
class ParaFileControl : public Node {
public:
  ParaFileControl(const Node *at, Word *name) : Node(at), fileName(name) {}

  /// The file's name; the position's own file name is Node::getFileName().
  Word *getFileName() const { return fileName; }
  /// The organization of the file: that of the clause, or sequential without one.
  OrganizationType getOrganizationType() const {
    return organization ? organization->getType() : OrganizationType::Sequential;
  }
  void addAlternate(ClauseAlternate *key) { alternates.push_back(key); }

  TARKA_FLAG(optional, Optional)
  TARKA_FIELD(ClauseAssign *, assign, Assign)
  TARKA_FIELD(ClauseReserve *, reserve, Reserve)
  TARKA_FIELD(ClauseOrganization *, organization, Organization)
  TARKA_FIELD(ClausePadding *, padding, Padding)
  TARKA_FIELD(ClauseRecordDelimiter *, recordDelimiter, RecordDelimiter)
  TARKA_FIELD(ClauseAccess *, access, Access)
  TARKA_FIELD(ClauseStatus *, status, Status)
  TARKA_FIELD(ClausePassWord *, passWord, PassWord)
  TARKA_FIELD(ClauseRecordKey *, recordKey, RecordKey)
  TARKA_FIELD(ClauseRelativeKey *, relativeKey, RelativeKey)
  TARKA_LIST(ClauseAlternate, alternates, AlternateList)

private:
  bool optional = false;
  ClauseAssign *assign = nullptr;
  ClauseReserve *reserve = nullptr;
  ClauseOrganization *organization = nullptr;
  ClausePadding *padding = nullptr;
  ClauseRecordDelimiter *recordDelimiter = nullptr;
  ClauseAccess *access = nullptr;
  ClauseStatus *status = nullptr;
  ClausePassWord *passWord = nullptr;
  ClauseRecordKey *recordKey = nullptr;
  ClauseRelativeKey *relativeKey = nullptr;
  NodeList<ClauseAlternate> alternates;
  Word *fileName;
};

//===----------------------------------------------------------------------===//
// I-O-CONTROL
//===----------------------------------------------------------------------===//

/// RERUN ON name EVERY integer RECORDS OF file-name, or EVERY END OF REEL OF file-name.
class ClauseRerun : public Node {
public:
  using Node::Node;

  /// The name after ON; when it is not a file, the check moves it to the assignment.
  TARKA_FIELD(FileIdentifierExpression *, onName, FileName)
  TARKA_FIELD(Word *, assignment, Assignment)
  TARKA_FIELD(NumericLiteralExpression *, recordCount, RecordCount)
  TARKA_FIELD(FileIdentifierExpression *, everyFileName, EveryFileName)
  /// EVERY END OF REEL or UNIT in place of a record count.
  TARKA_FLAG(endOfReel, EndOfReel)

private:
  FileIdentifierExpression *onName = nullptr;
  Word *assignment = nullptr;
  NumericLiteralExpression *recordCount = nullptr;
  FileIdentifierExpression *everyFileName = nullptr;
  bool endOfReel = false;
};

/// SAME RECORD AREA FOR file-name ...
class ClauseSame : public Node {
public:
  ClauseSame(const Node *at, SameType kind) : Node(at), type(kind) {}

  SameType getType() const { return type; }
  void addFileName(IdentifierExpression *name) { fileNames.push_back(name); }

private:
  SameType type;

public:
  TARKA_LIST(IdentifierExpression, fileNames, FileNameList)

private:
  NodeList<IdentifierExpression> fileNames;
};

/// file-name POSITION integer.
class PrsMultipleFile : public Node {
public:
  /// \p where may be null.
  PrsMultipleFile(const Node *at, FileIdentifierExpression *name, NumericLiteralExpression *where)
      : Node(at), fileName(name), position(where) {}
  FileIdentifierExpression *getFileName() const { return fileName; }
  NumericLiteralExpression *getPosition() const { return position; }

private:
  FileIdentifierExpression *fileName;
  NumericLiteralExpression *position;
};

/// MULTIPLE FILE TAPE CONTAINS ...
class ClauseMultipleFile : public Node {
public:
  using Node::Node;

  void addMultipleFile(PrsMultipleFile *phrase) { multipleFiles.push_back(phrase); }

  TARKA_LIST(PrsMultipleFile, multipleFiles, MultipleFileList)

private:
  NodeList<PrsMultipleFile> multipleFiles;
};

/// APPLY WRITE-ONLY ON file-name ...
class ClauseApplyWriteOnly : public Node {
public:
  using Node::Node;

  void addFileName(IdentifierExpression *name) { fileNames.push_back(name); }

  TARKA_LIST(IdentifierExpression, fileNames, FileNameList)

private:
  NodeList<IdentifierExpression> fileNames;
};

/// One entry of I-O-CONTROL: one of the clauses is set.
class ParaIOControl : public Node {
public:
  using Node::Node;

  TARKA_FIELD(ClauseRerun *, rerun, Rerun)
  TARKA_FIELD(ClauseSame *, same, Same)
  TARKA_FIELD(ClauseMultipleFile *, multipleFile, MultipleFile)
  TARKA_FIELD(ClauseApplyWriteOnly *, applyWriteOnly, ApplyWriteOnly)

private:
  ClauseRerun *rerun = nullptr;
  ClauseSame *same = nullptr;
  ClauseMultipleFile *multipleFile = nullptr;
  ClauseApplyWriteOnly *applyWriteOnly = nullptr;
};

/// INPUT-OUTPUT SECTION: the entries of FILE-CONTROL and I-O-CONTROL.
class InputOutputSection : public Owning<InputOutputSection> {
public:
  using Owning::Owning;

  /// Appends a SELECT entry, which must have its name.
  void addFileControl(ParaFileControl *entry);
  void addIOControl(ParaIOControl *entry) { ioControls.push_back(entry); }

  /// The first SELECT entry of that name, or null.
  ParaFileControl *findFileControlByName(const Word &name) const;

  TARKA_LIST(ParaFileControl, fileControls, FileControlList)
  TARKA_LIST(ParaIOControl, ioControls, IOControlList)

private:
  NodeList<ParaFileControl> fileControls;
  NodeList<ParaIOControl> ioControls;
  /// By the interned name.
  llvm::DenseMap<const std::string *, ParaFileControl *> fileControlIndex;
};

/// ENVIRONMENT DIVISION. Sections are null when absent.
class EnvironmentDivision : public Node {
public:
  using Node::Node;

  TARKA_FIELD(ConfigurationSection *, configurationSection, ConfigurationSection)
  TARKA_FIELD(InputOutputSection *, inputOutputSection, InputOutputSection)

private:
  ConfigurationSection *configurationSection = nullptr;
  InputOutputSection *inputOutputSection = nullptr;
};

} // namespace tarka

#endif // TARKA_AST_ENVIRONMENT_H
