#include "engine/schema/schema.h"

#include <algorithm>

#include "base/text.h"

namespace engine::schema {

int Table::find(std::string_view column) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const Column& c) { return base::equalsIgnoreCase(c.name, column); });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

const Index* Table::primaryKey() const {
  const auto found =
      std::find_if(indexes.begin(), indexes.end(), [](const Index& index) { return index.primary; });
  return found == indexes.end() ? nullptr : &*found;
}

int Table::counter() const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [](const Column& c) { return c.type == ColumnType::counter; });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

std::string quoteName(std::string_view name) {
  std::string quoted;
  quoted.reserve(name.size() + 2);
  quoted += '"';
  for (char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  quoted += '"';
  return quoted;
}

}  // namespace engine::schema
