#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "engine/file/verify.h"
#include "stored_words.h"
#include "support/error_of.h"

using namespace stored;

namespace {

const engine::file::Credential owner{login.user, login.password, false};

// All that is left is as it was; returns the entries that are missing.
std::vector<std::int64_t> compare(const Content& before, const Content& after) {
  std::vector<std::int64_t> missing;
  for (const auto& [id, headword] : before.headwords) {
    const auto found = after.headwords.find(id);
    if (found == after.headwords.end())
      missing.push_back(id);
    else
      EXPECT_EQ(found->second, headword);
  }
  for (const auto& [id, note] : after.notes) EXPECT_TRUE(before.notes.at(id).starts_with(note)) << id;
  for (const auto& [id, sense] : after.senses) EXPECT_EQ(before.senses.at(id), sense);
  EXPECT_EQ(after.headwords.size() + missing.size(), before.headwords.size()) << "rows out of nothing";
  return missing;
}

}  // namespace

TEST(Repair, ASoundFileStaysWhatItIs) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  make(path, 200);
  const Content before = contentOf(path);
  engine::Workspace workspace(login);
  EXPECT_EQ(lines(engine::checkDatabase(workspace, path)), "");
  const engine::RepairReport report = engine::RepairDatabase(workspace, path);
  EXPECT_EQ(lines(report.lines), "");
  EXPECT_EQ(report.rowsKept, 200 + 200 + 1);
  EXPECT_EQ(report.rowsLost, 0);
  EXPECT_EQ(report.keptOriginal, "");
  const Content after = contentOf(path);
  EXPECT_TRUE(compare(before, after).empty());
  expectSame(before, after);
  EXPECT_EQ(after.locale, before.locale);
  EXPECT_EQ(lines(engine::checkDatabase(workspace, path)), "");
  EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"words.cvb"});
}

TEST(Repair, AnyOneDamagedPageCostsLittleAndIsToldOf) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  make(path, 300);
  const Content before = contentOf(path);
  const std::string good = test::TempDir::read(path);
  engine::Workspace workspace(login);
  for (std::size_t page = 1; page <= good.size() / 4096; page += page < 15 ? 1 : 5) {
    std::string bad = good;
    ruinPage(bad, page);
    overwrite(path, bad);
    EXPECT_NE(lines(engine::checkDatabase(workspace, path)), "") << page;
    const engine::RepairReport report = engine::RepairDatabase(workspace, path);
    EXPECT_NE(lines(report.lines).find("damaged: " + std::to_string(page) + "."), std::string::npos)
        << lines(report.lines);
    const Content after = contentOf(path);
    const auto missing = compare(before, after);
    EXPECT_LE(missing.size(), 30U) << page << "\n" << lines(report.lines);
    const std::size_t lost =
        missing.size() + (before.senses.size() - after.senses.size()) + (after.settings == 1 ? 0 : 1);
    if (report.rowsLost != static_cast<std::int64_t>(lost)) {
      EXPECT_NE(lines(report.lines).find("can not be told"), std::string::npos) << page << "\n"
                                                                                << lines(report.lines);
    }
    EXPECT_EQ(report.rowsKept,
              static_cast<std::int64_t>(after.headwords.size() + after.senses.size()) + after.settings)
        << page << lines(report.lines);
    EXPECT_EQ(after.tables.size(), before.tables.size()) << page << "\n" << lines(report.lines);
    EXPECT_EQ(lines(engine::checkDatabase(workspace, path)), "") << page;
    if (lost > 0) {
      ASSERT_EQ(report.keptOriginal, folder / "words_damaged.cvb");
      EXPECT_EQ(test::TempDir::read(report.keptOriginal), bad);
    }
    if (!report.keptOriginal.empty()) std::filesystem::remove(report.keptOriginal);
  }
}

