#include <QGridLayout>
#include <QKeyEvent>
#include <array>

#include "catalogue/label.h"
#include "desktop/entry/entry_windows.h"

namespace desktop {
namespace {

using entry::frmFastEntry;
constexpr std::size_t columns = 4;
using Boxes = std::array<std::array<QLineEdit*, columns>, entry::fastRows>;

/// Arrows and Enter go to the form, which says where the focus moves.
class Keys : public QObject {
 public:
  Keys(Face& face, frmFastEntry& form, const Boxes& boxes, QObject* parent)
      : QObject(parent), face_(face), form_(form), boxes_(boxes) {
    for (const auto& row : boxes_)
      for (QLineEdit* box : row) box->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) note(object);
    if (event->type() != QEvent::KeyPress) return false;
    entry::FastKey pressed;
    switch (static_cast<QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
        pressed = entry::FastKey::up;
        break;
      case Qt::Key_Down:
        pressed = entry::FastKey::down;
        break;
      case Qt::Key_Return:
      case Qt::Key_Enter:
        pressed = entry::FastKey::enter;
        break;
      default:
        return false;
    }
    face_.run([&] { entry::TextBox_KeyDown(form_, pressed); });
    return true;
  }

 private:
  void note(const QObject* object) {
    for (std::size_t row = 0; row < boxes_.size(); ++row)
      for (std::size_t column = 0; column < columns; ++column)
        if (boxes_[row][column] == object) {
          form_.focusRow = row;
          form_.focusColumn = column;
        }
  }

  Face& face_;
  frmFastEntry& form_;
  Boxes boxes_;
};

}  // namespace

void buildFastEntry(Dialog& dialog, frmFastEntry& form) {
  dialog.showTitle(label::fast_entry_title);
  Face& face = dialog.face;
  auto* grid = new QGridLayout;
  grid->addWidget(&face.label(label::headword), 0, 0);
  const std::array<frmFastEntry::Boxes*, columns> texts = {&form.TextBox1, &form.TextBox2, &form.TextBox3,
                                                           &form.TextBox4};
  session::Session& s = face.session();
  Boxes boxes{};
  for (std::size_t column = 0; column < columns; ++column) {
    const bool fromRight = column == 0 ? sourceFromRight(s) : targetFromRight(s);
    if (column > 0 && form.meaningsShown)
      grid->addWidget(new QLabel(qt(form.columnHeads[column - 1]), &dialog), 0, static_cast<int>(column));
    for (std::size_t row = 0; row < entry::fastRows; ++row) {
      const std::string objectName = "TextBox" + std::to_string(column + 1) + "_" + std::to_string(row);
      QLineEdit& box = face.line(objectName.c_str(), column == 0 ? label::headword : label::meaning,
                                 (*texts[column])[row]);
      box.setFont(fontNamed(column == 0 ? s.project.FontFrom : s.project.FontTo));
      setDirection(box, fromRight);
      box.setVisible(column == 0 || form.meaningsShown);
      boxes[row][column] = &box;
      if (column == 0 || form.meaningsShown)
        grid->addWidget(&box, static_cast<int>(row) + 1, static_cast<int>(column));
    }
  }
  // Tab goes along the rows, not down the columns in which the boxes were made.
  QWidget* before = boxes[0][0];
  for (const auto& row : boxes)
    for (QLineEdit* box : row) {
      if (box != before) QWidget::setTabOrder(before, box);
      before = box;
    }
  new Keys(face, form, boxes, &dialog);
  QLabel& status = face.shown("StatusLabel", [&form] { return form.statusLabel; });
  QPushButton& save = face.button("Command3", label::save, [&form] { entry::Command3(form); });
  // What the form says is followed out of the boxes and from the save button, not from what else was chosen.
  face.onDraw([&form, boxes, &save, last = static_cast<QLineEdit*>(nullptr)]() mutable {
    QLineEdit* box = boxes[form.focusRow][form.focusColumn];
    if (box != last || save.hasFocus()) box->setFocus();
    last = box;
  });
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(grid);
  column->addStretch(1);
  column->addWidget(&face.check("Check1", label::fast_entry_check, form.Check1));
  column->addLayout(dialog.buttonRow({&status}, {&save, &dialog.closeButton()}));
  dialog.resize(form.meaningsShown ? 860 : 460, 460);
}

}  // namespace desktop
