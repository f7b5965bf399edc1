#include "engine/execute.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "engine/sql/parser.h"
#include "support/error_of.h"
#include "words.h"

namespace {

using engine::Error;
using engine::Parameters;
using engine::Value;
namespace errors = engine::errors;

class ExecuteTest : public test::Words {
 protected:
  std::int64_t run(const std::string& statement, const Parameters& parameters = {}) {
    return database.Execute(statement, parameters);
  }
  int failure(const std::string& statement) {
    return errorOf([&] { run(statement); });
  }
  /// The rows of a select, fields joined by "|", Null as "~".
  std::vector<std::string> rows(const std::string& select) {
    std::vector<std::string> result;
    for (auto set = database.OpenRecordset(select); !set.EndOfFile(); set.MoveNext()) {
      std::string row;
      for (std::size_t i = 0; i < set.Fields().size(); ++i) {
        const Value value = set.value(i);
        row += (i > 0 ? "|" : "") + (value.isNull() ? "~" : value.asText());
      }
      result.push_back(row);
    }
    return result;
  }
  using Rows = std::vector<std::string>;
  /// Whether SQLite answers a select, or a Find on it, from the rows of a watched condition.
  bool walksWatch(const std::string& select, const std::string& criterion) {
    const engine::Binding binding(*database.impl(), engine::Interface::first);
    const auto plan = engine::plan::bind(engine::sql::parse(select), binding.context());
    std::string where;
    if (!criterion.empty()) {
      where = engine::plan::bindCriterion(plan, *engine::sql::parseCondition(criterion), binding.context());
    }
    engine::storage::Statement explain(database.impl()->core->connection().handle(),
                                       "EXPLAIN QUERY PLAN " + engine::plan::emitKeys(plan, where));
    return explain.step() && explain.text(3).find("vc$watch") != std::string_view::npos;
  }
};

TEST_F(ExecuteTest, InsertsOneRowWithItsTypesTakenFromText) {
  EXPECT_EQ(run("insert into woerterbuch(begriff,ebene,unterbegriff,datetimestamp) values "
                "(\"Haus\",\"1\",true,'3.4.2021')"),
            1);
  EXPECT_EQ(run("INSERT INTO Wortbedeutung ( ID_Woerterbuch, Wortbedeutung ) VALUES (\"1\",'it''s');"), 1);
  EXPECT_EQ(
      rows("select id_woerterbuch, begriff, ebene, unterbegriff, datetimestamp, bemerkung from woerterbuch"),
      (Rows{"1|Haus|1|-1|03.04.2021 00:00:00|~"}));
  EXPECT_EQ(rows("select id_woerterbuch, wortbedeutung from wortbedeutung"), Rows{"1|it's"});
  EXPECT_EQ(failure("insert into wortbedeutung(id_woerterbuch) values (7)"), errors::relatedRowRequired);
  EXPECT_EQ(failure("insert into woerterbuch(id_woerterbuch) values (1)"), errors::duplicateKey);
  EXPECT_EQ(failure("insert into woerterbuch(begriff) values ('')"), errors::zeroLength);
  EXPECT_EQ(failure("insert into woerterbuch(begriff) values ('" + std::string(251, 'x') + "')"),
            errors::tooLong);
  EXPECT_EQ(failure("insert into nichts(begriff) values ('x')"), errors::inputNotFound);
  EXPECT_EQ(failure("select * from woerterbuch"), 3065);
  EXPECT_EQ(failure("delete woerterbuch from"), errors::syntax);
  EXPECT_EQ(rows("select count(*) from woerterbuch"), Rows{"1"});
}

TEST_F(ExecuteTest, InsertsTheRowsOfASelectAndSkipsThoseThatBreakARule) {
  add({"a", "b", "c"});
  run("create table Quelle (nr long, wort longtext)");
  auto source = database.OpenRecordset("Quelle");
  const auto put = [&](int nr, const Value& word) {
    source.AddNew();
    source.set("nr", nr);
    source.set("wort", word);
    source.Update();
  };
  put(1, "eins");
  put(9, "kein Eintrag");
  put(3, Value());
  put(2, std::string(251, 'x'));
  put(2, "zwei");
  EXPECT_EQ(
      run("insert into wortbedeutung(id_woerterbuch,wortbedeutung) select nr, wort from quelle order by nr"),
      3);
  EXPECT_EQ(rows("select id_woerterbuch, wortbedeutung from wortbedeutung"),
            (Rows{"1|eins", "2|zwei", "3|~"}));
  // By name, whatever the order of the columns.
  run("create table Ziel (wort longtext, nr long)");
  EXPECT_EQ(run(" insert into Ziel SELECT Quelle.*  FROM  Quelle"), 5);
  EXPECT_EQ(rows("select nr from ziel where wort='zwei'"), Rows{"2"});
}

TEST_F(ExecuteTest, ATableMayFeedItself) {
  add({"a", "b"});
  EXPECT_EQ(run("insert into woerterbuch(begriff) select begriff & '2' from woerterbuch"), 2);
  EXPECT_EQ(rows("select begriff from woerterbuch"), (Rows{"a", "b", "a2", "b2"}));
}

TEST_F(ExecuteTest, UpdatesByExpressionAndByConstant) {
  add({"a", "b", "c", "d"});
  EXPECT_EQ(run("UPDATE  woerterbuch SET sortbegriff = begriff & id_woerterbuch, ebene = ebene + 1 WHERE "
                "id_woerterbuch > 2"),
            2);
  EXPECT_EQ(run("UPDATE  woerterbuch SET bemerkung = 'neu', id_woerterbuch1 = '7', unterbegriff = true"), 4);
  EXPECT_EQ(run("UPDATE woerterbuch SET ebene = -5 WHERE begriff = [wort]", {{"WORT", Value("B")}}), 1);
  EXPECT_EQ(run("UPDATE woerterbuch SET ebene = 1 WHERE begriff = 'keiner'"), 0);
  EXPECT_EQ(
      rows("select begriff, sortbegriff, ebene, bemerkung, id_woerterbuch1, unterbegriff from woerterbuch"),
      (Rows{"a|a|1|neu|7|-1", "b|b|-5|neu|7|-1", "c|c3|2|neu|7|-1", "d|d4|2|neu|7|-1"}));
  // Exchanging two columns reads the old values of both.
  run("UPDATE woerterbuch SET sortbegriff = begriff, begriff = sortbegriff WHERE id_woerterbuch = 3");
  EXPECT_EQ(rows("select begriff, sortbegriff from woerterbuch where id_woerterbuch = 3"), Rows{"c3|c"});
}

TEST_F(ExecuteTest, AFailedUpdateUndoesItselfAlone) {
  add({"kurz", std::string(249, 'x'), "z"});
  run("update woerterbuch set ebene = 9");
  EXPECT_EQ(failure("update woerterbuch set begriff = begriff & 'yz'"), errors::tooLong);
  EXPECT_EQ(failure("update woerterbuch set begriff = ''"), errors::zeroLength);
  EXPECT_EQ(failure("update woerterbuch set ebene = 99999"), errors::overflow);
  EXPECT_EQ(rows("select begriff from woerterbuch where id_woerterbuch <> 2"), (Rows{"kurz", "z"}));
  EXPECT_EQ(rows("select ebene from woerterbuch"), (Rows{"9", "9", "9"})) << "what went before stands";
  EXPECT_EQ(run("update woerterbuch set begriff = '' where ebene = 5"), 0)
      << "refused only where there is a row";
}

TEST_F(ExecuteTest, UpdatesThroughAJoinAndDeletesWithCascade) {
  add({"a", "b", "c"});
  for (const char* id : {"1", "1", "3"}) {
    run(std::string("insert into wortbedeutung(id_woerterbuch,wortbedeutung) values (") + id + ",'m')");
  }
  EXPECT_EQ(run("UPDATE Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
                "Wortbedeutung.ID_Woerterbuch "
                "SET Wortbedeutung.Wortbedeutung = Woerterbuch.Begriff & '!'"),
            3);
  EXPECT_EQ(rows("select wortbedeutung from wortbedeutung"), (Rows{"a!", "a!", "c!"}));
  EXPECT_EQ(run("delete * from woerterbuch where begriff = 'A'"), 1);
  EXPECT_EQ(rows("select wortbedeutung from wortbedeutung"), Rows{"c!"});
  EXPECT_EQ(run("delete * from woerterbuch;"), 2);
  EXPECT_EQ(rows("select * from wortbedeutung"), Rows{});
  run("insert into woerterbuch(begriff) values ('neu')");
  EXPECT_EQ(rows("select id_woerterbuch from woerterbuch"), Rows{"4"}) << "numbers are never used again";
}

TEST_F(ExecuteTest, SelectIntoMakesATableWithTypesAndTakesEmptyTexts) {
  add({"a", "b"});
  run("insert into wkategorie(kategorie) values ('Wortart')");
  run("insert into relwoertwkat(id_woerterbuch,id_wkategorie,kategoriewert) values (2,1,'Nomen')");
  EXPECT_EQ(run("SELECT DISTINCTROW relWoertWKat.*, WKategorie.*, Woerterbuch.Begriff into WKategorietemp "
                "FROM WKategorie "
                "INNER JOIN (Woerterbuch INNER JOIN relWoertWKat ON Woerterbuch.ID_Woerterbuch = "
                "relWoertWKat.ID_Woerterbuch) "
                "ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie"),
            1);
  EXPECT_EQ(rows("select id_woerterbuch, relwoertwkat_id_wkategorie, begriff from wkategorietemp where "
                 "begriff = 'B'"),
            Rows{"2|1|b"});
  EXPECT_EQ(run("insert into wkategorietemp(begriff) values ('')"), 1);
  EXPECT_EQ(failure("select * into wkategorietemp from woerterbuch"), errors::tableExists);
  EXPECT_EQ(failure("select begriff & [unbekannt] as x into neu from woerterbuch"), errors::tooFewParameters);
  EXPECT_EQ(errorOf([&] { database.tableDef("neu"); }), errors::itemNotFound)
      << "the failed one is gone again";
  run("drop table [wkategorietemp];");
  EXPECT_EQ(failure("drop table [wkategorietemp];"), errors::objectNotFound);
}

TEST_F(ExecuteTest, ReachesOtherFilesThroughIn) {
  add({"hier"});
  {
    auto other = workspace.CreateDatabase(folder / "other.cvb", german, 2);
    other.Execute("create table woerterbuch (id_woerterbuch counter, begriff text(250))");
    other.Execute("insert into woerterbuch(begriff) values ('dort')");
    other.Close();
  }
  const std::string path = folder / "OTHER.CVB";
  EXPECT_EQ(run("insert into woerterbuch(begriff) select begriff from woerterbuch in '" + path + "'"), 1);
  EXPECT_EQ(rows("select begriff from woerterbuch"), (Rows{"hier", "dort"}));
  EXPECT_EQ(failure("insert into woerterbuch(begriff) select begriff from woerterbuch in '" + path + "x'"),
            errors::fileNotFound);
  workspace.Idle();
}

TEST_F(ExecuteTest, StoredQueriesRunWithParameters) {
  add({"a", "b"});
  auto query = database.CreateQueryDef(
      "Setzen", "PARAMETERS lWortID Long; UPDATE woerterbuch SET ebene = 5 WHERE id_woerterbuch = lWortID");
  EXPECT_EQ(query.parameterNames(), std::vector<std::string>{"lWortID"});
  EXPECT_EQ(errorOf([&] { query.Execute(); }), errors::tooFewParameters);
  EXPECT_EQ(errorOf([&] { query.setParameter("anders", 1); }), errors::itemNotFound);
  query.setParameter("LWORTID", "2");
  EXPECT_EQ(query.Execute(), 1);
  EXPECT_EQ(rows("select begriff from woerterbuch where ebene = 5"), Rows{"b"});
  EXPECT_EQ(errorOf([&] { database.CreateQueryDef("SETZEN", "select 1"); }), errors::queryExists);
  EXPECT_EQ(errorOf([&] { database.CreateQueryDef("WOERTERBUCH", "select 1"); }), errors::tableExists);
  EXPECT_EQ(errorOf([&] { database.CreateQueryDef("Falsch", "selekt"); }), errors::syntax);
  EXPECT_EQ(errorOf([&] { database.queryDef("Falsch"); }), errors::itemNotFound);
}

TEST_F(ExecuteTest, ATransactionOfTheCallerIsKeptOrUndoneWhole) {
  add({"a"});
  workspace.BeginTrans();
  run("update woerterbuch set begriff = 'x'");
  workspace.Idle();
  run("create table neu (x long)");
  workspace.Rollback();
  EXPECT_EQ(rows("select begriff from woerterbuch"), Rows{"a"});
  EXPECT_EQ(failure("insert into neu(x) values (1)"), errors::inputNotFound);
  workspace.BeginTrans();
  run("update woerterbuch set begriff = 'y'");
  workspace.CommitTrans();
  EXPECT_EQ(rows("select begriff from woerterbuch"), Rows{"y"});
  EXPECT_NE(errorOf([&] { workspace.CommitTrans(); }), 0);
}

TEST_F(ExecuteTest, DefinitionsAndLoginsHoldOverAReopening) {
  database.tableDef("WOERTERBUCH").setAllowZeroLength("bemerkung", true);
  database.tableDef("woerterbuch").appendFieldProperty("begriff", "UnicodeCompression", "true");
  run("ALTER TABLE [woerterbuch] ADD COLUMN [Klang] TEXT(50) ");
  run("alter table woerterbuch alter column bemerkung longtext;");
  database.setPermissions("Tables", "Woerterbuch", "Admins", 0);
  database.Close();
  engine::createWorkgroupFile(folder / "Sys.mda", login().user, login().password);
  engine::Login checked = login();
  checked.systemDB = folder / "Sys.mda";
  engine::Workspace again(checked);
  database = again.OpenDatabase(folder / "WORDS.cvb");
  const auto fields = database.tableDef("woerterbuch").Fields();
  EXPECT_EQ(fields.back().name, "Klang");
  EXPECT_EQ(fields.back().size, 50);
  EXPECT_TRUE(fields[6].allowZeroLength);
  EXPECT_EQ(database.tableDef("woerterbuch").fieldProperty("Begriff", "unicodecompression"), "true");
  EXPECT_EQ(errorOf([&] { database.tableDef("woerterbuch").fieldProperty("Begriff", "x"); }),
            errors::itemNotFound);
  EXPECT_EQ(database.relations().size(), 3U);
  EXPECT_EQ(database.tableNames().front(), "Woerterbuch");
  database.Close();
  EXPECT_EQ(errorOf([&] { database.Execute("delete * from woerterbuch"); }), 3420);
  checked.password = "falsch";
  EXPECT_EQ(errorOf([&] { engine::Workspace refused(checked); }), errors::badLogin);
  checked.systemDB = folder / "none.mda";
  EXPECT_EQ(errorOf([&] { engine::Workspace refused(checked); }), errors::badPath);
}

TEST_F(ExecuteTest, AReadOnlyHandleOnAFileOpenForWritingChangesNothing) {
  add({"a"});
  database.CreateQueryDef("SQLTemp", "select 1");
  auto reading = workspace.OpenDatabase(folder / "words.cvb", false, true);
  EXPECT_TRUE(reading.readOnly());
  EXPECT_FALSE(database.readOnly());
  for (const char* statement : {"delete * from woerterbuch", "insert into woerterbuch(begriff) values ('b')",
                                "update woerterbuch set ebene = 2", "drop table woerterbuch",
                                "select * into kopie from woerterbuch"}) {
    EXPECT_EQ(errorOf([&] { reading.Execute(statement); }), errors::readOnly) << statement;
  }
  EXPECT_EQ(errorOf([&] { reading.tableDef("woerterbuch").setAllowZeroLength("begriff", true); }),
            errors::readOnly);
  auto set = reading.OpenRecordset("woerterbuch");
  EXPECT_EQ(errorOf([&] { set.Edit(); }), errors::readOnly);
  EXPECT_EQ(run("update woerterbuch set ebene = 2"), 1);
}

TEST_F(ExecuteTest, WatchedConditionsAreFoundWithoutAScan) {
  run("insert into woerterbuch(begriff,ebene,sortbegriff) values ('a',1,'a')");
  auto table = database.tableDef("woerterbuch");
  const std::string both = "(ebene = 1 and ID_Woerterbuch <> ID_Woerterbuch1) or isnull(ID_Woerterbuch1)";
  for (const std::string& condition : {std::string("ebene = 0"), std::string("isnull(sortbegriff)"), both})
    table.watch(condition);
  table.watch("EBENE =0");
  run("insert into woerterbuch(begriff,ebene,id_woerterbuch1) values ('b',0,2)");
  EXPECT_EQ(rows("select begriff from woerterbuch where isnull(sortbegriff)"), Rows{"b"});
  EXPECT_EQ(rows("select begriff from woerterbuch where " + both), Rows{"a"});
  auto set = database.OpenRecordset("select * from woerterbuch order by sortbegriff");
  set.FindFirst("ebene =0");
  ASSERT_FALSE(set.NoMatch());
  EXPECT_EQ(set["begriff"], Value("b"));
  EXPECT_TRUE(walksWatch("select * from woerterbuch where isnull(sortbegriff)", ""));
  EXPECT_TRUE(walksWatch("select * from woerterbuch where " + both, ""));
  EXPECT_TRUE(walksWatch("select * from woerterbuch order by sortbegriff", "ebene =0"));
  EXPECT_FALSE(walksWatch("select * from woerterbuch order by sortbegriff", "ebene =1"));
  EXPECT_EQ(errorOf([&] { table.watch("gibtsnicht = 1"); }), errors::unknownName);
}

}  // namespace
