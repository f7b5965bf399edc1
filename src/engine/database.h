#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/definitions.h"
#include "engine/recordset.h"
#include "engine/types/types.h"

namespace engine {

class DatabaseImpl;

/// A handle on an open file; copies share it. An empty handle is not open.
class Database {
 public:
  Database() = default;
  bool isOpen() const { return impl_ != nullptr; }
  void Close();  ///< gives up this handle; the file closes with the last handle and recordset

  std::string Name() const;    ///< full path as it was opened
  std::string locale() const;  ///< the connect string it was created or compacted with
  bool readOnly() const;

  /// Opens a table, a stored query or a statement of the dialect. Parameters that the text needs and
  /// that are not given end in 3061.
  Recordset OpenRecordset(const std::string& source, RecordsetKind kind = RecordsetKind::dynaset,
                          const Parameters& parameters = {}, Interface way = Interface::first);
  /// Runs an action or definition statement. Returns the rows affected (0 for definitions).
  std::int64_t Execute(const std::string& statement, const Parameters& parameters = {},
                       Interface way = Interface::first);

  /// Adds a stored query with exactly this text; throws 3012 or 3010 when the name is taken, 3075 when
  /// the text is no statement.
  QueryDef CreateQueryDef(const std::string& name, const std::string& text);
  QueryDef queryDef(const std::string& name);   ///< throws 3265
  std::vector<std::string> queryNames() const;  ///< in the order of creation
  TableDef tableDef(const std::string& name);   ///< throws 3265
  std::vector<std::string> tableNames() const;  ///< in the order of creation
  /// Adds the relation and enforces it from now on; both tables may hold rows that obey it.
  void appendRelation(const Relation& relation);
  std::vector<Relation> relations() const;
  /// Rights of a user or group on a document ("Databases" or "Tables" container); 0 is none.
  void setPermissions(const std::string& container, const std::string& document, const std::string& userName,
                      std::int32_t permissions);

  const std::shared_ptr<DatabaseImpl>& impl() const { return impl_; }
  explicit Database(std::shared_ptr<DatabaseImpl> impl) : impl_(std::move(impl)) {}

 private:
  std::shared_ptr<DatabaseImpl> impl_;
};

}  // namespace engine
