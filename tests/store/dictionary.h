#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "shell/session/routines.h"
#include "store/close.h"
#include "store/create.h"
#include "store/files.h"
#include "store/locale.h"
#include "store/open.h"
#include "store/settings_row.h"
#include "support/error_of.h"
#include "support/test_session.h"

/// Dictionaries on real files in a home of their own.
class StoreTest : public testing::Test {
 protected:
  engine::Database& db() { return s.files.CurrentDB; }

  /// A new dictionary with its settings row, open as after the wizard, without reference data.
  std::string create(const std::string& name, int projectType = 1) {
    const std::string path = t.home / name;
    s.project.ProjectType = projectType;
    s.project.FontFrom = s.project.FontTo = s.project.FontRemark = s.project.PhoneticFont = "Arial";
    store::NewLocalDB(s, path);
    store::NewSettings settings;
    settings.sourceLanguage = "Deutsch";
    settings.targetLanguage = "Englisch";
    settings.description = "Test";
    settings.sortOrder = store::sortOrderCaptions(s).front();
    settings.dateFormat = "yyyy";
    store::prepareMediaFolder(s, false);
    store::writeSettingsRow(s, settings);
    s.files.OpenDBCount = 1;
    s.files.dictionaryList = {s.files.CurrentDBPath};
    s.files.Workspace->Idle();
    return path;
  }
  /// The same, closed.
  std::string createClosed(const std::string& name, int projectType = 1) {
    const std::string path = create(name, projectType);
    store::CloseCurrentDB(s);
    return path;
  }
  void open(const std::string& path, bool readOnly = false) {
    ASSERT_TRUE(store::openDictionary(s, path, readOnly));
  }

  /// An entry as it stands after saving; returns its number.
  std::int64_t addEntry(engine::Database& file, const std::string& headword, int level = 1) {
    engine::Recordset row = file.OpenRecordset("Woerterbuch");
    row.AddNew();
    const std::int64_t id = row["ID_Woerterbuch"].asInteger();
    row.set("ID_Woerterbuch1", id);
    row.set("Begriff", headword);
    row.set("SortBegriff", headword);
    row.set("MetaSuche", "////" + headword);
    row.set("Ebene", level);
    row.set("DatabaseName", base::upper(file.Name()));
    row.set("DateTimeStampLastChange", "01.02.2020 10:00:00");
    row.Update();
    return id;
  }
  std::int64_t addEntry(const std::string& headword, int level = 1) {
    return addEntry(db(), headword, level);
  }
  std::int64_t addRow(const std::string& table,
                      const std::vector<std::pair<std::string, engine::Value>>& values) {
    engine::Recordset row = db().OpenRecordset(table);
    row.AddNew();
    const engine::Value key = row.value(0);
    for (const auto& [field, value] : values) row.set(field, value);
    row.Update();
    return key.isNull() ? 0 : key.asInteger();
  }

  /// All rows of a statement: fields joined by ",", rows by "|", Null as "NULL".
  std::string rows(const std::string& sql) {
    engine::Recordset set = db().OpenRecordset(sql, engine::RecordsetKind::snapshot);
    std::string all;
    for (; !set.EndOfFile(); set.MoveNext()) {
      if (!all.empty()) all += "|";
      for (std::size_t i = 0; i < set.Fields().size(); ++i)
        all += (i > 0 ? "," : "") + (set.value(i).isNull() ? std::string("NULL") : set.value(i).asText());
    }
    return all;
  }
  std::int64_t count(const std::string& table) {
    engine::Recordset set = db().OpenRecordset("select count(*) from " + table);
    return set.value(0).asInteger();
  }
  TestSession t;
  session::Session& s = t.session;
};
