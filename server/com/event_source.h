#pragma once

#include "server/com/connection_point.h"
#include "server/com/interface_object.h"

namespace tallyra::server::com {

// A business object whose events clients can connect to.
template <class Interface, class Events>
class EventSource : public InterfaceObject<Interface> {
 public:
  EventSource(std::string_view name, REFCLSID class_id)
      : InterfaceObject<Interface>(name, class_id),
        events_(*static_cast<Interface*>(this), __uuidof(Events)) {}

 private:
  void* find_interface(REFIID id) override {
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(&events_);
    return InterfaceObject<Interface>::find_interface(id);
  }
  GUID event_interface() const override { return __uuidof(Events); }

  SingleConnectionPoint events_;
};

}  // namespace tallyra::server::com
