#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/file/raw_file.h"
#include "engine/file/record.h"
#include "engine/file/vfs.h"

/// Reading a damaged file without SQLite, which gives up at the first page it can not open. Every page that
/// authenticates is as it was written, so what it holds can be trusted; what leads to it may be lost. The
/// format of b-trees and records is the published one of SQLite 3.
namespace engine::file {

class PageCipher;

/// The latest committed content of each page: from the log where that has it, else from the file.
class PageSource {
 public:
  /// Throws as examine() does for a file of which nothing opens.
  PageSource(const std::string& path, const Credential& credential);

  std::uint32_t pages() const { return pages_; }
  /// Reads a page of pageSize bytes; false when it does not open.
  bool read(std::uint32_t number, std::uint8_t* page) const;

 private:
  RawFile file_, log_;
  std::shared_ptr<const PageCipher> cipher_;
  std::map<std::uint32_t, std::int64_t> inLog_;  // page to the offset of its latest committed copy
  std::uint32_t pages_ = 0;
};

/// A line of SQLite's own catalogue.
struct SchemaEntry {
  std::string type, name, table, sql;
  std::uint32_t root = 0;
};

struct SalvagedRow {
  std::int64_t rowid = 0;  ///< 0 in a table without row numbers
  Record record;           ///< the column that is the row number is Null
};
using VisitRow = std::function<void(const SalvagedRow&)>;

/// A range of row numbers, both ends included, whose pages are lost.
struct LostRange {
  std::int64_t first, last;
};

/// What a tree gave.
struct TreeReport {
  std::uint32_t lostPages = 0;
  std::uint32_t cutRows = 0;    ///< rows given without their end
  std::vector<LostRange> lost;  ///< empty for trees without row numbers
};

/// The trees of a file. Trees are walked from their roots first; pages that no walked tree reached can then
/// be claimed for those that lost some.
class Salvage {
 public:
  explicit Salvage(const PageSource& source);

  /// SQLite's catalogue, from page 1 or, when that is lost, from all pages that look like a part of it.
  std::vector<SchemaEntry> schema();
  /// Whether the catalogue could be read from its root without a loss.
  bool schemaWhole() const { return schemaWhole_; }
  /// Visits the rows of a table tree, or the records of an index tree (or table without row numbers).
  TreeReport walk(std::uint32_t root, const VisitRow& visit);
  /// Pages with rows that neither a walked tree nor the list of free pages holds.
  std::vector<std::uint32_t> strays();
  /// Visits the rows of one leaf page.
  TreeReport readLeaf(std::uint32_t page, const VisitRow& visit);

 private:
  struct Cursor;
  void walkPage(Cursor& cursor, std::uint32_t number, LostRange range, int depth);
  void visitCell(Cursor& cursor, Bytes page, std::size_t at, bool table);
  std::vector<std::uint8_t> payload(Bytes page, std::size_t at, std::uint64_t size, bool table,
                                    bool& whole) const;
  void markFreePages();

  const PageSource& source_;
  std::vector<bool> known_;  // walked or free, by page number
  bool schemaWhole_ = false;
};

}  // namespace engine::file
