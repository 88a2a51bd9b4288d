#pragma once

// What the compiler's runtime asks of a thread library, in a DLL that comes and goes: locks, and values of a
// thread, on which exceptions and thread-locals stand. The thread library that comes with the compiler takes
// an index and memory of the process at each load of the DLL and never gives them back; this one does, when
// the DLL is unloaded.
//
// It is as small as it can be: a std::recursive_mutex would wait for itself, and what needs more of a thread
// library, such as std::thread, does not link.
namespace tallyra::automation::com {

// To be called when a thread ends (DLL_THREAD_DETACH): lets its values go.
void release_values_of_thread() noexcept;

// To be called when the process ends (DLL_PROCESS_DETACH with that said), before statics are destroyed. Other
// threads have been stopped wherever they were, so nothing is given back.
void leave_values_to_process() noexcept;

}  // namespace tallyra::automation::com
