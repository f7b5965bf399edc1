#include <algorithm>
#include <limits>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"

namespace engine::plan {
namespace {

/// Whether path[part..] names this column through its ancestors of depth `from` and more; the depth of
/// the last step, or nothing.
std::optional<int> descends(const Column& column, const std::vector<std::string>& path, std::size_t part,
                            int from) {
  const bool last = part + 2 == path.size();
  std::optional<int> best;
  for (const Ancestor& ancestor : column.ancestors) {
    if (ancestor.depth < from || !sameName(ancestor.range, path[part])) continue;
    std::optional<int> depth;
    if (!last)
      depth = descends(column, path, part + 1, ancestor.depth + 1);
    else if (sameName(ancestor.name, path.back()))
      depth = ancestor.depth;
    if (depth && (!best || *depth < *best)) best = depth;
  }
  return best;
}

std::optional<int> fits(const Column& column, const std::vector<std::string>& path) {
  if (path.size() > 1) return descends(column, path, 0, 0);
  if (sameName(column.name, path[0]) || (!column.written.empty() && sameName(column.written, path[0])))
    return 0;
  return std::nullopt;
}

int longestDescent(const Column& column) {
  int depth = 0;
  for (const Ancestor& ancestor : column.ancestors) depth = std::max(depth, ancestor.depth);
  return depth;
}

bool sameAncestors(const Column& a, const Column& b) {
  return std::ranges::equal(a.ancestors, b.ancestors, [](const Ancestor& left, const Ancestor& right) {
    return left.depth == right.depth && sameName(left.range, right.range) && sameName(left.name, right.name);
  });
}

/// A base column that a result lists twice is one column, though it stands in two of the result's.
bool sameColumn(const Column& a, const Column& b) {
  if (a.value.key >= 0) return a.value.key == b.value.key && a.value.position == b.value.position;
  return a.value.text == b.value.text || (!a.ancestors.empty() && sameAncestors(a, b));
}

struct Rank {
  int depth = std::numeric_limits<int>::max();
  int descent = std::numeric_limits<int>::max();
  friend auto operator<=>(const Rank&, const Rank&) = default;
};

}  // namespace

const Column* findColumn(const std::vector<Range>& ranges, const std::vector<std::string>& path,
                         bool firstOfMany) {
  const Column* found = nullptr;
  bool doubtful = false;
  Rank best;
  for (const Range& range : ranges) {
    for (const Column& column : range.columns) {
      const std::optional<int> depth = fits(column, path);
      if (!depth) continue;
      const Rank rank{*depth, longestDescent(column)};
      if (found == nullptr || rank < best) {
        found = &column;
        best = rank;
        doubtful = false;
      } else if (rank == best && !sameColumn(*found, column)) {
        doubtful = true;
      }
    }
  }
  if (doubtful && !firstOfMany)
    refuse("The name '" + joinName(path) + "' could refer to more than one table");
  if (found == nullptr && path.size() == 1 && path[0].find('.') != std::string::npos)
    return findColumn(ranges, splitName(path[0]), firstOfMany);
  return found;
}

Bound bindName(Binder& binder, const Level& level, const sql::Expr& expr) {
  for (const Level* at = &level; at != nullptr; at = at->outer) {
    for (const Range& range : at->ranges) spend(binder, range.columns.size());
    const Column* column = findColumn(at->ranges, expr.path, false);
    if (column == nullptr && expr.path.size() == 1) {
      const auto alias = std::find_if(at->aliases.begin(), at->aliases.end(), [&](const Column* named) {
        return sameName(named->name, expr.path[0]);
      });
      if (alias != at->aliases.end()) column = *alias;
    }
    if (column == nullptr) continue;
    for (const Level* passed = &level; passed != at; passed = passed->outer)
      join(passed->escaped, column->value.refs);
    return column->value;
  }

  const std::string name = joinName(expr.path);
  if (!binder.parametersAllowed) throw Error(errors::unknownName, "'" + name + "' is no field here");
  Bound bound;
  bound.parameter = parameterPosition(binder, name);
  bound.type = binder.parameterTypes[static_cast<std::size_t>(bound.parameter)];
  bound.text = "?" + std::to_string(bound.parameter + 1);
  return bound;
}

int parameterPosition(Binder& binder, const std::string& name) {
  const auto found = std::find_if(binder.parameters.begin(), binder.parameters.end(),
                                  [&](const std::string& known) { return sameName(known, name); });
  if (found != binder.parameters.end()) return static_cast<int>(found - binder.parameters.begin());
  binder.parameters.push_back(name);
  binder.parameterTypes.emplace_back();
  return static_cast<int>(binder.parameters.size()) - 1;
}

void declareParameters(Binder& binder, const std::vector<sql::ParameterDecl>& declared) {
  static constexpr std::pair<std::string_view, ColumnType> types[] = {
      {"TEXT", ColumnType::text},          {"CHAR", ColumnType::text},
      {"STRING", ColumnType::text},        {"VARCHAR", ColumnType::text},
      {"LONGTEXT", ColumnType::memo},      {"MEMO", ColumnType::memo},
      {"LONG", ColumnType::longInteger},   {"INTEGER", ColumnType::longInteger},
      {"INT", ColumnType::longInteger},    {"COUNTER", ColumnType::longInteger},
      {"SHORT", ColumnType::shortInteger}, {"SMALLINT", ColumnType::shortInteger},
      {"BYTE", ColumnType::shortInteger},  {"BIT", ColumnType::bit},
      {"YESNO", ColumnType::bit},          {"BOOLEAN", ColumnType::bit},
      {"LOGICAL", ColumnType::bit},        {"DATE", ColumnType::date},
      {"DATETIME", ColumnType::date},      {"TIME", ColumnType::date},
      {"TIMESTAMP", ColumnType::date},     {"DOUBLE", ColumnType::real},
      {"FLOAT", ColumnType::real},         {"SINGLE", ColumnType::real},
      {"REAL", ColumnType::real},          {"CURRENCY", ColumnType::real},
      {"NUMBER", ColumnType::real},        {"NUMERIC", ColumnType::real},
  };
  for (const sql::ParameterDecl& parameter : declared) {
    const auto position = static_cast<std::size_t>(parameterPosition(binder, parameter.name));
    const std::string_view declaredType =
        std::string_view(parameter.type).substr(0, parameter.type.find('('));
    for (const auto& [name, type] : types)
      if (sameName(name, declaredType)) binder.parameterTypes[position] = type;
  }
}

void refuse(const std::string& message) {
  throw Error(errors::syntax, message);
}

void spend(Binder& binder, std::size_t units) {
  constexpr std::size_t most = 100'000'000;
  binder.effort += units;
  if (binder.effort > most) refuse("The statement is too complex");
}

}  // namespace engine::plan
