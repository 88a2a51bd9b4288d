#include "tests/support/recorded_statements.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>

namespace tallyra::stage {
namespace {

// The statement that a line of the files holds.
std::string on_its_own_lines(std::string_view line) {
  std::string statement;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\') {
      statement += line[i];
      continue;
    }
    switch (line.at(++i)) {
      case 'n': statement += '\n'; break;
      case 'r': statement += '\r'; break;
      case 't': statement += '\t'; break;
      case '0': statement += '\0'; break;
      default: statement += line[i];
    }
  }
  return statement;
}

std::vector<RecordedStatement> read_statements() {
  std::set<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(TALLYRA_RECORDED_STATEMENTS))
    if (entry.path().extension() == ".sql") files.insert(entry.path());
  std::vector<RecordedStatement> statements;
  for (const auto& file : files) {
    const std::string name = file.stem().string();
    const auto point = name.find('.');
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);)
      statements.push_back({name.substr(0, point), name.substr(point + 1), on_its_own_lines(line)});
  }
  if (statements.empty()) throw std::runtime_error("no recorded statements");
  return statements;
}

}  // namespace

const std::vector<RecordedStatement>& recorded_statements() {
  static const std::vector<RecordedStatement> statements = read_statements();
  return statements;
}

std::string recorded_statement(std::string_view class_name, const std::vector<std::string>& parts) {
  for (const RecordedStatement& statement : recorded_statements()) {
    if (statement.class_name != class_name || statement.kind != "access") continue;
    const auto has = [&](const std::string& part) { return statement.text.find(part) != std::string::npos; };
    if (std::all_of(parts.begin(), parts.end(), has)) return statement.text;
  }
  throw std::runtime_error("no recorded statement of " + std::string(class_name) + " has " + parts.front());
}

}  // namespace tallyra::stage
