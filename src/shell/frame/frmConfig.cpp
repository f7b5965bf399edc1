// Reading and saving the settings.

#include "shell/frame/frmConfig.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/locale.h"
#include "store/project.h"
#include "store/rows.h"

namespace frame {
namespace {

constexpr const char* dayPattern = "dd.mm.yyyy";
constexpr const char* earliestDay = "01.01.2000";
constexpr std::int64_t largestNumber = 32767, largestColour = 0xFFFFFF;

bool isTruth(const ConfigField& field) {
  return field.kind == FieldKind::truth || field.kind == FieldKind::option;
}

// A report table that was never built takes all entries at the next update.
std::string dayOf(const engine::Value& stamp) {
  const auto when = base::DateTime::fromText(stamp.textOrEmpty());
  return when ? base::formatDate(*when, dayPattern) : earliestDay;
}

ConfigValue read(const ConfigField& field, const engine::Value& value) {
  if (isTruth(field)) return {{}, store::truth(value)};
  if (field.kind == FieldKind::date) return {dayOf(value)};
  return {value.textOrEmpty()};
}

void readTable(frmConfig& form, std::string_view table) {
  auto row = form.session.files.CurrentDB.OpenRecordset(std::string(table), engine::RecordsetKind::snapshot);
  const bool empty = row.EndOfFile();
  const std::vector<ConfigField>& fields = configFields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (table != fields[i].table) continue;
    form.values[i] = read(fields[i], empty ? engine::Value() : row[fields[i].name]);
  }
}

// The value of a field for its column; the fields were checked before.
engine::Value stored(const ConfigField& field, const ConfigValue& value) {
  if (isTruth(field)) return value.on;
  const std::string text = field.kind == FieldKind::text ? value.text : base::trim(value.text);
  if (text.empty()) return field.takesEmpty ? engine::Value("") : engine::Value();
  if (field.kind == FieldKind::number) return engine::Value(text).asInteger();
  if (field.kind == FieldKind::date)
    return base::formatDate(*base::DateTime::fromText(text), dayPattern) + " 00:00:00";
  return text;
}

void writeTable(frmConfig& form, std::string_view table) {
  auto row = form.session.files.CurrentDB.OpenRecordset(std::string(table));
  if (row.EndOfFile()) {
    row.AddNew();
  } else {
    row.Edit();
  }
  const std::vector<ConfigField>& fields = configFields();
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (table == fields[i].table) row.set(fields[i].name, stored(fields[i], form.values[i]));
  row.Update();
}

bool isNumber(const std::string& text, std::int64_t most) {
  const std::string digits = base::trim(text);
  if (digits.empty()) return true;
  constexpr std::size_t longest = 9;
  return digits.size() <= longest && digits.find_first_not_of("0123456789") == std::string::npos &&
         engine::Value(digits).asInteger() <= most;
}

bool isDay(const std::string& text) {
  return base::DateTime::fromText(base::trim(text)).has_value();
}

// Tells the first field whose text its column could not hold, the date before all others, and shows its tab.
bool tellRefused(frmConfig& form) {
  session::Session& s = form.session;
  if (!isDay(textOf(form, "LastReportTableUpdate"))) {
    form.tab = ConfigTab::reports;
    session::showMessage(s, dialog::invalid_report_date, platform::box::exclamation);
    return true;
  }
  const std::vector<ConfigField>& fields = configFields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const FieldKind kind = fields[i].kind;
    if (kind != FieldKind::number && kind != FieldKind::colour) continue;
    const std::int64_t most = kind == FieldKind::number ? largestNumber : largestColour;
    if (isNumber(form.values[i].text, most)) continue;
    form.tab = fields[i].tab;
    session::showBox(s, session::dialogText(s, dialog::setting_is_no_number) + " " + fields[i].name,
                     platform::box::exclamation);
    return true;
  }
  return false;
}

void setWhereEmpty(std::string& text, const char* fallback) {
  if (text.empty()) text = fallback;
}

void readArticles(frmConfig& form) {
  form.articles.clear();
  auto rows = form.session.files.CurrentDB.OpenRecordset("WArtikel", engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext()) form.articles.push_back(rows["Artikel"].textOrEmpty());
}

void readReportAttributes(frmConfig& form) {
  form.reportAttributes.clear();
  auto rows = form.session.files.CurrentDB.OpenRecordset("StandardReports", engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext())
    form.reportAttributes.push_back({rows["ID_StandardReports"].asInteger(), rows["Objekt"].textOrEmpty(),
                                     rows["Eigenschaft"].textOrEmpty(),
                                     rows["Eigenschaftswert"].textOrEmpty()});
}

void write(frmConfig& form) {
  setWhereEmpty(textOf(form, "SteuerzeichenFeld"), "^");
  setWhereEmpty(textOf(form, "SteuerzeichenSatz"), "~");
  for (const char* table : {"Sprache", "Druckschriften", "Autor"}) writeTable(form, table);
}

// What the program holds of the settings.
void renew(frmConfig& form) {
  session::Session& s = form.session;
  store::LoadProjectSettings(s);
  DefSortOrder(form);
  session::commitGathered(s);  // a file can not be attached amid gathered writes
  session::DrucktexteEinlesen(s);
  form.visible = false;
  browse::FillOrderWKategorie(form.filter);
  browse::FillOrderWSachgebiet(form.filter);
  browse::FillFilterCombos(form.filter);
  store::RefreshProjectBar(s);
  s.shell.pendingRefresh = true;
}

}  // namespace

bool Form_Load(frmConfig& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.tab = ConfigTab::languages;
    form.values.assign(configFields().size(), {});
    readTable(form, "Sprache");
    DruckschriftenEinlesen(form);
    readTable(form, "Autor");
    SelectCountry(form);
    form.sortOrders = store::sortOrderCaptions(s);
    SelectSortOrder(form);
    form.fonts = s.desk.outside.fontNames();
    readArticles(form);
    form.articleBox.clear();
    readReportAttributes(form);
    form.dataFolder = s.files.paths.real(s.folders.AppDataPath).string();
    form.visible = true;
  });
}

bool saveConfig(frmConfig& form) {
  return session::guard(form.session, form.formName, [&] {
    if (tellRefused(form)) return false;
    write(form);
    session::commitGathered(form.session);
    renew(form);
    return true;
  });
}

void SelectCountry(frmConfig& form) {
  form.languages.clear();
  appendOwnLanguages(form.session, form.languages);
}

void SelectSortOrder(frmConfig& form) {
  std::string& caption = textOf(form, "Sortierreihenfolge");
  const auto place = store::placeOfSortOrder(form.session, caption);
  form.selectedSortOrder = place ? static_cast<int>(*place) : -1;
  if (place) caption = form.sortOrders[*place];
}

void DefSortOrder(frmConfig& form) {
  store::DefSortOrder(form.session, textOf(form, "Sortierreihenfolge"));
}

void DruckschriftenEinlesen(frmConfig& form) {
  readTable(form, "Druckschriften");
}

}  // namespace frame
