#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace engine {

/// The keys of a set's rows in their frozen order: for each entry the rowid of each source table, packed
/// into 4 bytes a rowid as long as all of them fit, else 8. Entries are addressed by a slot, which never
/// changes; a removed entry leaves a hole that positions do not count.
class KeyList {
 public:
  /// Stands for the rowid of a row that an outer join did not find.
  static constexpr std::int64_t missing = std::numeric_limits<std::int64_t>::min();
  static constexpr std::int32_t missing32 = std::numeric_limits<std::int32_t>::min();  ///< the same, packed
  static constexpr std::int64_t none = -1;                                             ///< no such slot

  explicit KeyList(std::size_t sources) : sources_(sources) {}

  std::size_t sources() const { return sources_; }
  void reserve(std::size_t entries);
  void append(std::span<const std::int64_t> rowids);
  void clear();
  /// All slots, holes included.
  std::int64_t slots() const { return slots_; }
  /// Entries without the holes.
  std::int64_t size() const { return slots_ - static_cast<std::int64_t>(holes_.size()); }

  std::int64_t rowid(std::int64_t slot, std::size_t source) const;
  std::vector<std::int64_t> entry(std::int64_t slot) const;
  bool equals(std::int64_t slot, std::span<const std::int64_t> rowids) const;

  void replace(std::int64_t slot, std::size_t source, std::int64_t newRowid);
  void remove(std::int64_t slot);
  bool isHole(std::int64_t slot) const;
  /// The number of entries before a slot, and the slot of the entry with so many before it.
  std::int64_t position(std::int64_t slot) const;
  std::int64_t slotAt(std::int64_t position) const;
  /// The next slot from here on (the slot itself included) that is no hole; slots() behind the last.
  std::int64_t skipForward(std::int64_t slot) const;
  /// The same downwards; -1 before the first.
  std::int64_t skipBackward(std::int64_t slot) const;

  /// The slot that holds exactly these rowids, `none` when there is none. Builds the inverse of the list
  /// where that is missing: an array over the rowids where they lie close, else a sorted index.
  std::int64_t find(std::span<const std::int64_t> rowids) const;

  /// Builds the inverse ahead of the first find().
  void prepareFind() const;
  /// The slot of a removed entry with these rowids.
  std::int64_t findRemoved(std::span<const std::int64_t> rowids) const;

  std::size_t bytes() const;

 private:
  void widen();
  void buildInverse() const;
  template <class Rowid>
  bool indexByRowid(const std::vector<Rowid>& rowids) const;
  bool less(std::int64_t slot, std::span<const std::int64_t> rowids) const;

  std::size_t sources_;
  std::int64_t slots_ = 0;
  std::vector<std::int32_t> narrow_;
  std::vector<std::int64_t> wide_;
  bool isWide_ = false;
  std::vector<std::int64_t> holes_;  // sorted

  // One of the two, for the first inverseSlots_ slots.
  mutable std::int64_t inverseSlots_ = 0;
  mutable std::int64_t lowest_ = 0;
  mutable std::vector<std::uint32_t> byRowid_;  // slot + 1 of rowid lowest_ + index; 0: none
  mutable std::vector<std::uint32_t> sorted_;   // slots in the order of their rowids
};

}  // namespace engine
