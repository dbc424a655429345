# Warnings, sanitizers and the compiler cache, for every target.
add_library(vk_flags INTERFACE)
target_compile_options(vk_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
target_include_directories(vk_flags INTERFACE ${PROJECT_SOURCE_DIR})

# GCC 12 takes inlined string and vector code of its own library for overlapping and overlong copies
# (GCC bugs 105329 and 105651); only optimised builds see it.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(vk_flags INTERFACE
    $<$<CONFIG:Release>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>)
endif()

if(VK_SANITIZE)
  target_compile_options(vk_flags INTERFACE -fsanitize=${VK_SANITIZE} -fno-omit-frame-pointer
                                            -fno-sanitize-recover=all)
  target_link_options(vk_flags INTERFACE -fsanitize=${VK_SANITIZE})
endif()
if(VK_FUZZ)
  target_compile_options(vk_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
  target_link_options(vk_flags INTERFACE -fsanitize=address,undefined)
endif()

find_program(VK_CCACHE ccache)
if(VK_CCACHE)
  # Precompiled headers are cached only when ccache may overlook their time stamps.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${VK_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(vk_flags INTERFACE -fpch-preprocess)
  endif()
endif()
