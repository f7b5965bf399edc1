// The pages of help, and the ways to them.

#include <gtest/gtest.h>

#include <QTextBrowser>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "windows.h"

using namespace windows;

namespace {

/// The page of help that is shown below a window; it is closed.
std::string helpShown(QWidget& window) {
  auto& page = User::find<QTextBrowser>(window, "HelpPage");
  const std::string name = page.source().fileName().toStdString();
  EXPECT_FALSE(page.toPlainText().isEmpty()) << name;
  page.window()->close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return name;
}

TEST(Help, ADialogShowsItsPageByKeyAndButtonAndLinksLeadOn) {
  User user(true);
  makeDictionary(user, "fork");
  user.choose("mnuHTMLHelp");
  EXPECT_EQ(helpShown(*user.app->window), "frmWoerter.md");
  inSettings(user, [&](QWidget& window) {
    QTest::keyClick(&window, Qt::Key_F1);
    auto& page = User::find<QTextBrowser>(window, "HelpPage");
    EXPECT_TRUE(page.source().path().contains("/en/")) << page.source().path().toStdString();
    user.click(*page.window(), "Contents");
    EXPECT_EQ(page.source().fileName(), "index.md");
    user.click(*page.window(), "Back");
    EXPECT_EQ(helpShown(window), "frmConfig.md");
    user.click(window, "Help");
    EXPECT_EQ(helpShown(window), "frmConfig.md");
    user.click(window, "Cancel");
  });
}

TEST(Help, EveryPageIsThereInBothLanguagesAndItsLinksLeadSomewhere) {
  namespace fs = std::filesystem;
  User::toolkit();
  const fs::path help = fs::path(VOCARIUM_BINARY_DIR) / "share/help";
  const auto pages = [&](const char* language) {
    std::vector<std::string> names;
    for (const auto& each : fs::directory_iterator(help / language)) names.push_back(each.path().filename());
    std::ranges::sort(names);
    return names;
  };
  EXPECT_EQ(pages("de"), pages("en"));
  for (const char* language : {"de", "en"}) {
    QTextBrowser browser;
    browser.setSource(QUrl::fromLocalFile(QString::fromStdString((help / language / "index.md").string())));
    const QString contents = browser.toMarkdown();
    for (const std::string& page : pages(language)) {
      EXPECT_TRUE(page == "index.md" || contents.contains(QString::fromStdString("(" + page + ")"))) << page;
      std::ifstream file(help / language / page);
      const std::string text(std::istreambuf_iterator<char>(file), {});
      for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1)) {
        const std::string link = text.substr(at + 2, text.find(')', at) - at - 2);
        EXPECT_TRUE(fs::exists(help / language / link)) << page << " leads to " << link;
      }
    }
  }
}

}  // namespace
