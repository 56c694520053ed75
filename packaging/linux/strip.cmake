# Read by cpack before it packs: takes out of the programs what only debuggers and linkers look at,
# as Debian does. CPack itself would strip those alone that are installed as targets, and leave the
# compiler's remarks.

file(GLOB files LIST_DIRECTORIES OFF
  ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/* ${CPACK_TEMPORARY_DIRECTORY}/usr/lib/sorvane/*)
foreach(file IN LISTS files)
  file(READ ${file} start LIMIT 4 HEX)
  if(start STREQUAL "7f454c46" AND NOT IS_SYMLINK ${file})
    execute_process(COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note ${file}
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
