#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace engine::storage {

/// Who is reading through a statement that stands on a row. Such a statement would see half of a write,
/// and it keeps the connection's read transaction open, so that a write could not follow another
/// process's, a table could not be dropped and a file not be detached. Each reader therefore leaves before
/// any of these, taking along what it still needs (a dynaset: the keys of its rows).
class Readers {
 public:
  using Leave = std::function<void()>;

  /// A place in the list; given up by reset() or when it dies.
  class Ticket {
   public:
    Ticket() = default;
    ~Ticket() { reset(); }
    Ticket(const Ticket&) = delete;
    Ticket& operator=(const Ticket&) = delete;
    bool held() const { return readers_ != nullptr; }
    void reset() {
      if (readers_ != nullptr) {
        std::exchange(readers_, nullptr)->leaves_.erase(place_);
      }
    }

   private:
    friend class Readers;
    Readers* readers_ = nullptr;
    std::list<Leave>::iterator place_;
  };

  /// `leave` has to end the reader's statements and to give up the ticket; what it throws ends the write.
  void enter(Ticket& ticket, Leave leave) {
    ticket.reset();
    ticket.place_ = leaves_.insert(leaves_.end(), std::move(leave));
    ticket.readers_ = this;
  }

  /// Sends all readers away. Called by the connection before each write, definition, rollback and detach.
  void dismiss() {
    ++generation_;
    while (!leaves_.empty()) {
      const Leave leave = leaves_.front();
      leave();
    }
  }

  /// Raised by each dismiss(): what was read under another number may have changed.
  std::int64_t generation() const { return generation_; }

  /// Told by SQLite of each row that a statement of this connection changes.
  void noteChange(std::string_view schemaName, std::string_view table) {
    if (lastSchema_ != schemaName || lastTable_ != table) {
      lastSchema_ = schemaName;
      lastTable_ = table;
      lastCount_ = &changes_[lastSchema_ + "." + lastTable_];
    }
    ++*lastCount_;
  }
  /// How many rows of a table (in SQLite's spelling of its names) were changed so far.
  std::int64_t changesOf(const std::string& schemaName, const std::string& table) const {
    const auto found = changes_.find(schemaName + "." + table);
    return found == changes_.end() ? 0 : found->second;
  }

 private:
  std::list<Leave> leaves_;
  std::int64_t generation_ = 0;
  std::map<std::string, std::int64_t> changes_;
  std::string lastSchema_, lastTable_;
  std::int64_t* lastCount_ = nullptr;
};

}  // namespace engine::storage
