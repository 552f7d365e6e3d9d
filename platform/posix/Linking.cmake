# What compilers and linkers of ELF systems are told, in words that the other folders use.

# The program finds its libraries and its package beside itself, in the build tree as when installed. A run path of the
# build tree alone would be filled up with empty entries, which are the current folder.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib")
set(QUEXLEY_PACKAGE_RPATH "$ORIGIN/..")

# quexley_calls_itself(NAME): a library's calls of its own functions take no detour through the symbol table.
function(quexley_calls_itself NAME)
    target_compile_options(${NAME} PRIVATE -fno-semantic-interposition)
    target_link_options(${NAME} PRIVATE -Wl,-Bsymbolic-functions -Wl,-O1)
endfunction()

# quexley_exports(NAME SYMBOL...): the module shows these functions and nothing else.
function(quexley_exports NAME)
    set(Map ${CMAKE_CURRENT_BINARY_DIR}/${NAME}.map)
    list(JOIN ARGN "; " Symbols)
    file(CONFIGURE OUTPUT ${Map} CONTENT "{ global: @Symbols@; local: *; };\n" @ONLY)
    target_link_options(${NAME} PRIVATE -Wl,--version-script=${Map})
    set_target_properties(${NAME} PROPERTIES LINK_DEPENDS ${Map})
endfunction()
