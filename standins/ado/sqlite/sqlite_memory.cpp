#include "standins/ado/sqlite/sqlite_memory.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <utility>

namespace tallyra::standins::ado::sqlite_memory {
namespace {

constexpr std::size_t grain = 32;     // the sizes of small pieces are its multiples
constexpr std::size_t largest = 512;  // small piece
constexpr std::size_t sizes = largest / grain + 1;
constexpr std::size_t carved_at_once = std::size_t{8} * 1024;
constexpr std::size_t bytes_kept_of_a_size = std::size_t{64} * 1024;  // by one thread

// In front of what the library gets: how much that is.
using Header = std::uint64_t;
constexpr std::size_t header = sizeof(Header);

// A small piece that waits. The first of a bundle knows of how many and of the next bundle.
struct Piece {
  Piece* next;
  Piece* next_bundle;
  std::size_t count;
};
static_assert(sizeof(Piece) <= grain);

// What threads leave to each other.
struct Depot {
  std::mutex mutex;
  std::array<Piece*, sizes> bundles{};
  std::size_t taken = 0;
};
constinit Depot depot;

// Of one size, by one thread.
struct Kept {
  Piece* first;
  std::size_t room;  // for so many more; none before the thread has begun and after it has ended
};

// Has no destructor, for it is used until the very end of its thread.
struct Thread {
  std::array<Kept, sizes> kept;
  bool begun;
  bool ended;
};
constinit thread_local Thread here{};

constexpr std::size_t most_kept(std::size_t size) {
  return bytes_kept_of_a_size / (size * grain);
}

void put_into_depot(std::size_t size, Piece* first, std::size_t count) {
  if (!first) return;
  first->count = count;
  const std::lock_guard lock(depot.mutex);
  first->next_bundle = std::exchange(depot.bundles[size], first);
}

void hand_over(std::size_t size) {
  Kept& kept = here.kept[size];
  put_into_depot(size, std::exchange(kept.first, nullptr), most_kept(size) - kept.room);
  kept.room = most_kept(size);
}

void keep(Kept& kept, Piece* piece) {
  piece->next = std::exchange(kept.first, piece);
  --kept.room;
}

struct Ending {
  ~Ending() {
    here.ended = true;
    for (std::size_t size = 1; size < sizes; ++size) {
      hand_over(size);
      here.kept[size].room = 0;
    }
  }
};

void begin_thread() {
  thread_local const Ending ending;
  here.begun = true;
  for (std::size_t size = 1; size < sizes; ++size) here.kept[size].room = most_kept(size);
}

// The depot's mutex is held.
Piece* carve(std::size_t size) {
  auto* const chunk = static_cast<char*>(std::malloc(carved_at_once));
  if (!chunk) return nullptr;
  depot.taken += carved_at_once;
  const std::size_t bytes = size * grain;
  const std::size_t count = carved_at_once / bytes;
  Piece* next = nullptr;
  for (std::size_t i = count; i-- > 0;) next = new (chunk + i * bytes) Piece{next, nullptr, count};
  return next;
}

// Of a size of which the thread has none.
bool fetch(std::size_t size) {
  const std::lock_guard lock(depot.mutex);
  Piece* bundle = depot.bundles[size];
  if (bundle)
    depot.bundles[size] = bundle->next_bundle;
  else
    bundle = carve(size);
  if (!bundle) return false;
  Kept& kept = here.kept[size];
  kept.first = bundle;
  kept.room -= bundle->count;
  return true;
}

void* with_header(void* begin, std::size_t bytes) {
  if (!begin) return nullptr;
  new (begin) Header(bytes);
  return static_cast<char*>(begin) + header;
}

char* begin_of(void* piece) {
  return static_cast<char*>(piece) - header;
}

std::size_t bytes_of(void* piece) {
  return *reinterpret_cast<Header*>(begin_of(piece));
}

bool is_small(std::size_t bytes) {
  return bytes + header <= largest;
}

void* allocate_large(std::size_t bytes) {
  return with_header(std::malloc(bytes + header), bytes);
}

// More than the thread keeps of this size, or the thread keeps nothing.
void release_beyond_room(std::size_t size, Piece* piece) {
  if (here.ended) return put_into_depot(size, piece, 1);
  if (here.begun)
    hand_over(size);
  else
    begin_thread();
  keep(here.kept[size], piece);
}

}  // namespace

void* allocate(int bytes) {
  const auto wanted = static_cast<std::size_t>(bytes);
  if (!is_small(wanted)) return allocate_large(wanted);
  const std::size_t size = (wanted + header + grain - 1) / grain;
  Kept& kept = here.kept[size];
  if (!kept.first) {
    // A thread at its end has nobody to leave a bundle to.
    if (here.ended) return allocate_large(largest);
    if (!here.begun) begin_thread();
    if (!fetch(size)) return nullptr;
  }
  Piece* const piece = std::exchange(kept.first, kept.first->next);
  ++kept.room;
  return with_header(piece, size * grain - header);
}

void release(void* piece) {
  if (!piece) return;
  const std::size_t bytes = bytes_of(piece);
  char* const begin = begin_of(piece);
  if (!is_small(bytes)) return std::free(begin);
  const std::size_t size = (bytes + header) / grain;
  Kept& kept = here.kept[size];
  auto* const waiting = new (begin) Piece{nullptr, nullptr, 0};
  if (kept.room == 0) return release_beyond_room(size, waiting);
  keep(kept, waiting);
}

void* resize(void* piece, int bytes) {
  const auto wanted = static_cast<std::size_t>(bytes);
  const std::size_t had = bytes_of(piece);
  if (is_small(had) && wanted <= had) return piece;
  if (!is_small(had) && !is_small(wanted))
    return with_header(std::realloc(begin_of(piece), wanted + header), wanted);
  void* const moved = allocate(bytes);
  if (!moved) return nullptr;
  std::memcpy(moved, piece, std::min(had, wanted));
  release(piece);
  return moved;
}

int size_of(void* piece) {
  return static_cast<int>(bytes_of(piece));
}

int rounded(int bytes) {
  const auto wanted = static_cast<std::size_t>(bytes);
  const std::size_t unit = is_small(wanted) ? grain : header;
  return static_cast<int>((wanted + header + unit - 1) / unit * unit - header);
}

std::size_t taken_bytes() {
  const std::lock_guard lock(depot.mutex);
  return depot.taken;
}

bool install() {
  static const sqlite3_mem_methods methods{
      allocate, release, resize, size_of, rounded, [](void*) { return SQLITE_OK; }, [](void*) {}, nullptr};
  return sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) == SQLITE_OK;
}

}  // namespace tallyra::standins::ado::sqlite_memory
