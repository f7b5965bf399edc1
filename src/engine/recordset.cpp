#include "engine/recordset.h"

#include "engine/recordset_impl.h"
#include "engine/recordset_open.h"

namespace engine {

namespace {

constexpr int objectClosed = 3420;

Recordset::Impl& opened(const std::unique_ptr<Recordset::Impl>& impl) {
  if (impl == nullptr) {
    throw Error(objectClosed, "The recordset is closed.");
  }
  return *impl;
}

}  // namespace

Recordset openRecordset(RecordsetSource source) {
  return Recordset(std::make_unique<Recordset::Impl>(std::move(source), std::vector<std::string>{}));
}

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::Recordset(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

void Recordset::Close() {
  impl_.reset();
}

const std::vector<FieldInfo>& Recordset::Fields() const {
  return opened(impl_).fields();
}
std::size_t Recordset::field(const std::string& name) const {
  return opened(impl_).field(name);
}
Value Recordset::value(std::size_t field) const {
  return opened(impl_).value(field);
}
void Recordset::set(std::size_t field, const Value& value) {
  opened(impl_).set(field, value);
}

bool Recordset::EndOfFile() const {
  return opened(impl_).endOfFile();
}
bool Recordset::BeginOfFile() const {
  return opened(impl_).beginOfFile();
}
void Recordset::MoveFirst() {
  opened(impl_).moveFirst();
}
void Recordset::MoveLast() {
  opened(impl_).moveLast();
}
void Recordset::MoveNext() {
  opened(impl_).moveNext();
}
void Recordset::MovePrevious() {
  opened(impl_).movePrevious();
}
void Recordset::Move(std::int64_t rows) {
  opened(impl_).move(rows);
}
std::int64_t Recordset::RecordCount() const {
  return opened(impl_).recordCount();
}
std::int64_t Recordset::AbsolutePosition() const {
  return opened(impl_).absolutePosition();
}
void Recordset::setAbsolutePosition(std::int64_t position) {
  opened(impl_).setAbsolutePosition(position);
}
std::string Recordset::Bookmark() const {
  return opened(impl_).bookmark();
}
void Recordset::setBookmark(const std::string& mark) {
  opened(impl_).setBookmark(mark);
}

void Recordset::FindFirst(const std::string& criterion) {
  opened(impl_).find(Impl::Direction::first, criterion);
}
void Recordset::FindLast(const std::string& criterion) {
  opened(impl_).find(Impl::Direction::last, criterion);
}
void Recordset::FindNext(const std::string& criterion) {
  opened(impl_).find(Impl::Direction::next, criterion);
}
void Recordset::FindPrevious(const std::string& criterion) {
  opened(impl_).find(Impl::Direction::previous, criterion);
}
bool Recordset::NoMatch() const {
  return opened(impl_).noMatch();
}
void Recordset::setFilter(const std::string& criterion) {
  opened(impl_).setFilter(criterion);
}
Recordset Recordset::OpenRecordset() {
  return Recordset(opened(impl_).openFiltered());
}

void Recordset::AddNew() {
  opened(impl_).addNew();
}
void Recordset::Edit() {
  opened(impl_).edit();
}
void Recordset::Update() {
  opened(impl_).update();
}
void Recordset::CancelUpdate() {
  opened(impl_).cancelUpdate();
}
void Recordset::Delete() {
  opened(impl_).remove();
}
std::string Recordset::LastModified() const {
  return opened(impl_).lastModified();
}
void Recordset::Requery() {
  opened(impl_).requery();
}

}  // namespace engine
