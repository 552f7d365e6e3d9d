# find_package(Quexley): Quexley::Host, what a package is built with.
get_filename_component(QUEXLEY_PREFIX "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
find_library(QUEXLEY_CORE QX40CoreAPI HINTS "${QUEXLEY_PREFIX}/lib" REQUIRED NO_DEFAULT_PATH)
add_library(Quexley::Host INTERFACE IMPORTED)
set_target_properties(Quexley::Host PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${QUEXLEY_PREFIX}/include/quexley"
    INTERFACE_LINK_LIBRARIES "${QUEXLEY_CORE}")
