# The script engine: compiled from the source that its development package ships, with settings of our own. The
# package's compiled library has neither a time limit nor C++ exceptions.
find_path(DUKTAPE_SOURCES duktape.c PATHS /usr/share/duktape NO_CMAKE_FIND_ROOT_PATH)
if(NOT DUKTAPE_SOURCES)
    message(FATAL_ERROR "duktape.c is not found: run scripts/install-packages build")
endif()

# The settings are read where the configuration leaves room for them; its includes find the copies beside it.
set(DuktapeFolder ${CMAKE_BINARY_DIR}/duktape)
set(RoomForSettings "/* __OVERRIDE_DEFINES__ */")
file(READ ${DUKTAPE_SOURCES}/duk_config.h DuktapeConfig)
string(FIND "${DuktapeConfig}" "${RoomForSettings}" Found)
if(Found EQUAL -1)
    message(FATAL_ERROR "${DUKTAPE_SOURCES}/duk_config.h has no room for our settings")
endif()
string(REPLACE "${RoomForSettings}" "#include \"runtime/scripting/duktape/Settings.h\"" DuktapeConfig "${DuktapeConfig}")
file(CONFIGURE OUTPUT ${DuktapeFolder}/duk_config.h CONTENT "${DuktapeConfig}" @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${DUKTAPE_SOURCES}/duk_config.h)
configure_file(${DUKTAPE_SOURCES}/duktape.c ${DuktapeFolder}/duktape.c COPYONLY)
configure_file(${DUKTAPE_SOURCES}/duktape.h ${DuktapeFolder}/duktape.h COPYONLY)

# Foreign code: no warnings of ours, no tidying, no debug information. -O2 also where ours is not optimised.
add_library(duktape OBJECT ${CMAKE_SOURCE_DIR}/runtime/scripting/duktape/Engine.cc)
target_include_directories(duktape PRIVATE ${CMAKE_SOURCE_DIR})
target_include_directories(duktape SYSTEM PUBLIC ${DuktapeFolder})
target_compile_options(duktape PRIVATE -w -O2 -g0 -ftls-model=initial-exec)
set_target_properties(duktape PROPERTIES CXX_CLANG_TIDY "" CXX_VISIBILITY_PRESET hidden)
