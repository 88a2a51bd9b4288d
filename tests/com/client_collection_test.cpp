#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <utility>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "server/class_table.h"
#include "tests/com/client_objects.h"
#include "tests/com/wire_call.h"

// Collections of the client's own in the hands of the DLL: what it calls of them, and what they may call
// while it does.
namespace tallyra::tests::com {
namespace {

using automation::Object;
using automation::com::ComObject;
using server::ClassMember;
using server::MemberKind;
using server::ParameterType;

constexpr DISPID read_id = 11;

// Takes so many items, does something whenever it is used, and tells by which names it was called.
class ClientCollection : public automation::Collection {
 public:
  explicit ClientCollection(std::size_t room = 1000) : room_(room) {}
  automation::MemberId resolve(std::string_view name) override {
    called.insert(std::string(name));
    return automation::Collection::resolve(name);
  }
  Value invoke(automation::MemberId id, automation::Access access, automation::Arguments arguments) override {
    if (whenever_used) whenever_used();
    if (id == 1 && item_count() == room_) throw automation::Error(7);
    return automation::Collection::invoke(id, access, arguments);
  }

  std::set<std::string> called;
  std::function<void()> whenever_used;

 private:
  std::size_t room_;
};

Variant no_object() {
  Variant variant;
  V_DISPATCH(&variant.raw()) = nullptr;
  V_VT(&variant.raw()) = VT_DISPATCH;
  return variant;
}

bool takes_collections(const ClassMember& method) {
  for (const auto& parameter : method.parameters)
    if (parameter.type == ParameterType::collection) return true;
  return false;
}

class ClientCollections : public testing::Test {
 protected:
  ClientCollections() {
    company_.add_a_record_of_each_class();
    company_.run({"INSERT INTO DEPARTS(DEPTNO) VALUES('10')"});
  }

  template <class Body>
  void for_each_method(const Body& body) {
    for (const auto& table : server::classes())
      for (const auto& member : table.members)
        if (member.kind == MemberKind::method) {
          SCOPED_TRACE(std::string(table.name) + "." + std::string(member.name));
          body(table, member);
        }
  }

  Pointer<IDispatch> client(std::string_view class_name) const {
    auto object = new_client(dll_, served_class_id(class_name), company_);
    put_session(object.get(), 6, connection_string());
    return object;
  }
  // A client that calls from within its calls waits for no lock.
  std::string connection_string() const { return company_.connection_string() + ";Timeout=1"; }

  // Calls a method as a script does, with these in the place of its collections.
  HRESULT call(IDispatch* object, const ClassMember& method, Variant& names, Variant& values, Value& result) {
    std::vector<Variant> held(method.parameters.size());
    std::vector<VARIANTARG> arguments;
    for (std::size_t i = 0; i < method.parameters.size(); ++i) {
      const auto& parameter = method.parameters[i];
      if (parameter.type == ParameterType::collection) {
        arguments.push_back(reference(parameter.name == "colFieldName" ? names.raw() : values.raw()));
        continue;
      }
      const bool date = parameter.name == "pCloseDT" || parameter.name == "vTranDT";
      held[i] = Variant(date                                    ? Value("2024/01/31")
                        : parameter.type == ParameterType::text ? Value("X1")
                                                                : Value(1),
                        Role::caller);
      arguments.push_back(parameter.by_reference ? reference(held[i].raw()) : held[i].raw());
    }
    WireCall wire{.id = method.id, .arguments = arguments};
    const HRESULT code = wire.on(object);
    if (code == S_OK) result = value_in(wire.result.raw());
    return code;
  }

  // The same with collections of one column that do this whenever they are used; how often they were.
  int call_and(IDispatch* object, const ClassMember& method, const std::function<void()>& work) {
    int turns = 0;
    bool busy = true;
    const auto turn = [&] {
      if (std::exchange(busy, true)) return;
      ++turns;
      work();
      busy = false;
    };
    auto* const names = new ClientCollection;
    auto* const values = new ClientCollection;
    names->whenever_used = values->whenever_used = turn;
    const Object kept_names(names);
    const Object kept_values(values);
    Variant name_variable = object_variant(kept_names);
    Variant value_variable = object_variant(kept_values);
    kept_names.call("Add", "EDITBY");
    kept_values.call("Add", "x");
    busy = false;
    Value result;
    EXPECT_EQ(call(object, method, name_variable, value_variable, result), S_OK);
    EXPECT_TRUE(result.holds<float>());
    for (const auto* list : {names, values})
      for (const auto& member : list->called)
        EXPECT_TRUE(member == "Add" || member == "Count" || member == "Item") << member;
    return turns;
  }

