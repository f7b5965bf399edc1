#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

#include "stored_words.h"
#include "support/error_of.h"

using namespace stored;

TEST(Compact, KeepsAllAndChangesTheLocale) {
  const test::TempDir folder;
  const std::string source = folder / "WORDS.CVB", target = folder / "small.cvb";
  make(source, 400);
  engine::Workspace workspace(login);
  std::vector<double> shares;
  engine::CompactDatabase(workspace, source, target, swedish, 2,
                          [&](double share) { shares.push_back(share); });
  expectSame(contentOf(source), contentOf(target));
  EXPECT_EQ(contentOf(target).locale, swedish);
  EXPECT_EQ(lines(engine::checkDatabase(workspace, target)), "");
  EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
  EXPECT_EQ(shares.back(), 1);
  const std::string bytes = test::TempDir::read(target);
  EXPECT_EQ(bytes.find("Stichwort"), std::string::npos);
  EXPECT_EQ(bytes.find("SQLite"), std::string::npos);
  EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"WORDS.CVB", "small.cvb"}));
}

TEST(Compact, IsNeededAfterAnyChangeAndForAnotherLocale) {
  const test::TempDir folder;
  const std::string source = folder / "words.cvb", target = folder / "small.cvb";
  make(source, 50);
  engine::Workspace workspace(login);
  EXPECT_TRUE(engine::needsCompaction(workspace, source, german));
  engine::CompactDatabase(workspace, source, target, "", 2);
  EXPECT_FALSE(engine::needsCompaction(workspace, target, german));
  EXPECT_FALSE(engine::needsCompaction(workspace, target, ""));
  EXPECT_TRUE(engine::needsCompaction(workspace, target, swedish));
  contentOf(target);  // reading is no change
  EXPECT_FALSE(engine::needsCompaction(workspace, target, german));
  {
    engine::storage::Connection connection({login.user, login.password, false});
    const auto file = connection.open(target, false, false);
    engine::storage::TableWriter writer(*file, file->existingTable("Sprache"));
    connection.beforeWrite(*file);
    writer.insert({{0, std::string("schwedisch")}});
    connection.idle();
  }
  EXPECT_TRUE(engine::needsCompaction(workspace, target, german));
}

TEST(Compact, RefusesWhatItCanNotDoAndLeavesNothingBehind) {
  const test::TempDir folder;
  const std::string source = folder / "words.cvb", target = folder / "small.cvb";
  make(source, 50);
  const auto before = namesIn(folder.path());
  engine::Workspace workspace(login);
  const auto compact = [&](const std::string& from, const std::string& to, const std::string& locale,
                           int options) {
    return errorOf([&] { engine::CompactDatabase(workspace, from, to, locale, options); });
  };
  EXPECT_EQ(compact(source, source, german, 2), 3204);
  EXPECT_EQ(compact(source, folder / "WORDS.cvb", german, 2), 3204);
  EXPECT_EQ(compact(source, target, german, 0), 5);
  EXPECT_EQ(compact(source, target, "no locale", 2), 5);
  EXPECT_EQ(compact(folder / "missing.cvb", target, german, 2), 53);
  EXPECT_EQ(compact(source, folder / "no/small.cvb", german, 2), 3044);
  EXPECT_EQ(errorOf([&] {
              engine::CompactDatabase(workspace, source, target, german, 2, [](double share) {
                if (share > 0.3) throw engine::Error(32755, "cancelled");
              });
            }),
            32755);
  std::string bytes = test::TempDir::read(source);
  ruinPage(bytes, bytes.size() / 4096 - 3);
  overwrite(source, bytes);
  EXPECT_EQ(compact(source, target, german, 2), 3343);
  EXPECT_EQ(namesIn(folder.path()), before);
}

TEST(Compact, AnOpenFileIsLeftAlone) {
  const test::TempDir folder;
  const std::string source = folder / "words.cvb";
  make(source, 20);
  engine::storage::Connection other({login.user, login.password, false});
  const auto held = other.open(source, false, false);
  engine::Workspace workspace(login);
  EXPECT_EQ(errorOf([&] { engine::CompactDatabase(workspace, source, folder / "small.cvb", german, 2); }),
            3045);
  EXPECT_EQ(errorOf([&] { engine::RepairDatabase(workspace, source); }), 3045);
}

TEST(Compact, AFullDiskLeavesTheSource) {
  const test::TempDir folder;
  const std::string source = folder / "words.cvb";
  make(source, 300);
  const Content before = contentOf(source);
  for (const rlim_t limit : {rlim_t{20000}, rlim_t{200000}}) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit size{limit, limit};
      ::setrlimit(RLIMIT_FSIZE, &size);
      engine::Workspace workspace(login);
      ::_exit(errorOf([&] { engine::CompactDatabase(workspace, source, folder / "small.cvb", german, 2); }));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"words.cvb"});
  }
  expectSame(contentOf(source), before);
}

TEST(Compact, AKillLeavesTheSourceAndTheNextRunCleansUp) {
  const test::TempDir folder;
  const std::string source = folder / "words.cvb", target = folder / "small.cvb";
  make(source, 300);
  const Content before = contentOf(source);
  for (int percent = 0; percent < 100; percent += 15) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      engine::Workspace workspace(login);
      engine::CompactDatabase(workspace, source, target, swedish, 2, [&](double share) {
        if (share * 100 >= percent) ::kill(::getpid(), SIGKILL);
      });
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_FALSE(std::filesystem::exists(target));
    expectSame(contentOf(source), before);
  }
  engine::Workspace workspace(login);
  engine::CompactDatabase(workspace, source, target, swedish, 2);
  expectSame(contentOf(target), before);
  EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"small.cvb", "words.cvb"}));
}
