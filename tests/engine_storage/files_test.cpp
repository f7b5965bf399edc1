#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <vector>

#include "dictionary.h"

namespace engine::storage {
namespace {

enum Field { id, begriff, ebene };

class FilesTest : public DictionaryTest {
 protected:
  /// Runs `work` in a process of its own; gives its result, or minus the signal that ended it. Nothing of
  /// this process' may be open.
  int inChild(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0) {
      int result = 99;
      try {
        result = work();
      } catch (const Error& error) {
        result = 98;
        fprintf(stderr, "%d %s\n", error.number(), error.text().c_str());
      }
      _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  }
  void close() {
    connection->idle();
    file.reset();
    connection.reset();
  }
  void open() {
    connection = std::make_unique<Connection>(owner);
    sqlite3_busy_timeout(connection->handle(), 50);
    file = connection->open(path(), false, false);
  }
  void insertRows(int rows) {
    TableWriter writer(*file, file->existingTable("Woerterbuch"));
    for (int i = 0; i < rows; ++i)
      writer.insert({{begriff, Value("Begriff")}, {4, Value(std::string(500, 'x'))}});
  }
  void expectSound() { EXPECT_EQ(textOf(*connection, "PRAGMA d1.integrity_check"), "ok"); }
};

TEST_F(FilesTest, AKilledWriterLosesOnlyWhatWasNotReportedAsDone) {
  close();
  EXPECT_EQ(inChild([&] {
              open();
              insertRows(100);
              connection->idle();
              insertRows(5000);
              return ::raise(SIGKILL);
            }),
            -SIGKILL);
  open();
  EXPECT_EQ(count("Woerterbuch"), 100);
  expectSound();
  insertRows(1);
  connection->idle();
}

TEST_F(FilesTest, TwoProcessesSeeEachOthersDefinitionsAndRows) {
  close();
  int toParent[2], toChild[2];
  ASSERT_EQ(pipe(toParent), 0);
  ASSERT_EQ(pipe(toChild), 0);
  char byte = 'x';
  const pid_t child = fork();
  if (child == 0) {
    int result = 0;
    try {
      open();
      file->createTable({"Neu", {{"x", ColumnType::longInteger, 0, false, false}}, {}});
      file->createQuery({"Frage", "SELECT * FROM Neu"}, false);
      insert("Neu", {{0, Value(1)}});
      connection->idle();
      result += write(toParent[1], &byte, 1) == 1 ? 0 : 1;
      result += read(toChild[0], &byte, 1) == 1 ? 0 : 1;
      // The parent gathers a write now.
      if (errorOf([&] { insert("Neu", {{0, Value(2)}}); }) != errors::busy) result += 2;
      result += write(toParent[1], &byte, 1) == 1 ? 0 : 1;
      result += read(toChild[0], &byte, 1) == 1 ? 0 : 1;
      // Read before the parent's commit was seen, then write: the snapshot is renewed.
      insert("Neu", {{0, Value(3)}});
      connection->idle();
    } catch (const Error& error) {
      fprintf(stderr, "%d %s\n", error.number(), error.text().c_str());
      result = 50;
    }
    _exit(result);
  }
  open();
  ASSERT_EQ(read(toParent[0], &byte, 1), 1);
  file->refresh();
  ASSERT_NE(file->table("neu"), nullptr);
  EXPECT_NE(file->query("frage"), nullptr);
  EXPECT_EQ(count("Neu"), 1);
  insert("Neu", {{0, Value(10)}});
  ASSERT_EQ(write(toChild[1], &byte, 1), 1);
  ASSERT_EQ(read(toParent[0], &byte, 1), 1);
  connection->idle();
  ASSERT_EQ(write(toChild[1], &byte, 1), 1);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(count("Neu"), 3);
}

TEST_F(FilesTest, ASnapshotThatGrewOldIsRenewedBeforeAWrite) {
  close();
  open();
  Connection other(owner);
  const auto same = other.open(path(), false, false);
  insertRows(1);
  connection->idle();
  other.begin();
  EXPECT_EQ(number(other, "SELECT count(*) FROM d1.Woerterbuch"), 1);
  insertRows(1);
  connection->idle();
  EXPECT_EQ(number(other, "SELECT count(*) FROM d1.Woerterbuch"), 1) << "a transaction sees one state";
  EXPECT_EQ(errorOf([&] { TableWriter(*same, same->existingTable("Woerterbuch")).insert({}); }),
            errors::busy);
  other.rollback();
  TableWriter(*same, same->existingTable("Woerterbuch")).insert({});
  other.idle();
  EXPECT_EQ(count("Woerterbuch"), 3);
}

TEST_F(FilesTest, AFullDiskIsToldAndLeavesTheCommittedState) {
  close();
  EXPECT_EQ(inChild([&] {
              open();
              insertRows(200);
              connection->idle();
              signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{1 << 20, 1 << 20};
              setrlimit(RLIMIT_FSIZE, &limit);
              const int error = errorOf([&] {
                for (int i = 0; i < 100; ++i) {
                  insertRows(100);
                  connection->idle();
                }
              });
              if (error != errors::diskFull) return error & 127;
              // Still usable for what needs no room.
              if (count("Woerterbuch") < 200) return 2;
              return ::raise(SIGKILL);
            }),
            -SIGKILL);
  open();
  EXPECT_GE(count("Woerterbuch"), 200);
  EXPECT_EQ(count("Woerterbuch") % 100, 0) << "nothing half-written";
  expectSound();
  insertRows(3);
  connection->idle();
}

TEST_F(FilesTest, AFullDiskWhileMakingAFileLeavesNone) {
  close();
  EXPECT_EQ(inChild([&] {
              signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{6000, 6000};
              setrlimit(RLIMIT_FSIZE, &limit);
              Connection fresh(owner);
              return errorOf([&] { fresh.create(path("new.cvb"), german); });
            }),
            errors::diskFull);
  for (const char* part : {"new.cvb", "new.cvb-wal", "new.cvb-shm"}) {
    EXPECT_FALSE(std::filesystem::exists(path(part))) << part;
  }
}

TEST_F(FilesTest, WhatCanNotBeWrittenIsOpenedForReading) {
  insertRows(2);
  close();
  ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  const auto reading = [&](bool asked) {
    return inChild([&, asked] {
      if (getuid() == 0 && setuid(65534) != 0) return 1;
      Connection reader(owner);
      const auto opened = reader.open(path(), false, asked);
      if (!opened->readOnly()) return 2;
      if (number(reader, "SELECT count(*) FROM d1.Woerterbuch") != 2) return 3;
      TableWriter writer(*opened, opened->existingTable("Woerterbuch"));
      if (errorOf([&] { writer.insert({}); }) != errors::readOnly) return 4;
      return 0;
    });
  };
  ASSERT_EQ(chmod(path().c_str(), 0444), 0);
  for (const mode_t mode : {0555, 0777}) {
    ASSERT_EQ(chmod(folder.path().c_str(), mode), 0);
    for (const bool asked : {false, true}) EXPECT_EQ(reading(asked), 0) << std::oct << mode << asked;
  }
  ASSERT_EQ(chmod(path().c_str(), 0000), 0);
  EXPECT_EQ(inChild([&] {
              if (getuid() == 0 && setuid(65534) != 0) return 1;
              Connection reader(owner);
              return errorOf([&] { reader.open(path(), false, false); });
            }),
            errors::permissionDenied);
  ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(path().c_str(), 0644), 0);
}

TEST_F(FilesTest, ReadingOnlyLeavesTheFileByteForByteAsItWas) {
  insertRows(10);
  close();
  const std::string before = test::TempDir::read(path());
  {
    Connection reader(owner);
    const auto opened = reader.open(path(), false, true);
    EXPECT_EQ(number(reader, "SELECT count(*) FROM d1.Woerterbuch"), 10);
  }
  EXPECT_EQ(test::TempDir::read(path()), before);
}

TEST_F(FilesTest, TenFilesFitAndTheEleventhIsRefused) {
  std::vector<std::shared_ptr<AttachedFile>> files;
  for (int i = 0; i < 9; ++i)
    files.push_back(connection->create(path("more" + std::to_string(i) + ".cvb"), german));
  EXPECT_EQ(errorOf([&] { connection->create(path("eleventh.cvb"), german); }), 3048);
  EXPECT_FALSE(std::filesystem::exists(path("eleventh.cvb")));
  createWords(*files[3]);
  TableWriter(*files[3], files[3]->existingTable("Woerterbuch")).insert({});
  EXPECT_EQ(connection->open(path("more5.cvb"), false, false), files[5]) << "shared, not attached again";
  files.pop_back();
  EXPECT_NE(connection->create(path("eleventh.cvb"), german), nullptr) << "an unused one made room";
  connection->idle();
  EXPECT_EQ(number(*connection, "SELECT count(*) FROM " + files[3]->schemaName() + ".Woerterbuch"), 1);
}

TEST_F(FilesTest, AFileGivenUpWithinATransactionIsFoundAgain) {
  insertRows(1);
  file.reset();
  connection->releaseUnused();
  file = connection->open(path(), false, false);
  EXPECT_EQ(count("Woerterbuch"), 1);
  connection->idle();
  reopen();
  EXPECT_EQ(count("Woerterbuch"), 1);
}

TEST_F(FilesTest, EachBadFileHasItsOwnError) {
  close();
  Connection fresh(owner);
  const auto opening = [&](const std::string& name) {
    return errorOf([&] { fresh.open(path(name), false, false); });
  };
  EXPECT_EQ(opening("missing.cvb"), errors::fileNotFound);
  folder.write("text.cvb", "no dictionary, but a text");
  EXPECT_EQ(opening("text.cvb"), errors::notADictionary);
  folder.write("empty.cvb", "");
  EXPECT_EQ(opening("empty.cvb"), errors::notADictionary);
  EXPECT_EQ(errorOf([&] { fresh.create(path(), german); }), errors::databaseExists);
  EXPECT_EQ(errorOf([&] { fresh.create(path("none/x.cvb"), german); }), errors::badPath);
  EXPECT_EQ(errorOf([&] { fresh.create(path("x.cvb"), "German"); }), errors::invalidArgument);
  Connection stranger({"CorvantaAdmin", "other", false});
  EXPECT_EQ(errorOf([&] { stranger.open(path(), false, false); }), errors::notADictionary);
  std::filesystem::resize_file(path(), std::filesystem::file_size(path()) / 2);
  EXPECT_EQ(opening("words.cvb"), errors::notADictionary);
}

TEST_F(FilesTest, AnExclusiveFileIsNobodyElses) {
  close();
  Connection one(owner), two(owner);
  sqlite3_busy_timeout(two.handle(), 50);
  {
    const auto mine = one.open(path(), true, false);
    EXPECT_EQ(errorOf([&] { two.open(path(), false, false); }), errors::locked);
    EXPECT_EQ(number(one, "SELECT count(*) FROM d1.Woerterbuch"), 0);
  }
  one.releaseUnused();
  const auto shared = one.open(path(), false, false);
  EXPECT_EQ(errorOf([&] { two.open(path(), true, false); }), errors::locked);
  EXPECT_NE(two.open(path(), false, false), nullptr);
}

TEST_F(FilesTest, StatementsFromOutsideCanNotLeaveTheTables) {
  for (const char* text :
       {"ATTACH 'file:x?vfs=unix' AS x", "DETACH d1", "VACUUM d1 INTO 'file:x?vfs=unix'",
        "PRAGMA d1.journal_mode", "SELECT * FROM d1.\"vc$query\"", "SELECT * FROM d1.sqlite_master",
        "DELETE FROM d1.\"vc$table\"", "UPDATE d1.sqlite_sequence SET seq = 0", "CREATE TABLE d1.x(y)",
        "DROP TABLE d1.Woerterbuch", "SELECT load_extension('x')",
        "SELECT name FROM pragma_table_info('Woerterbuch')"}) {
    EXPECT_NE(errorOf([&] { Statement(connection->handle(), text).run(); }), 0) << text;
  }
  EXPECT_EQ(errorOf([&] { Statement(connection->handle(), "SELECT * FROM d1.Woerterbuch").run(); }), 0);
}

TEST_F(FilesTest, PathsWithOddLettersOpen) {
  for (const char* name : {"wörter & ?mode=ro#.cvb", "100%41.cvb", "it's \"x\".cvb"}) {
    const auto made = connection->create(path(name), german);
    EXPECT_TRUE(std::filesystem::exists(path(name))) << name;
  }
}

}  // namespace
}  // namespace engine::storage
