# tools/tidy.py on a small tree: a finding in a joined file, or in a header, is reported with the original file and
# line, and a clean tree passes.
#   cmake -D TIDY=tools/tidy.py -D CHECKS=.clang-tidy -D WORK=folder -P tidy_selftest.cmake

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/build/rooms/room)
file(COPY ${TIDY} DESTINATION ${WORK}/tools)
file(COPY ${CHECKS} DESTINATION ${WORK})
file(WRITE ${WORK}/src/room/a.cpp "int a(int x) {\n  return x;\n}\n")
file(WRITE ${WORK}/src/room/b.cpp "#include \"room/b.h\"\n\nint b(const int* p) {\n  return p == nullptr ? 0 : *p;\n}\n")
file(WRITE ${WORK}/src/room/b.h "#pragma once\ninline int* none() { return nullptr; }\n")
file(CREATE_LINK ${WORK}/src/room ${WORK}/build/rooms/room/room SYMBOLIC)
set(entries "")
foreach(file a b)
  list(APPEND entries
       "{\"directory\": \"${WORK}/build\", \"file\": \"${WORK}/src/room/${file}.cpp\", \"command\": \"c++ -I${WORK}/build/rooms/room -std=c++20 -o ${file}.o -c ${WORK}/src/room/${file}.cpp\"}")
endforeach()
list(JOIN entries "," entries)
file(WRITE ${WORK}/build/compile_commands.json "[${entries}]")

function(tidy expected_code expected_text)
  execute_process(COMMAND ${WORK}/tools/tidy.py ${WORK}/build OUTPUT_VARIABLE said ERROR_VARIABLE errors
                  RESULT_VARIABLE code)
  string(FIND "${said}" "${expected_text}" at)
  if(NOT code EQUAL expected_code OR at EQUAL -1)
    message(FATAL_ERROR "expected ${expected_code} and '${expected_text}', got ${code}:\n${said}${errors}")
  endif()
endfunction()

tidy(0 "2 files, nothing found")
# A finding that requires path analysis of a function, in the second file.
file(WRITE ${WORK}/src/room/b.cpp "#include \"room/b.h\"\n\nint b(const int* p) {\n  if (p != nullptr) return 0;\n  return *p;\n}\n")
tidy(1 "src/room/b.cpp:5:10: error: Dereference of null pointer")
file(WRITE ${WORK}/src/room/b.cpp "#include \"room/b.h\"\n")
file(WRITE ${WORK}/src/room/b.h "#pragma once\ninline int* none() { return 0; }\n")
tidy(1 "src/room/b.h:2:29: error: use nullptr")
