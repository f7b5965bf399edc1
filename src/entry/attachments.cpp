#include "entry/attachments.h"

#include <filesystem>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/start_browser.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "store/dialogs.h"
#include "store/files.h"
#include "store/rows.h"

namespace entry {
namespace {

namespace fs = std::filesystem;

AttachmentRow readRow(const engine::Recordset& row) {
  return {row["ID_Attachment"].asInteger(), row["AttachmentName"].textOrEmpty(),
          row["Attachment"].textOrEmpty(), row["AttachmentNotiz"].textOrEmpty()};
}

engine::Recordset openForWriting(frmEintrag& form) {
  return form.session.files.CurrentDB.OpenRecordset(
      "select distinctrow * from Attachment where ID_Woerterbuch =" +
      std::to_string(form.session.entry.CurrentEntryId));
}

void placeOn(engine::Recordset& rows, std::int64_t id) {
  rows.FindFirst("ID_Attachment = " + std::to_string(id));
  if (rows.NoMatch()) throw base::Error(engine::errors::recordDeleted, "This attachment has been deleted.");
}

void forgetSelection(frmEintrag& form) {
  form.SelectedAttachmentId = 0;
}

void clearBoxes(frmEintrag& form) {
  form.attachmentNoteBox.clear();
  form.attachmentFileBox.clear();
  form.attachmentNameBox.clear();
  form.EditedAttachmentId = 0;
}

// The file in the box as it is really spelled.
fs::path chosenFile(const frmEintrag& form) {
  const std::string text = base::trim(form.attachmentFileBox);
  const base::Paths& paths = form.session.files.paths;
  if (text.empty() || !fs::is_regular_file(paths.real(text)))
    throw base::Error(engine::errors::fileNotFound,
                      session::dialogText(form.session, dialog::file_missing) + " " + text);
  return fs::absolute(paths.real(text)).lexically_normal();
}

// What came of a file that is to lie in the dictionary's folder.
struct Placed {
  fs::path target;
  bool refused = false;  ///< another file of this name was to stay
  bool made = false;     ///< the file was not there before
};

Placed placeInFolder(frmEintrag& form, const fs::path& source) {
  session::Session& s = form.session;
  store::CheckIfDBDirExists(s, s.files.CurrentDBPath);
  Placed placed{attachmentPath(s, source.filename().string())};
  const bool exists = fs::exists(placed.target);
  if (exists && fs::equivalent(source, placed.target)) return placed;
  if (exists && !session::confirmed(s, session::dialogText(s, dialog::replace_attached_file) + s.CRLF +
                                           placed.target.string())) {
    placed.refused = true;
    return placed;
  }
  session::CopyFileTo(s, source.string(), placed.target.string(), true);
  placed.made = !exists;
  return placed;
}

void writeRow(frmEintrag& form, const std::string& file) {
  engine::Recordset rows = openForWriting(form);
  if (form.EditedAttachmentId != 0) {
    placeOn(rows, form.EditedAttachmentId);
    rows.Edit();
  } else {
    rows.AddNew();
    rows.set("ID_Woerterbuch", form.session.entry.CurrentEntryId);
  }
  rows.set("AttachmentName", form.attachmentNameBox);
  rows.set("Attachment", file);
  rows.set("AttachmentNotiz", form.attachmentNoteBox);
  rows.Update();
}

// False when the user kept another file of this name.
bool store(frmEintrag& form) {
  const fs::path source = chosenFile(form);
  if (!form.attachmentIsCopied) {
    writeRow(form, source.string());
    session::commitGathered(form.session);
    return true;
  }
  const Placed placed = placeInFolder(form, source);
  if (placed.refused) return false;
  try {
    writeRow(form, placed.target.filename().string());
    session::commitGathered(form.session);
  } catch (...) {
    std::error_code ignored;
    if (placed.made) fs::remove(placed.target, ignored);
    throw;
  }
  return true;
}

bool anyRow(frmEintrag& form, const std::string& statement) {
  return !form.session.files.CurrentDB.OpenRecordset(statement, engine::RecordsetKind::snapshot).EndOfFile();
}

// Pictures and sounds lie in the same folder, and one of them may have been attached from there.
bool isUsedElsewhere(frmEintrag& form, const AttachmentRow& row) {
  const std::string file = "'" + session::escapedSQLText(row.file) + "'";
  return anyRow(form, "select ID_Attachment from Attachment where Attachment.Attachment = " + file +
                          " and ID_Attachment <> " + std::to_string(row.id)) ||
         anyRow(form, "select ID_Woerterbuch from Woerterbuch where Bild = " + file + " or Klang = " + file);
}

void deleteFile(const session::Session& s, const std::string& name) {
  const fs::path path = attachmentPath(s, name);
  std::error_code failed;
  if (!fs::is_regular_file(path, failed)) return;
  fs::remove(path, failed);
  if (failed) throw session::fileError(failed, path.string());
}

}  // namespace

std::vector<AttachmentRow> attachmentRows(frmEintrag& form) {
  return store::allRows<AttachmentRow>(form.attachments, readRow);
}

bool selectAttachment(frmEintrag& form, std::size_t row) {
  return session::guard(form.session, form.formName, [&] {
    form.attachments.setAbsolutePosition(static_cast<std::int64_t>(row));
    form.SelectedAttachmentId = readRow(form.attachments).id;
  });
}

bool Command8(frmEintrag& form) {
  return session::guard(form.session, form.formName, [&] {
    if (!store(form)) return false;
    clearBoxes(form);
    form.attachments = openForWriting(form);
    forgetSelection(form);
    form.focus = Focus::attachmentName;
    return true;
  });
}

bool Command9(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    platform::FileDialog ask;
    ask.filter = session::labelText(s, label::all_files) + " (*.*)|*.*";
    ask.flags = store::fileMustExist;
    form.attachmentFileBox = session::askOpenFile(s, ask).path;
  });
}

