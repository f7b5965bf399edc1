#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/types/types.h"

namespace engine {

enum class RecordsetKind { table, dynaset, snapshot };

struct FieldInfo {
  std::string name;  ///< as callers see it; "table.column" where two columns share a name
  ColumnType type = ColumnType::text;
  int size = 0;
  std::string sourceTable, sourceField;  ///< empty for computed columns
  bool updatable = false;
};

/// Rows of a table, query or statement with a current one. A dynaset keeps keys and reads values when
/// asked: membership and order are frozen when it opens, values stay current, rows added through it
/// stand last. Moves and reads throw 3021 where there is no current record, 3167 where it is gone.
class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;

  bool isOpen() const { return impl_ != nullptr; }
  void Close();

  const std::vector<FieldInfo>& Fields() const;
  /// The index of a field by name, "query.name", "table.name" or "query.table.name"; throws 3265.
  std::size_t field(const std::string& name) const;
  /// The current row's value, or the value set so far while adding or editing.
  Value value(std::size_t field) const;
  Value operator[](const std::string& name) const { return value(field(name)); }
  void set(std::size_t field, const Value& value);  ///< only between AddNew or Edit and Update; throws 3020
  void set(const std::string& name, const Value& value) { set(field(name), value); }

  bool EndOfFile() const;
  bool BeginOfFile() const;
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  void Move(std::int64_t rows);
  /// Rows reached so far, at least 1 on a set that has any, exact after MoveLast; exact at once on a
  /// table-type set and on the second interface.
  std::int64_t RecordCount() const;
  std::int64_t AbsolutePosition() const;  ///< from 0; -1 without a current row
  void setAbsolutePosition(std::int64_t position);
  /// An opaque mark of the current row, good for this set while it is open.
  std::string Bookmark() const;
  void setBookmark(const std::string& mark);

  /// Finds a row by a condition of the dialect; NoMatch tells, and the position stays where it was then.
  /// Throws 3070 for a name that is no field.
  void FindFirst(const std::string& criterion);
  void FindLast(const std::string& criterion);
  void FindNext(const std::string& criterion);
  void FindPrevious(const std::string& criterion);
  bool NoMatch() const;
  /// A condition for sets opened from this one by OpenRecordset(); empty takes all.
  void setFilter(const std::string& criterion);
  Recordset OpenRecordset();

  void AddNew();
  void Edit();
  /// Writes; throws 3022, 3058, 3163, 3201, 3314, 3315, 3027 and leaves the edit pending.
  void Update();
  void CancelUpdate();
  void Delete();
  /// The bookmark of the row written last.
  std::string LastModified() const;
  void Requery();

  class Impl;
  explicit Recordset(std::unique_ptr<Impl> impl);

 private:
  std::unique_ptr<Impl> impl_;
};

}  // namespace engine
