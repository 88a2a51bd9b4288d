#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "automation/error.h"
#include "automation/object.h"
#include "frame/business_object.h"
#include "frame/collaborators.h"
#include "frame/connection.h"
#include "frame/field_collections.h"
#include "frame/message.h"
#include "frame/recordset.h"

namespace tallyra::frame {

// One run of a business method: its database objects, its checks and its way out. Database objects that are
// not closed when the call ends are let go unclosed.
//
// Nothing is locked. Whatever a run calls, and its yields, may write the session or run another method of the
// same object, so a run holds nothing of the session across a call: it reads each field when it uses it and
// goes on with what the field holds then. The caller of a method keeps the object.
class Call {
 public:
  // Creates the connection and the recordsets.
  Call(BusinessObject& object, std::size_t recordsets);

  // Sets the collaborators up at the first business method of the object and clears the error fields.
  void prepare();

  Connection connection;
  Recordset& recordset(std::size_t index = 0) { return *recordsets_[index]; }

  // Opens the connection of the method.
  void open_connection() { connection.open(object_.session_.connection_string); }
  const std::string& user_id() const { return object_.session_.user_id; }

  // From here on an error also rolls the transaction back and closes the connection.
  void roll_back_on_error() { roll_back_on_error_ = true; }

  // Sets the error fields from a message and goes on.
  void report(const Message& message);
  // Sets the error fields from a message, closes what is open, ends the method with failure.
  [[noreturn]] void refuse(const Message& message);
  // Sets the error fields, leaves everything as it is.
  void set_error(float number, std::string description);
  static void set_error(BusinessObject& object, float number, std::string description);
  // Copies the error fields of a collaborator.
  void copy_error(automation::Object collaborator);
  // Closes the recordset and the connection as far as they are open.
  void close_all();
  // Ends the method with failure, without any call to the database.
  [[noreturn]] void leave();

  // Refuses collections that are empty or of different length.
  void require_fields(const FieldCollections& fields);
  // Asks the rights of the user for a function; has_right then reads one of them.
  void power_check(std::string_view function_code);
  bool has_right(std::string_view right) const;

  // The statement that the rights object builds from the collections, with the open recordset telling the
  // column types. A reported error ends the method with that error and everything closed.
  std::string insert_statement(std::string_view table, const FieldCollections& fields);
  std::string update_statement(std::string_view table, const FieldCollections& fields);
  // The same without the way out: nothing when the builder reports an error, which is then still to be
  // copied, from the object that has built even if the thread has another one by now.
  std::optional<std::string> try_build(std::string_view builder, std::string_view table,
                                       const FieldCollections& fields, Recordset& structure);
  void copy_builder_error() { copy_error(builder_); }

  // What the error trap does. It needs no memory to set the error fields; an error without a text is told as
  // an automation error, as classic clients know those.
  void trap(const automation::Error& error) noexcept;
  static void trap(BusinessObject& object, const automation::Error& error) noexcept;

  // Thrown to end a method whose error fields are already set.
  struct Left {};

 private:
  std::string built_statement(std::string_view builder, std::string_view table,
                              const FieldCollections& fields);
  BusinessObject& object_;
  std::array<std::optional<Recordset>, 3> recordsets_;
  automation::Object builder_;
  bool roll_back_on_error_ = false;
};

}  // namespace tallyra::frame
