// pictures DICTIONARY FOLDER LANGUAGE: opens every window over a copy of the dictionary and saves it as a picture.

#include <QLabel>
#include <QMenu>
#include <filesystem>
#include <iostream>

#include "desktop/browse/browser_window.h"
#include "desktop/shell/splash.h"
#include "support/user.h"

namespace {

namespace fs = std::filesystem;

class Album {
 public:
  Album(User& user, fs::path folder) : user_(user), folder_(std::move(folder)) { fs::create_directories(folder_); }

  void save(QWidget& window, const std::string& name) {
    QApplication::processEvents();
    const std::string path = (folder_ / (name + ".png")).string();
    if (!window.grab().save(QString::fromStdString(path))) throw std::runtime_error("can not write " + path);
    std::cout << path << std::endl;
  }
  /// A dialog that a menu item opens: as it comes, then closed.
  void dialog(const char* menuItem, const std::string& form) {
    user_.in(form, [this, form](QWidget& window) {
      save(window, form);
      close(window);
    });
    user_.choose(menuItem);
  }
  static void close(QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }

 private:
  User& user_;
  fs::path folder_;
};

void wizard(User& user, Album& album) {
  user.in("frmChooseDBType", [&](QWidget& window) {
    album.save(window, "frmChooseDBType");
    user.click(window, "Panel_1");
  });
  user.chooseFile(user.home / "wizard/NEU.CVB");
  user.in("firstent", [&](QWidget& window) {
    auto& tabs = User::find<QTabWidget>(window, "SSTab1");
    for (int n = 0; n < tabs.count(); ++n) {
      tabs.setCurrentIndex(n);
      album.save(window, "firstent-" + std::to_string(n + 1));
    }
    user.answer("Yes");
    Album::close(window);
  });
  user.choose("mnuNew");
}

/// Every tab of a dialog that has them.
void tabs(Album& album, QWidget& window, const std::string& form) {
  auto& strip = User::find<QTabWidget>(window, "SSTab1");
  for (int n = 0; n < strip.count(); ++n) {
    if (!strip.isTabVisible(n) || !strip.isTabEnabled(n)) continue;
    strip.setCurrentIndex(n);
    album.save(window, form + "-" + std::to_string(n + 1));
  }
}

void editor(User& user, Album& album) {
  user.in("frmEintrag", [&](QWidget& window) {
    tabs(album, window, "frmEintrag");
    Album::close(window);
  });
  user.choose("mnuEditEntry");
}

void selectWord(User& user, const char* text) {
  user.type(*user.app->window, "Text3", text);
}

void boxes(User& user, Album& album) {
  selectWord(user, "Igel");
  user.in("MessageBox", [&](QWidget& box) {
    album.save(box, "box-question");
    user.click(box, "No");
  });
  user.choose("mnuDeleteEntry");
}

struct DialogOfMenu {
  const char *menuItem, *form;
};
constexpr DialogOfMenu dialogs[] = {
    {"mnuFastEntry", "frmFastEntry"},       {"mnuRelinkEntry", "frmRelink"},
    {"mnuChoice", "frmFilter"},             {"mnuNewHistory", "frmHistory"},
    {"mnuDeleteByDate", "frmDeleteEntries"}, {"mnuProperties", "frmNewKateg"},
    {"mnuServicesOverview", "frmServices"}, {"mnuBackup", "frmBackup"},
    {"mnuAbout", "frmAbout"},
};

void makeAll(const std::string& dictionary, const fs::path& folder, bool english) {
  User user(english);
  Album album(user, folder);
  const std::string copy = user.home / "DEUTSCH-ENGLISCH.CVB";
  fs::copy_file(dictionary, copy);
  fs::create_directories(user.home / "wizard");
  desktop::Splash splash(*user.app);
  album.save(splash, "frmStart");
  album.save(*user.app->window, "frmMDI-empty");
  wizard(user, album);
  user.chooseFile(copy);
  user.answer("Yes");  // the copy lies in another place
  user.choose("mnuOpen");
  selectWord(user, "Haus");
  album.save(*user.app->window, "frmMDI");
  editor(user, album);
  for (const DialogOfMenu& each : dialogs) album.dialog(each.menuItem, each.form);
  boxes(user, album);
  user.choose("mnuClose");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: pictures DICTIONARY FOLDER de|en" << std::endl;
    return 2;
  }
  try {
    makeAll(argv[1], argv[2], std::string(argv[3]) == "en");
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    return 1;
  }
}
