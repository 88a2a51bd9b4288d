#pragma once

#include <array>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "automation/error.h"
#include "automation/object.h"
#include "frame/collaborators.h"
#include "frame/database.h"
#include "frame/message.h"
#include "frame/session.h"

namespace tallyra::frame {

inline constexpr float success = 100;
inline constexpr float failure = 0;

// The two collections of a business method that moves whole rows: entry i of the names is a column, entry i
// of the values its value. A collaborator may put others in their place.
struct FieldCollections {
  automation::Object& names;
  automation::Object& values;
};

// One run of a business method: its database objects, its checks and its way out. Database objects that are
// not closed when the call ends are let go unclosed.
//
// Nothing is locked. Whatever a run calls, and its yields, may write the session or run another method of the
// same object, so a run holds nothing of the session across a call: it reads each field when it uses it and
// goes on with what the field holds then. The caller of a method keeps the object.
class Call {
 public:
  // Creates the connection and the recordsets.
  Call(Session& session, std::size_t recordsets);

  // Sets the collaborators up at the first business method of the object and clears the error fields.
  void prepare();

  Connection connection;
  Recordset& recordset(std::size_t index = 0) { return *recordsets_[index]; }

  // Opens the connection of the method.
  void open_connection() { connection.open(session_.connection_string_); }
  const std::string& user_id() const { return session_.user_id_; }

  // From here on an error also rolls the transaction back and closes the connection.
  void roll_back_on_error() { roll_back_on_error_ = true; }

  // Sets the error fields from a message and goes on.
  void report(const Message& message);
  // Sets the error fields from a message, closes what is open, ends the method with failure.
  [[noreturn]] void refuse(const Message& message);
  // Sets the error fields, leaves everything as it is.
  void set_error(float number, std::string description);
  static void set_error(Session& session, float number, std::string description);
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
  static void trap(Session& session, const automation::Error& error) noexcept;

  // Thrown to end a method whose error fields are already set.
  struct Left {};

 private:
  Session& session_;
  std::array<std::optional<Recordset>, 3> recordsets_;
  automation::Object builder_;
  bool roll_back_on_error_ = false;
};

// Runs a business method: error trap, database objects, collaborators, cleared error fields, then the body.
// The body takes the Call and returns the result of the method; the method has the result `failed` when the
// body does not come that far. No exception leaves.
template <class Result, class Body>
Result run_query(Session& session, std::size_t recordsets, Result failed, Body&& body) noexcept {
  // Outlives the try block: the trap still needs the connection to roll back.
  std::optional<Call> call;
  try {
    call.emplace(session, recordsets);
    call->prepare();
    return std::forward<Body>(body)(*call);
  } catch (const Call::Left&) {
  } catch (...) {
    if (call)
      call->trap(automation::current_error());
    else
      Call::trap(session, automation::current_error());
  }
  return failed;
}

template <class Result, class Body>
Result run_query(Session& session, Result failed, Body&& body) noexcept {
  return run_query(session, 1, std::move(failed), std::forward<Body>(body));
}

// The same for a method that only succeeds or fails: the body returns when it has succeeded.
template <class Body>
float run_method(Session& session, std::size_t recordsets, Body&& body) noexcept {
  return run_query(session, recordsets, failure, [&](Call& call) {
    std::forward<Body>(body)(call);
    return success;
  });
}

template <class Body>
float run_method(Session& session, Body&& body) noexcept {
  return run_method(session, 1, std::forward<Body>(body));
}

// Runs a query outside of the frame: it uses no collaborator and does not touch the error fields, so that
// `failed` is all a client sees of an error. No exception leaves.
template <class Result, class Query>
Result run_unreported(Result failed, Query&& query) noexcept {
  try {
    return std::forward<Query>(query)();
  } catch (...) {
    return failed;
  }
}

}  // namespace tallyra::frame
