#include "desktop/entry/media_windows.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include "catalogue/label.h"
#include "platform/media/picture_files.h"

namespace desktop {
namespace {

/// The black screen with the picture in it.
class Screen : public QWidget {
 public:
  Screen(Dialog& dialog, entry::frmVollBild& form) : QWidget(&dialog), dialog_(dialog), form_(form) {
    name(*this, "Image1", dialog.face.caption(label::picture));
    setFocusPolicy(Qt::StrongFocus);
    dialog.face.onDraw([this] {
      const entry::frmVollBild::Place& place = form_.Image1;
      image_ = {};
      if (!form_.Picture2.empty())
        image_ = platform::media::toQImage(form_.Picture2)
                     .scaled(place.width, place.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
      image_.setDevicePixelRatio(devicePixelRatioF());
      update();
    });
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (image_.isNull()) return;
    const qreal dots = devicePixelRatioF();
    painter.drawImage(QPointF(form_.Image1.left / dots, form_.Image1.top / dots), image_);
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Left)
      turn(entry::key::left);
    else if (event->key() == Qt::Key_Right)
      turn(entry::key::right);
    else
      QWidget::keyPressEvent(event);
  }
  void mouseDoubleClickEvent(QMouseEvent*) override { dialog_.close(); }

 private:
  void turn(int key) {
    dialog_.face.run([&] { entry::Form_KeyDown(form_, key); });
  }

  Dialog& dialog_;
  entry::frmVollBild& form_;
  QImage image_;
};

/// The keys, told at the lower edge for the first seconds.
void tellKeys(Dialog& dialog, Screen& screen) {
  constexpr int shownFor = 4000;  // milliseconds
  auto* keys = new QLabel(dialog.face.caption(label::full_screen_keys), &screen);
  keys->setObjectName("Keys");
  keys->setStyleSheet("color: white; background: rgba(0, 0, 0, 160); padding: 8px; border-radius: 6px;");
  auto* column = new QVBoxLayout(&screen);
  column->addStretch(1);
  column->addWidget(keys, 0, Qt::AlignHCenter);
  QTimer::singleShot(shownFor, keys, &QWidget::hide);
}

}  // namespace

void buildVollBild(Dialog& dialog, entry::frmVollBild& form) {
  dialog.showTitle(label::picture);
  const QScreen& screen =
      *(dialog.parentWidget() != nullptr ? dialog.parentWidget()->screen() : dialog.screen());
  const QSize dots = (QSizeF(screen.size()) * screen.devicePixelRatio()).toSize();
  dialog.start = [&form, dots] {
    form.screenWidth = dots.width();
    form.screenHeight = dots.height();
    entry::BildAnzeigen(form);
  };
  dialog.isOpen = [&form] { return form.visible; };
  dialog.close = [&form] { entry::Form_KeyDown(form, entry::key::escape); };
  dialog.setSizeGripEnabled(false);
  dialog.keepsPlace = false;
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(0, 0, 0, 0);
  auto* picture = new Screen(dialog, form);
  column->addWidget(picture);
  tellKeys(dialog, *picture);
  dialog.setGeometry(screen.geometry());
  dialog.setWindowState(Qt::WindowFullScreen);
}

void buildSoundInfo(Dialog& dialog, entry::frmSoundInfo& form) {
  dialog.showTitle(label::sound_info_title);
  Face& face = dialog.face;
  QLabel& device = face.shown("Device", [&form] { return form.device; });
  device.setWordWrap(true);
  device.setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* head = new QHBoxLayout;
  head->addWidget(&face.label(label::sound_info_device));
  head->addWidget(&device, 1);
  Grid& formats = face.grid("Formats", label::sound_info_title);
  formats.setHeads({face.caption(label::sound_info_format), face.caption(label::sound_info_supported)});
  face.onDraw([&form, &formats] {
    Grid::Rows rows;
    for (const entry::frmSoundInfo::Line& line : form.formats)
      rows.push_back({line.text, line.supported ? "✓" : "–"});
    formats.setRows(rows);
  });
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(head);
  column->addWidget(&formats, 1);
  column->addLayout(dialog.buttonRow({}, {&dialog.closeButton()}));
  dialog.resize(460, 480);
}

}  // namespace desktop
