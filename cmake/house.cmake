# The rooms: one library per folder of src/, with access only to the headers of the rooms it links.
#
# The include directory of a room contains only a link to the room's folder, so that "data/database.h" is found only
# by rooms that link data.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(house_options INTERFACE)
if(MSVC)
  target_compile_options(house_options INTERFACE /W4 /WX /utf-8 /permissive-)
else()
  target_compile_options(
    house_options
    INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wnon-virtual-dtor
              -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports false overlaps in std::string (GCC bug 105651).
    target_compile_options(house_options INTERFACE -Wno-restrict)
    if(CU_BUILT_ONCE AND NOT CU_QUICK AND NOT CU_SANITIZE)
      # And false overruns, where it optimises the joined files of a room. The other presets keep these warnings.
      target_compile_options(house_options INTERFACE -Wno-array-bounds -Wno-stringop-overflow)
    endif()
  endif()
  if(CU_BUILT_ONCE)
    # A name of one file may shadow a name of another file of the room, and a test's fixture is not in the main file.
    target_compile_options(house_options INTERFACE -Wno-shadow)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # The compiler's own memory is collected less often than by default: a tenth of the time.
      target_compile_options(house_options INTERFACE -Wno-subobject-linkage --param=ggc-min-heapsize=600000)
    endif()
  endif()
  if(CU_SANITIZE)
    target_compile_options(house_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
    # With its null checks GCC cannot compare an address with null in a constant expression; the address sanitizer
    # detects the use of a null pointer.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      target_compile_options(house_options INTERFACE -fno-sanitize=null,nonnull-attribute,returns-nonnull-attribute)
    endif()
    target_link_options(house_options INTERFACE -fsanitize=address,undefined)
  endif()
  if(CU_FUZZ)
    target_compile_options(house_options INTERFACE -fsanitize=fuzzer-no-link)
  endif()
endif()

# Whether the prints are a library of their own, which the command line program loads when it prints.
set(CU_PRINTS_APART OFF)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT CU_SANITIZE AND NOT CU_FUZZ AND NOT CU_COVERAGE)
  set(CU_PRINTS_APART ON)
endif()
# The rooms behind the prints.
set(printing_rooms base data host controls modello toml reporting)

# The rooms measured by CU_COVERAGE: the core.
set(measured_rooms base data host controls modello lettura worklist telematic_engine telematic printing fornitura riscontro editors wizard)

# Links the measured rooms whole and before the program's own objects: of an inline function present in both, the
# linker keeps the first one, which has to be the one with counters. The tests themselves need no counters.
function(cu_measured target)
  if(NOT CU_COVERAGE)
    return()
  endif()
  set(archives "")
  foreach(room ${measured_rooms})
    list(APPEND archives $<TARGET_FILE:${room}>)
  endforeach()
  target_link_options(${target} PRIVATE "LINKER:--whole-archive" ${archives} "LINKER:--no-whole-archive")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${archives})
  add_dependencies(${target} ${measured_rooms})
endfunction()

# How a tree that is built quickly is optimised; bench/run measures one that is joined and optimised as the package is.
# Hot rooms are those that a run of many thousand rows spends its time in. Cold ones run once for a command or a click,
# or wait for a library; without optimisation they compile in two thirds of the time of the others, which have a little.
set(hot_rooms base data modello worklist telematic_engine telematic lettura)
set(cold_rooms toml platform suite gestione automation apps_versione apps_comune apps_esame apps_importazione apps_importa apps_strumenti
               apps_assistente apps_avvio)

# For a library; what a function of the program calls is known all the same.
set(one_kind -fPIC -fno-semantic-interposition)

# Headers are most of the compiled code: a target compiled as one file reads them once. A change then recompiles the
# whole target, so this is for trees that are built once.
# cu_in_one_piece(target HEADERS ROOMS|COLD|TESTS): the targets with the same HEADERS share a precompiled header.
function(cu_in_one_piece target)
  cmake_parse_arguments(P "" "HEADERS" "" ${ARGN})
  if(NOT CU_BUILT_ONCE)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT CU_COVERAGE)
    target_precompile_headers(${target} REUSE_FROM precompiled_${P_HEADERS})
    # Qt asks for it, and a precompiled header is of one kind.
    target_compile_options(${target} PRIVATE ${one_kind})
  endif()
