#include "desktop/kit/flow.h"

#include <algorithm>

namespace desktop {

Flow::Flow(QWidget* parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(1);
}

Flow::~Flow() = default;

void Flow::addItem(QLayoutItem* item) {
  items_.emplace_back(item);
}

QLayoutItem* Flow::itemAt(int index) const {
  return index < 0 || index >= count() ? nullptr : items_[static_cast<std::size_t>(index)].get();
}

QLayoutItem* Flow::takeAt(int index) {
  if (index < 0 || index >= count()) return nullptr;
  QLayoutItem* taken = items_[static_cast<std::size_t>(index)].release();
  items_.erase(items_.begin() + index);
  return taken;
}

QSize Flow::sizeHint() const {
  int width = 0;
  for (const auto& item : items_) width += item->sizeHint().width() + spacing();
  return {width, minimumSize().height()};
}

QSize Flow::minimumSize() const {
  QSize size;
  for (const auto& item : items_) size = size.expandedTo(item->sizeHint());
  return size;
}

void Flow::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  place(room, true);
}

int Flow::place(const QRect& room, bool moving) const {
  int x = room.x(), y = room.y(), rowHeight = 0;
  for (const auto& item : items_) {
    const QSize size = item->sizeHint();
    if (x > room.x() && x + size.width() > room.right() + 1) {
      x = room.x();
      y += rowHeight + spacing();
      rowHeight = 0;
    }
    if (moving) item->setGeometry({QPoint(x, y), size});
    x += size.width() + spacing();
    rowHeight = std::max(rowHeight, size.height());
  }
  return y + rowHeight - room.y();
}

}  // namespace desktop
