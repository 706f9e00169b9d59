# tarvolyne_room(NAME [LOGIC rooms...] [WINDOWS rooms...])
#
# Makes the libraries of one room from the files of its folder:
#   NAME          plain C++20, links no Qt: every .cpp that is not a window's
#   NAME_windows  Qt Widgets: frm*.cpp, Qt*.cpp, *Widget.cpp, *Strip.cpp, *View.cpp
# LOGIC names the rooms whose logic this room's logic may use; WINDOWS names the rooms whose window
# library this room's windows may use besides. In the toolkit room every file is a window's.
function(tarvolyne_room name)
  cmake_parse_arguments(ROOM "QT_ONLY" "" "LOGIC;WINDOWS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  list(SORT sources)
  set(windows ${sources})
  if(NOT ROOM_QT_ONLY)
    list(FILTER windows INCLUDE REGEX "/(frm[^/]*|Qt[^/]*|[^/]*Widget|[^/]*Strip|[^/]*View)\\.cpp$")
  endif()
  set(logic ${sources})
  if(windows)
    list(REMOVE_ITEM logic ${windows})
  endif()

  if(logic)
    add_library(${name} STATIC ${logic})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ROOM_LOGIC})
    target_compile_options(${name} PRIVATE ${TARVOLYNE_LOGIC_OPTIONS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${ROOM_LOGIC})
  endif()

  if(windows)
    add_library(${name}_windows STATIC ${windows})
    target_link_libraries(${name}_windows PUBLIC ${name} ${ROOM_WINDOWS} Qt6::Widgets)
    if(ROOM_QT_ONLY)
      target_precompile_headers(${name}_windows PRIVATE ${CMAKE_SOURCE_DIR}/src/toolkit/Precompiled.h)
    else()
      target_precompile_headers(${name}_windows REUSE_FROM toolkit_windows)
    endif()
  elseif(ROOM_WINDOWS)
    add_library(${name}_windows INTERFACE)
    target_link_libraries(${name}_windows INTERFACE ${name} ${ROOM_WINDOWS})
  endif()
endfunction()
