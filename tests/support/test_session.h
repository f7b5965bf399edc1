#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "shell/session/session.h"
#include "shell/session/start.h"
#include "shell/session/texts.h"
#include "support/scripted_desk.h"
#include "support/temp_dir.h"

/// A session as it is after start, in a home of its own: folders, system database, workspace and texts.
/// Sets APPDATA for the process; the latest one holds.
class TestSession {
 public:
  TestSession() : session(script.desk()) {
    setenv("APPDATA", home.path().c_str(), 1);
    session.folders = session::foldersFromEnvironment(VOCARIUM_BINARY_DIR);
    session::createFolders(session);
    session::placeSystemDatabase(session);
    session::createSecuredWorkspace(session);
    session::LoadTextCatalogue(session);
  }

  std::string dialog(int key) const { return session::dialogText(session, key); }
  std::string label(int key) const { return session::labelText(session, key); }
  /// The error log's text; empty when nothing was reported.
  std::string log() const {
    const std::filesystem::path path = session.folders.AppConfigPath + "/Vocarium_Error_Log.TXT";
    return std::filesystem::is_regular_file(path) ? test::TempDir::read(path) : "";
  }

  test::TempDir home;
  ScriptedDesk script;
  session::Session session;
};
