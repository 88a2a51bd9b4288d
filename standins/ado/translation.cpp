#include "standins/ado/translation.h"

#include <string>

#include "automation/error.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

void require_allowed(const dialect::Dialect& dialect) {
  const dialect::Verdict& verdict = dialect.verdict();
  if (verdict.reach == dialect::Reach::beyond)
    throw automation::Error(provider_error::permission_denied,
                            "The statement reaches beyond the database: " + std::string(verdict.cause));
  // In the words of SQLite's driver, which says so of most such texts itself.
  if (verdict.reach == dialect::Reach::several)
    throw automation::Error(provider_error::errors_in_command, "only one SQL statement allowed");
  if (const std::string_view text = dialect.no_date(); !text.empty()) refuse_as_date(text);
}

}  // namespace

std::string_view translated(dialect::Dialect& dialect, std::string_view sql) {
  const std::string_view rewritten = dialect.rewrite(sql);
  require_allowed(dialect);
  return rewritten;
}

std::string_view translated_form(dialect::Dialect& dialect, std::string_view sql,
                                 const std::vector<dialect::Literal>& literals,
                                 std::vector<dialect::LiteralUse>& uses) {
  const std::string_view rewritten = dialect.rewrite_form(sql, literals, uses);
  require_allowed(dialect);
  return rewritten;
}

void refuse_as_date(std::string_view text) {
  throw automation::Error(provider_error::cannot_convert,
                          "The text " + std::string(text) + " cannot be converted to a date");
}

void refuse_nul(std::string_view sql) {
  if (sql.find('\0') != std::string_view::npos)
    throw automation::Error(provider_error::errors_in_command, "The statement contains a NUL character");
}

}  // namespace tallyra::standins::ado
