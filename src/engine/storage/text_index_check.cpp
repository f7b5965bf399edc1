#include <algorithm>
#include <unordered_map>

#include "engine/storage/text_index.h"
#include "engine/text/grams.h"

namespace engine::storage {

namespace {

using schema::quoteName;

constexpr std::size_t mostNamed = 10;

std::string qualified(const AttachedFile& file, const std::string& name) {
  return quoteName(file.schemaName()) + "." + quoteName(name);
}

bool isThere(const AttachedFile& file, const std::string& name) {
  Statement found(file.connection().handle(),
                  "SELECT 1 FROM " + quoteName(file.schemaName()) + ".sqlite_master WHERE name = ?1");
  found.bindText(1, name);
  return found.step();
}

// The trigrams of a row as one number, whatever their order.
using Sums = std::unordered_map<std::int64_t, std::size_t>;

std::size_t weight(std::string_view gram) {
  return std::hash<std::string_view>{}(gram) | 1;
}

Sums listedSums(const AttachedFile& file, const std::string& index) {
  sqlite3* const handle = file.connection().handle();
  Sums sums;
  runStatement(handle, "CREATE VIRTUAL TABLE temp.\"vc$grams\" USING fts5vocab(" +
                           quoteName(file.schemaName()) + ", " + quoteName(index) + ", instance)");
  try {
    Statement entries(handle, "SELECT term, doc FROM temp.\"vc$grams\"");
    while (entries.step()) sums[entries.integer(1)] += weight(entries.text(0));
  } catch (const Error&) {
    runStatement(handle, "DROP TABLE temp.\"vc$grams\"");
    throw;
  }
  runStatement(handle, "DROP TABLE temp.\"vc$grams\"");
  return sums;
}

std::vector<std::int64_t> differingRows(const AttachedFile& file, const TextIndexRecord& record) {
  const schema::Table& table = file.existingTable(record.table);
  const std::string counter = quoteName(table.columns[static_cast<std::size_t>(table.counter())].name);
  const Sums listed = listedSums(file, hiddenName("text", record.table, "index"));
  std::string texts = counter;
  for (const std::string& column : record.columns)
    texts += ", vc_letters(" + quoteName(column) + ", '" + file.data().collation + "')";
  Statement rows(file.connection().handle(),
                 "SELECT " + texts + " FROM " + qualified(file, table.name) + " WHERE " + counter +
                     " <= ?1 AND " + counter + " NOT IN (SELECT \"row\" FROM " +
                     qualified(file, hiddenName("text", record.table, "changed")) + ")");
  rows.bindInteger(1, record.lastRow);
  std::vector<std::int64_t> differing;
  while (rows.step()) {
    std::vector<std::string_view> grams;
    for (std::size_t i = 0; i < record.columns.size(); ++i) {
      const auto more = text::gramsOf(rows.text(static_cast<int>(i) + 1));
      grams.insert(grams.end(), more.begin(), more.end());
    }
    std::sort(grams.begin(), grams.end());
    grams.erase(std::unique(grams.begin(), grams.end()), grams.end());
    std::size_t sum = 0;
    for (const std::string_view gram : grams) sum += weight(gram);
    const auto found = listed.find(rows.integer(0));
    if (sum != (found == listed.end() ? 0 : found->second)) differing.push_back(rows.integer(0));
  }
  return differing;
}

std::string listOf(const std::vector<std::int64_t>& rows) {
  std::string list;
  for (std::size_t i = 0; i < std::min(rows.size(), mostNamed); ++i)
    list += (i == 0 ? "" : ", ") + std::to_string(rows[i]);
  return rows.size() > mostNamed ? list + " and others" : list;
}

}  // namespace

std::vector<std::string> textIndexFaults(const AttachedFile& file, bool thorough) {
  const Connection::Internal internal(file.connection());
  std::vector<std::string> lines;
  for (const TextIndexRecord& record : file.data().texts) {
    if (!isUsable(file.data(), record)) continue;
    bool whole = true;
    for (const char* part : {"index", "changed", "count", "inserted", "updated"})
      whole = whole && isThere(file, hiddenName("text", record.table, part));
    if (!whole) {
      lines.push_back("Parts of the text index of \"" + record.table + "\" are missing.");
      continue;
    }
    if (!thorough) continue;
    const auto rows = differingRows(file, record);
    if (!rows.empty())
      lines.push_back("The text index of \"" + record.table + "\" differs from " +
                      std::to_string(rows.size()) + " rows: " + listOf(rows) + ".");
  }
  return lines;
}

}  // namespace engine::storage
