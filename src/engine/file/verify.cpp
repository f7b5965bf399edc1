#include "engine/file/verify.h"

#include <sqlite3.h>

#include <array>
#include <cstring>
#include <vector>

#include "engine/file/log_scan.h"
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

}  // namespace

PageCheck verifyPages(const std::string& path, const Credential& credential,
                      const std::function<void(double)>& progress) {
  const RawFile file(path, RawFile::Part::mainFile);
  const Probe found = probeOrThrow(file, path, credential);
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
  const Probe found = probeOrThrow(file, path, credential);
  const RawFile log(path, RawFile::Part::log);
  LogCheck check;
  if (!log.isOpen()) return check;
  for (LogScan frames(log, *found.cipher); frames.next();) {
    if (frames.valid())
      ++check.valid;
    else if (frames.ours())
      ++check.behind;
  }
  return check;
}

}  // namespace engine::file
