#pragma once

#include "engine/impl.h"

namespace engine {

/// CREATE, ALTER and DROP statements.
void define(DatabaseImpl& database, const sql::Statement& statement);

/// INSERT, UPDATE, DELETE and SELECT ... INTO, whole or not at all. Returns the rows affected.
std::int64_t act(DatabaseImpl& database, const sql::Statement& statement, const Parameters& parameters,
                 Interface way);

/// Binds on a database: IN "file" opens files, which stay open as long as this lives.
class Binding {
 public:
  Binding(DatabaseImpl& database, Interface way);
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  const plan::Context& context() const { return context_; }

 private:
  std::vector<std::shared_ptr<storage::AttachedFile>> borrowed_;
  plan::Context context_;
};

}  // namespace engine
