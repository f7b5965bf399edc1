// The picture and the sound of the entry on show.

#include <filesystem>
#include <optional>
#include <utility>

#include "browse/display.h"
#include "browse/frmWoerter.h"
#include "browse/page_html.h"
#include "catalogue/label.h"
#include "entry/frmVollBild.h"
#include "entry/pictures.h"
#include "entry/sound.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

/// Whether reading the picture takes so long that the user has to be told.
bool isLarge(const std::string& path) {
  constexpr std::uintmax_t large = 500'000;  // bytes
  std::error_code missing;
  const std::uintmax_t size = std::filesystem::file_size(path, missing);
  return !missing && size > large;
}

}  // namespace

void OpenPicture(frmWoerter& form) {
  session::Session& s = form.session;
  EntryDisplay& display = form.display;
  display.Image1.reset();
  display.pictureFailure.clear();
  const std::string& name = display.aggregate.entry.Bild;
  if (display.picture.empty() || s.desk.media.images == nullptr) return;
  if (display.asPage && pageShowsPicture(name)) return;
  std::optional<session::Busy> busy;
  if (isLarge(display.picture)) busy.emplace(s, session::labelText(s, label::picture) + " " + name);
  try {
    display.Image1 = std::make_shared<const platform::Picture>(entry::loadPicture(s, name));
  } catch (...) {
    const base::Error error = session::currentError();
    display.pictureFailure = error.text();
    session::NoteError(s, error, "frmWoerter");
  }
}

bool Image1_DblClick(frmWoerter& form) {
  return entry::showFullScreen(form.session, form.display.aggregate.entry.Bild);
}

bool playEntrySound(frmWoerter& form) {
  if (form.display.sound.empty()) return false;
  return entry::playSound(form.session, form.display.aggregate.entry.Klang, "frmWoerter");
}

}  // namespace browse
