#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "entry/frmSoundInfo.h"
#include "entry/frmVollBild.h"

namespace desktop {

/// A picture on the full screen, drawn dot by dot where its form places it.
std::unique_ptr<Dialog> makeVollBild(Gate& gate, QWidget* parent, entry::frmVollBild& form);

/// What the sound device can do: each format with a mark where it is supported.
std::unique_ptr<Dialog> makeSoundInfo(Gate& gate, QWidget* parent, entry::frmSoundInfo& form);

}  // namespace desktop
