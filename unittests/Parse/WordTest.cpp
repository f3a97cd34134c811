//===- WordTest.cpp - how words are found in the text ---------------------===//

#include "Parse/CharacterTable.h"
#include "Parse/Keywords.h"
#include "Parse/TextChunk.h"
#include "gtest/gtest.h"
#include <string>

namespace tarka {
namespace {

TEST(WordTest, ChunksAgreeWithTheCharacterTable) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    // Every other byte is a space, to see that each byte has its own bit.
    std::string text;
    for (unsigned n = 0; n < 8; ++n)
      text += {c, ' '};
    const TextChunk chunk(text.data());
    constexpr unsigned even = 0x5555;
    constexpr unsigned all = 0xFFFF;
    EXPECT_EQ(chunk.findWordCharacters(), isWordCharacter(c) ? even : 0) << byte;
    EXPECT_EQ(chunk.findUnusual(), byte < 0x20 || byte >= 0x80 ? even : 0) << byte;
    EXPECT_EQ(chunk.findEqual(c), c == ' ' ? all : even) << byte;
  }
}

TEST(WordTest, SpellingsAreOneWordAndWordsAreDifferent) {
  WordTable table(/*osvs=*/false);
  // More words than the table has room for at first, of all lengths around those of the chunks.
  // Words of one length differ in one character only, at each place in turn.
  for (unsigned round = 0; round < 2; ++round)
    for (size_t length = 1; length <= 50; ++length)
      for (size_t at = 0; at < length; ++at) {
        std::string upper(length, 'A');
        upper[at] = 'B';
        std::string lower = llvm::StringRef(upper).lower();
        const WordLookup found = table.lookup(upper);
        EXPECT_EQ(*found.interned, upper);
        EXPECT_TRUE(found.isUpperCase);
        // The text that is looked up need not live as long as the table.
        const WordLookup same = table.lookup(lower);
        EXPECT_EQ(same.interned, found.interned);
        EXPECT_FALSE(same.isUpperCase);
        lower.assign(length, 'z');
      }
  EXPECT_EQ(table.lookup("Identification").keyword, Keyword::Identification);
  EXPECT_EQ(table.lookup("IDENTIFICATIONS").keyword, Keyword::None);
  EXPECT_EQ(table.lookup("xml-namespace-prefix").keyword, Keyword::XmlNamespacePrefix);
  EXPECT_EQ(table.lookup("EXAMINE").keyword, Keyword::None);
  EXPECT_EQ(WordTable(/*osvs=*/true).lookup("EXAMINE").keyword, Keyword::Examine);
  EXPECT_EQ(table.lookup("").keyword, Keyword::None);
}

} // namespace
} // namespace tarka
