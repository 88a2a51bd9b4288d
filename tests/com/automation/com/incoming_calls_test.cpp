#include "automation/com/incoming_calls.h"

#include <gtest/gtest.h>

#include "automation/com/com_object.h"
#include "automation/com/pointer.h"
#include "automation/error.h"
#include "tests/com/echo_object.h"
#include "tests/com/wire_call.h"

namespace tallyra::tests::com {
namespace {

using automation::Access;
using automation::Object;
using automation::com::access_of;
using automation::com::ComObject;
using automation::com::IncomingCalls;

TEST(IncomingCalls, TheFlagsSayHowAMemberIsUsed) {
  EXPECT_EQ(access_of(DISPATCH_METHOD), Access::read);
  EXPECT_EQ(access_of(DISPATCH_PROPERTYGET), Access::read);
  EXPECT_EQ(access_of(DISPATCH_METHOD | DISPATCH_PROPERTYGET), Access::read);
  EXPECT_EQ(access_of(DISPATCH_PROPERTYPUT), Access::put);
  EXPECT_EQ(access_of(DISPATCH_PROPERTYPUTREF), Access::put_reference);
  EXPECT_EQ(access_of(0), std::nullopt);
}

TEST(IncomingCalls, AnObjectIsKnownToTheSideThatMadeIt) {
  const Object echo = automation::make_object<EchoObject>();
  const auto object = ComObject::make(echo, Role::callee);
  EXPECT_EQ(IncomingCalls::object_behind(*object.get(), Role::callee), echo);
  EXPECT_FALSE(IncomingCalls::object_behind(*object.get(), Role::caller));
}

constexpr std::string_view parameters[] = {"First", "Second"};
constexpr automation::com::MemberSignature members[] = {{2, 1, parameters}};
constexpr automation::com::ObjectSignature signature{"Tallyra.Test", members};

TEST(IncomingCalls, NamesAreThoseOfAMemberAndItsParameters) {
  const IncomingCalls calls(automation::make_object<EchoObject>(), Role::callee, signature);
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"KEEP"), const_cast<LPOLESTR>(L"second"),
                      const_cast<LPOLESTR>(L"First")};
  DISPID ids[3];
  ASSERT_EQ(calls.ids_of_names(names, 3, ids), S_OK);
  EXPECT_EQ(std::vector<DISPID>(ids, ids + 3), (std::vector<DISPID>{2, 1, 0}));
  LPOLESTR unknown[] = {const_cast<LPOLESTR>(L"Keep"), const_cast<LPOLESTR>(L"Third")};
  EXPECT_EQ(calls.ids_of_names(unknown, 2, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST(IncomingCalls, ASignatureIsFoundByTheMembersId) {
  EXPECT_EQ(signature.find(2), &members[0]);
  EXPECT_EQ(signature.find(3), nullptr);
}

TEST(IncomingCalls, OfAnInterfaceLeaveTheirFailureWithTheThread) {
  const IncomingCalls calls(automation::make_object<EchoObject>(), Role::callee, signature);
  DISPPARAMS none{};
  EXPECT_EQ(calls.call(IID_IDispatch, 3, none, nullptr), static_cast<HRESULT>(0x800A0E78));
  automation::com::Pointer<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
  BSTR source = nullptr;
  EXPECT_EQ(info->GetSource(&source), S_OK);
  EXPECT_STREQ(source, L"Tallyra.Test");
  SysFreeString(source);
}

}  // namespace
}  // namespace tallyra::tests::com
