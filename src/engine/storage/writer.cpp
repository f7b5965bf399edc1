#include "engine/storage/writer.h"

#include <sqlite3.h>

#include <algorithm>
#include <map>

#include "base/text.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/coerce.h"
#include "engine/storage/messages.h"

namespace engine::storage {

namespace {

using schema::quoteName;

enum class Operation { insert, update, erase };

}  // namespace

struct TableWriter::Impl {
  AttachedFile& file;
  const schema::Table& table;
  std::string name;  // with the schema's
  std::vector<bool> inPrimaryKey;
  int counter = -1;
  std::optional<StatementLease> insertion, deletion, sequence, reservation;
  std::map<std::vector<int>, StatementLease> updates;  // by the columns they set
  std::vector<const Value*> row;                       // by column, null where nothing is given

  Impl(AttachedFile& attached, const schema::Table& definition);
  Statement& insertStatement();
  Statement& updateStatement(const RowValues& values);
  void bindColumn(Statement& statement, int parameter, int column, const Value& value);
  void run(Statement& statement, Operation operation, std::int64_t rowid);
  [[noreturn]] void explain(const Error& error, Operation operation);
  std::string relationText(Operation operation) const;
  const schema::Column& column(int position) const {
    return table.columns[static_cast<std::size_t>(position)];
  }
  sqlite3* handle() const { return file.connection().handle(); }
};

TableWriter::Impl::Impl(AttachedFile& attached, const schema::Table& definition)
    : file(attached),
      table(definition),
      name(quoteName(attached.schemaName()) + "." + quoteName(definition.name)),
      inPrimaryKey(definition.columns.size(), false),
      counter(definition.counter()),
      row(definition.columns.size(), nullptr) {
  if (const schema::Index* key = table.primaryKey()) {
    for (const std::string& part : key->columns)
      inPrimaryKey[static_cast<std::size_t>(table.find(part))] = true;
  }
}

// One statement for all rows: what is not given is Null, as a column's default is.
Statement& TableWriter::Impl::insertStatement() {
  if (insertion) return **insertion;
  std::string text = "INSERT INTO " + name + " VALUES (";
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    text += (i > 0 ? ", ?" : "?") + std::to_string(i + 1);
  }
  insertion.emplace(file.connection().statement(text + ")"));
  return **insertion;
}

Statement& TableWriter::Impl::updateStatement(const RowValues& values) {
  std::vector<int> shape;
  shape.reserve(values.size());
  for (const auto& [position, value] : values) shape.push_back(position);
  if (const auto found = updates.find(shape); found != updates.end()) return *found->second;
  std::string text = "UPDATE " + name + " SET ";
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (i > 0) text += ", ";
    text += quoteName(column(shape[i]).name) + " = ?" + std::to_string(i + 1);
  }
  text += " WHERE rowid = ?" + std::to_string(shape.size() + 1);
  return *updates.emplace(std::move(shape), file.connection().statement(text)).first->second;
}

void TableWriter::Impl::bindColumn(Statement& statement, int parameter, int position, const Value& value) {
  if (value.isNull() && inPrimaryKey[static_cast<std::size_t>(position)]) {
    throw Error(errors::keyIsNull,
                "The key field \"" + column(position).name + "\" of \"" + table.name + "\" needs a value.");
  }
  bindCoerced(statement, parameter, table, column(position), value);
}

void TableWriter::Impl::run(Statement& statement, Operation operation, std::int64_t rowid) {
  try {
    statement.run();
  } catch (const Error& error) {
    explain(error, operation);
  }
  if (operation != Operation::insert && sqlite3_changes(handle()) == 0) {
    throw Error(errors::recordDeleted,
                "The row " + std::to_string(rowid) + " of \"" + table.name + "\" was deleted.");
  }
}

void TableWriter::Impl::explain(const Error& error, Operation operation) {
  switch (error.number()) {
    case errors::duplicateKey:
      throw Error(errors::duplicateKey,
                  "The table \"" + table.name +
                      "\" has a row with the same key already; the new one was not written.");
    case errors::relatedRowRequired:
      throw Error(operation == Operation::erase ? errorNumbers::relatedRows : errors::relatedRowRequired,
                  relationText(operation));
    default:
      throw error;
  }
}

