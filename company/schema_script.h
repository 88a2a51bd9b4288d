#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyra::company {

// The statements of a create script, without comments and without the semicolons between them. Understands
// comments to the end of the line, quoted text and quoted names; the script holds no triggers.
std::vector<std::string> statements_of(std::string_view script);

// The statements of the script file at `path`; throws Refusal when it cannot be read or holds no statement.
std::vector<std::string> read_schema(const std::string& path);

// True for CREATE INDEX and CREATE UNIQUE INDEX. Indexes are built after the rows are in, which is many times
// faster than keeping them up to date row by row.
bool creates_index(std::string_view statement);

}  // namespace tallyra::company
