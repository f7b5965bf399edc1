#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "base/paths.h"
#include "engine/constant_columns.h"
#include "engine/database.h"
#include "engine/plan/plan.h"
#include "engine/sql/ast.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/connection.h"
#include "engine/workspace.h"

/// What workspaces, databases and recordsets share behind their public faces. Only src/engine includes this.
namespace engine {

/// The connection of a workspace; lives as long as any handle made from it.
class WorkspaceCore {
 public:
  explicit WorkspaceCore(const Login& login);
  ~WorkspaceCore();  ///< commits what was gathered, as far as it can be
  WorkspaceCore(const WorkspaceCore&) = delete;
  WorkspaceCore& operator=(const WorkspaceCore&) = delete;

  storage::Connection& connection() { return connection_; }
  ConstantColumns& constantColumns() { return constantColumns_; }
  /// Opens the file of a path in any case, or shares it when it is open.
  std::shared_ptr<storage::AttachedFile> attach(const std::string& path, bool exclusive, bool readOnly);
  /// The file that IN names: as it is open, for reading alone too.
  std::shared_ptr<storage::AttachedFile> borrow(const std::string& path);
  /// The file's real and resolved path; throws 53 or 3044 when there is none.
  std::string resolved(const std::string& path) const;
  /// The path of a file to be made, in the real spelling of its folder.
  std::string newPath(const std::string& path) const;
  /// The tree of a statement's text, parsed once.
  std::shared_ptr<const sql::Statement> parsed(const std::string& text);

 private:
  base::Paths paths_;
  storage::Connection connection_;
  ConstantColumns constantColumns_{connection_};
  std::map<std::string, std::string, std::less<>> resolved_;  // paths as given, of files opened so far
  std::map<std::string, std::shared_ptr<const sql::Statement>, std::less<>> statements_;
};

class Workspace::Impl {
 public:
  std::shared_ptr<WorkspaceCore> core;
};

/// An open file as its handles share it.
class DatabaseImpl {
 public:
  DatabaseImpl(std::shared_ptr<WorkspaceCore> core, std::shared_ptr<storage::AttachedFile> file,
               std::string path, bool readOnly);
  ~DatabaseImpl();
  DatabaseImpl(const DatabaseImpl&) = delete;
  DatabaseImpl& operator=(const DatabaseImpl&) = delete;

  std::shared_ptr<WorkspaceCore> core;
  std::shared_ptr<storage::AttachedFile> file;
  std::string path;       ///< as it was given
  bool readOnly = false;  ///< this handle's; the file may be open for writing through another

  void requireWritable() const;  ///< throws 3027
};

/// Runs an action or definition statement, or the stored query of that name; see Database::Execute.
std::int64_t execute(DatabaseImpl& database, const std::string& text, const Parameters& parameters,
                     Interface way);
/// See TableDef::watch.
void watchRows(DatabaseImpl& database, const std::string& table, const std::string& condition,
               const std::string& order);
/// The parameters that a statement needs, declared ones first.
std::vector<std::string> parametersOf(DatabaseImpl& database, const std::string& text);

}  // namespace engine
