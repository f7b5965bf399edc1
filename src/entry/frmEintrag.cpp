#include "entry/frmEintrag.h"

#include "base/text.h"
#include "catalogue/label.h"
#include "entry/attachments.h"
#include "entry/classification.h"
#include "entry/links.h"
#include "entry/meanings.h"
#include "entry/pictures.h"
#include "entry/sound.h"
#include "entry/visit.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/rows.h"

namespace entry {
namespace {

void readSettings(frmEintrag& form) {
  auto row = form.session.files.CurrentDB.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  form.BegriffPruefung = store::truth(row["BegriffPruefung"]);
  form.Blog = store::truth(row["Blog"]);
  form.ShowMeaningsForEditing = store::truth(row["ShowMeaningsForEditing"]);
  form.DateFormat = row["DateFormat"].textOrEmpty();
}

// The next free place among the sub-entries of the entry that was selected.
int nextPriority(session::Session& s) {
  auto rows = s.files.CurrentDB.OpenRecordset(
      "select Prioritaet from Woerterbuch where ebene = 2 and id_woerterbuch1 = " +
          std::to_string(s.entry.CurrentEntryId) + " order by Prioritaet asc",
      engine::RecordsetKind::snapshot);
  if (rows.EndOfFile()) return 1;
  rows.MoveLast();
  const engine::Value highest = rows["Prioritaet"];
  return highest.isNull() ? 1 : static_cast<int>(highest.asInteger()) + 1;
}

void setTabs(frmEintrag& form) {
  const bool dictionary = form.session.project.ProjectType == 1;
  form.tabVisible.fill(true);
  const auto show = [&](Tab tab, bool shown) { form.tabVisible[static_cast<std::size_t>(tab)] = shown; };
  show(Tab::links, !dictionary);
  for (const Tab tab : {Tab::meanings, Tab::examples, Tab::meaningProperties}) show(tab, dictionary);
  form.tabRows = dictionary ? 5 : 4;
  form.pronunciationShown = dictionary;
  form.tab = Tab::entry;
}

std::string stubHeadword(const frmEintrag& form, const std::string& wanted) {
  if (form.Blog)
    return base::formatDate(base::DateTime::now(), form.DateFormat, form.session.texts.UILanguage == 2);
  return wanted.empty() ? session::labelText(form.session, label::new_headword) : wanted;
}

}  // namespace

void SetData10(frmEintrag& form) {
  session::Session& s = form.session;
  const bool mainEntries = s.entry.EntryEditMode == 1 || s.entry.EntryEditMode == 3;
  const char* byTerm = mainEntries ? "AllWordsErsteEbene" : "AllWordsOrderByBegriff";
  const char* byDate =
      mainEntries ? "AllWordsErsteEbeneOrderByDateTimeStamp" : "AllWordsOrderByDateTimeStamp";
  form.navigator = s.files.CurrentDB.OpenRecordset(s.shell.dateOrder ? byDate : byTerm);
}

void SelectByLetter(frmEintrag& form) {
  session::Session& s = form.session;
  engine::Parameters letters;
  for (std::size_t i = 0; i < s.filter.FilterBuchstabe.size(); ++i) {
    letters.emplace_back("sBuchstabe" + (i == 0 ? std::string() : std::to_string(i)),
                         s.filter.FilterBuchstabe[i]);
  }
  form.navigator =
      s.files.CurrentDB.OpenRecordset("AllWordsBuchstabeParam", engine::RecordsetKind::dynaset, letters);
}

void bindNavigator(frmEintrag& form) {
  const session::Filter& filter = form.session.filter;
  const int mode = form.session.entry.EntryEditMode;
  const bool letter = !filter.AlleBuchstaben && !filter.FilterBuchstabe.front().empty();
  if (letter && (mode == 1 || mode == 3)) {
    SelectByLetter(form);
  } else {
    SetData10(form);
  }
}

void applyMode(frmEintrag& form) {
  session::Session& s = form.session;
  const int mode = s.entry.EntryEditMode;
  form.buttons.fill({});
  const auto show = [&](std::size_t index, int caption) {
    form.buttons[index] = {true, !form.headwordBox.empty(), session::labelText(s, caption)};
  };
  if (mode == 1 || mode == 3) {
    show(1, label::save_and_new);
    show(2, label::save_and_close);
  } else if (mode == 2) {
    show(0, label::save_sub_entry_and_close);
    show(3, label::save_and_next_sub_entry);
  } else {
    show(1, label::save_sub_entry);
  }
  form.closeCaption = session::labelText(s, label::close_editor);
  if (mode <= 2) form.closeCaption += " (" + session::labelText(s, label::without_saving) + ")";
  form.priorityShown = mode == 2 || mode == 4;
  form.navigatorShown = mode == 3;
}

void makeStub(frmEintrag& form, const std::string& headword, std::int64_t mainId) {
  session::Session& s = form.session;
  const base::DateTime now = base::DateTime::now();
  form.record = {};
  form.record.Begriff = stubHeadword(form, headword);
  form.record.ID_Woerterbuch1 = mainId;
  form.record.Ebene = s.entry.EntryEditMode == 1 ? 1 : 0;
  form.record.Prioritaet = static_cast<std::uint8_t>(form.NextPriority);
  form.record.DateTimeStamp = now;
  form.record.DateTimeStampLastChange = now.stamp();
  form.record.DatabaseName = s.files.CurrentDBPath;

  // The row bears its level from the start: what a crash leaves at level 0 goes at the next opening.
  auto rows =
      s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::dynaset, {{"lWortID", 0}});
  rows.AddNew();
  rows.set("DATETIMESTAMP", now);
  rows.set("EBENE", form.record.Ebene);
  rows.set("PRIORITAET", form.record.Prioritaet);
  rows.set("DATABASENAME", form.record.DatabaseName);
  form.record.ID_Woerterbuch = rows["ID_Woerterbuch"].asInteger();
  rows.Update();
  s.entry.CurrentEntryId = form.record.ID_Woerterbuch;

