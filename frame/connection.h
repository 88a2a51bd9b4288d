#pragma once

#include <cstdint>
#include <string>

#include "automation/object.h"
#include "frame/lazy_member.h"

namespace tallyra::frame {

// Of a statement: the provider finds out what it is.
inline constexpr std::int32_t unspecified_options = -1;

// An ADO connection. Destroying it only lets the object go: closing, committing and rolling back are calls
// that the database sees, so they stand in the method that means them.
class Connection {
 public:
  Connection();

  void set_command_timeout(std::int32_t seconds);
  // Credentials come with the connection string.
  void open(const std::string& connection_string);
  // What the connection itself says.
  bool is_open() const;
  // Whether this method has opened it and not closed it again.
  bool opened() const { return opened_; }
  void execute(const automation::Value& statement);
  void begin();
  void commit();
  void roll_back();
  void close();

  const automation::Object& object() const { return object_; }

 private:
  automation::Object object_;
  LazyMember execute_{"Execute"};
  bool opened_ = false;
};

}  // namespace tallyra::frame
