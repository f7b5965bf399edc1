// The dictionary search: what it finds in each scope, who owns the hits, and the jump.

#include <gtest/gtest.h>

#include "browse/browser.h"
#include "browse/commands.h"
#include "browse/frmSearch.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"

namespace {

using browse::Match;
using browse::SearchMode;

/// What an entry is made of, kept beside the file so that plain loops can tell what must be found.
struct Made {
  std::int64_t id = 0;
  std::string headword, note, meaning, example, translation;
};

bool matches(const std::string& text, const std::string& sought, Match match) {
  const std::size_t at = base::inStrIgnoreCase(text, sought);
  if (match == Match::exact) return base::equalsIgnoreCase(text, sought);
  return match == Match::contains ? at > 0 : at == 1;
}

class Search : public BrowserTest {
 protected:
  void SetUp() override {
    BrowserTest::SetUp();
    make();
    dialog.pressCommand6 = [this] { browse::Command6(form); };
  }
  virtual void make() {
    add({0, "Haus", "steht am Hang", "house", "Das Haus ist alt.", "The house is old."});
    add({0, "Hausboot", "", "house-boat", "Es schwimmt.", "It swims."});
    add({0, "Boot", "HAUS auf dem Wasser", "boat", "", ""});
    add({0, "Öl", "", "oil", "Öl ist teuer.", "oil"});
    add({0, "50% Rabatt", "", "house", "", ""});
  }
  void add(Made entry) {
    entry.id = addEntry(entry.headword);
    auto row =
        db().OpenRecordset("select * from Woerterbuch where ID_Woerterbuch = " + std::to_string(entry.id));
    row.Edit();
    if (!entry.note.empty()) row.set("Bemerkung", entry.note);
    row.set("MetaSuche", metasuche(entry));
    row.Update();
    const auto meaning =
        addRow("Wortbedeutung", {{"ID_Woerterbuch", entry.id}, {"Wortbedeutung", entry.meaning}});
    if (!entry.example.empty())
      addRow("WortBedBsp", {{"ID_Wortbedeutung", meaning},
                            {"Beispiel", entry.example},
                            {"Beispieluebersetzung", entry.translation}});
    made.push_back(entry);
  }
  static std::string metasuche(const Made& entry) { return "//" + entry.meaning + "////" + entry.headword; }

  void search(int option, Match match, const std::string& text) {
    ASSERT_TRUE(browse::Form_Load(dialog));
    browse::setOption(dialog, option);
    dialog.match = match;
    ASSERT_TRUE(browse::TextBox1_Change(dialog, text));
    ASSERT_TRUE(browse::runSearch(dialog)) << t.log();
  }
  std::string found(browse::ResultGrid& grid) {
    std::string all;
    for (std::int64_t row = 0; row < browse::gridRows(grid); ++row)
      all += browse::gridCell(grid, row, 0) + "|";
    return all;
  }
  /// The same hits by a plain loop over what was made.
  template <class Text, class Shown>
  std::string expected(const std::string& sought, Match match, Text text, Shown shown) {
    std::string all;
    for (const Made& entry : made)
      if (!text(entry).empty() && matches(text(entry), sought, match)) all += shown(entry) + "|";
    return all;
  }

