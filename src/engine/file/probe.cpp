#include "engine/file/probe.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <vector>

#include "engine/file/open_file.h"
#include "engine/types/types.h"

namespace engine::file {

namespace {

constexpr int maxSamples = 16;
using PageBuffer = std::array<std::uint8_t, pageSize>;

bool readAll(sqlite3_file* open, void* to, int size, std::int64_t offset) {
  return open->pMethods->xRead(open, to, size, offset) == SQLITE_OK;
}

bool bearsSalt(sqlite3_file* open, std::int64_t offset, const Salt& salt) {
  Salt there;
  return readAll(open, there.data(), saltBytes, offset) && there == salt;
}

struct Sample {
  Domain domain;
  std::uint32_t number;
  PageBuffer page;
};

// Pages spread over the file, the first and the last among them.
void sampleMainFile(sqlite3_file* open, std::int64_t size, std::vector<Sample>& samples) {
  const std::int64_t pages = size / pageSize;
  const std::int64_t count = std::min<std::int64_t>(pages, maxSamples);
  for (std::int64_t i = 0; i < count; ++i) {
    Sample sample{Domain::mainFile,
                  static_cast<std::uint32_t>(1 + (count > 1 ? i * (pages - 1) / (count - 1) : 0)),
                  {}};
    if (sample.number != lockBytePage &&
        readAll(open, sample.page.data(), pageSize, std::int64_t{sample.number - 1} * pageSize))
      samples.push_back(sample);
  }
}

// Both log and journal hold a page number in clear in front of each page.
void sampleBeside(const std::string& path, RawFile::Part part, std::vector<Sample>& samples, bool& mayHeal) {
  const bool log = part == RawFile::Part::log;
  const RawFile file(path, part);
  if (!file.isOpen()) return;
  const int header = log ? logHeaderBytes : journalHeaderBytes, stride = log ? frameBytes : recordBytes;
  const int pageWithin = log ? frameHeaderBytes : 4;
  mayHeal = mayHeal || file.size() >= header + (log ? frameBytes : 0);
  for (int i = 0; i < maxSamples; ++i) {
    const std::int64_t start = header + std::int64_t{i} * stride;
    std::uint8_t number[4];
    Sample sample{log ? Domain::log : Domain::journal, 0, {}};
    if (!file.read(number, 4, start) || !file.read(sample.page.data(), pageSize, start + pageWithin)) return;
    sample.number = bigEndian(number);
    samples.push_back(sample);
  }
}

// Any single copy of the salt may be torn or damaged, so the majority counts.
bool electSalt(const std::vector<Sample>& samples, Salt& winner) {
  std::map<Salt, int> votes;
  const auto vote = [&](const std::uint8_t* bytes) {
    Salt salt;
    std::memcpy(salt.data(), bytes, saltBytes);
    if (isSalt(bytes)) ++votes[salt];
  };
  for (const Sample& sample : samples) {
    vote(sample.page.data() + saltAt);
    if (sample.domain == Domain::mainFile && sample.number == 1) vote(sample.page.data());
  }
  const auto best = std::max_element(votes.begin(), votes.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
  if (best == votes.end()) return false;
  winner = best->first;
  return true;
}

// The page count of SQLite's header holds only when the file was last written by someone who keeps it.
std::uint32_t pagesByHeader(const std::uint8_t* page) {
  return std::memcmp(page + 24, page + 92, 4) == 0 ? bigEndian(page + 28) : 0;
}

bool takeFirstPage(PageBuffer page, const Credential& credential, Probe& found) {
  Salt salt;
  std::memcpy(salt.data(), page.data(), saltBytes);
  if (!isSalt(salt.data()) || !isKnownScheme(salt)) return false;
  if (std::memcmp(page.data() + saltAt, salt.data(), saltBytes) != 0) return false;
  found.cipher = deriveCipher(credential, salt);
  found.salt = salt;
  found.hasSalt = true;
  if (!found.cipher->open(Domain::mainFile, 1, page.data())) return false;
  found.firstPageGood = found.anyPageGood = true;
  found.pagesByHeader = pagesByHeader(page.data());
  return true;
}

}  // namespace

Probe probe(sqlite3_file* open, const std::string& path, const Credential& credential) {
  Probe found;
  sqlite3_int64 size = 0;
  if (open->pMethods->xFileSize(open, &size) != SQLITE_OK) return found;
  found.size = size;
  PageBuffer first{};
  const bool sound = size % pageSize == 0 && size > 0 && readAll(open, first.data(), pageSize, 0) &&
                     takeFirstPage(first, credential, found);
  if (sound && found.pagesByHeader <= size / pageSize && bearsSalt(open, size - saltBytes, found.salt))
    return found;

  std::vector<Sample> samples;
  sampleMainFile(open, size, samples);
  sampleBeside(path, RawFile::Part::log, samples, found.mayHeal);
  sampleBeside(path, RawFile::Part::journal, samples, found.mayHeal);
  Salt salt;
  if (!electSalt(samples, salt)) {
    std::array<std::uint8_t, saltBytes> head{};  // cut off within page 1
    found.hasSalt = size >= saltBytes && readAll(open, head.data(), saltBytes, 0) && isSalt(head.data());
    if (found.hasSalt) found.salt = head;
    return found;
  }
  if (!found.cipher || salt != found.salt) {
    found.salt = salt;
    found.hasSalt = true;
    found.firstPageGood = found.anyPageGood = false;  // page 1 was another file's
    found.pagesByHeader = 0;
    found.cipher = isKnownScheme(salt) ? deriveCipher(credential, salt) : nullptr;
  }
  if (!found.cipher) return found;
  for (Sample& sample : samples) {
    const bool page1 = sample.domain == Domain::mainFile && sample.number == 1;
    if (!found.cipher->open(sample.domain, sample.number, sample.page.data())) continue;
    found.anyPageGood = true;
    if (!page1) continue;
    found.firstPageGood = true;
    found.pagesByHeader = pagesByHeader(sample.page.data());
  }
  return found;
}

Probe probeOrThrow(const RawFile& file, const std::string& path, const Credential& credential) {
  if (!file.isOpen()) {
    int exists = 0;
    systemLayer()->xAccess(systemLayer(), path.c_str(), SQLITE_ACCESS_EXISTS, &exists);
    if (exists == 0) throw Error(errors::fileNotFound, "The file " + path + " does not exist.");
    throw Error(errors::permissionDenied, "The file " + path + " can not be read.");
  }
  Probe found = probe(file.handle(), path, credential);
  if (!found.hasSalt) throw Error(errors::notADictionary, noDictionaryText(path));
  if (!isKnownScheme(found.salt))
    throw Error(errors::notADictionary, unknownSchemeText(path, schemeOf(found.salt)));
  if (found.size < pageSize && !found.mayHeal) throw Error(errors::notADictionary, damagedText(path));
  if (!found.anyPageGood) throw Error(errors::notADictionary, otherCredentialText(path));
  return found;
}

}  // namespace engine::file
