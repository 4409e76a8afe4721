# What `cmake --install` lays down and what cpack packs.
#
# The program, its library and the module stay together in one folder, so that each finds the others
# beside itself wherever that folder is; bin/ holds a link to the program. Windows, which has no such
# links for everybody, has all of it in bin/.
include(GNUInstallDirs)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # packing needs what is installed, not the tests
set(velmo_docs ${CMAKE_INSTALL_DATADIR}/doc/velmogroup)

if(WIN32)
  set(velmo_folder bin)
  install(FILES ${WINDOWS_RUNTIME_FILES} DESTINATION ${velmo_folder})
else()
  set(velmo_folder lib/velmogroup)
  set_target_properties(drafthost velmohost VelmoGroup PROPERTIES INSTALL_RPATH "$ORIGIN")
  set(link ${CMAKE_BINARY_DIR}/packaging/drafthost)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging)
  file(CREATE_LINK ../${velmo_folder}/drafthost ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION bin)

  configure_file(packaging/drafthost.1.in packaging/drafthost.1 @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/packaging/drafthost.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
install(TARGETS drafthost velmohost VelmoGroup
  RUNTIME DESTINATION ${velmo_folder} LIBRARY DESTINATION ${velmo_folder}
  ARCHIVE EXCLUDE_FROM_ALL DESTINATION ${velmo_folder})

# The pages keep their places to each other, so that links between them lead somewhere.
install(FILES README.md CONTRIBUTING.md CHANGELOG.md packaging/copyright DESTINATION ${velmo_docs})
install(DIRECTORY docs samples DESTINATION ${velmo_docs})

set(CPACK_PACKAGE_NAME velmogroup)
set(CPACK_PACKAGE_VENDOR Pelltrix)
set(CPACK_PACKAGE_CONTACT Pelltrix)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Lasting groups of drawing entities, with a headless drawing host")
set(CPACK_PACKAGE_DESCRIPTION "drafthost loads the module VelmoGroup.arx, runs scripts on DXF drawings
without a screen, checks drawings and lists the groups in them.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR DEB TGZ)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)  # what the binaries need, asked of themselves (dpkg-dev)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/bin)
include(CPack)
