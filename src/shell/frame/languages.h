#pragma once

#include <string>
#include <vector>

#include "engine/recordset.h"
#include "shell/session/session.h"

/// Languages to choose from, in the wizard and in the settings.
namespace frame {

struct Language {
  std::string name, flag;  ///< the flag's picture file; empty where there is none
};

/// Appends the rows of a table of languages that the list does not have yet.
void appendLanguages(std::vector<Language>& languages, engine::Recordset rows);
/// Appends the languages of the open dictionary, by name.
void appendOwnLanguages(session::Session& s, std::vector<Language>& languages);
/// Asks for the name of a language and adds it to the open dictionary; false when none was given.
bool askForNewLanguage(session::Session& s);

}  // namespace frame
