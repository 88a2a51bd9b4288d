#include "bench/measured_run.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>

namespace tallyra::bench {
namespace {

struct Report {
  Measurement measurement;
  char error[256];
};

double seconds_now(Time time) {
  timespec now{};
  clock_gettime(time == Time::passed ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

Report run_here(const std::function<std::uint64_t()>& work, Time time) {
  Report report{};
  try {
    const double start = seconds_now(time);
    report.measurement.count = work();
    report.measurement.seconds = seconds_now(time) - start;
  } catch (const std::exception& error) {
    std::string(error.what()).copy(report.error, sizeof report.error - 1);
  }
  report.measurement.peak_megabytes = static_cast<double>(peak_kilobytes()) / 1024;
  return report;
}

}  // namespace

Measurement measured_run(const std::function<std::uint64_t()>& work, Time time) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    close(ends[0]);
    const Report report = run_here(work, time);
    _exit(write(ends[1], &report, sizeof report) == sizeof report ? 0 : 1);
  }
  close(ends[1]);
  Report report{};
  const bool complete = read(ends[0], &report, sizeof report) == sizeof report;
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (!complete) throw std::runtime_error("a measured process ended before it reported");
  if (report.error[0] != '\0') throw std::runtime_error(report.error);
  return report.measurement;
}

std::uint64_t peak_kilobytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::uint64_t>(usage.ru_maxrss);
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace tallyra::bench
