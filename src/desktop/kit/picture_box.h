#pragma once

#include <QImage>
#include <QScrollArea>
#include <functional>
#include <string>

class QLabel;

namespace desktop {

/// Shows a picture: as a whole, with its sides' ratio kept and never larger than it is, or enlarged, with
/// scroll bars.
class PictureBox : public QScrollArea {
 public:
  explicit PictureBox(QWidget* parent);

  /// Shows a picture; where it is null `text` takes its place.
  void show(QImage picture, const QString& text);
  /// Of the size in which the picture fits, in percent, from 100.
  void setZoom(int percent);

  std::function<void()> activated;                       ///< double click or Enter, on a picture
  std::function<void()> removed;                         ///< the key Delete, on a picture
  std::function<void(int steps)> zoomed;                 ///< the wheel with Ctrl
  std::function<void(const std::string& path)> dropped;  ///< empty: files can not be dropped

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void place();

  QLabel* shown_;
  QImage picture_;
  int zoom_ = 100;
};

}  // namespace desktop
