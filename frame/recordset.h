#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "automation/object.h"
#include "frame/connection.h"
#include "frame/lazy_member.h"

// The ADO recordset of a business method, with the constants of ADO that the component uses.
namespace tallyra::frame {

enum class CursorLocation : std::int32_t { server = 2, client = 3 };
enum class CursorType : std::int32_t { forward_only = 0, static_copy = 3 };
enum class LockType : std::int32_t { read_only = 1, batch_optimistic = 4 };

// A field of a recordset, which reads the row that the recordset stands on.
class Field {
 public:
  explicit Field(automation::Object field) : object_(std::move(field)), value_(object_, "Value") {}
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
