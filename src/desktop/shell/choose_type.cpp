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

std::unique_ptr<Dialog> makeChooseType(Gate& gate, QWidget* parent, frame::frmChooseDBType& form) {
  auto dialog = std::make_unique<Dialog>(gate, parent, form.formName, label::choose_type_title);
  Dialog* shown = dialog.get();
  shown->close = [&form, shown] {
    frame::cancel(form);
    shown->finish();
  };
  auto* column = new QVBoxLayout(shown);
  for (const Panel& panel : panels) {
    auto* button = new QCommandLinkButton(shown->face.caption(panel.caption),
                                          shown->face.caption(panel.explanation), shown);
    button->setObjectName("Panel_" + QString::number(panel.number));
    QObject::connect(button, &QCommandLinkButton::clicked, shown, [&form, shown, number = panel.number] {
      shown->face.run([&] {
        frame::choosePanel(form, number);
        shown->finish();
      });
    });
    column->addWidget(button);
  }
  column->addStretch(1);
  column->addLayout(shown->buttonRow({}, {&shown->face.button("Cancel", label::cancel, shown->close)}));
  shown->resize(520, 320);
  return dialog;
}

}  // namespace desktop
