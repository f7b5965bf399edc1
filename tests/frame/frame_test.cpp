#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/datetime.h"
#include "base/text.h"
#include "browse/commands.h"
#include "catalogue/dialog.h"
#include "entry/frmDeleteEintragEigenschaftSach.h"
#include "entry/frmEintrag.h"
#include "shell/frame/firstent.h"
#include "shell/frame/frmConfig.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/settings.h"
#include "store/frmBackup.h"
#include "support/test_session.h"

namespace {

namespace fs = std::filesystem;

/// A program as a user starts it, in a home of its own.
class Frame : public testing::Test {
 protected:
  Frame() { setenv("APPDATA", home.path().c_str(), 1); }
  void start() {
    ASSERT_TRUE(frame::frmStart_Load(s, VOCARIUM_BINARY_DIR));
    ASSERT_TRUE(frame::frmMDI_Initialize(form));
    ASSERT_TRUE(frame::frmMDI_Load(form));
    ASSERT_TRUE(frame::frmMDI_Activate(form));
  }
  std::string text(int key) const { return session::dialogText(s, key); }

  void fillWizard(const std::function<void(frame::firstent&)>& deeds) {
    script.inForm<frame::frmChooseDBType>("frmChooseDBType", [](auto& type) { frame::choosePanel(type, 1); });
    script.inForm<frame::firstent>("firstent", deeds);
  }
  static void finishWizard(frame::firstent& wizard) {
    wizard.sourceLanguage = wizard.languages.front().name;
    wizard.targetLanguage = wizard.languages.back().name;
    wizard.description = " Probe ";
    wizard.sortOrder = wizard.sortOrders.front();
    EXPECT_TRUE(frame::finish(wizard));
  }
  /// Creates a dictionary with one entry, open in a browser.
  void createDictionary(const std::string& path) {
    script.chooseFile(path);
    fillWizard(finishWizard);
    script.inForm<entry::frmEintrag>("frmEintrag", [](entry::frmEintrag& editor) {
      ASSERT_TRUE(entry::Form_Activate(editor));
      entry::headwordChanged(editor, "Anfang");
      EXPECT_TRUE(entry::Command1(editor, 2));
    });
    EXPECT_TRUE(frame::mnuNew(form)) << (script.boxes.empty() ? "" : script.boxes.back().text);
  }
  void setBackupDate(int daysAgo) {
    engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
    row.Edit();
    row.set("LastDBSave", base::DateTime::now().plusDays(-daysAgo).stamp().substr(0, 10));
    row.Update();
  }

