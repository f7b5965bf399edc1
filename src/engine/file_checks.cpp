#include "engine/file_checks.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/text.h"
#include "engine/storage/catalog.h"
#include "engine/storage/text_index.h"

namespace engine::checks {

namespace {

constexpr std::size_t mostListed = 20;
constexpr int mostFaults = 50;

using schema::quoteName;
using storage::Connection;
using storage::Statement;

std::set<std::string> storedNames(storage::AttachedFile& file, const std::string& type) {
  Statement names(file.connection().handle(), "SELECT \"name\" FROM " + file.schemaName() +
                                                  ".sqlite_master WHERE \"type\" = '" + type + "'");
  std::set<std::string> found;
  while (names.step()) found.emplace(names.text(0));
  return found;
}

std::vector<std::string> storedColumns(storage::AttachedFile& file, const std::string& table) {
  Statement columns(file.connection().handle(),
                    "PRAGMA " + file.schemaName() + ".table_info(" + quoteName(table) + ")");
  std::vector<std::string> found;
  while (columns.step()) found.emplace_back(columns.text(1));
  return found;
}

bool isInternal(const std::string& table) {
  return table.starts_with("vc$") || table.starts_with("sqlite_");
}

}  // namespace

std::string listOf(const std::vector<std::uint32_t>& numbers) {
  std::vector<std::string> parts;
  for (std::size_t i = 0; i < numbers.size();) {
    std::size_t last = i;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    parts.push_back(std::to_string(numbers[i]) + (last == i ? "" : " to " + std::to_string(numbers[last])));
    i = last + 1;
  }
  std::string text;
  const std::size_t shown = std::min(parts.size(), mostListed);
  for (std::size_t i = 0; i < shown; ++i)
    text += (i == 0 ? "" : i + 1 == parts.size() ? " and " : ", ") + parts[i];
  return parts.size() > shown ? text + " and others" : text;
}

std::vector<std::string> faultsOf(const file::PageCheck& pages) {
  std::vector<std::string> lines;
  if (!pages.bad.empty()) {
    lines.push_back(std::to_string(pages.bad.size()) + " of " + std::to_string(pages.pages) +
                    " pages are damaged: " + listOf(pages.bad) + ".");
  }
  if (pages.expected > pages.pages) {
    lines.push_back("The file is cut off: " + std::to_string(pages.expected - pages.pages) + " of " +
                    std::to_string(pages.expected) + " pages are missing at its end.");
  } else if (pages.partialEnd) {
    lines.push_back("The file ends in a part of a page.");
  }
  return lines;
}

std::vector<std::string> faultsOf(const file::LogCheck& log) {
  if (log.behind == 0) return {};
  return {"The log beside the file is damaged in its middle: the last changes, up to " +
          std::to_string(log.behind) + " pages, are lost."};
}

std::vector<std::string> structureFaults(storage::AttachedFile& file, bool thorough) {
  const Connection::Internal internal(file.connection());
  std::vector<std::string> lines;
  Statement check(file.connection().handle(), "PRAGMA " + file.schemaName() +
                                                  (thorough ? ".integrity_check(" : ".quick_check(") +
                                                  std::to_string(mostFaults) + ")");
  while (check.step()) {
    if (check.text(0) != "ok")
      lines.push_back("The structure of the file is damaged: " + std::string(check.text(0)) + ".");
  }
  return lines;
}

std::vector<std::string> catalogueFaults(storage::AttachedFile& file) {
  const Connection::Internal internal(file.connection());
  std::vector<std::string> lines;
  std::set<std::string> tables = storedNames(file, "table");
  const std::set<std::string> indexes = storedNames(file, "index");
  for (const schema::Table& table : file.data().tables) {
    if (tables.erase(table.name) == 0) {
      lines.push_back("The table \"" + table.name +
                      "\" stands in the catalogue alone; its rows are missing.");
      continue;
    }
    std::vector<std::string> named;
    for (const schema::Column& column : table.columns) named.push_back(column.name);
    if (named != storedColumns(file, table.name)) {
      lines.push_back("The fields of the table \"" + table.name + "\" are not those of the catalogue.");
    }
    for (const storage::StoredIndex& index :
         storage::indexStatements(file.data(), table, file.schemaName())) {
      if (!indexes.contains(index.name)) lines.push_back("The table \"" + table.name + "\" lacks an index.");
    }
  }
  for (const std::string& table : tables) {
    if (!isInternal(table)) lines.push_back("The table \"" + table + "\" is missing from the catalogue.");
  }
  return lines;
}

std::vector<std::string> relationFaults(storage::AttachedFile& file) {
  const Connection::Internal internal(file.connection());
  std::map<std::pair<std::string, std::string>, std::int64_t> lonely;
  Statement check(file.connection().handle(), "PRAGMA " + file.schemaName() + ".foreign_key_check");
  while (check.step()) ++lonely[{std::string(check.text(0)), std::string(check.text(2))}];
  std::vector<std::string> lines;
  for (const auto& [tables, count] : lonely) {
    lines.push_back(std::to_string(count) + " rows of \"" + tables.first + "\" have no partner in \"" +
                    tables.second + "\".");
  }
  return lines;
}

void mustBeSound(const file::Credential& credential, const std::string& path) {
  Connection connection(credential);
  const auto file = connection.open(path, true, false);
  for (const auto& faults :
       {structureFaults(*file, false), catalogueFaults(*file), storage::textIndexFaults(*file, false)}) {
    if (!faults.empty())
      throw Error(errors::notADictionary, "The new file " + path + " is not sound. " + faults.front());
  }
}

}  // namespace engine::checks
