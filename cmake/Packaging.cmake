# What `cmake --install` installs. The Debian package and the Linux .tar.gz are made of it.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/corvane)
set(packaging ${CMAKE_CURRENT_BINARY_DIR}/packaging)

configure_file(packaging/README.md ${packaging}/README.md @ONLY)
file(GLOB documents CONFIGURE_DEPENDS docs/*.md)
list(REMOVE_ITEM documents ${CMAKE_CURRENT_SOURCE_DIR}/docs/performance.md)  # for developers

install(TARGETS corvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET corvane-tool)
  install(TARGETS corvane-tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(FILES ${packaging}/README.md ${documents} DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR})
file(GLOB schemas CONFIGURE_DEPENDS docs/*.schema.json)
install(FILES ${schemas} DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(UNIX)
  # Software centres load screenshots from the web only, so without an address there are none.
  set(CORVANE_PICTURES_URL "" CACHE STRING "https address of docs/pictures, for software centres")
  if(CORVANE_PICTURES_URL)
    configure_file(packaging/screenshots.xml.in ${packaging}/screenshots.xml @ONLY)
    file(READ ${packaging}/screenshots.xml screenshots)
  endif()
  configure_file(packaging/org.corvane.Corvane.metainfo.xml.in
                 ${packaging}/org.corvane.Corvane.metainfo.xml @ONLY)
  install(FILES ${packaging}/org.corvane.Corvane.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES packaging/org.corvane.Corvane.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  file(GLOB pages CONFIGURE_DEPENDS packaging/*.1)
  install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  if(TARGET corvane-tool)
    install(FILES packaging/corvane-tool.bash RENAME corvane-tool
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  endif()
  install(FILES packaging/icons/corvane.svg RENAME org.corvane.Corvane.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(size 16 32 48 64 128 256)
    install(FILES packaging/icons/corvane-${size}.png RENAME org.corvane.Corvane.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
endif()
