# Installation and the Debian package. The programs go to bin; the program
# folder (read-only once installed: a user works in a copy of it) to
# share/solvane; the desktop entry, icon and AppStream metadata to their
# freedesktop places. Test and benchmark programs are not installed.
#   cmake --build --preset release --target package   ->  solvane_<version>_<arch>.deb
include(GNUInstallDirs)

install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/solvane)
foreach(program solvane solvane-cli Solv2020)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
endforeach()
install(FILES packaging/solvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/solvane.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/org.solvane.Solvane.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME solvane)
set(CPACK_PACKAGE_VENDOR "SOLVANE 2020")
set(CPACK_PACKAGE_CONTACT "SOLVANE 2020 developers <solvane@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Whole-building energy analysis and energy-code compliance")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
