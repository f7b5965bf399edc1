// What leaves the program: files and addresses that the desktop opens.

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QTextBrowser>
#include <filesystem>

#include "windows.h"

using namespace windows;

namespace {

/// Takes the place of the desktop for one kind of address, and notes what it is to open.
class Opened : public QTextBrowser {
 public:
  explicit Opened(const char* scheme) : scheme_(scheme) {
    QDesktopServices::setUrlHandler(scheme_, this, "setSource");
  }
  ~Opened() override { QDesktopServices::unsetUrlHandler(scheme_); }

  std::vector<QUrl> urls;

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType) override { urls.push_back(url); }

 private:
  QString scheme_;
};

struct Outside : testing::Test {
  Outside() {
    makeDictionary(user, "Löffel");
    // No application of the program's own: the desktop decides.
    user.app->session.files.CurrentDB.Execute("delete * from Umgebung");
  }
  User user;
};

TEST_F(Outside, AnAttachedFileReachesTheDesktopWhateverItsName) {
  Opened files("file");
  const char* names[] = {"plain.txt",    "with a blank.txt", "Löffel und Gabel.txt",
                         "100 % #1.txt", "what?.txt",        "\"quoted\".txt",
                         "it's.txt",     "a+b&c=d;e.txt",    "no extension at all"};
  user.in("frmEintrag", [&](QWidget& window) {
    user.tab(window, "SSTab1", 7);
    for (const char* name : names) {
      for (const char* place : {"Option1", "Option2"}) {
        const std::string path = user.home.write(name, "text");
        user.click(window, place);
        user.type(window, "Text11", path);
        user.type(window, "Text12", name);
        user.click(window, "Command8");
      }
    }
    auto& grid = User::find<QTableView>(window, "dbGridAttachment");
    ASSERT_EQ(grid.model()->rowCount(), static_cast<int>(2 * std::size(names)));
    for (int row = 0; row < grid.model()->rowCount(); ++row) {
      user.pickRow(window, "dbGridAttachment", row);
      user.click(window, "OpenAttachment");
      ASSERT_EQ(files.urls.size(), static_cast<std::size_t>(row) + 1);
      const std::string opened = files.urls.back().toLocalFile().toStdString();
      EXPECT_TRUE(std::filesystem::exists(opened)) << opened;
      EXPECT_EQ(std::filesystem::path(opened).filename(), User::textAt(window, "dbGridAttachment", row, 0));
      const QByteArray address = files.urls.back().toEncoded();
      EXPECT_TRUE(address.startsWith("file:///")) << address.toStdString();
      EXPECT_FALSE(address.contains(' ') || address.contains('"') || address.contains('#'))
          << address.toStdString();
    }
    user.click(window, "Command7");
  });
  user.choose("mnuEditEntry");
  EXPECT_FALSE(user.hasPlans());
}

TEST_F(Outside, AddressesReachTheDesktopWhole) {
  Opened web("http"), secure("https");
  auto& outside = user.app->session.desk.outside;
  outside.open("www.example.org/a b?q=ä#part");
  outside.open("HTTPS://example.org/a%20b%2Fc?x=1&y=2");
  ASSERT_EQ(web.urls.size(), 1u);
  EXPECT_EQ(web.urls[0].toEncoded(), "http://www.example.org/a%20b?q=%C3%A4#part");
  ASSERT_EQ(secure.urls.size(), 1u);
  EXPECT_EQ(secure.urls[0].toEncoded(), "https://example.org/a%20b%2Fc?x=1&y=2");
}

}  // namespace
