//===- ParseExpression.cpp - operands and arithmetic expressions ----------===//

#include "Parse/ParseExpression.h"
#include "AST/IntrinsicFunctions.h"
#include "AST/Spelling.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// What can be an operand
//===----------------------------------------------------------------------===//

namespace {

/// The registers that are not data entries of the program; None for RETURN-CODE, TALLY and the
/// others that are.
SpecialRegisterType registerTypeOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::LinageCounter:
    return SpecialRegisterType::LinageCounter;
  case Keyword::PageCounter:
    return SpecialRegisterType::PageCounter;
  case Keyword::LineCounter:
    return SpecialRegisterType::LineCounter;
  case Keyword::XmlNtext:
    return SpecialRegisterType::XmlNText;
  case Keyword::XmlNamespace:
    return SpecialRegisterType::XmlNamespace;
  case Keyword::XmlNnamespace:
    return SpecialRegisterType::XmlNNamespace;
  case Keyword::XmlNamespacePrefix:
    return SpecialRegisterType::XmlNamespacePrefix;
  case Keyword::XmlNnamespacePrefix:
    return SpecialRegisterType::XmlNNamespacePrefix;
  case Keyword::DebugItem:
  case Keyword::DebugContents:
  case Keyword::DebugLine:
  case Keyword::DebugName:
  case Keyword::DebugSub1:
  case Keyword::DebugSub2:
  case Keyword::DebugSub3:
    return SpecialRegisterType::DebugItem;
  case Keyword::Jnienvptr:
    return SpecialRegisterType::JnienvPtr;
  case Keyword::JsonCode:
    return SpecialRegisterType::JsonCode;
  case Keyword::JsonStatus:
    return SpecialRegisterType::JsonStatus;
  default:
    return SpecialRegisterType::None;
  }
}

/// A word that names a data item: the programmer's own, or a register that is a data entry.
bool isDataName(const Token &token) {
  if (token.isUserWord())
    return true;
  return isSpecialRegister(token.keyword) && !token.isOneOf(Keyword::Address, Keyword::Length) &&
         registerTypeOf(token.keyword) == SpecialRegisterType::None;
}

} // namespace

bool ExpressionParser::atIdentifier() {
  const Token &token = peek();
  if (token.isUserWord())
    return !atProcedureHeader() && !isSymbolicCharacter(token) &&
           misspeltKeyword() == Keyword::None;
  return isSpecialRegister(token.keyword) || atFunction();
}

bool ExpressionParser::atOperand() {
  if (at(TokenKind::Word))
    return peek().isFigurativeConstant() || isSpecialRegister(peek().keyword) || atFunction() ||
           (peek().isUserWord() && !atProcedureHeader() && misspeltKeyword() == Keyword::None);
  return atLiteral() && !atProcedureHeader();
}

/// A word of digits and hyphens can only name a procedure. As an operand it is a malformed number,
/// which the checker reports.
static bool isNumberGoneWrong(const Token &token) {
  return token.isWord() && llvm::isDigit(token.text.front()) &&
         llvm::all_of(token.text, [](char c) { return llvm::isDigit(c) || c == '-'; });
}

Expression *ExpressionParser::parseOperand(llvm::StringRef what) {
  if (atDataNameOnly())
    return parseDataIdentifier(what);
  if (atLiteral())
    return parseLiteral();
  if (isNumberGoneWrong(peek()) && !atProcedureHeader()) {
    auto *number = makeAt<NumericLiteralExpression>(here(), peek().spelling);
    stream.skip();
    return number;
  }
  return parseIdentifier(what);
}

IdentifierExpression *ExpressionParser::parseIdentifier(llvm::StringRef what) {
  if (atDataNameOnly())
    return parseDataIdentifier(what);
  const Token &token = peek();
  if (atFunction())
    return parseFunction();
  if (isSpecialRegister(token.keyword) && !isDataName(token))
    return parseSpecialRegister();
  return parseDataIdentifier(what);
}

//===----------------------------------------------------------------------===//
// Data items
//===----------------------------------------------------------------------===//

