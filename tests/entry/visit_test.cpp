// The life of an entry in the editor, from the stub to the saved row.

#include "entry/dictionary.h"

namespace {

using namespace entry;
using platform::box::answerCancel;
using platform::box::answerNo;
using platform::box::answerYes;

TEST_F(EntryTest, ANewEntryIsARowFromTheStartAndWholeAfterTheSave) {
  visit(1);
  const std::int64_t id = s.entry.CurrentEntryId;
  EXPECT_EQ(ofEntry("ID_Woerterbuch1, Ebene, Begriff", id), "NULL,1,NULL");
  EXPECT_EQ(form.headwordBox, "Neuer Eintrag");
  EXPECT_TRUE(form.buttons[1].enabled && form.buttons[2].enabled);
  EXPECT_FALSE(form.buttons[0].visible || form.buttons[3].visible || form.priorityShown);
  headwordChanged(form, "");
  EXPECT_FALSE(form.buttons[2].enabled);
  EXPECT_FALSE(Command1(form, 2));

  headwordChanged(form, "..Haus");
  EXPECT_TRUE(headwordEnter(form));
  EXPECT_EQ(form.focus, Focus::pronunciation);
  form.pronunciationBox = "haʊs";
  form.notesBox = "it's \"quoted\"";
  form.inProgressBox = true;
  addMeaningText("house");
  addMeaningText("building");
  ASSERT_TRUE(selectMeaning(form, 1));
  EXPECT_EQ(form.selectedMeaningLabel, "house");
  addExampleText("Das Haus ist's", "It's the house");
  ASSERT_TRUE(Command1(form, 2));

  EXPECT_FALSE(form.visible);
  EXPECT_EQ(ofEntry("ID_Woerterbuch1, Ebene, Begriff, PraefixBegriff, SortBegriff, Aussprache, Bemerkung, "
                    "InBearbeitung, "
                    "Unterbegriff",
                    id),
            std::to_string(id) + ",1,..Haus,..,Haus,haʊs,it's \"quoted\",-1,0");
  EXPECT_EQ(ofEntry("MetaSuche", id), "//building//house//Das Haus ist's//It's the house////..Haus");
  EXPECT_EQ(ofEntry("DatabaseName", id), s.files.CurrentDBPath);
  EXPECT_EQ(rows("select ID_Woerterbuch from NewHistory"), std::to_string(id));
  EXPECT_EQ(rows("select ID_Woerterbuch from WoerterbuchFlat"), std::to_string(id));
  EXPECT_EQ(rows("select Beispiele from WortbedeutungFlat"), "Das Haus ist's");
  EXPECT_EQ(s.entry.CurrentBegriff, "..Haus");
  EXPECT_FALSE(s.shell.failed);
}

TEST_F(EntryTest, ApostrophesStayDoubledInMemoryAndInTheSearchText) {
  const std::int64_t id = addMain("it's");
  EXPECT_EQ(ofEntry("Begriff, SortBegriff, MetaSuche", id), "it's,it's,////it''s");
  EXPECT_EQ(s.entry.CurrentBegriff, "it''s");
  EXPECT_EQ(form.record.Begriff, "it''s");
  // A leading apostrophe is ignorable here: two in memory, one in the row.
  EXPECT_EQ(ofEntry("PraefixBegriff, SortBegriff", addMain("'tis")), "',tis");
}

TEST_F(EntryTest, SavingAndGoingOnMakesTheNextStub) {
  visit(1);
  headwordChanged(form, "eins");
  s.entry.PresetBegriff = "zwei";
  ASSERT_TRUE(Command1(form, 1));
  EXPECT_TRUE(form.visible);
  EXPECT_EQ(form.headwordBox, "zwei");
  ASSERT_TRUE(Command1(form, 1));
  s.entry.PresetBegriff.clear();
  EXPECT_EQ(
      rows("select Begriff from Woerterbuch where ebene = 1 and not isnull(Begriff) order by ID_Woerterbuch"),
      "eins|zwei");
  script.answer(answerNo);
  ASSERT_TRUE(Command7(form));
  EXPECT_EQ(rows("select count(*) from Woerterbuch"), "2");
  EXPECT_TRUE(s.entry.CurrentBegriff.empty());
  EXPECT_TRUE(s.shell.pendingRefresh);
}

TEST_F(EntryTest, AnAbandonedStubGoesWithAllThatHangsOnIt) {
  visit(1);
  addMeaningText("lost");
  script.answer(answerYes);
  ASSERT_TRUE(Command7(form));
  EXPECT_TRUE(form.visible);
  script.answer(answerNo);
  ASSERT_TRUE(Command7(form));  // the only row of the dictionary stays
  EXPECT_TRUE(form.visible);
  EXPECT_TRUE(script.told(s.files.CurrentDBPath + " kann nicht"));
  headwordChanged(form, "bleibt");
  ASSERT_TRUE(Command1(form, 2));

  visit(1);
  addMeaningText("gone");
  script.answer(answerNo);
  ASSERT_TRUE(Command7(form));
  EXPECT_FALSE(form.visible);
  EXPECT_TRUE(s.entry.CurrentBegriff.empty());
  EXPECT_EQ(rows("select Begriff from Woerterbuch"), "bleibt");
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), "lost");
  visit(3, s.entry.SelectedEntryId = 1);
  ASSERT_TRUE(Command7(form));  // an existing entry closes without a question
  EXPECT_FALSE(form.visible);
}

