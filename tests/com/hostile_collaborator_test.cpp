#include <gtest/gtest.h>

#include "automation/collection.h"
#include "automation/com/text.h"
#include "tallyra.h"
#include "tests/com/client_objects.h"
#include "tests/com/scoped_class_object.h"
#include "tests/com/wire_call.h"

// Sibling libraries that answer with what nobody expects.
namespace tallyra::tests::com {
namespace {

using automation::Object;

// Has every member, and every member is the same.
class Yes : public automation::Dispatch {
 public:
  explicit Yes(Value answer) : answer_(std::move(answer)) {}
  automation::MemberId resolve(std::string_view) override { return 1; }
  Value invoke(automation::MemberId, automation::Access, automation::Arguments arguments) override {
    for (const auto& argument : arguments) argument.set(answer_);
    return answer_;
  }

 private:
  Value answer_;
};

class HostileCollaborator : public testing::Test {
 protected:
  // Inserting without columns looks a message up.
  Pointer<_CRevAddr> refused_insert() {
    const auto object = new_client(dll_, CLSID_CRevAddr, company_);
    auto addresses = automation::com::query<_CRevAddr>(object.get());
    BSTR number = SysAllocString(L"A1");
    const Object empty = automation::make_object<automation::Collection>();
    IDispatch* names = automation::com::ComObject::make(empty, Role::caller).detach();
    IDispatch* values = automation::com::ComObject::make(empty, Role::caller).detach();
    float result = 7;
    EXPECT_EQ(addresses->Insert(&number, &names, &values, &result), S_OK);
    EXPECT_EQ(result, 0);
    SysFreeString(number);
    names->Release();
    values->Release();
    return addresses;
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
};

TEST_F(HostileCollaborator, MessagesOfAnyTextArriveWhole) {
  for (const std::string& message :
       {std::string("\xED\xA0\xBD"), std::string("x\xED\xB8\x80"), std::string("a\0b", 3),
        std::string("\0", 1), std::string(10'000'000, 'x')}) {
    const ScopedClassObject messages(L"Lexbank.ErrMsg",
                                     [&] { return automation::make_object<Yes>(Value(message)); });
    const auto addresses = refused_insert();
    EXPECT_EQ(messages.created, 1);
    float number = 0;
    EXPECT_EQ(addresses->get_ErrNumber(&number), S_OK);
    EXPECT_EQ(number, 10000002);
    BSTR description = nullptr;
    EXPECT_EQ(addresses->get_ErrDescription(&description), S_OK);
    EXPECT_TRUE(automation::com::text_of(description) == message) << message.size();
    SysFreeString(description);
    EXPECT_TRUE(error_description_of(addresses.get()) == message);
  }
}

TEST_F(HostileCollaborator, MessagesThatAreNoTextEndInTheErrorTrap) {
  const std::pair<Value, float> cases[] = {
      {automation::Null{}, 94}, {Object(), 91},      {automation::make_object<automation::Collection>(), 450},
      {Value(12.5), 10000002},  {Value(), 10000002},
  };
  for (const auto& [message, expected] : cases) {
    const ScopedClassObject messages(L"Lexbank.ErrMsg",
                                     [&] { return automation::make_object<Yes>(message); });
    const auto addresses = refused_insert();
    float number = 0;
    EXPECT_EQ(addresses->get_ErrNumber(&number), S_OK);
    EXPECT_EQ(number, expected);
  }
}

// Takes every question for one about rights, and answers as it was told to.
class Rights : public automation::Dispatch {
 public:
  Rights(std::int32_t raised, std::int32_t reported) : raised_(raised), reported_(reported) {}
  automation::MemberId resolve(std::string_view name) override {
    return name == "PowerCheck" ? 1 : name == "ErrNumber" ? 2 : name == "CanInsert" ? 3 : 4;
  }
  Value invoke(automation::MemberId member, automation::Access, automation::Arguments) override {
    if (member == 1 && raised_ != 0) throw automation::Error(raised_);
    if (member == 2) return reported_;
    return member == 3 ? Value(1) : Value("");
  }

 private:
  std::int32_t raised_;
  std::int32_t reported_;
};

// The error fields after an insert with rights of that kind.
std::pair<float, std::string> fields_after_insert(const ServerDll& dll,
                                                  const behaviour::CompanyDatabase& company,
                                                  std::int32_t raised, std::int32_t reported) {
  const ScopedClassObject rights(L"Corvane.CPowerCheck",
                                 [&] { return automation::make_object<Rights>(raised, reported); });
  const auto object = new_client(dll, CLSID_CRevAddr, company);
  const Variant key(Value("A1"), Role::caller);
  stage::Fields fields{{"ADDRNO", "A1"}};
  Variant names(fields.names, Role::caller);
  Variant values(fields.values, Role::caller);
  WireCall call{.id = 13, .arguments = {key.raw(), reference(names.raw()), reference(values.raw())}};
  EXPECT_EQ(call.on(object.get()), S_OK);
  return {error_number_of(object.get()), error_description_of(object.get())};
}

TEST_F(HostileCollaborator, AnErrorWithoutATextIsAnAutomationErrorUnlessItIsCopied) {
  using Told = std::pair<float, std::string>;
  EXPECT_EQ(fields_after_insert(dll_, company_, -2147220000, 0),
            Told(static_cast<float>(-2147220000), "Automation error"));
  EXPECT_EQ(fields_after_insert(dll_, company_, 0, 4711), Told(4711.0F, ""));
}

// A collaborator that gives the same strange answer to everything, and puts it in place of every argument.
TEST_F(HostileCollaborator, AnyAnswerIsAResultOfFailureOrACode) {
  const Value answers[] = {Value(),
                           automation::Null{},
                           Object(),
                           "\xED\xA0\xBD'",
                           -2147483647 - 1,
                           1e300,
                           automation::Date{1e9},
                           std::string(100'000, '\''),
                           automation::make_object<automation::Collection>()};
  int calls = 0;
  for (const wchar_t* prog_id :
       {L"Lexbank.ErrMsg", L"Lexbank.CPartF", L"Corvane.CPowerCheck", L"Corvane.CSystem"})
    for (const auto& answer : answers) {
      const ScopedClassObject collaborator(prog_id, [&] { return automation::make_object<Yes>(answer); });
      for (const auto& [name, id] : served_class_ids()) {
        SCOPED_TRACE(name);
        const auto object = new_client(dll_, id, company_);
        for (DISPID member = 11; member <= 16; ++member) {
          std::vector<Variant> values(7);
          std::vector<VARIANTARG> arguments;
          for (auto& each : values) {
            each = Variant(Value(arguments.size() < 3 ? "2024/01/31" : "1"), Role::caller);
            arguments.push_back(reference(each.raw()));
          }
          // As many arguments as the member takes.
          for (; !arguments.empty(); arguments.pop_back()) {
            WireCall call{.id = member, .arguments = arguments};
            const HRESULT code = call.on(object.get());
            if (code == DISP_E_BADPARAMCOUNT) continue;
            const bool failed_result = V_VT(&call.result.raw()) == VT_R4 && V_R4(&call.result.raw()) == 0;
            if (code == S_OK && failed_result) {
              EXPECT_NE(error_number_of(object.get()), 0);
            }
            ++calls;
            break;
          }
        }
      }
    }
  EXPECT_GT(calls, 1000);
}

}  // namespace
}  // namespace tallyra::tests::com
