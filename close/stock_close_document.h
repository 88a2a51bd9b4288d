#pragma once

#include <string>

#include "frame/connection.h"

namespace tallyra::close {

// What the statements of a close document are made of: arguments and fields of the object, as they are when a
// statement is made. A client that has its turn between two lines may have set them anew.
struct CloseDocument {
  frame::Connection& connection;
  const std::string& number;
  // The date of the document, a literal, and so is today.
  const std::string& date;
  const std::string& user;
  const std::string& today;
};

}  // namespace tallyra::close
