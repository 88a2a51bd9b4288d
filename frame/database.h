#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/object.h"

// The ADO objects of a business method, with the constants of ADO that the component uses.
namespace tallyra::frame {

enum class CursorLocation : std::int32_t { server = 2, client = 3 };
enum class CursorType : std::int32_t { forward_only = 0, static_copy = 3 };
enum class LockType : std::int32_t { read_only = 1, batch_optimistic = 4 };

// A member whose name is resolved at its first use and remembered as long as the object is held.
class LazyMember {
 public:
  explicit LazyMember(std::string_view name) : name_(name) {}
  const automation::BoundMember& of(const automation::Object& object) {
    if (!bound_) bound_.emplace(object, name_);
    return *bound_;
  }

 private:
  std::string_view name_;
  std::optional<automation::BoundMember> bound_;
};

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

// A field of a recordset, which reads the row that the recordset stands on.
class Field {
 public:
  explicit Field(automation::Object field) : object_(field), value_(object_, "Value") {}
  automation::Value value() const { return value_.get(); }
  const automation::Object& object() const { return object_; }

 private:
  automation::Object object_;
  automation::BoundMember value_;
};

// An ADO recordset; lets go like a connection.
class Recordset {
 public:
  Recordset();

  void set_cursor_location(CursorLocation location);
  void open(const automation::Value& statement, const Connection& connection, CursorType cursor,
            LockType lock = LockType::read_only);
  // Lets the connection go and keeps the rows; only a client-side recordset can.
  void detach();
  // Whether this method has opened it and not closed it again.
  bool opened() const { return opened_; }
  bool at_end();
  void move_first();
  void move_last();
  void move_next();
  void close();

  Field field(std::string_view name) const;
  automation::Value value(std::string_view name) const { return field(name).value(); }
  automation::Object fields() const;

  const automation::Object& object() const { return object_; }
  // A collaborator may hand another recordset back. When that is opened again, its cursor is where the first
  // one's was.
  void replace(automation::Object object);

 private:
  // What is used again for every row, or every time the recordset is opened anew.
  struct Members {
    LazyMember open{"Open"};
    LazyMember at_end{"EOF"};
    LazyMember move_next{"MoveNext"};
    LazyMember close{"Close"};
    LazyMember fields{"Fields"};
    std::optional<automation::MemberId> active_connection;
  };

  automation::Object object_;
  mutable Members members_;
  bool opened_ = false;
  std::optional<CursorLocation> location_;
  // Whether the object has not been told the location yet; one that is open cannot be.
  bool location_due_ = false;
};

// A column of a recordset that is opened again and again, with new field objects each time. They are all of
// one class, so that names are resolved on the first of them only.
class RepeatedField {
 public:
  explicit RepeatedField(std::string_view column) : column_(column) {}
  automation::Value value(const Recordset& recordset);

 private:
  automation::Value column_;
  std::optional<automation::MemberId> item_;
  std::optional<automation::MemberId> value_;
};

}  // namespace tallyra::frame
