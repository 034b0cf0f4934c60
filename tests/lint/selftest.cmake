# Each rule of tools/lint.cmake can fail, and fails at the right line; permitted code passes.
# cmake -D LINT=<tools/lint.cmake> -D WORK=<scratch folder> -P selftest.cmake

cmake_minimum_required(VERSION 3.25)

set(failures "")
set(count 0)

# A tree with one valid core file; each case is added in a file of its own.
function(new_tree tree)
  file(REMOVE_RECURSE "${WORK}/${tree}")
  file(WRITE "${WORK}/${tree}/src/host/good.h" "#pragma once\n#include <string>\n#include \"host/good.h\"\n")
endfunction()

function(lint tree)
  execute_process(COMMAND "${CMAKE_COMMAND}" -D "ROOT=${WORK}/${tree}" -P "${LINT}" RESULT_VARIABLE status
                  OUTPUT_VARIABLE output ERROR_VARIABLE output)
  set(status "${status}" PARENT_SCOPE)
  set(output "${output}" PARENT_SCOPE)
endfunction()

# The file of a case: "src/host/a.cpp" becomes "src/host/a17.cpp".
function(numbered path)
  math(EXPR count "${count} + 1")
  string(REGEX REPLACE "([.][a-z]+)$" "${count}\\1" path "${path}")
  set(count ${count} PARENT_SCOPE)
  set(path "${path}" PARENT_SCOPE)
endfunction()

# One breach, reported with its place; the first of each rule is also sufficient alone to fail the lint.
function(refuses path line rule content)
  numbered("${path}")
  file(WRITE "${WORK}/refused/${path}" "${content}")
  set(expected ${expected} "${path}:${line}: ${rule}: " PARENT_SCOPE)
  if(NOT rule IN_LIST rules)
    new_tree(alone)
    file(WRITE "${WORK}/alone/${path}" "${content}")
    lint(alone)
    if(status EQUAL 0)
      set(failures "${failures}${rule} does not fail the lint\n" PARENT_SCOPE)
    endif()
    set(rules ${rules} ${rule} PARENT_SCOPE)
  endif()
  set(count ${count} PARENT_SCOPE)
endfunction()

function(allows path content)
  numbered("${path}")
  file(WRITE "${WORK}/allowed/${path}" "${content}")
  set(count ${count} PARENT_SCOPE)
endfunction()

new_tree(refused)
new_tree(allowed)

# Includes that leave the folder, in every room.
foreach(path src/host/a.h src/suite/a.cpp src/desktop/a.cpp tests/host/a_test.cpp bench/a.cpp)
  refuses(${path} 2 include-up "#pragma once\n#include \"../host/good.h\"\n")
endforeach()
refuses(src/suite/a.cpp 1 include-up "#include \"a/../b.h\"\n")
refuses(src/suite/a.cpp 1 include-up "  #  include <../b.h>\n")
allows(src/suite/a.cpp "#include \"a..b.h\"\n#include \"host/good.h\"\n")

# The permitted includes of the core: in each of its folders, and below.
foreach(folder base data host controls modello context worklist telematic editors printing wizard telematic/engine)
  refuses(src/${folder}/a.cpp 3 core-include "#include <vector>\n\n#include <sqlite3.h>\n")
  refuses(src/${folder}/a.cpp 1 core-include "#include \"thirdparty/json.h\"\n")
  refuses(src/${folder}/a.h 1 core-surface "#include <sstream>\n")
  refuses(src/${folder}/a.cpp 2 core-locale "#include <string>\nauto x = std::to_string(1.5);\n")
  allows(src/${folder}/a.cpp "#include <vector>\n#include \"host/good.h\"\nint x = 1;\n")
endforeach()
foreach(header nlohmann/json.hpp CLI/CLI.hpp toml++/toml.h QtCore sql.h windows.h unistd.h stdio.h string.h thread)
  refuses(src/host/a.cpp 1 core-include "#include <${header}>\n")
endforeach()
foreach(header iostream fstream iomanip locale clocale cstdio cctype filesystem regex)
  refuses(src/host/a.cpp 1 core-surface "#include <${header}>\n")
endforeach()
foreach(folder suite archive sqlite odbc reporting desktop automation apps)
  allows(src/${folder}/a.cpp "#include <sqlite3.h>\n#include <iostream>\nint x = printf(\"x\");\n")
endforeach()

# Calls that depend on the locale.
foreach(name stod stof stold stoi stol strtod strtof strtold strtol atof atoi to_string to_wstring setlocale
             localeconv printf fprintf sprintf snprintf vsnprintf sscanf strftime tolower toupper isalpha isspace
             strcoll)
  refuses(src/host/a.cpp 2 core-locale "int x\n= std::${name}(y);\n")
  refuses(src/host/a.cpp 1 core-locale "${name} (y);\n")
  allows(src/host/a.cpp "int my_${name}(int y);\nint ${name}_of(int y);\nint x${name}(int y);\n")
endforeach()
foreach(name stringstream istringstream ostringstream ofstream ifstream)
  refuses(src/host/a.cpp 3 core-locale "\n\nstd::${name} out;\n")
endforeach()
foreach(name cout cerr cin locale)
  refuses(src/host/a.cpp 1 core-locale "auto& x = std::${name};\n")
  allows(src/host/a.cpp "int ${name} = 1;\n")
endforeach()
allows(src/host/a.cpp "std::isdigit(c); std::from_chars(a, b, c); std::to_chars(a, b, c);\n")

# Names in comments and texts are not calls; code next to them is.
allows(src/host/a.cpp "// printf is not for us, nor is \"strtod\"\nauto x = \"printf(1) // \\\" strtod(2)\";  // atof(3)\n")
allows(src/host/a.cpp "char a = '\"', b = '\\'', c = ';'; int d[3] = {10'000, 2, 3};  // it's sprintf\n")
refuses(src/host/a.cpp 2 core-locale "// a comment\nauto x = \"// text\"; printf(1);\n")
refuses(src/host/a.cpp 1 core-locale "if (c == '\"') printf(1); else f(\"x\");\n")
refuses(src/host/a.cpp 3 core-locale "int a[2];\nint b; int c;\nint d = atoi(e);\n")

lint(refused)
foreach(breach IN LISTS expected)
  string(FIND "${output}" "${breach}" told)
  if(told EQUAL -1)
    string(APPEND failures "not refused: ${breach}\n")
  endif()
endforeach()
string(REGEX MATCHALL "src/[^\n]*: |tests/[^\n]*: |bench/[^\n]*: " told "${output}")
list(LENGTH told told_count)
list(LENGTH expected expected_count)
if(NOT told_count EQUAL expected_count)
  string(APPEND failures "${told_count} breaches told, ${expected_count} are there:\n${output}\n")
endif()
list(LENGTH rules rule_count)
if(NOT rule_count EQUAL 4)
  string(APPEND failures "a rule is not tested: ${rules}\n")
endif()

lint(allowed)
if(NOT status EQUAL 0)
  string(APPEND failures "refused what is allowed:\n${output}\n")
endif()

# A folder without the core is a wrong folder.
file(WRITE "${WORK}/empty/src/suite/a.cpp" "int x;\n")
lint(empty)
if(status EQUAL 0)
  string(APPEND failures "a tree without the core passed\n")
endif()

file(REMOVE_RECURSE "${WORK}")
if(failures)
  message(FATAL_ERROR "${failures}")
endif()
