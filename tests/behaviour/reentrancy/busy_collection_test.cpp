#include "tests/support/busy_collection.h"

#include <gtest/gtest.h>

#include <utility>

#include "server/class_table.h"
#include "tests/support/company_database.h"

// Collections of a client's own that use the object which is working on them, over the real sibling
// libraries: whichever of Add, Count and Item is called, by whichever method, calls every member of the
// object.
namespace tallyra::behaviour {
namespace {

using automation::Argument;
using automation::Object;
using automation::Value;
using server::ClassMember;
using server::ClassTable;
using server::MemberKind;
using server::ParameterType;

class ReentrantCollections : public testing::TestWithParam<const ClassTable*> {
 protected:
  ReentrantCollections() {
    company_.add_a_record_of_each_class();
    company_.run({"INSERT INTO DEPARTS(DEPTNO) VALUES('10')"});
  }

  static bool takes_collections(const ClassMember& method) {
    for (const auto& parameter : method.parameters)
      if (parameter.type == ParameterType::collection) return true;
    return false;
  }

  // A new collection of each kind: columns, or values.
  using MakeCollection = std::function<Object()>;

  static Value honest_value(const server::Parameter& parameter, const MakeCollection& make) {
    if (parameter.name == "colFieldName" || parameter.name == "colFieldValue") {
      const Object collection = make();
      collection.call("Add", parameter.name == "colFieldName" ? "EDITBY" : "x");
      return collection;
    }
    if (parameter.name == "pCloseDT" || parameter.name == "vTranDT") return "2024/01/31";
    return parameter.type == ParameterType::text ? Value("X1") : Value(1);
  }

  Value call(const ClassMember& method, const MakeCollection& make) {
    const bool busy_before = std::exchange(busy_, true);  // while the collections are filled
    std::vector<Value> values;
    for (const auto& parameter : method.parameters) values.push_back(honest_value(parameter, make));
    busy_ = busy_before;
    std::vector<Argument> arguments;
    for (std::size_t i = 0; i < values.size(); ++i)
      arguments.push_back(method.parameters[i].by_reference ? Argument::by_reference(values[i])
                                                            : Argument(values[i]));
    return client_.invoke(method.id, automation::Access::read, arguments);
  }

  // Calls every method that takes collections, with such as do this whenever they are used.
  void call_everything_and(const std::function<void()>& work) {
    const auto turn = [&] {
      if (std::exchange(busy_, true)) return;
      ++turns_;
      work();
      busy_ = false;
    };
    for (const auto& method : GetParam()->members) {
      if (method.kind != MemberKind::method || !takes_collections(method)) continue;
      SCOPED_TRACE(method.name);
      client_ = company_.client(GetParam()->name);
      client_.put("ConnectionString", session_value("ConnectionString"));
      turns_ = 0;
      Value result;
      EXPECT_NO_THROW(result =
                          call(method, [&] { return automation::make_object<tests::BusyCollection>(turn); }));
      EXPECT_TRUE(result.holds<float>());
      // A Read that puts new collections in place of the client's does not touch those.
      EXPECT_TRUE(turns_ > 0 || method.name == "Read");
    }
  }

  // Each property is read and written, each method called.
  void use_everything() {
    for (const auto& member : GetParam()->members) {
      SCOPED_TRACE(member.name);
      switch (member.kind) {
        case MemberKind::property_get: EXPECT_NO_THROW(client_.get(member.name)); break;
        case MemberKind::property_put:
          EXPECT_NO_THROW(client_.put(member.name, session_value(member.name)));
          break;
        case MemberKind::method: EXPECT_NO_THROW(call(member, plain_collection)); break;
      }
    }
  }

  static Object plain_collection() { return automation::make_object<automation::Collection>(); }

  Value session_value(std::string_view property) const {
    if (property == "ConnectionString") return company_.connection_string() + ";Timeout=1";
    if (property == "SystemDatabase") return company_.system_database();
    return property == "UserID" ? "ADMIN" : "DE";
  }

  CompanyDatabase company_;
  Object client_ = company_.client(GetParam()->name);
  bool busy_ = false;
  int turns_ = 0;
};

std::vector<const ClassTable*> tables() {
  std::vector<const ClassTable*> list;
  for (const auto& table : server::classes())
    if (table.name != "CStkrptFuns") list.push_back(&table);  // no collections there
  return list;
}

INSTANTIATE_TEST_SUITE_P(Classes, ReentrantCollections, testing::ValuesIn(tables()),
                         [](const auto& param) { return std::string(param.param->name); });

TEST_P(ReentrantCollections, MayUseTheWholeObject) {
  call_everything_and([&] { use_everything(); });
}

TEST_P(ReentrantCollections, MayLetTheObjectGo) {
  call_everything_and([&] { client_ = {}; });
}

TEST_P(ReentrantCollections, MayHaveTheCollaboratorsSetUpAnew) {
  call_everything_and([&] {
    Value key = "nowhere";
    EXPECT_EQ(company_.client("CRevAddr").call("Delete", automation::ref(key)), Value(100.0F));
  });
}

}  // namespace
}  // namespace tallyra::behaviour
