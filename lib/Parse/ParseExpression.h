//===- ParseExpression.h - operands and arithmetic expressions --*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSEEXPRESSION_H
#define TARKA_LIB_PARSE_PARSEEXPRESSION_H

#include "Parse/ParserBase.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

class ExpressionParser : public ParserBase {
public:
  using ParserBase::ParserBase;

  /// An arithmetic expression; a single operand comes without a node around it.
  Expression *parseArithmeticExpression();
  /// An identifier or a literal. \p what describes it in the message.
  Expression *parseOperand(llvm::StringRef what = "an identifier or a literal");
  /// Whether an operand can begin with the next token.
  bool atOperand();
  /// A data item with qualifiers, subscripts and reference modifier, a special register, ADDRESS
  /// OF, LENGTH OF or a function.
  IdentifierExpression *parseIdentifier(llvm::StringRef what = "an identifier");
  bool atIdentifier();
  /// Only a data item.
  DataIdentifierExpression *parseDataIdentifier(llvm::StringRef what = "a data-name");
  /// A data-name with qualifiers but without subscripts and reference modifier.
  DataIdentifierExpression *parseDataName(llvm::StringRef what = "a data-name");
  /// A numeric literal, or a data-name. \p what describes it in the message.
  Expression *parseNumberOrDataName(llvm::StringRef what);
  FileIdentifierExpression *parseFileName();
  ReportIdentifierExpression *parseReportName();
  /// Reports that there is no intrinsic function \p name, and the name that may be meant.
  Failure reportUnknownFunction(const Word &name);

  /// Whether a user-defined name is next.
  bool atName() { return peek().isUserWord() && !atProcedureHeader(); }
  /// Whether one more file-name is next, and not a misspelt verb.
  bool atFileName() { return atName() && misspeltKeyword() == Keyword::None; }

  //===--------------------------------------------------------------------===//
  // Series
  //===--------------------------------------------------------------------===//

  /// Adds to \p owner the elements that \p parseOne parses, at least one and as long as
  /// \p atAnother finds a further one. Both are members of the family or lambdas.
  template <typename Owner, typename Base, typename Element, typename ParseOne, typename AtAnother>
  bool parseSeries(Owner &owner, void (Base::*add)(Element *), ParseOne parseOne,
                   AtAnother atAnother) {
    do {
      Element *element = call(parseOne);
      if (!element)
        return false;
      (owner.*add)(element);
    } while (call(atAnother));
    return true;
  }
  template <typename Owner, typename Base>
  bool parseOperands(Owner &owner, void (Base::*add)(Expression *)) {
    return parseSeries(owner, add, [this] { return parseOperand(); }, &ExpressionParser::atOperand);
  }
  template <typename Owner, typename Base>
  bool parseIdentifiers(Owner &owner, void (Base::*add)(IdentifierExpression *)) {
    return parseSeries(
        owner, add, [this] { return parseIdentifier(); }, &ExpressionParser::atIdentifier);
  }
  template <typename Owner, typename Base>
  bool parseFileNames(Owner &owner, void (Base::*add)(FileIdentifierExpression *)) {
    return parseSeries(owner, add, &ExpressionParser::parseFileName, &ExpressionParser::atFileName);
  }
  template <typename Owner, typename Base>
  bool parseReportNames(Owner &owner, void (Base::*add)(ReportIdentifierExpression *)) {
    return parseSeries(owner, add, &ExpressionParser::parseReportName, &ExpressionParser::atName);
  }

protected:
  /// The sum that begins with \p first, which began at \p begin and of which more operands and
  /// operators may follow; \p first is null when nothing of it was parsed yet.
  /// \p isSubscript says that a signed number can begin another subscript.
  Expression *continueArithmetic(Expression *first, const SourceRange &begin,
                                 bool isSubscript = false);
  /// Marks the expression in the parentheses that began at \p begin and just ended. A single
  /// operand is not changed by them.
  Expression *parenthesise(Expression *inner, const SourceRange &begin);

  /// Calls a function without arguments of the family that this object is, or a lambda.
  template <typename Result, typename Family> Result call(Result (Family::*function)()) {
    return (static_cast<Family &>(*this).*function)();
  }
  template <typename Function> auto call(Function function) { return function(); }

private:
  /// Whether the next word can only be the name of a data item: it is none of the symbolic
  /// characters and functions that the program declares, and no number gone wrong.
  bool atDataNameOnly() {
    const Token &token = peek();
    return token.isUserWord() && !context.hasSymbolicCharacters &&
           context.repositoryFunctions.empty() && !llvm::isDigit(token.text.front());
  }
  QualifiedWord *parseDataQualifiedWord(llvm::StringRef what);
  /// A parenthesis after a comma is the next operand of a list, as in MAX (A, (B + C)).
  bool atModifier() { return at(TokenKind::LParen) && !peek().isAfterComma(); }
  bool parseModifiers(SubscriptModifier *&subscripts, ReferenceModifier *&reference);
  Expression *parseSubscript();
  bool atNextSubscript(const Expression &subscript);
  ReferenceModifier *parseReferenceModifier(const SourceRange &begin, Expression *position);
  IdentifierExpression *parseSpecialRegister();
  IdentifierExpression *parseAddressOrLength();
  /// Whether FUNCTION is next, or the name of a function that REPOSITORY lets stand without it.
  bool atFunction() {
    return at(Keyword::Function) ||
           (!context.repositoryFunctions.empty() && atRepositoryFunction());
  }
  bool atRepositoryFunction();
  FunctionIdentifierExpression *parseFunction();
  bool parseFunctionArguments(FunctionIdentifierExpression &function, const SourceRange &open);
  Expression *parseProduct(Expression *first, const SourceRange &begin);
  Expression *parsePower(Expression *first, const SourceRange &begin);
  Expression *parseSigned();
  Expression *parsePrimary();
  Expression *makeBinary(ArithmeticExprType op, const SourceRange &begin, Expression *left,
                         Expression *right);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSEEXPRESSION_H
