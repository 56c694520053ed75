# What all targets of the project share: warnings, sanitizers, floors and tests.

set(SORVANE_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor -Wvla -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # These three are guesses of GCC 12's optimizer, wrong about plain strings and std::optional. Clang,
  # clang-tidy and the sanitizers look for the same faults.
  list(APPEND SORVANE_WARNINGS -Wno-restrict -Wno-maybe-uninitialized -Wno-stringop-overflow)
endif()

# Where the copyable program folder is put together.
set(SORVANE_PROGRAM_FOLDER ${CMAKE_BINARY_DIR}/Sorvane)
file(MAKE_DIRECTORY ${SORVANE_PROGRAM_FOLDER})

# What the path of a file of this machine begins with for a program of the build, and the variables of
# Qt: Wine shows the machine's files to a Windows program on a drive of their own, and hands variables of
# Qt on only under another name.
if(WIN32)
  set(SORVANE_DRIVE Z:)
  set(SORVANE_QT WINEQT)
else()
  set(SORVANE_DRIVE "")
  set(SORVANE_QT QT)
endif()

function(sorvane_common target)
  target_compile_options(${target} PRIVATE ${SORVANE_WARNINGS})
  if(SORVANE_SANITIZE OR SORVANE_FUZZ)
    set(sanitize -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
                 -fno-omit-frame-pointer)
    target_compile_options(${target} PRIVATE ${sanitize})
    target_link_options(${target} PRIVATE ${sanitize})
  endif()
endfunction()

# What a program that ships and its libraries are built with. In the release of Linux a write past
# the end of a buffer ends the program: what lies on the stack is watched, and so are the calls of
# the C library that fill buffers. A program lies at another address at each start, and what the
# loader fills in is complete at the start and read-only from then on. Sanitizers watch the same by
# other means, coverage isn't optimized, without which the calls can't be watched, and MinGW has no
# such loader. tests/packages/test_hardening.py reads it from the files.
function(sorvane_shipped target)
  sorvane_common(${target})
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND CMAKE_BUILD_TYPE STREQUAL "Release"
     AND NOT SORVANE_SANITIZE AND NOT SORVANE_FUZZ AND NOT SORVANE_COVERAGE)
    target_compile_options(${target} PRIVATE -fstack-protector-strong -fstack-clash-protection
      -Wformat-security -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
      target_link_options(${target} PRIVATE -pie -Wl,-z,relro -Wl,-z,now)
    endif()
  endif()
endfunction()

# Gives the file of a program the properties that Windows shows, with what it is in English and
# Italian, in plain ASCII.
function(sorvane_file_properties target english italian)
  if(WIN32)
    set(properties ${CMAKE_CURRENT_BINARY_DIR}/${target}.properties.rc)
    configure_file(${CMAKE_SOURCE_DIR}/cmake/FileProperties.rc.in ${properties} @ONLY)
    target_sources(${target} PRIVATE ${properties})
  endif()
endfunction()

# What the libraries of the floors are built with. Lets libFuzzer see which way their code takes; what
# drives it isn't watched. Comparisons aren't either: the targets know right answers by themselves, and
# it would take half of the speed. Where coverage is asked for, their lines and branches are counted.
function(sorvane_floor_library target)
  sorvane_shipped(${target})
  if(SORVANE_FUZZ)
    target_compile_options(${target} PRIVATE
      -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
  endif()
  if(SORVANE_COVERAGE)
    target_compile_options(${target} PRIVATE -O0 --coverage)
    target_link_options(${target} PUBLIC --coverage)
  endif()
endfunction()

# Has the headers that a header of the target includes parsed once for all its sources, which takes two
# thirds of the time off a source with widgets. Where the second target is given, what was parsed for
# that one is taken; both must be compiled alike.
function(sorvane_precompile target header)
  if(SORVANE_PRECOMPILE)
    if(TARGET ${header})
      target_precompile_headers(${target} REUSE_FROM ${header})
    else()
      target_precompile_headers(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${header})
    endif()
  endif()
endfunction()

# Gives a floor, or a room of one, an include root of its own, which holds nothing but "<floor>/...": it
# sees the headers of those that it links, and a wrong include fails to build. The room shell/gate is the
# target sorvane_shell_gate. Without sources it is headers alone.
function(sorvane_floor floor)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  string(REPLACE / _ name ${floor})
  set(root ${CMAKE_BINARY_DIR}/floors/${name})
  cmake_path(GET floor PARENT_PATH parent)
  file(MAKE_DIRECTORY ${root}/${parent})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${floor} SYMBOLIC)
  if(ARG_SOURCES)
    add_library(sorvane_${name} STATIC ${ARG_SOURCES})
    target_include_directories(sorvane_${name} PUBLIC ${root})
    sorvane_floor_library(sorvane_${name})
  else()
    add_library(sorvane_${name} INTERFACE)
    target_include_directories(sorvane_${name} INTERFACE ${root})
  endif()
endfunction()

# Cases with widgets run on Qt's offscreen platform, which finds no font by itself on Windows.
set(SORVANE_TEST_ENVIRONMENT ${SORVANE_QT}_QPA_PLATFORM=offscreen
  ${SORVANE_QT}_QPA_FONTDIR=${SORVANE_DRIVE}/usr/share/fonts/truetype/dejavu
  LC_ALL=C.UTF-8)
# What Qt's widgets, fonts and platforms keep to the end of a program isn't the program's to free.
set(SORVANE_WIDGET_TEST_ENVIRONMENT ${SORVANE_TEST_ENVIRONMENT} ASAN_OPTIONS=detect_leaks=0)

# What code of tests is built with. With widgets it takes far longer to compile than to run; without,
# there are models that play a million exchanges.
function(sorvane_test_code target)
  cmake_parse_arguments(ARG "WIDGETS" "" "" ${ARGN})
  sorvane_common(${target})
  target_compile_options(${target} PRIVATE $<IF:$<BOOL:${ARG_WIDGETS}>,-O0,-O1>)
endfunction()

# A test program with GoogleTest cases, which is one test of CTest. Its main function fails where there
# is no case to run. WIDGETS says that it has widgets, and PLAIN that it has nothing of Qt: both share
# precompiled headers with their kind. With OWN_TERMINALS it shares no pseudo-terminals with other
# programs of the machine.
function(sorvane_test name)
  cmake_parse_arguments(ARG "WIDGETS;PLAIN;OWN_TERMINALS" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest)
  set(environment "${SORVANE_TEST_ENVIRONMENT}")
  if(ARG_WIDGETS)
    set(environment "${SORVANE_WIDGET_TEST_ENVIRONMENT}")
    target_link_libraries(${name} PRIVATE sorvane_qt_test_main)
    sorvane_test_code(${name} WIDGETS)
    sorvane_precompile(${name} sorvane_qt_test_main)
  else()
    sorvane_test_code(${name})
  endif()
  if(ARG_PLAIN)
    target_link_libraries(${name} PRIVATE sorvane_plain_test_main)
    sorvane_precompile(${name} sorvane_plain_test_main)
  endif()
  if(ARG_OWN_TERMINALS)
    add_test(NAME ${name} COMMAND /usr/bin/python3 ${CMAKE_SOURCE_DIR}/tests/support/own_terminals.py
      $<TARGET_FILE:${name}>)
  else()
    add_test(NAME ${name} COMMAND ${name})
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "${environment}")
endfunction()
