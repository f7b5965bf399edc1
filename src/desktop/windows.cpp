#include "desktop/windows.h"

#include <QApplication>

#include "base/error.h"
#include "desktop/browse/filter_window.h"
#include "desktop/browse/search_window.h"
#include "desktop/entry/catalogue_windows.h"
#include "desktop/entry/editor.h"
#include "desktop/entry/entry_windows.h"
#include "desktop/entry/environment_window.h"
#include "desktop/entry/media_windows.h"
#include "desktop/kit/dialog.h"
#include "desktop/shell/choose_type.h"
#include "desktop/shell/config_window.h"
#include "desktop/shell/wizard.h"
#include "desktop/store/backup_window.h"

namespace desktop {
namespace {

struct Kind {
  const char* formName;
  void (*build)(Dialog&, platform::Form&);
};

template <class Form, void (*build)(Dialog&, Form&)>
void built(Dialog& dialog, platform::Form& form) {
  build(dialog, dynamic_cast<Form&>(form));
}

/// Every modal form and its window.
constexpr Kind kinds[] = {
    {"firstent", built<frame::firstent, buildWizard>},
    {"frmAutokat", built<entry::frmAutokat, buildAutokat>},
    {"frmBackup", built<store::frmBackup, buildBackup>},
    {"frmChooseDBType", built<frame::frmChooseDBType, buildChooseType>},
    {"frmConfig", built<frame::frmConfig, buildConfig>},
    {"frmDeleteEigenschaftSach", built<entry::frmDeleteEigenschaftSach, buildDeleteEigenschaftSach>},
    {"frmDeleteEintragEigenschaftSach",
     built<entry::frmDeleteEintragEigenschaftSach, buildDeleteEintragEigenschaftSach>},
    {"frmDeleteEntries", built<entry::frmDeleteEntries, buildDeleteEntries>},
    {"frmEintrag", built<entry::frmEintrag, buildEditor>},
    {"frmEnvironment", built<entry::frmEnvironment, buildEnvironment>},
    {"frmFastEntry", built<entry::frmFastEntry, buildFastEntry>},
    {"frmFilter", built<browse::frmFilter, buildFilter>},
    {"frmHistory", built<entry::frmHistory, buildHistory>},
    {"frmNewKateg", built<entry::frmNewKateg, buildNewKateg>},
    {"frmRelink", built<entry::frmRelink, buildRelink>},
    {"frmSearch", built<browse::frmSearch, buildSearch>},
    {"frmSearchSelectedWord", built<browse::frmSearchSelectedWord, buildLookUp>},
    {"frmServices", built<entry::frmServices, buildServices>},
    {"frmSoundInfo", built<entry::frmSoundInfo, buildSoundInfo>},
    {"frmVollBild", built<entry::frmVollBild, buildVollBild>},
};

}  // namespace

void showForm(Gate& gate, QWidget* parent, platform::Form& form) {
  for (const Kind& kind : kinds) {
    if (form.formName != kind.formName) continue;
    const Gate::Nested nested(gate);
    QWidget* above = QApplication::activeModalWidget();
    Dialog dialog(gate, above != nullptr ? above : parent, form.formName);
    kind.build(dialog, form);
    dialog.run();
    return;
  }
  throw base::Error(5, "The form " + form.formName + " has no window.");
}

}  // namespace desktop
