#include "automation/value.h"

namespace tallyra::automation {

std::string& Value::restart_text() {
  if (auto* text = std::get_if<std::string>(&content_)) {
    text->clear();
    return *text;
  }
  return content_.emplace<std::string>();
}

}  // namespace tallyra::automation
