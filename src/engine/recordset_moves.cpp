#include <algorithm>
#include <charconv>

#include "engine/recordset_impl.h"

namespace engine {

namespace {

constexpr int invalidBookmark = 3159;

[[noreturn]] void noCurrentRecord() {
  throw Error(errors::noCurrentRecord, "The recordset stands on no row.");
}

}  // namespace

Recordset::Impl::Impl(RecordsetSource source, std::vector<std::string> filters)
    : query_(std::make_unique<RecordsetQuery>(std::move(source), std::move(filters))) {
  describeFields();
  open();
}

void Recordset::Impl::open() {
  const bool keyed = query_->plan().keyed && query_->source().kind != RecordsetKind::snapshot;
  entries_ = std::make_unique<RecordsetEntries>(*query_, keyed);
  reached_ = addedRows_ = 0;
  counted_ = false;
  noMatch_ = false;
  if (!forwardFrom(0)) {
    standBehind();
  }
}

/// Whether the number of rows is told without a MoveLast. They are counted when somebody asks.
bool Recordset::Impl::countsAtOnce() const {
  return query_->source().way == Interface::second || query_->source().kind == RecordsetKind::table;
}

void Recordset::Impl::requery() {
  cancelUpdate();
  stream_.statement.reset();
  stream_.ticket.reset();
  hits_ = {};
  entries_.reset();
  query_->renew();
  open();
}

void Recordset::Impl::describeFields() {
  const plan::Plan& plan = query_->plan();
  for (const plan::Output& output : plan.columns) {
    FieldInfo info;
    info.name = output.name;
    info.type = output.type;
    info.size = output.size;
    if (output.source >= 0) {
      const plan::Source& source = plan.sources[static_cast<std::size_t>(output.source)];
      info.sourceTable = source.table->name;
      info.sourceField = source.table->columns[static_cast<std::size_t>(output.column)].name;
      info.updatable = plan.keyed && query_->source().kind != RecordsetKind::snapshot &&
                       !query_->source().readOnly && !query_->connection().fileOf(*source.file).readOnly();
    }
    fields_.push_back(std::move(info));
  }
}

bool Recordset::Impl::beginOfFile() const {
  const std::int64_t rows = entries_->keyed() ? entries_->keys().size() : entries_->known();
  return place_ == Place::before || (place_ == Place::after && rows == 0);
}

std::size_t Recordset::Impl::field(const std::string& name) {
  const auto known = fieldNames_.find(name);
  if (known != fieldNames_.end()) {
    return known->second;
  }
  const std::size_t index = plan::fieldIndex(query_->plan(), name);
  fieldNames_.emplace(name, index);
  return index;
}

Value Recordset::Impl::value(std::size_t field) {
  if (field >= fields_.size()) {
    throw Error(errors::itemNotFound, "The recordset has no such field.");
  }
  if (editing_ != Editing::nothing) {
    if (const std::optional<Value> pending = pendingValue(field)) {
      return *pending;
    }
  }
  const RecordsetEntries::Row row = currentRow(field);
  return row.statement->value(row.firstColumn + static_cast<int>(field), fields_[field].type);
}

void Recordset::Impl::requireRow() const {
  if (place_ != Place::row) {
    noCurrentRecord();
  }
  if (gone_) {
    throw Error(errors::recordDeleted, "Record is deleted.");
  }
}

RecordsetEntries::Row Recordset::Impl::currentRow(std::size_t field) {
  requireRow();
  return slot_ >= 0 ? entries_->row(slot_, field) : entries_->rowByKey(key_);
}

/// The slot of the current row; of a deleted one, where it was. Behind the last where it left no trace.
std::int64_t Recordset::Impl::currentSlot() {
  if (slot_ < 0) {
    slot_ = entries_->locate(key_);
    if (slot_ < 0) {
      if (!gone_) {
        throw Error(invalidBookmark, "Not a valid bookmark.");
      }
      slot_ = entries_->known();
    } else if (!gone_) {
      reached_ = std::max(reached_, slot_ + 1);
    }
  }
  return slot_;
}

Recordset::Impl::Key Recordset::Impl::currentKey() {
  requireRow();
  return slot_ >= 0 ? entries_->keys().entry(slot_) : key_;
}

void Recordset::Impl::standAt(std::int64_t slot) {
  place_ = Place::row;
  slot_ = slot;
  gone_ = false;
  reached_ = std::max(reached_, slot + 1);
}

void Recordset::Impl::standAt(Key key) {
  place_ = Place::row;
  slot_ = -1;
  key_ = std::move(key);
  gone_ = false;
}

void Recordset::Impl::standBehind() {
  place_ = Place::after;
  slot_ = -1;
  gone_ = false;
  counted_ = true;
}

bool Recordset::Impl::forwardFrom(std::int64_t slot) {
  const std::int64_t found = entries_->forward(slot);
  if (found >= 0) {
    standAt(found);
  }
  return found >= 0;
}

bool Recordset::Impl::backwardFrom(std::int64_t slot) {
  const std::int64_t found = entries_->keyed() ? entries_->keys().skipBackward(slot) : slot;
  if (found >= 0) {
    standAt(found);
  }
  return found >= 0;
}

void Recordset::Impl::moveFirst() {
  cancelUpdate();
  if (!forwardFrom(0)) {
    standBehind();
    noCurrentRecord();
  }
}

void Recordset::Impl::moveLast() {
  cancelUpdate();
  entries_->complete();
  counted_ = true;
  // Whoever counts a large set asks for positions next; beside the counting this costs nothing to speak of
  // where one rowid tells a row.
  constexpr std::int64_t large = 10'000;
  if (entries_->keyed() && entries_->known() > large && entries_->keys().sources() == 1) {
    entries_->keys().prepareFind();
  }
  if (!backwardFrom(entries_->known() - 1)) {
    standBehind();
    noCurrentRecord();
  }
}

void Recordset::Impl::moveNext() {
  cancelUpdate();
  if (place_ == Place::after) {
    noCurrentRecord();
  }
  if (!forwardFrom(place_ == Place::before ? 0 : currentSlot() + 1)) {
    standBehind();
  }
}

void Recordset::Impl::movePrevious() {
  cancelUpdate();
  if (place_ == Place::before) {
    noCurrentRecord();
  }
  if (place_ == Place::after) {
    entries_->complete();
  }
  const std::int64_t from = place_ == Place::after ? entries_->known() : currentSlot();
  if (!backwardFrom(from - 1)) {
    if (beginOfFile()) {
      noCurrentRecord();
    }
    place_ = Place::before;
    slot_ = -1;
    gone_ = false;
  }
}

void Recordset::Impl::move(std::int64_t rows) {
  if (rows == 0) {
    cancelUpdate();
    requireRow();
    return;
  }
  const std::int64_t steps = rows > 0 ? rows : -rows;
  for (std::int64_t i = 0; i < steps; ++i) {
    if (i > 0 && place_ != Place::row) {
      return;
    }
    rows > 0 ? moveNext() : movePrevious();
  }
}

std::int64_t Recordset::Impl::recordCount() {
  if (counted_ || countsAtOnce()) {
    counted_ = true;
    entries_->complete();
    return entries_->keyed() ? entries_->keys().size() : entries_->known();
  }
  if (!entries_->keyed()) {
    return reached_;
  }
  // Added rows stand behind those not reached yet.
  const std::int64_t removed = entries_->keys().slots() - entries_->keys().size();
  const std::int64_t reached = std::max<std::int64_t>(reached_ - removed, 0) + addedRows_;
  return entries_->isComplete() ? std::min(reached, entries_->keys().size()) : reached;
}

std::int64_t Recordset::Impl::absolutePosition() {
  if (place_ != Place::row || gone_) {
    return -1;
  }
  const std::int64_t slot = currentSlot();
  return entries_->keyed() ? entries_->keys().position(slot) : slot;
}

void Recordset::Impl::setAbsolutePosition(std::int64_t position) {
  cancelUpdate();
  const std::int64_t slot = entries_->keyed() ? entries_->keys().slotAt(position) : position;
  if (position < 0 || !forwardFrom(slot)) {
    noCurrentRecord();
  }
}

std::string Recordset::Impl::markOf(const Key& key) {
  std::string mark;
  for (const std::int64_t rowid : key) {
    mark +=
        (mark.empty() ? "" : ",") + (rowid == KeyList::missing ? std::string("-") : std::to_string(rowid));
  }
  return mark;
}

std::string Recordset::Impl::bookmark() {
  requireRow();
  return entries_->keyed() ? markOf(currentKey()) : markOf({currentSlot()});
}

void Recordset::Impl::setBookmark(const std::string& mark) {
  cancelUpdate();
  Key key;
  const char* at = mark.data();
  const char* const end = at + mark.size();
  while (at < end) {
    std::int64_t rowid = KeyList::missing;
    const auto [behind, problem] = std::from_chars(at, end, rowid);
    const bool absent = problem != std::errc() && *at == '-';
    if (problem != std::errc() && !absent) {
      break;
    }
    key.push_back(rowid);
    at = (absent ? at + 1 : behind) + 1;
  }
  const std::size_t parts = entries_->keyed() ? entries_->keys().sources() : 1;
  if (key.size() != parts || markOf(key) != mark) {
    throw Error(invalidBookmark, "Not a valid bookmark.");
  }
  if (entries_->keyed()) {
    standAt(std::move(key));
  } else if (!forwardFrom(key[0])) {
    throw Error(invalidBookmark, "Not a valid bookmark.");
  }
}

}  // namespace engine
