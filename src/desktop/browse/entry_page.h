#pragma once

#include <QTextBrowser>
#include <functional>

#include "browse/display.h"

namespace desktop {

/// The web view: shows the written page, its pictures and style sheet from beside it.
class EntryPage : public QTextBrowser {
 public:
  explicit EntryPage(QWidget* parent);
  /// Shows the page of an entry, unless it is the one of that version already.
  void open(const browse::EntryDisplay& display, int version);
  /// A double click on a picture of the page, by its address there.
  std::function<void(const QString& address)> pictureActivated;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  QTextImageFormat pictureAt(const QPoint& point) const;

  QString shown_;  ///< path of the page
  int version_ = -1;
};

}  // namespace desktop
