#include "desktop/shell/about.h"

#include <QPixmap>

#include "catalogue/label.h"
#include "desktop/kit/dialog.h"
#include "shell/session/start.h"

namespace desktop {

void showAbout(Gate& gate, QWidget* parent) {
  const Gate::Nested nested(gate);
  Dialog dialog(gate, parent, "frmAbout");
  dialog.showTitle(label::about_title);
  dialog.helpTopic.clear();
  Face& face = dialog.face;
  auto* logo = new QLabel(&dialog);
  logo->setPixmap(QPixmap(qt(session::shippedPath(face.session(), "Images/VC_logo.jpg"))));
  logo->setAccessibleName("Vocarium");
  auto* text = new QLabel(face.caption(label::about_text), &dialog);
  text->setWordWrap(true);
  auto* version = new QLabel(face.caption(label::about_version) + " " + VOCARIUM_VERSION, &dialog);
  auto* site = new QLabel(face.caption(label::web_site_address), &dialog);
  site->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(logo);
  for (QWidget* each : {text, version, site}) column->addWidget(each);
  column->addStretch(1);
  column->addLayout(dialog.buttonRow({}, {&face.button("OK", label::ok, [&dialog] { dialog.finish(); })}));
  dialog.run();
}

}  // namespace desktop
