#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "engine/schema/schema.h"
#include "engine/storage/statement.h"
#include "engine/types/types.h"

namespace engine::storage {

class AttachedFile;

/// New values of one row: column position and value.
using RowValues = std::vector<std::pair<int, Value>>;

/// Writes rows of one table and keeps the rules that every write has to obey, whoever writes: lengths,
/// empty texts, required values, types, unique keys, relations. Each call either writes the row whole or
/// throws (3163, 3315, 3314, 13, 6, 3022, 3058, 3201, 3027, 61) and leaves it as it was.
class TableWriter {
 public:
  TableWriter(AttachedFile& file, const schema::Table& table);
  ~TableWriter();
  /// The number that the counter column of the next new row gets; reserves it. 0 without a counter.
  std::int64_t takeCounter();
  /// Returns the rowid.
  std::int64_t insert(const RowValues& values);
  void update(std::int64_t rowid, const RowValues& values);
  void erase(std::int64_t rowid);
  /// Runs a prepared statement that changes or erases many rows of the table at once; its values are coerced
  /// already. Throws as the calls above do. Returns the number of rows.
  std::int64_t runWhole(Statement& statement, bool erases);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace engine::storage
