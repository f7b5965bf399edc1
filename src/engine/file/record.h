#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace engine::file {

using Bytes = std::span<const std::uint8_t>;
struct Blob {
  std::string bytes;
};
/// A value as SQLite stores it.
using StoredValue = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

/// SQLite's variable-length integer (1 to 9 bytes, big-endian). Moves `at` behind it; empty when `bytes`
/// ends within.
std::optional<std::uint64_t> readVarint(Bytes bytes, std::size_t& at);

struct Record {
  std::vector<StoredValue> values;
  bool whole = true;  ///< false: the values that came in full, and the readable start of a text that did not
};
/// Decodes SQLite's record format. `bytes` may end early, where an overflow page could not be read.
Record decodeRecord(Bytes bytes);

}  // namespace engine::file
