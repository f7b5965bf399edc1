#include "engine/definitions.h"

#include <algorithm>

#include "base/text.h"
#include "engine/database.h"
#include "engine/impl.h"

namespace engine {

QueryDef::QueryDef(std::shared_ptr<DatabaseImpl> database, std::string name)
    : database_(std::move(database)), name_(std::move(name)) {}

std::string QueryDef::SQL() const {
  database_->file->refresh();
  const schema::StoredQuery* query = database_->file->query(name_);
  if (query == nullptr) throw Error(errors::itemNotFound, "The query \"" + name_ + "\" is gone.");
  return query->text;
}

void QueryDef::setSQL(const std::string& text) {
  database_->core->parsed(text);
  database_->file->setQueryText(name_, text, database_->readOnly);
}

void QueryDef::setScratchSQL(const std::string& text) {
  database_->core->parsed(text);
  database_->file->setQueryText(name_, text, true);
}

std::vector<std::string> QueryDef::parameterNames() const {
  return parametersOf(*database_, SQL());
}

void QueryDef::setParameter(const std::string& name, Value value) {
  const auto names = parameterNames();
  const auto isIt = [&](const std::string& known) { return base::equalsIgnoreCase(known, name); };
  if (std::none_of(names.begin(), names.end(), isIt)) {
    throw Error(errors::itemNotFound, "The query \"" + name_ + "\" has no parameter \"" + name + "\".");
  }
  std::erase_if(parameters_, [&](const auto& set) { return base::equalsIgnoreCase(set.first, name); });
  parameters_.emplace_back(name, std::move(value));
}

Recordset QueryDef::OpenRecordset(RecordsetKind kind, Interface way) {
  return Database(database_).OpenRecordset(name_, kind, parameters_, way);
}

std::int64_t QueryDef::Execute() {
  return execute(*database_, SQL(), parameters_, Interface::first);
}

TableDef::TableDef(std::shared_ptr<DatabaseImpl> database, std::string name)
    : database_(std::move(database)), name_(std::move(name)) {}

std::vector<FieldDef> TableDef::Fields() const {
  std::vector<FieldDef> fields;
  for (const schema::Column& column : database_->file->existingTable(name_).columns) {
    fields.push_back({column.name, column.type, column.size, column.required, column.allowZeroLength});
  }
  return fields;
}

std::vector<IndexDef> TableDef::Indexes() const {
  std::vector<IndexDef> indexes;
  for (const schema::Index& index : database_->file->existingTable(name_).indexes) {
    indexes.push_back({index.name, index.columns, index.primary, index.unique});
  }
  return indexes;
}

void TableDef::setAllowZeroLength(const std::string& field, bool allow) {
  database_->requireWritable();
  database_->file->setAllowZeroLength(name_, field, allow);
}

void TableDef::appendFieldProperty(const std::string& field, const std::string& property,
                                   const std::string& value) {
  database_->requireWritable();
  if (database_->file->existingTable(name_).find(field) < 0) {
    throw Error(errors::itemNotFound, "The table \"" + name_ + "\" has no field \"" + field + "\".");
  }
  database_->file->setProperty({name_, field, property, value});
}

std::string TableDef::fieldProperty(const std::string& field, const std::string& property) const {
  for (const storage::PropertyRecord& known : database_->file->data().properties) {
    if (base::equalsIgnoreCase(known.table, name_) && base::equalsIgnoreCase(known.field, field) &&
        base::equalsIgnoreCase(known.name, property)) {
      return known.value;
    }
  }
  throw Error(errors::itemNotFound,
              "The field \"" + field + "\" of \"" + name_ + "\" has no property \"" + property + "\".");
}

void TableDef::watch(const std::string& condition, const std::string& order) {
  database_->requireWritable();
  watchRows(*database_, name_, condition, order);
}

}  // namespace engine
