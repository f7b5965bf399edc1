#include "shell/session/routines.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <utility>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "shell/session/messages.h"
#include "shell/session/start.h"

namespace session {
namespace {

namespace fs = std::filesystem;

struct OutputKind {
  int kind;
  const char* label;
  const char* extension;
};
constexpr std::array<OutputKind, 4> outputKinds{
    {{2, "XML-File", "xml"}, {3, "HTML-File", "htm"}, {4, "STD-File", "std"}, {5, "RSS-File", "rss"}}};

/// Where a file is written before it takes its name.
fs::path besides(const fs::path& path) {
  fs::path sibling = path;
  sibling += ".new";
  return sibling;
}

void takeName(const fs::path& written, const fs::path& path) {
  std::error_code failed;
  fs::rename(written, path, failed);
  if (!failed) return;
  std::error_code ignored;
  fs::remove(written, ignored);
  throw fileError(failed, path.string());
}

}  // namespace

std::string& EscapeSQLText(std::string& text) {
  text = base::replaceAll(text, "'", "''");
  return text;
}

std::string escapedSQLText(std::string_view text) {
  std::string copy(text);
  return EscapeSQLText(copy);
}

base::Error fileError(std::error_code code, const std::string& path) {
  if (code == std::errc::no_such_file_or_directory) return {53, "File not found: " + path};
  // A copy that the standard library could not finish comes as an input/output error, whatever the cause.
  for (const int full : {ENOSPC, EDQUOT, EFBIG, EIO})
    if (code == std::error_condition(full, std::generic_category()))
      return {61, "The disk is full or fails: " + path};
  if (code == std::errc::permission_denied || code == std::errc::operation_not_permitted ||
      code == std::errc::read_only_file_system)
    return {70, "Permission denied: " + path};
  return {75, path + ": " + code.message()};
}

bool CopyFileTo(const Session& s, const std::string& source, const std::string& target, bool overwrite) {
  const fs::path from = s.files.paths.real(source);
  const fs::path to = s.files.paths.real(target);
  std::error_code failed;
  if (!overwrite && fs::exists(to, failed)) return false;
  const fs::path written = besides(to);
  fs::copy_file(from, written, fs::copy_options::overwrite_existing, failed);
  if (failed) {
    std::error_code ignored;
    fs::remove(written, ignored);
    const bool readable = std::ifstream(from, std::ios::binary).is_open();
    throw fileError(failed, readable ? to.string() : from.string());
  }
  takeName(written, to);
  return true;
}

void writeWhole(const std::filesystem::path& path, const std::string& bytes) {
  const fs::path written = besides(path);
  errno = 0;
  std::ofstream out(written, std::ios::binary | std::ios::trunc);
  out << bytes;
  out.close();
  if (!out) {
    const std::error_code failed(errno == 0 ? EIO : errno, std::generic_category());
    std::error_code ignored;
    fs::remove(written, ignored);
    throw fileError(failed, path.string());
  }
  takeName(written, path);
}

std::string BuildFileFilter(int kind) {
  const auto found = std::ranges::find(outputKinds, kind, &OutputKind::kind);
  if (found == outputKinds.end())
    throw base::Error(engine::errors::invalidArgument,
                      "No file is written for output " + std::to_string(kind) + ".");
  const std::string pattern = std::string("*.") + found->extension;
  return std::string(found->label) + "s (" + pattern + ")|" + pattern;
}

std::string BuildFileURL(std::string_view path) {
  if (path.starts_with('/')) path.remove_prefix(1);
  return "file:///" + base::replaceAll(path, " ", "%20");
}

void ShowHelpTopic(Session& s, const std::string& topic) {
  const std::string folder = s.texts.UILanguage == 2 ? "help/en/" : "help/de/";
  std::string page = topic.empty() ? "" : shippedPath(s, folder + topic + ".md");
  if (page.empty()) page = shippedPath(s, folder + "index.md");
  if (page.empty()) throw base::Error(53, "The help is not installed beside the program.");
  s.desk.outside.open(page);
}

std::string GetDefaultPrinter(Session& s) {
  const std::string device = s.desk.outside.defaultPrinter();
  if (device.find(',') == std::string::npos)
    showMessage(s, dialog::no_default_printer, platform::box::exclamation);
  return base::trim(device);
}

int registerForm(Session& s, std::string name, std::function<void()> unload) {
  s.shell.openForms.push_back({++s.shell.lastFormId, std::move(name), std::move(unload)});
  return s.shell.lastFormId;
}

void forgetForm(Session& s, int id) {
  std::erase_if(s.shell.openForms, [&](const OpenForm& form) { return form.id == id; });
}

void CloseAllForms(Session& s) {
  while (!s.shell.openForms.empty()) {
    const OpenForm form = std::move(s.shell.openForms.back());
    s.shell.openForms.pop_back();
    if (form.unload) form.unload();
  }
}

void CloseOpenForms(Session& s, std::string_view name) {
  std::vector<OpenForm>& forms = s.shell.openForms;
  const auto named = [&](const OpenForm& form) { return form.name == name; };
  for (auto last = std::find_if(forms.rbegin(), forms.rend(), named); last != forms.rend();
       last = std::find_if(forms.rbegin(), forms.rend(), named)) {
    const OpenForm form = std::move(*last);
    forgetForm(s, form.id);
    if (form.unload) form.unload();
  }
}

}  // namespace session
