#include "engine/salvaged_rows.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "engine/row_copy.h"

namespace engine::repair {

namespace {

using file::SalvagedRow;
using file::StoredValue;
using schema::quoteName;
using storage::AttachedFile;
using storage::Statement;

constexpr std::size_t mostNamed = 10;

/// A table while it is filled.
struct Filling {
  const schema::Table& table;
  Inserter inserter;
  file::TreeReport report;
  std::int64_t rows = 0;
};

bool fitsColumn(const StoredValue& value, ColumnType type) {
  if (std::holds_alternative<std::monostate>(value)) return true;
  const bool integer = std::holds_alternative<std::int64_t>(value);
  switch (type) {
    case ColumnType::counter:
      return false;  // the row's number, stored outside the record
    case ColumnType::longInteger:
    case ColumnType::shortInteger:
    case ColumnType::bit:
      return integer;
    case ColumnType::real:
      return integer || std::holds_alternative<double>(value);
    case ColumnType::text:
    case ColumnType::memo:
    case ColumnType::date:
      return std::holds_alternative<std::string>(value);
  }
  return false;
}

bool isMissing(const Filling& filling, std::int64_t rowid) {
  const auto& lost = filling.report.lost;
  return std::any_of(lost.begin(), lost.end(),
                     [&](const auto& range) { return range.first <= rowid && rowid <= range.last; });
}

// Whether a page of rows that nothing leads to can be a lost part of the table.
// Rows from before a field was added bring fewer values than the table has fields.
bool canBelong(const Filling& filling, const std::vector<SalvagedRow>& rows, bool allFields) {
  const auto& columns = filling.table.columns;
  return std::all_of(rows.begin(), rows.end(), [&](const SalvagedRow& row) {
    const auto& values = row.record.values;
    if (values.size() > columns.size() || !isMissing(filling, row.rowid)) return false;
    if (allFields && row.record.whole && values.size() < columns.size()) return false;
    for (std::size_t i = 0; i < values.size(); ++i)
      if (!fitsColumn(values[i], columns[i].type)) return false;
    return true;
  });
}

// Records of SQLite's table of counters: the name of a table and a number.
bool areCounters(const std::vector<Filling>& fillings, const std::vector<SalvagedRow>& rows) {
  return std::all_of(rows.begin(), rows.end(), [&](const SalvagedRow& row) {
    const auto& values = row.record.values;
    if (values.size() != 2 || !std::holds_alternative<std::int64_t>(values[1])) return false;
    const auto* name = std::get_if<std::string>(&values[0]);
    return name != nullptr && std::any_of(fillings.begin(), fillings.end(), [&](const Filling& filling) {
             return filling.table.name == *name && filling.table.counter() >= 0;
           });
  });
}

// Numbers that were given once do not come back, also those of rows that were deleted.
void keepCounters(const std::vector<SalvagedRow>& rows, AttachedFile& target) {
  const std::string in = target.schemaName() + ".sqlite_sequence";
  for (const SalvagedRow& row : rows) {
    const auto& values = row.record.values;
    const std::string& name = std::get<std::string>(values[0]);
    const std::int64_t last = std::get<std::int64_t>(values[1]);
    storage::runStatement(target.connection().handle(),
                          "UPDATE " + in + " SET seq = max(seq, ?2) WHERE name = ?1", {name, last});
    storage::runStatement(target.connection().handle(),
                          "INSERT INTO " + in + "(name, seq) SELECT ?1, ?2 WHERE NOT EXISTS (SELECT 1 FROM " +
                              in + " WHERE name = ?1)",
                          {name, last});
  }
}

void keepCounters(Source& source, const std::vector<Filling>& fillings, AttachedFile& target) {
  const file::SchemaEntry* counters = source.table("sqlite_sequence");
  if (counters == nullptr) return;
  source.salvage.walk(counters->root, [&](const SalvagedRow& row) {
    if (areCounters(fillings, {row})) keepCounters({row}, target);
  });
}

void claimStrays(Source& source, std::vector<Filling>& fillings, AttachedFile& target, Findings& findings) {
  for (const std::uint32_t page : source.strays) {
    std::vector<SalvagedRow> rows;
    const file::TreeReport leaf =
        source.salvage.readLeaf(page, [&](const SalvagedRow& row) { rows.push_back(row); });
    if (rows.empty() || rows.front().rowid == 0) continue;  // records of an index
    if (areCounters(fillings, rows)) {
      keepCounters(rows, target);
      continue;
    }
    std::vector<Filling*> owners;
    for (const bool allFields : {true, false}) {
      if (!owners.empty()) break;
      for (Filling& filling : fillings)
        if (canBelong(filling, rows, allFields)) owners.push_back(&filling);
    }
    if (owners.size() == 1) {
      for (const SalvagedRow& row : rows)
        owners.front()->rows += owners.front()->inserter.insert(row) ? 1 : 0;
      owners.front()->report.cutRows += leaf.cutRows;
      continue;
    }
    std::string names;
    for (const Filling* owner : owners) names += (names.empty() ? "\"" : ", \"") + owner->table.name + "\"";
    if (!owners.empty()) {
      findings.tellLoss("Page " + std::to_string(page) + " holds " + std::to_string(rows.size()) +
                        " rows that may belong to " + names + "; they were left out.");
    }
  }
}

struct IndexEntry {
  std::int64_t rowid;
  std::string text;  // of the first field, when that is a text
};

// The row numbers that an index which can be read whole knows of; false when there is none.
bool rowsByIndex(Source& source, const std::string& table, std::vector<IndexEntry>& known) {
  for (const file::SchemaEntry& entry : source.schema) {
    const bool ofAllRows = entry.type == "index" && base::equalsIgnoreCase(entry.table, table) &&
                           entry.sql.find(") WHERE ") == std::string::npos;
    if (!ofAllRows) continue;
    known.clear();
    const file::TreeReport report = source.salvage.walk(entry.root, [&](const SalvagedRow& row) {
      const auto& values = row.record.values;
      const auto* rowid = values.empty() ? nullptr : std::get_if<std::int64_t>(&values.back());
      if (rowid == nullptr) return;
      const auto* text = std::get_if<std::string>(&values.front());
      known.push_back({*rowid, text == nullptr ? "" : *text});
    });
    if (report.lostPages == 0 && report.cutRows == 0) return true;
  }
  return false;
}

void tellLostRows(Source& source, AttachedFile& target, const Filling& filling, Findings& findings) {
  const std::string table = "Table \"" + filling.table.name + "\": ";
  if (filling.report.cutRows > 0) {
    findings.tellLoss(table + std::to_string(filling.report.cutRows) +
                      " rows lost the end of a long text and what stands behind it.");
  }
  if (filling.report.lostPages == 0) return;
  std::vector<IndexEntry> known;
  if (!rowsByIndex(source, filling.table.name, known)) {
    findings.tellLoss(table + "some pages with rows are lost; how many rows they held can not be told.");
    return;
  }
  Statement there(target.connection().handle(), "SELECT 1 FROM " + target.schemaName() + "." +
                                                    quoteName(filling.table.name) + " WHERE " +
                                                    rowNumber(filling.table) + " = ?1");
  std::vector<std::string> names;
  std::int64_t lost = 0;
  for (const IndexEntry& entry : known) {
    there.bindInteger(1, entry.rowid);
    const bool found = there.step();
    there.reset();
    if (found) continue;
    ++lost;
    if (!entry.text.empty() && names.size() < mostNamed) names.push_back(entry.text);
  }
  if (lost == 0) return;
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  if (std::cmp_less(names.size(), lost) && !list.empty()) list += ", ...";
  findings.report.rowsLost += lost;
  findings.tellLoss(table + std::to_string(lost) + " rows are lost" +
                    (list.empty() ? "." : " (" + list + ")."));
}

}  // namespace

const file::SchemaEntry* Source::table(const std::string& name) const {
  const auto found = std::find_if(schema.begin(), schema.end(), [&](const file::SchemaEntry& entry) {
    return entry.type == "table" && base::equalsIgnoreCase(entry.name, name);
  });
  return found == schema.end() ? nullptr : &*found;
}

Source openSource(const file::PageSource& pages, bool damaged) {
  Source source{file::Salvage(pages), {}, {}};
  if (damaged) {
    file::Salvage marker(pages);
    for (const file::SchemaEntry& entry : marker.schema()) marker.walk(entry.root, [](const SalvagedRow&) {});
    source.strays = marker.strays();
  }
  source.schema = source.salvage.schema();
  return source;
}

void Findings::tellLoss(std::string line) {
  lost = true;
  tell(std::move(line));
}

Inserter::Inserter(AttachedFile& file, std::string table, std::vector<std::string> columns, int numberColumn,
                   std::string rowNumber)
    : file_(file),
      table_(std::move(table)),
      rowNumber_(std::move(rowNumber)),
      columns_(std::move(columns)),
      numberColumn_(numberColumn) {}

Statement& Inserter::prepared(std::size_t columns) {
  if (const auto found = statements_.find(columns); found != statements_.end()) return found->second;
  std::string names = rowNumber_, marks = rowNumber_.empty() ? "" : "?1";
  for (std::size_t i = 0; i < columns; ++i) {
    const std::string separator = names.empty() ? "" : ", ";
    names += separator + quoteName(columns_[i]);
    marks += separator + "?" + std::to_string(i + 2);
  }
  Statement insert(file_.connection().handle(), "INSERT OR IGNORE INTO " + file_.schemaName() + "." +
                                                    quoteName(table_) + "(" + names + ") VALUES (" + marks +
                                                    ")");
  return statements_.emplace(columns, std::move(insert)).first->second;
}

bool Inserter::insert(const SalvagedRow& row) {
  const auto& values = row.record.values;
  const std::size_t columns = std::min(columns_.size(), values.size());
  if (columns == 0) return false;
  Statement& insert = prepared(columns);
  if (!rowNumber_.empty()) insert.bindInteger(1, row.rowid);
  for (std::size_t i = 0; i < columns; ++i) {
    const int parameter = static_cast<int>(i) + 2;
    if (std::cmp_equal(i, numberColumn_)) {
      insert.bindInteger(parameter, row.rowid);
    } else if (const auto* integer = std::get_if<std::int64_t>(&values[i])) {
      insert.bindInteger(parameter, *integer);
    } else if (const auto* text = std::get_if<std::string>(&values[i])) {
      insert.bindText(parameter, *text);
    } else if (const auto* real = std::get_if<double>(&values[i])) {
      insert.bind(parameter, Value(*real));
    } else {
      insert.bindNull(parameter);  // no table holds bytes
    }
  }
  insert.run();
  return sqlite3_changes64(file_.connection().handle()) > 0;
}

void salvageRows(Source& source, const storage::CatalogData& data, AttachedFile& target, Findings& findings,
                 const Progress& progress) {
  std::vector<Filling> fillings;
  fillings.reserve(data.tables.size());
  double done = 0;
  for (const schema::Table& table : data.tables) {
    storage::runStatement(target.connection().handle(),
                          storage::tableStatement(data, table, target.schemaName()));
    std::vector<std::string> columns;
    for (const schema::Column& column : table.columns) columns.push_back(column.name);
    Filling& filling =
        fillings.emplace_back(Filling{table,
                                      Inserter(target, table.name, std::move(columns), table.counter(),
                                               table.counter() < 0 ? rowNumber(table) : ""),
                                      {},
                                      0});
    const file::SchemaEntry* entry = source.table(table.name);
    const std::uint32_t root = entry == nullptr ? 0 : entry->root;
    filling.report = source.salvage.walk(
        root, [&](const SalvagedRow& row) { filling.rows += filling.inserter.insert(row) ? 1 : 0; });
    if (progress) progress(++done / static_cast<double>(data.tables.size()));
  }
  keepCounters(source, fillings, target);
  claimStrays(source, fillings, target, findings);
  for (const Filling& filling : fillings) {
    tellLostRows(source, target, filling, findings);
    makeIndexes(data, filling.table, target, findings);
    findings.report.rowsKept += filling.rows;
  }
  removeLonely(data, target, findings);
  findings.report.rowsKept -= findings.leftOut;
  findings.report.rowsLost += findings.leftOut;
}

}  // namespace engine::repair