  std::vector<Made> made;
  browse::frmSearch dialog{s, SearchMode::full};
};

TEST_F(Search, FindsInEachScopeWhatAPlainLoopFinds) {
  struct Scope {
    int option;
    std::string (*text)(const Made&);
    std::string (*shown)(const Made&);
  };
  const auto headword = [](const Made& e) { return e.headword; };
  const Scope scopes[] = {
      {1, headword, headword},
      {2, [](const Made& e) { return e.meaning; }, [](const Made& e) { return e.meaning; }},
      {3, [](const Made& e) { return e.example; }, [](const Made& e) { return e.example; }},
      {4, [](const Made& e) { return e.translation; }, [](const Made& e) { return e.translation; }},
      {5, [](const Made& e) { return e.note; }, headword}};
  for (const Scope& scope : scopes)
    for (const Match match : {Match::exact, Match::contains, Match::begins})
      for (const std::string sought : {"haus", "house", "öl", "das haus", "oil", "gibtesnicht", "HAUS"}) {
        search(scope.option, match, sought);
        EXPECT_EQ(found(dialog.hits), expected(sought, match, scope.text, scope.shown))
            << "option " << scope.option << " for " << sought;
      }
  EXPECT_TRUE(t.script.told(t.dialog(dialog::nothing_found)));
}

TEST_F(Search, OfAllTextsLooksInTheNotesToo) {
  ASSERT_TRUE(browse::Form_Load(dialog));
  EXPECT_EQ(dialog.option, 6);
  EXPECT_FALSE(dialog.matchEnabled);
  search(6, Match::contains, "haus");
  std::string all;
  for (const Made& e : made)
    if (matches(metasuche(e), "haus", Match::contains) || matches(e.note, "haus", Match::contains))
      all += e.headword + "|";
  EXPECT_EQ(found(dialog.hits), all);
  EXPECT_NE(all.find("Boot|"), std::string::npos) << "a term that stands in a note alone";
  search(6, Match::exact, "//boat////boot");
  EXPECT_EQ(found(dialog.hits), "Boot|");
  ASSERT_TRUE(browse::selectHit(dialog, 0)) << "the exact form knows no main entry";
  EXPECT_EQ(dialog.target.ID_Woerterbuch, made[2].id);
}

TEST_F(Search, TheOptionsSteerTheMatchComboAndTheFonts) {
  s.project.FontFrom = "Von";
  s.project.FontTo = "Nach";
  ASSERT_TRUE(browse::Form_Load(dialog));
  EXPECT_EQ(dialog.caption, t.label(label::program_name) + " " + t.label(label::search_title));
  EXPECT_EQ(dialog.optionCaptions[1], "Bedeutung");
  const std::string fonts[] = {"Von", "Nach", "Von", "Nach"};
  for (int option = 1; option <= 4; ++option) {
    browse::setOption(dialog, option);
    EXPECT_TRUE(dialog.matchEnabled);
    EXPECT_EQ(dialog.fontsShown, option > 1);
    EXPECT_EQ(dialog.searchFont, fonts[option - 1]) << option;
  }
  dialog.match = Match::exact;
  browse::setOption(dialog, 6);
  EXPECT_EQ(dialog.match, Match::contains);
  EXPECT_FALSE(dialog.matchEnabled);
}

TEST_F(Search, ManyHitsAreLookedForWhileTheFirstAreOnShow) {
  for (int n = 100; n < 350; ++n) add({0, "viel" + std::to_string(n), "", "much", "", ""});
  browse::frmSearch goTo(s, SearchMode::goTo);
  ASSERT_TRUE(browse::Form_Load(goTo));
  ASSERT_TRUE(browse::TextBox1_Change(goTo, "viel"));
  EXPECT_FALSE(goTo.hits.complete);
  EXPECT_EQ(goTo.statusLabel, "");
  EXPECT_EQ(browse::gridField(goTo.hits, 5, "begriff"), "viel105");
  ASSERT_TRUE(browse::showCount(goTo));
  EXPECT_EQ(goTo.statusLabel, "250");

  search(1, Match::contains, "iel");
  browse::ResultGrid& hits = dialog.hits;
  const std::int64_t first = hits.known;
  ASSERT_TRUE(first > 0 && first < 250) << first;
  browse::gridField(hits, 7, "begriff");
  browse::readOn(hits, 30);
  EXPECT_EQ(hits.known, first + 30);
  EXPECT_EQ(hits.rows.AbsolutePosition(), 7) << "the row in use stays";
  // A write while rows are still looked for: the list is what it was when it was opened.
  add({0, "vieles", "", "many", "", ""});
  while (!hits.complete) browse::readOn(hits, 30);
  EXPECT_EQ(hits.known, 250);
  EXPECT_EQ(browse::gridRows(hits), 250);
  EXPECT_TRUE(browse::hasRow(hits, 249));
  EXPECT_FALSE(browse::hasRow(hits, 250));
}

TEST_F(Search, GoToNarrowsTheHeadwordsAtEachKeystroke) {
  browse::frmSearch goTo(s, SearchMode::goTo);
  ASSERT_TRUE(browse::Form_Load(goTo));
  EXPECT_FALSE(goTo.choicesShown);
  EXPECT_EQ(found(goTo.hits), "50% Rabatt|Boot|Haus|Hausboot|Öl|") << "all of them, in order";
  EXPECT_EQ(goTo.statusLabel, "5");
  ASSERT_TRUE(browse::TextBox1_Change(goTo, "ha"));
  EXPECT_EQ(found(goTo.hits), "Haus|Hausboot|");
  ASSERT_TRUE(browse::TextBox1_Change(goTo, "HAUSB"));
  EXPECT_EQ(found(goTo.hits), "Hausboot|");
  EXPECT_EQ(goTo.statusLabel, "1");
  ASSERT_TRUE(browse::TextBox1_Change(goTo, "%rab"));
  EXPECT_EQ(found(goTo.hits), "50% Rabatt|") << "wildcards work, since the text is not changed";
  ASSERT_TRUE(browse::selectHit(goTo, 0));
  EXPECT_TRUE(goTo.jumpEnabled);
}

TEST_F(Search, ShowsWhoOwnsAMeaning) {
  show();
  search(2, Match::exact, "HOUSE");
  ASSERT_EQ(browse::gridRows(dialog.hits), 2);
  ASSERT_TRUE(browse::selectHit(dialog, 1));
  EXPECT_TRUE(dialog.owners.visible);
  EXPECT_EQ(found(dialog.owners), "Haus|50% Rabatt|") << "all entries with this text";
  EXPECT_TRUE(dialog.owners.label.ends_with(s.files.CurrentDBPath)) << dialog.owners.label;
  EXPECT_FALSE(dialog.jumpEnabled);
  ASSERT_TRUE(browse::jump(dialog));
  EXPECT_TRUE(dialog.visible) << "nothing to jump to yet";
  ASSERT_TRUE(browse::selectOwner(dialog, 1));
  EXPECT_TRUE(dialog.jumpEnabled);
  ASSERT_TRUE(browse::jump(dialog));
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(s.entry.SelectedEntryId, made[4].id);
  EXPECT_EQ(s.search.SearchTerm, "HOUSE");
  for (const int option : {3, 4}) {
    search(option, Match::contains, "us");
    ASSERT_TRUE(browse::selectHit(dialog, 0));
    EXPECT_EQ(found(dialog.owners), "Haus|") << option;
  }
}

TEST_F(Search, JumpsToTheEntryAndMarksTheTextInItsNote) {
  db().Execute("update Sprache set Stil1 = 0");
  show();
  search(5, Match::contains, " hang ");
  EXPECT_EQ(browse::gridRows(dialog.hits), 0);
  search(5, Match::contains, "am hang");
  ASSERT_TRUE(browse::selectHit(dialog, 0));
  EXPECT_FALSE(dialog.owners.visible);
  ASSERT_TRUE(browse::jump(dialog));
  EXPECT_EQ(s.entry.SelectedEntryId, made[0].id);
  EXPECT_EQ(form.display.noteMark.start, 6U);
  EXPECT_EQ(form.display.noteMark.length, 7U);
}

TEST_F(Search, ShowsMainAndSubEntriesAndJumpsToThem) {
  const auto house = made[0].id;
  const auto door = addSub(house, "Zur Tür"), roof = addSub(house, "Dach");
  show();
  search(1, Match::exact, "dach");
  ASSERT_TRUE(browse::selectHit(dialog, 0));
  EXPECT_EQ(dialog.target.ID_Woerterbuch, roof);
  EXPECT_EQ(s.entry.EntryEditMode, 4);
  EXPECT_EQ(found(dialog.hierarchy.main), "Haus|");
  EXPECT_EQ(found(dialog.hierarchy.subEntries), "");
  ASSERT_TRUE(browse::showRelated(dialog, dialog.hierarchy.main, 0));
  EXPECT_TRUE(dialog.visible);
  EXPECT_EQ(s.entry.SelectedEntryId, house);
  EXPECT_EQ(s.entry.EntryEditMode, 3);
  search(1, Match::exact, "Haus");
  ASSERT_TRUE(browse::selectHit(dialog, 0));
  EXPECT_EQ(found(dialog.hierarchy.subEntries), "Dach|Zur Tür|");
  ASSERT_TRUE(browse::jumpToRelated(dialog, dialog.hierarchy.subEntries, 1));
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(s.entry.SelectedEntryId, house) << "the list shows a sub-entry's main entry";
  EXPECT_NE(rowOf(door), -1);
}

TEST_F(Search, AHeadwordOfTwoLevelsResolvesToTheFirstRecord) {
  const auto sub = addSub(made[2].id, "Haus");
  search(1, Match::exact, "Haus");
  ASSERT_EQ(browse::gridRows(dialog.hits), 2);
  ASSERT_TRUE(browse::selectHit(dialog, 1));
  EXPECT_NE(dialog.target.ID_Woerterbuch, sub);
  EXPECT_EQ(dialog.target.ID_Woerterbuch, made[0].id);
}

TEST_F(Search, AwkwardTextsEndInOneClearReport) {
  EXPECT_TRUE(browse::Form_Load(dialog));
  browse::setOption(dialog, 1);
  ASSERT_TRUE(browse::TextBox1_Change(dialog, "say \"x\" to"));
  EXPECT_FALSE(browse::runSearch(dialog)) << "the text stands in the statement as it is";
  EXPECT_EQ(t.script.boxes.size(), 1U);
  EXPECT_NE(t.log(), "");
  EXPECT_TRUE(dialog.visible);
  for (const std::string& text : {std::string(10000, 'x'), std::string("' or 1 = 1 --"), std::string("[a-"),
                                  std::string("\xF0\x9F\x8F\xA0")}) {
    ASSERT_TRUE(browse::TextBox1_Change(dialog, text));
    EXPECT_TRUE(browse::runSearch(dialog)) << text.substr(0, 20);
    EXPECT_EQ(browse::gridRows(dialog.hits), 0);
  }
  search(2, Match::contains, "a; b order by");
  EXPECT_EQ(browse::gridRows(dialog.hits), 0);
  addRow("Wortbedeutung", {{"ID_Woerterbuch", made[3].id}, {"Wortbedeutung", "oil; \"crude\" where"}});
  search(2, Match::contains, "oil;");
  ASSERT_EQ(browse::gridRows(dialog.hits), 1);
  ASSERT_TRUE(browse::selectHit(dialog, 0)) << t.log();
  EXPECT_EQ(found(dialog.owners), "Öl|");
  addEntry("He said \"no\"");
  search(1, Match::begins, "he said");
  ASSERT_EQ(browse::gridRows(dialog.hits), 1);
  EXPECT_TRUE(browse::selectHit(dialog, 0)) << "a headword with quotes can be taken";
  EXPECT_TRUE(dialog.jumpEnabled);
}

TEST_F(Search, IsRefusedWhileAFilterIsActive) {
  s.filter.FilterIsActive = [] { return true; };
  EXPECT_FALSE(browse::Form_Load(dialog));
  EXPECT_FALSE(dialog.visible);
  EXPECT_TRUE(t.script.told(t.dialog(dialog::filter_is_active)));
}

class LinkSearch : public Search {
 protected:
  void SetUp() override {
    create("Links.cvb", 2);
    dialog.pressCommand6 = [this] { browse::Command6(form); };
    const auto topic = addEntry("Bauen"), other = addEntry("Wohnen");
    link(topic, "Haus.de", "http://haus.de/a", "alles zum Haus");
    link(other, "Wohnung", "https://w.de/haus", "Notiz");
  }
  void link(std::int64_t entry, const std::string& name, const std::string& url, const std::string& note) {
    addRow("URL", {{"ID_Woerterbuch", entry}, {"URLName", name}, {"URL", url}, {"URLNotiz", note}});
  }
};

TEST_F(LinkSearch, LooksInNameAddressAndNote) {
  show();
  search(2, Match::contains, "haus");
  EXPECT_EQ(found(dialog.hits), "Haus.de|");
  search(3, Match::contains, "haus");
  EXPECT_EQ(found(dialog.hits), "http://haus.de/a|https://w.de/haus|");
  EXPECT_EQ(dialog.searchFont, "Arial Unicode MS");
  ASSERT_TRUE(browse::selectHit(dialog, 1)) << t.log();
  EXPECT_EQ(found(dialog.owners), "Wohnen|");
  search(4, Match::begins, "alles");
  ASSERT_TRUE(browse::selectHit(dialog, 0));
  EXPECT_EQ(found(dialog.owners), "Bauen|");
  search(2, Match::exact, "wohnung");
  ASSERT_TRUE(browse::selectHit(dialog, 0));
  ASSERT_TRUE(browse::selectOwner(dialog, 0));
  ASSERT_TRUE(browse::jump(dialog));
  EXPECT_EQ(s.entry.SelectedEntryId, 2);
}

class SearchInTwoFiles : public Search {
 protected:
  void SetUp() override {
    const std::string second = t.home / "Zweites.cvb", first = t.home / "Erstes.cvb";
    create("Zweites.cvb");
    addEntry("Auge");
    addEntry("Haus");
    addMeaningIn("eye", 1);
    store::CloseCurrentDB(s);
    create("Erstes.cvb");
    addEntry("Haus");
    addSub(1, "Haustür");
    store::CloseCurrentDB(s);
    open(first);
    ASSERT_TRUE(store::addDictionary(s, second, false));
    dialog.pressCommand6 = [this] { browse::Command6(form); };
    show();
  }
  void addMeaningIn(const std::string& text, std::int64_t entry) {
    addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", text}});
  }
};

TEST_F(SearchInTwoFiles, LeadsToTheFileOfTheHit) {
  const std::string firstPath = base::upper(t.home / "Erstes.cvb"),
                    secondPath = base::upper(t.home / "Zweites.cvb");
  search(1, Match::exact, "haus");
  ASSERT_EQ(browse::gridRows(dialog.hits), 2);
  for (std::int64_t row = 0; row < 2; ++row) {
    const std::string path = browse::gridField(dialog.hits, row, "databasename");
    ASSERT_TRUE(browse::selectHit(dialog, row));
    EXPECT_EQ(s.files.CurrentDBPath, path);
    EXPECT_EQ(base::upper(s.files.CurrentDB.Name()), path);
    EXPECT_EQ(found(dialog.hierarchy.subEntries), path == firstPath ? "Haustür|" : "");
    ASSERT_TRUE(browse::jump(dialog));
    ASSERT_EQ(t.log(), "");
    const auto at = static_cast<std::size_t>(form.list.selected);
    EXPECT_EQ(form.list.List4[at], path);
    EXPECT_EQ(form.list.List1[at], path == firstPath ? 1 : 2);
    EXPECT_EQ(form.display.aggregate.entry.DatabaseName, path);
  }
  search(2, Match::contains, "eye");
  ASSERT_TRUE(browse::selectHit(dialog, 0));
  EXPECT_EQ(found(dialog.owners), "Auge|");
  ASSERT_TRUE(browse::selectOwner(dialog, 0));
  EXPECT_EQ(s.files.CurrentDBPath, secondPath);
  EXPECT_EQ(dialog.target.ID_Woerterbuch, 1);
}

}  // namespace
