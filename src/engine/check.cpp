#include "engine/file_checks.h"
#include "engine/impl.h"
#include "engine/storage/text_index.h"

namespace engine {

namespace {

constexpr double pagesShare = 0.5;

void append(std::vector<std::string>& lines, std::vector<std::string> more) {
  for (std::string& line : more) lines.push_back(std::move(line));
}

void checkContent(const file::Credential& credential, const std::string& path,
                  std::vector<std::string>& lines) {
  try {
    storage::Connection connection(credential);
    const auto file = connection.open(path, false, false);
    append(lines, checks::catalogueFaults(*file));
    append(lines, checks::structureFaults(*file, true));
    append(lines, checks::relationFaults(*file));
    append(lines, storage::textIndexFaults(*file, lines.empty()));
  } catch (const Error& error) {
    if (error.number() != errors::notADictionary) throw;
    lines.push_back(error.text());
  }
}

}  // namespace

std::vector<std::string> checkDatabase(Workspace& workspace, const std::string& path,
                                       const Progress& progress) {
  workspace.Idle();
  WorkspaceCore& core = *workspace.impl().core;
  const std::string real = core.resolved(path);
  const file::Credential& credential = core.connection().credential();
  const auto pagesProgress = [&](double share) {
    if (progress) progress(share * pagesShare);
  };
  std::vector<std::string> lines = checks::faultsOf(file::verifyLog(real, credential));
  // Opening a file recovers its log, which would drop for good what a damaged one still holds.
  const bool logDamaged = !lines.empty();
  std::vector<std::string> content;
  if (!logDamaged) checkContent(credential, real, content);
  append(lines, checks::faultsOf(file::verifyPages(real, credential, pagesProgress)));
  append(lines, std::move(content));
  if (progress) progress(1);
  return lines;
}

}  // namespace engine
