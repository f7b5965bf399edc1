#include <set>

#include "base/text.h"
#include "queries_fixture.h"
#include "store/queries/stored_queries.h"

namespace {

using test::QueriesTest;

engine::Value sampleFor(const std::string& parameter) {
  if (parameter.front() == 'l' || parameter.front() == 'L') return 1;
  if (base::equalsIgnoreCase(parameter, "sDatumVon")) return "01.01.2021";
  if (base::equalsIgnoreCase(parameter, "sDatumBis")) return "31.12.2022";
  if (base::equalsIgnoreCase(parameter, "sKategorie")) return "noun";
  if (base::equalsIgnoreCase(parameter, "sSachgebiet")) return "law";
  return "h";
}

class StoredQueries : public QueriesTest {};

TEST_F(StoredQueries, AreAllThereWithTheirTexts) {
  const auto all = store::storedQueries();
  EXPECT_EQ(all.size(), 148u);
  std::set<std::string> names;
  for (const auto& query : all) {
    EXPECT_TRUE(names.insert(base::lower(query.name)).second) << query.name;
    EXPECT_EQ(db().queryDef(query.name).SQL(), query.text);
  }
  EXPECT_EQ(db().queryNames().size(), 148u);
}

TEST_F(StoredQueries, OpenWithTheirParametersSet) {
  for (const auto& query : store::storedQueries()) {
    SCOPED_TRACE(query.name);
    try {
      engine::QueryDef definition = db().queryDef(query.name);
      for (const std::string& parameter : definition.parameterNames())
        definition.setParameter(parameter, sampleFor(parameter));
      engine::Recordset rows = definition.OpenRecordset();
      if (!rows.EndOfFile()) {
        rows.MoveLast();
        for (std::size_t field = 0; field < rows.Fields().size(); ++field) rows.value(field);
      }
      const bool callersSetSome =
          base::inStr(query.name, "Param") != 0 || base::inStr(query.name, "Einzel") != 0;
      EXPECT_TRUE(!callersSetSome || !definition.parameterNames().empty());
      const bool asksForNone =
          base::inStr(query.text, "[l") == 0 && base::inStr(query.text, "PARAMETERS") == 0;
      EXPECT_TRUE(!asksForNone || definition.parameterNames().empty());
    } catch (const engine::Error& error) {
      ADD_FAILURE() << error.number() << " " << error.text();
    }
  }
}

TEST_F(StoredQueries, TakeTheirParametersByTheNamesThatCallersUse) {
  const std::pair<const char*, const char*> cases[] = {
      {"BegriffParam", "lWortID"},
      {"Woerterbuchrelwoertwoert", "lWordID"},
      {"WortbedParam", "lWordID"},
      {"WortbedBspParam2", "lWortbedID"},
      {"WortbedEigenschaftWertParam", "lWortbedeutungID"},
      {"WortbedSachgebietWortbedIDParam", "lWortbedeutungID"},
      {"WortbedKategorieWortbedIDParam", "lWortbedeutungID"},
      {"BegriffEigenschaftWertParam", "lWortID"},
      {"ViewRegelEingabeParam1", "lRegelID"},
      {"RegelVariantenSachgebietParam", "lRegelVariantenID"},
      {"PrintEinzelBegriffErsteEbeneParam", "lWordID"},
      {"QueryReportingEinzelBegriff", "lWordID"},
      {"ExportInZwischenablage", "lWordID"},
      {"VonBisdatumFilterParam", "sDatumVon"},
      {"ViewBegriffWortbedSach", "SSACHGEBIET"}};
  for (const auto& [query, parameter] : cases) {
    try {
      engine::QueryDef definition = db().queryDef(query);
      definition.setParameter(parameter, sampleFor(parameter));
    } catch (const engine::Error& error) {
      ADD_FAILURE() << query << ": " << error.text();
    }
  }
  EXPECT_THROW(db().OpenRecordset("BegriffParam"), engine::Error);
}

TEST(CreateQueries, LeavesTextsAloneThatAreThere) {
  const test::TempDir folder;
  engine::Workspace workspace(test::testLogin());
  engine::Database db = test::createEmpty(workspace, folder / "a.cvb");
  db.queryDef("SQLTemp").setSQL("select 1 as one from Sprache;");
  db.Execute("drop table [AllWords];");
  store::CreateQueries(db);
  EXPECT_EQ(db.queryDef("sqltemp").SQL(), "select 1 as one from Sprache;");
  EXPECT_NO_THROW(db.OpenRecordset("AllWords"));
  EXPECT_EQ(db.queryNames().size(), 148u);
}

}  // namespace
