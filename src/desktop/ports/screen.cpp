#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QVBoxLayout>

#include "desktop/kit/text.h"
#include "desktop/ports/desk.h"

namespace desktop {
namespace {

/// Swallows what the user does while a long command serves the message loop.
class InputBlock : public QObject {
 public:
  explicit InputBlock(Desk& desk) : desk_(desk) { qApp->installEventFilter(this); }
  ~InputBlock() override { qApp->removeEventFilter(this); }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Close:
        if (object == desk_.frame.data()) desk_.closeWanted = true;
        event->ignore();
        return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
      case QEvent::ContextMenu:
      case QEvent::Wheel:
      case QEvent::Drop:
        return true;
      default:
        return false;
    }
  }

 private:
  Desk& desk_;
};

/// The progress form: a bar over its percentage.
class ProgressWindow : public QWidget {
 public:
  explicit ProgressWindow(QWidget* parent)
      : QWidget(parent, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setObjectName("frmProgress");
    auto* column = new QVBoxLayout(this);
    column->addWidget(&caption_);
    column->addWidget(&bar_);
    column->addWidget(&percent_, 0, Qt::AlignHCenter);
    bar_.setRange(0, 1000);
    bar_.setTextVisible(false);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
  }
  void begin(const QString& caption) {
    caption_.setText(caption);
    percent_.setText("0 %");
    bar_.setValue(0);
    adjustSize();
    if (parentWidget() != nullptr) move(parentWidget()->geometry().center() - rect().center());
    show();
    // Painted at once, since the loop is served only row by row from here on.
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  void step(double percent, const QString& label) {
    bar_.setValue(static_cast<int>(percent * 10));
    percent_.setText(label);
    repaint();
  }

 private:
  QLabel caption_, percent_;
  QProgressBar bar_;
};

}  // namespace

Desk::Desk() = default;
Desk::~Desk() = default;

void Desk::setBusyPointer(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void Desk::setStatus(const std::string& label) {
  if (status.isNull()) return;
  status->setText(qt(label));
  status->repaint();
}

void Desk::setCaption(const std::string& caption) {
  if (!frame.isNull()) frame->setWindowTitle(qt(caption));
}

void Desk::showProgress(const std::string& caption) {
  auto window = std::make_unique<ProgressWindow>(parent());
  window->begin(qt(caption));
  progress_ = std::move(window);
}

void Desk::setProgress(double percent, const std::string& label) {
  if (auto* window = dynamic_cast<ProgressWindow*>(progress_.get())) window->step(percent, qt(label));
}

void Desk::hideProgress() {
  progress_.reset();
}

void Desk::turnLoop() {
  const InputBlock block(*this);
  QApplication::processEvents();
}

}  // namespace desktop
