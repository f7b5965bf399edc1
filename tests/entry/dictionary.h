#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "base/text.h"
#include "entry/classification.h"
#include "entry/frmEintrag.h"
#include "entry/meanings.h"
#include "shell/session/texts.h"
#include "store/create.h"
#include "store/project.h"
#include "support/scripted_desk.h"
#include "support/temp_dir.h"

/// An open, empty dictionary with the German texts, and an editor on it.
class EntryTest : public testing::Test {
 protected:
  void SetUp() override { open(1); }

  void open(int projectType) {
    s.folders.AppConfigPath = dir.path().string();
    s.texts.labelTxt = texts("label");
    for (std::string& text : texts("dialog"))
      s.texts.DialogTxt.emplace_back(s.texts.DialogTxt.size(), std::move(text));
    s.files.Workspace =
        std::make_unique<engine::Workspace>(engine::Login{"work", "owner", "secret", "", false});
    s.project.ProjectType = projectType;
    store::NewLocalDB(s, dir / "Wörter.cvb");
    auto row = db().OpenRecordset("Sprache");
    row.AddNew();
    row.set("ProjektTyp", projectType);
    row.set("BegriffPruefung", true);
    row.set("ShowMeaningsForEditing", true);
    row.set("IgnoreAtSort", "\"!-_.'");
    row.set("DateFormat", "yyyy");
    row.Update();
    store::LoadProjectSettings(s);
    s.files.Workspace->Idle();
  }

  static std::vector<std::string> texts(const std::string& kind) {
    std::ifstream file(std::string(VOCARIUM_SOURCE_DIR) + "/data/catalogue/" + kind + ".tsv");
    std::vector<std::string> result;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) result.push_back(base::split(line, "\t").at(2));
    return result;
  }

  engine::Database& db() { return s.files.CurrentDB; }

  /// All rows of a statement: fields joined by ",", rows by "|", Null as "NULL".
  std::string rows(const std::string& sql) {
    auto set = db().OpenRecordset(sql, engine::RecordsetKind::snapshot);
    std::string all;
    for (; !set.EndOfFile(); set.MoveNext()) {
      if (!all.empty()) all += "|";
      for (std::size_t i = 0; i < set.Fields().size(); ++i) {
        all += (i > 0 ? "," : "") + (set.value(i).isNull() ? std::string("NULL") : set.value(i).asText());
      }
    }
    return all;
  }
  std::string ofEntry(const std::string& columns, std::int64_t id) {
    return rows("select " + columns + " from Woerterbuch where ID_Woerterbuch = " + std::to_string(id));
  }

  /// Starts a visit in a mode on a selected row.
  void visit(int mode, std::int64_t selected = 0, std::int64_t main = 0) {
    s.entry.EntryEditMode = mode;
    s.entry.CurrentEntryId = s.entry.SelectedEntryId = selected;
    s.entry.SelectedMainEntryId = main == 0 ? selected : main;
    s.entry.CurrentBegriff.clear();
    if (mode == 1) s.entry.NewEntryLevel = 1;
    ASSERT_TRUE(entry::Form_Activate(form));
  }
  std::int64_t addMain(const std::string& headword) {
    visit(1);
    entry::headwordChanged(form, headword);
    EXPECT_TRUE(entry::Command1(form, 2)) << headword;
    return s.entry.CurrentEntryId;
  }
  std::int64_t addSub(std::int64_t main, const std::string& headword) {
    visit(2, main);
    entry::headwordChanged(form, headword);
    EXPECT_TRUE(entry::Command1(form, 0)) << headword;
    return s.entry.CurrentEntryId;
  }
  void addMeaningText(const std::string& text) {
    form.meaningBox = text;
    EXPECT_TRUE(entry::addMeaning(form));
  }
  void addExampleText(const std::string& sentence, const std::string& translation) {
    form.exampleBox = sentence;
    form.translationBox = translation;
    EXPECT_TRUE(entry::addExample(form));
  }
  void insert(const std::string& sql) { db().Execute(sql); }

  test::TempDir dir;
  ScriptedDesk script;
  session::Session s{script.desk()};
  entry::frmEintrag form{s};
};
