#pragma once

#include <cstddef>

// Memory for SQLite's library. A connection asks for some two thousand small pieces when it reads the schema
// and gives all of them back when it goes; where every call has a connection of its own, what the general
// allocator makes of that is a fifth of the call. Here a piece that is given back waits, in the thread that
// has given it, for the next of its size. Pieces change hands between threads freely, and what a thread
// leaves when it ends the others use. Small pieces never go back to the system: as much of them is kept as
// was needed at once.
namespace tallyra::standins::ado::sqlite_memory {

// Has the library use it from now on, in the whole process. False where the process has used the library
// before; it then stays with what it has. Not to be called while another thread begins to use the library.
bool install();

// What the library wants of an allocator. Addresses are multiples of eight; null when there is no memory.
void* allocate(int bytes);
void release(void* piece);             // may be null
void* resize(void* piece, int bytes);  // keeps the content; on failure the piece stays as it is
int size_of(void* piece);              // not less than was asked for
int rounded(int bytes);                // the size of a piece that is asked for with so many

// Bytes that have been taken from the system for small pieces.
std::size_t taken_bytes();

}  // namespace tallyra::standins::ado::sqlite_memory
