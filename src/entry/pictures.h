#pragma once

#include <cstdint>
#include <string>

#include "entry/frmEintrag.h"
#include "platform/images.h"

/// The picture of an entry. The file lies in the media folder, the entry keeps its name; both are written at
/// once, whether the entry is saved later or not. The commands report failures and return whether all went
/// well; a failed one leaves entry and file as they were.
namespace entry {

/// Acquires a picture from the scanner into Lead1; SavePicture follows.
bool ScanPicture(frmEintrag& form);
/// Writes Lead1 as JPEG and makes it the entry's picture.
bool SavePicture(frmEintrag& form);
/// Asks for a picture file, in one of thirteen formats, and makes a copy of it the entry's picture. A file
/// that can not be shown is refused.
bool Command4(frmEintrag& form);
/// The same with a file that is known already, as one that was dropped on the picture.
bool dropPicture(frmEintrag& form, const std::string& path);
/// Makes the clipboard's picture the entry's.
bool SSCommand14(frmEintrag& form);
/// Shows the picture of an entry, or none.
bool OpenPicture(frmEintrag& form, std::int64_t lWortID);
/// Deletes the entry's picture and its file. A file that can not be deleted is reported; the entry loses its
/// picture all the same.
bool DeletePicture(frmEintrag& form);
/// Shows the picture of the entry in the record if the desk shows pictures; reports where that fails.
void showPictureOfRecord(frmEintrag& form);

/// Puts a picture that is shown on the clipboard.
bool mnuCopyPicture(session::Session& s, const platform::Picture& shown);

/// Reads a stored picture by its file name, as `Bild` holds it. Throws in the user's language.
platform::Picture loadPicture(session::Session& s, const std::string& name);

}  // namespace entry
