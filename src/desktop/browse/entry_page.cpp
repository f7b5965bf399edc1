#include "desktop/browse/entry_page.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <QTextBlock>
#include <algorithm>

#include "browse/page_html.h"
#include "desktop/kit/text.h"

namespace desktop {

EntryPage::EntryPage(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setAccessibleName("CurrentEntry.HTM");
  // The page and the author's style sheet are made for light paper, in a dark palette too.
  QPalette paper = palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  setPalette(paper);
}

void EntryPage::open(const browse::EntryDisplay& display, int version) {
  if (version == version_) return;
  version_ = version;
  shown_ = qt(display.page);
  document()->setBaseUrl(QUrl::fromLocalFile(shown_));
  setHtml(qt(browse::forStrictView(display.pageText, display.settings)));
}

void EntryPage::mouseDoubleClickEvent(QMouseEvent* event) {
  const QTextImageFormat picture = pictureAt(event->pos());
  if (picture.isValid() && pictureActivated)
    pictureActivated(picture.name());
  else
    QTextBrowser::mouseDoubleClickEvent(event);
}

QVariant EntryPage::loadResource(int, const QUrl& name) {
  // Paths of the page are plain, not addresses: one with a blank or "#" has to arrive whole.
  const QString path =
      QFileInfo(name.path()).isAbsolute() ? name.path() : name.toString(QUrl::PreferLocalFile);
  const QFileInfo file(QFileInfo(path).isAbsolute() ? path : QFileInfo(shown_).dir().filePath(path));
  QFile found(file.filePath());
  if (!file.isFile() || !found.open(QIODevice::ReadOnly)) return {};
  constexpr qint64 large = 500'000;  // bytes; what is smaller is decoded before anybody notices
  if (found.size() < large) return found.readAll();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const QImage picture = QImage::fromData(found.readAll());
  QApplication::restoreOverrideCursor();
  return picture.isNull() ? QVariant() : QVariant(picture);
}

/// The cursor nearest to a point stands before or behind the picture that lies there.
QTextImageFormat EntryPage::pictureAt(const QPoint& point) const {
  QTextCursor cursor = cursorForPosition(point);
  for (const int back : {0, 1}) {
    cursor.setPosition(std::max(0, cursor.position() - back));
    QTextCursor behind = cursor;
    behind.movePosition(QTextCursor::NextCharacter);
    if (behind.charFormat().isImageFormat()) return behind.charFormat().toImageFormat();
  }
  return {};
}

}  // namespace desktop
