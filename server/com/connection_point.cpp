#include "server/com/connection_point.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "server/com/snapshot_enumerator.h"

namespace tallyra::server::com {

using automation::com::Pointer;

ConnectionPoint::~ConnectionPoint() {
  ending_ = true;
  // Letting the sinks go may run code that comes back here.
  const std::vector<Connection> ended = std::move(connections_);
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) {
  if (!id) return E_POINTER;
  *id = events_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = Pointer<IConnectionPointContainer>(&owner_).detach();
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  if (ending_) return CONNECT_E_CANNOTCONNECT;
  // Clients of late-bound events answer to IDispatch alone.
  Pointer<IUnknown> events;
  if (FAILED(sink->QueryInterface(events_, events.out_void())) &&
      FAILED(sink->QueryInterface(IID_IDispatch, events.out_void())))
    return CONNECT_E_CANNOTCONNECT;
  try {
    connections_.push_back({last_cookie_ + 1, std::move(events)});
  } catch (...) {
    return automation::current_hresult();
  }
  *cookie = ++last_cookie_;
  return S_OK;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = std::find_if(connections_.begin(), connections_.end(),
                                  [cookie](const Connection& each) { return each.cookie == cookie; });
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  // Letting the sink go may run code that comes back here.
  const Connection ended = std::move(*found);
  connections_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** enumerator) {
  if (!enumerator) return E_POINTER;
  *enumerator = nullptr;
  try {
    *enumerator = new SnapshotEnumerator<IEnumConnections, CONNECTDATA, Connection>(connections_);
    return S_OK;
  } catch (...) {
    return automation::current_hresult();
  }
}

HRESULT SingleConnectionPoint::EnumConnectionPoints(IEnumConnectionPoints** enumerator) {
  if (!enumerator) return E_POINTER;
  *enumerator = nullptr;
  try {
    std::vector<Held> points;
    points.push_back({Pointer<IConnectionPoint>(&point_)});
    *enumerator = new SnapshotEnumerator<IEnumConnectionPoints, IConnectionPoint*, Held>(std::move(points));
    return S_OK;
  } catch (...) {
    return automation::current_hresult();
  }
}

HRESULT SingleConnectionPoint::FindConnectionPoint(REFIID events, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  IID offered;
  point_.GetConnectionInterface(&offered);
  if (events != offered) return CONNECT_E_NOCONNECTION;
  *point = Pointer<IConnectionPoint>(&point_).detach();
  return S_OK;
}

}  // namespace tallyra::server::com