TEST(Repair, ManyDamagedPagesLoseOnlyTheirOwnRows) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  make(path, 2000);
  const Content before = contentOf(path);
  const std::string good = test::TempDir::read(path);
  const std::size_t pages = good.size() / 4096;
  engine::Workspace workspace(login);
  std::mt19937 random(3);
  for (int round = 0; round < 5; ++round) {
    std::string bad = good;
    for (int i = 0; i < 12; ++i) ruinPage(bad, 20 + random() % (pages - 20));
    overwrite(path, bad);
    const engine::RepairReport report = engine::RepairDatabase(workspace, path);
    const auto missing = compare(before, contentOf(path));
    EXPECT_LE(missing.size(), 12U * 20U) << lines(report.lines);
    EXPECT_EQ(lines(engine::checkDatabase(workspace, path)), "");
    EXPECT_EQ(std::filesystem::exists(
                  folder / ("words_damaged" + (round == 0 ? "" : std::to_string(round + 1)) + ".cvb")),
              true);
  }
}

TEST(Repair, ACutFileKeepsWhatStandsBeforeTheCut) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  make(path, 500);
  const Content before = contentOf(path);
  const std::string good = test::TempDir::read(path);
  engine::Workspace workspace(login);
  for (const double share : {0.9, 0.6, 0.3}) {
    const std::size_t size = static_cast<std::size_t>(static_cast<double>(good.size()) * share) + 100;
    overwrite(path, good.substr(0, size));
    const engine::RepairReport report = engine::RepairDatabase(workspace, path);
    EXPECT_NE(lines(report.lines).find("cut off"), std::string::npos);
    const auto missing = compare(before, contentOf(path));
    EXPECT_LE(static_cast<double>(missing.size()), (1.15 - share) * 500) << lines(report.lines);
    EXPECT_EQ(lines(engine::checkDatabase(workspace, path)), "");
  }
}

TEST(Repair, WhatIsNoDictionaryOrAnothersIsNotTouched) {
  const test::TempDir folder;
  const std::string text = folder.write("text.cvb", std::string(10000, 'x')), words = folder / "words.cvb";
  make(words, 20);
  const std::string before = test::TempDir::read(words);
  engine::Login stranger = login;
  stranger.password = "guess";
  engine::Workspace mine(login), others(stranger);
  for (engine::Workspace* workspace : {&mine, &others})
    for (const std::string& path : {text, words}) {
      if (workspace == &mine && path == words) continue;
      EXPECT_THROW(engine::RepairDatabase(*workspace, path), engine::Error);
      EXPECT_THROW(engine::checkDatabase(*workspace, path), engine::Error);
    }
  EXPECT_EQ(test::TempDir::read(words), before);
  EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"text.cvb", "words.cvb"}));
}

TEST(Repair, AFileThatCanOnlyBeReadIsToldSoAndCompactedElsewhere) {
  const test::TempDir folder, other;
  const std::string path = folder / "words.cvb", target = other / "small.cvb";
  make(path, 20);
  for (const std::filesystem::path& open : {folder.path(), other.path()})
    std::filesystem::permissions(open, std::filesystem::perms::all);
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    constexpr uid_t nobody = 65534;  // root may write everything
    if (::geteuid() == 0 && ::setuid(nobody) != 0) ::_exit(1);
    engine::Workspace workspace(login);
    if (errorOf([&] { engine::RepairDatabase(workspace, path); }) != engine::errors::readOnly) ::_exit(2);
    ::_exit(errorOf([&] { engine::CompactDatabase(workspace, path, target, "", 2); }) == 0 ? 0 : 3);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(contentOf(target).headwords, contentOf(path).headwords);
}

TEST(Repair, ALogThatWasLeftBehindIsReadToo) {
  const test::TempDir folder;
  const std::string live = folder / "live.cvb", path = folder / "words.cvb";
  make(live, 50);
  {
    engine::storage::Connection connection({login.user, login.password, false});
    const auto file = connection.open(live, false, false);
    engine::storage::TableWriter words(*file, file->existingTable("Woerterbuch"));
    for (int i = 0; i < 3; ++i) {
      connection.beforeWrite(*file);
      words.insert({{1, "Nachtrag" + std::to_string(i)}});
      connection.idle();
    }
    std::filesystem::copy_file(live, path);
    std::filesystem::copy_file(live + "-wal", path + "-wal");
  }
  std::string bad = test::TempDir::read(path);
  ruinPage(bad, 1);
  overwrite(path, bad);
  engine::Workspace workspace(login);
  const engine::RepairReport report = engine::RepairDatabase(workspace, path);
  EXPECT_EQ(contentOf(path).headwords.size(), 53U) << lines(report.lines);
  EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
}
