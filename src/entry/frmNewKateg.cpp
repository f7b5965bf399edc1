#include "entry/frmNewKateg.h"

#include <fstream>
#include <sstream>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "store/dialogs.h"
#include "store/rows.h"

namespace entry {
namespace {

constexpr std::size_t longestName = 50, longestAbbreviation = 15;

const char* nameColumn(const frmNewKateg& form) {
  return form.CatalogueIsProperty ? "Kategorie" : "Sachgebiet";
}

void bind(frmNewKateg& form) {
  form.Data1 = form.session.files.CurrentDB.OpenRecordset(form.CatalogueIsProperty ? "OrderWKategorie"
                                                                                   : "OrderWSachgebiet");
}

void append(frmNewKateg& form, const CatalogueRow& item) {
  form.Data1.AddNew();
  form.Data1.set(nameColumn(form), item.name);
  if (!base::trim(item.abbreviation).empty()) form.Data1.set("Abkuerzung", item.abbreviation);
  try {
    form.Data1.Update();
  } catch (...) {
    form.Data1.CancelUpdate();
    throw;
  }
}

void edit(frmNewKateg& form, std::size_t row, const char* column, const engine::Value& value) {
  form.Data1.setAbsolutePosition(static_cast<std::int64_t>(row));
  form.Data1.Edit();
  try {
    form.Data1.set(column, value);
    form.Data1.Update();
  } catch (...) {
    form.Data1.CancelUpdate();
    throw;
  }
}

std::vector<CatalogueRow> readItems(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  // An empty file leaves the fail bit alone behind.
  if (!file.is_open() || bytes.bad()) throw base::Error(53, "The file " + path + " can not be read.");
  const std::string text = base::replaceAll(bytes.str(), "\r", "");
  if (!base::isUtf8(text)) throw base::Error(5, "The file " + path + " is no text in UTF-8.");
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  std::vector<CatalogueRow> items;
  for (const std::string& line : base::split(text.substr(text.starts_with(mark) ? mark.size() : 0), "\n")) {
    if (base::trim(line).empty()) continue;
    const std::vector<std::string> pieces = base::split(line, ";");
    items.push_back({base::left(pieces[0], longestName),
                     pieces.size() > 1 ? base::left(pieces[1], longestAbbreviation) : std::string()});
    if (base::trim(items.back().name).empty())
      throw base::Error(5, "The line \"" + line + "\" of " + path + " has no name.");
  }
  return items;
}

}  // namespace

bool Form_Load(frmNewKateg& form) {
  Text1_Change(form, "");
  form.Text2.clear();
  return session::guard(form.session, form.formName, [&] { bind(form); });
}

std::vector<CatalogueRow> catalogueRows(frmNewKateg& form) {
  return store::allRows<CatalogueRow>(form.Data1, [&](const engine::Recordset& row) {
    return CatalogueRow{row[nameColumn(form)].textOrEmpty(), row["Abkuerzung"].textOrEmpty()};
  });
}

void Text1_Change(frmNewKateg& form, const std::string& text) {
  form.Text1 = text;
  form.addEnabled = !text.empty();
}

bool addItem(frmNewKateg& form) {
  if (!form.addEnabled) return false;
  return session::guard(form.session, form.formName, [&] {
    append(form, {form.Text1, form.Text2});
    session::commitGathered(form.session);
    Text1_Change(form, "");
    form.Text2.clear();
    bind(form);
  });
}

bool editName(frmNewKateg& form, std::size_t row, const std::string& text) {
  return session::guard(form.session, form.formName, [&] {
    if (base::trim(text).empty()) {
      session::showMessage(form.session, dialog::name_must_not_be_empty, platform::box::exclamation);
      return false;
    }
    edit(form, row, nameColumn(form), text);
    return true;
  });
}

bool editAbbreviation(frmNewKateg& form, std::size_t row, const std::string& text) {
  return session::guard(form.session, form.formName, [&] {
    edit(form, row, "Abkuerzung", text.empty() ? engine::Value() : engine::Value(text));
  });
}

bool AddFile(frmNewKateg& form) {
  session::Session& s = form.session;
  form.imported = 0;
  return session::guard(s, form.formName, [&] {
    platform::FileDialog ask;
    ask.filter = "TXT (*.txt)|*.txt";
    ask.flags = store::fileMustExist;
    const std::string path = session::askOpenFile(s, ask).path;
    if (!base::upper(path).ends_with("TXT")) {
      session::showBox(s,
                       session::dialogText(s, dialog::not_a_text_file) + s.CRLF +
                           session::dialogText(s, dialog::catalogue_file_form),
                       platform::box::exclamation);
      return false;
    }
    const std::vector<CatalogueRow> items = readItems(path);
    if (!session::confirmed(s, dialog::import_catalogue_file)) return false;
    for (const CatalogueRow& item : items) {
      append(form, item);
      ++form.imported;
    }
    bind(form);
    return true;
  });
}

}  // namespace entry
