#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/recordset_keys.h"
#include "engine/recordset_query.h"
#include "engine/recordset_spool.h"
#include "engine/storage/readers.h"

namespace engine {

/// The rows of a set in the order they had when it was opened, told by slots from 0.
///
/// A keyed set streams: a cursor hands out keys and values together, and the keys are kept. The rest of the
/// key list is read at once when somebody needs it, at the latest before the first write by anyone in the
/// workspace; from then on rows are read by key, or by a cursor whose keys are compared with the list.
/// A set whose rows have no keys, or whose values are frozen, streams in the same way and is copied into
/// a spool instead.
class RecordsetEntries {
 public:
  RecordsetEntries(RecordsetQuery& query, bool keyed);
  RecordsetEntries(const RecordsetEntries&) = delete;
  RecordsetEntries& operator=(const RecordsetEntries&) = delete;

  bool keyed() const { return keyed_; }
  /// The keys known so far; all of them after complete().
  const KeyList& keys() const { return keys_; }
  std::int64_t known() const { return keyed_ ? keys_.slots() : spooled_; }
  bool isComplete() const { return complete_; }
  void complete();
  /// The slot itself or the next one with a row; -1 behind the last.
  std::int64_t forward(std::int64_t slot);
  /// The slot of a key, also of a row that was removed; -1 when it is none of the set's.
  std::int64_t locate(std::span<const std::int64_t> key);
  /// Whether nothing was written in the workspace since the set was opened, so that the query's order
  /// still is the set's.
  bool untouched() const { return generation_ == query_.connection().readers().generation(); }

  /// A statement that stands on a row, and where the result's columns begin in it. Good until the next
  /// call and the next write.
  struct Row {
    const storage::Statement* statement;
    int firstColumn;
  };
  /// Throws 3167 when the row is gone. The statement holds the given field at least; `noField` asks for none.
  Row row(std::int64_t slot, std::size_t field);
  Row rowByKey(std::span<const std::int64_t> key);
  static constexpr std::size_t noField = std::numeric_limits<std::size_t>::max();
  /// The spool of a set without keys, filled.
  RecordsetSpool& spool();

  // Writes through the set itself stand between the first two; what they did is told behind them.
  void beforeOwnWrite();
  void afterOwnWrite();
  void added(std::span<const std::int64_t> key);
  void removed(std::int64_t slot, std::span<const std::int64_t> key);
  void replaced(std::int64_t slot, std::size_t source, std::int64_t rowid);

  /// The rowids in a statement's first columns.
  static void readKey(const storage::Statement& statement, std::span<std::int64_t> key);

 private:
  void openCursor(const std::vector<bool>& fields);
  bool advance();
  bool restart(std::int64_t slot);
  bool cursorReaches(std::int64_t slot);
  void narrow();
  bool worthWalking(std::int64_t slot);
  KeyList readKeys();
  void enter();
  void leave();
  void release();

  RecordsetQuery& query_;
  bool keyed_;
  bool inKeyOrder_ = false;  // every row of one table, in the order of its rowids
  bool complete_ = false;
  std::int64_t generation_;
  KeyList keys_;
  std::vector<std::int64_t> scratchKey_;
  std::unique_ptr<RecordsetSpool> spool_;
  std::int64_t spooled_ = 0;  // rows known of a set without keys

  std::optional<storage::StatementLease> cursor_;
  std::int64_t cursorSlot_ = -1;
  bool cursorDone_ = false;
  std::vector<bool> cursorFields_;  // the fields that the cursor reads
  std::vector<bool> usedFields_;    // those that somebody asked for
  std::optional<storage::StatementLease> byKey_;
  std::vector<std::int64_t> byKeyKey_;  // of the row that byKey_ stands on; empty when on none
  std::int64_t lastRead_ = -1;          // slot
  std::int64_t walked_ = 0;             // rows read by key one behind the other since the last write

  // What happened to a set in key order, through itself, before its list was read: rowids.
  std::vector<std::int64_t> addedEarly_, removedEarly_;
  int ownWrites_ = 0;  // nested
  storage::Readers::Ticket ticket_;
};

}  // namespace engine
