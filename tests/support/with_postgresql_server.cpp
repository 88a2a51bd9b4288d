#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "tests/support/postgresql_server.h"

// with_postgresql_server PROGRAM ARGUMENTS...: runs a test program while there is a server, which the program
// finds by TALLYRA_POSTGRES, a connection string of a user who may create databases. Ends as the program
// does.
int main(int argc, char** argv) {
  if (argc < 2) return 2;
  try {
    const tallyra::tests::PostgresqlServer server;
    server.administer("postgres", "ALTER ROLE tallyra CREATEDB");
    ::setenv("TALLYRA_POSTGRES", server.connection_string("postgres").c_str(), 1);
    const pid_t child = ::fork();
    if (child == 0) {
      ::execv(argv[1], argv + 1);
      ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
