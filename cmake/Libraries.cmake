# The libraries from the package registries. Natively they are Debian's; for Windows scripts/setup.sh builds the two that
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
