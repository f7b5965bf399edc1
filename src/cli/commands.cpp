// The table of all commands.

#include "cli/application.h"

namespace cli {

const std::vector<Command>& commands() {
  static const std::vector<Command> all = {
      {"new",
       "DICT --from L --to L --description T [--type 1|2] [--blog] [--english] [--sort CAPTION] [--first "
       "HEADWORD]",
       {"--blog", "--english"},
       {"--from", "--to", "--description", "--type", "--sort", "--first"},
       1,
       1,
       runNew},
      {"entry add",
       "DICT HEADWORD [--under ID] [--pronunciation T] [--note T] [--meaning T [--example T [--translation "
       "T]]...]...",
       {},
       {"--under", "--pronunciation", "--note", "--meaning", "--example", "--translation"},
       2,
       2,
       runEntryAdd},
      {"entry show", "DICT ID", {}, {}, 2, 2, runEntryShow},
      {"entry delete", "DICT ID", {}, {}, 2, 2, runEntryDelete},
      {"entry edit",
       "DICT ID [--headword T] [--pronunciation T] [--note T]",
       {},
       {"--headword", "--pronunciation", "--note"},
       2,
       2,
       runEntryEdit},
      {"entry relink", "DICT ID --to ID | --main", {"--main"}, {"--to"}, 2, 2, runEntryRelink},
      {"meaning add", "DICT ID TEXT", {}, {}, 3, 3, runMeaningAdd},
      {"meaning delete", "DICT MEANING-ID", {}, {}, 2, 2, runMeaningDelete},
      {"example add", "DICT MEANING-ID TEXT [--translation T]", {}, {"--translation"}, 3, 3, runExampleAdd},
      {"example delete", "DICT EXAMPLE-ID", {}, {}, 2, 2, runExampleDelete},
      {"property add",
       "DICT ID NAME [--value T] [--meaning ID]",
       {},
       {"--value", "--meaning"},
       3,
       3,
       runPropertyAdd},
      {"property remove", "DICT ID NAME [--meaning ID]", {}, {"--meaning"}, 3, 3, runPropertyRemove},
      {"subject add", "DICT ID NAME [--meaning ID]", {}, {"--meaning"}, 3, 3, runSubjectAdd},
      {"subject remove", "DICT ID NAME [--meaning ID]", {}, {"--meaning"}, 3, 3, runSubjectRemove},
      {"history", "DICT new|changed [--days N]", {}, {"--days"}, 2, 2, runHistory},
      {"delete-by-date",
       "DICT --from D --to D [--changed]",
       {"--changed"},
       {"--from", "--to"},
       1,
       1,
       runDeleteByDate},
      {"list", "DICT [--page N] [--page-size N]", {}, {"--page", "--page-size"}, 1, 1, runList},
      {"sql", "DICT STATEMENT|QUERY [--ado] [--param NAME=VALUE]...", {"--ado"}, {"--param"}, 2, 2, runSql},
      {"queries", "DICT", {}, {}, 1, 1, runQueries},
      {"import-text",
       "DICT FILE --headword COL [--meaning COL] [--note COL] [--url COL] [--url-name COL] [--url-note COL]"
       " [--separator S] [--no-header] [--charset NAME]",
       {"--no-header"},
       {"--headword", "--meaning", "--note", "--url", "--url-name", "--url-note", "--separator", "--charset"},
       2,
       2,
       runImportText},
      {"publish",
       "DICT html OUT [--per-letter] [--per-page N] [--without OPTION,...]",
       {"--per-letter"},
       {"--per-page", "--without"},
       3,
       3,
       runPublish},
      {"rebuild", "DICT sort|search|flat [--delta]", {"--delta"}, {}, 2, 2, runRebuild},
      {"compact", "DICT", {}, {}, 1, 1, runCompact},
      {"repair", "DICT", {}, {}, 1, 1, runRepair},
      {"copy", "DICT TARGET", {}, {}, 2, 2, runCopy},
      {"check", "DICT", {}, {}, 1, 1, runCheck}};
  return all;
}

}  // namespace cli
