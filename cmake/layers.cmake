# One library and one include root for each folder of src/, so that a folder can include exactly
# the folders that it names under USES: "console/x.h" is found through a folder in the build tree
# that holds one symbolic link, console -> src/console, and nothing else.

# Headers of outside services lie on the compiler's default path. Here stand headers of the same
# names that refuse to compile; only a layer with LIBRARIES of its own does without them.
set(SENTREL_FORBIDDEN_HEADERS ${CMAKE_SOURCE_DIR}/cmake/forbidden)

# sentrel_layer(<folder> [SOURCES <file>...] [USES <folder>...] [LIBRARIES <target>...])
# USES is everything that the folder may include: there is no way through another folder.
# LIBRARIES are outside libraries; only a folder that wraps an outside service names any. Text
# formatting (fmt) is open to all.
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
  if(NOT LAYER_LIBRARIES)
    target_include_directories(${target} BEFORE PRIVATE ${SENTREL_FORBIDDEN_HEADERS})
  endif()
  set_target_properties(${target} PROPERTIES
    SENTREL_USES "${LAYER_USES}" SENTREL_LIBRARIES "${LAYER_LIBRARIES}")
  set_property(GLOBAL APPEND PROPERTY SENTREL_LAYERS ${folder})
  list(TRANSFORM LAYER_USES PREPEND sentrel_)
  target_link_libraries(${target} PRIVATE ${LAYER_USES} ${LAYER_LIBRARIES} fmt::fmt)
endfunction()
