#include "tests/memory/classes_outside.h"

#include <map>
#include <sstream>

#include "tests/memory/failing_new.h"
#include "tests/memory/outside.h"

namespace tallyra::memory {

ClassesOutside::ClassesOutside() {
  const auto names = {"ADODB.Connection", "ADODB.Recordset", "Lexbank.ErrMsg",
                      "Lexbank.CPartF",   "Corvane.CSystem", "Corvane.CPowerCheck"};
  inner_.reserve(names.size());
  for (const char* prog_id : names) {
    inner_.push_back(automation::local::find_factory(prog_id));
    const auto make = [inner = &inner_.back()] {
      const Pause pause;
      return outside((*inner)());
    };
    classes_.push_back(std::make_unique<automation::local::ScopedClass>(prog_id, make));
  }
}

std::string committed(const std::string& transcript) {
  struct Connection {
    bool in_transaction = false;
    std::string pending;
  };
  std::map<std::string, Connection> connections;
  std::string stays;
  std::istringstream lines(transcript);
  for (std::string line; std::getline(lines, line);) {
    const std::string::size_type point = line.find('.');
    if (!line.starts_with("C") || point == std::string::npos || line.find(" ! ") != std::string::npos)
      continue;
    Connection& connection = connections[line.substr(0, point)];
    const std::string_view call = std::string_view(line).substr(point + 1);
    if (call == "BeginTrans") {
      connection = {true, {}};
    } else if (call == "CommitTrans") {
      stays += connection.pending;
      connection = {};
    } else if (call == "RollbackTrans") {
      connection = {};
    } else if (call.starts_with("Execute ")) {
      (connection.in_transaction ? connection.pending : stays) += std::string(call) + '\n';
    }
  }
  return stays;
}

}  // namespace tallyra::memory
