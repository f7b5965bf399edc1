#include "shell/frame/config_fields.h"

#include <algorithm>

#include "base/text.h"
#include "engine/types/types.h"

namespace frame {
namespace {

using enum ConfigTab;
using enum FieldKind;

// The settings row in its documented order; behind it the settings that follow the author's taste alone.
std::vector<ConfigField> settingsFields() {
  constexpr const char* row = "Sprache";
  return {
      {"LastReportTableUpdate", row, date, reports, "Text10", ""},
      {"UebersetzungVon", row, text, languages, "Grid1", "", true},
      {"UebersetzungNach", row, text, languages, "Grid2", "", true},
      {"khz11", row, option, sound, "khz11", "khz"},
      {"khz22", row, option, sound, "khz22", "khz"},
      {"khz44", row, option, sound, "khz44", "khz"},
      {"bit8", row, option, sound, "bit8", "bit"},
      {"bit16", row, option, sound, "bit16", "bit"},
      {"EinKanal", row, option, sound, "one", "Kanal"},
      {"ZweiKanal", row, option, sound, "two", "Kanal"},
      {"Anwendungssprache", row, truth, program, "", ""},
      {"Sortierreihenfolge", row, text, sorting, "List2", ""},
      {"Lautschrift", row, text, sorting, "List3", ""},
      {"SchriftVon", row, text, sorting, "List4", ""},
      {"SchriftNach", row, text, sorting, "List5", ""},
      {"SchriftBemerkung", row, text, sorting, "List6", ""},
      {"RightToLeftFrom", row, truth, languages, "", ""},
      {"RightToLeftTo", row, truth, languages, "", ""},
      {"NewIconPath", row, text, publishing, "Text1", "", true},
      {"NewNumberOfDays", row, number, publishing, "", ""},
      {"StyleSheetPath", row, text, publishing, "", "", true},
      {"XMLStyleSheetPath", row, text, publishing, "", ""},
      {"SteuerzeichenFeld", row, text, entry, "", "", true},
      {"SteuerzeichenSatz", row, text, entry, "", "", true},
      {"EnumMeaning", row, truth, entry, "", ""},
      {"ShowMeaningsForEditing", row, truth, entry, "", ""},
      {"Stil1", row, truth, publishing, "", ""},
      {"Stil2", row, truth, publishing, "", ""},
      {"UseAbsolutFilePath", row, option, publishing, "", "Path"},
      {"UseWebsitePath", row, option, publishing, "", "Path"},
      {"UseRelativPath", row, option, publishing, "", "Path"},
      {"Blog", row, truth, publishing, "", ""},
      {"DateFormat", row, text, publishing, "", "", true},
      {"LautschriftZeichenArialUnicode", row, text, sorting, "", "", true},
      {"IgnoreAtSort", row, text, entry, "", ""},
      {"Kurzbeschreibung", row, text, languages, "", ""},
      {"VerwendungAbkuerzungen", row, truth, entry, "", ""},
      {"BegriffPruefung", row, truth, entry, "", ""},
      {"ShowRating", row, truth, publishing, "", ""},
      {"ShowURLSeparate", row, truth, publishing, "", ""},
      {"ShowNewIcon", row, truth, publishing, "", ""},
      {"PictureAsURL", row, truth, publishing, "", ""},
      {"ObjectAsAltText", row, truth, publishing, "", ""},
  };
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
  std::vector<ConfigField> fields = settingsFields();
  appendPrintFonts(fields);
  for (const char* name : {"Autorname", "Copyright", "AutorWebURL", "AutorEMail"})
    fields.push_back({name, "Autor", text, author, "", "", true});
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
