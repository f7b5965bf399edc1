// Links, attachments and settings from the shell.
#include <gtest/gtest.h>

#include <filesystem>

#include "run_cli.h"

namespace test {
namespace {

TEST(Links, areAddedToEntriesOfLinkCollections) {
  const CliFolder folder;
  ASSERT_EQ(cli({"new", "L.cvb", "--type", "2", "--description", "x", "--first", "Zoo"}).code, 0);
  EXPECT_EQ(
      cli({"link", "add", "L.cvb", "1", "--url", "http://z.example", "--note", "it's", "--rating", "5"}).out,
      "1\n");
  EXPECT_EQ(cli({"link", "add", "L.cvb", "1", "--name", "n", "--url", "www.z.example"}).out, "2\n");
  EXPECT_EQ(rows("select URLName, URL, URLNotiz, Rating from URL order by ID_URL", "L.cvb"),
            (Lines{"\thttp://z.example\tit's\t5", "n\twww.z.example\t\t0"}));
  EXPECT_EQ(rows("select MetaSuche from Woerterbuch", "L.cvb").front().substr(0, 30),
            "////http://z.example//it's//n/");
  EXPECT_EQ(cli({"link", "add", "L.cvb", "1"}).code, 2);
  EXPECT_EQ(cli({"link", "add", "L.cvb", "1", "--url", "x", "--rating", "6"}).code, 2);
  EXPECT_EQ(cli({"link", "add", "L.cvb", "9", "--url", "x"}).code, 1);
  makeDictionary();
  const auto refused = cli({"link", "add", "D.cvb", "1", "--url", "x"});
  EXPECT_EQ(refused.code, 1);
  EXPECT_NE(refused.err.find("no web links"), std::string::npos);
  EXPECT_EQ(rows("select count(*) as n from URL"), Lines{"0"});
}

TEST(Attachments, areCopiedOrLeftAndNeverOverwritten) {
  const CliFolder folder;
  makeDictionary();
  folder.write("plan.txt", "plan");
  EXPECT_EQ(cli({"attach", "D.cvb", "1", "PLAN.txt", "--copy", "--name", "Plan"}).out, "1\n");
  EXPECT_EQ(cli({"attach", "D.cvb", "1", "plan.txt", "--note", "n"}).out, "2\n");
  EXPECT_EQ(rows("select AttachmentName, Attachment.Attachment, AttachmentNotiz from Attachment"),
            (Lines{"Plan\tplan.txt\t", "\t" + folder.path() + "/plan.txt\tn"}));
  EXPECT_EQ(folder.read("D/plan.txt"), "plan");
  folder.write("plan.txt", "another");
  EXPECT_EQ(cli({"attach", "D.cvb", "1", "plan.txt", "--copy"}).code, 1) << "nothing answers the question";
  EXPECT_EQ(folder.read("D/plan.txt"), "plan");
  EXPECT_EQ(cli({"attach", "D.cvb", "1", "plan.txt", "--copy", "--yes"}).code, 0);
  EXPECT_EQ(folder.read("D/plan.txt"), "another");
  EXPECT_EQ(cli({"attach", "D.cvb", "1", "missing.txt"}).code, 1);
  EXPECT_EQ(rows("select count(*) as n from Attachment"), Lines{"3"});
}

TEST(Settings, areListedSetAndRefusedWhole) {
  const CliFolder folder;
  makeDictionary();
  const std::string all = cli({"settings", "D.cvb"}).out;
  EXPECT_NE(all.find("\nUebersetzungVon\tDeutsch\n"), std::string::npos);
  EXPECT_NE(all.find("\nkhz22\tyes\n"), std::string::npos);
  EXPECT_NE(all.find("\nObjektSchriftgroesse\t10\n"), std::string::npos);
  EXPECT_EQ(cli({"settings", "D.cvb", "blog=yes", "KHZ44=1", "Autorname=Anna Berg"}).out, "");
  EXPECT_EQ(cli({"settings", "D.cvb", "blog", "khz22", "khz44", "Autorname"}).out,
            "Blog\tyes\nkhz22\tno\nkhz44\tyes\nAutorname\tAnna Berg\n");
  EXPECT_EQ(cli({"settings", "D.cvb", "SteuerzeichenFeld=", "SteuerzeichenFeld"}).out,
            "SteuerzeichenFeld\t^\n");
  for (const char* wrong : {"Nothing", "Nothing=1", "Blog=maybe", "khz44=no", "UebersetzungVon=Klingonisch",
                            "Sortierreihenfolge=x", "NewNumberOfDays=-1", "LastReportTableUpdate=32.1.2026",
                            "SteuerzeichenFeld=ab"}) {
    const auto refused = cli({"settings", "D.cvb", "Autorname=changed", wrong});
    EXPECT_EQ(refused.code, 1) << wrong;
    EXPECT_FALSE(refused.err.empty()) << wrong;
  }
  EXPECT_EQ(cli({"settings", "D.cvb", "Autorname"}).out, "Autorname\tAnna Berg\n");
}

TEST(Settings, aNewSortOrderReachesTheFileWhenItCloses) {
  const CliFolder folder;
  makeDictionary();
  for (const char* word : {"Öl", "Zaun", "Ofen"}) cli({"entry", "add", "D.cvb", word});
  EXPECT_EQ(cli({"list", "D.cvb"}).out, "Anfang\t1\nOfen\t4\nÖl\t2\nZaun\t3\n");
  ASSERT_EQ(cli({"settings", "D.cvb", "Sortierreihenfolge=Schwedisch"}).code, 0);
  EXPECT_EQ(cli({"list", "D.cvb"}).out, "Anfang\t1\nOfen\t4\nZaun\t3\nÖl\t2\n");
}

}  // namespace
}  // namespace test
