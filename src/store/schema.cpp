#include "store/schema.h"

#include "base/text.h"
#include "engine/text_index.h"

namespace store {
namespace {

struct RelationRow {
  const char *name, *table, *foreignTable, *field, *foreignField;
};
constexpr RelationRow relationRows[] = {
    {"WoerterbuchWortbedeutung", "Woerterbuch", "Wortbedeutung", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"WoerterbuchURL", "Woerterbuch", "URL", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"WoerterbuchQuerverweis", "Woerterbuch", "Querverweis", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"WortbedeutungWortBedBsp", "Wortbedeutung", "WortBedBsp", "ID_Wortbedeutung", "ID_Wortbedeutung"},
    {"WKategorieRelWortbedWKat", "WKategorie", "relWortbedWKat", "ID_WKategorie", "ID_WKategorie"},
    {"WortbedeutungRelWortbedWKat", "Wortbedeutung", "relWortbedWKat", "ID_Wortbedeutung",
     "ID_Wortbedeutung"},
    {"SachgebietRelWortbedSachgebiet", "WSachgebiet", "relWortbedSachgebiet", "ID_Sachgebiet",
     "ID_Sachgebiet"},
    {"WortbedeutungRelWortbedSachgebiet", "Wortbedeutung", "relWortbedSachgebiet", "ID_Wortbedeutung",
     "ID_Wortbedeutung"},
    {"WoerterbuchRelWoertWKat", "Woerterbuch", "relWoertWKat", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"WKategorieRelWoertWKat", "WKategorie", "relWoertWKat", "ID_WKategorie", "ID_WKategorie"},
    {"WoerterbuchRelWoertSachgebiet", "Woerterbuch", "relWoertSachgebiet", "ID_Woerterbuch",
     "ID_Woerterbuch"},
    {"WSachgebietRelWoertSachgebiet", "WSachgebiet", "relWoertSachgebiet", "ID_Sachgebiet", "ID_WSachgebiet"},
    {"WoerterbuchWoerterbuchFlat", "Woerterbuch", "WoerterbuchFlat", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"WortbedeutungWortbedeutungFlat", "Wortbedeutung", "WortbedeutungFlat", "ID_Wortbedeutung",
     "ID_Wortbedeutung"},
    {"WoerterbuchAttachment", "Woerterbuch", "Attachment", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"RegelnRegelVarianten", "Regeln", "RegelVarianten", "RegelID", "RegelID"},
    {"WoerterbuchRelWoertRegel", "Woerterbuch", "relWoertRegel", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"RegelnRelWoertRegel", "Regeln", "relWoertRegel", "RegelID", "RegelID"},
    {"RegelVariantenRelRegelVariantenWKat", "RegelVarianten", "RelRegelVariantenWKat", "RegelVariantenID",
     "RegelVariantenID"},
    {"WKategorieRelRegelVariantenWKat", "WKategorie", "RelRegelVariantenWKat", "ID_WKategorie",
     "ID_WKategorie"},
    {"RegelVariantenRelRegelVariantenWSachgebiet", "RegelVarianten", "relRegelVariantenWSachgebiet",
     "RegelVariantenID", "RegelVariantenID"},
    // Ties subject fields in spite of its name.
    {"WKategorieRelRegelVariantenWSachgebiet", "WSachgebiet", "relRegelVariantenWSachgebiet", "ID_Sachgebiet",
     "ID_Sachgebiet"},
    {"WoerterbuchChangeHistory", "Woerterbuch", "ChangeHistory", "ID_Woerterbuch", "ID_Woerterbuch"},
    {"WoerterbuchNewHistory", "Woerterbuch", "NewHistory", "ID_Woerterbuch", "ID_Woerterbuch"},
};

/// Fields of a table, separated by blanks.
struct FieldRow {
  const char* table;
  const char* fields;
};
constexpr FieldRow zeroLengthFields[] = {
    {"Woerterbuch", "Aussprache Bemerkung Bild Klang PraefixBegriff"},
    {"Wortbedeutung", "Wortbedeutung DatabaseName"},
    {"WortBedBsp", "Beispiel Beispieluebersetzung"},
    {"Querverweis", "Querverweis"},
    {"RelWoertWKat", "KategorieWert"},
    {"RelWortbedWKat", "KategorieWert"},
    {"WortbedeutungFlat",
     "EigenschaftenZurWortbedeutung SachgebieteZurWortbedeutung AbkEigenschaftenZurWortbedeutung "
     "AbkSachgebieteZurWortbedeutung Beispiele Beispieluebersetzungen"},
    {"WoerterbuchFlat",
     "EigenschaftenZumBegriff SachgebieteZumBegriff AbkEigenschaftenZumBegriff AbkSachgebieteZumBegriff "
     "Querverweise URLs"},
    {"URL", "URLName URLNotiz"},
    {"Attachment", "AttachmentName AttachmentNotiz"},
    {"Sprache",
     "UebersetzungVon UebersetzungNach NewIconPath StyleSheetPath SteuerzeichenFeld SteuerzeichenSatz "
     "DateFormat LautschriftzeichenIpaPhon LautschriftzeichenArialUnicode"},
    {"Regelvarianten",
     "Voranstelltext Nachstelltext Ersetzentext ErsetzenZeichenfolge ErsetzenDurchZeichenfolge"},
    {"Autor", "Autorname Copyright AutorWebURL AutorEMail"},
};
constexpr FieldRow compressedFields[] = {
    {"Woerterbuch", "Begriff SortBegriff Aussprache MetaSuche Bemerkung DatabaseName"},
    {"Wortbedeutung", "Wortbedeutung DatabaseName"},
    {"WortbedBsp", "Beispiel Beispieluebersetzung"},
    {"WoerterbuchFlat",
     "EigenschaftenZumBegriff SachgebieteZumBegriff AbkEigenschaftenZumBegriff AbkSachgebieteZumBegriff "
     "Querverweise URLs"},
    {"WortbedeutungFlat",
     "EigenschaftenZurWortbedeutung SachgebieteZurWortbedeutung AbkEigenschaftenZurWortbedeutung "
     "AbkSachgebieteZurWortbedeutung Beispiele Beispieluebersetzungen"},
    {"Querverweis", "Querverweis"},
    {"Sprache",
     "UebersetzungVon UebersetzungNach Kurzbeschreibung Audiopfad Sortierreihenfolge NewIconPath "
     "StyleSheetPath XMLStyleSheetPath LautschriftZeichenIpaPhon LautschriftZeichenArialUnicode"},
};

/// Calls `change` with each field of the table that the row lists; a field that the table lacks is not met.
template <class Change>
void forListedFields(const engine::TableDef& table, const FieldRow& row, Change change) {
  const std::vector<std::string> listed = base::split(row.fields, " ");
  for (const engine::FieldDef& field : table.Fields())
    for (const std::string& name : listed)
      if (base::equalsIgnoreCase(field.name, name)) change(field.name);
}

}  // namespace

void CreateRelations(engine::Database& db) {
  for (const RelationRow& row : relationRows) {
    engine::Relation relation;
    relation.Name = row.name;
    relation.Table = row.table;
    relation.ForeignTable = row.foreignTable;
    relation.Attributes = engine::Relation::updateCascade + engine::Relation::deleteCascade;
    relation.field = row.field;
    relation.foreignField = row.foreignField;
    db.appendRelation(relation);
  }
}

void WatchOpeningChecks(engine::Database& db) {
  engine::TableDef entries = db.tableDef("Woerterbuch");
  for (const char* condition : {wrongMainEntries, noSortKey, noSearchText, levelZero})
    entries.watch(condition);
  db.tableDef("Wortbedeutung").watch(noEntry);
}

void KeepSubEntries(engine::Database& db) {
  db.tableDef("Woerterbuch").watch("ebene = 2", "SortBegriff");
}

void IndexSearchedTexts(engine::Database& db) {
  const std::pair<const char*, std::vector<std::string>> searched[] = {
      {"Woerterbuch", {"Begriff", "MetaSuche", "Bemerkung"}},
      {"Wortbedeutung", {"Wortbedeutung"}},
      {"WortBedBsp", {"Beispiel", "Beispieluebersetzung"}},
      {"URL", {"URLName", "URL", "URLNotiz"}}};
  for (const auto& [table, fields] : searched) engine::indexTexts(db, table, fields);
}

void SetTableProperties(engine::Database& db) {
  for (const FieldRow& row : zeroLengthFields) {
    engine::TableDef table = db.tableDef(row.table);
    forListedFields(table, row, [&](const std::string& field) { table.setAllowZeroLength(field, true); });
  }
}

void SetUniCodeCompression(session::Session& s, const std::string& path) {
  for (const FieldRow& row : compressedFields) {
    engine::Database db = s.files.Workspace->OpenDatabase(s.files.paths.real(path).string());
    engine::TableDef table = db.tableDef(row.table);
    forListedFields(table, row, [&](const std::string& field) {
      table.appendFieldProperty(field, "UnicodeCompression", "True");
    });
    db.Close();
  }
}

}  // namespace store
