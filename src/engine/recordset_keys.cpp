#include "engine/recordset_keys.h"

#include <algorithm>

namespace engine {

namespace {

bool fitsNarrow(std::span<const std::int64_t> rowids) {
  return std::ranges::all_of(rowids, [](std::int64_t rowid) {
    return rowid == KeyList::missing ||
           (rowid > KeyList::missing32 && rowid <= std::numeric_limits<std::int32_t>::max());
  });
}

}  // namespace

void KeyList::reserve(std::size_t entries) {
  if (isWide_) {
    wide_.reserve(entries * sources_);
  } else {
    narrow_.reserve(entries * sources_);
  }
}

void KeyList::append(std::span<const std::int64_t> rowids) {
  if (!isWide_ && !fitsNarrow(rowids)) {
    widen();
  }
  if (isWide_) {
    wide_.insert(wide_.end(), rowids.begin(), rowids.end());
  } else {
    for (const std::int64_t rowid : rowids) {
      narrow_.push_back(rowid == missing ? missing32 : static_cast<std::int32_t>(rowid));
    }
  }
  ++slots_;
}

void KeyList::clear() {
  *this = KeyList(sources_);
}

void KeyList::widen() {
  wide_.reserve(narrow_.size() + sources_);
  for (const std::int32_t rowid : narrow_) {
    wide_.push_back(rowid == missing32 ? missing : rowid);
  }
  std::vector<std::int32_t>().swap(narrow_);
  isWide_ = true;
}

std::int64_t KeyList::rowid(std::int64_t slot, std::size_t source) const {
  const std::size_t index = static_cast<std::size_t>(slot) * sources_ + source;
  if (isWide_) {
    return wide_[index];
  }
  return narrow_[index] == missing32 ? missing : narrow_[index];
}

std::vector<std::int64_t> KeyList::entry(std::int64_t slot) const {
  std::vector<std::int64_t> rowids(sources_);
  for (std::size_t source = 0; source < sources_; ++source) {
    rowids[source] = rowid(slot, source);
  }
  return rowids;
}

bool KeyList::equals(std::int64_t slot, std::span<const std::int64_t> rowids) const {
  for (std::size_t source = 0; source < sources_; ++source) {
    if (rowid(slot, source) != rowids[source]) {
      return false;
    }
  }
  return true;
}

void KeyList::replace(std::int64_t slot, std::size_t source, std::int64_t newRowid) {
  std::vector<std::int64_t> rowids{newRowid};
  if (!isWide_ && !fitsNarrow(rowids)) {
    widen();
  }
  const std::size_t index = static_cast<std::size_t>(slot) * sources_ + source;
  if (isWide_) {
    wide_[index] = newRowid;
  } else {
    narrow_[index] = newRowid == missing ? missing32 : static_cast<std::int32_t>(newRowid);
  }
  inverseSlots_ = 0;
}

void KeyList::remove(std::int64_t slot) {
  const auto at = std::ranges::lower_bound(holes_, slot);
  if (at == holes_.end() || *at != slot) {
    holes_.insert(at, slot);
  }
}

bool KeyList::isHole(std::int64_t slot) const {
  return std::ranges::binary_search(holes_, slot);
}

std::int64_t KeyList::position(std::int64_t slot) const {
  return slot - (std::ranges::lower_bound(holes_, slot) - holes_.begin());
}

std::int64_t KeyList::slotAt(std::int64_t position) const {
  // The k-th hole (from 0) lies before the wanted entry as long as holes_[k] - k entries do not reach it.
  std::size_t low = 0;
  std::size_t high = holes_.size();
  while (low < high) {
    const std::size_t middle = (low + high) / 2;
    if (holes_[middle] - static_cast<std::int64_t>(middle) <= position) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return position + static_cast<std::int64_t>(low);
}

std::int64_t KeyList::skipForward(std::int64_t slot) const {
  for (auto hole = std::ranges::lower_bound(holes_, slot); hole != holes_.end() && *hole == slot; ++hole) {
    ++slot;
  }
  return slot;
}

std::int64_t KeyList::skipBackward(std::int64_t slot) const {
  auto hole = std::ranges::upper_bound(holes_, slot);
  while (hole != holes_.begin() && *std::prev(hole) == slot) {
    --hole;
    --slot;
  }
  return slot;
}

bool KeyList::less(std::int64_t slot, std::span<const std::int64_t> rowids) const {
  for (std::size_t source = 0; source < sources_; ++source) {
    const std::int64_t own = rowid(slot, source);
    if (own != rowids[source]) {
      return own < rowids[source];
    }
  }
  return false;
}

/// The inverse as an array; false where the rowids lie too far apart for one.
template <class Rowid>
bool KeyList::indexByRowid(const std::vector<Rowid>& rowids) const {
  const auto [least, most] = std::ranges::minmax(rowids);
  const auto spread = static_cast<std::uint64_t>(most) - static_cast<std::uint64_t>(least);
  if (spread / 2 >= rowids.size()) {
    return false;
  }
  lowest_ = least;
  byRowid_.assign(spread + 1, 0);
  auto hole = holes_.begin();  // the rowid of a removed entry may have been given to a later row
  for (std::size_t slot = 0; slot < rowids.size(); ++slot) {
    if (hole != holes_.end() && *hole == static_cast<std::int64_t>(slot)) {
      ++hole;
      continue;
    }
    byRowid_[static_cast<std::size_t>(rowids[slot] - least)] = static_cast<std::uint32_t>(slot + 1);
  }
  return true;
}

void KeyList::buildInverse() const {
  inverseSlots_ = slots_;
  byRowid_.clear();
  sorted_.clear();
  if (slots_ == 0) {
    return;
  }
  if (sources_ == 1 && (isWide_ ? indexByRowid(wide_) : indexByRowid(narrow_))) {
    return;
  }
  sorted_.reserve(static_cast<std::size_t>(size()));
  for (std::int64_t slot = 0; slot < slots_; ++slot) {
    if (!isHole(slot)) {
      sorted_.push_back(static_cast<std::uint32_t>(slot));
    }
  }
  std::ranges::sort(sorted_, [this](std::uint32_t a, std::uint32_t b) {
    for (std::size_t source = 0; source < sources_; ++source) {
      const std::int64_t ofA = rowid(a, source);
      const std::int64_t ofB = rowid(b, source);
      if (ofA != ofB) {
        return ofA < ofB;
      }
    }
    return a < b;
  });
}

void KeyList::prepareFind() const {
  // Entries behind the inverse are few (rows added since it was built) until they outweigh a rebuild.
  constexpr std::int64_t tail = 64;
  if (inverseSlots_ + tail < slots_ || (inverseSlots_ == 0 && slots_ > 0)) {
    buildInverse();
  }
}

std::int64_t KeyList::find(std::span<const std::int64_t> rowids) const {
  prepareFind();
  std::int64_t found = none;
  if (!byRowid_.empty()) {
    const auto index = static_cast<std::uint64_t>(rowids[0]) - static_cast<std::uint64_t>(lowest_);
    if (rowids[0] >= lowest_ && index < byRowid_.size()) {
      found = static_cast<std::int64_t>(byRowid_[index]) - 1;
    }
  } else {
    const auto at = std::ranges::partition_point(
        sorted_, [this, rowids](std::uint32_t slot) { return less(slot, rowids); });
    if (at != sorted_.end() && equals(*at, rowids)) {
      found = *at;
    }
  }
  if (found != none && !isHole(found)) {
    return found;
  }
  for (std::int64_t slot = inverseSlots_; slot < slots_; ++slot) {
    if (equals(slot, rowids) && !isHole(slot)) {
      return slot;
    }
  }
  return none;
}

std::int64_t KeyList::findRemoved(std::span<const std::int64_t> rowids) const {
  const auto at = std::ranges::find_if(holes_, [&](std::int64_t slot) { return equals(slot, rowids); });
  return at == holes_.end() ? none : *at;
}

std::size_t KeyList::bytes() const {
  return narrow_.capacity() * sizeof(std::int32_t) + wide_.capacity() * sizeof(std::int64_t) +
         holes_.capacity() * sizeof(std::int64_t) + byRowid_.capacity() * sizeof(std::uint32_t) +
         sorted_.capacity() * sizeof(std::uint32_t);
}

}  // namespace engine
