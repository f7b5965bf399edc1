// The fields of the settings dialog one by one, and its commands beside saving.

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/frame/frmConfig.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/settings.h"
#include "store/dialogs.h"

namespace frame {
namespace {

constexpr const char* pictureFilter =
    "Bilder (*.bmp; *.jpg; *.wmf; *.gif; *pcx; *dcx; *.pcd; *.fpx; *.psd; *.png; *.tga;*.eps; *.wpg)|*.bmp; "
    "*.jpg; *.wmf; *.gif; *pcx; *dcx; *.pcd; *.fpx; *.psd; *.png; *.tga;*.eps; *.wpg";

bool isOn(FieldKind kind) {
  return kind == FieldKind::truth || kind == FieldKind::option;
}

ConfigValue& valueOf(frmConfig& form, std::string_view field) {
  return form.values.at(configField(field));
}

[[noreturn]] void refuse(int number, const std::string& text, std::string_view field) {
  throw base::Error(number, "\"" + text + "\" is nothing that " + std::string(field) + " can be.");
}

bool truthFrom(const std::string& text, std::string_view field) {
  for (const char* yes : {"yes", "true", "on", "1", "-1"})
    if (base::equalsIgnoreCase(text, yes)) return true;
  for (const char* no : {"no", "false", "off", "0"})
    if (base::equalsIgnoreCase(text, no)) return false;
  refuse(engine::errors::typeMismatch, text, field);
}

// The languages and sort orders are chosen from their lists, as they are spelled there.
std::string chosenText(const frmConfig& form, std::string_view field, const std::string& text) {
  std::vector<std::string> choices;
  if (field == "Sortierreihenfolge") choices = form.sortOrders;
  if (field == "UebersetzungVon" || field == "UebersetzungNach")
    for (const Language& language : form.languages) choices.push_back(language.name);
  if (choices.empty()) return text;
  const auto found =
      std::ranges::find_if(choices, [&](const auto& each) { return base::equalsIgnoreCase(each, text); });
  if (found == choices.end()) refuse(engine::errors::invalidArgument, text, field);
  return *found;
}

}  // namespace

std::string& textOf(frmConfig& form, std::string_view field) {
  return valueOf(form, field).text;
}

bool& truthOf(frmConfig& form, std::string_view field) {
  return valueOf(form, field).on;
}

void chooseOption(frmConfig& form, std::string_view field) {
  const std::vector<ConfigField>& fields = configFields();
  const std::string_view group = fields[configField(field)].group;
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (!group.empty() && group == fields[i].group) form.values[i].on = false;
  truthOf(form, field) = true;
}

std::string fieldText(const frmConfig& form, std::string_view field) {
  const std::size_t i = configField(field);
  if (!isOn(configFields()[i].kind)) return form.values.at(i).text;
  return form.values.at(i).on ? "yes" : "no";
}

void setFieldText(frmConfig& form, std::string_view name, const std::string& text) {
  const ConfigField& field = configFields()[configField(name)];
  if (!isOn(field.kind)) {
    textOf(form, name) = chosenText(form, field.name, text);
    if (field.name == "Sortierreihenfolge") SelectSortOrder(form);
    return;
  }
  const bool on = truthFrom(text, field.name);
  if (field.kind == FieldKind::truth) {
    truthOf(form, name) = on;
  } else if (on) {
    chooseOption(form, name);
  } else if (truthOf(form, name)) {
    throw base::Error(engine::errors::invalidArgument,
                      field.name + " is one of a group; turn on another of it instead.");
  }
}

bool chooseDataFolder(frmConfig& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (!session::confirmed(s, dialog::choose_data_folder)) return false;
    platform::FileDialog ask;
    ask.folder = form.dataFolder;
    ask.filter = "Ordner/Verzeichnisse|*.~#~";
    const std::string chosen = session::askSaveFile(s, ask).path;
    const std::string folder = std::filesystem::is_directory(chosen) ? chosen : base::folderOf(chosen);
    if (!std::filesystem::is_directory(folder))
      throw base::Error(engine::errors::badPath, "There is no folder " + folder + ".");
    session::WriteIniValue(s, "AppDataPath", "AppDataPath", folder);
    s.folders.AppDataPath = s.files.paths.remember(folder);
    form.dataFolder = folder;
    return true;
  });
}

bool addArticle(frmConfig& form) {
  session::Session& s = form.session;
  if (form.articleBox.empty()) return false;
  return session::guard(s, form.formName, [&] {
    s.files.Workspace->Idle();
    s.files.CurrentDB.Execute("insert into WArtikel ( Artikel ) VALUES (\"" + form.articleBox + "\")");
    s.files.Workspace->Idle();
    form.articles.push_back(form.articleBox);
    form.articleBox.clear();
  });
}

bool chooseNewIcon(frmConfig& form) {
  return session::guard(form.session, form.formName, [&] {
    platform::FileDialog ask;
    ask.filter = pictureFilter;
    ask.flags = store::fileMustExist;
    textOf(form, "NewIconPath") = session::askOpenFile(form.session, ask).path;
  });
}

bool addLanguage(frmConfig& form) {
  return session::guard(form.session, form.formName, [&] {
    if (!askForNewLanguage(form.session)) return false;
    SelectCountry(form);
    return true;
  });
}

bool editReportAttribute(frmConfig& form, std::size_t row, const std::string& digits) {
  session::Session& s = form.session;
  if (row >= form.reportAttributes.size()) return false;
  return session::guard(s, form.formName, [&] {
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
      session::showBox(s, session::dialogText(s, dialog::setting_is_no_number) + " " + digits,
                       platform::box::exclamation);
      return false;
    }
    ReportAttribute& attribute = form.reportAttributes[row];
    auto rows = s.files.CurrentDB.OpenRecordset("StandardReports");
    rows.FindFirst("ID_StandardReports = " + std::to_string(attribute.id));
    if (rows.NoMatch()) throw base::Error(engine::errors::recordDeleted, "This row has been deleted.");
    rows.Edit();
    rows.set("Eigenschaftswert", engine::Value(digits).asInteger());
    rows.Update();
    attribute.Eigenschaftswert = digits;
    return true;
  });
}

PrintFont ShowPrintFontAttributes(frmConfig& form, std::size_t kind) {
  const std::string prefix = std::string(printFontKinds.at(kind)) + "Schrift";
  const auto number = [&](const char* suffix) {
    const std::string text = base::trim(textOf(form, prefix + suffix));
    return text.empty() ? 0 : engine::Value(text).asInteger();
  };
  return {textOf(form, prefix + "art"),
          static_cast<int>(number("groesse")),
          truthOf(form, prefix + "Fett"),
          truthOf(form, prefix + "Kursiv"),
          truthOf(form, prefix + "Unterstrichen"),
          number("Farbe")};
}

void setPrintFont(frmConfig& form, std::size_t kind, const PrintFont& font) {
  const std::string prefix = std::string(printFontKinds.at(kind)) + "Schrift";
  textOf(form, prefix + "art") = font.font;
  textOf(form, prefix + "groesse") = std::to_string(font.size);
  truthOf(form, prefix + "Fett") = font.bold;
  truthOf(form, prefix + "Kursiv") = font.italic;
  truthOf(form, prefix + "Unterstrichen") = font.underlined;
  textOf(form, prefix + "Farbe") = std::to_string(font.colour);
}

}  // namespace frame
