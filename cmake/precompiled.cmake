# Half of what a test takes to compile are the same headers of GoogleTest and of the
# standard library: those are compiled once, for the tests alone.
function(zolt_precompile_tests folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(libraries ${target} LINK_LIBRARIES)
    if(libraries MATCHES "GTest::")
      target_precompile_headers(${target} REUSE_FROM precompiled_tests)
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(inner IN LISTS folders)
    zolt_precompile_tests(${inner})
  endforeach()
endfunction()

# An executable like the tests, because its position-independent code is of their kind.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/precompiled_tests.cpp "int main() {}\n")
add_executable(precompiled_tests ${CMAKE_CURRENT_BINARY_DIR}/precompiled_tests.cpp)
target_link_libraries(precompiled_tests PRIVATE zolt_options GTest::gtest)
target_precompile_headers(precompiled_tests PRIVATE
  <gtest/gtest.h>
  <algorithm> <array> <atomic> <chrono> <filesystem> <functional> <map> <memory> <mutex>
  <optional> <string> <thread> <vector>)
zolt_precompile_tests(${PROJECT_SOURCE_DIR}/tests)
