//===- Expression.h - operands ----------------------------------*- C++ -*-===//
//
// Literals, identifiers, arithmetic expressions and the right side of a
// parenthesised abbreviated relation: everything that a statement, a condition
// or a clause can name as an operand.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_EXPRESSION_H
#define TARKA_AST_EXPRESSION_H

#include "AST/Forward.h"
#include "AST/Kinds.h"
#include "AST/Names.h"
#include "llvm/Support/Casting.h"
#include <algorithm>

namespace tarka {

/// An operand. The kind code identifies the class.
class Expression : public Node {
public:
  ExpressionType getExprType() const { return exprType; }

  /// What kind of data the operand holds; for an identifier that is not bound, Unclassified.
  virtual DataCategory getDataCategory() const { return DataCategory::Unclassified; }
  /// True when the operand can only hold integers.
  virtual bool isInteger() const { return false; }

  /// Digit positions and decimal places of the operand, set by the checks; 0 before.
  unsigned getSrcDigitNum() const { return srcDigitNum; }
  void setSrcDigitNum(unsigned digits) { srcDigitNum = std::min(digits, maxDigits); }
  unsigned getSrcScale() const { return srcScale; }
  void setSrcScale(unsigned scale) { srcScale = std::min(scale, maxDigits); }

protected:
  Expression(const Node *at, ExpressionType type) : Node(at), exprType(type) {}

private:
  /// No number that is valid comes near it.
  static constexpr unsigned maxDigits = (1U << 23) - 1;

  ExpressionType exprType;

protected:
  /// Some bits for the subclasses, which fit beside the kind code.
  std::uint8_t subtype = 0;
  std::uint64_t flag : 1 = false;

private:
  std::uint64_t srcDigitNum : 23 = 0;
  std::uint64_t srcScale : 23 = 0;
};
static_assert(sizeof(Expression) == sizeof(Node) + 8);

//===----------------------------------------------------------------------===//
// Literals
//===----------------------------------------------------------------------===//

/// The common base of the three kinds of literal.
class LiteralExpression : public Expression {
public:
  static bool classof(const Expression *e) {
    return e->getExprType() >= ExpressionType::NumericLiteral &&
           e->getExprType() <= ExpressionType::FigurativeConstant;
  }

protected:
  using Expression::Expression;
};

/// A numeric literal. The text is classified and measured when the node is made.
class NumericLiteralExpression : public LiteralExpression {
public:
  /// \p text is the literal as written, with its sign and with "." as the decimal point.
  NumericLiteralExpression(const Node *at, llvm::StringRef text);

  const std::string &getData() const { return *data; }
  /// Replaces the text and measures it again.
  void setData(llvm::StringRef text);

  NumericLiteralType getLiteralType() const { return static_cast<NumericLiteralType>(subtype); }
  /// The number of digits; of the mantissa for a floating-point literal.
  int getDigitsNum() const { return digits; }
  /// The number of digits after the decimal point; of the mantissa for a floating-point literal.
  int getScale() const { return scale; }
  /// The exponent of a floating-point literal, 0 otherwise; saturated at +/-99999.
  int getExponent() const { return exponent; }
  /// True when the literal is written with a sign.
  bool isSigned() const;
  /// True when the value is above zero.
  bool isPositive() const;

  /// Measures the literal again from \p text, in which "," is the decimal point and "." is not.
  void convertDecimalPoint(const std::string &text);

  /// The value of the digits before the decimal point, saturated to the range of the type.
  long long getIntegerValue() const;

  DataCategory getDataCategory() const override;
  bool isInteger() const override { return getLiteralType() == NumericLiteralType::Integer; }

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::NumericLiteral;
  }

private:
  void measure(char decimalPoint);

  const std::string *data;
  int digits = 0;
  int scale = 0;
  int exponent = 0;
};

/// A nonnumeric literal.
class NonNumericLiteralExpression : public LiteralExpression {
public:
  /// \p text is the literal as written, with its prefix (X, Z, G, N, NX) and its quotes. A text
  /// without quotes is taken as the contents of an alphanumeric literal.
  NonNumericLiteralExpression(const Node *at, llvm::StringRef text);

