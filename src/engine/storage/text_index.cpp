#include "engine/storage/text_index.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "engine/text/grams.h"

namespace engine::storage {

namespace {

using schema::quoteName;

// Raised when letters, tables or triggers of the indexes change their form.
constexpr const char* ownRevision = "2";
constexpr std::array objects = {"index", "changed", "count"};
constexpr std::array triggers = {"inserted", "updated"};

std::string rulesOf(const CatalogData& data) {
  return std::string(ownRevision) + " " + data.collation + " " + data.collationVersion;
}

std::string nameOf(const TextIndexRecord& record, const std::string& part) {
  return hiddenName("text", record.table, part);
}

std::string inFile(const AttachedFile& file, const std::string& name) {
  return quoteName(file.schemaName()) + "." + quoteName(name);
}

const schema::Table& tableOf(const CatalogData& data, const TextIndexRecord& record) {
  const auto found = std::find_if(data.tables.begin(), data.tables.end(),
                                  [&](const auto& table) { return table.name == record.table; });
  if (found == data.tables.end())
    throw Error(errors::notADictionary,
                "A text index belongs to the table \"" + record.table + "\", which is missing.");
  return *found;
}

std::string counterOf(const schema::Table& table) {
  return quoteName(table.columns[static_cast<std::size_t>(table.counter())].name);
}

std::int64_t numberOf(const AttachedFile& file, const std::string& select) {
  Statement statement(file.connection().handle(), select);
  return statement.step() ? statement.integer(0) : 0;
}

void makeTables(const AttachedFile& file, const TextIndexRecord& record) {
  sqlite3* const handle = file.connection().handle();
  std::string columns;
  for (std::size_t i = 0; i < record.columns.size(); ++i) columns += "c" + std::to_string(i) + ", ";
  runStatement(handle,
               "CREATE VIRTUAL TABLE " + inFile(file, nameOf(record, "index")) + " USING fts5(" + columns +
                   "content = '', detail = none, columnsize = 0, tokenize = 'trigram case_sensitive 1')");
  runStatement(handle, "CREATE TABLE " + inFile(file, nameOf(record, "changed")) +
                           "(\"row\" INTEGER PRIMARY KEY) WITHOUT ROWID");
  runStatement(handle, "CREATE TABLE " + inFile(file, nameOf(record, "count")) +
                           "(\"gram\" TEXT PRIMARY KEY, \"rows\" INTEGER NOT NULL) WITHOUT ROWID");
}

void makeTriggers(const AttachedFile& file, const schema::Table& table, const TextIndexRecord& record) {
  sqlite3* const handle = file.connection().handle();
  const std::string counter = counterOf(table), last = std::to_string(record.lastRow);
  const std::string note = " BEGIN INSERT OR IGNORE INTO " + quoteName(nameOf(record, "changed")) +
                           " VALUES (new." + counter + "); END";
  runStatement(handle, "CREATE TRIGGER " + inFile(file, nameOf(record, "inserted")) + " AFTER INSERT ON " +
                           quoteName(table.name) + " WHEN new." + counter + " <= " + last + note);
  std::string columns = counter, differs = "old." + counter + " <> new." + counter;
  for (const std::string& column : record.columns) {
    const std::string name = quoteName(column);
    columns += ", " + name;
    differs += " OR old." + name + " IS NOT new." + name + " COLLATE BINARY";
  }
  runStatement(handle, "CREATE TRIGGER " + inFile(file, nameOf(record, "updated")) + " AFTER UPDATE OF " +
                           columns + " ON " + quoteName(table.name) + " WHEN new." + counter + " <= " + last +
                           " AND (" + differs + ")" + note);
}

void fillIndex(const AttachedFile& file, const CatalogData& data, const schema::Table& table,
               const TextIndexRecord& record) {
  sqlite3* const handle = file.connection().handle();
  std::string targets = "rowid", texts = counterOf(table);
  for (std::size_t i = 0; i < record.columns.size(); ++i) {
    targets += ", c" + std::to_string(i);
    texts += ", vc_letters(" + quoteName(record.columns[i]) + ", '" + data.collation + "')";
  }
  runStatement(handle, "INSERT INTO " + inFile(file, nameOf(record, "index")) + "(" + targets + ") SELECT " +
                           texts + " FROM " + inFile(file, table.name) + " ORDER BY 1");
  runStatement(handle, "CREATE VIRTUAL TABLE temp.\"vc$grams\" USING fts5vocab(" +
                           quoteName(file.schemaName()) + ", " + quoteName(nameOf(record, "index")) +
                           ", row)");
  runStatement(handle, "INSERT INTO " + inFile(file, nameOf(record, "count")) +
                           " SELECT term, doc FROM temp.\"vc$grams\"");
  runStatement(handle, "DROP TABLE temp.\"vc$grams\"");
}

std::string rowsBehind(const AttachedFile& file, const schema::Table& table, const std::string& last) {
  return " FROM " + inFile(file, table.name) + " WHERE " + counterOf(table) + " > " + last;
}

std::int64_t rowsNotCovered(const AttachedFile& file, const TextIndexRecord& record) {
  const schema::Table& table = file.existingTable(record.table);
  return numberOf(file, "SELECT (SELECT count(*)" + rowsBehind(file, table, std::to_string(record.lastRow)) +
                            ") + (SELECT count(*) FROM " + inFile(file, nameOf(record, "changed")) + ")");
}

std::string terms(const std::vector<std::string>& grams, const char* between) {
  std::string text;
  for (const std::string& gram : grams) text += (text.empty() ? "\"" : between) + gram + "\"";
  return text;
}

using Counted = std::vector<std::pair<std::int64_t, std::string>>;

/// Rare trigrams alone: reading the list of a frequent one costs more than comparing some rows in vain.
std::string rarestOf(const AttachedFile& file, const TextIndexRecord& record,
                     const std::vector<std::string>& grams) {
  constexpr std::size_t mostTerms = 3;
  constexpr std::int64_t muchMore = 16;
  Counted byRows;
  const StatementLease count = file.connection().statement(
      "SELECT \"rows\" FROM " + inFile(file, nameOf(record, "count")) + " WHERE \"gram\" = ?1");
  for (const std::string& gram : grams) {
    count->bindText(1, gram);
    byRows.emplace_back(count->step() ? count->integer(0) : 0, gram);
    count->reset();
  }
  std::sort(byRows.begin(), byRows.end());
  if (byRows.front().first > record.lastRow / 3) return {};
  std::vector<std::string> rarest;
  for (const auto& [rows, gram] : byRows)
    if (rarest.size() < mostTerms && rows <= byRows.front().first * muchMore) rarest.push_back(gram);
  return terms(rarest, " \"");
}

/// All trigrams that begin with a letter or a pair of letters, of the gram that stands in the fewest rows.
/// Where those are many, a walk through all rows comes upon the first hits sooner.
std::string beginningWith(const AttachedFile& file, const TextIndexRecord& record,
                          const std::vector<std::string>& grams) {
  constexpr std::size_t mostTerms = 1000;
  constexpr const char* behindLetters = "\U0010FFFF";
  std::int64_t fewest = record.lastRow / 16;
  std::string best;
  const StatementLease range =
      file.connection().statement("SELECT \"rows\", \"gram\" FROM " + inFile(file, nameOf(record, "count")) +
                                  " WHERE \"gram\" > ?1 AND \"gram\" < ?2");
  for (const std::string& gram : grams) {
    range->bindText(1, gram);
    range->bindText(2, gram + behindLetters);
    std::int64_t rows = 0;
    std::vector<std::string> longer{gram + gram + gram};  // never an empty list; it is among them or nowhere
    longer.back().resize(3 * text::GramLetters::letterSize);
    while (rows <= fewest && longer.size() <= mostTerms && range->step()) {
      rows += range->integer(0);
      longer.emplace_back(range->text(1));
    }
    range->reset();
    if (rows > fewest || longer.size() > mostTerms) continue;
    fewest = rows;
    best = terms(longer, " OR \"");
  }
  return best;
}

}  // namespace

bool isUsable(const CatalogData& data, const TextIndexRecord& record) {
  return !record.rules.empty() && record.rules == rulesOf(data);
}

void makeTextIndex(const AttachedFile& file, const CatalogData& data, TextIndexRecord& record) {
  dropTextIndex(file, record);
  const schema::Table& table = tableOf(data, record);
  const std::string all = " FROM " + inFile(file, table.name);
  if (numberOf(file, "SELECT count(*)" + all) > rowsWithoutTextIndex) {
    makeTables(file, record);
    fillIndex(file, data, table, record);
    record.lastRow = numberOf(file, "SELECT max(" + counterOf(table) + ")" + all);
    record.rules = rulesOf(data);
    makeTriggers(file, table, record);
  }
  writeTextIndex(file.connection().handle(), file.schemaName(), record);
}

void copyTextIndex(const AttachedFile& source, const AttachedFile& target, const CatalogData& data,
                   TextIndexRecord& record) {
  if (!isUsable(data, record) || rowsNotCovered(source, record) > rowsWithoutTextIndex) {
    record.rules.clear();
    makeTextIndex(target, data, record);
    return;
  }
  sqlite3* const handle = target.connection().handle();
  makeTables(target, record);
  // The tables that FTS5 keeps its lists in, and ours; it reads them anew when the file is opened again.
  for (const char* part : {"index_data", "index_idx", "index_config", "changed", "count"}) {
    const std::string name = nameOf(record, part);
    runStatement(handle, "DELETE FROM " + inFile(target, name));
    runStatement(handle, "INSERT INTO " + inFile(target, name) + " SELECT * FROM " + inFile(source, name));
  }
  makeTriggers(target, tableOf(data, record), record);
  writeTextIndex(handle, target.schemaName(), record);
}

void dropTextIndex(const AttachedFile& file, TextIndexRecord& record) {
  sqlite3* const handle = file.connection().handle();
  for (const char* part : triggers)
    runStatement(handle, "DROP TRIGGER IF EXISTS " + inFile(file, nameOf(record, part)));
  for (const char* part : objects)
    runStatement(handle, "DROP TABLE IF EXISTS " + inFile(file, nameOf(record, part)));
  record.lastRow = 0;
  record.rules.clear();
}

std::string rowsWithGrams(const AttachedFile& file, const TextIndexRecord& record,
                          const std::vector<std::string>& grams) {
  if (grams.empty()) return {};
  const bool whole = grams.front().size() == 3 * text::GramLetters::letterSize;
  const std::string match = whole ? rarestOf(file, record, grams) : beginningWith(file, record, grams);
  if (match.empty()) return {};
  const std::string index = nameOf(record, "index");
  const schema::Table& table = file.existingTable(record.table);
  // The number of then is read, not written here, so that a prepared statement holds for an index made anew.
  const std::string last = "(SELECT \"lastRow\" FROM " + inFile(file, "vc$text") +
                           " WHERE \"tableName\" = '" + base::replaceAll(record.table, "'", "''") + "')";
  return "SELECT rowid FROM " + inFile(file, index) + " WHERE " + quoteName(index) + " MATCH '" + match +
         "' UNION ALL SELECT \"row\" FROM " + inFile(file, nameOf(record, "changed")) + " UNION ALL SELECT " +
         counterOf(table) + rowsBehind(file, table, last);
}

}  // namespace engine::storage
