// Web links, attachments, the applications that open them, and the one place that does.

#include "entry/links.h"

#include <algorithm>
#include <filesystem>

#include "entry/attachments.h"
#include "entry/dictionary.h"
#include "entry/frmEnvironment.h"
#include "entry/start_browser.h"
#include "store/files.h"

namespace {

namespace fs = std::filesystem;
using namespace entry;
using platform::box::answerNo;
using platform::box::answerYes;

class LinksTest : public EntryTest {
 protected:
  void SetUp() override {
    open(2);
    visit(3, addMain("Haus"));
  }
  bool addLink(const std::string& name, const std::string& address, int rating = 0) {
    form.linkNameBox = name;
    form.linkAddressBox = address;
    form.linkRatingBox = rating;
    return Command5(form);
  }
  std::string links() { return rows("select URLName, URL, URLNotiz, Rating from URL order by ID_URL"); }
};

TEST_F(LinksTest, AreStoredAtOnceEditedAndDeletedWithoutAQuestion) {
  ASSERT_TRUE(selectTab(form, Tab::links));
  EXPECT_EQ(form.linkAddressBox, "HTTP://");
  form.linkNoteBox = "it's a \"note\"";
  ASSERT_TRUE(addLink("Zoo", "HTTP://zoo.example", 5));
  EXPECT_EQ(form.linkNameBox + form.linkAddressBox + form.linkNoteBox, "HTTP://");
  EXPECT_EQ(form.linkRatingBox, 0);
  ASSERT_TRUE(addLink("Amt", "mailto:amt@example.org"));
  EXPECT_EQ(linkRows(form).front().name, "Amt") << "the grid is ordered by name";

  EXPECT_FALSE(mnuEditURL(form)) << "nothing is selected";
  EXPECT_FALSE(mnuDeleteURL(form));
  ASSERT_TRUE(selectLink(form, 1));
  EXPECT_TRUE(form.openLinkArmed);
  ASSERT_TRUE(mnuEditURL(form));
  EXPECT_EQ(form.linkNoteBox, "it's a \"note\"");
  EXPECT_EQ(form.linkRatingBox, 5);
  ASSERT_TRUE(addLink("Tierpark", form.linkAddressBox, 1));
  EXPECT_EQ(links(), "Tierpark,HTTP://zoo.example,it's a \"note\",1|Amt,mailto:amt@example.org,,0");

  ASSERT_TRUE(selectLink(form, 0));
  EXPECT_FALSE(form.openLinkArmed);
  ASSERT_TRUE(mnuEditURL(form));
  ASSERT_TRUE(mnuDeleteURL(form));
  EXPECT_EQ(form.linkNameBox, "") << "what was edited is gone";
  EXPECT_EQ(linkRows(form).size(), 1U);
  EXPECT_FALSE(mnuDeleteURL(form));
}

TEST_F(LinksTest, WhatTheTableRefusesStaysInTheBoxes) {
  EXPECT_FALSE(addLink("no address", ""));
  EXPECT_EQ(form.linkNameBox, "no address");
  EXPECT_FALSE(addLink("far too good", "www.example.org", 6));
  EXPECT_FALSE(addLink(std::string(251, 'x'), "www.example.org"));
  EXPECT_EQ(links(), "");
}

TEST_F(LinksTest, AnEditThatWasLeftDoesNotReachAnotherEntryOrTheEmptyAddress) {
  ASSERT_TRUE(selectTab(form, Tab::links));
  ASSERT_TRUE(addLink("Zoo", "http://zoo.example"));
  ASSERT_TRUE(selectLink(form, 0) && mnuEditURL(form));
  ASSERT_TRUE(selectTab(form, Tab::attachments) && selectTab(form, Tab::links));
  ASSERT_TRUE(addLink("new", "http://new.example"));
  ASSERT_TRUE(selectLink(form, 1) && mnuEditURL(form));
  visit(3, addMain("Zaun"));
  ASSERT_TRUE(selectTab(form, Tab::links));
  EXPECT_TRUE(linkRows(form).empty());
  ASSERT_TRUE(addLink("other", "http://other.example"));
  EXPECT_EQ(rows("select URLName from URL order by ID_URL"), "Zoo|new|other");
  EXPECT_EQ(rows("select count(*) from URL where ID_Woerterbuch = 1"), "2");
}

TEST_F(LinksTest, ReachTheSearchTextWithTheNextSave) {
  ASSERT_TRUE(addLink("Zoo", "http://zoo.example"));
  ASSERT_TRUE(Command1(form, 2));
  EXPECT_EQ(ofEntry("MetaSuche", 1), "//Zoo//http://zoo.example//////Haus");
}

class AttachmentsTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    visit(3, addMain("Haus"));
    ASSERT_TRUE(selectTab(form, Tab::attachments));
  }
  bool attach(const std::string& path, bool copied, const std::string& name = "") {
    form.attachmentFileBox = path;
    form.attachmentIsCopied = copied;
    form.attachmentNameBox = name;
    return Command8(form);
  }
  std::string inFolder(const std::string& name) { return dir / ("Wörter/" + name); }
  std::string attached() {
    return rows("select Attachment.Attachment from Attachment order by ID_Attachment");
  }
  void select(const std::string& name) {
    ASSERT_TRUE(selectTab(form, Tab::attachments));
    const auto all = attachmentRows(form);
    const auto found = std::ranges::find(all, name, &AttachmentRow::name);
    ASSERT_NE(found, all.end()) << name;
    ASSERT_TRUE(selectAttachment(form, static_cast<std::size_t>(found - all.begin())));
  }
};

