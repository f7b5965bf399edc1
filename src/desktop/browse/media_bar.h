#pragma once

#include <QWidget>
#include <memory>

#include "browse/frmWoerter.h"
#include "desktop/kit/face.h"

class QSlider;

namespace desktop {

class PictureBox;

/// The picture of the entry on show with its zoom slider, and the button that plays its sound; hidden where
/// the entry has neither.
class MediaBar : public QWidget {
 public:
  MediaBar(Face& face, browse::frmWoerter& form, QWidget* parent);

 private:
  void buildPicture();
  void draw();

  Face& face_;
  browse::frmWoerter& form_;
  PictureBox* picture_ = nullptr;  ///< Image1
  QSlider* zoom_ = nullptr;
  QLabel* zoomLabel_ = nullptr;
  std::shared_ptr<const platform::Picture> shown_;
};

}  // namespace desktop
