#include "engine/parameters.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/text.h"

namespace engine {

namespace {

std::string_view bareName(std::string_view name) {
  const bool bracketed = name.size() > 1 && name.front() == '[' && name.back() == ']';
  return bracketed ? name.substr(1, name.size() - 2) : name;
}

// A value in the declared type, where that changes how it compares.
Value typed(const Value& value, ColumnType type) {
  if (value.isNull()) return value;
  switch (type) {
    case ColumnType::counter:
    case ColumnType::longInteger:
    case ColumnType::shortInteger:
      return value.asInteger();
    case ColumnType::bit:
      return value.asBoolean();
    case ColumnType::real:
      return value.asReal();
    case ColumnType::date:
      return value.asDate();
    case ColumnType::text:
    case ColumnType::memo:
      break;
  }
  return value;
}

}  // namespace

void bindParameters(storage::Statement& statement, const plan::Plan& plan, const Parameters& parameters) {
  std::string absent;
  int missing = 0;
  const int wanted = sqlite3_bind_parameter_count(statement.handle());
  for (std::size_t i = 0; i < plan.parameters.size(); ++i) {
    const auto given = std::find_if(parameters.begin(), parameters.end(), [&](const auto& parameter) {
      return base::equalsIgnoreCase(bareName(parameter.first), bareName(plan.parameters[i]));
    });
    if (given == parameters.end()) {
      absent += (absent.empty() ? "" : ", ") + plan.parameters[i];
      ++missing;
    } else if (static_cast<int>(i) < wanted) {
      const ColumnType type = i < plan.parameterTypes.size() ? plan.parameterTypes[i] : ColumnType::text;
      statement.bind(static_cast<int>(i) + 1, typed(given->second, type));
    }
  }
  if (missing > 0) {
    throw Error(errors::tooFewParameters,
                "Too few parameters. Expected " + std::to_string(missing) + ": " + absent + ".");
  }
}

}  // namespace engine
