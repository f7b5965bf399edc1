#include <algorithm>
#include <charconv>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"
#include "engine/text/like.h"

/// Comparisons: both sides are brought to one type, and texts are compared under an explicit collation,
/// since SQLite would take its own for anything but a plain column.
namespace engine::plan {
namespace {

/// The text of a whole number as the dialect writes it, without signs and zeros that add nothing.
std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || std::to_string(number) != text)
    return std::nullopt;
  return number;
}

std::string coercedDate(const Bound& bound) {
  if (isDate(bound) || bound.isNull) return bound.text;
  if (bound.constant && bound.constant->isText()) return literal(Value(bound.constant->asDate()));
  // A row whose text is no date is left out rather than ending the statement.
  if (bound.direct) return "(CASE WHEN vc_isdate(" + bound.text + ") THEN vc_cdate(" + bound.text + ") END)";
  return "vc_cdate(" + value(bound) + ")";
}

std::string coercedNumber(const Bound& bound) {
  if (bound.constant && bound.constant->isText()) {
    const double number = bound.constant->asReal();
    const auto text = wholeNumber(bound.constant->text());
    return literal(text ? Value(*text) : Value(number));
  }
  if (isDate(bound)) return "vc_cdbl(" + bound.text + ")";
  if (bound.affinity || isNumber(bound) || bound.isNull) return value(bound);
  return "CAST(" + value(bound) + " AS NUMERIC)";
}

Bound truth(std::string text, const Bound& a, const Bound& b) {
  Bound bound;
  bound.text = std::move(text);
  bound.type = ColumnType::bit;
  bound.condition = true;
  bound.aggregate = a.aggregate || b.aggregate;
  bound.refs = a.refs;
  join(bound.refs, b.refs);
  return bound;
}

std::string collationOf(const Level& level, const Bound& a, const Bound& b) {
  if (!a.collation.empty()) return a.collation;
  if (!b.collation.empty()) return b.collation;
  return level.file->collation();
}

std::string collate(const std::string& text, const std::string& collation) {
  return text + " COLLATE " + schema::quoteName(collation);
}

std::string compareTexts(const Level& level, const Bound& a, const std::string& op, const Bound& b) {
  const std::string collation = collationOf(level, a, b);
  // The side that is a column gets the collation, so that an index of it can serve.
  if (b.direct && !a.direct) return "(" + value(a) + " " + op + " " + collate(value(b), collation) + ")";
  return "(" + collate(value(a), collation) + " " + op + " " + value(b) + ")";
}

}  // namespace

std::string coerced(const Bound& bound, ColumnType type) {
  if (type == ColumnType::date) return coercedDate(bound);
  if (type == ColumnType::text || type == ColumnType::memo) return asText(bound);
  return coercedNumber(bound);
}

std::string asText(const Bound& bound) {
  if (isText(bound) || bound.isNull) return bound.text;
  if (isDate(bound)) return "vc_format(" + bound.text + ", 'dd.mm.yyyy hh:nn:ss')";
  if (bound.constant && isNumber(bound)) return literal(Value(bound.constant->asText()));
  // Of the numbers only a fraction reads differently in SQLite ("1.0" for 1).
  if (isNumber(bound) && *bound.type != ColumnType::real) return "CAST(" + value(bound) + " AS TEXT)";
  return "vc_concat(" + value(bound) + ", CASE WHEN " + value(bound) + " IS NULL THEN NULL ELSE '' END)";
}

