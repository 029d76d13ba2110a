# GoogleTest, and orvenza_discover_tests(TARGET), which registers a program's tests with ctest.

set(googletest_source /usr/src/googletest)
if(CMAKE_CROSSCOMPILING)
  # No library is packaged for cross builds, so it is built from the sources in the package googletest.
  if(NOT EXISTS ${googletest_source}/CMakeLists.txt)
    message(FATAL_ERROR "The tests need ${googletest_source} (package googletest); -DORVENZA_TESTS=OFF does without")
  endif()
  set(BUILD_GMOCK OFF)
  set(INSTALL_GTEST OFF)
  set(gtest_disable_pthreads ON)
  add_subdirectory(${googletest_source} googletest EXCLUDE_FROM_ALL)
  target_include_directories(gtest BEFORE PUBLIC ${CMAKE_CURRENT_LIST_DIR}/googletest-mingw)
  if(NOT TARGET GTest::gtest)
    add_library(GTest::gtest ALIAS gtest)
    add_library(GTest::gtest_main ALIAS gtest_main)
  endif()
else()
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

# Listing a program's tests means starting it in the emulator, so there each program is one test.
function(orvenza_discover_tests target)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${target} COMMAND ${target})
    # Not UTC, so that a confusion of UTC and local time shows.
    set_tests_properties(${target} PROPERTIES TIMEOUT 1800 RESOURCE_LOCK wine ENVIRONMENT TZ=Europe/Rome)
  else()
    gtest_discover_tests(${target} NO_PRETTY_VALUES PROPERTIES TIMEOUT 300 DISCOVERY_TIMEOUT 60)
  endif()
endfunction()
