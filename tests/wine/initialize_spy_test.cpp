#include <gtest/gtest.h>
#include <objbase.h>
#include <objidl.h>
#include <ole2.h>

#include <string>
#include <thread>

// How the system tells of the end of a thread's apartment, on which the component relies.
namespace {

// Notes what it is told. Revokes itself before the end, if it is to.
class NotingSpy : public IInitializeSpy {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == __uuidof(IInitializeSpy) ? this : nullptr;
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  STDMETHODIMP PreInitialize(DWORD, DWORD count) override { return note("before +", count); }
  STDMETHODIMP PostInitialize(HRESULT result, DWORD, DWORD count) override {
    note("after +", count);
    return result;
  }
  STDMETHODIMP PreUninitialize(DWORD count) override {
    note("before -", count);
    if (revokes_itself && count == 1) {
      EXPECT_EQ(CoRevokeInitializeSpy(cookie), S_OK);
    }
    return S_OK;
  }
  STDMETHODIMP PostUninitialize(DWORD count) override { return note("after -", count); }

  HRESULT register_here() { return CoRegisterInitializeSpy(this, &cookie); }

  std::string notes;
  ULONG references = 1;
  bool revokes_itself = false;

 private:
  HRESULT note(const char* what, DWORD count) {
    notes += what + std::to_string(count) + "; ";
    return S_OK;
  }

  ULARGE_INTEGER cookie{};
};

void on_thread(void (*body)(NotingSpy&), NotingSpy& spy) {
  std::thread(body, std::ref(spy)).join();
}

TEST(InitializeSpy, IsToldTheCountBeforeItFallsAndAfter) {
  NotingSpy spy;
  on_thread(
      [](NotingSpy& here) {
        ASSERT_EQ(here.register_here(), S_OK) << "before the apartment";
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))) << "a nested one";
        OleUninitialize();
        CoUninitialize();
      },
      spy);
  EXPECT_EQ(spy.notes,
            "before +0; after +1; before +1; after +2; before -2; after -1; before -1; after -0; ");
}

TEST(InitializeSpy, IsToldOfOneUninitializeTooMany) {
  NotingSpy spy;
  on_thread(
      [](NotingSpy& here) {
        ASSERT_EQ(here.register_here(), S_OK);
        CoUninitialize();
      },
      spy);
  EXPECT_EQ(spy.notes, "before -0; after -0; ");
}

TEST(InitializeSpy, MayRevokeItselfBeforeTheEnd) {
  NotingSpy spy;
  spy.revokes_itself = true;
  on_thread(
      [](NotingSpy& here) {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        ASSERT_EQ(here.register_here(), S_OK);
        CoUninitialize();
        EXPECT_EQ(here.references, 1U);
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        CoUninitialize();
      },
      spy);
  EXPECT_EQ(spy.notes, "before -1; ");
}

TEST(InitializeSpy, IsLetGoWithoutACallWhenItsThreadEndsInItsApartment) {
  NotingSpy spy;
  on_thread(
      [](NotingSpy& here) {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        ASSERT_EQ(here.register_here(), S_OK);
        EXPECT_EQ(here.references, 2U);
      },
      spy);
  EXPECT_EQ(spy.notes, "");
  EXPECT_EQ(spy.references, 1U);
}

TEST(ApartmentOfThread, TellsWhetherItIsItsOwn) {
  std::thread([] {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), S_OK);
    EXPECT_EQ(qualifier, APTTYPEQUALIFIER_NONE);
    std::thread([] {
      APTTYPE inner{};
      APTTYPEQUALIFIER inner_qualifier{};
      EXPECT_EQ(CoGetApartmentType(&inner, &inner_qualifier), S_OK);
      EXPECT_EQ(inner_qualifier, APTTYPEQUALIFIER_IMPLICIT_MTA);
    }).join();
    CoUninitialize();
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
  }).join();
}

}  // namespace
