#include "automation/apartment.h"

namespace tallyra::automation {

// Objects of this process need no set-up per thread.
Apartment::Apartment() = default;
Apartment::~Apartment() = default;

}  // namespace tallyra::automation