QualifiedWord *ExpressionParser::parseDataQualifiedWord(llvm::StringRef what) {
  if (peek().isUserWord())
    return atProcedureHeader() ? expected(what) : parseQualifiers(takeWord());
  if (!isDataName(peek()))
    return parseQualifiedWord(what);
  // A register: its word is reserved.
  auto *name = makeAt<QualifiedWord>(here());
  name->addNames(takeWord());
  return name;
}

DataIdentifierExpression *ExpressionParser::parseDataName(llvm::StringRef what) {
  QualifiedWord *name = parseDataQualifiedWord(what);
  return name ? new DataIdentifierExpression(name, name, nullptr, nullptr) : nullptr;
}

DataIdentifierExpression *ExpressionParser::parseDataIdentifier(llvm::StringRef what) {
  QualifiedWord *name = parseDataQualifiedWord(what);
  if (!name)
    return nullptr;
  if (!atModifier())
    return new DataIdentifierExpression(name, name, nullptr, nullptr);
  SubscriptModifier *subscripts = nullptr;
  ReferenceModifier *reference = nullptr;
  if (!parseModifiers(subscripts, reference))
    return nullptr;
  return make<DataIdentifierExpression>(name->getRange(), name, subscripts, reference);
}

/// (subscript ...), (position : length), or the one followed by the other.
bool ExpressionParser::parseModifiers(SubscriptModifier *&subscripts,
                                      ReferenceModifier *&reference) {
  while (!reference && atModifier()) {
    SourceRange begin = here();
    Depth level(*this);
    if (level.isTooDeep())
      return error(DiagnosticId::NestedTooDeep, begin, maxDepth);
    stream.skip();
    // Only the colon after the first expression shows what the parentheses hold.
    Expression *first = nullptr;
    if (!at(TokenKind::Colon) && !(first = parseSubscript()))
      return false;
    if (at(TokenKind::Colon)) {
      if (!(reference = parseReferenceModifier(begin, first)))
        return false;
      continue;
    }
    if (subscripts)
      return expected("':'");
    subscripts = makeAt<SubscriptModifier>(begin);
    subscripts->addSubscript(first);
    while (!accept(TokenKind::RParen)) {
      if (!at(Keyword::All) && !at(TokenKind::Plus, TokenKind::Minus, TokenKind::LParen) &&
          !atOperand())
        return expected("')'");
      Expression *subscript = parseSubscript();
      if (!subscript)
        return false;
      subscripts->addSubscript(subscript);
    }
    complete(subscripts);
  }
  return true;
}

/// ALL, which stands for every occurrence where a function takes a table, is kept as the constant
/// ZERO under the name ALL: no occurrence has that number.
Expression *ExpressionParser::parseSubscript() {
  if (!at(Keyword::All))
    return continueArithmetic(nullptr, here(), /*isSubscript=*/true);
  auto *all = makeAt<FigurativeLiteralExpression>(here(), FigurativeType::Zero, nullptr);
  all->setSymbolName(peek().text);
  stream.skip();
  return all;
}

/// Whether a signed number begins another subscript after \p subscript: C (1 -1), C (I + 1 +2). A
/// name can still take an offset, C (I -1), but what is complete cannot. In a reference modifier
/// the sign is an operator, X (N + 1 -1 : 2).
bool ExpressionParser::atNextSubscript(const Expression &subscript) {
  const SourceRange &last = stream.getLastPlace();
  const SourceRange sign = here();
  const bool touches = last.file == sign.file && last.endLine == sign.beginLine &&
                       last.endColumn + 1u == sign.beginColumn;
  if (touches || !atNumericLiteral())
    return false;
  if (const auto *sum = llvm::dyn_cast<ArithmeticExpression>(&subscript)) {
    if (sum->isParenthesised() ||
        !llvm::is_contained({ArithmeticExprType::Add, ArithmeticExprType::Subtract},
                            sum->getOperator()))
      return false;
  } else if (!llvm::isa<NumericLiteralExpression>(subscript)) {
    return false;
  }
  unsigned open = 0;
  for (unsigned n = 2; n < TokenStream::lookAhead; ++n) {
    if (peek(n).is(TokenKind::LParen))
      ++open;
    else if (peek(n).isOneOf(TokenKind::Period, TokenKind::EndOfFile) ||
             (peek(n).is(TokenKind::RParen) && open-- == 0))
      return true;
    else if (open == 0 && peek(n).is(TokenKind::Colon))
      return false;
  }
  return true;
}

