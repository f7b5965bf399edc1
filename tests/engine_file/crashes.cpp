#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <random>

#include "engine/file/checkpoint_lock.h"
#include "engine/file/verify.h"
#include "raw_database.h"

using namespace rawdb;

namespace {

// Runs something in a process of its own and gives its exit code, -1 when it was killed.
int inChild(const std::function<int()>& work, int killAfterMicroseconds = 0) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work());
  if (killAfterMicroseconds > 0) {
    ::usleep(static_cast<useconds_t>(killAfterMicroseconds));
    ::kill(child, SIGKILL);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Each transaction adds a row and tells its number through the pipe once it is committed.
int writeRows(const std::string& path, int told) {
  Connection writer(path);
  writer.must("PRAGMA d.cache_size=10; PRAGMA d.wal_autocheckpoint=20");
  for (int i = std::stoi(writer.ask("SELECT max(id)+1 FROM d.words"));; ++i) {
    const std::string id = std::to_string(i);
    if (writer.run("BEGIN; INSERT INTO d.words VALUES(" + id + ",'Headword" + id +
                   "',printf('%0900d',1));"
                   "UPDATE d.words SET note=note||'x' WHERE id%7=" +
                   id + "%7; COMMIT") != SQLITE_OK)
      return 1;
    if (::write(told, &i, sizeof i) != sizeof i) return 2;
  }
}

int lastTold(int pipe) {
  int last = 0;
  for (int value = 0; ::read(pipe, &value, sizeof value) == sizeof value;) last = value;
  return last;
}

}  // namespace

TEST(Crashes, AKilledWriterLosesNothingThatItReported) {
  std::mt19937 random(5);
  for (const std::string mode : {"WAL", "DELETE"}) {
    const test::TempDir folder;
    const std::string path = folder / "words.cvb";
    makeWords(path, 100, mode);
    for (int round = 0; round < 25; ++round) {
      int ends[2];
      ASSERT_EQ(::pipe(ends), 0);
      ASSERT_EQ(inChild([&] { return writeRows(path, ends[1]); }, 3000 + static_cast<int>(random() % 25000)),
                -1);
      ::close(ends[1]);
      const int told = lastTold(ends[0]);
      ::close(ends[0]);
      ASSERT_EQ(examined(path).number, 0);
      Connection again(path);
      ASSERT_EQ(again.ask("PRAGMA d.integrity_check"), "ok");
      ASSERT_GE(std::stoi(again.ask("SELECT max(id) FROM d.words")), told);
      ASSERT_EQ(again.ask("SELECT max(id)-count(*) FROM d.words"), "0");
    }
    EXPECT_TRUE(engine::file::verifyPages(path, owner).bad.empty());
  }
}

TEST(Crashes, AFullDiskIsToldAndLosesNothing) {
  for (const std::string mode : {"WAL", "DELETE"}) {
    const test::TempDir folder;
    const std::string path = folder / "words.cvb";
    makeWords(path, 100, mode);
    const rlim_t size = std::filesystem::file_size(path);
    for (const rlim_t more : {rlim_t{0}, rlim_t{1000}, rlim_t{20000}, rlim_t{90000}}) {
      const int code = inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{size + more, size + more};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        Connection writer(path);
        return writer.run(
                   "WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i+1 FROM n WHERE i<2000) "
                   "INSERT INTO d.words SELECT i,'Headword','x' FROM n, (SELECT printf('%0900d',1))") ==
                       SQLITE_OK
                   ? 0
                   : sqlite3_errcode(writer.handle());
      });
      if (code != 0) {
        EXPECT_EQ(code, SQLITE_FULL) << mode << " " << more;
      }
      Connection again(path);
      EXPECT_EQ(again.ask("PRAGMA d.integrity_check"), "ok");
      EXPECT_EQ(again.ask("SELECT count(*) FROM d.words"), code == 0 ? "1101" : "100");
      again.must("DELETE FROM d.words WHERE id>100");
    }
  }
}

TEST(Crashes, TwoProcessesWriteOneFile) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWords(path, 10);
  const auto add = [&] {
    Connection writer(path);
    sqlite3_busy_timeout(writer.handle(), 10000);
    writer.must("PRAGMA d.wal_autocheckpoint=0");
    for (int i = 0; i < 60; ++i) {
      if (writer.run("INSERT INTO d.words(headword, note) VALUES('x', printf('%0900d',1))") != SQLITE_OK)
        return 1;
      const engine::file::CheckpointLock lock(path);
      if (!lock.held()) continue;
      const int code =
          sqlite3_wal_checkpoint_v2(writer.handle(), "d", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
      if (code != SQLITE_OK && code != SQLITE_BUSY) return 2;
    }
    return 0;
  };
  const pid_t child = ::fork();
  if (child == 0) ::_exit(add());
  EXPECT_EQ(add(), 0);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  Connection again(path);
  EXPECT_EQ(again.ask("SELECT count(*) FROM d.words"), "130");
  EXPECT_EQ(again.ask("PRAGMA d.integrity_check"), "ok");
}

TEST(Crashes, OnlyOneHoldsTheCheckpointLockAndItLeavesNothing) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  {
    const engine::file::CheckpointLock lock(path);
    EXPECT_TRUE(lock.held());
    EXPECT_FALSE(engine::file::CheckpointLock(path).held());
    EXPECT_EQ(inChild([&] { return engine::file::CheckpointLock(path).held() ? 1 : 0; }), 0);
  }
  EXPECT_EQ(inChild([&] {
              const engine::file::CheckpointLock lock(path);
              ::kill(::getpid(), SIGKILL);
              return 0;
            }),
            -1);
  EXPECT_TRUE(engine::file::CheckpointLock(path).held());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(Crashes, AFileHeldExclusivelyIsToldAsSuch) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWords(path, 10);
  {
    Connection holder(path);
    holder.ask("PRAGMA d.locking_mode=EXCLUSIVE");
    holder.must("UPDATE d.words SET note='' WHERE id=1");
    EXPECT_EQ(examined(path).number, 3045);
    EXPECT_EQ(inChild([&] { return examined(path).number == 3045 ? 0 : 1; }), 0);
    holder.must("UPDATE d.words SET note='kept' WHERE id=1");  // looking took no lock away
  }
  EXPECT_EQ(examined(path).number, 0);
}

TEST(Crashes, AFileWithoutPermissionIsToldAsSuch) {
  const test::TempDir folder;
  const std::string path = folder / "words.cvb";
  makeWords(path, 10);
  std::filesystem::permissions(path, std::filesystem::perms::none);
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  const int number = inChild([&] {
    if (::geteuid() == 0 && ::setuid(65534) != 0) return 0;
    return examined(path).number;
  });
  EXPECT_EQ(number, 70);
}
