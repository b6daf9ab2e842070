# What `make install` and `make package` put where, below the prefix:
#   bin/                                    tolmen, maxsim, butil, pasteldata, tolmen-toolkit
#   share/tolmen/help/, kelbor.gif          help pages and the animation; the programs find them as
#                                           ../share/tolmen beside their bin/, so both stay siblings
#   share/tolmen/examples/                  the demo with its samples, laid out as under tools/
#   share/applications/, share/metainfo/    the desktop entry and the AppStream data
#   share/icons/hicolor/                    the icon, scalable and (with rsvg-convert) 128 pixels
#   share/man/man1/                         the manual pages, compressed
#   share/doc/tolmen/                       README and the unattended runs' reference

foreach(program tolmen maxsim butil pasteldata tolmen-toolkit)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION bin)
  endif()
endforeach()

install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/help/ DESTINATION share/tolmen/help)
# The animation (drawn by data/animation/make-kelbor.sh) is installed only: the build folder's
# programs play none, as the tests expect of a missing clip.
install(FILES ${CMAKE_SOURCE_DIR}/data/kelbor.gif DESTINATION share/tolmen)

install(PROGRAMS ${CMAKE_SOURCE_DIR}/tools/demo/demo.sh DESTINATION share/tolmen/examples/demo)
install(FILES ${CMAKE_SOURCE_DIR}/tools/demo/world.sh ${CMAKE_SOURCE_DIR}/tools/demo/demo.KTF ${CMAKE_SOURCE_DIR}/tools/demo/demo.script
              ${CMAKE_SOURCE_DIR}/tools/demo/billing.KTF
              ${CMAKE_SOURCE_DIR}/tools/demo/billing.script
        DESTINATION share/tolmen/examples/demo)
install(FILES ${CMAKE_SOURCE_DIR}/tools/maxsim/samples/demo.json
        DESTINATION share/tolmen/examples/maxsim/samples)
install(FILES ${CMAKE_SOURCE_DIR}/tools/pasteldata/samples/demo.json
        DESTINATION share/tolmen/examples/pasteldata/samples)

install(FILES ${CMAKE_SOURCE_DIR}/data/tolmen.desktop DESTINATION share/applications)
install(FILES ${CMAKE_SOURCE_DIR}/data/tolmen.metainfo.xml DESTINATION share/metainfo)
install(FILES ${CMAKE_SOURCE_DIR}/data/icons/tolmen.svg
        DESTINATION share/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_SOURCE_DIR}/README.md ${CMAKE_SOURCE_DIR}/docs/unattended.md
        DESTINATION share/doc/tolmen)

# The 128-pixel icon for menus that take no SVG, drawn from the SVG when rsvg-convert is there.
find_program(RSVG_CONVERT rsvg-convert)
set(generated)
if(RSVG_CONVERT)
  set(png ${CMAKE_BINARY_DIR}/icons/128x128/tolmen.png)
  add_custom_command(OUTPUT ${png}
                     COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons/128x128
                     COMMAND ${RSVG_CONVERT} -w 128 -h 128 -o ${png}
                             ${CMAKE_SOURCE_DIR}/data/icons/tolmen.svg
                     DEPENDS ${CMAKE_SOURCE_DIR}/data/icons/tolmen.svg VERBATIM)
  list(APPEND generated ${png})
  install(FILES ${png} DESTINATION share/icons/hicolor/128x128/apps)
else()
  message(STATUS "rsvg-convert not found: the 128-pixel icon is not made (librsvg2-bin has it)")
endif()

# Manual pages, compressed as Debian keeps them; -n leaves the time out so builds are the same.
file(GLOB man_pages ${CMAKE_SOURCE_DIR}/data/man/*.1)
foreach(page IN LISTS man_pages)
  get_filename_component(name ${page} NAME)
  set(gz ${CMAKE_BINARY_DIR}/man/${name}.gz)
  add_custom_command(OUTPUT ${gz}
                     COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
                     COMMAND gzip -9 -n -c ${page} > ${gz}
                     DEPENDS ${page})
  list(APPEND generated ${gz})
  install(FILES ${gz} DESTINATION share/man/man1)
endforeach()
add_custom_target(install_data ALL DEPENDS ${generated})

# `make package`: a Debian package, tolmen_<version>_<arch>.deb, installed under /usr.
set(TOLMEN_PACKAGE_MAINTAINER "Tolmen developers <tolmen@localhost>"
    CACHE STRING "The Maintainer field of the Debian package")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tolmen)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "transfer Maximizer clients into Pastel Accounting and raise recurring invoices")
# The summary above is the Description's first line; this is the text below it.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Tolmen writes a Pastel debtor for every selected Maximizer client into a\n\
customer import file, hands new account codes back to Maximizer, copies\n\
Pastel's figures into Maximizer's user-defined fields and raises recurring\n\
invoices into an invoice import file. Runs are set up in a wizard, saved as\n\
templates and run from the window, on a schedule or unattended (tolmen run).\n\
The package holds maxsim, a stand-in for a running Maximizer, and the tools\n\
butil, pasteldata and tolmen-toolkit.")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${TOLMEN_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The libraries' packages are read from the binaries where dpkg-shlibdeps can; otherwise they are
# named here (Debian 12's). Qt's SVG plug-in, which draws the window's icon, is loaded at run time,
# so no binary names it: it is always listed.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(DPKG_SHLIBDEPS)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6")
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS
      "libqt6widgets6, libqt6gui6, libqt6core6, libqt6printsupport6, libqt6svg6, libsqlite3-0, libfmt9, libstdc++6, libc6")
endif()
include(CPack)
