// How long an author waits at the windows, over a large dictionary: from the start to the ready frame, and
// for each thing done in it until it is drawn. The window must not freeze for more than 100 ms outside a
// marked long operation.
//
// usage: bench_desktop [folder] [entries]   the folder keeps the made dictionary between runs

#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <chrono>
#include <cstdio>
#include <filesystem>

#include "base/text.h"
#include "program.h"
#include "support/user.h"
#include "words.h"

namespace {

using Clock = std::chrono::steady_clock;

double took(const std::function<void()>& work) {
  const auto before = Clock::now();
  work();
  QApplication::processEvents();
  return std::chrono::duration<double, std::milli>(Clock::now() - before).count();
}

void row(const char* what, double aim, double milliseconds) {
  std::printf("| %-48s | %8.1f | %5.0f |%s\n", what, milliseconds, aim, milliseconds > aim ? " missed" : "");
}

/// The same until a window stands drawn; what it leaves for idle times is not counted.
double tookToDraw(QWidget& window, const std::function<void()>& work) {
  const auto before = Clock::now();
  work();
  window.repaint();
  const auto after = Clock::now();
  QApplication::processEvents();
  return std::chrono::duration<double, std::milli>(after - before).count();
}

/// Several times the same thing at other places: the longest counts.
double longest(int times, const std::function<void(int)>& work) {
  double most = 0;
  for (int n = 0; n < times; ++n) most = std::max(most, took([&] { work(n); }));
  return most;
}

/// `headword` is one of the dictionary.
void measure(const std::string& dictionary, const std::string& headword) {
  std::unique_ptr<User> user;
  User::toolkit();
  std::printf("| %-48s | %8s | %5s |\n|---|---:|---:|\n", "what", "ms", "aim");
  row("start to the ready frame", 500, took([&] { user = std::make_unique<User>(); }));
  QWidget& frame = *user->app->window;
  user->chooseFile(dictionary);
  row("open, count, first page and its entry", 1000, took([&] { user->choose("mnuOpen"); }));
  auto& list = user->find<QListWidget>("List2");
  row("select a row", 100, longest(20, [&](int n) { list.setCurrentRow(n + 1); }));
  row("next page", 100, longest(20, [&](int) { user->click(frame, "PageForward"); }));
  row("previous page", 100, longest(20, [&](int) { user->click(frame, "PageBack"); }));
  const char* typed[] = {"v", "ve", "wur", "zelm", "M"};
  row("a key in the search box", 100, longest(5, [&](int n) { user->type(frame, "Text3", typed[n]); }));
  user->type(frame, "Text3", "");
  row("a letter of the bar", 100, longest(3, [&](int n) {
        user->click(frame, n == 0 ? "Letter_W" : n == 1 ? "Letter_B" : "Letter_Z");
      }));
  row("all letters", 300, took([&] { user->click(frame, "AllLetters"); }));
  double slowest = 0, counted = 0, hit = 0, search = 0, often = 0;
  user->in("frmSearch", [&](QWidget& window) {
    QApplication::processEvents();
    for (std::size_t n = 1; n <= 5; ++n) {
      const auto before = Clock::now();
      const auto type = [&] { user->type(window, "TextBox1", base::left(headword, n)); };
      slowest = std::max(slowest, tookToDraw(window, type));
      counted = std::max(counted, std::chrono::duration<double, std::milli>(Clock::now() - before).count());
    }
    hit = took([&] { user->pickRow(window, "DataGrid1", 0); });
    user->click(window, "Command1_1");
  });
  user->choose("mnuGoto");
  row("go to: a key, until its hits stand there", 16, slowest);
  row("the same, counted", 100, counted);
  row("go to: select a hit", 100, hit);
  user->in("frmSearch", [&](QWidget& window) {
    user->type(window, "TextBox1", base::right(headword, base::length(headword) / 2));
    search = tookToDraw(window, [&] { user->click(window, "Command1_0"); });
    for (const std::string& piece : {base::left(headword, 3), base::left(headword, 2)}) {
      user->type(window, "TextBox1", piece);
      often = std::max(often, tookToDraw(window, [&] { user->click(window, "Command1_0"); }));
    }
    user->click(window, "Command1_1");
  });
  user->choose("mnuSearchEntry");
  row("search all texts for a piece", 100, search);
  row("search for a piece of three or two letters", 100, often);
  row("close unchanged", 1000, took([&] { user->choose("mnuClose"); }));
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = std::filesystem::absolute(argc > 1 ? argv[1] : "bench-data").string();
  const std::size_t entries = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1000000;
  try {
    std::filesystem::create_directories(folder);
    measure(bench::importedDictionary(folder, entries), bench::headwordsToFind(entries).back());
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
}
