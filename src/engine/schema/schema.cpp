#include "engine/schema/schema.h"

#include "base/text.h"

namespace engine::schema {

int Table::find(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (base::equalsIgnoreCase(columns[i].name, column)) return static_cast<int>(i);
  }
  return -1;
}

const Index* Table::primaryKey() const {
  for (const Index& index : indexes) {
    if (index.primary) return &index;
  }
  return nullptr;
}

int Table::counter() const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].type == ColumnType::counter) return static_cast<int>(i);
  }
  return -1;
}

std::string quoteName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace engine::schema
