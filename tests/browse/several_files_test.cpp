// A session of five files of different sort orders, used as if they were one.

#include <map>
#include <set>

#include "browse/browser.h"
#include "browse/frmFilter.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "store/rewriter.h"

namespace {

namespace fs = std::filesystem;

class SeveralFiles : public BrowserTest {
 protected:
  void SetUp() override { browse::attachFilter(filter); }
  void TearDown() override { form.rsWoerter.Close(); }

  /// A closed dictionary in a sort order, holding these headwords and a property "gut" at the first of them.
  std::string made(const std::string& name, int sortOrder, const std::vector<std::string>& headwords) {
    const std::string path = create(name);
    db().Execute("update Sprache set Sortierreihenfolge = '" + t.label(sortOrder) + "'");
    const std::int64_t property = addRow("WKategorie", {{"Kategorie", std::string("gut")}});
    for (std::size_t n = 0; n < headwords.size(); ++n) {
      const std::int64_t id = addEntry(headwords[n]);
      db().Execute("update Woerterbuch set DatabaseName = '" + base::upper(path) + "'");
      if (n == 0) addRow("relWoertWKat", {{"ID_Woerterbuch", id}, {"ID_WKategorie", property}});
      all.emplace(headwords[n], base::upper(path));
    }
    s.files.CurrentLocale = *store::localeOfSortOrder(s, t.label(sortOrder));
    store::CloseCurrentDB(s);
    paths.push_back(path);
    return path;
  }
  void makeFive() {
    made("Allgemein.cvb", label::sort_general, {"Anker", "gleich", "Zebra"});
    made("dansk.cvb", label::sort_danish, {"Ähre", "Aal", "gleich"});
    made("español.cvb", label::sort_spanish, {"llama", "lzz", "gleich"});
    made("türk.cvb", label::sort_turkish, {"ırmak", "istek"});
    made("svensk.cvb", label::sort_swedish, {"Öl", "gleich"});
  }
  /// Opens them, the one at `first` first.
  void openFive(std::size_t first = 0) {
    open(paths[first]);
    for (std::size_t n = 0; n < paths.size(); ++n)
      if (n != first) {
        ASSERT_TRUE(store::addDictionary(s, paths[n], false)) << paths[n];
      }
    ASSERT_EQ(s.files.OpenDBCount, 5);
    browse::ResetFilterDialog(filter);
    show();
  }
  std::string order() const {
    std::string text;
    for (const std::string& each : form.list.List2) text += (text.empty() ? "" : " ") + each;
    return text;
  }
  /// What the list holds, as headword and file.
  std::multimap<std::string, std::string> listed() const {
    std::multimap<std::string, std::string> rows;
    for (std::size_t n = 0; n < form.list.size(); ++n) rows.emplace(form.list.List2[n], form.list.List4[n]);
    return rows;
  }
  static std::multiset<std::pair<std::string, std::string>> asSet(
      const std::multimap<std::string, std::string>& rows) {
    return {rows.begin(), rows.end()};
  }

  /// Rows that are equal in all fields, whichever file they come from, stand once.
  void expectEqualRowsOnce() {
    auto texts = db().OpenRecordset(store::BuildMultiSQL(
        s, "Select begriff from woerterbuch order by begriff;", session::View::frmSearch));
    std::multiset<std::string> found, expected;
    for (; !texts.EndOfFile(); texts.MoveNext()) found.insert(texts["begriff"].asText());
    for (const auto& [headword, file] : all)
      if (expected.count(headword) == 0) expected.insert(headword);
    EXPECT_EQ(found, expected);
  }

