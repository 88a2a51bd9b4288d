#include "tests/unit/client/counting_database.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/member_table.h"

namespace tallyra::client {
namespace {

using automation::Arguments;
using automation::Error;
using automation::Implements;
using automation::make_object;
using automation::MemberTable;
using automation::Object;
using automation::Value;

class FakeConnection : public Implements<FakeConnection> {
 public:
  using Record = std::function<void(std::string)>;
  FakeConnection(Record record, bool refusing) : record_(std::move(record)), refusing_(refusing) {}

  static const MemberTable<FakeConnection>& members() {
    static const MemberTable<FakeConnection> table{{1, "Open", automation::method<&FakeConnection::open>}};
    return table;
  }
  Value open(Arguments arguments) {
    std::string line = "Connection.Open";
    for (const auto& argument : arguments) line += " '" + automation::to_text(argument.get()) + "'";
    record_(line);
    if (refusing_) throw Error(-2147467259, "cannot connect");
    return {};
  }

 private:
  Record record_;
  bool refusing_;
};

// The only field there is; stands for itself, its collection and its recordset's answer.
class FakeField : public Implements<FakeField> {
 public:
  explicit FakeField(Value value) : value_(std::move(value)) {}

  static const MemberTable<FakeField>& members() {
    static const MemberTable<FakeField> table{
        {automation::default_member, "Item", automation::method<&FakeField::item>},
        {1, "Value", automation::property<&FakeField::value>}};
    return table;
  }
  Value item(Arguments arguments) {
    if (automation::to_text(arguments[0].get()) != "N") throw Error(3265);
    return Object(this);
  }
  Value value() { return value_; }

 private:
  Value value_;
};

class FakeRecordset : public Implements<FakeRecordset> {
 public:
  using Record = std::function<void(std::string)>;
  using Answer = std::function<Value(const std::string&)>;
  FakeRecordset(Record record, Answer answer) : record_(std::move(record)), answer_(std::move(answer)) {}

  static const MemberTable<FakeRecordset>& members() {
    static const MemberTable<FakeRecordset> table{{1, "Open", automation::method<&FakeRecordset::open>},
                                                  {2, "Fields", automation::property<&FakeRecordset::fields>},
                                                  {3, "Close", automation::method<&FakeRecordset::close>}};
    return table;
  }
  Value open(Arguments arguments) {
    automation::expect_arguments(arguments, 5, 5);
    const std::string statement = automation::to_text(arguments[0].get());
    automation::to_object(arguments[1].get()).resolve("Open");  // a connection
    std::string line = "Recordset.Open " + statement;
    for (std::size_t i = 2; i < 5; ++i) line += " " + automation::to_text(arguments[i].get());
    record_(line);
    value_ = answer_(statement);
    return {};
  }
  Value fields() { return make_object<FakeField>(value_); }
  Value close(Arguments) {
    record_("Recordset.Close");
    return {};
  }

 private:
  Record record_;
  Answer answer_;
  Value value_;
};

}  // namespace

CountingDatabase::CountingDatabase()
    : connections_("ADODB.Connection", [this] { return make_connection(); }),
      recordsets_("ADODB.Recordset", [this] { return make_recordset(); }) {}

void CountingDatabase::set(int closed, int departments) {
  closed_ = closed;
  departments_ = departments;
}

std::vector<std::string> CountingDatabase::calls() const {
  const std::lock_guard lock(mutex_);
  return calls_;
}

std::thread::id CountingDatabase::caller() const {
  const std::lock_guard lock(mutex_);
  return caller_;
}

Object CountingDatabase::make_connection() {
  return make_object<FakeConnection>([this](std::string call) { record(std::move(call)); }, refusing_.load());
}

Object CountingDatabase::make_recordset() {
  return make_object<FakeRecordset>([this](std::string call) { record(std::move(call)); },
                                    [this](const std::string& statement) { return answer(statement); });
}

void CountingDatabase::record(std::string call) {
  const std::lock_guard lock(mutex_);
  calls_.push_back(std::move(call));
  caller_ = std::this_thread::get_id();
}

Value CountingDatabase::answer(const std::string& statement) {
  ++statements_;
  if (failures_ > 0) {
    --failures_;
    throw Error(-2147467259, "database is locked");
  }
  return static_cast<std::int32_t>(statement.find("DEPARTS") != std::string::npos ? departments_ : closed_);
}

}  // namespace tallyra::client
