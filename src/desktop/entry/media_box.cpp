#include "desktop/entry/media_box.h"

#include <QGroupBox>

namespace desktop {

QWidget* mediaBox(Editor& editor) {
  auto* box = new QGroupBox(editor.face.caption(label::tab_media), &editor.dialog);
  box->setObjectName("MediaBox");
  box->hide();
  return box;
}

}  // namespace desktop