  void use_everything(IDispatch* object, std::string_view class_name) {
    for (const auto& table : server::classes()) {
      if (table.name != class_name) continue;
      put_session(object, 1, "DE");
      put_session(object, 2, company_.system_database());
      put_session(object, 5, "ADMIN");
      put_session(object, 6, connection_string());
      for (const auto& member : table.members) {
        if (member.kind != MemberKind::method) continue;
        SCOPED_TRACE("meanwhile " + std::string(member.name));
        Variant names = object_variant(automation::make_object<automation::Collection>());
        Variant values = object_variant(automation::make_object<automation::Collection>());
        Value result;
        EXPECT_EQ(call(object, member, names, values, result), S_OK);
        error_number_of(object);
        error_description_of(object);
      }
    }
  }

  static bool appends(std::string_view class_name) {
    return class_name == "CRevAddr" || class_name == "CSTKController" || class_name == "CStkShipNote" ||
           class_name == "CStockClose";
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
};

TEST_F(ClientCollections, MayUseTheWholeObjectMeanwhile) {
  int turns = 0;
  for_each_method([&](const server::ClassTable& table, const ClassMember& method) {
    if (!takes_collections(method)) return;
    const auto object = client(table.name);
    turns += call_and(object.get(), method, [&] { use_everything(object.get(), table.name); });
  });
  EXPECT_GT(turns, 50);
}

TEST_F(ClientCollections, MayLetTheObjectGoMeanwhile) {
  int let_go = 0;
  for_each_method([&](const server::ClassTable& table, const ClassMember& method) {
    if (!takes_collections(method)) return;
    IDispatch* object = client(table.name).detach();
    IDispatch* const kept = object;
    const int turns = call_and(kept, method, [&] {
      if (IDispatch* const mine = std::exchange(object, nullptr)) {
        EXPECT_EQ(mine->Release(), 1U) << "the running method keeps it";
      }
    });
    if (object) object->Release();
    let_go += turns > 0;
  });
  EXPECT_GT(let_go, 20);
}

TEST_F(ClientCollections, KeepWhatReadHasAppendedBeforeAnError) {
  for_each_method([&](const server::ClassTable& table, const ClassMember& method) {
    if (method.id != read_id || !appends(table.name)) return;
    const auto object = client(table.name);
    auto* const names = new ClientCollection;
    auto* const values = new ClientCollection(1);
    const Object kept_names(names);
    const Object kept_values(values);
    Variant name_variable = object_variant(kept_names);
    Variant value_variable = object_variant(kept_values);
    Value result;
    EXPECT_EQ(call(object.get(), method, name_variable, value_variable, result), S_OK);
    EXPECT_EQ(result, Value(0.0F));
    EXPECT_EQ(error_number_of(object.get()), 7);
    EXPECT_EQ(names->item_count(), 2U);
    EXPECT_EQ(values->item_count(), 1U);
    EXPECT_EQ(names->called, std::set<std::string>{"Add"});
    EXPECT_EQ(values->called, std::set<std::string>{"Add"});
  });
}

TEST_F(ClientCollections, ThatAreNoneAreReplacedButCannotBeAppendedTo) {
  int reads = 0;
  for_each_method([&](const server::ClassTable& table, const ClassMember& method) {
    if (method.id != read_id) return;
    ++reads;
    const auto object = client(table.name);
    Variant names = no_object();
    Variant values = no_object();
    Value result;
    EXPECT_EQ(call(object.get(), method, names, values, result), S_OK);
    EXPECT_EQ(result, Value(appends(table.name) ? 0.0F : 100.0F));
    EXPECT_EQ(error_number_of(object.get()), appends(table.name) ? 91 : 0);
    EXPECT_EQ(V_DISPATCH(&names.raw()) != nullptr, !appends(table.name));
    EXPECT_EQ(V_DISPATCH(&values.raw()) != nullptr, !appends(table.name));
  });
  EXPECT_EQ(reads, 9);
}

}  // namespace
}  // namespace tallyra::tests::com
