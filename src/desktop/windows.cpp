#include "desktop/windows.h"

#include <QApplication>
#include <memory>

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
  std::unique_ptr<Dialog> (*make)(Gate&, QWidget*, platform::Form&);
};

template <class Form, std::unique_ptr<Dialog> (*make)(Gate&, QWidget*, Form&)>
std::unique_ptr<Dialog> made(Gate& gate, QWidget* parent, platform::Form& form) {
  return make(gate, parent, dynamic_cast<Form&>(form));
}

/// Every modal form and its window.
constexpr Kind kinds[] = {
    {"firstent", made<frame::firstent, makeWizard>},
    {"frmAutokat", made<entry::frmAutokat, makeAutokat>},
    {"frmBackup", made<store::frmBackup, makeBackup>},
    {"frmChooseDBType", made<frame::frmChooseDBType, makeChooseType>},
    {"frmConfig", made<frame::frmConfig, makeConfig>},
    {"frmDeleteEigenschaftSach", made<entry::frmDeleteEigenschaftSach, makeDeleteEigenschaftSach>},
    {"frmDeleteEintragEigenschaftSach",
     made<entry::frmDeleteEintragEigenschaftSach, makeDeleteEintragEigenschaftSach>},
    {"frmDeleteEntries", made<entry::frmDeleteEntries, makeDeleteEntries>},
    {"frmEintrag", made<entry::frmEintrag, makeEditor>},
    {"frmEnvironment", made<entry::frmEnvironment, makeEnvironment>},
    {"frmFastEntry", made<entry::frmFastEntry, makeFastEntry>},
    {"frmFilter", made<browse::frmFilter, makeFilter>},
    {"frmHistory", made<entry::frmHistory, makeHistory>},
    {"frmNewKateg", made<entry::frmNewKateg, makeNewKateg>},
    {"frmRelink", made<entry::frmRelink, makeRelink>},
    {"frmSearch", made<browse::frmSearch, makeSearch>},
    {"frmSearchSelectedWord", made<browse::frmSearchSelectedWord, makeLookUp>},
    {"frmServices", made<entry::frmServices, makeServices>},
    {"frmSoundInfo", made<entry::frmSoundInfo, makeSoundInfo>},
    {"frmVollBild", made<entry::frmVollBild, makeVollBild>},
};

}  // namespace

void showForm(Gate& gate, QWidget* parent, platform::Form& form) {
  for (const Kind& kind : kinds) {
    if (form.formName != kind.formName) continue;
    const Gate::Nested nested(gate);
    QWidget* above = QApplication::activeModalWidget();
    kind.make(gate, above != nullptr ? above : parent, form)->run();
    return;
  }
  throw base::Error(5, "The form " + form.formName + " has no window.");
}

}  // namespace desktop
