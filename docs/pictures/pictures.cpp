// pictures DICTIONARY FOLDER LANGUAGE [dark]: opens every window over a copy of the dictionary and saves it
// as a picture. QT_SCALE_FACTOR=2 in the environment makes all of it twice as large.

#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QTreeWidget>
#include <filesystem>
#include <iostream>

#include "album.h"
#include "desktop/browse/browser_window.h"
#include "desktop/shell/splash.h"
#include "support/fake_media.h"

namespace {

namespace fs = std::filesystem;

/// A dark palette, as desktops offer it.
void darken() {
  User::toolkit();
  const QColor back(0x2b, 0x2b, 0x2b), field(0x1e, 0x1e, 0x1e), text(0xe6, 0xe6, 0xe6),
      chosen(0x2a, 0x62, 0x9c);
  QPalette dark(text, back, back.lighter(), back.darker(), back.lighter(120), text, field);
  dark.setColor(QPalette::AlternateBase, back);
  dark.setColor(QPalette::Base, field);
  dark.setColor(QPalette::Highlight, chosen);
  dark.setColor(QPalette::HighlightedText, text);
  dark.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xff));
  dark.setColor(QPalette::ToolTipBase, field);
  dark.setColor(QPalette::ToolTipText, text);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  QApplication::setStyle("Fusion");
  QApplication::setPalette(dark);
}

void wizard(User& user, Album& album) {
  user.in("frmChooseDBType", [&](QWidget& window) {
    album.save(window, "frmChooseDBType");
    user.click(window, "Panel_1");
  });
  user.chooseFile(user.home / "wizard/NEU.CVB");
  user.in("firstent", [&](QWidget& window) {
    album.tabs(window, "firstent");
    user.answer("Yes");
    Album::close(window);
  });
  user.choose("mnuNew");
}

void help(User& user, Album& album) {
  user.choose("mnuHelpContent");
  auto& window = user.find<QDialog>("HelpWindow");
  album.save(window, "help");
  window.close();
}

void selectWord(User& user, const char* text) {
  user.type(*user.app->window, "Text3", text);
}

/// A house on a meadow.
void drawHouse(const std::string& path) {
  QImage picture(640, 400, QImage::Format_RGB32);
  picture.fill(QColor(0x9c, 0xc8, 0xf0));
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const auto shape = [&painter](int colour, const QPolygon& points) {
    painter.setBrush(QColor::fromRgb(static_cast<QRgb>(colour)));
    painter.drawPolygon(points);
  };
  shape(0x5a9a4a, QPolygon(QRect(0, 300, 640, 100)));
  shape(0xf0e0c0, QPolygon(QRect(200, 180, 240, 160)));
  shape(0xb04030, QPolygon({{170, 180}, {320, 60}, {470, 180}}));
  shape(0x704020, QPolygon(QRect(295, 250, 50, 90)));
  for (const int left : {225, 365}) shape(0x4080b0, QPolygon(QRect(left, 215, 50, 45)));
  painter.end();
  if (!picture.save(QString::fromStdString(path))) throw std::runtime_error("can not write " + path);
}

/// Picture and sound of an entry: in the editor, in the browser, on the full screen.
void media(User& user, Album& album) {
  test::FakeSound device;
  platform::Sound* const before = std::exchange(user.app->session.desk.media.sound, &device);
  const std::string house = user.home / "house.png";
  drawHouse(house);
  selectWord(user, "Haus");
  user.in("frmEintrag", [&](QWidget& window) {
    user.chooseFile(house);
    user.click(window, "Command4");
    user.click(window, "SSCommand9_0");
    QTest::qWait(500);
    album.save(window, "frmEintrag-recording");
    user.click(window, "SSCommand9_1");
    album.save(window, "frmEintrag-picture");
    user.in("frmVollBild", [&](QWidget& screen) {
      album.save(screen, "frmVollBild");
      Album::close(screen);
    });
    user.click(window, "FullScreen");
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
  album.save(*user.app->window, "frmWoerter-picture");
  user.app->session.files.CurrentDB.Execute("UPDATE Sprache SET Stil1 = False, Stil2 = False");
  selectWord(user, "Igel");
  selectWord(user, "Haus");
  album.save(*user.app->window, "frmWoerter-grids");
  user.app->session.files.CurrentDB.Execute("UPDATE Sprache SET Stil1 = True");
  album.dialog("mnuSoundInfo", "frmSoundInfo");
  user.app->session.desk.media.sound = before;
}

/// The views that stay open inside the frame; each is closed again.
void views(User& user, Album& album) {
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "haus");
    user.press(window, "TextBox1", Qt::Key_Return);
    user.pickRow(window, "DataGrid1", 0);
    album.save(window, "frmSearch");
    Album::close(window);
  });
  user.choose("mnuSearchEntry");
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "Ha");
    album.save(window, "frmSearch-goto");
    Album::close(window);
  });
  user.choose("mnuGoto");
  user.in("frmSearchSelectedWord", [&](QWidget& window) {
    User::find<QListWidget>(window, "List1").setCurrentRow(0);
    album.save(window, "frmSearchSelectedWord");
    Album::close(window);
  });
  user.app->gate.run("frmMDI", [&] { frame::lookUp(user.app->frame, "Haus"); });
  const std::pair<const char*, const char*> inFrame[] = {{"mnuViewEntriesMeanings", "frmView"},
                                                         {"mnuViewAttributeEntry", "frmTreeView"}};
  for (const auto& [item, form] : inFrame) {
    user.choose(item);
    auto* view = user.app->window->findChild<QWidget*>(form);
    if (auto* tree = view->findChild<QTreeWidget*>("outline1")) tree->topLevelItem(2)->setExpanded(true);
    album.save(*user.app->window, form);
    user.click(*view, "Close");
  }
}

struct DialogOfMenu {
  const char *menuItem, *form;
};
constexpr DialogOfMenu dialogs[] = {
    {"mnuEditEntry", "frmEintrag"},
    {"mnuVocariumConfig", "frmConfig"},
    {"mnuEnvironment", "frmEnvironment"},
    {"mnuAutomatic", "frmAutokat"},
    {"mnuDeleteEigenschaft", "frmDeleteEigenschaftSach"},
    {"mnuDeleteBySubject", "frmDeleteEintragEigenschaftSach"},
    {"mnuFastEntry", "frmFastEntry"},
    {"mnuRelinkEntry", "frmRelink"},
    {"mnuChoice", "frmFilter"},
    {"mnuNewHistory", "frmHistory"},
    {"mnuDeleteByDate", "frmDeleteEntries"},
    {"mnuProperties", "frmNewKateg"},
    {"mnuServicesOverview", "frmServices"},
    {"mnuBackup", "frmBackup"},
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
  for (const DialogOfMenu& each : dialogs) album.dialog(each.menuItem, each.form);
  views(user, album);
  media(user, album);
  help(user, album);
  boxes(user, album);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4 || argc > 5) {
    std::cerr << "usage: pictures DICTIONARY FOLDER de|en [dark]" << std::endl;
    return 2;
  }
  try {
    if (argc == 5) darken();
    const bool english = std::string(argv[3]) == "en";
    makeAll(argv[1], argv[2], english);
    awkward(english, argv[2]);
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    return 1;
  }
}
