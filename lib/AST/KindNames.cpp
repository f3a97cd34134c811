//===- KindNames.cpp - the texts of the enumerations ----------------------===//

#include "AST/KindNames.h"
#include "AST/Statement.h"

namespace tarka {

// The kind of a row is the kind of its class.
#define TARKA_STATEMENT(Enumerator, Number, Class, Verb)                                           \
  static_assert(Class::Kind == StatementType::Enumerator);
#include "AST/Statements.def"

#define TARKA_ENUM(Type)                                                                           \
  llvm::StringRef nameOf(Type value) {                                                             \
    using enum Type;                                                                               \
    switch (value) {
#define TARKA_VALUE(Enumerator, Number, Text)                                                      \
  case Enumerator:                                                                                 \
    return Text;
#define TARKA_END                                                                                  \
  }                                                                                                \
  return "";                                                                                       \
  }
#include "AST/Enumerations.def"

llvm::StringRef classNameOf(StatementType kind) {
  switch (kind) {
#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  case StatementType::Kind:                                                                        \
    return #Class;
#include "AST/Statements.def"
  }
  return "Statement";
}

llvm::StringRef classNameOf(ExpressionType kind) {
  switch (kind) {
#define TARKA_EXPRESSION(Kind, Number, Class)                                                      \
  case ExpressionType::Kind:                                                                       \
    return #Class;
#include "AST/Expressions.def"
  }
  return "Expression";
}

llvm::StringRef classNameOf(ConditionType kind) {
  switch (kind) {
#define TARKA_CONDITION(Kind, Number, Class)                                                       \
  case ConditionType::Kind:                                                                        \
    return #Class;
#include "AST/Conditions.def"
  }
  return "Condition";
}

llvm::StringRef verbOf(StatementType kind) {
  switch (kind) {
#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  case StatementType::Kind:                                                                        \
    return Verb;
#include "AST/Statements.def"
  }
  return "";
}

} // namespace tarka
