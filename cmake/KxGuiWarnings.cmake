# One set of compiler switches for every target of the project.
add_library(kxgui_options INTERFACE)
target_compile_options(kxgui_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor)
if(KXGUI_WERROR)
  target_compile_options(kxgui_options INTERFACE -Werror)
endif()
if(KXGUI_SANITIZE)
  target_compile_options(kxgui_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
  target_link_options(kxgui_options INTERFACE -fsanitize=address,undefined)
endif()
target_include_directories(kxgui_options INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                                   $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}>)
