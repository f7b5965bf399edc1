#include "program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "exchange/frmImportExternalDB.h"
#include "plain.h"
#include "shell/frame/firstent.h"
#include "store/close.h"
#include "words.h"

namespace bench {

namespace fs = std::filesystem;

Program::Program(const std::string& folder) : console(true, {}), session(console.desk()), frame(session) {
  setenv("APPDATA", (folder + "/home").c_str(), 1);
  const std::string program = fs::read_symlink("/proc/self/exe").parent_path().parent_path().string();
  if (!frame::frmStart_Load(session, program) || !frame::frmMDI_Initialize(frame) ||
      !frame::frmMDI_Load(frame))
    stop("the start");
  session.shell.entryDisplayed = false;
}

void Program::open(const std::string& path) {
  console.answerFileDialog({path});
  if (!frame::mnuOpen(frame)) stop("opening " + path);
}

void Program::close() {
  store::CloseCurrentDB(session);
}

void makeDictionary(Program& program, const std::string& path) {
  program.console.onForm("frmChooseDBType", [](platform::Form& shown) {
    frame::choosePanel(dynamic_cast<frame::frmChooseDBType&>(shown), 1);
  });
  program.console.onForm("firstent", [](platform::Form& shown) {
    auto& wizard = dynamic_cast<frame::firstent&>(shown);
    wizard.sourceLanguage = "Deutsch";
    wizard.targetLanguage = "Englisch";
    wizard.description = "Benchmark";
    wizard.sortOrder = wizard.sortOrders.front();
    frame::finish(wizard);
  });
  program.console.onForm("frmEintrag", [](platform::Form&) {});
  program.console.answerFileDialog({path});
  if (!frame::mnuNew(program.frame)) stop("making " + path);
}

void importList(Program& program, const std::string& list) {
  program.console.answerFileDialog({list});
  program.console.onForm("frmTextImport", [](platform::Form& shown) {
    exchange::accept(dynamic_cast<exchange::frmTextImport&>(shown));
  });
  program.console.onForm("frmImportExternalDB", [](platform::Form& shown) {
    auto& form = dynamic_cast<exchange::frmImportExternalDB&>(shown);
    exchange::mapColumn(form, exchange::Target::Begriff, 0);
    exchange::mapColumn(form, exchange::Target::Wortbedeutung, 1);
    exchange::importRows(form);
  });
  if (!exchange::importTextFormat(program.session)) stop("importing " + list);
}

std::string importedDictionary(const std::string& folder, std::size_t count) {
  const std::string path = folder + "/WORDS" + std::to_string(count) + ".CVB";
  if (fs::exists(path)) return path;
  std::fflush(nullptr);  // or the child would write what is not written yet once more
  const pid_t child = fork();
  if (child == 0) {
    const std::string list = folder + "/words.txt";
    writeWordList(list, makeWords(count));
    {
      Program program(folder);
      makeDictionary(program, path);
      importList(program, list);
      program.close();
    }
    std::_Exit(0);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0) stop("making " + path);
  return path;
}

}  // namespace bench
