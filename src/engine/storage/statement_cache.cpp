#include "engine/storage/statement_cache.h"

namespace engine::storage {

std::shared_ptr<Statement> StatementCache::take(sqlite3* connection, std::string_view text) {
  if (const auto found = byText_.find(text); found != byText_.end()) {
    entries_.splice(entries_.begin(), entries_, found->second);
    if (entries_.front().statement.use_count() == 1) return entries_.front().statement;
    return std::make_shared<Statement>(connection, text);
  }
  auto statement = std::make_shared<Statement>(connection, text);
  if (entries_.size() >= capacity_) {
    byText_.erase(entries_.back().text);
    entries_.pop_back();
  }
  entries_.push_front({std::string(text), statement});
  byText_[entries_.front().text] = entries_.begin();
  return statement;
}

void StatementCache::clear() {
  byText_.clear();
  entries_.clear();
}

}  // namespace engine::storage
