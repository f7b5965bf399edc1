#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <string>
#include <vector>

#include "support/user.h"

/// What several tests of the windows do.
namespace windows {

constexpr int entryTab = 0, meaningsTab = 1, examplesTab = 2, linksTab = 3, propertiesTab = 4,
              meaningPropertiesTab = 5;

/// A new dictionary with its first entry, through the panels and the wizard; it is open afterwards.
inline std::string makeDictionary(User& user, const std::string& headword) {
  const std::string path = user.home / "KUECHE.CVB";
  user.in("frmChooseDBType", [&](QWidget& window) { user.click(window, "Panel_1"); });
  user.chooseFile(path);
  user.in("firstent", [&](QWidget& window) {
    user.type(window, "SourceLanguage", "Deutsch");
    user.type(window, "TargetLanguage", "Englisch");
    user.click(window, "Next");
    user.type(window, "Description", "Küche");
    User::find<QListWidget>(window, "List1").setCurrentRow(0);
    user.click(window, "Command1");
  });
  user.in("frmEintrag", [&, headword](QWidget& window) {
    user.type(window, "HeadwordBox", headword);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNew");
  return path;
}

/// A further main entry.
inline void addEntry(User& user, const std::string& headword) {
  user.in("frmEintrag", [&, headword](QWidget& window) {
    user.type(window, "HeadwordBox", headword);
    user.press(window, "HeadwordBox", Qt::Key_Return);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
}

/// The rows of the browser's list.
inline std::vector<std::string> words(User& user) {
  std::vector<std::string> texts;
  const auto& list = user.find<QListWidget>("List2");
  for (int row = 0; row < list.count(); ++row) texts.push_back(list.item(row)->text().toStdString());
  return texts;
}

inline void select(User& user, int row) {
  user.find<QListWidget>("List2").setCurrentRow(row);
  user.settle();
}

/// Opens the settings of the dictionary.
inline void inSettings(User& user, const User::Deeds& deeds) {
  user.in("frmConfig", deeds);
  user.choose("mnuVocariumConfig");
  EXPECT_FALSE(user.hasPlans());
}

/// One value of the open dictionary.
inline std::string value(User& user, const std::string& sql) {
  auto rows = user.app->session.files.CurrentDB.OpenRecordset(sql, engine::RecordsetKind::snapshot);
  return rows.EndOfFile() ? "none" : rows.value(0).isNull() ? "Null" : rows.value(0).asText();
}

}  // namespace windows
