#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "engine/recordset.h"
#include "engine/recordset_entries.h"
#include "engine/recordset_query.h"
#include "engine/storage/writer.h"

namespace engine {

/// A recordset: where it stands in its entries, what is being edited, and what was found last.
class Recordset::Impl {
 public:
  Impl(RecordsetSource source, std::vector<std::string> filters);

  // Reading and moving (recordset_moves.cpp).
  const std::vector<FieldInfo>& fields() const { return fields_; }
  std::size_t field(const std::string& name);
  Value value(std::size_t field);
  bool endOfFile() const { return place_ == Place::after; }
  bool beginOfFile() const;
  void moveFirst();
  void moveLast();
  void moveNext();
  void movePrevious();
  void move(std::int64_t rows);
  std::int64_t recordCount();
  std::int64_t absolutePosition();
  void setAbsolutePosition(std::int64_t position);
  std::string bookmark();
  void setBookmark(const std::string& mark);
  void requery();

  // Finding (recordset_find.cpp).
  enum class Direction { first, last, next, previous };
  void find(Direction direction, const std::string& criterion);
  bool noMatch() const { return noMatch_; }
  void setFilter(const std::string& criterion) { filter_ = criterion; }
  std::unique_ptr<Impl> openFiltered();

  // Writing (recordset_edit.cpp).
  void set(std::size_t field, const Value& value);
  void addNew();
  void edit();
  void update();
  void cancelUpdate();
  void remove();
  const std::string& lastModified() const { return lastModified_; }

 private:
  enum class Place { before, row, after };
  enum class Editing { nothing, newRow, currentRow };
  using Key = std::vector<std::int64_t>;
  using BaseColumn = std::pair<int, int>;  ///< source and column in its table

  /// The hits of a criterion: the statement that goes on finding them in order, while nothing was written.
  struct HitStream {
    std::string criterion;
    std::optional<storage::Statement> statement;
    Key last;
    storage::Readers::Ticket ticket;
  };
  /// The slots of all hits, sorted, good until one of the set's tables changes.
  struct Hits {
    std::string criterion;
    std::int64_t changes = -1;
    std::vector<std::int64_t> slots;
  };

  void open();
  void describeFields();
  RecordsetEntries::Row currentRow(std::size_t field = RecordsetEntries::noField);
  void requireRow() const;
  bool countsAtOnce() const;
  std::int64_t currentSlot();
  Key currentKey();
  void standAt(std::int64_t slot);
  void standAt(Key key);
  void standBehind();
  bool forwardFrom(std::int64_t slot);
  bool backwardFrom(std::int64_t slot);
  static std::string markOf(const Key& key);

  bool findStreaming(Direction direction, const std::string& criterion);
  const std::vector<std::int64_t>& hits(const std::string& criterion);
  std::int64_t changesOfTables();
  void collectHits(const std::string& criterion, std::vector<std::int64_t>& slots);
  void findInSpool(Direction direction, const std::string& criterion);

  void requireUpdatable() const;
  std::optional<Value> pendingValue(std::size_t field);
  std::int64_t counterOf(int source);
  storage::TableWriter& writer(int source);
  Value baseValue(BaseColumn column, std::int64_t rowid);
  std::vector<int> editedSources() const;
  bool isUniqueColumn(int source, int column) const;
  void handOn(int source, const Key& key);
  std::int64_t insertInto(int source, const Key& key);
  void insertWithParents(int source, Key& key, std::vector<bool>& done);
  void lookUpOthers(Key& key, const std::vector<bool>& done);
  Key writeNewRow();
  Key writeCurrentRow(const Key& before);
  int manySide(const Key& key) const;
  class OwnWrite;
  template <class Write>
  void whileWriting(Write&& write);

  std::unique_ptr<RecordsetQuery> query_;
  std::unique_ptr<RecordsetEntries> entries_;
  std::vector<FieldInfo> fields_;
  std::unordered_map<std::string, std::size_t> fieldNames_;  // as spelled by callers so far

  Place place_ = Place::after;
  std::int64_t slot_ = -1;  // -1 where the row is known by its key alone
  Key key_;
  bool gone_ = false;  // the current row was deleted through this set
  std::int64_t reached_ = 0;
  bool counted_ = false;
  std::int64_t addedRows_ = 0;

  bool noMatch_ = false;
  std::string filter_;
  HitStream stream_;
  Hits hits_;

  Editing editing_ = Editing::nothing;
  std::map<BaseColumn, Value> edits_;
  std::map<int, std::int64_t> counters_;  // numbers reserved for the new row, by source
  std::vector<std::unique_ptr<storage::TableWriter>> writers_;
  std::int64_t writersFor_ = -1;  // RecordsetQuery::binding() they were made under
  std::string lastModified_;
};

}  // namespace engine
