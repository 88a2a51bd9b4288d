#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/com/business_objects.h"
#include "tests/com/counting_sink.h"

// Connecting to the events of the month close.
namespace tallyra::tests::com {
namespace {

using automation::com::query;

class Events : public testing::Test {
 protected:
  Pointer<_CStockClose> close_ = new_close();
  Pointer<IConnectionPointContainer> container_ = query<IConnectionPointContainer>(close_.get());

  Pointer<IConnectionPoint> point() {
    Pointer<IConnectionPoint> found;
    EXPECT_EQ(container_->FindConnectionPoint(DIID___CStockClose, found.out()), S_OK);
    return found;
  }
};

TEST_F(Events, AClientConnectsAndDisconnects) {
  for (const IID& answers : {DIID___CStockClose, IID_IDispatch}) {
    CountingSink sink(answers);
    DWORD cookie = 0;
    ASSERT_EQ(point()->Advise(&sink, &cookie), S_OK);
    EXPECT_NE(cookie, 0U);
    EXPECT_EQ(sink.references, 2U);
    EXPECT_EQ(point()->Unadvise(cookie), S_OK);
    EXPECT_EQ(sink.references, 1U);
    EXPECT_EQ(point()->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(sink.calls, 0) << "connecting is no event";
  }
}

TEST_F(Events, ConnectionsEndWithTheObject) {
  CountingSink sink(DIID___CStockClose);
  DWORD cookie = 0;
  ASSERT_EQ(point()->Advise(&sink, &cookie), S_OK);
  container_ = {};
  close_ = {};
  EXPECT_EQ(sink.references, 1U);
}

// Uses the object that lets it go, as if that were a call like any other.
class LingeringSink : public CountingSink {
 public:
  LingeringSink(IConnectionPointContainer& object, IConnectionPoint& point)
      : CountingSink(IID_IDispatch), object_(object), point_(point) {}

  STDMETHODIMP_(ULONG) Release() override {
    if (references == 2 && !let_go) {
      let_go = true;
      // References of its own, taken and let go.
      found_object = static_cast<bool>(query<_CStockClose>(&object_));
      const Pointer<IConnectionPoint> held(&point_);
      unadvise_code = point_.Unadvise(cookie);
      DWORD again = 0;
      advise_code = point_.Advise(this, &again);
    }
    return CountingSink::Release();
  }

  DWORD cookie = 0;
  bool let_go = false;
  bool found_object = false;
  HRESULT unadvise_code = S_OK;
  HRESULT advise_code = S_OK;

 private:
  IConnectionPointContainer& object_;
  IConnectionPoint& point_;
};

TEST_F(Events, ASinkMayUseTheObjectThatLetsItGo) {
  LingeringSink first(*container_.get(), *point().get());
  LingeringSink second(*container_.get(), *point().get());
  for (LingeringSink* sink : {&first, &second}) ASSERT_EQ(point()->Advise(sink, &sink->cookie), S_OK);
  const long uses = automation::com::module_uses();
  container_ = {};
  close_ = {};
  EXPECT_EQ(automation::com::module_uses(), uses - 1) << "the object is gone, and went once";
  for (const LingeringSink* sink : {&first, &second}) {
    EXPECT_TRUE(sink->let_go);
    EXPECT_TRUE(sink->found_object);
    EXPECT_EQ(sink->unadvise_code, CONNECT_E_NOCONNECTION);
    EXPECT_EQ(sink->advise_code, CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(sink->references, 1U);
  }
}

TEST_F(Events, TheConnectionPointKeepsItsObjectAlive) {
  const auto kept = point();
  container_ = {};
  close_ = {};
  Pointer<IConnectionPointContainer> again;
  ASSERT_EQ(kept->GetConnectionPointContainer(again.out()), S_OK);
  EXPECT_TRUE(query<_CStockClose>(again.get()));
}

TEST_F(Events, OnlyTheDeclaredEventsAreOffered) {
  Pointer<IConnectionPoint> other;
  EXPECT_EQ(container_->FindConnectionPoint(IID_IDispatch, other.out()), CONNECT_E_NOCONNECTION);
  IID id;
  EXPECT_EQ(point()->GetConnectionInterface(&id), S_OK);
  EXPECT_EQ(id, DIID___CStockClose);
  EXPECT_FALSE(query<IConnectionPointContainer>(new_head().get())) << "no other class has events";
}

TEST_F(Events, PointsAndConnectionsAreEnumerated) {
  Pointer<IEnumConnectionPoints> points;
  ASSERT_EQ(container_->EnumConnectionPoints(points.out()), S_OK);
  Pointer<IConnectionPoint> first;
  ASSERT_EQ(points->Next(1, first.out(), nullptr), S_OK);
  EXPECT_EQ(first.get(), point().get());
  Pointer<IConnectionPoint> second;
  EXPECT_EQ(points->Next(1, second.out(), nullptr), S_FALSE);

  CountingSink sink(IID_IDispatch);
  DWORD cookies[2];
  for (DWORD& cookie : cookies) ASSERT_EQ(first->Advise(&sink, &cookie), S_OK);
  Pointer<IEnumConnections> connections;
  ASSERT_EQ(first->EnumConnections(connections.out()), S_OK);
  CONNECTDATA data[3];
  ULONG count = 0;
  EXPECT_EQ(connections->Next(3, data, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  for (ULONG i = 0; i < count; ++i) {
    EXPECT_EQ(data[i].dwCookie, cookies[i]);
    data[i].pUnk->Release();
  }
  for (const DWORD cookie : cookies) EXPECT_EQ(first->Unadvise(cookie), S_OK);
  connections = {};
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(Events, NullPointersAndForeignSinksAreRefused) {
  DWORD cookie = 7;
  CountingSink mute(IID_IUnknown);
  EXPECT_EQ(point()->Advise(&mute, &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0U);
  EXPECT_EQ(point()->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point()->Advise(&mute, nullptr), E_POINTER);
  EXPECT_EQ(point()->GetConnectionInterface(nullptr), E_POINTER);
  EXPECT_EQ(point()->EnumConnections(nullptr), E_POINTER);
  EXPECT_EQ(container_->EnumConnectionPoints(nullptr), E_POINTER);
  EXPECT_EQ(container_->FindConnectionPoint(DIID___CStockClose, nullptr), E_POINTER);
  EXPECT_EQ(mute.references, 1U);
}

TEST_F(Events, TheClassTellsItsDefaultEventInterface) {
  const auto info = query<IProvideClassInfo2>(close_.get());
  ASSERT_TRUE(info);
  GUID id;
  EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
  EXPECT_EQ(id, DIID___CStockClose);
  EXPECT_EQ(info->GetGUID(99, &id), E_INVALIDARG);
  Pointer<ITypeInfo> class_info;
  ASSERT_EQ(info->GetClassInfo(class_info.out()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(class_info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_EQ(attributes->guid, CLSID_CStockClose);
  class_info->ReleaseTypeAttr(attributes);
  const auto plain = query<IProvideClassInfo2>(new_head().get());
  EXPECT_EQ(plain->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), E_INVALIDARG);
}

}  // namespace
}  // namespace tallyra::tests::com
