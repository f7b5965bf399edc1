#pragma once

#include <functional>
#include <string>

#include "cli/arguments.h"
#include "cli/console_desk.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/session.h"

namespace cli {

/// A command's process: the started program without windows. Its exit codes: 0 done, 1 failed or
/// cancelled, 2 wrong usage.
struct Application {
  Application(const Arguments& arguments, const std::string& programPath);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  const Arguments& arguments;
  Console console;
  session::Session session;
  frame::frmMDI frame;
};

/// One command of the shell.
struct Command {
  const char* name;   ///< one or two words
  const char* usage;  ///< what stands behind the name
  std::vector<std::string> switches, valued;
  std::size_t least, most;  ///< plain arguments behind the name
  int (*run)(Application& app, const std::vector<std::string>& words);
  bool opensSession = true;  ///< opens DICT by withDictionary(), and so what --with names
};

/// All commands, in the order of the help text.
const std::vector<Command>& commands();

/// Runs a command line (without the program's name); prints to standard output and standard error.
int runCommandLine(const std::vector<std::string>& line, const std::string& programPath);

// What commands share.

/// The path as it is really spelled: found without regard to case, made absolute. Throws Error 53 when
/// there is no such file.
std::string existingFile(Application& app, const std::string& path);
/// Opens a dictionary as the frame does, and those of --with beside it, runs `work` under the error log's
/// guard with it, and closes it.
int withDictionary(Application& app, const std::string& path, const std::function<bool()>& work);
/// An entry's number out of a plain argument.
std::int64_t entryNumber(const std::string& text);

// The commands, by what they are about.
int runNew(Application& app, const std::vector<std::string>& words);
int runEntryAdd(Application& app, const std::vector<std::string>& words);
int runEntryShow(Application& app, const std::vector<std::string>& words);
int runEntryDelete(Application& app, const std::vector<std::string>& words);
int runEntryEdit(Application& app, const std::vector<std::string>& words);
int runEntryRelink(Application& app, const std::vector<std::string>& words);
int runMeaningAdd(Application& app, const std::vector<std::string>& words);
int runMeaningDelete(Application& app, const std::vector<std::string>& words);
int runExampleAdd(Application& app, const std::vector<std::string>& words);
int runExampleDelete(Application& app, const std::vector<std::string>& words);
int runPropertyAdd(Application& app, const std::vector<std::string>& words);
int runPropertyRemove(Application& app, const std::vector<std::string>& words);
int runSubjectAdd(Application& app, const std::vector<std::string>& words);
int runSubjectRemove(Application& app, const std::vector<std::string>& words);
int runPictureSet(Application& app, const std::vector<std::string>& words);
int runLinkAdd(Application& app, const std::vector<std::string>& words);
int runAttach(Application& app, const std::vector<std::string>& words);
int runCatalogue(Application& app, const std::vector<std::string>& words);
int runSettings(Application& app, const std::vector<std::string>& words);
int runFast(Application& app, const std::vector<std::string>& words);
int runHistory(Application& app, const std::vector<std::string>& words);
int runDeleteByDate(Application& app, const std::vector<std::string>& words);
int runList(Application& app, const std::vector<std::string>& words);
int runFilter(Application& app, const std::vector<std::string>& words);
int runPage(Application& app, const std::vector<std::string>& words);
int runSearch(Application& app, const std::vector<std::string>& words);
int runLookup(Application& app, const std::vector<std::string>& words);
int runTree(Application& app, const std::vector<std::string>& words);
int runView(Application& app, const std::vector<std::string>& words);
int runSql(Application& app, const std::vector<std::string>& words);
int runQueries(Application& app, const std::vector<std::string>& words);
int runImportText(Application& app, const std::vector<std::string>& words);
int runPublish(Application& app, const std::vector<std::string>& words);
int runRebuild(Application& app, const std::vector<std::string>& words);
int runCompact(Application& app, const std::vector<std::string>& words);
int runRepair(Application& app, const std::vector<std::string>& words);
int runInverse(Application& app, const std::vector<std::string>& words);
int runCopy(Application& app, const std::vector<std::string>& words);
int runBackup(Application& app, const std::vector<std::string>& words);
int runCheck(Application& app, const std::vector<std::string>& words);

}  // namespace cli
