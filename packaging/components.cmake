# Read by cpack for each kind of package: which component goes into it.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(component desktop)
else()
  set(component folder)
endif()
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build_folder)
set(CPACK_INSTALL_CMAKE_PROJECTS "${build_folder};zevfit;${component};/")
