# One folder, one target. What a folder may include is what its target links, checked once more by
# scripts/check-includes.

# Of the checkout, of which the ZIP library can be built alone.
get_filename_component(PELLUMAR_ROOT "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)

set(PELLUMAR_WARNINGS
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wnull-dereference)
if(PELLUMAR_WARNINGS_ARE_ERRORS)
    list(APPEND PELLUMAR_WARNINGS -Werror)
endif()

# Warnings, sanitizers and include root of everything that is ours.
function(pellumar_compile target)
    target_compile_options(${target} PRIVATE ${PELLUMAR_WARNINGS})
    pellumar_instrument(${target})
endfunction()

# The same without the warnings.
function(pellumar_instrument target)
    target_include_directories(${target} PUBLIC "${PELLUMAR_ROOT}/src")
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
        target_include_directories(${name} INTERFACE "${PELLUMAR_ROOT}/src")
        target_link_libraries(${name} INTERFACE ${ARG_LINK})
    endif()
endfunction()

# pellumar_qml_folder(name uri [LINK targets...]): the library of this folder's sources with its
# layouts (*.qml) and icons (icons/*.svg) as the QML module `uri`, compiled into the program,
# which calls the module's register function, as nothing else pulls a static module in.
function(pellumar_qml_folder name uri)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp"
         "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
    file(GLOB layouts CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}"
         "${CMAKE_CURRENT_SOURCE_DIR}/*.qml")
    file(GLOB icons CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}"
         "${CMAKE_CURRENT_SOURCE_DIR}/icons/*.svg")
    if("Theme.qml" IN_LIST layouts)
        set_source_files_properties(Theme.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    endif()
    # The layout of a class is loaded for it, and no type of its own.
    foreach(layout ${layouts})
        string(REPLACE ".qml" ".h" header ${layout})
        if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${header}")
            set_source_files_properties(${layout} PROPERTIES QT_QML_SKIP_QMLDIR_ENTRY TRUE)
        endif()
    endforeach()
    # For qmllint, which looks for the bases of types in these.
    set(modules QtQuick)
    if(NOT uri MATCHES "^Pellumar[.](Look|Kit)$")
        list(APPEND modules Pellumar.Kit)
    endif()
    string(REPLACE "." "/" folder ${uri})
    qt_add_library(${name} STATIC ${sources})
    # Code made ahead of time from the few expressions in our layouts costs more to build than it
    # saves; the bytecode is what makes the start fast.
    set_target_properties(${name} PROPERTIES AUTOMOC ON
        QT_QMLCACHEGEN_ARGUMENTS --only-bytecode)
    qt_add_qml_module(${name} URI ${uri} VERSION 1.0 NO_PLUGIN
        DEPENDENCIES ${modules}
        RESOURCE_PREFIX "/qt-project.org/imports"
        OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/qml/${folder}"
        QML_FILES ${layouts}
        RESOURCES ${icons})
    # What Qt generates is not ours to mend, and includes the headers of the types by name.
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS "${PELLUMAR_WARNINGS}")
    pellumar_instrument(${name})
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${ARG_LINK} Qt6::Quick)
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
    target_include_directories(${name} PRIVATE "${PELLUMAR_ROOT}/tests")
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest_main)
    set(timeout 300)
    set(label)
    if(ARG_LABEL)
        set(label LABELS ${ARG_LABEL})
    endif()
    if(ARG_LABEL STREQUAL "heavy")
        set(timeout 900)
    endif()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${timeout} ${label})
endfunction()
