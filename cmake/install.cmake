# `cmake --install` and the Debian package (`cpack -G DEB`, scripts/package.sh).
# The layout under the prefix is described in docs/install-layout.md.

# tallix-cli's man page, made from its own --help and --version text.
set(TALLIX_MAN_PAGE ${CMAKE_BINARY_DIR}/man/tallix-cli.1)
find_program(TALLIX_GZIP gzip)
if(TALLIX_GZIP)
    set(TALLIX_MAN_PAGE_FILE ${TALLIX_MAN_PAGE}.gz)
else()
    set(TALLIX_MAN_PAGE_FILE ${TALLIX_MAN_PAGE})
endif()
add_custom_command(
    OUTPUT ${TALLIX_MAN_PAGE_FILE}
    COMMAND ${CMAKE_COMMAND} -DCLI=$<TARGET_FILE:tallix-cli> -DOUT=${TALLIX_MAN_PAGE}
        -DDOCS=${CMAKE_INSTALL_PREFIX}/${TALLIX_INSTALL_DOCDIR} -DGZIP=${TALLIX_GZIP}
        -P ${CMAKE_SOURCE_DIR}/cmake/make_manpage.cmake
    DEPENDS tallix-cli ${CMAKE_SOURCE_DIR}/cmake/make_manpage.cmake
    COMMENT "Writing the man page of tallix-cli"
    VERBATIM)
add_custom_target(tallix-man ALL DEPENDS ${TALLIX_MAN_PAGE_FILE})

install(TARGETS tallix-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${TALLIX_MAN_PAGE_FILE} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

if(TALLIX_BUILD_UI)
    install(TARGETS tallix RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    # The nine button images, as the build folder's res/ holds them.
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/res/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tallix/res
        FILES_MATCHING PATTERN "*.bmp")
    install(FILES ${CMAKE_BINARY_DIR}/tallix_help.pdf DESTINATION ${TALLIX_INSTALL_DOCDIR})
    install(DIRECTORY ${CMAKE_BINARY_DIR}/icons/hicolor
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons FILES_MATCHING PATTERN "tallix.png")
    install(FILES ${CMAKE_SOURCE_DIR}/packaging/tallix.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    set(TALLIX_METAINFO ${CMAKE_BINARY_DIR}/packaging/org.tallix.tallix.metainfo.xml)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/org.tallix.tallix.metainfo.xml.in
        ${TALLIX_METAINFO} @ONLY)
    install(FILES ${TALLIX_METAINFO} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

# The Debian package. Its dependencies are read from the libraries the two
# programs link (dpkg-shlibdeps): Qt 6 and pugixml, the C++ runtime. The Help
# command and PRINT open files through the desktop (xdg-open); the guide is a
# PDF. Without a viewer the program says where the file is.
set(CPACK_PACKAGE_NAME tallix)
set(CPACK_PACKAGE_VENDOR "Tallix developers")
set(CPACK_PACKAGE_CONTACT "Tallix developers <tallix@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "household budget planner and register")
set(CPACK_PACKAGE_DESCRIPTION
    "Tallix plans and tracks a household's money month by month: a plan of\n"
    "expenses by category, the income sources, the banks and credit cards, and\n"
    "a register of lines for each month with running balances per account and\n"
    "card. tallix-cli works on the same year files from a terminal.")
string(JOIN "" CPACK_PACKAGE_DESCRIPTION ${CPACK_PACKAGE_DESCRIPTION})
set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS pdf-viewer)
include(CPack)
