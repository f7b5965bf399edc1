#pragma once

#include "engine/database.h"

namespace calendar {

/// Makes the table WZeit and fills it with the days of 1990 to 2060, a row a day, names in German.
/// Weeks begin on Monday. `week_num_of_year` is the week of ISO 8601, so the first days of January may stand
/// in week 52 or 53 and the last of December in week 1. Weeks of a month and of a quarter are counted by the
/// Mondays: the part week before the first Monday, where there is one, is week 1. `date_key` is the day as
/// the number yyyymmdd.
void makeTable(engine::Database& db);

}  // namespace calendar
