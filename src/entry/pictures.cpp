#include "entry/pictures.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/attempt.h"
#include "entry/media_files.h"
#include "platform/scanner.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"

namespace entry {
namespace {

constexpr std::array<std::string_view, 13> extensions{"BMP", "JPG", "WMF", "GIF", "PCX", "DCX", "PCD",
                                                      "FPX", "PSD", "PNG", "TGA", "EPS", "WPG"};
// Two of its patterns have no point; they choose the same files and more.
constexpr const char* patterns =
    "*.bmp; *.jpg; *.wmf; *.gif; *pcx; *dcx; *.pcd; *.fpx; *.psd; *.png; *.tga;*.eps; *.wpg";

platform::Images& images(const session::Session& s) {
  return port(s, s.desk.media.images);
}

std::string extensionOf(const session::Session& s, const std::string& path) {
  const std::string name = base::fileName(path);
  const std::size_t point = name.rfind('.');
  std::string extension = point == std::string::npos ? "" : base::upper(name.substr(point + 1));
  if (extension == "JPEG") extension = "JPG";
  if (std::ranges::find(extensions, extension) == extensions.end())
    throw worded(s, base::Error(platform::picture_error::unknownFormat, path), FileUse::read, path);
  return "." + base::lower(extension);
}

void clearPicture(frmEintrag& form) {
  const int version = form.picture.version + 1;
  form.picture = {};
  form.picture.version = version;
  form.pictureShown = false;
}

void showPicture(frmEintrag& form, platform::Picture picture) {
  form.picture.Lead1 = std::move(picture);
  ++form.picture.version;
  form.picture.deleteEnabled = form.picture.zoomEnabled = true;
  form.pictureShown = form.tab == Tab::entry;
}

using StoreName = std::function<void(const std::string& name)>;

bool namedByAnEntry(session::Session& s, const std::string& name) {
  auto rows = s.files.CurrentDB.OpenRecordset(
      "select id_woerterbuch from woerterbuch where bild = '" + session::escapedSQLText(name) + "'",
      engine::RecordsetKind::snapshot);
  return !rows.EndOfFile();
}

/// Takes away the file of a picture that another one has replaced, where no entry names it any more.
void removeReplaced(frmEintrag& form, const std::string& name) {
  session::Session& s = form.session;
  if (base::trim(name).empty() || namedByAnEntry(s, name) || !s.files.paths.exists(mediaPath(s, name)))
    return;
  session::commitGathered(s);
  attempt(form, [&] { removeMediaFile(s, name); });
}

/// Gives the entry a picture file: its derived name goes into the row by `store`, `write` makes the file.
void setPicture(frmEintrag& form, const std::string& extension, const StoreName& store,
                const std::function<void(const std::string& path)>& write) {
  session::Session& s = form.session;
  const std::string name = mediaFileName(s, s.entry.CurrentEntryId, extension);
  const std::string path = s.files.paths.real(writtenMediaFolder(s) + name).string();
  changeTogether(s, [&] {
    store(name);
    onMediaFile(s, FileUse::written, path, [&] { write(path); });
  });
  const std::string before = std::exchange(form.record.Bild, name);
  if (before != name) removeReplaced(form, before);
}

StoreName byStatement(session::Session& s) {
  return [&s](const std::string& name) { storeMediaName(s, "bild", name, s.entry.CurrentEntryId); };
}

StoreName byRow(session::Session& s) {
  return [&s](const std::string& name) {
    auto row = s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::dynaset,
                                               {{"lWortID", s.entry.CurrentEntryId}});
    row.Edit();
    row.set("BILD", name);
    row.Update();
  };
}

/// Makes a copy of a picture file the entry's picture, if it can be shown.
void takeFile(frmEintrag& form, const std::string& source) {
  session::Session& s = form.session;
  const session::Busy busy(s, "");
  const std::string extension = extensionOf(s, source);
  platform::Picture picture = onMediaFile(s, FileUse::read, source, [&] { return images(s).load(source); });
  setPicture(form, extension, byRow(s),
             [&](const std::string& path) { session::CopyFileTo(s, source, path, true); });
  showPicture(form, std::move(picture));
}

}  // namespace

