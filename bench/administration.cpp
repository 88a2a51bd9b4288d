#include "bench/administration.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <span>
#include <sstream>
#include <stdexcept>

#include "bench/month_close.h"
#include "client/client.h"

namespace tallyra::bench {
namespace {

// The verbs read only, so that one close serves all runs.
class ClosedCompany : public Company {
 public:
  explicit ClosedCompany(const Scenario& close) : close_(close), company_(close.company()) {}

  std::string connection_string() const override { return company_->connection_string(); }

  void renew() override {
    if (is_closed_) return;
    company_->renew();
    // In a process of its own, so that what it needs of memory is not found in those that are measured.
    measured_run([this] { return close_.run(company_->connection_string()); });
    is_closed_ = true;
  }

 private:
  Scenario close_;
  std::unique_ptr<Company> company_;
  bool is_closed_ = false;
};

// In the folder of the database, which goes with everything in it.
std::string page_beside(const std::string& connection_string) {
  return connection_string.substr(connection_string.rfind('=') + 1) + ".html";
}

// What the verb prints, in bytes. It has to end with 0, or with 1 where errors may be found.
std::uint64_t run_verb(const std::vector<std::string>& words, const std::string& connection_string,
                       bool may_find_errors) {
  std::ostringstream out;
  std::ostringstream error;
  std::vector<std::string> all = words;
  all.insert(all.end(), {"--db", connection_string, "--user", "ADMIN"});
  if (words.front() == "report") all.insert(all.end(), {"--output", page_beside(connection_string), "--yes"});
  const client::Console console{.out = out, .error = error};
  const client::ExitStatus status =
      client::run_client(all, console, [](const std::string&) { return std::optional<std::string>(); });
  const std::string text = out.str();
  const bool found = may_find_errors && status == client::exit_failed && !text.empty();
  if (status != client::exit_done && !found) throw std::runtime_error(error.str());
  return text.size() + error.str().size();
}

Look look(const Scenario& close, const std::string& verb, const std::vector<std::string>& words,
          bool may_find_errors) {
  Look result{close, close};
  result.verb.work = verb;
  result.verb.replays.clear();
  result.verb.run = [words, may_find_errors](const std::string& connection_string) {
    return run_verb(words, connection_string, may_find_errors);
  };
  return result;
}

}  // namespace

std::vector<Look> looks(Companies& companies, const CompanySize& size) {
  const Scenario close = month_close(companies, size);
  std::vector<Look> all{look(close, "check", {"check", "2024/02/29"}, true),
                        look(close, "verify", {"verify", "2024/02/29"}, false),
                        look(close, "report", {"report", "2024/02/29"}, false)};
  for (Look& after : std::span(all).subspan(1))
    after.verb.company = [close] { return std::make_unique<ClosedCompany>(close); };
  return all;
}

LookShare share_of(const Look& look, const Comparison& close, const Comparison& verb) {
  return {look.verb.work, look.verb.size, verb.component.median_seconds(),
          verb.component.median_seconds() / close.component.median_seconds(),
          verb.component.least_seconds() / close.component.least_seconds()};
}

std::vector<std::string> broken_limits(const LookShare& share) {
  if (share.of_medians < 1 || share.of_shortest < 1) return {};
  char text[160];
  std::snprintf(text, sizeof text, "%s: %.2f of the time of the close, it has to be less than all of it",
                share.verb.c_str(), share.of_medians);
  return {text};
}

}  // namespace tallyra::bench
