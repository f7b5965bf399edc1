#include "engine/recordset_query.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/text.h"
#include "engine/sql/parser.h"

namespace engine {

namespace {

/// The statement that a caller's text stands for: a stored query's own text, a select on a table, or itself.
std::string statementText(const storage::AttachedFile& file, const std::string& text) {
  const std::string name = base::trim(text);
  if (const schema::StoredQuery* query = file.query(name)) {
    return query->text;
  }
  const bool oneWord = name.find_first_of(" \t\r\n;(") == std::string::npos;
  if (file.table(name) != nullptr || oneWord) {
    return name.starts_with('[') ? "SELECT * FROM " + name : "SELECT * FROM [" + name + "]";
  }
  return text;
}

std::string bareName(std::string_view name) {
  if (name.size() > 1 && name.front() == '[' && name.back() == ']') {
    name = name.substr(1, name.size() - 2);
  }
  return std::string(name);
}

/// A parameter's value in its declared type, where that changes how it compares.
Value asParameter(const Value& value, ColumnType type) {
  if (value.isNull()) {
    return value;
  }
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

RecordsetQuery::RecordsetQuery(RecordsetSource source, std::vector<std::string> filters)
    : source_(std::move(source)), filters_(std::move(filters)) {
  source_.file->refresh();
  context_.file = source_.file.get();
  context_.way = source_.way;
  context_.open = [this](const std::string& path) -> const schema::Catalog& {
    std::shared_ptr<storage::AttachedFile> file = source_.openFile(path);
    if (file != source_.file && std::ranges::find(others_, file) == others_.end()) {
      file->refresh();
      others_.push_back(file);
    }
    return *file;
  };
  source_.text = statementText(*source_.file, source_.text);
  bindPlan();
  takeParameters();
}

void RecordsetQuery::bindPlan() {
  const sql::Statement statement = sql::parse(source_.text);
  if (statement.kind != sql::StatementKind::select || !statement.select->into.empty()) {
    throw Error(3219, "Invalid operation: the statement returns no rows.");
  }
  plan_ = plan::bind(statement, context_);
  boundAt_ = definitions();
}

std::int64_t RecordsetQuery::definitions() const {
  std::int64_t versions = source_.file->version();
  for (const auto& file : others_) {
    versions += file->version();
  }
  return versions;
}

const plan::Plan& RecordsetQuery::plan() {
  if (definitions() != boundAt_) {
    bindPlan();
  }
  return plan_;
}

void RecordsetQuery::takeParameters() {
  std::vector<std::string> absent;
  for (std::size_t i = 0; i < plan_.parameters.size(); ++i) {
    const auto given = std::ranges::find_if(source_.parameters, [&](const auto& parameter) {
      return base::equalsIgnoreCase(bareName(parameter.first), bareName(plan_.parameters[i]));
    });
    if (given == source_.parameters.end()) {
      absent.push_back(plan_.parameters[i]);
      continue;
    }
    const ColumnType type = i < plan_.parameterTypes.size() ? plan_.parameterTypes[i] : ColumnType::text;
    values_.push_back(asParameter(given->second, type));
  }
  if (!absent.empty()) {
    std::string names;
    for (const std::string& name : absent) {
      names += (names.empty() ? "" : ", ") + name;
    }
    throw Error(errors::tooFewParameters,
                "Too few parameters. Expected " + std::to_string(absent.size()) + ": " + names + ".");
  }
}

std::string RecordsetQuery::bind(const std::string& criterion) {
  const sql::ExprPtr condition = sql::parseCondition(criterion);
  return plan::bindCriterion(plan(), *condition, context_);
}

std::string RecordsetQuery::bindOnCopy(const std::string& criterion) {
  const sql::ExprPtr condition = sql::parseCondition(criterion);
  return plan::bindCriterionOnCopy(plan(), *condition, context_);
}

std::string RecordsetQuery::where(const std::string& criterion) {
  std::string text;
  const auto add = [&](const std::string& condition) {
    text += (text.empty() ? "(" : " AND (") + bind(condition) + ")";
  };
  std::ranges::for_each(filters_, add);
  if (!criterion.empty()) {
    add(criterion);
  }
  return text;
}

storage::StatementLease RecordsetQuery::statement(const std::string& text) {
  storage::StatementLease lease = connection().statement(text);
  bindParameters(*lease);
  return lease;
}

void RecordsetQuery::bindParameters(storage::Statement& statement) const {
  const int wanted = std::min(parameterCount(), sqlite3_bind_parameter_count(statement.handle()));
  for (int i = 0; i < wanted; ++i) {
    statement.bind(i + 1, values_[static_cast<std::size_t>(i)]);
  }
}

storage::AttachedFile& RecordsetQuery::fileOf(int source) {
  return connection().fileOf(*plan().sources.at(static_cast<std::size_t>(source)).file);
}

}  // namespace engine
