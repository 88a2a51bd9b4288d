#include <gtest/gtest.h>

#include "automation/com/text.h"
#include "tallyra.h"
#include "tests/com/client_objects.h"
#include "tests/com/wire_call.h"

// The one error that leaves a business method: when the closing-date guard fails while its connection is
// open, it asks the connection for a member that no connection has.
namespace tallyra::tests::com {
namespace {

constexpr DISPID valid_close_id = 15;
constexpr auto no_such_member = static_cast<HRESULT>(0x800A01B6);
constexpr char no_such_member_text[] = "Object doesn't support this property or method";
// No such table, as far as a single-precision number holds it.
constexpr auto no_such_table = static_cast<float>(static_cast<HRESULT>(0x80040E37));

class GuardError : public testing::Test {
 protected:
  GuardError() { company_.run({"DROP TABLE STKCLOSEHD"}); }

  // Calls by name; what is known of the failure then has to be what the error fields do not say.
  void expect_described(REFCLSID class_id, const std::string& source, float error_number) {
    const auto guard = new_client(dll_, class_id, company_);
    const Variant day(Value("2024/02/10"), Role::caller);
    WireCall call{.id = valid_close_id, .arguments = {day.raw()}};
    EXPECT_EQ(call.on(guard.get()), DISP_E_EXCEPTION);
    EXPECT_EQ(call.failure.scode, no_such_member);
    EXPECT_EQ(call.failure.wCode, 0);
    EXPECT_EQ(automation::com::text_of(call.failure.bstrDescription), no_such_member_text);
    EXPECT_EQ(automation::com::text_of(call.failure.bstrSource), source);
    EXPECT_EQ(V_VT(&call.result.raw()), VT_EMPTY);
    EXPECT_EQ(error_number_of(guard.get()), error_number);
    EXPECT_FALSE(error_description_of(guard.get()).empty());

    WireCall quiet{.id = valid_close_id, .arguments = {day.raw()}};
    EXPECT_EQ(quiet.on(guard.get(), {.result = false, .failure = false, .argument_at_fault = false}),
              no_such_member)
        << "nobody asks for a description";
    EXPECT_EQ(error_number_of(guard.get()), error_number);
  }

  template <class Interface>
  void expect_error_object(REFCLSID class_id, const std::string& source, float error_number) {
    const auto guard = automation::com::query<Interface>(new_client(dll_, class_id, company_).get());
    ASSERT_TRUE(guard);
    const auto support = automation::com::query<ISupportErrorInfo>(guard.get());
    ASSERT_TRUE(support);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(Interface)), S_OK);
    SetErrorInfo(0, nullptr);
    Variant verdict(Value(7), Role::caller);
    EXPECT_EQ(guard->ValidCloseDT(Variant(Value("2024/02/10"), Role::caller).raw(), &verdict.raw()),
              no_such_member);
    EXPECT_EQ(V_VT(&verdict.raw()), VT_EMPTY);
    Pointer<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
    BSTR text = nullptr;
    GUID id;
    EXPECT_EQ(info->GetDescription(&text), S_OK);
    EXPECT_EQ(text_and_free(text), no_such_member_text);
    EXPECT_EQ(info->GetSource(&text), S_OK);
    EXPECT_EQ(text_and_free(text), source);
    EXPECT_EQ(info->GetGUID(&id), S_OK);
    EXPECT_EQ(id, __uuidof(Interface));
    float number = 0;
    EXPECT_EQ(guard->get_ErrNumber(&number), S_OK);
    EXPECT_EQ(number, error_number);
  }

  ServerDll dll_;
  behaviour::CompanyDatabase company_;
};

TEST_F(GuardError, ReachesClientsThatCallByName) {
  expect_described(CLSID_CTranHead, "Tallyra.CTranHead", closed_period);
  expect_described(CLSID_CCheckHead, "Tallyra.CCheckHead", no_such_table);
}

TEST_F(GuardError, ReachesCompiledClients) {
  expect_error_object<_CTranHead>(CLSID_CTranHead, "Tallyra.CTranHead", closed_period);
  expect_error_object<_CCheckHead>(CLSID_CCheckHead, "Tallyra.CCheckHead", no_such_table);
}

TEST_F(GuardError, StaysInsideWhileTheConnectionIsNotOpen) {
  const auto guard = new_client(dll_, CLSID_CTranHead, company_);
  put_session(guard.get(), 6, "DRIVER={NoSuchDriver}");
  const Variant day(Value("2024/02/10"), Role::caller);
  WireCall call{.id = valid_close_id, .arguments = {day.raw()}};
  EXPECT_EQ(call.on(guard.get()), S_OK);
  EXPECT_EQ(error_number_of(guard.get()), closed_period);
}

}  // namespace
}  // namespace tallyra::tests::com
