// The look-up of a marked word, and the outline of a dictionary.

#include <gtest/gtest.h>

#include "browse/browser.h"
#include "browse/commands.h"
#include "browse/frmSearchSelectedWord.h"
#include "browse/frmTreeView.h"

namespace {

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += text + "|";
  return all;
}

class Lookup : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    dialog.pressCommand6 = [this] { browse::Command6(form); };
  }
  std::int64_t add(const std::string& headword, const std::string& note, const std::string& searchText) {
    const auto id = addEntry(headword);
    auto row = db().OpenRecordset("select * from Woerterbuch where ID_Woerterbuch = " + std::to_string(id));
    row.Edit();
    if (!note.empty()) row.set("Bemerkung", note);
    row.set("MetaSuche", searchText);
    row.Update();
    return id;
  }
  void look(const std::string& word) {
    s.search.SelectedWord = word;
    ASSERT_TRUE(browse::Form_Load(dialog)) << t.log();
  }
  browse::frmSearchSelectedWord dialog{s};
};

TEST_F(Lookup, ListsMatchesInThreeWays) {
  add("Hof", "beim Haus", "////Hof");
  add("Hausboot", "", "//houseboat////Hausboot");
  add("Wort", "haus", "////Wort");
  add("Haus", "", "////Haus");
  add("Villa", "", "//großes Haus////Villa");
  look("  haus ");
  EXPECT_EQ(dialog.Label1, "haus");
  EXPECT_EQ(joined(dialog.lists[0].List2), "Haus|Hausboot|Hof|Villa|Wort|");
  EXPECT_EQ(joined(dialog.lists[1].List2), "Haus|Wort|") << "a whole note counts";
  EXPECT_EQ(joined(dialog.lists[2].List2), "Haus|Hausboot|Hof|Wort|");
  for (const auto& caption : dialog.listCaptions) EXPECT_TRUE(caption.ends_with(":"));
  look("h*f");
  EXPECT_EQ(joined(dialog.lists[1].List2), "Hof|") << "wildcards work";
  look("haus; hof");
  EXPECT_EQ(dialog.lists[0].size(), 0U);
  look("gibtesnicht");
  EXPECT_EQ(dialog.lists[0].size() + dialog.lists[1].size() + dialog.lists[2].size(), 0U);
}

TEST_F(Lookup, AnApostropheIsReportedAndLeavesTheListsEmpty) {
  add("l'eau", "", "////l'eau");
  s.search.SelectedWord = "l'eau";
  EXPECT_FALSE(browse::Form_Load(dialog));
  EXPECT_NE(t.log(), "");
  EXPECT_EQ(dialog.lists[0].size(), 0U);
}

TEST_F(Lookup, JumpsToTheSelectedEntry) {
  const auto house = add("Haus", "", "////Haus");
  add("Hof", "", "////Hof");
  const auto door = addSub(house, "Haustür");
  show();
  look("haus");
  ASSERT_TRUE(browse::jump(dialog));
  EXPECT_TRUE(dialog.visible) << "nothing is selected";
  ASSERT_TRUE(browse::selectRow(dialog, 2, 1));
  EXPECT_EQ(dialog.Label1, "Haustür (" + s.files.CurrentDBPath + ")");
  EXPECT_EQ(browse::gridField(dialog.hierarchy.main, 0, "begriff"), "Haus");
  EXPECT_EQ(browse::gridRows(dialog.hierarchy.subEntries), 0);
  ASSERT_TRUE(browse::selectRow(dialog, 1, 0));
  EXPECT_EQ(browse::gridField(dialog.hierarchy.subEntries, 0, "begriff"), "Haustür");
  s.entry.EntryEditMode = 3;
  ASSERT_TRUE(browse::jump(dialog));
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(s.entry.EntryEditMode, 0);
  EXPECT_EQ(s.entry.SelectedEntryId, house);
  EXPECT_NE(rowOf(door), -1);
}

class Tree : public BrowserTest {
 protected:
  std::int64_t property(const std::string& name) { return addRow("WKategorie", {{"Kategorie", name}}); }
  void assign(std::int64_t entry, std::int64_t item) {
    addRow("relWoertWKat", {{"ID_Woerterbuch", entry}, {"ID_WKategorie", item}});
  }
  void refer(std::int64_t from, std::int64_t to, const std::string& text) {
    addRow("Querverweis", {{"ID_Woerterbuch", from}, {"ID_WoerterbuchQV", to}, {"Querverweis", text}});
  }
  std::unique_ptr<browse::frmTreeView> build(int kind) {
    s.shell.ViewKind = kind;
    auto tree = std::make_unique<browse::frmTreeView>(s);
    tree->pressCommand6 = [this] { browse::Command6(form); };
    EXPECT_TRUE(browse::BuildTree(*tree)) << t.log();
    return tree;
  }
};

