// The settings dialog of a dictionary.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "catalogue/label.h"
#include "shell/frame/firstent.h"
#include "shell/frame/frmConfig.h"
#include "shell/session/settings.h"
#include "store/create.h"
#include "store/locale.h"
#include "store/project.h"
#include "store/reference.h"
#include "store/settings_row.h"
#include "support/test_session.h"

namespace {

using platform::box::answerNo;
using platform::box::answerYes;

class Config : public testing::Test {
 protected:
  Config() {
    store::NewLocalDB(s, test.home / "W.cvb");
    s.project.PhoneticFont = s.project.FontFrom = s.project.FontTo = s.project.FontRemark = "Arial";
    store::NewSettings settings;
    settings.sourceLanguage = "Deutsch";
    settings.targetLanguage = "Englisch";
    settings.description = "Probe";
    settings.sortOrder = store::sortOrderCaptions(s).front();
    settings.dateFormat = "yyyy";
    store::writeSettingsRow(s, settings);
    store::ImportStandardReports(s);
    store::LoadDefaultPrintFonts(s);
    store::ImportStandardSprachen(s);
    store::LoadProjectSettings(s);
    session::WriteFirstIni(s);
    s.files.Workspace->Idle();
  }

  engine::Value stored(const std::string& table, const std::string& column) {
    auto row = s.files.CurrentDB.OpenRecordset(table, engine::RecordsetKind::snapshot);
    return row.EndOfFile() ? engine::Value() : row[column];
  }
  std::string text(const std::string& column) { return stored("Sprache", column).textOrEmpty(); }
  std::int64_t count(const std::string& table) {
    return s.files.CurrentDB.OpenRecordset("select count(*) from " + table, engine::RecordsetKind::snapshot)
        .value(0)
        .asInteger();
  }

