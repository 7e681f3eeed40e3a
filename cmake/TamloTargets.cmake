# What every target of the project shares: warnings, sanitizers, where things are put.

set(TAMLO_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
set(TAMLO_TESTS all CACHE STRING "Which tests: all, or those of one kind: sanitized, threaded, plain")
option(TAMLO_COVERAGE "Count the branches taken (clang only)" OFF)

# The program and its wave files stand together; the tools stand beside them.
set(TAMLO_GAME_DIR ${PROJECT_BINARY_DIR}/game)
set(TAMLO_TOOLS_DIR ${PROJECT_BINARY_DIR}/tools)
set(TAMLO_BENCH_DIR ${PROJECT_BINARY_DIR}/bench)

# Seconds until a test counts as hanging, on a machine that has a lot else to do.
set(tamlo_patience 300)
if(TAMLO_SANITIZE)
    set(tamlo_patience 900)
endif()

# Whom a player reaches with questions: spoken in the instructions and the failure messages.
set(TAMLO_CONTACT_NAME "the makers of Tamlo Delivery" CACHE STRING "Contact name in failure messages")
set(TAMLO_CONTACT_EMAIL "help@tamlo.example" CACHE STRING "E-mail address in the instructions")
set(TAMLO_CONTACT_WEB "www.tamlo.example" CACHE STRING "Web address in the instructions")
set(TAMLO_CONTACT_PHONE "no telephone" CACHE STRING "Telephone number in the instructions")
set(TAMLO_CONTACT_TOWN "Tamlo Town" CACHE STRING "Town, region and country in the instructions")

option(TAMLO_WERROR "Treat warnings as errors, as ./test does" OFF)

add_library(tamlo_options INTERFACE)
target_compile_options(tamlo_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${TAMLO_WERROR}>:-Werror>)
# What Debian's packages are built with, for the build that is played and put into the archive as well.
if(CMAKE_SYSTEM_NAME STREQUAL Linux AND CMAKE_BUILD_TYPE STREQUAL RelWithDebInfo AND NOT TAMLO_SANITIZE)
    target_compile_options(tamlo_options INTERFACE -fstack-protector-strong -fstack-clash-protection
        -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fPIE)
    target_link_options(tamlo_options INTERFACE -pie -Wl,-z,relro,-z,now)
endif()
if(TAMLO_SANITIZE)
    target_compile_options(tamlo_options INTERFACE -fsanitize=${TAMLO_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all
        -Wno-maybe-uninitialized)  # the sanitizers' own code misleads it
    target_link_options(tamlo_options INTERFACE -fsanitize=${TAMLO_SANITIZE})
endif()
if(TAMLO_COVERAGE)
    target_compile_options(tamlo_options INTERFACE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(tamlo_options INTERFACE -fprofile-instr-generate)
endif()

# tamlo_library(NAME SOURCES file... [LIBS target...] [OPENS library...]): a library seen from src/,
# static unless BUILD_SHARED_LIBS says otherwise. OPENS names the foreign libraries that it opens at run
# time: scripts/check-rules lets it include their headers.
function(tamlo_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;OPENS" ${ARGN})
    add_library(${name} ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LIBS} PRIVATE tamlo_options)
    set_target_properties(${name} PROPERTIES TAMLO_OPENS "${ARG_OPENS}")
endfunction()

# The kinds of tests: sanitized, under the address and undefined-behaviour sanitizers; threaded, under
# the thread sanitizer; plain, as the programs are delivered.

# tamlo_tests_are(KIND): whether this configuration has the tests of a kind; sets has_tests.
function(tamlo_tests_are kind)
    set(has_tests OFF)
    if(TAMLO_TESTS STREQUAL all OR TAMLO_TESTS STREQUAL kind)
        set(has_tests ON)
    endif()
    set(has_tests ${has_tests} PARENT_SCOPE)
endfunction()

# tamlo_test(NAME [PLAIN | THREADED] SOURCES file... [LIBS target...]): one test program, its cases
# known to ctest; its kind is sanitized if no other is given. The target tests_to_run builds those
# that this configuration has.
function(tamlo_test name)
    cmake_parse_arguments(ARG "PLAIN;THREADED" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock GTest::gtest_main tamlo_options)
    set(kind sanitized)
    if(ARG_PLAIN)
        set(kind plain)
    elseif(ARG_THREADED)
        set(kind threaded)
    endif()
    tamlo_tests_are(${kind})
    if(has_tests)
        set_property(GLOBAL APPEND PROPERTY TAMLO_TESTS_TO_RUN ${name})
        gtest_discover_tests(${name} NO_PRETTY_VALUES
            PROPERTIES TIMEOUT ${tamlo_patience} DISCOVERY_TIMEOUT 60)
    else()
        set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    endif()
endfunction()
