// The entry beside the list: as a page and in grids, and what clicks on its rows do.

#include "browse/display.h"

#include "browse/browser.h"
#include "browse/commands.h"
#include "browse/page_html.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "store/flat.h"

namespace {

class Display : public BrowserTest {
 protected:
  void set(const std::string& column, const std::string& value) {
    db().Execute("update Sprache set " + column + " = " + value);
  }
  void setEntry(std::int64_t id, const std::string& column, const std::string& text) {
    auto row = db().OpenRecordset("select * from Woerterbuch where ID_Woerterbuch = " + std::to_string(id));
    row.Edit();
    row.set(column, text);
    row.Update();
  }
  std::int64_t addMeaning(std::int64_t entry, const std::string& text) {
    return addRow("Wortbedeutung", {{"ID_Woerterbuch", entry}, {"Wortbedeutung", text}});
  }
  std::int64_t addLink(std::int64_t entry, const std::string& name, const std::string& url,
                       const std::string& note, int rating) {
    return addRow(
        "URL",
        {{"ID_Woerterbuch", entry}, {"URLName", name}, {"URL", url}, {"URLNotiz", note}, {"Rating", rating}});
  }
  /// "Haus" with all that an entry can have.
  std::int64_t addFullEntry() {
    const auto house = addEntry("Haus");
    setEntry(house, "Aussprache", "haʊs");
    setEntry(house, "Bemerkung", "eins\r\nzwei <b>\ndrei");
    const auto home = addMeaning(house, "home"), dwelling = addMeaning(house, "dwelling");
    addRow("WortBedBsp", {{"ID_Wortbedeutung", home},
                          {"Beispiel", "Er geht nach Haus."},
                          {"Beispieluebersetzung", "He goes home."}});
    addRow("WortBedBsp", {{"ID_Wortbedeutung", home}, {"Beispiel", "Haus und Hof"}});
    const auto plural = addRow("WKategorie", {{"Kategorie", "Plural"}, {"Abkuerzung", "Pl."}});
    const auto building = addRow("WSachgebiet", {{"Sachgebiet", "Architektur"}, {"Abkuerzung", "Arch."}});
    addRow("relWoertWKat",
           {{"ID_Woerterbuch", house}, {"ID_WKategorie", plural}, {"KategorieWert", "Häuser"}});
    addRow("relWoertSachgebiet", {{"ID_Woerterbuch", house}, {"ID_WSachgebiet", building}});
    addRow("relWortbedWKat", {{"ID_Wortbedeutung", dwelling}, {"ID_WKategorie", plural}});
    addRow("relWortbedSachgebiet", {{"ID_Wortbedeutung", home}, {"ID_Sachgebiet", building}});
    store::BuildWoerterbuchFlat(s, true);
    store::BuildWortbedeutungFlat(s, true);
    return house;
  }
  void showEntry(std::int64_t id) {
    show();
    select(id);
  }
  /// The lines of the page's body.
  std::string body() const {
    const std::string text = test::TempDir::read(form.display.page);
    const auto from = text.find("<BODY>\r\n") + 8, to = text.find("</BODY>");
    return base::replaceAll(text.substr(from, to - from), "\r\n", "|");
  }
  static std::string text(const browse::Grid& grid) {
    std::string all;
    for (const auto& row : grid.rows) {
      EXPECT_EQ(row.size(), grid.captions.size());
      for (const std::string& cell : row) all += cell + ",";
      all += "|";
    }
    return all;
  }
};

TEST_F(Display, WritesThePageOfAnEntryItemByItem) {
  const auto house = addFullEntry();
  showEntry(house);
  EXPECT_TRUE(form.display.asPage);
  EXPECT_EQ(form.display.page, t.home / "CurrentEntry.HTM");
  set("StyleSheetPath", "'/my/sheet.css'");
  select(house);
  const std::string page = test::TempDir::read(form.display.page);
  EXPECT_TRUE(
      page.starts_with("<HTML lang=\"de\">\r\n<HEAD>\r\n"
                       "<META http-equiv=\"content type\" content=\"text/html; charset=UTF-8\">\r\n"
                       "<link rel=\"stylesheet\" type=\"Text/CSS\" href=\"/my/sheet.css\">\r\n"
                       "</HEAD>\r\n<BODY>\r\n<H1>\r\n<FONT Face=Arial>\r\nHaus\r\n</FONT>\r\n</H1>\r\n"))
      << page;
  EXPECT_TRUE(page.ends_with("</BODY>\r\n</HTML>\r\n"));
  const std::string house1 =
      "<H1>|<FONT Face=Arial>|Haus|</FONT>|</H1>|<FONT color=#0000FF Face=Arial>|<EM>| [haʊs]|<BR>|</EM>|"
      "<P>|<A> Eigenschaften: Plural: Häuser</A></P>|<P>|<A> Sachgebiete: Architektur</A></P>|";
  const std::string meanings =
      "<H2>|1. home|</H2>|<H2>|1. home: |<B>|Er geht nach Haus.|</B>|--> |<I>|He goes home.|</I>|<BR>|</H2>|"
      "<H2>|1. home: |<B>|Haus und Hof|</B>|</H2>|<P>|<A> Sachgebiete: Architektur</A></P>|"
      "<H2>|2. dwelling|</H2>|<P>|<A> Eigenschaften: Plural</A></P>|";
  // The carriage return of the note's first line stays in the text.
  EXPECT_EQ(base::replaceAll(body(), "\r", "<CR>"),
            house1 + meanings + "<H6>|eins<CR><BR>zwei <b><BR>drei|</H6>|");
}

TEST_F(Display, ThePageFollowsTheSettings) {
  const auto house = addFullEntry();
  set("EnumMeaning", "0");
  s.project.UseAbbreviations = true;
  s.project.FontFrom.clear();
  showEntry(house);
  EXPECT_NE(body().find("<H2>|home|</H2>|<H2>|home: |<B>|"), std::string::npos) << body();
  EXPECT_NE(body().find("<A> Eigenschaften: Pl.</A>"), std::string::npos) << body();
  EXPECT_NE(body().find("<A> Sachgebiete: Arch.</A>"), std::string::npos);
  EXPECT_NE(body().find("<FONT Face=Arial Unicode MS>"), std::string::npos);
  const std::string strict =
      browse::forStrictView(test::TempDir::read(form.display.page), form.display.settings);
  EXPECT_NE(strict.find("<FONT Face=\"Arial Unicode MS\">\r\n"), std::string::npos) << strict;
  EXPECT_NE(strict.find("type=\"text/css\""), std::string::npos);
  EXPECT_NE(strict.find("</EM></FONT>\r\n<P>"), std::string::npos);
}

TEST_F(Display, APlainEntryHasItsHeadAlone) {
  const auto house = addEntry("Haus");
  setEntry(house, "Bemerkung", "   ");
  showEntry(house);
  EXPECT_EQ(body(), "<H1>|<FONT Face=Arial>|Haus|</FONT>|</H1>|");
}

TEST_F(Display, AnEntryThatIsGoneLeavesThePageBlank) {
  const auto house = addEntry("Haus");
  show();
  db().Execute("delete * from Woerterbuch");
  select(house);
  EXPECT_EQ(body(), "");
  EXPECT_EQ(form.display.aggregate.entry.ID_Woerterbuch, 0);
  EXPECT_EQ(t.log(), "");
}

TEST_F(Display, PlacesGifAndJpgPicturesOnly) {
  const auto house = addEntry("Haus");
  const std::string media = (store::mediaFolder(s, s.files.CurrentDBPath)).string();
  t.home.write("Wörter/haus.jpg", "x");
  for (const auto& [file, address] : std::vector<std::pair<std::string, std::string>>{
           {"haus.jpg", media + "/haus.jpg"}, {"fern.GIF", t.home / "fern.GIF"}}) {
    setEntry(house, "Bild", file);
    showEntry(house);
    EXPECT_NE(body().find("|<BR>|<IMG SRC=\"" + address + "\">|<BR>|"), std::string::npos) << body();
  }
  setEntry(house, "Bild", "haus.png");
  showEntry(house);
  EXPECT_EQ(body().find("<IMG"), std::string::npos);
  EXPECT_EQ(form.display.picture, media + "/haus.png") << "the picture box shows it";
}

TEST_F(Display, GoesToTheOwnFolderWhereTheDictionarysRefusesFiles) {
  const auto house = addEntry("Haus");
  std::filesystem::create_directories(t.home / "CurrentEntry.HTM/taken");
  showEntry(house);
  EXPECT_EQ(form.display.page, s.folders.AppConfigPath + "/CurrentEntry.HTM");
  EXPECT_NE(body().find("Haus"), std::string::npos);
  EXPECT_EQ(t.log(), "");
}

class LinkDisplay : public Display {
 protected:
  void SetUp() override { create("Links.cvb", 2); }
};

TEST_F(LinkDisplay, ShowsLinksWithTheirRating) {
  const auto topic = addEntry("Haus");
  addMeaning(topic, "not shown");
  addLink(topic, "Bauen", "http://b.de", "ein Text", 2);
  addLink(topic, "Anders", "www.a.de", "", 0);
  showEntry(topic);
  std::string all = body();
  const auto image = all.find("<IMG SRC=\"");
  ASSERT_NE(image, std::string::npos) << all;
  const std::string stars = all.substr(image, all.find('|', image) - image);
  EXPECT_TRUE(stars.ends_with("/Images/Rating.gif\">")) << stars;
  const std::string head = "<H1>|<FONT Face=Arial>|Haus|</FONT>|</H1>|";
  EXPECT_EQ(
      all, head + "<H5>|Bauen|<BR>|ein Text|</H5>|" + stars + "|" + stars + "|" + "<H5>|Anders|<BR>||</H5>|");
  set("ShowURLSeparate", "-1");
  set("ShowRating", "0");
  select(topic);
  EXPECT_EQ(body(),
            head + "<A HREF=http://b.de><H5>|Bauen|</A>|ein Text|<A HREF=www.a.de><H5>|Anders|</A>||");
}

TEST_F(Display, FillsLabelsAndGrids) {
  const auto house = addFullEntry();
  db().Execute("update Woerterbuch set DateTimeStamp = #03-09-24#");
  addRow("Attachment", {{"ID_Woerterbuch", house},
                        {"AttachmentName", "Plan"},
                        {"Attachment", "plan.pdf"},
                        {"AttachmentNotiz", "alt"}});
  set("Stil1", "0");
  s.project.PhoneticFont = "IpaPhon";
  showEntry(house);
  const browse::EntryDisplay& d = form.display;
  EXPECT_FALSE(d.asPage);
  EXPECT_FALSE(std::filesystem::exists(t.home / "CurrentEntry.HTM"));
  EXPECT_EQ(d.headword, "Haus");
  EXPECT_EQ(text(d.pronunciation), "haʊs,|");
  EXPECT_TRUE(d.symbolFont);
  EXPECT_EQ(d.note, "eins\r\nzwei <b>\ndrei");
  EXPECT_EQ(d.created, t.label(label::created_on) + " 09/03/24");
  EXPECT_EQ(d.dictionary, "");
  EXPECT_EQ(text(d.properties), "Plural,Häuser,|");
  EXPECT_EQ(text(d.subjects), "Architektur,|");
  EXPECT_EQ(text(d.meanings), "dwelling,,,|home,Er geht nach Haus.,He goes home.,|home,Haus und Hof,,|");
  EXPECT_EQ(text(d.meaningProperties), "dwelling,Plural,,|");
  EXPECT_EQ(text(d.meaningSubjects), "home,Architektur,|");
  EXPECT_EQ(text(d.attachments), "Plan,plan.pdf,alt,|");
  db().Execute("update Woerterbuch set Aussprache = Null, Klang = 'h.wav'");
  select(house);
  EXPECT_EQ(text(d.pronunciation), ",|");
  EXPECT_TRUE(d.sound.ends_with("/h.wav"));
}

TEST_F(Display, MarksTheSearchTermInTheNote) {
  const auto house = addEntry("Haus"), yard = addEntry("Hof");
  setEntry(house, "Bemerkung", "Ähren und HÄUSER");
  addMeaning(yard, "Häuser");
  set("Stil1", "0");
  show();
  s.search.SearchTerm = "häuser";
  ASSERT_TRUE(browse::List2_Click(form, rowOf(house)));
  EXPECT_EQ(form.display.noteMark.start, 10U);
  EXPECT_EQ(form.display.noteMark.length, 6U);
  EXPECT_EQ(form.focus, browse::BrowserFocus::list);
  ASSERT_TRUE(browse::List2_Click(form, rowOf(yard)));
  EXPECT_EQ(form.display.noteMark.length, 0U) << "the meanings are not searched";
}

TEST_F(Display, AReferenceJumpsToItsEntryAndReleasesTheFilter) {
  const auto house = addEntry("Haus"), door = addEntry("Tür"), sub = addSub(door, "Türknauf");
  for (const auto target : {door, sub, std::int64_t{99}})
    addRow("Querverweis", {{"ID_Woerterbuch", house},
                           {"ID_WoerterbuchQV", target},
                           {"Querverweis", "an " + std::to_string(target)}});
  showEntry(house);
  EXPECT_EQ(text(form.display.crossReferences), "an 2,|an 3,|an 99,|");
  bool released = false;
  s.filter.FilterIsActive = [&] { return !released; };
  form.releaseFilter = [&] { released = true; };
  ASSERT_TRUE(browse::MSHFlexGridQuerverweise_Click(form, 0));
  EXPECT_TRUE(released);
  EXPECT_TRUE(t.script.told(t.dialog(dialog::filter_released)));
  EXPECT_EQ(s.entry.SelectedEntryId, door);
  EXPECT_EQ(s.entry.EntryEditMode, 3);
  select(house);
  ASSERT_TRUE(browse::MSHFlexGridQuerverweise_Click(form, 1));
  EXPECT_EQ(s.entry.SelectedEntryId, door) << "the main entry of a sub-entry";
  EXPECT_EQ(s.entry.EntryEditMode, 4);
  select(house);
  ASSERT_TRUE(browse::MSHFlexGridQuerverweise_Click(form, 2));
  EXPECT_EQ(s.entry.SelectedEntryId, house) << "there is no entry 99";
}

TEST_F(Display, OpensAddressesAndAttachedFiles) {
  const auto house = addEntry("Haus");
  const std::vector<std::string> urls = {"HTTP://a.de", "www.b.de", "ftp.c.de", "gopher://d",
                                         "file:///e",   "mailto:f", "c.de"};
  for (std::size_t n = 0; n < urls.size(); ++n) addLink(house, std::to_string(n), urls[n], "", 0);
  addRow("Attachment", {{"ID_Woerterbuch", house}, {"AttachmentName", "1"}, {"Attachment", "mein plan.pdf"}});
  const std::string elsewhere = t.home.write("anderswo/b.txt", "b");
  addRow("Attachment", {{"ID_Woerterbuch", house}, {"AttachmentName", "2"}, {"Attachment", elsewhere}});
  showEntry(house);
  t.home.write("Wörter/mein plan.pdf", "plan");
  for (std::size_t n = 0; n <= urls.size(); ++n) EXPECT_TRUE(browse::MSHFlexGridURL_Click(form, n));
  EXPECT_EQ(t.script.opened, (std::vector<std::string>{"HTTP://a.de", "http://www.b.de", "ftp.c.de",
                                                       "gopher://d", "file:///e"}));
  t.script.opened.clear();
  for (std::size_t n = 0; n < 3; ++n) EXPECT_TRUE(browse::dbGridAttachment_DblClick(form, n));
  ASSERT_EQ(t.script.opened.size(), 2U);
  EXPECT_TRUE(t.script.opened[0].starts_with("FILE:///")) << t.script.opened[0];
  EXPECT_TRUE(t.script.opened[0].ends_with("/Wörter/mein%20plan.pdf")) << t.script.opened[0];
  EXPECT_EQ(t.script.opened[1], "FILE://" + elsewhere);
}

}  // namespace
