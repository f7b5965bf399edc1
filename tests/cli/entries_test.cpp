// Entries from the shell: what is typed, asked and left behind.

#include <gtest/gtest.h>

#include "run_cli.h"

namespace test {
namespace {

TEST(Entries, areTypedShownAndDeletedWithTheirParts) {
  const CliFolder folder;
  makeDictionary();
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "d'Artagnan", "--note", "ein \"Musketier\"", "--pronunciation",
                 "daʁtaɲã", "--meaning", "musketeer's name", "--example", "Er heißt d'Artagnan.",
                 "--translation", "He's d'Artagnan.", "--example", "Noch eins.", "--meaning", "hero"})
                .out,
            "2\n");
  const std::string shown = cli({"entry", "show", "D.cvb", "2"}).out;
  for (const char* part :
       {"headword\td'Artagnan\n", "note\tein \"Musketier\"\n", "pronunciation\tdaʁtaɲã\n",
        "meaning\tmusketeer's name\t", "  example\tEr heißt d'Artagnan.\tHe's d'Artagnan.\n",
        "  example\tNoch eins.\t\n", "meaning\thero\t"})
    EXPECT_TRUE(holds(shown, part)) << part << "\n" << shown;
  EXPECT_EQ(cli({"entry", "delete", "D.cvb", "2"}).code, 1) << "nothing answers the question";
  EXPECT_EQ(cli({"entry", "delete", "D.cvb", "2", "--answers", "7"}).code, 1);
  EXPECT_EQ(rows("select count(*) as n from Wortbedeutung"), Lines{"2"});
  EXPECT_EQ(cli({"entry", "delete", "D.cvb", "2", "--yes"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from Wortbedeutung"), Lines{"0"});
  EXPECT_EQ(rows("select count(*) as n from WortBedBsp"), Lines{"0"});
  EXPECT_EQ(cli({"entry", "show", "D.cvb", "2"}).code, 1);
  EXPECT_EQ(cli({"entry", "delete", "D.cvb", "1", "--yes"}).code, 1) << "the last entry stays";
}

TEST(Entries, aCancelledNewEntryLeavesNoStub) {
  const CliFolder folder;
  makeDictionary();
  const CliResult asked = cli({"entry", "add", "D.cvb", "Anfang", "--meaning", "start"});
  EXPECT_EQ(asked.code, 1);
  EXPECT_TRUE(asked.out.empty());
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Anfang", "--answers", "2"}).code, 1);
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "   "}).code, 1);
  EXPECT_EQ(cli({"entry", "add", "D.cvb", std::string(251, 'x')}).code, 1);
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Ende", "--meaning", "end", "--example", "a \" quote"}).code, 1);
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"1"});
  EXPECT_EQ(cli({"entry", "add", "D.cvb", std::string(250, 'x')}).code, 0);
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Anfang", "--yes"}).code, 0) << "a second one of that headword";
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"3"});
}

TEST(Entries, anExistingHeadwordCanBeEditedInstead) {
  const CliFolder folder;
  makeDictionary();
  const CliResult result =
      cli({"entry", "add", "D.cvb", "Anfang", "--meaning", "beginning", "--answers", "7"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(rows("select ID_Woerterbuch, Wortbedeutung from Wortbedeutung"), Lines{"1\tbeginning"});
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"1"});
}

TEST(Entries, subEntriesStandBelowTheirMainEntry) {
  const CliFolder folder;
  makeDictionary();
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Haus"}).out, "2\n");
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Haustür", "--under", "2"}).out, "3\n");
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Hausdach", "--under", "2"}).out, "4\n");
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Dachstuhl", "--under", "4"}).code, 1) << "two levels are all";
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "x", "--under", "99"}).code, 1);
  EXPECT_EQ(rows("select Begriff, Ebene, ID_Woerterbuch1, SortBegriff from Woerterbuch order by SortBegriff"),
            (Lines{"Anfang\t1\t1\tAnfang", "Haus\t1\t2\tHaus", "Haustür\t2\t2\tHaus1Haustür",
                   "Hausdach\t2\t2\tHaus2Hausdach"}));
  EXPECT_EQ(cli({"list", "D.cvb"}).out, "Anfang\t1\nHaus   ->\t2\n");
  EXPECT_EQ(cli({"entry", "delete", "D.cvb", "2", "--yes"}).code, 1) << "it has sub-entries";
  EXPECT_EQ(cli({"entry", "delete", "D.cvb", "3", "--yes"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"3"});
}

TEST(Entries, propertiesAndSubjectsAreAssignedOnce) {
  const CliFolder folder;
  makeDictionary();
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "Haus", "--meaning", "house"}).code, 0);
  EXPECT_EQ(cli({"property", "add", "D.cvb", "2", "substantiv", "--value", "Neutrum"}).code, 0);
  EXPECT_EQ(cli({"property", "add", "D.cvb", "2", "Substantiv"}).code, 1) << "it is assigned already";
  EXPECT_EQ(cli({"property", "add", "D.cvb", "2", "No Such Thing"}).code, 1);
  EXPECT_EQ(cli({"property", "add", "D.cvb", "2", "Substantiv", "--meaning", "99"}).code, 1);
  EXPECT_EQ(cli({"property", "add", "D.cvb", "2", "Plural", "--value", std::string(51, 'x')}).code, 1);
  EXPECT_EQ(rows("select KategorieWert from relWoertWKat where KategorieWert is not null"), Lines{"Neutrum"});
  EXPECT_EQ(cli({"subject", "add", "D.cvb", "2", "Architektur", "--meaning", "1"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from relWortbedSachgebiet"), Lines{"1"});
  EXPECT_EQ(cli({"subject", "remove", "D.cvb", "2", "Architektur", "--meaning", "1"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from relWortbedSachgebiet"), Lines{"0"});
  EXPECT_EQ(cli({"property", "remove", "D.cvb", "2", "Substantiv"}).code, 0);
}

}  // namespace
}  // namespace test
