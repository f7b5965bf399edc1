// Commands on dictionary files: rebuild, compact, repair, inverse, copy, backup, check.

#include <filesystem>
#include <iostream>

#include "cli/application.h"
#include "engine/workspace.h"
#include "entry/frmServices.h"
#include "shell/session/errors.h"
#include "store/frmBackup.h"

namespace cli {

namespace {

int exitCode(bool succeeded) {
  return succeeded ? 0 : 1;
}

}  // namespace

int runRebuild(Application& app, const std::vector<std::string>& words) {
  const std::string& what = words[1];
  const bool delta = app.arguments.has("--delta");
  if (what != "sort" && what != "search" && what != "flat")
    throw UsageError{"\"" + what + "\" can not be rebuilt; there are sort, search and flat."};
  if (delta && what != "flat") throw UsageError{"--delta goes with flat alone."};
  return withDictionary(app, words[0], [&] {
    if (what == "flat")
      return delta ? frame::mnuBuildReportTablesDelta(app.frame) : frame::mnuBuildReportTables(app.frame);
    entry::frmServices services(app.session);
    return what == "sort" ? entry::GenerateSortBegriff(services) : entry::GenerateMetaSearchIndex(services);
  });
}

int runCompact(Application& app, const std::vector<std::string>& words) {
  return withDictionary(app, words[0], [&] { return frame::mnuCompactCurrentDB(app.frame); });
}

int runRepair(Application& app, const std::vector<std::string>& words) {
  app.console.answerFileDialog({existingFile(app, words[0])});
  return exitCode(frame::mnurepair(app.frame));
}

int runInverse(Application& app, const std::vector<std::string>& words) {
  app.console.answerFileDialog({existingFile(app, words[0])});
  app.console.answerFileDialog({std::filesystem::absolute(words[1]).lexically_normal().string()});
  return exitCode(frame::mnuInverseTranslation(app.frame));
}

int runCopy(Application& app, const std::vector<std::string>& words) {
  app.console.answerFileDialog({existingFile(app, words[0])});
  app.console.answerFileDialog({std::filesystem::absolute(words[1]).lexically_normal().string()});
  return exitCode(frame::mnuCopyDB(app.frame));
}

int runBackup(Application& app, const std::vector<std::string>& words) {
  store::frmBackup form(app.session);
  form.source = existingFile(app, words[0]);
  form.targetFolder = existingFile(app, words[1]);
  // "." ends in a separator once it is absolute.
  if (form.targetFolder.size() > 1 && form.targetFolder.back() == '/') form.targetFolder.pop_back();
  form.withMedia = app.arguments.has("--media");
  const bool copied = session::guard(app.session, form.formName, [&] {
    if (!std::filesystem::is_directory(form.targetFolder))
      throw base::Error(53, form.targetFolder + " is no folder.");
    return store::BackUpDB(form);
  });
  if (copied) std::cout << app.session.files.paths.real(form.written).string() << '\n';
  return exitCode(copied);
}

int runCheck(Application& app, const std::vector<std::string>& words) {
  const std::string path = existingFile(app, words[0]);
  std::vector<std::string> faults;
  const bool checked = session::guard(app.session, "vocarium-cli", [&] {
    faults = engine::checkDatabase(*app.session.files.Workspace, path);
  });
  for (const std::string& fault : faults) std::cout << fault << '\n';
  if (checked && faults.empty()) std::cout << path << ": sound\n";
  return exitCode(checked && faults.empty());
}

}  // namespace cli
