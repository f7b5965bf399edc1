// What a usual dictionary does not show.

#include <QComboBox>

#include "album.h"

namespace {

namespace fs = std::filesystem;

constexpr int meaningsTab = 1, examplesTab = 2, linksTab = 3;

/// The panels' names by the kinds of project.
constexpr const char *dictionary = "Panel_1", *linkCollection = "Panel_0";

/// A new dictionary with its first entry; what `setUp` does in the wizard comes before its end.
void create(User& user, const char* kind, const char* file, const std::string& first,
            const User::Deeds& setUp) {
  user.in("frmChooseDBType", [&user, kind](QWidget& window) { user.click(window, kind); });
  user.chooseFile(user.home / file);
  user.in("firstent", [&user, setUp](QWidget& window) {
    setUp(window);
    user.type(window, "Description", "Probe");
    User::find<QListWidget>(window, "List1").setCurrentRow(0);
    user.click(window, "Command1");
  });
  user.in("frmEintrag", [&user, first](QWidget& window) {
    user.type(window, "HeadwordBox", first);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNew");
}

User::Deeds setLanguages(User& user) {
  return [&user](QWidget& window) {
    user.type(window, "SourceLanguage", "Deutsch");
    user.type(window, "TargetLanguage", "Englisch");
  };
}

/// A further entry, with what `write` does in the editor.
void add(User& user, const std::string& headword, const User::Deeds& write) {
  user.in("frmEintrag", [&user, headword, write](QWidget& window) {
    user.type(window, "HeadwordBox", headword);
    write(window);
    user.click(window, "Command1_2");
  });
  user.choose("mnuNewEntry");
}

void selectWord(User& user, const std::string& text) {
  user.type(*user.app->window, "Text3", text);
}

void asGrids(User& user, const std::string& word) {
  auto& database = user.app->session.files.CurrentDB;
  database.Execute("UPDATE Sprache SET Stil1 = False, Stil2 = False");
  user.choose("mnuNewBrowser");
  selectWord(user, word);
}

struct Link {
  const char *name, *address, *note, *rating;
};

void links(bool english, const fs::path& folder) {
  User user(english);
  Album album(user, folder);
  create(user, linkCollection, "LINKS.CVB", "Lexikographie",
         [&](QWidget& window) { album.tabs(window, "links-firstent"); });
  const Link kept[] = {
      {"Wörterbuchnetz", "https://woerterbuchnetz.de", "Wörterbücher im Verbund", "5"},
      {"Grimm", "https://woerterbuchnetz.de/?sigle=DWB#0", "Deutsches Wörterbuch", "4"},
      {"Eine Seite mit langem Namen, der nicht in die Spalte passt, und noch etwas mehr",
       "http://www.example.org/a/very/long/address/that/goes/on/and/on/index.html?query=1&page=2", "", "0"}};
  add(user, "Wörterbücher im Netz", [&](QWidget& window) {
    album.save(window, "links-frmEintrag-1");
    user.tab(window, "SSTab1", linksTab);
    for (const Link& each : kept) {
      user.type(window, "Text7", each.name);
      user.type(window, "Text8", each.address);
      user.type(window, "Text9", each.note);
      auto& rating = User::find<QComboBox>(window, "Combo1");
      rating.setCurrentText(each.rating);
      emit rating.textActivated(each.rating);
      user.click(window, "Command5");
    }
    album.save(window, "links-frmEintrag-4");
    user.pickRow(window, "DBGridURL", 1);
    album.save(window, "links-frmEintrag-4-chosen");
  });
  selectWord(user, "Wörterbücher im Netz");
  album.save(*user.app->window, "links-frmMDI");
  user.in("frmSearch", [&](QWidget& window) {
    album.save(window, "links-frmSearch-empty");
    user.type(window, "TextBox1", "Wörterbuch");
    user.press(window, "TextBox1", Qt::Key_Return);
    album.save(window, "links-frmSearch");
    Album::close(window);
  });
  user.choose("mnuSearchEntry");
  album.dialog("mnuChoice", "frmFilter", "links-");
  asGrids(user, "Wörterbücher im Netz");
  album.save(*user.app->window, "links-grids");
  user.choose("mnuClose");
}

void fromRight(bool english, const fs::path& folder) {
  User user(english);
  Album album(user, folder);
  create(user, dictionary, "HEBREW.CVB", "בית", [&](QWidget& window) {
    user.type(window, "SourceLanguage", "Hebräisch");
    user.type(window, "TargetLanguage", "Deutsch");
    user.click(window, "RightToLeftFrom");
    user.click(window, "Next");
  });
  add(user, "מילון", [&](QWidget& window) {
    user.type(window, "NotesBox", "ספר המכיל את מילות השפה (A bis Z).");
    album.save(window, "rtl-frmEintrag-1");
    user.tab(window, "SSTab1", meaningsTab);
    user.type(window, "TextBox2", "Wörterbuch");
    user.press(window, "TextBox2", Qt::Key_Return);
    album.save(window, "rtl-frmEintrag-2");
    user.tab(window, "SSTab1", examplesTab);
    user.pickRow(window, "DataGrid5", 0);
    user.type(window, "Text5", "המילון נמצא על השולחן.");
    user.type(window, "Text6", "Das Wörterbuch liegt auf dem Tisch.");
    user.answer("");
    user.click(window, "AddExample");
    album.save(window, "rtl-frmEintrag-3");
  });
  selectWord(user, "מילון");
  album.save(*user.app->window, "rtl-frmMDI");
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "מילון");
    user.press(window, "TextBox1", Qt::Key_Return);
    album.save(window, "rtl-frmSearch");
    Album::close(window);
  });
  user.choose("mnuSearchEntry");
  user.in("frmSearch", [&](QWidget& window) {
    album.save(window, "rtl-goto");
    Album::close(window);
  });
  user.choose("mnuGoto");
  album.dialog("mnuFastEntry", "frmFastEntry", "rtl-");
  album.dialog("mnuRelinkEntry", "frmRelink", "rtl-");
  user.choose("mnuViewEntriesMeanings");
  album.save(*user.app->window, "rtl-frmView");
  asGrids(user, "מילון");
  album.save(*user.app->window, "rtl-grids");
  user.choose("mnuClose");
}

