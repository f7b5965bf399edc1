#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/recordset.h"

/// Rows and fields as lists need them.
namespace store {

/// A number; 0 for Null.
inline std::int64_t numberOf(const engine::Value& value) {
  return value.isNull() ? 0 : value.asInteger();
}
/// A truth; false for Null.
inline bool truth(const engine::Value& value) {
  return !value.isNull() && value.asBoolean();
}

/// Whether a set is open and has rows, wherever it stands.
inline bool hasRows(const engine::Recordset& rows) {
  return rows.isOpen() && !(rows.EndOfFile() && rows.BeginOfFile());
}

/// Calls `action` at each row from the first on; the set's place is lost.
template <class Action>
void forEachRow(engine::Recordset& rows, Action&& action) {
  if (!hasRows(rows)) return;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) action(std::as_const(rows));
}

/// What `read` makes of each row.
template <class Row, class Read>
std::vector<Row> allRows(engine::Recordset& rows, Read&& read) {
  std::vector<Row> result;
  forEachRow(rows, [&](const engine::Recordset& row) { result.push_back(read(row)); });
  return result;
}

}  // namespace store
