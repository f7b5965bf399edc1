#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/session/session.h"

namespace store {

/// The locale of new files, and of the session before a dictionary was opened.
inline constexpr const char* defaultLocale = ";LANGID=0x0409;CP=1252;COUNTRY=0";

/// The place in sortOrderCaptions of the sort order with this caption in German or English, as a dictionary
/// keeps the caption that its author saw; nothing for any other text.
std::optional<std::size_t> placeOfSortOrder(session::Session& s, std::string_view caption);
/// Its connect string.
std::optional<std::string> localeOfSortOrder(session::Session& s, std::string_view caption);
/// The captions of all sort orders, as the wizard and the settings offer them.
std::vector<std::string> sortOrderCaptions(const session::Session& s);
/// Sets CurrentLocale, which the next compaction gives to the file; an unknown caption leaves it.
void DefSortOrder(session::Session& s, std::string_view caption);

}  // namespace store
