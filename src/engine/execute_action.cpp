#include <algorithm>

#include "base/text.h"
#include "engine/execute.h"
#include "engine/parameters.h"
#include "engine/storage/coerce.h"
#include "engine/storage/writer.h"

namespace engine {

namespace {

using schema::quoteName;
using storage::RowValues;

/// An action on its way: bound, its target open for writing.
struct Running {
  storage::AttachedFile& file;
  const sql::Statement& statement;
  const plan::Action& action;
  const Parameters& parameters;

  storage::Connection& connection() const { return file.connection(); }
  std::string target() const { return quoteName(file.schemaName()) + "." + quoteName(action.table->name); }
  /// The statement of the rows to act on, with its parameters.
  storage::StatementLease rows() const {
    storage::StatementLease lease = connection().statement(plan::emitRows(action.rows));
    bindParameters(*lease, action.rows, parameters);
    return lease;
  }
};

// A row that breaks a rule of the table is left out of INSERT ... SELECT, the others are written.
bool isSkipped(int number) {
  constexpr int skipped[] = {errors::duplicateKey, errors::keyIsNull,   errors::relatedRowRequired,
                             errors::tooLong,      errors::nullRefused, errors::zeroLength};
  return std::find(std::begin(skipped), std::end(skipped), number) != std::end(skipped);
}

/// Reads the values of the row a statement stands on into the target's columns.
void readValues(const storage::Statement& rows, const plan::Action& action, int firstColumn,
                RowValues& values) {
  values.resize(action.targets.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto column = static_cast<std::size_t>(firstColumn) + i;
    values[i].first = action.targets[i];
    values[i].second = rows.value(static_cast<int>(column), action.rows.columns[column].type);
  }
}

bool mentions(const std::string& text, const schema::Table& table) {
  return base::inStrIgnoreCase(text, quoteName(table.name)) != 0;
}

std::int64_t insertRows(const Running& run) {
  storage::TableWriter writer(run.file, *run.action.table);
  std::int64_t written = 0;
  const auto write = [&](const RowValues& values) {
    try {
      writer.insert(values);
      ++written;
    } catch (const Error& error) {
      if (run.action.singleRow || !isSkipped(error.number())) throw;
    }
  };
  storage::StatementLease rows = run.rows();
  if (!mentions(plan::emitRows(run.action.rows), *run.action.table)) {
    RowValues values;
    while (rows->step()) {
      readValues(*rows, run.action, 0, values);
      write(values);
    }
    return written;
  }
  // The new rows must not be read again.
  std::vector<RowValues> frozen;
  while (rows->step()) readValues(*rows, run.action, 0, frozen.emplace_back());
  rows->reset();
  for (const RowValues& values : frozen) write(values);
  return written;
}

/// The value of an assignment that is the same for every row; nothing when it is not plainly so.
std::optional<Value> constant(const sql::Expr& expression) {
  if (expression.kind == sql::ExprKind::literal) return expression.value;
  if (expression.kind != sql::ExprKind::unary || expression.op != "-") return std::nullopt;
  const auto inner = constant(*expression.args.front());
  if (!inner || inner->kind() != Value::Kind::integer) return std::nullopt;
  return Value(-inner->asInteger());
}

/// The same values for all rows of one table, none of them part of a key.
std::optional<std::vector<Value>> constants(const Running& run) {
  if (!run.action.rows.keyed || run.action.rows.sources.size() != 1) return std::nullopt;
  const auto& assignments = run.statement.update->set;
  std::vector<Value> values;
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    const auto value = constant(*assignments[i].value);
    const auto target = static_cast<std::size_t>(run.action.targets[i]);
    const schema::Column& column = run.action.table->columns[target];
    const schema::Index* key = run.action.table->primaryKey();
    const bool inKey =
        key != nullptr && std::any_of(key->columns.begin(), key->columns.end(), [&](const auto& name) {
          return base::equalsIgnoreCase(name, column.name);
        });
    if (!value || inKey || column.type == ColumnType::counter) return std::nullopt;
    values.push_back(*value);
  }
  return values;
}

std::int64_t updateAtOnce(const Running& run, const std::vector<Value>& values) {
  const int parameters = static_cast<int>(run.action.rows.parameters.size());
  std::string text = "UPDATE " + run.target() + " SET ";
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto target = static_cast<std::size_t>(run.action.targets[i]);
    if (i > 0) text += ", ";
    text += quoteName(run.action.table->columns[target].name) + " = ?" +
            std::to_string(parameters + 1 + static_cast<int>(i));
  }
  const storage::StatementLease update =
      run.connection().statement(text + " WHERE rowid IN (" + plan::emitKeys(run.action.rows) + ")");
  bindParameters(*update, run.action.rows, run.parameters);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto target = static_cast<std::size_t>(run.action.targets[i]);
    storage::bindCoerced(*update, parameters + 1 + static_cast<int>(i), *run.action.table,
                         run.action.table->columns[target], values[i]);
  }
  return storage::TableWriter(run.file, *run.action.table).runWhole(*update, false);
}

