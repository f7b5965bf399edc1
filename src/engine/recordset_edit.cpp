#include <algorithm>

#include "engine/recordset_impl.h"

namespace engine {

namespace {

std::string tableName(const plan::Source& source) {
  return schema::quoteName(source.file->schemaName()) + "." + schema::quoteName(source.table->name);
}

/// Whether a table has at most one row for each value of a column.
bool isUnique(const schema::Table& table, int column) {
  return table.counter() == column || std::ranges::any_of(table.indexes, [&](const schema::Index& index) {
           return (index.primary || index.unique) && index.columns.size() == 1 &&
                  table.find(index.columns[0]) == column;
         });
}

}  // namespace

/// While the set itself writes: its entries, which would otherwise be read whole before any write, know
/// what changes them.
class Recordset::Impl::OwnWrite {
 public:
  explicit OwnWrite(Impl& set) : set_(set) {
    set.stream_.statement.reset();
    set.stream_.ticket.reset();
    set.entries_->beforeOwnWrite();
  }
  ~OwnWrite() { set_.entries_->afterOwnWrite(); }
  OwnWrite(const OwnWrite&) = delete;
  OwnWrite& operator=(const OwnWrite&) = delete;

 private:
  Impl& set_;
};

void Recordset::Impl::requireUpdatable() const {
  const bool any = std::ranges::any_of(fields_, [](const FieldInfo& info) { return info.updatable; });
  if (!any) {
    throw Error(errors::readOnly, "These rows can only be read: the file, the query or the kind of recordset allows no changes.");
  }
}

void Recordset::Impl::set(std::size_t field, const Value& value) {
  if (editing_ == Editing::nothing) {
    throw Error(errors::updateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
  }
  if (field >= fields_.size()) {
    throw Error(errors::itemNotFound, "The recordset has no such field.");
  }
  if (!fields_[field].updatable) {
    throw Error(errors::readOnly, "Field '" + fields_[field].name + "' can't be updated.");
  }
  const plan::Output& output = query_->plan().columns[field];
  edits_[{output.source, output.column}] = value;
}

/// What the current row's field holds while it is edited; nothing where that is the stored value.
std::optional<Value> Recordset::Impl::pendingValue(std::size_t field) {
  const plan::Output& output = query_->plan().columns[field];
  if (const auto set = edits_.find({output.source, output.column});
      set != edits_.end() && output.source >= 0) {
    return set->second;
  }
  if (editing_ == Editing::currentRow) {
    return std::nullopt;
  }
  if (output.type == ColumnType::counter && output.source >= 0) {
    return counterOf(output.source);
  }
  return output.type == ColumnType::bit && output.source >= 0 ? Value(false) : Value();
}

/// The number that the new row of a source gets; reserved when it is first asked for.
std::int64_t Recordset::Impl::counterOf(int source) {
  auto reserved = counters_.find(source);
  if (reserved == counters_.end()) {
    const OwnWrite own(*this);
    reserved = counters_.emplace(source, writer(source).takeCounter()).first;
  }
  return reserved->second;
}

storage::TableWriter& Recordset::Impl::writer(int source) {
  const plan::Plan& plan = query_->plan();
  if (writersFor_ != query_->binding()) {
    writers_.clear();
    writers_.resize(plan.sources.size());
    writersFor_ = query_->binding();
  }
  std::unique_ptr<storage::TableWriter>& made = writers_.at(static_cast<std::size_t>(source));
  if (made == nullptr) {
    made = std::make_unique<storage::TableWriter>(query_->fileOf(source),
                                                  *plan.sources[static_cast<std::size_t>(source)].table);
  }
  return *made;
}

void Recordset::Impl::addNew() {
  requireUpdatable();
  cancelUpdate();
  editing_ = Editing::newRow;
  if (query_->plan().sources.size() == 1 && query_->plan().sources[0].table->counter() >= 0) {
    counterOf(0);
  }
}

void Recordset::Impl::edit() {
  requireUpdatable();
  cancelUpdate();
  currentRow();
  editing_ = Editing::currentRow;
}

void Recordset::Impl::cancelUpdate() {
  if (editing_ != Editing::nothing) {
    editing_ = Editing::nothing;
    edits_.clear();
    counters_.clear();
  }
}

/// Runs one write of this set: whole or not at all.
template <class Write>
void Recordset::Impl::whileWriting(Write&& write) {
  storage::Connection& connection = query_->connection();
  const OwnWrite own(*this);
  if (query_->plan().sources.size() == 1) {
    return write();  // one row, which the writer writes whole or not at all
  }
  for (std::size_t source = 0; source < query_->plan().sources.size(); ++source) {
    connection.beforeWrite(query_->fileOf(static_cast<int>(source)));
  }
  storage::Connection::Savepoint savepoint(connection);
  write();
  savepoint.release();
}

void Recordset::Impl::update() {
  if (editing_ == Editing::nothing) {
    throw Error(errors::updateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
  }
  if (editing_ == Editing::newRow) {
    // Where the set was empty it stays at its end: the new row becomes current by a move.
    Key key;
    whileWriting([&] { key = writeNewRow(); });
    entries_->added(key);
    ++addedRows_;
    lastModified_ = markOf(key);
  } else {
    const Key before = currentKey();
    currentRow();
    Key after;
    whileWriting([&] { after = writeCurrentRow(before); });
    for (std::size_t source = 0; source < after.size(); ++source) {
      if (after[source] != before[source]) {
        entries_->replaced(currentSlot(), source, after[source]);
      }
    }
    if (slot_ < 0) {
      key_ = after;
    }
    lastModified_ = markOf(after);
  }
  cancelUpdate();
}

std::vector<int> Recordset::Impl::editedSources() const {
  std::vector<int> sources;
  for (const auto& [column, value] : edits_) {
    if (sources.empty() || sources.back() != column.first) {
      sources.push_back(column.first);
    }
  }
  return sources;
}

bool Recordset::Impl::isUniqueColumn(int source, int column) const {
  return isUnique(*query_->plan().sources[static_cast<std::size_t>(source)].table, column);
}

/// The stored value of a base column.
Value Recordset::Impl::baseValue(BaseColumn column, std::int64_t rowid) {
  const plan::Source& source = query_->plan().sources[static_cast<std::size_t>(column.first)];
  const schema::Column& definition = source.table->columns[static_cast<std::size_t>(column.second)];
  const storage::StatementLease statement = query_->connection().statement(
      "SELECT " + schema::quoteName(definition.name) + " FROM " + tableName(source) + " WHERE rowid = ?1");
  statement->bindInteger(1, rowid);
  return statement->step() ? statement->value(0, definition.type) : Value();
}

/// Gives a new row of a source the values that its joins ask for, where the caller set none: those of the
/// rows it is joined to, new ones or present ones.
void Recordset::Impl::handOn(int source, const Key& key) {
  for (const plan::Link& link : query_->plan().links) {
    const bool here = link.source == source;
    if (!here && link.otherSource != source) {
      continue;
    }
    const BaseColumn own =
        here ? BaseColumn(link.source, link.column) : BaseColumn(link.otherSource, link.otherColumn);
    const BaseColumn other =
        here ? BaseColumn(link.otherSource, link.otherColumn) : BaseColumn(link.source, link.column);
    const std::int64_t otherRow = key[static_cast<std::size_t>(other.first)];
    if (edits_.contains(own) || otherRow == KeyList::missing || isUniqueColumn(own.first, own.second)) {
      continue;
    }
    edits_[own] = baseValue(other, otherRow);
  }
}

std::int64_t Recordset::Impl::insertInto(int source, const Key& key) {
  handOn(source, key);
  const int counter = query_->plan().sources[static_cast<std::size_t>(source)].table->counter();
  storage::RowValues values;
  for (const auto& [column, value] : edits_) {
    if (column.first == source) {
      values.emplace_back(column.second, value);
    }
  }
  if (counter >= 0 && !edits_.contains({source, counter})) {
    values.emplace_back(counter, counterOf(source));
  }
  return writer(source).insert(values);
}

/// Inserts into a source, first into those that it refers to by a unique column.
void Recordset::Impl::insertWithParents(int source, Key& key, std::vector<bool>& done) {
  const auto at = static_cast<std::size_t>(source);
  if (done[at]) {
    return;
  }
  done[at] = true;
  const std::vector<int> edited = editedSources();
  for (const plan::Link& link : query_->plan().links) {
    if (link.source != source && link.otherSource != source) {
      continue;
    }
    const int other = link.source == source ? link.otherSource : link.source;
    const int otherColumn = link.source == source ? link.otherColumn : link.column;
    if (isUniqueColumn(other, otherColumn) && key[static_cast<std::size_t>(other)] == KeyList::missing &&
        std::ranges::find(edited, other) != edited.end()) {
      insertWithParents(other, key, done);
    }
  }
  key[at] = insertInto(source, key);
}

/// Finds the rows of the sources that got no field, by the columns that join them to rows that did.
void Recordset::Impl::lookUpOthers(Key& key, const std::vector<bool>& done) {
  const plan::Plan& plan = query_->plan();
  std::vector<bool> known = done;
  for (bool again = true; again;) {
    again = false;
    for (const plan::Link& link : plan.links) {
      const bool forth = known[static_cast<std::size_t>(link.source)];
      if (forth == known[static_cast<std::size_t>(link.otherSource)]) {
        continue;
      }
      const BaseColumn from =
          forth ? BaseColumn(link.source, link.column) : BaseColumn(link.otherSource, link.otherColumn);
      const BaseColumn to =
          forth ? BaseColumn(link.otherSource, link.otherColumn) : BaseColumn(link.source, link.column);
      const auto at = static_cast<std::size_t>(to.first);
      const std::int64_t fromRow = key[static_cast<std::size_t>(from.first)];
      const Value value = fromRow == KeyList::missing ? Value() : baseValue(from, fromRow);
      key[at] = KeyList::missing;
      if (!value.isNull()) {
        const plan::Source& source = plan.sources[at];
        const schema::Column& column = source.table->columns[static_cast<std::size_t>(to.second)];
        const storage::StatementLease statement =
            query_->connection().statement("SELECT rowid FROM " + tableName(source) + " WHERE " +
                                           schema::quoteName(column.name) + " = ?1 LIMIT 1");
        statement->bind(1, value);
        if (statement->step()) {
          key[at] = statement->integer(0);
        } else if (!source.outer) {
          throw Error(errors::relatedRowRequired,
                      "You cannot add or change a record because a related record is required in table '" +
                          source.table->name + "'.");
        }
      }
      known[at] = true;
      again = true;
    }
  }
}

Recordset::Impl::Key Recordset::Impl::writeNewRow() {
  const std::size_t sources = query_->plan().sources.size();
  Key key(sources, KeyList::missing);
  std::vector<bool> done(sources, false);
  std::vector<int> edited = editedSources();
  if (edited.empty() && sources > 1) {
    throw Error(errors::keyIsNull, "Index or primary key cannot contain a Null value.");
  }
  if (edited.empty()) {
    edited.push_back(0);
  }
  for (const int source : edited) {
    insertWithParents(source, key, done);
  }
  lookUpOthers(key, done);
  return key;
}

Recordset::Impl::Key Recordset::Impl::writeCurrentRow(const Key& before) {
  const std::size_t sources = before.size();
  Key key = before;
  std::vector<bool> done(sources, false);
  for (const int source : editedSources()) {
    const std::int64_t rowid = key[static_cast<std::size_t>(source)];
    if (rowid == KeyList::missing) {
      insertWithParents(source, key, done);
      continue;
    }
    storage::RowValues values;
    for (const auto& [column, value] : edits_) {
      if (column.first == source) {
        values.emplace_back(column.second, value);
      }
    }
    writer(source).update(rowid, values);
  }
  // A changed reference leads to another row of the table that it refers to.
  std::vector<bool> stays(sources, true);
  for (const plan::Link& link : query_->plan().links) {
    const auto look = [&](BaseColumn changed, BaseColumn other) {
      if (edits_.contains(changed) && isUniqueColumn(other.first, other.second) &&
          !isUniqueColumn(changed.first, changed.second)) {
        stays[static_cast<std::size_t>(other.first)] = false;
      }
    };
    look({link.source, link.column}, {link.otherSource, link.otherColumn});
    look({link.otherSource, link.otherColumn}, {link.source, link.column});
  }
  for (const int source : editedSources()) {
    stays[static_cast<std::size_t>(source)] = true;
  }
  lookUpOthers(key, stays);
  return key;
}

/// The source whose row a Delete removes: the one that refers to others and that none refers to, or what
/// stands in its place where an outer join found no such row.
int Recordset::Impl::manySide(const Key& key) const {
  const plan::Plan& plan = query_->plan();
  std::vector<bool> candidate(key.size());
  for (std::size_t source = 0; source < key.size(); ++source) {
    candidate[source] = key[source] != KeyList::missing;
  }
  const std::vector<bool> present = candidate;
  for (const plan::Link& link : plan.links) {
    const auto one = static_cast<std::size_t>(link.source);
    const auto other = static_cast<std::size_t>(link.otherSource);
    if (!present[one] || !present[other]) {
      continue;
    }
    const bool oneIsUnique = isUniqueColumn(link.source, link.column);
    const bool otherIsUnique = isUniqueColumn(link.otherSource, link.otherColumn);
    if (oneIsUnique && !otherIsUnique) {
      candidate[one] = false;
    } else if (otherIsUnique && !oneIsUnique) {
      candidate[other] = false;
    }
  }
  const auto found = std::ranges::find(candidate, true);
  if (found == candidate.end()) {
    throw Error(errors::readOnly, "The record can't be deleted.");
  }
  return static_cast<int>(found - candidate.begin());
}

void Recordset::Impl::remove() {
  requireUpdatable();
  cancelUpdate();
  const Key key = currentKey();
  currentRow();
  const int source = manySide(key);
  whileWriting([&] { writer(source).erase(key[static_cast<std::size_t>(source)]); });
  if (slot_ < 0 && entries_->isComplete()) {
    currentSlot();
  }
  entries_->removed(slot_, key);
  key_ = key;
  gone_ = true;
}

}  // namespace engine
