#include "entry/meanings.h"

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/classification.h"
#include "entry/search_text.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/routines.h"
#include "shell/session/texts.h"
#include "store/flat.h"
#include "store/rows.h"

namespace entry {
namespace {

constexpr const char* allMeanings = "Select distinct * from Wortbedeutung order by wortbedeutung;";

bool editExample(frmEintrag& form, std::size_t row, const char* column, const std::string& text) {
  return session::guard(form.session, form.formName, [&] {
    form.Adodc5.setAbsolutePosition(static_cast<std::int64_t>(row));
    form.Adodc5.Edit();
    form.Adodc5.set(column, text);
    form.Adodc5.Update();
    AddChanges(form);
  });
}

}  // namespace

std::vector<MeaningRow> meaningRows(frmEintrag& form) {
  return store::allRows<MeaningRow>(form.Adodc2, [](const engine::Recordset& row) {
    return MeaningRow{row["ID_Wortbedeutung"].asInteger(), row["Wortbedeutung"].textOrEmpty()};
  });
}

std::vector<ExampleRow> exampleRows(frmEintrag& form) {
  return store::allRows<ExampleRow>(form.Adodc5, [](const engine::Recordset& row) {
    return ExampleRow{row["ID_WortbedBsp"].asInteger(), row["Beispiel"].textOrEmpty(),
                      row["Beispieluebersetzung"].textOrEmpty()};
  });
}

void SetADODC2(frmEintrag& form, std::int64_t lWortID) {
  form.Adodc2 =
      form.session.files.CurrentDB.OpenRecordset("BegriffWortbedeutungParam", engine::RecordsetKind::dynaset,
                                                 {{"LWortID", lWortID}}, engine::Interface::second);
}

void SetADODC3(frmEintrag& form) {
  form.Adodc3 = allMeanings;
}

void SetADODC4(frmEintrag& form, std::int64_t lWortbedeutungID) {
  form.Adodc5 = form.session.files.CurrentDB.OpenRecordset(
      "Select * from WortbedBsp where ID_Wortbedeutung = " + std::to_string(lWortbedeutungID),
      engine::RecordsetKind::dynaset, {}, engine::Interface::second);
}

void clearMeaningSelection(frmEintrag& form) {
  if (form.Adodc5.isOpen()) form.Adodc5.Close();
  form.SelectedMeaningId = 0;
  form.SelectedExampleId = 0;
  form.selectedMeaningLabel.clear();
  form.exampleBox.clear();
  form.translationBox.clear();
  form.exampleCommandsEnabled = false;
  form.deleteExampleEnabled = false;
}

bool addMeaning(frmEintrag& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (base::trim(form.meaningBox).empty()) return;
    const std::int64_t entry = s.entry.CurrentEntryId;
    auto rows = s.files.CurrentDB.OpenRecordset("BegriffWortbedeutungParam", engine::RecordsetKind::dynaset,
                                                {{"lWortID", entry}});
    rows.AddNew();
    rows.set("ID_Woerterbuch", entry);
    rows.set("DataBaseName", s.files.CurrentDBPath);
    rows.set("Wortbedeutung", form.meaningBox);
    rows.Update();
    rows.setBookmark(rows.LastModified());
    if (const engine::Value id = rows["ID_Wortbedeutung"]; !id.isNull()) {
      EigenschaftenSachgebieteAutomatischZuWortbedeutung(form, id.asInteger());
    }
    session::commitGathered(s);
    meaningBoxChanged(form, {});  // the list shows all meanings again, this one among them
    SetADODC2(form, entry);
  });
}

void meaningBoxChanged(frmEintrag& form, const std::string& text) {
  form.meaningBox = text;
  const std::string start = base::trim(text);
  if (start.empty()) {
    SetADODC3(form);
  } else {
    form.Adodc3 = "Select distinct * from Wortbedeutung where wortbedeutung like '" +
                  session::escapedSQLText(start) + "%' order by wortbedeutung;";
  }
}

std::vector<std::string> dictionaryMeanings(frmEintrag& form, std::size_t limit) {
  std::vector<std::string> texts;
  session::guard(form.session, form.formName, [&] {
    auto rows = form.session.files.CurrentDB.OpenRecordset(form.Adodc3, engine::RecordsetKind::snapshot, {},
                                                           engine::Interface::second);
    for (; !rows.EndOfFile() && texts.size() < limit; rows.MoveNext()) {
      texts.push_back(rows["wortbedeutung"].textOrEmpty());
    }
  });
  return texts;
}

