// Commands that change existing entries.

#include <gtest/gtest.h>

#include "run_cli.h"

namespace test {
namespace {

TEST(Editing, changesEntriesMeaningsAndExamplesWithAllThatIsDerived) {
  const CliFolder folder;
  makeDictionary();
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "Tor", "--meaning", "gate"}).out, "2\n");
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "Torwart", "--under", "2"}).out, "3\n");
  EXPECT_EQ(cli({"entry", "edit", "D.cvb", "2", "--headword", "-Pforte", "--note", "it's", "--pronunciation",
                 "ˈpfɔʁtə"})
                .code,
            0);
  EXPECT_EQ(cli({"meaning", "add", "D.cvb", "2", "small gate"}).out, "2\n");
  EXPECT_EQ(cli({"meaning", "add", "D.cvb", "3", "goalkeeper"}).out, "3\n");
  EXPECT_EQ(cli({"example", "add", "D.cvb", "2", "Die Pforte ist zu."}).out, "1\n");
  EXPECT_EQ(cli({"example", "add", "D.cvb", "3", "Er hält.", "--translation", "He saves."}).out, "2\n");
  EXPECT_EQ(rows("select Begriff, SortBegriff, Aussprache, Bemerkung, MetaSuche from Woerterbuch where "
                 "ID_Woerterbuch > 1 order by ID_Woerterbuch"),
            (Lines{"-Pforte\tPforte\tˈpfɔʁtə\tit's\t//gate//small gate//Die Pforte ist zu.//////-Pforte",
                   "Torwart\tPforte1Torwart\t\t\t//goalkeeper//Er hält.//He saves.////Torwart"}));

  EXPECT_EQ(cli({"meaning", "delete", "D.cvb", "2"}).code, 1) << "nothing answers the question";
  EXPECT_EQ(cli({"meaning", "delete", "D.cvb", "2", "--answers", "7"}).code, 1);
  EXPECT_EQ(cli({"example", "delete", "D.cvb", "2"}).code, 0);
  EXPECT_EQ(rows("select Beispiel from WortbedBsp"), Lines{"Die Pforte ist zu."});
  EXPECT_EQ(cli({"meaning", "delete", "D.cvb", "2", "--yes"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from WortbedBsp"), Lines{"0"});
  EXPECT_EQ(rows("select MetaSuche from Woerterbuch where ID_Woerterbuch > 1 order by ID_Woerterbuch"),
            (Lines{"//gate////-Pforte", "//goalkeeper////Torwart"}));
}

TEST(Editing, refusesWhatIsNotThereAndLeavesTheEntryAsItWas) {
  const CliFolder folder;
  makeDictionary();
  ASSERT_EQ(cli({"meaning", "add", "D.cvb", "1", "start"}).code, 0);
  const Lines before = rows("select * from Woerterbuch");
  for (const Lines& line : {Lines{"entry", "edit", "D.cvb", "9", "--note", "x"},
                            {"entry", "edit", "D.cvb", "1", "--headword", " "},
                            {"entry", "edit", "D.cvb", "1", "--headword", std::string(251, 'x')},
                            {"meaning", "add", "D.cvb", "9", "x"},
                            {"meaning", "add", "D.cvb", "1", std::string(300, 'x')},
                            {"meaning", "delete", "D.cvb", "9", "--yes"},
                            {"example", "add", "D.cvb", "9", "x"},
                            {"example", "add", "D.cvb", "1", "a \" quote"},
                            {"example", "delete", "D.cvb", "9"},
                            {"entry", "relink", "D.cvb", "1", "--to", "9"},
                            {"entry", "relink", "D.cvb", "1", "--to", "1"},
                            {"entry", "relink", "D.cvb", "1", "--main"}}) {
    const auto result = cli(line);
    EXPECT_EQ(result.code, 1) << line[0] << ' ' << line[1] << ' ' << line[3];
    EXPECT_FALSE(result.err.empty());
  }
  for (const Lines& line : {Lines{"entry", "edit", "D.cvb", "1"},
                            {"entry", "relink", "D.cvb", "1"},
                            {"entry", "relink", "D.cvb", "1", "--main", "--to", "1"},
                            {"meaning", "add", "D.cvb", "1", " "},
                            {"example", "add", "D.cvb", "1", ""}})
    EXPECT_EQ(cli(line).code, 2) << line[1];
  EXPECT_EQ(rows("select * from Woerterbuch"), before);
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), Lines{"start"});
}

TEST(Editing, relinkingMovesAnEntryInTheList) {
  const CliFolder folder;
  makeDictionary();
  cli({"entry", "add", "D.cvb", "Zaun"});
  ASSERT_EQ(cli({"entry", "relink", "D.cvb", "2", "--to", "1"}).code, 0);
  EXPECT_EQ(cli({"list", "D.cvb"}).out, "Anfang   ++\t1\n--- Zaun\t2\n");
  ASSERT_EQ(cli({"entry", "relink", "D.cvb", "2", "--main"}).code, 0);
  EXPECT_EQ(cli({"list", "D.cvb"}).out, "Anfang\t1\nZaun\t2\n");
}

