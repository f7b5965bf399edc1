#pragma once

#include "dictionary.h"
#include "support/fake_media.h"

/// An editor on a desk with devices for pictures and sound, and a media folder.
class MediaTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    s.desk.media = {&images, &clipboard, &scanner, &sound};
    std::filesystem::create_directory(media);
    db().Execute("UPDATE Sprache SET Audiopfad = '" + media + "', khz22 = 1, bit16 = 1, EinKanal = 1");
    id = addMain("Haus");
    visit(3, id);
  }
  /// The file that an extension is derived for, of the entry in hand.
  std::string file(const std::string& extension) const { return "t" + std::to_string(id) + "r" + extension; }
  std::string row(const std::string& column) { return ofEntry(column, id); }
  std::string read(const std::string& name) const { return test::TempDir::read(media + name); }
  std::size_t files() const {
    const std::filesystem::directory_iterator all{media};
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }
  /// Reports of the last command: exactly one box, with this in it.
  void expectTold(int key, const std::string& more = "") {
    ASSERT_EQ(script.boxes.size(), 1U);
    EXPECT_NE(script.boxes[0].text.find(session::dialogText(s, key)), std::string::npos)
        << script.boxes[0].text;
    EXPECT_NE(script.boxes[0].text.find(more), std::string::npos) << script.boxes[0].text;
    script.boxes.clear();
  }

  test::FakeImages images;
  test::FakePictureClipboard clipboard;
  test::FakeScanner scanner;
  test::FakeSound sound;
  std::string media = dir / "Medien/";
  std::int64_t id = 0;
};
