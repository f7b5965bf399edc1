#include "entry/classification.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/rows.h"

namespace entry {
namespace {

// How the assignments of an owner are stored: the queries that list them, and the fields that a new one sets.
struct Links {
  const char* propertyTable;  ///< query that finds and adds properties
  const char* propertyGrid;   ///< query of the value grid
  const char* subjectList;    ///< query of the subject fields
  const char* parameter;      ///< of the two lists
  const char* ownerOfProperty;
  const char* ownerOfSubject;
  const char* subject;
  int alreadyAssigned;
};

constexpr Links ofEntry{"QueryWKategorieWert",    "BegriffEigenschaftWertParam",
                        "BegriffSachgebietParam", "lWortID",
                        "ID_Woerterbuch",         "relWoertSachgebiet.ID_Woerterbuch",
                        "ID_WSachgebiet",         dialog::property_already_assigned};
constexpr Links ofMeaning{"QueryWKategorieWortbedWert",
                          "WortbedEigenschaftWertParam",
                          "WortbedSachgebietWortbedIDParam",
                          "lWortbedeutungID",
                          "ID_Wortbedeutung",
                          "relWortbedSachgebiet.ID_Wortbedeutung",
                          "relWortbedSachgebiet.ID_Sachgebiet",
                          dialog::property_already_on_meaning};

const Links& linksOf(Owner owner) {
  return owner == Owner::entry ? ofEntry : ofMeaning;
}

// The assignments on show for one owner.
struct Shown {
  engine::Recordset& properties;
  engine::Recordset& subjects;
  std::vector<std::string>& subjectNames;
  std::int64_t id;
};

Shown shownOf(frmEintrag& form, Owner owner) {
  if (owner == Owner::entry) return {form.Data13, form.Data9, form.List6, form.session.entry.CurrentEntryId};
  return {form.Data8, form.Data5, form.List5, form.lWortbedeutungID};
}

std::vector<std::string> namesIn(engine::Recordset& rows, const char* column) {
  std::vector<std::string> names;
  store::forEachRow(rows, [&](const engine::Recordset& row) { names.push_back(row[column].textOrEmpty()); });
  return names;
}

engine::Recordset openLinks(frmEintrag& form, const char* query, const char* parameter, std::int64_t id) {
  return form.session.files.CurrentDB.OpenRecordset(query, engine::RecordsetKind::dynaset, {{parameter, id}});
}

void refillProperties(frmEintrag& form, Owner owner) {
  const Shown shown = shownOf(form, owner);
  shown.properties = openLinks(form, linksOf(owner).propertyGrid, linksOf(owner).parameter, shown.id);
}

void refillSubjects(frmEintrag& form, Owner owner) {
  const Shown shown = shownOf(form, owner);
  shown.subjects = openLinks(form, linksOf(owner).subjectList, linksOf(owner).parameter, shown.id);
  shown.subjectNames = namesIn(shown.subjects, "Sachgebiet");
}

// The row of a catalogue with this name, told without regard to case; nothing when there is none.
struct Item {
  std::int64_t id;
  std::string name;
};
std::optional<Item> itemOf(engine::Recordset& catalogue, const char* nameColumn, const char* idColumn,
                           const std::string& name) {
  std::optional<Item> found;
  store::forEachRow(catalogue, [&](const engine::Recordset& row) {
    const std::string own = row[nameColumn].textOrEmpty();
    if (!found && base::equalsIgnoreCase(own, name)) found = Item{row[idColumn].asInteger(), own};
  });
  return found;
}

// Whether there is something to assign to: an entry that shows its headword, or a selected meaning.
bool hasOwner(const frmEintrag& form, Owner owner) {
  if (owner == Owner::meaning) return form.lWortbedeutungID != 0;
  return !form.captionLabels[static_cast<std::size_t>(Tab::properties)].empty();
}

bool refuseRepeated(frmEintrag& form, int before, const std::string& name, Owner owner) {
  session::Session& s = form.session;
  session::showBox(
      s, session::dialogText(s, before) + name + session::dialogText(s, linksOf(owner).alreadyAssigned),
      platform::box::exclamation);
  return false;
}

// Places an open list of assignments on the one with this name.
bool placeOn(engine::Recordset& rows, const char* column, const std::string& name) {
  if (!store::hasRows(rows)) return false;
  rows.FindFirst(std::string(column) + " = \"" + name + "\"");
  return !rows.NoMatch();
}

// The table is opened for the first item that asks for it: it may be long.
void completeEntry(frmEintrag& form, engine::Recordset& catalogue, const char* catalogueId, const char* table,
                   const char* column, std::int64_t entry) {
  engine::Recordset links;
  store::forEachRow(catalogue, [&](const engine::Recordset& item) {
    if (!store::truth(item["AutozuordnungZubegriff"])) return;
    if (!links.isOpen())
      links = form.session.files.CurrentDB.OpenRecordset(table, engine::RecordsetKind::table);
    links.AddNew();
    links.set("ID_Woerterbuch", entry);
    links.set(column, item[catalogueId]);
    links.Update();
  });
}

// The same for a meaning, where it lacks the item.
void completeMeaning(engine::Recordset& catalogue, const char* catalogueId, engine::Recordset assigned,
                     const std::string& table, const std::string& column, std::int64_t meaning) {
  store::forEachRow(catalogue, [&](const engine::Recordset& item) {
    if (!store::truth(item["AutoZuordnungZuWortbedeutung"])) return;
    const std::int64_t id = item[catalogueId].asInteger();
    if (store::hasRows(assigned)) {
      assigned.FindFirst(table + "." + column + " =" + std::to_string(id));
      if (!assigned.NoMatch()) return;
    }
    assigned.AddNew();
    assigned.set(table + ".ID_Wortbedeutung", meaning);
    assigned.set(table + "." + column, id);
    assigned.Update();
  });
}

}  // namespace

std::vector<PropertyRow> propertyRows(frmEintrag& form, Owner owner) {
  std::vector<PropertyRow> result;
  store::forEachRow(shownOf(form, owner).properties, [&](const engine::Recordset& row) {
    result.push_back({row["Kategorie"].textOrEmpty(), row["KategorieWert"].textOrEmpty()});
  });
  return result;
}

std::vector<std::string> catalogueProperties(frmEintrag& form) {
  return namesIn(form.Data3, "Kategorie");
}
std::vector<std::string> catalogueSubjects(frmEintrag& form) {
  return namesIn(form.Data7, "Sachgebiet");
}

void AttribSubjectRefill(frmEintrag& form) {
  form.Data3 = form.session.files.CurrentDB.OpenRecordset("OrderWKategorie");
  form.Data7 = form.session.files.CurrentDB.OpenRecordset("OrderWSachgebiet");
}

void FillEigenschaftSachgebietList(frmEintrag& form, std::int64_t lWortID) {
  const Links& links = ofEntry;
  form.Data13 = openLinks(form, links.propertyGrid, links.parameter, lWortID);
  form.Data9 = openLinks(form, links.subjectList, links.parameter, lWortID);
  form.List6 = namesIn(form.Data9, "Sachgebiet");
}

void clearMeaningLists(frmEintrag& form) {
  for (engine::Recordset* rows : {&form.Data8, &form.Data5}) {
    if (rows->isOpen()) rows->Close();
  }
  form.List5.clear();
  form.lWortbedeutungID = 0;
  form.meaningPropertiesLabel.clear();
}

void ClearLists(frmEintrag& form) {
  for (engine::Recordset* rows : {&form.Data13, &form.Data9}) {
    if (rows->isOpen()) rows->Close();
  }
  form.List6.clear();
  clearMeaningLists(form);
}

bool selectMeaningForProperties(frmEintrag& form, std::size_t row) {
  return session::guard(form.session, form.formName, [&] {
    form.Adodc2.setAbsolutePosition(static_cast<std::int64_t>(row));
    form.lWortbedeutungID = form.Adodc2["ID_Wortbedeutung"].asInteger();
    form.meaningPropertiesLabel = form.Adodc2["Wortbedeutung"].textOrEmpty();
    refillProperties(form, Owner::meaning);
    refillSubjects(form, Owner::meaning);
  });
}

bool addProperty(frmEintrag& form, const std::string& name, Owner owner) {
  return session::guard(form.session, form.formName, [&] {
    const auto item = itemOf(form.Data3, "Kategorie", "ID_WKategorie", name);
    if (!item || !hasOwner(form, owner)) return false;
    const Links& links = linksOf(owner);
    const std::int64_t id = shownOf(form, owner).id;
    auto rows = form.session.files.CurrentDB.OpenRecordset(links.propertyTable);
    if (store::hasRows(rows)) {
      rows.FindFirst(std::string(links.ownerOfProperty) + " = " + std::to_string(id) +
                     " and ID_WKategorie = " + std::to_string(item->id));
      if (!rows.NoMatch()) return refuseRepeated(form, dialog::property_before, item->name, owner);
    }
    rows.AddNew();
    rows.set(links.ownerOfProperty, id);
    rows.set("ID_WKategorie", item->id);
    rows.Update();
    refillProperties(form, owner);
    return true;
  });
}

bool removeProperty(frmEintrag& form, const std::string& name, Owner owner) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasOwner(form, owner)) return false;
    refillProperties(form, owner);
    engine::Recordset& rows = shownOf(form, owner).properties;
    if (!placeOn(rows, "Kategorie", name)) return false;
    rows.Delete();
    refillProperties(form, owner);
    return true;
  });
}

