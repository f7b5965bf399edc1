// Speed of recordsets over the entries of a large dictionary. Each figure stands beside a yardstick: the
// same question put to the plain SQLite C interface over an unencrypted file with the same rows.
//
// usage: bench_engine [folder] [entries] [ordered] [nowalk]
// The folder keeps the made files between runs. With "ordered" the entries lie in the order of their
// headwords in the files, else in none; "nowalk" leaves out the walk, for a profile of the rest.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "engine/workspace.h"
#include "entry_files.h"
#include "plain.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

constexpr int pageRows = 49;

constexpr const char* entryList =
    "SELECT woerterbuch.*, woerterbuch.ID_Woerterbuch From woerterbuch ORDER BY woerterbuch.SortBegriff;";

/// The memory that making the files took is not counted.
void forgetPeakMemory() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

/// The middle of several runs, each over files opened anew.
template <class Run>
double middle(std::size_t runs, Run&& run) {
  std::vector<double> seconds(runs);
  std::ranges::generate(seconds, run);
  std::ranges::sort(seconds);
  return seconds[runs / 2];
}

struct Seen {
  std::int64_t rows = 0, sum = 0;
  std::size_t bytes = 0;
  bool operator==(const Seen&) const = default;
};

double walkEngine(const std::string& path, Seen& seen) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  seen = {};
  const double start = now();
  engine::Recordset rows = database.OpenRecordset(entryList);
  const std::size_t id = rows.field("ID_Woerterbuch"), word = rows.field("Begriff"),
                    level = rows.field("Ebene");
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    ++seen.rows;
    seen.sum += rows.value(id).asInteger() + rows.value(level).asInteger();
    seen.bytes += rows.value(word).text().size();
  }
  return now() - start;
}

double walkPlain(const std::string& path, Seen& seen) {
  PlainFile file(path, false);
  seen = {};
  const double start = now();
  PlainStatement rows(file.connection(), "SELECT id, begriff, ebene FROM entry ORDER BY sort");
  while (rows.step()) {
    ++seen.rows;
    seen.sum += rows.integer(0) + rows.integer(2);
    seen.bytes += rows.text(1).size();
  }
  return now() - start;
}

void readPage(engine::Recordset& rows) {
  std::size_t bytes = 0;
  for (int i = 0; i < pageRows && !rows.EndOfFile(); ++i, rows.MoveNext()) {
    for (const char* field : {"EBENE", "SORTBEGRIFF", "id_woerterbuch", "ID_Woerterbuch1", "DATABASENAME",
                              "BEGRIFF", "UNTERBEGRIFF", "InBearbeitung"}) {
      bytes += rows[field].textOrEmpty().size();
    }
  }
  if (bytes == 0) stop("an empty page");
}

/// Opening, counting and the first page; `pageAlone` is the page's share.
double firstPage(const std::string& path, std::int64_t count, double& pageAlone) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  const double start = now();
  engine::Recordset rows = database.OpenRecordset(entryList);
  rows.MoveLast();
  if (rows.RecordCount() != count) stop("the count");
  const double counted = now();
  rows.MoveFirst();
  readPage(rows);
  pageAlone = now() - counted;
  return now() - start;
}

double firstPagePlain(const std::string& path, std::int64_t count) {
  PlainFile file(path, false);
  const double start = now();
  PlainStatement all(file.connection(), "SELECT count(*) FROM entry");
  if (!all.step() || all.integer(0) != count) stop("the yardstick's count");
  PlainStatement rows(file.connection(),
                      "SELECT ebene, sort, id, main, name, begriff, unterbegriff, bearbeitung "
                      "FROM entry ORDER BY sort LIMIT 49");
  std::size_t bytes = 0;
  while (rows.step()) {
    for (int column = 0; column < 8; ++column) bytes += rows.text(column).size();
  }
  if (bytes == 0) stop("the yardstick's page");
  return now() - start;
}

/// A page somewhere in the middle, of a counted set.
double middlePage(const std::string& path) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  engine::Recordset rows = database.OpenRecordset(entryList);
  rows.MoveLast();
  const std::int64_t count = rows.RecordCount();
  std::vector<double> seconds;
  for (int i = 0; i < 51; ++i) {
    const double start = now();
    rows.setAbsolutePosition((count - pageRows) * i / 51);
    readPage(rows);
    seconds.push_back(now() - start);
  }
  std::ranges::sort(seconds);
  return seconds[25];
}

