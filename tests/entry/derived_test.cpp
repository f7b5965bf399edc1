// Sort terms and search texts of a whole dictionary, against plain loops over the same rows.

#include <algorithm>
#include <map>
#include <random>

#include "entry/dictionary.h"
#include "entry/frmServices.h"
#include "entry/sort_term.h"

namespace {

using namespace entry;
using platform::box::answerNo;
using platform::box::answerYes;

TEST(SplitHeadword, SkipsAtMostThreeLeadingMembers) {
  struct Case {
    const char *headword, *ignored, *prefix, *rest;
  };
  const Case cases[] = {{"Haus", "", "", "Haus"},
                        {"...Haus", ".", "...", "Haus"},
                        {"....Haus", ".", "...", ".Haus"},
                        {"-.", "-.", "-.", ""},
                        {"", "-", "", ""},
                        {"a-b", "-", "", "a-b"},
                        {"“Haus”", "“”", "“", "Haus”"},
                        {"aA", "a", "a", "A"},
                        {"¡¿Qué", "¡¿", "¡¿", "Qué"},
                        {"-a-", "-a", "-a-", ""}};
  for (const Case& one : cases) {
    const SplitHeadword split = splitHeadword(one.headword, one.ignored);
    EXPECT_EQ(split.prefix, one.prefix) << one.headword;
    EXPECT_EQ(split.rest, one.rest) << one.headword;
  }
}

class RebuildTest : public EntryTest {
 protected:
  void insertEntry(std::int64_t main, int priority, const std::string& headword) {
    auto row = db().OpenRecordset("Woerterbuch");
    row.AddNew();
    const std::int64_t id = row["ID_Woerterbuch"].asInteger();
    row.set("ID_Woerterbuch1", main == 0 ? id : main);
    row.set("Ebene", main == 0 ? 1 : 2);
    row.set("Prioritaet", priority);
    row.set("Begriff", headword);
    row.Update();
  }
  bool rebuildKeys() {
    script.answer(answerYes, "Sortierbegriffe");
    script.answer(answerYes);
    return GenerateSortBegriff(services);
  }
  bool rebuildSearch() {
    script.answer(answerYes, "Suchtext");
    script.answer(answerYes);
    return GenerateMetaSearchIndex(services);
  }
  frmServices services{s};
};

TEST_F(RebuildTest, KeysFollowTheHeadwordsAndOrphansGo) {
  insert("insert into WArtikel (Artikel) values ('der')");
  insert("insert into WArtikel (Artikel) values ('die')");
  std::mt19937 random(3);
  const std::vector<std::string> starts = {"", "-", "..", "die ", "Die ", "der ", "'"};
  std::vector<std::string> headwords;
  for (int i = 0; i < 60; ++i)
    headwords.push_back(starts[random() % starts.size()] + "w" + std::to_string(i));
  for (const std::string& headword : headwords) insertEntry(0, 1, headword);
  for (int i = 0; i < 40; ++i)
    insertEntry(1 + static_cast<int>(random() % 60), 1 + i % 12, "-die sub" + std::to_string(i));
  insertEntry(4711, 1, "orphan");
  ASSERT_TRUE(rebuildKeys());
  ASSERT_TRUE(rebuildKeys());  // sub-entries that stood before their main entry

  std::map<std::int64_t, std::string> keys;
  auto row = db().OpenRecordset("select * from Woerterbuch order by ID_Woerterbuch",
                                engine::RecordsetKind::snapshot);
  int seen = 0;
  for (; !row.EndOfFile(); row.MoveNext(), ++seen) {
    const std::int64_t id = row["ID_Woerterbuch"].asInteger(), main = row["ID_Woerterbuch1"].asInteger();
    const std::string headword = row["Begriff"].asText();
    std::string prefix, wanted = headword;
    while (prefix.size() < 3 && !wanted.empty() &&
           std::string("\"!-_.'").find(wanted[0]) != std::string::npos) {
      prefix += wanted[0];
      wanted.erase(0, 1);
    }
    if (id == main && (headword.starts_with("die ") || headword.starts_with("der ")))
      wanted = headword.substr(4);
    if (id != main) wanted = keys.at(main) + row["Prioritaet"].asText() + wanted;
    keys[id] = wanted;
    EXPECT_EQ(row["SortBegriff"].asText(), wanted);
    EXPECT_EQ(row["PraefixBegriff"].asText(), prefix) << headword;
  }
  EXPECT_EQ(seen, 100);
  EXPECT_FALSE(script.progressShown);
  EXPECT_EQ(script.lastPercent, 100);
}

TEST_F(RebuildTest, ARowThatRefusesItsKeyKeepsTheOldOneAndIsTold) {
  insertEntry(0, 1, "--");
  insertEntry(0, 1, "Haus");
  insert("update Woerterbuch set SortBegriff = 'old' where Begriff = '--'");
  EXPECT_FALSE(rebuildKeys());
  EXPECT_EQ(rows("select SortBegriff from Woerterbuch order by ID_Woerterbuch"), "old|Haus");
  EXPECT_TRUE(script.told("\"--\""));
  script.answer(answerNo);
  EXPECT_FALSE(GenerateSortBegriff(services));
}

TEST_F(RebuildTest, SearchTextsHoldMeaningsThenExamplesThenTheHeadword) {
  for (const char* headword : {"eins", "it's", "leer", "drei"}) insertEntry(0, 1, headword);
  for (const char* meaning : {"1, 'one'", "1, 'single one'", "1, 'one'", "2, 'a'", "4, 'three'"}) {
    insert(std::string("insert into Wortbedeutung (ID_Woerterbuch, Wortbedeutung) values (") + meaning + ")");
  }
  for (const char* example : {"1, 'x', 'y'", "1, 'z', null", "2, 'x', 'y'", "5, 'drei', '3'"}) {
    insert(std::string("insert into WortBedBsp (ID_Wortbedeutung, Beispiel, Beispieluebersetzung) values (") +
           example + ")");
  }
  ASSERT_TRUE(rebuildSearch());
  std::vector<std::string> texts =
      base::split(rows("select MetaSuche from Woerterbuch order by ID_Woerterbuch"), "|");
  ASSERT_EQ(texts.size(), 4U);
  EXPECT_TRUE(texts[0].ends_with("////eins")) << texts[0];
  for (const char* piece : {"//one", "//single one", "//x//y", "//z//"}) {
    EXPECT_NE(texts[0].find(piece), std::string::npos) << texts[0];
  }
  EXPECT_LT(texts[0].find("//single one"), texts[0].find("//x//y"));
  EXPECT_EQ(texts[0].find("//x//y"), texts[0].rfind("//x//y"));
  EXPECT_EQ(texts[1], "//a////it's");
  EXPECT_EQ(texts[2], "////leer");
  EXPECT_EQ(texts[3], "//three//drei//3////drei");
}

TEST_F(EntryTest, OnlyAWholeArticleInItsOwnCaseIsTakenOff) {
  insert("insert into WArtikel (Artikel) values ('die')");
  EXPECT_EQ(ofEntry("SortBegriff", addMain("die Katze")), "Katze");
  EXPECT_EQ(ofEntry("SortBegriff", addMain("Die Katze")), "Die Katze");
  EXPECT_EQ(ofEntry("SortBegriff", addMain("die")), "die");
  EXPECT_EQ(ofEntry("SortBegriff", addMain("diele")), "diele");
  const std::int64_t main = addMain("Haus");
  EXPECT_EQ(ofEntry("SortBegriff", addSub(main, "die Tür")), "Haus1die Tür");
}

}  // namespace
