// settings: the fields of the settings dialog, shown or set.

#include <iostream>

#include "base/text.h"
#include "cli/application.h"
#include "cli/editing.h"
#include "shell/frame/frmConfig.h"

namespace cli {
namespace {

void print(const frame::frmConfig& form, const std::string& name) {
  std::string text = base::replaceAll(frame::fieldText(form, name), "\\", "\\\\");
  text = base::replaceAll(base::replaceAll(text, "\t", "\\t"), "\n", "\\n");
  std::cout << frame::configFields()[frame::configField(name)].name << '\t' << text << '\n';
}

void printAll(const frame::frmConfig& form) {
  for (const frame::ConfigField& field : frame::configFields()) print(form, field.name);
}

}  // namespace

int runSettings(Application& app, const std::vector<std::string>& words) {
  return withDictionary(app, words[0], [&] {
    frame::frmConfig form(app.session, app.frame.filter);
    required(frame::Form_Load(form));
    bool changes = false;
    for (std::size_t n = 1; n < words.size(); ++n) {
      const std::size_t equals = words[n].find('=');
      frame::configField(words[n].substr(0, equals));  // a wrong name changes and prints nothing
      changes = changes || equals != std::string::npos;
    }
    for (std::size_t n = 1; n < words.size(); ++n) {
      const std::size_t equals = words[n].find('=');
      if (equals != std::string::npos)
        frame::setFieldText(form, words[n].substr(0, equals), words[n].substr(equals + 1));
    }
    if (changes && !frame::saveConfig(form)) return false;
    if (words.size() == 1) printAll(form);
    for (std::size_t n = 1; n < words.size(); ++n)
      if (words[n].find('=') == std::string::npos) print(form, words[n]);
    return true;
  });
}

}  // namespace cli
