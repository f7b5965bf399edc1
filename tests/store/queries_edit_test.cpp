#include <gtest/gtest.h>

#include <algorithm>

#include "filled_dictionary.h"

namespace {

using engine::Recordset;
using test::row;

/// Rows that callers add, edit and delete through stored queries, on a file that each test has for itself.
class QueryEdits : public ::testing::Test {
 protected:
  QueryEdits() : db(test::createEmpty(workspace, folder / "edited.cvb")) {
    for (const char* statement :
         {"insert into WKategorie (Kategorie) values ('noun')",
          "insert into WKategorie (Kategorie) values ('plural')",
          "insert into WSachgebiet (Sachgebiet) values ('law')",
          "insert into WSachgebiet (Sachgebiet) values ('botany')",
          "insert into Woerterbuch (Begriff, Ebene) values ('Haus', 1)",
          "insert into Woerterbuch (Begriff, Ebene) values ('Baum', 1)",
          "insert into Wortbedeutung (ID_Woerterbuch, Wortbedeutung) values (1, 'house')"})
      db.Execute(statement);
  }

  Recordset open(const std::string& query, const engine::Parameters& parameters = {}) {
    return db.OpenRecordset(query, engine::RecordsetKind::dynaset, parameters);
  }
  std::vector<std::string> rows(const std::string& source, const std::vector<std::string>& fields) {
    auto found = test::rowsOf(open(source), fields);
    std::sort(found.begin(), found.end());
    return found;
  }
  using Fields = std::vector<std::pair<std::string, engine::Value>>;
  static void add(Recordset& to, const Fields& fields) {
    to.AddNew();
    for (const auto& [name, value] : fields) to.set(name, value);
    to.Update();
  }

