#include "entry/frmAutokat.h"

#include <string>

#include "shell/session/errors.h"

namespace entry {
namespace {

std::string table(bool property) {
  return property ? "WKategorie" : "WSachgebiet";
}

std::string column(const frmAutokat& form) {
  return form.tab == AutomaticTab::toEntries ? "AutoZuordnungZuBegriff" : "AutoZuordnungZuWortbedeutung";
}

std::vector<CatalogueItem> flaggedItems(frmAutokat& form, bool property) {
  return itemsOf(form.session, property,
                 "SELECT DISTINCTROW " + table(property) + ".* FROM " + table(property) + " where " +
                     column(form) + " = true order by " + (property ? "kategorie" : "sachgebiet") + ";");
}

void refill(frmAutokat& form) {
  form.properties = {allItems(form.session, true), flaggedItems(form, true)};
  form.subjects = {allItems(form.session, false), flaggedItems(form, false)};
}

frmAutokat::Lists& listsOf(frmAutokat& form, bool property) {
  return property ? form.properties : form.subjects;
}

bool write(frmAutokat& form, bool property, const std::vector<CatalogueItem>& list, std::size_t row,
           bool flag) {
  if (row >= list.size()) return false;
  return session::guard(form.session, form.formName, [&] {
    auto rows = form.session.files.CurrentDB.OpenRecordset(table(property));
    rows.FindFirst(std::string(property ? "ID_WKategorie" : "ID_Sachgebiet") + " = " +
                   std::to_string(list[row].id));
    if (rows.NoMatch()) throw base::Error(engine::errors::recordDeleted, "This item has been deleted.");
    rows.Edit();
    rows.set(column(form), flag);
    rows.Update();
    refill(form);
  });
}

void writeAll(frmAutokat& form, bool property, bool flag) {
  form.session.files.CurrentDB.Execute("UPDATE  " + table(property) + " SET " + column(form) + " = " +
                                       (flag ? "-1" : "0") + ";");
}

}  // namespace

bool Form_Load(frmAutokat& form) {
  form.tab = AutomaticTab::toEntries;
  form.meaningsShown = form.session.project.ProjectType == 1;
  return session::guard(form.session, form.formName, [&] { refill(form); });
}

bool selectTab(frmAutokat& form, AutomaticTab tab) {
  if (tab == AutomaticTab::toMeanings && !form.meaningsShown) return false;
  form.tab = tab;
  return session::guard(form.session, form.formName, [&] { refill(form); });
}

bool setFlag(frmAutokat& form, bool property, std::size_t catalogueRow) {
  return write(form, property, listsOf(form, property).catalogue, catalogueRow, true);
}

bool clearFlag(frmAutokat& form, bool property, std::size_t flaggedRow) {
  return write(form, property, listsOf(form, property).flagged, flaggedRow, false);
}

bool flagAll(frmAutokat& form, bool property, bool flagged) {
  return session::guard(form.session, form.formName, [&] {
    writeAll(form, property, flagged);
    refill(form);
  });
}

bool clearAllFlags(frmAutokat& form) {
  return session::guard(form.session, form.formName, [&] {
    writeAll(form, true, false);
    writeAll(form, false, false);
    refill(form);
  });
}

}  // namespace entry
