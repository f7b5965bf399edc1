#pragma once

#include <QLabel>

namespace desktop {

/// A line of text that shares what room there is: it breaks where it has to, within a word as well, and
/// never makes its window wider.
class Heading : public QLabel {
 public:
  explicit Heading(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Lays the text out in lines and returns their height; draws them where there is a painter.
  int place(int width, QPainter* painter) const;
};

}  // namespace desktop
