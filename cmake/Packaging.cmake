# What cpack makes of the build, in build/packages: a Debian package on Linux, a zip and a setup on
# Windows. Their texts are in packaging/.

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_PACKAGE_NAME Sorvane)
set(CPACK_PACKAGE_VENDOR "The Sorvane developers")
set(CPACK_PACKAGE_CONTACT "The Sorvane developers <developers@sorvane.invalid>")
# The one place to change once the project has a host. The name is a reserved one, which nobody can
# have.
set(SORVANE_HOMEPAGE https://sorvane.invalid)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "service tool for the control board of a vending machine")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_SOURCE_DIR}/build/packages)
set(CPACK_VERBATIM_VARIABLES ON)

# The program, the command line program, and the data files that both look for beside themselves,
# without the settings.
function(sorvane_install_program_folder destination)
  install(TARGETS Sorvane sorvane-cli RUNTIME DESTINATION ${destination})
  file(GLOB tables CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/index/W*.txt)
  foreach(table IN LISTS tables)
    cmake_path(GET table STEM name)
    install(FILES ${SORVANE_PROGRAM_FOLDER}/${name}.inx DESTINATION ${destination})
  endforeach()
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/languages/ DESTINATION ${destination}
    FILES_MATCHING PATTERN *.lng)
endfunction()

# What further index and language files are made of besides the two tools and what is told of them.
function(sorvane_install_examples examples)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/index/ DESTINATION ${examples}
    FILES_MATCHING PATTERN W*.txt)
  install(FILES ${CMAKE_SOURCE_DIR}/data/languages/same-words.txt DESTINATION ${examples})
endfunction()

if(WIN32)
  include(${CMAKE_SOURCE_DIR}/packaging/windows/package.cmake)
else()
  include(${CMAKE_SOURCE_DIR}/packaging/linux/package.cmake)
endif()
include(CPack)
