#pragma once

#include <string>

#include "shell/session/session.h"

/// The text catalogue: menus, labels, messages and printed texts stand in the system database and are
/// read once at start. A text is named by its key in "catalogue/menu.h", "catalogue/label.h",
/// "catalogue/dialog.h" or "catalogue/print.h", which is its position there.
namespace session {

/// The text at a position. Throw Error 9 where the catalogue has none, as after a start without it.
const std::string& menuText(const Session& s, int key);
const std::string& labelText(const Session& s, int key);
const std::string& dialogText(const Session& s, int key);
const std::string& printText(const Session& s, int key);

/// All four arrays, in German. Throws what the engine throws; the arrays are empty then.
void LoadTextCatalogue(Session& s);
/// Menus, labels and messages in a language (1 German, 2 English, which becomes UILanguage); with any
/// other the three arrays are emptied and stay so.
void TexteEinlesen(Session& s, int language);
/// The printed texts again; they are German only.
void DrucktexteEinlesen(Session& s);

}  // namespace session
