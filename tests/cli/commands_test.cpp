// Every command from outside: exit codes, questions, bad input, and that a cancelled command changes nothing.

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "run_cli.h"

namespace test {
namespace {

TEST(Usage, wrongUsageIsToldAndEndsInTwo) {
  const CliFolder folder;
  const std::vector<Lines> wrong = {{},
                                    {"fly"},
                                    {"entry"},
                                    {"entry", "fly", "D.cvb"},
                                    {"list"},
                                    {"list", "D.cvb", "--page", "none"},
                                    {"list", "D.cvb", "--page", "0"},
                                    {"list", "D.cvb", "--colour"},
                                    {"new", "D.cvb", "--from", "Deutsch"},
                                    {"new", "D.cvb", "--description", "x", "--type", "3"},
                                    {"new", "D.cvb", "--description"},
                                    {"entry", "add", "D.cvb", "x", "--example", "y"},
                                    {"entry", "add", "D.cvb", "x", "--meaning", "y", "--translation", "z"},
                                    {"rebuild", "D.cvb", "everything"},
                                    {"rebuild", "D.cvb", "sort", "--delta"},
                                    {"publish", "D.cvb", "paper", "out"},
                                    {"publish", "D.cvb", "html", "out", "--without", "everything"},
                                    {"sql", "D.cvb", "select 1", "--param", "novalue"},
                                    {"list", "D.cvb", "--answers", "yes"},
                                    {"search", "D.cvb", "no text\xFF"},
                                    {"search", "D.cvb", "half a character \xED\xA0\x80"}};
  for (const Lines& line : wrong) {
    const CliResult result = cli(line);
    EXPECT_EQ(result.code, 2) << (line.empty() ? "nothing" : line.back());
    EXPECT_FALSE(result.err.empty());
    EXPECT_TRUE(result.out.empty());
  }
  EXPECT_EQ(cli({"--help"}).code, 0);
  EXPECT_TRUE(holds(cli({"list", "--help"}).out, "--page-size"));
  EXPECT_FALSE(std::filesystem::exists("D.cvb"));
}

TEST(Files, missingForeignAndDamagedFilesAreToldApart) {
  const CliFolder folder;
  const CliResult missing = cli({"list", "nothing.cvb"});
  EXPECT_EQ(missing.code, 1);
  EXPECT_TRUE(holds(missing.err, "nothing.cvb"));

  folder.write("text.cvb", "this is no dictionary\n");
  const CliResult foreign = cli({"list", "text.cvb"});
  makeDictionary();
  std::string bytes = folder.read("D.cvb");
  folder.write("cut.cvb", bytes.substr(0, bytes.size() / 2 / 4096 * 4096));
  bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
  folder.write("flipped.cvb", bytes);
  const CliResult cut = cli({"list", "cut.cvb"});
  EXPECT_EQ(foreign.code, 1);
  EXPECT_EQ(cut.code, 1);
  EXPECT_NE(foreign.err, cut.err);
  EXPECT_TRUE(holds(folder.log(), "3343"));
  EXPECT_EQ(cli({"check", "flipped.cvb"}).code, 1);
  EXPECT_EQ(cli({"check", "D.cvb"}).code, 0);
  EXPECT_EQ(folder.read("text.cvb"), "this is no dictionary\n");
}

TEST(Files, areFoundWithoutRegardToCaseAndBlanksBecomeUnderlines) {
  const CliFolder folder;
  makeDictionary("Mein Wort.cvb");
  EXPECT_TRUE(std::filesystem::exists("Mein_Wort.cvb"));
  EXPECT_EQ(cli({"list", "MEIN_WORT.CVB"}).out, "Anfang\t1\n");
}

TEST(Files, readOnlyFilesCanBeReadAndRefuseChanges) {
  if (geteuid() == 0) GTEST_SKIP() << "root may write everything";
  const CliFolder folder;
  makeDictionary();
  std::filesystem::permissions("D.cvb", std::filesystem::perms::owner_read);
  EXPECT_EQ(cli({"entry", "add", "D.cvb", "Baum", "--meaning", "tree"}).code, 1);
}

TEST(Statements, printValuesEscapedAndRefuseWhatTheyCanNotMean) {
  const CliFolder folder;
  makeDictionary();
  const CliResult changed =
      cli({"sql", "D.cvb",
           "update woerterbuch set bemerkung = 'a' & chr(9) & 'b\\c' & chr(10) where id_woerterbuch = 1"});
  EXPECT_EQ(changed.out, "1 rows affected\n") << changed.err;
  EXPECT_EQ(cli({"sql", "D.cvb", "select Begriff, Bemerkung, Bild from woerterbuch"}).out,
            "Begriff\tBemerkung\tBild\nAnfang\ta\\tb\\\\c\\n\t\\N\n");
  EXPECT_EQ(cli({"sql", "D.cvb", "select [Begriff] from [Woerterbuch] where Begriff Like 'an*'"}).out,
            "Begriff\nAnfang\n");
  EXPECT_EQ(cli({"sql", "D.cvb", "select Begriff from Woerterbuch where Begriff Like 'an%'", "--ado"}).out,
            "Begriff\nAnfang\n");
  EXPECT_EQ(cli({"sql", "D.cvb", "BegriffParam", "--param", "lWortID=1"}).code, 0);
  for (const char* refused :
       {"select * from nothing", "select * from woerterbuch where id_woerterbuch = [unknown]",
        "attach database 'x' as y", "pragma key", "select * from sqlite_master", "drop database",
        "select * from [vc$table]", "select * from woerterbuch; delete * from woerterbuch", ""}) {
    const CliResult result = cli({"sql", "D.cvb", refused});
    EXPECT_EQ(result.code, 1) << refused;
    EXPECT_FALSE(result.err.empty()) << refused;
  }
  EXPECT_EQ(rows("select Begriff from Woerterbuch"), Lines{"Anfang"});
}

TEST(Filter, leavesTheEntriesThatMeetEveryChoice) {
  const CliFolder folder;
  makeDictionary();
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "Haus", "--note", "alt", "--meaning", "house"}).code, 0);
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "Hut", "--meaning", "hat"}).code, 0);
  ASSERT_EQ(cli({"property", "add", "D.cvb", "2", "Substantiv"}).code, 0);
  ASSERT_EQ(cli({"property", "add", "D.cvb", "3", "Substantiv", "--meaning", "2"}).code, 0);
  const auto ids = [](Lines options) {
    Lines line = {"filter", "D.cvb"};
    line.insert(line.end(), options.begin(), options.end());
    std::istringstream out(cli(line).out);
    std::string found;
    for (std::string row; std::getline(out, row);) found += row.substr(0, row.find('\t'));
    return found;
  };
  EXPECT_EQ(ids({}), "123");
  EXPECT_EQ(ids({"--property", "substantiv"}), "2");
  EXPECT_EQ(ids({"--property", "Substantiv", "--meaning-level"}), "3");
  EXPECT_EQ(ids({"--having", "note"}), "2");
  EXPECT_EQ(ids({"--lacking", "note"}), "13");
  EXPECT_EQ(ids({"--letter", "h"}), "23");
  EXPECT_EQ(ids({"--letter", "h", "--lacking", "note"}), "23")
      << "a letter stands beside the selection, not within it";
  EXPECT_EQ(ids({"--to", "31.12.2001"}), "");
  EXPECT_EQ(ids({"--from", "1.1.2020"}), "123");
  EXPECT_EQ(
      cli({"filter", "D.cvb", "--property", "Substantiv", "--meaning-level", "--from", "1.1.2020"}).code, 1)
      << "senses have no dates";
  EXPECT_EQ(cli({"filter", "D.cvb", "--having", "note", "--lacking", "note"}).code, 2);
  EXPECT_EQ(cli({"filter", "D.cvb", "--having", "nothing"}).code, 2);
  EXPECT_EQ(cli({"filter", "D.cvb", "--from", "yesterday"}).code, 2);
  EXPECT_EQ(cli({"filter", "D.cvb", "--property", "Nirgends"}).code, 1);
  EXPECT_EQ(rows("select count(*) as n from FilterSelektion1"), Lines{"0"})
      << "no filter outlives its command";
}

