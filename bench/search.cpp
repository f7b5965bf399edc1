// Speed of finding a piece of text in the entries of a large dictionary. The yardstick is grep over the same
// texts, a line an entry, in one plain file. Also what the index of trigrams costs in size and time.
//
// usage: bench_search [folder] [entries]   the folder keeps the made files between runs

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "engine/text_index.h"
#include "engine/workspace.h"
#include "plain.h"
#include "words.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

constexpr int encrypted = 2;

engine::Workspace workspace() {
  return engine::Workspace({"", "VocariumUser", "built-in", "", false});
}

/// A dictionary without an index, and its search texts and notes as lines.
void makeFiles(const std::string& dictionary, const std::string& lines, std::size_t count) {
  if (fs::exists(dictionary) && fs::exists(lines)) return;
  fs::remove(dictionary);
  engine::Workspace space = workspace();
  engine::Database database = space.CreateDatabase(dictionary, ";LANGID=0x0407;CP=1252;COUNTRY=0", encrypted);
  for (const char* statement :
       {"CREATE TABLE [Woerterbuch] ([ID_Woerterbuch] COUNTER,[ID_Woerterbuch1] LONG,[Begriff] TEXT(250),"
        "[SortBegriff] TEXT(250),[MetaSuche] LONGTEXT,[Ebene] SHORT,[Bemerkung] LONGTEXT,[DatabaseName] "
        "LONGTEXT)",
        "CREATE INDEX [Begriff] ON [Woerterbuch] ([Begriff])",
        "CREATE INDEX [SortBegriff] ON [Woerterbuch] ([SortBegriff])",
        "CREATE UNIQUE INDEX [PrimaryKey] ON [Woerterbuch] ([ID_Woerterbuch]) WITH PRIMARY"})
    database.Execute(statement);
  std::ofstream out(lines, std::ios::binary);
  engine::Recordset entries = database.OpenRecordset("Woerterbuch");
  WordMaker maker;
  for (std::size_t n = 0; n < count; ++n) {
    const std::string word = maker.word() + std::to_string(n);
    std::string text = "//" + word + "////";
    for (std::size_t words = 2 + maker.number(5); words > 0; --words) text += maker.word() + " ";
    std::string note;
    if (n % 5 == 0) note = "see " + maker.word() + " and " + maker.word();
    entries.AddNew();
    entries.set("Begriff", word);
    entries.set("SortBegriff", word);
    entries.set("MetaSuche", text);
    entries.set("Ebene", 1);
    if (!note.empty()) entries.set("Bemerkung", note);
    entries.set("DatabaseName", dictionary);
    entries.Update();
    out << text << '\t' << note << '\n';
    if (n % 50000 == 0) space.Idle();
  }
  entries.Close();
  space.Idle();
}

struct Found {
  double shown = 0, seconds = 0;
  std::int64_t rows = 0;
};

template <class Run>
Found middle(Run&& run) {
  std::array<Found, 5> all;
  std::ranges::generate(all, run);
  std::ranges::sort(all, {}, &Found::seconds);
  return all[all.size() / 2];
}

Found grep(const std::string& lines, const std::string& text) {
  const std::string command = "grep -c -i -F '" + text + "' " + lines;
  const double start = now();
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  long rows = -1;
  if (!pipe || std::fscanf(pipe.get(), "%ld", &rows) != 1) stop("grep");
  const double seconds = now() - start;
  return {seconds, seconds, rows};
}

/// Reads what a window shows of its hits.
std::size_t readPage(engine::Recordset& rows) {
  std::size_t bytes = 0;
  for (int row = 0; row < 40 && !rows.EndOfFile(); ++row, rows.MoveNext())
    bytes += rows.value(2).textOrEmpty().size();
  return bytes;
}

/// A search as its window puts it: the first hits are shown, then all of them counted while nobody waits.
Found search(engine::Database& database, const std::string& select) {
  const double start = now();
  engine::Recordset rows =
      database.OpenRecordset(select, engine::RecordsetKind::dynaset, {}, engine::Interface::second);
  const std::size_t bytes = readPage(rows);
  Found found;
  found.shown = now() - start;
  found.rows = rows.RecordCount();
  found.seconds = now() - start;
  if ((bytes > 0) != (found.rows > 0)) stop("showing what was found");
  return found;
}

Found containing(engine::Database& database, const std::string& text) {
  return search(
      database,
      "Select  id_woerterbuch,id_woerterbuch1,begriff,databasename from Woerterbuch where metasuche "
      "like \"%" +
          text + "%\" Or bemerkung Like \"%" + text + "%\"");
}

