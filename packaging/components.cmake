# Read by cpack for each kind of package: which components go into it.
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build_folder)
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_INSTALL_CMAKE_PROJECTS "${build_folder};zevfit;ALL;/")
else()
  set(CPACK_INSTALL_CMAKE_PROJECTS "${build_folder};zevfit;folder;/")
endif()
