#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "engine/workspace.h"
#include "support/error_of.h"
#include "support/temp_dir.h"

namespace test {

/// A small dictionary: entries with senses, senses with examples, properties tied to entries.
class Words : public ::testing::Test {
 protected:
  Words() : workspace(login()), database(workspace.CreateDatabase(folder / "words.cvb", german, 2)) {
    for (const char* statement :
         {"CREATE TABLE Woerterbuch (ID_Woerterbuch COUNTER, ID_Woerterbuch1 LONG, Begriff TEXT(250), "
          "SortBegriff TEXT(250), Ebene SHORT, Unterbegriff BIT, Bemerkung LONGTEXT, DateTimeStamp DATE)",
          "CREATE UNIQUE INDEX PrimaryKey ON Woerterbuch (ID_Woerterbuch) WITH PRIMARY",
          "CREATE INDEX Begriff ON Woerterbuch (Begriff)",
          "CREATE INDEX SortBegriff ON Woerterbuch (SortBegriff)",
          "CREATE TABLE Wortbedeutung (ID_Wortbedeutung COUNTER, ID_Woerterbuch LONG, Wortbedeutung "
          "TEXT(250))",
          "CREATE UNIQUE INDEX PrimaryKey ON Wortbedeutung (ID_Wortbedeutung) WITH PRIMARY",
          "CREATE TABLE WKategorie (ID_WKategorie COUNTER, Kategorie TEXT(50))",
          "CREATE UNIQUE INDEX PrimaryKey ON WKategorie (ID_WKategorie) WITH PRIMARY",
          "CREATE TABLE relWoertWKat (ID_Woerterbuch LONG, ID_WKategorie LONG, KategorieWert TEXT(50))"}) {
      database.Execute(statement);
    }
    relate("WoerterbuchWortbedeutung", "Woerterbuch", "Wortbedeutung", "ID_Woerterbuch");
    relate("WoerterbuchRelWoertWKat", "Woerterbuch", "relWoertWKat", "ID_Woerterbuch");
    relate("WKategorieRelWoertWKat", "WKategorie", "relWoertWKat", "ID_WKategorie");
  }

  static engine::Login login() { return {"", "VocariumUser", "built-in", "", false}; }

  void relate(const std::string& name, const std::string& table, const std::string& foreign,
              const std::string& field) {
    engine::Relation relation;
    relation.Name = name;
    relation.Table = table;
    relation.ForeignTable = foreign;
    relation.Attributes = engine::Relation::updateCascade | engine::Relation::deleteCascade;
    relation.field = relation.foreignField = field;
    database.appendRelation(relation);
  }

  /// Entries with these headwords, numbered from 1; the sort key is the headword.
  void add(const std::vector<std::string>& headwords) {
    engine::Recordset rows = database.OpenRecordset("Woerterbuch");
    for (const std::string& headword : headwords) {
      rows.AddNew();
      rows.set("Begriff", headword);
      rows.set("SortBegriff", headword);
      rows.set("Ebene", 1);
      rows.Update();
    }
  }

  engine::Recordset sorted() {
    return database.OpenRecordset("SELECT * FROM Woerterbuch ORDER BY SortBegriff");
  }

  /// A field of all rows from the first to the last; "(gone)" where a row was deleted.
  static std::vector<std::string> column(engine::Recordset& rows, const std::string& field) {
    std::vector<std::string> values;
    if (rows.RecordCount() == 0) return values;
    for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) values.push_back(read(rows, field));
    return values;
  }

  static std::string read(engine::Recordset& rows, const std::string& field) {
    try {
      const engine::Value value = rows[field];
      return value.isNull() ? "(null)" : value.asText();
    } catch (const engine::Error& error) {
      return error.number() == 3167 ? "(gone)" : "(" + std::to_string(error.number()) + ")";
    }
  }

  static constexpr const char* german = ";LANGID=0x0407;CP=1252;COUNTRY=0";
  TempDir folder;
  engine::Workspace workspace;
  engine::Database database;
};

using Texts = std::vector<std::string>;

}  // namespace test
