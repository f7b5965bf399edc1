#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/frmEintrag.h"

/// Files attached to the entry in the editor. They are stored at once. A file either is copied into the
/// dictionary's folder, where its bare name is stored, or stays where it is, where its path is stored. Rows
/// count from 0 in the order that the grid shows. The commands report failures and return whether all went
/// well; one with nothing selected does nothing and returns false.
namespace entry {

struct AttachmentRow {
  std::int64_t id = 0;
  std::string name, file, note;  ///< `file` as it is stored
};
std::vector<AttachmentRow> attachmentRows(frmEintrag& form);

bool selectAttachment(frmEintrag& form, std::size_t row);
/// Stores the boxes as a new attachment, or as the one that is being edited, and copies the file where that
/// is chosen. Another file of this name in the folder is replaced only after a question. Refuses a file that
/// does not exist.
bool Command8(frmEintrag& form);
/// Asks for the file.
bool Command9(frmEintrag& form);
/// Puts the selected attachment into the boxes, for Command8 to store it again.
bool mnuEditAttachment(frmEintrag& form);
/// Deletes the selected attachment, without a question, and its file if that lies in the dictionary's folder
/// and is neither another attachment's nor the picture or sound of an entry.
bool mnuDeleteAttachment(frmEintrag& form);
/// Opens the selected attachment on the desktop.
bool openAttachment(frmEintrag& form);

// Steps; they throw.
void AttachmentRefill(frmEintrag& form);
/// Gives up list, selection and boxes, as another entry is shown.
void clearAttachments(frmEintrag& form);

}  // namespace entry