platform::Picture loadPicture(session::Session& s, const std::string& name) {
  const std::string path = mediaPath(s, name);
  return onMediaFile(s, FileUse::read, path, [&] { return images(s).load(path); });
}

bool ScanPicture(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    requireWritable(s);
    const session::Busy busy(s, session::labelText(s, label::scanning));
    onMediaFile(s, FileUse::read, "", [&] { form.picture.Lead1 = port(s, s.desk.media.scanner).acquire(); });
    ++form.picture.version;
  });
}

bool SavePicture(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    try {
      if (form.picture.Lead1.empty())
        throw base::Error(platform::picture_error::damaged,
                          session::dialogText(s, dialog::entry_has_no_picture));
      const session::Busy busy(s, "");
      setPicture(form, ".jpg", byStatement(s),
                 [&](const std::string& path) { images(s).save(form.picture.Lead1, path); });
    } catch (const base::Error& error) {
      throw base::Error(error.number(),
                        "SaveFile Error " + std::to_string(error.number()) + s.CRLF + error.text());
    }
    showPicture(form, std::move(form.picture.Lead1));
  });
}

bool Command4(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    requireWritable(s);
    platform::FileDialog dialog;
    dialog.title = session::labelText(s, label::pictures);
    dialog.filter = std::string("Bilder (") + patterns + ")|" + patterns;
    takeFile(form, session::askOpenFile(s, dialog).path);
  });
}

bool dropPicture(frmEintrag& form, const std::string& path) {
  return session::guard(form.session, form.formName, [&] {
    requireWritable(form.session);
    takeFile(form, path);
  });
}

bool SSCommand14(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    requireWritable(s);
    const session::Busy busy(s, "");
    auto picture =
        onMediaFile(s, FileUse::read, "", [&] { return port(s, s.desk.media.clipboard).picture(); });
    if (!picture)
      throw base::Error(platform::picture_error::damaged,
                        session::dialogText(s, dialog::no_picture_on_clipboard));
    setPicture(form, ".bmp", byStatement(s),
               [&](const std::string& path) { images(s).save(*picture, path); });
    showPicture(form, std::move(*picture));
  });
}

bool OpenPicture(frmEintrag& form, std::int64_t lWortID) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    clearPicture(form);
    auto row = s.files.CurrentDB.OpenRecordset(
        "select * from woerterbuch where id_woerterbuch = " + std::to_string(lWortID),
        engine::RecordsetKind::snapshot);
    const std::string name = row.EndOfFile() ? "" : base::trim(row["BILD"].textOrEmpty());
    if (name.empty()) {
      form.record.Bild.clear();
      return;
    }
    // The picture can be replaced and deleted where it can not be shown.
    form.picture.deleteEnabled = true;
    const session::Busy busy(s, "");
    showPicture(form, loadPicture(s, name));
  });
}

bool DeletePicture(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    requireWritable(s);
    const std::int64_t id = s.entry.CurrentEntryId;
    auto row =
        s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot, {{"lWortID", id}});
    const std::string name = row.EndOfFile() ? "" : row["BILD"].textOrEmpty();
    if (base::trim(name).empty()) return true;
    storeMediaName(s, "bild", std::nullopt, id);
    session::commitGathered(s);
    form.record.Bild.clear();
    clearPicture(form);
    return attempt(form, [&] { removeMediaFile(s, name); });
  });
}

void showPictureOfRecord(frmEintrag& form) {
  session::Session& s = form.session;
  clearPicture(form);
  if (form.record.Bild.empty()) return;
  if (form.tab == Tab::entry && s.desk.media.images != nullptr) OpenPicture(form, form.record.ID_Woerterbuch);
  form.picture.deleteEnabled = true;
  form.pictureShown = form.tab == Tab::entry;
}

bool mnuCopyPicture(session::Session& s, const platform::Picture& shown) {
  return session::guard(s, "frmMDI", [&] {
    if (shown.empty())
      throw base::Error(platform::picture_error::damaged,
                        session::dialogText(s, dialog::entry_has_no_picture));
    port(s, s.desk.media.clipboard).setPicture(shown);
  });
}

}  // namespace entry
