#pragma once

#include <string>
#include <string_view>

#include "shell/session/session.h"

/// The per-user settings file and the list of recent dictionaries, which also stands in the file menu.
namespace session {

inline constexpr int recentFileLimit = 8;

/// Path of the settings file in the session's configuration folder.
std::string settingsPath(const Session& s);

/// Reads a value as into a buffer of 128 zero characters, of which at most 127 are
/// filled. A value of two characters and more comes back cut to its length; a shorter or missing one as
/// the whole buffer with its zeros, so it is not empty. Callers ask `isPresent` or trim.
/// Sections and keys compare without case. A missing file reads as empty.
std::string ReadIniValue(const Session& s, std::string_view section, std::string_view key);
/// Whether a value that ReadIniValue gave counts as one: greater than a blank.
bool isPresent(std::string_view value);
/// The value without the buffer's zeros and the blanks around it.
std::string trimmedValue(std::string_view value);

/// The contents of a first start: the folders, no dictionary, eight empty places. Throws 70, 61, 53.
void WriteFirstIni(const Session& s);
/// Rewrites the whole file. `AppDataPath` comes from the environment again, not from the session.
void WriteIniFile(const Session& s);
/// Changes one value and leaves the rest of the file as it is; adds section and key where missing.
void WriteIniValue(const Session& s, std::string_view section, std::string_view key, std::string_view value);

/// Fills the list of recent files from the settings file.
void GenerateFileMenu(Session& s);
/// Enters CurrentDBPath: a known path changes nothing, a growing list appends, a full one puts it first
/// and drops the last.
void UpdateMenu(Session& s);
/// The path behind a caption of the list, which is an accelerator and a blank before it.
std::string pathOfCaption(std::string_view caption);

}  // namespace session
