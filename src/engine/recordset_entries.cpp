#include "engine/recordset_entries.h"

#include <sqlite3.h>

#include <algorithm>

namespace engine {

namespace {

/// A set up to this size is walked again by starting its cursor anew: no second statement is prepared.
constexpr std::int64_t smallSet = 64;
/// Rows to be read by key before a cursor is opened for the rest of a walk. It has to pass the rows
/// before, so a walk that began far behind waits longer.
constexpr std::int64_t patience = 256;

bool isInKeyOrder(const plan::Plan& plan, const RecordsetQuery& query) {
  if (!plan.keyed || plan.sources.size() != 1 || plan.ordered || plan.distinct || plan.limit ||
      !plan.where.empty() || !plan.groupBy.empty() || !query.filters().empty()) {
    return false;
  }
  const schema::Table& table = *plan.sources[0].table;
  const schema::Index* key = table.primaryKey();
  return key == nullptr || (key->columns.size() == 1 && table.find(key->columns[0]) == table.counter());
}

}  // namespace

RecordsetEntries::RecordsetEntries(RecordsetQuery& query, bool keyed)
    : query_(query),
      keyed_(keyed),
      inKeyOrder_(keyed && isInKeyOrder(query.plan(), query)),
      generation_(query.connection().readers().generation()),
      keys_(query.plan().sources.size()),
      scratchKey_(query.plan().sources.size()),
      usedFields_(query.plan().columns.size(), false) {
  std::vector<bool> fields(usedFields_.size(), true);
  if (keyed_ && query_.sortsFirst()) {
    fields.assign(fields.size(), false);
  }
  openCursor(fields);
  advance();
}

void RecordsetEntries::readKey(const storage::Statement& statement, std::span<std::int64_t> key) {
  for (std::size_t source = 0; source < key.size(); ++source) {
    const int column = static_cast<int>(source);
    key[source] = statement.integer(column);  // 0 also stands for Null
    if (key[source] == 0 && statement.isNull(column)) {
      key[source] = KeyList::missing;
    }
  }
}

/// A cursor before the first entry that reads these fields.
void RecordsetEntries::openCursor(const std::vector<bool>& fields) {
  const plan::Plan& plan = query_.plan();
  cursor_.reset();
  cursor_.emplace(query_.statement(keyed_ ? plan::emitKeysAndSome(plan, fields, query_.where())
                                          : plan::emitRows(plan, query_.where())));
  cursorFields_ = fields;
  cursorSlot_ = -1;
  cursorDone_ = false;
  enter();
}

/// Steps the cursor to the next entry. While the list is incomplete the entry is new and its key is kept;
/// later it has to be the one that the list expects, or the cursor is given up.
bool RecordsetEntries::advance() {
  if (!(*cursor_)->step()) {
    cursorDone_ = true;
    complete_ = true;
    return false;
  }
  ++cursorSlot_;
  if (!keyed_) {
    spooled_ = std::max(spooled_, cursorSlot_ + 1);
    return true;
  }
  readKey(**cursor_, scratchKey_);
  if (!complete_) {
    keys_.append(scratchKey_);
    return true;
  }
  cursorSlot_ = keys_.skipForward(cursorSlot_);
  if (cursorSlot_ >= keys_.slots() || !keys_.equals(cursorSlot_, scratchKey_)) {
    cursor_.reset();
    return false;
  }
  return true;
}

void RecordsetEntries::complete() {
  if (complete_) {
    return;
  }
  if (!keyed_) {
    spool();
    return;
  }
  for (std::int64_t i = 0; cursor_ && !complete_ && i < smallSet; ++i) {
    advance();
  }
  if (complete_) {
    return;
  }
  KeyList all = readKeys();
  // Rows that tie in the order may come differently from a statement that reads keys alone. What was
  // handed out stands.
  bool asHandedOut = keys_.slots() <= all.slots();
  for (std::int64_t slot = 0; asHandedOut && slot < keys_.slots(); ++slot) {
    asHandedOut = all.equals(slot, keys_.entry(slot));
  }
  if (cursor_ && !asHandedOut) {
    while (advance()) {
    }
    return;
  }
  keys_ = std::move(all);
  complete_ = true;
}

KeyList RecordsetEntries::readKeys() {
  KeyList all(keys_.sources());
  std::vector<std::int64_t> key(keys_.sources());
  const storage::StatementLease statement = query_.statement(plan::emitKeys(query_.plan(), query_.where()));
  auto removed = removedEarly_.begin();  // sorted, as the rows are
  const auto addRemovedBefore = [&](std::int64_t rowid) {
    for (; removed != removedEarly_.end() && *removed < rowid; ++removed) {
      all.append(std::span(&*removed, 1));
      all.remove(all.slots() - 1);
    }
  };
  while (statement->step()) {
    readKey(*statement, key);
    if (!addedEarly_.empty() && std::ranges::find(addedEarly_, key[0]) != addedEarly_.end()) {
      continue;
    }
    addRemovedBefore(key[0]);
    all.append(key);
  }
  addRemovedBefore(std::numeric_limits<std::int64_t>::max());
  for (const std::int64_t rowid : addedEarly_) {
    all.append(std::span(&rowid, 1));
  }
  return all;
}

std::int64_t RecordsetEntries::forward(std::int64_t slot) {
  for (;;) {
    if (slot >= known() && !complete_) {
      if (cursor_) {
        while (!complete_ && known() <= slot) {
          advance();
        }
      } else {
        complete();
      }
    }
    if (slot >= known()) {
      return -1;
    }
    const std::int64_t next = keyed_ ? keys_.skipForward(slot) : slot;
    if (next == slot) {
      return slot;
    }
    slot = next;
  }
}

std::int64_t RecordsetEntries::locate(std::span<const std::int64_t> key) {
  if (!complete_) {
    // Mostly a row just passed, of a walk that need not read the whole list for it.
    for (std::int64_t slot = known() - 1; slot >= 0 && slot >= known() - smallSet; --slot) {
      if (keys_.equals(slot, key)) {
        return slot;
      }
    }
    complete();
  }
  const std::int64_t slot = keys_.find(key);
  return slot != KeyList::none ? slot : keys_.findRemoved(key);
}

/// Starts the cursor again for one of the first rows, unless it would sort all of them for that.
bool RecordsetEntries::restart(std::int64_t slot) {
  if (!cursor_ || !complete_ || slot >= smallSet || (!cursorDone_ && cursorSlot_ <= slot)) {
    return false;
  }
  if (known() > smallSet && sqlite3_stmt_status((*cursor_)->handle(), SQLITE_STMTSTATUS_SORT, 0) > 0) {
    return false;
  }
  (*cursor_)->reset();
  cursorSlot_ = -1;
  cursorDone_ = false;
  enter();
  return true;
}

/// Whether the cursor can be brought to a slot at a price below that of reading it by key.
bool RecordsetEntries::cursorReaches(std::int64_t slot) {
  const bool next = cursor_ && !cursorDone_ && keys_.skipForward(cursorSlot_ + 1) == slot;
  if (!next && !restart(slot)) {
    if (!worthWalking(slot)) {
      return false;
    }
    openCursor(usedFields_);
  }
  while (cursor_ && !cursorDone_ && cursorSlot_ < slot) {
    advance();
  }
  return cursor_ && !cursorDone_ && cursorSlot_ == slot;
}

/// Lets a cursor that has gone some way read on with those fields alone that were asked for on the way:
/// mostly a few of many.
void RecordsetEntries::narrow() {
  if (std::ranges::count(usedFields_, true) * 2 > std::ranges::count(cursorFields_, true)) {
    return;
  }
  storage::StatementLease narrowed =
      query_.statement(plan::emitKeysAndSome(query_.plan(), usedFields_, query_.where()));
  for (std::int64_t slot = keys_.skipForward(0); slot <= cursorSlot_; slot = keys_.skipForward(slot + 1)) {
    if (!narrowed->step()) {
      return;
    }
    readKey(*narrowed, scratchKey_);
    if (!keys_.equals(slot, scratchKey_)) {
      return;
    }
  }
  cursor_.emplace(std::move(narrowed));
  cursorFields_ = usedFields_;
}

bool RecordsetEntries::worthWalking(std::int64_t slot) {
  if (slot == lastRead_) {
    return false;
  }
  walked_ = slot == keys_.skipForward(lastRead_ + 1) ? walked_ + 1 : 0;
  lastRead_ = slot;
  if (!complete_ || walked_ <= std::max(patience, slot / 8)) {
    return false;
  }
  walked_ = 0;
  return true;
}

RecordsetEntries::Row RecordsetEntries::row(std::int64_t slot, std::size_t field) {
  if (!keyed_) {
    if (cursor_ && !cursorDone_ && cursorSlot_ == slot) {
      return {&**cursor_, 0};
    }
    return {&spool().row(slot), 0};
  }
  if (field != noField) {
    usedFields_[field] = true;
  }
  const bool there = (cursor_ && !cursorDone_ && cursorSlot_ == slot) || cursorReaches(slot);
  if (there && slot == patience) {
    narrow();
  }
  if (there && (field == noField || cursorFields_[field])) {
    return {&**cursor_, static_cast<int>(keys_.sources())};
  }
  if (there) {
    // A walk that asks for a further field behind the place where the cursor was narrowed.
    complete();
    if (worthWalking(slot)) {
      openCursor(usedFields_);
      while (cursor_ && !cursorDone_ && cursorSlot_ < slot) {
        advance();
      }
      if (cursor_ && cursorSlot_ == slot) {
        return {&**cursor_, static_cast<int>(keys_.sources())};
      }
    }
  }
  if (keys_.isHole(slot)) {
    throw Error(errors::recordDeleted, "Record is deleted.");
  }
  for (std::size_t source = 0; source < keys_.sources(); ++source) {
    scratchKey_[source] = keys_.rowid(slot, source);
  }
  return rowByKey(scratchKey_);
}

RecordsetEntries::Row RecordsetEntries::rowByKey(std::span<const std::int64_t> key) {
  if (byKey_ && std::ranges::equal(byKeyKey_, key)) {
    return {&**byKey_, 0};
  }
  byKeyKey_.clear();
  if (byKey_) {
    (*byKey_)->reset();
  } else {
    byKey_.emplace(query_.statement(plan::emitRowByKey(query_.plan())));
    enter();
  }
  auto parameter = static_cast<int>(query_.plan().parameters.size());
  for (const std::int64_t rowid : key) {
    ++parameter;
    if (rowid == KeyList::missing) {
      (*byKey_)->bindNull(parameter);
    } else {
      (*byKey_)->bindInteger(parameter, rowid);
    }
  }
  if (!(*byKey_)->step()) {
    throw Error(errors::recordDeleted, "Record is deleted.");
  }
  byKeyKey_.assign(key.begin(), key.end());
  return {&**byKey_, 0};
}

RecordsetSpool& RecordsetEntries::spool() {
  if (!spool_) {
    auto spool = std::make_unique<RecordsetSpool>(query_.plan());
    openCursor(usedFields_);
    while ((*cursor_)->step()) {
      spool->append(**cursor_);
    }
    spooled_ = spool->size();
    spool_ = std::move(spool);
    complete_ = true;
    release();
  }
  return *spool_;
}

void RecordsetEntries::enter() {
  if (!ticket_.held()) {
    query_.connection().readers().enter(ticket_, [this] { leave(); });
  }
}

void RecordsetEntries::leave() {
  if (keyed_) {
    complete();
  } else {
    spool();
  }
  release();
}

void RecordsetEntries::release() {
  cursor_.reset();
  byKey_.reset();
  byKeyKey_.clear();
  walked_ = 0;
  ticket_.reset();
}

void RecordsetEntries::beforeOwnWrite() {
  ++ownWrites_;
  // A list in key order can still be read later: new rows are left out, removed ones put back in place.
  if (!inKeyOrder_) {
    complete();
  }
  release();
}

void RecordsetEntries::afterOwnWrite() {
  if (--ownWrites_ == 0 && !complete_) {
    enter();
  }
}

void RecordsetEntries::added(std::span<const std::int64_t> key) {
  if (complete_) {
    keys_.append(key);
  } else {
    addedEarly_.push_back(key[0]);
  }
}

void RecordsetEntries::removed(std::int64_t slot, std::span<const std::int64_t> key) {
  if (slot >= 0) {
    keys_.remove(slot);
  }
  if (!complete_ && std::erase(addedEarly_, key[0]) == 0) {
    removedEarly_.insert(std::ranges::lower_bound(removedEarly_, key[0]), key[0]);
  }
}

void RecordsetEntries::replaced(std::int64_t slot, std::size_t source, std::int64_t rowid) {
  keys_.replace(slot, source, rowid);
}

}  // namespace engine
