#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/schema/schema.h"
#include "engine/storage/catalog.h"
#include "engine/storage/connection.h"

namespace engine::storage {

/// Whether a column alone tells each row of a table from the others.
bool hasUniqueKey(const schema::Table& table, std::string_view column);

/// A file attached to a connection, with its definitions in memory. The catalogue that the binder sees.
class AttachedFile final : public schema::Catalog {
 public:
  ~AttachedFile() override;
  AttachedFile(const AttachedFile&) = delete;
  AttachedFile& operator=(const AttachedFile&) = delete;

  // schema::Catalog
  const std::string& schemaName() const override { return schemaName_; }
  const std::string& collation() const override { return data_.collation; }
  const schema::Table* table(std::string_view name) const override;
  const schema::StoredQuery* query(std::string_view name) const override;
  std::string rowsWithGrams(const schema::Table& table, int column,
                            const std::vector<std::string>& grams) const override;
  int keptInOrderOf(const schema::Table& table, const std::string& condition) const override;
  std::int64_t version() const override { return version_; }

  Connection& connection() const { return connection_; }
  const std::string& path() const { return path_; }
  bool readOnly() const { return readOnly_; }
  bool exclusive() const { return exclusive_; }
  const CatalogData& data() const { return data_; }
  /// Throws 3078 when there is no such table.
  const schema::Table& existingTable(std::string_view name) const;

  /// Reads the definitions again when another process changed them. Called before each statement;
  /// does nothing within a write transaction.
  void refresh();
  /// Reads them again in any case: behind a change that was undone from outside.
  void reload() { load(); }

  // Changes of definitions. Each is whole or throws and leaves everything as it was.
  void createTable(const schema::Table& table);  ///< throws 3010, 3012
  void createIndex(std::string_view table, const schema::Index& index);
  void dropTable(std::string_view name);  ///< a query of the name too; throws 3376
  void dropIndex(std::string_view table, std::string_view index);
  void addColumn(std::string_view table, const schema::Column& column);
  void alterColumn(std::string_view table, const schema::Column& column);
  void dropColumn(std::string_view table, std::string_view column);
  // In memory when asked for or when the file is read-only.
  void createQuery(const schema::StoredQuery& query, bool inMemory);                 ///< throws 3010, 3012
  void setQueryText(std::string_view name, const std::string& text, bool inMemory);  ///< throws 3265
  void appendRelation(const RelationRecord& relation);  ///< throws 3201 when rows break it
  void setAllowZeroLength(std::string_view table, std::string_view column, bool allow);
  void setProperty(const PropertyRecord& property);
  void setPermission(const PermissionRecord& permission);
  void appendWatch(const WatchRecord& watch);
  /// Declares an index that the next compaction makes; see engine::indexTexts for what it throws.
  void appendTextIndex(const TextIndexRecord& record);
  /// Marks the file as compacted just now, or anything else under a key of vc$file.
  void setFileValue(const std::string& key, const std::string& value);

 private:
  friend class Connection;
  AttachedFile(Connection& connection, std::string path, std::string schemaName, bool readOnly,
               bool exclusive);
  void initialise(const CatalogData& data);  ///< makes the hidden tables of a new file
  void start();                              ///< settings and definitions of a file just attached
  void load();                               ///< definitions as they stand in the file
  void takeOver(CatalogData data);
  void rebuildIndexesAfterNewRules();
  /// Runs `apply` on a copy of the definitions, with the hidden tables and SQLite's schema, and takes the
  /// copy over when all went well.
  template <class Apply>
  void change(Apply&& apply);
  void syncIndexes(const CatalogData& data, const schema::Table& table);
  void dropStoredIndexes(const std::string& table);
  /// Replaces SQLite's text of a table by the one that `data` describes; the rows' form must stay.
  void rewriteTable(const CatalogData& data, const schema::Table& table);
  void convertColumn(const schema::Table& table, const schema::Column& column);
  /// Drops the index of a table whose rows are about to change their form, or only what it holds.
  void forgetTextIndex(CatalogData& next, const std::string& table, bool recordToo);
  void refuseTakenName(std::string_view name) const;
  /// Whether a select gives any row.
  bool any(const std::string& select) const;
  std::string qualified(std::string_view table) const;

  Connection& connection_;
  std::string path_, schemaName_;
  bool readOnly_ = false, exclusive_ = false;
  CatalogData data_;
  // By lower-cased name. A table that a plan may still point to stays in kept_ when it is replaced.
  std::map<std::string, const schema::Table*, std::less<>> tables_;
  std::deque<schema::Table> kept_;
  std::map<std::string, schema::StoredQuery, std::less<>> queries_;
  std::map<std::string, schema::StoredQuery, std::less<>> scratch_;  // those that live in memory, as queries_
  std::int64_t version_ = 0;
  std::int64_t dataVersion_ = 0;
};

}  // namespace engine::storage