TEST(Import, takesWholeFilesOrNothing) {
  const CliFolder folder;
  makeDictionary();
  folder.write("good.csv", "\xEF\xBB\xBFWort;Sinn;Notiz\n\"a;b\";x;\"zwei\nZeilen\"\n...punkt;y\nd'Or;z;\n");
  folder.write("ragged.csv", "Wort;Sinn\na;b\nc;d;e\n");
  folder.write("nul.csv", std::string("Wort;Sinn\na\0;b\n", 15));
  folder.write("latin.csv", "Wort;Sinn\nM\xFCller;miller\n");
  folder.write("null.csv", "Wort;Sinn\na;1\n;2\nc;3\n");
  const auto import = [](const std::string& file, Lines more) {
    Lines line = {"import-text", "D.cvb", file, "--headword", "Wort", "--meaning", "Sinn"};
    line.insert(line.end(), more.begin(), more.end());
    return cli(line);
  };
  for (const char* bad : {"ragged.csv", "nul.csv", "latin.csv", "missing.csv"}) {
    const CliResult result = import(bad, {"--yes"});
    EXPECT_EQ(result.code, 1) << bad;
    EXPECT_FALSE(result.err.empty()) << bad;
  }
  EXPECT_EQ(import("good.csv", {}).code, 1) << "the question was not answered";
  EXPECT_EQ(
      cli({"import-text", "D.cvb", "good.csv", "--headword", "Nirgends", "--meaning", "Sinn", "--yes"}).code,
      1);
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"1"}) << "nothing was imported so far";

  EXPECT_EQ(import("good.csv", {"--note", "3", "--yes"}).code, 0);
  EXPECT_EQ(import("latin.csv", {"--charset", "ANSI", "--yes"}).code, 0);
  EXPECT_EQ(
      rows("select Begriff, PraefixBegriff, SortBegriff, Bemerkung, MetaSuche, Ebene, Prioritaet from "
           "Woerterbuch"
           " where ID_Woerterbuch > 1 order by ID_Woerterbuch"),
      (Lines{"a;b\t\\N\ta;b\tzwei\\r\\nZeilen\t//a;b////x\t1\t1",
             "...punkt\t...\tpunkt\t\\N\t//...punkt////y\t1\t1", "d'Or\t\\N\td'Or\t\\N\t//d'Or////z\t1\t1",
             "Müller\t\\N\tMüller\t\\N\t//Müller////miller\t1\t1"}));
  EXPECT_EQ(
      rows("select count(*) as n from Woerterbuch, Wortbedeutung where Woerterbuch.ID_Woerterbuch ="
           " Wortbedeutung.ID_Woerterbuch and Woerterbuch.ID_Woerterbuch = Woerterbuch.ID_Woerterbuch1"),
      Lines{"4"});
  EXPECT_EQ(import("null.csv", {"--answers", "6,6"}).code, 0) << "yes to the import, yes to skipping the row";
  EXPECT_EQ(rows("select count(*) as n from Woerterbuch"), Lines{"7"});
  EXPECT_EQ(cli({"check", "D.cvb"}).code, 0);
}

