// Boxes that ask and tell, the input box and the dialogs of files.

#include <fstream>

#include "album.h"

namespace {

namespace fs = std::filesystem;

/// Saves the next box and presses a button of it: as User::answer does.
void box(User& user, Album& album, const std::string& name, const char* button) {
  user.in("MessageBox", [&album, name, button](QWidget& window) {
    album.save(window, name);
    for (QAbstractButton* each : window.findChildren<QAbstractButton*>())
      if (*button == '\0' || each->objectName() == button) return each->click();
  });
}

/// Saves the next dialog of files and leaves it.
void fileDialog(User& user, Album& album, const std::string& name) {
  user.in("FileDialog", [&album, name](QWidget& window) {
    album.save(window, name);
    Album::close(window);
  });
}

void questions(User& user, Album& album) {
  user.type(*user.app->window, "Text3", "Igel");
  box(user, album, "box-question", "No");
  user.choose("mnuDeleteEntry");
  user.in("frmEintrag", [&](QWidget& window) {
    user.type(window, "HeadwordBox", "Haus");
    box(user, album, "box-question-cancel", "Yes");
    user.press(window, "HeadwordBox", Qt::Key_Return);
    box(user, album, "box-question-stub", "No");
    Album::close(window);
  });
  user.choose("mnuNewEntry");
}

/// A file far down in folders of long names, which is no dictionary.
void longPath(User& user, Album& album) {
  const fs::path folder = fs::path(user.home.path()) /
                          "Forschungsstelle für historische Lexikographie und vergleichende "
                          "Sprachwissenschaft/Band 17 (Nachträge)";
  fs::create_directories(folder);
  const fs::path file = folder / "Wörterbuch_der_untergegangenen_Handwerksberufe_und_ihrer_Werkzeuge.CVB";
  std::ofstream(file) << "this is no dictionary";
  user.chooseFile(file.string());
  box(user, album, "box-long", "");
  user.choose("mnuMultiOpen");
}

void files(User& user, Album& album) {
  fileDialog(user, album, "file-open");
  user.choose("mnuMultiOpen");
  user.in("frmChooseDBType", [&](QWidget& window) { user.click(window, "Panel_1"); });
  user.answer("Yes");
  fileDialog(user, album, "file-save");
  user.choose("mnuNew");
}

void folderOfData(User& user, Album& album) {
  user.in("frmConfig", [&](QWidget& window) {
    user.tab(window, "SSTab1", 8);
    user.answer("Yes");
    fileDialog(user, album, "file-folder");
    user.click(window, "ChooseFolder");
    user.in("InputBox", [&](QWidget& input) {
      album.save(input, "box-input");
      Album::close(input);
    });
    user.tab(window, "SSTab1", 0);
    user.click(window, "NewLanguage");
    Album::close(window);
  });
  user.choose("mnuVocariumConfig");
}

}  // namespace

void boxes(User& user, Album& album) {
  questions(user, album);
  longPath(user, album);
  folderOfData(user, album);
  files(user, album);
}
