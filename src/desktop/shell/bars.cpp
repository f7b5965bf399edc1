// The toolbar and the project bar of the frame.

#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>

#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/kit/icon.h"
#include "desktop/kit/text.h"
#include "desktop/shell/commands.h"
#include "desktop/shell/main_window.h"
#include "shell/session/start.h"
#include "shell/session/texts.h"

namespace desktop {
namespace {

/// The toolbar in the order of its documented numbers: each button does what a menu item does.
constexpr const char* toolButtons[16] = {
    "mnuProperties",  "mnuSubjects",   "mnuNewEntry",    "mnuAutomatic",
    "mnuSearchEntry", "mnuGoto",       "mnuStatistic",   "mnuVocariumConfig",
    "mnuNewSubEntry", "mnuEditEntry",  "mnuDeleteEntry", "mnuRelinkEntry",
    "mnuPrintToHTML", "mnuPrintToXML", "mnuPrintToFile", "mnuPrintToRSS"};
/// Their places from left to right; -1 is a gap.
constexpr int toolOrder[] = {2, 8, 9, 10, 11, -1, 5, 4, -1, 0, 1, 3, -1, 12, 13, 14, 15, -1, 6, 7};

QString withoutAccelerator(const QString& caption) {
  QString text = spoken(caption);
  text.remove(" ...");
  return text;
}

}  // namespace

void MainWindow::buildToolBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName("SSCommand2");
  bar->setMovable(false);
  bar->setIconSize(QSize(24, 24));
  for (const int index : toolOrder) {
    if (index < 0) {
      bar->addSeparator();
      continue;
    }
    const std::string item = toolButtons[index];
    QAction* action = actions_.at(item);
    auto* button = new QToolButton(bar);
    button->setObjectName("SSCommand2_" + QString::number(index));
    button->setIcon(icon(app_.session, item));
    button->setAutoRaise(true);
    button->setToolTip(withoutAccelerator(action->text()));
    button->setAccessibleName(withoutAccelerator(action->text()));
    button->setEnabled(action->isEnabled());
    QObject::connect(button, &QToolButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::changed, button,
                     [button, action] { button->setEnabled(action->isEnabled()); });
    bar->addWidget(button);
  }
  addToolBar(bar);
}

void MainWindow::buildProjectBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName("ProjectBar");
  bar->setMovable(false);
  projectBar_ = new QWidget(bar);
  auto* row = new QHBoxLayout(projectBar_);
  row->setContentsMargins(6, 2, 6, 2);
  dictionaries_ = new QComboBox(projectBar_);
  dictionaries_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  name(*dictionaries_, "DictionaryList", qt(session::labelText(app_.session, label::dictionary)));
  flagFrom_ = new QLabel(projectBar_);
  languages_ = new QLabel(projectBar_);
  flagTo_ = new QLabel(projectBar_);
  description_ = new QLabel(projectBar_);
  description_->setTextFormat(Qt::PlainText);
  row->addWidget(dictionaries_);
  row->addSpacing(12);
  row->addWidget(flagFrom_);
  row->addWidget(languages_);
  row->addWidget(flagTo_);
  row->addSpacing(12);
  row->addWidget(description_, 1);
  projectBar_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(projectBar_);
  addToolBarBreak();
  addToolBar(bar);
  QObject::connect(dictionaries_, &QComboBox::activated, this, [this](int index) {
    app_.gate.run("frmMDI", [&] { app_.session.files.selectedDictionary = index; });
  });
}

void MainWindow::drawProjectBar() {
  const session::ProjectBar& bar = app_.session.shell.projectBar;
  projectBar_->parentWidget()->setVisible(bar.visible);
  if (!bar.visible) return;
  const auto& files = app_.session.files;
  QStringList names;
  for (const std::string& path : files.dictionaryList) names << qt(path).section('/', -1);
  dictionaries_->clear();
  dictionaries_->addItems(names);
  dictionaries_->setCurrentIndex(files.selectedDictionary);
  dictionaries_->setEnabled(names.size() > 1);
  languages_->setText(bar.from.empty() ? QString()
                                       : qt(bar.from) + (bar.to.empty() ? QString() : " → " + qt(bar.to)));
  description_->setText(qt(bar.description));
  const auto flag = [this](QLabel& place, const std::string& file) {
    const std::string path =
        file.empty() ? std::string() : session::shippedPath(app_.session, "flags/" + file);
    place.setPixmap(path.empty() ? QPixmap() : QPixmap(qt(path)));
    place.setVisible(!path.empty());
  };
  flag(*flagFrom_, bar.flagFrom);
  flag(*flagTo_, bar.flagTo);
}

}  // namespace desktop
