# Libraries that Debian has no Windows build of: GoogleTest from its source package, and the headers of
# CLI11 apart from all others of the machine.

add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include)
file(CREATE_LINK /usr/include/CLI ${CMAKE_BINARY_DIR}/include/CLI SYMBOLIC)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/include)
