// The read-only grids of the entry display.

#include "browse/display.h"
#include "catalogue/label.h"
#include "shell/session/texts.h"

namespace browse {

namespace {

Grid empty(const session::Session& s, const std::vector<int>& captions) {
  Grid grid;
  for (const int caption : captions) grid.captions.push_back(session::labelText(s, caption));
  return grid;
}

/// Names or, where the dictionary wants them, abbreviations.
const std::string& shownName(const session::Session& s, const Assignment& assignment) {
  return s.project.UseAbbreviations && !assignment.abbreviation.empty() ? assignment.abbreviation
                                                                        : assignment.name;
}

std::string rating(std::int64_t points) {
  return points > 0 ? std::to_string(points) : "";
}

}  // namespace

Grid MSHFlexGridKategorienDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::property, label::property_value});
  for (const Assignment& each : entry.properties) grid.rows.push_back({shownName(s, each), each.value});
  return grid;
}

Grid MSHFlexGridSachgebieteDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::subject});
  for (const Assignment& each : entry.subjects) grid.rows.push_back({shownName(s, each)});
  return grid;
}

Grid MSHFlexGridWortbedBspDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::meaning, label::example, label::example_translation});
  for (const MeaningExample& each : entry.meanings)
    grid.rows.push_back({each.Wortbedeutung, each.Beispiel, each.Beispieluebersetzung});
  return grid;
}

Grid mshflexgridWortbedWKatDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::meaning, label::property, label::property_value});
  for (const Assignment& each : entry.meaningProperties)
    grid.rows.push_back({each.meaning, shownName(s, each), each.value});
  return grid;
}

Grid MSHFlexGridWortbedSachgebietDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::meaning, label::subject});
  for (const Assignment& each : entry.meaningSubjects)
    grid.rows.push_back({each.meaning, shownName(s, each)});
  return grid;
}

Grid MSHFlexGridURLDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::link_name, label::link_address, label::link_note, label::link_rating});
  for (const WebLink& each : entry.links)
    grid.rows.push_back({each.URLNAME, each.URL, each.URLNOTIZ, rating(each.RATING)});
  return grid;
}

Grid MSHFlexGridQuerverweisDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::cross_reference});
  for (const CrossReference& each : entry.crossReferences) grid.rows.push_back({each.Querverweis});
  return grid;
}

Grid DBGridAttachmentDesign(const session::Session& s, const EntryAggregate& entry) {
  Grid grid = empty(s, {label::attachment_name, label::attachment_file, label::attachment_note});
  for (const AttachedFile& each : entry.attachments)
    grid.rows.push_back({each.AttachmentName, each.Attachment, each.AttachmentNotiz});
  return grid;
}

}  // namespace browse