Bound compare(const Level& level, const Bound& a, const std::string& op, const Bound& b) {
  if (isDate(a) || isDate(b))
    return truth("(" + coercedDate(a) + " " + op + " " + coercedDate(b) + ")", a, b);
  // A text column against a number: the number's text, which an index of the column can find.
  const bool textColumn = (isText(a) && a.direct && b.constant) || (isText(b) && b.direct && a.constant);
  if ((isNumber(a) || isNumber(b)) && !textColumn) {
    Bound bound = truth("(" + coercedNumber(a) + " " + op + " " + coercedNumber(b) + ")", a, b);
    if (op == "=" && a.key >= 0 && b.key >= 0 && a.key != b.key)
      bound.link = Equality{a.key, b.key, a.position, b.position};
    return bound;
  }
  if (textColumn && (isNumber(a) || isNumber(b))) {
    Bound left = a, right = b;
    left.text = asText(a);
    right.text = asText(b);
    return truth(compareTexts(level, left, op, right), a, b);
  }
  Bound bound = truth(compareTexts(level, a, op, b), a, b);
  if (op == "=" && a.key >= 0 && b.key >= 0 && a.key != b.key)
    bound.link = Equality{a.key, b.key, a.position, b.position};
  return bound;
}

std::string collated(const Level& level, const Bound& bound) {
  if (bound.type && !isText(bound)) return value(bound);
  return collate(value(bound), bound.collation.empty() ? level.file->collation() : bound.collation);
}

namespace {

/// The texts that can match lie between two bounds, where an index of the column finds them. The bounds add
/// nothing to the meaning.
std::string withinBounds(const Bound& column, const text::LikePattern& pattern,
                         const std::string& collation) {
  const auto bounds = pattern.bounds();
  if (!bounds) return {};
  const std::string left = collate(column.text, collation);
  return left + " >= " + literal(Value(bounds->first)) + " AND " + left +
         " <= " + literal(Value(bounds->second)) + " AND ";
}

bool leadsIndex(const schema::Table& table, int column) {
  return std::any_of(table.indexes.begin(), table.indexes.end(),
                     [&](const schema::Index& index) { return table.find(index.columns.front()) == column; });
}

/// A select of the rows whose texts may match, where an index of the column's trigrams lists them; else
/// empty. It can not tell a Null, so this serves only where Null is false.
std::string mayMatch(const Key& key, int column, const text::LikePattern& pattern) {
  const auto grams = pattern.grams();
  return grams.empty() ? std::string() : key.file->rowsWithGrams(*key.table, column, grams);
}

}  // namespace

Bound bindLike(Binder& binder, const Level& level, const sql::Expr& expr, bool nullIsFalse) {
  const Bound operand = bindExpression(binder, level, *expr.args[0]);
  const Bound pattern = bindExpression(binder, level, *expr.args[1]);
  if (isNumber(operand) && pattern.constant) {
    // "id LIKE 5" is an equality, for which there may be an index.
    const auto number = wholeNumber(pattern.constant->textOrEmpty());
    if (number) {
      Bound five = pattern;
      five.constant = Value(*number);
      five.type = ColumnType::longInteger;
      five.text = literal(*five.constant);
      return compare(level, operand, expr.negated ? "<>" : "=", five);
    }
  }
  const std::string collation = collationOf(level, operand, Bound{});
  const bool second = binder.context.way == Interface::second;
  std::string text = std::string(second ? "vc_like2" : "vc_like") + "(" + asText(operand) + ", " +
                     (isDate(pattern) ? asText(pattern) : value(pattern)) + ", " + literal(Value(collation)) +
                     ")";
  if (expr.negated) return truth("(NOT " + text + ")", operand, pattern);
  if (!isText(operand) || operand.key < 0 || !pattern.constant || !pattern.constant->isText())
    return truth(text, operand, pattern);
  const text::LikePattern like(pattern.constant->text(), second ? 2 : 1, text::collator(collation));
  if (nullIsFalse && like.matchesAll()) return truth("(" + operand.text + " IS NOT NULL)", operand, pattern);
  const std::string bounds = withinBounds(operand, like, collation);
  text = "(" + bounds + text + ")";
  Bound bound = truth(text, operand, pattern);
  // Not for a column that a nested select hands out: the instance has no name out here.
  const auto table = binder.tables.find(operand.key);
  if (!nullIsFalse || table == binder.tables.end() || operand.refs != Refs{operand.key}) return bound;
  const Key& key = table->second;
  const bool bounded = !bounds.empty() && leadsIndex(*key.table, operand.position);
  if (bounded)
    bound.alternatives =
        std::make_shared<const Alternatives>(Alternatives{key.id, operand.position, {bound.text}});
  const std::string rows = mayMatch(key, operand.position, like);
  if (rows.empty()) return bound;
  Candidates candidates{key.id, key.rowid, {rows}, text, false};
  if (bounded)
    bound.candidates = std::make_shared<const Candidates>(std::move(candidates));
  else
    narrow(bound, std::move(candidates));
  return bound;
}

