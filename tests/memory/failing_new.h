#pragma once

// operator new of the whole program, which fails when a test asks it to. Only what C++ code allocates by it
// counts; C libraries have memory as ever.
namespace tallyra::memory {

// Which allocations fail, counted from 1 from the moment of asking.
struct Shortage {
  long first;
  // Either one or all until the shortage ends.
  enum class Length { once, from_then_on } length;
};

// Begins to count, and to fail when there is anything to fail. One thread, one shortage at a time.
void begin(Shortage shortage);
// Begins to count; nothing fails.
void begin_counting();
// Ends it and tells how many allocations were asked for.
long end();
// How many of them have failed.
long failures();

// Until it ends, allocations neither count nor fail: they are somebody else's.
class Pause {
 public:
  Pause();
  ~Pause();
  Pause(const Pause&) = delete;
  Pause& operator=(const Pause&) = delete;

 private:
  bool before_;
};

}  // namespace tallyra::memory
