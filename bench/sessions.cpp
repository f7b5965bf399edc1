// Speed of filters, and of several files in one session.
//
// usage: bench_sessions [folder] [entries]   the folder keeps the made dictionaries between runs

#include <cstdio>
#include <filesystem>
#include <functional>

#include "browse/frmFilter.h"
#include "cli/console_desk.h"
#include "plain.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/texts.h"
#include "store/close.h"
#include "store/create.h"
#include "store/locale.h"
#include "store/open.h"
#include "store/settings_row.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

constexpr int catalogueSize = 20;

[[noreturn]] void stop(const std::string& what) {
  std::fprintf(stderr, "bench: %s failed\n", what.c_str());
  std::exit(1);
}

/// The program without windows, in a home of its own.
struct Program {
  explicit Program(const std::string& folder) : console(true, {}), session(console.desk()), frame(session) {
    setenv("APPDATA", (folder + "/home").c_str(), 1);
    const std::string program = fs::read_symlink("/proc/self/exe").parent_path().parent_path().string();
    if (!frame::frmStart_Load(session, program) || !frame::frmMDI_Initialize(frame) ||
        !frame::frmMDI_Load(frame))
      stop("the start");
    session.shell.entryDisplayed = false;
  }
  cli::Console console;
  session::Session session;
  frame::frmMDI frame;
};

/// Spreads the numbers over the alphabet, so that headwords lie in no order in the file.
std::string headword(std::uint64_t n) {
  std::uint64_t mixed = n * 0x9e3779b97f4a7c15U;
  std::string text;
  for (int letter = 0; letter < 7; ++letter, mixed /= 26) text += static_cast<char>('a' + mixed % 26);
  return text + std::to_string(n);
}

/// Every entry has a property, every third one a subject field, each of its own catalogue of twenty.
void fill(engine::Database& file, std::int64_t count, const std::string& path) {
  for (int n = 1; n <= catalogueSize; ++n) {
    file.Execute("insert into WKategorie (Kategorie) values ('p" + std::to_string(n) + "')");
    file.Execute("insert into WSachgebiet (Sachgebiet) values ('s" + std::to_string(n) + "')");
  }
  auto entries = file.OpenRecordset("Woerterbuch", engine::RecordsetKind::table);
  auto properties = file.OpenRecordset("relWoertWKat", engine::RecordsetKind::table);
  auto subjects = file.OpenRecordset("relWoertSachgebiet", engine::RecordsetKind::table);
  for (std::int64_t n = 1; n <= count; ++n) {
    const std::string word = headword(static_cast<std::uint64_t>(n));
    entries.AddNew();
    entries.set("ID_Woerterbuch1", n);
    entries.set("Begriff", word);
    entries.set("SortBegriff", word);
    entries.set("MetaSuche", "////" + word);
    entries.set("Ebene", 1);
    entries.set("DatabaseName", path);
    entries.Update();
    properties.AddNew();
    properties.set("ID_Woerterbuch", n);
    properties.set("ID_WKategorie", 1 + n % catalogueSize);
    properties.Update();
    if (n % 3 != 0) continue;
    subjects.AddNew();
    subjects.set("ID_Woerterbuch", n);
    subjects.set("ID_WSachgebiet", 1 + n / 3 % catalogueSize);
    subjects.Update();
  }
}

void make(const std::string& folder, const std::string& path, std::int64_t count) {
  if (fs::exists(path)) return;
  Program program(folder);
  auto& s = program.session;
  s.project.FontFrom = s.project.FontTo = s.project.FontRemark = s.project.PhoneticFont = "Arial";
  store::NewLocalDB(s, path);
  store::NewSettings settings;
  settings.sourceLanguage = "Deutsch";
  settings.targetLanguage = "Englisch";
  settings.description = "Benchmark";
  settings.sortOrder = store::sortOrderCaptions(s).front();
  settings.dateFormat = "yyyy";
  store::prepareMediaFolder(s, false);
  store::writeSettingsRow(s, settings);
  s.files.OpenDBCount = 1;
  fill(s.files.CurrentDB, count, s.files.CurrentDBPath);
  store::CloseCurrentDB(s);
}

void timed(const std::string& what, const std::string& aim, const std::function<bool()>& work) {
  const double start = now();
  if (!work()) stop(what);
  report(what, now() - start, "s", aim);
}

void filterOne(const std::string& folder, std::int64_t count) {
  const std::string path = folder + "/filter" + std::to_string(count) + ".cvb";
  make(folder, path, count);
  Program program(folder);
  program.console.answerFileDialog({path});
  if (!frame::mnuOpen(program.frame)) stop("opening");
  browse::frmFilter& dialog = program.frame.filter;
  browse::frmWoerter& browser = *program.frame.browsers.front().form;
  browse::Form_Activate(dialog);
  dialog.properties.at(0).selected = dialog.subjects.at(0).selected = true;
  timed("confirming a filter on property and subject", "1 s", [&] { return browse::confirmFilter(dialog); });
  timed("the list under it, with the count", "", [&] {
    browse::refreshAfterFilter(dialog, browser);
    return browser.list.size() > 0;
  });
  browse::resetFilter(dialog);
  program.session.files.DBOpen = false;  // as it was; compacting it is not measured
  store::CloseCurrentDB(program.session);
}

void openFive(const std::string& folder, std::int64_t count) {
  std::vector<std::string> paths;
  for (int n = 1; n <= 5; ++n) {
    paths.push_back(folder + "/session" + std::to_string(n) + "-" + std::to_string(count) + ".cvb");
    make(folder, paths.back(), count);
  }
  Program program(folder);
  auto& s = program.session;
  timed("opening five files", "", [&] {
    for (const std::string& path : paths)
      if (!store::addDictionary(s, path, false)) return false;
    return true;
  });
  const auto firstPage = [&] {
    const auto* browser = frame::ShowWordInstance(program.frame);
    return browser != nullptr && browser->list.size() == 49 && browser->rsWoerter.RecordCount() == 5 * count;
  };
  timed("the first page of their list, with the count", "2 s", firstPage);
  timed("the same in a second browser", "2 s", firstPage);
  report("memory", peakMemory(), "MiB", "");
  store::CloseCurrentDB(s);
}

}  // namespace

}  // namespace bench

int main(int argc, char** argv) {
  const std::string folder = std::filesystem::absolute(argc > 1 ? argv[1] : ".").string();
  const std::int64_t count = argc > 2 ? std::atoll(argv[2]) : 1000000;
  std::filesystem::create_directories(folder);
  std::printf("| filters and sessions, %lld entries | ours | | | aim |\n|---|---|---|---|---|\n",
              static_cast<long long>(count));
  bench::filterOne(folder, count);
  bench::openFive(folder, count / 5);
}
