#include <sodium.h>
#include <sqlite3.h>

#include <algorithm>
#include <mutex>
#include <vector>

#include "engine/file/keys.h"
#include "engine/file/raw_file.h"

namespace engine::file {

namespace {

struct Lease {
  int id;
  std::string path;
  Credential credential;
};

// SQLite hands nothing but a path to a layer's open call, so what is lent has to be found by path. This
// is the only state of the layer that outlives an open file.
struct Registry {
  std::mutex guard;
  std::vector<Lease> leases;
  int lastId = 0;
};

Registry& registry() {
  static Registry theRegistry;
  return theRegistry;
}

// SQLite resolves a path before it asks for it.
std::string resolved(const std::string& path) {
  sqlite3_vfs* layer = systemLayer();
  std::vector<char> name(static_cast<std::size_t>(layer->mxPathname) + 1);
  const int code = layer->xFullPathname(layer, path.c_str(), layer->mxPathname, name.data());
  return code == SQLITE_OK || code == SQLITE_OK_SYMLINK ? name.data() : path;
}

}  // namespace

KeyLease::KeyLease(const std::string& path, const Credential& credential) : path_(resolved(path)) {
  Registry& all = registry();
  const std::lock_guard lock(all.guard);
  id_ = ++all.lastId;
  all.leases.push_back({id_, path_, credential});
}

KeyLease::~KeyLease() {
  Registry& all = registry();
  const std::lock_guard lock(all.guard);
  const auto mine =
      std::find_if(all.leases.begin(), all.leases.end(), [&](const Lease& lease) { return lease.id == id_; });
  if (mine == all.leases.end()) return;
  sodium_memzero(mine->credential.password.data(), mine->credential.password.size());
  all.leases.erase(mine);
}

bool lentCredential(const std::string& path, Credential& credential) {
  Registry& all = registry();
  const std::lock_guard lock(all.guard);
  const auto latest = std::find_if(all.leases.rbegin(), all.leases.rend(),
                                   [&](const Lease& lease) { return lease.path == path; });
  if (latest == all.leases.rend()) return false;
  credential = latest->credential;
  return true;
}

}  // namespace engine::file
