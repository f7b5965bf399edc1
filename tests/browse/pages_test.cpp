// The paged list: how many rows a page holds, its marks, and jumps into it.

#include "browse/browser.h"
#include "catalogue/label.h"

namespace {

using Pages = BrowserTest;

TEST_F(Pages, HoldOneRowLessThanTheirSizeAndPageBothWays) {
  addNumbered(10);
  show("5");
  EXPECT_EQ(page(), "e01|e02|e03|e04");
  EXPECT_EQ(form.countLabel, t.label(label::entry_count) + " 10");
  EXPECT_FALSE(form.backEnabled);
  EXPECT_TRUE(form.forwardEnabled);
  EXPECT_EQ(form.list.selected, 0);
  browse::pageForward(form);
  EXPECT_EQ(page(), "e05|e06|e07|e08");
  EXPECT_TRUE(form.pageToolTip.ends_with("\n5 -8")) << form.pageToolTip;
  browse::pageForward(form);
  EXPECT_EQ(page(), "e09|e10");
  EXPECT_FALSE(form.forwardEnabled);
  browse::pageForward(form);
  EXPECT_EQ(page(), "e09|e10") << "there is no further page";
  expectAligned();
  browse::pageBack(form);
  EXPECT_EQ(page(), "e05|e06|e07|e08");
  EXPECT_TRUE(form.forwardEnabled);
  browse::pageBack(form);
  EXPECT_EQ(page(), "e01|e02|e03|e04");
  EXPECT_FALSE(form.backEnabled);
  browse::pageBack(form);
  EXPECT_EQ(form.PageNumber, 1);
}

TEST_F(Pages, EndExactlyWhereTheEntriesEnd) {
  addNumbered(4);
  show("5");
  EXPECT_EQ(page(), "e01|e02|e03|e04");
  EXPECT_FALSE(form.forwardEnabled);
}

TEST_F(Pages, AreCountedOffForMoreThanFiveHundred) {
  addNumbered(520);
  show("2");
  for (int n = 1; n < 515; ++n) browse::pageForward(form);
  EXPECT_EQ(page(), "e515");
  for (int n = 0; n < 12; ++n) browse::pageBack(form);
  EXPECT_EQ(page(), "e503");
  EXPECT_EQ(form.PageNumber, 503);
}

TEST_F(Pages, BeginWithTheRowThatTheSettingNames) {
  addNumbered(6);
  form.settings.listStart = "3";
  show("4");
  EXPECT_EQ(page(), "e03|e04|e05");
  for (const char* outside : {"6", "700", "0", ""}) {
    form.settings.listStart = outside;
    show("4");
    EXPECT_EQ(page(), "e01|e02|e03") << outside;
  }
}

TEST_F(Pages, TakeTheUsualSizeWhereTheSettingNamesNone) {
  addNumbered(60);
  for (const char* size : {"", "0"}) {
    show(size);
    EXPECT_EQ(form.list.size(), 49U) << size;
  }
}

TEST_F(Pages, ShowOnlyTheLettersChosen) {
  for (const char* headword : {"Apfel", "Ähre", "Birne", "ast"}) addEntry(headword);
  form.LetterSelection = {"A", "Ä", " ", " ", " ", " "};
  show();
  EXPECT_EQ(form.list.size(), 3U) << page();
  EXPECT_EQ(rowOf(3), -1);
  EXPECT_TRUE(form.caption.ends_with(" - A")) << form.caption;
  form.LetterSelection[0] = "X";
  form.LetterSelection[1] = " ";
  show();
  EXPECT_EQ(page(), "");
  browse::showAllLetters(form);
  EXPECT_EQ(form.list.size(), 4U);
}

TEST_F(Pages, OfAnEmptyDictionaryAreEmpty) {
  show();
  EXPECT_EQ(form.list.size(), 0U);
  EXPECT_FALSE(form.forwardEnabled);
  browse::pageForward(form);
  browse::pageBack(form);
  browse::searchBoxChanged(form, "");
  EXPECT_EQ(t.log(), "");
}

TEST_F(Pages, MarkSubEntriesAndEntriesInWork) {
  const auto house = addEntry("Haus"), garden = addEntry("Garten");
  const auto door = addSub(house, "Haustür");
  const auto knob = addSub(door, "Türknauf");
  db().Execute("update Woerterbuch set InBearbeitung = -1 where ID_Woerterbuch in (1, 2)");
  show();
  EXPECT_EQ(page(), "_IN PROCESS_ Garten|_IN PROCESS_ Haus   ->");
  select(house);
  EXPECT_EQ(page(), "_IN PROCESS_ Garten|_IN PROCESS_ Haus   ++|Haustür   ->");
  EXPECT_EQ(s.entry.SelectedEntryId, house);
  select(door);
  EXPECT_EQ(page(), "_IN PROCESS_ Garten|_IN PROCESS_ Haus   ++|Haustür   ++|--- Türknauf");
  select(knob);
  EXPECT_EQ(s.entry.SelectedEntryId, knob);
  EXPECT_EQ(s.entry.SelectedMainEntryId, door);
  select(house);
  EXPECT_EQ(form.list.size(), 4U) << "an opened entry is not opened again";
  expectAligned();
  EXPECT_EQ(rowOf(garden), 0);
}

TEST_F(Pages, AStaleMarkStaysUntilTheNextPageWhileItsFlagGoes) {
  const auto house = addEntry("Haus");
  db().Execute("update Woerterbuch set Unterbegriff = -1");
  show();
  EXPECT_EQ(page(), "Haus   ->");
  EXPECT_EQ(column("Unterbegriff", house), "0");
  show();
  EXPECT_EQ(page(), "Haus");
}

using Jumps = BrowserTest;

TEST_F(Jumps, GoToTheTypedHeadwordOnItsPage) {
  addNumbered(12);
  show("5");
  browse::searchBoxChanged(form, "e0");
  EXPECT_EQ(page(), "e01|e02|e03|e04") << "no headword reads so";
  browse::searchBoxChanged(form, "e03");
  EXPECT_EQ(form.list.selected, 2) << "it is on the page already";
  browse::searchBoxChanged(form, "E10");
  EXPECT_EQ(page(), "e10|e11|e12");
  EXPECT_EQ(s.entry.SelectedEntryId, 10);
  EXPECT_EQ(form.PageNumber, 2) << "the whole part of 10 / 4";
  EXPECT_TRUE(form.backEnabled);
  EXPECT_EQ(form.TargetPosition, 0) << "no jump is pending";
  browse::pageBack(form);
  EXPECT_EQ(page(), "e03|e04|e05|e06") << "a jump sets the beginning of the page that it counts itself to";
  expectAligned();
}

TEST_F(Jumps, ToASubEntryGoToItsMainEntry) {
  addNumbered(6);
  const auto main = addEntry("f"), sub = addSub(main, "zu f");
  show("4");
  browse::searchBoxChanged(form, "zu f");
  EXPECT_EQ(page(), "f   ++|--- zu f");
  EXPECT_EQ(s.entry.SelectedEntryId, main);
  show("4");
  s.entry.CurrentEntryId = sub;
  browse::SkipToEntry(form);
  EXPECT_EQ(s.entry.SelectedEntryId, main);
  EXPECT_EQ(s.entry.CurrentEntryId, main);
  EXPECT_EQ(page(), "f   ++|--- zu f");
}

TEST_F(Jumps, LeaveNoDeadBackButtonNearTheBeginning) {
  addNumbered(9);
  show("5");
  browse::pageForward(form);
  browse::searchBoxChanged(form, "e02");
  EXPECT_EQ(page(), "e02|e03|e04|e05");
  browse::pageForward(form);
  EXPECT_EQ(page(), "e06|e07|e08|e09");
  if (form.backEnabled) {
    browse::pageBack(form);
    EXPECT_NE(page(), "e06|e07|e08|e09");
  }
}

TEST_F(Jumps, OfferToMakeTheHeadwordThatIsMissing) {
  addEntry("Haus");
  show();
  form.Text3 = "Hof";
  s.entry.CurrentEntryId = 99;
  t.script.answer(platform::box::answerNo, "Hof");
  browse::SkipToEntry(form);
  EXPECT_EQ(count("Woerterbuch"), 1);

  t.script.answer(platform::box::answerYes, "Hof");
  t.script.inForm<entry::frmEintrag>("frmEintrag", [&](entry::frmEintrag&) {
    EXPECT_EQ(s.entry.CurrentBegriff, "Hof");
    EXPECT_EQ(s.entry.EntryEditMode, 1);
    EXPECT_EQ(s.entry.NewEntryLevel, 1);
    s.entry.CurrentBegriff.clear();
  });
  s.entry.CurrentEntryId = 99;
  browse::SkipToEntry(form);
  EXPECT_EQ(page(), "Haus");
}

}  // namespace
