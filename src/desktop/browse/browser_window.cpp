#include "desktop/browse/browser_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSplitter>
#include <QToolButton>

#include "browse/commands.h"
#include "catalogue/label.h"
#include "desktop/application.h"
#include "desktop/browse/display_panel.h"
#include "desktop/kit/flow.h"
#include "desktop/shell/main_window.h"

namespace desktop {
namespace {

constexpr const char* formName = "frmWoerter";

}  // namespace

BrowserWindow::BrowserWindow(Application& app, browse::frmWoerter& form)
    : app_(app), form_(form), face_(app.gate, *this, formName) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(buildLetters());
  auto* halves = new QSplitter(Qt::Horizontal, this);
  halves->addWidget(buildList());
  halves->addWidget(new DisplayPanel(app, face_, form));
  halves->setStretchFactor(0, 2);
  halves->setStretchFactor(1, 5);
  halves->setChildrenCollapsible(false);
  column->addWidget(halves, 1);
  setTabOrder(box_, words_);
  words_->setFocus();
  face_.onDraw([this] { draw(); });
}

BrowserWindow::~BrowserWindow() = default;

QWidget* BrowserWindow::buildLetters() {
  auto* bar = new QWidget(this);
  auto* row = new Flow(bar);
  const auto made = [&](const QString& caption, const char* objectName) {
    auto* button = new QToolButton(bar);
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setObjectName(objectName);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    row->addWidget(button);
    return button;
  };
  allLetters_ = made(face_.caption(label::all_letters), "AllLetters");
  QObject::connect(allLetters_, &QToolButton::clicked, this,
                   [this] { face_.run([this] { browse::allLettersButton(form_); }); });
  for (const std::string& letter : form_.letters) {
    QToolButton* button = made(qt(letter), "Letter");
    button->setObjectName("Letter_" + qt(letter));
    letters_.push_back(button);
    QObject::connect(button, &QToolButton::clicked, this, [this, index = letters_.size() - 1] {
      face_.run([&] { browse::letterButton(form_, index); });
    });
  }
  return bar;
}

QWidget* BrowserWindow::buildList() {
  auto* half = new QWidget(this);
  auto* column = new QVBoxLayout(half);
  column->setContentsMargins(0, 0, 0, 0);
  box_ = &face_.line("Text3", label::search_box, form_.Text3,
                     [this](const std::string& text) { browse::Text3_Change(form_, text); });
  box_->setClearButtonEnabled(true);
  box_->installEventFilter(this);
  column->addLayout(face_.labelled(label::search_box, *box_));

  words_ = new QListWidget(half);
  name(*words_, "List2", face_.caption(label::headword));
  words_->setUniformItemSizes(true);
  words_->setContextMenuPolicy(Qt::CustomContextMenu);
  words_->installEventFilter(this);
  QObject::connect(words_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0 && !app_.gate.isBusy()) face_.run([&] { browse::List2_Click(form_, row); });
  });
  QObject::connect(words_, &QListWidget::itemDoubleClicked, this, [this] { command(browse::mnuEditEntry); });
  QObject::connect(words_, &QListWidget::customContextMenuRequested, this, [this](const QPoint& at) {
    if (words_->itemAt(at) != nullptr) app_.window->entryMenu()->popup(words_->viewport()->mapToGlobal(at));
  });
  column->addWidget(words_, 1);

  auto* pages = new QHBoxLayout;
  const auto pageButton = [&](const char* objectName, Qt::ArrowType arrow, int caption, int index) {
    auto* button = new QToolButton(half);
    button->setObjectName(objectName);
    button->setArrowType(arrow);
    button->setToolTip(face_.caption(caption));
    button->setAccessibleName(face_.caption(caption));
    QObject::connect(button, &QToolButton::clicked, this,
                     [this, index] { face_.run([&] { browse::Command1(form_, index); }); });
    pages->addWidget(button);
    return button;
  };
  back_ = pageButton("PageBack", Qt::LeftArrow, label::page_back, 0);
  page_ = new QLabel(half);
  page_->setObjectName("PagePanel");
  page_->setAlignment(Qt::AlignCenter);
  pages->addWidget(page_, 1);
  forward_ = pageButton("PageForward", Qt::RightArrow, label::page_forward, 1);
  column->addLayout(pages);
  QLabel& count = face_.shown("CountLabel", [this] { return form_.countLabel; });
  count.setAlignment(Qt::AlignCenter);
  column->addWidget(&count);
  QLabel& filter = face_.shown("Label1", [this] { return browse::ShowFilterStatus(app_.frame.filter); });
  filter.setAlignment(Qt::AlignCenter);
  column->addWidget(&filter);
  return half;
}

