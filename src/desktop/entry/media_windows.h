#pragma once

#include "desktop/kit/dialog.h"
#include "entry/frmSoundInfo.h"
#include "entry/frmVollBild.h"

namespace desktop {

/// A picture on the full screen, drawn dot by dot where its form places it.
void buildVollBild(Dialog& dialog, entry::frmVollBild& form);

/// What the sound device can do: each format with a mark where it is supported.
void buildSoundInfo(Dialog& dialog, entry::frmSoundInfo& form);

}  // namespace desktop
