#include "shell/frame/firstent.h"

#include <algorithm>

#include "base/datetime.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "store/create.h"
#include "store/locale.h"
#include "store/reference.h"
#include "store/settings_row.h"

namespace frame {
namespace {

constexpr const char* fallbackFont = "Arial";
constexpr const char* unicodeFont = "Arial Unicode MS";

struct Required {
  bool missing;
  int message;
};

bool tellMissing(firstent& form) {
  const Required choices[] = {
      {form.hasLanguages && form.sourceLanguage.empty(), dialog::missing_source_language},
      {form.hasLanguages && form.targetLanguage.empty(), dialog::missing_target_language},
      {base::trim(form.description).empty(), dialog::missing_description},
      {form.sortOrder.empty(), dialog::missing_sort_order},
  };
  for (const Required& choice : choices) {
    if (!choice.missing) continue;
    session::showMessage(form.session, choice.message, platform::box::information);
    return true;
  }
  return false;
}

std::string chosen(const std::string& font) {
  return font.empty() ? fallbackFont : font;
}

void takeFonts(firstent& form) {
  session::Project& project = form.session.project;
  project.PhoneticFont = chosen(form.phoneticFont);
  project.FontFrom = chosen(form.fontFrom);
  project.FontTo = chosen(form.fontTo);
  project.FontRemark = chosen(form.fontRemark);
}

void writeAuthor(firstent& form) {
  engine::Recordset row = form.session.files.CurrentDB.OpenRecordset("Autor");
  row.AddNew();
  row.set("Autorname", form.author);
  row.set("Copyright", form.copyright);
  row.set("AutorWebURL", form.webSite);
  row.set("AutorEMail", form.mail);
  row.Update();
}

// What an attempt that failed has left behind.
void emptyTables(engine::Database& db) {
  for (const char* table : {"Sprache", "StandardReports", "Autor"})
    db.Execute(std::string("delete * from ") + table + ";");
}

}  // namespace

void choosePanel(frmChooseDBType& form, int panel) {
  if (panel < 0 || panel > 2) throw base::Error(engine::errors::invalidArgument, "There is no such panel.");
  form.session.project.ProjectType = panel == 1 ? 1 : 2;
  form.session.project.blogChosen = panel == 2;
}

void cancel(frmChooseDBType& form) {
  form.session.files.NewDBCancelled = true;
}

bool SystemFontExists(session::Session& s, const std::string& name) {
  const std::vector<std::string> fonts = s.desk.outside.fontNames();
  return std::ranges::find(fonts, name) != fonts.end();
}

void Form_Load(firstent& form) {
  session::Session& s = form.session;
  form.hasLanguages = s.project.ProjectType == 1;
  form.dateSample = base::formatDate(base::DateTime::now(), wizardDateFormat, s.texts.UILanguage == 2);
  form.fonts = s.desk.outside.fontNames();
  form.sortOrders = store::sortOrderCaptions(s);
  if (SystemFontExists(s, unicodeFont)) form.fontFrom = form.fontTo = form.fontRemark = unicodeFont;
  SelectCountry(form);
}

void SelectCountry(firstent& form) {
  session::Session& s = form.session;
  form.languages.clear();
  s.files.Workspace->Idle();  // a file can not be attached amid gathered writes
  engine::Database system =
      s.files.Workspace->OpenDatabase(s.files.paths.real(s.folders.SystemDBPath).string(), false, true);
  appendLanguages(
      form.languages,
      system.OpenRecordset(form.german ? "select * from standardsprachen order by sprache"
                                       : "select * from standardsprachenenglisch order by sprache"));
  appendOwnLanguages(s, form.languages);
}

void addLanguage(firstent& form) {
  if (askForNewLanguage(form.session)) SelectCountry(form);
}

std::string sortOrderLabel(const firstent& form) {
  if (form.sortOrder.empty()) return {};
  const session::Session& s = form.session;
  return session::labelText(s, label::wizard_sort_order) + " " +
         session::labelText(
             s, form.hasLanguages ? label::wizard_sort_for_source : label::wizard_sort_for_project) +
         ": " + form.sortOrder;
}

bool finish(firstent& form) {
  if (tellMissing(form)) return false;
  session::Session& s = form.session;
  takeFonts(form);
  store::NewSettings settings;
  settings.sourceLanguage = form.sourceLanguage;
  settings.targetLanguage = form.targetLanguage;
  settings.description = base::trim(form.description);
  settings.sortOrder = form.sortOrder;
  settings.german = form.german;
  settings.rightToLeftFrom = form.rightToLeftFrom;
  settings.rightToLeftTo = form.rightToLeftTo;
  settings.dateFormat = wizardDateFormat;
  emptyTables(s.files.CurrentDB);
  store::writeSettingsRow(s, settings);
  store::ImportStandardReports(s);
  writeAuthor(form);
  store::LoadDefaultPrintFonts(s);
  session::commitGathered(s);
  form.finished = true;
  return true;
}

void cancel(firstent& form) {
  session::Session& s = form.session;
  if (!session::confirmed(s, dialog::cancel_new_dictionary)) return;
  store::discardNewDictionary(s);
  form.cancelled = true;
}

}  // namespace frame
