#include "engine/recordset_query.h"

#include <algorithm>

#include "base/text.h"
#include "engine/parameters.h"
#include "engine/sql/parser.h"

namespace engine {

namespace {

constexpr int tableChanged = 3211;

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

}  // namespace

RecordsetQuery::RecordsetQuery(RecordsetSource source, std::vector<std::string> filters)
    : source_(std::move(source)), filters_(std::move(filters)) {
  source_.file->refresh();
  context_.file = source_.file.get();
  context_.way = source_.way;
  context_.apart = source_.apart;
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
    const std::vector<plan::Output> before = std::move(plan_.columns);
    const std::size_t arms = plan_.arms.size();
    bindPlan();
    const auto sameName = [](const plan::Output& a, const plan::Output& b) { return a.name == b.name; };
    if (arms != plan_.arms.size() || !std::ranges::equal(before, plan_.columns, sameName)) {
      boundAt_ = -1;
      throw Error(tableChanged, "A table was changed while a recordset on it was open. Open it again.");
    }
  }
  return plan_;
}

void RecordsetQuery::renew() {
  if (!plan().arms.empty()) {
    bindPlan();
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
  bindParameters(*lease, plan(), source_.parameters);
  return lease;
}

bool RecordsetQuery::sortsFirst() {
  const plan::Plan& narrowed = plan();
  if (narrowed.sources.size() != 1 || narrowed.orderBy.empty() || narrowed.where.empty()) return false;
  constexpr int detail = 3;
  const std::vector<bool> allFields(narrowed.columns.size(), true);
  const storage::StatementLease explained =
      statement("EXPLAIN QUERY PLAN " + plan::emitKeysAndSome(narrowed, allFields, where()));
  while (explained->step())
    if (explained->text(detail).find("TEMP B-TREE FOR ORDER BY") != std::string_view::npos) return true;
  return false;
}

storage::AttachedFile& RecordsetQuery::fileOf(int source) {
  return connection().fileOf(*plan().sources.at(static_cast<std::size_t>(source)).file);
}

}  // namespace engine
