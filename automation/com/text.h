#pragma once

#include <wtypes.h>

#include <array>
#include <string>
#include <string_view>

// Texts are UTF-8 inside and UTF-16 on the wire. A surrogate without its partner becomes the three bytes of
// its own number, so that every text comes back as it came, whatever it holds; zeros are characters as any
// other.
namespace tallyra::automation::com {

std::string to_utf8(std::wstring_view text);
// Bytes that are no UTF-8 become U+FFFD.
std::wstring to_utf16(std::string_view text);

// A name as callees want it. Usual names lie in the object itself, so that a member can be called, to roll
// back above all, when no memory is left.
class WideName {
 public:
  explicit WideName(std::string_view name);
  WideName(const WideName&) = delete;
  WideName& operator=(const WideName&) = delete;

  wchar_t* data() { return long_name_.empty() ? usual_name_.data() : long_name_.data(); }

 private:
  std::array<wchar_t, 32> usual_name_{};
  std::wstring long_name_;
};

// A null BSTR is an empty text.
std::string text_of(const OLECHAR* bstr);
// A new BSTR that the caller frees. Throws std::bad_alloc.
BSTR new_bstr(std::string_view text);

}  // namespace tallyra::automation::com
