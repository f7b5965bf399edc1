// Making a new dictionary, through the panels, the wizard and the first entry.

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "base/text.h"
#include "cli/application.h"
#include "entry/frmEintrag.h"
#include "shell/frame/firstent.h"
#include "store/close.h"

namespace cli {

namespace {

constexpr int linkCollectionPanel = 0, dictionaryPanel = 1, blogPanel = 2;
constexpr int saveAndClose = 2;

int panelOf(const Arguments& arguments) {
  const auto type = arguments.number("--type", 1).value_or(arguments.has("--blog") ? 2 : 1);
  if (type > 2) throw UsageError{"--type is 1, a dictionary, or 2, a link collection."};
  if (type == 1 && arguments.has("--blog")) throw UsageError{"A blog is a link collection: --type 2."};
  return type == 1 ? dictionaryPanel : arguments.has("--blog") ? blogPanel : linkCollectionPanel;
}

void requireOptions(const Arguments& arguments, int panel) {
  if (!arguments.has("--description")) throw UsageError{"new needs --description."};
  if (panel == dictionaryPanel && (!arguments.has("--from") || !arguments.has("--to")))
    throw UsageError{"A dictionary needs --from and --to."};
}

std::string sortOrderOf(const Arguments& arguments, const frame::firstent& wizard) {
  const auto caption = arguments.value("--sort");
  if (!caption) return wizard.sortOrders.front();
  for (const std::string& order : wizard.sortOrders)
    if (base::equalsIgnoreCase(order, *caption)) return order;
  std::string known;
  for (const std::string& order : wizard.sortOrders) known += "\n  " + order;
  throw base::Error(5, "There is no sort order \"" + *caption + "\". There are:" + known);
}

std::string languageOf(const frame::firstent& wizard, const std::string& name) {
  for (const frame::Language& language : wizard.languages)
    if (base::equalsIgnoreCase(language.name, name)) return language.name;
  return name;
}

/// Fills the wizard; a failure takes the new file away again, as its cancel button does.
void fillWizard(Application& app, frame::firstent& wizard) {
  const Arguments& arguments = app.arguments;
  try {
    wizard.german = !arguments.has("--english");
    wizard.sortOrder = sortOrderOf(arguments, wizard);
    wizard.sourceLanguage = languageOf(wizard, arguments.value("--from").value_or(""));
    wizard.targetLanguage = languageOf(wizard, arguments.value("--to").value_or(""));
    wizard.description = *arguments.value("--description");
    if (frame::finish(wizard)) return;
    throw base::Error(platform::cancelled, "The settings are not complete.");
  } catch (...) {
    app.console.answerNext(platform::box::answerYes);
    frame::cancel(wizard);
    app.console.forgetNext();
    throw;
  }
}

void typeFirstEntry(const Arguments& arguments, entry::frmEintrag& form) {
  if (!entry::Form_Activate(form)) return;
  if (const auto first = arguments.value("--first")) {
    entry::headwordChanged(form, *first);
    entry::headwordEnter(form);
  }
  entry::Command1(form, saveAndClose);
}

}  // namespace

int runNew(Application& app, const std::vector<std::string>& words) {
  const int panel = panelOf(app.arguments);
  requireOptions(app.arguments, panel);
  if (const auto first = app.arguments.value("--first"); first && base::trim(*first).empty())
    throw UsageError{"--first takes a headword."};
  const std::string path = std::filesystem::absolute(words[0]).lexically_normal().string();
  app.console.answerFileDialog({path});
  app.console.onForm("frmChooseDBType", [&](platform::Form& shown) {
    frame::choosePanel(dynamic_cast<frame::frmChooseDBType&>(shown), panel);
  });
  app.console.onForm("firstent",
                     [&](platform::Form& shown) { fillWizard(app, dynamic_cast<frame::firstent&>(shown)); });
  app.console.onForm("frmEintrag", [&](platform::Form& shown) {
    typeFirstEntry(app.arguments, dynamic_cast<entry::frmEintrag&>(shown));
  });
  if (!frame::mnuNew(app.frame) || !app.session.files.DBOpen) return 1;
  std::cout << app.session.files.paths.real(app.session.files.CurrentDBPath).string() << '\n';
  store::CloseCurrentDB(app.session);
  return 0;
}

}  // namespace cli
