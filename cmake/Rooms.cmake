# A room is a static library of one folder under src/. Its sources are all .cpp files of the folder, so that
# adding a file is enough; what it may use is what it links.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON) # for clang-tidy -p build
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

add_library(qbrpt_options INTERFACE)
target_compile_options(qbrpt_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# GCC 12 sees overlapping copies in plain string concatenation that are not there (GCC bug 105329).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(qbrpt_options INTERFACE -Wno-restrict)
endif()
target_include_directories(qbrpt_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(QBRPT_SANITIZE)
  target_compile_options(qbrpt_options INTERFACE -fsanitize=${QBRPT_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all)
  target_link_options(qbrpt_options INTERFACE -fsanitize=${QBRPT_SANITIZE})
endif()

# qbrpt_room(NAME FOLDER [USES library...])
function(qbrpt_room name folder)
  cmake_parse_arguments(ROOM "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp")
  if(sources)
    add_library(qbrpt_${name} STATIC ${sources})
    target_link_libraries(qbrpt_${name} PUBLIC qbrpt_options ${ROOM_USES})
  else()
    add_library(qbrpt_${name} INTERFACE)
    target_link_libraries(qbrpt_${name} INTERFACE qbrpt_options ${ROOM_USES})
  endif()
  set_property(GLOBAL APPEND PROPERTY QBRPT_ROOMS qbrpt_${name})
endfunction()

# qbrpt_test(NAME [USES library...]): the test program of tests/NAME/*.cpp; each test runs in a process of its own,
# which sees no display: a test that wants one makes it.
function(qbrpt_test name)
  cmake_parse_arguments(TEST "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/${name}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources} "${CMAKE_SOURCE_DIR}/tests/no_display.cpp")
  target_link_libraries(test_${name} PRIVATE qbrpt_options ${TEST_USES} GTest::gmock_main)
  target_include_directories(test_${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_compile_options(test_${name} PRIVATE -O1) # tests are compiled more often than they are waited for
  gtest_discover_tests(test_${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 300)
endfunction()

# qbrpt_has_windows(TARGET...): programs that open windows; sanitizers pass over what Qt keeps to its end.
function(qbrpt_has_windows)
  if(NOT QBRPT_SANITIZE)
    return()
  endif()
  foreach(target IN LISTS ARGN)
    target_sources(${target} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/passed_over_leaks.cpp")
  endforeach()
endfunction()
