#include "desktop/shell/splash.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/kit/text.h"
#include "shell/session/start.h"
#include "shell/session/texts.h"

namespace desktop {
namespace {

constexpr QColor subtitleColour(114, 196, 121);
constexpr int below = 50, right = 150;  // of the copyright line, from the picture's edges

}  // namespace

Splash::Splash(Application& app)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      picture_(560, 300),
      logo_(qt(session::shippedPath(app.session, "Images/VC_logo.jpg"))),
      subtitle_(qt(session::labelText(app.session, label::splash_subtitle))),
      copyright_("© 2026 Vocarium") {
  setObjectName("frmStart");
  // The ground goes on where the logo's ends.
  picture_.fill(logo_.isNull() ? QColor(23, 58, 51) : logo_.toImage().pixelColor(0, 0));
  setFixedSize(picture_.size());
  if (const QScreen* screen = QGuiApplication::primaryScreen())
    move(screen->geometry().center() - rect().center());
}

void Splash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.drawPixmap(0, 0, picture_);
  painter.drawPixmap((width() - logo_.width()) / 2, 50, logo_);
  QFont font = painter.font();
  font.setPointSizeF(font.pointSizeF() * 1.3);
  painter.setFont(font);
  painter.setPen(subtitleColour);
  painter.drawText(QRect(0, 180, width(), 30), Qt::AlignCenter, subtitle_);
  painter.setPen(Qt::white);
  const QPoint place(width() - right, height() - below);
  if (rect().contains(place)) painter.drawText(place, copyright_);
}

}  // namespace desktop
