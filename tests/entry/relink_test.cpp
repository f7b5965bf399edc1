// Moving entries between the two levels.

#include "entry/dictionary.h"
#include "entry/frmRelink.h"
#include "entry/frmServices.h"

namespace {

using namespace entry;

class RelinkTest : public EntryTest {
 protected:
  bool below(std::int64_t id, std::int64_t target) {
    s.entry.SelectedEntryId = id;
    EXPECT_TRUE(Form_Load(relink));
    EXPECT_TRUE(selectTarget(relink, target));
    return Command1(relink);
  }
  bool toMain(std::int64_t id) {
    s.entry.SelectedEntryId = id;
    return Command3(relink);
  }
  std::string levels(std::int64_t id) {
    return ofEntry("ID_Woerterbuch1, Ebene, Unterbegriff, Prioritaet, SortBegriff", id);
  }
  std::string number(std::int64_t id) { return std::to_string(id); }

  frmRelink relink{s};
};

TEST_F(RelinkTest, AnEntryGoesBelowAnotherAndBackAndTheFlagsFollow) {
  const auto house = addMain("-Haus"), tree = addMain("Baum"), door = addMain("-Tür");
  ASSERT_TRUE(below(door, house));
  EXPECT_EQ(levels(door), number(house) + ",2,0,1,Haus 1Tür");
  EXPECT_EQ(levels(house), number(house) + ",1,-1,1,Haus");
  EXPECT_TRUE(script.told("untergeordnet"));
  ASSERT_TRUE(below(door, tree));
  EXPECT_EQ(levels(house), number(house) + ",1,0,1,Haus") << "it lost its only sub-entry";
  EXPECT_EQ(levels(door), number(tree) + ",2,0,1,Baum 1Tür");
  const auto branch = addSub(tree, "Ast");
  ASSERT_TRUE(toMain(door));
  EXPECT_EQ(levels(door), number(door) + ",1,0,1,Tür");
  EXPECT_EQ(ofEntry("Unterbegriff", tree), "-1") << "a second sub-entry is left";
  ASSERT_TRUE(toMain(branch));
  EXPECT_EQ(ofEntry("Unterbegriff", tree), "0");
  EXPECT_FALSE(s.shell.failed);
}

TEST_F(RelinkTest, RefusalsChangeNothing) {
  const auto house = addMain("Haus"), tree = addMain("Baum");
  const auto door = addSub(house, "Tür");
  const std::string before = rows("select * from Woerterbuch order by ID_Woerterbuch");
  EXPECT_FALSE(below(house, tree));
  EXPECT_TRUE(script.told("hat selbst Untereinträge"));
  EXPECT_FALSE(toMain(tree));
  EXPECT_TRUE(script.told("bereits ein Haupteintrag"));
  EXPECT_FALSE(below(tree, tree)) << "an entry can not stand below itself";
  EXPECT_TRUE(script.told("wählen Sie einen Haupteintrag"));
  ASSERT_TRUE(Form_Load(relink));
  EXPECT_FALSE(Command1(relink)) << "nothing is selected";
  EXPECT_FALSE(selectTarget(relink, door)) << "a sub-entry is no target";
  EXPECT_EQ(rows("select * from Woerterbuch order by ID_Woerterbuch"), before);
  EXPECT_FALSE(s.shell.failed);
  s.entry.SelectedEntryId = 999;
  EXPECT_FALSE(Command3(relink));
  EXPECT_TRUE(s.shell.failed);
}

TEST_F(RelinkTest, TwoSubEntriesMayShareAPriorityAndTheRebuildMakesTheUsualKey) {
  const auto house = addMain("Haus"), roof = addMain("Dach");
  addSub(house, "Tür");
  ASSERT_TRUE(below(roof, house));
  EXPECT_EQ(rows("select Prioritaet from Woerterbuch where Ebene = 2"), "1|1");
  ASSERT_TRUE(below(roof, house)) << "to where it is already";
  EXPECT_EQ(ofEntry("Unterbegriff", house), "-1");
  script.answer(platform::box::answerYes);
  script.answer(platform::box::answerYes);
  frmServices services(s);
  ASSERT_TRUE(GenerateSortBegriff(services));
  EXPECT_EQ(ofEntry("SortBegriff", roof), "Haus1Dach");
}

TEST_F(RelinkTest, TheListOfTargetsIsNarrowedByItsBox) {
  const auto house = addMain("Haus");
  addMain("Hund");
  addMain("Baum");
  addMain("\"Zitat\"");
  addSub(house, "Haustür");
  const auto shown = [&](const std::string& typed) {
    EXPECT_TRUE(Text1_Change(relink, typed));
    std::string all;
    for (; !relink.Adodc1.EndOfFile(); relink.Adodc1.MoveNext()) {
      all += (all.empty() ? "" : "|") + relink.Adodc1["BEGRIFF"].textOrEmpty();
    }
    return all;
  };
  EXPECT_EQ(shown("h"), "Haus|Hund");
  EXPECT_EQ(shown("hau"), "Haus");
  EXPECT_EQ(shown("x"), "");
  EXPECT_FALSE(selectTarget(relink, house));
  EXPECT_EQ(shown("\""), "\"Zitat\"");
  EXPECT_EQ(shown("h_u"), "Haus");
  EXPECT_TRUE(selectTarget(relink, house));
  Form_Unload(relink);
  EXPECT_TRUE(s.shell.pendingRefresh);
}

}  // namespace