  TestSession test;
  ScriptedDesk& script = test.script;
  session::Session& s = test.session;
  browse::frmFilter filter{s};
  frame::frmConfig form{s, filter};
};

TEST_F(Config, EveryFieldIsReadAndSavedUnchangedOrChanged) {
  ASSERT_TRUE(frame::Form_Load(form));
  std::vector<std::string> before;
  for (const auto& field : frame::configFields())
    before.push_back(stored(field.table, field.name).textOrEmpty());
  ASSERT_TRUE(frame::saveConfig(form));
  EXPECT_FALSE(form.visible);
  for (std::size_t i = 1; i < before.size(); ++i) {
    const auto& field = frame::configFields()[i];
    EXPECT_EQ(stored(field.table, field.name).textOrEmpty(), before[i]) << field.name;
  }
  EXPECT_EQ(text("LastReportTableUpdate"), before[0].substr(0, 10) + " 00:00:00");

  ASSERT_TRUE(frame::Form_Load(form));
  for (const auto& field : frame::configFields()) {
    frame::ConfigValue& value = form.values[frame::configField(field.name)];
    if (field.kind == frame::FieldKind::text) value.text = field.name.starts_with("Steuer") ? "|" : "it's";
    if (field.kind == frame::FieldKind::number) value.text = "12";
    if (field.kind == frame::FieldKind::colour) value.text = "16711680";
    if (field.kind == frame::FieldKind::truth) value.on = !value.on;
  }
  ASSERT_TRUE(frame::saveConfig(form));
  for (std::size_t i = 1; i < before.size(); ++i) {
    const auto& field = frame::configFields()[i];
    if (field.kind == frame::FieldKind::option) continue;
    EXPECT_NE(stored(field.table, field.name).textOrEmpty(), before[i]) << field.name;
  }
  EXPECT_EQ(s.project.FontFrom, "it's") << "what the session holds is renewed";
  EXPECT_EQ(s.shell.projectBar.description, "it's");
  EXPECT_EQ(count("Sprache") + count("Druckschriften") + count("Autor"), 3);
}

TEST_F(Config, EmptySeparatorsAreStoredAsTheUsualOnes) {
  ASSERT_TRUE(frame::Form_Load(form));
  for (const char* field : {"SteuerzeichenFeld", "SteuerzeichenSatz", "Lautschrift", "IgnoreAtSort"})
    frame::textOf(form, field).clear();
  ASSERT_TRUE(frame::saveConfig(form));
  EXPECT_EQ(text("SteuerzeichenFeld") + text("SteuerzeichenSatz"), "^~");
  EXPECT_TRUE(stored("Sprache", "Lautschrift").isNull());
  EXPECT_EQ(s.project.IgnoreAtSort, "");
}

TEST_F(Config, WhatIsRefusedIsToldAndNothingIsWritten) {
  const std::string day = text("LastReportTableUpdate");
  const struct {
    const char *field, *text, *told;
  } cases[] = {{"LastReportTableUpdate", "31.02.2026", "gültiges Datum"},
               {"LastReportTableUpdate", "", "gültiges Datum"},
               {"NewNumberOfDays", "seven", "ganze Zahlen"},
               {"ObjektSchriftgroesse", "32768", "ganze Zahlen"},
               {"URLSchriftFarbe", "16777216", "ganze Zahlen"},
               {"SteuerzeichenFeld", "ab", ""}};
  for (const auto& each : cases) {
    ASSERT_TRUE(frame::Form_Load(form));
    frame::textOf(form, "Kurzbeschreibung") = "changed";
    frame::textOf(form, each.field) = each.text;
    EXPECT_FALSE(frame::saveConfig(form)) << each.field;
    EXPECT_TRUE(script.told(each.told)) << each.field;
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(text("Kurzbeschreibung"), "Probe") << each.field;
    script.boxes.clear();
  }
  EXPECT_EQ(text("LastReportTableUpdate"), day);
}

TEST_F(Config, ANewSortOrderIsTheSessionsLocaleAndANewLanguageCanBeChosen) {
  ASSERT_TRUE(frame::Form_Load(form));
  EXPECT_EQ(form.selectedSortOrder, 0);
  const std::string greek = session::labelText(s, label::sort_greek);
  frame::setFieldText(form, "sortierREIHENFOLGE", base::upper(greek));
  script.typeIn(" Plattdeutsch ");
  ASSERT_TRUE(frame::addLanguage(form));
  script.typeIn(" ");
  EXPECT_FALSE(frame::addLanguage(form));
  frame::setFieldText(form, "UebersetzungVon", "plattdeutsch");
  ASSERT_TRUE(frame::saveConfig(form));
  EXPECT_EQ(text("Sortierreihenfolge"), greek);
  EXPECT_EQ(s.files.CurrentLocale, *store::localeOfSortOrder(s, greek));
  EXPECT_EQ(s.shell.projectBar.from, "Plattdeutsch");
}

TEST_F(Config, TheSortOrderIsChosenInTheListWhicheverLanguageStoredIt) {
  const std::string german = session::labelText(s, label::sort_greek);
  s.files.CurrentDB.Execute("update Sprache set Sortierreihenfolge = '" + german + "'");
  s.files.Workspace->Idle();
  session::TexteEinlesen(s, 2);
  ASSERT_TRUE(frame::Form_Load(form));
  ASSERT_GE(form.selectedSortOrder, 0);
  const std::string english = session::labelText(s, label::sort_greek);
  EXPECT_EQ(form.sortOrders[static_cast<std::size_t>(form.selectedSortOrder)], english);
  EXPECT_EQ(frame::textOf(form, "Sortierreihenfolge"), english);
  ASSERT_TRUE(frame::saveConfig(form));
  EXPECT_EQ(s.files.CurrentLocale, *store::localeOfSortOrder(s, german));
}

TEST_F(Config, OptionsExcludeEachOtherAndTextsAreCheckedAgainstTheLists) {
  ASSERT_TRUE(frame::Form_Load(form));
  frame::setFieldText(form, "khz44", "yes");
  EXPECT_EQ(frame::fieldText(form, "khz22") + frame::fieldText(form, "khz44"), "noyes");
  frame::chooseOption(form, "UseWebsitePath");
  EXPECT_FALSE(frame::truthOf(form, "UseRelativPath"));
  EXPECT_TRUE(frame::truthOf(form, "bit16")) << "another group";
  for (const auto& [field, value] :
       std::vector<std::pair<std::string, std::string>>{{"khz44", "no"},
                                                        {"Blog", "maybe"},
                                                        {"UebersetzungVon", "Xy"},
                                                        {"Sortierreihenfolge", "Xy"},
                                                        {"Nothing", "1"}})
    EXPECT_THROW(frame::setFieldText(form, field, value), base::Error) << field;
}

TEST_F(Config, ListsAndFoldersAreStoredAtOnce) {
  ASSERT_TRUE(frame::Form_Load(form));
  form.articleBox = "l'";
  ASSERT_TRUE(frame::addArticle(form));
  EXPECT_EQ(form.articleBox, "");
  form.articleBox = "\"";
  EXPECT_FALSE(frame::addArticle(form));
  EXPECT_EQ(form.articles, std::vector<std::string>{"l'"});
  EXPECT_EQ(stored("WArtikel", "Artikel").asText(), "l'");

  ASSERT_FALSE(form.reportAttributes.empty());
  ASSERT_TRUE(frame::editReportAttribute(form, 0, "4711"));
  EXPECT_FALSE(frame::editReportAttribute(form, 0, "-1"));
  EXPECT_EQ(stored("StandardReports", "Eigenschaftswert").asInteger(), 4711);

  std::filesystem::create_directories(test.home / "Bücher");
  script.answer(answerNo);
  EXPECT_FALSE(frame::chooseDataFolder(form));
  script.answer(answerYes);
  script.chooseFile(test.home / "Bücher/any.~#~");
  ASSERT_TRUE(frame::chooseDataFolder(form));
  EXPECT_EQ(s.folders.AppDataPath, base::upper(test.home / "Bücher"));
  EXPECT_EQ(session::trimmedValue(session::ReadIniValue(s, "AppDataPath", "AppDataPath")),
            test.home / "Bücher");
  script.chooseFile(test.home / "neu.png");
  ASSERT_TRUE(frame::chooseNewIcon(form));
  EXPECT_EQ(frame::textOf(form, "NewIconPath"), test.home / "neu.png");
}

TEST_F(Config, APrintFontIsSixFieldsOfItsKind) {
  ASSERT_TRUE(frame::Form_Load(form));
  frame::PrintFont font = frame::ShowPrintFontAttributes(form, 5);
  EXPECT_EQ(font.size, 9);
  EXPECT_TRUE(font.bold && font.italic && !font.underlined);
  font = {"Charis SIL", 14, false, true, true, 255};
  frame::setPrintFont(form, 5, font);
  ASSERT_TRUE(frame::saveConfig(form));
  EXPECT_EQ(stored("Druckschriften", "BeispielSchriftart").asText(), "Charis SIL");
  EXPECT_EQ(stored("Druckschriften", "BeispielSchriftFarbe").asText(), "255");
  EXPECT_EQ(stored("Druckschriften", "BemerkungSchriftgroesse").asInteger(), 9);
}

TEST_F(Config, ADictionaryWithoutItsRowsGetsThem) {
  for (const char* table : {"Druckschriften", "Autor"})
    s.files.CurrentDB.Execute(std::string("delete * from ") + table + ";");
  s.files.CurrentDB.Execute("update Sprache set LastReportTableUpdate = Null");
  ASSERT_TRUE(frame::Form_Load(form));
  frame::textOf(form, "Autorname") = "Anna";
  ASSERT_TRUE(frame::saveConfig(form));
  EXPECT_EQ(stored("Autor", "Autorname").asText(), "Anna");
  EXPECT_TRUE(stored("Druckschriften", "URLSchriftart").isNull());
  EXPECT_EQ(text("LastReportTableUpdate"), "01.01.2000 00:00:00");
}

TEST_F(Config, TheWizardCanFinishAgainAfterAFailure) {
  frame::firstent wizard(s);
  frame::Form_Load(wizard);
  wizard.sourceLanguage = wizard.targetLanguage = "Deutsch";
  wizard.sortOrder = wizard.sortOrders.front();
  wizard.description = "Probe";
  wizard.author = std::string(256, 'x');
  EXPECT_THROW(frame::finish(wizard), base::Error);
  wizard.author = "Anna";
  ASSERT_TRUE(frame::finish(wizard));
  EXPECT_EQ(count("Sprache") + count("Autor"), 2);
  EXPECT_EQ(frame::sortOrderLabel(wizard), session::labelText(s, label::wizard_sort_order) + " " +
                                               session::labelText(s, label::wizard_sort_for_source) + ": " +
                                               wizard.sortOrder);
}

}  // namespace
