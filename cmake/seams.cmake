# The seams of the daemon: what a test program replaces when it is linked. docs/testing.md
# lists them.

# zolt_wraps(TARGET FUNCTION...): in TARGET, every call of one of these functions goes to
# __wrap_FUNCTION, which a source of TARGET defines; __real_FUNCTION is the function itself. A
# function of C++ has the name that it has for the linker.
function(zolt_wraps target)
  list(TRANSFORM ARGN PREPEND "-Wl,--wrap=" OUTPUT_VARIABLE options)
  target_link_options(${target} PRIVATE ${options})
endfunction()

# zolt_replaces(TARGET PART...): TARGET gets the replacements of these parts of the daemon.
function(zolt_replaces target)
  set(support ${PROJECT_SOURCE_DIR}/tests/support)
  foreach(part IN LISTS ARGN)
    if(part STREQUAL "threads")
      target_sources(${target} PRIVATE ${support}/hand_run/hand_run_workers.cpp)
    elseif(part STREQUAL "serial_port")
      target_sources(${target} PRIVATE ${support}/doubles/fake_serial_port.cpp)
    elseif(part STREQUAL "heap")
      target_sources(${target} PRIVATE ${support}/allocation_count.cpp)
    elseif(part STREQUAL "pauses")
      target_sources(${target} PRIVATE ${support}/doubles/recorded_pauses.cpp)
      zolt_wraps(${target} _Z8sleepseci)  # sleepsec(int)
    elseif(part STREQUAL "rests")
      target_sources(${target} PRIVATE ${support}/doubles/long_rests.cpp)
      zolt_wraps(${target} ppoll)
    else()
      message(FATAL_ERROR "zolt_replaces: there is no replacement of \"${part}\"")
    endif()
  endforeach()
endfunction()
