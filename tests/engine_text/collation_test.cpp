#include "engine/text/collation.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <algorithm>
#include <random>

#include "base/error.h"
#include "base/utf8.h"
#include "engine/text/collator.h"
#include "engine/text/like.h"

namespace {

using engine::text::collationName;
using engine::text::compare;
using engine::text::LikePattern;

// The documented ones, German, Lithuanian (y is a kind of i), Canadian French, Croatian and Catalan.
const std::vector<std::string> langIds = {"0409", "0401", "0405", "0419", "0413", "0408", "040d", "040e",
                                          "040f", "0406", "041d", "0415", "040a", "041f", "0412", "041e",
                                          "0411", "0804", "0404", "0407", "0427", "0c0c", "041a", "0403"};

std::string nameOf(const std::string& langId) {
  return collationName(";LANGID=0x" + langId + ";CP=1252;COUNTRY=0");
}

// ICU alone, set up from its locale name.
int plainIcu(const std::string& locale, const std::string& a, const std::string& b) {
  static std::map<std::string, UCollator*> open;
  UErrorCode status = U_ZERO_ERROR;
  UCollator*& collator = open[locale];
  if (collator == nullptr) {
    collator = ucol_open(locale.c_str(), &status);
    ucol_setStrength(collator, UCOL_SECONDARY);
    ucol_setAttribute(collator, UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
  }
  return ucol_strcollUTF8(collator, a.data(), static_cast<int>(a.size()), b.data(),
                          static_cast<int>(b.size()), &status);
}

int sign(int n) {
  return n < 0 ? -1 : n > 0;
}

const std::vector<std::pair<std::string, std::string>> icuNames = {{"0409", "en"},
                                                                   {"0401", "ar"},
                                                                   {"0405", "cs"},
                                                                   {"0419", "ru"},
                                                                   {"0413", "nl"},
                                                                   {"0408", "el"},
                                                                   {"040d", "he"},
                                                                   {"040e", "hu"},
                                                                   {"040f", "is"},
                                                                   {"0406", "da"},
                                                                   {"041d", "sv"},
                                                                   {"0415", "pl"},
                                                                   {"040a", "es@collation=traditional"},
                                                                   {"041f", "tr"},
                                                                   {"0412", "ko"},
                                                                   {"041e", "th"},
                                                                   {"0411", "ja"},
                                                                   {"0804", "zh@collation=pinyin"},
                                                                   {"0404", "zh@collation=stroke"},
                                                                   {"0407", "de"},
                                                                   {"0427", "lt"},
                                                                   {"041a", "hr"},
                                                                   {"0403", "ca"}};

TEST(Collation, NamesComeFromConnectStrings) {
  EXPECT_EQ(collationName(";LANGID=0x0407;CP=1252;COUNTRY=0"), "vc_0407");
  EXPECT_EQ(collationName(";langid=0x040D;CP=1255"), "vc_040d");
  for (const char* bad :
       {"", ";CP=1252", ";LANGID=0x;", ";LANGID=0xFFFFF", ";LANGID=0x0000", ";LANGID=0x03FF"}) {
    EXPECT_THROW(collationName(bad), base::Error) << bad;
  }
  for (const char* bad : {"vc_", "vc_zzzz", "nocase", "vc_03ff", "vc_-407"}) {
    EXPECT_THROW(compare(bad, "a", "b"), base::Error) << bad;
  }
  EXPECT_FALSE(engine::text::collationVersion("vc_0407").empty());
}

// The quick way for plain letters has to give what ICU gives, contractions included.
TEST(Collation, AgreesWithIcuOnRandomTexts) {
  std::mt19937 random(7);
  const std::string likely = "aAbcChHdDzZsSyYiIlLjJnNgGtT -'.1";
  const std::vector<std::string> accents = {"ä", "Å", "ñ", "č", "\u0308", "\u030C", "\u0327",
                                            "ß", "ı", "İ", "ő", "\u00B7", "中"};
  const auto text = [&](bool withAccents) {
    std::string result;
    for (std::size_t n = random() % 7; n > 0; --n) {
      const auto kind = random() % 10;
      if (withAccents && kind < 2) {
        result += accents[random() % accents.size()];
      } else if (kind == 2) {
        result += static_cast<char>(random() % 128);
      } else {
        result += likely[random() % likely.size()];
      }
    }
    return result;
  };
  for (const auto& [langId, locale] : icuNames) {
    const std::string name = nameOf(langId);
    for (int i = 0; i < 30000; ++i) {
      const std::string a = text(i % 2 == 1);
      std::string b = i % 3 == 0 ? text(i % 2 == 1) : a;
      if (i % 3 == 1) b += text(false);
      if (i % 3 == 2 && !b.empty()) b[random() % b.size()] ^= 0x20;
      ASSERT_EQ(sign(compare(name, a, b)), sign(plainIcu(locale, a, b)))
          << locale << " <" << a << "> <" << b << ">";
      ASSERT_EQ(sign(compare(name, a, b)), -sign(compare(name, b, a))) << locale;
    }
  }
}

TEST(Collation, OrdersWordsAsTheLanguagesDo) {
  const auto sorted = [](const char* langId, std::vector<std::string> words) {
    const std::string name = nameOf(langId);
    std::sort(words.begin(), words.end(),
              [&](const auto& a, const auto& b) { return compare(name, a, b) < 0; });
    return words;
  };
  using Words = std::vector<std::string>;
  EXPECT_EQ(sorted("0407", {"Zug", "Äpfel", "apfel", "Aas"}), (Words{"Aas", "apfel", "Äpfel", "Zug"}));
  EXPECT_EQ(sorted("0405", {"idea", "chleba", "cukr", "hora"}), (Words{"cukr", "hora", "chleba", "idea"}));
  EXPECT_EQ(sorted("040a", {"luna", "llama", "chico", "cuna"}), (Words{"cuna", "chico", "luna", "llama"}));
  EXPECT_EQ(sorted("0406", {"aal", "zebra", "abe"}), (Words{"abe", "zebra", "aal"}));
  EXPECT_EQ(sorted("041d", {"öl", "zon", "år", "and"}), (Words{"and", "zon", "år", "öl"}));
  EXPECT_EQ(compare("vc_0407", "STRASSE", "strasse"), 0);
  EXPECT_NE(compare("vc_0407", "Apfel", "Äpfel"), 0);
  EXPECT_NE(compare("vc_041f", "I", "i"), 0);
  EXPECT_EQ(compare("vc_041f", "İ", "i"), 0);
  EXPECT_NE(compare("vc_041e", "a-b", "ab"), 0);
}

TEST(Like, MatchesThePatternsOfBothInterfaces) {
  struct Case {
    const char* text;
    const char* pattern;
    bool hit;
  };
  const Case first[] = {
      {"Haus", "haus", true},  {"Haus", "h*", true},    {"Haus", "*US", true},   {"Haus", "h?us", true},
      {"Haus", "h?s", false},  {"", "*", true},         {"", "", true},          {"a", "", false},
      {"", "?", false},        {"Äpfel", "ä*", true},   {"Äpfel", "a*", false},  {"a1", "a#", true},
      {"ab", "a#", false},     {"b", "[a-c]", true},    {"ä", "[a-c]", true},    {"d", "[!a-c]", true},
      {"B", "[!a-c]", false},  {"a*b", "a[*]b", true},  {"axb", "a[*]b", false}, {"a]b", "a]b", true},
      {"a-b", "a[x-]b", true}, {"a-b", "a[-x]b", true}, {"!", "[!]", true},      {"ab", "a[]b", true},
      {"[", "[[]", true},      {"a%b_", "a%b_", true},  {"axb", "a%b", false},   {"abcabd", "*abd", true},
      {"𝄞x", "?x", true},      {"ΟΔΟΣ", "οδος", true},  {"カ", "か", true},      {"x", "[a-cx-z]", true},
  };
  for (const Case& one : first) {
    EXPECT_EQ(engine::text::like(one.text, one.pattern, 1, "vc_0407"), one.hit)
        << one.text << " like " << one.pattern;
  }
  const Case second[] = {{"Haus", "h%", true},
                         {"Haus", "h_us", true},
                         {"Haus", "h*", false},
                         {"a[b]", "A[b]", true},
                         {"a#", "a#", true}};
  for (const Case& one : second) {
    EXPECT_EQ(engine::text::like(one.text, one.pattern, 2, "vc_0407"), one.hit)
        << one.text << " like2 " << one.pattern;
  }
  EXPECT_TRUE(engine::text::like("ISIK", "ısık", 1, "vc_041f"));
  EXPECT_FALSE(engine::text::like("ISIK", "isik", 1, "vc_041f"));
  for (const char* bad : {"a[b", "[", "[z-a]"}) {
    EXPECT_THROW(engine::text::like("x", bad, 1, "vc_0407"), base::Error) << bad;
  }
}

TEST(Like, HostilePatternsStayCheap) {
  std::string pattern, text(20000, 'a');
  for (int i = 0; i < 60; ++i) pattern += "*a";
  EXPECT_FALSE(engine::text::like(text, pattern + "b", 1, "vc_0407"));
  EXPECT_TRUE(engine::text::like(text, pattern + "*", 1, "vc_0407"));
}

// Each text that matches has to lie within the bounds, or an index would lose it.
TEST(Like, BoundsHoldEveryMatch) {
  std::mt19937 random(11);
  const std::vector<std::string> letters = {
      "a", "A", "c", "C",      "h",      "s",  "S",  "z", "l",  "y",      "i",  "I",  "ı", "İ",      "ß", "ẞ",
      "ä", "Ä", "å", "\u0308", "\u030C", "ſ",  "µ",  "σ", "ς",  "\u0345", "ι",  "ж",  "Ж", "'",      "-", " ",
      "1", "א", "ก", "เ",      "𝄞",      "l·", "L·", "·", "カ", "が",     "ー", "ゝ", "и", "\u0306", "อ"};
  const auto word = [&](std::size_t most) {
    std::string result;
    for (std::size_t n = random() % (most + 1); n > 0; --n) result += letters[random() % letters.size()];
    return result;
  };
  for (const std::string& langId : langIds) {
    const auto collator = engine::text::collator(nameOf(langId));
    int bounded = 0;
    for (int i = 0; i < 4000; ++i) {
      const std::string prefix = word(3);
      const LikePattern pattern(prefix + "*", 1, collator);
      const auto bounds = pattern.bounds();
      if (!bounds) continue;
      ++bounded;
      for (int j = 0; j < 10; ++j) {
        const std::string text = (j % 2 == 0 ? prefix : word(3)) + word(3);
        if (!pattern.matches(text)) continue;
        ASSERT_LE(collator->compare(bounds->first, text), 0) << langId << " " << prefix << " " << text;
        ASSERT_LE(collator->compare(text, bounds->second), 0) << langId << " " << prefix << " " << text;
      }
    }
    EXPECT_GT(bounded, 200) << langId;
  }
}

// LIKE's notion of case must not be wider than the order's, letter by letter.
TEST(Like, LettersThatMatchAreEqualInTheOrder) {
  const auto collator = engine::text::collator("vc_0407");
  for (char32_t c = 0x20; c < 0x2E80; ++c) {
    if (c >= 0xD800 && c < 0xE000) continue;
    std::string one;
    base::appendCodePoint(one, c);
    if (std::string("*?#[").find(one) != std::string::npos) continue;
    const auto bounds = LikePattern(one, 1, collator).bounds();
    if (!bounds) continue;
    EXPECT_EQ(collator->compare(bounds->first, one), 0) << std::hex << static_cast<unsigned>(c) << " " << one;
  }
}

}  // namespace
