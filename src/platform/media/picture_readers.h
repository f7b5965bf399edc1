#pragma once

#include <QImage>
#include <string>

/// Readers of formats that the toolkit does not know: other programs, each in a child process with limits.
/// They throw Error 53, 70, or one of picture_error.
namespace platform::media {

/// Reads the first picture of a file through ImageMagick; `coder` is its name of the format.
QImage readByImageMagick(const std::string& path, const std::string& coder);

/// Draws an encapsulated PostScript file through Ghostscript, which can not touch other files; at most
/// longestDrawnSide pixels long, whatever its size in points.
QImage readByGhostscript(const std::string& path);

inline constexpr int longestDrawnSide = 2000;

}  // namespace platform::media
