#include "desktop/kit/heading.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace desktop {

Heading::Heading(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize Heading::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 30, fontMetrics().height()};
}

QSize Heading::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 4, fontMetrics().height()};
}

int Heading::heightForWidth(int width) const {
  return std::max(place(width, nullptr), fontMetrics().height());
}

void Heading::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  place(width(), &painter);
}

int Heading::place(int width, QPainter* painter) const {
  QTextLayout layout(text(), font());
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(layoutDirection());
  option.setAlignment(layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
  layout.setTextOption(option);
  layout.beginLayout();
  qreal height = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  if (painter != nullptr) layout.draw(painter, {0, 0});
  return static_cast<int>(std::ceil(height));
}

}  // namespace desktop
