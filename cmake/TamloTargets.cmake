# What every target of the project shares: warnings, sanitizers, where things are put.

set(TAMLO_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
option(TAMLO_COVERAGE "Count the branches taken" OFF)

# The program and its wave files stand together; the tools stand beside them.
set(TAMLO_GAME_DIR ${PROJECT_BINARY_DIR}/game)
set(TAMLO_TOOLS_DIR ${PROJECT_BINARY_DIR}/tools)
set(TAMLO_BENCH_DIR ${PROJECT_BINARY_DIR}/bench)

# Whom a player reaches with questions: spoken in the instructions and the failure messages.
set(TAMLO_CONTACT_NAME "the makers of Tamlo Delivery" CACHE STRING "Contact name in failure messages")
set(TAMLO_CONTACT_EMAIL "help@tamlo.example" CACHE STRING "E-mail address in the instructions")
set(TAMLO_CONTACT_WEB "www.tamlo.example" CACHE STRING "Web address in the instructions")
set(TAMLO_CONTACT_PHONE "no telephone" CACHE STRING "Telephone number in the instructions")
set(TAMLO_CONTACT_TOWN "Tamlo Town" CACHE STRING "Town, region and country in the instructions")

add_library(tamlo_options INTERFACE)
target_compile_options(tamlo_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(TAMLO_SANITIZE)
    target_compile_options(tamlo_options INTERFACE -fsanitize=${TAMLO_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all -O1)
    target_link_options(tamlo_options INTERFACE -fsanitize=${TAMLO_SANITIZE})
endif()
if(TAMLO_COVERAGE)
    target_compile_options(tamlo_options INTERFACE --coverage -O0)
    target_link_options(tamlo_options INTERFACE --coverage)
endif()

# tamlo_library(NAME SOURCES file... [LIBS target...]): a static library seen from src/.
function(tamlo_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LIBS} PRIVATE tamlo_options)
endfunction()

# tamlo_test(NAME SOURCES file... [LIBS target...]): one test program, its cases known to ctest.
function(tamlo_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock GTest::gtest_main tamlo_options)
    gtest_discover_tests(${name} PROPERTIES TIMEOUT 120 DISCOVERY_TIMEOUT 60)
endfunction()
