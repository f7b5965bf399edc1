// The columns of the ten table views.

#include <span>

#include "browse/frmView.h"
#include "catalogue/label.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

using enum CellOwner;

struct DesignColumn {
  const char* field;
  int caption;
  CellOwner owner;
};

constexpr DesignColumn headword{"Begriff", label::headword, entry};
constexpr DesignColumn meaningText{"Wortbedeutung", label::meaning, meaning};

constexpr DesignColumn DataView1Design[] = {headword,
                                            {"SortBegriff", label::sort_key, entry},
                                            {"PraefixBegriff", label::sort_prefix, entry},
                                            {"Aussprache", label::pronunciation, entry},
                                            meaningText,
                                            {"Beispiel", label::example, example},
                                            {"Beispieluebersetzung", label::example_translation, example},
                                            {"Bemerkung", label::note, entry},
                                            {"Ebene", label::entry_level, entry},
                                            {"Prioritaet", label::priority, entry},
                                            {"Unterbegriff", label::sub_entries, entry}};
constexpr DesignColumn DataView2Design[] = {headword,
                                            {"Kategorie", label::property, entryProperty},
                                            {"KategorieWert", label::property_value, entryProperty},
                                            {"Abkuerzung", label::abbreviation, entryProperty}};
constexpr DesignColumn DataView3Design[] = {headword,
                                            {"Sachgebiet", label::subject, entrySubject},
                                            {"Abkuerzung", label::abbreviation, entrySubject}};
constexpr DesignColumn DataView4Design[] = {headword,
                                            meaningText,
                                            {"Kategorie", label::property, meaningProperty},
                                            {"KategorieWert", label::property_value, meaningProperty},
                                            {"Abkuerzung", label::abbreviation, meaningProperty}};
constexpr DesignColumn DataView5Design[] = {headword,
                                            meaningText,
                                            {"Sachgebiet", label::subject, meaningSubject},
                                            {"Abkuerzung", label::abbreviation, meaningSubject}};
constexpr DesignColumn DataView6Design[] = {
    headword, {"Aussprache", label::pronunciation, entry}, meaningText, {"Bemerkung", label::note, entry}};
constexpr DesignColumn DataView7DesignA[] = {headword,
                                             {"Aussprache", label::pronunciation, entry},
                                             {"ExportView1.Kategorie", label::property, locked},
                                             {"ExportView1.KategorieWert", label::property_value, locked},
                                             {"ExportView1.Sachgebiet", label::subject, locked},
                                             meaningText,
                                             {"Beispiel", label::example, locked},
                                             {"Beispieluebersetzung", label::example_translation, locked},
                                             {"WKategorie.Kategorie", label::meaning_properties, locked},
                                             {"relWortbedWKat.KategorieWert", label::property_value, locked},
                                             {"WSachgebiet.Sachgebiet", label::meaning_subjects, locked},
                                             {"Bemerkung", label::note, entry}};
constexpr DesignColumn DataView7DesignB[] = {headword,
                                             {"Kategorie", label::property, locked},
                                             {"KategorieWert", label::property_value, locked},
                                             {"Sachgebiet", label::subject, locked},
                                             {"URLName", label::link_name, url},
                                             {"URL", label::link_address, url},
                                             {"URLNotiz", label::link_note, url},
                                             {"Rating", label::link_rating, url},
                                             {"Bemerkung", label::note, entry}};
constexpr DesignColumn DataView8Design[] = {headword,
                                            {"URLName", label::link_name, url},
                                            {"URL", label::link_address, url},
                                            {"URLNotiz", label::link_note, url},
                                            {"Rating", label::link_rating, url}};
constexpr DesignColumn DataView9Design[] = {headword,
                                            {"Querverweis", label::cross_reference, crossReference}};
constexpr DesignColumn baseDesign[] = {headword,
                                       {"Aussprache", label::pronunciation, entry},
                                       {"Bemerkung", label::note, entry},
                                       {"Wortbedeutung", label::meaning, newMeaning}};

struct Design {
  const char* view;
  std::span<const DesignColumn> columns;
};
const Design designs[] = {
    {"ViewBegriffWortbedBsp", DataView1Design},        {"ViewBegriffKategorie", DataView2Design},
    {"ViewBegriffSachgebiet", DataView3Design},        {"ViewBegriffWortbedKategorie", DataView4Design},
    {"ViewBegriffWortbedsachgebiet", DataView5Design}, {"ViewBegriffWortbedeutung", DataView6Design},
    {"ViewAlleInformationen", DataView7DesignA},       {"ViewBegriffURL", DataView8Design},
    {"ViewBegriffQuerverweise", DataView9Design},      {"ViewBegriffOhneWortbedeutung", baseDesign}};
const Design allLinks{"ViewAlleInformationenURL", DataView7DesignB};

}  // namespace

void DataGridsDesign(frmView& form) {
  const bool links = form.ViewKind == 7 && form.session.project.ProjectType == 2;
  const Design& design = links ? allLinks : designs[form.ViewKind - 1];
  form.recordSource = design.view;
  form.Adodc1.columns.clear();
  form.owners.clear();
  for (const DesignColumn& column : design.columns) {
    form.Adodc1.columns.push_back({column.field, session::labelText(form.session, column.caption)});
    form.owners.push_back(column.owner);
  }
}

}  // namespace browse
