// New, edit and delete through the browser, with the editor driven as its user would.

#include "browse/browser.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"

namespace {

enum Action { newSubEntry = 0, remove = 1, close = 2, edit = 3, newMainEntry = 4 };
constexpr int saveSubEntryAndClose = 0, saveSubEntry = 1, saveAndClose = 2;

class Commands : public BrowserTest {
 protected:
  /// What the user does in the editor next: types a headword and saves.
  void typeHeadword(const std::string& headword, int command) {
    t.script.inForm<entry::frmEintrag>("frmEintrag", [this, headword, command](entry::frmEintrag& editor) {
      ASSERT_TRUE(entry::Form_Activate(editor));
      entry::headwordChanged(editor, headword);
      ASSERT_TRUE(entry::Command1(editor, command)) << t.log();
    });
  }
  void leaveWithoutSaving() {
    t.script.inForm<entry::frmEintrag>("frmEintrag",
                                       [this](entry::frmEintrag&) { s.entry.CurrentBegriff.clear(); });
  }
};

TEST_F(Commands, NewEntriesStandAtTheEndAndSubEntriesBelowTheirs) {
  const auto house = addEntry("Haus");
  addEntry("Zaun");
  show();
  typeHeadword("Garten", saveAndClose);
  ASSERT_TRUE(act(newMainEntry)) << t.log();
  EXPECT_EQ(page(), "Haus|Zaun|Garten") << "the order comes with the next page";
  const auto garden = s.entry.SelectedEntryId;
  EXPECT_EQ(column("Begriff", garden), "Garten");
  EXPECT_EQ(s.entry.SelectedMainEntryId, garden);

  select(house);
  typeHeadword("Haustür", saveSubEntryAndClose);
  ASSERT_TRUE(act(newSubEntry)) << t.log();
  EXPECT_EQ(page(), "Haus|--- Haustür|Zaun|Garten");
  EXPECT_EQ(s.entry.SelectedMainEntryId, house);
  expectAligned();
  show();
  EXPECT_EQ(page(), "Garten|Haus   ->|Zaun");
}

TEST_F(Commands, AnEditedEntryIsSelectedWhereItNowStands) {
  const auto house = addEntry("Haus");
  addEntry("Garten");
  show();
  select(house);
  typeHeadword("Ahaus", saveAndClose);
  ASSERT_TRUE(act(edit)) << t.log();
  EXPECT_EQ(page(), "Ahaus|Garten");
  EXPECT_EQ(s.entry.SelectedEntryId, house);
  EXPECT_EQ(form.list.selected, 0);

  leaveWithoutSaving();
  ASSERT_TRUE(act(edit));
  EXPECT_EQ(page(), "Ahaus|Garten");
}

TEST_F(Commands, AnEditedEntryOfALaterPageStaysOnShow) {
  addNumbered(12);
  show("5");
  browse::searchBoxChanged(form, "e10");
  ASSERT_EQ(s.entry.SelectedEntryId, 10);
  typeHeadword("e10a", saveAndClose);
  ASSERT_TRUE(act(edit)) << t.log();
  EXPECT_EQ(s.entry.SelectedEntryId, 10);
  EXPECT_EQ(page(), "e10a|e11|e12");
}

TEST_F(Commands, AnEditedSubEntryStaysOpenBelowItsMainEntry) {
  const auto house = addEntry("Haus"), door = addSub(house, "Haustür");
  show();
  select(door);
  typeHeadword("Haustor", saveSubEntry);
  ASSERT_TRUE(act(edit)) << t.log();
  EXPECT_EQ(page(), "Haus   ++|--- Haustor");
  EXPECT_EQ(s.entry.SelectedEntryId, door);
}

TEST_F(Commands, DeletingRefusesTheLastEntryAndOpenedOnes) {
  const auto house = addEntry("Haus");
  show();
  ASSERT_TRUE(act(remove));
  EXPECT_TRUE(t.script.told(t.dialog(dialog::last_entry_before)));
  addSub(house, "Haustür");
  show();
  ASSERT_EQ(page(), "Haus   ++|--- Haustür");
  ASSERT_TRUE(act(remove));
  EXPECT_TRUE(t.script.told(t.dialog(dialog::has_sub_entries)));
  EXPECT_EQ(count("Woerterbuch"), 2);
}

TEST_F(Commands, DeletingTakesEntryReferencesAndMark) {
  const auto house = addEntry("Haus"), door = addSub(house, "Haustür");
  const auto other = addEntry("Tür");
  addRow("Querverweis", {{"ID_Woerterbuch", other}, {"ID_WoerterbuchQV", door}, {"Querverweis", "Haustür"}});
  addRow("Querverweis", {{"ID_Woerterbuch", other}, {"ID_WoerterbuchQV", house}, {"Querverweis", "Haus"}});
  int unloaded = 0;
  session::registerForm(s, "frmStatist", [&] { ++unloaded; });
  show();
  select(door);
  t.script.answer(platform::box::answerNo, "Haustür");
  ASSERT_TRUE(act(remove));
  EXPECT_EQ(count("Woerterbuch"), 3);
  EXPECT_EQ(unloaded, 1) << "other windows close before the question";

  t.script.answer(platform::box::answerYes, "Haustür");
  ASSERT_TRUE(act(remove)) << t.log();
  EXPECT_EQ(page(), "Haus|Tür");
  EXPECT_EQ(column("Unterbegriff", house), "0");
  EXPECT_EQ(rows("select Querverweis from Querverweis"), "Haus");
  EXPECT_EQ(form.list.selected, 0);
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(form.countLabel, t.label(label::entry_count) + " 2");
}

TEST_F(Commands, NothingSelectedChangesNothingAndClosingCloses) {
  addNumbered(2);
  show();
  form.list.selected = -1;
  EXPECT_TRUE(act(edit));
  EXPECT_TRUE(act(remove));
  EXPECT_EQ(count("Woerterbuch"), 2);
  EXPECT_TRUE(act(close));
  EXPECT_TRUE(form.closed);
}

TEST_F(Commands, ReleaseAnActiveFilterFirst) {
  addNumbered(2);
  bool active = true;
  s.filter.FilterIsActive = [&] { return active; };
  form.releaseFilter = [&] { active = false; };
  show();
  browse::searchBoxChanged(form, "e");
  browse::searchBoxChanged(form, "e0");
  EXPECT_FALSE(active);
  EXPECT_EQ(t.script.boxes.size(), 1U) << "told once";
  active = true;
  leaveWithoutSaving();
  ASSERT_TRUE(act(newMainEntry));
  EXPECT_FALSE(active);
}

}  // namespace
