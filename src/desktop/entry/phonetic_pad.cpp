#include "desktop/entry/phonetic_pad.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QWidgetAction>

#include "base/text.h"
#include "catalogue/label.h"
#include "entry/phonetic.h"

namespace desktop {
namespace {

constexpr int columns = 14;

}  // namespace

QWidget* phoneticPad(Editor& editor, QLineEdit& box) {
  auto* opener = new QToolButton(&editor.dialog);
  name(*opener, "PhoneticButtons", editor.face.caption(label::wizard_phonetic_font));
  opener->setText("ə ʃ ŋ");
  opener->setToolTip(editor.face.caption(label::wizard_phonetic_font));
  opener->setPopupMode(QToolButton::InstantPopup);
  auto* menu = new QMenu(opener);
  auto* pad = new QWidget(menu);
  auto* grid = new QGridLayout(pad);
  grid->setSpacing(1);
  int place = 0;
  for (const std::string& character : entry::phoneticCharacters(editor.face.session())) {
    auto* button = new QToolButton(pad);
    button->setText(qt(character));
    button->setAccessibleName(qt(character));
    button->setFont(box.font());
    button->setAutoRaise(true);
    // The box keeps the cursor: a click on a button must not take the focus.
    button->setFocusPolicy(Qt::TabFocus);
    QObject::connect(button, &QToolButton::clicked, &box, [&box, character, editor] {
      box.insert(qt(character));
      editor.form.pronunciationBox = box.text().toStdString();
    });
    grid->addWidget(button, place / columns, place % columns);
    ++place;
  }
  auto* action = new QWidgetAction(menu);
  action->setDefaultWidget(pad);
  menu->addAction(action);
  opener->setMenu(menu);
  return opener;
}

}  // namespace desktop
