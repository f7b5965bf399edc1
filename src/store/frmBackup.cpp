#include "store/frmBackup.h"

#include "base/datetime.h"
#include "base/paths.h"
#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/messages.h"
#include "store/close.h"
#include "store/files.h"
#include "store/services.h"

namespace store {

void Form_Load(frmBackup& form) {
  form.source = form.session.files.CurrentDBPath;
  form.targetFolder = form.session.files.paths.real(form.session.folders.AppDataPath).string();
}

bool BackUpDB(frmBackup& form) {
  session::Session& s = form.session;
  if (form.source.empty()) throw base::Error(53, session::dialogText(s, dialog::no_dictionary_open));
  const std::string source = sessionPath(s, form.source);
  if (s.files.DBOpen && !closedAfterQuestion(s, dialog::backup_closes_dictionary, label::question_title))
    return false;

  const base::DateTime now = base::DateTime::now();
  const std::string name = base::withoutExtension4(base::fileName(s.files.paths.real(source).string())) +
                           "_" + base::formatDate(now, "yyyy-mm-dd") + "_" +
                           base::formatDate(now, "hh-nn-ss") + ".CVB";
  const std::string target = sessionPath(s, form.targetFolder + "/" + name);
  {
    const session::Busy busy(s, session::labelText(s, label::backing_up) + " " + source + " " + target);
    copyFileOnly(s, source, target);
    if (form.withMedia) copyMediaFolder(s, source, target);
  }
  form.written = target;
  std::string text = session::dialogText(s, dialog::backup_done) + " " + target;
  if (form.withMedia)
    text +=
        s.CRLF + session::dialogText(s, dialog::backup_with_media) + " " + mediaFolder(s, target).string();
  session::showBox(s, text + ".", platform::box::exclamation);
  return true;
}

}  // namespace store
