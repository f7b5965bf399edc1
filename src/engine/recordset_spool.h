#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/plan/plan.h"
#include "engine/storage/statement.h"

struct sqlite3;

namespace engine {

/// The rows of a set whose values are frozen or whose rows have no keys, copied into a table of a database
/// of their own in memory: nothing that happens to the files, their transactions included, reaches them.
class RecordsetSpool {
 public:
  explicit RecordsetSpool(const plan::Plan& plan);
  RecordsetSpool(const RecordsetSpool&) = delete;
  RecordsetSpool& operator=(const RecordsetSpool&) = delete;

  /// Copies the row that the statement stands on; its first columns are the plan's.
  void append(const storage::Statement& row);
  std::int64_t size() const { return size_; }
  /// The statement that stands on a row; good until the next call.
  const storage::Statement& row(std::int64_t position);
  /// The first position at or behind `from` that meets a condition (SQLite text over `q`), -1 when there
  /// is none; with `backwards` the last one at or before it.
  std::int64_t find(const std::string& condition, std::int64_t from, bool backwards);

 private:
  struct Close {
    void operator()(sqlite3* connection) const;
  };
  std::unique_ptr<sqlite3, Close> connection_;
  std::unique_ptr<storage::Statement> insert_, select_;
  std::int64_t size_ = 0;
  std::int64_t onRow_ = -1;
};

}  // namespace engine
