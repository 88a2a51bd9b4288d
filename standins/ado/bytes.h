#pragma once

#include <string>
#include <string_view>

#include "automation/value.h"

namespace tallyra::standins::ado {

// The content of a binary column.
class Bytes : public automation::OpaqueData {
 public:
  explicit Bytes(std::string_view content) : content_(content) {}
  std::string_view kind() const override { return "bytes"; }
  std::string_view content() const { return content_; }

 private:
  std::string content_;
};

}  // namespace tallyra::standins::ado