TEST_F(AttachmentsTest, ACopyGoesWithItsRowAndAnotherFileStays) {
  const std::string plan = dir.write("Plan ä.pdf", "plan"), letter = dir.write("it's.txt", "letter");
  script.chooseFile(plan);
  ASSERT_TRUE(Command9(form));
  ASSERT_TRUE(attach(form.attachmentFileBox, true, "copy"));
  ASSERT_TRUE(attach(letter, false, "left"));
  ASSERT_TRUE(attach(letter, true, "copied too"));
  EXPECT_EQ(attached(), "Plan ä.pdf|" + letter + "|it's.txt");
  EXPECT_EQ(test::TempDir::read(inFolder("Plan ä.pdf")), "plan");
  for (const char* name : {"copy", "left", "copied too"}) {
    select(name);
    ASSERT_TRUE(mnuDeleteAttachment(form)) << name;
  }
  EXPECT_FALSE(mnuDeleteAttachment(form)) << "nothing is selected";
  EXPECT_EQ(attached(), "");
  EXPECT_FALSE(fs::exists(inFolder("Plan ä.pdf")));
  EXPECT_FALSE(fs::exists(inFolder("it's.txt")));
  EXPECT_TRUE(fs::exists(plan) && fs::exists(letter));
}

TEST_F(AttachmentsTest, NoFileIsLostToAnotherOfItsName) {
  const std::string first = dir.write("a/Plan.pdf", "first"), second = dir.write("b/plan.PDF", "second");
  ASSERT_TRUE(attach(first, true, "one"));
  script.answer(answerNo, "ersetzen");
  EXPECT_FALSE(attach(second, true, "two"));
  EXPECT_EQ(form.attachmentNameBox, "two");
  EXPECT_EQ(test::TempDir::read(inFolder("Plan.pdf")), "first");
  ASSERT_TRUE(attach(inFolder("Plan.pdf"), true, "the same")) << "it lies there already";
  select("one");
  ASSERT_TRUE(mnuDeleteAttachment(form));
  EXPECT_TRUE(fs::exists(inFolder("Plan.pdf"))) << "another row uses it";
  script.answer(answerYes, "ersetzen");
  ASSERT_TRUE(attach(second, true, "two"));
  EXPECT_EQ(test::TempDir::read(inFolder("Plan.pdf")), "second");
  EXPECT_EQ(attached(), "Plan.pdf|Plan.pdf");
  dir.write("Wörter/W1B.jpg", "picture");
  insert("update Woerterbuch set Bild = 'W1B.jpg' where ID_Woerterbuch = 1");
  ASSERT_TRUE(attach(inFolder("W1B.jpg"), true, "picture"));
  select("picture");
  ASSERT_TRUE(mnuDeleteAttachment(form));
  EXPECT_TRUE(fs::exists(inFolder("W1B.jpg"))) << "it is the entry's picture";
}

TEST_F(AttachmentsTest, EditingKeepsTheCopyOrLeavesItForAPath) {
  const std::string plan = dir.write("Plan.pdf", "plan");
  form.attachmentNoteBox = "old";
  ASSERT_TRUE(attach(plan, true, "one"));
  select("one");
  ASSERT_TRUE(mnuEditAttachment(form));
  EXPECT_TRUE(form.attachmentIsCopied);
  EXPECT_EQ(form.attachmentNoteBox, "old");
  form.attachmentNoteBox = "new";
  ASSERT_TRUE(attach(form.attachmentFileBox, true, "1"));
  EXPECT_EQ(rows("select AttachmentName, Attachment.Attachment, AttachmentNotiz from Attachment"),
            "1,Plan.pdf,new");
  select("1");
  ASSERT_TRUE(mnuEditAttachment(form));
  ASSERT_TRUE(attach(plan, false, "1"));
  EXPECT_EQ(attached(), plan);
}

