#pragma once

#include <array>
#include <string_view>

// The keywords of the ODBC driver's connection string and the options of the library that are known here.
namespace tallyra::standins::ado::connection_words {

inline constexpr auto driver_names =
    std::to_array<std::string_view>({"PostgreSQL Unicode", "PostgreSQL ANSI", "PostgreSQL"});

struct Renamed {
  std::string_view odbc;
  std::string_view library;
};
inline constexpr Renamed renamed[] = {
    {"Servername", "host"},
    {"Server", "host"},
    {"Port", "port"},
    {"Database", "dbname"},
    {"UID", "user"},
    {"Username", "user"},
    {"PWD", "password"},
    {"Password", "password"},
    {"SSLmode", "sslmode"},
    {"KeepaliveTime", "keepalives_idle"},
    {"KeepaliveInterval", "keepalives_interval"},
};

// They say how the driver works and what it calls things, and change nothing of what a client of ADO sees.
inline constexpr auto of_the_driver_alone = std::to_array<std::string_view>({
    "Driver",
    "Description",
    "Protocol",
    "UseServerSidePrepare",
    "UseDeclareFetch",
    "Fetch",
    "BoolsAsChar",
    "TextAsLongVarchar",
    "MaxVarcharSize",
    "MaxLongVarcharSize",
    "UnknownsAsLongVarchar",
    "UnknownSizes",
    "LFConversion",
    "ByteaAsLongVarBinary",
    "Parse",
    "Optimizer",
    "Ksqo",
    "FakeOidIndex",
    "ShowOidColumn",
    "RowVersioning",
    "ShowSystemTables",
    "UpdatableCursors",
    "DisallowPremature",
    "TrueIsMinus1",
    "BI",
    "LowerCaseIdentifier",
    "XaOpt",
    "IgnoreTimeout",
    "FetchRefcursors",
    "NumericAs",
    "OptionalErrors",
    "ExtraSysTablePrefixes",
});

// With them the driver would write files: only their being off is taken.
inline constexpr auto logs_of_the_driver = std::to_array<std::string_view>({"Debug", "CommLog"});

// Of the library's own options.
inline constexpr auto known_options = std::to_array<std::string_view>({
    "host",
    "hostaddr",
    "port",
    "dbname",
    "user",
    "password",
    "passfile",
    "sslmode",
    "sslrootcert",
    "sslcert",
    "sslkey",
    "sslpassword",
    "sslcrl",
    "sslcrldir",
    "sslsni",
    "ssl_min_protocol_version",
    "ssl_max_protocol_version",
    "channel_binding",
    "gssencmode",
    "krbsrvname",
    "requirepeer",
    "target_session_attrs",
    "connect_timeout",
    "tcp_user_timeout",
    "keepalives",
    "keepalives_idle",
    "keepalives_interval",
    "keepalives_count",
    "application_name",
    "fallback_application_name",
    "options",
});

// What this layer reads and writes is in these forms, whatever the server's own settings are.
inline constexpr std::string_view session_settings =
    " -c datestyle=ISO,MDY -c standard_conforming_strings=on -c extra_float_digits=1 -c bytea_output=hex";

// The pages that a close or an approval asks for again and again lie in memory. Told otherwise, which is the
// server's own belief, its planner shuns an index and reads all documents of a month for each part, in two or
// three times the time. Put in front, so that a connection string can say otherwise.
inline constexpr std::string_view planner_settings = "-c seq_page_cost=0.1 -c random_page_cost=0.1 ";

}  // namespace tallyra::standins::ado::connection_words
