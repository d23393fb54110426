# The libraries from the package registries. Natively they are Debian's; for Windows scripts/setup.sh builds those that
# are not header-only into build/deps/windows.

find_library(PCRE2_16_LIBRARY NAMES pcre2-16 pcre2-16-static REQUIRED)
find_path(PCRE2_INCLUDE_DIR pcre2.h REQUIRED)
add_library(scrivanta_pcre2 INTERFACE)
target_include_directories(scrivanta_pcre2 SYSTEM INTERFACE ${PCRE2_INCLUDE_DIR})
target_link_libraries(scrivanta_pcre2 INTERFACE ${PCRE2_16_LIBRARY})
target_compile_definitions(scrivanta_pcre2 INTERFACE PCRE2_CODE_UNIT_WIDTH=16)
if(WIN32)
  target_compile_definitions(scrivanta_pcre2 INTERFACE PCRE2_STATIC)
endif()

# Of sheets: libxlsxwriter writes them, minizip and pugixml read them, all on zlib. The order is the linker's.
add_library(scrivanta_sheet_libraries INTERFACE)
find_path(XLSXWRITER_INCLUDE_DIR xlsxwriter.h REQUIRED)
find_path(PUGIXML_INCLUDE_DIR pugixml.hpp REQUIRED)
find_path(MINIZIP_INCLUDE_DIR minizip/unzip.h REQUIRED)
target_include_directories(scrivanta_sheet_libraries SYSTEM INTERFACE ${XLSXWRITER_INCLUDE_DIR} ${PUGIXML_INCLUDE_DIR}
                                                                      ${MINIZIP_INCLUDE_DIR})
foreach(library xlsxwriter pugixml minizip)
  string(TOUPPER ${library} variable)
  find_library(${variable}_LIBRARY NAMES lib${library}.a ${library} REQUIRED)
  target_link_libraries(scrivanta_sheet_libraries INTERFACE ${${variable}_LIBRARY})
endforeach()
find_library(ZLIB_ARCHIVE NAMES libz.a REQUIRED)
target_link_libraries(scrivanta_sheet_libraries INTERFACE ${ZLIB_ARCHIVE})
# Files of SQLite are read and written by its own library.
find_library(SQLITE3_LIBRARY NAMES sqlite3 REQUIRED)
find_path(SQLITE3_INCLUDE_DIR sqlite3.h REQUIRED)
add_library(scrivanta_sqlite INTERFACE)
target_include_directories(scrivanta_sqlite SYSTEM INTERFACE ${SQLITE3_INCLUDE_DIR})
target_link_libraries(scrivanta_sqlite INTERFACE ${SQLITE3_LIBRARY})

# What is encrypted under a password.
find_library(SODIUM_LIBRARY NAMES sodium REQUIRED)
find_path(SODIUM_INCLUDE_DIR sodium.h REQUIRED)
add_library(scrivanta_sodium INTERFACE)
target_include_directories(scrivanta_sodium SYSTEM INTERFACE ${SODIUM_INCLUDE_DIR})
target_link_libraries(scrivanta_sodium INTERFACE ${SODIUM_LIBRARY})
if(WIN32)
  target_compile_definitions(scrivanta_sodium INTERFACE SODIUM_STATIC)
endif()

# ODBC is the system's own on Windows; natively its manager is unixODBC.
add_library(scrivanta_odbc INTERFACE)
if(WIN32)
  target_link_libraries(scrivanta_odbc INTERFACE odbc32 odbccp32)
else()
  find_library(ODBC_LIBRARY NAMES odbc REQUIRED)
  target_link_libraries(scrivanta_odbc INTERFACE ${ODBC_LIBRARY})
endif()

# CLI11 and nlohmann-json are header-only: the machine's own headers serve both builds. They are reached through a folder
# of links, so that no other header of the machine is seen by the cross compiler.
set(headerOnly ${CMAKE_BINARY_DIR}/header-only)
file(MAKE_DIRECTORY ${headerOnly})
foreach(package CLI nlohmann)
  if(NOT EXISTS /usr/include/${package})
    message(FATAL_ERROR "/usr/include/${package} is missing: run scripts/setup.sh")
  endif()
  file(CREATE_LINK /usr/include/${package} ${headerOnly}/${package} SYMBOLIC)
endforeach()
add_library(scrivanta_cli INTERFACE)
target_include_directories(scrivanta_cli SYSTEM INTERFACE ${headerOnly})

find_package(GTest CONFIG REQUIRED)
