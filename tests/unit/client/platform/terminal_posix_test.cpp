#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "client/platform/terminal.h"

namespace tallyra::client {
namespace {

// Has an output go nowhere for as long as it lives.
class WithoutTerminal {
 public:
  explicit WithoutTerminal(int file) : file_(file), kept_(dup(file)) {
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nowhere, file_);
    close(nowhere);
  }
  ~WithoutTerminal() {
    dup2(kept_, file_);
    close(kept_);
  }
  WithoutTerminal(const WithoutTerminal&) = delete;
  WithoutTerminal& operator=(const WithoutTerminal&) = delete;

 private:
  int file_;
  int kept_;
};

TEST(Terminal, HandsOnTheWordsBehindTheName) {
  std::string name = "tallyra-client";
  std::string word = "grün";
  char* words[] = {name.data(), word.data(), nullptr};
  EXPECT_EQ(command_line_words(2, words), std::vector<std::string>{"grün"});
  EXPECT_TRUE(command_line_words(1, words).empty());
  EXPECT_TRUE(command_line_words(0, words).empty());
}

TEST(Terminal, IsNotBehindWhatGoesNowhere) {
  const WithoutTerminal input(STDIN_FILENO);
  const WithoutTerminal output(STDOUT_FILENO);
  const WithoutTerminal error(STDERR_FILENO);
  EXPECT_FALSE(input_is_terminal());
  EXPECT_FALSE(error_output_is_terminal());
  EXPECT_EQ(error_output_width(), 80U);
  EXPECT_EQ(output_width(), 0U);
}

}  // namespace
}  // namespace tallyra::client