TEST(RecentWork, isListedAndDeletedByDate) {
  const CliFolder folder;
  makeDictionary();
  cli({"entry", "add", "D.cvb", "Zaun"});
  cli({"sql", "D.cvb",
       "update Woerterbuch set DateTimeStamp = '24.12.2001 18:30:00' where Begriff = 'Zaun'"});
  EXPECT_EQ(cli({"history", "D.cvb", "new", "--days", "30"}).out.substr(0, 9), "Anfang\t1\t");
  EXPECT_EQ(cli({"history", "D.cvb", "new"}).out.substr(29), "Zaun\t2\t24.12.2001 18:30:00\n");
  EXPECT_EQ(cli({"history", "D.cvb", "changed"}).out, "");
  EXPECT_EQ(cli({"history", "D.cvb", "old"}).code, 2);
  EXPECT_EQ(cli({"delete-by-date", "D.cvb", "--from", "24.12.2001"}).code, 2);
  EXPECT_EQ(cli({"delete-by-date", "D.cvb", "--from", "24.13.2001", "--to", "1.1.2002"}).code, 2);
  const auto asked = cli({"delete-by-date", "D.cvb", "--from", "24.12.2001", "--to", "2001-12-24"});
  EXPECT_EQ(asked.code, 1) << "nothing answers the question";
  EXPECT_EQ(asked.out, "Zaun\n");
  EXPECT_EQ(
      cli({"delete-by-date", "D.cvb", "--from", "24.12.2001 18:31", "--to", "24.12.2001", "--yes"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"2"});
  EXPECT_EQ(cli({"delete-by-date", "D.cvb", "--from", "24.12.2001", "--to", "24.12.2001", "--yes"}).code, 0);
  EXPECT_EQ(rows("select Begriff from Woerterbuch"), Lines{"Anfang"});
  // Without any entry the dictionary still opens and takes new ones.
  EXPECT_EQ(cli({"delete-by-date", "D.cvb", "--from", "1.1.2001", "--to", "31.12.2099", "--yes"}).code, 0);
  EXPECT_EQ(cli({"list", "D.cvb"}).code, 0);
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Neu"}).code, 0);
}

TEST(FastEntry, addsOneEntryOrTellsWhatItDidNotStore) {
  const CliFolder folder;
  makeDictionary();
  EXPECT_EQ(cli({"fast", "D.cvb", "Zaun", "fence", "", "hedge"}).out, "2\n");
  EXPECT_EQ(rows("select Begriff, SortBegriff, MetaSuche from Woerterbuch where ID_Woerterbuch = 2"),
            Lines{"Zaun\tZaun\t//fence//hedge////Zaun"});
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), (Lines{"fence", "hedge"}));
  EXPECT_EQ(cli({"fast", "D.cvb", "zaun", "--check"}).code, 1);
  EXPECT_EQ(cli({"fast", "D.cvb", "a \" b"}).code, 1);
  EXPECT_EQ(cli({"fast", "D.cvb", " "}).code, 2);
  EXPECT_EQ(cli({"fast", "D.cvb", "a", "b", "c", "d", "e"}).code, 2);
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"2"});
}

TEST(Backup, copiesTheFileAndItsMediaAndNothingElse) {
  const CliFolder folder;
  makeDictionary();
  std::filesystem::create_directories("Ziel");
  std::filesystem::create_directories("D");
  folder.write("D/bild.png", "picture");
  const std::string before = folder.read("D.cvb");
  const auto plain = cli({"backup", "D.cvb", "Ziel"});
  ASSERT_EQ(plain.code, 0) << plain.err;
  const std::string copy = plain.out.substr(0, plain.out.size() - 1);
  EXPECT_EQ(test::TempDir::read(copy), before);
  EXPECT_FALSE(std::filesystem::exists(copy.substr(0, copy.size() - 4) + "/bild.png"));
  EXPECT_EQ(cli({"check", copy}).code, 0);

  std::filesystem::create_directories("Ziel2");
  const auto media = cli({"backup", "D.cvb", "Ziel2", "--media"});
  ASSERT_EQ(media.code, 0) << media.err;
  EXPECT_EQ(test::TempDir::read(media.out.substr(0, media.out.size() - 5) + "/bild.png"), "picture");
  EXPECT_EQ(folder.read("D.cvb"), before);
  EXPECT_EQ(cli({"backup", "D.cvb", "nowhere"}).code, 1);
  EXPECT_EQ(cli({"backup", "D.cvb", "D.cvb"}).code, 1);
  EXPECT_EQ(cli({"backup", "no.cvb", "Ziel"}).code, 1);
}

TEST(Catalogue, isListedAndTakesAFile) {
  const CliFolder folder;
  makeDictionary();
  folder.write("neu.txt", "Aal;aa.\n");
  folder.write("neu.csv", "Aal;aa.\n");
  EXPECT_EQ(cli({"catalogue", "D.cvb", "properties", "--import", "neu.txt"}).code, 1) << "nothing answers";
  EXPECT_EQ(cli({"catalogue", "D.cvb", "properties", "--import", "neu.csv", "--yes"}).code, 1);
  EXPECT_EQ(cli({"catalogue", "D.cvb", "properties", "--import", "no.txt", "--yes"}).code, 1);
  EXPECT_EQ(cli({"catalogue", "D.cvb", "colours"}).code, 2);
  EXPECT_EQ(cli({"catalogue", "D.cvb", "properties", "--import", "neu.txt", "--yes"}).code, 0);
  EXPECT_EQ(cli({"catalogue", "D.cvb", "properties"}).out.substr(0, 8), "Aal\taa.\n");
  EXPECT_NE(cli({"catalogue", "D.cvb", "subjects"}).out.substr(0, 3), "Aal");
}

}  // namespace
}  // namespace test
