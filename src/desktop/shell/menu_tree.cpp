#include "desktop/shell/menu_tree.h"

namespace desktop {

const std::vector<Menu>& menuTree() {
  static const std::vector<Menu> tree = {
      {"bar",
       {"mnuFile", "mnuEntry", "mnuBearbeiten", "mnuSearch", "mnuViews", "mnuRules", "mnuExtras", "mnuReport",
        "mnuImport", "mnuWindow", "mnuHelp"}},
      {"mnuFile",
       {"mnuNew", "mnuOpen", "mnuMultiOpen", "mnuClose", "-", "mnuCopyDB", "mnuCompact",
        "mnuCompactCurrentDB", "mnurepair", "mnuBackup", "-", "mnuVocariumConfig", "mnuEnvironment", "-",
        "mnuFilearray", "-", "mnuExit"}},
      {"mnuEntry",
       {"mnuNewEntry", "mnuNewSubEntry", "mnuFastEntry", "-", "mnuEditEntry", "mnuRelinkEntry",
        "mnuDeleteEntry", "-", "mnuPrintEntry"}},
      {"mnuPrintEntry", {"mnuPrintSingleEntry"}},
      {"mnuBearbeiten", {"mnuKopieren", "mnuCopyPicture", "-", "mnuCopyRSS", "mnuCopyRSSwithFiles"}},
      {"mnuSearch",
       {"mnuGoto", "mnuSearchEntry", "-", "mnuChoice", "mnuSaveFilter", "-", "mnuFindDoubleEntries",
        "mnuQuerverweise", "-", "mnuHistory"}},
      {"mnuHistory", {"mnuNewHistory", "mnuChangeHistory"}},
      {"mnuViews", {"mnuEditableViews", "mnuNonEditableViews"}},
      {"mnuEditableViews",
       {"mnuViewGeneral", "mnuViewEntriesAttributes", "mnuViewEntriesSubjects", "mnuViewMeaningsAttributes",
        "mnuViewMeaningsSubjects", "mnuViewEntriesMeanings", "mnuViewAllInformation", "mnuViewEntryURL",
        "mnuViewEntriesCrossLinks", "mnuViewEntriesWithoutMeanings"}},
      {"mnuNonEditableViews", {"mnuViewAttributeEntry", "mnuViewFieldEntry", "mnuViewEntryCrosslinks"}},
      {"mnuRules", {"mnuRuleAssistant", "mnuEditRules", "mnuDeleteRules", "mnuCopyRules"}},
      {"mnuExtras",
       {"mnuCatalogues", "mnuServicePrograms", "-", "mnuDeleteEigenschaft", "mnuDeleteSachgebiet",
        "mnuDeleteByProperty", "mnuDeleteBySubject", "mnuDeleteByDate", "-", "mnuInverseTranslation",
        "mnuWordTrainer", "-", "mnuSoundInfo"}},
      {"mnuCatalogues", {"mnuProperties", "mnuSubjects", "mnuAutomatic"}},
      {"mnuServicePrograms",
       {"mnuServicesOverview", "-", "mnuBuildMetaSearchIndex", "mnuBuildSortBegriff", "mnuBuildReportTables",
        "mnuBuildReportTablesDelta"}},
      {"mnuReport",
       {"mnuPrintReport", "mnuPrintToHTML", "mnuPrintToXML", "mnuPrintToFile", "mnuPrintToRSS", "-",
        "mnuStandardReports", "mnuSpecialReports", "-", "mnuProductivity", "mnuStatistic", "-", "mnuExport",
        "mnuExportURL"}},
      {"mnuSpecialReports", {"mnuViewReport"}},
      {"mnuImport",
       {"mnuImportEntry", "mnuImportCategory", "mnuImportSubject", "mnuImportEarlierVocarium", "-",
        "mnuImportExternalDB", "-", "mnuImportFullText", "mnuImportPictureFiles"}},
      {"mnuImportExternalDB",
       {"mnuImportTextFormat",  "mnuImportAccessFormat", "mnuImportdBase3",      "mnuImportdBase4",
        "mnuImportdBase5",      "mnuImportParadox3x",    "mnuImportParadox4x",   "mnuImportParadox5x",
        "mnuImportFoxPro20",    "mnuImportFoxPro25",     "mnuImportFoxPro26",    "mnuImportFoxPro30",
        "mnuImportExcel30",     "mnuImportExcel40",      "mnuImportExcel50",     "mnuImportExcel97",
        "mnuImportLotus123WK1", "mnuImportLotus123WK3",  "mnuImportLotus123WK4", "mnuImportExchange40",
        "mnuImportODBC",        "mnuImportHTML"}},
      {"mnuWindow", {"mnuNewBrowser", "-", "mnuCascade", "mnuTile", "mnuTileVertical"}},
      {"mnuHelp", {"mnuHTMLHelp", "mnuHelpContent", "mnuVocariumImWWW", "-", "mnuAbout"}},
      {"mnuPopUpEditAddDelete",
       {"mnuPopUpEdit", "mnuPopUpAdd", "mnuPopUpAddFirstLevelEntry", "-", "mnuPopUpRelink", "mnuPopUpDelete",
        "-", "mnuPopUpPrintEntry"}},
  };
  return tree;
}

const std::vector<Shortcut>& menuShortcuts() {
  static const std::vector<Shortcut> keys = {
      {"mnuOpen", "Ctrl+O"},
      {"mnuClose", "Ctrl+W"},
      {"mnuExit", "Ctrl+Q"},
      {"mnuNewEntry", "Ctrl+N"},
      {"mnuNewSubEntry", "Ctrl+U"},
      {"mnuEditEntry", "Ctrl+E"},
      {"mnuFastEntry", "Ctrl+Shift+N"},
      {"mnuGoto", "Ctrl+G"},
      {"mnuSearchEntry", "Ctrl+F"},
      {"mnuChoice", "Ctrl+L"},
      {"mnuBackup", "Ctrl+B"},
      {"mnuHTMLHelp", "F1"},
      {"mnuKopieren", "Ctrl+Shift+C"},
  };
  return keys;
}

}  // namespace desktop
