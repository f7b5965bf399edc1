// Pictures and sound through real clicks and keys, with real picture files and sound devices that only note.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QSlider>
#include <QTextBrowser>
#include <filesystem>
#include <fstream>

#include "catalogue/dialog.h"
#include "desktop/kit/picture_box.h"
#include "platform/media/picture_files.h"
#include "shell/session/messages.h"
#include "support/fake_media.h"
#include "windows.h"

namespace {

namespace fs = std::filesystem;
using desktop::PictureBox;

/// A dictionary with one entry, and what hangs on it.
struct Media : testing::Test {
  Media() {
    windows::makeDictionary(user, "Haus");
    user.app->session.desk.media.sound = &sound;
    user.app->session.desk.media.scanner = &scanner;
  }
  /// A picture of four colours: red, green above blue, white.
  std::string picture(const std::string& name, int width = 60, int height = 40) {
    const std::string path = user.home / name;
    const QImage image = platform::media::toQImage(test::quarters(width, height));
    if (!image.save(QString::fromStdString(path))) throw std::runtime_error("can not write " + path);
    return path;
  }
  void inEditor(const User::Deeds& deeds) {
    user.app->session.entry.CurrentBegriff.clear();  // no command saved an entry yet, as after a start
    user.in("frmEintrag", [this, deeds](QWidget& window) {
      deeds(window);
      user.click(window, "Command7");
    });
    user.choose("mnuEditEntry");
    EXPECT_FALSE(user.hasPlans());
  }
  void setPicture(const std::string& path) {
    inEditor([&](QWidget& window) {
      user.chooseFile(path);
      user.click(window, "Command4");
    });
  }
  /// The pixmap that a box shows; null where it shows text.
  static QImage shown(QWidget& window, const char* box) {
    QApplication::processEvents();  // the box gets its room
    const auto* label = qobject_cast<QLabel*>(User::find<PictureBox>(window, box).widget());
    return label->pixmap().toImage();
  }
  static QString told(QWidget& window, const char* box) {
    return qobject_cast<QLabel*>(User::find<PictureBox>(window, box).widget())->text();
  }
  std::string row(const char* column) {
    return windows::value(user, std::string("SELECT ") + column + " FROM Woerterbuch");
  }
  /// Shows entries as a page, or in labels and grids.
  void present(bool asPage) {
    user.app->session.files.CurrentDB.Execute("UPDATE Sprache SET Stil2 = False, Stil1 = " +
                                              std::string(asPage ? "True" : "False"));
    windows::select(user, -1);
    windows::select(user, 0);
    ASSERT_EQ(user.app->frame.active->display.asPage, asPage);
  }
  fs::path mediaFile(const char* column) {
    for (const auto& each : fs::recursive_directory_iterator(user.home.path()))
      if (each.path().filename() == row(column)) return each.path();
    return {};
  }
  std::string text(int key) { return session::dialogText(user.app->session, key); }
  QWidget& frame() { return *user.app->window; }
  bool visible(const char* name) { return user.find<QWidget>(name).isVisible(); }

  User user;
  test::FakeSound sound;
  test::FakeScanner scanner;
};

TEST_F(Media, APictureIsSetSeenTurnedAndDeleted) {
  EXPECT_FALSE(visible("Image1"));
  const std::string file = picture("haus.png");
  inEditor([&](QWidget& window) {
    EXPECT_FALSE(User::find<QAbstractButton>(window, "FullScreen").isEnabled());
    EXPECT_FALSE(User::find<QAbstractButton>(window, "DeletePicture").isEnabled());
    EXPECT_TRUE(shown(window, "Picture1").isNull());
    user.chooseFile(file);
    user.click(window, "Command4");
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(60, 40));

    user.in("frmVollBild", [&](QWidget& screen) {
      const auto corner = [&screen] {
        // Just inside the picture: it is as high as the screen, or as wide.
        const QImage all = screen.grab().toImage();
        const QPoint middle(all.width() / 2, all.height() / 2);
        return QColor(all.pixel(middle - QPoint(20, 20)));
      };
      QWidget& image = User::find<QWidget>(screen, "Image1");
      EXPECT_EQ(corner(), QColor(Qt::red));
      QTest::keyClick(&image, Qt::Key_Left);
      EXPECT_EQ(corner(), QColor(Qt::green));
      QTest::keyClick(&image, Qt::Key_Right);
      QTest::keyClick(&image, Qt::Key_Right);
      EXPECT_EQ(corner(), QColor(Qt::blue));
      QTest::keyClick(&image, Qt::Key_Escape);
      EXPECT_FALSE(screen.isVisible());
    });
    user.click(window, "FullScreen");
    EXPECT_FALSE(user.hasPlans());
  });
  ASSERT_TRUE(fs::exists(mediaFile("Bild")));
  EXPECT_EQ(mediaFile("Bild").extension(), ".png");
  const fs::path stored = mediaFile("Bild");

