#include "tests/unit/standins/ado/postgresql/scratch_server.h"

#include "standins/ado/local_classes.h"

namespace tallyra::standins::ado::test {

ScratchServer::ScratchServer(const std::vector<std::string>& statements)
    : database_(server_.new_database(statements)) {
  register_classes();
}

std::string ScratchServer::connection_string(std::string_view more) const {
  return server_.connection_string(database_, more);
}

Object ScratchServer::open_connection(std::string_view more) const {
  Object connection = automation::create("ADODB.Connection");
  connection.call("Open", connection_string(more), "", "", -1);
  return connection;
}

}  // namespace tallyra::standins::ado::test
