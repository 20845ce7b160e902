# What `cmake --install` puts where, and the packages that CPack makes of it.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/corvane)

install(TARGETS corvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES README.md docs/file-formats.md docs/saving.md packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(UNIX)
  set(packaging ${CMAKE_CURRENT_BINARY_DIR}/packaging)
  configure_file(packaging/org.corvane.Corvane.metainfo.xml.in
                 ${packaging}/org.corvane.Corvane.metainfo.xml @ONLY)
  configure_file(packaging/changelog.in ${packaging}/changelog @ONLY)
  configure_file(packaging/corvane.1 ${packaging}/corvane.1 COPYONLY)
  foreach(page changelog corvane.1)
    # -n leaves out name and time, so that the same sources make the same package.
    execute_process(COMMAND gzip -9nfk ${packaging}/${page} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  install(FILES ${packaging}/org.corvane.Corvane.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES packaging/org.corvane.Corvane.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${packaging}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(FILES ${packaging}/corvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES packaging/icons/corvane.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(size 16 32 48 64 128 256)
    install(FILES packaging/icons/corvane-${size}.png RENAME corvane.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
endif()

set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR "The Corvane authors")
set(CPACK_PACKAGE_CONTACT "The Corvane authors <corvane@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for the strategic layer of Close Combat 4")
set(CPACK_PACKAGE_DESCRIPTION
"Corvane opens the executable of the game Close Combat 4, or a patch file, and
edits what makes up its strategic screen: map tiles, hotspots, arrows, the
connections between maps, and the file of each battle map. It checks the two
descriptions of the network against each other and changes only the bytes that
were edited.")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
