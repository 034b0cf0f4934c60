# Embeds files in the programs, so that nothing has to be installed with them.
#
# cu_embed(variable OUTPUT name.cpp BASE folder FILES files... [HEADER name.h STRUCT name FUNCTION name])
# sets the variable to the path of a source that defines what the header (default liste/risorse.h) declares: one
# entry per file, named by its path below the folder. The source is written again when a
# file or this script changes.

if(NOT CMAKE_SCRIPT_MODE_FILE)
  set(CU_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

  function(cu_embed variable)
    cmake_parse_arguments(E "" "OUTPUT;BASE;HEADER;STRUCT;FUNCTION" "FILES" ${ARGN})
    if(NOT E_HEADER)
      set(E_HEADER liste/risorse.h)
      set(E_STRUCT RisorsaIncorporata)
      set(E_FUNCTION risorseIncorporate)
    endif()
    set(output ${CMAKE_CURRENT_BINARY_DIR}/${E_OUTPUT})
    string(REPLACE ";" "|" files "${E_FILES}")
    add_custom_command(
      OUTPUT ${output}
      COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DBASE=${E_BASE} -DHEADER=${E_HEADER} -DSTRUCT=${E_STRUCT}
              -DFUNCTION=${E_FUNCTION} "-DFILES=${files}" -P ${CU_EMBED_SCRIPT}
      DEPENDS ${E_FILES} ${CU_EMBED_SCRIPT}
      COMMENT "Embedding files of ${E_BASE}"
      VERBATIM)
    set(${variable} ${output} PARENT_SCOPE)
  endfunction()
  return()
endif()

string(REPLACE "|" ";" FILES "${FILES}")
set(arrays "")
set(table "")
set(count 0)
foreach(file IN LISTS FILES)
  file(READ ${file} bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
  file(SIZE ${file} size)
  cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${BASE} OUTPUT_VARIABLE name)
  # A zero after the last byte avoids an empty array for an empty file.
  string(APPEND arrays "constexpr unsigned char kBytes${count}[] = {${bytes}0x00};\n")
  string(APPEND table "    {\"${name}\", kBytes${count}, ${size}},\n")
  math(EXPR count "${count} + 1")
endforeach()
file(WRITE ${OUTPUT}.new
  "#include \"${HEADER}\"\n\nnamespace cu {\nnamespace {\n${arrays}"
  "constexpr ${STRUCT} kFiles[] = {\n${table}};\n}  // namespace\n\n"
  "std::span<const ${STRUCT}> ${FUNCTION}() { return kFiles; }\n\n}  // namespace cu\n")
file(RENAME ${OUTPUT}.new ${OUTPUT})