std::string TableWriter::Impl::relationText(Operation operation) const {
  std::string others;
  for (const RelationRecord& relation : file.data().relations) {
    const std::string& here = operation == Operation::erase ? relation.table : relation.foreignTable;
    const std::string& there = operation == Operation::erase ? relation.foreignTable : relation.table;
    if (!base::equalsIgnoreCase(here, table.name)) continue;
    if (!others.empty()) others += ", ";
    others += "\"" + there + "\"";
  }
  if (operation == Operation::erase) {
    return "The row of \"" + table.name + "\" can not go while rows of " + others + " belong to it.";
  }
  return "The row of \"" + table.name + "\" needs a row that it belongs to in " + others + ".";
}

TableWriter::TableWriter(AttachedFile& file, const schema::Table& table)
    : impl_(std::make_unique<Impl>(file, table)) {}

TableWriter::~TableWriter() = default;

std::int64_t TableWriter::takeCounter() {
  Impl& self = *impl_;
  if (self.counter < 0) return 0;
  self.file.connection().beforeWrite(self.file);
  const Connection::Internal internal(self.file.connection());
  const std::string sequences = quoteName(self.file.schemaName()) + ".sqlite_sequence";
  if (!self.sequence) {
    self.sequence.emplace(
        self.file.connection().statement("SELECT seq FROM " + sequences + " WHERE name = ?1"));
    self.reservation.emplace(
        self.file.connection().statement("UPDATE " + sequences + " SET seq = ?2 WHERE name = ?1"));
    (*self.sequence)->bindText(1, self.table.name);
    (*self.reservation)->bindText(1, self.table.name);
  }
  const bool known = (*self.sequence)->step();
  const std::int64_t taken = known ? (*self.sequence)->integer(0) + 1 : 1;
  (*self.sequence)->reset();
  if (!known) {
    runStatement(self.handle(), "INSERT INTO " + sequences + "(name, seq) VALUES (?1, ?2)",
                 {self.table.name, taken});
  } else {
    (*self.reservation)->bindInteger(2, taken);
    (*self.reservation)->run();
  }
  return taken;
}

std::int64_t TableWriter::insert(const RowValues& values) {
  Impl& self = *impl_;
  self.file.connection().beforeWrite(self.file);
  Statement& statement = self.insertStatement();
  static const Value nothing;
  std::fill(self.row.begin(), self.row.end(), &nothing);
  for (const auto& [position, value] : values) self.row[static_cast<std::size_t>(position)] = &value;
  for (int i = 0; i < static_cast<int>(self.row.size()); ++i) {
    const Value& value = *self.row[static_cast<std::size_t>(i)];
    // A counter without a value numbers itself.
    if (i == self.counter && value.isNull()) {
      statement.bindNull(i + 1);
    } else {
      self.bindColumn(statement, i + 1, i, value);
    }
  }
  self.run(statement, Operation::insert, 0);
  return sqlite3_last_insert_rowid(self.handle());
}

void TableWriter::update(std::int64_t rowid, const RowValues& values) {
  if (values.empty()) return;
  Impl& self = *impl_;
  self.file.connection().beforeWrite(self.file);
  Statement& statement = self.updateStatement(values);
  int parameter = 1;
  for (const auto& [position, value] : values) self.bindColumn(statement, parameter++, position, value);
  statement.bindInteger(parameter, rowid);
  self.run(statement, Operation::update, rowid);
}

void TableWriter::erase(std::int64_t rowid) {
  Impl& self = *impl_;
  self.file.connection().beforeWrite(self.file);
  if (!self.deletion) {
    self.deletion.emplace(self.file.connection().statement("DELETE FROM " + self.name + " WHERE rowid = ?1"));
  }
  (*self.deletion)->bindInteger(1, rowid);
  self.run(**self.deletion, Operation::erase, rowid);
}

std::int64_t TableWriter::runWhole(Statement& statement, bool erases) {
  Impl& self = *impl_;
  self.file.connection().beforeWrite(self.file);
  try {
    statement.run();
  } catch (const Error& error) {
    self.explain(error, erases ? Operation::erase : Operation::update);
  }
  return sqlite3_changes64(self.handle());
}

}  // namespace engine::storage
