#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>
#include <string>
#include <vector>

#include "engine/recordset.h"

namespace desktop {

class Cells;

/// A table of texts. Either all rows are handed over (small tables), or only those on show are asked for
/// (tables of any length).
class Grid : public QTableView {
 public:
  using Rows = std::vector<std::vector<std::string>>;

  explicit Grid(QWidget* parent = nullptr);

  void setHeads(const QStringList& heads);
  QStringList heads() const;
  /// Shows these rows; the current row stays where it is when they are the same as before.
  void setRows(Rows rows);
  /// Shows `count` rows whose cells are read when they come into view. Call it again after each change.
  void setSource(std::int64_t count, std::function<std::string(std::int64_t row, int column)> cell);
  /// The columns `fields` of a recordset, read by position. The recordset outlives the next call; its
  /// current row stays.
  void setRecordset(engine::Recordset& rows, const std::vector<std::string>& fields);
  /// Marks a row without telling it; -1 for none.
  void setCurrentRow(int row);
  int currentRow() const { return currentIndex().row(); }
  bool isEditing() const { return state() == EditingState; }

  /// Columns whose texts run from right to left; the others run as their text does.
  void setRightToLeft(std::vector<bool> columns);

  /// A row was chosen by mouse or key; only the user's doing is told.
  std::function<void(int row)> selected;
  std::function<void(int row)> activated;  ///< double click or Enter
  /// A cell was typed into; empty: cells can not be edited.
  std::function<void(int row, int column, const std::string& text)> edited;
  std::function<void(int row, const QPoint& where)> menu;  ///< right click, in screen coordinates
  std::vector<bool> editableColumns;                       ///< empty: all of them
  std::function<bool(int row, int column)> editable;       ///< asked besides; empty: all of them

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Model;
  /// Shares the width among the columns, until the user sets one.
  void spreadColumns();

  Model* model_;
  Cells* cells_;
  bool spread_ = true, spreading_ = false;
  bool quiet_ = false;
};

}  // namespace desktop
