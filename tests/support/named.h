#pragma once

#include <string>

namespace tallyra::stage {

// A double that has a name in transcripts.
class Named {
 public:
  explicit Named(std::string name) : name_(std::move(name)) {}
  virtual ~Named() = default;
  const std::string& name() const { return name_; }

 private:
  std::string name_;
};

}  // namespace tallyra::stage
