#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exchange/text_schema.h"

/// A delimited text file as a table of rows with named columns.
namespace exchange {

/// Fields may stand in double quotes, in which a quote is doubled and line breaks are text; else they
/// end at the separator. An empty field without quotes is Null. The whole file is read and checked when
/// it is opened, so that a fault is told before anything is done with its rows.
class TextSource {
 public:
  /// Opens a file by its layout. Throws 53, 70, 3044, and 3274 naming the line for bytes that are none of
  /// the character set, a NUL character, a quote that never ends, or a row with more fields than columns.
  TextSource(const std::string& path, const TextLayout& layout);

  /// Names of the columns: those of the first line, or F1, F2, ... without a header.
  const std::vector<std::string>& columns() const { return columns_; }
  std::int64_t rowCount() const { return rowCount_; }
  /// The number (from 0) of a column by name without regard to case, or by its place counted from 1;
  /// nothing when there is none.
  std::optional<std::size_t> find(const std::string& column) const;

  using Row = std::vector<std::optional<std::string>>;  ///< as long as columns(); Null where a row is short
  /// The next row; false at the end.
  bool next(Row& row);

 private:
  bool readFields(Row& row);
  std::optional<std::string> readField();
  std::string readQuoted();
  void skipEmptyLines();
  bool atRowEnd() const;
  void checkAll();
  [[noreturn]] void fail(std::int64_t line, const std::string& what) const;

  std::string path_, text_;
  std::string separator_;
  std::vector<std::string> columns_;
  std::size_t at_ = 0, firstRow_ = 0;
  std::int64_t line_ = 1, rowCount_ = 0;
};

}  // namespace exchange
