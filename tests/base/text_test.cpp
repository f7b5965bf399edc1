#include "base/text.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace {

using namespace base;

TEST(Text, CountsAndCutsCharactersNotBytes) {
  const std::string word = "Größe€𝄞!";
  EXPECT_EQ(length(word), 8U);
  EXPECT_EQ(mid(word, 3, 2), "öß");
  EXPECT_EQ(mid(word, 7), "𝄞!");
  EXPECT_EQ(mid(word, 9), "");
  EXPECT_EQ(mid(word, 8, 100), "!");
  EXPECT_EQ(left(word, 4), "Größ");
  EXPECT_EQ(left(word, 99), word);
  EXPECT_EQ(right(word, 2), "𝄞!");
  EXPECT_EQ(right(word, 99), word);
  EXPECT_EQ(characters("aß𝄞"), (std::vector<std::string>{"a", "ß", "𝄞"}));
}

TEST(Text, FindsByCharacterPosition) {
  EXPECT_EQ(inStr("äöüö", "ö"), 2U);
  EXPECT_EQ(inStr("äöüö", "ö", 3), 4U);
  EXPECT_EQ(inStr("äöü", "Ö"), 0U);
  EXPECT_EQ(inStr("äöü", "ü", 4), 0U);
  EXPECT_EQ(inStrIgnoreCase("Die ÄPFEL", "äpf"), 5U);
  EXPECT_EQ(inStrIgnoreCase("ΟΔΟΣ", "ς"), 4U);
  EXPECT_EQ(inStrIgnoreCase("abc", ""), 1U);
  EXPECT_EQ(inStrIgnoreCase("", ""), 0U);
}

TEST(Text, CaseMappingKeepsTheLength) {
  EXPECT_EQ(upper("straße äöü ǆ ﬁ"), "STRAßE ÄÖÜ Ǆ ﬁ");
  EXPECT_EQ(lower("ÄÖÜ İI"), "äöü ii");
  for (const std::string text : {"ŉ", "ΐ", "ß", "ẞ", "İ", "ﬀ", "\xff\xfe", "a\xc3"}) {
    EXPECT_EQ(length(upper(text)), length(text)) << text;
    EXPECT_EQ(length(lower(text)), length(text)) << text;
  }
  EXPECT_TRUE(equalsIgnoreCase("ID_Woerterbuch", "id_WOERTERBUCH"));
  EXPECT_TRUE(equalsIgnoreCase("Übergröße", "ÜBERGRÖßE"));
  EXPECT_TRUE(equalsIgnoreCase("", ""));
  EXPECT_FALSE(equalsIgnoreCase("a", "ab"));
  EXPECT_FALSE(equalsIgnoreCase("Apfel", "Äpfel"));
  EXPECT_FALSE(equalsIgnoreCase("@", "`"));
}

TEST(Text, TellsUtf8FromOtherBytes) {
  EXPECT_TRUE(isUtf8("plain"));
  EXPECT_TRUE(isUtf8("ß€𝄞"));
  for (const std::string bytes :
       {"\xff", "a\xc3", "\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\x80"}) {
    EXPECT_FALSE(isUtf8(bytes));
  }
}

TEST(Text, SplitsAndReplaces) {
  EXPECT_EQ(split("a,,b,", ","), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_EQ(split("", ","), (std::vector<std::string>{""}));
  EXPECT_EQ(split("abc", ""), (std::vector<std::string>{"abc"}));
  EXPECT_EQ(replaceAll("aaaa", "aa", "a"), "aa");
  EXPECT_EQ(replaceAll("it's", "'", "''"), "it''s");
  EXPECT_EQ(replaceAll("x", "", "y"), "x");
  EXPECT_EQ(trim("  a b \t "), "a b \t");
  EXPECT_EQ(trim("   "), "");
}

TEST(Text, ConvertsCharacterSets) {
  EXPECT_EQ(toUtf8("Gr\xf6\xdf"
                   "e \x80",
                   "windows-1252"),
            "Größe €");
  EXPECT_EQ(fromUtf8("Größe €", "windows-1252"),
            "Gr\xf6\xdf"
            "e \x80");
  EXPECT_EQ(fromUtf8("中a", "iso-8859-1"), "?a");
  EXPECT_EQ(toUtf8(fromUtf8("𝄞ß", "UTF-16LE"), "UTF-16LE"), "𝄞ß");
  std::string odd(1, 'x');
  for (int i = 0; i < 5000; ++i) odd += "𝄞";  // pairs across every inner buffer
  EXPECT_EQ(toUtf8(fromUtf8(odd, "UTF-16LE"), "UTF-16LE"), odd);
  EXPECT_EQ(fromUtf8("ß", "UTF-8"), "ß");
  for (const char* bad : {"", "no-such-set"}) {
    try {
      toUtf8("x", bad);
      ADD_FAILURE() << bad;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 5);
    }
  }
  EXPECT_THROW(toUtf8("a\xff", "UTF-8"), Error);
  EXPECT_THROW(fromUtf8("a\xff", "windows-1252"), Error);
}

}  // namespace
