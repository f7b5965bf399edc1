#pragma once

#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include "support/user.h"

/// The pictures of one run, in a folder.
class Album {
 public:
  Album(User& user, std::filesystem::path folder) : user_(user), folder_(std::move(folder)) {
    std::filesystem::create_directories(folder_);
  }

  void save(QWidget& window, const std::string& name) {
    QApplication::processEvents();
    const std::string path = (folder_ / (name + ".png")).string();
    if (!window.grab().save(QString::fromStdString(path))) throw std::runtime_error("can not write " + path);
    std::cout << path << std::endl;
  }
  /// Every tab of a dialog that has them.
  void tabs(QWidget& window, const std::string& form) {
    auto& strip = User::find<QTabWidget>(window, "SSTab1");
    for (int n = 0; n < strip.count(); ++n) {
      if (!strip.isTabVisible(n) || !strip.isTabEnabled(n)) continue;
      strip.setCurrentIndex(n);
      save(window, form + "-" + std::to_string(n + 1));
    }
  }
  /// A dialog that a menu item opens: as it comes, then closed.
  void dialog(const char* menuItem, const std::string& form, const std::string& prefix = "") {
    user_.in(form, [this, name = prefix + form](QWidget& window) {
      if (window.findChild<QTabWidget*>("SSTab1") != nullptr)
        tabs(window, name);
      else
        save(window, name);
      close(window);
    });
    user_.choose(menuItem);
  }
  static void close(QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }

 private:
  User& user_;
  std::filesystem::path folder_;
};

/// Boxes that ask and tell, the input box and the dialogs of files.
void boxes(User& user, Album& album);
/// What a usual dictionary does not show: long and empty texts, several windows, other directions and kinds.
void awkward(bool english, const std::filesystem::path& folder);
