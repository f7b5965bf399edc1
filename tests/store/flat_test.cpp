#include "store/flat.h"

#include <map>

#include "base/datetime.h"
#include "catalogue/dialog.h"
#include "store/dictionary.h"

namespace {

class Flat : public StoreTest {
 protected:
  void SetUp() override {
    create("Flach.cvb");
    for (const char* name : {"Genus", "Plural", "leer"})
      properties.push_back(
          addRow("WKategorie",
                 {{"Kategorie", name},
                  {"Abkuerzung", name == std::string("leer") ? engine::Value()
                                                             : engine::Value(name).asText().substr(0, 1)}}));
    for (const char* name : {"Botanik", "Musik"})
      subjects.push_back(
          addRow("WSachgebiet", {{"Sachgebiet", name}, {"Abkuerzung", std::string(name).substr(0, 3)}}));
  }

  void addProperty(std::int64_t entry, std::size_t property, const engine::Value& value) {
    addRow("relWoertWKat",
           {{"ID_Woerterbuch", entry}, {"ID_WKategorie", properties[property]}, {"KategorieWert", value}});
  }
  std::string flat(const std::string& column, std::int64_t entry) {
    return rows("select " + column + " from WoerterbuchFlat where ID_Woerterbuch = " + std::to_string(entry));
  }
  std::string flatMeaning(const std::string& column, std::int64_t meaning) {
    return rows("select " + column +
                " from WortbedeutungFlat where ID_Wortbedeutung = " + std::to_string(meaning));
  }
  void setBuildTime(const std::string& text) {
    db().Execute("update Sprache set LastReportTableUpdate = " + (text.empty() ? "null" : "'" + text + "'"));
  }
  void touch(std::int64_t entry, const std::string& stamp) {
    db().Execute("update Woerterbuch set DateTimeStampLastChange = '" + stamp +
                 "' where ID_Woerterbuch = " + std::to_string(entry));
  }

