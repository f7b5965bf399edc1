#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/file/keys.h"
#include "engine/file/raw_file.h"

struct sqlite3_file;

namespace engine::file {

/// What a bounded look at a file tells.
struct Probe {
  std::int64_t size = 0;
  bool hasSalt = false;  ///< some page bears a salt of this program
  Salt salt{};           ///< page 1's when that is authentic, else the one most pages agree on
  bool firstPageGood = false;
  bool anyPageGood = false;                  ///< some page of file, log or journal opens with the credential
  bool mayHeal = false;                      ///< a log or journal with content lies beside
  std::uint32_t pagesByHeader = 0;           ///< what page 1 says, 0 when it does not open or leaves it out
  std::shared_ptr<const PageCipher> cipher;  ///< null without a salt of a known scheme
};

/// `open` is the file at `path`, in any mode, opened by the operating system's layer.
Probe probe(sqlite3_file* open, const std::string& path, const Credential& credential);
/// The same for a file opened for reading; throws 53 and 70 when that failed, and 3343 when nothing in the
/// file opens with the credential.
Probe probeOrThrow(const RawFile& file, const std::string& path, const Credential& credential);

}  // namespace engine::file
