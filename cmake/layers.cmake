# One library and one include root for each folder of src/, so that a folder can include exactly
# the folders that it names under USES: "console/x.h" is found through a folder in the build tree
# that holds one symbolic link, console -> src/console, and nothing else.

# sentrel_guard(<library> <target> <pattern>...)
# The headers of outside libraries lie on the compiler's default path. For each one that matches a
# pattern, a header of the same name is made that refuses to compile. It comes first on the path of
# every layer that does not name the target under LIBRARIES.
function(sentrel_guard library target)
  set(guard ${CMAKE_BINARY_DIR}/roots/guards/${library})
  foreach(root IN LISTS CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
    list(TRANSFORM ARGN PREPEND ${root}/ OUTPUT_VARIABLE patterns)
    file(GLOB_RECURSE headers RELATIVE ${root} ${patterns})
    foreach(header IN LISTS headers)
      file(CONFIGURE OUTPUT ${guard}/${header}
        CONTENT "#error \"This layer does not name ${library} under LIBRARIES.\"\n")
    endforeach()
  endforeach()
  if(NOT EXISTS ${guard})
    message(FATAL_ERROR "There are no headers of ${library} to guard.")
  endif()
  set_property(GLOBAL APPEND PROPERTY SENTREL_GUARDED ${target})
  set_property(GLOBAL PROPERTY SENTREL_GUARD_OF_${target} ${guard})
endfunction()

sentrel_guard(net-snmp PkgConfig::NetSnmp net-snmp/*.h)
sentrel_guard(SQLite PkgConfig::Sqlite sqlite3*.h)
sentrel_guard(JSON nlohmann_json::nlohmann_json nlohmann/*.hpp)
sentrel_guard(libxlsxwriter PkgConfig::XlsxWriter xlsxwriter.h xlsxwriter/*.h)
sentrel_guard(utf8proc PkgConfig::Utf8Proc utf8proc.h)

# sentrel_layer(<folder> [SOURCES <file>...] [USES <folder>...] [LIBRARIES <target>...])
# USES is everything that the folder may include: there is no way through another folder.
# LIBRARIES are outside libraries, whose headers it may include too; only a folder that wraps an
# outside service names any. Text formatting (fmt) is open to all.
# A folder of headers alone has no SOURCES.
function(sentrel_layer folder)
  cmake_parse_arguments(PARSE_ARGV 1 LAYER "" "" "SOURCES;USES;LIBRARIES")
  set(root ${CMAKE_BINARY_DIR}/roots/${folder})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${root}/${folder} SYMBOLIC)
  set(target sentrel_${folder})
  if(NOT LAYER_SOURCES)
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${root})
    return()
  endif()

  add_library(${target} STATIC ${LAYER_SOURCES})
  target_include_directories(${target} PUBLIC ${root})
  get_property(guarded GLOBAL PROPERTY SENTREL_GUARDED)
  foreach(library IN LISTS guarded)
    if(NOT library IN_LIST LAYER_LIBRARIES)
      get_property(guard GLOBAL PROPERTY SENTREL_GUARD_OF_${library})
      target_include_directories(${target} BEFORE PRIVATE ${guard})
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES
    SENTREL_USES "${LAYER_USES}" SENTREL_LIBRARIES "${LAYER_LIBRARIES}")
  set_property(GLOBAL APPEND PROPERTY SENTREL_LAYERS ${folder})
  list(TRANSFORM LAYER_USES PREPEND sentrel_)
  target_link_libraries(${target} PRIVATE ${LAYER_USES} ${LAYER_LIBRARIES} fmt::fmt)
endfunction()
