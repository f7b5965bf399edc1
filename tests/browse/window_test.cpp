// What the controls of the browser's window do, and when they do nothing.

#include <gtest/gtest.h>

#include "browse/browser.h"
#include "browse/commands.h"
#include "entry/frmRelink.h"
#include "store/letters.h"

namespace {

class Window : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    store::GenerateBuchstabenFilter(db());
    apple = addEntry("Apfel");
    house = addEntry("Haus");
    yard = addEntry("Hof");
    show();
  }
  std::int64_t apple = 0, house = 0, yard = 0;
};

TEST_F(Window, LetterButtonsKeepTheListToTheirEntries) {
  ASSERT_EQ(form.letters.size(), 26U);
  const std::size_t h = 'H' - 'A';
  ASSERT_TRUE(browse::letterButton(form, h));
  EXPECT_EQ(page(), "Haus|Hof");
  EXPECT_EQ(s.filter.FilterBuchstabe[0], "H");
  EXPECT_EQ(s.filter.FilterBuchstabe[5], " ");
  browse::BuchstabenZuweisung(form, 'N' - 'A');
  EXPECT_EQ(s.filter.FilterBuchstabe[1], "Ñ");
  ASSERT_TRUE(browse::allLettersButton(form));
  EXPECT_EQ(page(), "Apfel|Haus|Hof");
  EXPECT_TRUE(s.filter.AlleBuchstaben);
  act(5);
  EXPECT_EQ(page(), "Apfel") << "the first letter as an action of the browser";
  ASSERT_TRUE(browse::Text3_Change(form, "Hof"));
  EXPECT_EQ(s.entry.SelectedEntryId, yard) << "typing drops the letter";
}

TEST_F(Window, AJumpFromADialogDropsTheLetter) {
  ASSERT_TRUE(browse::letterButton(form, 0));
  s.entry.CurrentEntryId = yard;
  ASSERT_TRUE(browse::Command6(form));
  EXPECT_EQ(s.entry.SelectedEntryId, yard);
  EXPECT_EQ(form.display.aggregate.entry.Begriff, "Hof");
}

TEST_F(Window, CommandsActOnTheSelectedEntry) {
  ASSERT_TRUE(browse::List2_Click(form, rowOf(house)));
  t.script.inForm<entry::frmEintrag>("frmEintrag", [&](entry::frmEintrag&) {
    EXPECT_EQ(s.entry.EntryEditMode, 3);
    EXPECT_EQ(s.entry.CurrentEntryId, house);
    EXPECT_TRUE(browse::mnuDeleteEntry(form)) << "inert while the editor is open";
    s.entry.CurrentBegriff.clear();
  });
  EXPECT_TRUE(browse::mnuEditEntry(form));
  EXPECT_EQ(count("Woerterbuch"), 3);

  s.search.SearchTerm = "x";
  t.script.inForm<entry::frmEintrag>("frmEintrag", [&](entry::frmEintrag&) {
    EXPECT_EQ(s.entry.EntryEditMode, 1);
    EXPECT_EQ(s.entry.NewEntryLevel, 1);
    s.entry.CurrentBegriff.clear();
  });
  EXPECT_TRUE(browse::mnuNewEntry(form));
  EXPECT_EQ(s.search.SearchTerm, "");
  t.script.inForm<entry::frmEintrag>("frmEintrag", [&](entry::frmEintrag&) {
    EXPECT_EQ(s.entry.EntryEditMode, 2);
    s.entry.CurrentBegriff.clear();
  });
  EXPECT_TRUE(browse::mnuNewSubEntry(form));

  ASSERT_TRUE(browse::List2_Click(form, rowOf(yard)));
  t.script.answer(platform::box::answerYes, "Hof");
  EXPECT_TRUE(browse::mnuDeleteEntry(form));
  EXPECT_EQ(page(), "Apfel|Haus");
}

TEST_F(Window, RelinkingShowsTheEntryInItsNewPlace) {
  ASSERT_TRUE(browse::List2_Click(form, rowOf(yard)));
  t.script.inForm<entry::frmRelink>("frmRelink", [&](entry::frmRelink& dialog) {
    ASSERT_TRUE(entry::Form_Load(dialog));
    ASSERT_TRUE(entry::selectTarget(dialog, house));
    ASSERT_TRUE(entry::Command1(dialog));
    entry::Form_Unload(dialog);
  });
  EXPECT_TRUE(browse::mnuRelinkEntry(form));
  EXPECT_EQ(page(), "Apfel|Haus   ++|--- Hof");
  expectAligned();
}

TEST_F(Window, FindsAHeadwordWithQuotes) {
  const auto quoted = addEntry("der \"Hof\"");
  show();
  for (const char* typed : {"der \"", "der \"Hof\""})
    ASSERT_TRUE(browse::Text3_Change(form, typed)) << t.log();
  EXPECT_EQ(s.entry.SelectedEntryId, quoted);
}

TEST_F(Window, PagesThroughTheList) {
  for (int n = 0; n < 5; ++n) addEntry("x" + std::to_string(n));
  show("4");
  ASSERT_TRUE(browse::Command1(form, 1));
  EXPECT_EQ(page(), "x0|x1|x2");
  ASSERT_TRUE(browse::Command1(form, 0));
  EXPECT_EQ(page(), "Apfel|Haus|Hof");
}

TEST_F(Window, AnEntryThatCanNotBeShownIsReportedAndTheListGoesOn) {
  std::filesystem::create_directories(s.folders.AppConfigPath + "/CurrentEntry.HTM/taken");
  std::filesystem::remove(t.home / "CurrentEntry.HTM");
  std::filesystem::create_directories(t.home / "CurrentEntry.HTM/taken");
  ASSERT_TRUE(browse::List2_Click(form, rowOf(house)));
  EXPECT_EQ(t.script.boxes.size(), 1U);
  EXPECT_NE(t.log(), "");
  EXPECT_EQ(s.entry.SelectedEntryId, house);
  EXPECT_EQ(form.display.page, "");
}

}  // namespace
