#include "controls/editor/word_list.h"

#include <gtest/gtest.h>

namespace tessel::controls {
namespace {

TEST(WordList, FindsWholeWordsOfEitherCase) {
    const WordList words(L"SELECT, From\tfrom  año\n");
    EXPECT_EQ(words.Size(), 3u);
    EXPECT_TRUE(words.Contains(L"select"));
    EXPECT_TRUE(words.Contains(L"from"));
    EXPECT_TRUE(words.Contains(L"año"));
    EXPECT_FALSE(words.Contains(L"sel"));
    EXPECT_FALSE(words.Contains(L"selects"));
    EXPECT_FALSE(words.Contains(L""));
}

TEST(WordList, IsEmptyWithoutWords) {
    EXPECT_EQ(WordList().Size(), 0u);
    EXPECT_EQ(WordList(L" ,, \t"), WordList());
    EXPECT_FALSE(WordList().Contains(L"a"));
}

TEST(WordList, KeepsTheWordsInOrderWhateverTheOrderOfAdding) {
    WordList words(L"b");
    words.Add(L"c A b");
    ASSERT_EQ(words.Size(), 3u);
    EXPECT_EQ(words.At(0), L"a");
    EXPECT_EQ(words.At(1), L"b");
    EXPECT_EQ(words.At(2), L"c");
    EXPECT_EQ(words, WordList(L"c b a"));
    EXPECT_NE(words, WordList(L"c b"));
    EXPECT_NE(words, WordList(L"c b d"));
}

}  // namespace
}  // namespace tessel::controls
