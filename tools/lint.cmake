# Project rules that neither the compiler nor the linker can check:
#
#   include-up      no include leaves its folder by "../"
#   core-include    the core includes the standard library and the project's headers, nothing else
#   core-surface    files, streams and the locale are used only through host's interfaces
#   core-locale     the core calls no function that depends on the process's locale
#
# cmake -D ROOT=<repository> -P tools/lint.cmake
# Prints "file:line: rule: what" for each breach and fails if there is one.

cmake_minimum_required(VERSION 3.25)

set(core_folders base data host liste schede intake controls modello context worklist telematic printing fornitura editors wizard gestione)

set(standard_headers
    algorithm any array atomic bit bitset cassert cerrno cfloat charconv chrono climits cmath compare complex
    concepts cstddef cstdint cstdlib cstring deque exception forward_list functional initializer_list iterator
    limits list map memory memory_resource new numbers numeric optional queue random ranges ratio scoped_allocator
    set source_location span stack stdexcept string string_view system_error tuple type_traits typeindex typeinfo
    unordered_map unordered_set utility valarray variant vector version)

set(surface_headers
    cctype clocale codecvt cstdio ctime cuchar cwchar cwctype filesystem fstream iomanip ios iosfwd iostream
    istream locale ostream regex sstream streambuf strstream syncstream)

set(locale_names
    # conversions
    atof atoi atol atoll stod stof stoi stol stold stoll stoul stoull strtod strtof strtol strtold strtoll strtoul
    strtoull wcstod wcstof wcstol to_string to_wstring
    # formats
    printf fprintf sprintf snprintf asprintf dprintf vprintf vfprintf vsprintf vsnprintf vasprintf wprintf
    fwprintf swprintf scanf fscanf sscanf vscanf vfscanf vsscanf strftime wcsftime strptime put_money put_time
    get_money get_time
    # the locale itself, and collation and character classes that depend on it
    setlocale localeconv newlocale uselocale strcoll strxfrm wcscoll isalnum isalpha isblank iscntrl isgraph
    islower isprint ispunct isspace isupper tolower toupper iswalpha iswspace towlower towupper
    # streams
    stringstream istringstream ostringstream wstringstream stringbuf fstream ifstream ofstream filebuf
    iostream istream ostream)

set(breaches "")

macro(breach file line rule what)
  string(APPEND breaches "${file}:${line}: ${rule}: ${what}\n")
endmacro()

# The lines of a text as a list, with the text's brackets and semicolons replaced.
function(lines_of text result)
  string(REPLACE "[" "(" text "${text}")
  string(REPLACE "]" ")" text "${text}")
  string(REPLACE ";" "," text "${text}")
  string(REPLACE "\\" "/" text "${text}")
  string(REPLACE "\n" ";" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# The code without string literals, character literals and comments.
function(code_of text result)
  set(quoted "\"([^\"\\\n]|\\\\.)*\"")
  set(character "'([^'\\\n]|\\\\.)'")
  set(comment "//[^\n]*")
  string(REGEX REPLACE "${quoted}|${character}|${comment}" " " text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

list(JOIN locale_names "|" names)
set(locale_pattern "(^|[^A-Za-z0-9_])(${names}|std::(cout|cerr|clog|cin|wcout|locale))([^A-Za-z0-9_]|$)")

file(GLOB_RECURSE files RELATIVE "${ROOT}" "${ROOT}/src/*.h" "${ROOT}/src/*.cpp" "${ROOT}/tests/*.h"
     "${ROOT}/tests/*.cpp" "${ROOT}/bench/*.h" "${ROOT}/bench/*.cpp")
set(core_files 0)

foreach(file IN LISTS files)
  file(READ "${ROOT}/${file}" text)
  set(core FALSE)
  if(file MATCHES "^src/([^/]+)/")
    list(FIND core_folders "${CMAKE_MATCH_1}" place)
    if(place GREATER_EQUAL 0)
      set(core TRUE)
      math(EXPR core_files "${core_files} + 1")
    endif()
  endif()

  lines_of("${text}" lines)
  set(number 0)
  foreach(line IN LISTS lines)
    math(EXPR number "${number} + 1")
    if(NOT line MATCHES "^[ \t]*#[ \t]*include[ \t]*([<\"])([^>\"]*)[>\"]")
      continue()
    endif()
    set(kind "${CMAKE_MATCH_1}")
    set(name "${CMAKE_MATCH_2}")
    if("/${name}/" MATCHES "/[.][.]/")
      breach("${file}" ${number} include-up "${name}")
      continue()
    endif()
    if(NOT core)
      continue()
    endif()
    if(kind STREQUAL "<" AND name IN_LIST surface_headers)
      breach("${file}" ${number} core-surface "<${name}>")
    elseif(kind STREQUAL "<" AND NOT name IN_LIST standard_headers)
      breach("${file}" ${number} core-include "<${name}>")
    elseif(kind STREQUAL "\"" AND NOT EXISTS "${ROOT}/src/${name}")
      breach("${file}" ${number} core-include "\"${name}\"")
    endif()
  endforeach()

  if(NOT core)
    continue()
  endif()
  code_of("${text}" code)
  if(NOT code MATCHES "${locale_pattern}")
    continue()
  endif()
  lines_of("${code}" lines)
  set(number 0)
  foreach(line IN LISTS lines)
    math(EXPR number "${number} + 1")
    if(NOT line MATCHES "^[ \t]*#" AND line MATCHES "${locale_pattern}")
      breach("${file}" ${number} core-locale "${CMAKE_MATCH_2}")
    endif()
  endforeach()
endforeach()

if(core_files EQUAL 0)
  message(FATAL_ERROR "no file of the core below ${ROOT}/src")
endif()
if(breaches)
  message("${breaches}")
  message(FATAL_ERROR "the rules above are broken")
endif()
message(STATUS "${core_files} files of the core keep the rules")
