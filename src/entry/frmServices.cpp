#include "entry/frmServices.h"

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/search_text.h"
#include "entry/sort_term.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"

namespace entry {
namespace {

// Rows that kept their old key, for one report instead of a box a row.
struct Refused {
  std::int64_t rows = 0;
  int number = 0;
  std::string text;

  // Notes a key that its column does not take; any other failure is not the row's and goes on.
  void add(const std::string& headword, const base::Error& error) {
    if (error.number() != engine::errors::zeroLength && error.number() != engine::errors::tooLong)
      throw error;
    if (rows++ > 0) return;
    number = error.number();
    text = "\"" + headword + "\": " + error.text();
  }
};

bool confirmedTwice(session::Session& s, int question) {
  return session::confirmed(s, question) && session::confirmed(s, dialog::takes_a_while);
}

std::int64_t countedFromFirst(engine::Recordset& rows) {
  rows.MoveLast();
  const std::int64_t count = rows.RecordCount();
  rows.MoveFirst();
  return count;
}

// Writes prefix and key of the current row; deletes it when it is an orphan.
void writeKey(session::Session& s, engine::Recordset& row, std::int64_t id) {
  const SplitHeadword split = splitHeadword(row["BEGRIFF"].textOrEmpty(), s.project.IgnoreAtSort);
  std::string ParentSort, PriorityText;
  const engine::Value main = row["ID_Woerterbuch1"];
  if (!main.isNull() && main.asInteger() != id) {
    auto parent =
        s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot, {{"lWortID", main}});
    if (parent.EndOfFile()) {
      s.files.CurrentDB.Execute("delete * from Woerterbuch where id_woerterbuch = " + std::to_string(id) +
                                " and id_woerterbuch1 = " + main.asText());
      return;
    }
    ParentSort = parent["SORTBEGRIFF"].textOrEmpty();
    PriorityText = row["PRIORITAET"].textOrEmpty();
  }
  row.Edit();
  row.set("PRAEFIXBEGRIFF", split.prefix);
  row.set("SORTBEGRIFF", ParentSort + PriorityText + split.rest);
  row.Update();
}

void rebuildKeys(frmServices& form, Refused& refused) {
  session::Session& s = form.session;
  auto rows = s.files.CurrentDB.OpenRecordset("AllWordsOrderByBegriff");
  session::ProgressForm progress(s, session::labelText(s, label::rebuilding_terms) + "...");
  if (rows.EndOfFile()) return;
  const std::int64_t count = countedFromFirst(rows);
  const std::vector<std::string> articles = readArticles(s);
  for (std::int64_t n = 1; !rows.EndOfFile(); rows.MoveNext(), ++n) {
    progress.step(n, count);
    const std::int64_t id = rows["woerterbuch.id_woerterbuch"].asInteger();
    const std::string headword = rows["BEGRIFF"].textOrEmpty();
    try {
      writeKey(s, rows, id);
    } catch (const base::Error& error) {
      refused.add(headword, error);
      rows.CancelUpdate();
    }
    try {
      stripArticle(s, id, articles);
    } catch (const base::Error& error) {
      refused.add(headword, error);
    }
  }
}

// The texts of one entry as they are gathered from the rows of its join.
struct Gathered {
  std::int64_t id = 0;
  std::string Meanings, Examples, Heads, Links;

  void add(const engine::Recordset& row, int projectType) {
    const std::string head = "//" + row["begriff"].textOrEmpty();
    if (Heads.find(head) == std::string::npos) Heads += head;
    if (projectType == 1) {
      addMeaning(row);
    } else if (!row["URLName"].isNull() || !row["URL"].isNull() || !row["URLNotiz"].isNull()) {
      const std::string link = linkPiece(row);
      appendOnce(Links, link, link);
    }
  }

  void addMeaning(const engine::Recordset& row) {
    const engine::Value meaning = row["wortbedeutung"];
    if (!meaning.isNull()) appendOnce(Meanings, "//" + meaning.asText(), meaning.asText());
    if (row["beispiel"].isNull() && row["beispieluebersetzung"].isNull()) return;
    const std::string example = examplePiece(row);
    appendOnce(Examples, example, example);
  }

  std::string text(int projectType) const {
    return (projectType == 1 ? Meanings + Examples : Links) + "//" + Heads;
  }
};

void flush(session::Session& s, const Gathered& gathered) {
  auto row = s.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::dynaset,
                                             {{"lWortID", gathered.id}});
  if (row.EndOfFile()) return;
  row.Edit();
  row.set("METASUCHE", gathered.text(s.project.ProjectType));
  row.Update();
}

void rebuildSearchText(frmServices& form) {
  session::Session& s = form.session;
  auto rows =
      s.files.CurrentDB.OpenRecordset(s.project.ProjectType == 1 ? "ViewBuildMetaSearch" : "ViewBegriffURL");
  session::ProgressForm progress(s, session::labelText(s, label::rebuilding_terms) + "...");
  if (rows.EndOfFile()) return;
  const std::int64_t count = countedFromFirst(rows);
  Gathered gathered;
  for (std::int64_t n = 1; !rows.EndOfFile(); rows.MoveNext(), ++n) {
    progress.step(n, count);
    const std::int64_t id = rows["ID_Woerterbuch"].asInteger();
    if (gathered.id != 0 && gathered.id != id) {
      flush(s, gathered);
      gathered = {};
    }
    gathered.id = id;
    gathered.add(rows, s.project.ProjectType);
    if (n == count) flush(s, gathered);
  }
}

}  // namespace

bool GenerateSortBegriff(frmServices& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (!confirmedTwice(s, dialog::rebuild_sort_terms)) return false;
    Refused refused;
    rebuildKeys(form, refused);
    if (refused.rows > 0) {
      throw base::Error(refused.number, std::to_string(refused.rows) +
                                            " entries keep their former sort key. " + refused.text);
    }
    session::showMessage(s, dialog::sort_terms_rebuilt, platform::box::information);
    return true;
  });
}

bool GenerateMetaSearchIndex(frmServices& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (!confirmedTwice(s, dialog::rebuild_search_text)) return false;
    rebuildSearchText(form);
    session::showMessage(s, dialog::search_text_rebuilt, platform::box::information);
    return true;
  });
}

}  // namespace entry
