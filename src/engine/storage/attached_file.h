#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/schema/schema.h"
#include "engine/storage/catalog.h"
#include "engine/storage/connection.h"

namespace engine::storage {

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
  std::int64_t version() const override { return version_; }

  Connection& connection() const { return connection_; }
  const std::string& path() const { return path_; }
  bool readOnly() const { return readOnly_; }
  const CatalogData& data() const { return data_; }
  /// Throws 3078 when there is no such table.
  const schema::Table& existingTable(std::string_view name) const;

  /// Reads the definitions again when another process changed them. Called before each statement;
  /// does nothing within a write transaction.
  void refresh();

  // Changes of definitions. Each is whole or throws and leaves everything as it was.
  void createTable(const schema::Table& table);  ///< throws 3010, 3012
  void createIndex(std::string_view table, const schema::Index& index);
  void dropTable(std::string_view name);  ///< a query of the name too; throws 3376
  void dropIndex(std::string_view table, std::string_view index);
  void addColumn(std::string_view table, const schema::Column& column);
  void alterColumn(std::string_view table, const schema::Column& column);
  void dropColumn(std::string_view table, std::string_view column);
  void createQuery(const schema::StoredQuery& query);                 ///< throws 3010, 3012
  void setQueryText(std::string_view name, const std::string& text);  ///< in memory when read-only
  void appendRelation(const RelationRecord& relation);                ///< throws 3201 when rows break it
  void setAllowZeroLength(std::string_view table, std::string_view column, bool allow);
  void setProperty(const PropertyRecord& property);
  void setPermission(const PermissionRecord& permission);
  void appendWatch(const WatchRecord& watch);
  /// Marks the file as compacted just now, or anything else under a key of vc$file.
  void setFileValue(const std::string& key, const std::string& value);

 private:
  friend class Connection;
  AttachedFile(Connection& connection, std::string path, std::string schemaName, bool readOnly);
  void load();
  template <class Change>
  void change(Change&& apply);

  Connection& connection_;
  std::string path_, schemaName_;
  bool readOnly_ = false;
  CatalogData data_;
  std::map<std::string, std::size_t, std::less<>> tableNames_, queryNames_;  // lower-cased to position
  std::int64_t version_ = 0;
  std::int64_t dataVersion_ = 0;
};

}  // namespace engine::storage
