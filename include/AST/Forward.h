//===- Forward.h - the names of the tree's classes --------------*- C++ -*-===//
//
// Forward declarations, for headers that only point at nodes.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_FORWARD_H
#define TARKA_AST_FORWARD_H

namespace tarka {

class Node;
class Word;
class QualifiedWord;

class Expression;
class LiteralExpression;
class NumericLiteralExpression;
class NonNumericLiteralExpression;
class FigurativeLiteralExpression;
class ArithmeticExpression;
class IdentifierExpression;
class DataIdentifierExpression;
class FileIdentifierExpression;
class FunctionIdentifierExpression;
class SpecialRegisterIdentifierExpression;
class ReportIdentifierExpression;
class AbbrRelationCombinedExpression;
class SubscriptModifier;
class ReferenceModifier;

class Condition;

class EmbeddedCommand;
class ExecStatement;

class Statement;
class ExceptionHandler;
class MoveStatement;
class PerformStatement;
class UseStatement;
class EvaluateSubject;
class EvaluateWhen;
class Parameter;
class UseProcedure;

class DataDescription;
class FileDescription;
class ReportDescription;
class ReportDataDescription;
class DataDivision;

class ClauseAlphabet;
class ClauseClass;
class ClauseEnvName;
class ParaFileControl;

class Declaratives;
class Paragraph;
class ProcedureDivision;
class Program;
class Section;
class Sentence;
class SourceUnit;

class CFGBlock;

} // namespace tarka

#endif // TARKA_AST_FORWARD_H
