#pragma once

#include "shell/session/session.h"

/// The rows that a new dictionary starts with. Most come from the system database, which is read through
/// a workspace of its own, in the language that `Sprache.Anwendungssprache` asks for.
namespace store {

/// Properties and subject fields: the whole standard catalogue for a dictionary of type 1, three fixed
/// rows for type 2.
void ImportStandardEigenschaftenundSachgebiete(session::Session& s);
void ImportStandardSprachen(session::Session& s);
void ImportStandardKodierungen(session::Session& s, engine::Database& db);
/// The calendar, serving the message loop a row.
void ImportWZeit(session::Session& s, engine::Database& db);
/// Report attributes.
void ImportStandardReports(session::Session& s);
/// The application for each type of attached file.
void FillDefaultEnvironment(engine::Database& db);
/// The print fonts, from the session's project fonts; replaces what is there.
void LoadDefaultPrintFonts(session::Session& s);

/// The phonetic characters of the two font families, as the system database offers them.
struct PhoneticCharacters {
  std::string ipaPhon, arialUnicode;
};
PhoneticCharacters readPhoneticCharacters(session::Session& s);

}  // namespace store
