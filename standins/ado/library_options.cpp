#include "standins/ado/library_options.h"

#include <algorithm>
#include <utility>

#include "automation/folded_name.h"
#include "standins/ado/postgresql/connection_words.h"

namespace tallyra::standins::ado {
namespace {

constexpr std::string_view blanks = " \t\n\r\f\v";

class OptionReader {
 public:
  explicit OptionReader(std::string_view text) : text_(text) {}

  std::vector<Keyword> read() {
    std::vector<Keyword> options;
    for (skip_blanks(); at_ < text_.size(); skip_blanks()) {
      const std::size_t begin = at_;
      at_ = std::min(text_.find_first_of(std::string(blanks) + "=", at_), text_.size());
      std::string keyword(text_.substr(begin, at_ - begin));
      skip_blanks();
      if (at_ == text_.size() || text_[at_] != '=') break;
      ++at_;
      skip_blanks();
      options.push_back({std::move(keyword), value()});
    }
    return options;
  }

 private:
  void skip_blanks() { at_ = std::min(text_.find_first_not_of(blanks, at_), text_.size()); }

  // A backslash is in front of what stands for itself.
  std::string value() {
    const bool quoted = at_ < text_.size() && text_[at_] == '\'';
    if (quoted) ++at_;
    std::string result;
    for (; at_ < text_.size(); ++at_) {
      if (quoted ? text_[at_] == '\'' : blanks.find(text_[at_]) != std::string_view::npos) break;
      if (text_[at_] == '\\' && ++at_ == text_.size()) break;
      result += text_[at_];
    }
    if (quoted && at_ < text_.size()) ++at_;
    return result;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

// A key may be one of an engine, which is a library; a server loads libraries by settings, whose names it
// reads in any case and without backslashes.
bool loads_code(std::string_view keyword, std::string_view value) {
  if (keyword == "sslkey") return value.find(':') != std::string_view::npos;
  if (keyword != "options") return false;
  std::string settings = automation::folded(value);
  std::erase(settings, '\\');
  return settings.find("preload") != std::string::npos;
}

}  // namespace

std::vector<Keyword> read_library_options(std::string_view text) {
  return OptionReader(text).read();
}

bool is_refused_option(std::string_view keyword, std::string_view value) {
  return !automation::is_one_of(connection_words::known_options, keyword) || loads_code(keyword, value);
}

}  // namespace tallyra::standins::ado
