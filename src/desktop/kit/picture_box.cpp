#include "desktop/kit/picture_box.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace desktop {
namespace {

/// The one file that is dragged; empty for anything else.
QString fileOf(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QScrollArea(parent), shown_(new QLabel) {
  shown_->setAlignment(Qt::AlignCenter);
  shown_->setTextFormat(Qt::PlainText);
  shown_->setWordWrap(true);
  setAlignment(Qt::AlignCenter);
  setWidget(shown_);
  viewport()->setAcceptDrops(true);
}

void PictureBox::show(QImage picture, const QString& text) {
  picture_ = std::move(picture);
  shown_->setPixmap({});
  shown_->setText(text);
  place();
}

void PictureBox::setZoom(int percent) {
  if (zoom_ == percent) return;
  zoom_ = percent;
  place();
}

void PictureBox::place() {
  // The room without scroll bars, so that they do not come and go by turns.
  const QSize room = maximumViewportSize();
  if (picture_.isNull()) {
    shown_->resize(room);
    return;
  }
  const qreal dots = devicePixelRatioF();
  const QSize natural = (QSizeF(picture_.size()) / dots).toSize();
  QSize fitting = natural;
  if (natural.width() > room.width() || natural.height() > room.height())
    fitting = natural.scaled(room, Qt::KeepAspectRatio);
  const QSize wanted = (fitting * (zoom_ / 100.0)).expandedTo({1, 1});
  QPixmap drawn =
      QPixmap::fromImage(picture_.scaled(wanted * dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  drawn.setDevicePixelRatio(dots);
  shown_->setPixmap(drawn);
  shown_->resize(wanted);
}

QSize PictureBox::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 12};
}

QSize PictureBox::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 16, fontMetrics().height() * 5};
}

void PictureBox::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  place();
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
  if (activated && !picture_.isNull())
    activated();
  else
    QScrollArea::mouseDoubleClickEvent(event);
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (picture_.isNull())
    QScrollArea::keyPressEvent(event);
  else if (enter && activated)
    activated();
  else if (event->key() == Qt::Key_Delete && removed)
    removed();
  else
    QScrollArea::keyPressEvent(event);
}

void PictureBox::wheelEvent(QWheelEvent* event) {
  constexpr int notch = 120;
  if (zoomed && (event->modifiers() & Qt::ControlModifier) != 0)
    zoomed(event->angleDelta().y() / notch);
  else
    QScrollArea::wheelEvent(event);
}

void PictureBox::dragEnterEvent(QDragEnterEvent* event) {
  if (dropped && !fileOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void PictureBox::dragMoveEvent(QDragMoveEvent* event) {
  event->acceptProposedAction();
}

void PictureBox::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  const std::string path = fileOf(*event->mimeData()).toStdString();
  // The program that the file comes from waits until the drop is over; a question may come first here.
  QMetaObject::invokeMethod(
      this, [this, path] { dropped(path); }, Qt::QueuedConnection);
}

}  // namespace desktop