void narrow(Bound& bound, Candidates candidates) {
  bound.text = "(" + candidates.rowid + " IN (";
  for (std::size_t i = 0; i < candidates.selects.size(); ++i)
    bound.text += (i > 0 ? " UNION ALL " : "") + candidates.selects[i];
  bound.text += ") AND " + candidates.condition + ")";
  candidates.asked = true;
  bound.candidates = std::make_shared<const Candidates>(std::move(candidates));
}

namespace {

/// "x IN (SELECT y ... WHERE y = x)" asks for x twice. Without the second time the select is the same for
/// every row, so that SQLite runs it once and finds the rows by it. Null in place of false is the difference.
void askOnce(const Bound& operand, Body& body) {
  const Bound& column = body.outputs[0].value;
  if (body.aggregated || !isNumber(operand) || !isNumber(column) || operand.key < 0 || column.key < 0) return;
  const auto isSame = [&](int key, int position, const Bound& bound) {
    return key == bound.key && position == bound.position;
  };
  std::erase_if(body.chain.where, [&](const Term& term) {
    if (!term.link || term.filter) return false;
    const Equality& link = *term.link;
    return (isSame(link.left, link.leftColumn, operand) && isSame(link.right, link.rightColumn, column)) ||
           (isSame(link.right, link.rightColumn, operand) && isSame(link.left, link.leftColumn, column));
  });
}

}  // namespace

Bound bindIn(Binder& binder, const Level& level, const sql::Expr& expr, bool nullIsFalse) {
  const Bound operand = bindExpression(binder, level, *expr.args[0]);
  Bound bound = truth({}, operand, operand);
  std::string left = collated(level, operand), list;
  if (expr.select) {
    Body body = bindSelect(binder, *expr.select, *level.own, &level);
    if (body.outputs.size() != 1) refuse("A subquery behind IN has to give one column");
    join(bound.refs, body.escaped);
    // Membership asks for no order and is not changed by repeats.
    if (body.top) nest(binder, body);
    body.distinct = false;
    body.repeats.clear();
    if (nullIsFalse && !expr.negated) askOnce(operand, body);
    Bound& column = body.outputs[0].value;
    if (operand.type && column.type && isDate(operand) != isDate(column)) {
      left = coercedDate(operand);
      column.text = coercedDate(column);
      column.condition = false;
    }
    list = bodyText(body);
  } else {
    // One item of another type decides for all, as in a chain of equalities.
    const Bound* reference = &operand;
    std::vector<Bound> items;
    for (std::size_t i = 1; i < expr.args.size(); ++i)
      items.push_back(bindExpression(binder, level, *expr.args[i]));
    const auto date = std::find_if(items.begin(), items.end(), isDate);
    if (!isDate(operand) && date != items.end()) {
      reference = &*date;
      left = coercedDate(operand);
    }
    for (const Bound& item : items) {
      if (!list.empty()) list += ", ";
      list += reference->type ? coerced(item, *reference->type) : value(item);
      join(bound.refs, item.refs);
    }
  }
  bound.text = "(" + left + (expr.negated ? " NOT IN (" : " IN (") + list + "))";
  return bound;
}

}  // namespace engine::plan