std::string longWord() {
  std::string word = "Rindfleischetikettierungsüberwachungsaufgabenübertragungsgesetz";
  while (word.size() < 200) word += "sentwurfsbegründung";
  return word;
}

void longTexts(bool english, const fs::path& folder) {
  User user(english);
  Album album(user, folder);
  create(user, dictionary, "LONG.CVB", "kurz", setLanguages(user));
  add(user, longWord(), [&](QWidget& window) {
    user.tab(window, "SSTab1", meaningsTab);
    user.type(window, "TextBox2", longWord());
    user.press(window, "TextBox2", Qt::Key_Return);
    album.save(window, "long-frmEintrag-2");
  });
  selectWord(user, longWord());
  album.save(*user.app->window, "long-frmMDI");
  for (const auto& [item, form] : {std::pair{"mnuRelinkEntry", "frmRelink"},
                                   {"mnuDeleteBySubject", "frmDeleteEintragEigenschaftSach"},
                                   {"mnuNewHistory", "frmHistory"}})
    album.dialog(item, form, "long-");
  user.in("frmSearch", [&](QWidget& window) {
    user.type(window, "TextBox1", "Rind");
    user.press(window, "TextBox1", Qt::Key_Return);
    user.pickRow(window, "DataGrid1", 0);
    album.save(window, "long-frmSearch");
    Album::close(window);
  });
  user.choose("mnuSearchEntry");
  user.answer("No");
  user.choose("mnuDeleteEntry");
  asGrids(user, longWord());
  album.save(*user.app->window, "long-grids");
  user.choose("mnuClose");
}

void nothingThere(bool english, const fs::path& folder) {
  User user(english);
  Album album(user, folder);
  create(user, dictionary, "EMPTY.CVB", "leer", setLanguages(user));
  album.save(*user.app->window, "empty-frmMDI");
  for (const char* view : {"mnuViewEntriesMeanings", "mnuViewAttributeEntry"}) {
    user.choose(view);
    album.save(*user.app->window, std::string("empty-") + view);
  }
  user.choose("mnuClose");
}

/// Several browsers and a table beside each other.
void arranged(bool english, const fs::path& folder) {
  User user(english);
  Album album(user, folder);
  create(user, dictionary, "MANY.CVB", "Apfel", setLanguages(user));
  for (const char* word : {"Birne", "Kirsche", "Pflaume", "Quitte"}) add(user, word, [](QWidget&) {});
  for (int n = 0; n < 3; ++n) user.choose("mnuNewBrowser");
  user.choose("mnuViewGeneral");
  album.save(*user.app->window, "arranged-as-opened");
  for (const char* way : {"mnuCascade", "mnuTile", "mnuTileVertical"}) {
    user.choose(way);
    album.save(*user.app->window, std::string("arranged-") + way);
  }
  user.choose("mnuClose");
}

/// The question of the way out. The toolkit shows no window behind it.
void leaving(bool english, const fs::path& folder) {
  User user(english);
  Album album(user, folder);
  create(user, dictionary, "OLD.CVB", "alt", setLanguages(user));
  user.app->session.files.CurrentDB.Execute("UPDATE Sprache SET LastDBSave = '01.02.2020'");
  user.in("MessageBox", [&](QWidget& window) {
    album.save(window, "box-backup");
    user.click(window, "No");
  });
  user.app->window->close();
}

}  // namespace

void awkward(bool english, const fs::path& folder) {
  links(english, folder);
  fromRight(english, folder);
  longTexts(english, folder);
  nothingThere(english, folder);
  arranged(english, folder);
  leaving(english, folder);
}
