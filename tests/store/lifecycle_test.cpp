#include <fstream>

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "store/checks.h"
#include "store/dictionary.h"
#include "store/project.h"
#include "store/reference.h"

namespace {

namespace fs = std::filesystem;

class Lifecycle : public StoreTest {};

std::string bytes(const std::string& path) {
  return test::TempDir::read(path);
}

TEST_F(Lifecycle, AClosedDictionaryReopensAsItWas) {
  const std::string path = create("Wörter.cvb");
  EXPECT_EQ(rows("select Version, DBPath from Info"), "202301," + base::upper(path));
  const std::int64_t id = addEntry("Häuser");
  store::CloseCurrentDB(s);
  EXPECT_EQ(s.files.CurrentDBPath, "");
  EXPECT_FALSE(s.files.DBOpen);
  EXPECT_FALSE(fs::exists(path + ".compact"));

  open(base::upper(path));
  EXPECT_EQ(rows("select ID_Woerterbuch, Begriff from Woerterbuch"), std::to_string(id) + ",Häuser");
  EXPECT_EQ(s.files.DictFolder, "/" + base::upper(t.home / "Wörter"));
  EXPECT_TRUE(fs::is_directory(t.home / "Wörter"));
  EXPECT_EQ(s.files.OpenDBCount, 1);
  EXPECT_TRUE(s.shell.dictionaryMenus);
  EXPECT_NE(t.script.captions.back().find(base::upper(path)), std::string::npos);
}

TEST_F(Lifecycle, OnlyAChangedFileIsCompacted) {
  const std::string path = create("a.cvb");
  for (int i = 0; i < 500; ++i) addEntry("Eintrag " + std::to_string(i));
  db().Execute("delete * from Woerterbuch where ID_Woerterbuch > 3");
  store::CloseCurrentDB(s);
  const auto size = fs::file_size(path);
  const std::string before = bytes(path);
  open(path);
  store::CloseCurrentDB(s);
  EXPECT_TRUE(bytes(path) == before) << "nothing to compact";
  open(path);
  EXPECT_EQ(count("Woerterbuch"), 3);
  db().Execute("update Sprache set Sortierreihenfolge = '" + t.label(label::sort_swedish) + "'");
  store::CloseCurrentDB(s);
  EXPECT_EQ(engine::Database(s.files.Workspace->OpenDatabase(path)).locale(), store::defaultLocale)
      << "the order is read at the opening";
  open(path);
  EXPECT_EQ(s.files.CurrentLocale, ";LANGID=0x041D;CP=1252;COUNTRY=0");
  store::CloseCurrentDB(s);
  open(path);
  EXPECT_EQ(db().locale(), ";LANGID=0x041D;CP=1252;COUNTRY=0");
  EXPECT_LT(size, 2U << 20);
}

TEST_F(Lifecycle, OfSeveralFilesEachThatChangedIsCompactedInItsOwnOrder) {
  const std::string names[] = {"erste.cvb", "zweite.cvb", "dritte.cvb"};
  std::vector<std::string> paths;
  for (const std::string& name : names) {
    paths.push_back(createClosed(name));
    open(paths.back());
    db().Execute("update Sprache set Sortierreihenfolge = '" +
                 t.label(name == "zweite.cvb" ? label::sort_danish : label::sort_general) + "'");
    store::LoadProjectSettings(s);
    store::CloseCurrentDB(s);
  }
  open(paths[0]);
  ASSERT_TRUE(store::addDictionary(s, paths[1], false));
  ASSERT_TRUE(store::addDictionary(s, paths[2], true));
  addEntry("Anker");
  addEntry(s.files.ExtraDB[0], "Aal");
  const std::string danish = s.files.ExtraDB[0].locale();
  ASSERT_NE(danish, db().locale());
  std::swap(s.files.CurrentDB, s.files.ExtraDB[0]);  // as a row of the second file does that is selected
  const std::string untouched = test::TempDir::read(paths[2]);
  store::CloseCurrentDB(s);
  const auto mayBeCompacted = [&](std::size_t n, const std::string& locale) {
    return engine::needsCompaction(*s.files.Workspace, paths[n], locale);
  };
  EXPECT_FALSE(mayBeCompacted(0, store::defaultLocale));
  EXPECT_FALSE(mayBeCompacted(1, danish));
  EXPECT_EQ(test::TempDir::read(paths[2]), untouched);
  open(paths[1]);
  EXPECT_EQ(rows("select begriff from Woerterbuch"), "Aal");
}

TEST_F(Lifecycle, AMovedFileAsksUntilItIsConfirmed) {
  const std::string old = create("alt.cvb");
  addEntry("Wort");
  addRow("Wortbedeutung", {{"ID_Woerterbuch", 1}, {"DatabaseName", base::upper(old)}});
  store::CloseCurrentDB(s);
  fs::create_directory(t.home / "O'Neil");
  const std::string path = t.home / "O'Neil/neu.cvb";
  fs::rename(old, path);

  t.script.answer(platform::box::answerNo, t.dialog(dialog::file_was_moved));
  open(path);
  EXPECT_EQ(rows("select DatabaseName from Woerterbuch"), base::upper(old));
  store::CloseCurrentDB(s);
  t.script.answer(platform::box::answerYes, t.dialog(dialog::file_was_moved));
  open(path);
  store::CloseCurrentDB(s);
  open(path);
  EXPECT_EQ(rows("select DatabaseName from Woerterbuch"), base::upper(path));
  EXPECT_EQ(rows("select DatabaseName from Wortbedeutung"), base::upper(path));
  EXPECT_EQ(rows("select DBPath from Info"), base::upper(path));
}

TEST_F(Lifecycle, DamagedRowsAreGoneAndMainEntriesMended) {
  const std::string path = create("a.cvb");
  const std::int64_t good = addEntry("gut"), wrong = addEntry("falsch"), stub = addEntry("Stummel", 0);
  db().Execute("update woerterbuch set ID_Woerterbuch1 = " + std::to_string(good) +
               ", unterbegriff = -1 where id_woerterbuch = " + std::to_string(wrong));
  addRow("Woerterbuch", {{"DateTimeStamp", base::DateTime::now()}, {"SortBegriff", "x"}, {"MetaSuche", "x"}});
  addRow("Wortbedeutung", {{"Wortbedeutung", "ohne Eintrag"}});
  addRow("Wortbedeutung", {{"ID_Woerterbuch", good}, {"Wortbedeutung", "bleibt"}});
  addRow("FilterSelektion1", {{"ID_Woerterbuch", good}});
  store::CloseCurrentDB(s);
  open(path);
  EXPECT_EQ(rows("select Begriff, ID_Woerterbuch1, Ebene, Unterbegriff from Woerterbuch where Begriff is not "
                 "null order by ID_Woerterbuch"),
            "gut,1,1,0|falsch,2,1,0");
  EXPECT_EQ(rows("select Wortbedeutung from Wortbedeutung"), "bleibt");
  EXPECT_EQ(count("FilterSelektion1"), 0);
  EXPECT_TRUE(t.script.told("falsch" + t.dialog(dialog::wrongly_linked)));
  EXPECT_TRUE(t.script.told("Stummel") == false) << stub;
  EXPECT_FALSE(t.script.told(t.dialog(dialog::sort_terms_missing)));

  db().Execute("update woerterbuch set sortbegriff = null, metasuche = null where id_woerterbuch = 1");
  store::CloseCurrentDB(s);
  open(path);
  EXPECT_TRUE(t.script.told(t.dialog(dialog::sort_terms_missing)));
  EXPECT_TRUE(t.script.told(t.dialog(dialog::search_text_missing)));
  EXPECT_EQ(rows("select SortBegriff from Woerterbuch where id_woerterbuch = 1"), "NULL");
}

TEST_F(Lifecycle, AReadOnlyOpeningChangesNoByte) {
  const std::string path = create("a.cvb");
  addEntry("Stummel", 0);
  store::CloseCurrentDB(s);
  const std::string moved = t.home / "b.cvb";
  fs::rename(path, moved);
  const std::string before = bytes(moved);
  open(moved, true);
  EXPECT_TRUE(s.files.ReadOnlyMode);
  EXPECT_EQ(count("Woerterbuch"), 1);
  EXPECT_EQ(errorOf([&] { addEntry("neu"); }), 3027);
  store::CloseCurrentDB(s);
  EXPECT_TRUE(bytes(moved) == before);
  EXPECT_FALSE(s.files.ReadOnlyMode);
}

TEST_F(Lifecycle, VersionsAreAcceptedUpgradedOrRefused) {
  EXPECT_TRUE(store::isCurrentVersion("202301"));
  EXPECT_TRUE(store::isCurrentVersion("2011"));
  EXPECT_FALSE(store::isCurrentVersion("2012rV17"));
  const std::string path = create("a.cvb");
  const auto stamp = [&](const std::string& version) {
    db().Execute("update Info set Version = '" + version + "'");
    store::CloseCurrentDB(s);
  };
  stamp("202401");
  EXPECT_FALSE(store::openDictionary(s, path, false));
  EXPECT_EQ(s.files.OpenDBCount, 0);
  EXPECT_EQ(s.files.CurrentDBPath, "");
  EXPECT_FALSE(s.files.DBOpen);
  EXPECT_TRUE(t.script.told(t.dialog(dialog::made_by_later_version)));

  s.files.CurrentDB = s.files.Workspace->OpenDatabase(path);
  for (const char* table : {"Kodierungen", "Umgebung", "FilterSelektion1", "WArtikel", "WZeit"})
    db().Execute("drop table [" + std::string(table) + "];");
  s.files.CurrentDBPath = base::upper(path);
  stamp("2012rV17");
  const std::string before = bytes(path);
  t.script.answer(platform::box::answerNo, t.dialog(dialog::convert_now));
  EXPECT_FALSE(store::openDictionary(s, path, false));
  EXPECT_TRUE(bytes(path) == before);
  t.script.answer(platform::box::answerYes, t.dialog(dialog::convert_now));
  open(path);
  EXPECT_EQ(rows("select Version from Info"), "202301");
  EXPECT_GT(count("WZeit"), 25000);
  EXPECT_GT(count("Kodierungen"), 5);
  EXPECT_EQ(rows("select SchriftBemerkung from Sprache"), "Arial Unicode MS");
}

TEST_F(Lifecycle, WhatIsNoDictionaryLeavesTheSessionClosed) {
  const std::string foreign =
      t.home.write("fremd.cvb", "This is no dictionary, although it is long enough to be one.");
  for (const std::string& path : {foreign, t.home / "fehlt.cvb"}) {
    EXPECT_NE(errorOf([&] { store::openDictionary(s, path, false); }), 0) << path;
    EXPECT_EQ(s.files.CurrentDBPath, "");
    EXPECT_EQ(s.files.OpenDBCount, 0);
    EXPECT_FALSE(s.files.DBOpen);
    EXPECT_FALSE(fs::exists(path.substr(0, path.size() - 4))) << "no media folder for what is none";
  }
  createClosed("Gleich.cvb");
  fs::copy_file(t.home / "Gleich.cvb", t.home / "gleich.cvb");
  TestSession fresh;
  EXPECT_EQ(errorOf([&] { store::openDictionary(fresh.session, base::upper(t.home / "Gleich.cvb"), false); }),
            3044);
}

TEST_F(Lifecycle, AFailedCreationLeavesNoFile) {
  fs::create_directory(t.home / "zu");
  EXPECT_NE(errorOf([&] { store::NewLocalDB(s, t.home / "fehlt/a.cvb"); }), 0);
  EXPECT_FALSE(s.files.DBOpen);
  EXPECT_EQ(s.files.CurrentDBPath, "");
  const std::string path = createClosed("a.cvb");
  const std::string before = bytes(path);
  EXPECT_EQ(errorOf([&] { store::NewLocalDB(s, path); }), 3204);
  EXPECT_TRUE(bytes(path) == before) << "a file that was there is not touched";
}

TEST_F(Lifecycle, LeftoversOfImportsAreDropped) {
  create("a.cvb");
  db().Execute("select * into WoerterTemp from Woerterbuch");
  db().Execute("select * into RelWoertWKatTemp from relWoertWKat");
  db().CreateQueryDef("Wortbedtemp1", "select * from Woerterbuch");
  db().CreateQueryDef("Temp1", "select * from Woerterbuch");
  const std::size_t tables = db().tableNames().size(), queries = db().queryNames().size();
  store::DropTempTables(db());
  EXPECT_EQ(db().tableNames().size(), tables - 2);
  EXPECT_EQ(db().queryNames().size(), queries - 1);
  EXPECT_EQ(errorOf([&] { db().queryDef("Temp1"); }), 0);
}

TEST(FileNames, BlanksAreReplacedInTheNameAlone) {
  EXPECT_EQ(store::ReplaceBlanks("/my home/a b c.CVB"), "/my home/a_b_c.CVB");
  EXPECT_EQ(store::ReplaceBlanks("C:\\my home\\a b"), "C:\\my home\\a_b");
  EXPECT_EQ(store::ReplaceBlanks("a b"), "a_b");
  EXPECT_EQ(store::withExtension("/a.b/c"), "/a.b/c.CVB");
  EXPECT_EQ(store::withExtension("/a/c.x"), "/a/c.x");
}

}  // namespace
