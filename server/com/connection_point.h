#pragma once

#include <ocidl.h>

#include <vector>

#include "automation/com/identity.h"
#include "automation/com/pointer.h"

namespace tallyra::server::com {

// Where clients connect to the events of an object. Part of its owner: it has the owner's life, and its
// connections end with it.
class ConnectionPoint final : public automation::com::Identity<IConnectionPoint> {
 public:
  // `owner` is the object's container of connection points.
  ConnectionPoint(IConnectionPointContainer& owner, REFIID events) : owner_(owner), events_(events) {}
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;
  ~ConnectionPoint();

  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** enumerator) override;

 private:
  struct Connection {
    DWORD cookie;
    automation::com::Pointer<IUnknown> sink;

    CONNECTDATA hand_out() const { return {automation::com::Pointer<IUnknown>(sink).detach(), cookie}; }
  };

  IConnectionPointContainer& owner_;
  IID events_;
  std::vector<Connection> connections_;
  DWORD last_cookie_ = 0;
  bool ending_ = false;
};

// The container of an object that has one connection point.
class SingleConnectionPoint final : public IConnectionPointContainer {
 public:
  SingleConnectionPoint(IUnknown& owner, REFIID events) : owner_(owner), point_(*this, events) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override { return owner_.QueryInterface(id, out); }
  STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** enumerator) override;
  STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override;

 private:
  struct Held {
    automation::com::Pointer<IConnectionPoint> point;

    IConnectionPoint* hand_out() const { return automation::com::Pointer<IConnectionPoint>(point).detach(); }
  };

  IUnknown& owner_;
  ConnectionPoint point_;
};

}  // namespace tallyra::server::com
