#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "shell/session/session.h"
#include "shell/session/texts.h"

/// Files of pictures and sounds: they lie in the dictionary's media folder, and their names are derived from
/// the dictionary and the entry. All throw.
namespace entry {

/// Name of an entry's file: the first of the last seven characters of the dictionary's file name, the number,
/// the first of its last five characters, and the extension with its point. A second picture of an entry so
/// replaces the first.
std::string mediaFileName(const session::Session& s, std::int64_t id, const std::string& extension);
/// What file names are appended to when a file is written: `Audiopfad` as it is set, with a closing
/// separator; the folder beside the dictionary where none is set, or where the set one is gone and the
/// dictionary was moved with its folder.
std::string writtenMediaFolder(session::Session& s);
/// The path of a stored file: below `Audiopfad`, or beside the dictionary where it is not found there.
std::string mediaPath(session::Session& s, const std::string& name);

[[noreturn]] void throwNoMedia(const session::Session& s);
/// A port of the desk, or the error that there is none.
template <class Port>
Port& port(const session::Session& s, Port* given) {
  if (given == nullptr) throwNoMedia(s);
  return *given;
}

/// Throws 3027 where the dictionary is open for reading only.
void requireWritable(const session::Session& s);

/// Stores a file name in the column "bild" or "klang" of an entry, nothing for Null.
void storeMediaName(session::Session& s, const std::string& column, const std::optional<std::string>& name,
                    std::int64_t id);

/// Deletes a stored file; a name that leads out of the media folder is left alone. Throws as worded.
void removeMediaFile(session::Session& s, const std::string& name);

enum class FileUse { read, written };
/// A failure on a media file in the user's language.
base::Error worded(const session::Session& s, const base::Error& error, FileUse use, const std::string& path);

/// Runs a step on a media file; its failure is thrown as worded.
template <class Step>
auto onMediaFile(const session::Session& s, FileUse use, const std::string& path, Step&& step) {
  try {
    return std::forward<Step>(step)();
  } catch (const base::Error& error) {
    throw worded(s, error, use, path);
  }
}

/// Writes to dictionary and media folder as one: where `change` fails, the dictionary stays as it was. What
/// it does to the folder must be its last step, and whole or nothing.
template <class Change>
void changeTogether(session::Session& s, Change&& change) {
  requireWritable(s);
  s.files.Workspace->BeginTrans();
  try {
    std::forward<Change>(change)();
    s.files.Workspace->CommitTrans();
  } catch (...) {
    s.files.Workspace->Rollback();
    throw;
  }
}

}  // namespace entry
