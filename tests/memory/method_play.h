#pragma once

#include <functional>
#include <optional>
#include <string>

#include "tests/faults/scene.h"
#include "tests/memory/classes_outside.h"
#include "tests/memory/failing_new.h"

namespace tallyra::memory {

// A scene with everything ready for its call, to be played with and without memory.
class MethodPlay {
 public:
  using MakeClient = std::function<automation::Object(stage::Stage&, const faults::Scene&)>;
  MethodPlay(const faults::Scene& scene, const MakeClient& make_client);

  // What a call has come to.
  struct Seen {
    std::string outcome;    // its result and the error fields, or the number of the error it has raised
    std::string committed;  // the statements that have come to stay
    std::string fields;
    long allocations = 0;
    long failures = 0;
  };
  Seen play(std::optional<Shortage> shortage);

  // Plays the scene short of memory and says "memory" when it has ended as it should: in error 7 with nothing
  // stored and nothing left behind, and with a next call that ends as expected; "same" when it has done
  // without the memory; else what is wrong.
  std::string verdict(const Seen& expected, Shortage shortage);

 private:
  std::string fault(const Seen& seen, const Seen& expected);

  const faults::Scene& scene_;
  stage::Stage stage_;
  std::optional<ClassesOutside> outside_;
  automation::Object client_;
};

}  // namespace tallyra::memory
