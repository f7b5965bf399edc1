#include "browse/clipboard.h"

#include "browse/browser.h"

namespace {

class Clipboard : public BrowserTest {
 protected:
  void addMeaning(std::int64_t entry, const std::string& text, int examples) {
    auto rows = db().OpenRecordset("Wortbedeutung");
    rows.AddNew();
    rows.set("ID_Woerterbuch", entry);
    rows.set("Wortbedeutung", text);
    const std::string id = rows["ID_Wortbedeutung"].asText();
    rows.Update();
    for (int n = 0; n < examples; ++n)
      db().Execute("insert into WortbedBsp ( ID_Wortbedeutung, Beispiel ) VALUES (" + id + ", 'Satz')");
  }
};

TEST_F(Clipboard, HoldsTheEntryAsLinesWithEachMeaningOnce) {
  const auto house = addEntry("Haus");
  addMeaning(house, "house", 2);
  addMeaning(house, "home", 0);
  db().Execute("update Woerterbuch set Bemerkung = 'Plural: Häuser' where ID_Woerterbuch = " +
               std::to_string(house));
  s.entry.CurrentEntryId = house;
  ASSERT_TRUE(browse::ExportEntryToClipboard(s)) << t.log();
  const std::string& text = t.script.clipboard;
  EXPECT_EQ(text.rfind("Haus\r\nPlural: Häuser\r\n", 0), 0u) << text;
  EXPECT_EQ(text.size(), std::string("Haus\r\nPlural: Häuser\r\nhouse\r\nhome").size()) << text;
  EXPECT_NE(text.find("\r\nhouse"), std::string::npos);
  EXPECT_NE(text.find("\r\nhome"), std::string::npos);
}

TEST_F(Clipboard, AnEntryThatIsGoneLeavesItAsItWas) {
  addEntry("Haus");
  t.script.clipboard = "before";
  s.entry.CurrentEntryId = 99;
  EXPECT_FALSE(browse::ExportEntryToClipboard(s));
  EXPECT_EQ(t.script.clipboard, "before");
}

}  // namespace
