#include "standins/ado/translation.h"

#include <string>

#include "automation/error.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {
namespace {

void require_harmless(const dialect::Verdict& verdict) {
  if (verdict.reach == dialect::Reach::beyond)
    throw automation::Error(provider_error::permission_denied,
                            "The statement reaches beyond the database: " + std::string(verdict.cause));
  // In the words of SQLite's driver, which says so of most such texts itself.
  if (verdict.reach == dialect::Reach::several)
    throw automation::Error(provider_error::errors_in_command, "only one SQL statement allowed");
}

}  // namespace

std::string_view translated(dialect::Dialect& dialect, std::string_view sql) {
  const std::string_view rewritten = dialect.rewrite(sql);
  require_harmless(dialect.verdict());
  if (const std::string_view text = dialect.no_date(); !text.empty())
    throw automation::Error(provider_error::cannot_convert,
                            "The text " + std::string(text) + " cannot be converted to a date");
  return rewritten;
}

void refuse_nul(std::string_view sql) {
  if (sql.find('\0') != std::string_view::npos)
    throw automation::Error(provider_error::errors_in_command, "The statement contains a NUL character");
}

}  // namespace tallyra::standins::ado
