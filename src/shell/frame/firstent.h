#pragma once

#include <string>
#include <vector>

#include "platform/desk.h"
#include "shell/frame/languages.h"
#include "shell/session/session.h"

/// The dialogs that a new dictionary begins with.
namespace frame {

/// What kind of project to create.
struct frmChooseDBType : platform::Form {
  explicit frmChooseDBType(session::Session& s) : Form("frmChooseDBType"), session(s) {}
  session::Session& session;
};
/// Panel 0 an encyclopaedia or link collection, 1 a dictionary, 2 a blog. Throws Error 5 for another.
void choosePanel(frmChooseDBType& form, int panel);
void cancel(frmChooseDBType& form);

/// The wizard that fills the settings of a new dictionary.
struct firstent : platform::Form {
  explicit firstent(session::Session& s) : Form("firstent"), session(s) {}
  session::Session& session;

  bool hasLanguages = true;         ///< false for projects without a language pair
  std::vector<Language> languages;  ///< of both grids
  std::vector<std::string> sortOrders, fonts;
  std::string dateSample;  ///< today in the date format
  bool german = true;      ///< language of the standard catalogues

  std::string sourceLanguage, targetLanguage, description, sortOrder;
  std::string phoneticFont, fontFrom, fontTo, fontRemark;  ///< empty: not chosen
  bool rightToLeftFrom = false, rightToLeftTo = false;
  std::string author, copyright, webSite = "http://", mail;

  bool finished = false, cancelled = false;  ///< unloaded by the one or the other
};

inline constexpr const char* wizardDateFormat = "d. mmmm yyyy, hh:mm:ss (dddd)";

/// Fills lists and defaults before the wizard is shown.
void Form_Load(firstent& form);
/// Whether the desktop has a font of exactly this name.
bool SystemFontExists(session::Session& s, const std::string& name);
/// The chosen sort order behind what it is for (Label4); empty while none is chosen.
std::string sortOrderLabel(const firstent& form);
/// Fills the languages: the standard ones in the catalogues' language, and those added.
void SelectCountry(firstent& form);
/// Asks for the name of a language and adds it.
void addLanguage(firstent& form);
/// Writes the settings of the new dictionary and unloads the wizard. A missing choice is told and keeps
/// the wizard open: false then. It may be tried again after a failure.
bool finish(firstent& form);
/// After a yes, takes the new dictionary away again and unloads the wizard.
void cancel(firstent& form);

}  // namespace frame
