#include "engine/recordset_spool.h"

#include <sqlite3.h>

#include "engine/text/collation.h"

namespace engine {

namespace {

/// A column of the table: named by its number, without a type so that values stay as they were.
std::string columnDefinition(const plan::Plan& plan, std::size_t column) {
  const std::string& collation = plan.columns[column].collation;
  return "c" + std::to_string(column) + (collation.empty() ? "" : " COLLATE " + schema::quoteName(collation));
}

}  // namespace

void RecordsetSpool::Close::operator()(sqlite3* connection) const {
  sqlite3_close_v2(connection);
}

RecordsetSpool::RecordsetSpool(const plan::Plan& plan) {
  sqlite3* connection = nullptr;
  const int code = sqlite3_open_v2(":memory:", &connection,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  connection_.reset(connection);
  if (code != SQLITE_OK) {
    storage::raise(connection, code, "Opening a recordset");
  }
  text::registerText(connection);
  std::string columns, places;
  for (std::size_t column = 0; column < plan.columns.size(); ++column) {
    columns += (column > 0 ? ", " : "") + columnDefinition(plan, column);
    places += column > 0 ? ", ?" : "?";
  }
  storage::Statement(connection, "CREATE TABLE r (" + columns + ")").run();
  storage::Statement(connection, "BEGIN").run();  // never committed: the database dies with the set
  insert_ = std::make_unique<storage::Statement>(connection, "INSERT INTO r VALUES (" + places + ")");
  select_ = std::make_unique<storage::Statement>(connection, "SELECT * FROM r WHERE rowid = ?");
}

void RecordsetSpool::append(const storage::Statement& row) {
  const int columns = sqlite3_bind_parameter_count(insert_->handle());
  for (int column = 0; column < columns; ++column) {
    const int code =
        sqlite3_bind_value(insert_->handle(), column + 1, sqlite3_column_value(row.handle(), column));
    if (code != SQLITE_OK) {
      storage::raise(connection_.get(), code, "Opening a recordset");
    }
  }
  insert_->run();
  ++size_;
}

const storage::Statement& RecordsetSpool::row(std::int64_t position) {
  if (position != onRow_) {
    select_->reset();
    onRow_ = -1;
    select_->bindInteger(1, position + 1);
    if (!select_->step()) {
      throw Error(errors::noCurrentRecord, "The recordset stands on no row.");
    }
    onRow_ = position;
  }
  return *select_;
}

std::int64_t RecordsetSpool::find(const std::string& condition, std::int64_t from, bool backwards) {
  storage::Statement hit(connection_.get(), "SELECT rowid - 1 FROM r AS q WHERE rowid " +
                                                std::string(backwards ? "<=" : ">=") + " ?1 AND (" +
                                                condition + ") ORDER BY rowid" + (backwards ? " DESC" : "") +
                                                " LIMIT 1");
  hit.bindInteger(1, from + 1);
  return hit.step() ? hit.integer(0) : -1;
}

}  // namespace engine
