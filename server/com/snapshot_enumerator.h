#pragma once

#include <unknwn.h>

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "automation/com/counted_object.h"

namespace tallyra::server::com {

// One of the system's enumerators over what a list held when it was asked for. Held is what the list keeps,
// an object that converts to the Item that is handed out with references of its own.
template <class Interface, class Item, class Held>
class SnapshotEnumerator final : public automation::com::CountedObject<Interface> {
 public:
  explicit SnapshotEnumerator(std::vector<Held> list, std::size_t position = 0)
      : list_(std::move(list)), position_(position) {}

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

  std::vector<Held> list_;
  std::size_t position_;
};

}  // namespace tallyra::server::com
