#pragma once

#include <string>

#include "shell/session/session.h"

/// What a process needs before its first dictionary: folders, the system database, the workspace.
namespace session {

/// The folders and the system database's path as the environment gives them: below `APPDATA`, where that
/// is not set below the user's XDG data folder. Throws Error 76 when neither that nor a home is known.
Folders foldersFromEnvironment(const std::string& programPath);

/// Makes the data and the configuration folder where they are missing. Throws 70, 61.
void createFolders(const Session& s);

/// Puts the shipped system database and workgroup file (in "../share" or "share" beside the program) into
/// the configuration folder where they are missing there or older than the shipped ones.
/// Throws Error 53 when there is nothing to put in place.
void placeSystemDatabase(const Session& s);

/// Where a file that ships with the program lies ("Stylesheets/vocarium1.css", below "../share" or "share"
/// beside the program); empty when it is not there.
std::string shippedPath(const Session& s, const std::string& relative);

/// The login that owns every dictionary and the system database.
engine::Login securedLogin(const Session& s);
/// Creates the secured workspace, through which every dictionary and the system database are opened,
/// and gives it to the session. An old one must have no open database left.
void createSecuredWorkspace(Session& s);

}  // namespace session
