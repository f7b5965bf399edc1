#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/types/types.h"

/// The definitions that a file holds, as plain data, and the one question the binder asks of them.
namespace engine::schema {

struct Column {
  std::string name;
  ColumnType type = ColumnType::text;
  int size = 0;  ///< characters for text, else 0
  bool required = false;
  bool allowZeroLength = false;
};

struct Index {
  std::string name;
  std::vector<std::string> columns;
  bool primary = false;
  bool unique = false;
};

struct Table {
  std::string name;  ///< as it was created
  std::vector<Column> columns;
  std::vector<Index> indexes;

  /// Position of a column by name without regard to case, -1 when there is none.
  int find(std::string_view column) const;
  const Index* primaryKey() const;
  /// The counter column, which is the row's identity in the file; -1 when the table has none.
  int counter() const;
};

struct StoredQuery {
  std::string name;
  std::string text;
};

/// An attached file as the binder sees it. Names are found without regard to case. Pointers stay good
/// until the file's `version()` changes.
class Catalog {
 public:
  virtual ~Catalog() = default;
  /// SQLite's name of the attached file ("d1"): emitted in front of every table.
  virtual const std::string& schemaName() const = 0;
  /// SQLite's name of the file's collation ("vc_0407").
  virtual const std::string& collation() const = 0;
  virtual const Table* table(std::string_view name) const = 0;
  virtual const StoredQuery* query(std::string_view name) const = 0;
  /// A select of row numbers, for SQLite, among them those of all rows in whose column these grams stand
  /// (text::LikePattern::grams); empty when there is no index of them, or none that helps.
  virtual std::string rowsWithGrams(const Table& /*table*/, int /*column*/,
                                    const std::vector<std::string>& /*grams*/) const {
    return {};
  }
  /// The column in whose order the file keeps an index of the table's rows that meet a condition, as SQLite
  /// text with bare quoted names; -1 when there is no such index.
  virtual int keptInOrderOf(const Table& /*table*/, const std::string& /*condition*/) const { return -1; }
  /// Raised with every change of a definition.
  virtual std::int64_t version() const = 0;
};

/// SQLite's quoted name ("a""b").
std::string quoteName(std::string_view name);

}  // namespace engine::schema
