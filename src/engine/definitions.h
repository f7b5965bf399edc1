#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/recordset.h"
#include "engine/types/types.h"

namespace engine {

class DatabaseImpl;

/// A stored query of a file: a name and a text, with parameters that may be set before opening.
class QueryDef {
 public:
  const std::string& Name() const { return name_; }
  std::string SQL() const;               ///< the text exactly as stored
  void setSQL(const std::string& text);  ///< replaces it; kept in memory when the file is read-only
  /// The same for as long as the file is open: what others see and the file itself stay as they are.
  void setScratchSQL(const std::string& text);
  /// Names of the parameters the text needs, declared ones first, in order of appearance.
  std::vector<std::string> parameterNames() const;
  void setParameter(const std::string& name, Value value);  ///< throws 3265 for a name it does not need
  Recordset OpenRecordset(RecordsetKind kind = RecordsetKind::dynaset, Interface way = Interface::first);
  std::int64_t Execute();

  QueryDef(std::shared_ptr<DatabaseImpl> database, std::string name);

 private:
  std::shared_ptr<DatabaseImpl> database_;
  std::string name_;
  Parameters parameters_;
};

struct FieldDef {
  std::string name;
  ColumnType type = ColumnType::text;
  int size = 0;  ///< characters for text, else 0
  bool required = false;
  bool allowZeroLength = false;
};

struct IndexDef {
  std::string name;
  std::vector<std::string> fields;
  bool primary = false;
  bool unique = false;
};

/// A table's definition as it stood when asked for; the setters change the file.
class TableDef {
 public:
  const std::string& Name() const { return name_; }
  std::vector<FieldDef> Fields() const;
  std::vector<IndexDef> Indexes() const;
  void setAllowZeroLength(const std::string& field, bool allow);
  /// Adds a property of our own to a field, as text; throws 3265 for an unknown field.
  void appendFieldProperty(const std::string& field, const std::string& property, const std::string& value);
  std::string fieldProperty(const std::string& field, const std::string& property) const;  ///< throws 3265

  /// Keeps the rows that meet a condition of the dialect over the table's own fields ("ebene = 0",
  /// "isnull(sortbegriff)") in an index of their own, so that a select or a Find with just this condition
  /// reads those rows alone. Meant for conditions that few rows meet. In the order of the field `order`, if
  /// one is named, a select in this order merges them with what other indexes give ("order like 'a*' or
  /// condition"). Harmless when it is watched already. Throws 3265 for an unknown field.
  void watch(const std::string& condition, const std::string& order = {});

  TableDef(std::shared_ptr<DatabaseImpl> database, std::string name);

 private:
  std::shared_ptr<DatabaseImpl> database_;
  std::string name_;
};

/// An enforced relation on one pair of fields.
struct Relation {
  static constexpr std::int32_t updateCascade = 256, deleteCascade = 4096;
  std::string Name, Table, ForeignTable;
  std::int32_t Attributes = 0;
  std::string field, foreignField;
};

}  // namespace engine
