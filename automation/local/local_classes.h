#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "automation/object.h"

// Classes of this process by ProgID: what the registry has for a machine.
namespace tallyra::automation::local {

using Factory = std::function<Object()>;

// Registers a class for the process; a later registration of the same ProgID takes its place. Safe from any
// thread.
void register_class(std::string_view prog_id, Factory factory);

// The class registered under the ProgID, whatever its case; empty when there is none.
Factory find_factory(std::string_view prog_id);

// Puts a class in the place of another, or of none, for as long as it lives. An empty factory hides the
// class.
class ScopedClass {
 public:
  ScopedClass(std::string_view prog_id, Factory factory);
  ~ScopedClass();
  ScopedClass(const ScopedClass&) = delete;
  ScopedClass& operator=(const ScopedClass&) = delete;

 private:
  std::string prog_id_;
  Factory previous_;
};

}  // namespace tallyra::automation::local