TEST_F(EntryTest, AHeadwordThatExistsIsAskedAbout) {
  const std::int64_t first = addMain("Äpfel");
  visit(1);
  const std::int64_t stub = s.entry.CurrentEntryId;
  headwordChanged(form, " äpfel ");
  script.answer(answerCancel);
  ASSERT_TRUE(headwordEnter(form));
  EXPECT_EQ(form.focus, Focus::headword);
  script.answer(answerYes);
  ASSERT_TRUE(headwordEnter(form));
  EXPECT_EQ(form.focus, Focus::pronunciation);
  EXPECT_EQ(s.entry.CurrentEntryId, stub);
  headwordChanged(form, "Apfel");  // accents tell headwords apart
  ASSERT_TRUE(headwordEnter(form));
  headwordChanged(form, "Äpfel");
  script.answer(answerNo);
  ASSERT_TRUE(headwordEnter(form));
  EXPECT_EQ(s.entry.CurrentEntryId, first);
  EXPECT_EQ(s.entry.EntryEditMode, 3);
  EXPECT_TRUE(form.navigatorShown);
  EXPECT_EQ(rows("select ID_Woerterbuch from Woerterbuch"), std::to_string(first));
  form.notesBox = "changed";
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(ofEntry("Begriff, Bemerkung", first), "Äpfel,changed");
  EXPECT_EQ(s.entry.CurrentEntryId, first);
  EXPECT_EQ(rows("select ID_Woerterbuch from ChangeHistory"), std::to_string(first));
}

TEST_F(EntryTest, SubEntriesSortBelowTheirMainEntryByPriority) {
  const std::int64_t main = addMain("-Haus");
  visit(2, main);
  EXPECT_EQ(ofEntry("Ebene, ID_Woerterbuch1, Prioritaet", s.entry.CurrentEntryId), "0,NULL,1");
  EXPECT_TRUE(form.priorityShown && form.buttons[0].visible && form.buttons[3].visible &&
              !form.buttons[1].visible);
  headwordChanged(form, "-tür");
  form.inProgressBox = true;
  ASSERT_TRUE(Command1(form, 3));
  EXPECT_EQ(form.priorityBox, "2");
  headwordChanged(form, "boot");
  priorityChanged(form, "1x2");
  EXPECT_EQ(form.priorityBox, "12");
  ASSERT_TRUE(Command1(form, 0));
  EXPECT_EQ(
      rows("select Begriff, PraefixBegriff, SortBegriff, Ebene, Prioritaet, InBearbeitung from Woerterbuch "
           "where ID_Woerterbuch1 = " +
           std::to_string(main) + " order by SortBegriff"),
      "-Haus,-,Haus,1,1,0|boot,,Haus12boot,2,12,0|-tür,-,Haus1tür,2,1,0");
  EXPECT_EQ(ofEntry("Unterbegriff", main), "-1");

  visit(3, main);
  headwordChanged(form, "Hof");
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(rows("select SortBegriff from Woerterbuch order by SortBegriff"), "Hof|Hof12boot|Hof1tür");
  visit(2, main);
  EXPECT_EQ(form.NextPriority, 13);
  script.answer(answerNo);
  ASSERT_TRUE(Command7(form));
}

TEST_F(EntryTest, AnEditedSubEntryKeepsItsLevelWhateverCameBefore) {
  const std::int64_t main = addMain("Haus");
  const std::int64_t sub = addSub(main, "tür");
  addMain("other");
  visit(4, sub, main);
  EXPECT_TRUE(form.priorityShown);
  EXPECT_EQ(form.headwordBox, "tür");
  headwordChanged(form, "boot");
  form.inProgressBox = true;
  ASSERT_TRUE(Command1(form, 1));
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(ofEntry("Ebene, ID_Woerterbuch1, SortBegriff, InBearbeitung", sub),
            "2," + std::to_string(main) + ",Haus1boot,0");
  EXPECT_EQ(ofEntry("InBearbeitung", main), "-1");
}

TEST_F(EntryTest, TheNavigatorSavesWhatItLeaves) {
  const std::int64_t a = addMain("a"), b = addMain("b");
  addSub(a, "sub");
  visit(3, a);
  form.notesBox = "note";
  headwordChanged(form, "aa");
  ASSERT_TRUE(moveNavigator(form, Step::next));
  EXPECT_EQ(s.entry.CurrentEntryId, b);
  EXPECT_EQ(form.headwordBox, "b");
  EXPECT_EQ(form.notesBox, "");
  EXPECT_EQ(ofEntry("Begriff, SortBegriff, Bemerkung", a), "aa,aa,note");
  EXPECT_EQ(rows("select SortBegriff from Woerterbuch where ebene = 2"), "aa1sub");
  ASSERT_TRUE(moveNavigator(form, Step::next));  // the last one stays
  EXPECT_EQ(s.entry.CurrentEntryId, b);
  ASSERT_TRUE(moveNavigator(form, Step::first));
  EXPECT_EQ(s.entry.CurrentEntryId, a);
  ASSERT_TRUE(Command7(form));
}