/// Finding headwords and their positions in a counted set: the first, the slowest and the middle one.
void findWords(const std::string& path, std::int64_t count, bool ordered) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  engine::Recordset rows = database.OpenRecordset(entryList);
  rows.MoveLast();
  std::vector<double> seconds;
  for (std::int64_t i = 0; i < 200; ++i) {
    const std::string word = headword((i * 7919 + 13) % count, ordered);
    const double start = now();
    rows.FindFirst("begriff = \"" + word + "\"");
    const std::int64_t position = rows.AbsolutePosition() + 1;
    seconds.push_back(now() - start);
    if (rows.NoMatch() || position < 1 || rows["Begriff"].asText() != word) stop("a find");
  }
  report("finding a headword and its position, the first of 200", seconds[0] * 1000, "ms", "5 ms");
  std::ranges::sort(seconds);
  report("the slowest of 200", seconds.back() * 1000, "ms", "5 ms");
  report("the middle of 200", seconds[100] * 1000, "ms", "");
}

/// What the program does for each entry that it shows or prints: a query opened, read and closed.
double smallSets(const std::string& path, int sets) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  const double start = now();
  std::size_t bytes = 0;
  for (int n = 1; n <= sets; ++n) {
    engine::Recordset row = database.OpenRecordset(
        "PARAMETERS lWortID Long; SELECT Woerterbuch.* FROM Woerterbuch WHERE ID_Woerterbuch = [lWortID];",
        engine::RecordsetKind::dynaset, {{"lWortID", n}});
    for (; !row.EndOfFile(); row.MoveNext()) bytes += row["Begriff"].text().size();
  }
  if (bytes == 0) stop("a small set");
  return now() - start;
}

double smallSetsPlain(const std::string& path, int sets) {
  PlainFile file(path, false);
  const double start = now();
  std::size_t bytes = 0;
  for (int n = 1; n <= sets; ++n) {
    PlainStatement row(file.connection(), "SELECT * FROM entry WHERE id = ?1");
    row.bind(1, std::int64_t{n});
    while (row.step()) bytes += row.text(2).size();
  }
  if (bytes == 0) stop("the yardstick's small set");
  return now() - start;
}

/// Opening and the first page, nothing counted.
double uncounted(const std::string& path) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  const double start = now();
  engine::Recordset rows = database.OpenRecordset(entryList);
  readPage(rows);
  return now() - start;
}

/// What is asked for behind folder and entries.
struct Order {
  bool ordered = false, walks = true;
};

int run(const std::string& folder, std::int64_t count, const Order& order) {
  fs::create_directories(folder);
  const std::string number = std::to_string(count);
  const std::string many = folder + "/engine" + number + ".cvb", few = folder + "/engine10000.cvb",
                    plain = folder + "/engine" + number + ".db";
  makeEngineFile(many, count, order.ordered);
  makeEngineFile(few, 10000, order.ordered);
  makePlainFile(plain, count, order.ordered);
  forgetPeakMemory();
  std::printf("| what, over %s entries | ours | yardstick | ratio | aim |\n|---|---|---|---|---|\n",
              number.c_str());
  double page = 0;
  const double opening = middle(5, [&] { return firstPage(many, count, page); });
  report("opening, count and first page", opening, middle(5, [&] { return firstPagePlain(plain, count); }),
         "below 0.2 s");
  report("opening and first page without the count, against 10000 entries",
         middle(9, [&] { return uncounted(many); }), middle(9, [&] { return uncounted(few); }), "");
  const auto pageAlone = [&](const std::string& path, std::int64_t rows) {
    return middle(9, [&] {
      firstPage(path, rows, page);
      return page;
    });
  };
  report("first page after the count, against 10000 entries", pageAlone(many, count), pageAlone(few, 10000),
         "1.5");
  report("a page in the middle, against 10000 entries", middlePage(many), middlePage(few), "");
  findWords(many, count, order.ordered);
  report("memory so far", peakMemory(), "MiB", "200 MiB");
  report("10000 queries by key opened, read and closed", middle(3, [&] { return smallSets(many, 10000); }),
         middle(3, [&] { return smallSetsPlain(plain, 10000); }), "");
  if (!order.walks) return 0;
  Seen ours, theirs;
  // By turns, so that a busy machine troubles both alike.
  std::vector<double> walked, plainly;
  for (int i = 0; i < 3; ++i) {
    walked.push_back(walkEngine(many, ours));
    plainly.push_back(walkPlain(plain, theirs));
  }
  std::ranges::sort(walked);
  std::ranges::sort(plainly);
  report("walk in order, three fields", walked[1], plainly[1], "2");
  if (ours != theirs) stop("the walk");
  report("memory at the end", peakMemory(), "MiB", "");
  return 0;
}

}  // namespace

}  // namespace bench

int main(int argc, char** argv) {
  std::string folder = argc > 1 ? argv[1] : "/tmp/vocarium-bench";
  bench::Order order;
  for (int i = 3; i < argc; ++i) {
    order.ordered = order.ordered || std::string(argv[i]) == "ordered";
    order.walks = order.walks && std::string(argv[i]) != "nowalk";
  }
  if (order.ordered) folder += "/ordered";
  return bench::run(folder, argc > 2 ? std::atoll(argv[2]) : 1'000'000, order);
}
