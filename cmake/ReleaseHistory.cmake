# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# The version is the project's; CHANGELOG.md gives each version's date and what it brought. The
# metainfo's releases and the manual pages' date come from there, so a version without an entry
# in the changelog fails here rather than shipping undated.
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md QUILLMERE_CHANGELOG_HEADINGS REGEX "^## ")
set(QUILLMERE_METAINFO_RELEASES "")
unset(QUILLMERE_RELEASE_DATE)
foreach(heading IN LISTS QUILLMERE_CHANGELOG_HEADINGS)
  if(NOT heading MATCHES "^## ([0-9]+\\.[0-9]+\\.[0-9]+) \\(([0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9])\\)$")
    message(FATAL_ERROR "CHANGELOG.md: '${heading}' is not '## VERSION (YYYY-MM-DD)'")
  endif()
  string(APPEND QUILLMERE_METAINFO_RELEASES "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>\n")
  if(CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
    set(QUILLMERE_RELEASE_DATE ${CMAKE_MATCH_2})
  endif()
endforeach()
if(NOT DEFINED QUILLMERE_RELEASE_DATE)
  message(FATAL_ERROR "CHANGELOG.md has no '## ${PROJECT_VERSION} (YYYY-MM-DD)' for the project's version")
endif()
string(STRIP "${QUILLMERE_METAINFO_RELEASES}" QUILLMERE_METAINFO_RELEASES)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
