#include "desktop/kit/gate.h"

#include <utility>

#include "shell/session/errors.h"

namespace desktop {

bool Gate::run(const std::string& formName, const std::function<void()>& operation) {
  if (isBusy()) return false;
  running_ = true;
  ++depth_;
  session::guard(session_, formName, operation);
  --depth_;
  running_ = false;
  draw();
  if (depth_ == 0 && idle) idle();
  return true;
}

int Gate::addWindow(std::string formName, std::function<void()> draw) {
  windows_[++lastId_] = {std::move(formName), std::move(draw)};
  return lastId_;
}

void Gate::removeWindow(int id) {
  windows_.erase(id);
}

void Gate::draw() {
  if (drawing_) return;
  drawing_ = true;
  // Drawing may open and close windows, so the list is walked by number; one opened meanwhile comes last.
  int id = 0;
  for (auto each = windows_.begin(); each != windows_.end(); each = windows_.upper_bound(id)) {
    id = each->first;
    const Window window = each->second;
    session::guard(session_, window.formName, [&] { window.draw(); });
  }
  drawing_ = false;
}

}  // namespace desktop
