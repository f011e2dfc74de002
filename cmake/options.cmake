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

if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # Checks who holds which lock: src/thread/annotations.h, docs/threads.md.
  target_compile_options(zolt_options INTERFACE -Wthread-safety)
endif()

# What makes a memory error hard to exploit, in every build; tools/check-hardening
# holds the programs to it.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
target_compile_definitions(zolt_options INTERFACE _GLIBCXX_ASSERTIONS)
target_compile_options(zolt_options INTERFACE -fstack-protector-strong -fstack-clash-protection)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
  target_compile_options(zolt_options INTERFACE -fcf-protection)
endif()
target_link_options(zolt_options INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
if(NOT ZOLT_SANITIZE)
  # Needs optimisation. The sanitizers check the same calls themselves, and do not
  # see them in the checked variants. -U: the compiler or a package build may
  # have set another level already.
  target_compile_options(zolt_options INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3>)
endif()

if(ZOLT_SANITIZE)
  target_compile_options(zolt_options INTERFACE
    -fsanitize=${ZOLT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zolt_options INTERFACE -fsanitize=${ZOLT_SANITIZE})
endif()

# zolt_targets_below(RESULT FOLDER): the programs and libraries of a folder of sources and of
# the folders in it.
function(zolt_targets_below result folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  set(found)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "EXECUTABLE|STATIC_LIBRARY")
      list(APPEND found ${target})
    endif()
  endforeach()
  foreach(inner IN LISTS folders)
    zolt_targets_below(more ${inner})
    list(APPEND found ${more})
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# zolt_library(NAME SOURCES... [DEPENDS libraries...]): one folder of src/.
function(zolt_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE zolt_options)
endfunction()
