# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# What a Debian desktop program ships beside its binaries, and the .deb that holds it all:
# `cmake --build build --target package` writes build/quillmere_VERSION_ARCH.deb.

# AppStream metainfo, with the releases of CHANGELOG.md (cmake/ReleaseHistory.cmake).
set(QUILLMERE_METAINFO ${CMAKE_BINARY_DIR}/${QUILLMERE_APP_ID}.metainfo.xml)
configure_file(${PROJECT_SOURCE_DIR}/resources/${QUILLMERE_APP_ID}.metainfo.xml.in ${QUILLMERE_METAINFO} @ONLY)
install(FILES ${QUILLMERE_METAINFO} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Manual pages, written by each program from the options its --help lists, compressed as Debian
# keeps them. gzip -n leaves out the name and time, so the same sources give the same bytes.
set(QUILLMERE_MAN_DIR ${CMAKE_BINARY_DIR}/man)
set(QUILLMERE_MAN_PAGES "")
foreach(program IN ITEMS quillmere quillmere-cli)
  set(page ${QUILLMERE_MAN_DIR}/${program}.1)
  add_custom_command(
    OUTPUT ${page} ${page}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${QUILLMERE_MAN_DIR}
    COMMAND $<TARGET_FILE:${program}> --man > ${page}
    COMMAND gzip -9nf -c ${page} > ${page}.gz
    DEPENDS ${program}
    COMMENT "Writing the manual page ${program}(1)"
    VERBATIM)
  list(APPEND QUILLMERE_MAN_PAGES ${page}.gz)
endforeach()
set(QUILLMERE_DOC_CHANGELOG ${CMAKE_BINARY_DIR}/changelog.gz)
add_custom_command(
  OUTPUT ${QUILLMERE_DOC_CHANGELOG}
  COMMAND gzip -9nf -c ${PROJECT_SOURCE_DIR}/CHANGELOG.md > ${QUILLMERE_DOC_CHANGELOG}
  DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  VERBATIM)
add_custom_target(manual_pages ALL DEPENDS ${QUILLMERE_MAN_PAGES} ${QUILLMERE_DOC_CHANGELOG})
install(FILES ${QUILLMERE_MAN_PAGES} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The licence and the data's provenance, the changelog, and the sample portfolio with its people.
set(QUILLMERE_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/quillmere)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${QUILLMERE_DOC_CHANGELOG} DESTINATION ${QUILLMERE_DOC_DIR})
install(FILES ${PROJECT_SOURCE_DIR}/examples/sample.bondportfolio ${PROJECT_SOURCE_DIR}/examples/people.vcf
        DESTINATION ${QUILLMERE_DOC_DIR}/examples)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmere)
set(CPACK_PACKAGE_VENDOR Larchfield)
set(CPACK_PACKAGE_CONTACT "Larchfield <developers@quillmere.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://quillmere.org/)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "keep track of a household's United States savings bonds")
# CPack puts the summary first and indents the rest, writing the empty line as " .".
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Quillmere keeps portfolios of savings bonds (Series E, EE, I and Savings
Notes) with their owners, co-owners and beneficiaries, values them as of any
month from the Treasury's official redemption values, and shows the interest
earned per tax year. It updates its values from the Treasury's Fiscal Data
service, exports CSV and QIF, imports CSV and prints.

This package holds the window (quillmere), the command-line program
(quillmere-cli) and the redemption value database.")
# The libraries the binaries link, as dpkg-shlibdeps finds them; and the plugins Qt loads by
# itself: the X11 and Wayland platforms and the SVG icons.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6svg6")
# The printed portfolio's font (Helvetica's metric twin); the databases of desktop entries and MIME
# types, which refresh themselves through dpkg's file triggers on the folders this package fills.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-urw-base35, qt6-wayland, desktop-file-utils, shared-mime-info, hicolor-icon-theme")
include(CPack)
