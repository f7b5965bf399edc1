#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QVBoxLayout;

namespace desktop {

class Application;

/// What the frame shows while no dictionary is open: the ways to one.
class Welcome : public QWidget {
 public:
  explicit Welcome(Application& app);
  /// Follows the list of recent files.
  void draw();

 private:
  Application& app_;
  QVBoxLayout* recent_ = nullptr;
  std::vector<std::string> shown_;
};

}  // namespace desktop
