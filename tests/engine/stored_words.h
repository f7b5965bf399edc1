#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "engine/impl.h"
#include "engine/storage/writer.h"
#include "engine/workspace.h"
#include "support/temp_dir.h"

/// A dictionary file of entries, senses and settings, made below the dialect, for tests that damage it.
namespace stored {

inline const engine::Login login{"", "VocariumUser", "built-in", "", false};
inline constexpr const char* german = ";LANGID=0x0407;CP=1252;COUNTRY=0";
inline constexpr const char* swedish = ";LANGID=0x041D;CP=1252;COUNTRY=0";

using engine::ColumnType;
using engine::Value;

inline engine::schema::Table entries() {
  return {"Woerterbuch",
          {{"ID_Woerterbuch", ColumnType::counter},
           {"Begriff", ColumnType::text, 250, true, false},
           {"Bemerkung", ColumnType::memo, 0, false, true},
           {"Unterbegriff", ColumnType::bit}},
          {}};
}
inline engine::schema::Table senses() {
  return {"Wortbedeutung",
          {{"ID_Wortbedeutung", ColumnType::counter},
           {"ID_Woerterbuch", ColumnType::longInteger},
           {"Wortbedeutung", ColumnType::text, 250, false, true}},
          {}};
}
inline engine::schema::Table settings() {
  return {"Sprache",
          {{"Sortierreihenfolge", ColumnType::text, 50, false, true}, {"Faktor", ColumnType::real}},
          {}};
}

inline std::string headword(int number) {
  return "Stichwort" + std::to_string(number);
}
/// Each tenth one is longer than a page.
inline std::string note(int number) {
  return std::string(number % 10 == 0 ? 9000 : 200, static_cast<char>('a' + number % 26));
}

inline void fill(engine::storage::AttachedFile& file, int rows) {
  engine::storage::TableWriter words(file, file.existingTable("Woerterbuch"));
  engine::storage::TableWriter meanings(file, file.existingTable("Wortbedeutung"));
  for (int i = 1; i <= rows; ++i) {
    file.connection().beforeWrite(file);
    words.insert({{0, i}, {1, headword(i)}, {2, note(i)}, {3, i % 2 == 0}});
    meanings.insert({{1, i}, {2, "Bedeutung von " + headword(i)}});
  }
  engine::storage::TableWriter one(file, file.existingTable("Sprache"));
  file.connection().beforeWrite(file);
  one.insert({{0, std::string("allgemein")}, {1, 1.5}});
}

/// Makes a closed file of so many entries, one sense each; the highest entry was deleted, its number is not
/// to come back.
inline void make(const std::string& path, int rows) {
  engine::storage::Connection connection({login.user, login.password, false});
  const auto file = connection.create(path, german);
  for (const auto& table : {entries(), senses(), settings()}) file->createTable(table);
  file->createIndex("Woerterbuch", {"PrimaryKey", {"ID_Woerterbuch"}, true, true});
  file->createIndex("Woerterbuch", {"Begriff", {"Begriff"}, false, true});
  file->createIndex("Wortbedeutung", {"PrimaryKey", {"ID_Wortbedeutung"}, true, true});
  file->appendRelation(
      {"WoerterbuchWortbedeutung", "Woerterbuch", "Wortbedeutung", "ID_Woerterbuch", "ID_Woerterbuch", 4352});
  for (int i = 0; i < 150; ++i)
    file->createQuery({"Abfrage" + std::to_string(i),
                       "SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = " + std::to_string(i)},
                      false);
  fill(*file, rows + 1);
  engine::storage::TableWriter words(*file, file->existingTable("Woerterbuch"));
  words.erase(rows + 1);
  connection.idle();
}

/// All that a file holds, by what a plain walk gives.
struct Content {
  std::map<std::int64_t, std::string> headwords, notes, senses;
  std::vector<std::string> tables, queries;
  std::string locale;
  std::int64_t nextNumber = 0, settings = 0;
};
inline Content contentOf(const std::string& path) {
  engine::storage::Connection connection({login.user, login.password, false});
  const auto file = connection.open(path, false, false);
  const engine::storage::Connection::Internal internal(connection);
  Content content;
  content.locale = file->data().locale;
  for (const auto& table : file->data().tables) content.tables.push_back(table.name);
  for (const auto& query : file->data().queries) content.queries.push_back(query.name + ": " + query.text);
  const std::string in = file->schemaName() + ".";
  engine::storage::Statement words(connection.handle(),
                                   "SELECT ID_Woerterbuch, Begriff, Bemerkung FROM " + in + "Woerterbuch");
  while (words.step()) {
    content.headwords[words.integer(0)] = words.text(1);
    content.notes[words.integer(0)] = words.text(2);
  }
  engine::storage::Statement meanings(connection.handle(),
                                      "SELECT ID_Woerterbuch, Wortbedeutung FROM " + in + "Wortbedeutung");
  while (meanings.step()) content.senses[meanings.integer(0)] = meanings.text(1);
  engine::storage::Statement counter(connection.handle(),
                                     "SELECT seq FROM " + in + "sqlite_sequence WHERE name = 'Woerterbuch'");
  if (counter.step()) content.nextNumber = counter.integer(0) + 1;
  engine::storage::Statement settings(connection.handle(), "SELECT count(*) FROM " + in + "Sprache");
  if (settings.step()) content.settings = settings.integer(0);
  return content;
}

inline void overwrite(const std::string& path, const std::string& bytes) {
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}
inline void ruinPage(std::string& bytes, std::size_t number) {
  bytes[(number - 1) * 4096 + 1000] ^= 1;
}

inline std::string lines(const std::vector<std::string>& all) {
  std::string text;
  for (const std::string& line : all) text += line + "\n";
  return text;
}

inline std::vector<std::string> namesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

inline void expectSame(const Content& one, const Content& other) {
  EXPECT_EQ(one.headwords, other.headwords);
  EXPECT_EQ(one.notes, other.notes);
  EXPECT_EQ(one.senses, other.senses);
  EXPECT_EQ(one.tables, other.tables);
  EXPECT_EQ(one.queries, other.queries);
  EXPECT_EQ(one.nextNumber, other.nextNumber);
}

}  // namespace stored