/// With the colon next. The checker reports a missing position.
ReferenceModifier *ExpressionParser::parseReferenceModifier(const SourceRange &begin,
                                                            Expression *position) {
  accept(TokenKind::Colon);
  Expression *length = nullptr;
  if (!at(TokenKind::RParen) && !(length = parseArithmeticExpression()))
    return nullptr;
  if (!expect(TokenKind::RParen))
    return nullptr;
  return make<ReferenceModifier>(begin, position, length);
}

FileIdentifierExpression *ExpressionParser::parseFileName() {
  Word *name = atProcedureHeader() ? expected("a file-name") : parseUserWord("a file-name");
  return name ? makeAt<FileIdentifierExpression>(name->getRange(), name) : nullptr;
}

ReportIdentifierExpression *ExpressionParser::parseReportName() {
  Word *name = atProcedureHeader() ? expected("a report-name") : parseUserWord("a report-name");
  return name ? makeAt<ReportIdentifierExpression>(name->getRange(), name) : nullptr;
}

Expression *ExpressionParser::parseNumberOrDataName(llvm::StringRef what) {
  if (atNumericLiteral())
    return parseNumericLiteral();
  return parseDataName(what);
}

//===----------------------------------------------------------------------===//
// Special registers
//===----------------------------------------------------------------------===//

/// ADDRESS OF item, LENGTH [OF] item, LINAGE-COUNTER [OF file], PAGE-COUNTER [OF report], and the
/// registers that stand alone.
IdentifierExpression *ExpressionParser::parseSpecialRegister() {
  SourceRange begin = here();
  Keyword keyword = peek().keyword;
  if (keyword == Keyword::Address || keyword == Keyword::Length)
    return parseAddressOrLength();

  Word *word = takeWord();
  SpecialRegisterType type = registerTypeOf(keyword);
  FileIdentifierExpression *file = nullptr;
  ReportIdentifierExpression *report = nullptr;
  ReferenceModifier *reference = nullptr;
  // DEBUG-NAME OF DEBUG-ITEM is the only one there is.
  if (type == SpecialRegisterType::DebugItem && peek(1).is(Keyword::DebugItem) &&
      acceptAny(Keyword::Of, Keyword::In))
    accept(Keyword::DebugItem);
  if (type == SpecialRegisterType::LinageCounter) {
    if (acceptAny(Keyword::Of, Keyword::In) && !(file = parseFileName()))
      return nullptr;
  } else if (type == SpecialRegisterType::PageCounter || type == SpecialRegisterType::LineCounter) {
    if (acceptAny(Keyword::Of, Keyword::In) && !(report = parseReportName()))
      return nullptr;
  } else if (atModifier()) {
    SubscriptModifier *subscripts = nullptr;
    if (!parseModifiers(subscripts, reference))
      return nullptr;
    if (subscripts)
      return error(DiagnosticId::SubscriptedRegister, subscripts->getRange(), word->getWordData());
  }
  return make<SpecialRegisterIdentifierExpression>(begin, type, nullptr, word, file, reference,
                                                   report ? report->getReportName() : nullptr,
                                                   report);
}

IdentifierExpression *ExpressionParser::parseAddressOrLength() {
  SourceRange begin = here();
  bool isAddress = at(Keyword::Address);
  Depth level(*this);
  if (level.isTooDeep())
    return error(DiagnosticId::NestedTooDeep, begin, maxDepth);
  Word *word = takeWord();
  if (isAddress ? !expect(Keyword::Of) : (accept(Keyword::Of), false))
    return nullptr;
  Expression *operand = isAddress     ? parseDataIdentifier()
                        : atLiteral() ? static_cast<Expression *>(parseLiteral())
                                      : parseIdentifier();
  if (!operand)
    return nullptr;
  return make<SpecialRegisterIdentifierExpression>(
      begin, isAddress ? SpecialRegisterType::AddressOf : SpecialRegisterType::LengthOf, operand,
      word, nullptr, nullptr, nullptr, nullptr);
}