endfunction()

# cu_shared_headers(NAME [OPTIONS options...] [LINKS libraries...] HEADERS headers...): the precompiled header NAME of
# cu_in_one_piece.
function(cu_shared_headers name)
  cmake_parse_arguments(H "" "" "OPTIONS;LINKS;HEADERS" ${ARGN})
  if(NOT CU_BUILT_ONCE OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR CU_COVERAGE)
    return()
  endif()
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp CONTENT "")
  add_library(precompiled_${name} OBJECT ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
  target_link_libraries(precompiled_${name} PRIVATE house_options ${H_LINKS})
  target_compile_options(precompiled_${name} PRIVATE ${H_OPTIONS} ${one_kind})
  target_precompile_headers(precompiled_${name} PRIVATE ${H_HEADERS})
endfunction()

set(standard_headers <algorithm> <array> <cstdint> <filesystem> <functional> <iostream> <map> <memory> <optional> <set> <span>
                     <stdexcept> <string> <string_view> <unordered_map> <vector>)
cu_shared_headers(ROOMS HEADERS ${standard_headers})
set(cold_options $<$<AND:$<BOOL:${CU_QUICK}>,$<CONFIG:Release>>:-O0>)
cu_shared_headers(COLD OPTIONS ${cold_options} HEADERS ${standard_headers} <nlohmann/json.hpp>)

# cu_room(name PATH folder-below-src [LINKS rooms...] [PRIVATE libraries...])
# Sources are all *.cpp directly in the folder; a room without sources is header-only.
function(cu_room name)
  cmake_parse_arguments(ROOM "" "PATH" "LINKS;PRIVATE;SOURCES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${ROOM_PATH}/*.cpp)
  list(APPEND sources ${ROOM_SOURCES})
  # For the test that compares the links with ARCHITECTURE.md.
  set(links ${ROOM_LINKS})
  list(FILTER links EXCLUDE REGEX "::")
  list(JOIN links " " links)
  set_property(GLOBAL APPEND PROPERTY CU_ROOMS "${name} ${links}")
  set(root ${CMAKE_BINARY_DIR}/rooms/${name})
  cmake_path(GET ROOM_PATH PARENT_PATH parent)
  file(MAKE_DIRECTORY ${root}/${parent})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${ROOM_PATH} ${root}/${ROOM_PATH} COPY_ON_ERROR SYMBOLIC)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${root})
    target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE house_options ${ROOM_PRIVATE})
    if(name IN_LIST cold_rooms)
      cu_in_one_piece(${name} HEADERS COLD)
    else()
      cu_in_one_piece(${name} HEADERS ROOMS)
    endif()
    if(CU_PRINTS_APART AND name IN_LIST printing_rooms AND NOT CU_BUILT_ONCE)
      # For a library; what a function of the program calls is known all the same.
      set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
      if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${name} PRIVATE -fno-semantic-interposition)
      endif()
    endif()
    if(name IN_LIST cold_rooms)
      target_compile_options(${name} PRIVATE ${cold_options})
    elseif(CU_QUICK AND NOT name IN_LIST hot_rooms)
      target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
    endif()
    if(CU_COVERAGE AND name IN_LIST measured_rooms)
      target_compile_options(${name} PRIVATE --coverage -O0)
      target_link_options(${name} INTERFACE --coverage)
      # Maps headers to their own names: the link's name, and the name relative to the build folder that ccache uses.
      cmake_path(RELATIVE_PATH CMAKE_SOURCE_DIR BASE_DIRECTORY ${CMAKE_BINARY_DIR} OUTPUT_VARIABLE up)
      foreach(room ${measured_rooms})
        target_compile_options(
          ${name} PRIVATE -fprofile-prefix-map=${CMAKE_BINARY_DIR}/rooms/${room}=${CMAKE_SOURCE_DIR}/src
                          -fprofile-prefix-map=rooms/${room}=${up}/src)
      endforeach()
    endif()
    if(CU_TIDY)
      set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY
                                             "clang-tidy;--quiet;--extra-arg=-Wno-unknown-warning-option")
    endif()
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${root})
    target_link_libraries(${name} INTERFACE ${ROOM_LINKS})
  endif()
