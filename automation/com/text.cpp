#include "automation/com/text.h"

#include <oleauto.h>

#include <cstdint>
#include <new>

namespace tallyra::automation::com {
namespace {

constexpr std::uint32_t replacement_character = 0xFFFD;

bool is_high_surrogate(std::uint32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool is_low_surrogate(std::uint32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void append_utf8(std::string& out, std::uint32_t code) {
  const auto put = [&out](std::uint32_t byte) { out += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

// Reads one character at `position` and moves behind it; a bad byte counts as one character.
std::uint32_t next_code(std::string_view text, std::size_t& position) {
  const auto byte_at = [text](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const std::uint32_t lead = byte_at(position++);
  if (lead < 0x80) return lead;
  std::size_t length = 0;
  std::uint32_t code = 0;
  std::uint32_t least = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 1, code = lead & 0x1F, least = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 2, code = lead & 0x0F, least = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 3, code = lead & 0x07, least = 0x10000;
  } else {
    return replacement_character;
  }
  for (std::size_t i = 0; i < length; ++i) {
    const std::uint32_t byte = byte_at(position + i);
    if ((byte & 0xC0) != 0x80) return replacement_character;
    code = code << 6 | (byte & 0x3F);
  }
  if (code < least || code > 0x10FFFF) return replacement_character;
  position += length;
  return code;
}

std::size_t utf16_length(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t i = 0; i < text.size(); ++units)
    if (next_code(text, i) >= 0x10000) ++units;
  return units;
}

void write_utf16(wchar_t* out, std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const std::uint32_t code = next_code(text, i);
    if (code < 0x10000) {
      *out++ = static_cast<wchar_t>(code);
    } else {
      *out++ = static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
      *out++ = static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
  }
}

}  // namespace

std::string to_utf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code = text[i];
    if (is_high_surrogate(code) && i + 1 < text.size() && is_low_surrogate(text[i + 1]))
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
    append_utf8(out, code);
  }
  return out;
}

std::wstring to_utf16(std::string_view text) {
  std::wstring out(utf16_length(text), L'\0');
  write_utf16(out.data(), text);
  return out;
}

WideName::WideName(std::string_view name) {
  if (utf16_length(name) < usual_name_.size())
    write_utf16(usual_name_.data(), name);
  else
    long_name_ = to_utf16(name);
}

std::string text_of(const OLECHAR* bstr) {
  if (!bstr) return {};
  return to_utf8({bstr, SysStringLen(const_cast<BSTR>(bstr))});
}

BSTR new_bstr(std::string_view text) {
  const BSTR bstr = SysAllocStringLen(nullptr, static_cast<UINT>(utf16_length(text)));
  if (!bstr) throw std::bad_alloc();
  write_utf16(bstr, text);
  return bstr;
}

}  // namespace tallyra::automation::com
