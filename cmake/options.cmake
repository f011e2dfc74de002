# Compiler settings that every target of this project links to.
add_library(zolt_options INTERFACE)
target_compile_features(zolt_options INTERFACE cxx_std_20)
target_compile_options(zolt_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  # Bytes on the bus and from clients are signed chars on every target, also
  # where the platform's default is unsigned.
  -fsigned-char)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # With optimisation this compiler reports the standard library's own string
  # and vector code (its bugs 105329 and 105651); newer ones do not.
  target_compile_options(zolt_options INTERFACE
    -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()

if(ZOLT_SANITIZE)
  target_compile_options(zolt_options INTERFACE
    -fsanitize=${ZOLT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zolt_options INTERFACE -fsanitize=${ZOLT_SANITIZE})
endif()

if(ZOLT_FUZZ)
  # Counts what a run of a fuzzer reaches; the fuzzers add libFuzzer's main.
  target_compile_options(zolt_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# zolt_library(NAME SOURCES... [DEPENDS libraries...]): one folder of src/.
function(zolt_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE zolt_options)
endfunction()
