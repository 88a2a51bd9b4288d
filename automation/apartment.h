#pragma once

#include <memory>

namespace tallyra::automation {

// A thread holds one while it creates and uses late-bound objects, and lets it go after the last of them.
// Objects never travel to another thread.
class Apartment {
 public:
  Apartment();
  ~Apartment();  // NOLINT(performance-trivially-destructible): on Windows there is something to do
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

// What a thread keeps until its apartment ends, the last moment at which objects of other modules may be let
// go: it is destroyed on that thread, just before. A thread has one at most.
//
// On Windows a thread that ends without having left its apartment, or has none of its own, leaves it behind:
// by then nothing of another module may be called. Where objects need no apartment, it goes with the thread.
class KeptByApartment {
 public:
  KeptByApartment() = default;
  virtual ~KeptByApartment() = default;
  KeptByApartment(const KeptByApartment&) = delete;
  KeptByApartment& operator=(const KeptByApartment&) = delete;
};

// What this thread keeps, or none.
KeptByApartment* kept_by_apartment();

// The thread must not keep anything yet. Throws Error when the system refuses; then nothing is kept.
void keep_until_apartment_ends(std::unique_ptr<KeptByApartment> kept);

}  // namespace tallyra::automation
