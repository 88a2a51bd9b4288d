#include "automation/apartment.h"

#include <utility>

namespace tallyra::automation {
namespace {

struct OfThread {
  std::unique_ptr<KeptByApartment> kept;

  ~OfThread() {
    // Letting it go may run any code, also such that keeps something again.
    while (const auto gone = std::move(kept)) {
    }
  }
};

thread_local OfThread of_thread;

}  // namespace

// Objects of this process need no set-up per thread.
Apartment::Apartment() = default;
Apartment::~Apartment() = default;

KeptByApartment* kept_by_apartment() {
  return of_thread.kept.get();
}

void keep_until_apartment_ends(std::unique_ptr<KeptByApartment> kept) {
  of_thread.kept = std::move(kept);
}

}  // namespace tallyra::automation
