#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "shell/session/session.h"

namespace entry {

/// The headword's column takes so many characters.
inline constexpr std::size_t longestHeadword = 250;

/// One entry in memory, as the editor works on it. Fields bear their columns' names.
struct STWOERTERBUCH {
  std::int64_t ID_Woerterbuch = 0;
  std::int64_t ID_Woerterbuch1 = 0;  ///< the main entry's number, its own for a main entry; 0 on a stub
  std::string Begriff;
  std::string SortBegriff, PraefixBegriff, MetaSuche;
  std::uint8_t Ebene = 0;  ///< 1 main entry, 2 sub-entry, 0 a stub of a new sub-entry
  std::string Aussprache;  ///< in use in dictionaries (project type 1) alone
  std::string Bemerkung;
  bool Unterbegriff = false;    ///< a main entry that has sub-entries
  std::string Klang;            ///< file name, empty when there is none
  std::uint8_t Prioritaet = 0;  ///< place among the sub-entries of one main entry
  std::string Bild;             ///< file name, empty when there is none
  std::optional<base::DateTime> DateTimeStamp;
  std::string DatabaseName;  ///< upper-cased path of the file that the entry belongs to
  bool InBearbeitung = false;
  std::string DateTimeStampLastChange;
};

/// Reads an entry whole. Throws 3021 when there is none of this number, 6 for a level or priority that is
/// no byte.
void ReadFromDB_TabWoerterbuch(session::Session& s, STWOERTERBUCH& record, std::int64_t lWortID);
/// Writes the record to the row `lWortID` with the present time as time of the last change; the time of
/// creation stays. Doubles the apostrophes of Begriff, Bemerkung and Aussprache in the record itself, where
/// they stay doubled until it is read again, and hands the headword so to CurrentBegriff.
void WriteToDB_TabWoerterbuch(session::Session& s, STWOERTERBUCH& record, std::int64_t lWortID);
/// Notes that an entry was created (modes 1, 2) or changed (3, 4). Each list stays at about 1000 rows: a
/// new one pushes out the oldest.
void HistorieEintragen(session::Session& s, std::int64_t lWortID);

}  // namespace entry
