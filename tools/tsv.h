#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Tab-separated tables of data/: UTF-8, a header line, then a line a row, each with as many columns as the
/// header. Lines that begin with "# " and empty lines are left out. In a field \n is a line break and \\ a
/// backslash.
namespace tsv {

struct Row {
  std::vector<std::string> fields;
  std::size_t line = 0;  ///< in the file, from 1
};

struct Table {
  std::string path;
  std::vector<std::string> columns;
  std::vector<Row> rows;
};

/// Reads a table. Throws std::runtime_error "path:line: what is wrong" for a missing file, a row with another
/// number of columns, bytes that are no UTF-8, control characters or an unknown escape.
Table read(const std::string& path);

/// Number of code points of a valid text.
std::size_t length(std::string_view text);

/// Throws std::runtime_error "path:line: message".
[[noreturn]] void fail(const std::string& path, std::size_t line, const std::string& message);

}  // namespace tsv
