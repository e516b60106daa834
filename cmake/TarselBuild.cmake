# SPDX-License-Identifier: GPL-3.0-or-later
# Flags of our own code, and the two functions by which a folder becomes a library or a test program.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Paths below the base folder are hashed relatively, so that clones and build folders share objects;
    # the sloppiness settings are what precompiled headers need.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}
        CCACHE_NOHASHDIR=true CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
    add_link_options(-fuse-ld=mold)
endif()

# Released programs hold no path of the machine that built them, so that all builds of one commit are the same.
# ccache passes paths on that are relative to the build folder.
file(RELATIVE_PATH source_from_build ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
foreach(prefix ${CMAKE_BINARY_DIR}=build ${source_from_build}=. ${CMAKE_SOURCE_DIR}=.)
    add_compile_options($<$<CONFIG:Release>:-ffile-prefix-map=${prefix}>)
endforeach()

add_library(tarsel_flags INTERFACE)
target_compile_options(tarsel_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Werror)
target_compile_definitions(tarsel_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
    QT_NO_KEYWORDS TARSEL_VERSION="${PROJECT_VERSION}")
if(TARSEL_HARDEN AND NOT TARSEL_SANITIZE)
    # tests/house/check-hardening looks for each of them in the programs.
    add_compile_options(-fstack-protector-strong -fPIE "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-pie -Wl,-z,relro,-z,now)
endif()
if(TARSEL_SANITIZE)
    add_compile_options(-fsanitize=${TARSEL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TARSEL_SANITIZE})
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 takes the empty state of std::optional for a use of uninitialised members.
    target_compile_options(tarsel_flags INTERFACE -Wno-maybe-uninitialized)
endif()

# tarsel_library(<folder> SOURCES <file>... [USES <library>...] [INTERNAL <library>...] [PRECOMPILE <header>...])
# makes the static library tarsel_<folder>. USES names the libraries that its headers include, INTERNAL those that only
# its sources include; both together are what src/README.md allows this folder, and nothing else. PRECOMPILE names the
# headers of a precompiled header. They are over 100 MB each, so libraries share that of base, those with windows that
# of tarsel_widgets_headers.
function(tarsel_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;INTERNAL;PRECOMPILE" ${ARGN})
    add_library(tarsel_${name} STATIC ${ARG_SOURCES})
    set_target_properties(tarsel_${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_SEARCH_PATHS ${CMAKE_SOURCE_DIR}/src)
    target_include_directories(tarsel_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(tarsel_${name} PUBLIC ${ARG_USES} PRIVATE ${ARG_INTERNAL} tarsel_flags)
    if(ARG_PRECOMPILE)
        target_precompile_headers(tarsel_${name} PRIVATE ${ARG_PRECOMPILE})
    elseif(Qt6::Widgets IN_LIST ARG_USES OR Qt6::Widgets IN_LIST ARG_INTERNAL)
        target_precompile_headers(tarsel_${name} REUSE_FROM tarsel_widgets_headers)
    elseif(tarsel_base IN_LIST ARG_USES OR tarsel_base IN_LIST ARG_INTERNAL)
        target_precompile_headers(tarsel_${name} REUSE_FROM tarsel_base)
    endif()
endfunction()

# tarsel_tests(<folder> SOURCES <file>... USES <library>...): the program <folder>_tests, one ctest entry a case.
function(tarsel_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    add_executable(${name}_tests ${ARG_SOURCES})
    target_link_libraries(${name}_tests PRIVATE ${ARG_USES} tarsel_flags)
    target_include_directories(${name}_tests PRIVATE ${CMAKE_SOURCE_DIR})
    target_precompile_headers(${name}_tests REUSE_FROM tarsel_test_support)
    gtest_discover_tests(${name}_tests TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES
        PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=")
endfunction()
