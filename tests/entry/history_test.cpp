// The lists of recent work, and deletion by date.

#include "entry/dictionary.h"
#include "entry/frmDeleteEntries.h"
#include "entry/frmHistory.h"

namespace {

using namespace entry;
using base::DateTime;
using platform::box::answerNo;
using platform::box::answerYes;

class HistoryTest : public EntryTest {
 protected:
  /// Puts dates of creation and change that lie so many days back.
  void age(std::int64_t id, int createdBefore, int changedBefore) {
    const std::string where = " where ID_Woerterbuch = " + std::to_string(id);
    const DateTime now = DateTime::now();
    insert("update Woerterbuch set DateTimeStamp = '" + now.plusDays(-createdBefore).stamp() +
           "', DateTimeStampLastChange = '" + now.plusDays(-changedBefore).stamp() + "'" + where);
    insert("update ChangeHistory set DateLastChange = '" + now.plusDays(-changedBefore).stamp() + "'" +
           where);
  }
  void change(std::int64_t id) {
    visit(3, id);
    ASSERT_TRUE(Command1(form, 2));
  }
  static std::string shown(frmHistory& history) {
    std::string all;
    for (; !history.Adodc1.EndOfFile(); history.Adodc1.MoveNext())
      all += (all.empty() ? "" : "|") + history.Adodc1["Begriff"].textOrEmpty();
    return all;
  }
};

TEST_F(HistoryTest, ListsByAgeWhatIsStillThere) {
  std::vector<std::int64_t> ids;
  for (const char* headword : {"heute", "Woche", "Monat", "Jahr", "alt"}) ids.push_back(addMain(headword));
  const std::vector<int> ages = {0, 10, 40, 200, 400};
  for (std::size_t i = 0; i < ids.size(); ++i) {
    change(ids[i]);
    age(ids[i], ages[i], 400 - ages[i]);
  }
  frmHistory created(s, true), changed(s, false);
  ASSERT_TRUE(Form_Load(created) && Form_Load(changed));
  EXPECT_EQ(created.caption, "Neue Einträge");
  EXPECT_EQ(shown(created), "heute|Woche|Monat|Jahr|alt");
  EXPECT_EQ(shown(changed), "alt|Jahr|Monat|Woche|heute");
  const std::vector<std::string> expected = {"heute|Woche|Monat|Jahr|alt",
                                             "heute",
                                             "heute|Woche",
                                             "heute|Woche",
                                             "heute|Woche|Monat",
                                             "heute|Woche|Monat",
                                             "heute|Woche|Monat|Jahr"};
  ASSERT_EQ(created.Combo1.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_TRUE(Combo1_Click(created, created.Combo1[i]));
    EXPECT_EQ(shown(created), expected[i]) << created.Combo1[i];
  }
  ASSERT_TRUE(Combo1_Click(changed, changed.Combo1[6]));
  EXPECT_EQ(shown(changed), "alt|Jahr|Monat") << "370 days and more are left out";

  insert("delete * from Woerterbuch where Begriff = 'Woche'");
  ASSERT_TRUE(Form_Load(created));
  ASSERT_TRUE(selectRow(created, 1));
  EXPECT_TRUE(Command1(created));
  EXPECT_EQ(s.entry.CurrentEntryId, ids[2]);
  ASSERT_TRUE(Command4(created));
  EXPECT_EQ(shown(created), "");
  EXPECT_FALSE(Command1(created)) << "nothing is selected any more";
  EXPECT_EQ(rows("select count(*) from NewHistory"), "0");
  EXPECT_EQ(rows("select count(*) from ChangeHistory"), "4") << "the other history stays";
}

TEST_F(HistoryTest, DeletesTheEntriesOfARangeWithItsEnds) {
  std::vector<std::int64_t> ids;
  for (int day = 1; day <= 6; ++day) ids.push_back(addMain("Tag " + std::to_string(day)));
  for (int day = 1; day <= 6; ++day) {
    insert("update Woerterbuch set DateTimeStamp = '0" + std::to_string(day) +
           ".12.2001 12:00:00', DateTimeStampLastChange = '0" + std::to_string(7 - day) +
           ".12.2001 12:00:00' where ID_Woerterbuch = " +
           std::to_string(ids[static_cast<std::size_t>(day - 1)]));
  }
  insert("insert into Wortbedeutung (ID_Woerterbuch, Wortbedeutung) values (" + std::to_string(ids[1]) +
         ", \"goes\")");
  frmDeleteEntries dialog(s);
  Form_Load(dialog);
  EXPECT_EQ(dialog.from, dialog.to);
  dialog.from = DateTime::of(2001, 12, 2, 12);
  dialog.to = DateTime::of(2001, 12, 3, 12);
  ASSERT_TRUE(Command4(dialog));
  EXPECT_EQ(dialog.DataGrid1.RecordCount(), 2);
  script.answer(answerNo);
  EXPECT_FALSE(Command1(dialog));
  EXPECT_EQ(rows("select count(*) from Woerterbuch"), "6");
  script.answer(answerYes);
  EXPECT_TRUE(Command1(dialog));
  EXPECT_TRUE(script.told("Gelöschte Einträge: 2 im gewählten Zeitraum"));
  EXPECT_EQ(rows("select Begriff from Woerterbuch order by ID_Woerterbuch"), "Tag 1|Tag 4|Tag 5|Tag 6");
  EXPECT_EQ(rows("select count(*) from Wortbedeutung"), "0");

  std::swap(dialog.from, dialog.to);
  script.answer(answerYes);
  EXPECT_TRUE(Command1(dialog));
  EXPECT_EQ(dialog.deleted, 0) << "from after to is nobody's date";
  dialog.byLastChange = true;
  dialog.from = dialog.to = DateTime::of(2001, 12, 1, 12);
  script.answer(answerYes);
  EXPECT_TRUE(Command1(dialog));
  EXPECT_EQ(rows("select Begriff from Woerterbuch order by ID_Woerterbuch"), "Tag 1|Tag 4|Tag 5");
}

TEST_F(HistoryTest, AMalformedStampDeletesNothing) {
  addMain("gut");
  const auto bad = addMain("schlecht");
  insert("update Woerterbuch set DateTimeStampLastChange = 'gestern' where ID_Woerterbuch = " +
         std::to_string(bad));
  frmDeleteEntries dialog(s);
  dialog.from = DateTime::of(2000, 1, 1);
  dialog.to = DateTime::of(2100, 1, 1);
  dialog.byLastChange = true;
  script.answer(answerYes);
  EXPECT_FALSE(Command1(dialog));
  EXPECT_TRUE(s.shell.failed);
  EXPECT_EQ(rows("select count(*) from Woerterbuch"), "2");
}

}  // namespace
