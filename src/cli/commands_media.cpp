// The command that gives an entry a picture.

#include <iostream>

#include "cli/application.h"
#include "cli/editing.h"
#include "entry/pictures.h"
#include "platform/media/picture_files.h"

namespace cli {

int runPictureSet(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  const std::string file = existingFile(app, words[2]);
  platform::media::PictureFiles files;
  return withDictionary(app, words[0], [&] {
    select(app, id);
    return inEditor(app, editEntry, [&](entry::frmEintrag& form) {
      // Only now: the picture that the entry has need not be read.
      app.session.desk.media.images = &files;
      app.console.answerFileDialog({file});
      const bool set = entry::Command4(form);
      app.session.desk.media.images = nullptr;
      required(set);
      save(form);
      std::cout << form.record.Bild << '\n';
    });
  });
}

}  // namespace cli
