// filter: the browser's list under a filter, as id, headword and file.

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>

#include "base/text.h"
#include "browse/frmFilter.h"
#include "cli/application.h"

namespace cli {

namespace {

using browse::Criterion;

struct Kind {
  const char* name;
  Criterion having, lacking;
};
constexpr std::array kinds = {
    Kind{"note", Criterion::hasNote, Criterion::hasNoNote},
    Kind{"sound", Criterion::hasSound, Criterion::hasNoSound},
    Kind{"picture", Criterion::hasPicture, Criterion::hasNoPicture},
    Kind{"attachment", Criterion::hasAttachment, Criterion::hasNoAttachment},
    Kind{"url", Criterion::hasURL, Criterion::hasNoURL},
    Kind{"crossreference", Criterion::hasCrossReference, Criterion::hasNoCrossReference}};

/// The boxes that the options tick. Throws UsageError for a kind that there is not.
std::vector<Criterion> criteriaOf(const Arguments& arguments) {
  std::vector<Criterion> criteria;
  for (const Option& option : arguments.options) {
    if (option.name == "--in-work") criteria.push_back(Criterion::inWork);
    if (option.name != "--having" && option.name != "--lacking") continue;
    for (const std::string& name : base::split(option.value, ",")) {
      const auto* kind = std::ranges::find_if(kinds, [&](const Kind& k) { return name == k.name; });
      if (kind == kinds.end()) throw UsageError{option.name + " does not know " + name + "."};
      const bool having = option.name == "--having";
      if (std::ranges::count(criteria, having ? kind->lacking : kind->having) > 0)
        throw UsageError{"--having and --lacking " + name + " exclude each other."};
      criteria.push_back(having ? kind->having : kind->lacking);
    }
  }
  return criteria;
}

/// A date as the dialog's boxes take it. Throws UsageError.
std::string dateOf(const Arguments& arguments, const char* option) {
  const auto text = arguments.value(option);
  if (!text) return "";
  const auto date = base::DateTime::fromText(*text);
  if (!date) throw UsageError{std::string(option) + " takes a date, day.month.year."};
  return base::formatDate(*date, "dd.mm.yyyy");
}

void choose(std::vector<browse::ListItem>& items, const std::string& name) {
  const auto found = std::ranges::find_if(
      items, [&](const browse::ListItem& item) { return base::equalsIgnoreCase(item.name, name); });
  if (found == items.end()) throw base::Error(3167, "The dictionary does not know " + name + ".");
  found->selected = true;
}

void fillDialog(const Arguments& arguments, browse::frmFilter& dialog) {
  browse::Form_Activate(dialog);
  for (const Option& option : arguments.options) {
    if (option.name == "--property") choose(dialog.properties, option.value);
    if (option.name == "--subject") choose(dialog.subjects, option.value);
  }
  if (arguments.has("--meaning-level")) {
    if (!dialog.meaningLevelShown) throw base::Error(5, "A link collection has no meanings.");
    dialog.meaningLevel = true;
  }
  for (const Criterion criterion : criteriaOf(arguments)) browse::tick(dialog, criterion, true);
  dialog.dateFrom = dateOf(arguments, "--from");
  dialog.dateTo = dateOf(arguments, "--to");
}

void printList(browse::frmWoerter& browser) {
  auto& rows = browser.rsWoerter;
  if (rows.RecordCount() == 0) return;
  for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext())
    if (browse::onList(browser))
      std::cout << rows["woerterbuch.id_woerterbuch"].asInteger() << '\t' << rows["BEGRIFF"].textOrEmpty()
                << '\t' << rows["DATABASENAME"].textOrEmpty() << '\n';
}

}  // namespace

int runFilter(Application& app, const std::vector<std::string>& words) {
  criteriaOf(app.arguments);
  dateOf(app.arguments, "--from");
  dateOf(app.arguments, "--to");
  return withDictionary(app, words[0], [&] {
    browse::frmWoerter& browser = *app.frame.browsers.front().form;
    browse::frmFilter& dialog = app.frame.filter;
    fillDialog(app.arguments, dialog);
    if (!browse::confirmFilter(dialog)) return false;
    browse::refreshAfterFilter(dialog, browser);
    if (const auto letter = app.arguments.value("--letter")) {
      const auto captions = browse::GenerateAlphabetCommandCaption(browser);
      const auto caption = std::ranges::find_if(
          captions, [&](const std::string& c) { return base::equalsIgnoreCase(c, *letter); });
      if (caption == captions.end()) throw base::Error(3167, "There is no letter " + *letter + ".");
      browse::pressLetter(browser, *caption);
    }
    printList(browser);
    bool saved = true;
    if (const auto target = app.arguments.value("--save-as")) {
      std::cout.flush();
      app.console.answerFileDialog({std::filesystem::absolute(*target).lexically_normal().string()});
      saved = frame::mnuSaveFilter(app.frame);
    }
    browse::resetFilter(dialog);
    return saved;
  });
}

}  // namespace cli
