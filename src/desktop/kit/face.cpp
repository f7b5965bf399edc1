#include "desktop/kit/face.h"

#include <QSignalBlocker>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "desktop/kit/cells.h"
#include "shell/session/texts.h"

namespace desktop {
namespace {

int indexOf(const std::vector<std::string>& items, const std::string& item) {
  const auto found = std::find(items.begin(), items.end(), item);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

template <class Control>
bool shows(const Control& control, const std::vector<std::string>& items,
           QString (*textAt)(const Control&, int)) {
  if (control.count() != static_cast<int>(items.size())) return false;
  for (int row = 0; row < control.count(); ++row)
    if (textAt(control, row) != qt(items[static_cast<std::size_t>(row)])) return false;
  return true;
}

QStringList texts(const std::vector<std::string>& items) {
  QStringList list;
  for (const std::string& item : items) list << qt(item);
  return list;
}

}  // namespace

Face::Face(Gate& gate, QWidget& window, std::string formName)
    : gate_(gate), window_(window), formName_(std::move(formName)) {
  window_.setObjectName(qt(formName_));
  id_ = gate_.addWindow(formName_, [this] { draw(); });
}

Face::~Face() {
  gate_.removeWindow(id_);
}

QString Face::caption(int label) const {
  return qt(session::labelText(gate_.session(), label));
}

void Face::draw() {
  for (const Operation& step : steps_) step();
}

QLabel& Face::label(int key) {
  auto* made = new QLabel(caption(key), &window_);
  made->setTextFormat(Qt::PlainText);
  return *made;
}

QLabel& Face::shown(const char* objectName, std::function<std::string()> text) {
  auto* made = new QLabel(&window_);
  made->setObjectName(objectName);
  made->setTextFormat(Qt::PlainText);
  onDraw([made, text = std::move(text)] { made->setText(qt(text())); });
  return *made;
}

QLineEdit& Face::line(const char* objectName, int key, std::string& text, TextOperation changed) {
  auto* box = new QLineEdit(&window_);
  name(*box, objectName, caption(key));
  onDraw([box, &text] { showText(*box, text); });
  QObject::connect(box, &QLineEdit::textEdited,
                   [this, &text, changed = std::move(changed)](const QString& typed) {
                     if (gate_.isBusy()) return;
                     if (changed)
                       run([&] { changed(typed.toStdString()); });
                     else
                       text = typed.toStdString();
                   });
  return *box;
}

QPlainTextEdit& Face::memo(const char* objectName, int key, std::string& text, TextOperation changed) {
  auto* box = new QPlainTextEdit(&window_);
  name(*box, objectName, caption(key));
  box->setTabChangesFocus(true);
  onDraw([box, &text] { showText(*box, text); });
  QObject::connect(box, &QPlainTextEdit::textChanged, [this, box, &text, changed = std::move(changed)] {
    if (gate_.isBusy()) return;
    const std::string typed = box->toPlainText().replace("\n", "\r\n").toStdString();
    if (changed)
      run([&] { changed(typed); });
    else
      text = typed;
  });
  return *box;
}

QCheckBox& Face::check(const char* objectName, int key, bool& on, Operation changed) {
  auto* box = new QCheckBox(caption(key), &window_);
  name(*box, objectName, caption(key));
  onDraw([box, &on] { box->setChecked(on); });
  QObject::connect(box, &QCheckBox::clicked, [this, &on, changed = std::move(changed)](bool ticked) {
    run([&] {
      on = ticked;
      if (changed) changed();
    });
  });
  return *box;
}

QPushButton& Face::button(const char* objectName, int key, Operation operation, Condition enabled) {
  auto* made = new QPushButton(caption(key), &window_);
  name(*made, objectName, caption(key));
  made->setAutoDefault(false);
  if (enabled) onDraw([made, enabled = std::move(enabled)] { made->setEnabled(enabled()); });
  QObject::connect(made, &QPushButton::clicked, [this, operation = std::move(operation)] { run(operation); });
  return *made;
}

QRadioButton& Face::radio(const char* objectName, int key, Condition on, Operation chosen) {
  auto* made = new QRadioButton(caption(key), &window_);
  name(*made, objectName, caption(key));
  onDraw([made, on = std::move(on)] { made->setChecked(on()); });
  QObject::connect(made, &QRadioButton::clicked, [this, chosen = std::move(chosen)] { run(chosen); });
  return *made;
}

QComboBox& Face::combo(const char* objectName, int key, std::function<std::vector<std::string>()> items,
                       std::function<std::string()> current, TextOperation chosen) {
  auto* box = new QComboBox(&window_);
  name(*box, objectName, caption(key));
  onDraw([box, items = std::move(items), current = std::move(current)] {
    const std::vector<std::string> wanted = items();
    const auto textAt = [](const QComboBox& each, int row) { return each.itemText(row); };
    if (!shows<QComboBox>(*box, wanted, textAt)) {
      box->clear();
      box->addItems(texts(wanted));
    }
    box->setCurrentIndex(indexOf(wanted, current()));
  });
  QObject::connect(box, &QComboBox::textActivated, [this, chosen = std::move(chosen)](const QString& text) {
    run([&] { chosen(text.toStdString()); });
  });
  return *box;
}

QListWidget& Face::list(const char* objectName, int key, std::function<std::vector<std::string>()> items,
                        std::function<int()> current, std::function<void(int)> selected) {
  auto* box = new QListWidget(&window_);
  name(*box, objectName, caption(key));
  box->setUniformItemSizes(true);
  box->setItemDelegate(new Cells(box));
  onDraw([box, items = std::move(items), current = std::move(current)] {
    const std::vector<std::string> wanted = items();
    const auto textAt = [](const QListWidget& each, int row) { return each.item(row)->text(); };
    if (!shows<QListWidget>(*box, wanted, textAt)) {
      box->clear();
      box->addItems(texts(wanted));
    }
    if (const int row = current ? current() : box->currentRow(); row >= 0)
      box->setCurrentRow(row);
    else
      box->setCurrentIndex({});  // otherwise the focus alone chooses the first row
  });
  if (selected)
    QObject::connect(box, &QListWidget::currentRowChanged, [this, selected = std::move(selected)](int row) {
      if (row >= 0) run([&] { selected(row); });
    });
  return *box;
}

Grid& Face::grid(const char* objectName, int key) {
  auto* made = new Grid(&window_);
  name(*made, objectName, caption(key));
  return *made;
}

QHBoxLayout* Face::labelled(int key, QWidget& control) {
  auto* row = new QHBoxLayout;
  QLabel& text = label(key);
  text.setBuddy(&control);
  row->addWidget(&text);
  row->addWidget(&control, 1);
  return row;
}

QVBoxLayout* Face::below(int key, QWidget& control) {
  auto* column = new QVBoxLayout;
  column->setSpacing(2);
  QLabel& text = label(key);
  text.setBuddy(&control);
  column->addWidget(&text);
  column->addWidget(&control, 1);
  return column;
}

}  // namespace desktop