TEST_F(Tree, OpensItsLinesToTheirEntries) {
  const auto house = addEntry("Haus"), yard = addEntry("Hof"), apple = addEntry("Apfel");
  const auto plural = property("Plural"), rare = property("selten");
  property("unbenutzt");
  assign(house, plural);
  assign(apple, plural);
  assign(yard, rare);
  show();
  const auto tree = build(0);
  EXPECT_EQ(joined(tree->lines), "Plural ->|selten ->|");
  browse::selectLine(*tree, 0);
  EXPECT_FALSE(tree->jumpEnabled) << "a property is no entry";
  ASSERT_TRUE(browse::expandLine(*tree, 1));
  ASSERT_TRUE(browse::expandLine(*tree, 0));
  ASSERT_TRUE(browse::expandLine(*tree, 0));
  EXPECT_EQ(joined(tree->lines), "Plural ->|Apfel|Haus|selten ->|Hof|");
  EXPECT_EQ(tree->keys, (std::vector<std::int64_t>{plural, apple, house, rare, yard}));
  EXPECT_EQ(tree->indents, (std::vector<int>{0, 1, 1, 0, 1}));
  EXPECT_FALSE(browse::canExpand(*tree, 1));
  browse::selectLine(*tree, 2);
  ASSERT_TRUE(browse::jump(*tree)) << t.log();
  EXPECT_EQ(s.entry.SelectedEntryId, house);
  EXPECT_EQ(s.entry.EntryEditMode, 3);
  ASSERT_TRUE(browse::BuildTree(*tree));
  EXPECT_EQ(joined(tree->lines), "Plural ->|selten ->|");
  EXPECT_EQ(tree->selected, -1);
}

TEST_F(Tree, ShowsSubjectsAndCrossReferences) {
  const auto house = addEntry("Haus"), yard = addEntry("Hof"), sub = addSub(yard, "Hofhund");
  const auto building = addRow("WSachgebiet", {{"Sachgebiet", "Architektur"}});
  addRow("relWoertSachgebiet", {{"ID_Woerterbuch", yard}, {"ID_WSachgebiet", building}});
  refer(house, yard, "der Hof");
  refer(house, sub, "auch Hofhund");
  show();
  const auto subjects = build(1);
  ASSERT_TRUE(browse::expandLine(*subjects, 0));
  EXPECT_EQ(joined(subjects->lines), "Architektur ->|Hof|");
  const auto references = build(2);
  EXPECT_EQ(joined(references->lines), "Haus   ->|") << "once, however many references it has";
  browse::selectLine(*references, 0);
  EXPECT_TRUE(references->jumpEnabled);
  ASSERT_TRUE(browse::expandLine(*references, 0));
  EXPECT_EQ(joined(references->lines), "Haus   ->|auch Hofhund|der Hof|");
  browse::selectLine(*references, 1);
  ASSERT_TRUE(browse::jump(*references));
  EXPECT_EQ(s.entry.SelectedEntryId, yard) << "the main entry of the sub-entry referred to";
  EXPECT_EQ(s.entry.EntryEditMode, 4);
  EXPECT_EQ(s.entry.NewEntryLevel, 2);
}

TEST_F(Tree, OfAnEmptyDictionaryIsEmpty) {
  for (int kind = 0; kind < 3; ++kind) EXPECT_TRUE(build(kind)->lines.empty());
  EXPECT_EQ(t.log(), "");
}

TEST_F(Tree, TellsEqualNamesOfTwoFilesApart) {
  const std::string first = s.files.CurrentDBPath, second = t.home / "Zweites.cvb";
  assign(addEntry("Haus"), property("Plural"));
  store::CloseCurrentDB(s);
  create("Zweites.cvb");
  addEntry("Erster");
  assign(addEntry("Boot"), property("Plural"));
  refer(1, 2, "ein Boot");
  store::CloseCurrentDB(s);
  open(first);
  ASSERT_TRUE(store::addDictionary(s, second, false));
  show();
  const auto tree = build(0);
  ASSERT_EQ(tree->lines.size(), 2U);
  const std::string secondPath = base::upper(second);
  for (std::size_t line = 0; line < 2; ++line)
    EXPECT_EQ(tree->lines[line], "Plural (" + tree->databases[line] + ")   ->");
  const int other = tree->databases[0] == secondPath ? 0 : 1;
  ASSERT_TRUE(browse::expandLine(*tree, other));
  EXPECT_EQ(tree->lines[static_cast<std::size_t>(other) + 1], "Boot");
  browse::selectLine(*tree, other + 1);
  ASSERT_TRUE(browse::jump(*tree)) << t.log();
  EXPECT_EQ(s.files.CurrentDBPath, secondPath);
  EXPECT_EQ(form.display.aggregate.entry.Begriff, "Boot");
  const auto references = build(2);
  ASSERT_TRUE(browse::expandLine(*references, 0));
  EXPECT_EQ(joined(references->lines), "Erster   ->|ein Boot --- " + secondPath + "|");
}

}  // namespace
