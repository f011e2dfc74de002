# What all programs and libraries in tests/ share: several files are compiled as one, the
# headers of GoogleTest and of the standard library are precompiled, and test code is not
# optimised. Each of the three takes a good part of the compiler's time away. The sources of
# the programs themselves stay out of this: a file that is compiled alone and without
# precompiled headers shows an #include that is missing.

# An executable as the test programs are, so that its position-independent code is of
# their kind.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/precompiled_tests.cpp "int main() {}\n")
add_executable(precompiled_tests ${CMAKE_CURRENT_BINARY_DIR}/precompiled_tests.cpp)
target_link_libraries(precompiled_tests PRIVATE zolt_options GTest::gtest)
target_precompile_headers(precompiled_tests PRIVATE
  <gtest/gtest.h>
  <algorithm> <array> <atomic> <chrono> <filesystem> <functional> <map> <memory> <mutex>
  <optional> <string> <thread> <vector>)

zolt_targets_below(tests ${PROJECT_SOURCE_DIR}/tests)
foreach(target IN LISTS tests ITEMS precompiled_tests)
  # This option comes after those of the build type, so it counts.
  target_compile_options(${target} PRIVATE -O0)
endforeach()
foreach(target IN LISTS tests)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON)
  get_target_property(libraries ${target} LINK_LIBRARIES)
  if(libraries MATCHES "GTest::")
    target_precompile_headers(${target} REUSE_FROM precompiled_tests)
  endif()
endforeach()
