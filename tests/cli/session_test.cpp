// Several dictionaries in one command, and dictionaries made from one.

#include <gtest/gtest.h>

#include "base/text.h"
#include "run_cli.h"

namespace {

using test::cli;

TEST(CliSession, refusesWhatDoesNotBelong) {
  const test::CliFolder folder;
  for (const char* name : {"D.cvb", "E.cvb"}) test::makeDictionary(name);
  EXPECT_EQ(cli({"--with", "E.cvb", "list", "D.cvb"}).out, "Anfang\t1\t" + base::upper(folder.path()) +
                                                               "/D.CVB\nAnfang\t1\t" +
                                                               base::upper(folder.path()) + "/E.CVB\n");
  EXPECT_EQ(cli({"list", "D.cvb", "--with", "d.CVB"}).code, 1) << "the same file";
  EXPECT_EQ(cli({"--with", "missing.cvb", "list", "D.cvb"}).code, 1);
  EXPECT_EQ(cli({"--with", "E.cvb", "check", "D.cvb"}).code, 2);
  EXPECT_EQ(cli({"list", "D.cvb", "--with"}).code, 2);
  ASSERT_EQ(cli({"--with", "E.cvb", "sql", "D.cvb", "update Woerterbuch set Bemerkung = 'D'"}).code, 0);
  EXPECT_EQ(test::rows("select Bemerkung from Woerterbuch", "D.cvb"), std::vector<std::string>{"D"});
  EXPECT_EQ(test::rows("select Bemerkung from Woerterbuch", "E.cvb"), std::vector<std::string>{""});
}

TEST(CliSession, savesNothingThatWasNotConfirmed) {
  const test::CliFolder folder;
  test::makeDictionary();
  EXPECT_EQ(cli({"filter", "D.cvb", "--save-as", "S.cvb"}).code, 1);
  EXPECT_FALSE(std::filesystem::exists("S.cvb"));
  EXPECT_EQ(cli({"filter", "D.cvb", "--save-as", "D.cvb", "--yes"}).code, 1);
  EXPECT_EQ(cli({"check", "D.cvb"}).code, 0);
  EXPECT_EQ(cli({"inverse", "D.cvb", "d.CVB"}).code, 1);
  EXPECT_EQ(cli({"inverse", "missing.cvb", "I.cvb"}).code, 1);
  EXPECT_FALSE(std::filesystem::exists("I.cvb"));
  EXPECT_EQ(cli({"check", "D.cvb"}).code, 0);
}

}  // namespace