void BrowserWindow::draw() {
  if (auto* window = qobject_cast<QMdiSubWindow*>(parentWidget())) window->setWindowTitle(qt(form_.caption));
  setWindowTitle(qt(form_.caption));
  drawList();
  drawLetters();
  back_->setEnabled(form_.backEnabled);
  forward_->setEnabled(form_.forwardEnabled);
  page_->setText(qt(form_.pageToolTip).section('\n', -1).trimmed());
  page_->setToolTip(qt(form_.pageToolTip));
}

void BrowserWindow::drawList() {
  const auto& texts = form_.list.List2;
  words_->setFont(fontNamed(app_.session.project.FontFrom));
  setDirection(*words_, form_.display.settings.RightToLeftFrom);
  bool same = words_->count() == static_cast<int>(texts.size());
  for (int row = 0; same && row < words_->count(); ++row)
    same = words_->item(row)->text() == qt(texts[static_cast<std::size_t>(row)]);
  if (!same) {
    const QSignalBlocker quiet(words_);
    words_->clear();
    for (const std::string& text : texts) words_->addItem(qt(text));
  }
  if (words_->currentRow() != form_.list.selected) {
    const QSignalBlocker quiet(words_);
    words_->setCurrentRow(form_.list.selected);
  }
  if (words_->currentItem() != nullptr) words_->scrollToItem(words_->currentItem());
}

void BrowserWindow::drawLetters() {
  const QString chosen = qt(form_.LetterSelection[0]);
  allLetters_->setChecked(chosen.isEmpty());
  for (QToolButton* button : letters_) button->setChecked(!chosen.isEmpty() && button->text() == chosen);
}

void BrowserWindow::command(bool (*run)(browse::frmWoerter&)) {
  face_.run([&] {
    app_.frame.active = &form_;
    frame::onActiveBrowser(app_.frame, run);
  });
}

void BrowserWindow::listKey(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      command(browse::mnuEditEntry);
      break;
    case Qt::Key_Delete:
      command(browse::mnuDeleteEntry);
      break;
    case Qt::Key_PageDown:
      if (form_.forwardEnabled) face_.run([this] { browse::Command1(form_, 1); });
      break;
    case Qt::Key_PageUp:
      if (form_.backEnabled) face_.run([this] { browse::Command1(form_, 0); });
      break;
    case Qt::Key_Menu:
      if (words_->currentItem() != nullptr)
        app_.window->entryMenu()->popup(
            words_->viewport()->mapToGlobal(words_->visualItemRect(words_->currentItem()).center()));
      break;
    default:
      break;
  }
}

bool BrowserWindow::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(object, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (object == box_ && (key->key() == Qt::Key_Down || key->key() == Qt::Key_Return)) {
    words_->setFocus();
    return true;
  }
  if (object != words_) return QWidget::eventFilter(object, event);
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Delete:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
    case Qt::Key_Menu:
      listKey(key->key());
      return true;
    default:
      break;
  }
  // Letters typed on the list go to the search box.
  const QString text = key->text();
  const bool plain = (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  if (!plain || text.isEmpty() || !text.at(0).isPrint() || text.at(0).isSpace()) return false;
  box_->setFocus();
  QApplication::sendEvent(box_, event);
  return true;
}

void BrowserWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  face_.run([this] { form_.closed = true; });
}

}  // namespace desktop
