#include "store/settings_row.h"

#include <utility>

#include "base/datetime.h"
#include "store/files.h"
#include "store/reference.h"

namespace store {
namespace {

/// Left out of the sort key when a headword begins with up to three of them.
constexpr const char* ignoreAtSort = "\"!¡¿()-_+#'?[]&%$§=´`<>|.,;:@{}~*“”";

struct Default {
  const char* field;
  engine::Value value;
};

void setDefaults(engine::Recordset& row) {
  const Default defaults[] = {
      {"khz11", false},
      {"khz22", true},
      {"khz44", false},
      {"bit8", false},
      {"bit16", true},
      {"EinKanal", true},
      {"ZweiKanal", false},
      {"BegriffPruefung", true},
      {"PictureAsURL", false},
      {"ObjectAsAltText", true},
      {"UseRelativPath", true},
      {"UseWebsitePath", false},
      {"UseAbsolutFilePath", false},
      {"ShowURLSeparate", false},
      {"ShowNewIcon", true},
      {"NewNumberOfDays", 7},
      {"SteuerzeichenFeld", "^"},
      {"SteuerzeichenSatz", "~"},
      {"EnumMeaning", true},
      {"ShowMeaningsForEditing", true},
      {"ShowRating", true},
      {"Stil1", true},
      {"Stil2", false},
      {"IgnoreAtSort", ignoreAtSort},
  };
  for (const Default& each : defaults) row.set(each.field, each.value);
}

}  // namespace

void writeSettingsRow(session::Session& s, const NewSettings& settings) {
  // Written as other programs must find it: in the real spelling, the folder with its closing separator.
  const std::string folder = mediaFolder(s, s.files.CurrentDBPath).string();
  const std::string today = base::DateTime::now().stamp().substr(0, 10);
  const PhoneticCharacters characters = readPhoneticCharacters(s);

  engine::Recordset row = s.files.CurrentDB.OpenRecordset("Sprache");
  row.AddNew();
  setDefaults(row);
  const Default chosen[] = {
      {"UebersetzungVon", settings.sourceLanguage},
      {"UebersetzungNach", settings.targetLanguage},
      {"Kurzbeschreibung", settings.description},
      {"Audiopfad", folder + "/"},
      {"Anwendungssprache", settings.german},
      {"Sortierreihenfolge", settings.sortOrder},
      {"Lautschrift", s.project.PhoneticFont},
      {"SchriftVon", s.project.FontFrom},
      {"SchriftNach", s.project.FontTo},
      {"SchriftBemerkung", s.project.FontRemark},
      {"ProjektTyp", s.project.ProjectType},
      {"LastReportTableUpdate", base::DateTime::now().stamp()},
      {"NewIconPath", folder + "/images/neu.gif"},
      {"StyleSheetPath", folder + "/stylesheets/vocarium1.css"},
      {"XMLStyleSheetPath", folder + "/stylesheets/xmlvocarium1.css"},
      {"Blog", s.project.blogChosen},
      {"DateFormat", settings.dateFormat},
      {"RightToLeftFrom", settings.rightToLeftFrom},
      {"RightToLeftTo", settings.rightToLeftTo},
      {"LastDBSave", today},
      {"LastDBCompact", today},
      {"LautschriftZeichenIpaPhon", characters.ipaPhon},
      {"LautschriftZeichenArialUnicode", characters.arialUnicode},
  };
  for (const Default& each : chosen) row.set(each.field, each.value);
  row.Update();
}

}  // namespace store
