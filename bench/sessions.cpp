// Speed of filters, and of several files in one session.
//
// usage: bench_sessions [folder] [entries]   the folder keeps the made dictionaries between runs

#include <cstdio>
#include <filesystem>
#include <functional>

#include "browse/frmFilter.h"
#include "plain.h"
#include "program.h"
#include "store/open.h"
#include "words.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

constexpr int catalogueSize = 20;

/// A catalogue of twenty items in place of the standard one.
void fillCatalogue(engine::Database& file, const std::string& table, const std::string& key,
                   const std::string& name) {
  file.Execute("delete * from " + table);
  for (int n = 1; n <= catalogueSize; ++n) {
    const std::string number = std::to_string(n);
    file.Execute("insert into " + table + " (" + key + ", " + name + ") values (" + number + ", 'item " +
                 number + "')");
  }
}

/// Every entry has a property, every third one a subject field.
void fill(engine::Database& file, std::int64_t count, const std::string& path) {
  fillCatalogue(file, "WKategorie", "ID_WKategorie", "Kategorie");
  fillCatalogue(file, "WSachgebiet", "ID_Sachgebiet", "Sachgebiet");
  auto entries = file.OpenRecordset("Woerterbuch", engine::RecordsetKind::table);
  auto properties = file.OpenRecordset("relWoertWKat", engine::RecordsetKind::table);
  auto subjects = file.OpenRecordset("relWoertSachgebiet", engine::RecordsetKind::table);
  for (std::int64_t n = 1; n <= count; ++n) {
    const std::string word = scatteredWord(static_cast<std::uint64_t>(n));
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
  makeDictionary(program, path);
  fill(program.session.files.CurrentDB, count, program.session.files.CurrentDBPath);
  program.close();
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
  program.open(path);
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
  program.close();
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
  program.close();
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
