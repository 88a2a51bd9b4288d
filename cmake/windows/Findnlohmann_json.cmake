include(${CMAKE_CURRENT_LIST_DIR}/header_only.cmake)
tallyra_header_only(nlohmann_json::nlohmann_json nlohmann/json.hpp)
set(nlohmann_json_FOUND TRUE)
