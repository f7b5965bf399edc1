#include "engine/storage/attached_file.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/text.h"
#include "engine/storage/text_index.h"
#include "engine/text/collation.h"

namespace engine::storage {

namespace {

bool same(const schema::Table& a, const schema::Table& b) {
  const auto sameColumn = [](const schema::Column& x, const schema::Column& y) {
    return x.name == y.name && x.type == y.type && x.size == y.size && x.required == y.required &&
           x.allowZeroLength == y.allowZeroLength;
  };
  const auto sameIndex = [](const schema::Index& x, const schema::Index& y) {
    return x.name == y.name && x.columns == y.columns && x.primary == y.primary && x.unique == y.unique;
  };
  return a.name == b.name &&
         std::equal(a.columns.begin(), a.columns.end(), b.columns.begin(), b.columns.end(), sameColumn) &&
         std::equal(a.indexes.begin(), a.indexes.end(), b.indexes.begin(), b.indexes.end(), sameIndex);
}

}  // namespace

bool hasUniqueKey(const schema::Table& table, std::string_view column) {
  const int position = table.find(column);
  if (position < 0) return false;
  if (position == table.counter()) return true;
  return std::any_of(table.indexes.begin(), table.indexes.end(), [&](const schema::Index& index) {
    return (index.unique || index.primary) && index.columns.size() == 1 &&
           table.find(index.columns.front()) == position;
  });
}

AttachedFile::AttachedFile(Connection& connection, std::string path, std::string schemaName, bool readOnly,
                           bool exclusive)
    : connection_(connection),
      path_(std::move(path)),
      schemaName_(std::move(schemaName)),
      readOnly_(readOnly),
      exclusive_(exclusive) {}

AttachedFile::~AttachedFile() = default;

const schema::Table* AttachedFile::table(std::string_view name) const {
  const auto found = tables_.find(base::lower(name));
  return found == tables_.end() ? nullptr : found->second;
}

const schema::StoredQuery* AttachedFile::query(std::string_view name) const {
  const auto found = queries_.find(base::lower(name));
  return found == queries_.end() ? nullptr : &found->second;
}

std::string AttachedFile::rowsWithGrams(const schema::Table& table, int column,
                                        const std::vector<std::string>& grams) const {
  const std::string& name = table.columns[static_cast<std::size_t>(column)].name;
  for (const TextIndexRecord& record : data_.texts) {
    if (record.table != table.name || !isUsable(data_, record)) continue;
    if (std::find(record.columns.begin(), record.columns.end(), name) == record.columns.end()) continue;
    return storage::rowsWithGrams(*this, record, grams);
  }
  return {};
}

int AttachedFile::keptInOrderOf(const schema::Table& table, const std::string& condition) const {
  for (const WatchRecord& watch : data_.watches)
    if (watch.table == table.name && watch.text == condition && !watch.order.empty())
      return table.find(watch.order);
  return -1;
}

const schema::Table& AttachedFile::existingTable(std::string_view name) const {
  if (const schema::Table* found = table(name)) return *found;
  throw Error(errors::inputNotFound, "There is no table \"" + std::string(name) + "\" in " + path_ + ".");
}

void AttachedFile::initialise(const CatalogData& data) {
  sqlite3* const handle = connection_.handle();
  file::reserve(handle, schemaName_);
  {
    Statement journal(handle, "PRAGMA " + schemaName_ + ".journal_mode = WAL");
    if (!journal.step() || journal.text(0) != "wal") {
      throw Error(errors::permissionDenied, "No log can be kept beside the file " + path_ + ".");
    }
  }
  runStatement(handle, "BEGIN");
  try {
    createCatalog(handle, schemaName_);
    writeCatalog(handle, schemaName_, data);
    runStatement(handle, "COMMIT");
  } catch (...) {
    if (sqlite3_get_autocommit(handle) == 0) runStatement(handle, "ROLLBACK");
    throw;
  }
}

void AttachedFile::start() {
  sqlite3* const handle = connection_.handle();
  try {
    // In KiB; decrypting a page again costs more than memory.
    runStatement(handle, "PRAGMA " + schemaName_ + ".cache_size = -65536");
    runStatement(handle, "PRAGMA " + schemaName_ + ".synchronous = NORMAL");
    load();
  } catch (const Error& error) {
    if (error.number() == errors::busy && exclusive_) {
      throw Error(errors::locked, "The file " + path_ + " is in use by another program.");
    }
    if (error.number() != errors::notADictionary) throw;
    if (data_.format > formatVersion) throw Error(errors::notADictionary, path_ + ": " + error.text());
    throw Error(errors::notADictionary, file::damagedText(path_));
  }
  if (data_.collationVersion != text::collationVersion(data_.collation)) rebuildIndexesAfterNewRules();
}

// Indexes made under other rules of order miss rows.
void AttachedFile::rebuildIndexesAfterNewRules() {
  if (readOnly_) {
    throw Error(errors::readOnly, "The rules of text order of this system changed since " + path_ +
                                      " was written; it has to be opened once for writing.");
  }
  sqlite3* const handle = connection_.handle();
  connection_.beforeWrite(*this);
  Connection::Savepoint savepoint(connection_);
  for (const schema::Table& table : data_.tables) runStatement(handle, "REINDEX " + qualified(table.name));
  data_.collationVersion = text::collationVersion(data_.collation);
  writeFileValue(handle, schemaName_, "collationVersion", data_.collationVersion);
  savepoint.release();
}

void AttachedFile::load() {
  const Connection::Internal internal(connection_);
  CatalogData data;
  // The format is kept on failure: it tells a later program's file from a damaged one.
  try {
    data = readCatalog(connection_.handle(), schemaName_);
  } catch (const LaterFormat& later) {
    data_.format = later.format;
    throw;
  }
  for (const auto& [key, scratch] : scratch_) {
    const auto isIt = [&](const schema::StoredQuery& query) { return base::lower(query.name) == key; };
    const auto stored = std::find_if(data.queries.begin(), data.queries.end(), isIt);
    if (stored != data.queries.end()) stored->text = scratch.text;
    if (stored == data.queries.end()) data.queries.push_back(scratch);
  }
  {
    Statement changes(connection_.handle(), "PRAGMA " + schemaName_ + ".data_version");
    if (changes.step()) dataVersion_ = changes.integer(0);
  }
  takeOver(std::move(data));
}

void AttachedFile::takeOver(CatalogData data) {
  data_ = std::move(data);
  ++version_;
  std::map<std::string, const schema::Table*, std::less<>> tables;
  for (const schema::Table& table : data_.tables) {
    const std::string key = base::lower(table.name);
    const auto before = tables_.find(key);
    if (before != tables_.end() && same(*before->second, table)) {
      tables[key] = before->second;
    } else {
      tables[key] = &kept_.emplace_back(table);
    }
  }
  tables_ = std::move(tables);
  std::map<std::string, schema::StoredQuery, std::less<>> queries;
  for (const schema::StoredQuery& query : data_.queries) queries[base::lower(query.name)] = query;
  queries_ = std::move(queries);
}

void AttachedFile::refresh() {
  sqlite3* const handle = connection_.handle();
  if (sqlite3_txn_state(handle, schemaName_.c_str()) == SQLITE_TXN_WRITE) return;
  const Connection::Internal internal(connection_);
  const StatementLease changes = connection_.statement("PRAGMA " + schemaName_ + ".data_version");
  if (!changes->step() || changes->integer(0) == dataVersion_) return;
  dataVersion_ = changes->integer(0);
  if (readCounter(handle, schemaName_) != data_.counter) load();
}

bool AttachedFile::any(const std::string& select) const {
  Statement statement(connection_.handle(), select + " LIMIT 1");
  return statement.step();
}

std::string AttachedFile::qualified(std::string_view table) const {
  return schema::quoteName(schemaName_) + "." + schema::quoteName(table);
}

}  // namespace engine::storage
