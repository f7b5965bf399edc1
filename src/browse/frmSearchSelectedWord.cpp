#include "browse/frmSearchSelectedWord.h"

#include "base/text.h"
#include "browse/dictionary_in_use.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "shell/session/texts.h"
#include "store/rows.h"

namespace browse {

namespace {

constexpr auto view = session::View::frmSearch;

/// What stands before and behind the word in each list's statement.
struct LookupStatement {
  const char *head, *middle, *tail;
  int caption;
};
constexpr std::array<LookupStatement, 3> statements{
    {{"Select * from Woerterbuch where metasuche like '*", "*'  or bemerkung like '*", "*' order by begriff",
      label::lookup_in_texts},
     {"Select * from Woerterbuch where begriff like '", "' or bemerkung like '", "'order by begriff",
      label::lookup_exact},
     {"Select * from Woerterbuch where begriff like '*", "*' or bemerkung like '*", "*' order by begriff",
      label::lookup_contains}}};

void fill(session::Session& s, WordList& list, const LookupStatement& statement, const std::string& word) {
  list.clear();
  auto scratch = s.files.CurrentDB.queryDef("SQLTemp");
  const std::string sql =
      std::string(statement.head) + textMark + statement.middle + textMark + statement.tail;
  scratch.setScratchSQL(rewritten(s, sql, view, word));
  auto rows = scratch.OpenRecordset(engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext())
    list.insert(list.size(), rows["begriff"].textOrEmpty(), store::numberOf(rows["id_woerterbuch"]),
                store::numberOf(rows["id_woerterbuch1"]), rows["databasename"].textOrEmpty());
}

}  // namespace

bool Form_Load(frmSearchSelectedWord& form) {
  auto& s = form.session;
  form.visible = true;
  form.word = form.Label1 = base::trim(s.search.SelectedWord);
  form.jumpEnabled = false;
  form.target = {};
  for (std::size_t n = 0; n < statements.size(); ++n) {
    form.lists[n].clear();
    form.listCaptions[n] = session::labelText(s, statements[n].caption) + ":";
  }
  return session::guard(s, form.formName, [&] {
    HierarchischeObjekteAnzeigen(s, form.hierarchy, 0, 0, view);
    if (form.word.empty()) return;
    const session::Busy busy(s, session::labelText(s, label::searching));
    for (std::size_t n = 0; n < statements.size(); ++n) fill(s, form.lists[n], statements[n], form.word);
  });
}

bool selectRow(frmSearchSelectedWord& form, std::size_t list, std::size_t row) {
  auto& s = form.session;
  return session::guard(s, form.formName, [&] {
    if (list >= form.lists.size() || row >= form.lists[list].size()) return;
    WordList& words = form.lists[list];
    words.selected = static_cast<int>(row);
    const std::int64_t id = words.List1[row], main = words.List3[row];
    form.target = {id, main, id == main ? 1 : 2, words.List4[row]};
    form.Label1 = words.List2[row] + " (" + words.List4[row] + ")";
    useDictionary(s, words.List4[row]);
    HierarchischeObjekteAnzeigen(s, form.hierarchy, id, main, view);
    form.jumpEnabled = true;
  });
}

bool jump(frmSearchSelectedWord& form) {
  if (!form.jumpEnabled) return true;
  return session::guard(form.session, form.formName, [&] {
    closeLookup(form);
    setJump(form.session, form.target);
    form.session.entry.EntryEditMode = 0;
    if (form.pressCommand6) form.pressCommand6();
  });
}

void closeLookup(frmSearchSelectedWord& form) {
  form.visible = false;
}

}  // namespace browse