TEST(Publishing, splitsPagesLinksThemAndCopiesWhatTheyNeed) {
  const CliFolder folder;
  makeDictionary();
  std::string list = "Wort;Sinn\n";
  for (const char* word : {"Bank;bench", "bank;finance", "Baum;tree", "Zug;train", "Ähre;ear"})
    list += std::string(word) + "\n";
  folder.write("list.csv", list);
  ASSERT_EQ(
      cli({"import-text", "D.cvb", "list.csv", "--headword", "Wort", "--meaning", "Sinn", "--yes"}).code, 0);
  ASSERT_EQ(
      cli({"sql", "D.cvb", "insert into wortbedeutung (id_woerterbuch, wortbedeutung) values (2, 'shelf')"})
          .code,
      0);
  ASSERT_EQ(
      cli({"sql", "D.cvb",
           "insert into querverweis (id_woerterbuch, id_woerterbuchqv, querverweis) values (2, 5, 'Zug')"})
          .code,
      0);
  ASSERT_EQ(cli({"publish", "D.cvb", "html", "out/words.htm", "--per-page", "2"}).code, 0);
  std::string all;
  for (const char* page : {"out/words_1.HTM", "out/words_2.HTM", "out/words_3.HTM"}) all += folder.read(page);
  EXPECT_FALSE(std::filesystem::exists("out/words_4.HTM"));
  for (int id = 1; id <= 6; ++id) {
    const std::string anchor = "<H1 ID=\"" + std::to_string(id) + "\"";
    const auto first = all.find(anchor);
    ASSERT_NE(first, std::string::npos) << id;
    EXPECT_EQ(all.find(anchor, first + 1), std::string::npos) << "entry " << id << " comes once";
  }
  EXPECT_TRUE(holds(all, "words_3.HTM#5\">Zug</a>")) << "the cross-reference leads to its page";
  EXPECT_TRUE(holds(folder.read("out/words_3.HTM"), "<H1 ID=\"5\""));
  EXPECT_TRUE(holds(folder.read("out/words_INDEX.HTM"), "<A HREF=\"words_3.HTM\">"));
  EXPECT_FALSE(holds(all, "\n\n")) << "every line ends in CR LF";
  for (const char* file : {"out/Stylesheets/vocarium1.css", "out/Images/VC_logo.jpg", "out/Images/neu.gif"})
    EXPECT_TRUE(std::filesystem::exists(file)) << file;

  ASSERT_EQ(
      cli({"publish", "D.cvb", "html", "letters/words", "--per-letter", "--without", "meaning-properties"})
          .code,
      0);
  EXPECT_TRUE(holds(folder.read("letters/words_INDEX.HTM"), "<A HREF=\"words_1.HTM\">"));
  EXPECT_TRUE(holds(folder.read("letters/words_2.HTM"), "Baum</H1>") ||
              holds(folder.read("letters/words_3.HTM"), "Baum</H1>"));
  folder.write("file", "");
  EXPECT_EQ(cli({"publish", "D.cvb", "html", "file/words.htm"}).code, 1);
}

