#include "entry/media_files.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "platform/images.h"
#include "platform/scanner.h"
#include "platform/sound.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"
#include "store/files.h"

namespace entry {
namespace {

std::string setFolder(session::Session& s) {
  auto row = s.files.CurrentDB.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  std::string folder = row.EndOfFile() ? "" : base::trim(row["Audiopfad"].textOrEmpty());
  if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
  return folder;
}

std::string folderBeside(const session::Session& s) {
  return store::mediaFolder(s, s.files.CurrentDBPath).string() + "/";
}

struct Wording {
  int number;
  int text;  ///< key of dialog texts
  bool withPath;
};

constexpr std::array<Wording, 9> wordings{{
    {platform::picture_error::damaged, dialog::picture_damaged, true},
    {platform::picture_error::unknownFormat, dialog::picture_format_unknown, true},
    {platform::picture_error::tooLarge, dialog::picture_too_large, true},
    {platform::picture_error::readerMissing, dialog::picture_reader_missing, true},
    {platform::noScanner, dialog::no_scanner, false},
    {platform::sound_error::noDevice, dialog::no_sound_device, false},
    {platform::sound_error::badFile, dialog::sound_damaged, true},
    {platform::noMedia, dialog::no_media_on_desk, false},
    {61, dialog::disk_full, true},
}};

}  // namespace

void throwNoMedia(const session::Session& s) {
  throw base::Error(platform::noMedia, session::dialogText(s, dialog::no_media_on_desk));
}

std::string mediaFileName(const session::Session& s, std::int64_t id, const std::string& extension) {
  const std::string dictionary = base::fileName(s.files.paths.real(s.files.CurrentDBPath).string());
  return base::left(base::right(dictionary, 7), 1) + std::to_string(id) +
         base::left(base::right(dictionary, 5), 1) + extension;
}

std::string writtenMediaFolder(session::Session& s) {
  const std::string set = setFolder(s), beside = folderBeside(s);
  if (set.empty()) return beside;
  return !s.files.paths.exists(base::folderOf(set)) && s.files.paths.exists(beside) ? beside : set;
}

std::string mediaPath(session::Session& s, const std::string& name) {
  const std::string set = setFolder(s);
  const std::string beside = folderBeside(s) + name;
  if (set.empty() || (!s.files.paths.exists(set + name) && s.files.paths.exists(beside)))
    return s.files.paths.real(beside).string();
  return s.files.paths.real(set + name).string();
}

void requireWritable(const session::Session& s) {
  if (s.files.ReadOnlyMode || s.files.CurrentDB.readOnly())
    throw base::Error(engine::errors::readOnly, session::dialogText(s, dialog::dictionary_is_read_only));
}

void storeMediaName(session::Session& s, const std::string& column, const std::optional<std::string>& name,
                    std::int64_t id) {
  std::string sql = "UPDATE  woerterbuch";
  sql += " SET " + column + " = " + (name ? "'" + session::escapedSQLText(*name) + "'" : "NULL");
  sql += " Where id_woerterbuch = " + std::to_string(id);
  s.files.CurrentDB.Execute(sql);
}

void removeMediaFile(session::Session& s, const std::string& name) {
  if (base::trim(name).empty() || base::fileName(name) != name) return;
  const std::string path = mediaPath(s, name);
  std::error_code failed;
  if (std::filesystem::remove(path, failed)) return;
  const auto missing = std::make_error_code(std::errc::no_such_file_or_directory);
  throw worded(s, session::fileError(failed ? failed : missing, path), FileUse::read, path);
}

base::Error worded(const session::Session& s, const base::Error& error, FileUse use,
                   const std::string& path) {
  const int number = error.number();
  const auto text = [&](int key, bool withPath) {
    return base::Error(number, session::dialogText(s, key) + (withPath ? s.CRLF + path : ""));
  };
  for (const Wording& wording : wordings)
    if (wording.number == number) return text(wording.text, wording.withPath);
  if (use == FileUse::written && (number == 53 || number == 70 || number == 75))
    return text(dialog::media_not_writable, true);
  return number == 53 ? text(dialog::file_missing, true) : error;
}

}  // namespace entry
