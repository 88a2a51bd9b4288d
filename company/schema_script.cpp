#include "company/schema_script.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "company/options.h"

namespace tallyra::company {
namespace {

constexpr std::string_view blanks = " \t\r\n";

void add_statement(std::string_view text, std::vector<std::string>& statements) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return;
  statements.emplace_back(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

}  // namespace

std::vector<std::string> statements_of(std::string_view script) {
  std::vector<std::string> statements;
  std::string statement;
  for (std::size_t at = 0; at < script.size(); ++at) {
    const char c = script[at];
    if (script.substr(at, 2) == "--") {
      const auto end_of_line = script.find('\n', at);
      if (end_of_line == std::string_view::npos) break;
      at = end_of_line;
      statement += '\n';
    } else if (c == '\'' || c == '"') {
      const auto end = std::min(script.find(c, at + 1), script.size() - 1);
      statement += script.substr(at, end - at + 1);
      at = end;
    } else if (c == ';') {
      add_statement(statement, statements);
      statement.clear();
    } else {
      statement += c;
    }
  }
  add_statement(statement, statements);
  return statements;
}

std::vector<std::string> read_schema(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Refusal("cannot read the create script '" + path + "'");
  const std::string script{std::istreambuf_iterator<char>(file), {}};
  auto statements = statements_of(script);
  if (statements.empty()) throw Refusal("the create script '" + path + "' holds no statement");
  return statements;
}

bool creates_index(std::string_view statement) {
  return statement.starts_with("CREATE INDEX ") || statement.starts_with("CREATE UNIQUE INDEX ");
}

}  // namespace tallyra::company
