//===- DataCheckTest.cpp - the effects of the checks of data entries ------===//
//
// The entries, links and marks that the checks put into the tree, and trees that
// source cannot say.
//
//===----------------------------------------------------------------------===//

#include "CheckerFixture.h"

using namespace tarka;
using namespace tarka::test;
using Numbers = std::vector<int>;
using Texts = std::vector<std::string>;
using Entries = std::vector<DataDescription *>;

namespace {

class DataCheckTest : public CheckerTest {
protected:
  SourceUnit *program = currentUnit();
  DataDivision &division = *program->getDataDivision();

  DataDescription *record(llvm::StringRef dataName, const char *picture = nullptr) {
    DataDescription *made = entry(1, dataName, nullptr, picture);
    division.addWorkSection(made);
    return made;
  }

  /// Checks working-storage as the walk does.
  void check() {
    context().setCurrentDescSection(division.getWorkSection());
    context().setCurrentFlatSection(division.getWorkFlatList());
    for (DataDescription *one : *division.getWorkSection())
      checker.semanticCheck(*one);
    context().setCurrentDescSection(nullptr);
    context().setCurrentFlatSection(nullptr);
  }

  static DataDescription *usage(DataDescription *item, UsageType type) {
    item->setUsage(new ClauseUsage(nullptr, type));
    return item;
  }
  static DataDescription *synchronized(DataDescription *item) {
    item->setSynchronized(new ClauseSynchronized(nullptr, nullptr));
    return item;
  }
  static DataDescription *redefines(DataDescription *item, const char *object) {
    item->setRedefines(new ClauseRedefines(nullptr, object ? reference({object}) : nullptr));
    return item;
  }
  static ClauseOccurs *occurs(DataDescription *table, const char *max) {
    auto *clause = new ClauseOccurs(nullptr);
    clause->setMaxExpr(number(max));
    table->setOccurs(clause);
    return clause;
  }
  static DataDescription *value(DataDescription *item, LiteralExpression *literal) {
    auto *phrase = new PhraseValue(nullptr);
    phrase->setLiteral1(literal);
    auto *clause = new ClauseValue(nullptr);
    clause->addPhraseValue(phrase);
    item->setValue(clause);
    return item;
  }

  static Entries entries(llvm::ArrayRef<DataDescription *> found) { return found.vec(); }
  template <typename List> static Entries entries(const List &found) {
    return {found.begin(), found.end()};
  }

