#include <algorithm>

#include "dictionary.h"

namespace engine::storage {
namespace {

class DefinitionsTest : public DictionaryTest {
 protected:
  std::int64_t storedIndexes(const std::string& table) {
    return number(*connection, "SELECT count(*) FROM d1.sqlite_master WHERE type = 'index' AND tbl_name = '" +
                                   table + "'");
  }
};

TEST_F(DefinitionsTest, ComeBackAfterReopeningAsTheyWereGiven) {
  file->createQuery({"Alle", "SELECT * FROM woerterbuch"}, false);
  file->createQuery({"SQLTemp", ""}, false);
  file->setQueryText("sqltemp", "SELECT  begriff FROM woerterbuch ;", false);
  file->setAllowZeroLength("WOERTERBUCH", "begriff", true);
  file->setProperty({"woerterbuch", "BEGRIFF", "UnicodeCompression", "true"});
  file->setPermission({"Tables", "Woerterbuch", "Admins", 0});
  file->appendWatch({"woerterbuch", "ebene = 0", "\"Ebene\" = 0"});
  file->setFileValue("compaction", "now");
  const CatalogData before = file->data();
  reopen();
  const CatalogData& after = file->data();
  EXPECT_EQ(after.locale, german);
  EXPECT_EQ(after.collation, "vc_0407");
  EXPECT_EQ(after.user, owner.user);
  EXPECT_EQ(after.compaction, "now");
  EXPECT_EQ(after.counter, before.counter);
  ASSERT_EQ(after.tables.size(), before.tables.size());
  for (std::size_t t = 0; t < before.tables.size(); ++t) {
    EXPECT_EQ(after.tables[t].name, before.tables[t].name) << "in the order of creation";
    ASSERT_EQ(after.tables[t].columns.size(), before.tables[t].columns.size());
    for (std::size_t c = 0; c < before.tables[t].columns.size(); ++c) {
      const schema::Column &a = before.tables[t].columns[c], &b = after.tables[t].columns[c];
      EXPECT_EQ(std::tie(a.name, a.type, a.size, a.required, a.allowZeroLength),
                std::tie(b.name, b.type, b.size, b.required, b.allowZeroLength));
    }
    ASSERT_EQ(after.tables[t].indexes.size(), before.tables[t].indexes.size());
    for (std::size_t i = 0; i < before.tables[t].indexes.size(); ++i) {
      const schema::Index &a = before.tables[t].indexes[i], &b = after.tables[t].indexes[i];
      EXPECT_EQ(std::tie(a.name, a.columns, a.primary, a.unique),
                std::tie(b.name, b.columns, b.primary, b.unique));
    }
  }
  EXPECT_TRUE(file->table("Woerterbuch")->columns[1].allowZeroLength);
  ASSERT_NE(file->query("SQLTEMP"), nullptr);
  EXPECT_EQ(file->query("SQLTEMP")->text, "SELECT  begriff FROM woerterbuch ;");
  ASSERT_EQ(after.relations.size(), 2U);
  EXPECT_EQ(after.relations[1].foreignTable, "WortBedBsp") << "the real spelling";
  ASSERT_EQ(after.properties.size(), 1U);
  EXPECT_EQ(after.properties[0].field, "Begriff");
  ASSERT_EQ(after.permissions.size(), 1U);
  ASSERT_EQ(after.watches.size(), 1U);
}

TEST_F(DefinitionsTest, TablesAndQueriesShareOneNamespaceWithoutRegardToCase) {
  file->createTable({"Ärger", {{"x", ColumnType::longInteger, 0, false, false}}, {}});
  file->createQuery({"Übung", "SELECT 1"}, false);
  const schema::Table table{"äRGER", {{"x", ColumnType::longInteger, 0, false, false}}, {}};
  const schema::Table query{"üBUNG", table.columns, {}};
  EXPECT_EQ(errorOf([&] { file->createTable(table); }), errors::tableExists);
  EXPECT_EQ(errorOf([&] { file->createTable(query); }), errors::queryExists);
  EXPECT_EQ(errorOf([&] { file->createQuery({"ÄRGER", ""}, false); }), errors::tableExists);
  EXPECT_EQ(errorOf([&] { file->createQuery({"ÜBUNG", ""}, false); }), errors::queryExists);
  file->dropTable("ÜBUNG");
  file->dropTable("ÄRGER");
  EXPECT_EQ(errorOf([&] { file->dropTable("Ärger"); }), errors::objectNotFound);
  EXPECT_EQ(file->query("Übung"), nullptr);
  reopen();
  EXPECT_EQ(file->table("Ärger"), nullptr);
  EXPECT_EQ(errorOf([&] { file->dropTable("Woerterbuch"); }), 3281) << "relations hold it";
}

TEST_F(DefinitionsTest, AwkwardNamesWork) {
  const std::string name = "a \"b\" 'c' [d]; DROP", column = "order \"by\" select";
  file->createTable(
      {name,
       {{"id", ColumnType::counter, 0, false, false}, {column, ColumnType::text, 10, false, false}},
       {{"in'dex\"", {column}, false, true}}});
  file->createTable({"a", {{"x", ColumnType::longInteger, 0, false, false}}, {{"b$c", {"x"}, false, false}}});
  file->createTable({"a$b", {{"x", ColumnType::longInteger, 0, false, false}}, {{"c", {"x"}, false, false}}});
  insert(name, {{1, Value("x")}});
  EXPECT_EQ(errorOf([&] { insert(name, {{1, Value("X")}}); }), errors::duplicateKey);
  reopen();
  EXPECT_EQ(number(*connection, "SELECT count(*) FROM d1." + schema::quoteName(name)), 1);
}

TEST_F(DefinitionsTest, NamesOfTheEngineAreRefused) {
  for (const char* name : {"", "vc$file", "VC$x", "sqlite_master", "SQLite_x", "a\nb"}) {
    EXPECT_EQ(errorOf([&] {
                file->createTable({name, {{"x", ColumnType::bit, 0, false, false}}, {}});
              }),
              3125)
        << name;
  }
  EXPECT_NE(errorOf([&] { file->createTable({"leer", {}, {}}); }), 0);
  EXPECT_NE(
      errorOf([&] {
        file->createTable(
            {"zwei", {{"x", ColumnType::bit, 0, false, false}, {"X", ColumnType::bit, 0, false, false}}, {}});
      }),
      0);
  EXPECT_EQ(file->data().tables.size(), 3U);
}

TEST_F(DefinitionsTest, ColumnsAreAddedChangedAndDropped) {
  insert("Woerterbuch", {{1, Value("zwölf")}, {4, Value("12")}});
  insert("Woerterbuch", {{1, Value("keins")}});
  file->addColumn("woerterbuch", {"Klang", ColumnType::text, 50, false, false});
  file->addColumn("woerterbuch", {"Neu", ColumnType::bit, 0, false, false});
  EXPECT_EQ(count("Woerterbuch", "Neu = 0 AND Klang IS NULL"), 2);
  EXPECT_EQ(errorOf([&] {
              file->addColumn("woerterbuch", {"KLANG", ColumnType::text, 50, false, false});
            }),
            3380);

  const auto version = file->version();
  file->alterColumn("woerterbuch", {"bemerkung", ColumnType::memo, 0, false, false});
  EXPECT_EQ(file->version(), version) << "the type it has costs nothing";
  EXPECT_EQ(errorOf([&] {
              file->alterColumn("woerterbuch", {"begriff", ColumnType::text, 4, false, false});
            }),
            errors::tooLong);
  file->alterColumn("woerterbuch", {"begriff", ColumnType::memo, 0, false, false});
  file->alterColumn("woerterbuch", {"bemerkung", ColumnType::longInteger, 0, false, false});
  EXPECT_EQ(textOf(*connection, "SELECT typeof(Bemerkung) FROM d1.Woerterbuch"), "integer");
  EXPECT_EQ(errorOf([&] {
              file->alterColumn("woerterbuch", {"begriff", ColumnType::date, 0, false, false});
            }),
            errors::typeMismatch);
  EXPECT_EQ(file->table("Woerterbuch")->columns[1].type, ColumnType::memo)
      << "the failed change left all as it was";
  EXPECT_EQ(textOf(*connection, "SELECT Begriff FROM d1.Woerterbuch WHERE rowid = 1"), "zwölf");

  EXPECT_EQ(errorOf([&] { file->dropColumn("woerterbuch", "begriff"); }), 3280) << "an index needs it";
  EXPECT_EQ(errorOf([&] { file->dropColumn("wortbedeutung", "id_woerterbuch"); }), 3280)
      << "a relation needs it";
  file->dropIndex("woerterbuch", "begriff");
  file->dropColumn("woerterbuch", "begriff");
  reopen();
  EXPECT_EQ(file->table("Woerterbuch")->find("begriff"), -1);
  EXPECT_EQ(count("Woerterbuch", "Bemerkung = 12"), 1);
  EXPECT_EQ(textOf(*connection, "PRAGMA d1.integrity_check"), "ok");
  EXPECT_EQ(number(*connection, "SELECT count(*) FROM pragma_foreign_key_check()"), 0);
}

TEST_F(DefinitionsTest, IndexesCheckTheRowsThatAreThere) {
  insert("Woerterbuch", {{1, Value("Haus")}, {2, Value(1)}});
  insert("Woerterbuch", {{1, Value("haus")}});
  EXPECT_EQ(errorOf([&] {
              file->createIndex("woerterbuch", {"u", {"begriff"}, false, true});
            }),
            errors::duplicateKey);
  EXPECT_EQ(errorOf([&] { file->createIndex("wortbedeutung", {"p", {"wortbedeutung"}, true, true}); }), 3283);
  EXPECT_EQ(errorOf([&] { file->createIndex("woerterbuch", {"BEGRIFF", {"ebene"}, false, false}); }), 3375);
  EXPECT_EQ(errorOf([&] { file->createIndex("woerterbuch", {"x", {"nix"}, false, false}); }), 3409);
  insert("WortBedBsp", {{1, Value("x")}});
  EXPECT_EQ(errorOf([&] {
              file->createIndex("wortbedbsp", {"p", {"id_wortbedeutung"}, true, true});
            }),
            errors::keyIsNull);
  EXPECT_EQ(file->table("Woerterbuch")->indexes.size(), 2U);
}

TEST_F(DefinitionsTest, ARelationIsAddedToFilledTablesThatObeyIt) {
  file->createTable(
      {"Kind",
       {{"Vater", ColumnType::longInteger, 0, false, false}, {"Name", ColumnType::text, 9, false, false}},
       {}});
  insert("Woerterbuch", {{0, Value(1)}});
  insert("Kind", {{0, Value(1)}, {1, Value("a")}});
  insert("Kind", {{0, Value(2)}, {1, Value("b")}});
  insert("Kind", {{1, Value("c")}});
  const RelationRecord relation{"R", "woerterbuch", "kind", "id_woerterbuch", "vater", 4352};
  EXPECT_EQ(errorOf([&] { file->appendRelation(relation); }), errors::relatedRowRequired);
  insert("Woerterbuch", {{0, Value(2)}});
  file->appendRelation(relation);
  EXPECT_EQ(errorOf([&] { file->appendRelation(relation); }), errors::queryExists);
  EXPECT_EQ(errorOf([&] { file->appendRelation({"S", "woerterbuch", "kind", "ebene", "vater", 0}); }), 3368);
  EXPECT_EQ(errorOf([&] { insert("Kind", {{0, Value(3)}}); }), errors::relatedRowRequired);
  TableWriter(*file, file->existingTable("Woerterbuch")).erase(1);
  EXPECT_EQ(count("Kind"), 2);
  reopen();
  TableWriter(*file, file->existingTable("Woerterbuch")).erase(2);
  EXPECT_EQ(count("Kind"), 1);
  EXPECT_EQ(textOf(*connection, "PRAGMA d1.integrity_check"), "ok");
}

TEST_F(DefinitionsTest, EveryChildColumnHasAnIndexWhateverBecomesOfTheDeclaredOnes) {
  const auto isIndexed = [&] {
    Statement explain(connection->handle(),
                      "EXPLAIN QUERY PLAN SELECT 1 FROM d1.Wortbedeutung WHERE ID_Woerterbuch = 1");
    return explain.step() && explain.text(3).find("USING") != std::string_view::npos;
  };
  EXPECT_TRUE(isIndexed());
  const auto hiddenOnly = storedIndexes("Wortbedeutung");
  file->createIndex("wortbedeutung", {"ID_Woerterbuch", {"ID_Woerterbuch"}, false, false});
  EXPECT_EQ(storedIndexes("Wortbedeutung"), hiddenOnly) << "the declared one takes its place";
  EXPECT_TRUE(isIndexed());
  file->dropIndex("wortbedeutung", "id_woerterbuch");
  EXPECT_TRUE(isIndexed());
}

TEST_F(DefinitionsTest, ScratchQueriesOfAReadOnlyFileLiveInMemory) {
  file->createQuery({"SQLTemp", "SELECT 1"}, false);
  connection->idle();
  file.reset();
  connection->releaseUnused();
  file = connection->open(path(), false, true);
  ASSERT_TRUE(file->readOnly());
  file->setQueryText("SQLTEMP", "SELECT 2", false);
  file->reload();
  EXPECT_EQ(file->query("sqltemp")->text, "SELECT 2") << "also when others changed definitions";
  EXPECT_EQ(errorOf([&] { insert("Woerterbuch", {}); }), errors::readOnly);
  EXPECT_EQ(errorOf([&] { file->dropTable("sqltemp"); }), errors::readOnly);
  reopen();
  EXPECT_EQ(file->query("sqltemp")->text, "SELECT 1");
}

TEST_F(DefinitionsTest, ARollbackTakesDefinitionsBackToo) {
  connection->begin();
  file->createTable({"Neu", {{"x", ColumnType::longInteger, 0, false, false}}, {}});
  insert("Neu", {{0, Value(1)}});
  connection->idle();
  EXPECT_TRUE(connection->inCallersTransaction()) << "idle leaves the caller's transaction open";
  connection->rollback();
  EXPECT_EQ(file->table("Neu"), nullptr);
  EXPECT_EQ(errorOf([&] { connection->commit(); }), 3034);
  connection->begin();
  file->createTable({"Neu", {{"x", ColumnType::longInteger, 0, false, false}}, {}});
  connection->commit();
  reopen();
  EXPECT_NE(file->table("Neu"), nullptr);
}

TEST_F(DefinitionsTest, AFileOfALaterProgramIsRefused) {
  file->setFileValue("format", std::to_string(formatVersion + 1));
  connection->idle();
  file.reset();
  connection = std::make_unique<Connection>(owner);
  try {
    connection->open(path(), false, false);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), errors::notADictionary);
    EXPECT_NE(error.text().find("later version"), std::string::npos) << error.text();
  }
}

TEST_F(DefinitionsTest, OtherRulesOfTextOrderRebuildTheIndexes) {
  insert("Woerterbuch", {{1, Value("Apfel")}});
  file->setFileValue("collationVersion", "1.0");
  connection->idle();
  file.reset();
  connection = std::make_unique<Connection>(owner);
  EXPECT_EQ(errorOf([&] { connection->open(path(), false, true); }), errors::readOnly);
  file = connection->open(path(), false, false);
  reopen();
  EXPECT_NE(file->data().collationVersion, "1.0");
}

}  // namespace
}  // namespace engine::storage