  test::TempDir folder;
  engine::Workspace workspace{test::testLogin()};
  engine::Database db;
};

using Strings = std::vector<std::string>;

TEST_F(QueryEdits, AssignAndRemovePropertiesAndSubjectsOfAnEntry) {
  Recordset links = open("QueryWKategorieWert");
  add(links, {{"ID_Woerterbuch", 1}, {"ID_WKategorie", 1}});
  links.FindFirst("ID_Woerterbuch = 1 and ID_WKategorie = 1");
  EXPECT_FALSE(links.NoMatch());

  Recordset properties = open("BegriffEigenschaftWertParam", {{"lWortID", 1}});
  ASSERT_FALSE(properties.EndOfFile());
  properties.Edit();
  properties.set("KategorieWert", "der");
  properties.Update();
  add(properties, {{"ID_Woerterbuch", 1}, {"ID_WKategorie", 2}, {"KategorieWert", "Häuser"}});
  EXPECT_EQ(rows("relWoertWKat", {"ID_Woerterbuch", "ID_WKategorie", "KategorieWert"}),
            (Strings{"1|1|der", "1|2|Häuser"}));
  properties.FindFirst("Kategorie = \"noun\"");
  ASSERT_FALSE(properties.NoMatch());
  properties.Delete();
  EXPECT_EQ(rows("relWoertWKat", {"ID_WKategorie"}), Strings{"2"});
  EXPECT_EQ(rows("WKategorie", {"Kategorie"}), (Strings{"noun", "plural"}));

  Recordset subjects = open("BegriffSachgebietParam", {{"lWortID", 1}});
  add(subjects, {{"relWoertSachgebiet.ID_Woerterbuch", 1}, {"ID_WSachgebiet", 2}});
  EXPECT_EQ(rows("relWoertSachgebiet", {"ID_Woerterbuch", "ID_WSachgebiet"}), Strings{"1|2"});
  Recordset again = open("BegriffSachgebietParam", {{"lWortID", 1}});
  again.FindFirst("Sachgebiet = \"botany\"");
  again.Delete();
  EXPECT_EQ(rows("relWoertSachgebiet", {"ID_WSachgebiet"}), Strings{});
  EXPECT_EQ(rows("WSachgebiet", {"Sachgebiet"}), (Strings{"botany", "law"}));
}

TEST_F(QueryEdits, AssignPropertiesAndSubjectsToAMeaning) {
  Recordset properties = open("WortbedKategorieWortbedIDParam", {{"lWortbedeutungID", 1}});
  properties.FindFirst("relWortbedWKat.ID_WKategorie =1");
  EXPECT_TRUE(properties.NoMatch());
  add(properties, {{"relWortbedWKat.ID_Wortbedeutung", 1}, {"relWortbedWKat.ID_WKategorie", 1}});
  Recordset subjects = open("WortbedSachgebietWortbedIDParam", {{"lWortbedeutungID", 1}});
  add(subjects, {{"relWortbedSachgebiet.ID_Wortbedeutung", 1}, {"relWortbedSachgebiet.ID_Sachgebiet", 2}});
  EXPECT_EQ(rows("relWortbedWKat", {"ID_Wortbedeutung", "ID_WKategorie"}), Strings{"1|1"});
  EXPECT_EQ(rows("relWortbedSachgebiet", {"ID_Wortbedeutung", "ID_Sachgebiet"}), Strings{"1|2"});
  Recordset values = open("WortbedEigenschaftWertParam", {{"lWortbedeutungID", 1}});
  values.Edit();
  values.set("KategorieWert", "v");
  values.Update();
  EXPECT_EQ(rows("relWortbedWKat", {"KategorieWert"}), Strings{"v"});
}

TEST_F(QueryEdits, AddAReferenceThroughTheListOfAnEntry) {
  Recordset links = open("BegriffQuerverweisParam", {{"lWortID", 1}});
  add(links, {{"ID_Woerterbuch", 1}, {"ID_WoerterbuchQV", 2}, {"Querverweis", "Baum"}});
  links.FindFirst("ID_WoerterbuchQV = 2");
  EXPECT_FALSE(links.NoMatch());
  Recordset meanings = open("BegriffWortbedeutungParam", {{"LWortID", 2}});
  add(meanings, {{"ID_Woerterbuch", 2}, {"Wortbedeutung", "tree"}});
  meanings.MoveLast();
  EXPECT_EQ(meanings["ID_Wortbedeutung"].asInteger(), 2);
  EXPECT_EQ(rows("Querverweis", {"ID_Woerterbuch", "ID_WoerterbuchQV"}), Strings{"1|2"});
}

/// One new row of the import views fills the entry and its meaning or link.
TEST_F(QueryEdits, ImportAnEntryWithItsMeaningOrLink) {
  Recordset view = open("select * from ViewImportFromExternalDB");
  view.AddNew();
  view.set("Begriff", "Zug");
  view.set("Woerterbuch.DatabaseName", "A.CVB");
  view.set("Wortbedeutung.DatabaseName", "A.CVB");
  view.set("Wortbedeutung", "train");
  const std::int64_t id = view["woerterbuch.ID_Woerterbuch"].asInteger();
  view.set("ID_Woerterbuch1", id);
  view.set("Wortbedeutung.ID_Woerterbuch", id);
  view.Update();
  EXPECT_EQ(id, 3);
  EXPECT_EQ(rows("select * from Woerterbuch where ID_Woerterbuch = 3",
                 {"Begriff", "ID_Woerterbuch1", "DatabaseName"}),
            Strings{"Zug|3|A.CVB"});
  EXPECT_EQ(rows("select * from Wortbedeutung where ID_Woerterbuch = 3", {"Wortbedeutung", "DatabaseName"}),
            Strings{"train|A.CVB"});

  Recordset links = open("select * from ViewImportFromExternalDBURL");
  links.AddNew();
  links.set("Begriff", "Seite");
  links.set("DatabaseName", "A.CVB");
  links.set("URL", "http://a.example/");
  links.set("URL.ID_Woerterbuch", links["woerterbuch.ID_Woerterbuch"]);
  links.Update();
  EXPECT_EQ(rows("URL", {"ID_Woerterbuch", "URL"}), Strings{"4|http://a.example/"});
}

/// A rule is added with its row alone; giving the empty side its key makes the first variant.
TEST_F(QueryEdits, MakeARuleAndItsVariants) {
  Recordset rules = open("ViewRegelEingabe1");
  add(rules, {{"RegelName", "plural"}, {"AnzahlVarianten", 2}, {"SichernZuUnterObjekt", true}});
  EXPECT_EQ(rows("RegelVarianten", {"RegelVariantenID"}), Strings{});
  rules.FindFirst("Regelname = 'plural'");
  ASSERT_FALSE(rules.NoMatch());
  const std::int64_t id = rules["Regeln.RegelID"].asInteger();
  rules.Edit();
  rules.set("RegelVarianten.RegelID", id);
  rules.Update();
  EXPECT_EQ(rows("RegelVarianten", {"RegelID", "RegelVariantenID"}), Strings{"1|1"});
  add(rules, {{"RegelVarianten.RegelID", id}});
  EXPECT_EQ(rows("RegelVarianten", {"RegelID", "RegelVariantenID"}), (Strings{"1|1", "1|2"}));
  EXPECT_EQ(rows("Regeln", {"RegelName"}), Strings{"plural"});

  Recordset subjects = open("RegelVariantenSachgebietParam", {{"lRegelVariantenID", 1}});
  add(subjects, {{"relRegelVariantenwSachgebiet.RegelVariantenID", 1},
                 {"relRegelVariantenwSachgebiet.ID_Sachgebiet", 2}});
  EXPECT_EQ(rows("RelRegelVariantenWSachgebiet", {"RegelVariantenID", "ID_Sachgebiet"}), Strings{"1|2"});
  Recordset read = open("RegelVariantenSachgebietParam", {{"lRegelVariantenID", 1}});
  EXPECT_EQ(read["WSachgebiet.ID_Sachgebiet"].asInteger(), 2);
  EXPECT_EQ(read["relRegelVariantenwSachgebiet.ID_Sachgebiet"].asInteger(), 2);
  read.FindFirst("Sachgebiet = \"botany\"");
  read.Delete();
  EXPECT_EQ(rows("RelRegelVariantenWSachgebiet", {"ID_Sachgebiet"}), Strings{});
}

TEST_F(QueryEdits, WriteThroughListsOfEntries) {
  Recordset entries = open("AllWordsOrderByBegriff");
  entries.FindFirst("woerterbuch.ID_Woerterbuch = 2");
  ASSERT_FALSE(entries.NoMatch());
  entries.Edit();
  entries.set("SortBegriff", "baum");
  entries.Update();
  EXPECT_EQ(test::rowsOf(open("BegriffParam", {{"lWortID", 2}}), {"SortBegriff"}), Strings{"baum"});
  entries.FindFirst("ebene =0");
  EXPECT_TRUE(entries.NoMatch());
  add(entries, {{"Begriff", "neu"}});
  EXPECT_EQ(rows("Woerterbuch", {"ID_Woerterbuch", "Begriff"}), (Strings{"1|Haus", "2|Baum", "3|neu"}));
}

}  // namespace