  browse::frmFilter filter{s};
  std::vector<std::string> paths;
  std::multimap<std::string, std::string> all;
};

TEST_F(SeveralFiles, OneOrderRulesTheWholeList) {
  makeFive();
  openFive();
  expectEqualRowsOnce();
  EXPECT_EQ(asSet(listed()), asSet(all));
  EXPECT_EQ(order(), "Aal Ähre Anker gleich gleich gleich gleich istek ırmak llama lzz Öl Zebra");
  EXPECT_NE(form.countLabel.find(std::to_string(all.size())), std::string::npos) << form.countLabel;
  store::CloseCurrentDB(s);
  openFive(1);
  EXPECT_EQ(asSet(listed()), asSet(all));
  EXPECT_EQ(order().substr(0, 5), "Anker");
  EXPECT_EQ(base::right(order(), 17), "Zebra Ähre Öl Aal") << "the first file's order: aa stands for å";
}

TEST_F(SeveralFiles, ARowLeadsToItsOwnFileAndClosingReleasesAll) {
  makeFive();
  openFive();
  std::set<std::string> used;
  for (std::size_t n = 0; n < form.list.size(); ++n) {
    browse::selectRow(form, static_cast<int>(n));
    EXPECT_EQ(base::upper(db().Name()), form.list.List4[n]);
    EXPECT_EQ(s.files.CurrentDBPath, form.list.List4[n]);
    EXPECT_EQ(s.files.DictFolder, "/" + base::withoutExtension4(form.list.List4[n]));
    EXPECT_EQ(column("Begriff", form.list.List1[n]), form.list.List2[n]);
    used.insert(db().Name());
  }
  EXPECT_EQ(used.size(), 5U);
  const auto before = asSet(listed());
  browse::FormInit(form);
  EXPECT_EQ(asSet(listed()), before) << "whichever is current, each file is in the list once";

  form.rsWoerter.Close();
  store::CloseCurrentDB(s);
  EXPECT_EQ(s.files.OpenDBCount, 0);
  EXPECT_TRUE(s.files.dictionaryList.empty());
  EXPECT_FALSE(db().isOpen());
  for (const engine::Database& file : s.files.ExtraDB) EXPECT_FALSE(file.isOpen());
  for (const std::string& path : s.files.MultiPaths) EXPECT_TRUE(path.empty());
  for (const std::string& path : paths) {
    EXPECT_FALSE(fs::exists(path + "-wal")) << path;
    EXPECT_NO_THROW(s.files.Workspace->OpenDatabase(path, true)) << path;
    EXPECT_TRUE(engine::checkDatabase(*s.files.Workspace, path).empty());
  }
}

TEST_F(SeveralFiles, AFilterHoldsWhicheverFileIsCurrent) {
  makeFive();
  openFive();
  browse::Form_Activate(filter);
  EXPECT_FALSE(filter.letterEnabled);
  EXPECT_FALSE(filter.contentEnabled);
  ASSERT_EQ(filter.properties.size(), 1U);
  filter.properties[0].selected = true;
  ASSERT_TRUE(browse::confirmFilter(filter));
  // The number of the first entry of each file is the same: each has one.
  std::multimap<std::string, std::string> expected;
  for (const char* headword : {"Anker", "Ähre", "llama", "ırmak", "Öl"}) expected.insert(*all.find(headword));
  for (int n = 0; n < 5; ++n) {
    browse::refreshAfterFilter(filter, form);
    EXPECT_EQ(asSet(listed()), asSet(expected)) << db().Name();
    browse::selectRow(form, n);
  }
  browse::resetFilter(filter);
  browse::refreshAfterFilter(filter, form);
  EXPECT_EQ(asSet(listed()), asSet(all));
  for (const std::string& path : paths)
    EXPECT_TRUE(s.files.Workspace->OpenDatabase(path).OpenRecordset("FilterSelektion1").EndOfFile());
}

TEST_F(SeveralFiles, WhatDoesNotBelongIsRefusedAndNothingChanges) {
  makeFive();
  const std::string sixth = made("sechs.cvb", label::sort_general, {"sechs"});
  const std::string links = createClosed("links.cvb", 2);
  paths.pop_back();
  open(paths[0]);
  const auto refused = [&](const std::string& path, int message, int icon) {
    const auto list = s.files.dictionaryList;
    const std::string current = db().Name(), shown = s.files.CurrentDBPath;
    EXPECT_FALSE(store::addDictionary(s, path, false));
    EXPECT_EQ(t.script.boxes.back().text, t.dialog(message));
    EXPECT_EQ(t.script.boxes.back().flags, icon);
    EXPECT_EQ(s.files.dictionaryList, list);
    EXPECT_EQ(s.files.OpenDBCount, static_cast<int>(list.size()));
    EXPECT_EQ(db().Name(), current);
    EXPECT_EQ(s.files.CurrentDBPath, shown);
  };
  refused(links, dialog::session_is_dictionary, platform::box::information);
  refused(t.home / "ALLGEMEIN.cvb", dialog::already_open, platform::box::exclamation);
  for (std::size_t n = 1; n < 5; ++n) ASSERT_TRUE(store::addDictionary(s, paths[n], false));
  refused(paths[3], dialog::session_full, platform::box::information);
  refused(sixth, dialog::session_full, platform::box::information);
  // A file that can not be read is no refusal, but leaves the session as it is too.
  store::CloseCurrentDB(s);
  open(links);
  refused(paths[0], dialog::session_is_link_collection, platform::box::information);
  EXPECT_EQ(errorOf([&] { store::addDictionary(s, t.home.write("foreign.cvb", "text"), false); }), 3343);
  EXPECT_EQ(errorOf([&] { store::addDictionary(s, t.home / "missing.cvb", false); }), 53);
  EXPECT_EQ(s.files.OpenDBCount, 1);
}

TEST_F(SeveralFiles, AFileAddedForReadingIsReadAndNotWritten) {
  makeFive();
  const std::string bytes = t.home.read(paths[1]);
  open(paths[0]);
  ASSERT_TRUE(store::addDictionary(s, paths[1], true));
  show();
  EXPECT_EQ(order(), "Aal Ähre Anker gleich gleich Zebra");
  // The row on show made its file the current one: files are told by their names here.
  auto& first = db().Name() == paths[0] ? db() : s.files.ExtraDB[0];
  auto& added = db().Name() == paths[0] ? s.files.ExtraDB[0] : db();
  EXPECT_EQ(errorOf([&] { addEntry(added, "neu"); }), 3027);
  addEntry(first, "neu");
  form.rsWoerter.Close();
  store::CloseCurrentDB(s);
  EXPECT_EQ(t.home.read(paths[1]), bytes);
  open(paths[0]);
  EXPECT_EQ(rows("select Begriff from Woerterbuch order by Begriff"), "Anker|gleich|neu|Zebra");
}

}  // namespace
