#include "shell/frame/config_fields.h"

#include <algorithm>
#include <span>

#include "base/text.h"
#include "engine/types/types.h"

namespace frame {
namespace {

using enum ConfigTab;
using enum FieldKind;

struct Row {
  const char* name;
  FieldKind kind;
  ConfigTab tab;
  const char* control = "";
  const char* group = "";
  bool takesEmpty = false;
};

constexpr Row takingEmpty(Row row) {
  row.takesEmpty = true;
  return row;
}

// The settings row in its documented order; behind it the settings that follow the author's taste alone.
constexpr Row settingsRows[] = {
    {"LastReportTableUpdate", date, reports, "Text10"},
    takingEmpty({"UebersetzungVon", text, languages, "Grid1"}),
    takingEmpty({"UebersetzungNach", text, languages, "Grid2"}),
    {"khz11", option, sound, "khz11", "khz"},
    {"khz22", option, sound, "khz22", "khz"},
    {"khz44", option, sound, "khz44", "khz"},
    {"bit8", option, sound, "bit8", "bit"},
    {"bit16", option, sound, "bit16", "bit"},
    {"EinKanal", option, sound, "one", "Kanal"},
    {"ZweiKanal", option, sound, "two", "Kanal"},
    {"Anwendungssprache", truth, program},
    {"Sortierreihenfolge", text, sorting, "List2"},
    {"Lautschrift", text, sorting, "List3"},
    {"SchriftVon", text, sorting, "List4"},
    {"SchriftNach", text, sorting, "List5"},
    {"SchriftBemerkung", text, sorting, "List6"},
    {"RightToLeftFrom", truth, languages},
    {"RightToLeftTo", truth, languages},
    takingEmpty({"NewIconPath", text, publishing, "Text1"}),
    {"NewNumberOfDays", number, publishing},
    takingEmpty({"StyleSheetPath", text, publishing}),
    {"XMLStyleSheetPath", text, publishing},
    takingEmpty({"SteuerzeichenFeld", text, entry}),
    takingEmpty({"SteuerzeichenSatz", text, entry}),
    {"EnumMeaning", truth, entry},
    {"ShowMeaningsForEditing", truth, entry},
    {"Stil1", truth, publishing},
    {"Stil2", truth, publishing},
    {"UseAbsolutFilePath", option, publishing, "", "Path"},
    {"UseWebsitePath", option, publishing, "", "Path"},
    {"UseRelativPath", option, publishing, "", "Path"},
    {"Blog", truth, publishing},
    takingEmpty({"DateFormat", text, publishing}),
    takingEmpty({"LautschriftZeichenArialUnicode", text, sorting}),
    {"IgnoreAtSort", text, entry},
    {"Kurzbeschreibung", text, languages},
    {"VerwendungAbkuerzungen", truth, entry},
    {"BegriffPruefung", truth, entry},
    {"ShowRating", truth, publishing},
    {"ShowURLSeparate", truth, publishing},
    {"ShowNewIcon", truth, publishing},
    {"PictureAsURL", truth, publishing},
    {"ObjectAsAltText", truth, publishing},
};

constexpr Row authorRows[] = {
    takingEmpty({"Autorname", text, author}),
    takingEmpty({"Copyright", text, author}),
    takingEmpty({"AutorWebURL", text, author}),
    takingEmpty({"AutorEMail", text, author}),
};

void append(std::vector<ConfigField>& fields, const char* table, std::span<const Row> rows) {
  for (const Row& row : rows)
    fields.push_back({row.name, table, row.kind, row.tab, row.control, row.group, row.takesEmpty});
}

void appendPrintFonts(std::vector<ConfigField>& fields) {
  for (const std::string kind : printFontKinds) {
    const auto add = [&](const char* suffix, FieldKind type) {
      fields.push_back({kind + "Schrift" + suffix, "Druckschriften", type, printFonts, "", ""});
    };
    add("art", text);
    add("groesse", number);
    for (const char* suffix : {"Fett", "Kursiv", "Unterstrichen"}) add(suffix, truth);
    add("Farbe", colour);
  }
}

std::vector<ConfigField> makeFields() {
  std::vector<ConfigField> fields;
  append(fields, "Sprache", settingsRows);
  appendPrintFonts(fields);
  append(fields, "Autor", authorRows);
  return fields;
}

}  // namespace

const std::vector<ConfigField>& configFields() {
  static const std::vector<ConfigField> fields = makeFields();
  return fields;
}

std::size_t configField(std::string_view name) {
  const std::vector<ConfigField>& fields = configFields();
  const auto found = std::ranges::find_if(
      fields, [&](const ConfigField& field) { return base::equalsIgnoreCase(field.name, name); });
  if (found == fields.end())
    throw base::Error(engine::errors::invalidArgument, "There is no setting \"" + std::string(name) + "\".");
  return static_cast<std::size_t>(found - fields.begin());
}

}  // namespace frame
