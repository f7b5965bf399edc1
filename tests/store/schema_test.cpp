#include "store/schema.h"

#include "store/dictionary.h"

namespace {

class Schema : public StoreTest {
 protected:
  void SetUp() override { create("Schema.cvb"); }
};

TEST_F(Schema, DeletingAnEntryTakesAllThatHangsOnIt) {
  const std::int64_t other = addEntry("bleibt"), entry = addEntry("geht");
  const std::int64_t meaning = addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", "x"}});
  const std::int64_t property = addRow("WKategorie", {{"Kategorie", "Genus"}});
  const std::int64_t subject = addRow("WSachgebiet", {{"Sachgebiet", "Botanik"}});
  const std::int64_t rule = addRow("Regeln", {{"RegelName", "Plural"}});
  addRow("WortBedBsp", {{"ID_Wortbedeutung", meaning}, {"Beispiel", "y"}});
  addRow("relWortbedWKat", {{"ID_Wortbedeutung", meaning}, {"ID_WKategorie", property}});
  addRow("relWortbedSachgebiet", {{"ID_Wortbedeutung", meaning}, {"ID_Sachgebiet", subject}});
  addRow("WortbedeutungFlat", {{"ID_Wortbedeutung", meaning}});
  addRow("relWoertWKat", {{"ID_Woerterbuch", entry}, {"ID_WKategorie", property}});
  addRow("relWoertSachgebiet", {{"ID_Woerterbuch", entry}, {"ID_WSachgebiet", subject}});
  addRow("RelWoertregel", {{"RegelID", rule}, {"ID_Woerterbuch", entry}});
  for (const char* table : {"URL", "Attachment", "WoerterbuchFlat", "ChangeHistory", "NewHistory"})
    addRow(table, {{"ID_Woerterbuch", entry}});
  addRow("Querverweis", {{"ID_Woerterbuch", entry}, {"ID_WoerterbuchQV", other}});
  const std::int64_t pointsToIt =
      addRow("Querverweis", {{"ID_Woerterbuch", other}, {"ID_WoerterbuchQV", entry}});

  db().Execute("delete * from Woerterbuch where id_woerterbuch = " + std::to_string(entry));
  for (const char* table : {"Wortbedeutung", "WortBedBsp", "URL", "Attachment", "relWoertWKat",
                            "relWoertSachgebiet", "relWortbedWKat", "relWortbedSachgebiet", "WoerterbuchFlat",
                            "WortbedeutungFlat", "RelWoertregel", "ChangeHistory", "NewHistory"})
    EXPECT_EQ(count(table), 0) << table;
  EXPECT_EQ(rows("select ID_Querverweis from Querverweis"), std::to_string(pointsToIt));
  EXPECT_EQ(rows("select Begriff from Woerterbuch"), "bleibt");
  EXPECT_EQ(count("WKategorie") + count("WSachgebiet") + count("Regeln"), 3) << "the catalogues stay";
}

TEST_F(Schema, DeletingAPropertyTakesItFromEntriesMeaningsAndRules) {
  const std::int64_t entry = addEntry("Wort");
  const std::int64_t meaning = addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}});
  const std::int64_t variant =
      addRow("RegelVarianten", {{"RegelID", addRow("Regeln", {{"RegelName", "R"}})}});
  const std::int64_t property = addRow("WKategorie", {{"Kategorie", "Genus"}});
  addRow("relWoertWKat", {{"ID_Woerterbuch", entry}, {"ID_WKategorie", property}});
  addRow("relWortbedWKat", {{"ID_Wortbedeutung", meaning}, {"ID_WKategorie", property}});
  addRow("RelRegelVariantenWKat", {{"RegelVariantenID", variant}, {"ID_WKategorie", property}});
  db().Execute("update WKategorie set ID_WKategorie = 900");
  EXPECT_EQ(rows("select ID_WKategorie from RelRegelVariantenWKat"), "900") << "a changed key is followed";
  db().Execute("delete * from WKategorie");
  EXPECT_EQ(count("relWoertWKat") + count("relWortbedWKat") + count("RelRegelVariantenWKat"), 0);
  EXPECT_EQ(count("Woerterbuch") + count("Wortbedeutung") + count("RegelVarianten"), 3);
  EXPECT_EQ(errorOf([&] {
              addRow("relWoertWKat", {{"ID_Woerterbuch", entry}, {"ID_WKategorie", 77}});
            }),
            3201);
}

TEST_F(Schema, OnlyTheListedFieldsTakeTheEmptyText) {
  struct Case {
    const char *table, *field;
    bool takesIt;
  };
  const std::int64_t entry = addEntry("Wort");
  for (const Case& each :
       {Case{"URL", "URLName", true}, Case{"URL", "URL", false}, Case{"WKategorie", "Kategorie", false},
        Case{"WKategorie", "Abkuerzung", false}, Case{"Autor", "Copyright", true},
        Case{"RegelVarianten", "VoranStellText", true}, Case{"Attachment", "Attachment", false},
        Case{"Wortbedeutung", "Wortbedeutung", true}, Case{"Kodierungen", "Code", false}}) {
    engine::Recordset row = db().OpenRecordset(each.table);
    row.AddNew();
    row.set(each.field, "");
    EXPECT_EQ(errorOf([&] { row.Update(); }), each.takesIt ? 0 : 3315) << each.table << "." << each.field;
  }
  EXPECT_EQ(
      errorOf([&] {
        db().Execute("update woerterbuch set begriff = '' where id_woerterbuch = " + std::to_string(entry));
      }),
      3315);
}

TEST_F(Schema, AHeadwordAndMeaningAreTrainedOnce) {
  addRow("Vokabeltraining", {{"Begriff", "Haus"}, {"Wortbedeutung", "house"}});
  addRow("Vokabeltraining", {{"Begriff", "Haus"}, {"Wortbedeutung", "home"}});
  EXPECT_EQ(errorOf([&] {
              addRow("Vokabeltraining", {{"Begriff", "haus"}, {"Wortbedeutung", "HOUSE"}});
            }),
            3022);
}

TEST_F(Schema, FieldsBearTheirPropertiesAfterCompaction) {
  const std::string path = db().Name();
  store::CloseCurrentDB(s);
  open(path);
  EXPECT_EQ(db().tableDef("WOERTERBUCH").fieldProperty("MetaSuche", "UnicodeCompression"), "True");
  EXPECT_EQ(errorOf([&] { db().tableDef("Woerterbuch").fieldProperty("Ebene", "UnicodeCompression"); }),
            3265);
  EXPECT_EQ(db().relations().size(), 24U);
  EXPECT_EQ(db().queryNames().size(), 148U);
}

}  // namespace
