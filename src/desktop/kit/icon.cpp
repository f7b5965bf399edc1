#include "desktop/kit/icon.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include "desktop/kit/text.h"
#include "shell/session/start.h"

namespace desktop {
namespace {

QPixmap drawn(QByteArray svg, const QColor& colour) {
  svg.replace("currentColor", colour.name().toLatin1());
  QSvgRenderer renderer(svg);
  QPixmap picture(96, 96);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter);
  return picture;
}

}  // namespace

QIcon icon(const session::Session& s, const std::string& name) {
  QFile file(qt(session::shippedPath(s, "icons/" + name + ".svg")));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray svg = file.readAll();
  const QPalette palette = QApplication::palette();
  QIcon made;
  made.addPixmap(drawn(svg, palette.color(QPalette::Active, QPalette::ButtonText)));
  made.addPixmap(drawn(svg, palette.color(QPalette::Disabled, QPalette::ButtonText)), QIcon::Disabled);
  return made;
}

}  // namespace desktop