  inEditor([&](QWidget& window) {
    EXPECT_FALSE(shown(window, "Picture1").isNull());
    user.click(window, "DeletePicture");
    EXPECT_TRUE(shown(window, "Picture1").isNull());
    EXPECT_FALSE(told(window, "Picture1").isEmpty());
    EXPECT_FALSE(User::find<QAbstractButton>(window, "FullScreen").isEnabled());
  });
  EXPECT_EQ(row("Bild"), "Null");
  EXPECT_FALSE(fs::exists(stored));
  EXPECT_FALSE(visible("Image1"));
}

TEST_F(Media, ThePictureStandsBelowTheEntryInEitherPresentation) {
  present(false);
  setPicture(picture("a.bmp", 200, 100));
  EXPECT_TRUE(visible("Image1"));
  const QSize fitting = shown(frame(), "Image1").size();
  EXPECT_EQ(fitting.width(), 2 * fitting.height());
  user.find<QSlider>("Slider1").setValue(300);
  EXPECT_EQ(shown(frame(), "Image1").width(), 3 * fitting.width());

  // Another picture under the same file name replaces it, and fits again.
  setPicture(picture("b.bmp", 90, 30));
  EXPECT_EQ(shown(frame(), "Image1").width(), 3 * shown(frame(), "Image1").height());
  EXPECT_EQ(user.find<QSlider>("Slider1").value(), 100);

  user.in("frmVollBild", [&](QWidget& screen) { QTest::keyClick(&screen, Qt::Key_Escape); });
  QTest::mouseDClick(user.find<PictureBox>("Image1").viewport(), Qt::LeftButton);
  user.settle();
  EXPECT_FALSE(user.hasPlans());

  user.choose("mnuCopyPicture");
  EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(90, 30));

  // A page shows what browsers show; the rest stands below it.
  present(true);
  EXPECT_TRUE(visible("WebBrowser1") && visible("Image1"));
  setPicture(picture("c.jpg", 60, 60));
  EXPECT_TRUE(visible("WebBrowser1") && visible("FullScreen"));
  EXPECT_FALSE(visible("Image1"));
  QApplication::clipboard()->clear();
  user.choose("mnuCopyPicture");
  EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(60, 60));
}

TEST_F(Media, ADoubleClickOnThePicturesPlaceInThePageShowsItWhole) {
  present(true);
  setPicture(picture("a.jpg", 80, 60));
  auto& page = user.find<QTextBrowser>("WebBrowser1");
  const QTextCursor before = page.document()->find(QString(QChar::ObjectReplacementCharacter));
  ASSERT_FALSE(before.isNull());
  QTextCursor start = before;
  start.setPosition(before.selectionStart());
  const QRect left = page.cursorRect(start);
  user.in("frmVollBild", [&](QWidget& screen) { QTest::keyClick(&screen, Qt::Key_Escape); });
  QTest::mouseDClick(page.viewport(), Qt::LeftButton, {}, QPoint(left.x() + 40, left.bottom() - 30));
  user.settle();
  EXPECT_FALSE(user.hasPlans());
  QTest::mouseDClick(page.viewport(), Qt::LeftButton, {}, QPoint(left.x() + 200, left.bottom() - 30));
  user.settle();
}

TEST_F(Media, APictureComesFromClipboardScannerAndDrop) {
  inEditor([&](QWidget& window) {
    QApplication::clipboard()->clear();
    user.answer("", text(dialog::no_picture_on_clipboard));
    user.click(window, "SSCommand14");
    EXPECT_TRUE(shown(window, "Picture1").isNull());
    QApplication::clipboard()->setImage(platform::media::toQImage(test::quarters(20, 10)));
    user.click(window, "SSCommand14");
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(20, 10));

    user.click(window, "ScanPicture");
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(3, 2));
    scanner.connected = false;
    user.answer("", text(dialog::no_scanner));
    user.click(window, "ScanPicture");
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(3, 2));

    auto& box = User::find<PictureBox>(window, "Picture1");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(picture("drop me.PNG", 8, 8)))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box.viewport(), &drop);
    user.settle();
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(8, 8));
  });
  EXPECT_EQ(fs::path(row("Bild")).extension(), ".png");
}

