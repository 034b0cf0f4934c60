# What is installed beside the programs, and where (GNUInstallDirs). The programs
# find what they need relative to themselves, so that a whole prefix can be moved.

set(CU_GUIDE_DIR ${CMAKE_INSTALL_DATADIR}/cuwizard)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)

install(TARGETS cuctl cuwizard RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The library of cuctl's prints, at its place relative to the program.
if(CU_PRINTS_APART)
  install(TARGETS cuwizard_stampe LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/cuwizard)
endif()

# The desktop.
set(desktop ${CMAKE_SOURCE_DIR}/data/desktop)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${desktop}/cuwizard.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop}/cuwizard.svg DESTINATION ${icons}/scalable/apps)
foreach(size 48 128)
  install(FILES ${desktop}/cuwizard-${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME cuwizard.png)
endforeach()
install(FILES packaging/cuwizard.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME cuwizard.xml)
configure_file(packaging/it.cuwizard.Cuwizard.metainfo.xml.in documents/it.cuwizard.Cuwizard.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/documents/it.cuwizard.Cuwizard.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The guide with its pictures and examples, which have a link where one looks for examples.
install(FILES docs/guida.md DESTINATION ${CU_GUIDE_DIR})
install(DIRECTORY docs/immagini DESTINATION ${CU_GUIDE_DIR} FILES_MATCHING PATTERN "*.png")
install(DIRECTORY docs/esempio DESTINATION ${CU_GUIDE_DIR})
install(FILES docs/automazione.md docs/controlli.md docs/dati.md docs/formato.md docs/importazione.md docs/sqlserver.md packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
cmake_path(RELATIVE_PATH CU_GUIDE_DIR BASE_DIRECTORY ${CMAKE_INSTALL_DOCDIR} OUTPUT_VARIABLE guide_from_documents)
install(CODE "file(CREATE_LINK \"${guide_from_documents}/esempio\"
  \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DOCDIR}/examples\" SYMBOLIC)")

# cu_compressed(FILE OUTPUT name.gz DESTINATION folder): without the time, so that equal texts give equal files.
set(documents "")
function(cu_compressed file)
  cmake_parse_arguments(C "" "OUTPUT;DESTINATION" "" ${ARGN})
  set(output ${CMAKE_BINARY_DIR}/documents/${C_OUTPUT})
  cmake_path(GET output PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${output} COMMAND gzip -9nc ${file} > ${output} DEPENDS ${file} VERBATIM)
  set(documents ${documents} ${output} PARENT_SCOPE)
  install(FILES ${output} DESTINATION ${C_DESTINATION})
endfunction()

cu_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md OUTPUT changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The manual: one page for each language and command, below docs/man as below the system's folder.
file(GLOB_RECURSE pages RELATIVE ${CMAKE_SOURCE_DIR}/docs/man CONFIGURE_DEPENDS docs/man/*.[15])
foreach(page ${pages})
  cmake_path(GET page PARENT_PATH section)
  cu_compressed(${CMAKE_SOURCE_DIR}/docs/man/${page} OUTPUT man/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/${section})
endforeach()

# Completions, from the command lines as the programs define them.
set(completions ${CMAKE_BINARY_DIR}/documents/completions)
file(MAKE_DIRECTORY ${completions})
foreach(program cuctl cuwizard)
  foreach(shell bash zsh)
    set(output ${completions}/${program}.${shell})
    add_custom_command(OUTPUT ${output} COMMAND cuctl completion ${shell} ${program} > ${output} DEPENDS cuctl VERBATIM)
    list(APPEND documents ${output})
  endforeach()
  install(FILES ${completions}/${program}.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          RENAME ${program})
  install(FILES ${completions}/${program}.zsh DESTINATION ${CU_ZSH_COMPLETIONS} RENAME _${program})
endforeach()
