#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/file/salvage.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/catalog.h"
#include "engine/workspace.h"

/// The parts of a repair: from the pages of a damaged file into the tables of a new one.
namespace engine::repair {

/// What a damaged file still holds, and what of it nothing has claimed yet.
struct Source {
  file::Salvage salvage;
  std::vector<file::SchemaEntry> schema;  ///< SQLite's own catalogue, as far as it could be read
  std::vector<std::uint32_t> strays;      ///< pages with rows that nothing readable leads to

  /// The entry of a table; null when it is lost.
  const file::SchemaEntry* table(const std::string& name) const;
};
/// Walks the whole file when it is damaged, to tell strays from pages in use.
Source openSource(const file::PageSource& pages, bool damaged);

struct Findings {
  RepairReport report;
  bool lost = false;         ///< something is missing in the new file
  std::int64_t leftOut = 0;  ///< rows that were read and can not stay, as they break a key or a relation
  void tell(std::string line) { report.lines.push_back(std::move(line)); }
  void tellLoss(std::string line);
};

/// Puts rows as they were stored into a table of the new file, with their row numbers.
class Inserter {
 public:
  /// Column names and, where the table has one, the position of the column that is the row number.
  Inserter(storage::AttachedFile& file, std::string table, std::vector<std::string> columns, int numberColumn,
           std::string rowNumber);
  /// False when the row's number or key is taken, or the table refuses it.
  bool insert(const file::SalvagedRow& row);

 private:
  storage::Statement& prepared(std::size_t columns);

  storage::AttachedFile& file_;
  std::string table_, rowNumber_;
  std::vector<std::string> columns_;
  int numberColumn_;
  std::map<std::size_t, storage::Statement> statements_;  // by the number of columns a row brings
};

/// Makes all tables of `data`, fills them, makes their indexes, and removes what would break a key or a
/// relation.
void salvageRows(Source& source, const storage::CatalogData& data, storage::AttachedFile& target,
                 Findings& findings, const Progress& progress);

/// Makes the indexes of a filled table; of rows that share a unique key the first stays.
void makeIndexes(const storage::CatalogData& data, const schema::Table& table, storage::AttachedFile& target,
                 Findings& findings);
/// Removes rows whose partner in a relation is lost.
void removeLonely(const storage::CatalogData& data, storage::AttachedFile& target, Findings& findings);

/// Fills the hidden tables of the new file; what is lost there is made up from SQLite's catalogue as far as
/// that tells. Returns the definitions the new file shall have.
storage::CatalogData salvageCatalogue(Source& source, storage::AttachedFile& target, Findings& findings);

}  // namespace engine::repair
