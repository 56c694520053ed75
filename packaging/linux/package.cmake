# The Debian package. Its program folder is what the commands sorvane, sorvane-cli and sorvane-board
# copy for each user. In the program folder, and on Windows, the files keep the names of their
# targets; as commands all of them are lower case, with a hyphen.

set(texts ${CMAKE_SOURCE_DIR}/packaging/linux)
set(made ${CMAKE_BINARY_DIR}/packaging)
set(program_folder lib/sorvane)
set(documents share/doc/sorvane)
set(SORVANE_MANUAL_FOLDER ${documents}/manual) # read by docs/
set(SORVANE_HOWTO_FOLDER ${documents}/howto)   # and so is this

sorvane_install_program_folder(${program_folder})
install(TARGETS SorvaneBoard RUNTIME DESTINATION ${program_folder})
install(FILES ${CMAKE_SOURCE_DIR}/data/Sorvane.ini DESTINATION ${program_folder})
sorvane_install_examples(${documents}/examples)

# One launcher that looks at the name by which it is called.
install(PROGRAMS ${texts}/sorvane DESTINATION bin)
file(MAKE_DIRECTORY ${made})
foreach(command sorvane-cli sorvane-board)
  file(CREATE_LINK sorvane ${made}/${command} SYMBOLIC)
  install(FILES ${made}/${command} DESTINATION bin)
endforeach()
install(PROGRAMS $<TARGET_FILE:SorvaneIndex> DESTINATION bin RENAME sorvane-index)
install(PROGRAMS $<TARGET_FILE:SorvaneLanguages> DESTINATION bin RENAME sorvane-languages)
install(PROGRAMS ${texts}/show-manual DESTINATION libexec/sorvane)

install(FILES ${texts}/sorvane.desktop DESTINATION share/applications)
configure_file(${texts}/org.sorvane.sorvane.metainfo.xml.in ${made}/org.sorvane.sorvane.metainfo.xml
  @ONLY)
install(FILES ${made}/org.sorvane.sorvane.metainfo.xml DESTINATION share/metainfo)
install(FILES ${texts}/60-sorvane.rules DESTINATION lib/udev/rules.d)
foreach(size 16 24 32 48 64 128 256)
  install(FILES ${CMAKE_SOURCE_DIR}/data/icon/sorvane-${size}.png
    DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME sorvane.png)
endforeach()

# Installs a text as Debian wants manuals and lists of changes: compressed, and without a time.
function(install_compressed text destination name)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${text})
  execute_process(COMMAND gzip --best --no-name --stdout ${text} OUTPUT_FILE ${made}/${name}.gz
    COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${made}/${name}.gz DESTINATION ${destination})
endfunction()

foreach(command sorvane sorvane-cli sorvane-board sorvane-index sorvane-languages)
  install_compressed(${texts}/${command}.1 share/man/man1 ${command}.1)
endforeach()
install_compressed(${texts}/sorvane-snapshot.5 share/man/man5 sorvane-snapshot.5)
install(FILES ${texts}/sorvane-cli.bash DESTINATION share/bash-completion/completions
  RENAME sorvane-cli)
configure_file(${texts}/changelog.Debian.in ${made}/changelog.Debian @ONLY)
install_compressed(${made}/changelog.Debian ${documents} changelog.Debian)
install_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${documents} changelog)
configure_file(${texts}/copyright.in ${made}/copyright @ONLY)
install(FILES ${made}/copyright ${texts}/README.Debian DESTINATION ${documents})
foreach(document sorvane-manual sorvane-manual-it sorvane-howto)
  install(FILES ${texts}/${document}.doc-base DESTINATION share/doc-base RENAME sorvane.${document})
endforeach()

install(FILES ${texts}/lintian-overrides DESTINATION share/lintian/overrides RENAME sorvane)

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES OFF)
set(CPACK_PRE_BUILD_SCRIPTS ${texts}/strip.cmake)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME sorvane)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION comm)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${SORVANE_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The menu entry's actions open the manual in a browser and the simulated board in a terminal.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, xterm | x-terminal-emulator")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Sorvane connects to the control board of a refrigerated vending machine by a
serial line. It shows what the board holds and changes it: settings, prices,
discounts, payment, the clock and the assignment of keys and columns. Totals,
counters and the last alarms can be read.
.
On the command line, sorvane-cli keeps all that a board holds as a snapshot,
compares machines, and puts a snapshot back.
.
A simulated board for training comes along, and so do the tools that make
index files and check language files.")
