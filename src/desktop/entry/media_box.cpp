#include "desktop/entry/media_box.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QProgressBar>
#include <QTimer>

#include "catalogue/label.h"
#include "desktop/kit/picture_box.h"
#include "entry/frmVollBild.h"
#include "entry/pictures.h"
#include "entry/sound.h"
#include "platform/media/picture_files.h"

namespace desktop {
namespace {

PictureBox& buildPicture(Editor editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  auto* box = new PictureBox(&editor.dialog);
  name(*box, "Picture1", face.caption(label::picture));
  box->activated = [&face, &form] {
    face.run([&] { entry::showFullScreen(form.session, form.record.Bild); });
  };
  box->removed = [&face, &form] { face.run([&] { entry::DeletePicture(form); }); };
  box->dropped = [&face, &form](const std::string& path) {
    face.run([&] { entry::dropPicture(form, path); });
  };
  face.onDraw([&face, &form, box, version = -1]() mutable {
    if (version == form.picture.version) return;
    version = form.picture.version;
    const platform::Picture& picture = form.picture.Lead1;
    box->show(picture.empty() ? QImage() : platform::media::toQImage(picture),
              face.caption(label::picture_none));
  });
  return *box;
}

QLayout* buildPictureButtons(Editor editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  auto* grid = new QGridLayout;
  grid->addWidget(&face.button("Command4", label::picture_open, [&form] { entry::Command4(form); }), 0, 0);
  grid->addWidget(&face.button("SSCommand14", label::picture_paste, [&form] { entry::SSCommand14(form); }), 0,
                  1);
  grid->addWidget(&face.button("ScanPicture", label::picture_scan,
                               [&form] {
                                 if (entry::ScanPicture(form)) entry::SavePicture(form);
                               }),
                  1, 0);
  grid->addWidget(&face.button(
                      "DeletePicture", label::picture_delete, [&form] { entry::DeletePicture(form); },
                      [&form] { return form.picture.deleteEnabled; }),
                  1, 1);
  grid->addWidget(&face.button(
                      "FullScreen", label::picture_full_screen,
                      [&form] { entry::showFullScreen(form.session, form.record.Bild); },
                      [&form] { return form.picture.zoomEnabled; }),
                  2, 0, 1, 2);
  return grid;
}

QLayout* buildSoundButtons(Editor editor) {
  Face& face = editor.face;
  entry::frmEintrag& form = editor.form;
  const auto button = [&](const char* objectName, int caption, int index, const bool& enabled) {
    return &face.button(
        objectName, caption, [&form, index] { entry::SSCommand9(form, index); },
        [&enabled] { return enabled; });
  };
  auto* row = new QHBoxLayout;
  row->addWidget(button("SSCommand9_0", label::sound_record, entry::recordButton, form.sound.recordEnabled));
  row->addWidget(button("SSCommand9_1", label::sound_stop, entry::stopButton, form.sound.stopEnabled));
  row->addWidget(button("SSCommand9_2", label::sound_play, entry::playButton, form.playEnabled));
  return row;
}

/// The bar that moves while a recording runs.
QProgressBar& buildProgress(Editor editor) {
  constexpr int interval = 100;  // milliseconds
  auto* bar = new QProgressBar(&editor.dialog);
  name(*bar, "ProgressBar1", editor.face.caption(label::recording));
  bar->setTextVisible(false);
  // It keeps its place while it is hidden, or the buttons would move under the mouse.
  QSizePolicy policy = bar->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  bar->setSizePolicy(policy);
  auto* timer = new QTimer(&editor.dialog);
  timer->setObjectName("Timer2");
  timer->setInterval(interval);
  // It moves nothing but the bar: the other windows need not be drawn behind it.
  QObject::connect(timer, &QTimer::timeout, &editor.dialog, [editor, bar] {
    if (editor.face.gate().isBusy()) return;
    entry::Timer2_Timer(editor.form);
    bar->setValue(editor.form.sound.progress);
  });
  editor.face.onDraw([&form = editor.form, bar, timer] {
    bar->setVisible(form.sound.progressShown);
    bar->setValue(form.sound.progress);
    if (form.sound.Timer2 != timer->isActive()) form.sound.Timer2 ? timer->start() : timer->stop();
  });
  return *bar;
}

}  // namespace

QWidget* mediaBox(Editor& editor) {
  auto* box = new QGroupBox(editor.face.caption(label::tab_media), &editor.dialog);
  box->setObjectName("MediaBox");
  auto* column = new QVBoxLayout(box);
  column->addWidget(&buildPicture(editor), 1);
  column->addLayout(buildPictureButtons(editor));
  column->addLayout(buildSoundButtons(editor));
  column->addWidget(&buildProgress(editor));
  return box;
}

}  // namespace desktop
