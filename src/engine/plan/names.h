#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/types/types.h"

/// Names of the dialect and the spelling of names and literals for SQLite.
namespace engine::plan {

/// Equal without regard to case.
bool sameName(std::string_view a, std::string_view b);
/// The parts of "[a].b" or "a.b.c" as a caller writes a field's name, without brackets.
std::vector<std::string> splitName(std::string_view name);
std::string joinName(const std::vector<std::string>& path);

/// A text, number, date or truth as SQLite literal; dates as ISO texts, truths as -1 and 0. Control
/// characters (among them NUL, which would end the statement) are written as a blob cast to text.
std::string literal(const Value& value);

}  // namespace engine::plan
