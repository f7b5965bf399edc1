#include "entry/phonetic.h"

#include "base/text.h"

namespace entry {

std::vector<std::string> phoneticCharacters(session::Session& s) {
  auto row = s.files.CurrentDB.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  if (row.EndOfFile()) return {};
  const bool ipaPhon = base::equalsIgnoreCase(row["Lautschrift"].textOrEmpty(), "IPAPHON");
  const std::string stored =
      row[ipaPhon ? "LautschriftZeichenIpaPhon" : "LautschriftZeichenArialUnicode"].textOrEmpty();
  std::vector<std::string> characters;
  for (std::string& each : base::split(stored, " "))
    if (!each.empty()) characters.push_back(std::move(each));
  return characters;
}

}  // namespace entry
