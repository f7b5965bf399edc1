// Saving the filtered entries as a dictionary of its own.

#include "browse/browser.h"
#include "browse/frmFilter.h"
#include "catalogue/dialog.h"

namespace {

using browse::Criterion;
namespace fs = std::filesystem;

class FilterSave : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    browse::attachFilter(filter);
    const std::int64_t a = addEntry("Abend"), b = addEntry("Berg"), c = addEntry("Chor");
    addSub(a, "Abendrot");
    addSub(b, "Bergwerk");
    note(a, "kept");
    note(c, "kept too");
    for (const std::int64_t entry : {a, b, c})
      addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", "m" + std::to_string(entry)}});
    t.home.write("Wörter/bild.png", "a picture");
  }
  void note(std::int64_t id, const std::string& text) {
    db().Execute("update Woerterbuch set Bemerkung = '" + text +
                 "' where ID_Woerterbuch = " + std::to_string(id));
  }
  void filterNotes() {
    browse::Form_Activate(filter);
    browse::tick(filter, Criterion::hasNote, true);
    ASSERT_TRUE(browse::confirmFilter(filter));
    browse::refreshAfterFilter(filter, form);
  }
  std::string headwords() { return rows("select Begriff from Woerterbuch order by Begriff"); }

  browse::frmFilter filter{s};
};

TEST_F(FilterSave, TheCopyHoldsTheSelectionWithItsSubEntriesAndMedia) {
  filterNotes();
  const std::string before = page();
  t.script.chooseFile(t.home / "teil");
  t.script.answer(platform::box::answerYes, t.dialog(dialog::save_filtered));
  ASSERT_TRUE(browse::saveFiltered(form));
  EXPECT_EQ(t.script.boxes.back().text, t.dialog(dialog::filtered_saved));
  EXPECT_EQ(t.home.read(t.home / "teil/bild.png"), "a picture");
  EXPECT_EQ(headwords(), "Abend|Abendrot|Berg|Bergwerk|Chor") << "the open one stays whole";
  EXPECT_EQ(page(), before);
  EXPECT_EQ(count("FilterSettings"), 0);

  const std::string path = t.home / "teil.CVB";
  EXPECT_TRUE(engine::checkDatabase(*s.files.Workspace, path).empty());
  EXPECT_FALSE(fs::exists(path + ".whole"));
  store::CloseCurrentDB(s);
  t.script.answer(platform::box::answerYes);  // it was moved
  open(path);
  EXPECT_EQ(headwords(), "Abend|Abendrot|Chor");
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), "m1|m3");
  EXPECT_EQ(count("FilterSettings"), 0);
}

TEST_F(FilterSave, NothingIsLostByARefusal) {
  filterNotes();
  const std::string old = t.home.write("alt.cvb", "an old file");
  t.script.chooseFile(old);
  t.script.answer(platform::box::answerNo);
  EXPECT_FALSE(browse::saveFiltered(form));
  EXPECT_EQ(t.home.read(old), "an old file");

  t.script.chooseFile(t.home / "WÖRTER.CVB");
  EXPECT_EQ(errorOf([&] { browse::saveFiltered(form); }), 3204) << "it is the open dictionary";
  fs::create_symlink(t.home / "Wörter.cvb", t.home / "link.cvb");
  t.script.chooseFile(t.home / "link.cvb");
  EXPECT_EQ(errorOf([&] { browse::saveFiltered(form); }), 3204);
  t.script.cancelFile();
  EXPECT_EQ(errorOf([&] { browse::saveFiltered(form); }), 32755);
  EXPECT_EQ(headwords(), "Abend|Abendrot|Berg|Bergwerk|Chor");
}

TEST_F(FilterSave, AReadOnlyDictionaryCanBeSavedFrom) {
  const std::string path = s.files.CurrentDB.Name();
  store::CloseCurrentDB(s);
  open(path, true);
  show();
  t.script.chooseFile(t.home / "alles.cvb");
  t.script.answer(platform::box::answerYes);
  ASSERT_TRUE(browse::saveFiltered(form));
  store::CloseCurrentDB(s);
  t.script.answer(platform::box::answerYes);
  open(t.home / "alles.cvb");
  EXPECT_EQ(headwords(), "Abend|Abendrot|Berg|Bergwerk|Chor");
}

}  // namespace
