//===- DataBuilder.h - data entries for tests -------------------*- C++ -*-===//
//
// Builds records the way a parser does, in a line an entry.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_UNITTESTS_AST_DATABUILDER_H
#define TARKA_UNITTESTS_AST_DATABUILDER_H

#include "AST/DataDivision.h"
#include "AST/Expression.h"
#include <initializer_list>

namespace tarka::test {

inline Word *word(llvm::StringRef text) {
  return new Word(nullptr, text, "");
}

inline DataIdentifierExpression *reference(DataDescription *entry) {
  auto *name = new DataIdentifierExpression(nullptr, nullptr, nullptr, nullptr);
  name->setDataDescription(entry);
  return name;
}

/// An entry, finished step by step.
class Entry {
public:
  /// An empty \p name gives an entry without a name.
  Entry(unsigned level, llvm::StringRef name) : entry(new DataDescription(nullptr)) {
    entry->setLevelNum(level);
    if (!name.empty())
      entry->setDataName(word(name));
  }

  operator DataDescription *() const { return entry; }
  DataDescription *operator->() const { return entry; }

  Entry pic(llvm::StringRef text) {
    entry->setPicture(new ClausePicture(nullptr, word(text)));
    return *this;
  }
  Entry usage(UsageType type) {
    entry->setUsage(new ClauseUsage(nullptr, type));
    return *this;
  }
  Entry occurs(llvm::StringRef max) {
    auto *clause = new ClauseOccurs(nullptr);
    clause->setMaxExpr(new NumericLiteralExpression(nullptr, max));
    entry->setOccurs(clause);
    return *this;
  }
  /// DEPENDING ON something; an empty \p min is not written.
  Entry depending(llvm::StringRef min, llvm::StringRef max) {
    occurs(max);
    if (!min.empty())
      entry->getOccurs()->setMinExpr(new NumericLiteralExpression(nullptr, min));
    entry->getOccurs()->setOdoName(reference(nullptr));
    return *this;
  }
  Entry separateSign() {
    entry->setSign(new ClauseSign(nullptr, false, true));
    return *this;
  }
  /// REDEFINES as the parser leaves it, not linked to the object.
  Entry redefines() {
    entry->setRedefines(new ClauseRedefines(nullptr, nullptr));
    return *this;
  }
  Entry with(std::initializer_list<DataDescription *> children) {
    for (DataDescription *child : children)
      entry->addChildren(child);
    return *this;
  }

private:
  DataDescription *entry;
};

} // namespace tarka::test

#endif // TARKA_UNITTESTS_AST_DATABUILDER_H
