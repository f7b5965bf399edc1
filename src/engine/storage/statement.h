#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/types/types.h"

struct sqlite3;
struct sqlite3_stmt;

/// The thin layer over the C interface that all of the engine uses: every result code is checked here
/// and becomes one Error. Nothing outside src/engine includes this.
namespace engine::storage {

/// Throws the Error that a result code stands for (full disk 61, busy 3260, read-only 3027, damage 3343 ...).
[[noreturn]] void raise(sqlite3* connection, int code, const std::string& doing);

/// A prepared statement. Parameters count from 1, columns from 0.
class Statement {
 public:
  Statement(sqlite3* connection, std::string_view text);
  ~Statement();
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;

  void bind(int parameter, const Value& value);  ///< dates as ISO text, truths as -1 and 0
  void bindInteger(int parameter, std::int64_t value);
  void bindText(int parameter, std::string_view value);
  void bindNull(int parameter);
  bool step();   ///< true: a row; false: done
  void run();    ///< steps to the end and resets
  void reset();  ///< keeps the bindings
  int columnCount() const;
  bool isNull(int column) const;
  std::int64_t integer(int column) const;
  double real(int column) const;
  std::string_view text(int column) const;  ///< good until the next step
  /// The value as a column of `type`: bit as truth, date from ISO text.
  Value value(int column, ColumnType type) const;
  sqlite3_stmt* handle() const { return statement_; }

 private:
  sqlite3* connection_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace engine::storage
