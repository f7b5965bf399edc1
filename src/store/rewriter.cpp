#include "store/rewriter.h"

#include "base/text.h"

namespace store {
namespace {

/// The text before the first `what`, or all of it.
std::string before(const std::string& text, std::string_view what) {
  return text.substr(0, text.find(what));
}
/// The text from the first `what` on, or nothing.
std::string from(const std::string& text, std::string_view what) {
  const std::size_t position = text.find(what);
  return position == std::string::npos ? "" : text.substr(position);
}
bool holds(const std::string& text, std::string_view what) {
  return text.find(what) != std::string::npos;
}

/// A tail of a statement as it stands inside a longer one.
std::string tail(const std::string& text) {
  return base::trim(before(text, ";"));
}

}  // namespace

std::string BuildMultiSQL(session::Session& s, std::string& sql, session::View view) {
  sql = base::upper(base::trim(sql));
  const std::string orderPart = tail(from(sql, "ORDER BY"));
  sql = base::trim(before(sql, "ORDER BY"));

  if (s.filter.ApplyFilterToSQL) s.filter.ApplyFilterToSQL(sql, view);
  const std::string wherePart = tail(from(sql, "WHERE"));
  const bool hasParameters = holds(sql, "SELECT") && holds(sql, "PARAMETERS");
  const std::string paramPart = hasParameters ? before(sql, "SELECT") : "";
  if (holds(sql, "SELECT")) sql = from(sql, "SELECT");
  sql = base::trim(before(sql, ";"));

  std::string result = sql;
  for (int i = 0; i <= s.files.OpenDBCount - 2; ++i) {
    const std::string in = " IN \"" + s.files.ExtraDB.at(static_cast<std::size_t>(i)).Name() + "\"";
    result += " UNION " + before(sql, "WHERE") + in;
    if (holds(sql, "WHERE")) result += " " + wherePart;
  }
  if (!orderPart.empty())
    result += " " + orderPart;
  else if (view == session::View::frmStandardReports || view == session::View::frmPrint)
    result += " order by Sortbegriff;";
  return paramPart + result;
}

std::string BuildMultiSQL(session::Session& s, std::string&& sql, session::View view) {
  std::string text = std::move(sql);
  return BuildMultiSQL(s, text, view);
}

engine::Recordset openRewritten(session::Session& s, const std::string& query, session::View view,
                                const engine::Parameters& parameters) {
  const std::string statement = BuildMultiSQL(s, s.files.CurrentDB.queryDef(query).SQL(), view);
  return s.files.CurrentDB.OpenRecordset(statement, engine::RecordsetKind::dynaset, parameters);
}

}  // namespace store
