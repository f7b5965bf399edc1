#pragma once

#include <string>
#include <vector>

#include "shell/session/session.h"

namespace entry {

/// The phonetic characters that the input buttons of the open dictionary offer, in their order; a button may
/// insert several, as a letter with its marks. Those of the font IPAPHON where it is the phonetic font,
/// otherwise those of Unicode fonts. Blanks part them in the dictionary's settings.
std::vector<std::string> phoneticCharacters(session::Session& s);

}  // namespace entry
