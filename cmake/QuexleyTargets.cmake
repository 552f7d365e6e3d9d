# Settings that all of our own targets share, and where built things go.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(WIN32)
    set(QUEXLEY_SYSTEM win32)
else()
    set(QUEXLEY_SYSTEM posix)
endif()
include(${CMAKE_SOURCE_DIR}/platform/${QUEXLEY_SYSTEM}/Linking.cmake)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

find_program(QUEXLEY_CCACHE ccache)
if(QUEXLEY_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${QUEXLEY_CCACHE})
endif()

option(QUEXLEY_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(QUEXLEY_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # GCC cannot see through the sanitizers' code and takes parts of the standard library for uninitialised.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-error=maybe-uninitialized>)
    add_link_options(-fsanitize=address,undefined)
endif()

option(QUEXLEY_TIDY "Run clang-tidy on every file that is compiled" OFF)
if(QUEXLEY_TIDY)
    find_program(QUEXLEY_CLANG_TIDY clang-tidy REQUIRED)
    set(CMAKE_CXX_CLANG_TIDY ${QUEXLEY_CLANG_TIDY} --quiet)
endif()

# quexley_target(NAME): our warnings, as errors, and the project's root as include folder.
function(quexley_target NAME)
    target_compile_options(${NAME} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # Warns of overlapping copies in the library's own string concatenation (GCC bug 105329).
        target_compile_options(${NAME} PRIVATE -Wno-restrict)
    endif()
    target_include_directories(${NAME} PUBLIC ${CMAKE_SOURCE_DIR})
endfunction()

# quexley_package(NAME): a package, where the program looks for packages. It shows its entry and nothing else.
function(quexley_package NAME)
    set_target_properties(${NAME} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/quexley
        INSTALL_RPATH "${QUEXLEY_PACKAGE_RPATH}")
    quexley_exports(${NAME} QXRegister)
endfunction()

# quexley_sources(VARIABLE FOLDER...): every .cpp file of the folders, so that a new file needs no entry.
function(quexley_sources VARIABLE)
    set(Sources)
    foreach(Folder ${ARGN})
        cmake_path(SET Pattern NORMALIZE ${CMAKE_CURRENT_SOURCE_DIR}/${Folder}/*.cpp)
        file(GLOB Found CONFIGURE_DEPENDS ${Pattern})
        list(APPEND Sources ${Found})
    endforeach()
    set(${VARIABLE} ${Sources} PARENT_SCOPE)
endfunction()
