# The sanitizer builds: compile and link flags, and the run-time options that
# every test of such a build runs with. This is the one place for both, so
# that `ctest` in a sanitizer build directory behaves the same whether it is
# started by scripts/test or by hand.
#
# Findings are fatal (the first one ends the test with a failing exit code)
# and readable (stack traces, UBSan included). ASan also checks for leaks at
# exit, for use of stack memory after return and for initialisation order.
# No suppressions: a finding in our code is fixed, not silenced.

if(VY_SANITIZE_ADDRESS AND VY_SANITIZE_THREAD)
  message(FATAL_ERROR "ASan and TSan cannot be combined")
endif()

set(VY_SANITIZER_TEST_ENVIRONMENT "")
if(VY_SANITIZE_ADDRESS)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  list(APPEND VY_SANITIZER_TEST_ENVIRONMENT
       "ASAN_OPTIONS=detect_leaks=1:halt_on_error=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:print_summary=1"
       "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1:print_summary=1")
endif()
if(VY_SANITIZE_THREAD)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
  list(APPEND VY_SANITIZER_TEST_ENVIRONMENT
       "TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1:history_size=7:print_summary=1")
endif()

# gtest_discover_tests takes its properties as one flat list of names and
# values, so a list value travels with its separators escaped.
string(REPLACE ";" "\\;" VY_SANITIZER_TEST_ENVIRONMENT_ESCAPED "${VY_SANITIZER_TEST_ENVIRONMENT}")

# vy_sanitizer_test_environment(<test>...): gives the tests the options above.
function(vy_sanitizer_test_environment)
  if(VY_SANITIZER_TEST_ENVIRONMENT AND ARGN)
    set_tests_properties(${ARGN} PROPERTIES ENVIRONMENT "${VY_SANITIZER_TEST_ENVIRONMENT}")
  endif()
endfunction()
