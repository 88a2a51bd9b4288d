#include "tests/behaviour/contention/other_writer.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "automation/create.h"
#include "automation/error.h"

namespace tallyra::behaviour {
namespace {

constexpr useconds_t half_a_second = 500'000;

std::array<int, 2> make_pipe() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  return ends;
}

bool receive(int from, char& byte) {
  return read(from, &byte, 1) == 1;
}
void send(int to, char byte) {
  if (write(to, &byte, 1) != 1) _exit(1);
}

// Whether the lock could be had; told through `answers` while it is held.
void write_something(const std::string& connection_string, const Hold& hold, int answers) try {
  const automation::Object connection = automation::create("ADODB.Connection");
  connection.call("Open", connection_string);
  for (const std::string& statement : hold.statements) connection.call("Execute", statement);
  send(answers, 'y');
  usleep(half_a_second);
  connection.call("Execute", "COMMIT");
} catch (const automation::Error&) {
  send(answers, 'n');
}

}  // namespace

OtherWriter::OtherWriter(const CompanyDatabase& company, const Hold& hold) {
  const std::string connection_string = impatient(company);
  const auto requests = make_pipe();
  const auto answers = make_pipe();
  // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): the pipes come first, it inherits them
  process_ = fork();
  if (process_ == 0) {
    close(requests[1]);
    close(answers[0]);
    serve(connection_string, hold, requests[0], answers[1]);
  }
  close(requests[0]);
  close(answers[1]);
  requests_ = requests[1];
  answers_ = answers[0];
}

OtherWriter::~OtherWriter() {
  finish();
}

void OtherWriter::finish() {
  if (process_ <= 0) return;
  close(requests_);
  close(answers_);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void OtherWriter::serve(const std::string& connection_string, const Hold& hold, int requests, int answers) {
  for (char request = 0; receive(requests, request);) write_something(connection_string, hold, answers);
  _exit(0);
}

bool OtherWriter::takes_the_lock() {
  char answer = 'n';
  return write(requests_, "?", 1) == 1 && receive(answers_, answer) && answer == 'y';
}

}  // namespace tallyra::behaviour
