#pragma once

#include <unknwn.h>

#include <utility>

namespace tallyra::automation::com {

// Counted reference to a COM object, or to none.
template <class T>
class Pointer {
 public:
  Pointer() = default;
  explicit Pointer(T* shared) noexcept : object_(shared) {
    if (object_) object_->AddRef();
  }
  // Takes over a reference that the caller holds.
  static Pointer adopt(T* owned) noexcept {
    Pointer pointer;
    pointer.object_ = owned;
    return pointer;
  }
  Pointer(const Pointer& other) noexcept : Pointer(other.object_) {}
  Pointer(Pointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Pointer& operator=(Pointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Pointer() {
    if (object_) object_->Release();
  }

  T* get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }
  // Gives the reference away.
  T* detach() noexcept { return std::exchange(object_, nullptr); }
  // For functions that hand a reference out; the pointer must be empty.
  T** out() noexcept { return &object_; }
  void** out_void() noexcept { return reinterpret_cast<void**>(&object_); }

 private:
  T* object_ = nullptr;
};

// The object's interface I, or none.
template <class I>
Pointer<I> query(IUnknown* object) noexcept {
  Pointer<I> found;
  if (!object || FAILED(object->QueryInterface(__uuidof(I), found.out_void()))) return {};
  return found;
}

}  // namespace tallyra::automation::com
