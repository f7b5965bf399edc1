#pragma once

#include <string>

#include "browse/display.h"
#include "shell/session/session.h"

/// The page of one entry for the web view. Texts go out as they are: authors may write markup into them.
namespace browse {

inline constexpr const char* pageFileName = "CurrentEntry.HTM";

struct WrittenPage {
  std::string path, text;
};

/// Writes the page of an entry beside its dictionary, in UTF-8, over the one of the selection before, and
/// returns it. Where the dictionary's folder refuses files the page goes to the configuration folder.
/// Throws 61, 70, 75 when that refuses it as well.
WrittenPage WriteHTMLFile(session::Session& s, const EntryAggregate& entry, const DisplaySettings& settings);

/// Whether a page shows a picture of this file name; others have to be shown beside it.
bool pageShowsPicture(const std::string& name);

/// The page for a view that is stricter than a browser: the type of its style sheet in lower case, fonts in
/// quotes and closed. Texts of a language that is written from right to left run that way in it.
std::string forStrictView(const std::string& page, const DisplaySettings& settings);

}  // namespace browse
