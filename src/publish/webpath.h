#pragma once

#include <string>
#include <string_view>

#include "publish/frmPrint.h"

namespace publish {

/// What a path in a publication stands for.
enum class WebPathKind { output = 1, styleSheet = 2, media = 3, image = 4 };

/// The address under which a local file stands in the published output, by the dictionary's three path
/// settings, of which the last true one wins. `dictionaryPath` gives the media folder's name. Separators
/// become "/", blanks "%20".
std::string GetWebPath(const PublishSettings& settings, std::string_view path, WebPathKind kind,
                       std::string_view dictionaryPath);

/// Where the support files of a run come from and go to: beside the dictionary first, else the program's.
struct SupportFile {
  std::string source;  ///< empty when there is none
  std::string target;  ///< below the output's folder
};
SupportFile styleSheetFor(const session::Session& session, const std::string& outputFolder);
SupportFile imageFor(const session::Session& session, std::string_view name, std::string_view targetName,
                     const std::string& outputFolder);

/// Copies style sheet, images and the media folder beside the output; files that are there already stay.
void copySupportFiles(const frmPrint& form, const std::string& outputFolder);

}  // namespace publish
