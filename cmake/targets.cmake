# vk_library(<name> [QT] [SOURCES dir…] [LINK targets…]): a static library of all .cpp and .h files of
# the current folder (or of the named folders).
# vk_qt_library(<name> [SOURCES dir…] [LINK targets…]): the same on Qt's widgets; nothing in a build without Qt.
# vk_host_headers(<name> headers…): a library of headers alone that lie beside the build machine's own, for a build
# that must not see those.
# vk_test(<folder> [ALONE] [LINK targets…]): the test program test_<folder> of tests/<folder>/*.cpp. ALONE: it starts
# programs, which are kept apart from the user's and ended with it.

if(NOT VK_PORTABLE_ONLY)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets)
  # One precompiled header for every library on Qt; its flags must equal theirs.
  file(WRITE ${CMAKE_BINARY_DIR}/vk_pch.cpp "")
  add_library(vk_pch STATIC ${CMAKE_BINARY_DIR}/vk_pch.cpp)
  target_link_libraries(vk_pch PUBLIC vk_flags Qt6::Widgets)
  target_precompile_headers(vk_pch PRIVATE <QtWidgets> <functional> <map> <memory> <string> <vector>)
endif()

function(vk_library name)
  cmake_parse_arguments(ARG "QT" "" "SOURCES;LINK" ${ARGN})
  if(NOT ARG_SOURCES)
    set(ARG_SOURCES .)
  endif()
  set(files)
  foreach(dir IN LISTS ARG_SOURCES)
    file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.cpp
                                      ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.h)
    list(APPEND files ${found})
  endforeach()
  if(NOT files)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE vk_flags ${ARG_LINK})
    return()
  endif()
  add_library(${name} STATIC ${files})
  target_link_libraries(${name} PUBLIC vk_flags ${ARG_LINK})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  if(ARG_QT)
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_precompile_headers(${name} REUSE_FROM vk_pch)
  endif()
endfunction()

function(vk_qt_library name)
  if(NOT VK_PORTABLE_ONLY)
    vk_library(${name} QT ${ARGN})
  endif()
endfunction()

function(vk_host_headers name)
  set(folder ${CMAKE_BINARY_DIR}/host_headers)
  file(MAKE_DIRECTORY ${folder})
  foreach(header IN LISTS ARGN)
    find_path(VK_HOST_${header} ${header} PATHS /usr/include REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    file(CREATE_LINK ${VK_HOST_${header}}/${header} ${folder}/${header} SYMBOLIC)
  endforeach()
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${folder})
endfunction()

function(vk_program name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB files CONFIGURE_DEPENDS *.cpp *.h)
  add_executable(${name} ${files})
  target_link_libraries(${name} PRIVATE vk_flags ${ARG_LINK})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${VK_APP_DIR})
endfunction()

function(vk_test folder)
  cmake_parse_arguments(ARG "ALONE" "" "LINK" ${ARGN})
  file(GLOB files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
                                    ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h)
  if(NOT files)
    return()
  endif()
  add_executable(test_${folder} ${files})
  target_link_libraries(test_${folder} PRIVATE vk_flags vk_test_support ${ARG_LINK})
  target_compile_options(test_${folder} PRIVATE -fPIC) # as the header was compiled, and as Qt wants it
  target_precompile_headers(test_${folder} REUSE_FROM vk_test_pch)
  if(ARG_ALONE)
    set_target_properties(test_${folder} PROPERTIES CROSSCOMPILING_EMULATOR
                          "${Python3_EXECUTABLE};${PROJECT_SOURCE_DIR}/tests/support/alone.py")
  endif()
  gtest_discover_tests(test_${folder} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120
                       ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp")
endfunction()
