#pragma once

#include <functional>
#include <memory>
#include <string>

#include "engine/plan/plan.h"
#include "engine/recordset.h"
#include "engine/storage/attached_file.h"

namespace engine {

/// What a recordset is opened from, and keeps until it is closed.
struct RecordsetSource {
  std::shared_ptr<const void> keepAlive;  ///< whatever has to outlive the file: the connection
  std::shared_ptr<storage::AttachedFile> file;
  /// Attaches the file that an IN "file" names (a path as it stands in the statement); the set holds it.
  std::function<std::shared_ptr<storage::AttachedFile>(const std::string& path)> openFile;
  /// See plan::Context::apart.
  std::function<bool(const std::vector<plan::TableColumn>&, const std::string& collation)> apart;
  std::string text;  ///< a table, a stored query, or a statement of the dialect
  RecordsetKind kind = RecordsetKind::dynaset;
  Parameters parameters;
  Interface way = Interface::first;
  bool readOnly = false;  ///< the set refuses to write, though others may write to the file
};

/// Opens a recordset. Throws 3078 for an unknown table or query, 3061 naming the parameters that the text
/// needs and that are not given, 3075 for a text that is no statement, 3219 for one that returns no rows.
Recordset openRecordset(RecordsetSource source);

}  // namespace engine