//===----------------------------------------------------------------------===//
// Functions
//===----------------------------------------------------------------------===//

/// Whether the name of a function that REPOSITORY lets stand without FUNCTION is next. Where it is
/// a reserved word, it is the function only before arguments: LENGTH (A), but not LENGTH OF A.
/// RANDOM needs no arguments, and can be nothing else where an operand stands.
bool ExpressionParser::atRepositoryFunction() {
  const Token &token = peek();
  return token.isWord() &&
         (token.isUserWord() || token.is(Keyword::Random) || peek(1).is(TokenKind::LParen)) &&
         context.repositoryFunctions.contains(token.getInternedText());
}

/// [FUNCTION] name [(argument ...)] [(position : length)]. Names of functions may be reserved
/// words.
FunctionIdentifierExpression *ExpressionParser::parseFunction() {
  SourceRange begin = here();
  accept(Keyword::Function);
  if (!peek().isWord())
    return expected("the name of a function");
  Word *name = takeWord();
  const IntrinsicFunction *function = findIntrinsicFunction(name->getWordData());
  if (!function)
    return reportUnknownFunction(*name);

  Depth level(*this);
  if (level.isTooDeep())
    return error(DiagnosticId::NestedTooDeep, begin, maxDepth);
  auto *call = makeAt<FunctionIdentifierExpression>(name->getRange(), function->type, name);
  SourceRange open = here();
  if (atModifier()) {
    accept(TokenKind::LParen);
    if (!parseFunctionArguments(*call, open))
      return nullptr;
    open = here();
    if (!call->getReferenceMod() && atModifier()) {
      accept(TokenKind::LParen);
      Expression *position = nullptr;
      if (!at(TokenKind::Colon) && !(position = parseArithmeticExpression()))
        return nullptr;
      if (!at(TokenKind::Colon))
        return expected("':'");
      ReferenceModifier *reference = parseReferenceModifier(open, position);
      if (!reference)
        return nullptr;
      call->setReferenceMod(reference);
    }
  }
  call->setRange(from(begin).getRange());
  return call;
}

/// The arguments up to and with the closing parenthesis. After the name of a function without
/// arguments, the parentheses may hold a reference modifier instead.
bool ExpressionParser::parseFunctionArguments(FunctionIdentifierExpression &call,
                                              const SourceRange &open) {
  while (!accept(TokenKind::RParen)) {
    // TRIM takes a word for the side to trim.
    if (at(Keyword::Leading, Keyword::Trailing) && !call.getArgKeyword()) {
      call.setArgKeyword(takeWord());
      continue;
    }
    Expression *argument = nullptr;
    if (!at(TokenKind::Colon)) {
      if (!(argument = parseArithmeticExpression()))
        return false;
      if (!at(TokenKind::Colon)) {
        call.addFunctionArg(argument);
        continue;
      }
    }
    if (call.getFunctionArgListSize() != 0 || call.getArgKeyword())
      return expected("')'");
    ReferenceModifier *reference = parseReferenceModifier(open, argument);
    call.setReferenceMod(reference);
    return reference != nullptr;
  }
  return true;
}

/// The only function whose name begins with \p text; empty where there is none or more than one.
static llvm::StringRef functionThatBegins(llvm::StringRef text) {
  auto begins = [&](const IntrinsicFunction &one) { return one.name.starts_with(text); };
  const IntrinsicFunction *first = llvm::find_if(intrinsicFunctions(), begins);
  const IntrinsicFunction *end = intrinsicFunctions().end();
  return first == end || std::any_of(first + 1, end, begins) ? "" : llvm::StringRef(first->name);
}

Failure ExpressionParser::reportUnknownFunction(const Word &name) {
  SpellingMatch match(name.getWordData());
  for (const IntrinsicFunction &function : intrinsicFunctions())
    match.consider(function.name);
  llvm::StringRef nearest = match.getNearest();
  // UPPER for UPPER-CASE.
  if (nearest.empty())
    nearest = functionThatBegins(name.getWordData() + "-");
  if (nearest.empty())
    return error(DiagnosticId::UnknownFunction, name.getRange(), name.getDisplayName());
  return error(DiagnosticId::MisspeltFunction, name.getRange(), name.getDisplayName(), nearest);
}

