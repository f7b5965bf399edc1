#include "publish/webpath.h"

#include <filesystem>

#include "base/error.h"
#include "base/paths.h"
#include "base/text.h"
#include "shell/session/start.h"

namespace publish {

namespace fs = std::filesystem;

namespace {

std::string withSlashes(std::string_view path) {
  return base::replaceAll(path, "\\", "/");
}

/// What stands between the publication's root and the file's name.
std::string folderOfKind(WebPathKind kind, std::string_view dictionaryPath) {
  switch (kind) {
    case WebPathKind::output:
      return "";
    case WebPathKind::styleSheet:
      return "Stylesheets/";
    case WebPathKind::media:
      return base::fileName(base::withoutExtension4(dictionaryPath)) + "/";
    case WebPathKind::image:
      return "Images/";
  }
  return "";
}

/// "Stylesheets/vocarium1.css" beside the dictionary's media, else in the program's folder.
SupportFile supportFile(const session::Session& session, std::string_view folder, std::string_view name,
                        std::string_view targetName, const std::string& outputFolder) {
  const std::string relative = std::string(folder) + "/" + std::string(name);
  const std::string beside = base::withoutExtension4(session.files.CurrentDBPath) + "/" + relative;
  SupportFile file;
  file.target = outputFolder + "/" + std::string(folder) + "/" + std::string(targetName);
  if (session.files.paths.exists(beside))
    file.source = session.files.paths.real(beside).string();
  else
    file.source = session::shippedPath(session, relative);
  return file;
}

void copyUnlessThere(const SupportFile& file) {
  if (file.source.empty() || !fs::exists(file.source) || fs::exists(file.target)) return;
  fs::create_directories(fs::path(file.target).parent_path());
  fs::copy_file(file.source, file.target);
}

}  // namespace

std::string GetWebPath(const PublishSettings& settings, std::string_view path, WebPathKind kind,
                       std::string_view dictionaryPath) {
  const std::string local = withSlashes(path), name = base::fileName(local),
                    folder = folderOfKind(kind, dictionaryPath);
  std::string address;
  if (settings.UseRelativPath) address = folder + name;
  if (settings.UseWebsitePath) address = settings.AutorWebURL + "/" + folder + name;
  if (settings.UseAbsolutFilePath)
    address =
        local.find("file:///") != std::string::npos ? local : "file:///" + base::folderOf(local) + "/" + name;
  return base::replaceAll(withSlashes(address), " ", "%20");
}

SupportFile styleSheetFor(const session::Session& session, const std::string& outputFolder) {
  return supportFile(session, "Stylesheets", "vocarium1.css", "vocarium1.css", outputFolder);
}

SupportFile imageFor(const session::Session& session, std::string_view name, std::string_view targetName,
                     const std::string& outputFolder) {
  return supportFile(session, "Images", name, targetName, outputFolder);
}

void copySupportFiles(const frmPrint& form, const std::string& outputFolder) try {
  const auto& session = form.session;
  copyUnlessThere(styleSheetFor(session, outputFolder));
  copyUnlessThere(imageFor(session, "VC_logo.jpg", "VC_logo.jpg", outputFolder));
  copyUnlessThere(imageFor(session, "Rating.gif", "Rating.gif", outputFolder));
  copyUnlessThere(imageFor(session, "neu.gif", "neu.gif", outputFolder));
  const std::string media = base::withoutExtension4(session.files.CurrentDBPath);
  if (!session.files.paths.exists(media)) return;
  const fs::path source = session.files.paths.real(media),
                 target = fs::path(outputFolder) / source.filename();
  if (fs::exists(target) && fs::equivalent(source, target)) return;
  fs::copy(source, target, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
} catch (const fs::filesystem_error& failure) {
  throw base::Error(
      70, std::string("The files that belong to the publication could not be copied: ") + failure.what());
}

}  // namespace publish
