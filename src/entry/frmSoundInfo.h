#pragma once

#include <array>
#include <string>

#include "platform/desk.h"
#include "shell/session/session.h"

namespace entry {

/// What the first device for playing can do.
struct frmSoundInfo : platform::Form {
  explicit frmSoundInfo(session::Session& s) : Form("frmSoundInfo"), session(s) {}

  struct Line {
    std::string text;
    bool supported = false;
  };
  session::Session& session;
  std::string device;
  std::array<Line, 12> formats;
};

/// Reads the capabilities; reports that there is no device. The formats are listed in any case.
bool Form_Load(frmSoundInfo& form);

}  // namespace entry
