#include "engine/row_copy.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>

namespace engine {

namespace {

using schema::quoteName;
using storage::AttachedFile;
using storage::runStatement;
using storage::Statement;

constexpr std::int64_t rowsAtOnce = 20000;

std::string qualified(const AttachedFile& file, const schema::Table& table) {
  return file.schemaName() + "." + quoteName(table.name);
}

bool hasCounters(const storage::CatalogData& data) {
  return std::any_of(data.tables.begin(), data.tables.end(),
                     [](const auto& table) { return table.counter() >= 0; });
}

}  // namespace

BulkWrite::BulkWrite(AttachedFile& file) : file_(file) {
  sqlite3* const handle = file_.connection().handle();
  runStatement(handle, "PRAGMA foreign_keys = OFF");
  runStatement(handle, "PRAGMA " + file_.schemaName() + ".journal_mode = OFF");
  runStatement(handle, "PRAGMA " + file_.schemaName() + ".synchronous = OFF");
  runStatement(handle, "BEGIN");
}

BulkWrite::~BulkWrite() {
  // Without a journal this does not restore the file, but it ends the transaction so that it can be closed.
  sqlite3* const handle = file_.connection().handle();
  if (open_) sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_exec(handle, "PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr);
}

void BulkWrite::commit() {
  sqlite3* const handle = file_.connection().handle();
  runStatement(handle, "COMMIT");
  open_ = false;
  runStatement(handle, "PRAGMA " + file_.schemaName() + ".journal_mode = WAL");
}

std::string rowNumber(const schema::Table& table) {
  for (const char* name : {"_rowid_", "rowid", "oid"}) {
    if (table.find(name) < 0) return name;
  }
  throw Error(errors::invalidArgument, "The fields of \"" + table.name + "\" hide its row numbers.");
}

std::int64_t lastRow(const AttachedFile& file, const schema::Table& table) {
  Statement last(file.connection().handle(),
                 "SELECT max(" + rowNumber(table) + ") FROM " + qualified(file, table));
  return last.step() ? last.integer(0) : 0;
}

void copyRows(const AttachedFile& source, const AttachedFile& target, const schema::Table& table,
              const std::function<void(std::int64_t)>& reached) {
  sqlite3* const handle = source.connection().handle();
  const std::string number = rowNumber(table);
  std::string columns = table.counter() < 0 ? number : "";  // a counter is the row number
  for (const schema::Column& column : table.columns)
    columns += (columns.empty() ? "" : ", ") + quoteName(column.name);
  Statement copy(handle, "INSERT INTO " + qualified(target, table) + "(" + columns + ") SELECT " + columns +
                             " FROM " + qualified(source, table) + " WHERE " + number + " >= ?1 ORDER BY " +
                             number + " LIMIT " + std::to_string(rowsAtOnce));
  for (std::int64_t from = std::numeric_limits<std::int64_t>::min();;) {
    copy.bindInteger(1, from);
    copy.run();
    if (sqlite3_changes64(handle) == 0) return;
    const std::int64_t last = sqlite3_last_insert_rowid(handle);
    reached(last);
    if (sqlite3_changes64(handle) < rowsAtOnce || last == std::numeric_limits<std::int64_t>::max()) return;
    from = last + 1;
  }
}

void copyCounters(const AttachedFile& source, const AttachedFile& target, const storage::CatalogData& data) {
  if (!hasCounters(data)) return;
  sqlite3* const handle = source.connection().handle();
  runStatement(handle, "DELETE FROM " + target.schemaName() + ".sqlite_sequence");
  runStatement(handle, "INSERT INTO " + target.schemaName() +
                           ".sqlite_sequence(name, seq) SELECT name, seq FROM " + source.schemaName() +
                           ".sqlite_sequence");
}

}  // namespace engine