//===----------------------------------------------------------------------===//
// Arithmetic expressions
//===----------------------------------------------------------------------===//

// Operators of one rank are taken in a loop, so that a chain of any length needs no recursion; only
// parentheses nest.

namespace {

ArithmeticExprType operatorOf(TokenKind kind) {
  switch (kind) {
  case TokenKind::Plus:
    return ArithmeticExprType::Add;
  case TokenKind::Minus:
    return ArithmeticExprType::Subtract;
  case TokenKind::Star:
    return ArithmeticExprType::Multiply;
  case TokenKind::Slash:
    return ArithmeticExprType::Divide;
  default:
    return ArithmeticExprType::Power;
  }
}

} // namespace

Expression *ExpressionParser::parseArithmeticExpression() {
  return continueArithmetic(nullptr, here());
}

/// The sum that begins with \p first, which began at \p begin and of which more operands and
/// operators may follow; null when nothing of it was read yet.
Expression *ExpressionParser::continueArithmetic(Expression *first, const SourceRange &begin,
                                                 bool isSubscript) {
  Expression *sum = parseProduct(first, begin);
  // In a list, a sign after a comma belongs to the next operand: MAX (A, -1).
  while (sum && at(TokenKind::Plus, TokenKind::Minus) && !peek().isAfterComma() &&
         !(isSubscript && atNextSubscript(*sum))) {
    ArithmeticExprType op = operatorOf(peek().kind);
    stream.skip();
    sum = makeBinary(op, begin, sum, parseProduct(nullptr, here()));
  }
  return sum;
}

Expression *ExpressionParser::parseProduct(Expression *first, const SourceRange &begin) {
  Expression *product = parsePower(first, begin);
  while (product && at(TokenKind::Star, TokenKind::Slash)) {
    ArithmeticExprType op = operatorOf(peek().kind);
    stream.skip();
    product = makeBinary(op, begin, product, parsePower(nullptr, here()));
  }
  return product;
}

Expression *ExpressionParser::parsePower(Expression *first, const SourceRange &begin) {
  Expression *power = first ? first : parseSigned();
  while (power && accept(TokenKind::Power))
    power = makeBinary(ArithmeticExprType::Power, begin, power, parseSigned());
  return power;
}

Expression *ExpressionParser::makeBinary(ArithmeticExprType op, const SourceRange &begin,
                                         Expression *left, Expression *right) {
  if (!right)
    return nullptr;
  return make<ArithmeticExpression>(begin, op, left, right, /*parenthesised=*/false);
}

/// An operand with or without a sign. The sign of a number that it touches is part of the number.
Expression *ExpressionParser::parseSigned() {
  if (!at(TokenKind::Plus, TokenKind::Minus) || atNumericLiteral())
    return parsePrimary();
  SourceRange begin = here();
  ArithmeticExprType op =
      at(TokenKind::Plus) ? ArithmeticExprType::UnaryPlus : ArithmeticExprType::UnaryMinus;
  stream.skip();
  Expression *operand = parsePrimary();
  if (!operand)
    return nullptr;
  return make<ArithmeticExpression>(begin, op, operand, nullptr, /*parenthesised=*/false);
}

Expression *ExpressionParser::parsePrimary() {
  if (!at(TokenKind::LParen))
    return parseOperand();
  SourceRange begin = here();
  Depth level(*this);
  if (level.isTooDeep())
    return error(DiagnosticId::NestedTooDeep, begin, maxDepth);
  stream.skip();
  Expression *inner = parseArithmeticExpression();
  if (!inner || !expect(TokenKind::RParen))
    return nullptr;
  return parenthesise(inner, begin);
}

/// Marks what stood in the parentheses that began at \p begin and just ended. A single operand is
/// not changed by them.
Expression *ExpressionParser::parenthesise(Expression *inner, const SourceRange &begin) {
  if (auto *arithmetic = llvm::dyn_cast<ArithmeticExpression>(inner)) {
    arithmetic->setIsParenthesised(true);
    arithmetic->setRange(from(begin).getRange());
  }
  return inner;
}

} // namespace tarka
