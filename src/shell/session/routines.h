#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

#include "shell/session/session.h"

/// Shared routines of the program that belong to no subsystem.
namespace session {

/// Prepares a text for a literal in apostrophes, in place, and returns it. Double quotes stay as they are.
std::string& EscapeSQLText(std::string& text);
std::string escapedSQLText(std::string_view text);

/// An operating system's failure on a file as the program's error: 53, 61, 70 or 75.
base::Error fileError(std::error_code code, const std::string& path);

/// Copies a file; the target appears whole or not at all. Returns false when the target exists and must
/// not be overwritten. Throws 53, 61, 70.
bool CopyFileTo(const Session& s, const std::string& source, const std::string& target, bool overwrite);
/// Writes a file anew; the old one stays until the new one is complete. Throws 61, 70, 75.
void writeWhole(const std::filesystem::path& path, const std::string& bytes);

/// The file dialog's filter for an output of a kind (2 XML, 3 HTML, 4 STD, 5 RSS). Throws 5 for another.
std::string BuildFileFilter(int kind);
/// A "file:///" address with "%20" for each blank.
std::string BuildFileURL(std::string_view path);

/// Opens the help at a topic, in the language of the texts; the contents page where the topic is empty or
/// has no page. Throws 53 when the help is not installed or nothing opens it.
void ShowHelpTopic(Session& s, const std::string& topic);

/// The desktop's default printer; says so when there is none and returns what there is all the same.
std::string GetDefaultPrinter(Session& s);

/// Notes a window as open; `unload` is called when others close it, after it was taken off the list.
/// Returns the number by which a window that closes by itself is forgotten.
int registerForm(Session& s, std::string name, std::function<void()> unload);
void forgetForm(Session& s, int id);
/// Unloads all open windows but the frame, the last first.
void CloseAllForms(Session& s);
/// Unloads the open windows of a name, the last first.
void CloseOpenForms(Session& s, std::string_view name);

}  // namespace session
