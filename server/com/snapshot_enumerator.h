#pragma once

#include <unknwn.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>
#include <vector>

#include "automation/com/module.h"

namespace tallyra::server::com {

// One of the system's enumerators over what a list held when it was asked for. Held is what the list keeps,
// an object that converts to the Item that is handed out with references of its own.
template <class Interface, class Item, class Held>
class SnapshotEnumerator final : public Interface {
 public:
  explicit SnapshotEnumerator(std::vector<Held> list, std::size_t position = 0)
      : list_(std::move(list)), position_(position) {}

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    if (!out) return E_POINTER;
    if (id != IID_IUnknown && id != __uuidof(Interface)) {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    *out = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!items || (count != 1 && !fetched)) return E_POINTER;
    ULONG done = 0;
    for (; done < count && position_ < list_.size(); ++done) items[done] = list_[position_++].hand_out();
    if (fetched) *fetched = done;
    return done == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const std::size_t skipped = std::min<std::size_t>(count, list_.size() - position_);
    position_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    position_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** copy) override {
    if (!copy) return E_POINTER;
    try {
      *copy = new SnapshotEnumerator(list_, position_);
      return S_OK;
    } catch (const std::bad_alloc&) {
      *copy = nullptr;
      return E_OUTOFMEMORY;
    }
  }

 private:
  ~SnapshotEnumerator() = default;

  std::atomic<ULONG> references_ = 1;
  std::vector<Held> list_;
  std::size_t position_;
  automation::com::ModuleUse module_use_;
};

}  // namespace tallyra::server::com
