# zel_library(NAME DEPS lib...): one static library from every .cpp in the calling folder.
function(zel_library name)
  cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
  file(GLOB _sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT _sources)
    message(STATUS "zel_${name}: no sources yet, library left out")
    return()
  endif()
  add_library(zel_${name} STATIC ${_sources})
  target_include_directories(zel_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(zel_${name} PUBLIC ${ARG_DEPS})
  target_compile_options(zel_${name} PRIVATE -Wall -Wextra)
endfunction()

# Test programs are built for speed of building: test code is not optimised (the libraries
# under test are) and the test framework's headers are precompiled once a program.
function(zel_test_program_speedups target)
  target_compile_options(${target} PRIVATE -O0)
  target_precompile_headers(${target} PRIVATE <gtest/gtest.h> <gmock/gmock.h> <filesystem>
                            <fstream> <map> <memory> <sstream> <string> <vector>)
endfunction()

# zel_test_folder(LIB DEPS lib...): one GoogleTest program from every *_test.cpp in the
# calling folder; *_realdata_test.cpp files form a second program labelled "realdata",
# registered only when the shared corpus is present.
function(zel_test_folder name)
  cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
  file(GLOB _all CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp)
  file(GLOB _real CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_realdata_test.cpp)
  file(GLOB _support CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_support.cpp)
  set(_unit ${_all})
  if(_real)
    list(REMOVE_ITEM _unit ${_real})
  endif()
  if(_unit)
    add_executable(${name}_tests ${_unit} ${_support})
    target_link_libraries(${name}_tests PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main GTest::gmock)
    target_include_directories(${name}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR}/src)
    target_compile_definitions(${name}_tests PRIVATE ZEL_BIN_DIR="${CMAKE_BINARY_DIR}/bin"
                                                   ZEL_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    zel_test_program_speedups(${name}_tests)
    gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES LABELS unit)
  endif()
  if(_real AND ZEL_HAVE_REALDATA)
    add_executable(${name}_realdata_tests ${_real} ${_support})
    target_link_libraries(${name}_realdata_tests PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main GTest::gmock)
    target_include_directories(${name}_realdata_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR}/src)
    target_compile_definitions(${name}_realdata_tests PRIVATE ZEL_REALDATA_DIR="${ZEL_REALDATA_DIR}"
                                                            ZEL_BIN_DIR="${CMAKE_BINARY_DIR}/bin"
                                                            ZEL_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    zel_test_program_speedups(${name}_realdata_tests)
    gtest_discover_tests(${name}_realdata_tests DISCOVERY_MODE PRE_TEST PROPERTIES LABELS realdata)
  endif()
endfunction()
