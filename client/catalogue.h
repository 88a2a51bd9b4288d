#pragma once

#include <span>
#include <string>
#include <string_view>

// What a person can call, for --help, --list and the words of error messages. Calls do not depend on it: any
// class and member can be called by name.
namespace tallyra::client {

inline constexpr std::string_view library_prefix = "Tallyra.";

struct MemberEntry {
  std::string_view name;
  // As one writes them on the command line, [optional] ones in brackets.
  std::string_view arguments;
};

struct ClassEntry {
  std::string_view name;  // without the library
  std::string_view purpose;
  std::span<const MemberEntry> members;
};

std::span<const ClassEntry> catalogue();

// By class name or ProgID, whatever its case; null when it is none of ours.
const ClassEntry* find_class(std::string_view name);
const MemberEntry* find_member(const ClassEntry& entry, std::string_view name);
// Whether it is a method of a class of ours.
bool is_method(std::string_view prog_id, std::string_view member);

// "CTranHead, CTranDetail, ...".
std::string class_names();
// "; its members are Read, ..." for a class of ours, else nothing.
std::string members_hint(std::string_view prog_id);
// "; write: Read cAddrNo @" for a member of ours, else nothing.
std::string usage_hint(std::string_view prog_id, std::string_view member);
// Every class with its members and their arguments, one member per line.
std::string catalogue_text();

}  // namespace tallyra::client
