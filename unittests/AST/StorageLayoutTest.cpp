//===- StorageLayoutTest.cpp - offsets and sizes --------------------------===//

#include "AST/StorageLayout.h"
#include "DataBuilder.h"
#include "gtest/gtest.h"
#include <chrono>
#include <random>
#include <vector>

using namespace tarka;
using namespace tarka::test;

namespace {

TEST(ElementarySize, FollowsUsageAndPicture) {
  struct Case {
    const char *picture;
    UsageType usage;
    std::int64_t bytes;
  };
  const Case cases[] = {
      {"9", UsageType::Binary, 2},
      {"S9(4)", UsageType::Comp, 2},
      {"S9(5)", UsageType::Comp4, 4},
      {"9(9)", UsageType::Comp5, 4},
      {"9(10)", UsageType::Binary, 8},
      {"S9(16)V99", UsageType::Binary, 8},
      {"S9(19)", UsageType::Binary, 16},
      {"9(31)", UsageType::Comp5, 16},
      // Scaling positions are not stored.
      {"9(4)PPP", UsageType::Binary, 2},
      {"S9(3)P(4)", UsageType::Comp3, 2},
      {"9", UsageType::Comp3, 1},
      {"S9(4)", UsageType::PackedDecimal, 3},
      {"S9(5)V99", UsageType::Comp3, 4},
      {"9(31)", UsageType::PackedDecimal, 16},
      {nullptr, UsageType::Comp1, 4},
      {nullptr, UsageType::Comp2, 8},
      {nullptr, UsageType::Index, 4},
      {nullptr, UsageType::Pointer, 4},
      {nullptr, UsageType::ProcedurePointer, 8},
      {nullptr, UsageType::FunctionPointer, 4},
      {"X(10)", UsageType::Display, 10},
      {"S9(5)V99", UsageType::Display, 7},
      {"PP99", UsageType::Display, 2},
      {"ZZ,ZZ9.99CR", UsageType::Display, 11},
      {"+9(3)V9E+99", UsageType::Display, 9},
      {"G(4)", UsageType::Display1, 8},
      {"N(5)", UsageType::National, 10},
      {"9(5)", UsageType::National, 10},
      {"Z,ZZ9", UsageType::National, 10},
      // A usage that needs a PICTURE and has none.
      {nullptr, UsageType::Comp3, 0},
  };
  for (const Case &test : cases) {
    Entry item(77, "A");
    if (test.picture)
      item.pic(test.picture);
    item.usage(test.usage);
    EXPECT_EQ(item->getAllocSize(), test.bytes)
        << (test.picture ? test.picture : "-") << " usage " << static_cast<int>(test.usage);
    EXPECT_EQ(item->getElemAllocSize(), test.bytes);
    EXPECT_EQ(item->getMinAllocSize(), test.bytes);
  }
}

TEST(ElementarySize, SeparateSignTakesAPositionOfSignedCharacterItemsOnly) {
  EXPECT_EQ(Entry(77, "A").pic("S9(4)").separateSign()->getAllocSize(), 5);
  EXPECT_EQ(Entry(77, "A").pic("9(4)").separateSign()->getAllocSize(), 4);
  EXPECT_EQ(Entry(77, "A").pic("S9(4)").usage(UsageType::National).separateSign()->getAllocSize(),
            10);
  EXPECT_EQ(Entry(77, "A").pic("S9(4)").usage(UsageType::Comp3).separateSign()->getAllocSize(), 3);
}

TEST(Inheritance, UsageAndSignComeFromTheNearestGroup) {
  Entry packed(10, "PACKED"), binary(10, "BINARY"), text(05, "TEXT"), national(05, "NATIONAL");
  packed.pic("S9(3)");
  binary.pic("S9(3)").usage(UsageType::Binary);
  Entry inner = Entry(05, "INNER").with({packed, binary});
  Entry outer = Entry(01, "OUTER").usage(UsageType::Comp3).with({inner});
  EXPECT_EQ(packed->getUsageType(), UsageType::Comp3);
  EXPECT_EQ(binary->getUsageType(), UsageType::Binary);
  EXPECT_EQ(outer->getAllocSize(), 2 + 2);

  // Taking the clause away, or giving another one, is seen two levels below.
  outer->setUsage(nullptr);
  EXPECT_EQ(packed->getUsageType(), UsageType::Display);
  EXPECT_EQ(outer->getAllocSize(), 3 + 2);
  outer.separateSign();
  EXPECT_EQ(outer->getAllocSize(), 4 + 2);
  packed->setSign(new ClauseSign(nullptr, true, false));
  EXPECT_EQ(outer->getAllocSize(), 3 + 2);

  text.pic("X(3)");
  national.pic("N(3)");
  Entry mixed = Entry(01, "MIXED").with({text, national});
  EXPECT_EQ(national->getUsageType(), UsageType::National);
  EXPECT_EQ(Entry(77, "D").pic("G(2)")->getUsageType(), UsageType::Display1);
  EXPECT_EQ(mixed->getAllocSize(), 3 + 6);

  // In a national group numbers are national as well.
  Entry digits = Entry(05, "DIGITS").pic("9(4)");
  Entry group = Entry(01, "G").with({digits});
  EXPECT_EQ(group->getAllocSize(), 4);
  group->setGroupUsage(new ClauseGroupUsage(nullptr));
  EXPECT_EQ(digits->getUsageType(), UsageType::National);
  EXPECT_EQ(group->getAllocSize(), 8);
  EXPECT_EQ(group->getDataCategory(), DataCategory::National);
}

TEST(Category, FollowsPictureUsageAndStructure) {
  EXPECT_EQ(Entry(77, "A").pic("ZZ9")->getDataCategory(), DataCategory::NumericEdited);
  EXPECT_EQ(Entry(77, "A").usage(UsageType::Index)->getDataCategory(), DataCategory::Index);
  EXPECT_EQ(Entry(77, "A").usage(UsageType::Comp2)->getDataCategory(), DataCategory::InternalFloat);
  EXPECT_EQ(Entry(77, "A").usage(UsageType::ProcedurePointer)->getDataCategory(),
            DataCategory::Pointer);
  EXPECT_EQ(Entry(77, "A")->getDataCategory(), DataCategory::Unclassified);

  // A condition name among the children makes no group of its variable, and has its category
  // before and after it is moved out.
  Entry condition(88, "YES");
  Entry flag = Entry(05, "FLAG").pic("9").with({condition});
  Entry record = Entry(01, "R").with({flag});
  EXPECT_TRUE(flag->isGroupItem());
  EXPECT_EQ(flag->getDataCategory(), DataCategory::Numeric);
  EXPECT_EQ(condition->getDataCategory(), DataCategory::Numeric);
  EXPECT_EQ(flag->getAllocSize(), 1);
  flag->addCondNameChildren(condition);
  condition->setCondNameParent(flag);
  condition->removeParent();
  flag->setChildrenList(new std::list<DataDescription *>);
  EXPECT_FALSE(flag->isGroupItem());
  EXPECT_EQ(condition->getDataCategory(), DataCategory::Numeric);
  EXPECT_EQ(condition->getAllocSize(), 1);
  EXPECT_EQ(record->getDataCategory(), DataCategory::Alphanumeric);
}

TEST(Layout, NestedTables) {
  Entry name = Entry(15, "NAME").pic("X(3)");
  Entry amount = Entry(15, "AMOUNT").pic("S9(5)").usage(UsageType::Comp3).occurs("4");
  Entry column = Entry(10, "COLUMN").occurs("5").with({name, amount});
  Entry tail = Entry(10, "TAIL").pic("X");
  Entry row = Entry(05, "ROW").occurs("10").with({column, tail});
  Entry after = Entry(05, "AFTER").pic("9(4)").usage(UsageType::Binary);
  Entry record = Entry(01, "R").with({Entry(05, "HEAD").pic("X(7)"), row, after});

  EXPECT_EQ(amount->getAllocSize(), 3);
  EXPECT_EQ(amount->getTotalAllocSize(), 12);
  EXPECT_EQ(column->getAllocSize(), 15);
  EXPECT_EQ(row->getAllocSize(), 76);
  EXPECT_EQ(row->getTotalAllocSize(), 760);
  EXPECT_EQ(record->getAllocSize(), 7 + 760 + 2);
  EXPECT_EQ(record->getMinAllocSize(), record->getAllocSize());
  EXPECT_EQ(name->getOffset(), 7);
  EXPECT_EQ(amount->getOffset(), 10);
  EXPECT_EQ(tail->getOffset(), 7 + 75);
  EXPECT_EQ(after->getOffset(), 767);
  EXPECT_EQ(record->getOffset(), 0);
}

TEST(Layout, DependingOnHasASmallestSize) {
  Entry inner = Entry(10, "INNER").pic("X(2)").depending("", "3");
  Entry outer = Entry(05, "OUTER").depending("0", "5").with({Entry(10, "F").pic("X"), inner});
  Entry fixed = Entry(05, "FIXED").pic("X(4)").depending("2", "6");
  Entry record = Entry(01, "R").with({Entry(05, "HEAD").pic("X(10)"), fixed, outer});
  EXPECT_EQ(record->getAllocSize(), 10 + 24 + 5 * (1 + 6));
  EXPECT_EQ(record->getMinAllocSize(), 10 + 8 + 0);
  // One occurrence, in which the inner table has one at least.
  EXPECT_EQ(outer->getMinAllocSize(), 1 + 2);
  // Offsets are those of the largest tables.
  EXPECT_EQ(outer->getOffset(), 34);

  outer->getOccurs()->setMinExpr(new NumericLiteralExpression(nullptr, "2"));
  outer->clauseChanged();
  EXPECT_EQ(record->getMinAllocSize(), 10 + 8 + 2 * 3);

  EXPECT_TRUE(record->checkContainsOdo());
  EXPECT_FALSE(fixed->checkContainsOdo());
  EXPECT_TRUE(outer->checkContainsOdo());
}

TEST(Layout, RedefinitionsShareAPlaceAndTakeTheLargest) {
  Entry a = Entry(05, "A").pic("X(4)");
  Entry smaller = Entry(05, "B").pic("X(2)").redefines();
  Entry larger = Entry(05, "C").redefines().with(
      {Entry(10, "C1").pic("X(3)"), Entry(10, "C2").pic("9(9)").usage(UsageType::Binary)});
  Entry small = Entry(05, "D").pic("X").redefines();
  Entry next = Entry(05, "E").pic("X(5)");
  Entry record = Entry(01, "R").with({Entry(05, "H").pic("X"), a, smaller, larger, small, next});
  for (DataDescription *member : {a, smaller, larger, small})
    EXPECT_EQ(member->getOffset(), 1);
  EXPECT_EQ(next->getOffset(), 1 + 7);
  EXPECT_EQ(record->getAllocSize(), 1 + 7 + 5);

  // A redefinition that is linked to its object stays there, whatever comes between them.
  for (DataDescription *subject : {smaller, larger, small})
    subject->setRedefineObject(a);
  Entry filler = Entry(05, "SLACK-BYTES").pic("X(3)");
  record->insertChildBefore(larger, filler);
  EXPECT_EQ(filler->getOffset(), 5);
  EXPECT_EQ(larger->getOffset(), 1);
  EXPECT_EQ(small->getOffset(), 1);
  EXPECT_EQ(next->getOffset(), 8);

  // A redefinition with nothing before it is reported elsewhere and must not hurt.
  Entry alone = Entry(05, "X").pic("X(2)").redefines();
  EXPECT_EQ(Entry(01, "S").with({alone})->getAllocSize(), 2);
}

TEST(Layout, SmallestSizeOfRedefinedTables) {
  Entry a = Entry(05, "A").with({Entry(10, "T").pic("X(2)").depending("1", "10")});
  Entry b = Entry(05, "B").pic("X(9)").redefines();
  Entry record = Entry(01, "R").with({a, b, Entry(05, "C").pic("X")});
  EXPECT_EQ(record->getAllocSize(), 21);
  EXPECT_EQ(record->getMinAllocSize(), 10);
}

TEST(Layout, RenamesSpansItsItems) {
  Entry a = Entry(05, "A").pic("X(2)"), b = Entry(05, "B").pic("9(4)"),
        c = Entry(05, "C").pic("X(3)"), one(66, "ONE"), span(66, "SPAN"), self(66, "SELF"),
        unbound(66, "UNBOUND");
  Entry record = Entry(01, "R").with({a, b, c, one, span, self, unbound});
  one->setRenames(new ClauseRenames(nullptr, reference(b), nullptr));
  span->setRenames(new ClauseRenames(nullptr, reference(b), reference(c)));
  self->setRenames(new ClauseRenames(nullptr, reference(self), nullptr));
  unbound->setRenames(new ClauseRenames(nullptr, reference(nullptr), nullptr));

  EXPECT_EQ(record->getAllocSize(), 9);
  EXPECT_EQ(one->getOffset(), 2);
  EXPECT_EQ(one->getAllocSize(), 4);
  EXPECT_EQ(one->getDataCategory(), DataCategory::Numeric);
  EXPECT_EQ(span->getOffset(), 2);
  EXPECT_EQ(span->getAllocSize(), 7);
  EXPECT_EQ(span->getDataCategory(), DataCategory::Alphanumeric);
  EXPECT_EQ(self->getAllocSize(), 0);
  EXPECT_EQ(self->getOffset(), 0);
  EXPECT_EQ(unbound->getAllocSize(), 0);
  // The wrong way round there is nothing between the two.
  span->setRenames(new ClauseRenames(nullptr, reference(c), reference(a)));
  EXPECT_EQ(span->getAllocSize(), 0);
}

TEST(Layout, IndexNamesStandOutsideTheRecord) {
  Entry item = Entry(05, "A").pic("X(2)");
  Entry record = Entry(01, "R").with({item, Entry(05, "B").pic("X(2)")});
  Entry index = Entry(01, "IX").usage(UsageType::Index);
  index->setIsCompilerMade(true);
  index->setParent(record);
  EXPECT_EQ(index->getOffset(), 0);
  EXPECT_EQ(index->getAllocSize(), 4);
  EXPECT_EQ(record->getAllocSize(), 4);
}

TEST(Layout, FollowsEveryChange) {
  Entry a = Entry(10, "A").pic("X(3)"), b = Entry(10, "B").pic("X(4)"), c = Entry(05, "C").pic("X");
  Entry group = Entry(05, "G").with({a, b});
  Entry record = Entry(01, "R").with({group, c});
  EXPECT_EQ(c->getOffset(), 7);
  EXPECT_EQ(record->getAllocSize(), 8);

  // Each change is deep in the record, and asked for at its end.
  group->insertChildBefore(b, Entry(10, "S").pic("X(1)"));
  EXPECT_EQ(b->getOffset(), 4);
  EXPECT_EQ(c->getOffset(), 8);
  group->addChildren(Entry(10, "D").pic("X(2)"));
  EXPECT_EQ(c->getOffset(), 10);
  a->setPicture(new ClausePicture(nullptr, word("X(30)")));
  EXPECT_EQ(c->getOffset(), 37);
  b.occurs("10");
  EXPECT_EQ(c->getOffset(), 37 + 36);
  b->setOccurs(nullptr);
  EXPECT_EQ(record->getMinAllocSize(), 38);
  b->setUsage(new ClauseUsage(nullptr, UsageType::National));
  EXPECT_EQ(c->getOffset(), 37 + 4);
  EXPECT_EQ(record->getMinAllocSize(), 42);
  group->setChildrenList(new std::list<DataDescription *>{a});
  EXPECT_EQ(c->getOffset(), 30);
  // An elementary item that becomes a group.
  c->addChildren(Entry(10, "E").pic("X(5)"));
  EXPECT_EQ(record->getAllocSize(), 35);
  // A list that is changed directly.
  Entry front = Entry(10, "F").pic("X(6)");
  front->setParent(group);
  group->getChildrenList()->push_front(front);
  group->childrenChanged();
  EXPECT_EQ(a->getOffset(), 6);
  EXPECT_EQ(c->getOffset(), 36);
}

TEST(Layout, AbsurdSizesStopAtTheEndOfTheRange) {
  Entry x = Entry(20, "X").pic("X(999999999)").occurs("2147483647");
  Entry in = Entry(15, "I").occurs("2147483647").with({x});
  Entry out = Entry(10, "O").occurs("2147483647").with({in});
  Entry after = Entry(10, "A").pic("X(5)");
  Entry record = Entry(01, "R").with({Entry(10, "H").pic("X"), out, after});
  EXPECT_FALSE(x->isTooLarge());
  EXPECT_EQ(x->getTotalAllocSize(), std::int64_t(999999999) * 2147483647);
  EXPECT_TRUE(in->isTooLarge());
  EXPECT_TRUE(record->isTooLarge());
  EXPECT_EQ(record->getAllocSize(), MaxStorageSize);
  EXPECT_EQ(record->getMinAllocSize(), MaxStorageSize);
  EXPECT_EQ(after->getOffset(), MaxStorageSize);
  Entry wide = Entry(77, "W").pic("N(999999999)");
  EXPECT_EQ(wide->getAllocSize(), 2 * std::int64_t(999999999));
  // Numbers that no OCCURS can mean.
  EXPECT_EQ(Entry(05, "Z").pic("X(2)").occurs("0")->getTotalAllocSize(), 2);
  EXPECT_EQ(Entry(05, "Z").pic("X(2)").occurs("-5")->getTotalAllocSize(), 2);
  EXPECT_EQ(Entry(05, "Z").pic("X(2)").depending("9", "3")->getMinAllocSize(), 2);
  EXPECT_TRUE(Entry(05, "Z").pic("X(2)").occurs("99999999999999999999999999999999")->isTooLarge());
}

/// The same sizes and offsets, computed again for every query.
struct Oracle {
  static std::int64_t size(DataDescription *entry, bool minimum) {
    if (!entry->hasSubordinateData())
      return elementarySize(*entry);
    return place(entry, nullptr, minimum);
  }
  /// The offset of \p wanted in \p group; the size of \p group when it is null.
  static std::int64_t place(DataDescription *group, DataDescription *wanted, bool minimum) {
    std::int64_t end = 0, begin = 0;
    for (DataDescription *child : group->getChildrenElements()) {
      if (!child->getRedefines())
        begin = end;
      if (child == wanted)
        return begin;
      ClauseOccurs *occurs = child->getOccurs();
      std::int64_t times = !occurs ? 1 : minimum ? occurs->getMin() : occurs->getMax();
      end = std::max(end, begin + times * size(child, minimum));
    }
    return end;
  }
  static std::int64_t offset(DataDescription *entry) {
    std::int64_t sum = 0;
    for (; entry->getParent(); entry = entry->getParent())
      sum += place(entry->getParent(), entry, false);
    return sum;
  }
};

TEST(Layout, StaysRightUnderAnySequenceOfChanges) {
  std::mt19937 random(1959);
  auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  for (int round = 0; round != 60; ++round) {
    std::vector<DataDescription *> entries{Entry(01, "R")};
    for (int step = 0; step != 150; ++step) {
      DataDescription *entry = entries[below(entries.size())];
      Entry made = Entry(05, "E").pic("S9(" + std::to_string(1 + below(20)) + ")");
      switch (below(7)) {
      case 0:
      case 1:
        entry->addChildren(made);
        entries.push_back(made);
        break;
      case 2:
        if (entry->getParent()) {
          entry->getParent()->insertChildBefore(entry, made);
          entries.push_back(made);
        }
        break;
      case 3: {
        const UsageType usages[] = {UsageType::Comp3, UsageType::Binary, UsageType::National};
        entry->setUsage(below(4) ? new ClauseUsage(nullptr, usages[below(3)]) : nullptr);
        break;
      }
      case 4:
        entry->setSign(below(3) ? new ClauseSign(nullptr, false, below(2)) : nullptr);
        break;
      case 5:
        entry->setOccurs(below(2) ? made.depending("1", "3")->getOccurs() : nullptr);
        break;
      case 6:
        entry->setRedefines(below(2) ? new ClauseRedefines(nullptr, nullptr) : nullptr);
        break;
      }
      DataDescription *asked = entries[below(entries.size())];
      ASSERT_EQ(asked->getOffset(), Oracle::offset(asked)) << "round " << round << " step " << step;
      asked = entries[below(entries.size())];
      if (below(2)) {
        ASSERT_EQ(asked->getAllocSize(), Oracle::size(asked, false));
      } else {
        ASSERT_EQ(asked->getMinAllocSize(), Oracle::size(asked, true));
      }
    }
  }
}

/// The layout must not be recomputed by whoever asks or inserts on the way.
TEST(Layout, GrowsWithTheRecord) {
  // Deeper than any stack of calls would bear.
  constexpr int depth = 200000;
  DataDescription *leaf = Entry(49, "LEAF").pic("X(3)");
  DataDescription *top = leaf;
  for (int level = 1; level <= depth; ++level) {
    Entry group(48, "G");
    if (level % 1000 == 0)
      group->addChildren(Entry(49, "F").pic("X"));
    top = group.with({top});
  }
  EXPECT_EQ(top->getAllocSize(), depth / 1000 + 3);
  EXPECT_EQ(top->getMinAllocSize(), depth / 1000 + 3);
  EXPECT_EQ(leaf->getOffset(), depth / 1000);

  // A filler in front of every item, asked for on the way as alignment does. The square of the
  // number of items would take minutes.
  constexpr int items = 100000;
  Entry wide(05, "WIDE");
  for (int i = 0; i != items; ++i)
    wide->addChildren(Entry(10, "I").pic("X(2)"));
  Entry last = Entry(05, "LAST").pic("X");
  Entry(01, "R").with({wide, last});
  EXPECT_EQ(last->getOffset(), 2 * items);
  auto start = std::chrono::steady_clock::now();
  std::int64_t expected = 0;
  for (auto it = wide->getChildrenBegin(); it != wide->getChildrenEnd(); ++it) {
    ASSERT_EQ((*it)->getOffset(), expected);
    wide->insertChildBefore(*it, Entry(10, "S").pic("X"));
    ASSERT_EQ((*it)->getOffset(), expected + 1);
    expected += 3;
  }
  EXPECT_EQ(last->getOffset(), 3 * items);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

} // namespace
