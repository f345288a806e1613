# One folder, one target. What a folder may include is what its target links, checked once more by
# scripts/check-includes.

set(PELLUMAR_WARNINGS
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wnull-dereference)

# Warnings, sanitizers and include root of everything that is ours.
function(pellumar_compile target)
    target_compile_options(${target} PRIVATE ${PELLUMAR_WARNINGS})
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_compile_options(${target} PRIVATE -Wthread-safety)
    endif()
    if(PELLUMAR_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${PELLUMAR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${PELLUMAR_SANITIZE})
    endif()
    if(PELLUMAR_FUZZ)
        # Tells the fuzzers which branches their input has taken.
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# pellumar_folder(name [NARROWING] [LINK targets...]): the library of the sources in this folder.
# NARROWING makes implicit narrowing an error.
function(pellumar_folder name)
    cmake_parse_arguments(ARG "NARROWING" "" "LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    if(sources)
        add_library(${name} STATIC ${sources})
        pellumar_compile(${name})
        target_link_libraries(${name} PUBLIC ${ARG_LINK})
        if(ARG_NARROWING)
            target_compile_options(${name} PRIVATE -Wconversion -Wsign-conversion)
        endif()
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE "${CMAKE_SOURCE_DIR}/src")
        target_link_libraries(${name} INTERFACE ${ARG_LINK})
    endif()
endfunction()

# pellumar_test(name [LABEL label] [LINK targets...]): one GoogleTest program of the tests in this
# folder. Tests with the label "heavy" are left out under sanitizers.
function(pellumar_test name)
    cmake_parse_arguments(ARG "" "LABEL" "LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    pellumar_compile(${name})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest_main)
    set(label)
    if(ARG_LABEL)
        set(label LABELS ${ARG_LABEL})
    endif()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 ${label})
endfunction()
