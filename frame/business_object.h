#pragma once

#include <string>
#include <utility>

#include "automation/error.h"
#include "frame/session.h"

namespace tallyra::frame {

class Call;

// What every class of the component carries: the session that the client hands it and the outcome of its last
// business method. Lives on one thread.
class BusinessObject {
 public:
  virtual ~BusinessObject() = default;

  void put_Language(std::string value) { session_.language = std::move(value); }
  void put_UserID(std::string value) { session_.user_id = std::move(value); }
  void put_ConnectionString(std::string value) { session_.connection_string = std::move(value); }
  void put_SystemDatabase(std::string value) { session_.system_database = std::move(value); }

  // 0 after success, else a message number or the run-time error's number, both as a single-precision number
  // holds them.
  float get_ErrNumber() const { return error_number_; }
  std::string get_ErrDescription() const { return std::string(error_description_.view()); }

 protected:
  // The kind of database of an object whose client names none.
  explicit BusinessObject(std::string system_database)
      : session_{.system_database = std::move(system_database)} {}

  const std::string& user_id() const { return session_.user_id; }
  const std::string& connection_string() const { return session_.connection_string; }
  const std::string& system_database() const { return session_.system_database; }

 private:
  friend class Call;

  Session session_;
  float error_number_ = 0;
  automation::ErrorText error_description_;
  bool has_set_collaborators_up_ = false;
};

}  // namespace tallyra::frame
