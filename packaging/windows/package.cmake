# The zip and the setup of Windows: one folder that is complete and runs from anywhere.

set(texts ${CMAKE_SOURCE_DIR}/packaging/windows)

sorvane_install_program_folder(.)
install(TARGETS SorvaneIndex SorvaneLanguages RUNTIME DESTINATION .)
sorvane_install_examples(tables)
install(FILES ${CMAKE_SOURCE_DIR}/docs/files.md DESTINATION tables)
install(FILES ${CMAKE_SOURCE_DIR}/data/languages/README.md DESTINATION tables RENAME languages.md)

# The setup treats the settings apart from all other files.
install(FILES ${CMAKE_SOURCE_DIR}/data/Sorvane.ini DESTINATION . COMPONENT settings)

# Plain texts with the line ends of Windows, which its older editors insist on.
function(install_text text destination name)
  configure_file(${text} ${CMAKE_BINARY_DIR}/packaging/${name} @ONLY NEWLINE_STYLE CRLF)
  install(FILES ${CMAKE_BINARY_DIR}/packaging/${name} DESTINATION ${destination})
endfunction()

install_text(${texts}/README.txt.in . README.txt)
install_text(${CMAKE_SOURCE_DIR}/LICENSE . LICENSE.txt)

# The program contains the libraries that it is linked with, and so come their licences.
foreach(package qt6-base-dev libcli11-dev mingw-w64-common gcc-mingw-w64-base)
  install_text(/usr/share/doc/${package}/copyright licenses ${package}.txt)
endforeach()

find_program(SORVANE_MAKENSIS makensis REQUIRED NO_CMAKE_FIND_ROOT_PATH
  DOC "Makes the setup; Debian's package nsis")

set(CPACK_GENERATOR ZIP NSIS)
set(CPACK_PROJECT_CONFIG_FILE ${texts}/each_package.cmake)
set(CPACK_MODULE_PATH ${texts}) # there is NSIS.template.in
set(CPACK_NSIS_EXECUTABLE ${SORVANE_MAKENSIS})
set(CPACK_NSIS_SAMPLE_SETTINGS ${CMAKE_SOURCE_DIR}/data/Sorvane.ini)
set(CPACK_NSIS_ICON ${CMAKE_SOURCE_DIR}/data/icon/Sorvane.ico)
