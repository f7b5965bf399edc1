#include "engine/workspace.h"

#include <filesystem>

#include "engine/impl.h"
#include "engine/sql/parser.h"
#include "engine/workgroup.h"

namespace engine {

namespace {

constexpr std::size_t keptStatements = 512;

// The options of CreateDatabase and CompactDatabase.
constexpr int encrypted = 2;

}  // namespace

WorkspaceCore::WorkspaceCore(const Login& login)
    : connection_({login.user, login.password, login.ownPassword}) {}

WorkspaceCore::~WorkspaceCore() {
  try {
    if (connection_.inCallersTransaction()) connection_.rollback();
    connection_.idle();
  } catch (const Error&) {
    // Nobody is left to be told; who has to know calls Workspace::Idle before.
    return;
  }
}

std::string WorkspaceCore::resolved(const std::string& path) const {
  if (path.empty()) throw Error(errors::badPath, "The path of the file is empty.");
  const std::filesystem::path real = paths_.real(path);
  std::error_code problem;
  const std::filesystem::path canonical = std::filesystem::canonical(real, problem);
  if (!problem) return canonical.string();
  if (std::filesystem::is_directory(real.parent_path().empty() ? "." : real.parent_path(), problem)) {
    throw Error(errors::fileNotFound, "The file " + real.string() + " does not exist.");
  }
  throw Error(errors::badPath, "The folder of " + real.string() + " does not exist.");
}

std::string WorkspaceCore::newPath(const std::string& path) const {
  if (path.empty()) throw Error(errors::badPath, "The path of the file is empty.");
  const std::filesystem::path real = std::filesystem::absolute(paths_.real(path));
  std::error_code problem;
  const std::filesystem::path folder = std::filesystem::canonical(real.parent_path(), problem);
  if (problem) throw Error(errors::badPath, "The folder of " + real.string() + " does not exist.");
  return (folder / real.filename()).string();
}

// Each IN "file" asks again: looking through the folders is spared as long as the file is open.
std::shared_ptr<storage::AttachedFile> WorkspaceCore::attach(const std::string& path, bool exclusive,
                                                             bool readOnly) {
  const auto known = resolved_.find(path);
  if (known != resolved_.end() && connection_.isOpen(known->second)) {
    return connection_.open(known->second, exclusive, readOnly);
  }
  const std::string found = resolved(path);
  auto file = connection_.open(found, exclusive, readOnly);
  resolved_[path] = found;
  return file;
}

std::shared_ptr<storage::AttachedFile> WorkspaceCore::borrow(const std::string& path) {
  const auto known = resolved_.find(path);
  return attach(path, false, connection_.isOpen(known != resolved_.end() ? known->second : resolved(path)));
}

std::shared_ptr<const sql::Statement> WorkspaceCore::parsed(const std::string& text) {
  if (const auto found = statements_.find(text); found != statements_.end()) return found->second;
  auto statement = std::make_shared<const sql::Statement>(sql::parse(text));
  if (statements_.size() >= keptStatements) statements_.clear();
  statements_.emplace(text, statement);
  return statement;
}

Workspace::Workspace(const Login& login) : impl_(std::make_unique<Impl>()) {
  if (!login.systemDB.empty()) checkLogin(login.systemDB, login.user, login.password);
  impl_->core = std::make_shared<WorkspaceCore>(login);
}

Workspace::~Workspace() = default;
Workspace::Workspace(Workspace&&) noexcept = default;
Workspace& Workspace::operator=(Workspace&&) noexcept = default;

Database Workspace::CreateDatabase(const std::string& path, const std::string& locale, int options) {
  if ((options & encrypted) == 0) {
    throw Error(errors::invalidArgument,
                "A dictionary is always encrypted: option 2 is missing for " + path + ".");
  }
  auto file = impl_->core->connection().create(impl_->core->newPath(path), locale);
  return Database(std::make_shared<DatabaseImpl>(impl_->core, std::move(file), path, false));
}

Database Workspace::OpenDatabase(const std::string& path, bool exclusive, bool readOnly) {
  auto file = impl_->core->attach(path, exclusive, readOnly);
  file->refresh();
  const bool onlyReading = readOnly || file->readOnly();
  return Database(std::make_shared<DatabaseImpl>(impl_->core, std::move(file), path, onlyReading));
}

void Workspace::BeginTrans() {
  impl_->core->connection().begin();
}

void Workspace::CommitTrans() {
  impl_->core->connection().commit();
}

void Workspace::Rollback() {
  impl_->core->connection().rollback();
}

void Workspace::Idle() {
  impl_->core->connection().idle();
}

}  // namespace engine
