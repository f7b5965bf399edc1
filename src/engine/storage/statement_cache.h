#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/storage/statement.h"

namespace engine::storage {

/// Prepared statements by their text; the one unused longest makes room for a new one.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity = 256) : capacity_(capacity) {}
  /// The statement of a text; one of its own when the kept one is lent already.
  std::shared_ptr<Statement> take(sqlite3* connection, std::string_view text);
  void clear();

 private:
  struct Entry {
    std::string text;
    std::shared_ptr<Statement> statement;
  };
  std::size_t capacity_;
  std::list<Entry> entries_;  // the one used last stands first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> byText_;
};

}  // namespace engine::storage
