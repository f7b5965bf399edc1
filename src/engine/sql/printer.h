#pragma once

#include <string>

#include "engine/sql/ast.h"

namespace engine::sql {

/// The statement as text that parses to an equal tree.
std::string print(const Statement& statement);
std::string print(const Select& select);
std::string print(const Expr& expression);

/// Whether two trees are equal, places aside.
bool same(const Statement& a, const Statement& b);

}  // namespace engine::sql