endfunction()

# cu_program(name LINKS rooms... SOURCES files...)
function(cu_program name)
  cmake_parse_arguments(P "" "" "LINKS;SOURCES" ${ARGN})
  add_executable(${name} ${P_SOURCES})
  target_link_libraries(${name} PRIVATE house_options ${P_LINKS})
  cu_in_one_piece(${name} HEADERS COLD)
  # A program's own code reads its command line; the rest is in rooms.
  target_compile_options(${name} PRIVATE ${cold_options})
  cu_measured(${name})
endfunction()

# cu_tests(name LINKS rooms... [LABEL fast|slow|system] [LOCK name] [ENVIRONMENT NAME=value...]
#          [SUPPORT files...] [...])
# One test program of all *_test.cpp of the calling folder, with the support files there and in SUPPORT; marks each
# file as belonging to a program.
#
# CTest has each test under its own name, labelled single, so that one can be run alone (ctest -R). Thousands of
# processes take minutes where a few take seconds: in the configuration Programs the whole program is a test too,
# with its LABEL, and ./test runs those. Single tests with the same LOCK never run at the same time.
function(cu_tests name)
  cmake_parse_arguments(T "" "LABEL;TIMEOUT;LOCK" "LINKS;DEFINES;SUPPORT;ENVIRONMENT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *_test.cpp)
  if(NOT sources)
    return()
  endif()
  set_property(GLOBAL APPEND PROPERTY CU_CLAIMED_TESTS ${sources})
  if(NOT T_LABEL)
    set(T_LABEL fast)
  endif()
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 300)
  endif()
  file(GLOB support CONFIGURE_DEPENDS *_support.cpp)
  add_executable(${name} ${sources} ${support} ${T_SUPPORT})
  if(T_LABEL STREQUAL fast)
    if(NOT TARGET fast_tests)
      add_custom_target(fast_tests)
    endif()
    add_dependencies(fast_tests ${name})
  endif()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/bin)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE ${T_DEFINES})
  target_link_libraries(${name} PRIVATE house_options ${T_LINKS} GTest::gmock GTest::gtest_main)
  cu_measured(${name})
  cu_in_one_piece(${name} HEADERS TESTS)
  # The test library is more than a third of the code that a test file compiles: it is precompiled for each program
  # of more than two files, for which that is faster.
  list(LENGTH sources files)
  if(files GREATER 2 AND NOT CU_BUILT_ONCE)
    target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h> <string> <vector>)
  endif()
  # The tests' own code need not be fast, and compiles without optimisation in little more than half the time; without
  # line information under the sanitizers in another quarter less, because a failed expectation reports its line.
  target_compile_options(
    ${name} PRIVATE $<$<AND:$<CONFIG:Release,RelWithDebInfo>,$<CXX_COMPILER_ID:GNU>>:-O0>
                    $<$<AND:$<CONFIG:RelWithDebInfo>,$<CXX_COMPILER_ID:GNU>>:-g0>)
  # The tests' own code needs the other sanitizer's checks least, and they are half of its compile time.
  if(CU_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
  endif()

  set(properties TIMEOUT ${T_TIMEOUT})
  if(T_ENVIRONMENT)
    list(APPEND properties ENVIRONMENT "${T_ENVIRONMENT}")
  endif()
  set(lock "")
  if(T_LOCK)
    set(lock RESOURCE_LOCK ${T_LOCK})
  endif()
  add_test(NAME ${name} COMMAND ${name} CONFIGURATIONS Programs)
  set_tests_properties(${name} PROPERTIES LABELS ${T_LABEL} ${properties})
  # Discovers the test names when CTest runs, not with every build.
  gtest_discover_tests(
    ${name}
    NO_PRETTY_TYPES NO_PRETTY_VALUES
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS single ${properties} ${lock})
endfunction()
