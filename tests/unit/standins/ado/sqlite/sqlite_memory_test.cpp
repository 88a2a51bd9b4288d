#include "standins/ado/sqlite/sqlite_memory.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "tests/unit/standins/ado/scratch_database.h"

namespace tallyra::standins::ado::test {
namespace {

using sqlite_memory::allocate;
using sqlite_memory::release;
using sqlite_memory::resize;
using sqlite_memory::rounded;
using sqlite_memory::size_of;
using sqlite_memory::taken_bytes;

// Below and above what a small piece is.
constexpr int sizes[] = {1, 8, 24, 25, 56, 100, 200, 503, 504, 505, 512, 1000, 4360, 100'000};

struct Written {
  void* piece;
  int bytes;
  unsigned char content;
};

bool is_intact(const Written& written) {
  const auto* const bytes = static_cast<const unsigned char*>(written.piece);
  for (int i = 0; i < written.bytes; ++i)
    if (bytes[i] != written.content) return false;
  return true;
}

void fill(const Written& written) {
  std::memset(written.piece, written.content, static_cast<std::size_t>(written.bytes));
}

TEST(SqliteMemory, APieceHoldsWhatWasAskedForAndTellsHowMuchItHolds) {
  for (const int bytes : sizes) {
    void* const piece = allocate(bytes);
    ASSERT_NE(piece, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece) % 8, 0U);
    EXPECT_GE(size_of(piece), bytes);
    EXPECT_GE(rounded(bytes), bytes);
    EXPECT_EQ(rounded(rounded(bytes)), rounded(bytes));
    void* const round = allocate(rounded(bytes));
    EXPECT_EQ(size_of(round), rounded(bytes));
    std::memset(piece, 0xFF, static_cast<std::size_t>(size_of(piece)));
    std::memset(round, 0xFF, static_cast<std::size_t>(size_of(round)));
    release(piece);
    release(round);
  }
  release(nullptr);
}

TEST(SqliteMemory, PiecesKeepTheirContentHoweverOthersComeGoAndGrow) {
  std::mt19937 random(7);
  const auto any = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  std::vector<Written> all;
  for (int step = 0; step < 100'000; ++step) {
    const int bytes = 1 + any(any(10) == 0 ? 5000 : 600);
    if (all.empty() || any(3) == 0) {
      all.push_back({allocate(bytes), bytes, static_cast<unsigned char>(any(256))});
      fill(all.back());
      continue;
    }
    Written& one = all[static_cast<std::size_t>(any(static_cast<int>(all.size())))];
    ASSERT_TRUE(is_intact(one));
    if (any(2) == 0) {
      one.piece = resize(one.piece, bytes);
      one.bytes = std::min(one.bytes, bytes);
      ASSERT_TRUE(is_intact(one));
      one.bytes = bytes;
      fill(one);
    } else {
      release(one.piece);
      one = all.back();
      all.pop_back();
    }
  }
  for (const Written& one : all) {
    EXPECT_TRUE(is_intact(one));
    release(one.piece);
  }
}

std::vector<void*> many_pieces() {
  std::vector<void*> pieces;
  for (int i = 0; i < 20'000; ++i) pieces.push_back(allocate(1 + i % 500));
  return pieces;
}

void release_all(const std::vector<void*>& pieces) {
  for (void* const piece : pieces) release(piece);
}

// How much more is taken from the system by the work when it has been done before.
template <class Work>
std::size_t taken_by_repeats(Work work) {
  for (int i = 0; i < 3; ++i) work();
  const std::size_t before = taken_bytes();
  for (int i = 0; i < 20; ++i) work();
  return taken_bytes() - before;
}

TEST(SqliteMemory, WhatIsGivenBackIsUsedAgain) {
  EXPECT_EQ(taken_by_repeats([] { release_all(many_pieces()); }), 0U);
}

// A thread keeps some. Without use of what the other gives back it would be a hundred times as much.
TEST(SqliteMemory, WhatAnotherThreadGivesBackIsUsedAgain) {
  constexpr std::size_t most_kept_by_a_thread = 1 << 20;
  EXPECT_LE(taken_by_repeats([] { std::thread(release_all, many_pieces()).join(); }), most_kept_by_a_thread);
  EXPECT_LE(taken_by_repeats([] {
              std::vector<void*> pieces;
              std::thread([&] { pieces = many_pieces(); }).join();
              release_all(pieces);
            }),
            most_kept_by_a_thread);
}

// Gone after the thread has left its pieces to the others.
struct LateObject {
  void* piece = nullptr;
  ~LateObject() {
    void* const another = allocate(24);
    std::memset(another, 1, 24);
    another_ = resize(another, 400);
    release(piece);
    release(another_);
  }

 private:
  void* another_ = nullptr;
};

TEST(SqliteMemory, AThreadThatIsAtItsEndLeavesNothingBehind) {
  EXPECT_EQ(taken_by_repeats([] {
              std::thread([] {
                thread_local LateObject late;
                late.piece = allocate(100);
              }).join();
            }),
            0U);
}

TEST(SqliteMemory, ThreadsDoNotMeetInOnePiece) {
  const auto work = [](unsigned char content) {
    std::vector<Written> all;
    for (int i = 0; i < 50'000; ++i) {
      all.push_back({allocate(1 + i % 300), 1 + i % 300, content});
      fill(all.back());
      if (i % 3 != 0) continue;
      EXPECT_TRUE(is_intact(all[all.size() / 2]));
      std::swap(all[all.size() / 2], all.back());
      release(all.back().piece);
      all.pop_back();
    }
    for (const Written& one : all) {
      EXPECT_TRUE(is_intact(one));
      release(one.piece);
    }
  };
  std::thread first(work, static_cast<unsigned char>(1));
  std::thread second(work, static_cast<unsigned char>(2));
  work(3);
  first.join();
  second.join();
}

class SqliteMemoryOfConnections : public ScratchDatabase {};

// Not under the address sanitizer, which is to see the pieces one by one.
TEST_F(SqliteMemoryOfConnections, IsThisOne) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer's own";
#endif
  if (sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) != SQLITE_OK)
    GTEST_SKIP() << "the process has used the library before";
  make_database("test.db");
  open_connection();
  void* const piece = sqlite3_malloc(10);
  EXPECT_EQ(sqlite3_msize(piece), static_cast<sqlite3_uint64>(rounded(10)));
  sqlite3_free(piece);
}

}  // namespace
}  // namespace tallyra::standins::ado::test
