# The program itself: one 32-bit file, nothing to install.
if(WIN32)
  enable_language(RC)
  add_executable(Pavorin WIN32 Pavorin.cpp pavorin.rc)
  target_link_libraries(Pavorin PRIVATE application plateforme_windows fenetrage_windows)
  target_compile_definitions(Pavorin PRIVATE
    PAVORIN_VERSION=${PROJECT_VERSION}
    PAVORIN_VERSION_NOMBRES=${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0)
  # Windows 7 is the oldest system: subsystem version 6.1.
  target_link_options(Pavorin PRIVATE
    -static -mwindows -s
    -Wl,--major-subsystem-version=6,--minor-subsystem-version=1
    -Wl,--dynamicbase,--nxcompat)
  set_target_properties(Pavorin PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
  set_property(SOURCE pavorin.rc APPEND PROPERTY OBJECT_DEPENDS
    "${CMAKE_CURRENT_SOURCE_DIR}/ressources/pavorin.manifest;${CMAKE_CURRENT_SOURCE_DIR}/ressources/pavorin.ico")
endif()
