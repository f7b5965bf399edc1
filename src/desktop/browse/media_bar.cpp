#include "desktop/browse/media_bar.h"

#include <QSlider>

#include "catalogue/label.h"
#include "desktop/kit/picture_box.h"
#include "platform/media/picture_files.h"

namespace desktop {
namespace {

constexpr int fits = 100, largest = 800, step = 25;  // percent

}  // namespace

MediaBar::MediaBar(Face& face, browse::frmWoerter& form, QWidget* parent)
    : QWidget(parent), face_(face), form_(form) {
  buildPicture();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(picture_, 1);
  auto* row = new QHBoxLayout;
  row->addWidget(zoomLabel_);
  row->addWidget(zoom_, 1);
  row->addStretch(1);
  row->addWidget(&face.button(
      "FullScreen", label::picture_full_screen, [this] { browse::Image1_DblClick(form_); },
      [this] { return !form_.display.picture.empty(); }));
  row->addWidget(&face.button(
      "PlaySound", label::sound_play, [this] { browse::playEntrySound(form_); },
      [this] { return !form_.display.sound.empty(); }));
  column->addLayout(row);
  face.onDraw([this] { draw(); });
}

void MediaBar::buildPicture() {
  picture_ = new PictureBox(this);
  name(*picture_, "Image1", face_.caption(label::picture));
  picture_->activated = [this] { face_.run([this] { browse::Image1_DblClick(form_); }); };
  picture_->zoomed = [this](int steps) { zoom_->setValue(zoom_->value() + steps * step); };
  zoom_ = new QSlider(Qt::Horizontal, this);
  name(*zoom_, "Slider1", face_.caption(label::picture_zoom));
  zoom_->setRange(fits, largest);
  zoom_->setSingleStep(step);
  zoom_->setPageStep(2 * step);
  zoomLabel_ = &face_.label(label::picture_zoom);
  zoomLabel_->setBuddy(zoom_);
  QObject::connect(zoom_, &QSlider::valueChanged, this, [this](int percent) {
    picture_->setZoom(percent);
    zoom_->setToolTip(QString("%1 %").arg(percent));
  });
}

void MediaBar::draw() {
  const browse::EntryDisplay& display = form_.display;
  const bool hasPicture = display.Image1 != nullptr;
  if (display.Image1 != shown_ || !display.pictureFailure.empty()) {
    shown_ = display.Image1;
    zoom_->setValue(fits);
    picture_->show(hasPicture ? platform::media::toQImage(*shown_) : QImage(), qt(display.pictureFailure));
  }
  picture_->setVisible(hasPicture || !display.pictureFailure.empty());
  zoom_->setVisible(hasPicture);
  zoomLabel_->setVisible(hasPicture);
  setMaximumHeight(picture_->isVisibleTo(this) ? QWIDGETSIZE_MAX : sizeHint().height());
  setVisible(!display.picture.empty() || !display.sound.empty());
}

}  // namespace desktop