  EigenschaftenSachgebieteAutomatischAnBegriff(form, s.entry.CurrentEntryId);
  StichwortBedeutungNeuAnzeigen(form, s.entry.CurrentEntryId);
  applyMode(form);
  refillTab(form);
  session::ShowStatus(s, "", false);
  form.focus = Focus::headword;
}

void readEntry(frmEintrag& form, std::int64_t id) {
  session::Session& s = form.session;
  s.entry.CurrentEntryId = id;
  ReadFromDB_TabWoerterbuch(s, form.record, id);
  s.entry.SavedMainEntryId = form.record.ID_Woerterbuch1;
  StichwortBedeutungNeuAnzeigen(form, id);
  applyMode(form);
  refillTab(form);
}

bool Form_Activate(frmEintrag& form) {
  session::Session& s = form.session;
  form.visible = false;
  form.savedInVisit = false;
  dropRecording(form);
  return session::guard(s, form.formName, [&] {
    readSettings(form);
    AttribSubjectRefill(form);
    SetADODC3(form);
    form.captionLabels.fill({});
    form.meaningBox.clear();
    form.NextPriority = nextPriority(s);
    ClearLists(form);
    setTabs(form);
    const int mode = s.entry.EntryEditMode;
    if (mode == 1 || mode == 2) {
      makeStub(form, s.entry.PresetBegriff.empty() ? s.entry.CurrentBegriff : s.entry.PresetBegriff, 0);
    } else {
      // A sub-entry that is edited stays one, whatever was made before it.
      if (mode == 4) s.entry.NewEntryLevel = 2;
      readEntry(form, s.entry.CurrentEntryId);
      session::ShowStatus(s, "", false);
      form.focus = Focus::headword;
    }
    form.visible = true;
  });
}

void Form_Unload(frmEintrag& form) {
  dropRecording(form);
  for (engine::Recordset* rows :
       {&form.navigator, &form.Data3, &form.Data7, &form.Adodc2, &form.Adodc5, &form.Data13, &form.Data9,
        &form.Data8, &form.Data5, &form.links, &form.attachments, &form.crossReferences}) {
    if (rows->isOpen()) rows->Close();
  }
  form.visible = false;
}

void headwordChanged(frmEintrag& form, const std::string& text) {
  form.headwordBox = text;
  form.record.Begriff = text;
  const std::size_t firstLabel = form.session.project.ProjectType == 1 ? 0 : 3;
  for (std::size_t i = firstLabel; i < tabCount; ++i) form.captionLabels[i] = text;
  for (Button& button : form.buttons) button.enabled = button.visible && !text.empty();
}

void priorityChanged(frmEintrag& form, const std::string& text) {
  form.priorityBox.clear();
  for (const char c : text) {
    if (c >= '0' && c <= '9') form.priorityBox += c;
  }
}

void Assign_STWOERTERBUCH_Out(frmEintrag& form) {
  const STWOERTERBUCH record = form.record;
  headwordChanged(form, record.Begriff);
  if (form.session.project.ProjectType == 1) form.pronunciationBox = record.Aussprache;
  form.notesBox = record.Bemerkung;
  form.priorityBox = std::to_string(record.Prioritaet);
  form.inProgressBox = record.InBearbeitung;
}

void StichwortBedeutungNeuAnzeigen(frmEintrag& form, std::int64_t lWortID) {
  SetADODC2(form, lWortID);
  showPictureOfRecord(form);
  Assign_STWOERTERBUCH_Out(form);
  const int mode = form.session.entry.EntryEditMode;
  if (mode == 3 || mode == 4) form.playEnabled = !form.record.Klang.empty();
  clearMeaningSelection(form);
  // What the lists still hold belongs to the entry that was on show before.
  ClearLists(form);
  clearLinks(form);
  clearAttachments(form);
}

void refillTab(frmEintrag& form) {
  const std::int64_t id = form.session.entry.CurrentEntryId;
  switch (form.tab) {
    case Tab::properties:
      FillEigenschaftSachgebietList(form, id);
      break;
    case Tab::links:
      openLinksTab(form);
      break;
    case Tab::attachments:
      AttachmentRefill(form);
      break;
    case Tab::crossReferences:
      form.crossReferences = form.session.files.CurrentDB.OpenRecordset(
          "BegriffQuerverweisParam1", engine::RecordsetKind::dynaset, {{"lWortID", id}});
      break;
    default:
      break;
  }
}

bool selectTab(frmEintrag& form, Tab tab) {
  if (!form.tabVisible[static_cast<std::size_t>(tab)]) return false;
  form.tab = tab;
  return session::guard(form.session, form.formName, [&] {
    if (tab == Tab::entry && form.picture.Lead1.empty()) showPictureOfRecord(form);
    refillTab(form);
  });
}

}  // namespace entry
