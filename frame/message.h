#pragma once

#include <string_view>

namespace tallyra::frame {

// A message of the message library: the key is the name of the member that returns its text, the number is
// what ErrNumber tells the client.
struct Message {
  std::string_view key;
  float number;
};

namespace message {
inline constexpr Message fields_do_not_match{"Msg10000002", 10000002};
inline constexpr Message not_found{"Msg10000003", 10000003};
inline constexpr Message already_exists{"Msg10000004", 10000004};
inline constexpr Message no_right{"Msg10000016", 10000016};
inline constexpr Message no_requirement{"Msg10000024", 10000024};
inline constexpr Message closed_period{"Msg10000112", 10000112};
// The number is not the one that the key spells; clients know this pair.
inline constexpr Message unknown_part{"Msg20000005", 10000025};
inline constexpr Message never_received{"Msg10000115", 10000115};
}  // namespace message

}  // namespace tallyra::frame
