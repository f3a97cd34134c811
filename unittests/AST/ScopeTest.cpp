//===- ScopeTest.cpp - what a nested program can see ----------------------===//
//
// The names that the programs under test/ cannot ask for: the lists of all that
// is visible, and what a tree says before the checks have completed it.
//
//===----------------------------------------------------------------------===//

#include "AST/Scope.h"
#include "DataBuilder.h"
#include "gtest/gtest.h"
#include <vector>

using namespace tarka;
using namespace tarka::test;

namespace {

SourceUnit *program(llvm::StringRef name, SourceUnit *outer,
                    ProgramIdType type = ProgramIdType::None) {
  auto *id = new ProgramIdParagraph(nullptr, word(name), type);
  auto *unit = new SourceUnit(nullptr, new IdentificationDivision(nullptr, id), outer);
  unit->setDataDivision(new DataDivision(nullptr));
  if (outer)
    outer->addNested(unit);
  return unit;
}

TEST(Scope, ListsWhatIsVisibleAndNotHidden) {
  SourceUnit *outer = program("OUTER", nullptr), *inner = program("INNER", outer);
  auto *shared = new FileDescription(nullptr, FileDescType::File, word("SHARED"));
  auto *closed = new FileDescription(nullptr, FileDescType::File, word("CLOSED"));
  Entry sharedRecord(01, "SHARED-RECORD"), set(88, "SET"), closedRecord(01, "CLOSED-RECORD");
  Entry open(01, "OPEN"), part(05, "PART"), hidden(01, "NAME"), own(01, "NAME"), other(01, "OTHER");
  // The records of a GLOBAL file are GLOBAL before the checks say so in the records.
  shared->setGlobal(new ClauseGlobal(nullptr));
  shared->addRecordDesc(sharedRecord.with({set}));
  closed->addRecordDesc(closedRecord);
  DataDivision &around = *outer->getDataDivision();
  around.addFileSection(shared);
  around.addFileSection(closed);
  open->setGlobal(new ClauseGlobal(nullptr));
  hidden->setGlobal(new ClauseGlobal(nullptr));
  around.addWorkSection(open.with({part}));
  around.addWorkSection(hidden);
  around.addWorkSection(other);
  inner->getDataDivision()->addWorkSection(own);

  std::vector<DataDescription *> items;
  Scope(inner).forEachItem([&](DataDescription *entry) { items.push_back(entry); });
  EXPECT_EQ(items, (std::vector<DataDescription *>{own, sharedRecord, set, open, part}));
  std::vector<FileDescription *> files;
  Scope(inner).forEachFile([&](FileDescription *file) { files.push_back(file); });
  EXPECT_EQ(files, std::vector<FileDescription *>{shared});

  EXPECT_TRUE(Scope(inner).isConditionName(&internString("SET")));
  EXPECT_TRUE(Scope(outer).isFileName(&internString("CLOSED")));
  EXPECT_FALSE(Scope(inner).isFileName(&internString("CLOSED")));
  EXPECT_FALSE(Scope(nullptr).isDeclared(&internString("NAME")));
}

TEST(ProgramNames, FindsWhatACallReaches) {
  Program compilation("P");
  SourceUnit *outer = program("OUTER", nullptr), *inner = program("'Inner'", outer),
             *innermost = program("DEEP", inner), *another = program("DEEP", nullptr),
             *common = program("COMMON-ONE", outer, ProgramIdType::Common);
  compilation.addSourceUnit(outer);
  compilation.addSourceUnit(another);
  const ProgramNames names(compilation);
  EXPECT_EQ(names.find(outer, "\"inner\""), inner);
  EXPECT_EQ(names.find(inner, "deep"), innermost);
  EXPECT_EQ(names.find(outer, "DEEP"), another);
  EXPECT_EQ(names.find(innermost, "COMMON-ONE"), common);
  EXPECT_EQ(names.find(innermost, "INNER"), nullptr) << "not COMMON, and no program of its own";
}

} // namespace
