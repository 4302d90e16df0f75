# One way to declare a library, a program and a test of this house.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_CXX_FLAGS_DEV "-O1 -g1")
if(SCINTRA_SANITIZE)
    # the same checks as with -O1, compiled in little more than half the time
    set(CMAKE_CXX_FLAGS_DEV "-Og -g1")
endif()

find_program(CCACHE ccache)
if(CCACHE)
    # Without this sloppiness nothing that reads a precompiled header is kept. Going by what the compiler says it read
    # (depend mode) saves a run of the preprocessor over headers that are precompiled. Paths below the sources count
    # from the build folder, so that two working copies share what one of them has compiled without such headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_DEPEND=1
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

add_library(scintra_options INTERFACE)
target_include_directories(scintra_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(scintra_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_STRICT_ITERATORS)
if(MSVC)
    target_compile_options(scintra_options INTERFACE /W4 /WX /utf-8 /permissive-)
else()
    target_compile_options(scintra_options INTERFACE -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor
        -Woverloaded-virtual -Wcast-qual)
    # GCC 12 warns of joining a literal and a string that dies (GCC bug 105329); fixed in 13
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(scintra_options INTERFACE -Wno-restrict)
    endif()
endif()
if(SCINTRA_SANITIZE)
    target_compile_options(scintra_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(scintra_options INTERFACE -fsanitize=address,undefined)
endif()
if(SCINTRA_FUZZ)
    target_compile_options(scintra_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# GCC 12 warns at -O3 of a strange length where it joins strings out of a precompiled header (GCC bug 105329 again).
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# scintra_precompiled(core Qt6::Core): cmake/precompiled/core.h, read once for all targets of its kind
function(scintra_precompiled kind)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp CONTENT "")
    add_library(precompiled_${kind} OBJECT ${CMAKE_BINARY_DIR}/precompiled/${kind}.cpp)
    target_link_libraries(precompiled_${kind} PRIVATE scintra_options ${ARGN})
    # not by its full path, which would keep two working copies from sharing a compiler cache
    target_precompile_headers(precompiled_${kind} PRIVATE <cmake/precompiled/${kind}.h>)
    set_target_properties(precompiled_${kind} PROPERTIES AUTOMOC OFF AUTORCC OFF)
endfunction()

# scintra_use_precompiled(platform_ado core)
function(scintra_use_precompiled name kind)
    target_precompile_headers(${name} REUSE_FROM precompiled_${kind})
endfunction()

# A folder that was built before would not look at a header that is new: CMake 3.25 asks only for those that it knew.
function(scintra_see_new_files name sources)
    if(NOT "${SCINTRA_FILES_OF_${name}}" STREQUAL "${sources}")
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/timestamp)
        set(SCINTRA_FILES_OF_${name} "${sources}" CACHE INTERNAL "")
    endif()
endfunction()

# scintra_library(platform_ado DEPENDS scintra::platform_base Qt6::Core)
# takes every source, form and resource of the folder that calls it and of its themes, but for what stands behind
# EXCLUDE; SCINTRA_PRECOMPILED is the kind of the folder.
function(scintra_library name)
    cmake_parse_arguments(ARG "" "" "EXCLUDE;DEPENDS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.cpp *.h *.qrc)
    list(TRANSFORM ARG_EXCLUDE PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    list(REMOVE_ITEM sources ${ARG_EXCLUDE})
    file(GLOB_RECURSE forms CONFIGURE_DEPENDS *.ui)
    # not by AUTOUIC, which leaves what includes a changed form to the next build
    if(forms)
        qt_wrap_ui(from_forms ${forms})
        # what AUTOUIC once left in a build folder would be included first
        file(GLOB left_over ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/include/ui_*.h)
        if(left_over)
            file(REMOVE ${left_over})
        endif()
    endif()
    add_library(${name} STATIC ${sources} ${from_forms})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    add_library(scintra::${name} ALIAS ${name})
    scintra_see_new_files(${name} "${sources}")
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE scintra_options)
    scintra_use_precompiled(${name} ${SCINTRA_PRECOMPILED})
endfunction()

# scintra_program(scintra-tour SOURCES a.cpp DEPENDS ...): output name as given
function(scintra_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE scintra_options ${ARG_DEPENDS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
endfunction()

# scintra_desk_languages(de_DE tr_TR): the languages of desks that tests use, compiled into the build folder, for no
# computer has all of them; the C library finds them there by LOCPATH.
function(scintra_desk_languages)
    find_program(LOCALEDEF localedef REQUIRED)
    set(compiled "")
    foreach(language ${ARGN})
        set(file ${CMAKE_BINARY_DIR}/locale/${language}.UTF-8/LC_NUMERIC)
        add_custom_command(OUTPUT ${file}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/locale
            COMMAND ${LOCALEDEF} --no-archive -i ${language} -f UTF-8 ${CMAKE_BINARY_DIR}/locale/${language}.UTF-8
            COMMENT "Compiling the language ${language}")
        list(APPEND compiled ${file})
    endforeach()
    add_custom_target(desk_languages DEPENDS ${compiled})
endfunction()

# scintra_test(FOLDER platform/ado DEPENDS ...): one test program for each mirrored folder; it runs offscreen.
function(scintra_test)
    cmake_parse_arguments(ARG "" "FOLDER" "DEPENDS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${ARG_FOLDER}/*.cpp ${ARG_FOLDER}/*.h)
    if(NOT sources)
        return()
    endif()
    string(REPLACE "/" "_" name test_${ARG_FOLDER})
    add_executable(${name} ${sources})
    scintra_see_new_files(${name} "${sources}")
    target_link_libraries(${name} PRIVATE scintra_options ${ARG_DEPENDS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    if("scintra::tests_screens" IN_LIST ARG_DEPENDS)
        scintra_use_precompiled(${name} screen_tests)
    else()
        scintra_use_precompiled(${name} tests)
    endif()
    target_compile_definitions(${name} PRIVATE SCINTRA_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
        SCINTRA_BINARY_DIR="${CMAKE_BINARY_DIR}")
    add_dependencies(${name} desk_languages)
    add_test(NAME ${ARG_FOLDER} COMMAND ${name})
    set_tests_properties(${ARG_FOLDER} PROPERTIES TIMEOUT 600
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_SCALE_FACTOR=1;LC_ALL=C.UTF-8;TZ=Asia/Manila;LOCPATH=${CMAKE_BINARY_DIR}/locale;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/leaks.txt:print_suppressions=0")
endfunction()
