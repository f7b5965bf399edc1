#pragma once

#include <string_view>

#include "engine/types/types.h"

namespace engine::sql {

/// The name that a definition statement gives a column type ("LONGTEXT"), without a length.
std::string_view typeName(ColumnType type);

}  // namespace engine::sql
