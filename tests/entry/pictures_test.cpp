#include "entry/pictures.h"

#include <cmath>

#include "catalogue/dialog.h"
#include "entry/frmVollBild.h"
#include "entry/media_files.h"
#include "media.h"

namespace {

using test::FakeImages;

struct Pictures : MediaTest {
  std::string source(const std::string& name, std::uint32_t colour = test::green) {
    return dir.write(name, FakeImages::bytes(4, 3, colour));
  }
  bool open(const std::string& path) {
    script.chooseFile(path);
    return entry::Command4(form);
  }
};

TEST_F(Pictures, AreNamedAfterTheDictionaryAndTheEntry) {
  EXPECT_EQ(entry::mediaFileName(s, 12, ".wav"), "t12r.wav");
  const auto name = [&](const char* dictionary) {
    s.files.CurrentDBPath = dir / dictionary;
    return entry::mediaFileName(s, 7, ".jpg");
  };
  EXPECT_EQ(name("Second.cvb"), "o7d.jpg");
  EXPECT_EQ(name("ab.cvb"), "a7b.jpg");
  EXPECT_EQ(name("a.cvb"), "a7a.jpg");
  EXPECT_EQ(name("ßäöü.cvb"), "ä7ü.jpg");
  EXPECT_EQ(name("o'n' n.cvb"), "'7n.jpg");
}

TEST_F(Pictures, AreScannedSavedAndShown) {
  ASSERT_TRUE(entry::ScanPicture(form));
  ASSERT_TRUE(entry::SavePicture(form));
  EXPECT_EQ(row("Bild"), file(".jpg"));
  EXPECT_EQ(form.record.Bild, file(".jpg"));
  EXPECT_EQ(read(file(".jpg")), FakeImages::bytes(3, 2, test::red));
  EXPECT_TRUE(form.pictureShown && form.picture.deleteEnabled && form.picture.zoomEnabled);

  // Shown again by a later visit, from the stored name.
  visit(3, addMain("Baum"));
  EXPECT_FALSE(form.pictureShown);
  EXPECT_TRUE(form.picture.Lead1.empty());
  visit(3, id);
  EXPECT_TRUE(form.pictureShown);
  EXPECT_EQ(form.picture.Lead1.width, 3);
  ASSERT_TRUE(entry::mnuCopyPicture(s, form.picture.Lead1));
  EXPECT_EQ(clipboard.held->argb, form.picture.Lead1.argb);
}

TEST_F(Pictures, AreReadOnlyWhenTheyAreOnShow) {
  ASSERT_TRUE(open(source("a.png")));
  images.loads = 0;
  visit(3, id);
  EXPECT_EQ(images.loads, 1);
  ASSERT_TRUE(entry::selectTab(form, entry::Tab::properties));
  ASSERT_TRUE(entry::selectTab(form, entry::Tab::entry));
  EXPECT_EQ(images.loads, 1);
}

TEST_F(Pictures, AreCopiedUnderTheirOwnExtension) {
  for (const char* extension :
       {"bmp", "jpg", "wmf", "gif", "pcx", "dcx", "pcd", "psd", "png", "tga", "eps", "wpg"}) {
    const std::string from = source(std::string("photo.") + extension);
    ASSERT_TRUE(open(from)) << extension;
    EXPECT_EQ(row("Bild"), file(std::string(".") + extension));
    EXPECT_EQ(read(file(std::string(".") + extension)), test::TempDir::read(from));
  }
  ASSERT_TRUE(open(source("LOUD.PNG", test::blue)));
  EXPECT_EQ(row("Bild"), file(".png"));
  EXPECT_EQ(read(file(".png")), FakeImages::bytes(4, 3, test::blue));
  ASSERT_TRUE(open(source("photo.jpeg")));
  EXPECT_EQ(row("Bild"), file(".jpg"));
  EXPECT_EQ(form.picture.Lead1.at(0, 0), test::green);
  // The one that was replaced is gone; the entry's own file again is kept.
  EXPECT_FALSE(std::filesystem::exists(media + file(".png")));
  ASSERT_TRUE(open(media + file(".jpg")));
  EXPECT_TRUE(std::filesystem::exists(media + file(".jpg")));
}

TEST_F(Pictures, AReplacedFileStaysWhereAnotherEntryNamesIt) {
  ASSERT_TRUE(open(source("a.png")));
  s.files.CurrentDB.Execute("insert into Woerterbuch (Begriff, Ebene, Bild) values ('other', 1, '" +
                            file(".png") + "')");
  ASSERT_TRUE(open(source("b.jpg")));
  EXPECT_EQ(row("Bild"), file(".jpg"));
  EXPECT_TRUE(std::filesystem::exists(media + file(".png")));
}

TEST_F(Pictures, ThatCanNotBeShownAreRefused) {
  ASSERT_TRUE(open(source("good.png")));
  const auto stays = [&] {
    EXPECT_EQ(row("Bild"), file(".png"));
    EXPECT_EQ(files(), 1U);
    EXPECT_EQ(form.record.Bild, file(".png"));
    EXPECT_FALSE(form.picture.Lead1.empty());
  };
  EXPECT_FALSE(open(dir.write("fake.gif", "no picture")));
  expectTold(dialog::picture_damaged, "fake.gif");
  stays();
  EXPECT_FALSE(open(source("text.txt")));
  expectTold(dialog::picture_format_unknown, "text.txt");
  EXPECT_FALSE(open(source("no extension")));
  expectTold(dialog::picture_format_unknown);
  EXPECT_FALSE(open(dir / "gone.png"));
  expectTold(dialog::file_missing, "gone.png");
  script.cancelFile();
  EXPECT_FALSE(entry::Command4(form));
  EXPECT_TRUE(script.boxes.empty());
  stays();
}

TEST_F(Pictures, StayWhereTheFolderCanNotBeWritten) {
  std::filesystem::remove_all(media);
  EXPECT_FALSE(open(source("good.png")));
  expectTold(dialog::media_not_writable, file(".png"));
  EXPECT_EQ(row("Bild"), "NULL");
  EXPECT_TRUE(form.record.Bild.empty());

  ASSERT_TRUE(entry::ScanPicture(form));
  EXPECT_FALSE(entry::SavePicture(form));
  ASSERT_EQ(script.boxes.size(), 1U);
  EXPECT_TRUE(script.told("SaveFile Error 70"));
  expectTold(dialog::media_not_writable);
  EXPECT_EQ(row("Bild"), "NULL");
  EXPECT_FALSE(form.picture.Lead1.empty()) << "what was scanned can be saved again";

  std::filesystem::create_directory(media);
  images.failWith = 61;
  EXPECT_FALSE(entry::SavePicture(form));
  expectTold(dialog::disk_full);
  EXPECT_EQ(row("Bild"), "NULL");
  images.failWith = 0;
  EXPECT_TRUE(entry::SavePicture(form));
}

TEST_F(Pictures, OfAReadOnlyDictionaryAreNotTouched) {
  ASSERT_TRUE(open(source("good.png")));
  clipboard.held = FakeImages::plain(1, 1, test::red);
  s.files.ReadOnlyMode = true;
  using Command = bool (*)(entry::frmEintrag&);
  for (const Command command :
       {Command(entry::ScanPicture), Command(entry::SavePicture), Command(entry::Command4),
        Command(entry::SSCommand14), Command(entry::DeletePicture)}) {
    EXPECT_FALSE(command(form));
    expectTold(dialog::dictionary_is_read_only);
  }
  EXPECT_EQ(row("Bild"), file(".png"));
  EXPECT_EQ(files(), 1U);
}

TEST_F(Pictures, ArePastedAsBitmaps) {
  EXPECT_FALSE(entry::SSCommand14(form));
  expectTold(dialog::no_picture_on_clipboard);
  clipboard.held = FakeImages::plain(5, 5, test::blue);
  ASSERT_TRUE(entry::SSCommand14(form));
  EXPECT_EQ(row("Bild"), file(".bmp"));
  EXPECT_EQ(read(file(".bmp")), FakeImages::bytes(5, 5, test::blue));
  EXPECT_TRUE(form.picture.deleteEnabled);
}

TEST_F(Pictures, AreDeletedWithTheirFile) {
  ASSERT_TRUE(entry::DeletePicture(form)) << "none is nothing to delete";
  ASSERT_TRUE(open(source("good.png")));
  ASSERT_TRUE(entry::DeletePicture(form));
  EXPECT_EQ(row("Bild"), "NULL");
  EXPECT_EQ(files(), 0U);
  EXPECT_TRUE(form.picture.Lead1.empty() && form.record.Bild.empty());
  EXPECT_FALSE(form.pictureShown || form.picture.deleteEnabled || form.picture.zoomEnabled);

  ASSERT_TRUE(open(source("good.png")));
  std::filesystem::remove(media + file(".png"));
  EXPECT_FALSE(entry::DeletePicture(form));
  expectTold(dialog::file_missing, file(".png"));
  EXPECT_EQ(row("Bild"), "NULL");

  const std::string other = source("outside.png");
  db().Execute("UPDATE woerterbuch SET bild = '../outside.png' WHERE id_woerterbuch = " + std::to_string(id));
  EXPECT_TRUE(entry::DeletePicture(form));
  EXPECT_TRUE(std::filesystem::exists(other));
  EXPECT_EQ(row("Bild"), "NULL");
}

TEST_F(Pictures, GoWithAStubThatIsGivenUp) {
  visit(1);
  ASSERT_TRUE(open(source("good.png")));
  EXPECT_EQ(files(), 1U);
  script.answer(platform::box::answerNo);
  ASSERT_TRUE(entry::Command7(form));
  EXPECT_EQ(files(), 0U);
}

TEST_F(Pictures, ThatAreGoneAreToldOnceAndKeepTheirName) {
  ASSERT_TRUE(open(source("good.png")));
  std::filesystem::remove(media + file(".png"));
  visit(3, id);
  expectTold(dialog::file_missing, file(".png"));
  EXPECT_EQ(row("Bild"), file(".png"));
  EXPECT_TRUE(form.picture.Lead1.empty());
  EXPECT_TRUE(form.picture.deleteEnabled);
}

TEST_F(Pictures, AreFoundBesideADictionaryThatWasMoved) {
  db().Execute("UPDATE Sprache SET Audiopfad = '/no/such/folder/'");
  std::filesystem::create_directory(dir / "Wörter");
  ASSERT_TRUE(open(source("good.png")));
  EXPECT_TRUE(std::filesystem::exists(dir / ("Wörter/" + file(".png"))));
  visit(3, id);
  EXPECT_FALSE(form.picture.Lead1.empty());
}

TEST_F(Pictures, LieInTheFolderThoughItsSettingLacksTheSeparator) {
  db().Execute("UPDATE Sprache SET Audiopfad = '" + media.substr(0, media.size() - 1) + "'");
  ASSERT_TRUE(open(source("good.png")));
  EXPECT_EQ(read(file(".png")), FakeImages::bytes(4, 3, test::green));
  visit(3, id);
  EXPECT_FALSE(form.picture.Lead1.empty());
}

TEST_F(Pictures, NeedTheirDevices) {
  scanner.connected = false;
  EXPECT_FALSE(entry::ScanPicture(form));
  expectTold(dialog::no_scanner);
  EXPECT_FALSE(entry::SavePicture(form));
  expectTold(dialog::entry_has_no_picture);
  s.desk.media = {};
  EXPECT_FALSE(entry::ScanPicture(form));
  expectTold(dialog::no_media_on_desk);
}

// A picture without two equal pixels.
platform::Picture distinct(int width, int height) {
  platform::Picture picture = FakeImages::plain(width, height, 0);
  std::uint32_t next = 0xFF000001;
  for (std::uint32_t& pixel : picture.argb) pixel = next++;
  return picture;
}

constexpr double quarter = 3.14159265358979323846 / 2;

platform::Picture rotated(const platform::Picture& source, int width, int height, double angle) {
  platform::Picture target{width, height, {}};
  entry::bmp_rotate(source, target, angle);
  return target;
}

TEST(Rotation, TurnsQuartersExactly) {
  const auto source = distinct(70, 131);
  const auto left = rotated(source, 131, 70, quarter);
  EXPECT_EQ(left.at(0, 69), source.at(0, 0)) << "the upper left corner goes down";
  EXPECT_EQ(left.at(0, 0), source.at(69, 0));
  EXPECT_EQ(left.at(130, 0), source.at(69, 130));
  EXPECT_EQ(rotated(left, 70, 131, -quarter).argb, source.argb);
  auto round = source;
  for (int turn = 0; turn < 4; ++turn) round = rotated(round, round.height, round.width, -quarter);
  EXPECT_EQ(round.argb, source.argb);
  EXPECT_EQ(rotated(left, 70, 131, quarter).argb, rotated(source, 70, 131, 2 * quarter).argb);
}

// Each pixel by itself in polar form about the centres, as the rotation is defined.
TEST(Rotation, AgreesWithItsPolarForm) {
  const auto source = distinct(41, 41);
  for (const double angle : {quarter, -quarter, 2 * quarter, 0.3, 1.0, -2.5}) {
    const auto target = rotated(source, 41, 41, angle);
    for (int row = 0; row < 41; ++row) {
      for (int column = 0; column < 41; ++column) {
        const int x = column - 20, y = row - 20;
        const double radius = std::sqrt(x * x + y * y);
        double polar = x == 0 ? (y < 0 ? -quarter : quarter) : std::atan(static_cast<double>(y) / x);
        if (x < 0) polar += 2 * quarter;
        const double fromX = 20 + radius * std::cos(polar + angle),
                     fromY = 20 + radius * std::sin(polar + angle);
        const auto near = [](double value) { return std::abs(value - std::floor(value) - 0.5) < 1e-6; };
        if (near(fromX) || near(fromY)) continue;  // between two points
        const long px = std::lround(fromX), py = std::lround(fromY);
        const bool inside = px >= 0 && px < 41 && py >= 0 && py < 41;
        ASSERT_EQ(target.at(column, row),
                  inside ? source.at(static_cast<int>(px), static_cast<int>(py)) : test::white)
            << angle << " at " << column << "," << row;
      }
    }
  }
}

TEST_F(Pictures, FillTheScreenAndTurn) {
  entry::frmVollBild full(s);
  full.screenWidth = 1600;
  full.screenHeight = 900;
  EXPECT_FALSE(entry::BildAnzeigen(full));
  expectTold(dialog::entry_has_no_picture);
  EXPECT_FALSE(full.visible);

  ASSERT_TRUE(open(dir.write("wide.png", FakeImages::bytes(400, 100, test::red))));
  full.Bild = form.record.Bild;
  ASSERT_TRUE(entry::BildAnzeigen(full));
  EXPECT_EQ(full.Image1.width, 1600);
  EXPECT_EQ(full.Image1.height, 400);
  EXPECT_EQ(full.Image1.top, 250);
  entry::Form_KeyDown(full, entry::key::right);
  EXPECT_EQ(full.Picture2.width, 100);
  EXPECT_EQ(full.Image1.width, 225);
  EXPECT_EQ(full.Image1.height, 900);
  EXPECT_EQ(full.Image1.left, 687);
  entry::Form_KeyDown(full, entry::key::left);
  EXPECT_EQ(full.Image1.width, 1600);
  entry::Form_KeyDown(full, 'X');
  EXPECT_TRUE(full.visible);
  entry::Form_KeyDown(full, entry::key::escape);
  EXPECT_FALSE(full.visible);

  std::filesystem::remove(media + file(".png"));
  EXPECT_FALSE(entry::BildAnzeigen(full));
  expectTold(dialog::file_missing);
}

}  // namespace
