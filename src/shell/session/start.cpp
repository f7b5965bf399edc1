#include "shell/session/start.h"

#include <cstdlib>
#include <filesystem>

#include "shell/session/routines.h"

namespace session {
namespace {

namespace fs = std::filesystem;

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string userDataFolder() {
  if (const std::string appData = variable("APPDATA"); !appData.empty()) return appData;
  if (const std::string xdg = variable("XDG_DATA_HOME"); !xdg.empty()) return xdg;
  const std::string home = variable("HOME");
  if (home.empty())
    throw base::Error(76, "Neither APPDATA nor XDG_DATA_HOME nor HOME names a folder for your data.");
  return home + "/.local/share";
}

void place(const Session& s, const char* name) {
  const fs::path target = s.files.paths.real(s.folders.AppConfigPath + "/" + name);
  const fs::path shipped = shippedPath(s, name);
  std::error_code failed;
  const bool present = fs::exists(target, failed);
  if (shipped.empty()) {
    if (present) return;
    throw base::Error(53, "The program's own file " + std::string(name) + " is neither in " +
                              s.folders.AppConfigPath + " nor beside the program in " +
                              s.folders.ProgramPath + ".");
  }
  if (present && fs::last_write_time(target, failed) >= fs::last_write_time(shipped, failed) && !failed)
    return;
  CopyFileTo(s, shipped.string(), target.string(), true);
  // Its age is the program's: a later version may have been built before this copy was made.
  fs::last_write_time(target, fs::last_write_time(shipped));
}

}  // namespace

Folders foldersFromEnvironment(const std::string& programPath) {
  const std::string data = userDataFolder();
  Folders folders;
  folders.ProgramPath = programPath;
  folders.AppPath = programPath;
  folders.AppDataPath = data + "/Vocarium";
  folders.AppConfigPath = data + "/Vocarium/Config";
  folders.SystemDBPath = folders.AppConfigPath + "/corvasys.cvb";
  return folders;
}

std::string shippedPath(const Session& s, const std::string& relative) {
  for (const char* folder : {"../share", "share"}) {
    const fs::path candidate = fs::path(s.folders.ProgramPath) / folder / relative;
    if (std::error_code ignored; fs::exists(candidate, ignored)) return candidate.string();
  }
  return "";
}

void createFolders(const Session& s) {
  for (const std::string& folder : {s.folders.AppDataPath, s.folders.AppConfigPath}) {
    std::error_code failed;
    const fs::path real = s.files.paths.real(folder);
    fs::create_directories(real, failed);
    if (failed) throw fileError(failed, real.string());
  }
}

void placeSystemDatabase(const Session& s) {
  place(s, "corvasys.cvb");
  place(s, "Sys.mda");
}

engine::Login securedLogin(const Session& s) {
  engine::Login login;
  login.name = "Corvanta";
  login.user = "CorvantaAdmin";
  login.password = "LarksMoor";
  login.systemDB = s.files.paths.real(s.folders.AppConfigPath + "/Sys.mda").string();
  return login;
}

void createSecuredWorkspace(Session& s) {
  s.files.Workspace = std::make_unique<engine::Workspace>(securedLogin(s));
}

}  // namespace session