bool mnuEditAttachment(frmEintrag& form) {
  if (form.SelectedAttachmentId == 0) return false;
  return session::guard(form.session, form.formName, [&] {
    engine::Recordset rows = openForWriting(form);
    placeOn(rows, form.SelectedAttachmentId);
    const AttachmentRow row = readRow(rows);
    form.attachmentNameBox = row.name;
    form.attachmentNoteBox = row.note;
    form.attachmentFileBox = row.file.empty() ? row.file : attachmentPath(form.session, row.file);
    form.attachmentIsCopied = liesInDictionaryFolder(row.file);
    form.EditedAttachmentId = row.id;
    form.focus = Focus::attachmentName;
  });
}

bool mnuDeleteAttachment(frmEintrag& form) {
  if (form.SelectedAttachmentId == 0) return false;
  return session::guard(form.session, form.formName, [&] {
    engine::Recordset rows = openForWriting(form);
    placeOn(rows, form.SelectedAttachmentId);
    const AttachmentRow row = readRow(rows);
    rows.Delete();
    session::commitGathered(form.session);
    if (!row.file.empty() && liesInDictionaryFolder(row.file) && !isUsedElsewhere(form, row))
      deleteFile(form.session, row.file);
    if (form.EditedAttachmentId == row.id) clearBoxes(form);
    AttachmentRefill(form);
  });
}

bool openAttachment(frmEintrag& form) {
  if (form.SelectedAttachmentId == 0) return false;
  return session::guard(form.session, form.formName, [&] {
    engine::Recordset rows = openForWriting(form);
    placeOn(rows, form.SelectedAttachmentId);
    return UserControl_Click(form.session, form.formName, Opens::attachment,
                             rows["Attachment"].textOrEmpty());
  });
}

void AttachmentRefill(frmEintrag& form) {
  form.attachments =
      form.session.files.CurrentDB.OpenRecordset("BegriffAttachmentParam", engine::RecordsetKind::dynaset,
                                                 {{"lWortID", form.session.entry.CurrentEntryId}});
  forgetSelection(form);
}

void clearAttachments(frmEintrag& form) {
  if (form.attachments.isOpen()) form.attachments.Close();
  forgetSelection(form);
  clearBoxes(form);
}

}  // namespace entry
