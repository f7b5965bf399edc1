#include "desktop/kit/keys.h"

#include <QKeyEvent>
#include <algorithm>
#include <vector>

namespace desktop {
namespace {

class Filter : public QObject {
 public:
  Filter(QWidget& control, std::vector<Qt::Key> keys, std::function<void()> operation)
      : QObject(&control), keys_(std::move(keys)), operation_(std::move(operation)) {
    control.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* pressed = static_cast<QKeyEvent*>(event);
    if (std::ranges::find(keys_, pressed->key()) == keys_.end()) return false;
    operation_();
    return true;
  }

 private:
  std::vector<Qt::Key> keys_;
  std::function<void()> operation_;
};

}  // namespace

void onKeys(QWidget& control, std::initializer_list<Qt::Key> keys, std::function<void()> operation) {
  new Filter(control, keys, std::move(operation));  // the control owns it
}

}  // namespace desktop
