#include "store/dialogs.h"

#include "catalogue/label.h"
#include "shell/session/texts.h"

namespace store {
namespace {

platform::FileDialog dictionaryDialog(const session::Session& s, int title, int flags) {
  platform::FileDialog dialog;
  dialog.folder = s.files.paths.real(s.folders.AppDataPath).string();
  dialog.extension = "CVB";
  dialog.title = session::labelText(s, title);
  dialog.filter = session::labelText(s, label::dictionary_filter);
  dialog.flags = flags;
  return dialog;
}

}  // namespace

platform::FileDialog openDialog(const session::Session& s, int title, int flags) {
  return dictionaryDialog(s, title, flags);
}

platform::FileDialog saveDialog(const session::Session& s) {
  return dictionaryDialog(s, label::save_file_title, overwritePromptAndHideReadOnly);
}

}  // namespace store
