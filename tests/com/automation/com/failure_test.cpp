#include "automation/com/failure.h"

#include <gtest/gtest.h>

#include "automation/com/pointer.h"
#include "automation/com/text.h"

namespace tallyra::tests::com {
namespace {

using automation::Error;
using namespace automation::com;

// How codes and descriptions are read, com_proxy_test.cpp tells.
TEST(ComFailure, IsThrownForAFailingCodeOnly) {
  EXPECT_NO_THROW(throw_if_failed(S_OK));
  EXPECT_NO_THROW(throw_if_failed(S_FALSE));
  try {
    throw_if_failed(DISP_E_TYPEMISMATCH);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 13);
    EXPECT_EQ(error.description(), "Type mismatch");
  }
}

TEST(ComFailure, ADescribedErrorComesBackTheSame) {
  EXCEPINFO description;
  describe(description, Error(3704, "geschloßen"), "Tallyra.CRevAddr");
  EXPECT_EQ(description.scode, static_cast<SCODE>(0x800A0E78));
  EXPECT_STREQ(description.bstrSource, L"Tallyra.CRevAddr");
  const Error again = error_of(description);
  EXPECT_EQ(again.number(), 3704);
  EXPECT_EQ(again.description(), "geschloßen");
  EXPECT_EQ(description.bstrDescription, nullptr) << "its texts are freed";
  EXPECT_EQ(description.bstrSource, nullptr);
}

TEST(ComFailure, IsTheErrorObjectOfTheThreadForInterfaceMembers) {
  set_error_object(IID_IDispatch, Error(3704, "closed"), "Tallyra.CRevAddr");
  Pointer<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
  GUID of{};
  EXPECT_EQ(info->GetGUID(&of), S_OK);
  EXPECT_EQ(of, IID_IDispatch);
  BSTR source = nullptr;
  BSTR description = nullptr;
  EXPECT_EQ(info->GetSource(&source), S_OK);
  EXPECT_EQ(info->GetDescription(&description), S_OK);
  EXPECT_STREQ(source, L"Tallyra.CRevAddr");
  EXPECT_STREQ(description, L"closed");
  SysFreeString(source);
  SysFreeString(description);
}

}  // namespace
}  // namespace tallyra::tests::com
