#include "automation/apartment.h"

namespace tallyra::automation {
namespace {

constexpr int most_rounds = 100;

struct OfThread {
  std::unique_ptr<KeptByApartment> kept;

  ~OfThread() {
    // Letting it go may run any code, also such that keeps something again, and does so for ever.
    for (int round = 0; kept && round < most_rounds; ++round) kept.reset();
    static_cast<void>(kept.release());
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