  /// The contents: without prefix and quotes, doubled quotes reduced to one; of a hexadecimal
  /// literal the hexadecimal digits.
  const std::string &getData() const { return *data; }
  NonNumericLiteralType getNonNumericLiteralType() const {
    return static_cast<NonNumericLiteralType>(subtype);
  }
  /// The number of character positions: a hexadecimal pair counts as one, a UTF-8 character of an
  /// N or G literal as one.
  unsigned getLength() const;

  DataCategory getDataCategory() const override;

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::NonNumericLiteral;
  }

private:
  const std::string *data;
};

/// A figurative constant, ALL literal, or a symbolic character.
class FigurativeLiteralExpression : public LiteralExpression {
public:
  /// \p literal is the literal of ALL; otherwise null.
  FigurativeLiteralExpression(const Node *at, FigurativeType type, LiteralExpression *inner)
      : LiteralExpression(at, ExpressionType::FigurativeConstant), literal(inner) {
    subtype = static_cast<std::uint8_t>(type);
  }

  FigurativeType getFigurativeType() const { return static_cast<FigurativeType>(subtype); }
  void setFigurativeType(FigurativeType type) { subtype = static_cast<std::uint8_t>(type); }
  LiteralExpression *getLiteral() const { return literal; }
  void setLiteral(LiteralExpression *inner) { literal = inner; }
  /// The name of a symbolic character; empty for every other figurative constant.
  const std::string &getSymbolName() const { return symbolName ? *symbolName : internString(""); }
  void setSymbolName(llvm::StringRef name) { symbolName = &internString(name); }
  /// Set when the constant stands for national characters.
  bool isNational() const { return flag; }
  void setIsNational(bool national) { flag = national; }

  /// ZERO is numeric, NULL a pointer, ALL literal takes the category of its literal, all others
  /// are alphanumeric, or national when marked so.
  DataCategory getDataCategory() const override;
  bool isInteger() const override { return getFigurativeType() == FigurativeType::Zero; }

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::FigurativeConstant;
  }

private:
  LiteralExpression *literal;
  const std::string *symbolName = nullptr;
};

//===----------------------------------------------------------------------===//
// Arithmetic expressions
//===----------------------------------------------------------------------===//

/// One operator with its one or two operands, nested to any depth.
class ArithmeticExpression : public Expression {
public:
  /// \p second is null for a unary operator. \p parenthesised: the expression stands in
  /// parentheses of its own in the source.
  ArithmeticExpression(const Node *at, ArithmeticExprType op, Expression *first, Expression *second,
                       bool parenthesised)
      : Expression(at, ExpressionType::Arithmetic), operand1(first), operand2(second) {
    subtype = static_cast<std::uint8_t>(op);
    flag = parenthesised;
  }

  ArithmeticExprType getOperator() const { return static_cast<ArithmeticExprType>(subtype); }
  bool isParenthesised() const { return flag; }
  void setIsParenthesised(bool value) { flag = value; }
  Expression *getOperand1() const { return operand1; }
  /// Null for a unary operator.
  Expression *getOperand2() const { return operand2; }

  /// Floating point when an operand is, numeric otherwise.
  DataCategory getDataCategory() const override;
  /// True when all operands are integers and the operator keeps them so.
  bool isInteger() const override;

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::Arithmetic;
  }

private:
  Expression *operand1;
  Expression *operand2;
};

//===----------------------------------------------------------------------===//
// Identifiers
//===----------------------------------------------------------------------===//

/// The subscripts of a table reference. ALL, by which a function is given every occurrence, is the
/// figurative constant ZERO with the symbol name ALL.
class SubscriptModifier : public Node {
public:
  explicit SubscriptModifier(const Node *at) : Node(at) {}
  void addSubscript(Expression *subscript) { subscripts.push_back(subscript); }

  TARKA_LIST(Expression, subscripts, Subscript)

private:
  NodeList<Expression> subscripts;
};

/// (leftmost position : length).
class ReferenceModifier : public Node {
public:
  /// Either expression may be null.
  ReferenceModifier(const Node *at, Expression *fromExpr, Expression *countExpr)
      : Node(at), from(fromExpr), count(countExpr) {}

  Expression *getFromExpr() const { return from; }
  Expression *getCountExpr() const { return count; }

private:
  Expression *from;
  Expression *count;
};