  /// The children as "level name picture", a picture only of slack entries.
  static std::vector<std::string> childrenOf(const DataDescription &group) {
    std::vector<std::string> found;
    for (const DataDescription *child : group.getChildrenElements()) {
      std::string text = std::to_string(child->getLevelNum()) + " ";
      text += child->getDataName()->getWordData();
      if (child->getDataName()->getWordData() == "SLACK-BYTES")
        text += " " + child->getPicture()->getCharStringWord()->getWordData();
      found.push_back(text);
    }
    return found;
  }
};

//===----------------------------------------------------------------------===//
// Structure
//===----------------------------------------------------------------------===//

TEST_F(DataCheckTest, LaterChildrenMayBeLowerThanTheFirstButNotDeeper) {
  DataDescription *deeper = record("DEEPER");
  entry(5, "A", deeper, "X");
  entry(66, "R", deeper)->setRenames(new ClauseRenames(nullptr, reference({"A"}), nullptr));
  entry(10, "B", deeper, "X");
  entry(11, "C", deeper, "X");
  EXPECT_FALSE(checker.checkLevelNumber(*deeper));
  DataDescription *lower = record("LOWER");
  entry(5, "D", lower, "X");
  entry(3, "E", lower, "X");
  EXPECT_TRUE(checker.checkLevelNumber(*lower));
  EXPECT_FALSE(checker.checkLevelNumber(*entry(77, "F", lower, "X")));
  EXPECT_EQ(numbers(), (Numbers{3203, 3206}));
}

TEST_F(DataCheckTest, ConditionNamesMoveUnlessOneIsWrong) {
  DataDescription *right = record("RIGHT", "X");
  DataDescription *on = value(entry(88, "IS-ON", right), number("1"));
  check();
  EXPECT_EQ(childrenOf(*right), Texts());
  EXPECT_EQ(entries(right->getCondNameChildrenElements()), (Entries{on}));
  EXPECT_EQ(on->getCondNameParent(), right);
  EXPECT_EQ(on->getParent(), nullptr);
  EXPECT_EQ(numbers(), (Numbers{3295}));

  DataDescription *wrong = record("WRONG", "X");
  value(entry(88, "FINE", wrong),
        new FigurativeLiteralExpression(nullptr, FigurativeType::Space, nullptr));
  entry(88, "NO-VALUE", wrong);
  EXPECT_FALSE(checker.check88LevelDataDescription(*wrong));
  EXPECT_EQ(childrenOf(*wrong), (Texts{"88 FINE", "88 NO-VALUE"}));
  EXPECT_EQ(wrong->getCondNameChildrenSize(), 1u);
}

TEST_F(DataCheckTest, UsageAndGlobalGoDownAndNamesAreGiven) {
  DataDescription *group = usage(record("GROUP"), UsageType::Comp);
  group->setGlobal(new ClauseGlobal(nullptr));
  DataDescription *subgroup = entry(5, "SUBGROUP", group);
  DataDescription *leaf = entry(10, "LEAF", subgroup, "9(4)");
  auto *unnamed = new DataDescription(nullptr);
  unnamed->setLevelNum(5);
  unnamed->setPicture(new ClausePicture(nullptr, word("9")));
  group->addChildren(unnamed);
  check();
  EXPECT_EQ(unnamed->getDataName()->getWordData(), "FILLER");
  EXPECT_EQ(group->getUsage(), nullptr);
  EXPECT_EQ(subgroup->getUsage(), nullptr);
  EXPECT_EQ(leaf->getUsageType(), UsageType::Comp);
  // GLOBAL goes one level down; the record is what counts for a reference.
  EXPECT_EQ(subgroup->getGlobal(), group->getGlobal());
  EXPECT_EQ(leaf->getGlobal(), nullptr);
  EXPECT_EQ(numbers(), Numbers());
}

TEST_F(DataCheckTest, RecordsAreChainedByInitialValue) {
  DataDescription *plain = record("PLAIN", "X");
  DataDescription *valued = record("VALUED");
  value(entry(10, "DEEP", entry(5, "GROUP", valued), "9"), number("1"));
  DataDescription *second = record("SECOND", "X");
  redefines(record("REDEFINING", "X"), "SECOND");
  record("EXTERNAL", "X")->setExternal(new ClauseExternal(nullptr));
  DataDescription *last = value(record("LAST", "9"), number("1"));
  check();
  EXPECT_EQ(entries(division.getDescChain()), (Entries{plain, second}));
  EXPECT_EQ(entries(division.getDescChainWithValue()), (Entries{valued, last}));
}

TEST_F(DataCheckTest, InitGivesItemsOfTheProgramAValue) {
  options.setOptionInit(true);
  DataDescription *small = record("SMALL");
  entry(5, "ITEM", small, "X");
  DataDescription *object = record("OBJECT");
  object->setExternal(new ClauseExternal(nullptr));
  entry(5, "EXTERNAL-ITEM", object, "X");
  DataDescription *larger = redefines(record("LARGER", "X(2)"), "OBJECT");
  check();
  EXPECT_EQ(entries(division.getDescChainWithValue()), (Entries{small}));
  // The subject is longer than the record that it is initialised with.
  EXPECT_TRUE(object->haveValue());
  EXPECT_FALSE(larger->haveValue());
  EXPECT_EQ(numbers(), (Numbers{3258}));
}

TEST_F(DataCheckTest, DualVariablesAreElementaryDecimalRecords) {
  options.setOptionDual(true);
  DataDescription *dual = record("DUAL", "9(5)");
  DataDescription *packed = usage(record("PACKED", "9(5)"), UsageType::PackedDecimal);
  DataDescription *binary = usage(record("BINARY", "9(5)"), UsageType::Comp);
  DataDescription *text = record("TEXT", "X(5)");
  check();
  EXPECT_TRUE(dual->isDualVar());
  EXPECT_TRUE(packed->isDualVar());
  EXPECT_FALSE(binary->isDualVar());
  EXPECT_FALSE(text->isDualVar());
}

//===----------------------------------------------------------------------===//
// PICTURE
//===----------------------------------------------------------------------===//

TEST_F(DataCheckTest, PicturesCompleteTheirEntries) {
  DataDescription *dbcs = record("DBCS", "G(2)");
  DataDescription *external = synchronized(record("FLOATING", "+9.9E+99"));
  external->setSign(new ClauseSign(nullptr, true, false));
  check();
  ASSERT_NE(dbcs->getUsage(), nullptr);
  EXPECT_EQ(dbcs->getUsage()->getType(), UsageType::Display1);
  EXPECT_EQ(external->getSynchronized(), nullptr);
  EXPECT_EQ(external->getSign(), nullptr);
  EXPECT_EQ(numbers(), Numbers());
}

TEST_F(DataCheckTest, CurrencySymbolsAreConverted) {
  auto *sign = new NonNumericLiteralExpression(nullptr, "\"EUR\"");
  auto *symbol = new NonNumericLiteralExpression(nullptr, "\"#\"");
  ClausePicture picture(nullptr, word("##9"));
  EXPECT_TRUE(checker.convertCurrencyString(&picture, new ClauseCurrency(nullptr, sign, symbol)));
  EXPECT_EQ(picture.getExtendedPicture(), "$$9");
  EXPECT_EQ(picture.getCurrencySymbolLiteral(), sign);
  EXPECT_EQ(picture.getSize(), 5);
  // A number is not a symbol of its own.
  ClauseCurrency numeric(nullptr, number("5"), nullptr);
  EXPECT_FALSE(checker.convertCurrencyString(&picture, &numeric));
  EXPECT_EQ(numbers(), Numbers());
  for (char c : std::string("AabzX+;=\"'"))
    EXPECT_FALSE(checker.checkValidString(c, sign)) << c;
  for (char c : std::string("FfUu5 #%"))
    EXPECT_TRUE(checker.checkValidString(c, sign)) << c;
}

//===----------------------------------------------------------------------===//
// OCCURS
//===----------------------------------------------------------------------===//

TEST_F(DataCheckTest, IndexNamesBecomeEntriesOfWorkingStorage) {
  DataDescription *group = entry(1, "GROUP");
  division.addLinkSection(group);
  ClauseOccurs *clause = occurs(entry(5, "ROWS", group, "X"), "3");
  clause->addIndex(reference({"X-1"}));
  clause->addIndex(reference({"X-2"}));
  DataDescription *alone = record("ALONE", "X");
  occurs(alone, "2")->addIndex(reference({"X-3"}));
  checker.semanticCheck(*group);
  check();

  std::vector<DataDescription *> found(division.getWorkSectionBegin(),
                                       division.getWorkSectionEnd());
  ASSERT_EQ(found.size(), 4u);
  const DataDescription *first = found[1];
  EXPECT_EQ(first, (*clause->getIndexListBegin())->getDataDescription());
  EXPECT_EQ(first->getDataName(),
            (*(*clause->getIndexListBegin())->getQualifiedWord()->getNamesBegin()));
  EXPECT_EQ(first->getLevelNum(), 1u);
  EXPECT_EQ(first->getUsageType(), UsageType::Index);
  EXPECT_EQ(first->getStorageType(), StorageType::WorkingStorage);
  EXPECT_TRUE(first->getIsCompilerMade());
  EXPECT_EQ(first->getParent(), group);
  EXPECT_EQ(found[3]->getParent(), nullptr);
  EXPECT_EQ(entries(*division.findItemByName("X-2")), (Entries{found[2]}));
  EXPECT_EQ(childrenOf(*group), (Texts{"5 ROWS"}));
  EXPECT_EQ(numbers(), Numbers());
  checker.freeIndex();
  EXPECT_EQ(first->getParent(), nullptr);
}

TEST_F(DataCheckTest, KeysAreQualifiedAndGroupsKnowTheirVariableTables) {
  record("COUNTER", "9");
  DataDescription *outer = record("OUTER");
  DataDescription *inner = entry(5, "INNER", outer);
  DataDescription *table = entry(10, "ROWS", inner);
  DataDescription *item = entry(15, "ITEM", table, "X");
  ClauseOccurs *clause = occurs(table, "3");
  clause->setOdoName(reference({"COUNTER"}));
  auto *key = new Key(nullptr, SortOrder::Ascending);
  DataIdentifierExpression *itemKey = reference({"ITEM"});
  DataIdentifierExpression *ownKey = reference({"ROWS"});
  key->addData(itemKey);
  key->addData(ownKey);
  key->addData(number("1"));
  clause->addKey(key);
  check();
  auto text = [](DataIdentifierExpression *name) {
    std::string all;
    for (const Word *one : name->getQualifiedWord()->getNamesElements())
      all += one->getWordData() + " ";
    return all;
  };
  EXPECT_EQ(text(itemKey), "ITEM ROWS INNER OUTER ");
  EXPECT_EQ(text(ownKey), "ROWS INNER OUTER ");
  EXPECT_EQ(itemKey->getDataDescription(), item);
  EXPECT_EQ(ownKey->getDataDescription(), table);
  EXPECT_TRUE(inner->checkContainsOdo());
  EXPECT_TRUE(outer->checkContainsOdo());
  EXPECT_EQ(numbers(), (Numbers{3226}));
}

TEST_F(DataCheckTest, TablesWithoutBoundsAndTheirObjects) {
  DataDescription *group = record("GROUP");
  auto *clause = new ClauseOccurs(nullptr);
  clause->setOdoName(number("3"));
  entry(5, "TABLE", group, "X")->setOccurs(clause);
  check();
  EXPECT_EQ(numbers(), (Numbers{3222, 3230}));
}

//===----------------------------------------------------------------------===//
// SYNCHRONIZED
//===----------------------------------------------------------------------===//

TEST_F(DataCheckTest, SlackBytesGoBeforeItemsAndTheirGroups) {
  DataDescription *group = record("R");
  entry(5, "A", group, "X(3)");
  synchronized(usage(entry(5, "SHORT", group, "S9(4)"), UsageType::Binary));
  entry(5, "B", group, "X");
  DataDescription *integer =
      synchronized(usage(entry(5, "LONG", group, "S9(18)"), UsageType::Comp5));
  // 12 bytes so far.
  DataDescription *subgroup = entry(5, "G", group);
  DataDescription *first = synchronized(usage(entry(10, "F", subgroup), UsageType::Comp2));
  synchronized(entry(10, "TEXT", subgroup, "X"));
  DataDescription *pointer = synchronized(usage(entry(10, "P", subgroup), UsageType::Pointer));
  synchronized(usage(entry(10, "ALIGNED", subgroup, "9(9)"), UsageType::Comp));
  check();
  // 3+1 SHORT 4..6, B 6, slack to 8, LONG 8..16, G at 16.
  EXPECT_EQ(childrenOf(*group), (Texts{"5 A", "5 SLACK-BYTES X(1)", "5 SHORT", "5 B",
                                       "5 SLACK-BYTES X(1)", "5 LONG", "5 G"}));
  EXPECT_EQ(integer->getOffsetSize(), 8);
  EXPECT_EQ(first->getOffsetSize(), 16);
  EXPECT_EQ(childrenOf(*subgroup),
            (Texts{"10 F", "10 TEXT", "10 SLACK-BYTES X(3)", "10 P", "10 ALIGNED"}));
  EXPECT_EQ(pointer->getOffsetSize(), 28);
  EXPECT_EQ(group->getAllocSize(), 36);
  EXPECT_EQ(numbers(), Numbers());

  DataDescription *other = record("O");
  entry(5, "C", other, "X(12)");
  DataDescription *starts = entry(5, "STARTS", other);
  synchronized(usage(entry(10, "D", starts), UsageType::Comp2));
  check();
  EXPECT_EQ(childrenOf(*other), (Texts{"5 C", "10 SLACK-BYTES X(4)", "5 STARTS"}));
  EXPECT_EQ(starts->getOffset(), 16);
}

TEST_F(DataCheckTest, OccurrencesKeepTheAlignment) {
  DataDescription *group = record("R");
  DataDescription *table = entry(5, "ROWS", group);
  occurs(table, "3");
  synchronized(usage(entry(10, "N", table, "9(9)"), UsageType::Binary));
  entry(10, "T", table, "X(3)");
  // What a subgroup needs replaces what came before.
  DataDescription *mixed = entry(5, "MIXED", group);
  occurs(mixed, "3");
  synchronized(usage(entry(10, "M", mixed), UsageType::Comp2));
  DataDescription *subgroup = entry(10, "S", mixed);
  synchronized(usage(entry(15, "H", subgroup, "9(4)"), UsageType::Binary));
  entry(15, "U", subgroup, "X");
  // Nothing here has a boundary.
  DataDescription *text = entry(5, "TEXTS", group);
  occurs(text, "3");
  synchronized(entry(10, "V", text, "X"));
  DataDescription *after = entry(5, "AFTER", group, "X");
  check();
  EXPECT_EQ(childrenOf(*table), (Texts{"10 N", "10 T", "10 SLACK-BYTES X(1)"}));
  EXPECT_EQ(childrenOf(*mixed), (Texts{"10 M", "10 S", "10 SLACK-BYTES X(1)"}));
  EXPECT_EQ(checker.getMaxOccursSyncSize(mixed), 2);
  EXPECT_EQ(childrenOf(*text), (Texts{"10 V"}));
  // 3 of 8, 3 of 12, 3 of 1.
  EXPECT_EQ(after->getOffset(), 24 + 36 + 3);
  EXPECT_EQ(numbers(), (Numbers{3275}));
}

TEST_F(DataCheckTest, ASynchronizedRecordHandsTheClauseDown) {
  DataDescription *group = synchronized(record("R"));
  entry(5, "A", group, "X");
  DataDescription *item = usage(entry(5, "B", group, "9(9)"), UsageType::Binary);
  check();
  EXPECT_NE(item->getSynchronized(), nullptr);
  EXPECT_EQ(item->getSynchronized()->getWord(), nullptr);
  EXPECT_EQ(item->getOffset(), 1);
  EXPECT_EQ(checker.createSlackBytes(item, 8), nullptr);

  int bytes = 0;
  EXPECT_TRUE(checker.getSyncAllocBytes(group, &bytes, item));
  EXPECT_EQ(bytes, 1);
  bytes = 0;
  EXPECT_FALSE(checker.getSyncAllocBytes(group, &bytes, record("OTHER", "X")));
  EXPECT_EQ(bytes, 5);
}

//===----------------------------------------------------------------------===//
// REDEFINES
//===----------------------------------------------------------------------===//

TEST_F(DataCheckTest, SubjectsAreLinkedToTheFirstEntryOfTheirRun) {
  DataDescription *group = record("R");
  DataDescription *object = entry(5, "A", group, "X(4)");
  DataDescription *second = redefines(entry(5, "B", group, "X(4)"), "A");
  DataDescription *third = redefines(entry(5, "C", group, "X(4)"), "A");
  DataDescription *fourth = redefines(entry(5, "D", group, "X(4)"), "B");
  DataDescription *after = entry(5, "E", group, "X");
  check();
  EXPECT_EQ(entries(object->getRedefineSubjectElements()), (Entries{second, third, fourth}));
  EXPECT_EQ(fourth->getRedefineObject(), object);
  EXPECT_EQ(after->getOffset(), 4);
  EXPECT_EQ(numbers(), Numbers());
}

TEST_F(DataCheckTest, RedefinesWithoutObjects) {
  DataDescription *group = record("R");
  DataDescription *first = redefines(entry(5, "A", group, "X"), "A");
  DataDescription *unnamed = new DataDescription(nullptr);
  unnamed->setLevelNum(5);
  group->addChildren(unnamed);
  DataDescription *behind = redefines(entry(5, "B", group, "X"), "A");
  DataDescription *nameless = redefines(entry(5, "C", group, "X"), nullptr);
  options.setOptionInit(true);
  EXPECT_FALSE(checker.checkClauseRedifines(*first));
  EXPECT_FALSE(checker.checkClauseRedifines(*behind));
  EXPECT_FALSE(checker.checkClauseRedifines(*nameless));
  // What could not be linked has been reported once; what builds on it is silent.
  DataDescription *builds = redefines(entry(5, "D", group, "X"), "C");
  EXPECT_FALSE(checker.checkClauseRedifines(*builds));
  EXPECT_EQ(numbers(), (Numbers{3253, 3251, 3253}));
}

TEST_F(DataCheckTest, RecordsOfAFileRedefineItsFirstOne) {
  auto *file = new FileDescription(nullptr, FileDescType::File, word("FILE-A"));
  division.addFileSection(file);
  DataDescription *first = entry(1, "FIRST", nullptr, "X(4)");
  DataDescription *second = redefines(entry(1, "SECOND", nullptr, "X(8)"), "FIRST");
  file->addRecordDesc(first);
  file->addRecordDesc(second);
  EXPECT_TRUE(checker.semanticCheck(*first));
  EXPECT_TRUE(checker.semanticCheck(*second));
  EXPECT_EQ(second->getRedefineObject(), first);
  EXPECT_EQ(numbers(), Numbers());
}

//===----------------------------------------------------------------------===//
// VALUE, DATE FORMAT
//===----------------------------------------------------------------------===//

TEST_F(DataCheckTest, SymbolicCharactersBecomeAllOfTheirCharacter) {
  auto *phrase = new PhrsSymbolic(nullptr);
  phrase->addSource(word("STAR"));
  phrase->addSource(word("QUOTE-MARK"));
  phrase->addSource(word("LAST-ONE"));
  phrase->addSource(word("NO-INTEGER"));
  phrase->addInteger(number("43"));
  phrase->addInteger(number("35"));
  phrase->addInteger(number("256"));
  auto *clause = new ClauseSymbolic(nullptr);
  clause->addSymbolic(phrase);
  auto *specialNames = new ParaSpecialNames(nullptr);
  specialNames->addSymbolic(clause);
  auto *configuration = new ConfigurationSection(nullptr);
  configuration->setSpecialNames(specialNames);
  auto *environment = new EnvironmentDivision(nullptr);
  environment->setConfigurationSection(configuration);
  program->setEnvironmentDivision(environment);
  // Programs inside see the names as well.
  context().setCurrentSourceUnit(unit("INNER", program));

  auto meaning = [&](const char *text) -> std::string {
    auto *constant = llvm::dyn_cast_or_null<FigurativeLiteralExpression>(
        checker.convertSymbolicValue(word(text)));
    if (!constant || constant->getFigurativeType() != FigurativeType::AllLiteral)
      return "none";
    return llvm::cast<NonNumericLiteralExpression>(constant->getLiteral())->getData();
  };
  EXPECT_EQ(meaning("STAR"), "*");
  EXPECT_EQ(meaning("QUOTE-MARK"), "\"");
  EXPECT_EQ(meaning("LAST-ONE"), "\xff");
  EXPECT_EQ(numbers(), Numbers());
  EXPECT_EQ(meaning("NO-INTEGER"), "none");
  EXPECT_EQ(meaning("UNKNOWN"), "none");
  EXPECT_EQ(numbers(), (Numbers{3140, 3140}));

  auto *range = new PhraseValue(nullptr);
  range->setWord1(word("STAR"));
  range->setWord2(word("UNKNOWN"));
  ClauseValue values(nullptr);
  values.addPhraseValue(range);
  EXPECT_FALSE(checker.checkClauseValue(&values));
  EXPECT_NE(range->getLiteral1(), nullptr);
  EXPECT_EQ(range->getWord1(), nullptr);
  EXPECT_NE(range->getWord2(), nullptr);
}

TEST_F(DataCheckTest, ValuesAreTakenFromStorageThatIsNotInitialised) {
  DataDescription *passed = value(entry(1, "PASSED", nullptr, "9"), number("1"));
  DataDescription *condition = value(entry(88, "IS-ONE", passed), number("1"));
  division.addLinkSection(passed);
  checker.semanticCheck(*passed);
  EXPECT_EQ(passed->getValue(), nullptr);
  EXPECT_NE(condition->getValue(), nullptr);
  EXPECT_FALSE(passed->haveValue());

  DataDescription *group = redefines(record("GROUP"), "RECORD");
  DataDescription *item = value(entry(5, "ITEM", group, "9"), number("1"));
  checker.checkClauseValue(*item);
  EXPECT_EQ(item->getValue(), nullptr);
  EXPECT_FALSE(item->haveValue());
  EXPECT_EQ(numbers(), Numbers());
}

TEST_F(DataCheckTest, ALaterValueMakesUpForAnEarlierOne) {
  DataDescription *variable = record("VARIABLE", "9");
  DataDescription *condition =
      value(entry(88, "CONDITION", variable), new NonNumericLiteralExpression(nullptr, "\"A\""));
  auto *later = new PhraseValue(nullptr);
  later->setLiteral1(number("1"));
  condition->getValue()->addPhraseValue(later);
  EXPECT_TRUE(checker.checkClauseValue(*condition));
  condition->getValue()->addPhraseValue(new PhraseValue(nullptr));
  EXPECT_FALSE(checker.checkClauseValue(*condition));
  EXPECT_EQ(numbers(), (Numbers{3295, 3295, 3204}));
}

TEST_F(DataCheckTest, DatePatterns) {
  auto classify = [&](const char *pattern) {
    DataDescription *item = entry(1, "DATED", nullptr, "9(8)");
    item->setDateFormat(new ClauseDateFormat(nullptr, word(pattern)));
    EXPECT_TRUE(checker.checkClauseDateFormat(*item));
    return item->getDateFormat() ? static_cast<int>(item->getDateFormat()->getPattenType()) : -1;
  };
  EXPECT_EQ(classify("YYXX"), -1);
  options.setOptionDateproc(true);
  EXPECT_EQ(classify("YY"), 1);
  EXPECT_EQ(classify("YYYYXX"), 8);
  EXPECT_EQ(classify("X"), 11);
  EXPECT_EQ(classify("XXXXYYYY"), 22);
  EXPECT_EQ(classify("yyxx"), 0);
  EXPECT_EQ(classify("YYXXXXX"), 0);
  EXPECT_EQ(numbers(), Numbers());
}

} // namespace
