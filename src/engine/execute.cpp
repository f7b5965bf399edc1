#include "engine/execute.h"

#include "base/text.h"
#include "engine/sql/parser.h"
#include "engine/storage/messages.h"

namespace engine {

namespace {

bool isAction(const sql::Statement& statement) {
  switch (statement.kind) {
    case sql::StatementKind::insert:
    case sql::StatementKind::update:
    case sql::StatementKind::remove:
      return true;
    case sql::StatementKind::select:
      return !statement.select->into.empty();
    default:
      return false;
  }
}

// Of `"t1"."Name" = 't1.'` without the alias "t1" in front of names.
std::string withoutAlias(const std::string& text, const std::string& alias) {
  std::string bare;
  const std::string prefix = alias + ".";
  for (std::size_t i = 0; i < text.size();) {
    const bool startsWord =
        i == 0 || std::string_view(" (,=<>+-").find(text[i - 1]) != std::string_view::npos;
    if (startsWord && text.compare(i, prefix.size(), prefix) == 0) {
      i += prefix.size();
      continue;
    }
    const char quote = text[i];
    bare += text[i++];
    if (quote != '\'' && quote != '"') continue;
    while (i < text.size()) {
      bare += text[i];
      if (text[i++] == quote) break;
    }
  }
  return bare;
}

}  // namespace

Binding::Binding(DatabaseImpl& database, Interface way) {
  context_.file = database.file.get();
  context_.way = way;
  context_.open = [this, &database](const std::string& path) -> const schema::Catalog& {
    auto file = database.core->borrow(path);
    file->refresh();
    borrowed_.push_back(file);
    return *file;
  };
}

std::int64_t execute(DatabaseImpl& database, const std::string& text, const Parameters& parameters,
                     Interface way) {
  database.file->refresh();
  const schema::StoredQuery* query = database.file->query(base::trim(text));
  const auto statement = database.core->parsed(query != nullptr ? query->text : text);
  if (isAction(*statement)) return act(database, *statement, parameters, way);
  if (statement->kind == sql::StatementKind::select) {
    throw Error(storage::errorNumbers::notASelect, "A select can not be executed; it has to be opened.");
  }
  database.requireWritable();
  define(database, *statement);
  return 0;
}

std::vector<std::string> parametersOf(DatabaseImpl& database, const std::string& text) {
  const auto statement = database.core->parsed(text);
  const Binding binding(database, Interface::first);
  if (isAction(*statement)) return plan::bindAction(*statement, binding.context()).rows.parameters;
  if (statement->kind != sql::StatementKind::select) return {};
  return plan::bind(*statement, binding.context()).parameters;
}

void watchRows(DatabaseImpl& database, const std::string& table, const std::string& condition,
               const std::string& order) {
  const Binding binding(database, Interface::first);
  const plan::Plan plan =
      plan::bind(*database.core->parsed("SELECT * FROM [" + table + "]"), binding.context());
  const sql::ExprPtr parsed = sql::parseCondition(condition);
  const std::string bound = plan::bindCriterion(plan, *parsed, binding.context());
  const std::string& rowid = plan.sources.at(0).rowid;
  const std::string alias = rowid.substr(0, rowid.rfind('.'));
  database.file->appendWatch({table, condition, withoutAlias(bound, alias), order});
}

}  // namespace engine
