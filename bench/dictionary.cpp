// Speed of whole operations on dictionaries: import, publishing, opening, finding, closing. Each figure
// stands beside a yardstick of the same work over the plain SQLite C interface in the same run.
//
// usage: bench_dictionary [folder] [entries]   the folder keeps the made dictionaries between runs

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "browse/commands.h"
#include "browse/frmSearch.h"
#include "plain.h"
#include "program.h"
#include "publish/frmPrint.h"
#include "words.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

double bareInserts(const std::string& path, const std::vector<Word>& words) {
  PlainFile file(path, true);
  PlainStatement entry(
      file.connection(),
      "INSERT INTO woerterbuch (main, begriff, sortbegriff, metasuche, ebene, prioritaet, stamp,"
      " databasename, changed) VALUES (?1, ?2, ?3, ?4, 1, 1, ?5, ?6, ?7)");
  PlainStatement meaning(
      file.connection(),
      "INSERT INTO wortbedeutung (entry, wortbedeutung, databasename) VALUES (?1, ?2, ?3)");
  const double start = now();
  file.run("BEGIN");
  std::int64_t id = 0;
  for (const Word& word : words) {
    entry.bind(1, ++id);
    entry.bind(2, word.headword);
    entry.bind(3, word.headword);
    entry.bind(4, "//" + word.headword + "////" + word.meaning);
    entry.bind(5, "2026-01-01 12:00:00");
    entry.bind(6, path);
    entry.bind(7, "01.01.2026 12:00:00");
    entry.run();
    meaning.bind(1, id);
    meaning.bind(2, word.meaning);
    meaning.bind(3, path);
    meaning.run();
  }
  file.run("COMMIT");
  return now() - start;
}

/// Everything that a publication reads of an entry, in its order.
constexpr const char* joinedRows =
    "SELECT w.id, w.begriff, w.metasuche, b.id, b.wortbedeutung, e.beispiel, e.uebersetzung, k.kategorie, "
    "wk.wert,"
    " s.sachgebiet, bk.kategorie, bwk.wert, bs.sachgebiet FROM woerterbuch w"
    " LEFT JOIN relwoertsachgebiet ws ON ws.owner = w.id LEFT JOIN wsachgebiet s ON s.id = ws.item"
    " LEFT JOIN relwoertwkat wk ON wk.owner = w.id LEFT JOIN wkategorie k ON k.id = wk.item"
    " LEFT JOIN wortbedeutung b ON b.entry = w.id LEFT JOIN wortbedbsp e ON e.sense = b.id"
    " LEFT JOIN relwortbedwkat bwk ON bwk.owner = b.id LEFT JOIN wkategorie bk ON bk.id = bwk.item"
    " LEFT JOIN relwortbedsachgebiet bws ON bws.owner = b.id LEFT JOIN wsachgebiet bs ON bs.id = bws.item"
    " WHERE w.ebene = 1 ORDER BY w.sortbegriff, b.wortbedeutung, b.id";

/// Walks entries and senses in their order and writes the bytes that the publication holds.
double joinedWalk(const std::string& plain, const std::vector<std::string>& pages,
                  const std::string& target) {
  std::string bytes;
  for (const std::string& page : pages) {
    std::ifstream file(page, std::ios::binary);
    bytes.append(std::istreambuf_iterator<char>(file), {});
  }
  PlainFile file(plain, false);
  PlainStatement walk(file.connection(), joinedRows);
  const double start = now();
  std::ofstream out(target, std::ios::binary);
  std::size_t rows = 0, read = 0, written = 0;
  PlainStatement count(file.connection(), "SELECT count(*) FROM wortbedeutung");
  count.step();
  const auto total = static_cast<std::size_t>(count.integer(0));
  while (walk.step()) {
    for (int column = 1; column < 13; ++column) read += walk.text(column).size();
    const std::size_t until = bytes.size() * std::min(++rows, total) / std::max<std::size_t>(total, 1);
    out.write(bytes.data() + written, static_cast<std::streamsize>(until - written));
    written = until;
  }
  out.flush();
  if (read == 0 || written != bytes.size()) stop("the joined walk");
  return now() - start;
}

void importAndPublish(const std::string& folder, std::size_t count) {
  const auto words = makeWords(count);
  const std::string list = folder + "/words.txt", dictionary = folder + "/PUBLISH.CVB",
                    plain = folder + "/plain.db";
  writeWordList(list, words);
  Program program(folder);
  fs::remove(dictionary);
  makeDictionary(program, dictionary);
  const double start = now();
  importList(program, list);
  const double ours = now() - start;
  report("import of " + std::to_string(count) + " delimited rows", ours, bareInserts(plain, words), "4");

  auto& database = program.session.files.CurrentDB;
  PlainFile file(plain, false);
  for (const char* more : {"another ", "third "}) {
    database.Execute(
        std::string("insert into wortbedeutung (id_woerterbuch, wortbedeutung) select id_woerterbuch, '") +
        more + "' & begriff from woerterbuch");
    file.run(std::string("INSERT INTO wortbedeutung (entry, wortbedeutung) SELECT id, '") + more +
             "' || begriff FROM woerterbuch");
  }
  fs::create_directories(folder + "/pages");
  publish::frmPrint form(program.session);
  publish::applyProjectType(form);
  program.console.answerFileDialog({folder + "/pages/words.htm"});
  const double published = now();
  if (!publish::publishNow(form)) stop("publishing");
  const double publishing = now() - published;
  report("publishing " + std::to_string(count) + " entries of three senses", publishing,
         joinedWalk(plain, form.writtenFiles, folder + "/plain-pages"), "3");
  program.close();
}

