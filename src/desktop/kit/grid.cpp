#include "desktop/kit/grid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "desktop/kit/cells.h"
#include "desktop/kit/text.h"
#include "store/rows.h"

namespace desktop {

class Grid::Model : public QAbstractTableModel {
 public:
  explicit Model(Grid& grid) : QAbstractTableModel(&grid), grid_(grid) {}

  void setHeads(const QStringList& heads) {
    beginResetModel();
    heads_ = heads;
    endResetModel();
  }
  void setRows(Rows rows) {
    const int count = static_cast<int>(rows.size());
    change(count, [&] {
      rows_ = std::move(rows);
      cell_ = {};
    });
  }
  void setSource(int count, std::function<std::string(std::int64_t, int)> cell) {
    change(count, [&] {
      rows_.clear();
      cell_ = std::move(cell);
    });
  }
  bool shows(const Rows& rows) const { return !cell_ && rows == rows_; }

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(heads_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole) return {};
    return text(index.row(), index.column());
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return heads_.value(section);
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const auto& columns = grid_.editableColumns;
    const auto column = static_cast<std::size_t>(index.column());
    const bool editable = grid_.edited && (columns.empty() || (column < columns.size() && columns[column]));
    const bool here = editable && (!grid_.editable || mayEdit(index));
    return QAbstractTableModel::flags(index) | (here ? Qt::ItemIsEditable : Qt::NoItemFlags);
  }
  bool setData(const QModelIndex& index, const QVariant& value, int role) override {
    if (role != Qt::EditRole || !grid_.edited) return false;
    const QString typed = value.toString();
    if (typed != text(index.row(), index.column()))
      grid_.edited(index.row(), index.column(), typed.toStdString());
    return true;
  }

 private:
  /// Other rows, with those that go or come at the end: what is marked or scrolled to stays in place, and Tab
  /// leads from an edited cell to the next.
  template <class Assign>
  void change(int count, const Assign& assign) {
    const int before = count_;
    if (count > before) beginInsertRows({}, before, count - 1);
    if (count < before) beginRemoveRows({}, count, before - 1);
    assign();
    count_ = count;
    if (count > before) endInsertRows();
    if (count < before) endRemoveRows();
    if (const int kept = std::min(count, before); kept > 0 && !heads_.isEmpty())
      dataChanged(index(0, 0), index(kept - 1, columnCount() - 1));
  }
  bool mayEdit(const QModelIndex& index) const {
    // The view asks while it paints, where nothing may throw.
    try {
      return grid_.editable(index.row(), index.column());
    } catch (const std::exception&) {
      return false;
    }
  }
  QString text(int row, int column) const {
    // The view asks while it paints, where nothing may throw; a row that is gone shows empty.
    try {
      if (cell_) return qt(cell_(row, column));
    } catch (const std::exception&) {
      return {};
    }
    const auto& cells = rows_.at(static_cast<std::size_t>(row));
    return static_cast<std::size_t>(column) < cells.size() ? qt(cells[static_cast<std::size_t>(column)])
                                                           : QString();
  }

  Grid& grid_;
  QStringList heads_;
  Rows rows_;
  int count_ = 0;
  std::function<std::string(std::int64_t, int)> cell_;
};

Grid::Grid(QWidget* parent) : QTableView(parent), model_(new Model(*this)), cells_(new Cells(this)) {
  setModel(model_);
  setItemDelegate(cells_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  setAlternatingRowColors(true);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section) {
    // The last one stretches by itself.
    if (!spreading_ && section + 1 < model_->columnCount()) spread_ = false;
  });
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    if (activated && !(model_->flags(index) & Qt::ItemIsEditable)) activated(index.row());
  });
}

void Grid::setHeads(const QStringList& heads) {
  model_->setHeads(heads);
  if (heads.size() == 1 && heads.first().isEmpty()) horizontalHeader()->hide();
  spreadColumns();
}

void Grid::setRightToLeft(std::vector<bool> columns) {
  if (cells_->rightToLeft == columns) return;
  cells_->rightToLeft = std::move(columns);
  viewport()->update();
}

void Grid::spreadColumns() {
  const int count = model_->columnCount();
  if (!spread_ || count == 0) return;
  const int least = fontMetrics().averageCharWidth() * 20;
  spreading_ = true;
  for (int column = 0; column + 1 < count; ++column)
    setColumnWidth(column, std::max(least, viewport()->width() / count));
  spreading_ = false;
}

void Grid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  spreadColumns();
}

QStringList Grid::heads() const {
  QStringList heads;
  for (int column = 0; column < model_->columnCount(); ++column)
    heads << model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  return heads;
}

void Grid::setRows(Rows rows) {
  if (model_->shows(rows)) return;
  const int row = currentRow();
  quiet_ = true;
  model_->setRows(std::move(rows));
  quiet_ = false;
  setCurrentRow(std::min(row, model_->rowCount() - 1));
}

void Grid::setSource(std::int64_t count, std::function<std::string(std::int64_t, int)> cell) {
  const int row = currentRow();
  quiet_ = true;
  model_->setSource(static_cast<int>(count), std::move(cell));
  quiet_ = false;
  setCurrentRow(std::min(row, model_->rowCount() - 1));
}

void Grid::setRecordset(engine::Recordset& rows, const std::vector<std::string>& fields) {
  if (!store::hasRows(rows)) return setSource(0, {});
  const std::int64_t place = rows.AbsolutePosition();
  rows.MoveLast();
  if (place >= 0) rows.setAbsolutePosition(place);
  std::vector<std::size_t> places;
  for (const std::string& each : fields) places.push_back(rows.field(each));
  setSource(rows.RecordCount(), [&rows, places](std::int64_t row, int column) {
    // Operations rely on the row where the set stands.
    const std::int64_t before = rows.AbsolutePosition();
    rows.setAbsolutePosition(row);
    const engine::Value value = rows.value(places.at(static_cast<std::size_t>(column)));
    if (before >= 0) rows.setAbsolutePosition(before);
    if (value.isNull()) return std::string();
    return value.kind() == engine::Value::Kind::date ? value.asDate().stamp() : value.asText();
  });
}

void Grid::setCurrentRow(int row) {
  if (row == currentRow()) return;
  quiet_ = true;
  if (row < 0) {
    clearSelection();
    setCurrentIndex({});
  } else {
    selectRow(row);
  }
  quiet_ = false;
}

void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!quiet_ && selected && current.isValid() && current.row() != previous.row()) selected(current.row());
}

void Grid::contextMenuEvent(QContextMenuEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (!menu || !index.isValid()) return QTableView::contextMenuEvent(event);
  setCurrentIndex(index);
  menu(index.row(), event->globalPos());
}

void Grid::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && activated && currentIndex().isValid() && state() != EditingState)
    return activated(currentRow());
  QTableView::keyPressEvent(event);
}

}  // namespace desktop
