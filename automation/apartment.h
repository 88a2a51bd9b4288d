#pragma once

namespace tallyra::automation {

// A thread holds one while it creates and uses late-bound objects, and lets it go after the last of them.
// Objects never travel to another thread.
class Apartment {
 public:
  Apartment();
  ~Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

}  // namespace tallyra::automation
