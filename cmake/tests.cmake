# sentrel_test(<name> SOURCES <file>... [USES <folder>...] [LIBRARIES <target>...]
#              [ENVIRONMENT <NAME=value>...] [SERIAL])
# One test program, and one ctest test, per folder of tests/. The zone is never UTC, so that a
# mix-up of local and universal time shows. SERIAL is for tests that measure or start processes.
function(sentrel_test name)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "SERIAL" "" "SOURCES;USES;LIBRARIES;ENVIRONMENT")
  set(target test_${name})
  add_executable(${target} ${TEST_SOURCES})
  list(TRANSFORM TEST_USES PREPEND sentrel_)
  target_link_libraries(${target} PRIVATE ${TEST_USES} ${TEST_LIBRARIES} GTest::gmock_main)
  target_compile_definitions(${target} PRIVATE TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${target})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT "TZ=America/St_Johns;LC_ALL=C.UTF-8;${TEST_ENVIRONMENT}")
  if(TEST_SERIAL)
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  endif()
endfunction()
