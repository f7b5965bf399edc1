#pragma once

#include <string_view>

#include "engine/sql/ast.h"

namespace engine::sql {

/// Parses one statement; a ";" at its end may stand or be missing, anything behind it is refused.
/// Throws Error 3075 with the place (line, column and the text there) for all that is not the dialect,
/// also for input that is no UTF-8, nests too deep or is longer than 1 MiB.
Statement parse(std::string_view text);

/// Parses a condition, as Find and Filter take it. Throws 3075.
ExprPtr parseCondition(std::string_view text);

}  // namespace engine::sql
