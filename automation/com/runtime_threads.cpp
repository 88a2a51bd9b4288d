#include "automation/com/runtime_threads.h"

#include <pthread.h>
#include <windows.h>

#include <cerrno>
#include <cstdlib>
#include <utility>

// Not in the headers of the runtime: frees the memory that is kept for throwing when none is left.
namespace __gnu_cxx {
void __freeres();
}

namespace tallyra::automation::com {
namespace {

constexpr pthread_key_t most_keys = 8;

// The values of one thread.
struct Values {
  const void* of_key[most_keys] = {};
  Values* next = nullptr;
};

SRWLOCK all_values_lock = SRWLOCK_INIT;
Values* all_values = nullptr;
DWORD values_index = TLS_OUT_OF_INDEXES;
void (*destructors[most_keys])(void*) = {};
pthread_key_t keys_in_use = 0;
bool process_ends = false;

class Locked {
 public:
  Locked() { AcquireSRWLockExclusive(&all_values_lock); }
  ~Locked() { ReleaseSRWLockExclusive(&all_values_lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
};

// None when the thread has none, or none may be had.
Values* values_of_thread() {
  // A value is asked for anywhere, also between the failure of a system call and the question for its reason.
  const DWORD error = GetLastError();
  void* const values = TlsGetValue(values_index);
  SetLastError(error);
  return static_cast<Values*>(values);
}

Values* make_values() {
  void* const memory = std::calloc(1, sizeof(Values));
  if (!memory) return nullptr;
  auto* const values = static_cast<Values*>(memory);
  if (!TlsSetValue(values_index, values)) {
    std::free(memory);
    return nullptr;
  }
  const Locked locked;
  values->next = std::exchange(all_values, values);
  return values;
}

void destroy(Values* values) noexcept {
  for (pthread_key_t key = 0; key < most_keys; ++key)
    if (const void* value = std::exchange(values->of_key[key], nullptr); value && destructors[key])
      destructors[key](const_cast<void*>(value));
  std::free(values);
}

void unlist(const Values* values) {
  const Locked locked;
  Values** link = &all_values;
  while (*link && *link != values) link = &(*link)->next;
  if (*link) *link = values->next;
}

// Made before every other static of the DLL, so that it goes after all of them.
class LastToGo {
 public:
  ~LastToGo() {
    if (process_ends) return;
    while (Values* values = all_values) {
      all_values = values->next;
      destroy(values);
    }
    TlsFree(values_index);
    __gnu_cxx::__freeres();
  }
};

[[gnu::init_priority(101)]] const LastToGo last_to_go;

// The system's locks start at 0 and never hold one of the marks by which the thread library knows an object
// that has been initialized without a call.
template <class SystemObject>
SystemObject* system_object(intptr_t* object) {
  static_assert(sizeof(SystemObject) == sizeof *object);
  const intptr_t value = __atomic_load_n(object, __ATOMIC_ACQUIRE);
  if (value >= GENERIC_RECURSIVE_INITIALIZER && value <= GENERIC_INITIALIZER) {
    intptr_t expected = value;
    __atomic_compare_exchange_n(object, &expected, 0, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE);
  }
  return reinterpret_cast<SystemObject*>(object);
}

// Lets another caller try when the body fails.
class OnceRun {
 public:
  explicit OnceRun(INIT_ONCE* once) : once_(once) {}
  ~OnceRun() { InitOnceComplete(once_, done ? 0 : INIT_ONCE_INIT_FAILED, nullptr); }
  OnceRun(const OnceRun&) = delete;
  OnceRun& operator=(const OnceRun&) = delete;

  bool done = false;

 private:
  INIT_ONCE* once_;
};

}  // namespace

void release_values_of_thread() noexcept {
  Values* const values = values_of_thread();
  if (!values) return;
  unlist(values);
  TlsSetValue(values_index, nullptr);
  destroy(values);
}

void leave_values_to_process() noexcept {
  process_ends = true;
}

}  // namespace tallyra::automation::com

using namespace tallyra::automation::com;

// The functions have the names by which the runtime calls them; a failure is a number, not an exception.

int pthread_once(pthread_once_t* state, void (*body)()) {
  static_assert(sizeof(INIT_ONCE) == sizeof *state && PTHREAD_ONCE_INIT == 0);
  auto* const once = reinterpret_cast<INIT_ONCE*>(state);
  BOOL pending = FALSE;
  if (!InitOnceBeginInitialize(once, 0, &pending, nullptr)) return EINVAL;
  if (!pending) return 0;
  OnceRun run(once);
  body();
  run.done = true;
  return 0;
}

int pthread_key_create(pthread_key_t* key, void (*destructor)(void*)) {
  const Locked locked;
  if (keys_in_use == most_keys) return EAGAIN;
  if (values_index == TLS_OUT_OF_INDEXES) values_index = TlsAlloc();
  if (values_index == TLS_OUT_OF_INDEXES) return EAGAIN;
  destructors[keys_in_use] = destructor;
  *key = keys_in_use++;
  return 0;
}

void* pthread_getspecific(pthread_key_t key) {
  const Values* const values = values_of_thread();
  return values ? const_cast<void*>(values->of_key[key]) : nullptr;
}

int pthread_setspecific(pthread_key_t key, const void* value) {
  Values* values = values_of_thread();
  if (!values && !value) return 0;
  if (!values) values = make_values();
  if (!values) return ENOMEM;
  values->of_key[key] = value;
  return 0;
}

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t*) {
  *mutex = 0;
  return 0;
}

int pthread_mutex_destroy(pthread_mutex_t*) {
  return 0;
}

int pthread_mutex_lock(pthread_mutex_t* mutex) {
  AcquireSRWLockExclusive(system_object<SRWLOCK>(mutex));
  return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* mutex) {
  ReleaseSRWLockExclusive(system_object<SRWLOCK>(mutex));
  return 0;
}

int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
  SleepConditionVariableSRW(system_object<CONDITION_VARIABLE>(condition), system_object<SRWLOCK>(mutex),
                            INFINITE, 0);
  return 0;
}

int pthread_cond_broadcast(pthread_cond_t* condition) {
  WakeAllConditionVariable(system_object<CONDITION_VARIABLE>(condition));
  return 0;
}
