#include "engine/database.h"

#include "base/text.h"
#include "engine/impl.h"
#include "engine/recordset_open.h"
#include "engine/storage/messages.h"

namespace engine {

DatabaseImpl::DatabaseImpl(std::shared_ptr<WorkspaceCore> workspace,
                           std::shared_ptr<storage::AttachedFile> attached, std::string given,
                           bool onlyReading)
    : core(std::move(workspace)), file(std::move(attached)), path(std::move(given)), readOnly(onlyReading) {}

DatabaseImpl::~DatabaseImpl() = default;

void DatabaseImpl::requireWritable() const {
  if (readOnly) throw Error(errors::readOnly, "The file " + file->path() + " is open for reading only.");
}

void Database::Close() {
  if (!impl_) return;
  const std::shared_ptr<WorkspaceCore> core = impl_->core;
  impl_.reset();
  core->connection().idle();
}

namespace {

DatabaseImpl& opened(const std::shared_ptr<DatabaseImpl>& impl) {
  if (!impl) throw Error(storage::errorNumbers::closedObject, "The database is not open.");
  return *impl;
}

}  // namespace

std::string Database::Name() const {
  return opened(impl_).path;
}

std::string Database::locale() const {
  return opened(impl_).file->data().locale;
}

bool Database::readOnly() const {
  return opened(impl_).readOnly;
}

Recordset Database::OpenRecordset(const std::string& source, RecordsetKind kind, const Parameters& parameters,
                                  Interface way) {
  DatabaseImpl& database = opened(impl_);
  RecordsetSource what;
  what.keepAlive = impl_;
  what.file = database.file;
  what.openFile = [core = database.core](const std::string& path) { return core->borrow(path); };
  what.apart = [core = database.core](const auto& columns, const std::string& collation) {
    return core->constantColumns().differ(columns, collation);
  };
  what.text = source;
  what.kind = kind;
  what.parameters = parameters;
  what.way = way;
  what.readOnly = database.readOnly;
  what.readOnly = database.readOnly;
  return openRecordset(std::move(what));
}

std::int64_t Database::Execute(const std::string& statement, const Parameters& parameters, Interface way) {
  return execute(opened(impl_), statement, parameters, way);
}

QueryDef Database::CreateQueryDef(const std::string& name, const std::string& text) {
  DatabaseImpl& database = opened(impl_);
  database.core->parsed(text);
  database.file->createQuery({name, text}, database.readOnly);
  return QueryDef(impl_, name);
}

QueryDef Database::queryDef(const std::string& name) {
  DatabaseImpl& database = opened(impl_);
  database.file->refresh();
  const schema::StoredQuery* query = database.file->query(name);
  if (query == nullptr) {
    throw Error(errors::itemNotFound, "There is no query \"" + name + "\" in " + database.file->path() + ".");
  }
  return QueryDef(impl_, query->name);
}

std::vector<std::string> Database::queryNames() const {
  DatabaseImpl& database = opened(impl_);
  database.file->refresh();
  std::vector<std::string> names;
  for (const schema::StoredQuery& query : database.file->data().queries) names.push_back(query.name);
  return names;
}

TableDef Database::tableDef(const std::string& name) {
  DatabaseImpl& database = opened(impl_);
  database.file->refresh();
  const schema::Table* table = database.file->table(name);
  if (table == nullptr) {
    throw Error(errors::itemNotFound, "There is no table \"" + name + "\" in " + database.file->path() + ".");
  }
  return TableDef(impl_, table->name);
}

std::vector<std::string> Database::tableNames() const {
  DatabaseImpl& database = opened(impl_);
  database.file->refresh();
  std::vector<std::string> names;
  for (const schema::Table& table : database.file->data().tables) names.push_back(table.name);
  return names;
}

void Database::appendRelation(const Relation& relation) {
  DatabaseImpl& database = opened(impl_);
  database.requireWritable();
  database.file->appendRelation({relation.Name, relation.Table, relation.ForeignTable, relation.field,
                                 relation.foreignField, relation.Attributes});
}

std::vector<Relation> Database::relations() const {
  DatabaseImpl& database = opened(impl_);
  database.file->refresh();
  std::vector<Relation> result;
  for (const storage::RelationRecord& relation : database.file->data().relations) {
    result.push_back({relation.name, relation.table, relation.foreignTable, relation.attributes,
                      relation.field, relation.foreignField});
  }
  return result;
}

void Database::setPermissions(const std::string& container, const std::string& document,
                              const std::string& userName, std::int32_t permissions) {
  DatabaseImpl& database = opened(impl_);
  database.requireWritable();
  database.file->setPermission({container, document, userName, permissions});
}

}  // namespace engine
