#include "tests/com/heap_blocks.h"

#include <windows.h>

#include <iostream>

// Exported by the system; the headers do not know it.
extern "C" void SetOaNoCache();

namespace tallyra::tests::com {

long blocks_in_use() {
  SetOaNoCache();
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  long blocks = 0;
  for (DWORD i = 0; i < count; ++i) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heaps[i]);
    while (HeapWalk(heaps[i], &entry))
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++blocks;
    HeapUnlock(heaps[i]);
  }
  return blocks;
}

long leaked_by(int rounds, const std::function<void()>& body) {
  for (int i = 0; i < 100; ++i) body();
  const long before = blocks_in_use();
  for (int i = 0; i < rounds; ++i) body();
  const long left = blocks_in_use() - before;
  std::cout << rounds << " rounds have left " << left << " blocks of memory behind\n";
  return left;
}

}  // namespace tallyra::tests::com