Found goTo(engine::Database& database, const std::string& start) {
  return search(database,
                "Select id_woerterbuch,id_woerterbuch1,begriff,databasename from Woerterbuch where begriff "
                "like \"" +
                    start + "%\" order by begriff");
}

double compact(const std::string& from, const std::string& to) {
  fs::remove(to);
  engine::Workspace space = workspace();
  const double start = now();
  engine::CompactDatabase(space, from, to, "", encrypted);
  return now() - start;
}

double mebibytes(const std::string& path) {
  return static_cast<double>(fs::file_size(path)) / (1 << 20);
}

/// Seconds for each of 1000 saves that change the search text, committed one by one.
double saves(const std::string& from, const std::string& copy) {
  fs::copy_file(from, copy, fs::copy_options::overwrite_existing);
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(copy);
  constexpr int count = 1000;
  const double start = now();
  for (int n = 1; n <= count; ++n) {
    engine::Recordset row =
        database.OpenRecordset("SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = " + std::to_string(n * 7));
    row.Edit();
    row.set("MetaSuche", "//saved" + std::to_string(n) + "//");
    row.Update();
    row.Close();
    space.Idle();
  }
  return (now() - start) / count;
}

void declare(const std::string& path) {
  engine::Workspace space = workspace();
  engine::Database database = space.OpenDatabase(path);
  engine::indexTexts(database, "Woerterbuch", {"Begriff", "MetaSuche", "Bemerkung"});
}

void searches(const std::string& indexed, const std::string& plainFile, const std::string& lines) {
  engine::Workspace space = workspace(), other = workspace();
  engine::Database database = space.OpenDatabase(indexed), without = other.OpenDatabase(plainFile);
  for (const char* text : {"xylophon", "123456", "HANDWERK77", "nachtglashandofen", "nachtglastür",
                           "stückwerk", "nachtglas", "verste", "ab", "xq"}) {
    const Found theirs = middle([&] { return grep(lines, text); });
    const Found ours = middle([&] { return containing(database, text); });
    if (ours.rows != theirs.rows) stop("finding what grep finds of " + std::string(text));
    const std::string name = "\"" + std::string(text) + "\", " + std::to_string(ours.rows) + " hits";
    report(name + ", the first shown", ours.shown, theirs.seconds, "0.1");
    report(name + ", counted", ours.seconds, theirs.seconds, "");
  }
  const Found slow = containing(without, "nachtglastür");
  report("\"nachtglastür\" without the index", slow.seconds,
         middle([&] { return grep(lines, "nachtglastür"); }).seconds, "");
  Found slowest;
  for (const char* start : {"n", "na", "nac", "nachtg", "nachtglas"}) {
    const Found each = goTo(database, start);
    slowest.shown = std::max(slowest.shown, each.shown);
    slowest.seconds = std::max(slowest.seconds, each.seconds);
  }
  report("go-to, the slowest of five keystrokes, shown", slowest.shown * 1000, "ms", "16 ms");
  report("the same, counted", slowest.seconds * 1000, "ms", "");
}

void costs(const std::string& folder, const std::string& made, const std::string& plainFile,
           const std::string& indexed) {
  const double first = compact(made, plainFile);
  const std::string changed = folder + "/changed.cvb", again = folder + "/again.cvb";
  fs::copy_file(made, changed, fs::copy_options::overwrite_existing);
  declare(changed);
  report("compaction, the index made, against none", compact(changed, indexed), first, "");
  report("a save of one entry, against no index", saves(indexed, changed), saves(plainFile, changed + "0"),
         "");
  saves(indexed, changed);
  report("compaction after 1000 saves, the index taken over, against none", compact(changed, again), first,
         "");
  report("size without the index", mebibytes(plainFile), "MiB", "");
  report("size with it", mebibytes(indexed), "MiB", "");
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : "/tmp/vocarium-bench";
  const std::size_t count = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1000000;
  std::filesystem::create_directories(folder);
  const std::string made = folder + "/search" + std::to_string(count) + ".cvb",
                    lines = folder + "/search.txt", plainFile = folder + "/search-plain.cvb",
                    indexed = folder + "/search-indexed.cvb";
  bench::makeFiles(made, lines, count);
  std::printf("| finding a text in %zu entries | ours | yardstick | ratio | aim |\n|---|---|---|---|---|\n",
              count);
  bench::costs(folder, made, plainFile, indexed);
  bench::searches(indexed, plainFile, lines);
}