/// The common base of all identifiers.
class IdentifierExpression : public Expression {
public:
  /// The entry that the identifier is bound to; null before the check and for what names no data.
  virtual DataDescription *getDataDescription() const { return nullptr; }
  /// Null when the identifier is not reference-modified.
  virtual ReferenceModifier *getReferenceMod() const { return nullptr; }

  static bool classof(const Expression *e) {
    return (e->getExprType() >= ExpressionType::DataIdentifier &&
            e->getExprType() <= ExpressionType::SpecialRegister) ||
           e->getExprType() == ExpressionType::ReportIdentifier;
  }

protected:
  using Expression::Expression;
};

/// A data-name with its qualifiers, subscripts and reference modifier.
class DataIdentifierExpression : public IdentifierExpression {
public:
  /// All but the position may be null.
  DataIdentifierExpression(const Node *at, QualifiedWord *name, SubscriptModifier *subscripts,
                           ReferenceModifier *reference)
      : IdentifierExpression(at, ExpressionType::DataIdentifier), qualifiedWord(name) {
    if (subscripts || reference)
      modifiers = new (allocateForever(sizeof(Modifiers))) Modifiers{subscripts, reference};
  }

  QualifiedWord *getQualifiedWord() const { return qualifiedWord; }
  void setQualifiedWord(QualifiedWord *name) { qualifiedWord = name; }
  SubscriptModifier *getSubscriptMod() const { return modifiers ? modifiers->subscripts : nullptr; }
  DataDescription *getDataDescription() const override { return description; }
  void setDataDescription(DataDescription *bound) { description = bound; }
  ReferenceModifier *getReferenceMod() const override {
    return modifiers ? modifiers->reference : nullptr;
  }

  /// The category of the bound entry; alphanumeric or national when reference-modified.
  DataCategory getDataCategory() const override;
  /// True for a numeric entry without decimal places and for an index.
  bool isInteger() const override;

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::DataIdentifier;
  }

private:
  struct Modifiers {
    SubscriptModifier *subscripts;
    ReferenceModifier *reference;
  };

  QualifiedWord *qualifiedWord;
  DataDescription *description = nullptr;
  /// Null for most identifiers, which have neither.
  const Modifiers *modifiers = nullptr;
};

/// A file-name.
class FileIdentifierExpression : public IdentifierExpression {
public:
  FileIdentifierExpression(const Node *at, Word *name)
      : IdentifierExpression(at, ExpressionType::FileIdentifier), fileName(name) {}

  Word *getFileName() const { return fileName; }
  /// The position's own file name is Node::getFileName().
  FileDescription *getFileDescription() const { return description; }
  void setFileDescription(FileDescription *bound) { description = bound; }

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::FileIdentifier;
  }

private:
  Word *fileName;
  FileDescription *description = nullptr;
};

/// FUNCTION name (arguments).
class FunctionIdentifierExpression : public IdentifierExpression {
public:
  /// \p functionName is the name as written; \p type is None when no such function exists.
  FunctionIdentifierExpression(const Node *at, IntrinsicType type, Word *functionName)
      : IdentifierExpression(at, ExpressionType::FunctionIdentifier), name(functionName) {
    subtype = static_cast<std::uint8_t>(type);
  }

  IntrinsicType getIntrinsicType() const { return static_cast<IntrinsicType>(subtype); }
  void setIntrinsicType(IntrinsicType type) { subtype = static_cast<std::uint8_t>(type); }
  Word *getFunctionName() const { return name; }
  void addFunctionArg(Expression *argument) { arguments.push_back(argument); }

  DataCategory getDataCategory() const override { return category; }
  void setDataCategory(DataCategory value) { category = value; }
  bool isInteger() const override;
  ReferenceModifier *getReferenceMod() const override { return referenceMod; }
  void setReferenceMod(ReferenceModifier *modifier) { referenceMod = modifier; }

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::FunctionIdentifier;
  }

  /// LEADING or TRAILING among the arguments of TRIM; null where none is written.
  TARKA_FIELD(Word *, argKeyword, ArgKeyword)
  TARKA_LIST(Expression, arguments, FunctionArgList)

private:
  Word *argKeyword = nullptr;
  NodeList<Expression> arguments;
  Word *name;
  ReferenceModifier *referenceMod = nullptr;
  DataCategory category = DataCategory::Unclassified;
};