TEST_F(AttachmentsTest, AFailureLeavesNeitherRowNorCopy) {
  EXPECT_FALSE(attach(dir / "missing.pdf", true));
  EXPECT_TRUE(script.told("Diese Datei gibt es nicht mehr"));
  EXPECT_FALSE(attach("", false));
  EXPECT_FALSE(attach(dir.write("Plan.pdf", "x"), true, std::string(251, 'n')));
  EXPECT_EQ(attached(), "");
  EXPECT_FALSE(fs::exists(inFolder("Plan.pdf")));
}

class StartBrowserTest : public AttachmentsTest {
 protected:
  bool opens(const std::string& text, Opens what = Opens::attachment) {
    script.opened.clear();
    script.started.clear();
    return UserControl_Click(s, "frmWoerter", what, text);
  }
  void enter(const char* type, const char* application) {
    insert(std::string("insert into Umgebung (Dateityp, Anwendung) values ('") + type + "', '" + application +
           "')");
  }
  using Lines = std::vector<std::string>;
};

TEST_F(StartBrowserTest, OpensAFileWithTheApplicationOfItsTypeElseWithTheDesktop) {
  enter("PDF", " viewer --page 1 ");
  const std::string folder = dir.path().string().substr(1);
  dir.write("Wörter/Plan 1.pdf", "");
  dir.write("Wörter/readme", "");
  dir.write("Wörter/a.b'c", "");
  const std::string other = dir.write("100%#.tar.gz", "");
  ASSERT_TRUE(opens("Plan 1.pdf"));
  EXPECT_EQ(script.started, Lines{"viewer --page 1 FILE:///" + folder + "/Wörter/Plan%201.pdf"});
  ASSERT_TRUE(opens("readme"));
  EXPECT_EQ(script.opened, Lines{"FILE:///" + folder + "/Wörter/readme"});
  ASSERT_TRUE(opens("a.b'c"));
  EXPECT_EQ(script.opened, Lines{"FILE:///" + folder + "/Wörter/a.b%27c"});
  ASSERT_TRUE(opens(other));
  EXPECT_EQ(script.opened, Lines{"FILE:///" + folder + "/100%25%23.tar.gz"});
  EXPECT_FALSE(opens("gone.pdf"));
  EXPECT_FALSE(opens(""));
  EXPECT_TRUE(script.opened.empty() && script.started.empty());
  EXPECT_TRUE(script.told("gone.pdf"));
}

TEST_F(StartBrowserTest, OpensLinksAndTheWebSite) {
  for (const auto& [text, opened] :
       std::vector<std::pair<std::string, std::string>>{{"HTTP://a.example", "HTTP://a.example"},
                                                        {"WWW.b.example", "http://WWW.b.example"},
                                                        {" mailto:c@example.org", "mailto:c@example.org"}}) {
    ASSERT_TRUE(opens(text, Opens::link));
    EXPECT_EQ(script.opened, Lines{opened});
  }
  EXPECT_FALSE(opens(" ", Opens::link));
  EXPECT_TRUE(opens("", Opens::webSite));
  EXPECT_EQ(script.opened.size(), 1U);
}

TEST_F(StartBrowserTest, TheApplicationsAreWrittenAnewWhenSaved) {
  enter("PDF", "viewer");
  enter("DOC", "writer");
  frmEnvironment dialog(s);
  ASSERT_TRUE(Form_Load(dialog));
  EXPECT_EQ(dialog.DBGrid1.front().Dateityp, "DOC");
  editFileType(dialog, 9, " .odt");
  EXPECT_TRUE(dialog.changed);
  EXPECT_FALSE(saveEnvironment(dialog)) << "the row lacks its application";
  editApplication(dialog, 2, "it's \"mine\"");
  deleteFileType(dialog, 0);
  editFileType(dialog, 9, "");
  ASSERT_TRUE(saveEnvironment(dialog));
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(rows("select Dateityp, Anwendung from Umgebung"), "PDF,viewer|ODT,it's \"mine\"");
  ASSERT_TRUE(Form_Load(dialog));
  editFileType(dialog, 0, "TOOLONG");
  EXPECT_FALSE(saveEnvironment(dialog));
  EXPECT_EQ(rows("select Dateityp from Umgebung"), "PDF|ODT") << "nothing was written";
}

}  // namespace
