#include <sqlite3.h>

#include <map>
#include <set>

#include "engine/row_copy.h"
#include "engine/salvaged_rows.h"

namespace engine::repair {

namespace {

using schema::quoteName;
using storage::AttachedFile;
using storage::Statement;

// Rows that share a key stay as they were first found.
std::int64_t removeDoubles(AttachedFile& target, const schema::Table& table, const schema::Index& index) {
  std::string columns, known;
  for (const std::string& column : index.columns) {
    columns += (columns.empty() ? "" : ", ") + quoteName(column);
    known += (known.empty() ? "" : " AND ") + quoteName(column) + " IS NOT NULL";
  }
  const std::string name = target.schemaName() + "." + quoteName(table.name), number = rowNumber(table);
  storage::runStatement(target.connection().handle(), "DELETE FROM " + name + " WHERE " + known + " AND " +
                                                          number + " NOT IN (SELECT min(" + number +
                                                          ") FROM " + name + " WHERE " + known +
                                                          " GROUP BY " + columns + ")");
  return sqlite3_changes64(target.connection().handle());
}

}  // namespace

void makeIndexes(const storage::CatalogData& data, const schema::Table& table, AttachedFile& target,
                 Findings& findings) {
  for (const schema::Index& index : table.indexes) {
    if ((!index.unique && !index.primary) || !storage::isStored(table, index)) continue;
    const std::int64_t removed = removeDoubles(target, table, index);
    if (removed == 0) continue;
    findings.leftOut += removed;
    findings.tellLoss("Table \"" + table.name + "\": " + std::to_string(removed) +
                      " rows were left out, as their key was there already.");
  }
  for (const storage::StoredIndex& index : storage::indexStatements(data, table, target.schemaName()))
    storage::runStatement(target.connection().handle(), index.statement);
}

// Removing one row may leave others alone in turn.
void removeLonely(const storage::CatalogData& data, AttachedFile& target, Findings& findings) {
  sqlite3* const handle = target.connection().handle();
  std::map<std::string, std::string> numberNames;
  for (const schema::Table& table : data.tables) numberNames[table.name] = rowNumber(table);
  std::map<std::pair<std::string, std::string>, std::int64_t> removed;
  for (bool again = true; again;) {
    std::set<std::pair<std::string, std::int64_t>> lonely;
    Statement check(handle, "PRAGMA " + target.schemaName() + ".foreign_key_check");
    while (check.step()) {
      const std::string table(check.text(0));
      if (lonely.emplace(table, check.integer(1)).second) ++removed[{table, std::string(check.text(2))}];
    }
    check.reset();
    for (const auto& [table, rowid] : lonely) {
      storage::runStatement(handle,
                            "DELETE FROM " + target.schemaName() + "." + quoteName(table) + " WHERE " +
                                numberNames.at(table) + " = ?1",
                            {rowid});
    }
    again = !lonely.empty();
  }
  for (const auto& [tables, count] : removed) {
    findings.leftOut += count;
    findings.tellLoss("Table \"" + tables.first + "\": " + std::to_string(count) +
                      " rows were left out, as their partner in \"" + tables.second + "\" is lost.");
  }
}

}  // namespace engine::repair
