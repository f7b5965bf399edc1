#pragma once

#include <string>
#include <vector>

#include "engine/sql/ast.h"

/// What the printers of expressions, selects and statements share; each appends to `out`.
namespace engine::sql {

void printName(std::string& out, const std::string& name);
/// Names joined by points; `bracketed` puts all of them in brackets.
void printPath(std::string& out, const std::vector<std::string>& path, bool bracketed);
void printText(std::string& out, const std::string& text);
void printExpr(std::string& out, const Expr& expression);
void printSelect(std::string& out, const Select& select);
void printFrom(std::string& out, const From& from);
void printFile(std::string& out, const std::string& file);
void printWhere(std::string& out, const ExprPtr& where);

/// Appends each item through `print`, with ", " between.
template <class Items, class Print>
void printList(std::string& out, const Items& items, const Print& print) {
  bool first = true;
  for (const auto& item : items) {
    if (!first) out += ", ";
    first = false;
    print(item);
  }
}

}  // namespace engine::sql