std::int64_t updateRows(const Running& run) {
  if (const auto values = constants(run)) {
    // Values that no row would take are refused only where there is a row.
    storage::StatementLease rows = run.rows();
    if (!rows->step()) return 0;
    rows->reset();
    return updateAtOnce(run, *values);
  }
  struct Change {
    std::int64_t rowid;
    RowValues values;
  };
  std::vector<Change> changes;
  {
    storage::StatementLease rows = run.rows();
    while (rows->step()) {
      if (rows->isNull(0)) continue;  // a missing outer side
      readValues(*rows, run.action, 1, changes.emplace_back(Change{rows->integer(0), {}}).values);
    }
  }
  storage::TableWriter writer(run.file, *run.action.table);
  for (const Change& change : changes) writer.update(change.rowid, change.values);
  return static_cast<std::int64_t>(changes.size());
}

std::int64_t eraseRows(const Running& run) {
  const sql::Delete& statement = *run.statement.remove;
  const bool all = !statement.where && statement.target->kind == sql::From::Kind::table &&
                   base::equalsIgnoreCase(statement.target->table, run.action.table->name);
  std::string text = "DELETE FROM " + run.target();
  if (!all) text += " WHERE rowid IN (" + plan::emitRows(run.action.rows) + ")";
  const storage::StatementLease erase = run.connection().statement(text);
  bindParameters(*erase, run.action.rows, run.parameters);
  return storage::TableWriter(run.file, *run.action.table).runWhole(*erase, true);
}

// A made table keeps the types of what it is made from, but no keys; it takes empty texts.
schema::Table madeTable(const plan::Action& action) {
  schema::Table table{action.newTable, {}, {}};
  for (const plan::Output& output : action.rows.columns) {
    schema::Column column{base::replaceAll(output.name, ".", "_"), output.type, output.size, false, true};
    if (column.type == ColumnType::counter) column.type = ColumnType::longInteger;
    if (column.type == ColumnType::text && column.size == 0) column.type = ColumnType::memo;
    if (column.type != ColumnType::text) column.size = 0;
    table.columns.push_back(std::move(column));
  }
  return table;
}

std::int64_t makeTable(const Running& run) {
  run.file.createTable(madeTable(run.action));
  plan::Action filling{sql::StatementKind::insert,
                       run.action.file,
                       &run.file.existingTable(run.action.newTable),
                       {},
                       {},
                       {},
                       false};
  storage::StatementLease rows = run.rows();
  for (std::size_t i = 0; i < run.action.rows.columns.size(); ++i)
    filling.targets.push_back(static_cast<int>(i));
  storage::TableWriter writer(run.file, *filling.table);
  std::int64_t written = 0;
  RowValues values(filling.targets.size());
  while (rows->step()) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      values[i] = {static_cast<int>(i), rows->value(static_cast<int>(i), run.action.rows.columns[i].type)};
    }
    writer.insert(values);
    ++written;
  }
  return written;
}

std::int64_t perform(const Running& run) {
  switch (run.action.kind) {
    case sql::StatementKind::insert:
      return insertRows(run);
    case sql::StatementKind::update:
      return updateRows(run);
    case sql::StatementKind::remove:
      return eraseRows(run);
    default:
      return makeTable(run);
  }
}

}  // namespace

std::int64_t act(DatabaseImpl& database, const sql::Statement& statement, const Parameters& parameters,
                 Interface way) {
  const Binding binding(database, way);
  const plan::Action action = plan::bindAction(statement, binding.context());
  storage::AttachedFile& file = database.core->connection().fileOf(*action.file);
  if (&file == database.file.get()) database.requireWritable();
  storage::Connection& connection = file.connection();
  connection.beforeWrite(file);
  try {
    storage::Connection::Savepoint savepoint(connection);
    const std::int64_t rows = perform({file, statement, action, parameters});
    savepoint.release();
    return rows;
  } catch (...) {
    // A table that was made is gone again.
    if (action.table == nullptr) file.reload();
    throw;
  }
}

}  // namespace engine
