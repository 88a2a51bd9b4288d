#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/local/local_classes.h"

namespace tallyra::memory {

// Puts everything that a business object asks for outside, for as long as it lives: the classes that are
// registered under these names at that moment.
class ClassesOutside {
 public:
  ClassesOutside();
  ClassesOutside(const ClassesOutside&) = delete;
  ClassesOutside& operator=(const ClassesOutside&) = delete;

 private:
  std::vector<automation::local::Factory> inner_;
  std::vector<std::unique_ptr<automation::local::ScopedClass>> classes_;
};

// The writing statements of a transcript that have come to stay: those of committed transactions and those
// that were run in none, a line each.
std::string committed(const std::string& transcript);

}  // namespace tallyra::memory
