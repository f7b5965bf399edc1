#include <algorithm>

#include "base/text.h"
#include "engine/parameters.h"
#include "engine/recordset_impl.h"

namespace engine {

namespace {

/// Up to this many rows a criterion is put to them by their keys; beyond, it is put to the tables.
constexpr std::int64_t fewRows = 200;

}  // namespace

void Recordset::Impl::find(Direction direction, const std::string& criterion) {
  cancelUpdate();
  noMatch_ = true;
  if (!entries_->keyed()) {
    return findInSpool(direction, criterion);
  }
  if (findStreaming(direction, criterion)) {
    return;
  }
  const std::vector<std::int64_t>& slots = hits(criterion);
  auto found = slots.end();
  switch (direction) {
    case Direction::first:
      found = slots.begin();
      break;
    case Direction::next:
      found = place_ == Place::row ? std::ranges::upper_bound(slots, currentSlot())
                                   : (place_ == Place::before ? slots.begin() : slots.end());
      break;
    case Direction::last:
    case Direction::previous: {
      auto behind = slots.end();
      if (direction == Direction::previous && place_ != Place::after) {
        behind = place_ == Place::row ? std::ranges::lower_bound(slots, currentSlot()) : slots.begin();
      }
      found = behind == slots.begin() ? slots.end() : std::prev(behind);
      break;
    }
  }
  if (found != slots.end()) {
    standAt(*found);
    noMatch_ = false;
  }
}

/// As long as nothing was written, the query's own order is the set's, and the first hit of a statement
/// that goes through it is the answer; where it stands in the set is not asked. Returns false when the
/// question has to be answered by positions.
bool Recordset::Impl::findStreaming(Direction direction, const std::string& criterion) {
  // A row limit holds for the set, not for the rows that meet the criterion.
  if (!entries_->untouched() || query_->plan().limit) {
    return false;
  }
  if (direction == Direction::next) {
    const bool goesOn = stream_.statement && stream_.criterion == criterion && place_ == Place::row &&
                        !gone_ && currentKey() == stream_.last;
    if (!goesOn) {
      return false;
    }
  } else if (direction == Direction::previous) {
    return false;
  } else {
    stream_.criterion = criterion;
    stream_.statement.emplace(
        query_->connection().handle(),
        plan::emitKeys(query_->plan(), query_->where(criterion), direction == Direction::last));
    bindParameters(*stream_.statement, query_->plan(), query_->source().parameters);
    query_->connection().readers().enter(stream_.ticket, [this] {
      stream_.statement.reset();
      stream_.ticket.reset();
    });
  }
  const bool hit = stream_.statement->step();
  if (hit) {
    stream_.last.resize(entries_->keys().sources());
    RecordsetEntries::readKey(*stream_.statement, stream_.last);
    standAt(stream_.last);
    noMatch_ = false;
  }
  if (!hit || direction == Direction::last) {
    stream_.statement.reset();
    stream_.ticket.reset();
  }
  return true;
}

/// A number that grows with each change of a row that a criterion over the set can see.
std::int64_t Recordset::Impl::changesOfTables() {
  const storage::Readers& readers = query_->connection().readers();
  std::int64_t changes = 0;
  for (const plan::Source& source : query_->plan().sources) {
    changes += readers.changesOf(source.file->schemaName(), source.table->name);
  }
  return changes;
}

const std::vector<std::int64_t>& Recordset::Impl::hits(const std::string& criterion) {
  const std::int64_t changes = changesOfTables();
  if (hits_.changes != changes || hits_.criterion != criterion) {
    hits_.changes = -1;
    hits_.slots.clear();
    collectHits(criterion, hits_.slots);
    hits_.criterion = criterion;
    const bool seesOtherTables = base::inStrIgnoreCase(criterion, "select") > 0;
    hits_.changes = seesOtherTables ? -1 : changes;
  }
  return hits_.slots;
}

void Recordset::Impl::collectHits(const std::string& criterion, std::vector<std::int64_t>& slots) {
  entries_->complete();
  const KeyList& keys = entries_->keys();
  // Membership is the list's: rows that no longer meet the query's own conditions are still of the set.
  plan::Plan all = query_->plan();
  all.where.clear();
  all.orderBy.clear();
  all.limit.reset();
  std::string condition = "(" + query_->bind(criterion) + ")";
  if (keys.slots() <= fewRows) {
    std::string rowids;
    bool complete = true;
    for (std::int64_t slot = 0; slot < keys.slots(); ++slot) {
      const std::int64_t rowid = keys.rowid(slot, 0);
      complete = complete && rowid != KeyList::missing;
      rowids += (slot > 0 ? "," : "") + std::to_string(rowid);
    }
    if (complete) {
      condition += " AND " + all.sources[0].rowid + " IN (" + rowids + ")";
    }
  }
  storage::Statement statement(query_->connection().handle(), plan::emitKeys(all, condition));
  bindParameters(statement, query_->plan(), query_->source().parameters);
  Key key(keys.sources());
  while (statement.step()) {
    RecordsetEntries::readKey(statement, key);
    const std::int64_t slot = keys.find(key);
    if (slot != KeyList::none) {
      slots.push_back(slot);
    }
  }
  std::ranges::sort(slots);
}

void Recordset::Impl::findInSpool(Direction direction, const std::string& criterion) {
  const std::string condition = query_->bindOnCopy(criterion);
  RecordsetSpool& spool = entries_->spool();
  const bool backwards = direction == Direction::last || direction == Direction::previous;
  std::int64_t from = backwards ? spool.size() - 1 : 0;
  if (direction == Direction::next && place_ != Place::before) {
    from = place_ == Place::row ? currentSlot() + 1 : spool.size();
  }
  if (direction == Direction::previous && place_ != Place::after) {
    from = place_ == Place::row ? currentSlot() - 1 : -1;
  }
  const std::int64_t found = spool.find(condition, from, backwards);
  if (found >= 0) {
    standAt(found);
    noMatch_ = false;
  }
}

std::unique_ptr<Recordset::Impl> Recordset::Impl::openFiltered() {
  std::vector<std::string> filters = query_->filters();
  if (!filter_.empty()) {
    filters.push_back(filter_);
  }
  return std::make_unique<Impl>(query_->source(), std::move(filters));
}

}  // namespace engine
