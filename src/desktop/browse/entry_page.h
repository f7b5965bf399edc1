#pragma once

#include <QTextBrowser>
#include <functional>

namespace desktop {

/// The web view: shows the written page, its pictures and style sheet from beside it.
class EntryPage : public QTextBrowser {
 public:
  explicit EntryPage(QWidget* parent);
  /// Reads the page anew; a file that is gone shows empty.
  void open(const QString& path);
  /// A double click on a picture of the page, by its address there.
  std::function<void(const QString& address)> pictureActivated;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QTextImageFormat pictureAt(const QPoint& point) const;

  QString shown_;
  QByteArray bytes_;
};

}  // namespace desktop
