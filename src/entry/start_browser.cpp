#include "entry/start_browser.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "store/files.h"

namespace entry {
namespace {

// The application for a file by what stands behind the last point of its name; empty where none is entered.
std::string applicationFor(session::Session& s, const std::string& file) {
  const std::string type = base::trim(file.substr(file.find_last_of('.') + 1));
  auto rows = s.files.CurrentDB.OpenRecordset("select * from Umgebung", engine::RecordsetKind::snapshot);
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    if (base::equalsIgnoreCase(rows["Dateityp"].textOrEmpty(), type))
      return base::trim(rows["Anwendung"].textOrEmpty());
  }
  return {};
}

// The argument as an application takes it: what would end it on a command line, or means something else in
// an address, is written by its code.
std::string fileArgument(std::string_view path) {
  constexpr std::string_view reserved = " \"'%#?\\";
  std::string argument = "FILE:///";
  for (const char c : path.substr(path.starts_with('/') ? 1 : 0)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= ' ' && byte != 0x7F && reserved.find(c) == std::string_view::npos) {
      argument += c;
      continue;
    }
    std::array<char, 4> code{};
    std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(byte));
    argument += code.data();
  }
  return argument;
}

bool openAttachment(session::Session& s, const std::string& text) {
  const std::string path = attachmentPath(s, text);
  if (base::trim(text).empty() || !s.files.paths.exists(path)) {
    session::showBox(s, session::dialogText(s, dialog::file_missing) + " " + path,
                     platform::box::exclamation);
    return false;
  }
  const std::string application = applicationFor(s, base::fileName(path));
  if (application.empty())
    s.desk.outside.open(fileArgument(path));
  else
    s.desk.outside.start(application + " " + fileArgument(path));
  return true;
}

bool openLink(session::Session& s, const std::string& text) {
  const std::string address = base::trim(text);
  if (address.empty()) return false;
  // The desktop takes an address without its protocol for the name of a file.
  s.desk.outside.open(base::lower(address).starts_with("www.") ? "http://" + address : address);
  return true;
}

}  // namespace

bool liesInDictionaryFolder(const std::string& attachment) {
  return attachment.find_first_of("/\\") == std::string::npos;
}

std::string attachmentPath(const session::Session& s, const std::string& attachment) {
  if (!liesInDictionaryFolder(attachment)) return s.files.paths.real(attachment).string();
  return s.files.paths.real((store::mediaFolder(s, s.files.CurrentDBPath) / attachment).string()).string();
}

bool UserControl_Click(session::Session& s, const std::string& holder, Opens what, const std::string& text) {
  return session::guard(s, holder, [&] {
    switch (what) {
      case Opens::webSite:
        s.desk.outside.open(session::labelText(s, label::web_site_address));
        return true;
      case Opens::link:
        return openLink(s, text);
      case Opens::attachment:
        return openAttachment(s, text);
    }
    return false;
  });
}

}  // namespace entry
