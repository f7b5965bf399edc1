#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/plan/plan.h"
#include "engine/storage/connection.h"

namespace engine {

/// Columns that hold one text in all rows of their table, as the path of its file does. Looking through a
/// table is done once until a row of it changes.
class ConstantColumns {
 public:
  explicit ConstantColumns(storage::Connection& connection) : connection_(connection) {}

  /// Whether each column holds one text only and all of these differ under the collation, so that no rows
  /// of two of the tables can be equal. Tables without rows are in nobody's way.
  bool differ(const std::vector<plan::TableColumn>& columns, const std::string& collation);

 private:
  struct Known {
    std::int64_t changes = -1, dataVersion = -1;  ///< of the table and the file when it was looked through
    bool constant = false;
    std::optional<std::string> text;  ///< nothing: the table has no rows
  };
  const Known& lookUp(const plan::TableColumn& column);
  bool equal(const std::string& a, const std::string& b, const std::string& collation);

  storage::Connection& connection_;
  std::map<std::string, Known> known_;  // by path, table and column
};

}  // namespace engine
