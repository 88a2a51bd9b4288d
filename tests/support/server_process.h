#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// Processes of a server that a test starts. A server does not run as root: where the tests do, its processes
// get an unprivileged user.
namespace tallyra::tests {

// Starts the program with its arguments in a process group of its own, so that a whole server can be ended;
// it is ended with the test that started it. What it prints goes to the log.
pid_t start_program(const std::vector<std::string>& command, const std::string& log);
// The same, and waits for its end. Throws with the text of the log when it failed.
void run_program(const std::vector<std::string>& command, const std::string& log);
std::string log_text(const std::string& log);

// Makes a folder the property of whom the processes run as.
void give_to_unprivileged_user(const std::string& path);

std::vector<pid_t> children_of(pid_t process);
// What has ended and nobody has asked about yet is not.
bool is_alive(pid_t process);

}  // namespace tallyra::tests
