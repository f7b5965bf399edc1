#include "engine/file/salvage.h"

#include <algorithm>
#include <array>
#include <limits>

#include "engine/file/open_file.h"

namespace engine::file {

namespace {

constexpr int usable = bodyBytes;
constexpr std::uint8_t indexInterior = 2, tableInterior = 5, indexLeaf = 10, tableLeaf = 13;
constexpr int deepest = 20;  // a tree of more levels would not fit into any file
constexpr LostRange everything{std::numeric_limits<std::int64_t>::min(),
                               std::numeric_limits<std::int64_t>::max()};

using PageBuffer = std::array<std::uint8_t, pageSize>;

std::size_t headerAt(std::uint32_t number) {
  return number == 1 ? 100 : 0;
}
std::size_t word16(Bytes page, std::size_t at) {
  return std::size_t{page[at]} << 8 | page[at + 1];
}
bool isLeaf(std::uint8_t type) {
  return type == tableLeaf || type == indexLeaf;
}
bool isInterior(std::uint8_t type) {
  return type == tableInterior || type == indexInterior;
}

// Offsets of a page's cells, those alone that lie within it.
std::vector<std::size_t> cells(Bytes page, std::uint32_t number) {
  const std::size_t header = headerAt(number);
  const std::size_t first = header + (isInterior(page[header]) ? 12 : 8), count = word16(page, header + 3);
  std::vector<std::size_t> offsets;
  for (std::size_t i = 0; i < count && first + 2 * i + 2 <= usable; ++i)
    if (const std::size_t at = word16(page, first + 2 * i); at >= first && at < usable) offsets.push_back(at);
  return offsets;
}

// How much of a payload stands on its own page, by the format's formulas.
std::uint64_t localBytes(std::uint64_t size, bool table) {
  const std::uint64_t most = table ? usable - 35 : (usable - 12) * 64 / 255 - 23;
  const std::uint64_t least = (usable - 12) * 32 / 255 - 23;
  if (size <= most) return size;
  const std::uint64_t fitting = least + (size - least) % (usable - 4);
  return fitting <= most ? fitting : least;
}

const std::string* textOf(const StoredValue& value) {
  return std::get_if<std::string>(&value);
}

std::optional<SchemaEntry> schemaEntry(const SalvagedRow& row) {
  const auto& values = row.record.values;
  if (values.size() != 5 || textOf(values[0]) == nullptr || textOf(values[1]) == nullptr ||
      textOf(values[2]) == nullptr)
    return {};
  const auto* root = std::get_if<std::int64_t>(&values[3]);
  const std::string& type = *textOf(values[0]);
  if ((type != "table" && type != "index") || root == nullptr || *root <= 1 ||
      *root > std::numeric_limits<std::uint32_t>::max())
    return {};
  if (!row.record.whole) return {};
  return SchemaEntry{type, *textOf(values[1]), *textOf(values[2]),
                     textOf(values[4]) == nullptr ? "" : *textOf(values[4]),
                     static_cast<std::uint32_t>(*root)};
}

}  // namespace

struct Salvage::Cursor {
  const VisitRow& visit;
  TreeReport report;
};

Salvage::Salvage(const PageSource& source) : source_(source), known_(std::size_t{source.pages()} + 1) {
  markFreePages();
}

// Free pages may still hold rows that were deleted long ago.
void Salvage::markFreePages() {
  PageBuffer page;
  if (!source_.read(1, page.data())) return;
  std::uint32_t trunk = bigEndian(&page[32]);
  while (trunk != 0 && trunk < known_.size() && !known_[trunk] && source_.read(trunk, page.data())) {
    known_[trunk] = true;
    const std::uint32_t count = std::min<std::uint32_t>(bigEndian(&page[4]), usable / 4 - 2);
    for (std::uint32_t i = 0; i < count; ++i)
      if (const std::uint32_t leaf = bigEndian(&page[8 + 4 * i]); leaf < known_.size()) known_[leaf] = true;
    trunk = bigEndian(&page[0]);
  }
}

std::vector<std::uint8_t> Salvage::payload(Bytes page, std::size_t at, std::uint64_t size, bool table,
                                           bool& whole) const {
  const std::uint64_t local = localBytes(size, table);
  whole = local <= usable - at;
  std::vector<std::uint8_t> bytes(page.begin() + at, page.begin() + at + (whole ? local : usable - at));
  if (!whole || local == size) return bytes;
  std::uint32_t next = at + local + 4 <= usable ? bigEndian(&page[at + local]) : 0;
  PageBuffer overflow;
  while (bytes.size() < size) {
    whole = source_.read(next, overflow.data());
    if (!whole) return bytes;
    const auto part = std::min<std::uint64_t>(size - bytes.size(), usable - 4);
    bytes.insert(bytes.end(), overflow.begin() + 4, overflow.begin() + 4 + static_cast<std::ptrdiff_t>(part));
    next = bigEndian(overflow.data());
  }
  return bytes;
}

void Salvage::visitCell(Cursor& cursor, Bytes page, std::size_t at, bool table) {
  const Bytes body = page.first(usable);
  const auto size = readVarint(body, at);
  const auto rowid = table ? readVarint(body, at) : std::optional<std::uint64_t>{0};
  constexpr std::uint64_t longest = std::uint64_t{1} << 31;
  if (!size || !rowid || *size > longest || at >= usable) return;
  bool whole = true;
  const std::vector<std::uint8_t> bytes = payload(body, at, *size, table, whole);
  const SalvagedRow row{static_cast<std::int64_t>(*rowid), decodeRecord(bytes)};
  if (!whole || !row.record.whole) ++cursor.report.cutRows;
  cursor.visit(row);
}

void Salvage::walkPage(Cursor& cursor, std::uint32_t number, LostRange range, int depth) {
  PageBuffer page;
  const bool good =
      depth < deepest && number < known_.size() && !known_[number] && source_.read(number, page.data());
  const std::size_t header = headerAt(number);
  const std::uint8_t type = good ? page[header] : 0;
  if (!isLeaf(type) && !isInterior(type)) {
    ++cursor.report.lostPages;
    cursor.report.lost.push_back(range);
    return;
  }
  known_[number] = true;
  const bool table = type == tableLeaf || type == tableInterior;
  std::int64_t from = range.first;
  for (const std::size_t at : cells(page, number)) {
    if (isLeaf(type)) {
      visitCell(cursor, page, at, table);
      continue;
    }
    if (at + 4 >= usable) continue;
    std::size_t behindChild = at + 4;
    std::int64_t upTo = range.last;
    if (table)
      if (const auto key = readVarint(Bytes(page).first(usable), behindChild))
        upTo = static_cast<std::int64_t>(*key);
    walkPage(cursor, bigEndian(&page[at]), {from, upTo}, depth + 1);
    if (table)
      from = upTo == std::numeric_limits<std::int64_t>::max() ? upTo : upTo + 1;
    else
      visitCell(cursor, page, at + 4, false);
  }
  if (isInterior(type)) walkPage(cursor, bigEndian(&page[header + 8]), {from, range.last}, depth + 1);
}

TreeReport Salvage::walk(std::uint32_t root, const VisitRow& visit) {
  Cursor cursor{visit, {}};
  walkPage(cursor, root, everything, 0);
  return cursor.report;
}

TreeReport Salvage::readLeaf(std::uint32_t number, const VisitRow& visit) {
  Cursor cursor{visit, {}};
  PageBuffer page;
  if (!source_.read(number, page.data()) || !isLeaf(page[headerAt(number)])) return {1, 0, {everything}};
  for (const std::size_t at : cells(page, number))
    visitCell(cursor, page, at, page[headerAt(number)] == tableLeaf);
  return cursor.report;
}

std::vector<std::uint32_t> Salvage::strays() {
  std::vector<std::uint32_t> found;
  PageBuffer page;
  for (std::uint32_t number = 2; number < known_.size(); ++number)
    if (!known_[number] && source_.read(number, page.data()) && isLeaf(page[0])) found.push_back(number);
  return found;
}

std::vector<SchemaEntry> Salvage::schema() {
  std::vector<SchemaEntry> entries;
  const auto take = [&](const SalvagedRow& row) {
    auto entry = schemaEntry(row);
    const auto same = [&](const SchemaEntry& other) {
      return other.type == entry->type && other.name == entry->name;
    };
    if (entry && std::none_of(entries.begin(), entries.end(), same)) entries.push_back(*entry);
  };
  schemaWhole_ = walk(1, take).lostPages == 0;
  if (schemaWhole_) return entries;
  for (const std::uint32_t page : strays()) {
    const std::size_t before = entries.size();
    readLeaf(page, take);
    if (entries.size() > before) known_[page] = true;
  }
  return entries;
}

}  // namespace engine::file
