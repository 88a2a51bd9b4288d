#pragma once

#include <string>
#include <string_view>

#include "automation/value.h"

namespace tallyra::automation {

// A row of bytes, the content of a binary column for example.
class Bytes : public OpaqueData {
 public:
  explicit Bytes(std::string_view content) : content_(content) {}
  std::string_view kind() const override { return "bytes"; }
  std::string_view content() const { return content_; }

 private:
  std::string content_;
};

}  // namespace tallyra::automation
