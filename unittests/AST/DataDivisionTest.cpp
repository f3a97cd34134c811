//===- DataDivisionTest.cpp - the name index ------------------------------===//

#include "DataBuilder.h"
#include "gtest/gtest.h"
#include <vector>

using namespace tarka;
using namespace tarka::test;

namespace {

using Entries = std::vector<DataDescription *>;

Entries find(DataDivision &division, const char *name) {
  std::list<DataDescription *> *found = division.findItemByName(name);
  return found ? Entries(found->begin(), found->end()) : Entries();
}

class NameIndex : public testing::Test {
protected:
  // Like every node it lives to the end, and its lists with it.
  DataDivision &division = *new DataDivision(nullptr);
};

TEST_F(NameIndex, AnswersInSourceOrderOverAllSections) {
  Entry inFile(05, "A"), inWork(01, "A"), inLocal(05, "A"), inLink(01, "A"), condition(88, "A");
  auto *inReport = new ReportDataDescription(new Node);
  inReport->setDataName(word("A"));
  auto *file = new FileDescription(nullptr, FileDescType::File, word("F"));
  auto *report = new ReportDescription(nullptr, word("REP"));
  // Filled in another order than that of the source.
  report->addRecord(inReport);
  division.addReportSection(report);
  division.addLinkSection(inLink);
  division.addLocalSection(Entry(01, "L").with({inLocal}));
  division.addWorkSection(inWork.with({Entry(05, "B"), Entry(05, "C").with({condition})}));
  file->addRecordDesc(Entry(01, "R").with({inFile}));
  division.addFileSection(file);

  EXPECT_EQ(find(division, "A"), (Entries{inFile, inWork, condition, inLocal, inLink, inReport}));
  EXPECT_EQ(find(division, "B").size(), 1u);
  EXPECT_EQ(division.findItemByName("NOWHERE"), nullptr);
  EXPECT_LT(inWork->getSourceOrder(), condition->getSourceOrder());
  EXPECT_LT(condition->getSourceOrder(), inLocal->getSourceOrder());

  EXPECT_EQ(inFile->getStorageType(), StorageType::File);
  EXPECT_EQ(inFile->getFileDescription(), file);
  EXPECT_EQ(condition->getStorageType(), StorageType::WorkingStorage);
  EXPECT_EQ(inLocal->getStorageType(), StorageType::LocalStorage);
  EXPECT_EQ(inLink->getStorageType(), StorageType::Linkage);
  EXPECT_EQ(inReport->getStorageType(), StorageType::Report);
  EXPECT_EQ(inReport->getReportDescription(), report);
}

TEST_F(NameIndex, NoticesWhatIsAddedLater) {
  Entry group(05, "G"), item(10, "A");
  Entry record = Entry(01, "R").with({group.with({item})});
  division.addWorkSection(record);
  EXPECT_EQ(find(division, "A"), Entries{item});
  std::list<DataDescription *> *answer = division.findItemByName("A");

  // Appended to the section directly, as index names and registers are.
  Entry index(01, "A");
  index->setParent(group);
  division.getWorkSection()->push_back(index);
  EXPECT_EQ(find(division, "A"), (Entries{item, index}));
  EXPECT_EQ(division.findItemByName("A"), answer) << "answers are kept, not rebuilt";

  // Put into the tree, at any depth.
  Entry slack(10, "A"), child(15, "A"), condition(88, "A");
  group->insertChildBefore(item, slack);
  EXPECT_EQ(find(division, "A"), (Entries{item, index, slack}));
  slack->addChildren(child);
  group->addCondNameChildren(condition);
  EXPECT_EQ(find(division, "A"), (Entries{item, index, slack, child, condition}));

  // Named and renamed.
  Entry unnamed(05, "");
  record->addChildren(unnamed);
  EXPECT_TRUE(find(division, "FILLER").empty());
  unnamed->setDataName(word("FILLER"));
  EXPECT_EQ(find(division, "FILLER"), Entries{unnamed});
  child->setDataName(word("Z"));
  EXPECT_EQ(find(division, "Z"), Entries{child});
  EXPECT_EQ(find(division, "A"), (Entries{item, index, slack, condition}));

  // A record that its file gets after the first question.
  auto *file = new FileDescription(nullptr, FileDescType::File, word("F"));
  division.addFileSection(file);
  EXPECT_TRUE(find(division, "NEW").empty());
  Entry made(01, "NEW");
  file->setRecordDesc({made});
  EXPECT_EQ(find(division, "NEW"), Entries{made});
  Entry replaced(01, "NEW");
  file->setRecordDesc({replaced});
  EXPECT_EQ(find(division, "NEW"), Entries{replaced});
}

TEST_F(NameIndex, ConditionNamesAreEnteredOnce) {
  Entry condition(88, "YES");
  Entry flag = Entry(01, "FLAG").pic("X").with({condition});
  division.addWorkSection(flag);
  EXPECT_EQ(find(division, "YES"), Entries{condition});
  flag->addCondNameChildren(condition);
  condition->setCondNameParent(flag);
  condition->removeParent();
  flag->setChildrenList(new std::list<DataDescription *>);
  EXPECT_EQ(find(division, "YES"), Entries{condition});
  EXPECT_EQ(condition->getStorageType(), StorageType::WorkingStorage);
}

TEST_F(NameIndex, FollowsANewWorkingStorage) {
  Entry old(01, "A"), linkage(01, "A"), made(01, "A");
  EXPECT_EQ(division.getWorkSection(), nullptr);
  EXPECT_EQ(division.getWorkSectionBegin(), division.getWorkSectionEnd());
  division.addLinkSection(linkage);
  EXPECT_EQ(find(division, "A"), Entries{linkage});
  std::list<DataDescription *> first{old};
  division.setWorkSection(&first);
  EXPECT_EQ(find(division, "A"), (Entries{linkage, old}));
  EXPECT_EQ(*division.getWorkFlatList(), (std::list<DataDescription *>{old}));
  auto *second = new std::list<DataDescription *>{made};
  division.setWorkSection(second);
  EXPECT_EQ(find(division, "A"), (Entries{made, linkage}));
  EXPECT_EQ(old->getSourceOrder(), 0u);
  EXPECT_EQ(*division.getWorkFlatList(), (std::list<DataDescription *>{made}));
}

TEST_F(NameIndex, FlatListAndTablesInSourceOrder) {
  Entry a(05, "A"), b(10, "B"), c(05, "C"), late(01, "LATE");
  Entry table = Entry(05, "T").pic("X").depending("1", "3");
  Entry lateTable = Entry(05, "U").pic("X").depending("1", "3");
  Entry record = Entry(01, "R").with({a.with({b}), table, c});
  division.addWorkSection(record);
  std::list<DataDescription *> *flat = division.getWorkFlatList();
  EXPECT_EQ(*flat, (std::list<DataDescription *>{record, a, b, table, c}));
  division.getWorkSection()->push_back(late.with({lateTable}));
  EXPECT_EQ(division.getWorkFlatList(), flat);
  EXPECT_EQ(flat->size(), 7u);
  EXPECT_EQ(division.getVariableTables(),
            llvm::ArrayRef<DataDescription *>(Entries{table, lateTable}));
}

TEST_F(NameIndex, ChainsOfRecords) {
  Entry a(01, "A"), b(01, "B"), c(01, "C");
  EXPECT_EQ(division.getFirstDesc(), nullptr);
  division.setFirstDesc(a);
  division.setLastDesc(b);
  division.setFirstDescWithValue(c);
  EXPECT_EQ(division.getFirstDesc(), a);
  EXPECT_EQ(division.getDescChain(), llvm::ArrayRef<DataDescription *>(Entries{a, b}));
  EXPECT_EQ(division.getDescChainWithValue(), llvm::ArrayRef<DataDescription *>(Entries{c}));
}

TEST(ReportDataDescription, TakesOverWhatIsWritten) {
  Entry entry = Entry(05, "A").pic("ZZ9");
  entry->setGlobal(new ClauseGlobal(nullptr));
  Entry parent = Entry(01, "P").with({entry});
  entry->addChildren(Entry(10, "B"));
  entry->addUsedRD(nullptr);
  ReportDataDescription copy(static_cast<DataDescription *>(entry));
  EXPECT_EQ(copy.getType(), DescType::Report);
  EXPECT_EQ(copy.getLevelNum(), 5u);
  EXPECT_EQ(copy.getDataName(), entry->getDataName());
  EXPECT_EQ(copy.getPicture(), entry->getPicture());
  EXPECT_EQ(copy.getParent(), parent);
  EXPECT_FALSE(copy.isGroupItem());
  EXPECT_EQ(copy.getUsedRDListSize(), 0u);
  // What the copy gets is not the original's.
  copy.setGlobal(nullptr);
  EXPECT_NE(entry->getGlobal(), nullptr);
}

} // namespace
