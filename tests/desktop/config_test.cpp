// The settings of a dictionary, and the applications of file types.

#include <gtest/gtest.h>

#include <QRadioButton>
#include <QSpinBox>
#include <algorithm>
#include <iterator>

#include "shell/frame/config_fields.h"
#include "windows.h"

using namespace windows;

namespace {

using enum frame::ConfigTab;

void show(User& user, QWidget& window, frame::ConfigTab tab) {
  user.tab(window, "SSTab1", static_cast<int>(tab));
}

TEST(Config, EverySettingHasAControl) {
  User user;
  makeDictionary(user, "Gabel");
  inSettings(user, [&](QWidget& window) {
    for (const frame::ConfigField& field : frame::configFields()) {
      if (field.tab == frame::ConfigTab::printFonts) continue;
      const std::string control = *field.control != '\0' ? field.control : field.name;
      const bool shownAsCharacters = field.name == "LautschriftZeichenArialUnicode";
      EXPECT_NE(window.findChild<QWidget*>(shownAsCharacters ? "TextBox3" : control.c_str()), nullptr)
          << field.name;
    }
    user.click(window, "Cancel");
  });
}

TEST(Config, SettingsAreKeptAfterReopeningAndCancelKeepsNone) {
  User user;
  const std::string path = makeDictionary(user, "Gabel");
  inSettings(user, [&](QWidget& window) {
    user.type(window, "Kurzbeschreibung", "Küche & \"Keller\"");
    show(user, window, sound);
    user.click(window, "khz44");
    user.click(window, "two");
    show(user, window, publishing);
    user.click(window, "UseWebsitePath");
    show(user, window, frame::ConfigTab::entry);
    user.type(window, "SteuerzeichenFeld", "");
    user.type(window, "SteuerzeichenSatz", "");
    User::find<QListWidget>(window, "List6").setCurrentRow(0);
    user.click(window, "OK");
  });
  inSettings(user, [&](QWidget& window) {
    show(user, window, sound);
    user.click(window, "khz11");
    show(user, window, author);
    user.type(window, "Autorname", "niemand");
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  EXPECT_EQ(user.app->session.shell.projectBar.description, "Küche & \"Keller\"");
  user.choose("mnuClose");
  user.chooseFile(path);
  user.choose("mnuOpen");
  const std::string font = user.app->desk.fontNames().front();
  inSettings(user, [&](QWidget& window) {
    const auto chosen = [&](const char* button) {
      return User::find<QRadioButton>(window, button).isChecked();
    };
    const auto text = [&](const char* box) {
      return User::find<QLineEdit>(window, box).text().toStdString();
    };
    EXPECT_TRUE(chosen("khz44") && !chosen("khz22") && !chosen("khz11"));
    EXPECT_TRUE(chosen("two") && !chosen("one"));
    EXPECT_TRUE(chosen("UseWebsitePath") && !chosen("UseRelativPath"));
    EXPECT_EQ(text("Kurzbeschreibung"), "Küche & \"Keller\"");
    EXPECT_EQ(text("SteuerzeichenFeld"), "^");
    EXPECT_EQ(text("SteuerzeichenSatz"), "~");
    EXPECT_EQ(text("Autorname"), value(user, "select Autorname from Autor"));
    EXPECT_EQ(User::find<QListWidget>(window, "List6").currentItem()->text().toStdString(), font);
    user.click(window, "Cancel");
  });
}

/// The settings as they are stored, but for the date that loses its time of day.
std::vector<std::string> storedSettings(User& user) {
  std::vector<std::string> texts;
  for (const frame::ConfigField& field : frame::configFields())
    if (field.kind != frame::FieldKind::date)
      texts.push_back(field.name + "=" + value(user, "select " + field.name + " from " + field.table));
  return texts;
}

TEST(Config, ThePassingFocusAndOkChangeNothing) {
  User user;
  makeDictionary(user, "Gabel");
  const std::vector<std::string> before = storedSettings(user);
  inSettings(user, [&](QWidget& window) {
    auto& tabs = User::find<QTabWidget>(window, "SSTab1");
    for (int tab = 0; tab < tabs.count(); ++tab) {
      tabs.setCurrentIndex(tab);
      for (QWidget* control : tabs.currentWidget()->findChildren<QWidget*>()) {
        QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason), out(QEvent::FocusOut, Qt::TabFocusReason);
        QApplication::sendEvent(control, &in);
        QApplication::sendEvent(control, &out);
      }
    }
    user.click(window, "OK");
  });
  EXPECT_EQ(storedSettings(user), before);
}

TEST(Config, AWrongDateOrNumberKeepsTheWindowOnItsTab) {
  User user;
  makeDictionary(user, "Gabel");
  inSettings(user, [&](QWidget& window) {
    auto& tabs = User::find<QTabWidget>(window, "SSTab1");
    user.type(window, "Text10", "31.31.2020");
    show(user, window, sound);
    user.click(window, "two");
    user.answer("");
    user.click(window, "OK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(tabs.currentIndex(), static_cast<int>(reports));
    user.type(window, "Text10", "24.12.2020");
    user.type(window, "NewNumberOfDays", "sieben");
    user.answer("", "NewNumberOfDays");
    user.click(window, "OK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(value(user, "select ZweiKanal from Sprache"), "0");
    user.type(window, "NewNumberOfDays", "30");
    user.click(window, "OK");
  });
  EXPECT_EQ(value(user, "select NewNumberOfDays from Sprache"), "30");
  EXPECT_EQ(value(user, "select Year(LastReportTableUpdate) from Sprache"), "2020");
}

TEST(Config, APrintFontChangesAloneAndAnArticleIsAddedByEnter) {
  User user;
  makeDictionary(user, "Gabel");
  const std::string other = value(user, "select ObjektSchriftgroesse from Druckschriften");
  inSettings(user, [&](QWidget& window) {
    show(user, window, printFonts);
    const int examples = 5;
    user.pickRow(window, "PrintFonts", examples);
    User::find<QSpinBox>(window, "PrintFontSize").setValue(17);
    const bool wasBold = User::find<QCheckBox>(window, "PrintFontBold").isChecked();
    user.click(window, "PrintFontBold");
    EXPECT_EQ(User::textAt(window, "PrintFonts", examples, 2), "17");
    EXPECT_EQ(User::textAt(window, "PrintFonts", examples, 3), wasBold ? "" : "✓");
    show(user, window, frame::ConfigTab::entry);
    user.type(window, "TextBox2", "the");
    user.press(window, "TextBox2", Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(User::find<QLineEdit>(window, "TextBox2").text().isEmpty());
    user.click(window, "OK");
  });
  EXPECT_EQ(value(user, "select BeispielSchriftgroesse from Druckschriften"), "17");
  EXPECT_EQ(value(user, "select ObjektSchriftgroesse from Druckschriften"), other);
  EXPECT_EQ(value(user, "select count(*) from WArtikel where Artikel = 'the'"), "1");
}

TEST(Environment, FileTypesAreEditedAddedAndRemovedAndSavedAtOnce) {
  User user;
  makeDictionary(user, "Gabel");
  const int before = std::stoi(value(user, "select count(*) from Umgebung"));
  user.in("frmEnvironment", [&](QWidget& window) {
    EXPECT_FALSE(User::find<QPushButton>(window, "Save").isEnabled());
    user.click(window, "AddRow");
    auto& grid = User::find<QTableView>(window, "DBGrid1");
    const auto typing = [&grid] { return grid.viewport()->findChildren<QLineEdit*>().last(); };
    QTest::keyClicks(typing(), ".xyz");
    QTest::keyClick(typing(), Qt::Key_Tab);
    EXPECT_EQ(grid.currentIndex(), grid.model()->index(before, 1));  // goes on beside it
    QTest::keyClick(typing(), Qt::Key_Escape);
    user.answer("");  // a type without application
    user.click(window, "Save");
    EXPECT_TRUE(window.isVisible());
    User::cell(window, "DBGrid1", before, 1, "/usr/bin/less \"-S\"");
    EXPECT_EQ(value(user, "select count(*) from Umgebung"), std::to_string(before));
    user.click(window, "Save");
  });
  user.choose("mnuEnvironment");
  EXPECT_EQ(value(user, "select Anwendung from Umgebung where Dateityp = 'XYZ'"), "/usr/bin/less \"-S\"");
  const auto remove = [&](const char* button) {
    user.in("frmEnvironment", [&, button](QWidget& window) {
      const auto& grid = User::find<QTableView>(window, "DBGrid1");
      for (int row = 0; row < grid.model()->rowCount(); ++row)
        if (User::textAt(window, "DBGrid1", row, 0) == "XYZ") user.pickRow(window, "DBGrid1", row);
      user.press(window, "DBGrid1", Qt::Key_Delete);
      user.click(window, button);
    });
    user.choose("mnuEnvironment");
  };
  remove("Cancel");
  EXPECT_EQ(value(user, "select count(*) from Umgebung"), std::to_string(before + 1));
  remove("Save");
  EXPECT_EQ(value(user, "select count(*) from Umgebung"), std::to_string(before));
}

}  // namespace
