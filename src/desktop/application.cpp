#include "desktop/application.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include "base/error.h"
#include "catalogue/label.h"
#include "desktop/kit/text.h"
#include "desktop/shell/help_window.h"
#include "desktop/shell/main_window.h"
#include "desktop/windows.h"
#include "shell/session/errors.h"
#include "shell/session/texts.h"
#include "store/close.h"

namespace desktop {

Application::Application(const std::string& programPath, bool english)
    : session(desk.desk()), frame(session), gate(session) {
  desk.modal = [this](platform::Form& form) { showForm(gate, desk.frame, form); };
  if (!frame::frmStart_Load(session, programPath) || !frame::frmMDI_Initialize(frame) ||
      !frame::frmMDI_Load(frame) || (english && !frame::chooseLanguage(frame, 2)))
    throw base::Error(platform::cancelled, "The program could not start.");
  desk.help = [this](const std::string& page) { return showHelpPage(session, desk.frame, page); };
  const auto text = [this](int key) { return qt(session::labelText(session, key)); };
  desk.yes = text(label::yes);
  desk.no = text(label::no);
  desk.ok = text(label::ok);
  desk.cancel = text(label::cancel);
  desk.readOnly = text(label::read_only);
  // The toolkit speaks English by itself; where its translation is missing, its dialogs go on to.
  if (session.texts.UILanguage == 1 &&
      toolkitTexts_.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&toolkitTexts_);
  window = std::make_unique<MainWindow>(*this);
}

Application::~Application() {
  window.reset();
  if (session.files.OpenDBCount > 0)
    session::guard(session, "frmMDI", [this] { store::CloseCurrentDB(session); });
}

void Application::showFrame() {
  window->show();
  gate.run("frmMDI", [this] { frame::frmMDI_Activate(frame); });
}

}  // namespace desktop
