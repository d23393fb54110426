# One component a folder of src/. A file whose name begins with Frm or Scrivanta speaks to the platform's windows
# and is built for Windows only; so is the whole of win/. The rest is portable.

add_library(scrivanta_options INTERFACE)
target_compile_options(scrivanta_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
target_include_directories(scrivanta_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(SCRIVANTA_SANITIZE)
  target_compile_options(scrivanta_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer -O1)
  target_link_options(scrivanta_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
  target_compile_definitions(scrivanta_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT
                                                         _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  target_link_options(scrivanta_options INTERFACE -static)
endif()

# The resource scripts of all components. The linker drops resources that lie in static libraries, so whatever is to have
# windows links this library itself.
if(WIN32)
  add_library(scrivanta_resources OBJECT)
  target_include_directories(scrivanta_resources PRIVATE ${CMAKE_SOURCE_DIR}/src)
  set_target_properties(scrivanta_resources PROPERTIES LINKER_LANGUAGE CXX)
  # The scripts are UTF-8.
  set(CMAKE_RC_FLAGS "-c 65001")
endif()

# Most of the time of a compilation goes into reading the standard library: it is read once, for all. That every file
# includes what it needs is seen by lint, which reads them one by one.
function(scrivanta_read_once target)
  if(TARGET scrivanta_text AND NOT target STREQUAL "scrivanta_text")
    target_precompile_headers(${target} REUSE_FROM scrivanta_text)
  else()
    target_precompile_headers(${target} PRIVATE <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory>
                                                <optional> <span> <string> <vector>)
  endif()
  # In what is read once the compiler takes the library's own code for ours, and warns of moves within short strings.
  target_compile_options(${target} PRIVATE -fpch-preprocess -Wno-array-bounds -Wno-stringop-overflow
                                            -Wno-stringop-overread -Wno-restrict)
endfunction()

# scrivanta_component(NAME [DEPENDS component...]): the library scrivanta_NAME from the sources of this folder and the rooms
# below it. A room posix/ is for other systems than Windows, a room win/ for Windows.
function(scrivanta_component name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "${CMAKE_CURRENT_SOURCE_DIR}/(.*/)?posix/")
    file(GLOB_RECURSE resources CONFIGURE_DEPENDS *.rc)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS *Controls.h)
    set_source_files_properties(${resources} TARGET_DIRECTORY scrivanta_resources PROPERTIES OBJECT_DEPENDS "${headers}")
    target_sources(scrivanta_resources PRIVATE ${resources})
  else()
    list(FILTER sources EXCLUDE REGEX "/(Frm|Scrivanta)[^/]*$")
    list(FILTER sources EXCLUDE REGEX "${CMAKE_CURRENT_SOURCE_DIR}/(.*/)?win/")
  endif()
  if(NOT sources)
    add_library(scrivanta_${name} INTERFACE)
    set(scope INTERFACE)
  else()
    add_library(scrivanta_${name} STATIC ${sources})
    set(scope PUBLIC)
    scrivanta_read_once(scrivanta_${name})
  endif()
  target_link_libraries(scrivanta_${name} ${scope} scrivanta_options)
  foreach(component IN LISTS ARG_DEPENDS)
    target_link_libraries(scrivanta_${name} ${scope} scrivanta_${component})
  endforeach()
endfunction()
