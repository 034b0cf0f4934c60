# Tests what rooms.cmake accepts and rejects.

cmake_minimum_required(VERSION 3.25)

function(check expected page)
  file(WRITE ${WORK}/page.md "${page}")
  file(WRITE ${WORK}/rooms.txt "base\ndata base\nhost data base\n")
  execute_process(COMMAND ${CMAKE_COMMAND} -D PAGE=${WORK}/page.md -D ROOMS=${WORK}/rooms.txt -P
                          ${CMAKE_CURRENT_LIST_DIR}/rooms.cmake RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(expected STREQUAL "" AND NOT result EQUAL 0)
    message(SEND_ERROR "rejected: ${page}${errors}")
  elseif(NOT expected STREQUAL "" AND (result EQUAL 0 OR NOT errors MATCHES "${expected}"))
    message(SEND_ERROR "expected \"${expected}\" of: ${page}${errors}")
  endif()
endfunction()

set(title "# A page\n\nThe links, as built:\n\n```\n")
check("" "${title}base\ndata   base\nhost  data base\n```\n")
check("built, not in the page: host data base" "${title}base\ndata base\n```\n")
check("in the page, not built: more base" "${title}base\ndata base\nhost data base\nmore base\n```\n")
check("data links base, which does not stand above it" "${title}data base\nbase\nhost data base\n```\n")
check("built, not in the page: data base" "${title}base\ndata\nhost data base\n```\n")
check("the page has no list of links" "# A page\n\n```\nbase\n```\n")
