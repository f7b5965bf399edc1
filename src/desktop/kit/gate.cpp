#include "desktop/kit/gate.h"

#include <utility>
#include <vector>

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
  // Drawing may open and close windows, so the list is walked by number.
  std::vector<int> ids;
  for (const auto& [id, window] : windows_) ids.push_back(id);
  for (const int id : ids) {
    const auto found = windows_.find(id);
    if (found == windows_.end()) continue;
    const Window window = found->second;
    session::guard(session_, window.formName, [&] { window.draw(); });
  }
  drawing_ = false;
}

}  // namespace desktop
