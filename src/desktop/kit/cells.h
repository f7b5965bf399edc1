#pragma once

#include <QStyledItemDelegate>
#include <vector>

namespace desktop {

/// Draws and edits the texts of a table or a list in the direction in which they run.
class Cells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  std::vector<bool> rightToLeft;  ///< columns that do so whatever they hold

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto column = static_cast<std::size_t>(index.column());
    if ((column < rightToLeft.size() && rightToLeft[column]) || option->text.isRightToLeft())
      option->direction = Qt::RightToLeft;
  }
};

}  // namespace desktop
