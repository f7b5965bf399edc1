#include "engine/sql/print_pieces.h"

namespace engine::sql {
namespace {

void printItem(std::string& out, const OutputItem& item) {
  switch (item.kind) {
    case OutputItem::Kind::all:
      out += "*";
      break;
    case OutputItem::Kind::allOf:
      printPath(out, item.path, true);
      out += ".*";
      break;
    case OutputItem::Kind::expression:
      printExpr(out, *item.expr);
      if (!item.alias.empty()) {
        out += " AS ";
        printName(out, item.alias);
      }
      break;
  }
}

void printArm(std::string& out, const Select& select) {
  out += "SELECT ";
  if (select.distinct == Distinct::values) out += "DISTINCT ";
  if (select.distinct == Distinct::rows) out += "DISTINCTROW ";
  if (select.top) out += "TOP " + std::to_string(*select.top) + " ";
  printList(out, select.items, [&](const OutputItem& item) { printItem(out, item); });
  if (!select.into.empty()) {
    out += " INTO ";
    printName(out, select.into);
  }
  if (!select.from.empty()) {
    out += " FROM ";
    printList(out, select.from, [&](const FromPtr& from) { printFrom(out, *from); });
    printFile(out, select.inFile);
  }
  printWhere(out, select.where);
  if (!select.groupBy.empty()) {
    out += " GROUP BY ";
    printList(out, select.groupBy, [&](const ExprPtr& key) { printExpr(out, *key); });
  }
  if (select.having) {
    out += " HAVING ";
    printExpr(out, *select.having);
  }
}

void printJoin(std::string& out, const From& from) {
  printFrom(out, *from.left);
  switch (from.join) {
    case JoinKind::inner:
      out += " INNER JOIN ";
      break;
    case JoinKind::left:
      out += " LEFT JOIN ";
      break;
    case JoinKind::right:
      out += " RIGHT JOIN ";
      break;
  }
  printFrom(out, *from.right);
  out += " ON ";
  printExpr(out, *from.on);
}

}  // namespace

void printFile(std::string& out, const std::string& file) {
  if (file.empty()) return;
  out += " IN ";
  printText(out, file);
}

void printWhere(std::string& out, const ExprPtr& where) {
  if (!where) return;
  out += " WHERE ";
  printExpr(out, *where);
}

void printFrom(std::string& out, const From& from) {
  if (from.parenthesised) out += "(";
  switch (from.kind) {
    case From::Kind::table:
      printName(out, from.table);
      break;
    case From::Kind::select:
      out += "(";
      printSelect(out, *from.select);
      out += ")";
      break;
    case From::Kind::join:
      printJoin(out, from);
      break;
  }
  if (!from.alias.empty()) {
    out += " AS ";
    printName(out, from.alias);
  }
  if (from.parenthesised) out += ")";
}

void printSelect(std::string& out, const Select& select) {
  printArm(out, select);
  for (const Select::Arm& arm : select.unions) {
    out += arm.all ? " UNION ALL " : " UNION ";
    printArm(out, *arm.select);
  }
  if (select.orderBy.empty()) return;
  out += " ORDER BY ";
  printList(out, select.orderBy, [&](const OrderItem& item) {
    printExpr(out, *item.expr);
    if (item.descending) out += " DESC";
  });
}

}  // namespace engine::sql