TEST_F(EntryTest, AFailingStepIsReportedAndTheOthersRun) {
  // Nothing but ignorable characters: the key would be empty, the rest is saved.
  visit(1);
  headwordChanged(form, "--");
  EXPECT_FALSE(Command1(form, 2));
  EXPECT_TRUE(s.shell.failed);
  EXPECT_FALSE(form.visible);
  EXPECT_EQ(ofEntry("Begriff, SortBegriff, MetaSuche", s.entry.CurrentEntryId), "--,NULL,////--");
  EXPECT_NE(test::TempDir::read(dir.path() / "Vocarium_Error_Log.TXT").find(",3315"), std::string::npos);

  // The main entry's key goes into the statement as it is, so its apostrophe breaks it.
  const std::int64_t main = addMain("rock'n");
  visit(2, main);
  headwordChanged(form, "roll");
  EXPECT_FALSE(Command1(form, 0));
  EXPECT_EQ(ofEntry("Begriff, Ebene, SortBegriff", s.entry.CurrentEntryId), "roll,2,NULL");
  EXPECT_EQ(ofEntry("Unterbegriff", main), "-1");
}

TEST_F(EntryTest, NothingTypedIsLostWhenTheRowCanNotBeWritten) {
  visit(1);
  headwordChanged(form, std::string(251, 'x'));
  EXPECT_FALSE(Command1(form, 2));
  EXPECT_TRUE(form.visible);
  EXPECT_TRUE(script.told("250"));
  headwordChanged(form, "kurz");
  form.pronunciationBox = std::string(251, 'x');
  EXPECT_FALSE(Command1(form, 2));
  EXPECT_TRUE(form.visible);
  EXPECT_EQ(ofEntry("ID_Woerterbuch1, Begriff", s.entry.CurrentEntryId), "NULL,NULL");
  form.pronunciationBox = "it's";
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(ofEntry("Begriff, Aussprache", s.entry.CurrentEntryId), "kurz,it's");

  const std::int64_t main = s.entry.CurrentEntryId;
  visit(2, main);
  headwordChanged(form, "sub");
  priorityChanged(form, "300");
  EXPECT_FALSE(Command1(form, 0));
  EXPECT_EQ(ofEntry("Begriff, Prioritaet", s.entry.CurrentEntryId), "sub,1");
}

TEST_F(EntryTest, TheHistoryPushesOutItsOldestRow) {
  const std::int64_t id = addMain("a");
  for (int i = 0; i < 1000; ++i)
    insert("insert into NewHistory (ID_Woerterbuch) values (" + std::to_string(id) + ")");
  EXPECT_EQ(rows("select count(*), min(ID_NewHistory) from NewHistory"), "1001,1");
  addMain("b");
  EXPECT_EQ(rows("select count(*), min(ID_NewHistory) from NewHistory"), "1001,2");
  visit(3, id);
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(rows("select count(*) from ChangeHistory"), "1");
}

TEST_F(EntryTest, EntriesSurviveReopening) {
  const std::int64_t id = addMain("Haus");
  Form_Unload(form);
  db().Close();
  s.files.Workspace.reset();
  s.files.Workspace =
      std::make_unique<engine::Workspace>(engine::Login{"work", "owner", "secret", "", false});
  s.files.CurrentDB = s.files.Workspace->OpenDatabase(dir / "Wörter.cvb");
  EXPECT_EQ(ofEntry("Begriff, SortBegriff, MetaSuche", id), "Haus,Haus,////Haus");
}

class LinkCollectionTest : public EntryTest {
 protected:
  void SetUp() override { open(2); }
};

TEST_F(LinkCollectionTest, LinksFeedTheSearchTextAndPronunciationRests) {
  insert("update Sprache set Blog = -1");
  visit(1);
  EXPECT_EQ(form.headwordBox, base::formatDate(base::DateTime::now(), "yyyy"));
  EXPECT_EQ(form.tabRows, 4);
  EXPECT_FALSE(form.pronunciationShown || form.tabVisible[static_cast<std::size_t>(Tab::meanings)]);
  EXPECT_TRUE(form.captionLabels[0].empty());
  const std::int64_t id = s.entry.CurrentEntryId;
  insert("insert into URL (ID_Woerterbuch, URLName, URL) values (" + std::to_string(id) +
         ", 'Name', 'http://x')");
  form.pronunciationBox = "not stored";
  headwordChanged(form, "Seite");
  ASSERT_TRUE(headwordEnter(form));
  EXPECT_EQ(form.tab, Tab::links);
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(ofEntry("Aussprache, MetaSuche", id), "NULL,//Name//http://x//////Seite");
}

}  // namespace