void pickMeaning(frmEintrag& form, const std::string& text) {
  form.PickedMeaning = text;
  session::ShowStatus(form.session, session::labelText(form.session, label::drag_meaning), false);
}

void dropPickedMeaning(frmEintrag& form) {
  meaningBoxChanged(form, form.PickedMeaning);
}

bool editMeaning(frmEintrag& form, std::size_t row, const std::string& text) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.Adodc2.setAbsolutePosition(static_cast<std::int64_t>(row));
    const std::int64_t id = form.Adodc2["ID_Wortbedeutung"].asInteger();
    const bool deletes = text.empty();
    if (deletes && !session::confirmed(s, dialog::delete_meaning)) return;
    form.Adodc2.Edit();
    form.Adodc2.set("Wortbedeutung", text);
    form.Adodc2.Update();
    if (deletes) form.Adodc2.Delete();
    SetADODC2(form, s.entry.CurrentEntryId);
    if (id == form.lWortbedeutungID) {
      if (deletes) clearMeaningLists(form);
      form.meaningPropertiesLabel = text;
    }
    if (id != form.SelectedMeaningId) return;
    form.selectedMeaningLabel = text;
    if (deletes) clearMeaningSelection(form);
  });
}

bool selectMeaning(frmEintrag& form, std::size_t row) {
  return session::guard(form.session, form.formName, [&] {
    form.Adodc2.setAbsolutePosition(static_cast<std::int64_t>(row));
    form.SelectedMeaningId = form.Adodc2["ID_Wortbedeutung"].asInteger();
    form.selectedMeaningLabel = form.Adodc2["Wortbedeutung"].textOrEmpty();
    SetADODC4(form, form.SelectedMeaningId);
    form.exampleCommandsEnabled = true;
    form.deleteExampleEnabled = false;
    form.SelectedExampleId = 0;
  });
}

bool addExample(frmEintrag& form) {
  session::Session& s = form.session;
  if (!form.exampleCommandsEnabled) return false;
  return session::guard(s, form.formName, [&] {
    session::commitGathered(s);
    s.files.CurrentDB.Execute(
        "insert into WortbedBsp ( ID_Wortbedeutung, Beispiel, Beispieluebersetzung ) VALUES (" +
        std::to_string(form.SelectedMeaningId) + ",\"" + form.exampleBox + "\",\"" + form.translationBox +
        "\");");
    session::commitGathered(s);
    session::showMessage(s, dialog::example_added, platform::box::information);
    AddChanges(form);
    form.exampleBox.clear();
    form.translationBox.clear();
    form.focus = Focus::example;
  });
}

void AddChanges(frmEintrag& form) {
  SetADODC4(form, form.SelectedMeaningId);
  store::FillFlatMeaningRow(form.session, form.SelectedMeaningId);
  MetaSucheEintragen(form, form.session.entry.CurrentEntryId);
}

void selectExample(frmEintrag& form, std::size_t row) {
  const std::vector<ExampleRow> rows = exampleRows(form);
  if (row >= rows.size() || rows[row].sentence.empty()) return;
  form.SelectedExampleId = rows[row].id;
  form.deleteExampleEnabled = true;
}

bool deleteExample(frmEintrag& form) {
  session::Session& s = form.session;
  if (!form.deleteExampleEnabled) return false;
  return session::guard(s, form.formName, [&] {
    s.files.CurrentDB.Execute("delete * from Wortbedbsp where id_wortbedbsp = " +
                              std::to_string(form.SelectedExampleId));
    session::showMessage(s, dialog::example_deleted, platform::box::information);
    form.deleteExampleEnabled = false;
    form.SelectedExampleId = 0;
    AddChanges(form);
  });
}

bool editExampleSentence(frmEintrag& form, std::size_t row, const std::string& text) {
  if (!text.empty()) return editExample(form, row, "Beispiel", text);
  return session::guard(form.session, form.formName, [&] {
    session::showMessage(form.session, dialog::example_needs_sentence, platform::box::exclamation);
  });
}

bool editExampleTranslation(frmEintrag& form, std::size_t row, const std::string& text) {
  return editExample(form, row, "Beispieluebersetzung", text);
}

}  // namespace entry
