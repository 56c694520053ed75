# Read by cpack for each package of its own.

if(CPACK_GENERATOR STREQUAL ZIP)
  set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}-windows)
  # One folder in the zip, under the program's own name.
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_PACKAGING_INSTALL_PREFIX /Sorvane)
else()
  set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}-setup)
  # Without the settings, which the setup brings by itself.
  string(REPLACE ";ALL;" ";Unspecified;" CPACK_INSTALL_CMAKE_PROJECTS
    "${CPACK_INSTALL_CMAKE_PROJECTS}")
endif()
