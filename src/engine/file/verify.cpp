#include "engine/file/verify.h"

#include <sqlite3.h>

#include <array>
#include <cstring>
#include <vector>

#include "engine/file/open_file.h"
#include "engine/file/probe.h"
#include "engine/types/types.h"

namespace engine::file {

namespace {

constexpr int pagesAtOnce = 64, retries = 3, retryPause = 20;  // pause in milliseconds

// A page that another process is just writing can be read half old, half new; only who has a log or a
// journal beside the file writes.
void readBadAgain(const RawFile& file, const std::string& path, const PageCipher& cipher,
                  std::vector<std::uint32_t>& bad) {
  const auto written = [&](RawFile::Part part) { return RawFile(path, part).isOpen(); };
  for (int i = 0; i < retries && !bad.empty(); ++i) {
    if (!written(RawFile::Part::log) && !written(RawFile::Part::journal)) return;
    sqlite3_sleep(retryPause);
    std::erase_if(bad, [&](std::uint32_t number) {
      std::array<std::uint8_t, pageSize> page;
      return file.read(page.data(), pageSize, std::int64_t{number - 1} * pageSize) &&
             cipher.open(Domain::mainFile, number, page.data());
    });
  }
}

Probe probeOrThrow(const RawFile& file, const std::string& path, const Credential& credential) {
  Probe found = probe(file.handle(), path, credential);
  if (!found.hasSalt) throw Error(errors::notADictionary, noDictionaryText(path));
  if (!isKnownScheme(found.salt))
    throw Error(errors::notADictionary, unknownSchemeText(path, schemeOf(found.salt)));
  if (!found.anyPageGood) throw Error(errors::notADictionary, otherCredentialText(path));
  return found;
}

const RawFile& mustOpen(const RawFile& file, const std::string& path) {
  if (file.isOpen()) return file;
  if (sqlite3_vfs* layer = systemLayer(); layer != nullptr) {
    int exists = 0;
    layer->xAccess(layer, path.c_str(), SQLITE_ACCESS_EXISTS, &exists);
    if (exists == 0) throw Error(errors::fileNotFound, "The file " + path + " does not exist.");
  }
  throw Error(errors::permissionDenied, "The file " + path + " can not be read.");
}

// The running checksum of SQLite's log format: two sums over pairs of 32-bit words.
struct LogSum {
  bool bigEndianWords = false;
  std::uint32_t first = 0, second = 0;

  std::uint32_t word(const std::uint8_t* bytes) const {
    if (bigEndianWords) return bigEndian(bytes);
    return std::uint32_t{bytes[3]} << 24 | std::uint32_t{bytes[2]} << 16 | std::uint32_t{bytes[1]} << 8 |
           bytes[0];
  }
  void add(const std::uint8_t* bytes, int size) {
    for (int i = 0; i < size; i += 8) {
      first += word(bytes + i) + second;
      second += word(bytes + i + 4) + first;
    }
  }
  bool equals(const std::uint8_t* stored) const {
    return bigEndian(stored) == first && bigEndian(stored + 4) == second;
  }
};

constexpr int headerSalts = 16, headerSum = 24, frameSalts = 8, frameSum = 16, logSaltBytes = 8;
constexpr std::uint32_t logMagic = 0x377f0682;  // its lowest bit tells the order of the checksum's words

}  // namespace

PageCheck verifyPages(const std::string& path, const Credential& credential,
                      const std::function<void(double)>& progress) {
  const RawFile file(path, RawFile::Part::mainFile);
  const Probe found = probeOrThrow(mustOpen(file, path), path, credential);
  PageCheck check;
  check.pages = static_cast<std::uint32_t>(found.size / pageSize);
  check.expected = found.pagesByHeader;
  check.partialEnd = found.size % pageSize != 0;
  std::vector<std::uint8_t> buffer(std::size_t{pagesAtOnce} * pageSize);
  for (std::uint32_t start = 1; start <= check.pages; start += pagesAtOnce) {
    const std::uint32_t count = std::min<std::uint32_t>(pagesAtOnce, check.pages - start + 1);
    const bool read =
        file.read(buffer.data(), static_cast<int>(count) * pageSize, std::int64_t{start - 1} * pageSize);
    for (std::uint32_t i = 0; i < count; ++i) {
      const std::uint32_t number = start + i;
      if (number == lockBytePage) continue;
      const bool good =
          read && found.cipher->open(Domain::mainFile, number, &buffer[std::size_t{i} * pageSize]);
      if (!good) check.bad.push_back(number);
    }
    if (progress) progress(static_cast<double>(start + count - 1) / check.pages);
  }
  readBadAgain(file, path, *found.cipher, check.bad);
  return check;
}

LogCheck verifyLog(const std::string& path, const Credential& credential) {
  const RawFile file(path, RawFile::Part::mainFile);
  const Probe found = probeOrThrow(mustOpen(file, path), path, credential);
  const RawFile log(path, RawFile::Part::log);
  LogCheck check;
  std::array<std::uint8_t, logHeaderBytes> header;
  if (!log.isOpen() || !log.read(header.data(), logHeaderBytes, 0)) return check;
  LogSum sum{(bigEndian(header.data()) & 1) != 0};
  sum.add(header.data(), headerSum);
  bool inOrder = (bigEndian(header.data()) & ~1U) == logMagic && sum.equals(&header[headerSum]);
  bool saltsKnown = inOrder;
  std::array<std::uint8_t, frameBytes> frame;
  for (std::int64_t at = logHeaderBytes; log.read(frame.data(), frameBytes, at); at += frameBytes) {
    const bool shown = found.cipher->showBlock(&frame[frameSalts]);
    const bool authentic = found.cipher->open(Domain::log, bigEndian(frame.data()), &frame[frameHeaderBytes]);
    if (authentic && !saltsKnown) {  // the log's own header is damaged: its first frame tells
      std::memcpy(&header[headerSalts], &frame[frameSalts], logSaltBytes);
      saltsKnown = true;
    }
    const bool ours =
        shown && authentic && std::memcmp(&frame[frameSalts], &header[headerSalts], logSaltBytes) == 0;
    if (inOrder) {
      sum.add(frame.data(), frameSalts);
      sum.add(&frame[frameHeaderBytes], pageSize);
      inOrder = ours && sum.equals(&frame[frameSum]);
    }
    if (inOrder)
      ++check.valid;
    else if (ours)
      ++check.behind;
  }
  return check;
}

}  // namespace engine::file