TEST(Care, copiesAskAboutTheirNewPlaceAndCompactionKeepsAllRows) {
  const CliFolder folder;
  makeDictionary();
  ASSERT_EQ(cli({"entry", "add", "D.cvb", "Haus", "--meaning", "house"}).code, 0);
  ASSERT_EQ(cli({"copy", "D.cvb", "Kopie.cvb", "--yes"}).code, 0);
  EXPECT_EQ(cli({"list", "Kopie.cvb"}).code, 1) << "the question about the new place is not answered";
  EXPECT_EQ(cli({"list", "Kopie.cvb", "--answers", "7"}).code, 0);
  EXPECT_EQ(cli({"list", "Kopie.cvb", "--yes"}).code, 0);
  const CliResult again = cli({"list", "Kopie.cvb"});
  EXPECT_EQ(again.code, 0) << again.err;
  EXPECT_EQ(again.out, "Anfang\t1\nHaus\t2\n");
  EXPECT_EQ(cli({"compact", "D.cvb", "--yes"}).code, 0);
  EXPECT_EQ(cli({"list", "D.cvb"}).out, "Anfang\t1\nHaus\t2\n");
  EXPECT_EQ(cli({"rebuild", "D.cvb", "sort"}).code, 1);
  EXPECT_EQ(cli({"rebuild", "D.cvb", "sort", "--answers", "6,7"}).code, 1) << "the second question says no";
  EXPECT_EQ(cli({"rebuild", "D.cvb", "flat", "--yes"}).code, 0);
  EXPECT_EQ(rows("select count(*) as n from WoerterbuchFlat"), Lines{"2"});
}

}  // namespace
}  // namespace test
