#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "automation/collection.h"
#include "automation/com/com_object.h"
#include "server/class_table.h"
#include "tests/com/client_objects.h"
#include "tests/com/echo_object.h"
#include "tests/com/wire_call.h"

// Every method of every class with arguments that no honest client sends, through the DLL and down to the
// database. What has to come back is a code, or a result of failure with its reason; and the object works
// afterwards.
namespace tallyra::tests::com {
namespace {

using automation::com::ComObject;
using server::ClassMember;
using server::MemberKind;
using server::ParameterType;

constexpr std::size_t ten_megabytes = 10'000'000;

struct Hostile {
  const char* what;
  Variant value;
};

Variant raw_variant(VARTYPE type, LONGLONG content = 0) {
  Variant variant;
  V_I8(&variant.raw()) = content;
  V_VT(&variant.raw()) = type;
  return variant;
}

Variant array_of(VARTYPE type, ULONG count) {
  Variant variant;
  V_ARRAY(&variant.raw()) = SafeArrayCreateVector(type, 0, count);
  V_VT(&variant.raw()) = static_cast<VARTYPE>(VT_ARRAY | type);
  return variant;
}

// A collection that holds one of every kind of thing that is no column's name or value.
Variant strange_collection() {
  const auto collection = automation::make_object<automation::Collection>();
  collection.call("Add", std::string("a\0b", 3));
  collection.call("Add", "\xED\xA0\xBD");
  collection.call("Add", automation::Null{});
  collection.call("Add", collection.get("Count"));
  collection.call("Add", automation::make_object<EchoObject>());
  return object_variant(collection);
}

std::vector<Hostile> hostile_values() {
  std::vector<Hostile> list;
  const auto add = [&list](const char* what, Variant value) { list.push_back({what, std::move(value)}); };
  add("nothing", {});
  add("null", Variant(automation::Null{}, Role::caller));
  add("omitted", raw_variant(VT_ERROR, DISP_E_PARAMNOTFOUND));
  add("an error", raw_variant(VT_ERROR, DISP_E_OVERFLOW));
  add("no object", raw_variant(VT_DISPATCH));
  add("no unknown", raw_variant(VT_UNKNOWN));
  add("an object without Add, Count and Item", object_variant(automation::make_object<EchoObject>()));
  add("a strange collection", strange_collection());
  add("variants", array_of(VT_VARIANT, 3));
  add("bytes", array_of(VT_UI1, 3));
  add("no array", raw_variant(VT_ARRAY | VT_BSTR));
  add("the largest number", raw_variant(VT_I8, std::numeric_limits<LONGLONG>::max()));
  add("not a number", Variant(std::nan(""), Role::caller));
  add("infinity", Variant(std::numeric_limits<double>::infinity(), Role::caller));
  add("a date out of range", Variant(automation::Date{1e9}, Role::caller));
  add("a date that is not a number", Variant(automation::Date{std::nan("")}, Role::caller));
  add("an embedded zero", Variant(Value(std::string("a\0b", 3)), Role::caller));
  add("half a surrogate pair", Variant(Value("\xED\xA0\xBD'"), Role::caller));
  add("the other half", Variant(Value("\xED\xB8\x80#"), Role::caller));
  add("a null text", raw_variant(VT_BSTR));
  return list;
}

// What no type is, and references to nowhere: VariantClear must not see these.
std::vector<VARIANTARG> broken_arguments() {
  VARIANTARG nonsense{};
  V_VT(&nonsense) = 0x0FFF;
  std::vector<VARIANTARG> list{nonsense, reference(VT_VARIANT, nullptr)};
  for (const VARTYPE type : {VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_I2, VT_I4, VT_R8, VT_DECIMAL, VT_ERROR})
    list.push_back(reference(type, nullptr));
  return list;
}

// What an honest client passes.
Variant honest_value(const server::Parameter& parameter) {
  if (parameter.name == "pCloseDT") return Variant(Value("2024/01/31"), Role::caller);
  switch (parameter.type) {
    case ParameterType::collection: {
      const auto collection = automation::make_object<automation::Collection>();
      collection.call("Add", "REMARK");
      return object_variant(collection);
    }
    case ParameterType::variant: return Variant(Value("2024/01/31"), Role::caller);
    case ParameterType::text: return Variant(Value("X1"), Role::caller);
    default: return Variant(Value(1), Role::caller);
  }
}

std::vector<Variant> honest_values(const ClassMember& method) {
  std::vector<Variant> values;
  for (const auto& parameter : method.parameters) values.push_back(honest_value(parameter));
  return values;
}

// Script variables for what the method may replace, values for the others.
std::vector<VARIANTARG> arguments_of(const ClassMember& method, std::vector<Variant>& values) {
  std::vector<VARIANTARG> arguments;
  for (std::size_t i = 0; i < values.size(); ++i)
    arguments.push_back(method.parameters[i].by_reference ? reference(values[i].raw()) : values[i].raw());
  return arguments;
}

class HostileCall : public testing::Test {
 protected:
  // Rows that honest values find, so that strange ones get as far. Their texts are strange too.
  HostileCall() {
    company_.add_a_record_of_each_class();
    company_.run({"UPDATE REVADDR SET ADDRNM=CAST(X'EDA0BD' AS TEXT)",
                  "UPDATE STKTRANHD SET STATUS='a'||CHAR(0)||'b'"});
  }

