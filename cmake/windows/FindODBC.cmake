# ODBC::ODBC is the system's own driver manager.
if(NOT TARGET ODBC::ODBC)
  add_library(ODBC::ODBC INTERFACE IMPORTED GLOBAL)
  target_include_directories(ODBC::ODBC SYSTEM INTERFACE ${CMAKE_CURRENT_LIST_DIR}/odbc)
  target_link_libraries(ODBC::ODBC INTERFACE odbc32)
endif()
set(ODBC_FOUND TRUE)
