#pragma once

#include <string>

namespace tallyra::frame {

// What a client hands an object before it calls its business methods.
struct Session {
  std::string language = {};
  std::string user_id = {};
  std::string connection_string = {};
  // "MSACCESS" or "MSSQLSERVER"; decides the form of date literals.
  std::string system_database = {};
};

}  // namespace tallyra::frame
