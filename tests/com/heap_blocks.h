#pragma once

#include <functional>

// Leaks are counted in blocks of memory: every heap of the process is walked before and after many rounds.
// Texts of automation (BSTR), variants, arrays and what the DLL allocates all lie in these heaps. The system
// keeps freed texts for the next one that asks; that is switched off, so that a block that is still there is
// a leak.
namespace tallyra::tests::com {

// As many may stay behind without a leak: nothing that happens in every round, or in every hundredth.
inline constexpr long few = 20;

// Blocks in use in all heaps of the process.
long blocks_in_use();

// Runs the body in `rounds` rounds, after some that let the system fill its tables, and says how many blocks
// they have left behind; prints it too.
long leaked_by(int rounds, const std::function<void()>& body);

}  // namespace tallyra::tests::com
