#include "client/progress.h"

#include <exception>
#include <optional>
#include <ostream>
#include <utility>

#include "automation/apartment.h"
#include "client/output/status_line.h"
#include "client/own_connection.h"

namespace tallyra::client {
namespace {

// Counts departments over its own connection.
class DepartmentCounter {
 public:
  explicit DepartmentCounter(const std::string& connection_string)
      : connection_(connection_string), all_(connection_.count("Select Count(*) As N From DEPARTS")) {}

  std::int32_t all() const { return all_; }
  // A department document is committed whole; those of approved closes have another status.
  std::int32_t closed() const {
    return connection_.count(
        "Select Count(*) As N From STKTRANHD Where TRANTYPE='STK027CLOSE' And STATUSSN=0");
  }

 private:
  OwnConnection connection_;
  std::int32_t all_ = 0;
};

}  // namespace

CloseProgress::CloseProgress(CloseProgressSettings settings, std::ostream& stream)
    : settings_(std::move(settings)),
      stream_(stream),
      thread_([this](BackgroundThread& itself) { run(itself); }) {}

void CloseProgress::run(BackgroundThread& itself) {
  try {
    const automation::Apartment apartment;
    StatusLine line(stream_, settings_.width);
    std::optional<DepartmentCounter> counter;
    // The first turn comes after a wait, so that a short close meets no second connection at all.
    while (itself.sleep(settings_.interval)) {
      try {
        if (!counter) counter.emplace(settings_.connection_string);
        line.show("Closing " + settings_.close_date + ": " + std::to_string(counter->closed()) + " of " +
                  std::to_string(counter->all()) + " departments");
      } catch (const std::exception&) {
        counter.reset();
      }
    }
    line.clear();
  } catch (const std::exception&) {
    // Without an apartment or memory there is no progress to show; the close goes on.
  }
}

}  // namespace tallyra::client
