#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "shell/session/session.h"

/// Paths of dictionaries and of the media folders beside them.
namespace store {

/// The path with each blank behind its last separator changed to "_".
std::string ReplaceBlanks(std::string_view path);
/// The media folder of a dictionary as it is really spelled: the dictionary's path without its last four
/// characters, without a closing separator.
std::filesystem::path mediaFolder(const session::Session& s, std::string_view dictionary);
/// Makes the media folder of a dictionary where it is missing and sets DictFolder. Throws 70, 61, 75.
void CheckIfDBDirExists(session::Session& s, std::string_view dictionary);
/// Appends ".CVB" to a file name that holds no point.
std::string withExtension(std::string path);
/// An absolute path, remembered in its real spelling; returns the upper-cased form the session works with.
/// Throws 3044 where the letters stand for two files that differ in case alone.
std::string sessionPath(session::Session& s, std::string_view path);
/// Deletes a dictionary's file and whatever its log left beside it; a missing one is no error.
void deleteDictionaryFile(const session::Session& s, std::string_view path);

}  // namespace store