TEST_F(Media, AFakePictureIsToldOnceAndChangesNothing) {
  setPicture(picture("a.png", 30, 30));
  const std::string before = row("Bild");
  const std::string fake = user.home.write("fake.png", "this is no picture");
  inEditor([&](QWidget& window) {
    user.chooseFile(fake);
    user.answer("", text(dialog::picture_damaged));
    user.click(window, "Command4");
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(30, 30));
  });
  EXPECT_EQ(row("Bild"), before);

  // A stored picture that went bad hides in the browser, with the reason in its place and no box.
  std::ofstream(mediaFile("Bild")) << "no picture any more";
  windows::addEntry(user, "Garten");
  windows::select(user, 0);
  windows::select(user, 1);
  EXPECT_TRUE(shown(frame(), "Image1").isNull());
  EXPECT_NE(told(frame(), "Image1").toStdString().find(text(dialog::picture_damaged)), std::string::npos);
  EXPECT_FALSE(visible("Slider1"));
}

TEST_F(Media, ASoundIsRecordedPlayedAndPlayedAgainInTheBrowser) {
  EXPECT_FALSE(visible("PlaySound"));
  inEditor([&](QWidget& window) {
    const auto enabled = [&window](const char* button) {
      return User::find<QAbstractButton>(window, button).isEnabled();
    };
    EXPECT_TRUE(enabled("SSCommand9_0"));
    EXPECT_FALSE(enabled("SSCommand9_1") || enabled("SSCommand9_2"));
    user.click(window, "SSCommand9_0");
    EXPECT_FALSE(enabled("SSCommand9_0") || enabled("SSCommand9_2"));
    auto& bar = User::find<QProgressBar>(window, "ProgressBar1");
    EXPECT_TRUE(bar.isVisible());
    QTest::qWait(250);
    EXPECT_GT(bar.value(), 0);
    user.click(window, "SSCommand9_1");
    EXPECT_FALSE(bar.isVisible() || enabled("SSCommand9_1"));
    EXPECT_FALSE(User::find<QTimer>(window, "Timer2").isActive());
    user.click(window, "SSCommand9_2");
  });
  const std::string path = mediaFile("Klang").string();
  ASSERT_TRUE(path.ends_with(".wav"));
  EXPECT_EQ(sound.commands.back(), "play " + path);
  sound.commands.clear();
  user.click(frame(), "PlaySound");
  EXPECT_EQ(sound.commands, std::vector<std::string>{"play " + path});
  EXPECT_FALSE(user.find<QAbstractButton>("FullScreen").isEnabled());
}

TEST_F(Media, WithoutADeviceRecordingIsToldOnce) {
  sound.failAt = "record";
  sound.failWith = platform::sound_error::noDevice;
  inEditor([&](QWidget& window) {
    user.answer("", text(dialog::no_recording_device));
    user.click(window, "SSCommand9_0");
    EXPECT_FALSE(User::find<QWidget>(window, "ProgressBar1").isVisible());
    EXPECT_TRUE(User::find<QWidget>(window, "SSCommand9_0").isEnabled());
  });
  EXPECT_EQ(row("Klang"), "Null");
  sound.present = false;
  user.answer("");
  user.choose("mnuSoundInfo");
  EXPECT_FALSE(user.hasPlans());
}

TEST_F(Media, AReadOnlyDictionaryKeepsItsPictureAndSound) {
  setPicture(picture("a.png", 30, 30));
  const std::string before = row("Bild");
  const std::string dictionary = user.home / "KUECHE.CVB";
  user.choose("mnuClose");
  user.in("FileDialog", [&](QWidget& dialog) {
    User::find<QCheckBox>(dialog, "ReadOnly").setChecked(true);
    auto* box = dialog.findChild<QLineEdit*>("fileNameEdit");
    box->setText(QString::fromStdString(dictionary));
    QTest::keyClick(box, Qt::Key_Return);
  });
  user.choose("mnuOpen");
  inEditor([&](QWidget& window) {
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(30, 30));
    for (const char* button : {"Command4", "SSCommand14", "ScanPicture", "DeletePicture", "SSCommand9_0"}) {
      user.answer("", text(dialog::dictionary_is_read_only));
      user.click(window, button);
      EXPECT_FALSE(user.hasPlans()) << button;
    }
    EXPECT_EQ(shown(window, "Picture1").size(), QSize(30, 30));
  });
  EXPECT_EQ(row("Bild"), before);
  EXPECT_EQ(row("Klang"), "Null");
  EXPECT_TRUE(fs::exists(mediaFile("Bild")));
}

TEST_F(Media, TheSoundDevicesFormatsAreMarked) {
  user.in("frmSoundInfo", [&](QWidget& window) {
    EXPECT_EQ(User::find<QLabel>(window, "Device").text(), "Loudspeaker");
    ASSERT_EQ(User::find<QTableView>(window, "Formats").model()->rowCount(), 12);
    EXPECT_EQ(User::textAt(window, "Formats", 0, 0), "11.025 kHz, Mono, 8 bit");
    EXPECT_EQ(User::textAt(window, "Formats", 11, 1), "✓");
    EXPECT_EQ(User::textAt(window, "Formats", 10, 1), "–");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  user.choose("mnuSoundInfo");
}

}  // namespace
