# One set of compiler switches for every target of the project.
add_library(kxgui_options INTERFACE)
target_compile_options(kxgui_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor)
# GCC 12 finds overlapping copies in its own std::string where there are none ("x" + std::to_string(n)).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kxgui_options INTERFACE -Wno-restrict)
endif()
if(KXGUI_WERROR)
  target_compile_options(kxgui_options INTERFACE -Werror)
endif()
if(KXGUI_SANITIZE)
  # With the sanitizers' checks in the way GCC 12 can't follow a std::variant and warns of members that are never read.
  target_compile_options(kxgui_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(kxgui_options INTERFACE -fsanitize=address,undefined)
endif()
target_include_directories(kxgui_options INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                                   $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}>)
if(KXGUI_LIBFUZZER)
  target_compile_options(kxgui_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(kxgui_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
