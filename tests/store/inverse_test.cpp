#include "store/inverse.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

#include "catalogue/dialog.h"
#include "store/dictionary.h"
#include "store/queries/stored_queries.h"

namespace {

namespace fs = std::filesystem;

/// The source's data as the loops of the test walk it.
struct Meaning {
  std::string text;  ///< empty: stored as Null
  std::vector<std::pair<std::string, std::string>> examples;
  std::vector<std::pair<std::int64_t, std::string>> properties;  ///< catalogue number and value
  std::vector<std::int64_t> subjects;
};
struct Entry {
  std::string headword, note;
  std::vector<Meaning> meanings;
  std::vector<std::pair<std::int64_t, std::string>> properties;
  std::vector<std::int64_t> subjects;
};

const std::vector<Entry> sample = {
    {"Bank",
     "Möbel",
     {{"bench", {{"Die Bank ist grün.", "The bench is green."}}, {{1, "x"}}, {2}}, {"pew", {}, {}, {}}},
     {{1, "fem"}, {2, ""}},
     {1}},
    {"Bank",
     "Geld",
     {{"bank", {{"Die Bank zahlt.", "The bank pays."}, {"Zur Bank!", ""}}, {}, {}}},
     {{1, "f2"}},
     {}},
    {"Ufer", "", {{"bank", {}, {{2, "w"}}, {}}, {"", {}, {}, {}}}, {}, {2}},
    {"O'Neill", "nur Name", {}, {{1, "n"}}, {}},
    {"leer", "ohne", {{"", {{"Beispiel", "example"}}, {}, {}}}, {}, {}}};

/// Calls `see` with every meaning that is not empty and its entry.
template <class See>
void eachMeaning(const See& see) {
  for (const Entry& e : sample)
    for (const Meaning& m : e.meanings)
      if (!m.text.empty()) see(e, m);
}

/// The rows that the inverted dictionary holds, by loops over the sample.
struct Inverted {
  std::multiset<std::string> entries, meaningProperties, meaningSubjects, entryProperties, entrySubjects,
      examples;
};
Inverted invertedSample(const std::string& file) {
  Inverted all;
  std::map<std::string, std::vector<const Entry*>> byHeadword;  // what is joined by text
  std::map<std::string, std::vector<const Meaning*>> byMeaning;
  eachMeaning([&](const Entry& e, const Meaning& m) {
    all.entries.insert("|" + m.text + "|" + m.text + "|" + e.headword + "|" + e.note + "|" + file + "|1|1");
    byMeaning[m.text].push_back(&m);
  });
  for (const Entry& e : sample) byHeadword[e.headword].push_back(&e);
  eachMeaning([&](const Entry& e, const Meaning& m) {
    for (const Entry* same : byHeadword[e.headword]) {
      for (const auto& [item, value] : same->properties)
        all.meaningProperties.insert("|" + m.text + "|" + e.headword + "|" + std::to_string(item) + "|" +
                                     value);
      for (const std::int64_t item : same->subjects)
        all.meaningSubjects.insert("|" + m.text + "|" + e.headword + "|" + std::to_string(item));
    }
    for (const Meaning* same : byMeaning[m.text]) {
      for (const auto& [item, value] : same->properties)
        all.entryProperties.insert("|" + m.text + "|" + e.headword + "|" + std::to_string(item) + "|" +
                                   value);
      for (const std::int64_t item : same->subjects)
        all.entrySubjects.insert("|" + m.text + "|" + e.headword + "|" + std::to_string(item));
      for (const auto& [sentence, translation] : same->examples)
        all.examples.insert("|" + m.text + "|" + e.headword + "|" + translation + "|" + sentence);
    }
  });
  return all;
}

class Inverse : public StoreTest {
 protected:
  /// Fills the open dictionary with the sample.
  void fill() {
    for (const char* name : {"Genus", "Wortart"}) addRow("WKategorie", {{"Kategorie", std::string(name)}});
    for (const char* name : {"Bau", "Recht"}) addRow("WSachgebiet", {{"Sachgebiet", std::string(name)}});
    addRow("Druckschriften",
           {{"ObjektSchriftart", std::string("Serif")}, {"BedeutungSchriftart", std::string("Sans")}});
    for (const Entry& e : sample) {
      const std::int64_t entry = addEntry(e.headword);
      if (!e.note.empty())
        db().Execute("update Woerterbuch set Bemerkung = '" + e.note +
                     "' where ID_Woerterbuch = " + std::to_string(entry));
      for (const auto& [item, value] : e.properties)
        addRow("relWoertWKat",
               {{"ID_Woerterbuch", entry}, {"ID_WKategorie", item}, {"KategorieWert", orNull(value)}});
      for (const std::int64_t item : e.subjects)
        addRow("relWoertSachgebiet", {{"ID_Woerterbuch", entry}, {"ID_WSachgebiet", item}});
      for (const Meaning& m : e.meanings) addMeaning(entry, m);
    }
  }
  static engine::Value orNull(const std::string& text) {
    return text.empty() ? engine::Value() : engine::Value(text);
  }
  void addMeaning(std::int64_t entry, const Meaning& m) {
    const std::int64_t id =
        addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", orNull(m.text)}});
    for (const auto& [sentence, translation] : m.examples)
      addRow(
          "WortBedBsp",
          {{"ID_Wortbedeutung", id}, {"Beispiel", sentence}, {"Beispieluebersetzung", orNull(translation)}});
    for (const auto& [item, value] : m.properties)
      addRow("relWortbedWKat",
             {{"ID_Wortbedeutung", id}, {"ID_WKategorie", item}, {"KategorieWert", orNull(value)}});
    for (const std::int64_t item : m.subjects)
      addRow("relWortbedSachgebiet", {{"ID_Wortbedeutung", id}, {"ID_Sachgebiet", item}});
  }
  std::multiset<std::string> all(const std::string& sql) {
    std::multiset<std::string> result;
    auto set = db().OpenRecordset(sql, engine::RecordsetKind::snapshot);
    for (; !set.EndOfFile(); set.MoveNext()) {
      std::string row;
      for (std::size_t i = 0; i < set.Fields().size(); ++i) row += "|" + set.value(i).textOrEmpty();
      result.insert(row);
    }
    return result;
  }
};

TEST_F(Inverse, EachMeaningBecomesAnEntryWithItsHeadwordAsMeaning) {
  const std::string source = create("vor.cvb");
  fill();
  db().Execute("update Sprache set UebersetzungVon = 'Deutsch', UebersetzungNach = 'Englisch'");
  const std::string target = t.home / "nach";
  t.script.answer(platform::box::answerYes, t.dialog(dialog::inverse_question));
  t.script.chooseFile(target);
  ASSERT_TRUE(store::InverseTranslation(s));
  EXPECT_EQ(t.script.boxes.back().text,
            t.dialog(dialog::inverse_ready) + "! " + base::upper(target) + ".CVB");
  EXPECT_EQ(s.files.OpenDBCount, 0);
  EXPECT_FALSE(s.files.DBOpen);
  EXPECT_TRUE(fs::is_directory(target));

  open(target + ".CVB");
  const Inverted expected = invertedSample(base::upper(target) + ".CVB");
  const std::string joined =
      " from (Woerterbuch inner join Wortbedeutung on Woerterbuch.ID_Woerterbuch = "
      "Wortbedeutung.ID_Woerterbuch)";
  EXPECT_EQ(all("select Begriff, SortBegriff, Wortbedeutung, Bemerkung, Woerterbuch.DatabaseName, Ebene, "
                "Prioritaet" +
                joined +
                " where ID_Woerterbuch1 = Woerterbuch.ID_Woerterbuch and ID_Wortbedeutung = "
                "Woerterbuch.ID_Woerterbuch and Unterbegriff = 0"),
            expected.entries);
  EXPECT_EQ(
      all("select Begriff, Wortbedeutung, ID_WKategorie, KategorieWert" + joined +
          " inner join relWortbedWKat on relWortbedWKat.ID_Wortbedeutung = Wortbedeutung.ID_Wortbedeutung"),
      expected.meaningProperties);
  EXPECT_EQ(all("select Begriff, Wortbedeutung, ID_Sachgebiet" + joined +
                " inner join relWortbedSachgebiet on relWortbedSachgebiet.ID_Wortbedeutung = "
                "Wortbedeutung.ID_Wortbedeutung"),
            expected.meaningSubjects);
  EXPECT_EQ(all("select Begriff, Wortbedeutung, ID_WKategorie, KategorieWert" + joined +
                " inner join relWoertWKat on relWoertWKat.ID_Woerterbuch = Woerterbuch.ID_Woerterbuch"),
            expected.entryProperties);
  EXPECT_EQ(
      all("select Begriff, Wortbedeutung, ID_WSachgebiet" + joined +
          " inner join relWoertSachgebiet on relWoertSachgebiet.ID_Woerterbuch = Woerterbuch.ID_Woerterbuch"),
      expected.entrySubjects);
  EXPECT_EQ(all("select Begriff, Wortbedeutung, Beispiel, Beispieluebersetzung" + joined +
                " inner join WortBedBsp on WortBedBsp.ID_Wortbedeutung = Wortbedeutung.ID_Wortbedeutung"),
            expected.examples);
  EXPECT_EQ(rows("select UebersetzungVon, UebersetzungNach, AudioPfad from Sprache"),
            "Englisch,Deutsch," + target + "/");
  EXPECT_EQ(rows("select ObjektSchriftart, BedeutungSchriftart from Druckschriften"), "Sans,Serif");
  EXPECT_EQ(rows("select Kategorie from WKategorie"), "Genus|Wortart");
  for (const std::string& table : db().tableNames())
    EXPECT_EQ(base::lower(table).find("temp"), std::string::npos) << table;
  for (const std::string& query : db().queryNames())
    EXPECT_EQ(base::lower(query).find("temp1"), std::string::npos) << query;
  EXPECT_TRUE(engine::checkDatabase(*s.files.Workspace, source).empty());
}

TEST_F(Inverse, ATargetIsReplacedWithItsMediaAndNothingElseIsTouched) {
  const std::string source = createClosed("a'b.cvb");
  const std::string target = createClosed("ziel.cvb");
  t.home.write("ziel/alt.wav", "old");
  t.home.write("ziel/unter/bleibt.wav", "kept");
  t.home.write("frei/brief.txt", "a letter");
  t.script.chooseFile(source);
  t.script.chooseFile(target);
  ASSERT_TRUE(store::InverseTranslation(s));
  EXPECT_FALSE(fs::exists(t.home / "ziel/alt.wav"));
  EXPECT_TRUE(fs::exists(t.home / "ziel/unter/bleibt.wav"));
  // A folder that no dictionary stood beside is somebody else's.
  t.script.chooseFile(source);
  t.script.chooseFile(t.home / "frei.cvb");
  ASSERT_TRUE(store::InverseTranslation(s));
  EXPECT_TRUE(fs::exists(t.home / "frei/brief.txt"));
  open(target);
  EXPECT_EQ(count("Woerterbuch"), 0);
  EXPECT_EQ(count("Sprache"), 1);
}

TEST_F(Inverse, WhatCanNotBeInvertedCostsNoTarget) {
  const std::string source = createClosed("quelle.cvb");
  t.script.chooseFile(source);
  t.script.chooseFile(t.home / "QUELLE.CVB");
  EXPECT_FALSE(store::InverseTranslation(s));
  EXPECT_EQ(t.script.boxes.back().text, t.dialog(dialog::same_name_refused));
  EXPECT_TRUE(engine::checkDatabase(*s.files.Workspace, source).empty());

  t.home.write("kaputt.cvb", "no dictionary at all");
  t.script.chooseFile(t.home / "kaputt.cvb");
  t.script.chooseFile(source);
  EXPECT_EQ(errorOf([&] { store::InverseTranslation(s); }), 3343);
  EXPECT_TRUE(engine::checkDatabase(*s.files.Workspace, source).empty());

  open(source);
  t.script.answer(platform::box::answerNo);
  EXPECT_FALSE(store::InverseTranslation(s));
  EXPECT_EQ(s.files.OpenDBCount, 1);
}

TEST_F(Inverse, AHalfMadeTargetGoes) {
  const std::string source = create("quelle.cvb");
  addRow("Wortbedeutung", {{"ID_Woerterbuch", addEntry("x")}, {"Wortbedeutung", std::string("y")}});
  db().Execute("drop table Umgebung");
  store::CloseCurrentDB(s);
  t.script.chooseFile(source);
  t.script.chooseFile(t.home / "halb.cvb");
  EXPECT_NE(errorOf([&] { store::InverseTranslation(s); }), 0);
  EXPECT_FALSE(fs::exists(t.home / "halb.cvb"));
  EXPECT_FALSE(fs::exists(t.home / "halb"));
  EXPECT_EQ(s.files.OpenDBCount, 0);
  EXPECT_TRUE(engine::checkDatabase(*s.files.Workspace, source).empty());
}

}  // namespace
