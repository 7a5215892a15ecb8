# nrvk_discover_tests(TARGET [OPTION...]): its tests, one by one. Under emulation every start costs more than most tests: there a
# program is one test. A parameter's printed value would stand for the name that its suite gives it: structures print as octets.
function(nrvk_discover_tests target)
  if(CMAKE_CROSSCOMPILING)
    add_test(NAME ${target} COMMAND ${target})
    set_tests_properties(${target} PROPERTIES TIMEOUT 7200)
  else()
    gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES ${ARGN})
  endif()
endfunction()

# nrvk_add_library_test(NAME SOURCE...): a test program with the library's objects in it, so that it sees what the shared library does
# not export, and with the sandbox, so that nothing it does reaches the machine.
function(nrvk_add_library_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE nrvk_library nrvk_sandbox nrvk_test_support GTest::gmock_main)
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE OFF NRVK_TEST ON)
  target_precompile_headers(${name} REUSE_FROM nrvk_test_support)
  nrvk_discover_tests(${name})
endfunction()
