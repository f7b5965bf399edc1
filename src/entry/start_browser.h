#pragma once

#include <string>

#include "shell/session/session.h"

/// The one place where links and attachments are opened, from the editor, from the browser and from the
/// frame.
namespace entry {

enum class Opens { webSite, link, attachment };

/// Opens what the row of the form `holder` holds in `text`: the address of a link with the desktop's
/// association; the file of an attachment with the application that `Umgebung` has for its type, else with
/// the association. A bare file name lies in the dictionary's folder. The web site needs no text.
/// Reports failures under the holder's name and returns whether all went well.
bool UserControl_Click(session::Session& s, const std::string& holder, Opens what,
                       const std::string& text = {});

/// Whether an attachment is stored as a bare name and so lies in the dictionary's own folder.
bool liesInDictionaryFolder(const std::string& attachment);
/// Where the file of an attachment is, as it is really spelled. Throws 3044 for a path that stands for
/// several files.
std::string attachmentPath(const session::Session& s, const std::string& attachment);

}  // namespace entry
