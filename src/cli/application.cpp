#include "cli/application.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "base/error.h"
#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "shell/session/errors.h"
#include "store/close.h"

namespace cli {

namespace {

constexpr int done = 0, failed = 1, wrongUsage = 2;

/// A question that nothing answered ends the command without a further word; all else is told here when
/// no operation has told it.
int reportFailure(const base::Error& error) {
  if (error.number() != platform::cancelled) std::cerr << error.text() << std::endl;
  return failed;
}

const Command* findCommand(const std::vector<std::string>& line) {
  const Command* best = nullptr;
  for (const Command& command : commands()) {
    const auto words = base::split(command.name, " ");
    if (line.size() >= words.size() && std::equal(words.begin(), words.end(), line.begin())) best = &command;
  }
  return best;
}

std::string usageOf(const Command& command) {
  return std::string("vocarium-cli ") + command.name + " " + command.usage;
}

void printHelp(std::ostream& out) {
  out << "Usage: vocarium-cli [--with DICT]... COMMAND ... [--yes] [--answers N,N,...]\n\n";
  for (const Command& command : commands()) out << "  " << command.name << ' ' << command.usage << '\n';
  out << "\n--yes answers yes to every question; --answers gives the answers in order (6 yes, 7 no, 2 "
         "cancel);\n--with opens up to four further dictionaries beside DICT.\n";
}

/// The command's name may stand between global options: it is the first plain words of the line.
std::vector<std::string> plainWords(const std::vector<std::string>& line) {
  std::vector<std::string> words;
  for (std::size_t n = 0; n < line.size(); ++n) {
    if (line[n] == "--answers" || line[n] == "--with")
      ++n;
    else if (line[n].rfind("--", 0) != 0)
      words.push_back(line[n]);
  }
  return words;
}

int runCommand(const Command& command, const std::vector<std::string>& line, const std::string& programPath) {
  const Arguments arguments = parse(line, command.switches, command.valued);
  if (arguments.help) {
    std::cout << usageOf(command) << std::endl;
    return done;
  }
  const auto nameWords = static_cast<std::ptrdiff_t>(base::split(command.name, " ").size());
  const std::vector<std::string> words(arguments.words.begin() + nameWords, arguments.words.end());
  if (words.size() < command.least || words.size() > command.most)
    throw UsageError{"Too few or too many arguments."};
  if (!arguments.with.empty() && !command.opensSession)
    throw UsageError{"--with goes with commands that open DICT alone."};
  Application app(arguments, programPath);
  return command.run(app, words);
}

}  // namespace

Application::Application(const Arguments& a, const std::string& programPath)
    : arguments(a), console(a.yes, a.answers), session(console.desk()), frame(session) {
  session.shell.entryDisplayed = false;
  if (!frame::frmStart_Load(session, programPath) || !frame::frmMDI_Initialize(frame) ||
      !frame::frmMDI_Load(frame))
    throw base::Error(platform::cancelled, "The program could not start.");
}

Application::~Application() {
  if (session.files.OpenDBCount > 0)
    session::guard(session, "frmMDI", [&] { store::CloseCurrentDB(session); });
}

std::string existingFile(Application& app, const std::string& path) {
  const std::string absolute = std::filesystem::absolute(path).lexically_normal().string();
  if (!app.session.files.paths.exists(absolute))
    throw base::Error(53, "The file " + absolute + " does not exist.");
  return app.session.files.paths.real(absolute).string();
}

namespace {

/// Opens the further files of the session. That closes the browser: another one shows all of them. Commands
/// that write are for the first file.
bool openFurther(Application& app) {
  if (app.arguments.with.empty()) return true;
  auto& session = app.session;
  const std::string first = session.files.CurrentDBPath;
  for (const std::string& path : app.arguments.with) {
    app.console.answerFileDialog({existingFile(app, path)});
    if (!frame::mnuMultiOpen(app.frame)) return false;
  }
  return session::guard(session, "frmMDI", [&] {
    frame::ShowWordInstance(app.frame);
    browse::useDictionary(session, first);
  });
}

}  // namespace

int withDictionary(Application& app, const std::string& path, const std::function<bool()>& work) {
  auto& session = app.session;
  app.console.answerFileDialog({existingFile(app, path)});
  if (!frame::mnuOpen(app.frame) || !openFurther(app)) return failed;
  const bool succeeded = session::guard(session, "frmMDI", work);
  std::cout.flush();
  if (session.files.DBOpen) store::CloseCurrentDB(session);
  return succeeded && std::cout.good() ? done : failed;
}

std::int64_t entryNumber(const std::string& text) {
  return wholeNumber(text, "ID");
}

int runCommandLine(const std::vector<std::string>& line, const std::string& programPath) {
  const std::vector<std::string> words = plainWords(line);
  const Command* command = findCommand(words);
  if (command == nullptr) {
    const bool asked = std::find(line.begin(), line.end(), "--help") != line.end();
    printHelp(asked ? std::cout : std::cerr);
    return asked ? done : wrongUsage;
  }
  try {
    return runCommand(*command, line, programPath);
  } catch (const UsageError& error) {
    std::cerr << error.text << "\nUsage: " << usageOf(*command) << std::endl;
    return wrongUsage;
  } catch (const base::Error& error) {
    return reportFailure(error);
  }
}

}  // namespace cli
