# sentrel_fuzzer(<name> SOURCES <file>... [USES <folder>...] [LIBRARIES <target>...]
#                [ENVIRONMENT <NAME=value>...])
# The sources define LLVMFuzzerTestOneInput. Under SENTREL_FUZZ they become the fuzzer fuzz_<name>;
# else a program of the same name that replays fuzz/corpus/<name>/ as the ctest test fuzz/<name>.
function(sentrel_fuzzer name)
  cmake_parse_arguments(PARSE_ARGV 1 FUZZ "" "" "SOURCES;USES;LIBRARIES;ENVIRONMENT")
  set(target fuzz_${name})
  add_executable(${target} ${FUZZ_SOURCES})
  list(TRANSFORM FUZZ_USES PREPEND sentrel_)
  target_link_libraries(${target} PRIVATE ${FUZZ_USES} ${FUZZ_LIBRARIES})
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
  if(SENTREL_FUZZ)
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  else()
    target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/fuzz/replay.cpp)
    add_test(NAME fuzz/${name} COMMAND ${target} ${CMAKE_SOURCE_DIR}/fuzz/corpus/${name})
    set_tests_properties(fuzz/${name} PROPERTIES TIMEOUT 60
      ENVIRONMENT "${FUZZ_ENVIRONMENT}")
  endif()
endfunction()
