# SPDX-License-Identifier: MIT
# What every target of the project shares, and the one way to add a plug-in or a test program.

# The project's own warnings and sanitizers, for one target.
function(vellum_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
  if(VELLUM_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_USE_QSTRINGBUILDER
                                               QT_NO_MESSAGELOGCONTEXT)
  if(VELLUM_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize=vptr -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    # The same for every target, as headers can only then be precompiled once for all; vltagmanager needs QT_NO_DEBUG.
    target_compile_definitions(${target} PRIVATE QT_NO_DEBUG QT_FORCE_ASSERTS)
    if(VELLUM_PRECOMPILED_HEADERS)
      target_precompile_headers(${target} REUSE_FROM ${VELLUM_PRECOMPILED_HEADERS})
    endif()
  endif()
endfunction()

# vellum_precompile_headers(<name> LIBRARIES <libraries> HEADERS <headers>): with sanitizers, targets of this folder and
# of those below it read the headers from a file. Other builds do without, so that each source file shows in them that it
# includes what it uses.
function(vellum_precompile_headers name)
  if(NOT VELLUM_SANITIZE)
    return()
  endif()
  cmake_parse_arguments(arg "" "" "LIBRARIES;HEADERS" ${ARGN})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  set(VELLUM_PRECOMPILED_HEADERS "")
  add_library(${name} OBJECT ${source})
  vellum_target_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  set(VELLUM_PRECOMPILED_HEADERS ${name} PARENT_SCOPE)
endfunction()

# vellum_add_layer(<name> FOLDER <folder> SOURCES <files> [USES <layers and libraries>] [LINKS <libraries>]): the objects
# of one folder of code. Their include path leads to the headers of that folder and, through the layers named, to those
# below: an include of any other folder does not build. LINKS are libraries that its sources use and its headers do not.
# Names are of small letters only: analysers tell folders of the project from generated ones so.
function(vellum_add_layer name)
  cmake_parse_arguments(arg "" "FOLDER" "SOURCES;USES;LINKS" ${ARGN})
  set(tree ${CMAKE_BINARY_DIR}/layers/${name})
  # Earlier a folder was one link; links made inside it would take the place of the headers themselves.
  foreach(folder IN ITEMS ${tree} ${tree}/${arg_FOLDER})
    if(IS_SYMLINK ${folder})
      file(REMOVE ${folder})
    endif()
  endforeach()
  file(MAKE_DIRECTORY ${tree}/${arg_FOLDER})
  # Header by header, as a folder inside may be a layer above.
  foreach(header IN LISTS arg_SOURCES)
    if(header MATCHES "\\.h$")
      file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${arg_FOLDER}/${header} ${tree}/${arg_FOLDER}/${header} SYMBOLIC)
    endif()
  endforeach()
  add_library(${name} OBJECT ${arg_SOURCES})
  vellum_target_defaults(${name})
  target_include_directories(${name} PUBLIC ${tree})
  target_link_libraries(${name} PUBLIC ${arg_USES} PRIVATE ${arg_LINKS})
  # Whoever joins layers reads both properties; what CMake adds to the first for LINKS is for its own eyes.
  set_target_properties(${name} PROPERTIES INTERFACE_LINK_LIBRARIES "${arg_USES}" VELLUM_LINKS "${arg_LINKS}")
endfunction()

# vellum_join_layers(<name> LAYERS <layers>): one name for the objects of all these layers, with the whole project on the
# include path, for whoever links them.
function(vellum_join_layers name)
  cmake_parse_arguments(arg "" "" "LAYERS" ${ARGN})
  add_library(${name} INTERFACE)
  target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
  foreach(layer IN LISTS arg_LAYERS)
    target_sources(${name} INTERFACE $<TARGET_OBJECTS:${layer}>)
    target_link_libraries(${name} INTERFACE $<TARGET_PROPERTY:${layer},INTERFACE_LINK_LIBRARIES>)
  endforeach()
endfunction()

# vellum_archive_layers(<name> LAYERS <layers> [LIBRARIES <libraries>]): the same as an archive, of which a program links
# what it uses, together with the libraries that hold the layers below. It needs AUTOMOC: without, CMake leaves out what
# moc writes for layers of folders that come after the archive's.
function(vellum_archive_layers name)
  cmake_parse_arguments(arg "" "" "LAYERS;LIBRARIES" ${ARGN})
  add_library(${name} STATIC)
  target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
  foreach(layer IN LISTS arg_LAYERS)
    get_target_property(links ${layer} VELLUM_LINKS)
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:${layer}>)
    target_link_libraries(${name} PRIVATE ${links} INTERFACE $<TARGET_PROPERTY:${layer},INTERFACE_LINK_LIBRARIES>)
  endforeach()
  target_link_libraries(${name} INTERFACE ${arg_LIBRARIES})
endfunction()

# vellum_add_plugin(<target> LIBRARIES <libraries>): a loadable module without prefix in build/plugins that defines
# nothing but the two entry points of Qt's plug-in loader.
function(vellum_add_plugin target)
  cmake_parse_arguments(arg "" "" "LIBRARIES" ${ARGN})
  set(symbols ${PROJECT_SOURCE_DIR}/cmake/plugin.symbols)
  add_library(${target} MODULE)
  vellum_target_defaults(${target})
  target_link_libraries(${target} PRIVATE ${arg_LIBRARIES})
  # Hosts keep connections to code of the plug-in and meta types that it registered, so its code stays mapped until the
  # process ends, also after an unload.
  target_link_options(${target} PRIVATE -Wl,--version-script=${symbols} -Wl,-z,nodelete)
  set_target_properties(${target} PROPERTIES
    PREFIX "" LINK_DEPENDS ${symbols} LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/plugins
    BUILD_RPATH "$ORIGIN/../lib" BUILD_RPATH_USE_ORIGIN ON INSTALL_RPATH "$ORIGIN/../..")
  install(TARGETS ${target} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/vellum/plugins)
endfunction()

# vellum_add_test(<name> SOURCES <files> LIBRARIES <libraries> [TIMEOUT <seconds>] [SLOW]): the test program <name>, run
# without a display. SLOW ones take more than about three seconds; the others have the label "quick".
function(vellum_add_test name)
  cmake_parse_arguments(arg "SLOW" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  vellum_target_defaults(${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} Qt5::Test)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  set(label quick)
  if(arg_SLOW)
    set(label slow)
  endif()
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=;LC_ALL=C.UTF-8;XDG_DATA_HOME=${CMAKE_BINARY_DIR}/tests/data;QTEST_FUNCTION_TIMEOUT=${arg_TIMEOUT}000"
    TIMEOUT ${arg_TIMEOUT}
    LABELS "${label}")
endfunction()