/// A special register, ADDRESS OF or LENGTH OF. The registers that are ordinary data entries
/// (RETURN-CODE, TALLY and so on) may also be named by a data identifier.
class SpecialRegisterIdentifierExpression : public IdentifierExpression {
public:
  /// \p operand is what ADDRESS OF or LENGTH OF names; \p word the register's word; \p file and
  /// \p fileWord qualify LINAGE-COUNTER; \p reportWord and \p report qualify PAGE-COUNTER and
  /// LINE-COUNTER. All but the position may be null.
  SpecialRegisterIdentifierExpression(const Node *at, SpecialRegisterType type, Expression *operand,
                                      Word *word, FileIdentifierExpression *file,
                                      ReferenceModifier *reference, Word *reportWord,
                                      ReportIdentifierExpression *report)
      : IdentifierExpression(at, ExpressionType::SpecialRegister), ident(operand),
        registerWord(word), fileExpr(file), referenceMod(reference), qualifier(reportWord),
        reportExpr(report) {
    subtype = static_cast<std::uint8_t>(type);
  }

  SpecialRegisterType getType() const { return static_cast<SpecialRegisterType>(subtype); }
  Expression *getIdent() const { return ident; }
  Word *getRegisterWord() const { return registerWord; }
  FileIdentifierExpression *getFileExpr() const { return fileExpr; }
  Word *getQualifierWord() const { return qualifier; }
  ReportIdentifierExpression *getReportExpr() const { return reportExpr; }
  ReferenceModifier *getReferenceMod() const override { return referenceMod; }
  DataDescription *getDataDescription() const override { return description; }
  void setDataDescription(DataDescription *bound) { description = bound; }

  DataCategory getDataCategory() const override;
  bool isInteger() const override;

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::SpecialRegister;
  }

private:
  Expression *ident;
  Word *registerWord;
  FileIdentifierExpression *fileExpr;
  ReferenceModifier *referenceMod;
  Word *qualifier;
  ReportIdentifierExpression *reportExpr;
  DataDescription *description = nullptr;
};

/// A report-name.
class ReportIdentifierExpression : public IdentifierExpression {
public:
  ReportIdentifierExpression(const Node *at, Word *name)
      : IdentifierExpression(at, ExpressionType::ReportIdentifier), reportName(name) {}

  Word *getReportName() const { return reportName; }
  ReportDescription *getReportDescription() const { return description; }
  void setReportDescription(ReportDescription *bound) { description = bound; }

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::ReportIdentifier;
  }

private:
  Word *reportName;
  ReportDescription *description = nullptr;
};

//===----------------------------------------------------------------------===//
// Abbreviated combined relations
//===----------------------------------------------------------------------===//

/// One further object of an abbreviated combined relation: AND or OR, and the condition that is
/// to be completed with the subject.
class AbbrRelationItem : public Node {
public:
  /// \p abbreviated may be null.
  AbbrRelationItem(const Node *at, CombinedOperatorType op, Condition *abbreviated)
      : Node(at), cond(abbreviated), combinedOperator(op) {}

  Condition *getCond() const { return cond; }
  CombinedOperatorType getOpTy() const { return combinedOperator; }

private:
  Condition *cond;
  CombinedOperatorType combinedOperator;
};

/// The parenthesised objects of a relation, as in A = (B OR C OR > D): B is the left operand, and
/// OR C and OR > D are the items.
class AbbrRelationCombinedExpression : public Expression {
public:
  AbbrRelationCombinedExpression(const Node *at, Expression *first)
      : Expression(at, ExpressionType::AbbrRelationCombined), left(first) {}

  Expression *getLeft() const { return left; }
  void addRightAbbr(AbbrRelationItem *item) { rightAbbrs.push_back(item); }

  /// Those of the left operand, with which the subject is compared first.
  DataCategory getDataCategory() const override {
    return left ? left->getDataCategory() : DataCategory::Unclassified;
  }
  bool isInteger() const override { return left && left->isInteger(); }

  static bool classof(const Expression *e) {
    return e->getExprType() == ExpressionType::AbbrRelationCombined;
  }

  TARKA_LIST(AbbrRelationItem, rightAbbrs, RightAbbrList)

private:
  NodeList<AbbrRelationItem> rightAbbrs;
  Expression *left;
};

} // namespace tarka

#endif // TARKA_AST_EXPRESSION_H
