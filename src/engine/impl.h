#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "base/paths.h"
#include "engine/database.h"
#include "engine/plan/plan.h"
#include "engine/sql/ast.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/connection.h"
#include "engine/workspace.h"

/// What workspaces, databases and recordsets share behind their public faces. Only src/engine includes this.
namespace engine {

/// The connection of a workspace; lives as long as any handle made from it.
struct WorkspaceCore {
  explicit WorkspaceCore(const Login& who);
  Login login;
  base::Paths paths;
  storage::Connection connection;
  /// The tree of a statement's text, parsed once.
  std::shared_ptr<const sql::Statement> parsed(const std::string& text);
  /// Opens or finds the file of an IN clause or a path; see Workspace::OpenDatabase.
  std::shared_ptr<storage::AttachedFile> attach(const std::string& path, bool exclusive, bool readOnly);

 private:
  std::map<std::string, std::shared_ptr<const sql::Statement>, std::less<>> statements_;
};

class Workspace::Impl {
 public:
  std::shared_ptr<WorkspaceCore> core;
};

/// An open file as its handles share it.
class DatabaseImpl {
 public:
  std::shared_ptr<WorkspaceCore> core;
  std::shared_ptr<storage::AttachedFile> file;
  std::string path;       ///< as it was given
  bool readOnly = false;  ///< this handle's; the file may be open for writing through another

  /// Files that IN clauses opened; a recordset keeps those its plan names for as long as it lives.
  using Borrowed = std::map<std::string, std::shared_ptr<storage::AttachedFile>>;
  /// How names of a statement run on this database are looked up; notes in `borrowed` what it opens.
  plan::Context context(Interface way, Borrowed& borrowed) const;
};

/// Opens a table, stored query or statement; see Database::OpenRecordset. In recordset_open.cpp.
Recordset openRecordset(const std::shared_ptr<DatabaseImpl>& database, const std::string& source,
                        RecordsetKind kind, const Parameters& parameters, Interface way);

}  // namespace engine