bool setPropertyValue(frmEintrag& form, const std::string& name, const std::string& value, Owner owner) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasOwner(form, owner)) return false;
    refillProperties(form, owner);
    engine::Recordset& rows = shownOf(form, owner).properties;
    if (!placeOn(rows, "Kategorie", name)) return false;
    rows.Edit();
    rows.set("KategorieWert", value);
    rows.Update();
    return true;
  });
}

bool addSubject(frmEintrag& form, const std::string& name, Owner owner) {
  return session::guard(form.session, form.formName, [&] {
    const auto item = itemOf(form.Data7, "Sachgebiet", "ID_Sachgebiet", name);
    if (!item || !hasOwner(form, owner)) return false;
    refillSubjects(form, owner);
    const Shown shown = shownOf(form, owner);
    const auto& names = shown.subjectNames;
    if (std::find(names.begin(), names.end(), item->name) != names.end()) {
      return refuseRepeated(form, dialog::subject_before, item->name, owner);
    }
    shown.subjects.AddNew();
    shown.subjects.set(linksOf(owner).ownerOfSubject, shown.id);
    shown.subjects.set(linksOf(owner).subject, item->id);
    shown.subjects.Update();
    shown.subjectNames.push_back(item->name);
    return true;
  });
}

bool removeSubject(frmEintrag& form, const std::string& name, Owner owner) {
  return session::guard(form.session, form.formName, [&] {
    if (!hasOwner(form, owner)) return false;
    refillSubjects(form, owner);
    const Shown shown = shownOf(form, owner);
    if (!placeOn(shown.subjects, "Sachgebiet", name)) return false;
    shown.subjects.Delete();
    refillSubjects(form, owner);
    return true;
  });
}

void EigenschaftenSachgebieteAutomatischAnBegriff(frmEintrag& form, std::int64_t lWortID) {
  if (form.session.entry.EntryEditMode >= 3 || !store::hasRows(form.Data3) || !store::hasRows(form.Data7))
    return;
  completeEntry(form, form.Data3, "ID_WKategorie", "relWoertWKat", "ID_WKategorie", lWortID);
  completeEntry(form, form.Data7, "ID_Sachgebiet", "relWoertSachgebiet", "ID_WSachgebiet", lWortID);
}

void EigenschaftenSachgebieteAutomatischZuWortbedeutung(frmEintrag& form, std::int64_t lWortbedeutungID) {
  const char* parameter = ofMeaning.parameter;
  completeMeaning(form.Data3, "ID_WKategorie",
                  openLinks(form, "WortbedKategorieWortbedIDParam", parameter, lWortbedeutungID),
                  "relWortbedWKat", "ID_WKategorie", lWortbedeutungID);
  completeMeaning(form.Data7, "ID_Sachgebiet",
                  openLinks(form, "WortbedSachgebietWortbedIDParam", parameter, lWortbedeutungID),
                  "relWortbedSachgebiet", "ID_Sachgebiet", lWortbedeutungID);
}

}  // namespace entry
