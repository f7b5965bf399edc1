#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/storage/attached_file.h"
#include "engine/storage/connection.h"
#include "engine/storage/readers.h"
#include "engine/storage/statement_cache.h"

namespace engine::storage {

struct Connection::State {
  sqlite3* handle = nullptr;
  file::Credential credential;
  int internalDepth = 0;
  StatementCache statements;
  Readers readers;
  std::vector<std::shared_ptr<AttachedFile>> files;
  bool inTransaction = false;           ///< as we believe; SQLite may have ended it after an error
  bool callers = false;                 ///< between begin() and commit() or rollback()
  std::map<std::string, int> logPages;  ///< length of the log by schema name, as of the last commit

  void run(const char* text, const char* doing) const;
};

}  // namespace engine::storage
