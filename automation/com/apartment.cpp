#include "automation/apartment.h"

#include <objbase.h>

#include "automation/com/failure.h"

namespace tallyra::automation {

Apartment::Apartment() {
  com::throw_if_failed(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

Apartment::~Apartment() {
  CoUninitialize();
}

}  // namespace tallyra::automation
