#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "engine/storage/attached_file.h"
#include "engine/storage/connection.h"
#include "engine/storage/writer.h"
#include "support/error_of.h"
#include "support/temp_dir.h"

namespace engine::storage {

inline const std::string german = ";LANGID=0x0407;CP=1252;COUNTRY=0";
inline const file::Credential owner{"CorvantaAdmin", "LarksMoor", false};

/// Entries with meanings and examples, cascading.
inline void createWords(AttachedFile& file) {
  file.createTable({"Woerterbuch",
                    {{"ID_Woerterbuch", ColumnType::counter, 0, false, false},
                     {"Begriff", ColumnType::text, 20, false, false},
                     {"Ebene", ColumnType::shortInteger, 0, false, false},
                     {"Unterbegriff", ColumnType::bit, 0, false, false},
                     {"Bemerkung", ColumnType::memo, 0, false, true},
                     {"DateTimeStamp", ColumnType::date, 0, false, false},
                     {"Mass", ColumnType::real, 0, false, false}},
                    {}});
  file.createIndex("woerterbuch", {"PrimaryKey", {"id_woerterbuch"}, true, true});
  file.createIndex("Woerterbuch", {"Begriff", {"Begriff"}, false, false});
  file.createTable({"Wortbedeutung",
                    {{"ID_Wortbedeutung", ColumnType::counter, 0, false, false},
                     {"ID_Woerterbuch", ColumnType::longInteger, 0, false, false},
                     {"Wortbedeutung", ColumnType::text, 250, false, false}},
                    {{"PrimaryKey", {"ID_Wortbedeutung"}, true, true}}});
  file.createTable({"WortBedBsp",
                    {{"ID_Wortbedeutung", ColumnType::longInteger, 0, false, false},
                     {"Beispiel", ColumnType::memo, 0, false, false}},
                    {}});
  file.appendRelation({"WW", "Woerterbuch", "Wortbedeutung", "ID_Woerterbuch", "ID_Woerterbuch", 4352});
  file.appendRelation({"WB", "wortbedeutung", "wortbedbsp", "id_wortbedeutung", "id_wortbedeutung", 4352});
}

inline std::int64_t number(Connection& connection, const std::string& select) {
  const Connection::Internal internal(connection);
  Statement statement(connection.handle(), select);
  return statement.step() ? statement.integer(0) : -1;
}

inline std::string textOf(Connection& connection, const std::string& select) {
  const Connection::Internal internal(connection);
  Statement statement(connection.handle(), select);
  return statement.step() ? std::string(statement.text(0)) : "(no row)";
}

/// A test with a folder, a connection and a dictionary "words.cvb" in it.
class DictionaryTest : public testing::Test {
 protected:
  void SetUp() override {
    connection = std::make_unique<Connection>(owner);
    file = connection->create(path(), german);
    createWords(*file);
    connection->idle();
  }
  std::string path(const std::string& name = "words.cvb") const { return (folder.path() / name).string(); }
  /// Closes everything and opens the file anew, as the next start of the program does.
  void reopen() {
    connection->idle();
    file.reset();
    connection = std::make_unique<Connection>(owner);
    file = connection->open(path(), false, false);
  }
  std::int64_t insert(const std::string& table, const RowValues& values) {
    return TableWriter(*file, file->existingTable(table)).insert(values);
  }
  std::int64_t count(const std::string& table, const std::string& where = "1") {
    return number(*connection,
                  "SELECT count(*) FROM " + file->schemaName() + ".\"" + table + "\" WHERE " + where);
  }

  test::TempDir folder;
  std::unique_ptr<Connection> connection;
  std::shared_ptr<AttachedFile> file;
};

}  // namespace engine::storage
