# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

# What tells a desktop of Quillet: entry, icons, metainfo, and the provider of its search.

set(QUILLET_PROJECT_PAGE "" CACHE STRING
  "https address of the sources' folder, as a browser reads them; empty where they are on no server")

# Of the pictures in docs/images; centres of software fetch them from the project's page.
set(screenshots
  "search-light|Search, with its filters and the page of the chosen app"
  "page-dark|An app's page in the dark"
  "watchlist-light|The watchlist"
  "deals-dark|Today's deals in the dark"
  "compare-light|Three apps compared")

# quillet_page_lines(result page): what metainfo says of a page; nothing of none.
function(quillet_page_lines result page)
  set(lines "")
  if(page)
    string(APPEND lines "  <url type=\"homepage\">${page}</url>\n  <screenshots>\n")
    set(type default)
    foreach(each IN LISTS screenshots)
      string(REPLACE "|" ";" parts "${each}")
      list(GET parts 0 name)
      list(GET parts 1 caption)
      string(APPEND lines
        "    <screenshot type=\"${type}\">\n      <caption>${caption}</caption>\n"
        "      <image width=\"1280\" height=\"800\">${page}/docs/images/${name}.png</image>\n"
        "    </screenshot>\n")
      set(type extra)
    endforeach()
    string(APPEND lines "  </screenshots>\n")
  endif()
  set(${result} "${lines}" PARENT_SCOPE)
endfunction()

# The day of the last commit, where ./dev package calls.
string(TIMESTAMP QUILLET_DAY "%Y-%m-%d" UTC)
set(made "${CMAKE_CURRENT_BINARY_DIR}")
quillet_page_lines(QUILLET_PAGE "${QUILLET_PROJECT_PAGE}")
configure_file(metainfo.xml.in "${made}/org.example.Quillet.metainfo.xml" @ONLY)
quillet_page_lines(QUILLET_PAGE "https://quillet.example.org")
configure_file(metainfo.xml.in "${made}/with-page/org.example.Quillet.metainfo.xml" @ONLY)

install(FILES quillet.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${made}/org.example.Quillet.metainfo.xml"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
# By the application's ID, under which desktops look for them.
set(drawings "${PROJECT_SOURCE_DIR}/src/desktop/look/art")
install(FILES "${drawings}/quillet.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
install(FILES "${drawings}/quillet-symbolic.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps")

# The bus wants an absolute path, which is known once it is known where all of it goes. A package is
# put together elsewhere than it will be.
set(prefix "\${CMAKE_INSTALL_PREFIX}")
if(QUILLET_PACKAGE)
  set(prefix /usr)
endif()
set(service org.example.Quillet.SearchProvider.service)
install(CODE "set(QUILLET_PROGRAM \"${prefix}/${CMAKE_INSTALL_BINDIR}/quillet\")
  configure_file(\"${CMAKE_CURRENT_SOURCE_DIR}/${service}.in\" \"${made}/${service}\" @ONLY)")
install(FILES "${made}/${service}" DESTINATION "${CMAKE_INSTALL_DATADIR}/dbus-1/services")
install(FILES quillet-search-provider.ini
  DESTINATION "${CMAKE_INSTALL_DATADIR}/gnome-shell/search-providers")

find_program(QUILLET_DESKTOP_FILE_VALIDATE desktop-file-validate)
if(QUILLET_DESKTOP_FILE_VALIDATE)
  add_test(NAME desktop_entry
    COMMAND "${QUILLET_DESKTOP_FILE_VALIDATE}" "${CMAKE_CURRENT_SOURCE_DIR}/quillet.desktop")
endif()
find_program(QUILLET_APPSTREAMCLI appstreamcli)
if(QUILLET_APPSTREAMCLI)
  add_test(NAME metainfo COMMAND "${QUILLET_APPSTREAMCLI}" validate --no-net
    "${made}/org.example.Quillet.metainfo.xml" "${made}/with-page/org.example.Quillet.metainfo.xml")
endif()
