#include "desktop/shell/choose_type.h"

#include <QCommandLinkButton>

#include "catalogue/label.h"

namespace desktop {
namespace {

struct Panel {
  int number, caption, explanation;
};
constexpr Panel panels[] = {{1, label::type_dictionary, label::type_dictionary_hint},
                            {0, label::type_link_collection, label::type_link_collection_hint},
                            {2, label::type_blog, label::type_blog_hint}};

}  // namespace

void buildChooseType(Dialog& dialog, frame::frmChooseDBType& form) {
  dialog.showTitle(label::choose_type_title);
  dialog.close = [&form, &dialog] {
    frame::cancel(form);
    dialog.finish();
  };
  auto* column = new QVBoxLayout(&dialog);
  for (const Panel& panel : panels) {
    auto* button = new QCommandLinkButton(dialog.face.caption(panel.caption),
                                          dialog.face.caption(panel.explanation), &dialog);
    button->setObjectName("Panel_" + QString::number(panel.number));
    QObject::connect(button, &QCommandLinkButton::clicked, &dialog, [&form, &dialog, number = panel.number] {
      dialog.face.run([&] {
        frame::choosePanel(form, number);
        dialog.finish();
      });
    });
    column->addWidget(button);
  }
  column->addStretch(1);
  column->addLayout(dialog.buttonRow({}, {&dialog.face.button("Cancel", label::cancel, dialog.close)}));
  dialog.resize(520, 320);
}

}  // namespace desktop
