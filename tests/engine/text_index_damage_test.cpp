// The index of texts beside rows that were rolled back, killed, ruined or changed behind it.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "indexed_texts.h"

using namespace stored;

TEST(TextIndex, RollsBackWithItsRowsAndOutlivesAKill) {
  IndexedTexts texts(german);
  texts.compact();
  const auto before = texts.rows();
  texts.close();
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    texts.open();
    for (std::int64_t id = 1; id < 200; ++id) {
      texts.update(id);
      if (id == 100) texts.idle();
    }
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  texts.open();
  engine::Recordset rows =
      texts.database().OpenRecordset("SELECT ID_Woerterbuch, MetaSuche FROM Woerterbuch");
  int changed = 0;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    std::string& text = texts.rows()[rows.value(0).asInteger()].first;
    changed += text != rows.value(1).textOrEmpty();
    text = rows.value(1).textOrEmpty();
  }
  rows.Close();
  EXPECT_GT(changed, 50);
  texts.expectPatternsFound(10);
  EXPECT_EQ(lines(texts.faults()), "");
}

TEST(TextIndex, DamageIsToldAndRepairMakesItAnew) {
  IndexedTexts texts(german);
  texts.compact();
  texts.close();
  const std::string good = test::TempDir::read(texts.path());
  engine::Workspace workspace(login);
  for (std::size_t page = 2; page <= good.size() / 4096; page += 9) {
    std::string bad = good;
    ruinPage(bad, page);
    overwrite(texts.path(), bad);
    EXPECT_NE(lines(engine::checkDatabase(workspace, texts.path())), "") << page;
    // Either the page does not matter to a search, or the search fails; it never finds less.
    try {
      texts.open();
      texts.expectPatternsFound(3);
    } catch (const engine::Error& error) {
      EXPECT_EQ(error.number(), engine::errors::notADictionary) << error.text();
    }
    texts.close();
  }
  overwrite(texts.path(), good);
  EXPECT_EQ(lines(engine::RepairDatabase(workspace, texts.path()).lines), "");
  texts.open();
  EXPECT_TRUE(texts.isIndexed());
  texts.expectPatternsFound(10);
  EXPECT_EQ(lines(texts.faults()), "");
}

TEST(TextIndex, TheCheckNamesRowsThatItDoesNotListAsTheyAre) {
  IndexedTexts texts(german);
  texts.compact();
  {
    engine::storage::AttachedFile& file = *texts.database().impl()->file;
    file.connection().beforeWrite(file);
    const engine::storage::Connection::Internal internal(file.connection());
    engine::storage::runStatement(file.connection().handle(), "DROP TRIGGER " + file.schemaName() +
                                                                  ".\"vc$text$11$Woerterbuch$updated\"");
    texts.update(77);
  }
  EXPECT_NE(lines(texts.faults()).find("are missing"), std::string::npos);
  texts.close();
  engine::Workspace workspace(login);
  engine::RepairDatabase(workspace, texts.path());
  texts.open();
  EXPECT_EQ(lines(texts.faults()), "");
  {
    engine::storage::AttachedFile& file = *texts.database().impl()->file;
    texts.database().Execute("UPDATE Woerterbuch SET MetaSuche = 'eine Rarität' WHERE ID_Woerterbuch = 77");
    EXPECT_EQ(texts.found("metasuche LIKE \"*Rarität*\""), Ids{77});
    file.connection().beforeWrite(file);
    const engine::storage::Connection::Internal internal(file.connection());
    engine::storage::runStatement(file.connection().handle(),
                                  "DELETE FROM " + file.schemaName() + ".\"vc$text$11$Woerterbuch$changed\"");
  }
  EXPECT_NE(lines(texts.faults()).find("differs from 1 rows: 77."), std::string::npos);
  // Which the search does not see: it goes by the index.
  EXPECT_EQ(texts.found("metasuche LIKE \"*Rarität*\""), Ids{});
}
