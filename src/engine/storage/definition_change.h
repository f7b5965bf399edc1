#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "engine/storage/attached_file.h"

namespace engine::storage {

/// Throws for a name that no table, field or query can bear.
void refuseOddName(std::string_view name, const char* what);

template <class Apply>
void AttachedFile::change(Apply&& apply) {
  connection_.beforeWrite(*this);
  const Connection::Internal internal(connection_);
  Connection::Savepoint savepoint(connection_);
  CatalogData next = data_;
  ++next.counter;
  apply(next);
  writeFileValue(connection_.handle(), schemaName_, "counter", std::to_string(next.counter));
  savepoint.release();
  takeOver(std::move(next));
}

}  // namespace engine::storage
