#include "tests/unit/client/counting_database.h"

#include <sstream>

#include "automation/error.h"

namespace tallyra::client {

using automation::Error;

CountingDatabase::CountingDatabase()
    : database_([this](const std::string& statement) { return answer(statement); }) {
  database_.at_call = [this](const std::string& line) {
    caller_ = std::this_thread::get_id();
    if (refusing_ && line.find(".Open '") != std::string::npos) throw Error(-2147467259, "cannot connect");
  };
}

void CountingDatabase::set(int closed, int departments) {
  closed_ = closed;
  departments_ = departments;
}

std::vector<std::string> CountingDatabase::calls() const {
  std::vector<std::string> lines;
  std::istringstream log(database_.log());
  for (std::string line; std::getline(log, line);) lines.push_back(line);
  return lines;
}

stage::Reply CountingDatabase::answer(const std::string& statement) {
  // A row that is looked for by its key is there.
  if (statement.find(" Where CHECKNO=") != std::string::npos) return {{{{"N", 1}}}, 0};
  ++statements_;
  if (failures_ > 0) {
    --failures_;
    throw Error(-2147467259, "database is locked");
  }
  const bool of_departments = statement.find("DEPARTS") != std::string::npos;
  return {{{{"N", of_departments ? departments_.load() : closed_.load()}}}, 0};
}

}  // namespace tallyra::client
