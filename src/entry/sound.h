#pragma once

#include <string>

#include "entry/frmEintrag.h"

/// The sound of an entry: recorded in the quality that the dictionary's settings say, and played. The file
/// lies in the media folder, the entry keeps its name. The commands report failures and return whether all
/// went well; a button that is not enabled does nothing and returns false.
namespace entry {

/// Buttons of SSCommand9.
inline constexpr int recordButton = 0, stopButton = 1, playButton = 2;

/// Record: begins a recording under the alias "recwave"; the entry has no sound until it is stopped. Stop:
/// ends and saves it for the entry that it was begun for. Where it can not be saved it stays in memory for
/// another try, until the next recording or the end of the visit. Play: plays the entry's sound; returns at
/// once.
bool SSCommand9(frmEintrag& form, int index);
/// Moves the bar of the recording.
void Timer2_Timer(frmEintrag& form);
/// Drops a recording that was not saved; never throws.
void dropRecording(frmEintrag& form);

/// Plays a stored sound by its file name, as `Klang` holds it.
bool playSound(session::Session& s, const std::string& name, const std::string& formName);

}  // namespace entry
