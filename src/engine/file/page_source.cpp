#include <sqlite3.h>

#include <algorithm>
#include <vector>

#include "engine/file/log_scan.h"
#include "engine/file/probe.h"
#include "engine/file/salvage.h"

namespace engine::file {

PageSource::PageSource(const std::string& path, const Credential& credential)
    : file_(path, RawFile::Part::mainFile), log_(path, RawFile::Part::log) {
  const Probe found = probeOrThrow(file_, path, credential);
  cipher_ = found.cipher;
  pages_ = static_cast<std::uint32_t>(found.size / pageSize);
  if (!log_.isOpen()) return;
  std::map<std::uint32_t, std::int64_t> open;  // of a transaction that may not have been committed
  for (LogScan frames(log_, *cipher_); frames.next() && frames.valid();) {
    open[frames.pageNumber()] = frames.pageOffset();
    if (!frames.commits()) continue;
    for (const auto& [number, offset] : open) inLog_[number] = offset;
    open.clear();
  }
  if (!inLog_.empty()) pages_ = std::max(pages_, inLog_.rbegin()->first);
}

bool PageSource::read(std::uint32_t number, std::uint8_t* page) const {
  if (number == 0 || number > pages_ || number == lockBytePage) return false;
  const auto logged = inLog_.find(number);
  if (logged != inLog_.end())
    return log_.read(page, pageSize, logged->second) && cipher_->open(Domain::log, number, page);
  return file_.read(page, pageSize, std::int64_t{number - 1} * pageSize) &&
         cipher_->open(Domain::mainFile, number, page);
}

}  // namespace engine::file
