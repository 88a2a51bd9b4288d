#pragma once

#include <cstdint>
#include <string>

#include "automation/error.h"

namespace tallyra::frame {

class Call;

// What every class of the component carries: the session that the client hands it and the outcome of its last
// business method. Lives on one thread.
class Session {
 public:
  virtual ~Session() = default;

  void put_Language(std::string value) { language_ = std::move(value); }
  void put_UserID(std::string value) { user_id_ = std::move(value); }
  void put_ConnectionString(std::string value) { connection_string_ = std::move(value); }
  // "MSACCESS" or "MSSQLSERVER"; decides the form of date literals.
  void put_SystemDatabase(std::string value) { system_database_ = std::move(value); }

  // 0 after success, else a message number or the run-time error's number, both as a single-precision number
  // holds them.
  float get_ErrNumber() const { return error_number_; }
  std::string get_ErrDescription() const { return std::string(error_description_.view()); }

 protected:
  explicit Session(std::string system_database) : system_database_(std::move(system_database)) {}

  const std::string& user_id() const { return user_id_; }
  const std::string& connection_string() const { return connection_string_; }
  const std::string& system_database() const { return system_database_; }

 private:
  friend class Call;

  std::string language_;
  std::string user_id_;
  std::string connection_string_;
  float error_number_ = 0;
  automation::ErrorText error_description_;
  std::string system_database_;
  std::int16_t collaborators_ready_ = 0;
};

}  // namespace tallyra::frame
