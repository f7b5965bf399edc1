#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/storage/attached_file.h"
#include "engine/storage/catalog.h"

/// Rows written in bulk into a new file that dies when the writing fails.
namespace engine {

/// Lets a new file be written without log, journal and sync while it lives, in one transaction. Without
/// commit() the file is worthless afterwards. Relations are not enforced meanwhile.
class BulkWrite {
 public:
  explicit BulkWrite(storage::AttachedFile& file);
  ~BulkWrite();
  BulkWrite(const BulkWrite&) = delete;
  BulkWrite& operator=(const BulkWrite&) = delete;
  void commit();

 private:
  storage::AttachedFile& file_;
  bool open_ = true;
};

/// SQLite's name of the row number, where the table has no column that hides it.
std::string rowNumber(const schema::Table& table);
/// The highest row number of a table, 0 when it has no rows.
std::int64_t lastRow(const storage::AttachedFile& file, const schema::Table& table);
/// Copies all rows of a table with their numbers; reports the number reached now and then.
void copyRows(const storage::AttachedFile& source, const storage::AttachedFile& target,
              const schema::Table& table, const std::function<void(std::int64_t)>& reached);
/// Copies the last given number of each counter.
void copyCounters(const storage::AttachedFile& source, const storage::AttachedFile& target,
                  const storage::CatalogData& data);

}  // namespace engine
