#pragma once

#include <string>
#include <vector>

#include "shell/session/session.h"

/// The items of the frame's menu.
namespace frame {

struct MenuItem {
  std::string name;              ///< documented name, "mnuOpen"
  std::string caption;           ///< with "&" before its accelerator
  bool needsDictionary = false;  ///< disabled while none is open
};

/// All items with their captions from the catalogue. Throws Error 9 without a catalogue.
void SetMenuCaptions(const session::Session& s, std::vector<MenuItem>& menu);
/// Whether an item can be chosen now. The recent files are always enabled.
bool isEnabled(const session::Session& s, const MenuItem& item);

}  // namespace frame