struct Opening {
  double firstPage = 0, page = 0, find = 0;
  double asPage = 0;  ///< showing the entry that a row stands for
  double goTo = 0, search = 0;
};

/// Selecting one row after the other, with the entry shown beside the list.
double selectRows(Program& program) {
  program.session.shell.entryDisplayed = true;
  browse::frmWoerter& browser = *program.frame.browsers.front().form;
  const int rows = static_cast<int>(browser.list.size());
  const double start = now();
  for (int row = 0; row < rows; ++row) browse::List2_Click(browser, row);
  const double each = (now() - start) / rows;
  program.session.shell.entryDisplayed = false;
  return each;
}

/// The slowest keystroke of typing a headword into "go to".
double goTo(Program& program, const std::string& headword) {
  browse::frmSearch dialog(program.session, browse::SearchMode::goTo);
  if (!browse::Form_Load(dialog)) stop("go to");
  double slowest = 0;
  for (std::size_t length = 1; length <= base::length(headword); ++length) {
    const double start = now();
    browse::TextBox1_Change(dialog, base::left(headword, length));
    for (std::int64_t row = 0; row < 40; ++row) browse::gridCell(dialog.hits, row, 0);
    slowest = std::max(slowest, now() - start);
  }
  if (browse::gridRows(dialog.hits) == 0) stop("go to " + headword);
  return slowest;
}

double searchContains(Program& program, const std::string& text) {
  browse::frmSearch dialog(program.session, browse::SearchMode::full);
  if (!browse::Form_Load(dialog)) stop("searching");
  browse::TextBox1_Change(dialog, text);
  const double start = now();
  if (!browse::runSearch(dialog) || browse::gridRows(dialog.hits) == 0) stop("searching " + text);
  return now() - start;
}

Opening openAndFind(const std::string& folder, const std::string& path, std::size_t count) {
  Opening result;
  Program program(folder);
  const double start = now();
  program.open(path);
  result.firstPage = now() - start;
  browse::frmWoerter& browser = *program.frame.browsers.front().form;
  const double pageStart = now();
  for (int n = 0; n < 20; ++n) browse::BuildWordTreeNew(browser);
  result.page = (now() - pageStart) / 20;
  std::vector<double> finds;
  for (const std::string& headword : headwordsToFind(count)) {
    const double findStart = now();
    browse::searchBoxChanged(browser, headword);
    finds.push_back(now() - findStart);
    const auto& list = browser.list;
    if (list.selected < 0 || list.List2[static_cast<std::size_t>(list.selected)] != headword)
      stop("finding " + headword);
  }
  result.find = *std::max_element(finds.begin(), finds.end());
  browse::searchBoxChanged(browser, "");
  browse::FormInit(browser);
  result.asPage = selectRows(program);
  const std::string headword = headwordsToFind(count).back();
  result.goTo = goTo(program, headword);
  result.search = searchContains(program, base::right(headword, base::length(headword) / 2));
  program.close();
  return result;
}

void openToClosed(const std::string& folder, const std::string& path) {
  for (const bool change : {false, true}) {
    Program program(folder);
    const double start = now();
    program.open(path);
    if (change)
      program.session.files.CurrentDB.Execute(
          "UPDATE  woerterbuch SET bemerkung = 'x' Where id_woerterbuch = 5");
    program.close();
    report(std::string("open to closed, ") + (change ? "one entry changed" : "unchanged"), now() - start, "s",
           "");
  }
}

void openLarge(const std::string& folder, std::size_t count) {
  const std::string small = importedDictionary(folder, 10000), large = importedDictionary(folder, count);
  const Opening few = openAndFind(folder, small, 10000);
  const Opening many = openAndFind(folder, large, count);
  report("opening, count and first page at " + std::to_string(count), many.firstPage * 1000, "ms", "300 ms");
  report("a page at " + std::to_string(count) + " against 10000", many.page, few.page, "1.5");
  report("finding a headword and placing the list, the slowest of 20", many.find * 1000, "ms", "5 ms");
  report("selecting a row, the entry shown as a page", many.asPage * 1000, "ms", "");
  report("going to a headword, the slowest keystroke", many.goTo * 1000, "ms", "16 ms");
  report("searching all texts for a part", many.search * 1000, "ms", "");
  report("memory after opening and finding", peakMemory(), "MiB", "200 MiB");
  openToClosed(folder, large);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const std::string folder = std::filesystem::absolute(argc > 1 ? argv[1] : "bench-data").string();
  const std::size_t entries = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1000000;
  std::filesystem::create_directories(folder);
  std::printf("| what | Vocarium | yardstick | ratio | aim |\n|---|---|---|---|---|\n");
  bench::openLarge(folder, entries);
  bench::importAndPublish(folder, std::min<std::size_t>(entries, 100000));
}
