#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "browse/frmFilter.h"
#include "platform/desk.h"
#include "shell/frame/config_fields.h"
#include "shell/frame/languages.h"
#include "shell/session/session.h"

/// The settings of the open dictionary. Nothing of the table of fields is stored before the dialog is saved;
/// languages, articles, report attributes and the data folder are stored at once. The commands report
/// failures and return whether all went well.
namespace frame {

/// What a field shows: its text, or whether it is on.
struct ConfigValue {
  std::string text;
  bool on = false;
};

/// Font and style of one kind of printed text.
struct PrintFont {
  std::string font;
  int size = 0;
  bool bold = false, italic = false, underlined = false;
  std::int64_t colour = 0;  ///< red + 256 green + 65536 blue
};

struct ReportAttribute {
  std::int64_t id = 0;
  std::string Objekt, Eigenschaft, Eigenschaftswert;
};

struct frmConfig : platform::Form {
  frmConfig(session::Session& s, browse::frmFilter& f) : Form("frmConfig"), session(s), filter(f) {}

  session::Session& session;
  browse::frmFilter& filter;             ///< its lists are renewed when the settings were saved
  ConfigTab tab = ConfigTab::languages;  ///< SSTab1
  std::vector<ConfigValue> values;       ///< one a field, in the order of configFields()

  // What the lists offer.
  std::vector<Language> languages;      ///< Grid1, Grid2
  std::vector<std::string> sortOrders;  ///< List2
  std::vector<std::string> fonts;       ///< List3 to List6
  int selectedSortOrder = -1;           ///< of List2; -1 when the stored caption is none of them

  std::vector<std::string> articles;              ///< DataGrid2
  std::string articleBox;                         ///< TextBox2
  std::vector<ReportAttribute> reportAttributes;  ///< Data11, Data12
  std::string dataFolder;                         ///< AppDataPath
  bool visible = false;
};

bool Form_Load(frmConfig& form);
/// The OK button: checks the fields, writes them and closes. A field that is refused is told, and the dialog
/// stays on its tab with nothing written. A new sort order reaches the file at its next compaction.
bool saveConfig(frmConfig& form);

/// What a window binds a control to.
std::string& textOf(frmConfig& form, std::string_view field);
bool& truthOf(frmConfig& form, std::string_view field);
/// Turns an option on, and the others of its group off.
void chooseOption(frmConfig& form, std::string_view field);

/// A field's content as text, a truth as "yes" or "no".
std::string fieldText(const frmConfig& form, std::string_view field);
/// Sets a field from such a text. Throws 5 for an unknown field, 5 or 13 where the text is nothing
/// that the field could show: no truth, language or sort order, or an option turned off.
void setFieldText(frmConfig& form, std::string_view field, const std::string& text);

/// Asks whether to change the folder that the file dialogs start in, and for the folder. It holds until the
/// settings file is written anew at the end of the program.
bool chooseDataFolder(frmConfig& form);
/// Adds the text of the article box to the articles that the sort order skips. A double quote in it makes
/// the statement fail.
bool addArticle(frmConfig& form);
/// Asks for the picture that marks new entries.
bool chooseNewIcon(frmConfig& form);
/// Asks for a language and adds it to the dictionary.
bool addLanguage(frmConfig& form);
/// Changes the value of a report attribute: digits only, others are told.
bool editReportAttribute(frmConfig& form, std::size_t row, const std::string& digits);

/// The font of a kind of text, by its index in printFontKinds, as the fields hold it.
PrintFont ShowPrintFontAttributes(frmConfig& form, std::size_t kind);
void setPrintFont(frmConfig& form, std::size_t kind, const PrintFont& font);

// Steps; they throw.
void SelectCountry(frmConfig& form);
/// Selects the stored sort order in its list.
void SelectSortOrder(frmConfig& form);
/// Makes the chosen sort order the session's locale.
void DefSortOrder(frmConfig& form);
/// Reads the sixty fields of the print fonts.
void DruckschriftenEinlesen(frmConfig& form);

}  // namespace frame
