#include "shell/session/start.h"

#include <filesystem>

#include "base/text.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/settings.h"
#include "store/locale.h"

namespace frame {
namespace {

/// A folder of the settings file in upper case; the environment's where the file has none.
void takeFolder(session::Session& s, std::string_view section, std::string_view key, std::string& folder) {
  const std::string value = session::ReadIniValue(s, section, key);
  if (session::isPresent(value)) folder = session::trimmedValue(value);
  folder = s.files.paths.remember(folder);
}

}  // namespace

bool frmStart_Load(session::Session& s, const std::string& programPath) {
  return session::guard(s, "frmStart", [&] {
    s.shell.FirstFrameShow = true;
    s.folders = session::foldersFromEnvironment(programPath);
    session::createFolders(s);
    session::placeSystemDatabase(s);
    session::createSecuredWorkspace(s);
    if (!std::filesystem::exists(s.files.paths.real(session::settingsPath(s)))) session::WriteFirstIni(s);
    const std::string appPath = session::ReadIniValue(s, "Corvanta", "AppPath");
    if (session::isPresent(appPath)) s.folders.AppPath = session::trimmedValue(appPath);
    s.shell.SoundDevicePresent = s.desk.outside.soundDevicePresent();
  });
}

bool frmMDI_Initialize(frmMDI& form) {
  session::Session& s = form.session;
  return session::guard(s, "frmMDI", [&] {
    session::Folders& folders = s.folders;
    // The configuration folder is read last: until then it says where the settings file is.
    takeFolder(s, "Corvanta", "AppPath", folders.AppPath);
    takeFolder(s, "AppDataPath", "AppDataPath", folders.AppDataPath);
    takeFolder(s, "AppConfigPath", "AppConfigPath", folders.AppConfigPath);
    folders.SystemDBPath = folders.AppConfigPath + "/corvasys.cvb";
    session::createSecuredWorkspace(s);
  });
}

bool frmMDI_Load(frmMDI& form) {
  session::Session& s = form.session;
  return session::guard(s, "frmMDI", [&] {
    s.CRLF = "\r\n";
    session::LoadTextCatalogue(s);
    browse::attachFilter(form.filter);
    form.filter.searchBox = [&form] { return form.active == nullptr ? std::string() : form.active->Text3; };
    s.files.CurrentLocale = store::defaultLocale;
    SetMenuCaptions(s, form.menu);
    s.shell.caption = session::boxTitle(s);
    s.desk.screen.setCaption(s.shell.caption);
    session::ShowStatus(s, "", false);
    s.shell.BrowserCount = 0;
    const std::string help = s.folders.AppPath + "/vocarium.hlp";
    if (s.files.paths.exists(help)) form.helpFile = help;
    session::GenerateFileMenu(s);
  });
}

bool chooseLanguage(frmMDI& form, int language) {
  session::Session& s = form.session;
  return session::guard(s, "frmMDI", [&] {
    session::TexteEinlesen(s, language);
    SetMenuCaptions(s, form.menu);
    s.shell.StatusText = "-";
    session::ShowStatus(s, "", false);
  });
}

bool frmMDI_Activate(frmMDI& form) {
  session::Session& s = form.session;
  std::string last;
  const bool read = session::guard(
      s, "frmMDI", [&] { last = session::trimmedValue(session::ReadIniValue(s, "LastDB", "LastDB")); });
  const bool first = std::exchange(s.shell.FirstFrameShow, false);
  if (!read || !first || !last.ends_with("CVB") || !s.files.CurrentDBPath.empty()) return read;
  return mnuFilearray(form, -1);
}

}  // namespace frame
