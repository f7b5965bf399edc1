// Ten rows of fast entry.

#include "entry/dictionary.h"
#include "entry/frmFastEntry.h"

namespace {

using namespace entry;

class FastEntryTest : public EntryTest {
 protected:
  frmFastEntry fast{s};
};

TEST_F(FastEntryTest, TenRowsBecomeTenWholeEntries) {
  insert("insert into WArtikel (Artikel) values (\"das\")");
  ASSERT_TRUE(Form_Load(fast));
  EXPECT_EQ(fast.columnHeads[1].substr(0, 3), "2. ");
  for (std::size_t i = 0; i < fastRows; ++i) fast.TextBox1[i] = " Wort " + std::to_string(i) + " ";
  fast.TextBox1[0] = "das Haus";
  fast.TextBox1[1] = "-.Ende";
  fast.TextBox2[0] = "house";
  fast.TextBox4[0] = "building";
  ASSERT_TRUE(Command3(fast));
  EXPECT_EQ(fast.stored, 10);
  EXPECT_EQ(fast.statusLabel, "Neu angelegte Einträge: 10");
  EXPECT_EQ(rows("select Begriff, PraefixBegriff, SortBegriff, MetaSuche from Woerterbuch where "
                 "ID_Woerterbuch <= 3 order by ID_Woerterbuch"),
            "das Haus,,Haus,//house//building////das Haus|-.Ende,-.,Ende,////-.Ende|"
            "Wort 2,,Wort 2,////Wort 2");
  EXPECT_EQ(rows("select count(*) from Woerterbuch where ID_Woerterbuch1 = ID_Woerterbuch and Ebene = 1 and "
                 "Prioritaet = 1 and not Unterbegriff and DatabaseName = '" +
                 s.files.CurrentDBPath + "' and not isnull(DateTimeStamp)"),
            "10");
  EXPECT_EQ(
      rows("select Wortbedeutung from Wortbedeutung where ID_Woerterbuch = 1 order by ID_Wortbedeutung"),
      "house|building");
  EXPECT_EQ(rows("select count(*) from NewHistory"), "0");
  EXPECT_EQ(fast.TextBox1[9] + fast.TextBox2[0] + fast.TextBox4[0], "");
  EXPECT_TRUE(s.shell.pendingRefresh);
}

TEST_F(FastEntryTest, WhatIsNotStoredStaysInItsBoxes) {
  addMain("da");
  ASSERT_TRUE(Form_Load(fast));
  fast.Check1 = true;
  fast.TextBox1 = {"DA", "", "neu", std::string(251, 'x'), "a \" b"};
  fast.TextBox2 = {"here", "without headword", "new", "long", "quoted"};
  EXPECT_FALSE(Command3(fast));
  EXPECT_TRUE(s.shell.failed);
  EXPECT_EQ(fast.stored, 1);
  EXPECT_EQ(fast.TextBox1[0] + "," + fast.TextBox1[2] + "," + fast.TextBox1[4], "DA,,a \" b");
  EXPECT_EQ(fast.TextBox2[1] + "," + fast.TextBox2[2] + "," + fast.TextBox2[3], "without headword,,long");
  EXPECT_EQ(rows("select Begriff from Woerterbuch"), "da|neu");
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), "new");
  fast.Check1 = false;
  fast.TextBox1 = {"da"};
  EXPECT_TRUE(Command3(fast));
  EXPECT_EQ(rows("select count(*) from Woerterbuch where Begriff = 'da'"), "2");
}

TEST_F(FastEntryTest, AQuoteStopsItsOwnStatementAlone) {
  ASSERT_TRUE(Form_Load(fast));
  fast.TextBox1 = {"l'eau", "Zitat", "gut"};
  fast.TextBox2 = {"", "it's", "a \" b"};
  fast.TextBox3 = {"", "", "good"};
  EXPECT_FALSE(Command3(fast));
  EXPECT_EQ(fast.stored, 3);
  EXPECT_EQ(rows("select Begriff, SortBegriff, MetaSuche from Woerterbuch order by ID_Woerterbuch"),
            "l'eau,NULL,NULL|Zitat,Zitat,NULL|gut,gut,//a \" b//good////gut");
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung order by ID_Wortbedeutung"), "it's|good");
  EXPECT_EQ(fast.TextBox2[2], "a \" b") << "the meaning that was refused is not lost";
}

TEST_F(FastEntryTest, KeysMoveThroughTheBoxes) {
  ASSERT_TRUE(Form_Load(fast));
  TextBox_KeyDown(fast, FastKey::up);
  for (int i = 0; i < 4; ++i) TextBox_KeyDown(fast, FastKey::enter);
  EXPECT_EQ(fast.focusRow, 1u);
  EXPECT_EQ(fast.focusColumn, 0u);
  for (int i = 0; i < 20; ++i) TextBox_KeyDown(fast, FastKey::down);
  for (int i = 0; i < 9; ++i) TextBox_KeyDown(fast, FastKey::enter);
  EXPECT_EQ(fast.focusRow, 9u);
  EXPECT_EQ(fast.focusColumn, 3u);
}

}  // namespace
