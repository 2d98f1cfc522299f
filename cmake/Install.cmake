# What a host gets: the libraries with their headers under include/kxGui, the message files, the program, a package for
# find_package(kxGui) and one for pkg-config. The Qt face is a component of its own, so that a host without Qt needs none.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kxGui)
set(messages_dir ${CMAKE_INSTALL_DATADIR}/kxGui/messages)

# The libraries find each other wherever the tree is put.
set_target_properties(kxPlatform kxGui PROPERTIES INSTALL_RPATH "$ORIGIN")
file(RELATIVE_PATH bin_to_lib /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_target_properties(tavocad PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
install(TARGETS kxPlatform kxGui EXPORT kxGuiTargets)
install(EXPORT kxGuiTargets NAMESPACE kxGui:: DESTINATION ${package_dir})
install(TARGETS tavocad)

# Headers keep their folders, as every include path starts at the root. Those that show a library used inside stay out.
foreach(room platform kxgui)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${room} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxGui
          FILES_MATCHING PATTERN "*.h" PATTERN "IcuText.h" EXCLUDE PATTERN "Converters.h" EXCLUDE)
  install(FILES ${PROJECT_BINARY_DIR}/${room}/Export.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxGui/${room})
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/messages/ DESTINATION ${messages_dir} FILES_MATCHING PATTERN "*.ini")

if(KXGUI_BUILD_QT)
  set_target_properties(kxGuiQt PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS kxGuiQt EXPORT kxGuiQtTargets)
  install(EXPORT kxGuiQtTargets NAMESPACE kxGui:: DESTINATION ${package_dir})
  install(FILES ${PROJECT_SOURCE_DIR}/qt/QtToolkit.h ${PROJECT_SOURCE_DIR}/qt/Theme.h ${PROJECT_BINARY_DIR}/qt/Export.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kxGui/qt)
endif()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/kxGuiConfig.cmake.in ${PROJECT_BINARY_DIR}/kxGuiConfig.cmake
                              INSTALL_DESTINATION ${package_dir} PATH_VARS messages_dir)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kxGuiConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kxGuiConfig.cmake ${PROJECT_BINARY_DIR}/kxGuiConfigVersion.cmake
        DESTINATION ${package_dir})

file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${PROJECT_SOURCE_DIR}/cmake/kxgui.pc.in ${PROJECT_BINARY_DIR}/kxgui.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kxgui.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