  test::TempDir home;
  ScriptedDesk script;
  session::Session s{script.desk()};
  frame::frmMDI form{s};
};

TEST_F(Frame, AFirstStartMakesItsFoldersAndOpensNothing) {
  start();
  EXPECT_TRUE(fs::exists(home / "Vocarium/Config/Vocarium2023.ini"));
  EXPECT_TRUE(fs::exists(home / "Vocarium/Config/corvasys.cvb"));
  EXPECT_TRUE(s.shell.mnuFilearray.empty());
  EXPECT_EQ(s.files.OpenDBCount, 0);
  EXPECT_TRUE(script.boxes.empty());
  EXPECT_EQ(s.folders.AppDataPath, base::upper(home / "Vocarium"));
  const auto close = std::ranges::find(form.menu, "mnuClose", &frame::MenuItem::name);
  const auto open = std::ranges::find(form.menu, "mnuOpen", &frame::MenuItem::name);
  ASSERT_TRUE(close != form.menu.end() && open != form.menu.end());
  EXPECT_FALSE(frame::isEnabled(s, *close));
  EXPECT_TRUE(frame::isEnabled(s, *open));
  EXPECT_FALSE(open->caption.empty());
}

TEST_F(Frame, ANewDictionaryIsReopenedAtTheNextStart) {
  start();
  createDictionary(home / "mein Buch");
  const std::string path = base::upper(home / "mein_Buch.CVB");
  EXPECT_EQ(s.files.CurrentDBPath, path);
  EXPECT_TRUE(fs::exists(home / "mein_Buch.CVB"));
  EXPECT_EQ(form.browsers.size(), 1U);
  EXPECT_EQ(s.shell.projectBar.description, "Probe");
  EXPECT_EQ(s.shell.mnuFilearray.front(), "&1 " + path);
  EXPECT_FALSE(s.files.NewDBPending);
  EXPECT_TRUE(frame::mnuExit(form));
  EXPECT_TRUE(form.unloaded);
  EXPECT_TRUE(form.browsers.empty());

  ScriptedDesk secondScript;
  session::Session second(secondScript.desk());
  frame::frmMDI secondForm(second);
  ASSERT_TRUE(frame::frmStart_Load(second, VOCARIUM_BINARY_DIR));
  ASSERT_TRUE(frame::frmMDI_Initialize(secondForm));
  ASSERT_TRUE(frame::frmMDI_Load(secondForm));
  ASSERT_TRUE(frame::frmMDI_Activate(secondForm));
  EXPECT_EQ(second.files.CurrentDBPath, path);
  EXPECT_TRUE(second.files.DBOpen);
  ASSERT_EQ(secondForm.browsers.size(), 1U);
  EXPECT_EQ(secondForm.browsers[0].form->list.List2, std::vector<std::string>{"Anfang"});

  EXPECT_TRUE(frame::mnuClose(secondForm));
  EXPECT_TRUE(frame::mnuExit(secondForm));
  EXPECT_FALSE(session::isPresent(session::ReadIniValue(second, "LastDB", "LastDB")));
  EXPECT_TRUE(session::isPresent(session::ReadIniValue(second, "File1", "1")));
}

TEST_F(Frame, ALastDictionaryThatIsGoneOrInLowerCaseIsNotReopened) {
  start();
  createDictionary(home / "weg.cvb");
  frame::mnuExit(form);
  fs::remove(home / "weg.CVB");
  fs::remove(home / "weg.cvb");
  for (const std::string& last : {base::upper(home / "weg.cvb"), base::upper(home / "weg.") + "cvb"}) {
    session::WriteIniValue(s, "LastDB", "LastDB", last);
    ScriptedDesk again;
    session::Session fresh(again.desk());
    frame::frmMDI frame(fresh);
    ASSERT_TRUE(frame::frmStart_Load(fresh, VOCARIUM_BINARY_DIR) && frame::frmMDI_Initialize(frame) &&
                frame::frmMDI_Load(frame));
    const bool sought = last.ends_with("CVB");
    EXPECT_EQ(frame::frmMDI_Activate(frame), !sought);
    EXPECT_EQ(again.boxes.size(), sought ? 1U : 0U);
    EXPECT_FALSE(fresh.files.DBOpen);
    EXPECT_EQ(fresh.files.OpenDBCount, 0);
    EXPECT_FALSE(fresh.shell.dictionaryMenus);
  }
}

TEST_F(Frame, TheWizardStaysOpenUntilEverythingIsChosen) {
  start();
  script.chooseFile(home / "a.cvb");
  fillWizard([&](frame::firstent& wizard) {
    EXPECT_FALSE(frame::finish(wizard));
    EXPECT_EQ(script.boxes.back().text, text(dialog::missing_source_language));
    wizard.sourceLanguage = "Deutsch";
    wizard.targetLanguage = "Englisch";
    EXPECT_FALSE(frame::finish(wizard));
    EXPECT_EQ(script.boxes.back().text, text(dialog::missing_description));
    script.typeIn("Plattdeutsch");
    frame::addLanguage(wizard);
    EXPECT_TRUE(
        std::ranges::any_of(wizard.languages, [](const auto& each) { return each.name == "Plattdeutsch"; }));
    script.answer(platform::box::answerNo, text(dialog::cancel_new_dictionary));
    frame::cancel(wizard);
    EXPECT_FALSE(wizard.cancelled);
    script.answer(platform::box::answerYes, text(dialog::cancel_new_dictionary));
    frame::cancel(wizard);
  });
  EXPECT_FALSE(frame::mnuNew(form));
  EXPECT_FALSE(fs::exists(home / "a.cvb"));
  EXPECT_FALSE(fs::exists(home / "a")) << "the media folder made for it goes as well";
  EXPECT_EQ(s.files.CurrentDBPath, "");
  EXPECT_FALSE(s.files.NewDBPending);
  for (const auto& box : script.boxes)
    EXPECT_EQ(box.text.find(text(dialog::error_occurred)), std::string::npos) << box.text;
}

TEST_F(Frame, ACancelledWizardLeavesAFolderThatWasThere) {
  start();
  home.write("Fotos/ton.wav", "sound of mine");
  script.chooseFile(home / "Fotos.cvb");
  fillWizard([](frame::firstent&) {});  // its window was closed
  EXPECT_FALSE(frame::mnuNew(form));
  EXPECT_EQ(test::TempDir::read(home / "Fotos/ton.wav"), "sound of mine");
  EXPECT_FALSE(fs::exists(home / "Fotos.cvb"));

  script.inForm<frame::frmChooseDBType>("frmChooseDBType", [](auto& type) { frame::cancel(type); });
  EXPECT_FALSE(frame::mnuNew(form));
}

TEST_F(Frame, ASixthBrowserIsRefused) {
  start();
  createDictionary(home / "a.cvb");
  for (int i = 1; i < frame::browserLimit; ++i) EXPECT_NE(frame::ShowWordInstance(form), nullptr);
  EXPECT_EQ(frame::ShowWordInstance(form), nullptr);
  EXPECT_EQ(script.boxes.back().text, text(dialog::browser_limit));
  EXPECT_EQ(script.boxes.back().flags, 48);
  EXPECT_EQ(s.shell.BrowserCount, 5);
  frame::closeBrowser(form, form.browsers[2].form.get());
  EXPECT_EQ(s.shell.openForms.size(), 4U);
  EXPECT_NE(frame::ShowWordInstance(form), nullptr);
  EXPECT_TRUE(frame::mnuClose(form));
  EXPECT_EQ(s.shell.BrowserCount, 0);
}

TEST_F(Frame, ABackupIsOfferedAfterMoreThanFifteenDays) {
  start();
  createDictionary(home / "a.cvb");
  setBackupDate(15);
  EXPECT_TRUE(frame::mnuExit(form)) << "fifteen days ask nothing";
  s.shell.FirstFrameShow = true;
  form.unloaded = false;

  ASSERT_TRUE(frame::mnuFilearray(form, 1));
  setBackupDate(16);
  script.answer(platform::box::answerCancel, text(dialog::backup_overdue));
  EXPECT_FALSE(frame::mnuExit(form));
  EXPECT_TRUE(s.files.DBOpen) << "the program runs on";
  script.answer(platform::box::answerYes, text(dialog::backup_overdue));
  script.inForm<store::frmBackup>("frmBackup", [&](store::frmBackup& backup) {
    script.answer(platform::box::answerYes, text(dialog::backup_closes_dictionary));
    EXPECT_TRUE(store::BackUpDB(backup));
    EXPECT_TRUE(fs::exists(s.files.paths.real(backup.written)));
  });
  EXPECT_TRUE(frame::mnuExit(form));
  ASSERT_TRUE(frame::mnuFilearray(form, 1));
  EXPECT_TRUE(frame::mnuExit(form)) << "the date was stored when the offer was taken";
}

TEST_F(Frame, OpeningAnotherAsksAndARefusalKeepsTheFirst) {
  start();
  createDictionary(home / "a.cvb");
  script.answer(platform::box::answerNo, text(dialog::close_open_dictionary));
  EXPECT_FALSE(frame::mnuOpen(form));
  EXPECT_TRUE(s.files.DBOpen);
  script.answer(platform::box::answerYes, text(dialog::close_open_dictionary));
  script.chooseFile(home.write("fremd.cvb", "no dictionary"));
  EXPECT_FALSE(frame::mnuOpen(form));
  EXPECT_TRUE(script.told(text(dialog::error_occurred)));
  EXPECT_EQ(s.files.OpenDBCount, 0);
  script.chooseFile(home / "a.cvb", true);
  EXPECT_TRUE(frame::mnuOpen(form));
  EXPECT_TRUE(s.files.ReadOnlyMode);
  EXPECT_EQ(s.shell.mnuFilearray.size(), 1U);
}

TEST_F(Frame, DialogsOnSettingsAndCataloguesRenewWhatTheFrameShows) {
  start();
  createDictionary(home / "a.cvb");
  script.inForm<entry::frmEintrag>("frmEintrag", [](entry::frmEintrag& editor) {
    ASSERT_TRUE(entry::Form_Activate(editor));
    entry::headwordChanged(editor, "Zaun");
    EXPECT_TRUE(entry::Command1(editor, 2));
  });
  ASSERT_TRUE(frame::onActiveBrowser(form, browse::mnuNewEntry));
  script.inForm<frame::frmConfig>("frmConfig", [](frame::frmConfig& settings) {
    frame::textOf(settings, "Kurzbeschreibung") = "Neu";
    EXPECT_TRUE(frame::saveConfig(settings));
  });
  ASSERT_TRUE(frame::mnuVocariumConfig(form));
  EXPECT_EQ(s.shell.projectBar.description, "Neu");
  EXPECT_FALSE(form.filter.properties.empty());

  s.files.CurrentDB.Execute("insert into relWoertWKat (ID_Woerterbuch, ID_WKategorie) values (1, 1)");
  script.inForm<entry::frmDeleteEintragEigenschaftSach>(
      "frmDeleteEintragEigenschaftSach", [&](entry::frmDeleteEintragEigenschaftSach& deletion) {
        const auto& items = deletion.lists.items;
        const auto item = std::ranges::find(items, 1, &entry::CatalogueItem::id);
        entry::choose(deletion.lists, static_cast<std::size_t>(item - items.begin()));
        script.answer(platform::box::answerYes);
        EXPECT_TRUE(entry::deleteEntries(deletion));
      });
  ASSERT_TRUE(frame::mnuDeleteByProperty(form));
  EXPECT_EQ(form.browsers[0].form->list.List2, std::vector<std::string>{"Zaun"});

  // A dialog that only was looked at changes nothing.
  for (const char* name : {"frmAutokat", "frmEnvironment", "frmDeleteEigenschaftSach"})
    script.inForm<platform::Form>(name, [](platform::Form&) {});
  EXPECT_TRUE(frame::mnuAutomatic(form) && frame::mnuEnvironment(form) && frame::mnuDeleteSachgebiet(form));
  EXPECT_FALSE(s.shell.failed);
}

}  // namespace