  std::vector<std::int64_t> properties, subjects;
};

TEST_F(Flat, AnEntrysListsAreJoinedFromItsLinks) {
  const std::int64_t entry = addEntry("Linde"), bare = addEntry("kahl");
  addProperty(entry, 0, "die");
  addProperty(entry, 1, "");
  addProperty(entry, 2, engine::Value());
  addRow("relWoertSachgebiet", {{"ID_Woerterbuch", entry}, {"ID_WSachgebiet", subjects[0]}});
  addRow("Querverweis", {{"ID_Woerterbuch", entry}, {"ID_WoerterbuchQV", bare}, {"Querverweis", "kahl"}});
  addRow("URL", {{"ID_Woerterbuch", entry}, {"URLName", "Seite"}, {"URL", "http://a"}});
  addRow("URL", {{"ID_Woerterbuch", entry}, {"URLName", "Zweite"}, {"URL", "http://b"}, {"URLNotiz", "gut"}});
  store::BuildWoerterbuchFlat(s, true);

  EXPECT_EQ(flat("EigenschaftenZumBegriff", entry), "Genus: die, leer, Plural");
  EXPECT_EQ(flat("AbkEigenschaftenZumBegriff", entry), "G: die, P") << "what has no abbreviation has no item";
  EXPECT_EQ(flat("SachgebieteZumBegriff, AbkSachgebieteZumBegriff", entry), "Botanik,Bot");
  EXPECT_EQ(flat("Querverweise", entry), "kahl");
  EXPECT_EQ(flat("URLs", entry), "Seite, http://a, Zweite, http://b, gut");
  EXPECT_EQ(flat("EigenschaftenZumBegriff, SachgebieteZumBegriff, Querverweise, URLs", bare), ",,,");

  db().Execute("delete * from relWoertWKat");
  store::FillFlatRow(s, entry);
  EXPECT_EQ(flat("EigenschaftenZumBegriff, AbkEigenschaftenZumBegriff", entry), ",")
      << "unlinked items vanish";
  EXPECT_EQ(count("WoerterbuchFlat"), 2) << "the row is filled again, not added";
}

TEST_F(Flat, AMeaningsListsAreJoinedFromItsLinks) {
  const std::int64_t entry = addEntry("Ton");
  const std::int64_t meaning =
      addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", "tone"}});
  addRow("relWortbedWKat",
         {{"ID_Wortbedeutung", meaning}, {"ID_WKategorie", properties[0]}, {"KategorieWert", "der"}});
  addRow("relWortbedSachgebiet", {{"ID_Wortbedeutung", meaning}, {"ID_Sachgebiet", subjects[1]}});
  addRow("WortBedBsp",
         {{"ID_Wortbedeutung", meaning}, {"Beispiel", "Ein Ton."}, {"Beispieluebersetzung", "A tone."}});
  addRow("WortBedBsp", {{"ID_Wortbedeutung", meaning}, {"Beispiel", "Zwei."}});
  store::BuildWortbedeutungFlat(s, true);
  EXPECT_EQ(flatMeaning(
                "EigenschaftenZurWortbedeutung, SachgebieteZurWortbedeutung, AbkSachgebieteZurWortbedeutung",
                meaning),
            "Genus: der,Musik,Mus");
  EXPECT_EQ(flatMeaning("Beispiele", meaning), "Ein Ton., Zwei.");
  EXPECT_EQ(flatMeaning("Beispieluebersetzungen", meaning), "A tone.");
  db().Execute("delete * from WortBedBsp");
  store::FillFlatMeaningRow(s, meaning);
  EXPECT_EQ(flatMeaning("Beispiele", meaning), "");
  EXPECT_EQ(count("WortbedeutungFlat"), 1);
}

TEST_F(Flat, ADeltaTouchesWhatChangedSinceTheLastBuild) {
  const std::int64_t old = addEntry("alt"), changed = addEntry("neu");
  const std::int64_t meaning = addRow("Wortbedeutung", {{"ID_Woerterbuch", changed}, {"Wortbedeutung", "x"}});
  addProperty(old, 0, "a");
  addProperty(changed, 0, "a");
  store::buildReportTables(s, true);
  EXPECT_TRUE(base::DateTime::fromText(rows("select LastReportTableUpdate from Sprache")));

  db().Execute("update relWoertWKat set KategorieWert = 'b'");
  addRow("WortBedBsp", {{"ID_Wortbedeutung", meaning}, {"Beispiel", "später"}});
  setBuildTime("05.11.2021 13:45:10");
  touch(old, "05.11.2021 13:45:09");
  touch(changed, "05.11.2021 13:45:10");
  store::buildReportTables(s, false);
  EXPECT_EQ(flat("EigenschaftenZumBegriff", old), "Genus: a");
  EXPECT_EQ(flat("EigenschaftenZumBegriff", changed), "Genus: b");
  EXPECT_EQ(flatMeaning("Beispiele", meaning), "später") << "both tables look back to the same time";

  setBuildTime("");
  store::buildReportTables(s, false);
  EXPECT_EQ(flat("EigenschaftenZumBegriff", old), "Genus: b") << "without a time all rows are built";
}

TEST_F(Flat, AFailedBuildKeepsItsTimeAndAnEmptyOneSetsIt) {
  setBuildTime("01.01.2020 00:00:00");
  store::buildReportTables(s, true);
  EXPECT_NE(rows("select LastReportTableUpdate from Sprache"), "01.01.2020 00:00:00");
  EXPECT_EQ(count("WoerterbuchFlat"), 0);

  addEntry("Wort");
  setBuildTime("kein Datum");
  EXPECT_EQ(errorOf([&] { store::BuildWoerterbuchFlat(s, false); }), 13);
  setBuildTime("01.01.2020 00:00:00");
  s.shell.lastTurn = {};
  t.script.onTurn = [] { throw base::Error(61, "full"); };
  EXPECT_EQ(errorOf([&] { store::BuildWoerterbuchFlat(s, true); }), 61);
  EXPECT_EQ(rows("select LastReportTableUpdate from Sprache"), "01.01.2020 00:00:00");
  EXPECT_FALSE(t.script.progressShown);
}

TEST_F(Flat, TheCommandAsksFirst) {
  const std::int64_t entry = addEntry("Wort");
  t.script.answer(platform::box::answerNo, t.dialog(dialog::rebuild_report_tables));
  EXPECT_FALSE(store::mnuBuildReportTables(s));
  EXPECT_EQ(count("WoerterbuchFlat"), 0);
  t.script.answer(platform::box::answerYes);
  EXPECT_TRUE(store::mnuBuildReportTables(s));
  EXPECT_EQ(flat("ID_Woerterbuch", entry), std::to_string(entry));
  EXPECT_EQ(t.script.boxes.back().text, t.dialog(dialog::report_tables_built));
  EXPECT_EQ(t.script.lastPercent, 100.0);
}

}  // namespace
