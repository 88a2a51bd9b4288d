#include "automation/com/counted_object.h"

#include <gtest/gtest.h>

#include "automation/com/pointer.h"

// Identity and life of every COM object of the component.
namespace tallyra::tests::com {
namespace {

using automation::com::CountedObject;
using automation::com::module_uses;
using automation::com::Pointer;

class Watched final : public CountedObject<IDispatch, ISupportErrorInfo, IProvideClassInfo2> {
 public:
  explicit Watched(int& ends) : ends_(ends) {}

  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_FALSE; }
  STDMETHODIMP GetClassInfo(ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetGUID(DWORD, GUID*) override { return E_NOTIMPL; }

 private:
  ~Watched() override {
    ++ends_;
    const Pointer<Watched> passing(this);
  }

  int& ends_;
};

TEST(CountedObject, IsFoundByEachOfItsInterfacesAndWhatTheyExtend) {
  int ends = 0;
  const auto object = Pointer<IDispatch>::adopt(new Watched(ends));
  void* const as_unknown = object.get();
  const struct {
    const IID& id;
    bool is_first;
  } rows[] = {{IID_IUnknown, true},
              {IID_IDispatch, true},
              {IID_ISupportErrorInfo, false},
              {IID_IProvideClassInfo, false},
              {IID_IProvideClassInfo2, false}};
  for (const auto& [id, is_first] : rows) {
    Pointer<IUnknown> found;
    ASSERT_EQ(object->QueryInterface(id, found.out_void()), S_OK);
    EXPECT_EQ(found.get() == as_unknown, is_first);
    Pointer<IUnknown> back;
    ASSERT_EQ(found->QueryInterface(IID_IUnknown, back.out_void()), S_OK);
    EXPECT_EQ(back.get(), as_unknown);
  }
}

TEST(CountedObject, HandsOutNothingForAnotherInterface) {
  int ends = 0;
  const auto object = Pointer<IDispatch>::adopt(new Watched(ends));
  void* found = &ends;
  EXPECT_EQ(object->QueryInterface(IID_IClassFactory, &found), E_NOINTERFACE);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(CountedObject, EndsOnceWithItsLastReferenceAndKeepsTheModuleUntilThen) {
  int ends = 0;
  const long uses = module_uses();
  IDispatch* const object = new Watched(ends);
  EXPECT_EQ(module_uses(), uses + 1);
  EXPECT_EQ(object->AddRef(), 2U);
  EXPECT_EQ(object->Release(), 1U);
  EXPECT_EQ(ends, 0);
  EXPECT_EQ(object->Release(), 0U);
  EXPECT_EQ(ends, 1) << "a reference taken meanwhile does not end it again";
  EXPECT_EQ(module_uses(), uses);
}

}  // namespace
}  // namespace tallyra::tests::com