  void for_each_method(const std::function<void(IDispatch*, const ClassMember&)>& body) {
    for (const auto& [name, id] : served_class_ids()) {
      const auto object = new_client(dll_, id, company_);
      for (const auto& table : server::classes())
        for (const auto& member : table.members)
          if (table.name == name && member.kind == MemberKind::method) {
            SCOPED_TRACE(std::string(name) + "." + std::string(member.name));
            body(object.get(), member);
            ++methods_;
          }
    }
    EXPECT_EQ(methods_, 48);
  }

  // A failure that a method reports says why.
  void call(IDispatch* object, const ClassMember& method, std::vector<VARIANTARG> arguments) {
    WireCall call{.id = method.id, .arguments = std::move(arguments)};
    const HRESULT code = call.on(object);
    if (code == S_OK) {
      const auto* result = V_VT(&call.result.raw()) == VT_R4 ? &V_R4(&call.result.raw()) : nullptr;
      if (result && *result == 0) {
        EXPECT_NE(error_number_of(object), 0);
      }
    } else {
      EXPECT_TRUE(FAILED(code)) << code;
      EXPECT_NE(code, E_UNEXPECTED);
      EXPECT_EQ(V_VT(&call.result.raw()), VT_EMPTY);
    }
    ++calls_;
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
  int methods_ = 0;
  int calls_ = 0;
};

TEST_F(HostileCall, EveryStrangeValueInEveryPlaceByReferenceAndByValue) {
  const auto hostile = hostile_values();
  for_each_method([&](IDispatch* object, const ClassMember& method) {
    for (std::size_t place = 0; place < method.parameters.size(); ++place)
      for (const auto& each : hostile) {
        SCOPED_TRACE(std::string(method.parameters[place].name) + " is " + each.what);
        auto values = honest_values(method);
        Variant variable;
        ASSERT_EQ(VariantCopy(&variable.raw(), const_cast<VARIANT*>(&each.value.raw())), S_OK);
        auto arguments = arguments_of(method, values);
        arguments[place] = reference(variable.raw());
        call(object, method, arguments);
        arguments[place] = each.value.raw();
        call(object, method, arguments);
      }
  });
  EXPECT_GT(calls_, 5000);
}

TEST_F(HostileCall, BrokenVariantsAreRefused) {
  const auto broken = broken_arguments();
  for_each_method([&](IDispatch* object, const ClassMember& method) {
    for (std::size_t place = 0; place < method.parameters.size(); ++place)
      for (const auto& each : broken) {
        auto values = honest_values(method);
        auto arguments = arguments_of(method, values);
        arguments[place] = each;
        WireCall call{.id = method.id, .arguments = arguments};
        const HRESULT code = call.on(object);
        EXPECT_TRUE(code == E_POINTER || code == DISP_E_BADVARTYPE) << std::hex << code;
      }
  });
}

TEST_F(HostileCall, TextsOfTenMegabytesArriveOrAreRefused) {
  const std::string text(ten_megabytes, 'x');
  for_each_method([&](IDispatch* object, const ClassMember& method) {
    for (std::size_t place = 0; place < method.parameters.size(); ++place) {
      const ParameterType type = method.parameters[place].type;
      if (type != ParameterType::text && type != ParameterType::variant) continue;
      auto values = honest_values(method);
      values[place] = Variant(Value(text), Role::caller);
      call(object, method, arguments_of(method, values));
    }
  });
}

TEST_F(HostileCall, WrongNumbersOfArgumentsAreRefused) {
  for_each_method([&](IDispatch* object, const ClassMember& method) {
    auto values = honest_values(method);
    auto arguments = arguments_of(method, values);
    arguments.push_back(left_out());
    WireCall one_more{.id = method.id, .arguments = arguments};
    EXPECT_EQ(one_more.on(object), DISP_E_BADPARAMCOUNT);
    std::size_t required = 0;
    for (const auto& parameter : method.parameters) required += !parameter.optional();
    arguments.resize(required - 1);
    WireCall one_less{.id = method.id, .arguments = arguments};
    EXPECT_EQ(one_less.on(object), DISP_E_PARAMNOTOPTIONAL);
    WireCall none{.id = method.id};
    EXPECT_EQ(none.on(object), DISP_E_PARAMNOTOPTIONAL);
  });
}

TEST_F(HostileCall, HonestValuesFindTheirRows) {
  for_each_method([&](IDispatch* object, const ClassMember& method) {
    if (method.name != "Read") return;
    auto values = honest_values(method);
    call(object, method, arguments_of(method, values));
    EXPECT_EQ(error_number_of(object), 0) << error_description_of(object);
  });
  EXPECT_EQ(calls_, 9);
}

TEST_F(HostileCall, TextsOfOtherMembersComeBackAsTheyAre) {
  const auto addresses = new_client(dll_, served_class_id("CRevAddr"), company_);
  const auto names = automation::make_object<automation::Collection>();
  const auto contents = automation::make_object<automation::Collection>();
  auto name_variable = object_variant(names);
  auto content_variable = object_variant(contents);
  const Variant number(Value("X1"), Role::caller);
  WireCall read{
      .id = 11,
      .arguments = {number.raw(), reference(name_variable.raw()), reference(content_variable.raw())}};
  ASSERT_EQ(read.on(addresses.get()), S_OK);
  EXPECT_EQ(names.call("Item", 2), Value("ADDRNM"));
  EXPECT_EQ(contents.call("Item", 2), Value("\xED\xA0\xBD"));
}

TEST_F(HostileCall, SessionsOfStrangeTextsAreTakenAndReported) {
  for (const std::string& text : {std::string(), std::string("a\0b", 3), std::string("\xED\xA0\xBD"),
                                  std::string("'"), std::string(ten_megabytes / 10, 'x')})
    for (const auto& [name, id] : served_class_ids()) {
      SCOPED_TRACE(name);
      for (const DISPID property : {1, 2, 5, 6}) {
        const auto object = new_client(dll_, id, company_);
        put_session(object.get(), property, text);
        for (const auto& table : server::classes())
          if (const auto* method = table.name == name ? table.find(14, automation::Access::read) : nullptr) {
            auto values = honest_values(*method);
            call(object.get(), *method, arguments_of(*method, values));
          }
      }
    }
}

}  // namespace
}  // namespace tallyra::tests::com
