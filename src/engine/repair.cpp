#include <unistd.h>

#include <filesystem>

#include "engine/file/raw_file.h"
#include "engine/file/replace.h"
#include "engine/file_checks.h"
#include "engine/impl.h"
#include "engine/row_copy.h"
#include "engine/salvaged_rows.h"
#include "engine/storage/text_index.h"

namespace engine {

namespace {

constexpr const char* anyLocale = ";LANGID=0x0409;CP=1252;COUNTRY=0";  // until the file's own is known
constexpr double pagesShare = 0.2, rowsShare = 0.9;

Progress within(const Progress& progress, double from, double to) {
  if (!progress) return {};
  return [=](double share) { progress(from + (to - from) * share); };
}

void writeSalvaged(const file::Credential& credential, const std::string& from, const std::string& to,
                   bool damaged, repair::Findings& findings, const Progress& progress) {
  const file::PageSource pages(from, credential);
  repair::Source source = repair::openSource(pages, damaged);
  storage::Connection connection(credential);
  const auto target = connection.create(to, anyLocale);
  const storage::Connection::Internal internal(connection);
  BulkWrite write(*target);
  const storage::CatalogData data = repair::salvageCatalogue(source, *target, findings);
  repair::salvageRows(source, data, *target, findings, progress);
  for (storage::TextIndexRecord record : data.texts) storage::makeTextIndex(*target, data, record);
  write.commit();
}

}  // namespace

RepairReport RepairDatabase(Workspace& workspace, const std::string& path, const Progress& progress) {
  workspace.Idle();
  WorkspaceCore& core = *workspace.impl().core;
  const std::string real = core.resolved(path);
  const file::Credential& credential = core.connection().credential();
  if (::access(real.c_str(), W_OK) != 0)
    throw Error(errors::readOnly, "The file " + real + " can only be read.");
  const file::ExclusiveHold hold(real);
  repair::Findings findings;
  const file::LogCheck log = file::verifyLog(real, credential);
  for (std::string& line : checks::faultsOf(log)) findings.tellLoss(std::move(line));
  if (std::error_code missing; std::filesystem::file_size(real + "-journal", missing) > 0 && !missing) {
    findings.tellLoss("A change of the file was never finished; some of it may be among the rows.");
  }
  const std::vector<std::string> pageFaults =
      checks::faultsOf(file::verifyPages(real, credential, within(progress, 0, pagesShare)));
  for (const std::string& line : pageFaults) findings.tell(line);

  file::NewFile copy(real, "repair");
  writeSalvaged(credential, real, copy.path(), !pageFaults.empty(), findings,
                within(progress, pagesShare, rowsShare));
  checks::mustBeSound(credential, copy.path());
  if (findings.lost) findings.report.keptOriginal = file::keepAside(real, "damaged");
  copy.finish(file::OldLog::isWorthless);
  if (progress) progress(1);
  return findings.report;
}

}  // namespace engine
