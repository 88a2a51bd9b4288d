#include <objbase.h>
#include <objidl.h>
#include <pthread.h>

#include <new>
#include <utility>

#include "automation/apartment.h"
#include "automation/com/failure.h"
#include "automation/com/identity.h"
#include "automation/com/module.h"

// The end of a thread's apartment as the system tells it: by an initialize spy, before it happens.
namespace tallyra::automation {
namespace {

constexpr int most_rounds = 100;

struct OfThread {
  std::unique_ptr<KeptByApartment> kept;
  bool is_watched = false;
  // While what was kept is let go: whatever runs then may end the apartment once more.
  bool is_ending = false;
  ULARGE_INTEGER spy = {};
};

// Under the loader's lock, after the apartment: counts, and leaves behind what may not be called any more.
void leave_behind(void* of_ended_thread) {
  auto* const own = static_cast<OfThread*>(of_ended_thread);
  // The compiler's thread library tells of a value that has been taken back, too.
  if (!own) return;
  static_cast<void>(own->kept.release());
  delete own;
  com::abandon_called_back_use();
}

pthread_key_t key() {
  static const pthread_key_t made = [] {
    pthread_key_t fresh;
    if (pthread_key_create(&fresh, leave_behind) != 0) throw std::bad_alloc();
    return fresh;
  }();
  return made;
}

OfThread* of_thread() {
  return static_cast<OfThread*>(pthread_getspecific(key()));
}

void set_of_thread(OfThread* own) {
  if (pthread_setspecific(key(), own) != 0) throw std::bad_alloc();
}

}  // namespace

// Called before the thread's count of initializations falls from `count`; nested ones are of no interest.
// What comes back, if anything, has to be freed as the last thing that is done.
extern "C" HMODULE WINAPI tallyra_before_uninitialize(DWORD count) {
  OfThread* const own = of_thread();
  if (count != 1 || !own || own->is_ending) return nullptr;
  own->is_ending = true;
  // Letting it go may run any code, also such that keeps something again, and does so for ever.
  for (int round = 0; own->kept && round < most_rounds; ++round) own->kept.reset();
  static_cast<void>(own->kept.release());
  CoRevokeInitializeSpy(own->spy);
  set_of_thread(nullptr);
  delete own;
  return com::end_called_back_use();
}

namespace {

// One for all threads: it has nothing of its own.
class Spy final : public com::Identity<IInitializeSpy> {
 public:
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP PreInitialize(DWORD, DWORD) override { return S_OK; }
  STDMETHODIMP PostInitialize(HRESULT result, DWORD, DWORD) override { return result; }
  [[gnu::naked]] STDMETHODIMP PreUninitialize(DWORD count) override;
  // Objects that the apartment itself has let go may have kept something since.
  STDMETHODIMP PostUninitialize(DWORD count) override {
    if (OfThread* const own = of_thread(); own && count == 0) static_cast<void>(own->kept.release());
    return S_OK;
  }
};

// A host may have freed the module although it is in use: then the reference that comes back from the above
// is the last, and FreeLibrary has to return to the system, which has called here, not to code that it has
// removed. So it takes the place of this call, with its own argument in place of the two.
static_assert(sizeof(void*) == 4, "the calls here are those of 32-bit Windows");
STDMETHODIMP Spy::PreUninitialize(DWORD) {
  asm("pushl 8(%esp)\n\t"
      "call _tallyra_before_uninitialize@4\n\t"
      "popl %ecx\n\t"
      "movl %ecx, (%esp)\n\t"
      "movl %eax, 4(%esp)\n\t"
      "testl %eax, %eax\n\t"
      "jz 1f\n\t"
      "jmp *__imp__FreeLibrary@4\n"
      "1:\n\t"
      "ret $4");
}

Spy spy;

// Some thread's apartment serves all threads without one of their own: its end is no end of theirs.
bool has_own_apartment() {
  APTTYPE type{};
  APTTYPEQUALIFIER qualifier{};
  return SUCCEEDED(CoGetApartmentType(&type, &qualifier)) && qualifier != APTTYPEQUALIFIER_IMPLICIT_MTA &&
         qualifier != APTTYPEQUALIFIER_NA_ON_IMPLICIT_MTA;
}

HRESULT watch(OfThread& own) {
  if (own.is_watched || !has_own_apartment()) return S_OK;
  const HRESULT code = CoRegisterInitializeSpy(&spy, &own.spy);
  own.is_watched = SUCCEEDED(code);
  return code;
}

}  // namespace

KeptByApartment* kept_by_apartment() {
  OfThread* const own = of_thread();
  if (!own) return nullptr;
  // The thread may have got an apartment of its own by now.
  watch(*own);
  return own->kept.get();
}

void keep_until_apartment_ends(std::unique_ptr<KeptByApartment> kept) {
  OfThread* own = of_thread();
  if (!own) {
    auto fresh = std::make_unique<OfThread>();
    set_of_thread(fresh.get());
    const HRESULT code = watch(*fresh);
    if (FAILED(code)) set_of_thread(nullptr);
    com::throw_if_failed(code);
    own = fresh.release();
    com::begin_called_back_use();
  }
  own->kept = std::move(kept);
}

}  // namespace tallyra::automation
