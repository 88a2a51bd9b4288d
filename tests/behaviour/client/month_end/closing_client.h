#pragma once

#include <gtest/gtest.h>

#include "tests/behaviour/close/closing_company.h"
#include "tests/support/client_program.h"

namespace tallyra::client {

// The client on a company that is about to close its first months, on 2024/03/05.
class ClosingClient : public testing::Test {
 protected:
  // The verb on the database of the company, as ADMIN, with --yes.
  ExitStatus run(std::vector<std::string> words) {
    words.emplace_back("--yes");
    return client_.run(std::move(words));
  }
  void close_and_approve(const char* date) {
    ASSERT_EQ(run({"close", date}), exit_done) << client_.all();
    ASSERT_EQ(run({"approve", date}), exit_done) << client_.all();
  }
  void sql(const std::vector<std::string>& statements) const { company_.run(statements); }
  bool says(const std::string& text) const { return client_.all().find(text) != std::string::npos; }

  behaviour::ClosingCompany company_;
  ClientProgram client_{{"--db", company_.connection_string(), "--user", "ADMIN"}};
};

}  // namespace tallyra::client
