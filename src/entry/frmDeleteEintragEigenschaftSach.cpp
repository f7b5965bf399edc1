#include "entry/frmDeleteEintragEigenschaftSach.h"

#include <string>

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"

namespace entry {
namespace {

std::string statementOf(bool properties, std::int64_t item) {
  return std::string(properties ? "delete * from woerterbuch where id_woerterbuch in (select id_woerterbuch "
                                  "from relwoertwkat where  id_wkategorie = "
                                : "delete * from woerterbuch where id_woerterbuch in (select id_woerterbuch "
                                  "from relwoertSachgebiet where  id_wsachgebiet = ") +
         std::to_string(item) + ")";
}

}  // namespace

bool Form_Load(frmDeleteEintragEigenschaftSach& form) {
  return session::guard(form.session, form.formName,
                        [&] { form.lists = readChoice(form.session, form.CatalogueDeleteMode); });
}

bool deleteEntries(frmDeleteEintragEigenschaftSach& form) {
  session::Session& s = form.session;
  form.deleted = 0;
  if (form.lists.chosen.empty()) return false;
  return session::guard(s, form.formName, [&] {
    if (!session::confirmed(s, form.CatalogueDeleteMode ? dialog::delete_entries_by_property
                                                        : dialog::delete_entries_by_subject))
      return false;
    {
      const session::Busy busy(s, session::labelText(s, label::deleting_entry));
      for (const CatalogueItem& item : form.lists.chosen) {
        form.deleted += s.files.CurrentDB.Execute(statementOf(form.CatalogueDeleteMode, item.id));
        s.shell.pendingRefresh = true;
      }
    }
    session::showBox(s, session::dialogText(s, dialog::entries_deleted) + std::to_string(form.deleted),
                     platform::box::information);
    return true;
  });
}

}  // namespace entry
